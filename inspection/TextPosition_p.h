// Lines and columns of a text, as editors count them.
#ifndef KORMAK_INSPECTION_TEXTPOSITION_P_H
#define KORMAK_INSPECTION_TEXTPOSITION_P_H

#include <QByteArray>
#include <QString>

#include <utility>

namespace KORMAK::Inspection {

/// Both from 1; a column is a character, however many bytes it takes.
struct TextPosition {
    qsizetype line = 1;
    qsizetype column = 1;
};

/// "LINE:COLUMN"
[[nodiscard]] QString toText(TextPosition position);

/// Tells the positions of offsets (in bytes) in a text in UTF-8. Offsets that grow cost one walk through the
/// text in all.
class TextPositions {
public:
    explicit TextPositions(QByteArray utf8) : text(std::move(utf8)), hasReturns(text.contains('\r')) { }

    [[nodiscard]] TextPosition at(qsizetype offset);

private:
    void advanceByLineFeeds(qsizetype end);
    void advance(qsizetype end);

    const QByteArray text;
    const bool hasReturns; ///< so that lines may end otherwise than by a line feed
    qsizetype place = 0;
    TextPosition position;
};

} // namespace KORMAK::Inspection

#endif
