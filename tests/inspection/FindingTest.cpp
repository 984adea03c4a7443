#include "DocumentSamples.h"

#include <inspection/Finding.h>

#include <algorithm>
#include <limits>

using namespace KORMAK;
using namespace DocumentSamples;

Q_DECLARE_METATYPE(Finding::Limit)
Q_DECLARE_METATYPE(Finding::Correction)

class FindingTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void byDefault();
    void everything();
    void places_data();
    void places();
    void limits_data();
    void limits();
    void corrections_data();
    void corrections();
    void comparison();
    void fieldPaths_data();
    void fieldPaths();
    void ofPrograms();
    void idsOfExamples();
};

namespace {

Finding firstOf(const QByteArray &text, const TESSEL::ReadingLimits &limits = {})
{
    const QVector<Finding> findings = Document(text, limits).GetFindings();
    return findings.isEmpty() ? Finding() : findings.constFirst();
}

} // namespace

void FindingTest::byDefault()
{
    const Finding finding;
    QCOMPARE(finding.GetSeverity(), Finding::Severity::Warning);
    QCOMPARE(finding.GetId() + finding.GetMessage() + finding.GetPath() + finding.GetFound(), QString());
    QVERIFY(!finding.HasPlace());
    QVERIFY(!finding.HasFound());
    QCOMPARE(finding.GetOffset(), -1);
    QCOMPARE(finding.GetLine() + finding.GetColumn(), 0);
    QCOMPARE(finding.GetLimit(), Finding::Limit::None);
    QVERIFY(finding.GetAllowed().isEmpty());
    QVERIFY(finding.GetSuggestion().isEmpty());
    QCOMPARE(finding.GetCorrection(), Finding::Correction::None);
    QCOMPARE(finding, Finding());

    Finding moved = firstOf("<Job/>");
    const Finding taken = std::move(moved);
    QVERIFY(taken != Finding());
    QCOMPARE(moved, Finding()); // NOLINT: what is moved from is as new
}

void FindingTest::everything()
{
    const Document document = example("faulty/job-type-in-lower-case.xml");
    QCOMPARE(document.GetFindings().size(), 1);
    const Finding finding = document.GetFindings().constFirst();
    QCOMPARE(finding.GetSeverity(), Finding::Severity::Error);
    QCOMPARE(finding.GetId(), FindingId::BadValue.toString());
    QCOMPARE(finding.GetMessage(),
             QString("\"surveillance mc hf\" is not a known name; it reads as \"not set\"; did you mean "
                     "\"Surveillance MC HF\"?"));
    QCOMPARE(finding.GetPath(), QString("Job/JobHeader/JobType"));
    QVERIFY(finding.HasPlace());
    QCOMPARE(finding.GetLine(), 4);
    QCOMPARE(finding.GetColumn(), 9);
    QVERIFY(contentOf(EXAMPLES_DIR "/faulty/job-type-in-lower-case.xml")
                .mid(static_cast<int>(finding.GetOffset()))
                .startsWith("<JobType>"));
    QVERIFY(finding.HasFound());
    QCOMPARE(finding.GetFound(), QString("surveillance mc hf"));
    QCOMPARE(finding.GetAllowed(), FindVocabulary("JobType").GetNames());
    QCOMPARE(finding.GetComplaint(), QString("JobHeader: Please set JobType"));
    QCOMPARE(finding.GetSuggestion(), QString("Surveillance MC HF"));
    QCOMPARE(finding.GetCorrection(), Finding::Correction::Text);
}

