#include <inspection/report/AreaOutline_p.h>
#include <inspection/report/MapProjection_p.h>

#include <QtTest>

#include <cmath>
#include <limits>

using namespace KORMAK::Inspection;
using Shape = AreaOutline::Shape;
using Coordinates = QVector<TESSEL::Coordinate>;

Q_DECLARE_METATYPE(TESSEL::Coordinate)
Q_DECLARE_METATYPE(Coordinates)
Q_DECLARE_METATYPE(KORMAK::Inspection::AreaOutline::Shape)

namespace {

/// "180 2.5, -180 3": longitudes before latitudes.
QString textOf(const OutlineRing &ring)
{
    QStringList points;
    for (const OutlinePoint &point : ring)
        points += QString("%1 %2").arg(point.longitude).arg(point.latitude);
    return points.join(", ");
}

QStringList textsOf(const std::vector<OutlineRing> &rings)
{
    QStringList texts;
    for (const OutlineRing &ring : rings)
        texts += textOf(ring);
    return texts;
}

} // namespace

class AreaOutlineTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void shapes_data();
    void shapes();
    void nowhere_data();
    void nowhere();
    void polygons_data();
    void polygons();
    void lines();
    void extents();
    void areas_data();
    void areas();
    void manyCoordinates();
    void tooManyCoordinates();
};

void AreaOutlineTest::shapes_data()
{
    QTest::addColumn<Coordinates>("coordinates");
    QTest::addColumn<Shape>("shape");
    QTest::addColumn<int>("points");
    QTest::addColumn<int>("windings");
    QTest::addColumn<bool>("crossesItself");

    QTest::newRow("none") << Coordinates{} << Shape::None << 0 << 0 << false;
    QTest::newRow("point") << Coordinates{{1, 2}} << Shape::Point << 1 << 0 << false;
    QTest::newRow("point twice") << Coordinates{{1, 2}, {1, 2}} << Shape::Point << 1 << 0 << false;
    QTest::newRow("point on both sides of 180")
        << Coordinates{{1, 180}, {1, -180}} << Shape::Point << 1 << 0 << false;
    QTest::newRow("line") << Coordinates{{1, 2}, {3, 4}} << Shape::Line << 2 << 0 << false;
    QTest::newRow("there and back") << Coordinates{{1, 2}, {3, 4}, {1, 2}} << Shape::Line << 2 << 0 << false;
    QTest::newRow("triangle") << Coordinates{{0, 0}, {0, 9}, {9, 0}} << Shape::Polygon << 3 << 0 << false;
    QTest::newRow("closed") << Coordinates{{0, 0}, {0, 9}, {9, 0}, {0, 0}} << Shape::Polygon << 3 << 0
                            << false;
    QTest::newRow("repeated") << Coordinates{{0, 0}, {0, 9}, {0, 9}, {9, 0}} << Shape::Polygon << 3 << 0
                              << false;
    QTest::newRow("bow tie") << Coordinates{{0, 0}, {9, 9}, {9, 0}, {0, 9}} << Shape::Polygon << 4 << 0
                             << true;
    QTest::newRow("touches itself") << Coordinates{{0, 0}, {0, 9}, {5, 5}, {9, 9}, {9, 0}, {5, 5}}
                                    << Shape::Polygon << 6 << 0 << false;
    QTest::newRow("bow tie over 180")
        << Coordinates{{0, 175}, {9, -175}, {9, 175}, {0, -175}} << Shape::Polygon << 4 << 0 << true;
    QTest::newRow("across 180") << Coordinates{{0, 175}, {0, -175}, {9, 180}} << Shape::Polygon << 3 << 0
                                << false;
    QTest::newRow("eastwards round the pole")
        << Coordinates{{80, -120}, {80, 0}, {80, 120}} << Shape::Polygon << 3 << 1 << false;
    QTest::newRow("westwards round the pole")
        << Coordinates{{80, 120}, {80, 0}, {80, -120}} << Shape::Polygon << 3 << -1 << false;
    QTest::newRow("closed round the pole")
        << Coordinates{{80, -120}, {80, 0}, {80, 120}, {80, -120}} << Shape::Polygon << 3 << 1 << false;
}

void AreaOutlineTest::shapes()
{
    QFETCH(Coordinates, coordinates);
    const AreaOutline outline(coordinates);
    QCOMPARE(outline.error(), QString());
    QTEST(outline.shape(), "shape");
    QTEST(int(outline.points().size()), "points");
    QTEST(outline.windings(), "windings");
    QVERIFY(outline.crossesItself());
    QTEST(*outline.crossesItself(), "crossesItself");
}

