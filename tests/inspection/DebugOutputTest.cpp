// What QDebug shows of enumerators, documents and what is told about them.

#include <inspection/Document.h>
#include <inspection/Vocabulary.h>
#include <kormak/ActivityGenerationData.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/GenericReceiver.h>
#include <kormak/Job.h>
#include <kormak/SubjobType.h>
#include <objectbase/Area.h>
#include <objectbase/Logger.h>

#include <QDebug>
#include <QTimeZone>
#include <QtTest>

#include <algorithm>
#include <map>

using namespace KORMAK;
using namespace TESSEL;

namespace {

template <class Value>
QString shown(const Value &value)
{
    QString text;
    QDebug(&text).nospace() << value;
    return text;
}

template <class Enum>
QString shownNumber(qint32 number)
{
    return shown(static_cast<Enum>(number));
}

using Show = QString (*)(qint32 number);

/// By the names of the vocabularies.
const std::map<QString, Show> &shownVocabularies()
{
    using Data = ActivityGenerationData;
    static const std::map<QString, Show> all{
        {"JobType", shownNumber<JobType::JobTypeValue>},
        {"SubjobType", shownNumber<SubjobType::SubjobTypeValue>},
        {"ConnectableResourceType", shownNumber<ConnectableResourceType::ConnectableResourceTypeValue>},
        {"ResourceType", shownNumber<ResourceType::ResourceTypeValue>},
        {"Polarization", shownNumber<AntennaData::Polarization>},
        {"WorkflowMode", shownNumber<AutomaticWorkflow::WorkflowMode>},
        {"SearchStrategy", shownNumber<AutomaticWorkflow::SearchStrategy>},
        {"ActivityGenerationMode", shownNumber<Data::ActivityGenerationMode>},
        {"EnergyActivityGenerationChannel", shownNumber<Data::EnergyActivityGenerationChannel>},
        {"ActivityGenerationDataBaseWriteMode", shownNumber<Data::ActivityGenerationDataBaseWriteMode>},
        {"DDemActiveCriteria", shownNumber<Data::DDemActiveCriteria>},
        {"ParameterType", shownNumber<ParameterType>},
        {"ValueType", shownNumber<Parameter::ValueType>},
        {"ControlType", shownNumber<Parameter::ControlType>},
        {"ObjectTypes", shownNumber<ObjectTypes>},
    };
    return all;
}

Job smallJob()
{
    Job job;
    job.GetJobHeader().SetJobType(JobType::SearchMCVUHF);
    job.GetJobHeader().SetAuthor("M. \"Max\" Keller\nBerlin");
    job.GetJobHeader().SetCreation(QDateTime({2026, 3, 14}, {6, 30}, QTimeZone::utc()));
    job.SetResourceType(ResourceType::Antenna);
    job.GetAntennaData().SetName("North");
    job.GetAntennaData().SetMinimumFrequency(1.5e6);
    job.GetAntennaData().SetPolarization(AntennaData::LeftHandCircular);
    return job;
}

} // namespace

class DebugOutputTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void vocabularies_data();
    void vocabularies();
    void otherEnumerations_data();
    void otherEnumerations();
    void betweenOthers();
    void documents_data();
    void documents();
    void told();
};

void DebugOutputTest::vocabularies_data()
{
    QTest::addColumn<QString>("name");

    QCOMPARE(static_cast<int>(shownVocabularies().size()), static_cast<int>(GetVocabularies().size()));
    for (const auto &entry : shownVocabularies())
        QTest::newRow(qPrintable(entry.first)) << entry.first;
}

void DebugOutputTest::vocabularies()
{
    QFETCH(QString, name);
    const Show show = shownVocabularies().at(name);

    const Vocabulary vocabulary = FindVocabulary(name);
    QVERIFY(!vocabulary.IsNull());
    for (const Vocabulary::Entry &entry : vocabulary.GetEntries())
        QCOMPARE(show(entry.value), entry.name);
    for (const qint32 number : {-7, -1, 1000})
        QCOMPARE(show(number), QString::number(number));
}

