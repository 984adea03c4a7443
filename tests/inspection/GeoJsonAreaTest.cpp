#include <inspection/AreaGeoJson_p.h>
#include <inspection/GeoJsonArea_p.h>
#include <inspection/report/AreaParts_p.h>
#include <objectbase/Area.h>
#include <objectbase/TesselException.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QRandomGenerator>
#include <QtTest>

#include <algorithm>
#include <cmath>

using namespace KORMAK::Inspection;

namespace {

QString textOf(const GeoJsonArea &area)
{
    QStringList texts;
    for (const TESSEL::Coordinate &coordinate : area.coordinates) {
        texts += QString("%1 %2")
                     .arg(coordinate.GetLatitude(), 0, 'g', 17)
                     .arg(coordinate.GetLongitude(), 0, 'g', 17);
    }
    return texts.join(", ");
}

QByteArray polygon(const QByteArray &rings)
{
    return R"({"type": "Polygon", "coordinates": )" + rings + "}";
}

QByteArray feature(const QByteArray &geometry, const QByteArray &properties = "null")
{
    return R"({"type": "Feature", "geometry": )" + geometry + R"(, "properties": )" + properties + "}";
}

const QByteArray Triangle = "[[[0, 1], [9, 1], [0, 8], [0, 1]]]";

} // namespace

class GeoJsonAreaTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void areas_data();
    void areas();
    void properties();
    void refused_data();
    void refused();
    void outlineProperty();
    void randomOutlines();
};

void GeoJsonAreaTest::areas_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("text");

    const QString triangle = "1 0, 1 9, 8 0";
    QTest::newRow("polygon") << polygon(Triangle) << triangle;
    QTest::newRow("clockwise") << polygon("[[[0, 1], [0, 8], [9, 1], [0, 1]]]") << "1 0, 8 0, 1 9";
    QTest::newRow("a position twice") << polygon("[[[0, 1], [0, 1], [9, 1], [0, 8], [0, 1]]]") << triangle;
    QTest::newRow("exact numbers")
        << polygon("[[[0.1, 1e-300], [179.99999999999997, 1], [0.1, 89.99999999999999], [0.1, 1e-300]]]")
        << "1e-300 0.10000000000000001, 1 179.99999999999997, 89.999999999999986 0.10000000000000001";
    QTest::newRow("feature") << feature(polygon(Triangle)) << triangle;
    QTest::newRow("feature without properties")
        << QByteArray(R"({"type": "Feature", "geometry": null})") << "";
    QTest::newRow("collection") << R"({"type": "FeatureCollection", "features": [)"
            + feature(polygon(Triangle))
            + "]}" << triangle;
    QTest::newRow("bounding boxes") << QByteArray(
        R"({"type": "Point", "coordinates": [2, 1], "bbox": [2, 1, 2, 1]})")
                                    << "1 2";
    QTest::newRow("line") << QByteArray(R"({"type": "LineString", "coordinates": [[2, 1], [4, 3]]})")
                          << "1 2, 3 4";
    QTest::newRow("line that was cut") << QByteArray(
        R"({"type": "MultiLineString", "coordinates": [[[179, 0], [180, 1]], [[-180, 1], [-179, 2]]]})")
                                       << "0 179, 2 -179";
    QTest::newRow("several, of which there is one")
        << QByteArray(R"({"type": "MultiPolygon", "coordinates": [)" + Triangle + "]}") << triangle;
    QTest::newRow("polygon that was cut") << QByteArray(R"({"type": "MultiPolygon", "coordinates": [
            [[[180, 9], [170, 9], [170, 0], [180, 0], [180, 9]]],
            [[[-180, 0], [-170, 0], [-170, 9], [-180, 9], [-180, 0]]]]})")
                                          << "0 -170, 9 -170, 9 170, 0 170";
}

void GeoJsonAreaTest::areas()
{
    QFETCH(const QByteArray, json);
    const GeoJsonArea area = readGeoJsonArea(json);
    QTEST(textOf(area), "text");
    QCOMPARE(area.ignored, QStringList());
}

void GeoJsonAreaTest::properties()
{
    const GeoJsonArea area = readGeoJsonArea(
        R"({"type": "FeatureCollection", "name": "layer", "features": [{"type": "Feature", "id": 7, "properties":
        {"name": "Sea", "kind": "AutomaticWorkflow", "crossesItself": false, "colour": "red"},
        "geometry": {"type": "Point", "coordinates": [2, 1], "colour": 1}}]})");
    QCOMPARE(area.name, QString("Sea"));
    QCOMPARE(area.namePlace, QString("features[0].properties.name"));
    QCOMPARE(area.ignored,
             QStringList(
                 {"name", "features[0].id", "features[0].properties.colour", "features[0].geometry.colour"}));

    const GeoJsonArea unnamed = readGeoJsonArea(feature("null", R"({"name": 5})"));
    QCOMPARE(unnamed.name, QString());
    QCOMPARE(unnamed.ignored, QStringList("properties.name"));
    QCOMPARE(readGeoJsonArea(feature("null", R"({"name": null})")).ignored, QStringList());
}

