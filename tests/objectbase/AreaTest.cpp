#include <objectbase/Area.h>
#include <tests/support/Objects.h>

#include <QtTest>

#include <cmath>
#include <limits>

using namespace TESSEL;
using namespace TestSupport;

namespace {

Area zurich()
{
    Area area;
    area.SetName("Zurich");
    area.AddCoordinate({47.5, 8.25});
    area.AddCoordinate({-0.125, 180});
    return area;
}

} // namespace

class AreaTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void newArea();
    void fields();
    void completeness();
    void anyData();
    void reset();
    void comparison();
    void copies();
    void document();
    void incompleteAreaWritesNothing();
    void elementWithoutCoordinates();
    void doublesAreReadBack_data();
    void doublesAreReadBack();
    void degrees_data();
    void degrees();
    void readingReplacesCoordinates();
    void readingKeepsTheName();
    void version_data();
    void version();
    void childrenOfACoordinate();
    void unknownTags_data();
    void unknownTags();
    void malformed_data();
    void malformed();
};

void AreaTest::newArea()
{
    const Area area;
    QCOMPARE(area.GetObjectType(), ObjectTypes::Area);
    QCOMPARE(area.GetObjectName(), QString("Area"));
    QCOMPARE(area.GetVersion(), QString("1.0"));
    QCOMPARE(area.GetName(), QString());
    QVERIFY(area.GetCoordinate().isEmpty());
}

void AreaTest::fields()
{
    Area area;
    area.SetName("Zurich");
    area.AddCoordinate({1, 2});
    area.GetCoordinate().append(Coordinate(3, 4));
    area.GetCoordinate()[0].SetLatitude(5);

    QCOMPARE(area.GetName(), QString("Zurich"));
    const Area &constArea = area;
    QCOMPARE(constArea.GetCoordinate(), (QVector<Coordinate>{{5, 2}, {3, 4}}));
}

void AreaTest::completeness()
{
    Area area;
    area.AddCoordinate({1, 2});
    QVERIFY(!area.HasData());
    QCOMPARE(messageOf([&] { area.Check(); }), QString("Area: Please set Name"));
    QCOMPARE(messageOf([&] { area.Check(true); }), QString("Area: Please set Name"));
    QCOMPARE(messageOf([&] { area.Check(false); }), QString());

    area.GetCoordinate().clear();
    area.SetName("Zurich");
    QVERIFY(area.HasData());
    QCOMPARE(messageOf([&] { area.Check(); }), QString());
}

void AreaTest::anyData()
{
    Area area;
    QVERIFY(!area.AnyData());
    area.SetName("Zurich");
    QVERIFY(area.AnyData());
    area.SetName("");
    QVERIFY(!area.AnyData() && !area.HasData());
    QCOMPARE(messageOf([&] { area.Check(); }), QString("Area: Please set Name"));
    area.AddCoordinate({});
    QVERIFY(area.AnyData());
}

void AreaTest::reset()
{
    Area area = zurich();
    process(area, "<Area Version=\"7\"/>");
    area.AddCoordinate({1, 2});
    area.Reset();

    QVERIFY(!area.AnyData());
    QVERIFY(area.GetCoordinate().isEmpty());
    QCOMPARE(area.GetVersion(), QString("1.0"));
    QCOMPARE(area.GetObjectName(), QString("Area"));
}

void AreaTest::comparison()
{
    const Area area = zurich();
    Area other = zurich();
    QVERIFY(area == other);
    QVERIFY(!(area != other));

    other.SetName("zurich");
    QVERIFY(area != other);
    QVERIFY(!(area == other));

    other = zurich();
    other.GetCoordinate().removeLast();
    QVERIFY(area != other);
    QVERIFY(other != area);

    other = zurich();
    std::swap(other.GetCoordinate()[0], other.GetCoordinate()[1]);
    QVERIFY(area != other);

    other = zurich();
    other.GetCoordinate()[1].SetLongitude(-180);
    QVERIFY(area != other);

    other.GetCoordinate()[1].SetLongitude(std::numeric_limits<double>::quiet_NaN());
    const Area copy = other;
    QVERIFY(copy != other); // no number equals none, not even where the copy shares its list

    Area otherVersion;
    process(otherVersion, elementOf(area).replace("Version=\"1.0\"", "Version=\"2.0\""));
    QCOMPARE(otherVersion.GetVersion(), QString("2.0"));
    QVERIFY(area == otherVersion);
}

