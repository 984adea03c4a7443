// Tables in Markdown, and what is said of a target.
#ifndef BENCHMARKS_TABLE_H
#define BENCHMARKS_TABLE_H

#include <QString>
#include <QStringList>

/// A limit for a measured value.
struct Target {
    enum Kind { AtMost, AtLeast };
    Kind kind;
    double limit;

    [[nodiscard]] bool isReachedBy(double value) const
    {
        return kind == AtMost ? value <= limit : value >= limit;
    }
};

class Table {
public:
    explicit Table(const QString &title, const QStringList &columns);

    void add(const QStringList &cells);
    /// A row "name | value | target | reached or missed".
    void add(const QString &name, double value, const Target &target, int decimals = 2);

    /// Prints title and rows; nothing when there are no rows.
    void print() const;

private:
    QString title;
    QStringList columns;
    QList<QStringList> rows;
};

/// With so many decimals, the thousands set apart.
[[nodiscard]] QString figure(double value, int decimals = 2);

#endif
