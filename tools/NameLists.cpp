#include "tools/NameLists.h"

#include <kormak/ActivityGenerationData.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/Job.h>
#include <kormak/Parameter.h>
#include <kormak/SubjobType.h>
#include <objectbase/AntennaData.h>
#include <objectbase/ObjectTypes.h>
#include <objectbase/TesselException.h>

#include <QHash>

#include <functional>
#include <type_traits>

using namespace KORMAK;
using namespace TESSEL;

namespace {

using Generation = ActivityGenerationData;

template <class Function>
struct ClassOf;
template <class Class, class Result, class Argument>
struct ClassOf<Result (Class::*)(Argument) const> {
    using Type = Class;
};

/// Calls a free function, or a member function of an object that is as good as any other.
template <auto Function, class Argument>
auto ask(const Argument &argument)
{
    if constexpr (std::is_member_function_pointer_v<decltype(Function)>) {
        static const typename ClassOf<decltype(Function)>::Type anyObject;
        return std::invoke(Function, anyObject, argument);
    } else {
        return Function(argument);
    }
}

template <class Enum, auto IsValid, auto ToName, auto FromName>
constexpr NameList list(QStringView name, QStringView holds)
{
    constexpr auto toName = [](qint32 value) -> QString { return ask<ToName>(static_cast<Enum>(value)); };
    return {
        name,
        holds,
        [](qint32 value) { return ask<IsValid>(static_cast<Enum>(value)); },
        toName,
        [](const QString &text) { return static_cast<qint32>(ask<FromName>(text)); },
        toName,
    };
}

template <class Enum, QString (*ToName)(Enum)>
bool hasName(Enum value)
{
    return !ToName(value).isEmpty();
}

/// Parameter tells of the validity of these types, and of unknown names, by throwing.
template <auto Ask, class Argument>
auto orNone(const Argument &argument, decltype(ask<Ask>(argument)) none)
{
    try {
        return ask<Ask>(argument);
    } catch (const TesselException &) {
        return none;
    }
}

template <class Enum, auto ToName>
bool isNamed(Enum value)
{
    return value >= 0 && !orNone<ToName>(value, QString()).isEmpty();
}

template <class Enum, auto FromName>
Enum valueOrNone(const QString &name)
{
    return orNone<FromName>(name, static_cast<Enum>(-1));
}

template <class Enum, auto ToName, auto FromName>
constexpr NameList throwingList(QStringView name, QStringView holds)
{
    return list<Enum, isNamed<Enum, ToName>, ToName, valueOrNone<Enum, FromName>>(name, holds);
}

/// Two job types are written alike, so that the name of one of them is only read.
QString readJobType(qint32 value)
{
    const auto type = static_cast<JobType::JobTypeValue>(value);
    return type == JobType::SearchMCVUHF ? QStringLiteral("Search MC VUHF") : JobType::JobTypeToName(type);
}

constexpr NameList jobTypes()
{
    NameList types =
        list<JobType::JobTypeValue, JobType::IsValidJobType, JobType::JobTypeToName, JobType::NameToJobType>(
            u"JobType", u"what a job does");
    types.nameOf = readJobType;
    return types;
}

QString writtenParameterType(qint32 value)
{
    const auto type = static_cast<ParameterType>(value);
    return type == ParameterType::Boolean ? QString() : ParameterTypeToName(type);
}

constexpr NameList parameterTypes()
{
    NameList types = list<ParameterType, hasName<ParameterType, ParameterTypeToName>, ParameterTypeToName,
                          NameToParameterType>(u"ParameterType", u"the kind of value of a parameter");
    types.writtenAs = writtenParameterType;
    return types;
}

constexpr qint32 LargestValue = 255;

} // namespace

const NameList JobTypes = jobTypes();
const NameList SubjobTypes =
    list<SubjobType::SubjobTypeValue, SubjobType::IsValidSubjobType, SubjobType::SubjobTypeToName,
         SubjobType::NameToSubjobType>(u"SubjobType", u"a part that a job is carried out in; in no document");
const NameList ConnectableResourceTypes = list<ConnectableResourceType::ConnectableResourceTypeValue,
                                               ConnectableResourceType::IsValidConnectableResourceType,
                                               ConnectableResourceType::ConnectableResourceTypeToName,
                                               ConnectableResourceType::NameToConnectableResourceType>(
    u"ConnectableResourceType", u"what a search job can connect to; written, never read");
const NameList ResourceTypes =
    list<ResourceType::ResourceTypeValue, ResourceType::IsValidResourceType, ResourceType::ResourceTypeToName,
         ResourceType::NameToResourceType>(u"ResourceType", u"what a job runs on");
