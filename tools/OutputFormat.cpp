#include "tools/OutputFormat.h"

#include <tools/ListOf.h>
#include <tools/Usage.h>

#include <QCommandLineParser>

namespace {

constexpr QStringView OptionName = u"format";
constexpr QStringView TextName = u"text";
constexpr QStringView JsonName = u"json";
constexpr QStringView GeoJsonName = u"geojson";

} // namespace

QCommandLineOption formatOption(FormatChoice choice)
{
    const auto names = listOf<QStringList>(OptionName.toString());
    if (choice == FormatChoice::WithGeoJson) {
        return {names, QStringLiteral("text (the default), json, or geojson (the area alone)."),
                GeoFormatName.toString()};
    }
    return {names, QStringLiteral("text (for people, the default) or json (for scripts)."),
            FormatName.toString()};
}

QStringList outputFormatNames(FormatChoice choice)
{
    auto names = listOf<QStringList>(TextName.toString(), JsonName.toString());
    if (choice == FormatChoice::WithGeoJson)
        names += GeoJsonName.toString();
    return names;
}

OutputFormat outputFormat(const QCommandLineParser &parser, FormatChoice choice)
{
    const QStringList formats = parser.values(OptionName.toString());
    if (formats.size() > 1)
        throw UsageError{QStringLiteral("--format can be given only once")};
    if (formats.isEmpty() || formats.constFirst() == TextName)
        return OutputFormat::Text;
    if (formats.constFirst() == JsonName)
        return OutputFormat::Json;
    if (choice == FormatChoice::Common || formats.constFirst() != GeoJsonName)
        throw Usage::unknown(QStringLiteral("format"), formats.constFirst(), outputFormatNames(choice));
    return OutputFormat::GeoJson;
}
