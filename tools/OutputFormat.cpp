#include "tools/OutputFormat.h"

#include <tools/Options.h>
#include <tools/Usage.h>

#include <QCommandLineParser>

#include <algorithm>
#include <iterator>

namespace {

constexpr QStringView OptionName = u"format";

constexpr struct FormatText {
    OutputFormat format;
    QStringView name;
    QStringView purpose;
} Texts[] = {
    {OutputFormat::Text, u"text", u"for people, the default"},
    {OutputFormat::Json, u"json", u"for scripts"},
    {OutputFormat::Csv, u"csv", u"for databases"},
    {OutputFormat::GeoJson, u"geojson", u"the area alone"},
    {OutputFormat::Sarif, u"sarif", u"for code hosts"},
    {OutputFormat::Github, u"github", u"for workflows"},
};

const FormatText &textOf(OutputFormat format)
{
    return *std::find_if(std::begin(Texts), std::end(Texts),
                         [format](const FormatText &text) { return text.format == format; });
}

/// "text (for people, the default) or json (for scripts)."; more than two are not explained.
QString description(OutputFormats formats)
{
    QStringList parts;
    for (const OutputFormat format : formats) {
        const FormatText &text = textOf(format);
        const QString explanation = formats.size() == 2 ? text.purpose.toString()
            : format == OutputFormat::Text              ? QStringLiteral("the default")
                                                        : QString();
        parts += text.name.toString()
            + (explanation.isEmpty() ? explanation : QStringLiteral(" (%1)").arg(explanation));
    }
    const QString last = parts.takeLast();
    return parts.join(QStringLiteral(", ")) + QStringLiteral(" or ") + last + QLatin1Char('.');
}

} // namespace

QCommandLineOption formatOption(OutputFormats formats)
{
    return optionCalled(OptionName, description(formats), u"FORMAT");
}

QStringList outputFormatNames(OutputFormats formats)
{
    QStringList names;
    for (const OutputFormat format : formats)
        names += textOf(format).name.toString();
    return names;
}

OutputFormat outputFormat(const QCommandLineParser &parser, OutputFormats formats)
{
    const auto given = onlyValue(parser, OptionName);
    if (!given)
        return OutputFormat::Text;
    const auto *const found = std::find_if(formats.begin(), formats.end(), [&given](OutputFormat format) {
        return textOf(format).name == *given;
    });
    if (found == formats.end())
        throw Usage::unknown(QStringLiteral("format"), *given, outputFormatNames(formats));
    return *found;
}
