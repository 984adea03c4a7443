// Reads JSON that is an object.
#ifndef KORMAK_INSPECTION_JSONOBJECT_P_H
#define KORMAK_INSPECTION_JSONOBJECT_P_H

#include <QByteArray>
#include <QJsonObject>

namespace KORMAK::Inspection {

/// The object that \a json is. Whole numbers that are so long that not every double holds them are texts in
/// it.
/// \throws TESSEL::TesselException when it is no object, or when an object in it has two members of one name
[[nodiscard]] QJsonObject jsonObjectOf(const QByteArray &json);

} // namespace KORMAK::Inspection

#endif