void DebugOutputTest::otherEnumerations_data()
{
    QTest::addColumn<QStringList>("shownNumbers"); // from -1
    QTest::addColumn<QStringList>("names");

    const auto row = [](const char *name, Show show, const QStringList &names) {
        QStringList all;
        for (int number = -1; number <= names.size(); ++number)
            all += show(number);
        QTest::newRow(name) << all
                            << (QStringList("-1") + names + QStringList(QString::number(names.size())));
    };
    row("Level", shownNumber<Logger::Level>, {"INFO", "WARNING", "ERROR"});
    row("Severity", shownNumber<Finding::Severity>, {"Warning", "Error"});
    row("Requirement", shownNumber<Field::Requirement>, {"None", "Sometimes", "Always"});
    row("Kind", shownNumber<FieldNode::Kind>, {"Value", "Object", "List", "Map"});
    row("Limit", shownNumber<Finding::Limit>, {"None", "Attributes", "Depth", "Entities"});
    row("Correction", shownNumber<Finding::Correction>, {"None", "Text", "Name", "Element"});
    row("Type", shownNumber<Field::Type>,
        {"Text", "Boolean", "Integer", "Float", "Double", "DateTime", "Name"});
}

void DebugOutputTest::otherEnumerations()
{
    QFETCH(QStringList, shownNumbers);
    QFETCH(QStringList, names);

    QCOMPARE(shownNumbers, names);
}

void DebugOutputTest::betweenOthers()
{
    QString text;
    QDebug(&text) << QString("a") << JobType::Antenna << QString("b") << Coordinate(1.5, -2) << 3;
    QCOMPARE(text.trimmed(), QString("\"a\" Antenna \"b\" Coordinate(Latitude=1.5, Longitude=-2) 3"));

    text.clear();
    QDebug(&text).nospace() << QString("a") << JobType::Antenna << QString("b");
    QCOMPARE(text, QString("\"a\"Antenna\"b\""));
}

void DebugOutputTest::documents_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("expected");

    const QString header = "JobHeader(JobType=Search MC VUHF, Author=\"M. \\\"Max\\\" Keller\\nBerlin\", "
                           "Creation=2026-03-14T06:30:00,000Z, ShowJDH=true)";
    QTest::newRow("JobHeader") << shown(smallJob().GetJobHeader()) << header;
    const QString antenna = "AntennaData(Name=\"North\", MinimumFrequency=1500000, "
                            "Polarization=Left-Hand Circular)";
    QTest::newRow("AntennaData") << shown(smallJob().GetAntennaData()) << antenna;
    QTest::newRow("Job") << shown(smallJob())
                         << QString("Job(" + header + ", ResourceType=Antenna, " + antenna + ")");
    QTest::newRow("nothing set") << shown(AntennaData()) << "AntennaData()";

    Area area;
    area.SetName("Harbour");
    area.AddCoordinate({53.5, 9.9});
    area.AddCoordinate({qQNaN(), -0.1});
    QTest::newRow("Area") << shown(area)
                          << "Area(Name=\"Harbour\", Coordinate[0](Latitude=53.5, Longitude=9.9), "
                             "Coordinate[1](Latitude=nan, Longitude=-0.1))";
    AutomaticWorkflow workflow;
    workflow.SetWorkflowMode(AutomaticWorkflow::ManualMode);
    workflow.SetSearchStrategy(AutomaticWorkflow::LatestActiveFirst);
    workflow.SetNumberClassifiers(23);
    QTest::newRow("AutomaticWorkflow")
        << shown(workflow)
        << "AutomaticWorkflow(Mode=ManualMode, Classifiers=23, ClassificationTime=40, "
           "ClassificationResult=3, SearchStrategy=LatestActiveFirst, BitstreamClassification=false, "
           "Area())";
    ActivityGenerationData generation;
    generation.SetActivtyGenerationMode(ActivityGenerationData::AGMC);
    generation.SetAutoStartOn(true);
    generation.SetLevelMinBurstDuration(0.1F);
    QTest::newRow("ActivityGenerationData")
        << shown(generation).section(", ", 0, 7)
        << "ActivityGeneration(Version=\"2.2\", Autostart=true, Mode=AGMC, EnergyChannel=ADem, "
           "LevelMinBurstDuration=0.1, LevelMaxBreakDuration=0.5, DDemActiveCriteria=Demodulator Locked, "
           "DDemMinBurstDuration=0.5";

    Parameter gain;
    gain.SetParameterType(ParameterType::Integer);
    gain.SetUniqueParameterName("Gain]");
    gain.GetIntegerHandler().SetValue(7);
    QTest::newRow("Parameter")
        << shown(gain)
        << "Parameter(UniqueName=\"Gain]\", Multiplier=1, Enable=true, ParameterType=Integer, "
           "Integer(Minimum=-32768, Maximum=32767, Default=0, Value=7, Multiplier=1, "
           "UniqueParameterName=\"Gain]\"))";
    Parameter list;
    list.SetParameterType(ParameterType::DoubleList);
    list.GetDoubleHandler().SetMinimum(-1);
    list.GetDoubleHandler().AppendDoubleValue(0.1);
    list.GetDoubleHandler().AppendDoubleValue(2);
    QTest::newRow("double list")
        << shown(list)
        << "Parameter(Multiplier=1, Enable=true, ParameterType=DoubleList, "
           "Double(Minimum=-1, Maximum=1.7976931348623157e+308, Default=0, Precision=2, "
           "MaxDoubleListLength=0, UseAsList=false, DoubleList[0]=0.1, DoubleList[1]=2, Multiplier=1))";
    GenericReceiver receiver;
    receiver.AddParameter(gain);
    QTest::newRow("GenericReceiver") << shown(receiver)
                                     << "GenericReceiver(Parameter[\"Gain]\"]" + shown(gain).mid(9) + ")";
}

