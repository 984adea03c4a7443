// The whole visible state of objects as texts, so that a test can compare everything at once.
#ifndef KORMAK_OBJECTSTATES_H
#define KORMAK_OBJECTSTATES_H

#include "DocumentKinds.h"
#include "kormak/ParameterSamples.h"

namespace TestSupport {

/// \a part of an object, each name with \a prefix in front.
inline void addState(State &state, const QString &prefix, const State &part)
{
    for (auto entry = part.begin(); entry != part.end(); ++entry)
        state.insert(prefix + entry.key(), entry.value());
}

inline QString stateText(const QDateTime &dateTime)
{
    return dateTime.isValid() ? QString::number(dateTime.toMSecsSinceEpoch()) : QString("invalid");
}

inline State stateOf(const TESSEL::Area &area)
{
    using Detail::stateText;
    QStringList coordinates;
    for (const TESSEL::Coordinate &coordinate : area.GetCoordinate())
        coordinates << stateText(coordinate.GetLatitude()) + '/' + stateText(coordinate.GetLongitude());
    return {{"Version", area.GetVersion()}, {"Name", area.GetName()}, {"Coordinates", coordinates.join(' ')}};
}

inline State stateOf(const TESSEL::AntennaData &antenna)
{
    using Detail::stateText;
    return {{"Version", antenna.GetVersion()},
            {"Name", antenna.GetName()},
            {"MinimumFrequency", stateText(antenna.GetMinimumFrequency())},
            {"MaximumFrequency", stateText(antenna.GetMaximumFrequency())},
            {"Azimuth", stateText(antenna.GetAzimuth())},
            {"Polarization", stateText(qint32(antenna.GetPolarization()))}};
}

inline State stateOf(const KORMAK::JobHeader &header)
{
    return {{"Version", header.GetVersion()},
            {"JobType", Detail::stateText(qint32(header.GetJobType()))},
            {"ConnectableResource", Detail::stateText(qint32(header.GetConnectableResource()))},
            {"Author", header.GetAuthor()},
            {"Creation", stateText(header.GetCreation())},
            {"Description", header.GetDescription()},
            {"ShowJDH", Detail::stateText(header.GetShowJDH())}};
}

inline State stateOf(const KORMAK::Job &job)
{
    State state{{"Version", job.GetVersion()},
                {"ResourceType", Detail::stateText(qint32(job.GetResourceType()))}};
    addState(state, "JobHeader.", stateOf(job.GetJobHeader()));
    addState(state, "AntennaData.", stateOf(job.GetAntennaData()));
    return state;
}

inline State stateOf(const KORMAK::AutomaticWorkflow &workflow)
{
    State state{{"Version", workflow.GetVersion()},
                {"Mode", Detail::stateText(qint32(workflow.GetWorkflowMode()))},
                {"Classifiers", QString::number(workflow.GetNumberClassifiers())},
                {"ClassificationTime", QString::number(workflow.GetClassificationTime())},
                {"ClassificationResult", QString::number(workflow.GetClassificationResults())},
                {"SearchStrategy", Detail::stateText(qint32(workflow.GetSearchStrategy()))},
                {"BitstreamClassification", Detail::stateText(workflow.GetHFBitstreamClassification())}};
    addState(state, "Area.", stateOf(workflow.GetArea()));
    return state;
}

inline State stateOf(const KORMAK::ActivityGenerationData &data)
{
    using Detail::stateText;
    return {{"Version", data.GetVersion()},
            {"Autostart", stateText(data.GetAutoStartOn())},
            {"Mode", stateText(qint32(data.GetActivtyGenerationMode()))},
            {"EnergyChannel", stateText(qint32(data.GetEnergyActivityGenerationChannel()))},
            {"LevelMinBurstDuration", stateText(data.GetLevelMinBurstDuration())},
            {"LevelMaxBreakDuration", stateText(data.GetLevelMaxBreakDuration())},
            {"DDemActiveCriteria", stateText(qint32(data.GetDDemActiveCriteria()))},
            {"DDemMinBurstDuration", stateText(data.GetDDemMinBurstDuration())},
            {"DDemMaxBreakDuration", stateText(data.GetDDemMaxBreakDuration())},
            {"DDemMorseQualityThreshold", stateText(data.GetDDemMorseQualityThreshold())},
            {"ClassIntermScore", stateText(data.GetClassIntermScore())},
            {"ClassFinalScore", stateText(data.GetClassFinalScore())},
            {"ClassStartScore", stateText(data.GetClassStartScore())},
            {"ClassStopScore", stateText(data.GetClassStopScore())},
            {"ClassMinConfidence", stateText(data.GetClassMinConfidence())},
            {"DetConvMinBurstDuration", stateText(data.GetDetConvMinBurstDuration())},
            {"DbWriteEnergy", stateText(data.GetDbWriteEnergy())},
            {"DbWriteDDem", stateText(qint32(data.GetDbWriteDDem()))},
            {"DbWriteClass", stateText(qint32(data.GetDbWriteClass()))},
            {"CutAtLocations", stateText(data.GetCutAtLocations())},
            {"SessionCloseTime", stateText(data.GetSessionCloseTime())},
            {"RestartAttachmentsOnSessionClose", stateText(data.GetRestartAttachmentsOnSessionClose())}};
}

inline State stateOf(const KORMAK::GenericReceiver &receiver)
{
    State state{{"Version", receiver.GetVersion()}};
    const auto &list = receiver.GetParameterList();
    for (auto entry = list.begin(); entry != list.end(); ++entry)
        addState(state, '[' + entry.key() + "].", stateOf(entry.value()));
    return state;
}

namespace Detail {

template <class Document>
bool addStateAs(State &state, const TESSEL::ITesselObject &object)
{
    const auto *document = dynamic_cast<const Document *>(&object);
    if (document)
        state = stateOf(*document);
    return document;
}

} // namespace Detail

/// The state of a document of any kind.
inline State stateOf(const TESSEL::ITesselObject &object)
{
    using namespace KORMAK;
    using namespace TESSEL;
    State state;
    const bool isKnown = Detail::addStateAs<Area>(state, object)
        || Detail::addStateAs<AntennaData>(state, object) || Detail::addStateAs<JobHeader>(state, object)
        || Detail::addStateAs<Job>(state, object) || Detail::addStateAs<AutomaticWorkflow>(state, object)
        || Detail::addStateAs<ActivityGenerationData>(state, object)
        || Detail::addStateAs<GenericReceiver>(state, object) || Detail::addStateAs<Parameter>(state, object);
    if (!isKnown)
        throw std::invalid_argument(object.GetObjectName().toStdString());
    return state;
}

} // namespace TestSupport

#endif
