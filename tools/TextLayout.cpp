#include "tools/TextLayout.h"

#include <QStringList>

#include <algorithm>

namespace {

QString wrappedLine(const QString &line)
{
    QString text;
    int column = 0;
    const QStringList words = line.split(QLatin1Char(' '));
    for (const QString &word : words) {
        const int length = static_cast<int>(word.size());
        if (column > 0 && column + 1 + length > TextLayout::Width) {
            text += QLatin1Char('\n');
            column = 0;
        } else if (column > 0) {
            text += QLatin1Char(' ');
            ++column;
        }
        text += word;
        column += length;
    }
    return text;
}

} // namespace

QString TextLayout::twoColumns(const std::vector<Row> &rows, const QString &indent)
{
    int width = 0;
    for (const Row &row : rows)
        width = std::max(width, static_cast<int>(row.name.size()));
    QString text;
    for (const Row &row : rows)
        text +=
            indent + row.name.leftJustified(width) + QStringLiteral("  ") + row.meaning + QLatin1Char('\n');
    return text;
}

QString TextLayout::wrapped(const QString &text)
{
    QString result;
    const QStringList lines = text.split(QLatin1Char('\n'));
    for (const QString &line : lines)
        result += (line.startsWith(QLatin1Char(' ')) ? line : wrappedLine(line)) + QLatin1Char('\n');
    return result;
}
