#include "tools/TextPosition.h"

#include <QChar>

#include <algorithm>

QString toText(TextPosition position)
{
    return QStringLiteral("%1:%2").arg(position.line).arg(position.column);
}

TextPositions::TextPositions(QStringView text)
{
    for (qsizetype i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        const bool isPair = c == QLatin1Char('\r') && i + 1 < text.size() && text[i + 1] == QLatin1Char('\n');
        if (c == QLatin1Char('\n') || (c == QLatin1Char('\r') && !isPair))
            lineStarts.push_back(i + 1);
        else if (c.isLowSurrogate())
            secondUnits.push_back(i);
    }
}

TextPosition TextPositions::at(qsizetype offset) const
{
    const auto nextLine = std::upper_bound(lineStarts.begin(), lineStarts.end(), offset);
    const qsizetype start = *(nextLine - 1);
    const auto firstPair = std::lower_bound(secondUnits.begin(), secondUnits.end(), start);
    const auto pairsEnd = std::lower_bound(firstPair, secondUnits.end(), offset);
    return {nextLine - lineStarts.begin(), offset - start + 1 - (pairsEnd - firstPair)};
}
