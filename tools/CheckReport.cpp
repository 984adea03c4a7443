#include "tools/CheckReport.h"

#include <inspection/DocumentJson_p.h>
#include <tools/DocumentFile.h>
#include <tools/PathEncoding.h>
#include <tools/LimitOptions.h>

#include <new>
#include <utility>

using namespace KORMAK::Inspection;

namespace {

using namespace CheckReport;

/// Tells with which option more would be allowed, where a limit is met.
DocumentCheck withOptions(DocumentCheck check)
{
    for (auto &[finding, position] : check.findings) {
        finding.message = withOption(finding.message, finding.limit);
        finding.complaint = withOption(finding.complaint, finding.limit);
    }
    return check;
}

FileCheck failed(const QString &path, const DocumentError &error)
{
    return {path, error.position ? Faulty : Failed, withOptions(failedCheck(error))};
}

QStringView statusName(ExitStatus status)
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
    for (const auto &[finding, position] : check.check.findings)
        complaints +=
            complaintLine(check.path, position, nameOf(finding.severity), finding) + QLatin1Char('\n');
    Lines lines;
    lines.complaints = complaints.toUtf8();
    if (check.status == Good)
        lines.results =
            (PathEncoding::shown(check.path + QStringLiteral(": ") + check.check.state) + QLatin1Char('\n'))
                .toUtf8();
    return lines;
}

Lines jsonOf(const FileCheck &check)
{
    const auto &[isAccepted, kind, isComplete, state, findings, object] = check.check;
    Lines lines;
    for (const auto &[finding, position] : findings)
        lines.results += findingJson(check.path, finding, position);
    lines.results += fileJson(check.path, statusName(check.status), kind, isComplete,
                              static_cast<qsizetype>(findings.size()));
    return lines;
}

} // namespace

FileCheck unreadable(const QString &path, const QString &reason)
{
    return failed(path, {reason});
}

FileCheck checkFile(const QString &path, const TESSEL::ReadingLimits &limits)
{
    try {
        const SourceText source = readText(path);
        DocumentCheck check = withOptions(checkText(source.text, limits));
        check.object.reset(); // its room is needed for what is told
        return {path, check.isAccepted ? Good : Faulty, std::move(check)};
    } catch (const DocumentError &error) {
        return failed(path, error);
    } catch (const std::bad_alloc &) {
        return unreadable(path, NotEnoughMemory.toString());
    }
}

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

CheckReport::Lines CheckReport::linesOfSkipped(const QString &path, const QString &reason,
                                               OutputFormat format)
{
    const FindingData finding{0, reason, {}, KORMAK::FindingId::Unread};
    Lines lines;
    if (format == OutputFormat::Json)
        lines.results = findingJson(path, finding, std::nullopt);
    else
        lines.complaints =
            (complaintLine(path, std::nullopt, nameOf(finding.severity), finding) + QLatin1Char('\n'))
                .toUtf8();
    return lines;
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
