#include "DocumentSamples.h"
#include "inspection/Plausibility_p.h"

#include <inspection/ParsedDocument_p.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/GenericReceiver.h>
#include <kormak/Job.h>
#include <tests/docs/Page.h>

#include <cmath>

using namespace KORMAK;
using namespace KORMAK::Inspection;
using DocumentSamples::linesOf;

Q_DECLARE_METATYPE(KORMAK::Document)

/// What is allowed, but hardly meant.
class PlausibilityTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void texts_data();
    void texts();
    void objects_data();
    void objects();
    void creation_data();
    void creation();
    void found();
    void manyObjects();
    void examples_data();
    void examples();
    void page_data();
    void page();
    void pageListsEveryId();
};

namespace {

QByteArray workflow(const QByteArray &area)
{
    return "<AutomaticWorkflow>\n<Mode>ManualMode</Mode>\n" + area + "</AutomaticWorkflow>";
}

QByteArray areaOf(const QByteArray &coordinates)
{
    return "<Area>\n<Name>A</Name>\n" + coordinates + "</Area>";
}

QByteArray corner(const QByteArray &latitude, const QByteArray &longitude)
{
    return "<Coordinate><Latitude>" + latitude + "</Latitude><Longitude>" + longitude
        + "</Longitude></Coordinate>\n";
}

const QByteArray Corners = corner("1", "1") + corner("1", "2") + corner("2", "2");

QByteArray job(const QByteArray &type, const QByteArray &minimum, const QByteArray &maximum,
               const QByteArray &more = {}, const QByteArray &resource = "Antenna")
{
    return "<Job>\n<JobHeader><JobType>" + type
        + "</JobType><Author>A</Author><Creation>2026-03-14T06:30:00,000Z</Creation></JobHeader>\n"
          "<ResourceType>"
        + resource + "</ResourceType>\n<AntennaData><Name>A</Name>\n<MinimumFrequency>" + minimum
        + "</MinimumFrequency>\n<MaximumFrequency>" + maximum + "</MaximumFrequency>\n" + more
        + "</AntennaData></Job>";
}

/// What \a document is suspected of: place, id, path and message.
QStringList suspicions(const Document &document)
{
    QVector<Finding> found;
    for (const Finding &finding : document.GetFindings()) {
        if (finding.GetId().startsWith("suspicious-"))
            found += finding;
    }
    return linesOf(found);
}

} // namespace

