#include <tests/support/ToolSupport.h>

#include <QJsonArray>
#include <QRandomGenerator>
#include <QStandardPaths>

#include <cmath>

using namespace ToolSupport;

using Coordinates = QVector<QPair<double, double>>; // latitudes and longitudes
Q_DECLARE_METATYPE(Coordinates)

namespace {

QByteArray workflowWith(const Coordinates &coordinates)
{
    QByteArray text =
        "<AutomaticWorkflow Version='1.0'><Mode>ManualMode</Mode><Area><Name>&lt;Sea&gt;</Name>";
    for (const auto &[latitude, longitude] : coordinates) {
        text += "<Coordinate><Latitude>" + QByteArray::number(latitude, 'g', 17) + "</Latitude><Longitude>"
            + QByteArray::number(longitude, 'g', 17) + "</Longitude></Coordinate>";
    }
    return text + "</Area></AutomaticWorkflow>";
}

QByteArray jsonOf(const Coordinates &coordinates)
{
    QJsonArray list;
    for (const auto &[latitude, longitude] : coordinates)
        list.append(QJsonArray{latitude, longitude});
    return QJsonDocument(list).toJson();
}

void addPoints(const QJsonArray &coordinates, QStringList &points)
{
    if (!coordinates.at(0).isArray()) {
        points += QString("%1 %2")
                      .arg(coordinates.at(0).toDouble(), 0, 'g', 17)
                      .arg(coordinates.at(1).toDouble(), 0, 'g', 17);
        return;
    }
    for (const QJsonValue &value : coordinates)
        addPoints(value.toArray(), points);
}

/// The corners of all polygons, wherever these begin.
QStringList pointsOf(const QByteArray &geoJson)
{
    QStringList points;
    addPoints(
        QJsonDocument::fromJson(geoJson).object().value("geometry").toObject().value("coordinates").toArray(),
        points);
    points.removeDuplicates();
    points.sort();
    return points;
}

/// A ring that never crosses itself: points round \a middle, each in a direction of its own.
Coordinates starRound(QRandomGenerator &random, double latitude, double longitude, double size)
{
    Coordinates star;
    const int count = 3 + random.bounded(20);
    for (int i = 0; i < count; ++i) {
        const double angle = 2 * M_PI * (i + random.bounded(0.9)) / count;
        const double radius = size * (0.2 + random.bounded(0.8));
        star.append(
            {latitude + radius * std::sin(angle), std::remainder(longitude + radius * std::cos(angle), 360)});
    }
    if (random.bounded(2))
        std::reverse(star.begin(), star.end());
    return star;
}

/// Once round a pole, without going back.
Coordinates ringRoundPole(QRandomGenerator &random, double pole)
{
    Coordinates ring;
    const int count = 4 + random.bounded(20);
    const double start = random.bounded(360.0);
    for (int i = 0; i < count; ++i) {
        const double longitude = start + 360 * (i + random.bounded(0.9)) / count;
        ring.append({pole * (0.5 + random.bounded(0.45)), std::remainder(longitude, 360)});
    }
    if (random.bounded(2))
        std::reverse(ring.begin(), ring.end());
    return ring;
}

QVector<Coordinates> manyAreas()
{
    constexpr quint32 Seed = 20260315;
    QRandomGenerator random(Seed);
    QVector<Coordinates> areas{
        {{53.55, 7.1}, {55.0625, 6.4}, {54.9, 8.3}},
        {{0.1, 179.99999999999997}, {0.2, -179.99999999999997}, {1, 180}},
        {{1, 2}, {3, 4}},
        {{-15, 176}, {-15, -178}, {-20, -178}, {-20, 176}},
        {{0, 170}, {0, -170}, {1, -170}, {1, 175}, {2, 175}, {2, -170}, {3, -170}, {3, 170}},
        {{0, 170}, {0, 180}, {9, -180}, {9, 170}},
        {{70, 180}, {80, -60}, {75, 60}},
    };
    constexpr int Count = 25;
    for (int i = 0; i < Count; ++i) {
        areas += starRound(random, random.bounded(100.0) - 50, random.bounded(360.0) - 180,
                           1 + random.bounded(30.0));
        areas += starRound(random, random.bounded(100.0) - 50, 180, 1 + random.bounded(30.0));
        areas += ringRoundPole(random, i % 2 ? 90 : -90);
    }
    return areas;
}

QString programOf(const QStringList &candidates, const QStringList &arguments)
{
    for (const QString &candidate : candidates) {
        QProcess process;
        process.start(candidate, arguments);
        if (process.waitForStarted() && ended(process).status == 0)
            return candidate;
    }
    return {};
}

} // namespace

class GeoJsonTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void texts_data();
    void texts();
    void faults_data();
    void faults();
    void shapely();
    void gdal_data();
    void gdal();
    void roundTrips();
    void cutByShapely();
};

void GeoJsonTest::texts_data()
{
    QTest::addColumn<Coordinates>("coordinates");
    QTest::addColumn<QString>("geometry");
    QTest::addColumn<QString>("box");

    QTest::newRow("none") << Coordinates{} << "null"
                          << "null";
    QTest::newRow("point") << Coordinates{{48.2, 16.4}} << R"({"coordinates":[16.4,48.2],"type":"Point"})"
                           << "[16.4,48.2,16.4,48.2]";
    QTest::newRow("line") << Coordinates{{1, 2}, {3, 4}}
                          << R"({"coordinates":[[2,1],[4,3]],"type":"LineString"})"
                          << "[2,1,4,3]";
    QTest::newRow("line across 180")
        << Coordinates{{0, 179}, {2, -179}}
        << R"({"coordinates":[[[179,0],[180,1]],[[-180,1],[-179,2]]],"type":"MultiLineString"})"
        << "[179,0,-179,2]";
    QTest::newRow("line from 180") << Coordinates{{60, -180}, {50, 160}}
                                   << R"({"coordinates":[[180,60],[160,50]],"type":"LineString"})"
                                   << "[160,50,180,60]";
    QTest::newRow("clockwise") << Coordinates{{0, 0}, {9, 0}, {0, 9}}
                               << R"({"coordinates":[[[0,0],[9,0],[0,9],[0,0]]],"type":"Polygon"})"
                               << "[0,0,9,9]";
    QTest::newRow("across 180")
        << Coordinates{{0, 170}, {0, -170}, {9, -170}, {9, 170}}
        << R"({"coordinates":[[[[180,9],[170,9],[170,0],[180,0],[180,9]]],[[[-180,0],[-170,0],[-170,9],[-180,9],[-180,0]]]],"type":"MultiPolygon"})"
        << "[170,0,-170,9]";
}

void GeoJsonTest::texts()
{
    QFETCH(Coordinates, coordinates);
    const Folder folder;
    folder.write("area.xml", workflowWith(coordinates));
    const Run run = folder.run({"show", "--format", "geojson", "area.xml"});
    QCOMPARE(run.err, QString());
    QCOMPARE(run.status, 0);
    const QJsonObject feature = QJsonDocument::fromJson(run.out.toUtf8()).object();
    QCOMPARE(feature.value("type").toString(), QString("Feature"));
    QCOMPARE(feature.value("properties").toObject().value("name").toString(), QString("<Sea>"));
    QCOMPARE(feature.value("properties").toObject().value("kind").toString(), QString("AutomaticWorkflow"));
    const auto compact = [](const QJsonValue &value) {
        if (value.isObject())
            return QString::fromUtf8(QJsonDocument(value.toObject()).toJson(QJsonDocument::Compact));
        return value.isArray()
            ? QString::fromUtf8(QJsonDocument(value.toArray()).toJson(QJsonDocument::Compact))
            : QString("null");
    };
    QTEST(compact(feature.value("geometry")), "geometry");
    QTEST(compact(feature.value("bbox")), "box");
}

