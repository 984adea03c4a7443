#include <inspection/report/AreaDrawing_p.h>
#include <inspection/report/AreaMap_p.h>
#include <inspection/report/AreaOutline_p.h>
#include <inspection/report/AreaShape_p.h>
#include <inspection/report/Coastlines_p.h>
#include <inspection/report/Graticule_p.h>
#include <inspection/report/MapFrame_p.h>
#include <inspection/report/MapProjection_p.h>
#include <objectbase/Area.h>

#include <QFile>
#include <QRandomGenerator>
#include <QRegularExpression>
#include <QtTest>
#include <QXmlStreamReader>

#include <cmath>

using namespace KORMAK::Inspection;

using Coordinates = QVector<TESSEL::Coordinate>;
Q_DECLARE_METATYPE(Coordinates)

namespace {

TESSEL::Area areaWith(const Coordinates &coordinates)
{
    TESSEL::Area area;
    area.SetName("<Sea> & \"Land\"");
    area.GetCoordinate() = coordinates;
    return area;
}

QString mapOf(const Coordinates &coordinates)
{
    Html html;
    writeAreaMap(html, areaWith(coordinates));
    return html.written();
}

/// What the drawing that is called \a look says of its path; empty without one.
QString pathOf(const QString &map, const QString &look)
{
    return QRegularExpression("<path class=\"" + look + "\" d=\"([^\"]*)\"").match(map).captured(1);
}

} // namespace

class AreaMapTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void landIsWhole();
    void landStaysInItsCells();
    void projectionIsReversible();
    void projectionKeepsAreas();
    void linesAreCut();
    void polygonsAreCut();
    void graticule_data();
    void graticule();
    void maps_data();
    void maps();
    void noMap_data();
    void noMap();
    void captions_data();
    void captions();
    void longEdges();
    void insides_data();
    void insides();
    void shapes_data();
    void shapes();
    void scales_data();
    void scales();
};

/// The land of the earth has 149 million km^2.
void AreaMapTest::landIsWhole()
{
    double sum = 0;
    for (const LandPiece &piece : landPieces()) {
        for (std::size_t i = 0; i < piece.outline.size(); ++i) {
            const LandPiece::Point &a = piece.outline[i];
            const LandPiece::Point &b = piece.outline[(i + 1) % piece.outline.size()];
            const double sine = std::sin((a.latitude() + b.latitude()) / 2 * M_PI / 180);
            sum += (b.longitude() - a.longitude()) * M_PI / 180 * sine;
        }
    }
    const double millions = std::abs(sum) * EarthRadius * EarthRadius / 1e6;
    QVERIFY2(millions > 145 && millions < 150, qPrintable(QString::number(millions)));
    QVERIFY(QFile(SOURCE_DIR "/inspection/report/land.bin").size() <= 400 * 1024);
}

/// And no coast leads straight across one, as a coast that was cut in the wrong place would.
void AreaMapTest::landStaysInItsCells()
{
    constexpr double LongestEdge = 4; // degrees
    for (const LandPiece &piece : landPieces()) {
        QVERIFY(piece.outline.size() >= 3);
        for (std::size_t i = 0; i < piece.outline.size(); ++i) {
            const LandPiece::Point &a = piece.outline[i];
            const LandPiece::Point &b = piece.outline[(i + 1) % piece.outline.size()];
            QVERIFY(std::abs(a.longitude() - piece.centralLongitude()) <= LandCellSize / 2.0);
            QVERIFY(std::abs(a.latitude() - piece.centralLatitude()) <= LandCellSize / 2.0);
            const MapProjection fromA({a.latitude(), a.longitude()});
            QVERIFY(piece.isBorder(a, b) || fromA.distance(b.latitude(), b.longitude()) < LongestEdge);
        }
    }
}

