#ifndef KORMAK_TOOLS_OUTPUT_H
#define KORMAK_TOOLS_OUTPUT_H

#include <tools/Command.h>

#include <QCommandLineOption>
#include <QString>
#include <QStringView>

inline constexpr QStringView OutputOption = u"o";

/// Names the file that is written instead of standard output.
[[nodiscard]] QCommandLineOption outputOption();

/// Writes \a text to the file \a path, all of it or nothing, or to standard output. When the file cannot be
/// written, that is complained about.
[[nodiscard]] ExitStatus writeOutput(const QString &text, const QString &path);

#endif
