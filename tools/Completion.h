// What shells complete the calls of the tool with.
#ifndef KORMAK_TOOLS_COMPLETION_H
#define KORMAK_TOOLS_COMPLETION_H

#include <QString>

namespace Completion {

/// The template \a script with the commands, options, fields and names that the tool knows; \a fieldFunctions
/// is the template of what the scripts of all shells have in common.
[[nodiscard]] QString filledIn(const QString &script, const QString &fieldFunctions);

} // namespace Completion

#endif
