// What holds whatever a document or an assignment given to the tool is like. The functions throw a Violation
// where it does not.
#ifndef KORMAK_FUZZ_TOOLPROPERTIES_H
#define KORMAK_FUZZ_TOOLPROPERTIES_H

#include <fuzz/ToolRun.h>

namespace Fuzz {

/// What \a tool does with a file that holds \a bytes: check, show, format and diff.
void checkToolOnDocument(const Tool &tool, const QByteArray &bytes);

/// What \a tool makes of "new": \a bytes hold the kind of document and, in a line each, what is set.
void checkToolOnAssignments(const Tool &tool, const QByteArray &bytes);

/// The arguments of the tool that \a bytes stand for.
[[nodiscard]] QStringList callOfNew(const QByteArray &bytes);

} // namespace Fuzz

#endif
