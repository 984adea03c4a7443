#include <tools/Baseline.h>
#include <tools/CheckReport.h>
#include <tools/Command.h>
#include <tools/Console.h>
#include <tools/LimitOptions.h>
#include <tools/Options.h>
#include <tools/Output.h>
#include <tools/OutputFormat.h>
#include <tools/PathWork.h>
#include <tools/SeveritySettings.h>
#include <tools/Terminal.h>

#include <QCommandLineParser>

#include <algorithm>
#include <memory>
#include <optional>
#include <set>
#include <utility>

using namespace KORMAK::Inspection;

namespace {

using namespace CheckReport;

constexpr QStringView StrictOption = u"strict";
constexpr QStringView QuietOption = u"quiet";
constexpr QStringView BaselineOption = u"baseline";
constexpr QStringView WriteBaselineOption = u"write-baseline";
constexpr OutputFormat Formats[] = {OutputFormat::Text, OutputFormat::Json, OutputFormat::Sarif,
                                    OutputFormat::Github};

QList<QCommandLineOption> options()
{
    return withPathOptions(
        u"Check",
        withLimitOptions(listOf<QList<QCommandLineOption>>(
            optionCalled(StrictOption, QStringLiteral("Warnings and what is never written count as faults.")),
            optionCalled(u'q', QuietOption, QStringLiteral("Tell only what is wrong.")),
            SeveritySettings::option(),
            optionCalled(BaselineOption, QStringLiteral("Leave out what FILE has."), FileName),
            optionCalled(WriteBaselineOption, QStringLiteral("Write to FILE what is to be left out later."),
                         FileName),
            formatOption(Formats))));
}

struct Outcome {
    std::optional<Verdict> verdict = Verdict::Unreadable; ///< nothing: it is no file that counts
    Lines lines = {};
    int knownFindings = 0;
    std::shared_ptr<const SeveritySettings::SettingsFile> settings = nullptr; ///< that were gone by
    Baseline recorded = {}; ///< its findings, if they are to be written
};

/// What is done with findings that there have been before.
enum class Known {
    None, ///< there are none
    Read, ///< they are in the baseline
    Recorded, ///< all are, and the baseline is written
};

/// What a call asks for.
struct Request {
    OutputFormat format;
    Talk talk;
    Strictness strictness;
    TESSEL::ReadingLimits limits;
    SeveritySettings severities;
    Known known;
    Baseline baseline;
};

Known knownOf(const QCommandLineParser &parser)
{
    const auto given = parser.values(BaselineOption.toString()).size()
        + parser.values(WriteBaselineOption.toString()).size();
    if (given > 1)
        throw UsageError{
            QStringLiteral("only one of --baseline and --write-baseline can be given, and only once")};
    if (given == 0)
        return Known::None;
    if (parser.value(WriteBaselineOption.toString()) == StandardStream)
        throw UsageError{
            QStringLiteral("--write-baseline needs a file: standard output tells of the documents")};
    return parser.isSet(BaselineOption.toString()) ? Known::Read : Known::Recorded;
}

/// The check of a path, as it is told.
class PathCheck {
public:
    explicit PathCheck(const Request &requested) : request(requested) { }

    Outcome operator()(const ListedPath &path) const
    {
        switch (path.kind) {
        case ListedPath::Kind::Skipped:
            return {std::nullopt, linesOfSkipped(path.path, path.reason, request.format)};
        case ListedPath::Kind::Unreadable:
            return outcomeOf(unreadable(path.path, path.reason));
        default:
            return checked(path.path);
        }
    }

    [[nodiscard]] Outcome outcomeOf(const FileCheck &check) const
    {
        return {check.verdict, linesOf(check, request.format, request.talk), check.knownFindings};
    }

private:
    [[nodiscard]] Outcome checked(const QString &path) const
    {
        FileCheck file = checkFile(path, request.limits);
        if (file.verdict == Verdict::Unreadable)
            return outcomeOf(file);
        const auto settings = request.severities.fileFor(path);
        request.severities.apply(file.check, settings.get());
        Baseline recorded;
        const QString name = request.known == Known::None ? QString() : request.baseline.nameOf(path);
        if (request.known == Known::Recorded && !name.isEmpty())
            recorded.add(name, file.check.findings);
        const Baseline &knownNow = request.known == Known::Recorded ? recorded : request.baseline;
        file.knownFindings = knownNow.takeKnown(name, file.check.findings);
        file.verdict = verdictOn(file.check, file.knownFindings);
        Outcome outcome = outcomeOf(file);
        outcome.settings = settings;
        outcome.recorded = std::move(recorded);
        return outcome;
    }

