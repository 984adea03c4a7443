// Calls of the command-line tool within the process.
#ifndef KORMAK_FUZZ_TOOLRUN_H
#define KORMAK_FUZZ_TOOLRUN_H

#include <QByteArray>
#include <QStringList>

#include <functional>

namespace Fuzz {

/// How a call of the tool ended, and what it wrote.
struct ToolRun {
    int status; ///< an ExitStatus
    QByteArray output;
    QByteArray complaints;
};

/// Runs the tool with the arguments of a call: a command, its options and files.
using Tool = std::function<ToolRun(const QStringList &arguments)>;

/// The tool itself. Exceptions that it does not catch pass through.
[[nodiscard]] ToolRun runTool(const QStringList &arguments);

} // namespace Fuzz

#endif
