// The manual page, in the language of man(7).
#ifndef KORMAK_TOOLS_MANUAL_H
#define KORMAK_TOOLS_MANUAL_H

#include <QString>

/// \a dataFolder is where an installation has what is not a program, seen from its prefix unless it is
/// absolute.
[[nodiscard]] QString manualPage(const QString &version, const QString &dataFolder);

#endif
