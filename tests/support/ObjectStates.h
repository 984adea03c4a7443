// The whole visible state of objects as texts, so that a test can compare everything at once and name what an
// operation changes.
#ifndef KORMAK_OBJECTSTATES_H
#define KORMAK_OBJECTSTATES_H

#include <tests/support/DocumentKinds.h>

#include <QMap>
#include <QStringList>

namespace TestSupport {

inline QString describe(const KORMAK::EnumHandler::EnumValue &entry)
{
    return QString("%1|%2|%3|%4|%5")
        .arg(QString::number(entry.Key), entry.Name, entry.Identifier, QString::number(entry.Value, 'g', 17),
             entry.Default);
}

using State = QMap<QString, QString>;

namespace Detail {

inline QString stateText(long long number)
{
    return QString::number(number);
}

inline QString stateText(double number)
{
    return QString::number(number, 'g', 17);
}

inline QString stateText(float number)
{
    return QString::number(static_cast<double>(number), 'g', 9);
}

inline QString stateText(qint32 number)
{
    return QString::number(number);
}

inline QString stateText(bool on)
{
    return on ? "true" : "false";
}

inline void addNames(State &state, const QString &handlerName, const KORMAK::TypeHandler &handler)
{
    state[handlerName + ".UniqueName"] = handler.GetUniqueParameterName();
    state[handlerName + ".RepresentationName"] = handler.GetRepresentationName();
}

template <class Handler>
void addNumbers(State &state, const QString &handlerName, const Handler &handler)
{
    addNames(state, handlerName, handler);
    state[handlerName + ".Minimum"] = stateText(handler.GetMinimum());
    state[handlerName + ".Maximum"] = stateText(handler.GetMaximum());
    state[handlerName + ".Default"] = stateText(handler.GetDefault());
    state[handlerName + ".Value"] = stateText(handler.GetValue());
    state[handlerName + ".Multiplier"] = stateText(handler.GetMultiplier());
}

} // namespace Detail

/// Everything that can be seen of \a parameter.
inline State stateOf(const KORMAK::Parameter &parameter)
{
    using Detail::stateText;
    State state{
        {"ObjectName", parameter.GetObjectName()},
        {"BaseVersion", parameter.GetVersion()},
        {"UniqueName", parameter.GetUniqueParameterName()},
        {"RepresentationName", parameter.GetRepresenationName()},
        {"DisplayName", parameter.GetDisplayName()},
        {"DisplaySuffix", parameter.GetDisplaySuffix()},
        {"ToolTip", parameter.GetToolTip()},
        {"Multiplier", stateText(parameter.GetMultiplier())},
        {"Enable", stateText(parameter.IsEnabled())},
        {"ValueType", stateText(static_cast<qint32>(parameter.GetValueType()))},
        {"ControlType", stateText(static_cast<qint32>(parameter.GetControlType()))},
        {"ParameterType", stateText(static_cast<qint32>(parameter.GetParameterType()))},
    };

    Detail::addNames(state, "Boolean", parameter.GetBooleanHandler());
    state["Boolean.Value"] = stateText(parameter.GetBooleanHandler().GetValue());

    Detail::addNumbers(state, "Integer", parameter.GetIntegerHandler());
    Detail::addNumbers(state, "Long", parameter.GetLongHandler());
    Detail::addNumbers(state, "TimeStamp", parameter.GetTimeStampHandler());
    Detail::addNumbers(state, "Float", parameter.GetFloatHandler());
    state["Float.Precision"] = stateText(parameter.GetFloatHandler().GetPrecision());

    const auto &doubles = parameter.GetDoubleHandler();
    Detail::addNumbers(state, "Double", doubles);
    state["Double.Precision"] = stateText(doubles.GetPrecision());
    state["Double.IsList"] = stateText(doubles.IsDoubleList());
    state["Double.MaxLength"] = stateText(doubles.GetMaxDoubleListLength());
    QStringList numbers;
    for (const double number : doubles.GetDoubleList())
        numbers.append(stateText(number));
    state["Double.List"] = numbers.join(' ');

    const auto &strings = parameter.GetStringHandler();
    Detail::addNames(state, "String", strings);
    state["String.Default"] = strings.GetDefault();
    state["String.Value"] = strings.GetValue();

    const auto &enums = parameter.GetEnumHandler();
    Detail::addNames(state, "Enum", enums);
    QStringList entries;
    for (const auto &entry : enums.GetEnumList())
        entries.append(describe(entry));
    state["Enum.List"] = entries.join(' ');
    state["Enum.Default"] = describe(enums.GetDefaultValue());
    state["Enum.Selected"] = describe(enums.GetSelectedEnumValue());
    return state;
}

/// What differs, as "Key=value now", in order of the keys.
inline QStringList changes(const State &before, const State &now)
{
    QStringList list;
    for (auto entry = now.begin(); entry != now.end(); ++entry) {
        if (entry.value() != before.value(entry.key()))
            list.append(entry.key() + '=' + entry.value());
    }
    return list;
}

/// What differs from a new parameter.
inline QStringList changes(const KORMAK::Parameter &parameter)
{
    return changes(stateOf(KORMAK::Parameter()), stateOf(parameter));
}

/// What \a operation changes of \a parameter.
template <class SomeParameter, class Operation>
QStringList changesBy(SomeParameter &parameter, Operation operation)
{
    const State before = stateOf(parameter);
    operation(parameter);
    return changes(before, stateOf(parameter));
}

inline QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

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

/// The state of a document of any kind, whatever its name is.
inline State stateOf(const TESSEL::ITesselObject &object)
{
    State state;
    forEachKind([&](auto kind) {
        if (const auto *document = dynamic_cast<const typename decltype(kind)::Document *>(&object))
            state = stateOf(*document);
    });
    if (state.isEmpty())
        throw std::invalid_argument(object.GetObjectName().toStdString());
    return state;
}

} // namespace TestSupport

#endif
