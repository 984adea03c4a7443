#include "kormak/SubjobType.h"

#include <kormak/Vocabularies_p.h>
#include <objectbase/Constants_p.h>
#include <objectbase/Debug_p.h>

namespace KORMAK {

namespace SubjobType {

namespace {

[[maybe_unused]] constexpr auto LogLevels = TESSEL::LogLevelNames;

constexpr TESSEL::VocabularyRow<SubjobTypeValue> Rows[] = {
    {MCReception, u"MC Reception"},
    {SCReception, u"SC Reception"},
    {TunerScan, u"Tuner Scan"},
    {SpectralZoomDDC, u"Spectral Zoom DDC"},
    {DetectionConventionalDDC, u"Detection Conventional DDC"},
    {DetectionShorttimeDDC, u"Detection Shorttime DDC"},
    {DetectionConventionalDFServer, u"Detection Conventional DF Server"},
    {DetectionShorttimeDFServer, u"Detection Shorttime DF Server"},
    {ActivityPreselection, u"Activity Preselection"},
    {DirectionFindingExclusive, u"Direction Finding Exclusive"},
    {DirectionFindingLocate, u"Direction Finding Locate"},
    {DirectionFindingSharedScan, u"Direction Finding Shared Scan"},
    {DirectionFindingBackgroundScan, u"Direction Finding Background Scan"},
    {StatisticEvaluation, u"Statistic Evaluation"},
    {ITScan, u"IT Scan"},
    {Classification, u"Classification"},
    {ClassificationDDC, u"Classification DDC"},
    {Production, u"Production"},
    {ProductionDDC, u"Production DDC"},
    {LocateShorttime, u"Locate Shorttime"},
    {SurveillancePostprocessing, u"Surveillance Postprocessing"},
    {Couple, u"Couple"},
    {SignalTrackingControl, u"Signal Tracking Control"},
    {ProductionWaveCom, u"Production WaveCom"},
    {Exciter, u"Exciter"},
};
constexpr TESSEL::Vocabulary SubjobTypes{Rows, u"undefined"};

} // namespace

QString SubjobTypeToName(SubjobTypeValue value)
{
    return SubjobTypes.nameOf(value);
}

SubjobTypeValue NameToSubjobType(const QString &name)
{
    return SubjobTypes.valueOf(name);
}

SubjobTypeValue GetInvalidSubjobType()
{
    return SubjobTypes.invalid();
}

bool IsValidSubjobType(SubjobTypeValue value)
{
    return SubjobTypes.isValid(value);
}

QDebug operator<<(QDebug debug, SubjobTypeValue value)
{
    return TESSEL::printName(debug, SubjobTypes.table(), value);
}

} // namespace SubjobType

TESSEL::NameTable subjobTypes()
{
    return SubjobType::SubjobTypes.table();
}

} // namespace KORMAK
