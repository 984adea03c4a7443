#include <inspection/report/AreaParts_p.h>

#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <cmath>

using namespace KORMAK::Inspection;
using Shape = AreaOutline::Shape;
using Coordinates = QVector<TESSEL::Coordinate>;

Q_DECLARE_METATYPE(TESSEL::Coordinate)
Q_DECLARE_METATYPE(Coordinates)
Q_DECLARE_METATYPE(KORMAK::Inspection::AreaParts)

namespace {

AreaParts partsOf(const Coordinates &coordinates)
{
    return AreaParts::of(AreaOutline(coordinates));
}

/// "0 170, 9 180": latitudes before longitudes.
QString textOf(const Coordinates &coordinates)
{
    QStringList texts;
    for (const TESSEL::Coordinate &coordinate : coordinates)
        texts += QString("%1 %2").arg(coordinate.GetLatitude()).arg(coordinate.GetLongitude());
    return texts.join(", ");
}

/// Beginning elsewhere, and the other way round.
Coordinates turned(Coordinates coordinates, int by)
{
    std::rotate(coordinates.begin(), coordinates.begin() + by, coordinates.end());
    std::reverse(coordinates.begin(), coordinates.end());
    return coordinates;
}

} // namespace

class AreaPartsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void joined_data();
    void joined();
    void notJoined_data();
    void notJoined();
    void same();
    void randomAreas();
};

void AreaPartsTest::joined_data()
{
    QTest::addColumn<Coordinates>("coordinates");
    QTest::addColumn<QString>("text"); // empty: as the coordinates

    const auto add = [](const char *name, const Coordinates &coordinates, const QString &text = {}) {
        QTest::newRow(name) << coordinates << text;
    };
    add("nothing", {});
    add("point", {{1, 2}});
    add("line", {{1, 2}, {3, 4}});
    add("line across 180", {{0, 179}, {2, -179}});
    add("triangle", {{0, 0}, {0, 9}, {9, 0}});
    add("across 180", {{0, 170}, {0, -170}, {9, -170}, {9, 170}}, "0 -170, 9 -170, 9 170, 0 170");
    add("across 180, cut askew", {{0, 170}, {1, -170}, {9, -175}, {9, 171}}, "1 -170, 9 -175, 9 171, 0 170");
    add("corners on 180", {{0, 170}, {0, 180}, {4, -175}, {9, 180}, {9, 170}},
        "4 -175, 9 180, 9 170, 0 170, 0 180");
    add("an edge along 180", {{0, 170}, {0, 180}, {9, 180}, {9, 170}}, "0 170, 0 180, 9 180, 9 170");
    add("partly along 180",
        {{0, 170}, {0, 180}, {3, 180}, {3, -170}, {5, -170}, {5, 180}, {9, 180}, {9, 170}},
        "3 -170, 5 -170, 5 180, 9 180, 9 170, 0 170, 0 180, 3 180");
    add("a comb", {{0, 170}, {0, -170}, {1, -170}, {1, 175}, {2, 175}, {2, -170}, {3, -170}, {3, 170}});
    add("round a pole", {{70, 170}, {80, -60}, {75, 60}});
    add("round a pole, with a corner on 180", {{70, 180}, {80, -60}, {75, 60}});
    add("round the other pole, westwards", {{-75, 60}, {-80, -60}, {-70, 170}});
    add("crosses itself", {{0, 0}, {9, 9}, {9, 0}, {0, 9}});
    add("point at a pole", {{-90, 5}});
    add("line along a pole", {{90, 5}, {90, 60}});
    add("polygon within a pole", {{90, 5}, {90, 60}, {90, -60}});
    add("line from 180", {{60, -180}, {50, 160}}, "60 180, 50 160");
    add("line along 180", {{0, -180}, {10, 180}}, "0 180, 10 180");
    add("half round the earth from 180", {{0, -180}, {10, 0}});
    add("round a pole, half round the earth across 180", {{80, 0}, {80, 90}, {80, 180}, {80, -90}});
    add("the same at the other pole", {{-80, 0}, {-80, 90}, {-80, -180}, {-80, -90}});
    add("a bow on 180", {{0, 170}, {10, -170}, {0, -170}, {10, 170}}, "0 -170, 10 -170, 0 170, 10 170");
    add("a bow with a corner on either side",
        {{0, 170}, {10, -170}, {-5, -160}, {7, 160}, {-3, 175}, {4, -171}});
    add("a bow beside 180", {{0, 160}, {9, 170}, {9, 160}, {0, 170}, {0, -170}, {-3, -170}});
    add("twice round a pole", {{80, 0}, {80, 120}, {80, -120}, {70, 10}, {70, 130}, {70, -110}});
    add("along 180, there and back", {{0, 180}, {5, 180}, {9, 180}});
    add("across 180, there and back", {{0, 179}, {0, -179}, {0, 178}, {0, -178}},
        "0 -179, 0 179, 0 180, 0 178, 0 -178, 0 180");
}

void AreaPartsTest::joined()
{
    QFETCH(const Coordinates, coordinates);
    QFETCH(const QString, text);

    const AreaParts parts = partsOf(coordinates);
    const auto joined = parts.joined();
    QVERIFY(joined.has_value());
    QVERIFY(partsOf(*joined).isSame(parts));
    if (text.isEmpty())
        QVERIFY2(joined->size() == coordinates.size(), qPrintable(textOf(*joined)));
    else
        QCOMPARE(textOf(*joined), text);
}

