#include "inspection/SaidFields_p.h"

#include <inspection/Document.h>

#include <QtTest>

using namespace KORMAK;
using namespace KORMAK::Inspection;

class SaidFieldsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void texts_data();
    void texts();
    void limits();
    void paths_data();
    void paths();
    void findingOfAnotherText();
    void copies();
};

void SaidFieldsTest::texts_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QStringList>("said"); ///< in the order of the paths

    const auto add = [](const char *name, const QByteArray &text, const QStringList &said) {
        QTest::newRow(name) << text << said;
    };
    add("no text", "", {});
    add("no known document", "<Root/>", {});
    add("not UTF-8", "<Job Version='\xff'/>", {});
    add("broken off", "<Job Version='1'><ResourceType>5", {});
    add("nothing said", "<Job/>", {});
    add("behind a byte order mark", "\xEF\xBB\xBF<Job Version='1'/>", {"Version=1"});
    add("letter by letter", "<Job><AntennaData><Azimuth> 1e1 </Azimuth></AntennaData></Job>",
        {"AntennaData.Azimuth= 1e1 "});
    add("not understood", "<Job><AntennaData><Azimuth>north</Azimuth></AntennaData></Job>",
        {"AntennaData.Azimuth=north"});
    add("refused", "<Job><Nonsense/><ResourceType>x</ResourceType></Job>", {"ResourceType=x"});
    add("empty", "<Job><ResourceType/></Job>", {"ResourceType="});
    add("given twice", "<Job><ResourceType>a</ResourceType><ResourceType>b</ResourceType></Job>",
        {"ResourceType=b"});
    add("attribute of an element that no longer counts", "<Job><JobHeader Version='1'/><JobHeader/></Job>",
        {});
    add("attribute that is only written", "<AutomaticWorkflow Mode='x'/>", {});
    add("ignored element", "<ActivityGeneration><DbWriteLevel>1</DbWriteLevel></ActivityGeneration>", {});
    add("older form", "<ActivityGeneration Version='1.0'>AGSC</ActivityGeneration>",
        {"Mode=AGSC", "Version=1.0"});
    add("value of a block that is a text", "<Parameter UniqueName='P'><Boolean>yes</Boolean></Parameter>",
        {"Boolean.Value=yes", "UniqueName=P"});
    add("in an unknown element of a block",
        "<Parameter UniqueName='P'><Integer><Limits><Minimum>low</Minimum></Limits></Integer></Parameter>",
        {"Integer.Minimum=low", "UniqueName=P"});
    add("names that are escaped",
        "<GenericReceiver><Parameter UniqueName='a]\\'/><Parameter UniqueName=''/></GenericReceiver>",
        {"Parameter[].UniqueName=", "Parameter[a\\]\\\\].UniqueName=a]\\"});
}

void SaidFieldsTest::texts()
{
    QFETCH(const QByteArray, text);
    QFETCH(const QStringList, said);

    const SaidFields fields(text);
    QStringList found;
    for (auto field = fields.texts().begin(); field != fields.texts().end(); ++field)
        found += field.key() + '=' + field.value();
    found.sort();
    QCOMPARE(found, said);
}

void SaidFieldsTest::limits()
{
    const QByteArray text = "<Job Version='1' Other='2'/>";
    QCOMPARE(SaidFields(text).texts().value("Version"), QString("1"));
    TESSEL::ReadingLimits limits;
    limits.SetAttributes(1);
    QVERIFY(SaidFields(text, limits).texts().isEmpty());
}

void SaidFieldsTest::paths_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("id"); ///< of the finding
    QTest::addColumn<QString>("path");

    const auto add = [](const char *name, const QByteArray &text, const char *id, const QString &path) {
        QTest::newRow(name) << text << id << path;
    };
    const QByteArray coordinates =
        "<AutomaticWorkflow><Area><Coordinate/><Coordinate><Latitude>x</Latitude></Coordinate>"
        "</Area></AutomaticWorkflow>";
    add("in a list", coordinates, "bad-value", "Area.Coordinate[1].Latitude");
    add("behind a byte order mark", "\xEF\xBB\xBF" + coordinates, "bad-value", "Area.Coordinate[1].Latitude");
    const QByteArray longName(100, 'n');
    add("in an object with a long name",
        "<GenericReceiver><Parameter UniqueName='" + longName
            + "'><Enable>x</Enable></Parameter></GenericReceiver>",
        "bad-value", "Parameter[" + QString(longName) + "].Enable");
    add("missing in an object with a long name",
        "<GenericReceiver><Parameter UniqueName='" + longName + "'/></GenericReceiver>", "missing-element",
        "Parameter[" + QString(longName) + "].ParameterType");
    add("attribute of an entry",
        "<Parameter><Enum><EnumValue Key='1'/><A><EnumValue Key='x'/></A></Enum></Parameter>", "bad-value",
        "Enum.EnumValue[1].Key");
    add("of the document", "<Job/>", "missing-element", "ResourceType");
    add("broken off", "<Job><JobHeader>", "not-well-formed", "JobHeader");
}

void SaidFieldsTest::paths()
{
    QFETCH(const QByteArray, text);
    QFETCH(const QString, id);
    QFETCH(const QString, path);

    const SaidFields fields(text);
    QStringList found;
    for (const Finding &finding : Document(text).GetFindings()) {
        if (finding.GetId() == id)
            found += fields.pathOf(finding);
    }
    QVERIFY2(found.contains(path), qPrintable(found.join(' ')));
}

/// Where it does not fit, the finding alone counts.
void SaidFieldsTest::findingOfAnotherText()
{
    const QVector<Finding> findings = Document(QByteArray("<Job><JobHeader/></Job>")).GetFindings();
    QVERIFY(!findings.isEmpty());
    for (const Finding &finding : findings) {
        QCOMPARE(SaidFields(QByteArray("<GenericReceiver/>")).pathOf(finding), finding.GetFieldPath());
        QCOMPARE(SaidFields(QByteArray()).pathOf(finding), finding.GetFieldPath());
    }
}

void SaidFieldsTest::copies()
{
    auto fields = std::make_unique<SaidFields>(QByteArray("<Job Version='1'/>"));
    const SaidFields copy = *fields;
    const QString *const shared = &fields->texts().constBegin().value();
    QCOMPARE(&copy.texts().constBegin().value(), shared);
    fields.reset();
    QCOMPARE(copy.texts().value("Version"), QString("1"));
}

QTEST_GUILESS_MAIN(SaidFieldsTest)
#include "SaidFieldsTest.moc"
