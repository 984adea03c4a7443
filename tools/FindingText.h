// What is said of findings to other programs, which show it to people.
#ifndef KORMAK_TOOLS_FINDINGTEXT_H
#define KORMAK_TOOLS_FINDINGTEXT_H

#include <inspection/FindingData_p.h>

#include <QString>

namespace FindingText {

/// The message with the names that are allowed, if they are few.
[[nodiscard]] QString message(const KORMAK::Inspection::FindingData &finding);

/// \a path without "./" in front.
[[nodiscard]] QString plainPath(QString path);

} // namespace FindingText

#endif
