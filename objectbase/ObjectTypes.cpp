#include "objectbase/ObjectTypes.h"

#include <objectbase/Constants_p.h>
#include <objectbase/Debug_p.h>
#include <objectbase/Vocabularies_p.h>

#include <algorithm>

namespace TESSEL {

namespace {

[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;

constexpr NamedValue row(ObjectTypes type, QStringView name)
{
    return {static_cast<qint32>(type), name, name};
}

// Not a Vocabulary: the numbers of the object types have gaps.
constexpr NamedValue Rows[] = {
    row(ObjectTypes::Area, u"Area"),
    row(ObjectTypes::AntennaData, u"AntennaData"),
    row(ObjectTypes::GenericReceiver, u"GenericReceiver"),
    row(ObjectTypes::Job, u"Job"),
    row(ObjectTypes::JobHeader, u"JobHeader"),
};

} // namespace

NameTable objectTypes()
{
    return NameTable(Rows);
}

QString ObjectTypeToName(ObjectTypes type)
{
    const NamedValue *const row = objectTypes().find(static_cast<qint32>(type));
    if (row == objectTypes().end())
        return {};
    return shared([] { return objectTypes().names(); }).at(static_cast<int>(row - objectTypes().begin()));
}

ObjectTypes NameToObjectType(const QString &name)
{
    return static_cast<ObjectTypes>(objectTypes().valueOf(name));
}

QDebug operator<<(QDebug debug, ObjectTypes value)
{
    return printName(debug, objectTypes(), value);
}

} // namespace TESSEL
