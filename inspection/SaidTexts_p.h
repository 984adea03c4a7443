// What a document says of its fields, letter by letter.
#ifndef KORMAK_INSPECTION_SAIDTEXTS_P_H
#define KORMAK_INSPECTION_SAIDTEXTS_P_H

#include <inspection/inspection_export.h>
#include <objectbase/ReadingLimits.h>

#include <QByteArray>
#include <QHash>
#include <QString>

namespace KORMAK::Inspection {

/// The texts of the elements and attributes that fields are read from, by the paths of the fields; what is
/// not there is left out. Empty when \a text is not read to its end.
[[nodiscard]] INSPECTION_EXPORT QHash<QString, QString> saidTexts(const QByteArray &text,
                                                                  const TESSEL::ReadingLimits &limits = {});

} // namespace KORMAK::Inspection

#endif