void PlausibilityTest::texts_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QStringList>("expected");

    const auto add = [](const char *name, const QByteArray &document, const QStringList &expected) {
        QTest::newRow(name) << document << expected;
    };
    const QString area = "AutomaticWorkflow/Area";
    const QString latitude = " warning suspicious-latitude " + area + "/Coordinate/Latitude: ";
    const QString longitude = " warning suspicious-longitude " + area + "/Coordinate/Longitude: ";
    const QString notLatitude = " is not a latitude from -90 to 90 degrees";
    const QString notLongitude = " is not a longitude from -180 to 180 degrees";
    add("at the poles", workflow(areaOf(corner("-90", "-180") + corner("90", "180") + corner("90", "-180"))),
        {});
    add("latitudes beyond the poles",
        workflow(areaOf(corner("90.5", "1") + corner("2", "2") + corner("-91", "3"))),
        {"5:13" + latitude + "90.5" + notLatitude, "7:13" + latitude + "-91" + notLatitude});
    add("longitudes beyond the line of dates",
        workflow(areaOf(corner("1", "180.25") + corner("2", "-181") + corner("3", "3"))),
        {"5:35" + longitude + "180.25" + notLongitude, "6:35" + longitude + "-181" + notLongitude});
    add("no numbers, and infinite ones", workflow(areaOf(corner("nan", "inf") + Corners)),
        {"5:13" + latitude + "nan" + notLatitude, "5:37" + longitude + "inf" + notLongitude});
    add("the last latitude of a coordinate",
        workflow(
            areaOf("<Coordinate><Latitude>99</Latitude>\n<Latitude>91</Latitude></Coordinate>" + Corners)),
        {"6:1" + latitude + "91" + notLatitude});
    add("areas that another one has replaced",
        workflow(areaOf(corner("99", "1")) + areaOf(Corners + corner("98", "1"))),
        {"11:13" + latitude + "98" + notLatitude});

    const QString point =
        " warning suspicious-area " + area + ": the area is a point: it has the coordinates of one only";
    const QString line = " warning suspicious-area " + area
        + ": the area is a line: it has the coordinates of two points only";
    add("area with a name only", workflow(areaOf("")), {});
    add("area of a point", workflow(areaOf(corner("1", "1"))), {"3:1" + point});
    add("area of a point that is told several times", workflow(areaOf(corner("1", "1").repeated(4))),
        {"3:1" + point});
    add("area of two points", workflow(areaOf(corner("1", "1") + corner("2", "1") + corner("1", "1"))),
        {"3:1" + line});
    add("area that is closed", workflow(areaOf(Corners + corner("1", "1"))), {});

    const QString antenna = "Job/AntennaData/";
    const QString azimuth = " warning suspicious-azimuth " + antenna + "Azimuth: ";
    const QString notAzimuth = " is not an azimuth from 0 to 360 degrees";
    for (const char *good : {"0", "-0", "217.5", "360"})
        add(qPrintable(QString("azimuth ") + good),
            job("Antenna", "1", "2", "<Azimuth>" + QByteArray(good) + "</Azimuth>"), {});
    for (const char *bad : {"-1", "360.5", "inf"})
        add(qPrintable(QString("azimuth ") + bad),
            job("Antenna", "1", "2", "<Azimuth>" + QByteArray(bad) + "</Azimuth>"),
            {"7:1" + azimuth + bad + notAzimuth});

    const QString minimum = " warning suspicious-antenna " + antenna + "MinimumFrequency: ";
    const QString maximum = " warning suspicious-antenna " + antenna + "MaximumFrequency: ";
    add("HF, up to its end", job("Production SC HF", "30000000", "40000000"), {});
    add("HF, above it", job("Production SC HF", "30000001", "40000000"),
        {"5:1" + minimum
         + "the antenna begins at 30000001 Hz, but \"Production SC HF\" is for HF, which ends at 30 MHz"});
    add("V/UHF, from its begin on", job("Exciter VUHF", "1000", "20000000"), {});
    add("V/UHF, below it", job("Exciter VUHF", "1000", "19999999"),
        {"6:1" + maximum
         + "the antenna ends at 19999999 Hz, but \"Exciter VUHF\" is for V/UHF, which begins at 20 MHz"});
    add("resource for V/UHF", job("Signal Tracking", "1000", "1000000", {}, "DF Server V/UHF"),
        {"6:1" + maximum
         + "the antenna ends at 1000000 Hz, but \"DF Server V/UHF\" is for V/UHF, which begins at 20 MHz"});
    add("resource for HF", job("Signal Tracking", "118000000", "406000000", {}, "Tuner HF"),
        {"5:1" + minimum
         + "the antenna begins at 118000000 Hz, but \"Tuner HF\" is for HF, which ends at 30 MHz"});
    add("no band", job("Signal Tracking", "118000000", "406000000"), {});

    add("range upside down on another resource", job("Antenna", "2", "1", {}, "Playback"),
        {"6:1 warning suspicious-range " + antenna
         + "MaximumFrequency: the maximum 1 Hz is below the "
           "minimum 2 Hz"});
    add("range upside down that is an error", job("Antenna", "2", "1"), {});
    add("range of another resource", job("Antenna", "2", "2", {}, "Playback"), {});
    add("limits upside down",
        "<Parameter UniqueName='P'><RepresentationName>r</RepresentationName><ValueType>ValueNumericInt"
        "</ValueType><ParameterType>Integer</ParameterType>\n<Integer><Minimum>5</Minimum><Maximum>4"
        "</Maximum><Default>4</Default></Integer></Parameter>",
        {"2:10 warning suspicious-range Parameter[P]/Integer/Minimum: the minimum 5 is above the maximum "
         "4"});

    const auto versions = [&add](const QByteArray &before, const QByteArray &behind, const QString &place,
                                 const QString &newest, const QByteArrayList &good) {
        for (const QByteArray &version : good)
            add((place + ' ' + version).toUtf8().constData(), before + version + behind, {});
        for (const QByteArray bad : {"0.9", "1", "1.0.0", "2.3", "10.0", "1.x", " ", "1.-1", "70000.0"})
            add((place + ' ' + bad).toUtf8().constData(), before + bad + behind,
                {place
                 + QString("/@Version: the version \"%1\" is not known; the newest is %2")
                       .arg(QString::fromLatin1(bad), newest)});
    };
    const QString unknown = " warning suspicious-version ";
    versions("<GenericReceiver Version='", "'/>", "1:1" + unknown + "GenericReceiver", "1.0", {"1.0", ""});
    versions("<ActivityGeneration Version='", "'><Mode>AGSC</Mode></ActivityGeneration>",
             "1:1" + unknown + "ActivityGeneration", "2.2", {"2.2", "2.1", "1.5", ""});
    versions("<GenericReceiver>\n<Parameter UniqueName='P'/><Parameter UniqueName='P' Version='",
             "'><ParameterType>Integer</ParameterType></Parameter></GenericReceiver>",
             "2:28" + unknown + "GenericReceiver/Parameter[P]", "1.0", {"1.0", ""});
    versions("<Job>\n<JobHeader Version='7'/><JobHeader Version='", "'/></Job>",
             "2:25" + unknown + "Job/JobHeader", "1.0", {"1.0"});
}