void AreaMapTest::projectionIsReversible()
{
    for (const Place &centre : {Place{54, 8}, Place{90, 0}, Place{-20, 179}, Place{-90, 77}}) {
        const MapProjection projection(centre);
        for (double latitude = -85; latitude <= 85; latitude += 17) {
            for (double longitude = -175; longitude <= 180; longitude += 35) {
                const auto point = projection.project(latitude, longitude);
                QCOMPARE(point.has_value(), projection.distance(latitude, longitude) <= 168);
                if (!point)
                    continue;
                const auto place = projection.placeAt(*point);
                QVERIFY(place);
                QVERIFY(std::abs(place->latitude - latitude) < 1e-9);
                QVERIFY(std::abs(std::remainder(place->longitude - longitude, 360)) < 1e-9);
                const double distance = MapProjection::distanceAt(std::hypot(point->x, point->y));
                QVERIFY(std::abs(distance - projection.distance(latitude, longitude)) < 1e-6);
            }
        }
    }
    QVERIFY(!MapProjection({0, 0}).placeAt({2.1, 0}));
}

/// A square degree far from the centre takes as much room as it has on the earth.
void AreaMapTest::projectionKeepsAreas()
{
    const MapProjection projection({10, 20});
    const double corners[][2] = {{60, 90}, {60, 90.01}, {60.01, 90.01}, {60.01, 90}};
    double area = 0;
    for (int i = 0; i < 4; ++i) {
        const auto a = projection.project(corners[i][0], corners[i][1]);
        const auto b = projection.project(corners[(i + 1) % 4][0], corners[(i + 1) % 4][1]);
        area += (a->x * b->y - b->x * a->y) / 2;
    }
    const double onSphere = (std::sin(60.01 * M_PI / 180) - std::sin(60 * M_PI / 180)) * 0.01 * M_PI / 180;
    QVERIFY(std::abs(area / onSphere - 1) < 1e-6);
}

void AreaMapTest::linesAreCut()
{
    const MapFrame frame({0, 0}, 1);
    const auto parts = frame.clippedLine({{-100, 300}, {400, 300}, {400, 900}, {500, 900}, {500, 100}});
    QCOMPARE(int(parts.size()), 2);
    QCOMPARE(svgPath(parts[0], PathEnd::Open, 1), QString("M-8 300l408 0 0 308"));
    QCOMPARE(svgPath(parts[1], PathEnd::Open, 1), QString("M500 608l0 -508"));
    QVERIFY(frame.clippedLine({{-100, -100}, {-50, 700}}).empty());
    QCOMPARE(svgPath({{1, 1}, {1.2, 1.1}}, PathEnd::Open, 1), QString());
    QCOMPARE(svgPath({{1, 1}, {1.6, 1.1}}, PathEnd::Open, 0.5), QString("M1 1l0.5 0"));
}

void AreaMapTest::polygonsAreCut()
{
    const MapFrame frame({0, 0}, 1);
    const FrameLine cut = frame.clippedPolygon({{-100, -100}, {900, -100}, {900, 700}, {-100, 700}});
    QCOMPARE(svgPath(cut, PathEnd::Closed, 1), QString("M-8 608l0 -616 816 0 0 616z"));
    const FrameLine inside{{10, 10}, {20, 10}, {10, 20}};
    QCOMPARE(svgPath(frame.clippedPolygon(inside), PathEnd::Closed, 1), QString("M10 10l10 0 -10 10z"));
    QVERIFY(frame.clippedPolygon({{900, 10}, {920, 10}, {910, 20}}).empty());
}

void AreaMapTest::graticule_data()
{
    QTest::addColumn<double>("latitude");
    QTest::addColumn<double>("longitude");
    QTest::addColumn<double>("kilometres");

    QTest::newRow("near") << 54.0 << 8.0 << 100.0;
    QTest::newRow("country") << 48.0 << 16.0 << 1000.0;
    QTest::newRow("across 180") << -18.0 << 179.9 << 2000.0;
    QTest::newRow("pole") << 90.0 << 0.0 << 4000.0;
    QTest::newRow("near the pole") << -84.0 << -180.0 << 500.0;
    QTest::newRow("earth") << 10.0 << 10.0 << 30000.0;
}

