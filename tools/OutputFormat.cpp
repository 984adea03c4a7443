#include "tools/OutputFormat.h"

#include <tools/ListOf.h>
#include <tools/Usage.h>

#include <QCommandLineParser>

namespace {

constexpr QStringView OptionName = u"format";
constexpr QStringView TextName = u"text";
constexpr QStringView JsonName = u"json";

} // namespace

QCommandLineOption formatOption()
{
    return {listOf<QStringList>(OptionName.toString()),
            QStringLiteral("text (for people, the default) or json (for scripts)."),
            QStringLiteral("FORMAT")};
}

QStringList outputFormatNames()
{
    return listOf<QStringList>(TextName.toString(), JsonName.toString());
}

OutputFormat outputFormat(const QCommandLineParser &parser)
{
    const QStringList formats = parser.values(OptionName.toString());
    if (formats.size() > 1)
        throw UsageError{QStringLiteral("--format can be given only once")};
    if (formats.isEmpty() || formats.constFirst() == TextName)
        return OutputFormat::Text;
    if (formats.constFirst() != JsonName)
        throw Usage::unknown(QStringLiteral("format"), formats.constFirst(), outputFormatNames());
    return OutputFormat::Json;
}
