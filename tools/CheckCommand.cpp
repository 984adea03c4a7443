#include <tools/CheckReport.h>
#include <tools/Command.h>
#include <tools/LimitOptions.h>
#include <tools/ListOf.h>
#include <tools/OutputFormat.h>
#include <tools/PathWork.h>
#include <tools/Terminal.h>

#include <QCommandLineParser>

#include <optional>

using namespace KORMAK::Inspection;

namespace {

using namespace CheckReport;

constexpr QStringView StrictOption = u"strict";
constexpr QStringView QuietOption = u"quiet";
constexpr OutputFormat Formats[] = {OutputFormat::Text, OutputFormat::Json, OutputFormat::Sarif,
                                    OutputFormat::Github};

QList<QCommandLineOption> options()
{
    return withPathOptions(
        u"Check",
        withLimitOptions(listOf<QList<QCommandLineOption>>(
            QCommandLineOption(StrictOption.toString(),
                               QStringLiteral("Warnings and what is never written count as faults.")),
            QCommandLineOption(listOf<QStringList>(QStringLiteral("q"), QuietOption.toString()),
                               QStringLiteral("Tell only what is wrong.")),
            formatOption(Formats))));
}

struct Outcome {
    std::optional<Verdict> verdict = Verdict::Unreadable; ///< nothing: it is no file that counts
    Lines lines;
};

/// The check of a path, as it is told.
struct PathCheck {
    TESSEL::ReadingLimits limits;
    OutputFormat format;
    Talk talk;

    Outcome operator()(const ListedPath &path) const
    {
        switch (path.kind) {
        case ListedPath::Kind::Skipped:
            return {std::nullopt, linesOfSkipped(path.path, path.reason, format)};
        case ListedPath::Kind::Unreadable:
            return outcomeOf(unreadable(path.path, path.reason));
        default:
            return outcomeOf(checkFile(path.path, limits));
        }
    }

    [[nodiscard]] Outcome outcomeOf(const FileCheck &check) const
    {
        return {check.verdict, linesOf(check, format, talk)};
    }
};

ExitStatus run(const QCommandLineParser &parser)
{
    const OutputFormat format = outputFormat(parser, Formats);
    const Talk talk = parser.isSet(QuietOption.toString()) ? Talk::OfWhatIsWrong : Talk::OfAll;
    const Strictness strictness =
        parser.isSet(StrictOption.toString()) ? Strictness::Strict : Strictness::Lenient;
    const PathCheck check{limitsOf(parser), format, talk};
    const PathCall call = pathCallOf(parser);
    const bool wouldMix = format != OutputFormat::Text && Terminal::isOutput();
    const bool isBarShown = Terminal::isErrorOutput() && !wouldMix && talk == Talk::OfAll;
    Counts counts;
    Report report(format, talk);
    report.begin();
    onEachPath<Outcome>(
        call, isBarShown ? Progress::Shown : Progress::Hidden, check,
        [&check](const ListedPath &path, const QString &reason) {
            return check.outcomeOf(unreadable(path.path, reason));
        },
        [&](const Outcome &outcome) {
            if (outcome.verdict)
                counts.add(*outcome.verdict);
            report.add(outcome.lines);
        });
    const ExitStatus status = counts.status(strictness);
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
    u"           unreadable (how many of each)\n"
    u"line and column count from 1. status is good where the library accepts the document, else faulty or "
    u"unreadable; complete is false for what is never written. found is the text that is there, "
    u"allowed lists the names that could be there, complaint is what the library says. suggestion is there "
    u"where it is certain what was meant; correction tells what to do with it: text, put it in place of what "
    u"was found; name, call the element or attribute so; element, put an element of the attribute's name "
    u"with that text in place of the attribute. What does not apply "
    u"is null, or an empty list. A byte of a name that is not UTF-8, such as 0xfc, is \\udcfc. "
    u"A folder that would be gone through again has a finding, but no file.\n"
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
