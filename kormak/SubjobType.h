#ifndef KORMAK_SUBJOBTYPE_H
#define KORMAK_SUBJOBTYPE_H

#include <kormak/kormak_export.h>

#include <QString>

QT_BEGIN_NAMESPACE
class QDebug;
QT_END_NAMESPACE

namespace KORMAK {

/// The parts that a job is carried out in. For applications; no document of this library holds one.
///
/// \snippet docs/KormakSnippetsTest.cpp SubjobType
namespace SubjobType {

/// The names are in \ref vocabulary_subjob_type.
enum SubjobTypeValue : qint32 {
    Invalid = -1,
    MCReception,
    SCReception,
    TunerScan,
    SpectralZoomDDC,
    DetectionConventionalDDC,
    DetectionShorttimeDDC,
    DetectionConventionalDFServer,
    DetectionShorttimeDFServer,
    ActivityPreselection,
    DirectionFindingExclusive,
    DirectionFindingLocate,
    DirectionFindingSharedScan,
    DirectionFindingBackgroundScan,
    StatisticEvaluation,
    ITScan,
    Classification,
    ClassificationDDC,
    Production,
    ProductionDDC,
    LocateShorttime,
    SurveillancePostprocessing,
    Couple,
    SignalTrackingControl,
    ProductionWaveCom,
    Exciter,
};

/// The name of \a value, or "undefined" when it is not valid.
[[nodiscard]] KORMAK_EXPORT QString SubjobTypeToName(SubjobTypeValue value);

/// The value whose name is exactly \a name (case-sensitive), or Invalid.
[[nodiscard]] KORMAK_EXPORT SubjobTypeValue NameToSubjobType(const QString &name);

/// Invalid, -1: not set.
[[nodiscard]] KORMAK_EXPORT SubjobTypeValue GetInvalidSubjobType();

/// True for 0 to 24.
[[nodiscard]] KORMAK_EXPORT bool IsValidSubjobType(SubjobTypeValue value);

/// Writes the name of \a value, or its number when it has none.
KORMAK_EXPORT QDebug operator<<(QDebug debug, SubjobTypeValue value);

} // namespace SubjobType

} // namespace KORMAK

#endif
