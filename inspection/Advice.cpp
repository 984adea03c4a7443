#include "inspection/Advice_p.h"

#include <QString>

#include <algorithm>
#include <iterator>

namespace KORMAK::Inspection {

namespace {

constexpr QStringView Obsolete = u"is passed over: a setting of older systems, which is no more";

constexpr Advice requirement(QStringView object, QStringView row, QStringView text)
{
    Advice advice{object, row};
    advice.requirement = text;
    return advice;
}

constexpr Advice ignored(QStringView object, QStringView row, QStringView text)
{
    Advice advice{object, row};
    advice.ignored = text;
    return advice;
}

constexpr Advice incomplete(QStringView object, QStringView row, QStringView text, QStringView missing = {},
                            QStringView place = {})
{
    Advice advice{object, row};
    advice.incomplete = text;
    advice.missing = missing;
    advice.place = place;
    return advice;
}

constexpr Advice All[] = {
    incomplete(u"JobHeader", u"ConnectableResource",
               u"a search job needs a connectable resource, for which a document has no element: no such job "
               u"is ever complete",
               {}, u"JobType"),
    incomplete(u"JobHeader", u"ShowJDH",
               u"is empty: the header is not complete, and the library would write nothing"),
    incomplete(
        u"Job", u"ResourceType",
        u"only a job on the resource \"Antenna\" is ever complete; the library would write nothing for "
        u"this one",
        u"only a job with ResourceType \"Antenna\" is written"),
    requirement(u"AntennaData", u"MinimumFrequency", u"0 Hz or more"),
    requirement(u"AntennaData", u"MaximumFrequency", u"above 0 Hz and the minimum frequency"),
    ignored(u"AutomaticWorkflow", u"@Mode", u"is not read: the mode is read from an element \"Mode\""),
    ignored(u"String", u"@Default", u"is not read: the default is read from an element \"Default\""),
    ignored(u"ActivityGeneration", u"DbWriteLevel", Obsolete),
    ignored(u"ActivityGeneration", u"DbWriteDc", Obsolete),
};

} // namespace

Advice adviceFor(QStringView object, QStringView row)
{
    const auto *const found = std::find_if(std::begin(All), std::end(All), [&](const Advice &candidate) {
        return candidate.object == object && candidate.row == row;
    });
    return found == std::end(All) ? Advice() : *found;
}

} // namespace KORMAK::Inspection
