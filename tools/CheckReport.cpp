#include "tools/CheckReport.h"

#include <inspection/DocumentJson_p.h>
#include <tools/Console.h>
#include <tools/DocumentFile.h>
#include <tools/GithubAnnotation.h>
#include <tools/LimitOptions.h>
#include <tools/PathEncoding.h>
#include <tools/SarifLog.h>

#include <new>
#include <numeric>
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
    return {path, error.position ? Verdict::AtFault : Verdict::Unreadable, withOptions(failedCheck(error))};
}

Verdict verdictOn(const DocumentCheck &check)
{
    if (!check.isAccepted)
        return Verdict::AtFault;
    if (!check.isComplete)
        return Verdict::NeverWritten;
    return check.findings.empty() ? Verdict::Good : Verdict::WithWarnings;
}

bool isAccepted(Verdict verdict)
{
    return verdict < Verdict::AtFault;
}

struct VerdictNames {
    Verdict verdict;
    QStringView text; ///< behind a number of files
    QStringView key; ///< of that number in JSON
};

constexpr VerdictNames Names[] = {
    {Verdict::Good, u"good", u"good"},
    {Verdict::WithWarnings, u"with warnings", u"withWarnings"},
    {Verdict::NeverWritten, u"never written", u"neverWritten"},
    {Verdict::AtFault, u"at fault", u"faulty"},
    {Verdict::Unreadable, u"unreadable", u"unreadable"},
};

QStringView statusName(Verdict verdict)
{
    if (isAccepted(verdict))
        return u"good";
    return verdict == Verdict::AtFault ? u"faulty" : u"unreadable";
}

Lines textOf(const FileCheck &check, Talk talk)
{
    QString complaints;
    for (const auto &[finding, position] : check.check.findings)
        complaints +=
            complaintLine(check.path, position, nameOf(finding.severity), finding) + QLatin1Char('\n');
    Lines lines;
    lines.complaints = complaints.toUtf8();
    if (talk == Talk::OfAll ? isAccepted(check.verdict) : check.verdict == Verdict::NeverWritten)
        lines.results =
            (PathEncoding::shown(check.path + QStringLiteral(": ") + check.check.state) + QLatin1Char('\n'))
                .toUtf8();
    return lines;
}

Lines jsonOf(const FileCheck &check, Talk talk)
{
    const auto &[isAccepted, kind, isComplete, state, findings, object] = check.check;
    Lines lines;
    for (const auto &[finding, position] : findings)
        lines.results += findingJson(check.path, finding, position);
    if (talk == Talk::OfAll || check.verdict != Verdict::Good)
        lines.results += fileJson(check.path, statusName(check.verdict), kind, isComplete,
                                  static_cast<qsizetype>(findings.size()));
    return lines;
}

/// The findings of a file, for other programs.
QByteArray findingsOf(const FileCheck &check, OutputFormat format)
{
    QByteArray text;
    for (const auto &[finding, position] : check.check.findings) {
        if (format == OutputFormat::Github)
            text += githubAnnotation(check.path, finding, position);
        else
            text += (text.isEmpty() ? "" : ",\n") + SarifLog::result(check.path, finding, position);
    }
    return text;
}

QByteArray summary(const Counts &counts, OutputFormat format)
{
    if (format == OutputFormat::Json) {
        return jsonLine(u"summary", [&counts](JsonWriter &json) {
            json.member(u"files", QString::number(counts.all()));
            for (const VerdictNames &names : Names)
                json.member(names.key, QString::number(counts.of(names.verdict)));
        });
    }
    QStringList parts;
    for (const VerdictNames &names : Names) {
        if (const int count = counts.of(names.verdict); count > 0)
            parts += QStringLiteral("%1 %2").arg(count).arg(names.text);
    }
    const QString files =
        counts.all() == 1 ? QStringLiteral("1 file") : QStringLiteral("%1 files").arg(counts.all());
    return QStringLiteral("%1: %2\n").arg(files, parts.join(QStringLiteral(", "))).toUtf8();
}

} // namespace

FileCheck unreadable(const QString &path, const QString &reason)
{
    return failed(path, {reason});
}

FileCheck checkFile(const QString &path, const TESSEL::ReadingLimits &limits, CheckedObject object)
{
    try {
        SourceText source = readText(path);
        DocumentCheck check = withOptions(checkText(source.text, limits, {}, std::move(source.findings)));
        if (object == CheckedObject::Dropped)
            check.object.reset(); // its room is needed for what is told
        const Verdict verdict = verdictOn(check);
        return {path, verdict, std::move(check)};
    } catch (const DocumentError &error) {
        return failed(path, error);
    } catch (const std::bad_alloc &) {
        return unreadable(path, NotEnoughMemory.toString());
    }
}

int CheckReport::Counts::all() const
{
    return std::accumulate(counts.begin(), counts.end(), 0);
}

ExitStatus CheckReport::Counts::status(Strictness strictness) const
{
    if (of(Verdict::Unreadable) > 0)
        return Failed;
    const int doubtful = of(Verdict::WithWarnings) + of(Verdict::NeverWritten);
    return of(Verdict::AtFault) > 0 || (strictness == Strictness::Strict && doubtful > 0) ? Faulty : Good;
}

CheckReport::Lines CheckReport::linesOf(const FileCheck &check, OutputFormat format, Talk talk)
{
    switch (format) {
    case OutputFormat::Json:
        return jsonOf(check, talk);
    case OutputFormat::Sarif:
    case OutputFormat::Github:
        return {findingsOf(check, format), {}};
    default:
        return textOf(check, talk);
    }
}

CheckReport::Lines CheckReport::linesOfSkipped(const QString &path, const QString &reason,
                                               OutputFormat format)
{
    FileCheck check;
    check.path = path;
    check.check.findings.push_back({{0, reason, {}, KORMAK::FindingId::Unread}, std::nullopt});
    const DocumentCheck::PlacedFinding &placed = check.check.findings.front();
    if (format == OutputFormat::Text)
        return {{},
                (complaintLine(path, std::nullopt, nameOf(placed.finding.severity), placed.finding)
                 + QLatin1Char('\n'))
                    .toUtf8()};
    return {format == OutputFormat::Json ? findingJson(path, placed.finding, std::nullopt)
                                         : findingsOf(check, format),
            {}};
}

void CheckReport::Report::begin()
{
    if (format == OutputFormat::Sarif)
        Console::writeBytes(SarifLog::begin());
}

void CheckReport::Report::add(const Lines &lines)
{
    Console::complainInBytes(lines.complaints);
    if (lines.results.isEmpty())
        return;
    if (format == OutputFormat::Sarif)
        Console::writeBytes(hasResults ? ",\n" : "\n");
    Console::writeBytes(lines.results);
    hasResults = true;
}

void CheckReport::Report::end(const Counts &counts, bool isOneFile, ExitStatus status)
{
    if (format == OutputFormat::Sarif) {
        Console::writeBytes(SarifLog::end(status));
        return;
    }
    const bool isSummedUp = format == OutputFormat::Json || !isOneFile;
    if (isSummedUp && (talk == Talk::OfAll || counts.of(Verdict::Good) < counts.all()))
        Console::writeBytes(summary(counts, format));
}
