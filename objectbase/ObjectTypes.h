#ifndef TESSEL_OBJECTTYPES_H
#define TESSEL_OBJECTTYPES_H

#include <objectbase/objectbase_export.h>

#include <QString>

QT_BEGIN_NAMESPACE
class QDebug;
QT_END_NAMESPACE

namespace TESSEL {

/// The types of object that have a name of their own. The numbers are fixed: stored data refer to them.
enum class ObjectTypes : qint32 {
    Invalid = -1,
    Area = 12,
    AntennaData = 17,
    GenericReceiver = 38,
    Job = 40,
    JobHeader = 41,
};

/// The name of objects of \a type, which is also the name of their XML element; empty when \a type is none
/// of the enumerators.
[[nodiscard]] OBJECTBASE_EXPORT QString ObjectTypeToName(ObjectTypes type);

/// The type whose name is exactly \a name (case-sensitive), or ObjectTypes::Invalid.
[[nodiscard]] OBJECTBASE_EXPORT ObjectTypes NameToObjectType(const QString &name);

/// Writes the name of \a value, or its number when it has none.
OBJECTBASE_EXPORT QDebug operator<<(QDebug debug, ObjectTypes value);

} // namespace TESSEL

#endif