void FindingTest::places_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<qint64>("offset");
    QTest::addColumn<qint64>("line");
    QTest::addColumn<qint64>("column");

    QTest::newRow("start") << QByteArray("<X/>") << qint64(0) << qint64(1) << qint64(1);
    QTest::newRow("line") << QByteArray("\n\n <X/>") << qint64(3) << qint64(3) << qint64(2);
    QTest::newRow("lines of two characters")
        << QByteArray("<!---->\r\n <X/>") << qint64(10) << qint64(2) << qint64(2);
    QTest::newRow("characters of several bytes")
        << QByteArray("<!--\xC3\xA9\xE2\x82\xAC--><X/>") << qint64(12) << qint64(1) << qint64(10);
    QTest::newRow("byte order mark") << QByteArray("\xEF\xBB\xBF<X/>") << qint64(3) << qint64(1) << qint64(1);
    QTest::newRow("not UTF-8 behind a mark")
        << QByteArray("\xEF\xBB\xBF<Job>\xFF</Job>") << qint64(8) << qint64(1) << qint64(6);
    QTest::newRow("NUL") << QByteArray("<Job/>\n\0", 8) << qint64(7) << qint64(2) << qint64(1);
    QTest::newRow("empty") << QByteArray() << qint64(0) << qint64(1) << qint64(1);
}

void FindingTest::places()
{
    QFETCH(QByteArray, text);
    QFETCH(qint64, offset);
    QFETCH(qint64, line);
    QFETCH(qint64, column);

    const Finding finding = firstOf(text);
    QVERIFY(finding.HasPlace());
    QCOMPARE(finding.GetOffset(), offset);
    QCOMPARE(finding.GetLine(), line);
    QCOMPARE(finding.GetColumn(), column);
}

void FindingTest::limits_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<Finding::Limit>("limit");

    QTest::newRow("none") << QByteArray("<X/>") << Finding::Limit::None;
    QTest::newRow("attributes") << QByteArray("<Job a='' b='' c=''/>") << Finding::Limit::Attributes;
    QTest::newRow("depth") << QByteArray("<GenericReceiver><Script><b><c/></b></Script></GenericReceiver>")
                           << Finding::Limit::Depth;
    QTest::newRow("entities") << QByteArray("<!DOCTYPE Job [<!ENTITY a 'bbbb'>]><Job>&a;</Job>")
                              << Finding::Limit::Entities;
}

void FindingTest::limits()
{
    QFETCH(QByteArray, text);
    QFETCH(Finding::Limit, limit);

    TESSEL::ReadingLimits reading;
    reading.SetAttributes(2);
    reading.SetDepth(3);
    reading.SetEntityCharacters(3);
    reading.SetEntityFactor(0);
    const Finding finding = firstOf(text, reading);
    QCOMPARE(finding.GetLimit(), limit);
    QCOMPARE(finding.GetId() == FindingId::BeyondLimit, limit != Finding::Limit::None);
    QVERIFY(!finding.GetMessage().contains("--"));
    QCOMPARE(firstOf(text).GetLimit(), Finding::Limit::None);
}

