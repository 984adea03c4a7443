#include <tools/CheckReport.h>
#include <tools/Command.h>
#include <tools/Console.h>
#include <tools/OutputFormat.h>
#include <tools/PathList.h>
#include <tools/ProgressBar.h>
#include <tools/Terminal.h>

#include <QCommandLineParser>
#include <QFuture>
#include <QtConcurrentMap>
#include <QThread>
#include <QThreadPool>

namespace {

using namespace CheckReport;

constexpr QStringView RecursiveOption = u"recursive";
constexpr QStringView JobsOption = u"jobs";

QList<QCommandLineOption> options()
{
    return {
        {{QStringLiteral("r"), RecursiveOption.toString()},
         QStringLiteral("Go through the folders below a folder, too.")},
        {{QStringLiteral("j"), JobsOption.toString()},
         QStringLiteral("Check N files at a time (default: one per processor core)."),
         QStringLiteral("N")},
        formatOption(),
    };
}

/// The last of the values given; nothing when the option is not. \throws UsageError
int jobsOf(const QCommandLineParser &parser)
{
    if (!parser.isSet(JobsOption.toString()))
        return QThread::idealThreadCount();
    const QString text = parser.value(JobsOption.toString());
    bool ok = false;
    const int jobs = text.toInt(&ok);
    if (!ok || jobs < 1)
        throw UsageError{QStringLiteral("-j takes a number from 1, not '%1'").arg(text)};
    return jobs;
}

struct Outcome {
    ExitStatus status;
    Lines lines;
};

/// The checks of all paths, of which several are going on at a time.
class Checks {
public:
    Checks(const std::vector<ListedPath> &paths, OutputFormat format, int jobs)
    {
        QThreadPool::globalInstance()->setMaxThreadCount(jobs);
        const std::function<Outcome(const ListedPath &)> check = [format](const ListedPath &listed) {
            const FileCheck result =
                listed.obstacle ? unreadable(listed.path, *listed.obstacle) : checkFile(listed.path);
            return Outcome{result.status, linesOf(result, format)};
        };
        future = QtConcurrent::mapped(paths, check);
    }

    /// When the output cannot be written, the rest of the checks is of no use.
    ~Checks()
    {
        future.cancel();
        future.waitForFinished();
    }
    Checks(const Checks &) = delete;
    Checks &operator=(const Checks &) = delete;

    /// Waits for it.
    Outcome outcome(int number, ProgressBar &progress)
    {
        constexpr unsigned long Tick = 20; // ms
        while (progress.isWanted() && !future.isResultReadyAt(number)) {
            progress.show(future.progressValue());
            QThread::msleep(Tick);
        }
        return future.resultAt(number);
    }

private:
    QFuture<Outcome> future;
};

void write(const Lines &lines, ProgressBar &progress)
{
    progress.clear();
    Console::complainInBytes(lines.complaints);
    Console::writeBytes(lines.results);
}

ExitStatus run(const QCommandLineParser &parser)
{
    const QStringList arguments = parser.positionalArguments();
    const OutputFormat format = outputFormat(parser);
    const int jobs = jobsOf(parser);
    if (arguments.count(StandardStream.toString()) > 1)
        throw UsageError{QStringLiteral("standard input can be read only once")};

    const auto paths = listedPaths(arguments, parser.isSet(RecursiveOption.toString()));
    const bool wouldMix = format == OutputFormat::Json && Terminal::isOutput();
    ProgressBar progress(static_cast<int>(paths.size()), Terminal::isErrorOutput() && !wouldMix);
    Counts counts;
    Checks checks(paths, format, jobs);
    for (int i = 0; i < static_cast<int>(paths.size()); ++i) {
        const Outcome outcome = checks.outcome(i, progress);
        counts.add(outcome.status);
        write(outcome.lines, progress);
    }
    const bool isOneFile = paths.size() == 1 && arguments == QStringList(paths.front().path);
    if (format == OutputFormat::Json || !isOneFile)
        Console::writeBytes(summary(counts, format));
    return counts.status();
}

} // namespace

const Command checkCommand{
    u"check",
    u"tell everything that is wrong with documents",
    u"Tells of each file what kind of document it is, whether it is complete, and everything that is wrong "
    u"with it. Of a folder, the files called *.xml are checked, in the order of their names. More than one "
    u"file, or a folder, is summed up in the end.\n"
    u"\n"
    u"What is wrong goes to standard error, one thing in a line:\n"
    u"  FILE:LINE:COLUMN: SEVERITY: PATH: MESSAGE\n"
    u"PATH is the element or attribute, such as Job/JobHeader/Author. SEVERITY is \"error\" where the "
    u"library "
    u"refuses the document. It is \"warning\" where the library accepts the document, but does not read what "
    u"is there, or not as it looks.\n"
    u"\n"
    u"With --format json everything goes to standard output, an object in each line. \"type\" tells what an "
    u"object is and which members follow:\n"
    u"  finding  file, line, column, severity, id, path, message, found, allowed,\n"
    u"           complaint\n"
    u"  file     behind its findings: file, status, kind, complete, findings (how\n"
    u"           many)\n"
    u"  summary  in the end: files, good, faulty, unreadable (how many of each)\n"
    u"line and column count from 1. status is good, faulty or unreadable. found is the text that is there, "
    u"allowed lists the names that could be there, complaint is what the library says. What does not apply "
    u"is null, or an empty list.\n"
    u"\n"
    u"id is one of bad-value, encoding, misplaced-element, missing-attribute, missing-element, "
    u"not-well-formed, refused, repeated, stray-text, suspicious, unknown-attribute, unknown-element, "
    u"unknown-kind, unread, unreadable.",
    {u"all documents are good, with warnings or without", u"a document is at fault",
     u"a file cannot be read"},
    u"kormak check -r --format json jobs settings/workflow.xml",
    ManyPaths,
    options,
    run,
};
