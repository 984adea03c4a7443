#include <tests/support/ToolSupport.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

using namespace ToolSupport;

class ListCommandTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void vocabularies();
    void names_data();
    void names();
    void json();
    void unknown();
};

namespace {

const QStringList Vocabularies{"JobType",
                               "SubjobType",
                               "ConnectableResourceType",
                               "ResourceType",
                               "Polarization",
                               "WorkflowMode",
                               "SearchStrategy",
                               "ActivityGenerationMode",
                               "EnergyActivityGenerationChannel",
                               "ActivityGenerationDataBaseWriteMode",
                               "DDemActiveCriteria",
                               "ParameterType",
                               "ValueType",
                               "ControlType",
                               "ObjectTypes"};

} // namespace

void ListCommandTest::vocabularies()
{
    const Run run = Folder().run({"list"});
    QStringList names;
    const QStringList lines = run.out.split('\n', Qt::SkipEmptyParts);
    for (const QString &line : lines) {
        names += line.section(' ', 0, 0);
        QVERIFY2(line.size() > 37 && line[36] == ' ' && line[37] != ' ', qPrintable(line));
    }
    QCOMPARE(names, Vocabularies);
    QCOMPARE(run.err, QString());
    QCOMPARE(run.status, 0);

    const QJsonArray json =
        QJsonDocument::fromJson(Folder().run({"list", "--format", "json"}).out.toUtf8()).array();
    QCOMPARE(json.toVariantList(), QVariant(Vocabularies).toList());
}

void ListCommandTest::names_data()
{
    QTest::addColumn<QString>("vocabulary");
    QTest::addColumn<QString>("listed");

    QTest::newRow("workflow modes") << "WorkflowMode"
                                    << " 0  ManualMode\n 1  AutomaticMode\n";
    QTest::newRow("with gaps") << "ObjectTypes"
                               << "12  Area\n17  AntennaData\n38  GenericReceiver\n40  Job\n41  JobHeader\n";
    QTest::newRow("not written") << "ParameterType"
                                 << " 0  Boolean (never written)\n 1  Long\n 2  Integer\n 3  String\n"
                                    " 4  Double\n 5  DoubleList\n 6  Float\n 7  Enum\n 8  TimeStamp\n";
    QTest::newRow("control types") << "ControlType"
                                   << " 0  VCFrequency\n 1  VCLineEdit\n 2  VCLineEditFrequency\n"
                                      " 3  VCTimeEdit\n";
}

void ListCommandTest::names()
{
    QFETCH(QString, vocabulary);
    QFETCH(QString, listed);

    const Run run = Folder().run({"list", vocabulary});
    QCOMPARE(run.out, listed);
    QCOMPARE(run.err, QString());
    QCOMPARE(run.status, 0);
}

void ListCommandTest::json()
{
    const Run run = Folder().run({"list", "--format", "json", "JobType"});
    const QJsonArray types = QJsonDocument::fromJson(run.out.toUtf8()).array();
    QCOMPARE(types.size(), 22);
    QCOMPARE(types.at(11).toObject(),
             (QJsonObject{{"value", 11}, {"name", "Search MC VUHF"}, {"written", "Surveillance MC VUHF"}}));
    QVERIFY(Folder()
                .run({"list", "JobType"})
                .out.contains("\n11  Search MC VUHF (written as \"Surveillance MC VUHF\")\n"));
    const QString parameterTypes = Folder().run({"list", "--format", "json", "ParameterType"}).out;
    QVERIFY2(parameterTypes.startsWith("[\n  {\n    \"value\": 0,\n    \"name\": \"Boolean\",\n"
                                       "    \"written\": null\n  },\n"),
             qPrintable(parameterTypes));
}

void ListCommandTest::unknown()
{
    const Run run = Folder().run({"list", "JobTypes"});
    QCOMPARE(run.out, QString());
    QCOMPARE(run.err,
             "kormak list: Unknown vocabulary 'JobTypes'; did you mean \"JobType\"? Allowed: "
                 + Vocabularies.join(", ") + "\n");
    QCOMPARE(run.status, 2);
}

QTEST_GUILESS_MAIN(ListCommandTest)
#include "ListCommandTest.moc"
