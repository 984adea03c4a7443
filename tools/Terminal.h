// What the tool does only where people look at a terminal.
#ifndef KORMAK_TOOLS_TERMINAL_H
#define KORMAK_TOOLS_TERMINAL_H

#include <QString>
#include <QStringView>

#include <optional>

namespace Terminal {

[[nodiscard]] bool isOutput();
[[nodiscard]] bool isErrorOutput();

/// How many columns standard output has, or COLUMNS says; nothing when it is no terminal.
[[nodiscard]] std::optional<int> outputWidth();

/// A word such as "error" for standard error, in a colour if that is a terminal and the user has not set
/// NO_COLOR.
[[nodiscard]] QString coloured(QStringView severity);

} // namespace Terminal

#endif
