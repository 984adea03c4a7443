// What holds of a KORMAK::DocumentEdit whatever text it is made of. The functions throw a Violation where it
// does not.
#ifndef KORMAK_FUZZ_EDITPROPERTIES_H
#define KORMAK_FUZZ_EDITPROPERTIES_H

#include <QByteArray>

namespace Fuzz {

/// Sets fields of the document that \a text is, if it is one, and puts right what is certain.
void checkEdit(const QByteArray &text);

/// Gives areas the outline that \a geoJson is, if it is one.
void checkGeoJson(const QByteArray &geoJson);

} // namespace Fuzz

#endif
