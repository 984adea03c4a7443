// What a check says of each file, and of all of them in the end: for people, or as JSON for scripts.
#ifndef KORMAK_TOOLS_CHECKREPORT_H
#define KORMAK_TOOLS_CHECKREPORT_H

#include <tools/DocumentCheck.h>
#include <tools/OutputFormat.h>

#include <QByteArray>

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

[[nodiscard]] QByteArray summary(const Counts &counts, OutputFormat format);

} // namespace CheckReport

#endif
