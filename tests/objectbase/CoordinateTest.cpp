#include <objectbase/Coordinate.h>

#include <QtTest>

#include <cmath>
#include <limits>

using namespace TESSEL;

class CoordinateTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void defaults();
    void everyDoubleIsStored_data();
    void everyDoubleIsStored();
    void comparison_data();
    void comparison();
    void isConstant();
};

void CoordinateTest::defaults()
{
    const Coordinate origin;
    QCOMPARE(origin.GetLatitude(), 0.0);
    QCOMPARE(origin.GetLongitude(), 0.0);

    const Coordinate equator = Coordinate(12.5);
    QCOMPARE(equator.GetLatitude(), 12.5);
    QCOMPARE(equator.GetLongitude(), 0.0);
}

void CoordinateTest::everyDoubleIsStored_data()
{
    QTest::addColumn<double>("latitude");
    QTest::addColumn<double>("longitude");

    QTest::newRow("usual") << 47.123456789012345 << -8.75;
    QTest::newRow("poles and date line") << -90.0 << 180.0;
    QTest::newRow("off the globe") << 1234.5 << -9876.5;
    QTest::newRow("greatest and smallest")
        << std::numeric_limits<double>::max() << std::numeric_limits<double>::lowest();
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity()
                              << -std::numeric_limits<double>::infinity();
    QTest::newRow("least above zero")
        << std::numeric_limits<double>::denorm_min() << std::numeric_limits<double>::min();
}

void CoordinateTest::everyDoubleIsStored()
{
    QFETCH(double, latitude);
    QFETCH(double, longitude);

    const Coordinate constructed(latitude, longitude);
    QVERIFY(constructed.GetLatitude() == latitude);
    QVERIFY(constructed.GetLongitude() == longitude);

    Coordinate set;
    set.SetLatitude(latitude);
    QVERIFY(set.GetLongitude() == 0);
    set.SetLongitude(longitude);
    QVERIFY(set.GetLatitude() == latitude);
    QVERIFY(set.GetLongitude() == longitude);
    QVERIFY(set == constructed);
}

void CoordinateTest::comparison_data()
{
    QTest::addColumn<double>("latitude");
    QTest::addColumn<double>("longitude");
    QTest::addColumn<bool>("isEqual");

    const double justAbove = std::nextafter(47.5, 48.0);
    const double nan = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("same") << 47.5 << 8.25 << true;
    QTest::newRow("other latitude") << 47.0 << 8.25 << false;
    QTest::newRow("other longitude") << 47.5 << 8.0 << false;
    QTest::newRow("exchanged") << 8.25 << 47.5 << false;
    QTest::newRow("last bit") << justAbove << 8.25 << false;
    QTest::newRow("no number as latitude") << nan << 8.25 << false;
    QTest::newRow("no number as longitude") << 47.5 << nan << false;
}

void CoordinateTest::comparison()
{
    QFETCH(double, latitude);
    QFETCH(double, longitude);
    QFETCH(bool, isEqual);

    const Coordinate here(47.5, 8.25);
    const Coordinate there(latitude, longitude);
    QCOMPARE(here == there, isEqual);
    QCOMPARE(there == here, isEqual);
    QCOMPARE(here != there, !isEqual);
    QCOMPARE(there != here, !isEqual);
}

void CoordinateTest::isConstant()
{
    constexpr Coordinate zurich(47.5, 8.25);
    static_assert(zurich.GetLatitude() == 47.5 && zurich.GetLongitude() == 8.25);
    static_assert(zurich == Coordinate(47.5, 8.25) && zurich != Coordinate());
    QCOMPARE(zurich.GetLatitude(), 47.5);
}

QTEST_GUILESS_MAIN(CoordinateTest)
#include "CoordinateTest.moc"