void AreaOutlineTest::nowhere_data()
{
    QTest::addColumn<TESSEL::Coordinate>("coordinate");
    QTest::addColumn<QString>("error");

    const double nan = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("latitude") << TESSEL::Coordinate(90.5, 0)
                              << "Coordinate[1]: latitude 90.5 is not from -90 to 90";
    QTest::newRow("longitude") << TESSEL::Coordinate(0, -181)
                               << "Coordinate[1]: longitude -181 is not from -180 to 180";
    QTest::newRow("NaN") << TESSEL::Coordinate(nan, 0) << "Coordinate[1]: latitude nan is not from -90 to 90";
    QTest::newRow("infinite") << TESSEL::Coordinate(0, std::numeric_limits<double>::infinity())
                              << "Coordinate[1]: longitude inf is not from -180 to 180";
}

void AreaOutlineTest::nowhere()
{
    QFETCH(TESSEL::Coordinate, coordinate);
    const AreaOutline outline({{1, 1}, coordinate, {2, 2}});
    QTEST(outline.error(), "error");
    QCOMPARE(outline.shape(), Shape::None);
}

void AreaOutlineTest::polygons_data()
{
    QTest::addColumn<Coordinates>("coordinates");
    QTest::addColumn<QStringList>("polygons");

    QTest::newRow("anticlockwise") << Coordinates{{0, 0}, {0, 9}, {9, 0}} << QStringList{"0 0, 9 0, 0 9"};
    QTest::newRow("clockwise") << Coordinates{{0, 0}, {9, 0}, {0, 9}} << QStringList{"0 0, 9 0, 0 9"};
    QTest::newRow("across 180") << Coordinates{{-15, 176}, {-15, -178}, {-20, -178}, {-20, 176}}
                                << QStringList{"180 -20, 180 -15, 176 -15, 176 -20",
                                               "-180 -15, -180 -20, -178 -20, -178 -15"};
    QTest::newRow("along 180") << Coordinates{{0, 170}, {0, 180}, {9, -180}, {9, 170}}
                               << QStringList{"170 0, 180 0, 180 9, 170 9"};
    QTest::newRow("teeth over 180") << Coordinates{{0, 170}, {0, -170}, {1, -170}, {1, 175},
                                                   {2, 175}, {2, -170}, {3, -170}, {3, 170}}
                                    << QStringList{"180 1, 175 1, 175 2, 180 2, 180 3, 170 3, 170 0, 180 0",
                                                   "-180 0, -170 0, -170 1, -180 1",
                                                   "-180 2, -170 2, -170 3, -180 3"};
    QTest::newRow("round the north pole")
        << Coordinates{{70, -150}, {72, -30}, {68, 60}, {75, 150}}
        << QStringList{"-180 72.5, -150 70, -30 72, 60 68, 150 75, 180 72.5, "
                       "180 90, -180 90"};
    QTest::newRow("westwards round the south pole")
        << Coordinates{{-70, 0}, {-68, -90}, {-75, 180}, {-72, 90}}
        << QStringList{"180 -75, 90 -72, 0 -70, -90 -68, -180 -75, -180 -90, 180 -90"};
    QTest::newRow("a bow across 180") << Coordinates{{0, 170}, {10, -170}, {0, -170}, {10, 170}}
                                      << QStringList{"180 5, 170 10, 170 0", "-180 5, -170 0, -170 10"};
    QTest::newRow("a bow of equal halves beside 180")
        << Coordinates{{0, 160}, {9, 170}, {9, 160}, {0, 170}, {0, -170}, {0, -175}}
        << QStringList{"180 0, 160 0, 170 9, 160 9, 170 0", "-180 0, -170 0, -175 0"};
    QTest::newRow("along 180 only") << Coordinates{{0, 180}, {5, -180}, {9, 180}}
                                    << QStringList{"180 0, 180 5, 180 9"};
    QTest::newRow("there and back across 180")
        << Coordinates{{0, 179}, {0, -179}, {0, 178}, {0, -178}}
        << QStringList{"180 0, 178 0", "180 0, 179 0", "-180 0, -179 0", "-180 0, -178 0"};
    QTest::newRow("without room") << Coordinates{{0, 0}, {1, 1}, {2, 2}} << QStringList{"0 0, 1 1, 2 2"};
}

void AreaOutlineTest::polygons()
{
    QFETCH(Coordinates, coordinates);
    QTEST(textsOf(AreaOutline(coordinates).polygons()), "polygons");
}