void AreaMapTest::graticule()
{
    QFETCH(double, latitude);
    QFETCH(double, longitude);
    QFETCH(double, kilometres);
    const MapProjection projection({latitude, longitude});
    const MapFrame frame({0, 0}, MapFrame::Width / kilometres * EarthRadius);
    int parallels = 0;
    int meridians = 0;
    QSet<double> seen;
    for (const GraticuleLine &line : graticuleOf(projection, frame)) {
        const bool isParallel = line.direction == GraticuleLine::Direction::Parallel;
        parallels += isParallel;
        meridians += !isParallel;
        QVERIFY(std::abs(line.degrees) <= (isParallel ? 90 : 180));
        QVERIFY2(isParallel || !seen.contains(line.degrees), "a meridian twice");
        if (!isParallel)
            seen.insert(line.degrees);
    }
    QVERIFY2(parallels >= 2 && parallels <= 12, qPrintable(QString::number(parallels)));
    QVERIFY2(meridians >= 2 && meridians <= 24, qPrintable(QString::number(meridians)));
}

void AreaMapTest::maps_data()
{
    QTest::addColumn<Coordinates>("coordinates");
    QTest::addColumn<bool>("isFilled");
    QTest::addColumn<bool>("hasCoast");

    QTest::newRow("German Bight") << Coordinates{{53.55, 7.1}, {55.0625, 6.4}, {54.9, 8.3}} << true << true;
    QTest::newRow("ocean") << Coordinates{{-40, -120}, {-41, -120}, {-40, -121}} << true << false;
    QTest::newRow("Fiji") << Coordinates{{-15, 176}, {-15, -178}, {-20, -178}, {-20, 176}} << true << true;
    QTest::newRow("north pole") << Coordinates{{70, -150}, {72, -30}, {68, 60}, {75, 150}} << true << true;
    QTest::newRow("south pole") << Coordinates{{-70, -150}, {-72, -30}, {-68, 60}, {-75, 150}} << true
                                << true;
    QTest::newRow("point") << Coordinates{{48.2, 16.4}} << false << false;
    QTest::newRow("pole itself") << Coordinates{{90, 16.4}} << false << false;
    QTest::newRow("line") << Coordinates{{48.2, 16.4}, {52.5, 13.4}} << false << true;
    QTest::newRow("bow tie") << Coordinates{{40, 0}, {50, 20}, {50, 0}, {40, 20}} << true << true;
    QTest::newRow("opposite points") << Coordinates{{0, 0}, {0, 180}} << false << true;
    QTest::newRow("most of the earth") << Coordinates{{-80, -179}, {80, -179}, {80, -60}, {80, 60},
                                                      {80, 179},   {-80, 179}, {-80, 60}, {-80, -60}}
                                       << true << true;
    QTest::newRow("a band round the earth") << Coordinates{{10, -180}, {10, -60}, {10, 60},   {10, 180},
                                                           {-10, 180}, {-10, 60}, {-10, -60}, {-10, -180}}
                                            << true << true;
    QTest::newRow("a hair's breadth")
        << Coordinates{{48, 16}, {48, 16.00000001}, {48.00000001, 16}} << false << false;
}

void AreaMapTest::maps()
{
    QFETCH(Coordinates, coordinates);
    QFETCH(bool, isFilled);
    const QString map = mapOf(coordinates);
    QXmlStreamReader reader(map);
    bool isDrawn = false;
    while (!reader.atEnd()) {
        reader.readNext();
        isDrawn = isDrawn || reader.name() == QLatin1String("svg");
    }
    QVERIFY2(!reader.hasError(), qPrintable(reader.errorString()));
    QVERIFY(isDrawn);
    QCOMPARE(!pathOf(map, "area").isEmpty(), isFilled);
    QTEST(!pathOf(map, "coast").isEmpty(), "hasCoast");
    QVERIFY(!pathOf(map, "graticule").isEmpty());
    QVERIFY(map.contains("&lt;Sea&gt; &amp; &quot;Land&quot;"));
    QVERIFY(!map.contains("nan") && !map.contains("inf"));
    QVERIFY2(map.size() < 350000, qPrintable(QString::number(map.size())));
    QCOMPARE(map.count("class=\"corner\""), coordinates.size());
}

void AreaMapTest::noMap_data()
{
    QTest::addColumn<Coordinates>("coordinates");
    QTest::addColumn<QString>("text");

    QTest::newRow("none") << Coordinates{} << "There is no map of the area: it has no coordinates.";
    QTest::newRow("nowhere") << Coordinates{
        {1, 2}, {99, 0}} << "There is no map of the area: Coordinate[1]: latitude 99 is not from -90 to 90.";
}

