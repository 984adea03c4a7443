#include "inspection/QuotedText_p.h"

#include <QChar>

#include <algorithm>

namespace KORMAK::Inspection {

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
    return c.category() != QChar::Other_Control && c != QChar::LineSeparator
        && c != QChar::ParagraphSeparator;
}

QString oneLine(const QString &text)
{
    if (std::all_of(text.begin(), text.end(), isHarmless))
        return text;
    QString line;
    line.reserve(text.size());
    for (const QChar c : text)
        line += isHarmless(c) ? QString(c) : escaped(c);
    return line;
}

QString shortened(const QString &text)
{
    constexpr int Longest = 200;
    return text.size() > Longest ? text.left(Longest) + QChar(0x2026) : text;
}

QString quoted(const QString &text)
{
    return QLatin1Char('"') + oneLine(shortened(text)) + QLatin1Char('"');
}

} // namespace KORMAK::Inspection