void GeoJsonAreaTest::refused_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("message");

    const auto add = [](const char *name, const QByteArray &json, const QString &message) {
        QTest::newRow(name) << json << message;
    };
    add("no object", "[]", "is no JSON object");
    add("a member twice", R"({"type": "Point", "coordinates": [1, 2], "coordinates": [3, 4]})",
        "holds two members called \"coordinates\" in one object, before byte 54");
    add("no type", "{}", "type: is no text");
    add("another type", R"({"type": "MultiPoint", "coordinates": []})",
        "type: \"MultiPoint\" is no polygon, line or point");
    add("collection of geometries", feature(R"({"type": "GeometryCollection", "geometries": []})"),
        "geometry.type: \"GeometryCollection\" is no polygon, line or point");
    add("no features", R"({"type": "FeatureCollection"})", "features: is no array");
    add("no feature", R"({"type": "FeatureCollection", "features": []})",
        "features: holds 0 features, not one");
    add("several features", R"({"type": "FeatureCollection", "features": [1, 2]})",
        "features: holds 2 features, not one");
    add("number for a feature", R"({"type": "FeatureCollection", "features": [1]})",
        "features[0]: is no object");
    add("geometry for a feature", R"({"type": "FeatureCollection", "features": [)" + polygon(Triangle) + "]}",
        "features[0].type: is not \"Feature\"");
    add("another system", R"({"type": "FeatureCollection", "crs": null, "features": []})",
        "crs: only coordinates of WGS 84 without this member can be read");
    add("another system, deep within",
        R"({"type": "FeatureCollection", "features": [)"
            + feature(R"({"type": "Point", "crs": {}, "coordinates": [1, 2]})") + "]}",
        "features[0].geometry.crs: only coordinates of WGS 84 without this member can be read");
    add("geometry of text", feature("\"Point\""), "geometry: is no object");
    add("no geometry", R"({"type": "Feature", "properties": {}})", "geometry: is no object");
    add("properties of text", feature("null", "5"), "properties: is no object");
    add("no coordinates", R"({"type": "Point"})", "coordinates: is no array");
    add("altitude", R"({"type": "Point", "coordinates": [1, 2, 0]})",
        "coordinates: has an altitude, which no area has");
    add("altitude in a polygon", feature(polygon("[[[0, 1], [9, 1], [0, 8, 100], [0, 1]]]")),
        "geometry.coordinates[0][2]: has an altitude, which no area has");
    add("half a position", R"({"type": "Point", "coordinates": [1]})", "coordinates: is no position");
    add("text for a number", R"({"type": "Point", "coordinates": ["1", 2]})",
        "coordinates: the longitude is no number");
    add("null for a number", R"({"type": "Point", "coordinates": [1, null]})",
        "coordinates: the latitude is no number");
    add("beyond a pole", polygon("[[[0, 1], [9, 90.5], [0, 8], [0, 1]]]"),
        "coordinates[0][1]: the latitude 90.5 is not from -90 to 90");
    add("beyond 180 degrees", polygon("[[[0, 1], [180.00000000000003, 1], [0, 8], [0, 1]]]"),
        "coordinates[0][1]: the longitude 180.00000000000003 is not from -180 to 180");
    add("line of three positions", R"({"type": "LineString", "coordinates": [[1, 2], [3, 4], [5, 5]]})",
        "coordinates: holds 3 positions: an area is a polygon, a line between two positions or a point");
    add("line of one place", R"({"type": "LineString", "coordinates": [[1, 2], [1, 2]]})",
        "coordinates: encloses nothing that an area could be");
    add("empty polygon", polygon("[]"), "coordinates: is empty");
    add("empty polygons", R"({"type": "MultiPolygon", "coordinates": []})", "coordinates: is empty");
    add("hole", polygon("[[[0, 1], [9, 1], [0, 8], [0, 1]], [[1, 2], [2, 2], [1, 3], [1, 2]]]"),
        "coordinates[1]: is a hole, which no area has");
    add("hole in one of several",
        R"({"type": "MultiPolygon", "coordinates": [)" + Triangle
            + ", [[[0, 1], [9, 1], [0, 8], [0, 1]], []]]}",
        "coordinates[1][1]: is a hole, which no area has");
    add("too few positions", polygon("[[[0, 1], [9, 1], [0, 1]]]"),
        "coordinates[0]: holds 3 positions, not 4 or more");
    add("not closed", polygon("[[[0, 1], [9, 1], [0, 8], [1, 1]]]"),
        "coordinates[0]: does not end where it begins");
    add("number for a ring", polygon("[5]"), "coordinates[0]: is no array");
    add("number for a position", polygon("[[5]]"), "coordinates[0][0]: is no array");
    add("two places", polygon("[[[0, 1], [9, 1], [9, 1], [0, 1]]]"),
        "coordinates: encloses nothing that an area could be");
    add("several polygons",
        R"({"type": "MultiPolygon", "coordinates": [)" + Triangle
            + ", [[[20, 1], [29, 1], [20, 8], [20, 1]]]]}",
        "coordinates: cannot be joined: the parts are not those of one outline that was cut at 180 degrees");
    add("not cut", polygon("[[[170, 0], [-170, 0], [-170, 9], [170, 9], [170, 0]]]"),
        "coordinates: leads over more than 180 degrees of longitude, from 170 to -170; what crosses 180 "
        "degrees "
        "has to be cut there");
}