void AreaTest::copies()
{
    Area original = zurich();
    process(original, elementOf(original).replace("Version=\"1.0\"", "Version=\"2.0\""));
    original.SetValidate(false);
    const Area copy(original);
    Area assigned;
    assigned = original;
    original.Reset();
    original.SetName("elsewhere");

    for (const Area &area : {copy, assigned}) {
        QVERIFY(area == zurich());
        QCOMPARE(area.GetVersion(), QString("2.0"));
        QCOMPARE(area.GetObjectName(), QString("Area"));
        QCOMPARE(area.GetObjectType(), ObjectTypes::Area);
        QCOMPARE(area.GetValidate(), false);
    }
}

void AreaTest::document()
{
    const QString text = TestSupport::document("<Area Version=\"1.0\">\n"
                                               "    <Name>Zurich</Name>\n"
                                               "    <Coordinate>\n"
                                               "        <Latitude>47.5</Latitude>\n"
                                               "        <Longitude>8.25</Longitude>\n"
                                               "    </Coordinate>\n"
                                               "    <Coordinate>\n"
                                               "        <Latitude>-0.125</Latitude>\n"
                                               "        <Longitude>180</Longitude>\n"
                                               "    </Coordinate>\n"
                                               "</Area>\n");
    QCOMPARE(zurich().GetXmlString(), text);

    Area area;
    QVERIFY(area.SetXmlString(text, true));
    QVERIFY(area == zurich());
    QCOMPARE(area.GetXmlString(), text);
}

void AreaTest::incompleteAreaWritesNothing()
{
    Area area;
    area.AddCoordinate({1, 2});
    QCOMPARE(elementOf(area), QString());
    QCOMPARE(messageOf([&] { (void)area.GetXmlString(); }), QString("Area: Please set Name"));
}

void AreaTest::elementWithoutCoordinates()
{
    Area area;
    area.SetName("<&>");
    QCOMPARE(elementOf(area), QString("<Area Version=\"1.0\"><Name>&lt;&amp;&gt;</Name></Area>"));
}

void AreaTest::doublesAreReadBack_data()
{
    QTest::addColumn<double>("degrees");

    QTest::newRow("third") << 1.0 / 3;
    QTest::newRow("tenth") << 0.1;
    QTest::newRow("17 digits") << 47.123456789012345;
    QTest::newRow("last bit") << std::nextafter(8.0, 9.0);
    QTest::newRow("minus zero") << -0.0;
    QTest::newRow("tiny") << 1e-7;
    QTest::newRow("least above zero") << std::numeric_limits<double>::denorm_min();
    QTest::newRow("huge") << 1e21;
    QTest::newRow("greatest") << std::numeric_limits<double>::max();
    QTest::newRow("smallest") << std::numeric_limits<double>::lowest();
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity();
    QTest::newRow("minus infinite") << -std::numeric_limits<double>::infinity();
}

void AreaTest::doublesAreReadBack()
{
    QFETCH(double, degrees);

    Area area;
    area.SetName("Zurich");
    area.AddCoordinate({degrees, -degrees});
    Area back;
    QVERIFY(back.SetXmlString(area.GetXmlString(), true));

    QCOMPARE(back.GetCoordinate().size(), 1);
    const Coordinate coordinate = back.GetCoordinate().constFirst();
    QVERIFY(coordinate.GetLatitude() == degrees);
    QVERIFY(coordinate.GetLongitude() == -degrees);
    QCOMPARE(std::signbit(coordinate.GetLatitude()), std::signbit(degrees));
}

void AreaTest::degrees_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<double>("degrees");

    QTest::newRow("exponent") << "4.75e1" << 47.5;
    QTest::newRow("plus sign") << "+47.5" << 47.5;
    QTest::newRow("blanks around") << " \n\t47.5 " << 47.5;
    QTest::newRow("empty") << "" << 0.0;
    QTest::newRow("word") << "north" << 0.0;
    QTest::newRow("decimal comma") << "47,5" << 0.0;
    QTest::newRow("unit") << "47.5N" << 0.0;
    QTest::newRow("hexadecimal") << "0x10" << 0.0;
    QTest::newRow("too large") << "1e400" << 0.0;
    QTest::newRow("too small") << "-1e400" << 0.0;
    QTest::newRow("two numbers") << "1 2" << 0.0;
}

void AreaTest::degrees()
{
    QFETCH(QString, text);
    QFETCH(double, degrees);

    Area area;
    process(area,
            QString("<Area><Coordinate><Latitude>%1</Latitude><Longitude>%1</Longitude></Coordinate></Area>")
                .arg(text));
    QCOMPARE(area.GetCoordinate(), (QVector<Coordinate>{{degrees, degrees}}));
}

