#include "inspection/QuotedText_p.h"

#include <QChar>

#include <algorithm>

namespace KORMAK::Inspection {

namespace {

bool isHarmlessCodePoint(uint codePoint)
{
    constexpr uint Delete = 0x7F;
    if (codePoint >= u' ' && codePoint < Delete)
        return true;
    switch (QChar::category(codePoint)) {
    case QChar::Other_Control:
    case QChar::Other_Format:
    case QChar::Separator_Line:
    case QChar::Separator_Paragraph:
        return false;
    default:
        return true;
    }
}

/// How many code units the harmless character at \a index takes; 0 when there is none.
int harmlessLength(const QString &text, int index)
{
    const QChar c = text.at(index);
    if (c.isHighSurrogate() && index + 1 < text.size() && text.at(index + 1).isLowSurrogate())
        return isHarmlessCodePoint(QChar::surrogateToUcs4(c, text.at(index + 1))) ? 2 : 0;
    return isHarmless(c) && !c.isSurrogate() ? 1 : 0;
}

} // namespace

QString escaped(QChar c)
{
    switch (c.unicode()) {
    case '\n':
        return QStringLiteral("\\n");
    case '\r':
        return QStringLiteral("\\r");
    case '\t':
        return QStringLiteral("\\t");
    default:
        return QStringLiteral("\\u%1").arg(c.unicode(), 4, 16, QLatin1Char('0'));
    }
}

bool isHarmless(QChar c)
{
    return isHarmlessCodePoint(c.unicode());
}

QString oneLine(const QString &text)
{
    QString line;
    int begin = 0; // of what is harmless and not in the line yet
    for (int i = 0; i < text.size();) {
        const int length = harmlessLength(text, i);
        if (length == 0) {
            line += text.mid(begin, i - begin) + escaped(text.at(i));
            begin = i + 1;
        }
        i += std::max(length, 1);
    }
    return begin == 0 ? text : line + text.mid(begin);
}

QString shortened(const QString &text)
{
    constexpr int Longest = 200;
    if (text.size() <= Longest)
        return text;
    const bool cutsPair = text.at(Longest - 1).isHighSurrogate() && text.at(Longest).isLowSurrogate();
    return text.left(cutsPair ? Longest - 1 : Longest) + QChar(0x2026);
}

QString quoted(const QString &text)
{
    return QLatin1Char('"') + oneLine(shortened(text)) + QLatin1Char('"');
}

} // namespace KORMAK::Inspection
