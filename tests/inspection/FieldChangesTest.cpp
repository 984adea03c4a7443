#include <inspection/Document.h>
#include <inspection/DocumentEdit.h>
#include <objectbase/TesselException.h>

#include <QtTest>

using namespace KORMAK;

/// The changes that JSON asks of a document.
class FieldChangesTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void changes_data();
    void changes();
    void refused_data();
    void refused();
};

namespace {

const QByteArray Job1 =
    "<Job><JobHeader><JobType>Antenna</JobType><Author>A</Author><ShowJDH>true</ShowJDH>"
    "</JobHeader><ResourceType>Antenna</ResourceType><AntennaData><Name>East</Name>"
    "<MinimumFrequency>1500000</MinimumFrequency><Azimuth>45.5</Azimuth></AntennaData></Job>";
const QByteArray Workflow = "<AutomaticWorkflow><Area><Name>a</Name><Coordinate><Latitude>1</Latitude>"
                            "<Longitude>2</Longitude></Coordinate></Area></AutomaticWorkflow>";
const QByteArray Receiver =
    "<GenericReceiver><Parameter UniqueName='Gain'><ParameterType>Float</ParameterType><Float>"
    "<Default>0.1</Default></Float></Parameter><Parameter UniqueName='a.b'><ParameterType>Integer"
    "</ParameterType><Integer><Default>7</Default></Integer></Parameter></GenericReceiver>";

/// One on a line, as "path=text", or as "-path" where it is removed.
QString textOf(const QVector<DocumentEdit::Change> &changes)
{
    QStringList texts;
    for (const DocumentEdit::Change &change : changes) {
        texts += change.action == DocumentEdit::Change::Action::Unset ? '-' + change.path
                                                                      : change.path + '=' + change.text;
    }
    return texts.join('\n');
}

} // namespace

void FieldChangesTest::changes_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("expected");

    const auto add = [](const char *name, const QByteArray &text, const QByteArray &json,
                        const QString &expected) { QTest::newRow(name) << text << json << expected; };
    add("nothing", Job1, "{}", "");
    add("text", Job1, R"({"JobHeader": {"Author": "B"}})", "JobHeader.Author=B");
    add("text that is there", Job1, R"({"JobHeader": {"Author": "A"}})", "");
    add("flag", Job1, R"({"JobHeader": {"ShowJDH": false}})", "JobHeader.ShowJDH=false");
    add("flag that is there", Job1, R"({"JobHeader": {"ShowJDH": true}})", "");
    add("number", Job1, R"({"AntennaData": {"Azimuth": 45.25}})", "AntennaData.Azimuth=45.25");
    add("number that is there", Job1, R"({"AntennaData": {"Azimuth": 45.5, "MinimumFrequency": 1.5e6}})", "");
    add("number that is there, with other digits", Job1, R"({"AntennaData": {"Azimuth": "45.50"}})",
        "AntennaData.Azimuth=45.50");
    add("number where there is none", Job1, R"({"AntennaData": {"MaximumFrequency": 30e6}})",
        "AntennaData.MaximumFrequency=30000000");
    add("zero where there is none", Job1, R"({"AntennaData": {"MaximumFrequency": 0}})",
        "AntennaData.MaximumFrequency=0");
    add("number with all its digits", Job1, R"({"AntennaData": {"Azimuth": 0.30000000000000004}})",
        "AntennaData.Azimuth=0.30000000000000004");
    add("largest exact number", Job1, R"({"AntennaData": {"Azimuth": 9007199254740991}})",
        "AntennaData.Azimuth=9007199254740991");
    add("number beyond those", Job1, R"({"AntennaData": {"Azimuth": 1e300}})", "AntennaData.Azimuth=1e+300");
    add("number of single precision that is there", Receiver,
        R"({"Parameter": {"Gain": {"Float": {"Default": 0.1}}}})", "");
    add("number of single precision", Receiver, R"({"Parameter": {"Gain": {"Float": {"Default": 0.2}}}})",
        "Parameter[Gain].Float.Default=0.2");
    add("whole number", Receiver, R"({"Parameter": {"a.b": {"Integer": {"Default": 8}}}})",
        "Parameter[a.b].Integer.Default=8");
    add("whole number that is there", Receiver, R"({"Parameter": {"a.b": {"Integer": {"Default": 7.0}}}})",
        "");
    add("name and number that is none of the field", Job1, R"({"ResourceType": 49})", "ResourceType=49");

    add("value removed", Job1, R"({"AntennaData": {"Azimuth": null}})", "-AntennaData.Azimuth");
    add("value removed that is not set", Job1, R"({"AntennaData": {"MaximumFrequency": null}})", "");
    add("value removed of what is not there", Receiver, R"({"Parameter": {"New": {"ToolTip": null}}})", "");
    add("object removed", Job1, R"({"AntennaData": null})", "-AntennaData");
    add("object removed that is not there", Receiver, R"({"Parameter": {"a.b": {"Float": null}}})", "");
    add("parameter removed", Receiver, R"({"Parameter": {"a.b": null}})", "-Parameter[a.b]");
    add("element removed", Workflow, R"({"Area": {"Coordinate": [null]}})", "-Area.Coordinate[0]");

    add("elements", Workflow,
        R"({"Area": {"Coordinate": [{"Latitude": 1, "Longitude": 3}, {"Latitude": 4, "Longitude": 5}]}})",
        "Area.Coordinate[0].Longitude=3\nArea.Coordinate[1].Latitude=4\nArea.Coordinate[1].Longitude=5");
    add("numbers of a list", "<Parameter><ParameterType>DoubleList</ParameterType></Parameter>",
        R"({"Double": {"DoubleList": [3, 0.5]}})", "Double.DoubleList[0]=3\nDouble.DoubleList[1]=0.5");
    add("no elements", Workflow, R"({"Area": {"Coordinate": []}})", "");
    add("parameter with a bracket in its name", Receiver, R"({"Parameter": {"c]": {"ToolTip": "t"}}})",
        "Parameter[c\\]].ToolTip=t");

    add("whole document", Job1, R"({"kind": "Job", "fields": {"JobHeader": {"Author": "B"}}})",
        "JobHeader.Author=B");
    add("whole document of no kind", Job1, R"({"fields": {"JobHeader": {"Author": "B"}}})",
        "JobHeader.Author=B");
    for (const QByteArray &text : {Job1, Workflow, Receiver})
        add(qPrintable("what is there: " + Document(text).GetKind()), text, Document(text).GetFieldsJson(),
            "");
}

