#include "fuzz/Targets.h"

#include <fuzz/BinaryProperties.h>
#include <fuzz/EditProperties.h>
#include <fuzz/InspectionProperties.h>
#include <tests/support/DocumentKinds.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <tuple>
#ifdef KORMAK_FUZZES_TOOL
#include <fuzz/ToolProperties.h>
#endif

namespace Fuzz {

namespace {

struct KindRow {
    const char *rootElement;
    Check xml;
    Check binary;
};

constexpr auto Kinds = std::apply(
    [](auto... kind) {
        return std::array{KindRow{kind.name, checkXml<typename decltype(kind)::Document>,
                                  checkBinary<typename decltype(kind)::Document>}...};
    },
    TestSupport::Kinds);

/// Looks at \a input as every kind when it names none, else as that kind and as the one behind it, which must
/// not take it.
void checkAsNamed(const QString &name, Check KindRow::*check, const QByteArray &input)
{
    const auto named = std::find_if(std::begin(Kinds), std::end(Kinds),
                                    [&name](const KindRow &row) { return name == row.rootElement; });
    if (named == std::end(Kinds)) {
        for (const KindRow &row : Kinds)
            (row.*check)(input);
    } else {
        const auto next = std::next(named);
        ((*named).*check)(input);
        ((next == std::end(Kinds) ? *std::begin(Kinds) : *next).*check)(input);
    }
}

void checkDocument(const QByteArray &input)
{
    checkAsNamed(rootOf(QString::fromUtf8(input)), &KindRow::xml, input);
}

void checkAnyBinary(const QByteArray &input)
{
    const auto parts = BinaryParts::of(input);
    checkAsNamed(parts ? QString::fromUtf8(parts->name) : QString(), &KindRow::binary, input);
}

constexpr struct {
    const char *name;
    Check check;
} TargetsOfAllKinds[] = {
    {"Document", checkDocument},
    {"Binary", checkAnyBinary},
    {"Edit", checkEdit},
    {"GeoJson", checkGeoJson},
    {"Inspection", [](const QByteArray &input) { checkInspection(input); }},
#ifdef KORMAK_FUZZES_TOOL
    {"ToolDocument", [](const QByteArray &input) { checkToolOnDocument(runTool, input); }},
    {"ToolNew", [](const QByteArray &input) { checkToolOnAssignments(runTool, input); }},
#endif
};

} // namespace

Check findTarget(const QString &name)
{
    for (const KindRow &row : Kinds) {
        if (name == row.rootElement)
            return row.xml;
    }
    for (const auto &row : TargetsOfAllKinds) {
        if (name == row.name)
            return row.check;
    }
    return nullptr;
}

QStringList targetNames()
{
    QStringList names;
    for (const KindRow &row : Kinds)
        names << row.rootElement;
    for (const auto &row : TargetsOfAllKinds)
        names << row.name;
    return names;
}

} // namespace Fuzz
