// What is said of findings to people and to other programs, which show it to them.
#ifndef KORMAK_TOOLS_FINDINGTEXT_H
#define KORMAK_TOOLS_FINDINGTEXT_H

#include <inspection/FindingData_p.h>

#include <QString>

namespace FindingText {

/// What a document has in place of a name; empty when there is nothing.
[[nodiscard]] QString textInPlaceOfName(const KORMAK::Inspection::FindingData &finding);

/// A few of the names that are allowed, and where the others are, in parentheses behind a blank. Who is told
/// what to write needs no names that are like it.
[[nodiscard]] QString noteOnAllowed(const KORMAK::Inspection::FindingData &finding);

/// The message with that note.
[[nodiscard]] QString message(const KORMAK::Inspection::FindingData &finding);

/// \a path without "./" in front.
[[nodiscard]] QString plainPath(QString path);

} // namespace FindingText

#endif
