// What the pages of the classes in objectbase/ show: each snippet bears the name of its class.

#include <objectbase/AntennaData.h>
#include <objectbase/Area.h>
#include <objectbase/Converters.h>
#include <objectbase/Logger.h>
#include <objectbase/ReadingLimits.h>
#include <objectbase/ResourceType.h>
#include <objectbase/TesselException.h>

#include <QDateTime>
#include <QTemporaryDir>
#include <QtTest>

namespace {

//! [Logger]
class ListLogger : public TESSEL::Logger {
public:
    QStringList messages;

protected:
    void Write(Level level, const QString &message) override
    {
        messages += LevelToName(level) + ": " + message;
    }
};
//! [Logger]

} // namespace

class ObjectbaseSnippetsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void antennaData();
    void area();
    void converters();
    void coordinate();
    void logger();
    void readingLimits();
    void resourceType();
    void tesselBaseException();
    void tesselException();
    void tesselObject();
};

void ObjectbaseSnippetsTest::antennaData()
{
    //! [AntennaData]
    TESSEL::AntennaData antenna;
    antenna.SetName("Log-periodic North");
    antenna.SetMinimumFrequency(1.5e6); // Hz
    antenna.SetMaximumFrequency(30e6);
    antenna.SetPolarization(TESSEL::AntennaData::Horizontal);
    QVERIFY(antenna.HasData()); // complete: the azimuth is optional
    //! [AntennaData]
    antenna.SetMaximumFrequency(1e6);
    QVERIFY(!antenna.HasData());
}

void ObjectbaseSnippetsTest::area()
{
    //! [Area]
    TESSEL::Area area;
    area.SetName("Harbour");
    area.AddCoordinate({54.33, 10.13}); // degrees north, degrees east
    area.AddCoordinate({54.37, 10.13});
    area.AddCoordinate({54.37, 10.19});

    TESSEL::Area received;
    QVERIFY(received.SetXmlString(area.GetXmlString(), true));
    QCOMPARE(received, area);
    //! [Area]
    QCOMPARE(received.GetCoordinate().size(), 3);
}

void ObjectbaseSnippetsTest::converters()
{
    //! [Converters]
    const QDateTime time = QDateTime::fromString("2026-03-14T07:30:00+01:00", Qt::ISODate);
    const QString text = TESSEL::Converters::ToString(time);
    QCOMPARE(text, QString("2026-03-14T06:30:00,000Z"));
    QCOMPARE(TESSEL::Converters::ToDateTime(text), time);
    QVERIFY(!TESSEL::Converters::ToDateTime("2026-03-14 06:30").isValid()); // any other form
    //! [Converters]
}

void ObjectbaseSnippetsTest::coordinate()
{
    //! [Coordinate]
    const TESSEL::Coordinate kiel(54.32, 10.12); // degrees north, degrees east
    QCOMPARE(kiel.GetLatitude(), 54.32);
    QVERIFY(kiel != TESSEL::Coordinate(10.12, 54.32));
    //! [Coordinate]
    QCOMPARE(kiel.GetLongitude(), 10.12);
}

void ObjectbaseSnippetsTest::logger()
{
    const auto logger = std::make_shared<ListLogger>();
    const TESSEL::Area area;
    area.SetLogger(logger);
    area.GetLogger()->Warning("no name");
    QCOMPARE(logger->messages, QStringList("WARNING: no name"));
}

void ObjectbaseSnippetsTest::readingLimits()
{
    const QString text = "<Area><Name>Harbour</Name><Coordinate><Latitude>54</Latitude></Coordinate></Area>";
    //! [ReadingLimits]
    TESSEL::ReadingLimits limits; // those that every object starts with
    limits.SetDepth(2);

    TESSEL::Area area;
    area.SetReadingLimits(limits);
    QVERIFY(!area.SetXmlString(text, true)); // a latitude stands in a coordinate in an area
    //! [ReadingLimits]
    limits.SetDepth(3);
    area.SetReadingLimits(limits);
    QVERIFY(area.SetXmlString(text, true));
}

void ObjectbaseSnippetsTest::resourceType()
{
    //! [ResourceType]
    const auto resource = TESSEL::ResourceType::NameToResourceType("Antenna");
    QCOMPARE(resource, TESSEL::ResourceType::Antenna);
    QCOMPARE(TESSEL::ResourceType::ResourceTypeToName(resource), QString("Antenna"));
    QVERIFY(!TESSEL::ResourceType::IsValidResourceType(
        TESSEL::ResourceType::NameToResourceType("antenna"))); // case counts
    //! [ResourceType]
}

void ObjectbaseSnippetsTest::tesselBaseException()
{
    QByteArray printed;
    //! [TesselBaseException]
    try {
        TESSEL::Area().Check();
    } catch (const std::exception &error) { // as those of the standard library
        printed = error.what();
    }
    //! [TesselBaseException]
    QCOMPARE(printed, QByteArray("Area: Please set Name"));
}

void ObjectbaseSnippetsTest::tesselException()
{
    QString shown;
    //! [TesselException]
    TESSEL::Area area;
    try {
        area.Check();
    } catch (const TESSEL::TesselException &error) {
        shown = error.GetErrorMessage(); // "Area: Please set Name"
    }
    //! [TesselException]
    QCOMPARE(shown, QString("Area: Please set Name"));
}

void ObjectbaseSnippetsTest::tesselObject()
{
    //! [ITesselObject]
    // Of any kind: why it cannot be written, or nothing.
    const auto save = [](const TESSEL::ITesselObject &document, const QString &path) -> QString {
        try {
            document.Check();
            if (!document.HasData()) // some gaps are none of Check()'s
                return "not complete";
            return document.SaveXml(path) ? QString() : "cannot write " + path;
        } catch (const TESSEL::TesselException &error) {
            return error.GetErrorMessage();
        }
    };
    //! [ITesselObject]
    const QTemporaryDir folder;
    const QString path = folder.filePath("area.xml");
    TESSEL::Area area;
    QCOMPARE(save(area, path), QString("Area: Please set Name"));
    QVERIFY(!QFile::exists(path));
    area.SetName("Harbour");
    QCOMPARE(save(area, path), QString());
    TESSEL::Area received;
    QVERIFY(received.LoadXml(path));
    QCOMPARE(received, area);
    const QString nowhere = folder.filePath("none/area.xml");
    QCOMPARE(save(area, nowhere), "cannot write " + nowhere);
}

QTEST_GUILESS_MAIN(ObjectbaseSnippetsTest)

#include "ObjectbaseSnippetsTest.moc"
