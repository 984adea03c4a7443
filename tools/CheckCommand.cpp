#include <tools/CheckReport.h>
#include <tools/Command.h>
#include <tools/Console.h>
#include <tools/DocumentFile.h>
#include <tools/LimitOptions.h>
#include <tools/ListOf.h>
#include <tools/OutputFormat.h>
#include <tools/PathList.h>
#include <tools/ProgressBar.h>
#include <tools/Terminal.h>

#include <QCommandLineParser>
#include <QThread>

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <new>
#include <optional>
#include <thread>
#include <utility>
#include <vector>

using namespace KORMAK::Inspection;

namespace {

using namespace CheckReport;

constexpr QStringView RecursiveOption = u"recursive";
constexpr QStringView JobsOption = u"jobs";
constexpr QStringView StrictOption = u"strict";
constexpr QStringView QuietOption = u"quiet";

QList<QCommandLineOption> options()
{
    return withLimitOptions(listOf<QList<QCommandLineOption>>(
        QCommandLineOption(listOf<QStringList>(QStringLiteral("r"), RecursiveOption.toString()),
                           QStringLiteral("Go through the folders below a folder, too.")),
        QCommandLineOption(listOf<QStringList>(QStringLiteral("j"), JobsOption.toString()),
                           QStringLiteral("Check N files at once (default: 1 per core, most: 4)."),
                           QStringLiteral("N")),
        QCommandLineOption(StrictOption.toString(),
                           QStringLiteral("Warnings and what is never written count as faults.")),
        QCommandLineOption(listOf<QStringList>(QStringLiteral("q"), QuietOption.toString()),
                           QStringLiteral("Tell only what is wrong.")),
        formatOption()));
}

/// More would only wait for one another.
int mostJobs()
{
    constexpr int PerCore = 4;
    return PerCore * std::max(QThread::idealThreadCount(), 1);
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
    return std::min(jobs, mostJobs());
}

struct Outcome {
    std::optional<Verdict> verdict = Verdict::Unreadable; ///< nothing: it is no file that counts
    Lines lines;
};

/// The checks of all paths, of which several are going on at a time.
class Checks {
public:
    Checks(std::vector<ListedPath> paths, OutputFormat outputFormat, Talk talkOfFiles,
           const TESSEL::ReadingLimits &readingLimits, int jobs)
        : listed(std::move(paths)), format(outputFormat), talk(talkOfFiles), limits(readingLimits),
          outcomes(listed.size())
    {
        const auto wanted = std::min(static_cast<std::size_t>(jobs), listed.size());
        try {
            while (threads.size() < wanted)
                threads.emplace_back([this] { work(); });
        } catch (const std::exception &) {
            // So many it shall be. Without any, the checks are done when they are asked for.
        }
    }

    /// When the output cannot be written, the rest of the checks is of no use.
    ~Checks()
    {
        {
            const std::lock_guard<std::mutex> lock(mutex);
            next = listed.size();
        }
        for (std::thread &thread : threads)
            thread.join();
    }
    Checks(const Checks &) = delete;
    Checks &operator=(const Checks &) = delete;

    /// Waits for it. Each can be asked for once.
    Outcome outcome(std::size_t number, ProgressBar &progress)
    {
        if (threads.empty())
            work(number + 1);
        constexpr std::chrono::milliseconds Tick(20);
        std::unique_lock<std::mutex> lock(mutex);
        while (!outcomes[number].isKnown) {
            if (!progress.isWanted()) {
                change.wait(lock);
                continue;
            }
            change.wait_for(lock, Tick);
            const int done = finished;
            lock.unlock();
            progress.show(done);
            lock.lock();
        }
        Known known = std::move(outcomes[number]);
        lock.unlock();
        return known.exception ? failure(number, known.exception) : std::move(known.outcome);
    }

private:
    struct Known {
        bool isKnown = false;
        Outcome outcome;
        std::exception_ptr exception; ///< null: there is an outcome
    };

    /// In a thread of its own.
    void work() noexcept
    {
        try {
            (void)QThread::currentThread(); // made now, and not where Qt could not do without
        } catch (const std::bad_alloc &) {
            // Then the first reader makes it.
        }
        work(listed.size());
    }

    /// Does the checks before \a end that nobody has begun.
    void work(std::size_t end)
    {
        std::unique_lock<std::mutex> lock(mutex);
        while (next < end) {
            const std::size_t number = next++;
            lock.unlock();
            Known known = check(listed[number]);
            lock.lock();
            known.isKnown = true;
            outcomes[number] = std::move(known);
            ++finished;
            change.notify_all();
        }
    }

    [[nodiscard]] Known check(const ListedPath &path) const
    {
        Known known;
        try {
            known.outcome = outcomeOf(path);
        } catch (...) {
            known.exception = std::current_exception();
        }
        return known;
    }

    [[nodiscard]] Outcome outcomeOf(const ListedPath &path) const
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

    /// What is said of a file whose check went wrong in itself.
    [[nodiscard]] Outcome failure(std::size_t number, const std::exception_ptr &exception) const
    {
        QString reason;
        try {
            std::rethrow_exception(exception);
        } catch (const std::bad_alloc &) {
            reason = NotEnoughMemory.toString();
        } catch (const std::exception &error) {
            reason = QString::fromUtf8(error.what());
        }
        return outcomeOf(unreadable(listed[number].path, reason));
    }

    const std::vector<ListedPath> listed;
    const OutputFormat format;
    const Talk talk;
    const TESSEL::ReadingLimits limits;
    std::mutex mutex; ///< of what follows
    std::condition_variable change;
    std::vector<Known> outcomes;
    std::size_t next = 0; ///< the first that nobody has begun
    int finished = 0;
    std::vector<std::thread> threads;
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
    const Talk talk = parser.isSet(QuietOption.toString()) ? Talk::OfWhatIsWrong : Talk::OfAll;
    const Strictness strictness =
        parser.isSet(StrictOption.toString()) ? Strictness::Strict : Strictness::Lenient;
    if (arguments.count(StandardStream.toString()) > 1)
        throw UsageError{QStringLiteral("standard input can be read only once")};

    auto paths = listedPaths(arguments, parser.isSet(RecursiveOption.toString()));
    const bool wouldMix = format == OutputFormat::Json && Terminal::isOutput();
    ProgressBar progress(static_cast<int>(paths.size()),
                         Terminal::isErrorOutput() && !wouldMix && talk == Talk::OfAll);
    const bool isOneFile =
        paths.size() == 1 && arguments.size() == 1 && arguments.constFirst() == paths.front().path;
    const std::size_t count = paths.size();
    Counts counts;
    Checks checks(std::move(paths), format, talk, limitsOf(parser), jobs);
    for (std::size_t i = 0; i < count; ++i) {
        const Outcome outcome = checks.outcome(i, progress);
        if (outcome.verdict)
            counts.add(*outcome.verdict);
        write(outcome.lines, progress);
    }
    const bool isSummedUp = format == OutputFormat::Json || !isOneFile;
    if (isSummedUp && (talk == Talk::OfAll || counts.of(Verdict::Good) < counts.all()))
        Console::writeBytes(summary(counts, format));
    return counts.status(strictness);
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
};
