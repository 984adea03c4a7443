#include "inspection/report/AreaDrawing_p.h"

#include <QtTest>

using namespace KORMAK::Inspection;

class AreaDrawingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void roundNumbers_data();
    void roundNumbers();
    void roundDistances();
};

void AreaDrawingTest::roundNumbers_data()
{
    QTest::addColumn<double>("most");
    QTest::addColumn<double>("expected");

    const auto add = [](double most, double expected) {
        QTest::newRow(qPrintable(QString::number(most))) << most << expected;
    };
    add(1, 1);
    add(1.99, 1);
    add(2, 2);
    add(4.99, 2);
    add(5, 5);
    add(9.99, 5);
    add(10, 10);
    add(12'345, 10'000);
    add(700, 500);
    add(0.3, 0.2);
    add(0.0099, 0.005);
    add(0.01, 0.01);
}

void AreaDrawingTest::roundNumbers()
{
    QFETCH(const double, most);
    QFETCH(const double, expected);

    QCOMPARE(roundNumber(most), expected);
}

void AreaDrawingTest::roundDistances()
{
    QCOMPARE(roundDistance(666), 100.0);
    QCOMPARE(roundDistance(667), 200.0);
    QCOMPARE(roundDistance(0.05), 0.01);
}

QTEST_GUILESS_MAIN(AreaDrawingTest)
#include "AreaDrawingTest.moc"