void FieldChangesTest::changes()
{
    QFETCH(const QByteArray, text);
    QFETCH(const QByteArray, json);
    QTEST(textOf(DocumentEdit::ReadChanges(json, text)), "expected");
}

void FieldChangesTest::refused_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("message");

    const auto add = [](const char *name, const QByteArray &text, const QByteArray &json,
                        const QString &message) { QTest::newRow(name) << text << json << message; };
    add("no object", Job1, "[]", "is no JSON object");
    add("unknown field", Job1, R"({"JobHeader": {"Colour": 1}})", "JobHeader.Colour: there is no such field");
    add("kind without its fields", Job1, R"({"kind": "Job"})", "kind: there is no such field");
    add("fields that are no object", Job1, R"({"fields": 1})", "fields: there is no such field");
    add("fields of another kind", Job1, R"({"kind": "Parameter", "fields": {}})",
        "holds fields of kind Parameter, not Job");
    add("array for a value", Job1, R"({"ResourceType": [1]})", "ResourceType: is no value");
    add("value for an object", Job1, R"({"JobHeader": "x"})", "JobHeader: is no object");
    add("object for a list", Workflow, R"({"Area": {"Coordinate": {}}})", "Area.Coordinate: is no array");
    add("nothing for a list", Workflow, R"({"Area": {"Coordinate": null}})", "Area.Coordinate: is no array");
    add("value for an element", Workflow, R"({"Area": {"Coordinate": [1]}})",
        "Area.Coordinate[0]: is no object");
    add("list for the parameters", Receiver, R"({"Parameter": []})", "Parameter: is no object");
    add("nothing for the parameters", Receiver, R"({"Parameter": null})", "Parameter: is no object");
    add("value for a parameter", Receiver, R"({"Parameter": {"Gain": true}})",
        "Parameter[Gain]: is no object");
    for (const char *text : {"<Root/>", "<Job>", "", "<Job><Sort/></Job>"})
        add(qPrintable(QString("document that cannot be read: ") + text), text, "{}",
            Document(text).GetState());
}

void FieldChangesTest::refused()
{
    QFETCH(const QByteArray, text);
    QFETCH(const QByteArray, json);
    QFETCH(const QString, message);
    try {
        const auto changes = DocumentEdit::ReadChanges(json, text);
        QFAIL(qPrintable("read: " + textOf(changes)));
    } catch (const TESSEL::TesselException &exception) {
        QCOMPARE(exception.GetErrorMessage(), message);
        QVERIFY(!message.isEmpty());
    }
}

QTEST_GUILESS_MAIN(FieldChangesTest)
#include "FieldChangesTest.moc"