void AreaPartsTest::notJoined_data()
{
    QTest::addColumn<AreaParts>("parts");

    const OutlineRing west{{170, 0}, {180, 0}, {180, 9}, {170, 9}};
    const OutlineRing east{{-180, 0}, {-170, 0}, {-170, 9}, {-180, 9}};
    QTest::newRow("not at 180") << AreaParts{Shape::Polygon,
                                             {{{0, 0}, {9, 0}, {0, 9}}, {{20, 0}, {29, 0}, {20, 9}}}};
    QTest::newRow("one at 180, one not") << AreaParts{Shape::Polygon, {west, {{20, 0}, {29, 0}, {20, 9}}}};
    QTest::newRow("apart along 180") << AreaParts{Shape::Polygon,
                                                  {west, {{-180, 10}, {-170, 10}, {-170, 19}, {-180, 19}}}};
    QTest::newRow("twice the same side") << AreaParts{Shape::Polygon, {west, west}};
    QTest::newRow("not cut") << AreaParts{Shape::Polygon, {{{170, 0}, {-170, 0}, {-170, 9}, {170, 9}}}};
    QTest::newRow("two outlines") << AreaParts{Shape::Polygon,
                                               {west,
                                                east,
                                                {{170, 20}, {180, 20}, {180, 29}, {170, 29}},
                                                {{-180, 20}, {-170, 20}, {-170, 29}, {-180, 29}}}};
    QTest::newRow("lines that do not meet")
        << AreaParts{Shape::Line, {{{170, 0}, {180, 1}}, {{-180, 2}, {-170, 3}}}};
    QTest::newRow("three lines") << AreaParts{
        Shape::Line, {{{170, 0}, {180, 1}}, {{-180, 1}, {-170, 2}}, {{0, 0}, {1, 1}}}};
    QTest::newRow("a line of one place") << AreaParts{Shape::Line, {{{1, 1}, {1, 1}}}};
    QTest::newRow("a polygon of two places") << AreaParts{Shape::Polygon, {{{1, 1}, {2, 2}}}};
}

void AreaPartsTest::notJoined()
{
    QFETCH(const AreaParts, parts);
    QVERIFY(!parts.joined().has_value());
}

void AreaPartsTest::same()
{
    const AreaParts parts = partsOf({{0, 170}, {0, -170}, {9, -170}, {9, 170}});
    QVERIFY(parts.isSame(partsOf({{9, -170}, {0, -170}, {0, 170}, {9, 170}})));
    QVERIFY(!parts.isSame(partsOf({{0, 170}, {0, -170}, {9, -170}, {9, 171}})));
    QVERIFY(!parts.isSame(partsOf({})));
    QVERIFY(partsOf({{3, 180}}).isSame(partsOf({{3, -180}})));
    QVERIFY(!partsOf({{3, 4}}).isSame(partsOf({{3, 5}})));
    QVERIFY(partsOf({{1, 2}, {3, 4}}).isSame(partsOf({{3, 4}, {1, 2}})));
    QVERIFY(!partsOf({{0, 0}, {0, 9}, {9, 0}}).isSame(partsOf({{0, 0}, {0, 9}, {9, 0}, {0, 4}, {9, 4}})));
    AreaParts other = parts; // along 180, a corner says nothing
    for (OutlineRing &ring : other.parts) {
        const auto onLine = std::find_if(ring.begin(), ring.end(), [](const OutlinePoint &point) {
            return std::abs(point.longitude) == 180 && point.latitude == 9;
        });
        const bool isNextLow = (onLine + 1 == ring.end() ? ring.begin() : onLine + 1)->latitude == 0;
        ring.insert(isNextLow ? onLine + 1 : onLine, {onLine->longitude, 4});
    }
    QVERIFY(other.isSame(parts));
    QVERIFY(other.joined().has_value());
}

/// What is cut is joined to the coordinates that it was cut from, exactly.
void AreaPartsTest::randomAreas()
{
    constexpr quint32 Seed = 20261122;
    constexpr int Count = 2000;
    QRandomGenerator random(Seed);
    for (int i = 0; i < Count; ++i) {
        const bool isRoundPole = i % 4 == 0;
        const int corners = 3 + random.bounded(12);
        const double middle = i % 3 == 0 ? 180 : random.bounded(360.0);
        Coordinates area;
        for (int k = 0; k < corners; ++k) {
            const double turn = (k + random.bounded(0.9)) / corners;
            const double radius = 2 + random.bounded(30.0);
            const double longitude = isRoundPole ? 360 * turn : middle + radius * std::cos(2 * M_PI * turn);
            const double latitude =
                isRoundPole ? 50 + random.bounded(39.0) : radius * std::sin(2 * M_PI * turn);
            area.append(TESSEL::Coordinate(latitude, std::remainder(longitude, 360)));
        }
        if (i % 2)
            area = turned(area, random.bounded(corners));
        const AreaOutline outline(area);
        if (outline.crossesItself().value_or(true))
            continue;
        const AreaParts parts = AreaParts::of(outline);
        const auto joined = parts.joined();
        QVERIFY2(joined.has_value(), qPrintable(textOf(area)));
        QVERIFY2(partsOf(*joined).isSame(parts), qPrintable(textOf(area)));
        QVERIFY2(joined->size() == area.size(), qPrintable(textOf(area) + " -> " + textOf(*joined)));
        QVERIFY(partsOf(turned(area, 1)).isSame(parts));
    }
}

QTEST_GUILESS_MAIN(AreaPartsTest)
#include "AreaPartsTest.moc"
