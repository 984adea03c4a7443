// The check of one file: everything there is to tell about it, and what the library makes of it.
#ifndef KORMAK_TOOLS_DOCUMENTCHECK_H
#define KORMAK_TOOLS_DOCUMENTCHECK_H

#include <tools/Command.h>
#include <tools/DocumentFile.h>
#include <tools/Finding.h>
#include <tools/TextPosition.h>

#include <QString>

#include <optional>
#include <utility>
#include <vector>

struct FileCheck {
    struct PlacedFinding {
        Finding finding;
        std::optional<TextPosition> position; ///< nothing when it is not about a place
    };

    QString path;
    ExitStatus status = Good; ///< Faulty exactly when the library refuses the document
    const DocumentKind *kind = nullptr; ///< null when it is not known
    bool isComplete = false;
    QString state = {}; ///< of a document that the library accepts: what it is, and whether it is complete
    std::vector<PlacedFinding> findings = {}; ///< in the order of the document
};

/// Checks the file \a path, "-" being standard input.
[[nodiscard]] FileCheck checkFile(const QString &path, const TESSEL::ReadingLimits &limits = {});

/// The outcome for a \a path that cannot be read.
[[nodiscard]] FileCheck unreadable(const QString &path, const QString &reason);

/// All that there is to tell about \a text, and whether the library accepts it.
[[nodiscard]] FileCheck checkText(const QString &path, const SourceText &text,
                                  const TESSEL::ReadingLimits &limits = {});

#endif