void PlausibilityTest::texts()
{
    QFETCH(QByteArray, document);
    QFETCH(QStringList, expected);
    QCOMPARE(suspicions(Document(document)), expected);
}

void PlausibilityTest::objects_data()
{
    QTest::addColumn<Document>("document");
    QTest::addColumn<QStringList>("expected");

    AutomaticWorkflow workflow;
    workflow.SetWorkflowMode(AutomaticWorkflow::ManualMode);
    workflow.GetArea().SetName("A");
    workflow.GetArea().AddCoordinate({1, 2});
    workflow.GetArea().AddCoordinate({95, -200});
    const QString coordinate = "AutomaticWorkflow/Area/Coordinate/";
    QTest::newRow("workflow")
        << Document(workflow)
        << QStringList{"0:0 warning suspicious-area AutomaticWorkflow/Area: the area is a line: it has the "
                       "coordinates of two points only",
                       "0:0 warning suspicious-latitude " + coordinate
                           + "Latitude: 95 is not a latitude from -90 to 90 degrees",
                       "0:0 warning suspicious-longitude " + coordinate
                           + "Longitude: -200 is not a longitude from -180 to 180 degrees"};
    Job job;
    job.SetResourceType(TESSEL::ResourceType::Antenna);
    job.GetAntennaData().SetAzimuth(-1);
    job.GetJobHeader().SetCreation(QDateTime::currentDateTimeUtc().addYears(1));
    const QStringList ofJob = suspicions(Document(job)); // although Check() refuses it
    QTest::newRow("incomplete job")
        << Document(job)
        << QStringList{ofJob.value(0),
                       "0:0 warning suspicious-azimuth Job/AntennaData/Azimuth: -1 is not an azimuth from 0 "
                       "to 360 degrees"};
    QVERIFY2(ofJob.value(0).startsWith("0:0 warning suspicious-creation Job/JobHeader/Creation: "),
             qPrintable(ofJob.value(0)));
    GenericReceiver receiver;
    QVERIFY(receiver.SetXmlString("<GenericReceiver Version='3.0'/>", true));
    QTest::newRow("receiver") << Document(receiver)
                              << QStringList{"0:0 warning suspicious-version GenericReceiver/@Version: the "
                                             "version \"3.0\" is not known; the newest is 1.0"};
    QTest::newRow("new job") << Document::New("Job") << QStringList();
    Document edited = Document::New("AutomaticWorkflow");
    edited.SetField("Area.Coordinate", "91,0");
    QTest::newRow("field that was set")
        << edited
        << QStringList{"0:0 warning suspicious-area AutomaticWorkflow/Area: the area is a point: it has the "
                       "coordinates of one only",
                       "0:0 warning suspicious-latitude " + coordinate
                           + "Latitude: 91 is not a latitude from -90 to 90 degrees"};
}

void PlausibilityTest::objects()
{
    QFETCH(Document, document);
    QFETCH(QStringList, expected);
    QCOMPARE(suspicions(document), expected);
}

void PlausibilityTest::creation_data()
{
    QTest::addColumn<QDateTime>("now");
    QTest::addColumn<bool>("isInFuture");

    const QDateTime creation({2026, 3, 14}, {6, 30}, Qt::UTC);
    QTest::newRow("in the past") << creation.addDays(1) << false;
    QTest::newRow("now") << creation << false;
    QTest::newRow("in a day, by a clock that is slow") << creation.addDays(-1) << false;
    QTest::newRow("in more than a day") << creation.addDays(-1).addMSecs(-1) << true;
    QTest::newRow("in more than a day, in another zone")
        << creation.addDays(-1).addMSecs(-1).toOffsetFromUtc(9 * 3600) << true;
    QTest::newRow("in a year") << creation.addYears(-1) << true;
}