void FindingTest::corrections_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("path"); // of the finding
    QTest::addColumn<QString>("suggestion"); // empty: none
    QTest::addColumn<Finding::Correction>("correction");

    using Correction = Finding::Correction;
    const auto add = [](const char *name, const QByteArray &text, const QString &path,
                        const QString &suggestion = {}, Correction correction = Correction::None) {
        QTest::newRow(name) << text << path << suggestion << correction;
    };
    add("name", "<Job><ResourceType>antenna</ResourceType></Job>", "Job/ResourceType", "Antenna",
        Correction::Text);
    add("name that differs in an abbreviation", "<Job><ResourceType>Receiver VHF</ResourceType></Job>",
        "Job/ResourceType");
    add("attribute", "<ActivityGeneration Autostart='True'/>", "ActivityGeneration/@Autostart", "true",
        Correction::Text);
    add("number", "<Job><AntennaData><Azimuth>1,5</Azimuth></AntennaData></Job>", "Job/AntennaData/Azimuth",
        "1.5", Correction::Text);
    add("number with thousands", "<Job><AntennaData><Azimuth>1,500</Azimuth></AntennaData></Job>",
        "Job/AntennaData/Azimuth");
    add("time", "<Job><JobHeader><Creation>2024-05-01 10:00:00Z</Creation></JobHeader></Job>",
        "Job/JobHeader/Creation", "2024-05-01T10:00:00,000Z", Correction::Text);
    add("time without a zone", "<Job><JobHeader><Creation>2024-05-01 10:00:00</Creation></JobHeader></Job>",
        "Job/JobHeader/Creation");

    add("root element", "<job/>", "", "Job", Correction::Name);
    add("root element with a letter too many", "<Jobs/>", "");
    add("root element with a prefix", "<a:job xmlns:a='b'/>", "", "Job", Correction::Name);
    add("element", "<Job><resourceType/></Job>", "Job/resourceType", "ResourceType", Correction::Name);
    add("element with a letter too many", "<Job><ResourceTypes/></Job>", "Job/ResourceTypes");
    add("element with a prefix", "<Job><a:resourceType xmlns:a='b'/></Job>", "Job/a:resourceType",
        "ResourceType", Correction::Name);
    add("element with a prefix that may be meant for others",
        "<Parameter><Long><a:minimum xmlns:a='b'/></Long></Parameter>", "Parameter/Long/a:minimum");
    add("element beside the right one with a prefix",
        "<Job><resourceType/><a:ResourceType xmlns:a='b'/></Job>", "Job/resourceType");
    add("element beside an attribute that is meant for it",
        "<AutomaticWorkflow Mode='ManualMode'><mode>ManualMode</mode></AutomaticWorkflow>",
        "AutomaticWorkflow/mode");
    add("element beside the right one in another block",
        "<Parameter><Long><minimum/></Long><Long><Minimum/></Long></Parameter>", "Parameter/Long/minimum");
    add("element beside the right one", "<Job><resourceType/><ResourceType/></Job>", "Job/resourceType");
    add("element beside another like it", "<Job><resourceType/><RESOURCETYPE/></Job>", "Job/RESOURCETYPE");
    add("element of which there may be several",
        "<GenericReceiver><parameter/><Parameter/></GenericReceiver>", "GenericReceiver/parameter",
        "Parameter", Correction::Name);
    add("element in a block", "<Parameter><Long><minimum/></Long></Parameter>", "Parameter/Long/minimum",
        "Minimum", Correction::Name);
    add("element deeper in a block",
        "<Parameter><Long><Maximum>1</Maximum><Default/><x><Minimum>1<y/></Minimum></x>"
        "</Long></Parameter>",
        "Parameter/Long/x");
    add("name of an attribute", "<Job version='1.0'/>", "Job/@version", "Version", Correction::Name);
    add("name of an attribute beside the right one", "<Job version='1.0' Version='1.0'/>", "Job/@version");
    add("name of an attribute with a letter too many", "<Job Versions='1.0'/>", "Job/@Versions");

    add("attribute for an element", "<AutomaticWorkflow Mode='ManualMode'/>", "AutomaticWorkflow/@Mode",
        "ManualMode", Correction::Element);
    add("attribute beside the element", "<AutomaticWorkflow Mode='ManualMode'><Mode/></AutomaticWorkflow>",
        "AutomaticWorkflow/@Mode");
    add("attribute beside an element that is meant for it",
        "<AutomaticWorkflow Mode='ManualMode'><mode>ManualMode</mode></AutomaticWorkflow>",
        "AutomaticWorkflow/@Mode");
    add("attribute beside another one like it", "<AutomaticWorkflow Mode='ManualMode' mode='AutomaticMode'/>",
        "AutomaticWorkflow/@Mode");
    add("attribute of a block", "<Parameter><String Default='x'/></Parameter>", "Parameter/String/@Default",
        "x", Correction::Element);
    add("attribute beside the element in another block",
        "<Parameter><String Default='x'/><String><Default>q</Default></String></Parameter>",
        "Parameter/String/@Default");
    add("attribute of two blocks", "<Parameter><String Default='x'/><String Default='y'/></Parameter>",
        "Parameter/String/@Default");
    add("attribute that says nothing", "<AutomaticWorkflow Mode='x'/>", "AutomaticWorkflow/@Mode");
    add("block of doubles", "<Parameter><DoubleList/></Parameter>", "Parameter/DoubleList", "Double",
        Correction::Name);
    add("block of doubles beside the right one", "<Parameter><DoubleList/><Double/></Parameter>",
        "Parameter/DoubleList");
}

