#include "objectbase/ObjectTypes.h"

#include <objectbase/Constants_p.h>
#include <objectbase/Shared_p.h>

#include <QStringList>

#include <algorithm>
#include <iterator>

namespace TESSEL {

namespace {

[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;

// Not a Vocabulary: the numbers of the object types have gaps.
constexpr struct {
    ObjectTypes type;
    QStringView name;
} TypeNames[] = {
    {ObjectTypes::Area, u"Area"},
    {ObjectTypes::AntennaData, u"AntennaData"},
    {ObjectTypes::GenericReceiver, u"GenericReceiver"},
    {ObjectTypes::Job, u"Job"},
    {ObjectTypes::JobHeader, u"JobHeader"},
};

} // namespace

QString ObjectTypeToName(ObjectTypes type)
{
    const auto row = std::find_if(std::begin(TypeNames), std::end(TypeNames),
                                  [type](const auto &candidate) { return candidate.type == type; });
    if (row == std::end(TypeNames))
        return {};
    const QStringList names = shared([] {
        QStringList list;
        for (const auto &typeName : TypeNames)
            list << typeName.name.toString();
        return list;
    });
    return names.at(static_cast<int>(row - std::begin(TypeNames)));
}

ObjectTypes NameToObjectType(const QString &name)
{
    const auto row = std::find_if(std::begin(TypeNames), std::end(TypeNames),
                                  [&name](const auto &candidate) { return candidate.name == name; });
    return row == std::end(TypeNames) ? ObjectTypes::Invalid : row->type;
}

} // namespace TESSEL
