#ifndef KORMAK_TOOLS_OUTPUT_H
#define KORMAK_TOOLS_OUTPUT_H

#include <tools/Command.h>

#include <QString>
#include <QStringView>

/// What stands for standard input or output in place of the name of a file.
inline constexpr QStringView StandardStream = u"-";

/// Writes \a text to the file \a path, all of it or nothing, or to standard output. When the file cannot be
/// written, that is complained about.
[[nodiscard]] ExitStatus writeOutput(const QString &text, const QString &path);

#endif