    const Request &request;
};

/// Complains once about each file of settings that is not as it should be.
class SettingsComplaints {
public:
    void add(const std::shared_ptr<const SeveritySettings::SettingsFile> &settings)
    {
        if (settings && !settings->complaints.isEmpty() && told.insert(settings).second)
            Console::complainInBytes(settings->complaints);
    }
    [[nodiscard]] ExitStatus status() const { return told.empty() ? Good : Failed; }

private:
    std::set<std::shared_ptr<const SeveritySettings::SettingsFile>> told;
};

ExitStatus run(const QCommandLineParser &parser)
{
    const Known known = knownOf(parser);
    const QString baselinePath =
        parser.value((known == Known::Read ? BaselineOption : WriteBaselineOption).toString());
    const Request request{outputFormat(parser, Formats),
                          parser.isSet(QuietOption.toString()) ? Talk::OfWhatIsWrong : Talk::OfAll,
                          parser.isSet(StrictOption.toString()) ? Strictness::Strict : Strictness::Lenient,
                          limitsOf(parser),
                          SeveritySettings(parser),
                          known,
                          known == Known::Read ? Baseline::read(baselinePath) : Baseline(baselinePath)};
    const PathCall call = pathCallOf(parser);
    const bool wouldMix = request.format != OutputFormat::Text && Terminal::isOutput();
    const bool isBarShown = Terminal::isErrorOutput() && !wouldMix && request.talk == Talk::OfAll;
    const PathCheck check(request);
    Counts counts;
    SettingsComplaints settings;
    Baseline recorded;
    Report report(request.format, request.talk);
    report.begin();
    onEachPath<Outcome>(
        call, isBarShown ? Progress::Shown : Progress::Hidden, check,
        [&check](const ListedPath &path, const QString &reason) {
            return check.outcomeOf(unreadable(path.path, reason));
        },
        [&](const Outcome &outcome) {
            if (outcome.verdict)
                counts.add(*outcome.verdict, outcome.knownFindings);
            settings.add(outcome.settings);
            recorded.add(outcome.recorded);
            report.add(outcome.lines);
        });
    ExitStatus status = std::max(counts.status(request.strictness), settings.status());
    if (known == Known::Recorded)
        status = std::max(status, writeOutput(recorded.text(), baselinePath));
    report.end(counts, call.isOneFile, status);
    return status;
}

} // namespace

const Command checkCommand{
    u"check",
    u"tell everything that is wrong with documents",
    u"Tells of each file what kind of document it is, whether it is complete, and everything that is wrong "
    u"with it. Of a folder, the files called *.xml are checked, in the order of their names, hidden ones "
    u"left "
    u"out. Links to folders are followed; a warning tells of a folder that would be gone through again. More "
    u"than one file, or a folder, is summed up in the end: how many files are good, with warnings, never "
    u"written (the library accepts the document, but would write nothing for it), at fault, or "
    u"unreadable.\n"
    u"\n"
    u"What is wrong goes to standard error, one thing in a line:\n"
    u"  FILE:LINE:COLUMN: SEVERITY: PATH: MESSAGE\n"
    u"PATH is the element or attribute, such as Job/JobHeader/Author. SEVERITY is \"error\" where the "
    u"library "
    u"refuses the document. It is \"warning\" where the library accepts the document, but does not read what "
    u"is there, or not as it looks, or where something is allowed but hardly meant, such as a latitude of "
    u"95.\n"
    u"\n"
    u"With --format json everything goes to standard output, an object in each line. \"type\" tells what an "
    u"object is and which members follow:\n"
    u"  finding  file, line, column, severity, id, path, message, found, allowed,\n"
    u"           complaint, suggestion, correction\n"
    u"  file     behind its findings: file, status, kind, complete, findings (how\n"
    u"           many)\n"
    u"  summary  in the end: files, good, withWarnings, neverWritten, faulty,\n"
    u"           unreadable (how many of each); with findings left\n"
    u"           out also known (files), knownFindings\n"
    u"line and column count from 1. status is good where the library accepts the document, else faulty or "
    u"unreadable; complete is false for what is never written. found is the text that is there, "
    u"allowed lists the names that could be there, complaint is what the library says. suggestion is there "
    u"where it is certain what was meant; correction tells what to do with it: text, put it in place of what "
    u"was found; name, call the element or attribute so; element, put an element of the attribute's name "
    u"with that text in place of the attribute. What does not apply "
    u"is null, or an empty list. A byte of a name that is not UTF-8, such as 0xfc, is \\udcfc. "
    u"A folder that would be gone through again has a finding, but no file.\n"
    u"\n"
    u"--severity ID=error makes a warning an error, ID=warning a warning and ID=off nothing. A file "
    u"kormak.ini in "
    u"the folder of a document or the next folder above says the same for all who check documents there:\n"
    u"  [severity]\n"
    u"  suspicious-latitude=error\n"
    u"  repeated=off\n"
    u"Options come first. What the library refuses a document for stays an error, whatever is said, and "
    u"tells that.\n"
    u"\n"
    u"--write-baseline writes how many findings of which id there are at which path of which file; with "
    u"--baseline, so many are left out, errors included, and only what is new is told and counts. The "
    u"summary "
    u"tells how many are left out. Names of files are relative to the folder of the baseline.\n"
    u"\n"
    u"With --format sarif, standard output is a log in SARIF 2.1.0 with all findings, and with --format "
    u"github "
    u"an annotation for each, as workflows on GitHub read them, and the summary. Names of files are relative "
    u"to "
    u"where the tool runs, as they are given.\n"
    u"\n"
    u"id is one of bad-value, beyond-limit, declared-encoding, encoding, misplaced-element, "
    u"missing-attribute, "
    u"missing-element, not-well-formed, refused, repeated, stray-text, suspicious, suspicious-antenna, "
    u"suspicious-area, suspicious-azimuth, suspicious-creation, suspicious-latitude, suspicious-longitude, "
    u"suspicious-range, suspicious-version, unknown-attribute, unknown-element, unknown-kind, unread, "
    u"unreadable.",
    {u"all documents are good, with warnings or without",
     u"a document is at fault or, with --strict, has warnings or is never written", u"a file cannot be read"},
    u"kormak check -r --format json jobs settings/workflow.xml",
    ManyPaths,
    options,
    run,
    Formats,
};
