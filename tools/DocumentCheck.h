// The check of one file: everything there is to tell about it, and what the library makes of it.
#ifndef KORMAK_TOOLS_DOCUMENTCHECK_H
#define KORMAK_TOOLS_DOCUMENTCHECK_H

#include <inspection/DocumentCheck_p.h>
#include <tools/Command.h>

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

#endif