void AreaOutlineTest::lines()
{
    QCOMPARE(textsOf(AreaOutline({{1, 2}, {3, 4}}).lines()), QStringList{"2 1, 4 3"});
    QCOMPARE(textsOf(AreaOutline({{0, 179}, {2, -179}}).lines()),
             (QStringList{"179 0, 180 1", "-180 1, -179 2"}));
    QCOMPARE(textsOf(AreaOutline({{2, -179}, {0, 179}}).lines()),
             (QStringList{"-179 2, -180 1", "180 1, 179 0"}));
    QCOMPARE(textsOf(AreaOutline({{0, 180}, {2, 170}}).lines()), QStringList{"180 0, 170 2"});
    // an end on 180 degrees is on the side of the other one
    QCOMPARE(textsOf(AreaOutline({{60, -180}, {50, 160}}).lines()), QStringList{"180 60, 160 50"});
    QCOMPARE(textsOf(AreaOutline({{50, -160}, {60, 180}}).lines()), QStringList{"-160 50, -180 60"});
    QCOMPARE(textsOf(AreaOutline({{0, -180}, {10, 180}}).lines()), QStringList{"180 0, 180 10"});
    QCOMPARE(textsOf(AreaOutline({{0, -180}, {10, 0}}).lines()), QStringList{"-180 0, 0 10"});
}

void AreaOutlineTest::extents()
{
    const auto textOfExtent = [](const Coordinates &coordinates) {
        const Extent extent = AreaOutline(coordinates).extent();
        return QString("%1 %2 %3 %4").arg(extent.west).arg(extent.south).arg(extent.east).arg(extent.north);
    };
    QCOMPARE(textOfExtent({{1, 2}}), QString("2 1 2 1"));
    QCOMPARE(textOfExtent({{1, 2}, {5, -4}, {-3, 9}}), QString("-4 -3 9 5"));
    QCOMPARE(textOfExtent({{-15, 176}, {-15, -178}, {-20, -178}}), QString("176 -20 -178 -15"));
    QCOMPARE(textOfExtent({{60, -180}, {50, 160}}), QString("160 50 180 60"));
    QCOMPARE(textOfExtent({{60, 180}, {50, -160}}), QString("-180 50 -160 60"));
    QCOMPARE(textOfExtent({{0, -180}, {10, 180}}), QString("180 0 180 10"));
    QCOMPARE(textOfExtent({{0, -180}}), QString("-180 0 -180 0"));
    QCOMPARE(textOfExtent({{70, -150}, {72, -30}, {68, 60}, {75, 150}}), QString("-180 68 180 90"));
    QCOMPARE(textOfExtent({{-70, -150}, {-72, -30}, {-68, 60}, {-75, 150}}), QString("-180 -90 180 -68"));
}

void AreaOutlineTest::areas_data()
{
    QTest::addColumn<Coordinates>("coordinates");
    QTest::addColumn<double>("share"); // of the earth

    QTest::newRow("an octant") << Coordinates{{0, 0}, {0, 90}, {90, 90}, {90, 0}} << 1 / 8.0;
    QTest::newRow("an octant, across 180")
        << Coordinates{{0, 100}, {0, -170}, {90, -170}, {90, 100}} << 1 / 8.0;
    QTest::newRow("the north of 30 N") << Coordinates{{30, -120}, {30, 0}, {30, 120}} << 1 / 4.0;
    QTest::newRow("the same westwards") << Coordinates{{30, 120}, {30, 0}, {30, -120}} << 1 / 4.0;
    QTest::newRow("the south of 30 S") << Coordinates{{-30, -120}, {-30, 0}, {-30, 120}} << 1 / 4.0;
    QTest::newRow("a line") << Coordinates{{0, 0}, {10, 10}} << 0.0;
}

void AreaOutlineTest::areas()
{
    QFETCH(Coordinates, coordinates);
    QFETCH(double, share);
    const double earth = 4 * M_PI * EarthRadius * EarthRadius;
    QVERIFY(std::abs(AreaOutline(coordinates).squareKilometres() - share * earth) < 1);
}

/// A star.
void AreaOutlineTest::manyCoordinates()
{
    Coordinates coordinates;
    constexpr int Count = 5001;
    for (int i = 0; i < Count; ++i) {
        const double angle = 2 * M_PI * i / Count;
        const double radius = i % 2 ? 20 : 30;
        coordinates += TESSEL::Coordinate(radius * std::sin(angle), radius * std::cos(angle));
    }
    const AreaOutline outline(coordinates);
    QVERIFY(outline.crossesItself() == false);
    QCOMPARE(outline.points().size(), std::size_t(Count));
}

/// A comb with teeth so long that each edge has to be compared with all others.
void AreaOutlineTest::tooManyCoordinates()
{
    Coordinates coordinates;
    constexpr int Count = 50'000;
    for (int i = 0; i < Count; ++i)
        coordinates += TESSEL::Coordinate(80.0 * i / Count, (i / 2) % 2 ? 60 : 1);
    coordinates += TESSEL::Coordinate(80, 0);
    coordinates += TESSEL::Coordinate(0, 0);
    QElapsedTimer timer;
    timer.start();
    const AreaOutline outline(coordinates);
    QVERIFY(!outline.crossesItself());
    QVERIFY2(timer.elapsed() < 20'000, qPrintable(QString::number(timer.elapsed())));
}

QTEST_GUILESS_MAIN(AreaOutlineTest)
#include "AreaOutlineTest.moc"
