// The libraries are usable before main(), by the initialisers of other files: everything that their tables
// are needed for is done in one, and again in the test. Linked with the libraries and with their object
// files, where the initialisers of this file run before any of theirs.

#include "../TestSupport.h"
#include "JobSamples.h"
#include "ParameterSamples.h"

#include <kormak/ActivityGenerationData.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/GenericReceiver.h>
#include <kormak/Job.h>
#include <kormak/SubjobType.h>
#include <objectbase/Area.h>
#include <objectbase/ObjectTypes.h>
#include <objectbase/ResourceType.h>

#include <QtTest>

using namespace KORMAK;
using namespace TESSEL;

namespace {

constexpr char ActivityGeneration[] =
    "<ActivityGeneration Version=\"2.2\"><Mode>AGMC</Mode></ActivityGeneration>";
constexpr char Workflow[] = "<AutomaticWorkflow Version=\"1.0\"><Mode>AutomaticMode</Mode>"
                            "<SearchStrategy>LowestLevelFirst</SearchStrategy>"
                            "<Area Version=\"1.0\"><Name>Coast</Name></Area></AutomaticWorkflow>";

/// Every name of a vocabulary, and what has no name, both ways: "Name=value".
template <class Enum, class ToName, class FromName>
QString bothWays(int count, ToName toName, FromName fromName)
{
    QStringList list;
    for (int value = -1; value <= count; ++value) {
        const QString name = toName(static_cast<Enum>(value));
        list << name + '=' + QString::number(static_cast<int>(fromName(name)));
    }
    return list.join(' ');
}

/// What the object writes, and what a new one that has read it writes.
template <class Document>
QString writtenAndRead(const Document &object)
{
    const QString document = object.GetXmlString();
    Document read;
    const bool isRead = read.SetXmlString(document, true);
    return document + (isRead ? " read " : " not read ") + TestSupport::elementOf(read);
}

template <class Document>
Document from(const char *element)
{
    Document object;
    TestSupport::process(object, element);
    return object;
}

Job completeJob()
{
    Job job;
    job.SetJobHeader(TestSupport::completeHeader(JobType::TunerMCHF));
    job.SetResourceType(ResourceType::Antenna);
    job.GetAntennaData().SetName("Log-periodic North");
    job.GetAntennaData().SetMinimumFrequency(1.5e6);
    job.GetAntennaData().SetMaximumFrequency(30e6);
    job.GetAntennaData().SetPolarization(AntennaData::RightHandCircular);
    return job;
}

QString vocabularies()
{
    const ActivityGenerationData data;
    const Parameter parameter;
    const auto names = [](auto toName, int count) {
        QStringList list;
        for (int value = 0; value < count; ++value)
            list << toName(value);
        return list.join(' ');
    };
    return QStringList{
        bothWays<JobType::JobTypeValue>(22, JobType::JobTypeToName, JobType::NameToJobType),
        bothWays<SubjobType::SubjobTypeValue>(25, SubjobType::SubjobTypeToName, SubjobType::NameToSubjobType),
        bothWays<ConnectableResourceType::ConnectableResourceTypeValue>(
            6, ConnectableResourceType::ConnectableResourceTypeToName,
            ConnectableResourceType::NameToConnectableResourceType),
        bothWays<ResourceType::ResourceTypeValue>(50, ResourceType::ResourceTypeToName,
                                                  ResourceType::NameToResourceType),
        bothWays<ObjectTypes>(50, ObjectTypeToName, NameToObjectType),
        bothWays<AntennaData::Polarization>(5, AntennaData::PolarizationToName,
                                            AntennaData::NameToPolarization),
        bothWays<AutomaticWorkflow::WorkflowMode>(2, AutomaticWorkflow::WorkflowModeToName,
                                                  AutomaticWorkflow::NameToWorkflowMode),
        bothWays<AutomaticWorkflow::SearchStrategy>(7, AutomaticWorkflow::SearchStrategyToName,
                                                    AutomaticWorkflow::NameToSearchStrategy),
        bothWays<ParameterType>(TestSupport::TypeCount, ParameterTypeToName, NameToParameterType),
        data.GetActivityGenerationModeList().join(' '),
        data.GetEnergyActivityGenerationChannelList(true).join(' '),
        data.GetActivityGenerationDataBaseWriteModeList().join(' '),
        data.GetDDemActiveCriteriaList(true).join(' '),
        names([&](int v) { return parameter.ValueTypeToName(static_cast<Parameter::ValueType>(v)); }, 8),
        names([&](int v) { return parameter.ControlTypeToName(static_cast<Parameter::ControlType>(v)); }, 4),
        QString::number(parameter.NameToValueType("ValueFloatList")),
        QString::number(parameter.NameToControlType("VCTimeEdit")),
        QString::number(data.NameToDDemActiveCriteria("Demodulator and Decoder Locked")),
    }
        .join('\n');
}

QString area()
{
    Area area;
    area.SetName("Coast");
    area.AddCoordinate({54.1, -7.25});
    return writtenAndRead(area);
}

QString receiver()
{
    GenericReceiver receiver;
    for (int type = 0; type < TestSupport::TypeCount; ++type)
        receiver.AddParameter(TestSupport::completeParameter(type, "rx." + QString::number(type)));
    return writtenAndRead(receiver);
}

QString binaryForm()
{
    Job read;
    QByteArray binary = completeJob().GetBinaryRepresentationAsQByteArray();
    const bool isRead = read.SetBinaryRepresentation(binary);
    return binary.toHex() + (isRead && read == completeJob() ? " read" : " not read");
}

/// By what it is that was done.
QMap<QString, QString> everything()
{
    return {
        {"Vocabularies", vocabularies()},
        {"Dates", Converters::ToString(Converters::ToDateTime("2026-03-29T00:59:59,250Z"))},
        {"JobHeader", writtenAndRead(TestSupport::completeHeader())},
        {"Job", writtenAndRead(completeJob())},
        {"AntennaData", writtenAndRead(completeJob().GetAntennaData())},
        {"Area", area()},
        {"AutomaticWorkflow", writtenAndRead(from<AutomaticWorkflow>(Workflow))},
        {"ActivityGeneration", writtenAndRead(from<ActivityGenerationData>(ActivityGeneration))},
        {"Parameter", writtenAndRead(TestSupport::completeParameter(TestSupport::TypeCount - 1))},
        {"GenericReceiver", receiver()},
        {"Binary form", binaryForm()},
        {"Message", TestSupport::messageOf([] { JobHeader().Check(); })},
    };
}

const QMap<QString, QString> beforeMain = everything();

} // namespace

class BeforeMainTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void isAsLater_data();
    void isAsLater();
    void says_data();
    void says();
};

void BeforeMainTest::isAsLater_data()
{
    QTest::addColumn<QString>("done");
    const QStringList names = everything().keys();
    for (const QString &name : names)
        QTest::newRow(qPrintable(name)) << name;
}

void BeforeMainTest::isAsLater()
{
    QFETCH(QString, done);
    QCOMPARE(beforeMain.value(done), everything().value(done));
    QVERIFY(!beforeMain.value(done).contains(" not read"));
}

void BeforeMainTest::says_data()
{
    QTest::addColumn<QString>("done");
    QTest::addColumn<QString>("text");

    QTest::newRow("name of a job") << "Vocabularies"
                                   << "Tuner MC HF=14 ";
    QTest::newRow("name of a resource") << "Vocabularies"
                                        << "Antenna=49 ";
    QTest::newRow("name of a criterion") << "Vocabularies"
                                         << "Demodulator and Decoder Locked";
    QTest::newRow("date") << "Dates"
                          << "2026-03-29T00:59:59,250Z";
    QTest::newRow("header") << "JobHeader"
                            << " read " + TestSupport::completeHeaderElement();
    QTest::newRow("polarization") << "Job"
                                  << "<Polarization>Right-Hand Circular</Polarization>";
    QTest::newRow("area") << "Area"
                          << "<Latitude>54.1</Latitude><Longitude>-7.25</Longitude>";
    QTest::newRow("strategy") << "AutomaticWorkflow"
                              << "<SearchStrategy>LowestLevelFirst</SearchStrategy>";
    QTest::newRow("mode") << "ActivityGeneration"
                          << "<Mode>AGMC</Mode>";
    QTest::newRow("parameter") << "GenericReceiver"
                               << "<ParameterType>DoubleList</ParameterType>";
    QTest::newRow("message") << "Message"
                             << "JobHeader: Please set Author";
}

void BeforeMainTest::says()
{
    QFETCH(QString, done);
    QFETCH(QString, text);
    QVERIFY2(beforeMain.value(done).contains(text), qPrintable(beforeMain.value(done)));
}

QTEST_GUILESS_MAIN(BeforeMainTest)
#include "BeforeMainTest.moc"
