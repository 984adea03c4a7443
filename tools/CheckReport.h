// The check of each file, and what is told of it and of all files in the end: for people, or as JSON for
// scripts.
#ifndef KORMAK_TOOLS_CHECKREPORT_H
#define KORMAK_TOOLS_CHECKREPORT_H

#include <inspection/DocumentCheck_p.h>
#include <tools/Command.h>
#include <tools/OutputFormat.h>

#include <QByteArray>
#include <QString>

struct FileCheck {
    QString path;
    ExitStatus status = Good; ///< Faulty exactly when the library refuses the document
    KORMAK::Inspection::DocumentCheck check;
};

/// Checks the file \a path, "-" being standard input.
[[nodiscard]] FileCheck checkFile(const QString &path, const TESSEL::ReadingLimits &limits = {});

/// The outcome for a \a path that cannot be read.
[[nodiscard]] FileCheck unreadable(const QString &path, const QString &reason);

namespace CheckReport {

/// What is written of one file.
struct Lines {
    QByteArray results; ///< to standard output
    QByteArray complaints; ///< to standard error, before the results
};

/// How many files ended how.
struct Counts {
    int good = 0;
    int faulty = 0;
    int unreadable = 0;

    void add(ExitStatus status);
    [[nodiscard]] int all() const { return good + faulty + unreadable; }
    [[nodiscard]] ExitStatus status() const;
};

[[nodiscard]] Lines linesOf(const FileCheck &check, OutputFormat format);
/// A warning of a folder at \a path that is not gone through.
[[nodiscard]] Lines linesOfSkipped(const QString &path, const QString &reason, OutputFormat format);

[[nodiscard]] QByteArray summary(const Counts &counts, OutputFormat format);

} // namespace CheckReport

#endif