void AreaMapTest::noMap()
{
    QFETCH(Coordinates, coordinates);
    QFETCH(QString, text);
    QCOMPARE(mapOf(coordinates), "<p class=\"missing\">" + text + "</p>");
}

void AreaMapTest::captions_data()
{
    QTest::addColumn<Coordinates>("coordinates");
    QTest::addColumn<QString>("caption");

    QTest::newRow("polygon") << Coordinates{
        {53.55, 7.1},
        {55.0625, 6.4},
        {54.9, 8.3}} << "53.55° N to 55.0625° N, 6.4° E to 8.3° E; about 121 km by 168 km, 9 910 km².";
    QTest::newRow("point") << Coordinates{{48.2, -16.4}}
                           << "48.2° N, 16.4° W. The area is one point: it encloses nothing.";
    QTest::newRow("line") << Coordinates{{0, 179}, {0, -179}}
                          << "0° to 0°, 179° E to 179° W; about 222 km by 0 km. The area is a line between "
                             "two points: it encloses nothing.";
    QTest::newRow("bow tie")
        << Coordinates{{40, 0}, {50, 20}, {50, 0}, {40, 20}}
        << "40° N to 50° N, 0° to 20° E; about 1 700 km by 1 160 km. The outline crosses "
           "itself, so it is not certain what is within it.";
    QTest::newRow("without room") << Coordinates{{0, 0}, {5, 5}, {10, 10}}
                                  << "0° to 10° N, 0° to 10° E; about 1 100 km by 1 110 km, 0 km².";
    QTest::newRow("site") << Coordinates{{48.1, 11.5}, {48.102, 11.5}, {48.102, 11.502}, {48.1, 11.502}}
                          << "48.1° N to 48.102° N, 11.5° E to 11.502° E; about 149 m by 222 m, 33 000 m².";
    QTest::newRow("an antenna") << Coordinates{{48.1, 11.5}, {48.1000001, 11.5}, {48.1, 11.5000001}}
                                << "48.1° N to 48.1000001° N, 11.5° E to 11.5000001° E; about 0.0074 m by "
                                   "0.0111 m, 0.000041 m².";
    QTest::newRow("band") << Coordinates{{10, -180}, {10, -60}, {10, 60},   {10, 180},
                                         {-10, 180}, {-10, 60}, {-10, -60}, {-10, -180}}
                          << "10° S to 10° N, all longitudes; about 40 000 km by 2 220 km, 88 600 000 km².";
    QTest::newRow("most of the south")
        << Coordinates{{10, -120}, {10, 0}, {10, 120}, {-80, 120}, {-80, 0}, {-80, -120}}
        << "80° S to 10° N, 120° W to 120° E; about 26 700 km by 10 000 km, 197 000 000 km².";
    QTest::newRow("pole")
        << Coordinates{{70, -120}, {70, 0}, {70, 120}}
        << "70° N to 90° N, round the pole; about 4 430 km by 4 430 km, 15 400 000 km². The "
           "outline leads round the earth; the area is taken to be the part with the nearer "
           "pole.";
}

void AreaMapTest::captions()
{
    QFETCH(Coordinates, coordinates);
    const QString map = mapOf(coordinates);
    QString caption = map.mid(map.indexOf("<figcaption>"));
    caption.remove(QRegularExpression("<[^>]*>"));
    caption.replace(QChar(0xA0), ' ').replace(QChar(0x202F), ' ');
    QTEST(caption, "caption");
}

/// However far its edges lead, a map is not much longer than the document.
void AreaMapTest::longEdges()
{
    Coordinates coordinates;
    for (int i = 0; i < 3900; ++i)
        coordinates += TESSEL::Coordinate(i % 2 ? 80 : -80, (i * 79) % 180);
    const QString map = mapOf(coordinates);
    QVERIFY2(map.size() < 1'000'000, qPrintable(QString::number(map.size())));
    QVERIFY(map.contains("crosses itself"));
}

