// The texts that tell how the tool is called.
#ifndef KORMAK_TOOLS_USAGE_H
#define KORMAK_TOOLS_USAGE_H

#include <tools/Command.h>
#include <tools/TextLayout.h>

#include <QList>
#include <QString>
#include <QStringList>

#include <vector>

namespace Usage {

[[nodiscard]] QString brief();
[[nodiscard]] QString ofTool();
[[nodiscard]] QString ofCommand(const Command &command);

/// What of the arguments of a command people should know beyond its description: that - is standard input, or
/// which kinds there are; empty when they are of another sort.
[[nodiscard]] QString noteOnArguments(const Command &command);

/// "check [OPTIONS] PATH..."
[[nodiscard]] QString callOf(const Command &command);

/// Each status that the tool may end with, and what it means.
[[nodiscard]] std::vector<TextLayout::Row> exitRows(const ExitTexts &texts);

/// \throws UsageError when \a count is not as \a arguments say
void checkCount(const Arguments &arguments, int count);

/// The names of an option as they are given: "-h", "--help".
[[nodiscard]] QStringList dashedNames(const QCommandLineOption &option);
/// "-o, --output OUT"
[[nodiscard]] QString nameOf(const QCommandLineOption &option);
/// "-h, --help, -o OUT"
[[nodiscard]] QString optionNames(const QList<QCommandLineOption> &options);

/// For a \a name that is none of those \a allowed; \a what they are names of.
[[nodiscard]] UsageError unknown(const QString &what, const QString &name, const QStringList &allowed);

} // namespace Usage

#endif
