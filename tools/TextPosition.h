// Lines and columns of a text, as editors count them.
#ifndef KORMAK_TOOLS_TEXTPOSITION_H
#define KORMAK_TOOLS_TEXTPOSITION_H

#include <QString>
#include <QStringView>

#include <vector>

/// Both from 1; a column is a character, however many code units it takes.
struct TextPosition {
    qsizetype line = 1;
    qsizetype column = 1;
};

/// "LINE:COLUMN"
[[nodiscard]] QString toText(TextPosition position);

/// Tells the position of any offset (in code units) in a text that was looked through once.
class TextPositions {
public:
    explicit TextPositions(QStringView text);

    [[nodiscard]] TextPosition at(qsizetype offset) const;

private:
    std::vector<qsizetype> lineStarts{0};
    std::vector<qsizetype> secondUnits; ///< offsets of the second halves of characters
};

#endif