namespace {

const Coordinates Band{{10, -180}, {10, -60}, {10, 60},   {10, 180},
                       {-10, 180}, {-10, 60}, {-10, -60}, {-10, -180}};
const Coordinates AllButThePacific{{85, -100}, {85, 0}, {85, 100}, {-85, 100}, {-85, 0}, {-85, -100}};
const Coordinates World{{-89, -180}, {-89, 0}, {-89, 180}, {89, 180}, {89, 0}, {89, -180}};
const Coordinates NorthOf10S{{-10, 0}, {-10, 120}, {40, 180}, {-10, -120}};
const Coordinates Fiji{{-15, 176}, {-15, -178}, {-20, -178}, {-20, 176}};

} // namespace

void AreaMapTest::insides_data()
{
    QTest::addColumn<Coordinates>("coordinates");
    QTest::addColumn<Coordinates>("inside");
    QTest::addColumn<Coordinates>("outside");
    QTest::addColumn<bool>("isWorldMap");

    QTest::newRow("band") << Band << Coordinates{{0, 0}, {9, 179}, {-9, -179}}
                          << Coordinates{{11, 0}, {-90, 0}, {90, 0}} << true;
    QTest::newRow("all but the Pacific") << AllButThePacific << Coordinates{{0, 0}, {84, 99}}
                                         << Coordinates{{0, 180}, {0, 101}, {86, 0}} << true;
    QTest::newRow("world") << World << Coordinates{{0, 0}, {0, 180}, {-88, 70}}
                           << Coordinates{{90, 0}, {-89.5, 9}} << true;
    QTest::newRow("round a pole") << NorthOf10S << Coordinates{{90, 0}, {90, 99}, {0, 0}, {50, 180}}
                                  << Coordinates{{-90, 0}, {-11, 60}, {30, 180}} << true;
    QTest::newRow("Fiji") << Fiji << Coordinates{{-16, 180}, {-16, -180}, {-19, 177}}
                          << Coordinates{{-16, 0}, {-14, 180}} << false;
    QTest::newRow("point") << Coordinates{{1, 2}} << Coordinates{} << Coordinates{{1, 2}} << false;
}

void AreaMapTest::insides()
{
    QFETCH(const Coordinates, coordinates);
    QFETCH(const Coordinates, inside);
    QFETCH(const Coordinates, outside);
    const AreaOutline outline(coordinates);
    const AreaInside area(outline);
    for (const TESSEL::Coordinate &place : inside)
        QVERIFY2(area.holds({place.GetLatitude(), place.GetLongitude()}),
                 qPrintable(QString::number(place.GetLatitude())));
    for (const TESSEL::Coordinate &place : outside)
        QVERIFY2(!area.holds({place.GetLatitude(), place.GetLongitude()}),
                 qPrintable(QString::number(place.GetLatitude())));
    QTEST(projectionFor(outline).kind() == MapProjection::Kind::Cylindrical, "isWorldMap");
}

void AreaMapTest::shapes_data()
{
    QTest::addColumn<Coordinates>("coordinates");

    QTest::newRow("band") << Band;
    QTest::newRow("all but the Pacific") << AllButThePacific;
    QTest::newRow("world") << World;
    QTest::newRow("round a pole") << NorthOf10S;
    QTest::newRow("round the other pole, small") << Coordinates{{-70, 170}, {-80, -60}, {-75, 60}};
    QTest::newRow("Fiji") << Fiji;
    QTest::newRow("bow") << Coordinates{{0, 170}, {10, -170}, {0, -170}, {10, 170}};
    QTest::newRow("bow as large as the earth")
        << Coordinates{{-70, -170}, {70, -10}, {70, 150}, {-70, 150}, {-70, 0}, {70, -170}};
    QTest::newRow("more than once round") << Coordinates{{0, 0},  {0, 100}, {0, -160}, {0, -60}, {0, 20},
                                                         {9, 20}, {9, -60}, {9, -160}, {9, 100}, {9, 0}};
}

