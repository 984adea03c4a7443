#ifndef KORMAK_JOBTYPE_H
#define KORMAK_JOBTYPE_H

#include <kormak/kormak_export.h>

#include <QString>

QT_BEGIN_NAMESPACE
class QDebug;
QT_END_NAMESPACE

namespace KORMAK {

/// What a job does. SC: single channel, MC: multi channel.
///
/// \snippet docs/KormakSnippetsTest.cpp JobType
namespace JobType {

/// The names are in \ref vocabulary_job_type.
enum JobTypeValue : qint32 {
    Invalid = -1,
    ProductionSCHF,
    ProductionSCVUHF,
    ProductionMCHF,
    ProductionMCVUHF,
    SurveillanceSCHF,
    SurveillanceSCVUHF,
    SurveillanceMCHF,
    SurveillanceMCVUHF,
    SurveillanceMCBurstHF,
    SurveillanceMCBurstVUHF,
    SearchMCHF,
    SearchMCVUHF,
    SearchMCBurstHF,
    SearchMCBurstVUHF,
    TunerMCHF,
    TunerMCVUHF,
    StopCyclicDFLocateRequest,
    SignalTracking,
    ExciterHF,
    ExciterVUHF,
    Antenna,
    TolvaReceiver,
};

/// The name in documents of \a value; "undefined" when it is not valid. The name of SearchMCVUHF
/// is that of SurveillanceMCVUHF, "Surveillance MC VUHF".
[[nodiscard]] KORMAK_EXPORT QString JobTypeToName(JobTypeValue value);

/// The value whose name is exactly \a name (case-sensitive), or Invalid. "Search MC VUHF" is SearchMCVUHF.
[[nodiscard]] KORMAK_EXPORT JobTypeValue NameToJobType(const QString &name);

/// Invalid, -1: not set.
[[nodiscard]] KORMAK_EXPORT JobTypeValue GetInvalidJobType();

/// True for 0 to 21.
[[nodiscard]] KORMAK_EXPORT bool IsValidJobType(JobTypeValue value);

/// \name Groups of job types
/// Each holds the HF and the V/UHF type of its kind. The cyclic request, signal tracking and the antenna
/// belong to none.
/// @{
[[nodiscard]] KORMAK_EXPORT bool IsProductionSC(const JobTypeValue &value);
[[nodiscard]] KORMAK_EXPORT bool IsProductionMC(const JobTypeValue &value);
[[nodiscard]] KORMAK_EXPORT bool IsSurveillanceSC(const JobTypeValue &value);
[[nodiscard]] KORMAK_EXPORT bool IsSurveillanceMC(const JobTypeValue &value);
[[nodiscard]] KORMAK_EXPORT bool IsSurveillanceMCBurst(const JobTypeValue &value);
[[nodiscard]] KORMAK_EXPORT bool IsSearchMC(const JobTypeValue &value);
[[nodiscard]] KORMAK_EXPORT bool IsSearchMCBurst(const JobTypeValue &value);
[[nodiscard]] KORMAK_EXPORT bool IsTunerMC(const JobTypeValue &value);
[[nodiscard]] KORMAK_EXPORT bool IsExciter(const JobTypeValue &value);
[[nodiscard]] KORMAK_EXPORT bool IsTolvaReceiver(const JobTypeValue &value);
/// @}

/// Writes the name of \a value, or its number when it has none.
KORMAK_EXPORT QDebug operator<<(QDebug debug, JobTypeValue value);

} // namespace JobType

} // namespace KORMAK

#endif