void AreaTest::readingReplacesCoordinates()
{
    Area area = zurich();
    process(area,
            "<Area "
            "Version=\"1.0\"><Coordinate><Latitude>1</Latitude><Longitude>2</Longitude></Coordinate></Area>");
    QCOMPARE(area.GetCoordinate(), (QVector<Coordinate>{{1, 2}}));

    process(area, "<Area Version=\"1.0\"><Name>Bern</Name></Area>");
    QVERIFY(area.GetCoordinate().isEmpty());
}

void AreaTest::readingKeepsTheName()
{
    Area area = zurich();
    QCOMPARE(process(area, "<Area Version=\"1.0\"/>"), QXmlStreamReader::EndElement);
    QCOMPARE(area.GetName(), QString("Zurich"));
}

void AreaTest::version_data()
{
    QTest::addColumn<QString>("element");
    QTest::addColumn<QString>("version");

    QTest::newRow("given") << "<Area Version=\"2.5 beta\"/>"
                           << "2.5 beta";
    QTest::newRow("empty") << "<Area Version=\"\"/>"
                           << "";
    QTest::newRow("absent") << "<Area/>"
                            << "";
    QTest::newRow("lower case") << "<Area version=\"2.5\"/>"
                                << "";
    QTest::newRow("other attributes") << "<Area Name=\"x\" Version=\"3\" Latitude=\"1\"/>"
                                      << "3";
}

void AreaTest::version()
{
    QFETCH(QString, element);
    QFETCH(QString, version);

    Area area = zurich();
    process(area, element);
    QCOMPARE(area.GetVersion(), version);
    QVERIFY(elementOf(area).startsWith(QString("<Area Version=\"%1\">").arg(version)));
}

void AreaTest::childrenOfACoordinate()
{
    Area area;
    process(area,
            "<Area>"
            "<Coordinate/>"
            "<Coordinate><Longitude>2</Longitude></Coordinate>"
            "<Coordinate><Latitude>1</Latitude></Coordinate>"
            "<Coordinate><Longitude>2</Longitude><!-- west first --><Latitude>1</Latitude></Coordinate>"
            "<Name>Zurich</Name>"
            "<Coordinate><Latitude>5</Latitude><Latitude>6</Latitude></Coordinate>"
            "</Area>");
    QCOMPARE(area.GetCoordinate(), (QVector<Coordinate>{{0, 0}, {0, 2}, {1, 0}, {1, 2}, {6, 0}}));
    QCOMPARE(area.GetName(), QString("Zurich"));
}

void AreaTest::unknownTags_data()
{
    QTest::addColumn<QString>("children");
    QTest::addColumn<QString>("tag");
    QTest::addColumn<QString>("name"); ///< read until then

    QTest::newRow("in the area") << "<Name>Bern</Name><Radius>5</Radius>"
                                 << "Radius"
                                 << "Bern";
    QTest::newRow("before the name") << "<Radius>5</Radius><Name>Bern</Name>"
                                     << "Radius"
                                     << "Zurich";
    QTest::newRow("lower case") << "<name>Bern</name>"
                                << "name"
                                << "Zurich";
    QTest::newRow("degrees outside a coordinate") << "<Latitude>5</Latitude>"
                                                  << "Latitude"
                                                  << "Zurich";
    QTest::newRow("in a coordinate")
        << "<Name>Bern</Name><Coordinate><Latitude>1</Latitude><Altitude>5</Altitude></Coordinate>"
        << "Altitude"
        << "Bern";
    QTest::newRow("coordinate in a coordinate") << "<Coordinate><Coordinate/></Coordinate>"
                                                << "Coordinate"
                                                << "Zurich";
    QTest::newRow("placeholder") << "<x.1/>"
                                 << "x.1"
                                 << "Zurich";
}

void AreaTest::unknownTags()
{
    QFETCH(QString, children);
    QFETCH(QString, tag);
    QFETCH(QString, name);

    Area area = zurich();
    QCOMPARE(messageOf([&] { process(area, "<Area>" + children + "</Area>"); }),
             QString("Unknown Tag '%1' in 'Area'.").arg(tag));
    QCOMPARE(area.GetName(), name);
}

void AreaTest::malformed_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("cut off") << "<Area><Name>Zurich</Name><Coordinate><Latitude>1</Latitude>";
    QTest::newRow("cut off in a number") << "<Area><Coordinate><Latitude>1";
    QTest::newRow("child of the name") << "<Area><Name>Zu<b/>rich</Name></Area>";
    QTest::newRow("child of a number") << "<Area><Coordinate><Latitude><b/></Latitude></Coordinate></Area>";
    QTest::newRow("wrong end") << "<Area><Coordinate></Area></Coordinate>";
}

void AreaTest::malformed()
{
    QFETCH(QString, text);

    Area area;
    QVERIFY(!area.SetXmlString(text, true));
}

QTEST_GUILESS_MAIN(AreaTest)
#include "AreaTest.moc"
