// What shells complete the calls of the tool with.
#ifndef KORMAK_TOOLS_COMPLETION_H
#define KORMAK_TOOLS_COMPLETION_H

#include <QString>

namespace Completion {

[[nodiscard]] QString forBash();
[[nodiscard]] QString forZsh();

} // namespace Completion

#endif
