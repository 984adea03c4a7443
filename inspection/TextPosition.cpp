#include "inspection/TextPosition_p.h"

#include <algorithm>

namespace KORMAK::Inspection {

QString toText(TextPosition position)
{
    return QStringLiteral("%1:%2").arg(position.line).arg(position.column);
}

TextPosition TextPositions::at(qsizetype offset)
{
    if (offset < place) {
        place = 0;
        position = {};
    }
    const char *const bytes = text.constData();
    const qsizetype size = text.size();
    for (const qsizetype end = std::min(offset, size); place < end; ++place) {
        constexpr int UpperBits = 0xC0;
        constexpr int FurtherByte = 0x80;
        const char c = bytes[place];
        const bool isPair = c == '\r' && place + 1 < size && bytes[place + 1] == '\n';
        if (c == '\n' || (c == '\r' && !isPair))
            position = {position.line + 1, 1};
        else if ((c & UpperBits) != FurtherByte)
            ++position.column;
    }
    return position;
}

} // namespace KORMAK::Inspection