void GeoJsonTest::faults_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("complaint");

    QTest::newRow("nowhere")
        << workflowWith({{0, 0}, {91, 0}})
        << "area.xml: error: there is no map of the area: Coordinate[1]: latitude 91 is not "
           "from -90 to 90\n";
    QTest::newRow("kind without an area")
        << QByteArray("<Job/>") << "area.xml: error: a document of the kind Job has no area\n";
}

void GeoJsonTest::faults()
{
    QFETCH(QByteArray, document);
    const Folder folder;
    folder.write("area.xml", document);
    const Run run = folder.run({"show", "--format", "geojson", "area.xml"});
    QTEST(run.err, "complaint");
    QCOMPARE(run.out, QString());
    QCOMPARE(run.status, 1);
}

/// Whatever the area, it is the same as Shapely cuts it.
void GeoJsonTest::shapely()
{
    const QString python = programOf({"python3", "/usr/bin/python3"}, {"-c", "import shapely"});
    if (python.isEmpty())
        QSKIP("Shapely for Python 3 is not there (Debian: python3-shapely)",
              ""); // clang asks for a second argument
    const QVector<Coordinates> areas = manyAreas();
    const Folder folder;
    int number = 0;
    for (const Coordinates &area : areas) {
        const QString name = QString::number(++number);
        folder.write(name + ".json", jsonOf(area));
        folder.write(name + ".xml", workflowWith(area));
        const Run run = folder.run({"show", "--format", "geojson", name + ".xml"});
        QCOMPARE(run.status, 0);
        folder.write(name + ".geojson", run.out.toUtf8());
    }
    QProcess process;
    process.start(python, {SOURCE_DIR "/tests/tools/geojson_reference.py", folder.path(".")});
    const Run run = ended(process);
    QCOMPARE(run.err, QString());
    QCOMPARE(run.out, QString("%1 compared\n").arg(areas.size()));
}

void GeoJsonTest::gdal_data()
{
    QTest::addColumn<Coordinates>("coordinates");
    QTest::addColumn<QString>("geometry");

    QTest::newRow("point") << Coordinates{{48.25, 16.5}} << "POINT (16.5 48.25)";
    QTest::newRow("polygon") << Coordinates{{53.5, 7.25}, {55, 6.5}, {54.75, 8.25}}
                             << "POLYGON ((7.25 53.5,8.25 54.75,6.5 55.0,7.25 53.5))";
    QTest::newRow("across 180")
        << Coordinates{{0, 170}, {0, -170}, {9, -170}, {9, 170}}
        << "MULTIPOLYGON (((180 9,170 9,170 0,180 0,180 9)),((-180 0,-170 0,-170 9,-180 9,-180 0)))";
}

void GeoJsonTest::gdal()
{
    const QString program = programOf({"ogrinfo"}, {"--version"});
    if (program.isEmpty())
        QSKIP("GDAL's ogrinfo is not there (Debian: gdal-bin)", ""); // clang asks for a second argument
    QFETCH(Coordinates, coordinates);
    QFETCH(QString, geometry);
    const Folder folder;
    folder.write("area.xml", workflowWith(coordinates));
    folder.write("area.geojson", folder.run({"show", "--format", "geojson", "area.xml"}).out.toUtf8());
    QProcess process;
    process.start(program, {"-ro", "-al", folder.path("area.geojson")});
    const Run run = ended(process);
    QCOMPARE(run.status, 0);
    QCOMPARE(run.err, QString());
    QVERIFY2(run.out.contains(geometry), qPrintable(run.out));
    QVERIFY(run.out.contains("name (String) = <Sea>"));
}

