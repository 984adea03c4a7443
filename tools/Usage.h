// The texts that tell how the tool is called.
#ifndef KORMAK_TOOLS_USAGE_H
#define KORMAK_TOOLS_USAGE_H

#include <tools/Command.h>

#include <QList>
#include <QString>

namespace Usage {

using Commands = QList<const Command *>;

[[nodiscard]] QString brief(const Commands &commands);
[[nodiscard]] QString ofTool(const Commands &commands, const QList<QCommandLineOption> &options);
[[nodiscard]] QString ofCommand(const Command &command, const QList<QCommandLineOption> &options);

[[nodiscard]] QString commandNames(const Commands &commands);
/// \throws UsageError when \a count is not as \a arguments say
void checkCount(const Arguments &arguments, int count);

/// "-h, --help, -o OUT"
[[nodiscard]] QString optionNames(const QList<QCommandLineOption> &options);

} // namespace Usage

#endif
