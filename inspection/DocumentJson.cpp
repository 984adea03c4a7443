#include "inspection/DocumentJson_p.h"

#include <inspection/Completeness_p.h>

namespace KORMAK::Inspection {

namespace {

QString numberOrNull(const std::optional<TextPosition> &position, qsizetype TextPosition::*part)
{
    return position ? QString::number((*position).*part) : QStringLiteral("null");
}

} // namespace

QStringView nameOf(Severity severity)
{
    return severity == Severity::Error ? QStringView(u"error") : QStringView(u"warning");
}

namespace {

/// Null when there is none.
QStringView nameOf(KORMAK::Finding::Correction correction)
{
    switch (correction) {
    case KORMAK::Finding::Correction::None:
        break;
    case KORMAK::Finding::Correction::Text:
        return u"text";
    case KORMAK::Finding::Correction::Name:
        return u"name";
    case KORMAK::Finding::Correction::Element:
        return u"element";
    }
    return {};
}

} // namespace

QByteArray findingJson(const QString &file, const FindingData &finding,
                       const std::optional<TextPosition> &position)
{
    return jsonLine(u"finding", [&](JsonWriter &json) {
        json.member(u"file", jsonText(file));
        json.member(u"line", numberOrNull(position, &TextPosition::line));
        json.member(u"column", numberOrNull(position, &TextPosition::column));
        json.member(u"severity", jsonText(nameOf(finding.severity)));
        json.member(u"id", jsonText(finding.id));
        json.member(u"path", jsonTextOrNull(finding.path));
        json.member(u"message", jsonText(finding.message));
        json.member(u"found", finding.found ? jsonText(*finding.found) : QStringLiteral("null"));
        json.key(u"allowed");
        json.array(finding.allowed);
        json.member(u"complaint", jsonTextOrNull(finding.complaint));
        json.member(u"suggestion", jsonTextOrNull(finding.suggestion));
        json.member(u"correction", jsonTextOrNull(nameOf(finding.correction).toString()));
    });
}

QByteArray fileJson(const QString &file, QStringView status, const DocumentKind *kind, bool isComplete,
                    qsizetype findings)
{
    return jsonLine(u"file", [&](JsonWriter &json) {
        json.member(u"file", jsonText(file));
        json.member(u"status", jsonText(status));
        json.member(u"kind", jsonTextOrNull(kind ? kind->rootElement.toString() : QString()));
        json.member(u"complete", jsonBool(isComplete));
        json.member(u"findings", QString::number(findings));
    });
}

QString fieldsJson(const DocumentKind &kind, const TESSEL::ITesselObject &object, const DocumentSays &says,
                   const std::optional<QString> &rejection, const TESSEL::ITesselObject *shown)
{
    const auto reason = rejection ? rejection : whyIncomplete(object);
    JsonWriter json(JsonWriter::Layout::Indented);
    json.beginObject();
    json.member(u"kind", jsonText(kind.rootElement));
    json.member(u"complete", jsonBool(!reason));
    json.member(u"reason", jsonTextOrNull(reason.value_or(QString())));
    json.key(u"fields");
    json.fields(kind.fields(), kind.address(shown ? *shown : object));
    if (!says.all().empty()) {
        json.key(u"documentSays");
        json.beginObject();
        for (const DocumentSays::Saying &saying : says.all())
            json.member(saying.path, jsonText(saying.text));
        json.endObject();
    }
    json.endObject();
    return json.text();
}

QString differencesJson(const DocumentKind &kind, const std::vector<FieldDifference> &differences,
                        bool areEqualToLibrary)
{
    JsonWriter json(JsonWriter::Layout::Indented);
    json.beginObject();
    json.member(u"kind", jsonText(kind.rootElement));
    json.member(u"equal", jsonBool(differences.empty()));
    json.member(u"equalToLibrary", jsonBool(areEqualToLibrary));
    json.key(u"differences");
    json.beginArray();
    for (const FieldDifference &difference : differences) {
        json.beginObject();
        json.member(u"field", jsonText(difference.path));
        if (!difference.before.json.isEmpty())
            json.member(u"before", difference.before.json);
        if (!difference.after.json.isEmpty())
            json.member(u"after", difference.after.json);
        json.endObject();
    }
    json.endArray();
    json.endObject();
    return json.text();
}

} // namespace KORMAK::Inspection