void PlausibilityTest::creation()
{
    QFETCH(QDateTime, now);
    QFETCH(bool, isInFuture);

    const ParsedDocument document = documentOf(job("Antenna", "1", "2"), {});
    const Findings findings = implausible(*document.kind, *document.object, document.tree, now);
    QCOMPARE(findings.size(), static_cast<std::size_t>(isInFuture));
    for (const FindingData &finding : findings) {
        QCOMPARE(finding.id.toString(), FindingId::SuspiciousCreation.toString());
        QCOMPARE(finding.path, QString("Job/JobHeader/Creation"));
        QCOMPARE(finding.message, QString("2026-03-14T06:30:00,000Z is in the future"));
        QCOMPARE(finding.offset, static_cast<qsizetype>(document.text.indexOf("<Creation>")));
    }
}

void PlausibilityTest::found()
{
    const auto foundIn = [](const QByteArray &text) {
        const Finding finding = Document(text).GetFindings().constLast();
        return QPair<bool, QString>(finding.HasFound(), finding.GetFound());
    };
    using Found = QPair<bool, QString>;
    QCOMPARE(foundIn(job("Antenna", "1", "2", "<Azimuth> 4e2 </Azimuth>")), Found(true, " 4e2 "));
    QCOMPARE(foundIn("<GenericReceiver Version='2'/>"), Found(true, "2"));
    QCOMPARE(foundIn(workflow(areaOf(corner("1", "1")))), Found(false, QString()));
}

/// Each at its own place, and not by looking through all others.
void PlausibilityTest::manyObjects()
{
    constexpr int Count = 20000;
    QByteArray corners;
    QByteArray parameters;
    for (int i = 0; i < Count; ++i) {
        corners += corner("99", QByteArray::number(i % 180));
        parameters += "<Parameter Version='9' UniqueName='" + QByteArray::number(i)
            + "'><ParameterType>"
              "Integer</ParameterType></Parameter>\n";
    }
    const QVector<Finding> latitudes = Document(workflow(areaOf(corners))).GetFindings();
    QCOMPARE(static_cast<int>(latitudes.size()), Count);
    for (int i = 0; i < Count; ++i)
        QCOMPARE(latitudes[i].GetLine(), static_cast<qint64>(i + 5));
    int versions = 0;
    for (const Finding &finding :
         Document("<GenericReceiver>\n" + parameters + "</GenericReceiver>").GetFindings()) {
        if (finding.GetId() == FindingId::SuspiciousVersion)
            QCOMPARE(finding.GetLine(), static_cast<qint64>(2 + versions++));
    }
    QCOMPARE(versions, Count);
}

void PlausibilityTest::examples_data()
{
    DocumentSamples::addExamples();
}

void PlausibilityTest::examples()
{
    QFETCH(QString, path);
    QCOMPARE(suspicions(Document(DocumentSamples::contentOf(path))), QStringList());
}

namespace {

/// The cells of the rows of the page: ids, what they are about, and examples.
QList<QStringList> rowsOfPage()
{
    for (const Page::Section &section : Page::sectionsOf("docs/inspection.md")) {
        if (section.anchor == "inspection_plausibility")
            return section.rows;
    }
    return {};
}

} // namespace

void PlausibilityTest::page_data()
{
    QTest::addColumn<QString>("id");
    QTest::addColumn<QString>("example");
    QTest::addColumn<QString>("message");

    for (const QStringList &cells : rowsOfPage()) {
        const QStringList example = Page::codeIn(cells.value(2));
        QTest::newRow(qPrintable(cells.value(0)))
            << Page::codeIn(cells.value(0)).value(0) << example.value(0) << example.value(1);
    }
}

void PlausibilityTest::page()
{
    QFETCH(QString, id);
    QFETCH(QString, example);
    QFETCH(QString, message);
    const QStringList lines = suspicions(Document(example.toUtf8()));
    QCOMPARE(lines.size(), 1);
    QVERIFY2(lines.constFirst().contains(" warning " + id + ' '), qPrintable(lines.constFirst()));
    QCOMPARE(lines.constFirst().section(": ", 1), message);
}

void PlausibilityTest::pageListsEveryId()
{
    QStringList onPage;
    for (const QStringList &cells : rowsOfPage())
        onPage += Page::codeIn(cells.value(0));
    QStringList inHeader;
    const QRegularExpression constant("u\"(suspicious-\\w+)\"");
    auto found = constant.globalMatch(Page::contentOf("inspection/Finding.h"));
    while (found.hasNext())
        inHeader += found.next().captured(1);
    QCOMPARE(inHeader.size(), 8);
    QCOMPARE(onPage, inHeader);
}

QTEST_GUILESS_MAIN(PlausibilityTest)
#include "PlausibilityTest.moc"
