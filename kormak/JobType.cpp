#include "kormak/JobType.h"

#include <kormak/Vocabularies_p.h>
#include <objectbase/Constants_p.h>
#include <objectbase/Debug_p.h>

namespace KORMAK {

namespace JobType {

namespace {

[[maybe_unused]] constexpr auto LogLevels = TESSEL::LogLevelNames;

constexpr TESSEL::VocabularyRow<JobTypeValue> Rows[] = {
    {ProductionSCHF, u"Production SC HF"},
    {ProductionSCVUHF, u"Production SC VUHF"},
    {ProductionMCHF, u"Production MC HF"},
    {ProductionMCVUHF, u"Production MC VUHF"},
    {SurveillanceSCHF, u"Surveillance SC HF"},
    {SurveillanceSCVUHF, u"Surveillance SC VUHF"},
    {SurveillanceMCHF, u"Surveillance MC HF"},
    {SurveillanceMCVUHF, u"Surveillance MC VUHF"},
    {SurveillanceMCBurstHF, u"Surveillance MC Burst HF"},
    {SurveillanceMCBurstVUHF, u"Surveillance MC Burst VUHF"},
    {SearchMCHF, u"Search MC HF"},
    {SearchMCVUHF, u"Search MC VUHF", u"Surveillance MC VUHF"}, // receiving systems expect it so
    {SearchMCBurstHF, u"Search MC Burst HF"},
    {SearchMCBurstVUHF, u"Search MC Burst VUHF"},
    {TunerMCHF, u"Tuner MC HF"},
    {TunerMCVUHF, u"Tuner MC VUHF"},
    {StopCyclicDFLocateRequest, u"Stop a cyclic Df/Locate request"},
    {SignalTracking, u"Signal Tracking"},
    {ExciterHF, u"Exciter HF"},
    {ExciterVUHF, u"Exciter VUHF"},
    {Antenna, u"Antenna"},
    {TolvaReceiver, u"TOLVA Receiver"},
};
constexpr TESSEL::Vocabulary JobTypes{Rows, u"undefined"};

} // namespace

QString JobTypeToName(JobTypeValue value)
{
    return JobTypes.nameOf(value);
}

JobTypeValue NameToJobType(const QString &name)
{
    return JobTypes.valueOf(name);
}

JobTypeValue GetInvalidJobType()
{
    return JobTypes.invalid();
}

bool IsValidJobType(JobTypeValue value)
{
    return JobTypes.isValid(value);
}

bool IsProductionSC(const JobTypeValue &value)
{
    return value == ProductionSCHF || value == ProductionSCVUHF;
}

bool IsProductionMC(const JobTypeValue &value)
{
    return value == ProductionMCHF || value == ProductionMCVUHF;
}

bool IsSurveillanceSC(const JobTypeValue &value)
{
    return value == SurveillanceSCHF || value == SurveillanceSCVUHF;
}

bool IsSurveillanceMC(const JobTypeValue &value)
{
    return value == SurveillanceMCHF || value == SurveillanceMCVUHF;
}

bool IsSurveillanceMCBurst(const JobTypeValue &value)
{
    return value == SurveillanceMCBurstHF || value == SurveillanceMCBurstVUHF;
}

bool IsSearchMC(const JobTypeValue &value)
{
    return value == SearchMCHF || value == SearchMCVUHF;
}

bool IsSearchMCBurst(const JobTypeValue &value)
{
    return value == SearchMCBurstHF || value == SearchMCBurstVUHF;
}

bool IsTunerMC(const JobTypeValue &value)
{
    return value == TunerMCHF || value == TunerMCVUHF;
}

bool IsExciter(const JobTypeValue &value)
{
    return value == ExciterHF || value == ExciterVUHF;
}

bool IsTolvaReceiver(const JobTypeValue &value)
{
    return value == TolvaReceiver;
}

QDebug operator<<(QDebug debug, JobTypeValue value)
{
    return TESSEL::printName(debug, JobTypes.table(), value);
}

} // namespace JobType

TESSEL::NameTable jobTypes()
{
    return JobType::JobTypes.table();
}

} // namespace KORMAK
