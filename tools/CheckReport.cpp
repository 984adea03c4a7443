#include "tools/CheckReport.h"

#include <tools/DocumentFile.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

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

QByteArray lineOf(const QJsonObject &object)
{
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

QJsonValue numberOrNull(const std::optional<TextPosition> &position, qsizetype TextPosition::*part)
{
    return position ? QJsonValue(static_cast<qint64>((*position).*part)) : QJsonValue(QJsonValue::Null);
}

QJsonValue textOrNull(const QString &text)
{
    return text.isEmpty() ? QJsonValue(QJsonValue::Null) : QJsonValue(text);
}

QByteArray findingLine(const QString &path, const FileCheck::PlacedFinding &placed)
{
    const Finding &finding = placed.finding;
    return lineOf({
        {QStringLiteral("type"), QStringLiteral("finding")},
        {QStringLiteral("file"), path},
        {QStringLiteral("line"), numberOrNull(placed.position, &TextPosition::line)},
        {QStringLiteral("column"), numberOrNull(placed.position, &TextPosition::column)},
        {QStringLiteral("severity"), nameOf(finding.severity).toString()},
        {QStringLiteral("id"), finding.id.toString()},
        {QStringLiteral("path"), textOrNull(finding.path)},
        {QStringLiteral("message"), finding.message},
        {QStringLiteral("found"), finding.found ? QJsonValue(*finding.found) : QJsonValue(QJsonValue::Null)},
        {QStringLiteral("allowed"), QJsonArray::fromStringList(finding.allowed)},
        {QStringLiteral("complaint"), textOrNull(finding.complaint)},
    });
}

QByteArray fileLine(const FileCheck &check)
{
    return lineOf({
        {QStringLiteral("type"), QStringLiteral("file")},
        {QStringLiteral("file"), check.path},
        {QStringLiteral("status"), nameOf(check.status).toString()},
        {QStringLiteral("kind"), check.kind ? QJsonValue(check.kind->rootElement.toString()) : QJsonValue()},
        {QStringLiteral("complete"), check.isComplete},
        {QStringLiteral("findings"), static_cast<qint64>(check.findings.size())},
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
        return lineOf({
            {QStringLiteral("type"), QStringLiteral("summary")},
            {QStringLiteral("files"), counts.all()},
            {QStringLiteral("good"), counts.good},
            {QStringLiteral("faulty"), counts.faulty},
            {QStringLiteral("unreadable"), counts.unreadable},
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
