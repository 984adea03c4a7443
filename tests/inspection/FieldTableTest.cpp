#include <inspection/DocumentKind_p.h>
#include <inspection/FieldTable_p.h>

#include <QtTest>

#include <algorithm>
#include <functional>
#include <set>

using namespace KORMAK::Inspection;

class FieldTableTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void everyObjectHasLabels_data();
    void everyObjectHasLabels();
    void everyRowHasALabel_data();
    void everyRowHasALabel();
};

namespace {

struct NamedTable {
    QString name; ///< of the row that holds the objects, or of the kind of document
    const FieldTable *table;
};

/// The tables of a kind of document and of all that is in it, each once.
QList<NamedTable> tablesOf(const QString &kind)
{
    QList<NamedTable> tables;
    std::set<const FieldTable *> seen;
    const std::function<void(const QString &, const FieldTable &)> add = [&](const QString &name,
                                                                             const FieldTable &table) {
        if (!seen.insert(&table).second)
            return;
        tables += {name, &table};
        for (const FieldRow &row : table) {
            if (row.parts)
                add(row.key.toString(), row.parts->table);
        }
    };
    add(kind, findDocumentKind(kind)->fields());
    return tables;
}

void addKinds()
{
    QTest::addColumn<QString>("kind");

    for (const QString &kind : documentKindNames())
        QTest::newRow(qPrintable(kind)) << kind;
}

} // namespace

void FieldTableTest::everyObjectHasLabels_data()
{
    addKinds();
}

void FieldTableTest::everyObjectHasLabels()
{
    QFETCH(QString, kind);

    QStringList without;
    for (const NamedTable &named : tablesOf(kind)) {
        if (std::none_of(named.table->begin(), named.table->end(),
                         [](const FieldRow &row) { return row.isLabelled; }))
            without += named.name;
    }
    QVERIFY2(without.isEmpty(), qPrintable("no labels in inspection/FieldTable.cpp: " + without.join(", ")));
}

void FieldTableTest::everyRowHasALabel_data()
{
    addKinds();
}

void FieldTableTest::everyRowHasALabel()
{
    QFETCH(QString, kind);

    QStringList without;
    for (const NamedTable &named : tablesOf(kind)) {
        for (const FieldRow &row : *named.table) {
            if (!row.isLabelled)
                without += named.name + '.' + row.key.toString();
        }
    }
    QVERIFY2(without.isEmpty(), qPrintable("no label in inspection/FieldTable.cpp: " + without.join(", ")));
}

QTEST_GUILESS_MAIN(FieldTableTest)
#include "FieldTableTest.moc"
