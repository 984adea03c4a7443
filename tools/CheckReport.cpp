#include "tools/CheckReport.h"

#include <inspection/DocumentJson_p.h>
#include <tools/Console.h>
#include <tools/DocumentFile.h>
#include <tools/GithubAnnotation.h>
#include <tools/LimitOptions.h>
#include <tools/PathEncoding.h>
#include <tools/SarifLog.h>

#include <algorithm>
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
    {Verdict::Known, u"with nothing new", u"known"},
    {Verdict::AtFault, u"at fault", u"faulty"},
    {Verdict::Unreadable, u"unreadable", u"unreadable"},
};

/// Known faults are faults.
QStringView statusName(const FileCheck &file)
{
    if (file.verdict == Verdict::Unreadable)
        return u"unreadable";
    return isAccepted(file.verdict) && file.check.isAccepted ? u"good" : u"faulty";
}

/// What a document is, in a line; of one that is refused, that this is known.
QString stateOf(const FileCheck &file)
{
    return file.check.isAccepted ? file.check.state : QStringLiteral("at fault, as the baseline has it");
}

Lines textOf(const FileCheck &check, Talk talk)
{
    QString complaints;
    AllowedNotes notes;
    for (const auto &[finding, position] : check.check.findings)
        complaints +=
            complaintLine(check.path, position, nameOf(finding.severity), finding, notes) + QLatin1Char('\n');
    Lines lines;
    lines.complaints = complaints.toUtf8();
    if (talk == Talk::OfAll ? isAccepted(check.verdict) : check.verdict == Verdict::NeverWritten)
        lines.results =
            (PathEncoding::shown(check.path + QStringLiteral(": ") + stateOf(check)) + QLatin1Char('\n'))
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
        lines.results += fileJson(check.path, statusName(check), kind, isComplete,
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
            for (const VerdictNames &names : Names) {
                if (names.verdict != Verdict::Known || counts.knownFindings() > 0)
                    json.member(names.key, QString::number(counts.of(names.verdict)));
            }
            if (counts.knownFindings() > 0)
                json.member(u"knownFindings", QString::number(counts.knownFindings()));
        });
    }
    QStringList parts;
    for (const VerdictNames &names : Names) {
        if (const int count = counts.of(names.verdict); count > 0)
            parts += QStringLiteral("%1 %2").arg(count).arg(names.text);
    }
    const QString files =
        counts.all() == 1 ? QStringLiteral("1 file") : QStringLiteral("%1 files").arg(counts.all());
    const QString known = counts.knownFindings() > 0
        ? QStringLiteral(" (findings that are known: %1)").arg(counts.knownFindings())
        : QString();
    return QStringLiteral("%1: %2%3\n").arg(files, parts.join(QStringLiteral(", ")), known).toUtf8();
}

} // namespace

Verdict verdictOn(const DocumentCheck &check, int known)
{
    const auto &findings = check.findings;
    const bool hasError = std::any_of(findings.begin(), findings.end(), [](const auto &placed) {
        return placed.finding.severity == Severity::Error;
    });
    if (hasError || (!check.isAccepted && known == 0))
        return Verdict::AtFault;
    if (known > 0 && findings.empty())
        return Verdict::Known;
    if (check.isAccepted && !check.isComplete)
        return Verdict::NeverWritten;
    return findings.empty() ? Verdict::Good : Verdict::WithWarnings;
}

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
