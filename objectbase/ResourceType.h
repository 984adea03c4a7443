#ifndef TESSEL_RESOURCETYPE_H
#define TESSEL_RESOURCETYPE_H

#include <objectbase/objectbase_export.h>

#include <QString>

QT_BEGIN_NAMESPACE
class QDebug;
QT_END_NAMESPACE

namespace TESSEL {

/// The resources of a monitoring system that a job can run on.
///
/// \snippet docs/ObjectbaseSnippetsTest.cpp ResourceType
namespace ResourceType {

/// The names are in \ref vocabulary_resource_type.
enum ResourceTypeValue : qint32 {
    Invalid = -1,
    ReceiverHF,
    ReceiverVUHF,
    WidebandReceiverHF,
    WidebandReceiverVUHF,
    SearchReceiverHF,
    SearchReceiverVUHF,
    HandoffReceiverHF,
    HandoffReceiverVUHF,
    TunerHF,
    TunerVUHF,
    GenericReceiver,
    DirectionFinderHF,
    DirectionFinderVUHF,
    DFServerHF,
    DFServerVUHF,
    LocationServer,
    DDCHF,
    DDCVUHF,
    SpectrumDDCHF,
    SpectrumDDCVUHF,
    DetectionDDCHF,
    DetectionDDCVUHF,
    DemodulatorHF,
    DemodulatorVUHF,
    VoiceDemodulator,
    DataDemodulator,
    Decoder,
    MorseDecoder,
    FacsimileDecoder,
    RadioTeletypeDecoder,
    VoiceDecoder,
    BitstreamDecoder,
    AudioRecorder,
    IFRecorder,
    WidebandRecorder,
    BitstreamRecorder,
    SpectrumRecorder,
    Playback,
    ClassifierHF,
    ClassifierVUHF,
    BitstreamClassifier,
    SpeakerClassifier,
    LanguageClassifier,
    ActivityDetector,
    BurstDetector,
    ExciterHF,
    ExciterVUHF,
    AntennaMatrix,
    AntennaRotator,
    Antenna,
};

/// The name of \a value, or "undefined" when it is not valid.
[[nodiscard]] OBJECTBASE_EXPORT QString ResourceTypeToName(ResourceTypeValue value);

/// The value whose name is exactly \a name (case-sensitive), or Invalid.
[[nodiscard]] OBJECTBASE_EXPORT ResourceTypeValue NameToResourceType(const QString &name);

/// True for every enumerator but Invalid.
[[nodiscard]] OBJECTBASE_EXPORT bool IsValidResourceType(ResourceTypeValue value);

/// Invalid, -1: not set.
[[nodiscard]] OBJECTBASE_EXPORT ResourceTypeValue GetInvalidResourceType();

/// Writes the name of \a value, or its number when it has none.
OBJECTBASE_EXPORT QDebug operator<<(QDebug debug, ResourceTypeValue value);

} // namespace ResourceType

} // namespace TESSEL

#endif
