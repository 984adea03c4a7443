// What is fuzzed: a name, and the function that looks at one input.
#ifndef KORMAK_FUZZ_TARGETS_H
#define KORMAK_FUZZ_TARGETS_H

#include <QByteArray>
#include <QStringList>

namespace Fuzz {

/// Throws when something does not hold for \a input.
using Check = void (*)(const QByteArray &input);

/// Null when there is none.
[[nodiscard]] Check findTarget(const QString &name);

[[nodiscard]] QStringList targetNames();

} // namespace Fuzz

#endif