/// Wherever the middle of the map is, what is filled of it is what the area encloses.
void AreaMapTest::shapes()
{
    QFETCH(const Coordinates, coordinates);
    const AreaOutline outline(coordinates);
    const AreaInside area(outline);
    const MapFrame frame({0, 0}, 150);
    constexpr quint32 Seed = 20261124;
    QRandomGenerator random(Seed);
    constexpr int Maps = 16;
    constexpr int Places = 150;
    constexpr double Near = 1; // units: so near to the outline a place may be on either side
    for (int i = 0; i < Maps; ++i) {
        const Place centre{i == 0 ? 90 : random.bounded(180.0) - 90, random.bounded(360.0) - 180};
        const auto kind = i % 4 == 0 ? MapProjection::Kind::Cylindrical : MapProjection::Kind::Azimuthal;
        const MapProjection projection = i == 1 ? projectionFor(outline) : MapProjection(centre, kind);
        const AreaShape shape = shapeOn(projection, frame, outline);
        int wrong = 0;
        for (int k = 0; k < Places; ++k) {
            const FramePoint point{random.bounded(frame.width()), random.bounded(frame.height())};
            const MapPoint onMap = frame.pointAt(point);
            const auto place = projection.placeAt(onMap);
            if (!place || std::hypot(onMap.x, onMap.y) > 1.97)
                continue;
            bool isFilled = false;
            bool isNear = false;
            for (const FrameLine &polygon : shape.inside) {
                for (std::size_t n = 0; n < polygon.size(); ++n) {
                    const FramePoint &a = polygon[n];
                    const FramePoint &b = polygon[(n + 1) % polygon.size()];
                    const double length = std::hypot(b.x - a.x, b.y - a.y);
                    const double along = length == 0
                        ? 0
                        : std::clamp(((point.x - a.x) * (b.x - a.x) + (point.y - a.y) * (b.y - a.y)) / length
                                         / length,
                                     0.0, 1.0);
                    isNear = isNear
                        || std::hypot(a.x + along * (b.x - a.x) - point.x,
                                      a.y + along * (b.y - a.y) - point.y)
                            < Near;
                    if ((a.y > point.y) != (b.y > point.y)
                        && point.x < a.x + (point.y - a.y) / (b.y - a.y) * (b.x - a.x))
                        isFilled = !isFilled;
                }
            }
            wrong += !isNear && isFilled != area.holds(*place);
        }
        QVERIFY2(wrong == 0,
                 qPrintable(QString("%1 of map %2 round %3 %4")
                                .arg(wrong)
                                .arg(i)
                                .arg(centre.latitude)
                                .arg(centre.longitude)));
    }
}

void AreaMapTest::scales_data()
{
    QTest::addColumn<Coordinates>("coordinates");
    QTest::addColumn<QString>("scale");
    QTest::addColumn<QString>("label");

    QTest::newRow("site") << Coordinates{{48.1, 11.5}, {48.102, 11.5}, {48.102, 11.502}, {48.1, 11.502}}
                          << "100 m"
                          << "48.102° N";
    QTest::newRow("antenna") << Coordinates{{48.1, 11.5}, {48.1000001, 11.5}, {48.1, 11.5000001}} << "2 m"
                             << "48.10002° N";
    QTest::newRow("country") << Coordinates{{48, 11}, {52, 11}, {48, 15}} << "200 km"
                             << "50° N";
    QTest::newRow("world") << World << "10000 km on the equator"
                           << "60° E";
}

/// An area of some metres fills as much of its map as one of a country.
void AreaMapTest::scales()
{
    QFETCH(const Coordinates, coordinates);
    QFETCH(const QString, scale);
    QFETCH(const QString, label);
    QString map = mapOf(coordinates);
    map.replace(QChar(0xA0), ' ');
    QVERIFY2(map.contains(">" + scale + "</text>"), qPrintable(map.mid(map.indexOf("scale-back"))));
    QVERIFY(map.contains(">" + label + "</text>"));
    const AreaOutline outline(coordinates);
    const MapFrame frame = frameFor(outline, projectionFor(outline), {MapFrame::Width, MapFrame::Height});
    QVERIFY(frame.kilometresPerUnit() * MapFrame::Width > 0.0099);
}

QTEST_GUILESS_MAIN(AreaMapTest)
#include "AreaMapTest.moc"