/// What 'show' prints of an area changes nothing in its document, and in another one gives the same outline.
void GeoJsonTest::roundTrips()
{
    const Folder folder;
    folder.write("empty.xml", "<AutomaticWorkflow><Mode>ManualMode</Mode></AutomaticWorkflow>");
    QVector<Coordinates> areas = manyAreas();
    areas += {{-90, 5}};
    areas += {{-90, 180}};
    areas += {{90, 5}, {90, 60}};
    areas += {{90, 5}, {90, 60}, {90, -60}};
    areas += {{60, -180}, {50, 160}};
    areas += {{0, -180}, {10, 180}};
    areas += {{80, 0}, {80, 90}, {80, 180}, {80, -90}};
    areas += {{-80, 0}, {-80, 90}, {-80, -180}, {-80, -90}};
    areas += {{0, 170}, {10, -170}, {0, -170}, {10, 170}};
    areas += {{0, 170}, {10, -170}, {-5, -160}, {7, 160}, {-3, 175}, {4, -171}};
    areas += {{45, 45}, {90, 90}, {90, 180}, {90, 90}, {45, -135}};
    for (const Coordinates &area : areas) {
        const QByteArray text = workflowWith(area);
        folder.write("area.xml", text);
        const QByteArray geoJson = folder.run({"show", "--format", "geojson", "area.xml"}).out.toUtf8();
        folder.write("area.geojson", geoJson);
        const Run same = folder.run({"set", "area.xml", "--area", "area.geojson"});
        QCOMPARE(same.err, QString());
        QCOMPARE(same.out, QString::fromUtf8(text));

        const Run other = folder.run(
            {"set", "-o", "other.xml", "empty.xml", "--area", "area.geojson", "--accept-findings"});
        QCOMPARE(other.status, 0);
        const Run again = folder.run({"set", "--in-place", "other.xml", "--area", "area.geojson"});
        QCOMPARE(again.err + again.out, QString());
        const QByteArray back = folder.run({"show", "--format", "geojson", "other.xml"}).out.toUtf8();
        QCOMPARE(pointsOf(back), pointsOf(geoJson));
    }
}

/// Areas that another program has cut at 180 degrees are read as what they were. Of those round a pole, it
/// leaves seams elsewhere, too.
void GeoJsonTest::cutByShapely()
{
    const QString python = programOf({"python3", "/usr/bin/python3"}, {"-c", "import shapely"});
    if (python.isEmpty())
        QSKIP("Shapely for Python 3 is not there (Debian: python3-shapely)",
              ""); // clang asks for a second argument
    const QVector<Coordinates> areas = manyAreas();
    const Folder cut;
    const Folder folder;
    int number = 0;
    for (const Coordinates &area : areas)
        cut.write(QString::number(++number) + ".json", jsonOf(area));
    QProcess process;
    process.start(python, {SOURCE_DIR "/tests/tools/geojson_reference.py", cut.path("."), "--write"});
    const Run written = ended(process);
    QCOMPARE(written.err, QString());
    folder.write("empty.xml", "<AutomaticWorkflow><Mode>ManualMode</Mode></AutomaticWorkflow>");
    number = 0;
    int compared = 0;
    for (const Coordinates &area : areas) {
        const QString name = QString::number(++number);
        if (cut.read(name + ".geojson").contains("90.0]"))
            continue;
        ++compared;
        folder.write(name + ".json", jsonOf(area));
        const Run set = folder.run({"set", "-o", name + ".xml", "empty.xml", "--area",
                                    cut.path(name + ".geojson"), "--accept-findings"});
        QVERIFY2(set.status == 0, qPrintable(set.err + cut.read(name + ".geojson")));
        folder.write(name + ".geojson",
                     folder.run({"show", "--format", "geojson", name + ".xml"}).out.toUtf8());
    }
    QProcess comparing;
    comparing.start(python, {SOURCE_DIR "/tests/tools/geojson_reference.py", folder.path(".")});
    const Run run = ended(comparing);
    QCOMPARE(run.err, QString());
    QCOMPARE(run.out, QString("%1 compared\n").arg(compared));
    QVERIFY(compared > 50);
}

QTEST_GUILESS_MAIN(GeoJsonTest)
#include "GeoJsonTest.moc"
