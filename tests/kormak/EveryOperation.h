// Everything that the tables and constants of the libraries are needed for, by what it is that is done.
#ifndef KORMAK_EVERYOPERATION_H
#define KORMAK_EVERYOPERATION_H

#include <kormak/ActivityGenerationData.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/GenericReceiver.h>
#include <kormak/Job.h>
#include <kormak/SubjobType.h>
#include <objectbase/Area.h>
#include <objectbase/Converters.h>
#include <objectbase/ObjectTypes.h>
#include <objectbase/ResourceType.h>
#include <tests/support/Objects.h>
#include <tests/support/Samples.h>

#include <QTemporaryDir>

namespace EveryOperation {

using namespace KORMAK;
using namespace TESSEL;

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

inline Job completeJob()
{
    Job job = TestSupport::completeJob(JobType::TunerMCHF);
    job.GetAntennaData().SetPolarization(AntennaData::RightHandCircular);
    return job;
}

inline QString vocabularies()
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

inline QString area()
{
    Area area;
    area.SetName("Coast");
    area.AddCoordinate({54.1, -7.25});
    return writtenAndRead(area);
}

inline QString receiver()
{
    GenericReceiver receiver;
    for (int type = 0; type < TestSupport::TypeCount; ++type)
        receiver.AddParameter(TestSupport::completeParameter(type, "rx." + QString::number(type)));
    return writtenAndRead(receiver);
}

inline QString binaryForm()
{
    Job read;
    QByteArray binary = completeJob().GetBinaryRepresentationAsQByteArray();
    const bool isRead = read.SetBinaryRepresentation(binary);
    return binary.toHex() + (isRead && read == completeJob() ? " read" : " not read");
}

inline QString files()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("file");
    Job job;
    GenericReceiver read;
    GenericReceiver imported;
    GenericReceiver receiver;
    receiver.AddParameter(TestSupport::completeParameter(2));
    const bool isJobRead = completeJob().SaveXml(path) && job.LoadXml(path) && job == completeJob();
    const bool isReceiverRead = receiver.SaveXml(path) && read.LoadXml(path) && read == receiver;
    imported.ImportXML(path);
    return isJobRead && isReceiverRead && imported == receiver ? " read" : " not read";
}

inline QString merging()
{
    Parameter merged = TestSupport::completeParameter(7, "rx.other");
    const Parameter copy = merged;
    const bool isMerged = merged.MergeTesselObject(TestSupport::completeParameter(7));
    return TestSupport::elementOf(copy) + TestSupport::elementOf(merged) + (isMerged ? " read" : " not read");
}

inline QMap<QString, QString> everything()
{
    return {
        {"Vocabularies", vocabularies()},
        {"Dates", Converters::ToString(Converters::ToDateTime("2026-03-29T00:59:59,250Z"))},
        {"JobHeader", writtenAndRead(TestSupport::completeHeader())},
        {"Job", writtenAndRead(completeJob())},
        {"AntennaData", writtenAndRead(completeJob().GetAntennaData())},
        {"Area", area()},
        {"AutomaticWorkflow",
         writtenAndRead(TestSupport::objectFrom<AutomaticWorkflow>(TestSupport::wholeAutomaticWorkflow()))},
        {"ActivityGeneration",
         writtenAndRead(
             TestSupport::objectFrom<ActivityGenerationData>(TestSupport::wholeActivityGeneration()))},
        {"Parameter", writtenAndRead(TestSupport::completeParameter(TestSupport::TypeCount - 1))},
        {"GenericReceiver", receiver()},
        {"Binary form", binaryForm()},
        {"Files", files()},
        {"Merging", merging()},
        {"Message", TestSupport::messageOf([] { JobHeader().Check(); })},
    };
}

} // namespace EveryOperation

#endif
