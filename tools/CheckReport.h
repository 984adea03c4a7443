// The check of each file, and what is told of it and of all files in the end: for people, or as JSON for
// scripts.
#ifndef KORMAK_TOOLS_CHECKREPORT_H
#define KORMAK_TOOLS_CHECKREPORT_H

#include <inspection/DocumentCheck_p.h>
#include <tools/Command.h>
#include <tools/OutputFormat.h>

#include <QByteArray>
#include <QString>

#include <array>
#include <cstddef>

/// What comes out for a file, the better first.
enum class Verdict {
    Good,
    WithWarnings,
    NeverWritten, ///< the library accepts the document, but would write nothing for it
    Known, ///< all that there is to tell is in the baseline
    AtFault, ///< the library refuses the document, or something else counts as an error
    Unreadable,
};

struct FileCheck {
    QString path;
    Verdict verdict = Verdict::Good;
    KORMAK::Inspection::DocumentCheck check;
    int knownFindings = 0; ///< that have been taken out
};

/// Whether the object of a document is there after its check.
enum class CheckedObject { Dropped, Kept };

/// Checks the file \a path, "-" being standard input.
[[nodiscard]] FileCheck checkFile(const QString &path, const TESSEL::ReadingLimits &limits = {},
                                  CheckedObject object = CheckedObject::Dropped);

/// What the findings of \a check make of a file that can be read; \a known of them have been taken out.
[[nodiscard]] Verdict verdictOn(const KORMAK::Inspection::DocumentCheck &check, int known = 0);

/// The outcome for a \a path that cannot be read.
[[nodiscard]] FileCheck unreadable(const QString &path, const QString &reason);

namespace CheckReport {

/// What counts as a fault.
enum class Strictness {
    Lenient, ///< what the library refuses
    Strict, ///< warnings, too, and documents that the library would not write
};

/// Of what there is talk.
enum class Talk { OfAll, OfWhatIsWrong };

/// What is written of one file.
struct Lines {
    QByteArray results; ///< to standard output; of a log, with commas between them
    QByteArray complaints; ///< to standard error, before the results
};

/// How many files came out how.
class Counts {
public:
    void add(Verdict verdict, int knownFindings)
    {
        ++counts[static_cast<std::size_t>(verdict)];
        known += knownFindings;
    }
    /// Findings that the baseline has.
    [[nodiscard]] int knownFindings() const noexcept { return known; }
    [[nodiscard]] int of(Verdict verdict) const { return counts[static_cast<std::size_t>(verdict)]; }
    [[nodiscard]] int all() const;
    [[nodiscard]] ExitStatus status(Strictness strictness) const;

private:
    std::array<int, static_cast<std::size_t>(Verdict::Unreadable) + 1> counts = {};
    int known = 0;
};

[[nodiscard]] Lines linesOf(const FileCheck &check, OutputFormat format, Talk talk);
/// A warning of a folder at \a path that is not gone through.
[[nodiscard]] Lines linesOfSkipped(const QString &path, const QString &reason, OutputFormat format);

/// Writes what is told of all files.
class Report {
public:
    explicit Report(OutputFormat outputFormat, Talk talkOfFiles) : format(outputFormat), talk(talkOfFiles) { }

    void begin();
    void add(const Lines &lines);
    /// \a isOneFile: as text, there is nothing to sum up.
    void end(const Counts &counts, bool isOneFile, ExitStatus status);

private:
    const OutputFormat format;
    const Talk talk;
    bool hasResults = false;
};

} // namespace CheckReport

#endif