const NameList Polarizations =
    list<AntennaData::Polarization, AntennaData::IsValidPolarization, AntennaData::PolarizationToName,
         AntennaData::NameToPolarization>(u"Polarization", u"of an antenna");
const NameList WorkflowModes =
    list<AutomaticWorkflow::WorkflowMode, &AutomaticWorkflow::IsValidWorkflowMode,
         AutomaticWorkflow::WorkflowModeToName, AutomaticWorkflow::NameToWorkflowMode>(
        u"WorkflowMode", u"how a job takes up signals");
const NameList SearchStrategies =
    list<AutomaticWorkflow::SearchStrategy, &AutomaticWorkflow::IsValidSearchStrategy,
         AutomaticWorkflow::SearchStrategyToName, AutomaticWorkflow::NameToSearchStrategy>(
        u"SearchStrategy", u"the order in which signals are taken up");
const NameList GenerationModes =
    list<Generation::ActivityGenerationMode, &Generation::IsValidActivityGenerationMode,
         &Generation::ActivityGenerationModeToName, &Generation::NameToActivityGenerationMode>(
        u"ActivityGenerationMode", u"how detections become activities");
const NameList EnergyChannels =
    list<Generation::EnergyActivityGenerationChannel, &Generation::IsValidEnergyActivityGenerationChannel,
         &Generation::EnergyActivityGenerationChannelToName,
         &Generation::NameToEnergyActivityGenerationChannel>(
        u"EnergyActivityGenerationChannel", u"the channel that drives energy-based generation");
const NameList DatabaseWriteModes = list<Generation::ActivityGenerationDataBaseWriteMode,
                                         &Generation::IsValidActivityGenerationDataBaseWriteMode,
                                         &Generation::ActivityGenerationDataBaseWriteModeToName,
                                         &Generation::NameToActivityGenerationDataBaseWriteMode>(
    u"ActivityGenerationDataBaseWriteMode", u"when results are written to the database");
const NameList ActiveCriteria =
    list<Generation::DDemActiveCriteria, &Generation::IsValidDDemActiveCriteria,
         &Generation::DDemActiveCriteriaToName, &Generation::NameToDDemActiveCriteria>(
        u"DDemActiveCriteria", u"what marks a demodulated signal as active");
const NameList ParameterTypes = parameterTypes();
const NameList ValueTypes =
    throwingList<Parameter::ValueType, &Parameter::ValueTypeToName, &Parameter::NameToValueType>(
        u"ValueType", u"how a user interface presents a parameter");
const NameList ControlTypes =
    throwingList<Parameter::ControlType, &Parameter::ControlTypeToName, &Parameter::NameToControlType>(
        u"ControlType", u"how a user interface edits a parameter");
const NameList TypesOfObject =
    list<ObjectTypes, hasName<ObjectTypes, ObjectTypeToName>, ObjectTypeToName, NameToObjectType>(
        u"ObjectTypes", u"objects that bear a name of their own");

namespace {

QHash<const NameList *, QStringList> namesOfAll()
{
    QHash<const NameList *, QStringList> all;
    for (const NameList *list : allNameLists()) {
        QStringList &names = all[list];
        const QList<qint32> values = list->values();
        for (const qint32 value : values)
            names += list->nameOf(value);
    }
    return all;
}

} // namespace

QList<qint32> NameList::values() const
{
    QList<qint32> all;
    for (qint32 value = 0; value <= LargestValue; ++value) {
        if (isValid(value))
            all += value;
    }
    return all;
}

/// They are asked for with every text that a document holds, and some vocabularies tell them by throwing.
const QStringList &NameList::names() const
{
    static const QHash<const NameList *, QStringList> all = namesOfAll();
    return *all.constFind(this);
}

QString NameList::difference(qint32 value) const
{
    const QString written = writtenAs(value);
    if (written.isEmpty())
        return QStringLiteral(" (never written)");
    return written == nameOf(value) ? QString() : QStringLiteral(" (written as \"%1\")").arg(written);
}

const QList<const NameList *> &allNameLists()
{
    static const QList<const NameList *> all{
        &JobTypes,           &SubjobTypes,     &ConnectableResourceTypes,
        &ResourceTypes,      &Polarizations,   &WorkflowModes,
        &SearchStrategies,   &GenerationModes, &EnergyChannels,
        &DatabaseWriteModes, &ActiveCriteria,  &ParameterTypes,
        &ValueTypes,         &ControlTypes,    &TypesOfObject,
    };
    return all;
}

QStringList nameListNames()
{
    QStringList names;
    for (const NameList *list : allNameLists())
        names += list->name.toString();
    return names;
}