void FindingTest::corrections()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, path);
    QFETCH(QString, suggestion);
    QFETCH(Finding::Correction, correction);

    const QVector<Finding> findings = Document(text).GetFindings();
    const auto finding = std::find_if(findings.begin(), findings.end(),
                                      [&path](const Finding &one) { return one.GetPath() == path; });
    QVERIFY(finding != findings.end());
    QCOMPARE(finding->GetSuggestion(), suggestion);
    QCOMPARE(finding->GetCorrection(), correction);
}

void FindingTest::comparison()
{
    const Finding finding = firstOf("<Job/>");
    QVERIFY(finding == firstOf("<Job/>"));
    QVERIFY(finding != firstOf(" <Job/>")); // elsewhere
    QVERIFY(finding != firstOf("<Job>x</Job>"));
    QVERIFY(finding != Document::New("Job").GetFindings().constFirst());
}

/// Each is documented, and no finding has another.
void FindingTest::idsOfExamples()
{
    const QList<QStringView> known{FindingId::BadValue,
                                   FindingId::BeyondLimit,
                                   FindingId::DeclaredEncoding,
                                   FindingId::Encoding,
                                   FindingId::Lost,
                                   FindingId::LostComment,
                                   FindingId::MisplacedElement,
                                   FindingId::MissingAttribute,
                                   FindingId::MissingElement,
                                   FindingId::NotReadBack,
                                   FindingId::NotWellFormed,
                                   FindingId::Refused,
                                   FindingId::Repeated,
                                   FindingId::StrayText,
                                   FindingId::Suspicious,
                                   FindingId::UnknownAttribute,
                                   FindingId::UnknownElement,
                                   FindingId::UnknownKind,
                                   FindingId::Unread};
    QStringList ids;
    for (const QString &path : examples()) {
        const Document document(contentOf(path));
        for (const Finding &finding : document.GetFindings() + document.GetLosses()) {
            QVERIFY2(known.contains(QStringView(finding.GetId())), qPrintable(finding.GetId()));
            QVERIFY(!finding.GetMessage().isEmpty());
            ids += finding.GetId();
        }
    }
    ids.removeDuplicates();
    QVERIFY2(ids.size() >= 9, qPrintable(ids.join(' ')));
}

void FindingTest::fieldPaths_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("path");

    QTest::newRow("element") << contentOf(QString(EXAMPLES_DIR) + "/faulty/missing-author.xml")
                             << "JobHeader.Author";
    QTest::newRow("attribute of a parameter") << QByteArray(
        "<GenericReceiver Version=\"1.0\"><Parameter UniqueName=\"a/b\" Kind=\"\"/></GenericReceiver>")
                                              << "Parameter[a/b].Kind";
    QTest::newRow("document") << QByteArray("<Engine/>") << "";
}

void FindingTest::fieldPaths()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, path);
    QCOMPARE(Document(text).GetFindings().value(0).GetFieldPath(), path);
}

void FindingTest::ofPrograms()
{
    const Finding finding = Finding::NotEdited("Area.Coordinate[0].Latitude", "is no angle");
    QCOMPARE(finding.GetId(), FindingId::NotEdited.toString());
    QCOMPARE(finding.GetSeverity(), Finding::Severity::Error);
    QCOMPARE(finding.GetPath(), QString("Area.Coordinate[0].Latitude"));
    QCOMPARE(finding.GetFieldPath(), finding.GetPath());
    QCOMPARE(finding.GetMessage(), QString("is no angle"));
    QVERIFY(!finding.HasPlace());
    QCOMPARE(finding.GetOffset(), -1);
    QCOMPARE(finding.GetLine(), 0);
    QCOMPARE(finding.GetColumn(), 0);
}

QTEST_GUILESS_MAIN(FindingTest)
#include "FindingTest.moc"