void DebugOutputTest::documents()
{
    QFETCH(QString, text);
    QFETCH(QString, expected);

    QCOMPARE(text, expected);
}

void DebugOutputTest::told()
{
    const Document none;
    QCOMPARE(shown(none), QString("Document()"));
    QCOMPARE(shown(Document(smallJob())),
             QString("Document(") + Document(smallJob()).GetState() + "; " + shown(smallJob()) + ')');
    const Document broken(QByteArray("<Job Version=\"1.0\">\n  <Hat/>\n</Job>"));
    QCOMPARE(shown(broken), QString("Document(%1)").arg(broken.GetState()));
    QVERIFY(!broken.GetState().isEmpty());

    const QVector<Finding> findings = broken.GetFindings();
    const auto unknown = std::find_if(findings.begin(), findings.end(), [](const Finding &finding) {
        return finding.GetId() == FindingId::UnknownElement;
    });
    QVERIFY(unknown != findings.end());
    QCOMPARE(
        shown(*unknown),
        QString("Finding(Error unknown-element 2:3 %1: %2)").arg(unknown->GetPath(), unknown->GetMessage()));
    QCOMPARE(shown(Finding()), QString("Finding(Warning: )"));

    const Document job(smallJob());
    QCOMPARE(shown(job.GetField("JobHeader.Author")),
             QString("Field(JobHeader.Author=M. \"Max\" Keller\\nBerlin)"));
    QCOMPARE(shown(job.GetField("AntennaData.Azimuth")), QString("Field(AntennaData.Azimuth, not set)"));

    Document changed = job;
    changed.SetField("JobHeader.Author", "Brandt");
    const QVector<Difference> differences = Document::Compare(job, changed);
    QCOMPARE(static_cast<int>(differences.size()), 1);
    QCOMPARE(shown(differences.constFirst()), QString("Difference(%1)").arg(differences.first().GetText()));
    QCOMPARE(shown(FindVocabulary("JobType")), QString("Vocabulary(JobType)"));
}

QTEST_GUILESS_MAIN(DebugOutputTest)
#include "DebugOutputTest.moc"
