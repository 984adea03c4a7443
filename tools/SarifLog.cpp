#include "tools/SarifLog.h"

#include <inspection/DocumentJson_p.h>
#include <inspection/Json_p.h>
#include <tools/FindingRules.h>
#include <tools/FindingText.h>
#include <tools/PathEncoding.h>

using namespace KORMAK::Inspection;

namespace {

/// A reference relative to where the tool runs, unless the \a path is absolute.
QString uriOf(const QString &path)
{
    const QByteArray encoded = PathEncoding::encoded(FindingText::plainPath(path)).toPercentEncoding("/");
    return (path.startsWith(QLatin1Char('/')) ? QStringLiteral("file://") : QString())
        + QString::fromLatin1(encoded);
}

void writeText(JsonWriter &json, QStringView name, const QString &text)
{
    json.key(name);
    json.beginObject();
    json.member(u"text", jsonText(text));
    json.endObject();
}

void writeLocation(JsonWriter &json, const QString &path, const FindingData &finding,
                   const std::optional<TextPosition> &position)
{
    json.beginObject();
    json.key(u"physicalLocation");
    json.beginObject();
    json.key(u"artifactLocation");
    json.beginObject();
    json.member(u"uri", jsonText(uriOf(path)));
    json.endObject();
    if (position) {
        json.key(u"region");
        json.beginObject();
        json.member(u"startLine", QString::number(position->line));
        json.member(u"startColumn", QString::number(position->column));
        json.endObject();
    }
    json.endObject();
    if (!finding.path.isEmpty()) {
        const bool isAttribute =
            finding.path.lastIndexOf(QLatin1Char('@')) == finding.path.lastIndexOf(QLatin1Char('/')) + 1;
        json.key(u"logicalLocations");
        json.beginArray();
        json.beginObject();
        json.member(u"fullyQualifiedName", jsonText(finding.path));
        json.member(u"kind", jsonText(isAttribute ? u"attribute" : u"element"));
        json.endObject();
        json.endArray();
    }
    json.endObject();
}

} // namespace

QByteArray SarifLog::begin()
{
    JsonWriter driver(JsonWriter::Layout::OneLine);
    driver.beginObject();
    driver.member(u"name", jsonText(u"kormak"));
    driver.member(u"version", jsonText(QStringLiteral(KORMAK_VERSION)));
    driver.key(u"rules");
    driver.beginArray();
    for (const FindingRule &rule : FindingRules::all()) {
        driver.beginObject();
        driver.member(u"id", jsonText(rule.id));
        writeText(driver, u"shortDescription", rule.description.toString());
        driver.endObject();
    }
    driver.endArray();
    driver.endObject();
    return "{\"$schema\": \"https://json.schemastore.org/sarif-2.1.0.json\", \"version\": \"2.1.0\", "
           "\"runs\": [{\n\"tool\": {\"driver\": "
        + driver.text().toUtf8() + "},\n\"columnKind\": \"unicodeCodePoints\",\n\"results\": [";
}

QByteArray SarifLog::result(const QString &path, const FindingData &finding,
                            const std::optional<TextPosition> &position)
{
    JsonWriter json(JsonWriter::Layout::OneLine);
    json.beginObject();
    json.member(u"ruleId", jsonText(finding.id));
    if (const int index = FindingRules::indexOf(finding.id); index >= 0)
        json.member(u"ruleIndex", QString::number(index));
    json.member(u"level", jsonText(nameOf(finding.severity)));
    writeText(json, u"message", FindingText::message(finding));
    json.key(u"locations");
    json.beginArray();
    writeLocation(json, path, finding, position);
    json.endArray();
    json.endObject();
    return json.text().toUtf8();
}

QByteArray SarifLog::end(ExitStatus status)
{
    return "],\n\"invocations\": [{\"executionSuccessful\": " + jsonBool(status != Failed).toUtf8()
        + ", \"exitCode\": " + QByteArray::number(static_cast<int>(status)) + "}]\n}]}\n";
}
