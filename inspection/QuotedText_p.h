// Texts of documents in messages: nothing in them can steer a terminal, and none takes much room.
#ifndef KORMAK_INSPECTION_QUOTEDTEXT_P_H
#define KORMAK_INSPECTION_QUOTEDTEXT_P_H

#include <QString>

namespace KORMAK::Inspection {

/// Whether \a c, or the half of a character that it is, cannot steer a terminal, ends no line and does not
/// change what is seen of the text around it, as characters for the direction of writing do.
[[nodiscard]] bool isHarmless(QChar c);
/// \a c as an escape that programs know, JSON included.
[[nodiscard]] QString escaped(QChar c);

/// \a text on one line, with nothing in it that could steer a terminal or hide what is there: control and
/// format characters and halves of characters as escapes.
[[nodiscard]] QString oneLine(const QString &text);

/// \a text, cut when it is long.
[[nodiscard]] QString shortened(const QString &text);

/// \a text between quotation marks, on one line and cut when it is long.
[[nodiscard]] QString quoted(const QString &text);

} // namespace KORMAK::Inspection

#endif
