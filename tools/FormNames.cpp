#include "tools/FormNames.h"

#include <kormak/ActivityGenerationData.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/JobType.h>
#include <kormak/Parameter.h>
#include <objectbase/AntennaData.h>
#include <objectbase/ResourceType.h>
#include <objectbase/TesselException.h>

using namespace KORMAK;
using namespace TESSEL;

namespace {

/// What \a nameOf says of each value from 0 that is valid.
template <class Enum, class NameOf>
QStringList names(bool (*isValid)(Enum), NameOf nameOf)
{
    QStringList list;
    for (qint32 value = 0; isValid(static_cast<Enum>(value)); ++value)
        list += nameOf(static_cast<Enum>(value));
    return list;
}

/// One type is written by another name than it is read by.
QString jobTypeAsRead(JobType::JobTypeValue type)
{
    return type == JobType::SearchMCVUHF ? QStringLiteral("Search MC VUHF") : JobType::JobTypeToName(type);
}

bool isParameterType(ParameterType type)
{
    return !ParameterTypeToName(type).isEmpty();
}

QString valueTypeName(Parameter::ValueType type)
{
    return Parameter().ValueTypeToName(type);
}

QString controlTypeName(Parameter::ControlType type)
{
    return Parameter().ControlTypeToName(type);
}

/// The library tells of these two vocabularies only by refusing what is not in them.
template <class Enum>
bool hasName(QString (*name)(Enum), Enum value)
{
    try {
        (void)name(value);
        return true;
    } catch (const TesselException &) {
        return false;
    }
}

bool isValueType(Parameter::ValueType type)
{
    return hasName(valueTypeName, type);
}

bool isControlType(Parameter::ControlType type)
{
    return hasName(controlTypeName, type);
}

} // namespace

const QStringList &FormNames::jobTypes()
{
    static const QStringList list = names(JobType::IsValidJobType, jobTypeAsRead);
    return list;
}

const QStringList &FormNames::resourceTypes()
{
    static const QStringList list =
        names(ResourceType::IsValidResourceType, ResourceType::ResourceTypeToName);
    return list;
}

const QStringList &FormNames::polarizations()
{
    static const QStringList list = names(AntennaData::IsValidPolarization, AntennaData::PolarizationToName);
    return list;
}

const QStringList &FormNames::workflowModes()
{
    static const QStringList list =
        names(AutomaticWorkflow::IsValidWorkflowMode, AutomaticWorkflow::WorkflowModeToName);
    return list;
}

const QStringList &FormNames::searchStrategies()
{
    static const QStringList list =
        names(AutomaticWorkflow::IsValidSearchStrategy, AutomaticWorkflow::SearchStrategyToName);
    return list;
}

const QStringList &FormNames::generationModes()
{
    static const QStringList list = ActivityGenerationData().GetActivityGenerationModeList();
    return list;
}

const QStringList &FormNames::energyChannels()
{
    static const QStringList list = ActivityGenerationData().GetEnergyActivityGenerationChannelList(true);
    return list;
}

const QStringList &FormNames::activeCriteria()
{
    static const QStringList list = ActivityGenerationData().GetDDemActiveCriteriaList(true);
    return list;
}

const QStringList &FormNames::writeModes()
{
    static const QStringList list = ActivityGenerationData().GetActivityGenerationDataBaseWriteModeList();
    return list;
}

const QStringList &FormNames::parameterTypes()
{
    static const QStringList list = names(isParameterType, ParameterTypeToName);
    return list;
}

const QStringList &FormNames::valueTypes()
{
    static const QStringList list = names(isValueType, valueTypeName);
    return list;
}

const QStringList &FormNames::controlTypes()
{
    static const QStringList list = names(isControlType, controlTypeName);
    return list;
}
