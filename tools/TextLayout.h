// Texts for people, as they stand in a terminal.
#ifndef KORMAK_TOOLS_TEXTLAYOUT_H
#define KORMAK_TOOLS_TEXTLAYOUT_H

#include <QString>

#include <vector>

namespace TextLayout {

/// A line is no longer than this, a blank at the end of a terminal of 80 columns included.
inline constexpr int Width = 79;

struct Row {
    QString name;
    QString meaning;
};

/// Lines of two columns, each line behind \a indent.
[[nodiscard]] QString twoColumns(const std::vector<Row> &rows, const QString &indent = {});

/// \a text with its lines broken, each ended. A line that begins with a blank stands as it is.
[[nodiscard]] QString wrapped(const QString &text);

} // namespace TextLayout

#endif
