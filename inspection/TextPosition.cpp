#include "inspection/TextPosition_p.h"

#include <algorithm>
#include <iterator>

namespace KORMAK::Inspection {

QString toText(TextPosition position)
{
    return QStringLiteral("%1:%2").arg(position.line).arg(position.column);
}

namespace {

bool isFurtherByte(char c)
{
    constexpr int UpperBits = 0xC0;
    constexpr int FurtherByte = 0x80;
    return (c & UpperBits) == FurtherByte;
}

} // namespace

TextPosition TextPositions::at(qsizetype offset)
{
    if (offset < place) {
        place = 0;
        position = {};
    }
    const qsizetype end = std::min<qsizetype>(offset, text.size());
    if (hasReturns)
        advance(end);
    else
        advanceByLineFeeds(end);
    return position;
}

/// Counts many characters at a time.
void TextPositions::advanceByLineFeeds(qsizetype end)
{
    if (place >= end)
        return;
    const char *begin = text.constData() + place;
    const char *const last = text.constData() + end;
    if (const auto lines = std::count(begin, last, '\n'); lines > 0) {
        begin = std::find(std::make_reverse_iterator(last), std::make_reverse_iterator(begin), '\n').base();
        position = {position.line + lines, 1};
    }
    position.column += std::count_if(begin, last, [](char c) { return !isFurtherByte(c); });
    place = end;
}

void TextPositions::advance(qsizetype end)
{
    const char *const bytes = text.constData();
    for (; place < end; ++place) {
        const char c = bytes[place];
        const bool isPair = c == '\r' && place + 1 < text.size() && bytes[place + 1] == '\n';
        if (c == '\n' || (c == '\r' && !isPair))
            position = {position.line + 1, 1};
        else if (!isFurtherByte(c))
            ++position.column;
    }
}

} // namespace KORMAK::Inspection
