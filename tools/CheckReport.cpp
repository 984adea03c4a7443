#include "tools/CheckReport.h"

#include <tools/DocumentFile.h>
#include <tools/Json.h>

namespace {

using namespace CheckReport;

QStringView nameOf(Severity severity)
{
    return severity == Severity::Error ? QStringView(u"error") : QStringView(u"warning");
}

QStringView nameOf(ExitStatus status)
{
    switch (status) {
    case Good:
        return u"good";
    case Faulty:
        return u"faulty";
    default:
        return u"unreadable";
    }
}

Lines textOf(const FileCheck &check)
{
    QString complaints;
    for (const auto &[finding, position] : check.findings)
        complaints +=
            complaintLine(check.path, position, nameOf(finding.severity), finding) + QLatin1Char('\n');
    Lines lines;
    lines.complaints = complaints.toUtf8();
    if (check.status == Good)
        lines.results = (check.path + QStringLiteral(": ") + check.state + QLatin1Char('\n')).toUtf8();
    return lines;
}

/// An object of a \a type in a line of its own, with the members that \a write adds.
template <class Write>
QByteArray jsonLine(QStringView type, Write write)
{
    JsonWriter json(JsonWriter::Layout::OneLine);
    json.beginObject();
    json.member(u"type", jsonText(type));
    write(json);
    json.endObject();
    return json.text().toUtf8() + '\n';
}

QString numberOrNull(const std::optional<TextPosition> &position, qsizetype TextPosition::*part)
{
    return position ? QString::number((*position).*part) : QStringLiteral("null");
}

QByteArray findingLine(const QString &path, const FileCheck::PlacedFinding &placed)
{
    const Finding &finding = placed.finding;
    return jsonLine(u"finding", [&](JsonWriter &json) {
        json.member(u"file", jsonText(path));
        json.member(u"line", numberOrNull(placed.position, &TextPosition::line));
        json.member(u"column", numberOrNull(placed.position, &TextPosition::column));
        json.member(u"severity", jsonText(nameOf(finding.severity)));
        json.member(u"id", jsonText(finding.id));
        json.member(u"path", jsonTextOrNull(finding.path));
        json.member(u"message", jsonText(finding.message));
        json.member(u"found", finding.found ? jsonText(*finding.found) : QStringLiteral("null"));
        json.key(u"allowed");
        json.array(finding.allowed);
        json.member(u"complaint", jsonTextOrNull(finding.complaint));
    });
}

QByteArray fileLine(const FileCheck &check)
{
    return jsonLine(u"file", [&check](JsonWriter &json) {
        json.member(u"file", jsonText(check.path));
        json.member(u"status", jsonText(nameOf(check.status)));
        json.member(u"kind", jsonTextOrNull(check.kind ? check.kind->rootElement.toString() : QString()));
        json.member(u"complete", jsonBool(check.isComplete));
        json.member(u"findings", QString::number(check.findings.size()));
    });
}

Lines jsonOf(const FileCheck &check)
{
    Lines lines;
    for (const auto &placed : check.findings)
        lines.results += findingLine(check.path, placed);
    lines.results += fileLine(check);
    return lines;
}

} // namespace

void CheckReport::Counts::add(ExitStatus status)
{
    ++(status == Good ? good : status == Faulty ? faulty : unreadable);
}

ExitStatus CheckReport::Counts::status() const
{
    if (unreadable > 0)
        return Failed;
    return faulty > 0 ? Faulty : Good;
}

CheckReport::Lines CheckReport::linesOf(const FileCheck &check, OutputFormat format)
{
    return format == OutputFormat::Json ? jsonOf(check) : textOf(check);
}

QByteArray CheckReport::summary(const Counts &counts, OutputFormat format)
{
    if (format == OutputFormat::Json) {
        return jsonLine(u"summary", [&counts](JsonWriter &json) {
            json.member(u"files", QString::number(counts.all()));
            json.member(u"good", QString::number(counts.good));
            json.member(u"faulty", QString::number(counts.faulty));
            json.member(u"unreadable", QString::number(counts.unreadable));
        });
    }
    const QString files =
        counts.all() == 1 ? QStringLiteral("1 file") : QStringLiteral("%1 files").arg(counts.all());
    return QStringLiteral("%1: %2 good, %3 at fault, %4 cannot be read\n")
        .arg(files)
        .arg(counts.good)
        .arg(counts.faulty)
        .arg(counts.unreadable)
        .toUtf8();
}
