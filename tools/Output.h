#ifndef KORMAK_TOOLS_OUTPUT_H
#define KORMAK_TOOLS_OUTPUT_H

#include <tools/Command.h>
#include <tools/DocumentFile.h>

#include <QByteArray>
#include <QCommandLineOption>
#include <QString>
#include <QStringView>

inline constexpr QStringView OutputOption = u"o";

/// Names the file that is written instead of standard output.
[[nodiscard]] QCommandLineOption outputOption();

/// Writes \a text to the file \a path, all of it or nothing, or to standard output. When the file cannot be
/// written, that is complained about. A file that is replaced keeps its mode, and its owner and group where
/// they may be given away; what it does not keep is told. With \a source, the file is replaced only if it
/// still is what was read from it.
[[nodiscard]] ExitStatus writeOutput(const QByteArray &text, const QString &path,
                                     const SourceText *source = nullptr);

#endif