void GeoJsonAreaTest::refused()
{
    QFETCH(const QByteArray, json);
    QFETCH(const QString, message);
    try {
        const GeoJsonArea area = readGeoJsonArea(json);
        QFAIL(qPrintable("read as " + textOf(area)));
    } catch (const TESSEL::TesselException &exception) {
        QCOMPARE(exception.GetErrorMessage(), message);
    }
}

/// What an outline was before it was cut is taken from a property only where it was cut into just these
/// polygons.
void GeoJsonAreaTest::outlineProperty()
{
    const auto with = [](const QByteArray &outline) {
        return readGeoJsonArea(feature(polygon(Triangle), R"({"outline": )" + outline + "}"));
    };
    const GeoJsonArea taken = with("[[9, 1], [0, 8], [0, 1], [9, 1]]");
    QCOMPARE(textOf(taken), QString("1 9, 8 0, 1 0, 1 9"));
    QCOMPARE(taken.ignored, QStringList());
    for (const char *const other :
         {"[[9, 1], [0, 8], [0, 2]]", "[[9, 1], [0, 8]]", "[]", "[[9, 1], [0, 800], [0, 1]]",
          "[[9, 1], [0, 8], [0]]", "[1, 2]", "\"red\"", "null"}) {
        const GeoJsonArea area = with(other);
        QCOMPARE(textOf(area), QString("1 0, 1 9, 8 0"));
        QCOMPARE(area.ignored, QStringList("properties.outline"));
    }
    const GeoJsonArea none = readGeoJsonArea(feature("null", R"({"outline": [[1, 2]]})"));
    QCOMPARE(none.ignored, QStringList("properties.outline"));
}

/// What is written of an area of whatever sort is read as the same area: with corners at poles, on 180
/// degrees and half round the earth from others, with edges that cross others, lead over others or there and
/// back.
void GeoJsonAreaTest::randomOutlines()
{
    constexpr quint32 Seed = 20261123;
    constexpr int Count = 20'000;
    QRandomGenerator random(Seed);
    int withProperty = 0;
    for (int i = 0; i < Count; ++i) {
        const int corners = random.bounded(i % 50 == 0 ? 40 : 8);
        const int step = 1 + random.bounded(3) * 44; // degrees
        QVector<TESSEL::Coordinate> coordinates;
        QString text;
        for (int k = 0; k < corners; ++k) {
            const int latitude = std::clamp((random.bounded(9) - 4) * step, -90, 90);
            const int middle = i % 2 ? 180 : 0;
            double longitude = std::remainder(middle + (random.bounded(9) - 4) * (i % 2 ? step : 45), 360);
            if (std::abs(longitude) == 180)
                longitude = random.bounded(2) ? -180 : 180;
            coordinates.append(TESSEL::Coordinate(latitude, longitude));
            text += QString("%1 %2, ").arg(latitude).arg(longitude);
        }
        TESSEL::Area area;
        area.GetCoordinate() = coordinates;
        const QByteArray written = areaGeoJson(area, "AutomaticWorkflow").toUtf8();
        const QJsonObject feature = QJsonDocument::fromJson(written).object();
        withProperty += feature.value("properties").toObject().contains("outline");
        try {
            const GeoJsonArea read = readGeoJsonArea(written);
            QCOMPARE(read.ignored, QStringList());
            const AreaParts parts = AreaParts::of(AreaOutline(coordinates));
            QVERIFY2(AreaParts::of(AreaOutline(read.coordinates)).isSame(parts), qPrintable(text));
            for (const OutlineRing &part : parts.parts) {
                for (std::size_t k = 0; k < part.size(); ++k) {
                    const OutlinePoint &a = part[k];
                    const OutlinePoint &b = part[(k + 1) % part.size()];
                    const bool isAtPole = a.latitude == b.latitude && std::abs(a.latitude) == 90;
                    QVERIFY2(isAtPole || std::abs(a.longitude - b.longitude) <= 180, qPrintable(text));
                }
            }
        } catch (const TESSEL::TesselException &exception) {
            QFAIL(qPrintable(text + exception.GetErrorMessage()));
        }
    }
    QVERIFY2(withProperty > 0 && withProperty < Count / 20, qPrintable(QString::number(withProperty)));
}

QTEST_GUILESS_MAIN(GeoJsonAreaTest)
#include "GeoJsonAreaTest.moc"
