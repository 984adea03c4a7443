#include <inspection/FieldText_p.h>
#include <inspection/ParameterSummary.h>
#include <inspection/QuotedText_p.h>
#include <inspection/report/FrequencyRange_p.h>
#include <inspection/report/Page_p.h>
#include <inspection/report/Svg_p.h>
#include <kormak/GenericReceiver.h>

#include <map>

namespace KORMAK::Inspection {

namespace {

using Parameters = std::vector<const Parameter *>;

QString nameOfType(const Parameter &parameter)
{
    const QString name = ParameterTypeToName(parameter.GetParameterType());
    return name.isEmpty() ? QStringLiteral("no type") : name;
}

/// What it is called where it has no name.
QString nameOf(const ParameterSummary &summary)
{
    return summary.name.isEmpty() ? QStringLiteral("Parameter without a name") : summary.name;
}

void writeName(const Page &page, const Parameter &parameter, const ParameterSummary &summary,
               const QString &path)
{
    Html &html = page.html;
    html.open(u"th", {{u"scope", QStringLiteral("row")}});
    html.element(u"span", nameOf(summary));
    if (!parameter.IsEnabled())
        html.text(u" ").element(u"span", QStringLiteral("disabled"), {{u"class", QStringLiteral("badge")}});
    if (!parameter.GetToolTip().isEmpty()) {
        html.open(u"p", {{u"class", QStringLiteral("tip")}});
        writeProse(html, parameter.GetToolTip());
        html.close();
    }
    html.open(u"small");
    if (!parameter.GetDisplayName().isEmpty())
        html.element(u"span", parameter.GetUniqueParameterName()).text(u" · ");
    if (!parameter.GetRepresenationName().isEmpty())
        html.element(u"span", parameter.GetRepresenationName()).text(u" · ");
    html.text(nameOfType(parameter)).close();
    page.findings.writeNotes(html, path);
    html.close();
}

bool isDefault(const EnumHandler &handler, const EnumHandler::EnumValue &entry)
{
    return entry.Key == handler.GetDefaultValue().Key && entry.Name == handler.GetDefaultValue().Name;
}

/// Names, each with its key and the number that it stands for.
void writeEntries(Html &html, const EnumHandler &handler)
{
    html.open(u"ul", {{u"class", QStringLiteral("entries")}});
    for (const EnumHandler::EnumValue &entry : handler.GetEnumList()) {
        html.open(u"li");
        if (isDefault(handler, entry))
            html.element(u"strong", entry.Name);
        else
            html.text(entry.Name);
        QString details = QString::number(entry.Key);
        if (entry.Value != entry.Key)
            details += QStringLiteral(" = ") + numberText(entry.Value);
        if (!entry.Identifier.isEmpty())
            details += QStringLiteral(", ") + entry.Identifier;
        html.text(u" ").element(u"small", details).close();
    }
    html.close();
}

void writeRange(Html &html, const ParameterSummary &summary)
{
    html.text(summary.range);
    if (!summary.share)
        return;
    html.open(u"svg", {{u"class", QStringLiteral("bar")}, {u"aria-hidden", QStringLiteral("true")}});
    const QString place = Svg::percent(*summary.share);
    Svg::rectangle(html, QStringLiteral("0"), QStringLiteral("4"), place, QStringLiteral("4"), u"fill");
    Svg::rectangle(html, place, QStringLiteral("0"), QStringLiteral("3"), QStringLiteral("12"), u"at");
    html.close();
}

void writeRow(const Page &page, const Parameter &parameter, const QString &path)
{
    Html &html = page.html;
    const ParameterSummary summary(parameter);
    if (parameter.IsEnabled())
        html.open(u"tr");
    else
        html.open(u"tr", {{u"class", QStringLiteral("disabled")}});
    writeName(page, parameter, summary, path);
    html.open(u"td");
    if (summary.value.isEmpty())
        html.element(u"span", QStringLiteral("none"), {{u"class", QStringLiteral("muted")}});
    else
        html.text(summary.value);
    if (!summary.defaultValue.isEmpty())
        html.element(u"small", QStringLiteral("default ") + summary.defaultValue);
    html.close().open(u"td");
    if (parameter.IsEnum())
        writeEntries(html, parameter.GetEnumHandler());
    else
        writeRange(html, summary);
    html.close().close();
}

void writeTable(const Page &page, const QString &caption, const Parameters &parameters)
{
    Html &html = page.html;
    openTable(html, caption, {u"Parameter", u"Value", u"Limits or entries"},
              {{u"class", QStringLiteral("parameters")}});
    for (const Parameter *parameter : parameters) {
        const QString &name = parameter->GetUniqueParameterName();
        const QString path = page.rootPath() + QStringLiteral("/Parameter")
            + (name.isEmpty() ? QString() : QStringLiteral("[%1]").arg(shortened(name)));
        writeRow(page, *parameter, path);
    }
    html.close().close();
}

void writeFrequencies(Html &html, const GenericReceiver &receiver)
{
    constexpr std::size_t Most = 100; // more would be no drawing
    std::vector<FrequencyRange> ranges;
    std::size_t count = 0;
    for (const Parameter &parameter : receiver.GetParameterList()) {
        const auto range = frequencyRangeOf(parameter);
        if (!range)
            continue;
        ++count;
        if (ranges.size() < Most) {
            ranges.push_back(*range);
            ranges.back().name = nameOf(ParameterSummary(parameter));
        }
    }
    if (ranges.empty())
        return;
    openSection(html, QStringLiteral("Frequencies"), QStringLiteral("frequencies"));
    QString caption =
        QStringLiteral("The limits and, marked, the defaults of parameters that are frequencies.");
    if (count > ranges.size())
        caption += QStringLiteral(" The first %1 of %2.").arg(ranges.size()).arg(count);
    writeFrequencyAxis(html, ranges, caption);
    html.close();
}

QString groupName(const QString &group)
{
    return group.isEmpty() ? QStringLiteral("Other parameters") : group;
}

} // namespace

void writeReceiver(const Page &page, const GenericReceiver &receiver)
{
    std::map<QString, Parameters> groups;
    for (const Parameter &parameter : receiver.GetParameterList())
        groups[GroupOf(parameter)].push_back(&parameter);
    Html &html = page.html;
    openSection(html, QStringLiteral("In short"));
    html.element(
        u"p",
        counted(receiver.GetParameterList().size(), QStringLiteral("parameter")) + QStringLiteral(" in ")
            + counted(static_cast<qint64>(groups.size()), QStringLiteral("group")) + QLatin1Char('.'),
        {{u"class", QStringLiteral("lead")}});
    if (groups.size() > 1) {
        html.open(u"nav", {{u"aria-label", QStringLiteral("Groups of parameters")}}).open(u"ul");
        int number = 0;
        for (const auto &[group, parameters] : groups) {
            ++number;
            html.open(u"li")
                .element(u"a", groupName(group), {{u"href", QStringLiteral("#group-%1").arg(number)}})
                .text(u" ")
                .element(u"small", QString::number(parameters.size()))
                .close();
        }
        html.close().close();
    }
    html.close();
    writeFrequencies(html, receiver);
    int number = 0;
    for (const auto &[group, parameters] : groups) {
        ++number;
        openSection(html, groupName(group), QStringLiteral("group-%1").arg(number));
        writeTable(page, counted(static_cast<qint64>(parameters.size()), QStringLiteral("parameter")),
                   parameters);
        html.close();
    }
    page.findings.writeNotes(html, page.rootPath() + QStringLiteral("/@Version"));
}

void writeParameter(const Page &page, const Parameter &parameter)
{
    Html &html = page.html;
    openSection(html, QStringLiteral("In short"));
    const auto range = frequencyRangeOf(parameter);
    if (range)
        writeFrequencyAxis(html, {*range}, QStringLiteral("Its limits and, marked, its default."));
    FindingPlaces none({});
    const Page quiet{page.html, none, page.kind, page.object};
    writeTable(quiet, QStringLiteral("The parameter"), {&parameter});
    html.close();
    writeAllFields(page);
}

} // namespace KORMAK::Inspection
