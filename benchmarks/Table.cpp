#include "Table.h"

#include <QLocale>

#include <cstdio>

Table::Table(const QString &tableTitle, const QStringList &columnTitles)
    : title(tableTitle), columns(columnTitles)
{
}

void Table::add(const QStringList &cells)
{
    rows << cells;
}

void Table::add(const QString &name, double value, const Target &target, int decimals)
{
    const QString sign = target.kind == Target::AtMost ? QStringLiteral("≤ ") : QStringLiteral("≥ ");
    add({name, figure(value, decimals), sign + figure(target.limit, decimals),
         target.isReachedBy(value) ? QStringLiteral("reached") : QStringLiteral("missed")});
}

void Table::print() const
{
    if (rows.isEmpty())
        return;
    QStringList alignment{QStringLiteral("---")};
    for (int column = 1; column < columns.size(); ++column)
        alignment << QStringLiteral("---:");
    QString text = '\n' + title + "\n\n";
    for (const QStringList &row : QList<QStringList>{columns, alignment} + rows)
        text += "| " + row.join(QStringLiteral(" | ")) + " |\n";
    std::fputs(text.toUtf8().constData(), stdout);
}

QString figure(double value, int decimals)
{
    return QLocale(QLocale::English, QLocale::UnitedStates).toString(value, 'f', decimals);
}
