#include "objectbase/ResourceType.h"

#include <objectbase/Constants_p.h>
#include <objectbase/Debug_p.h>
#include <objectbase/Vocabularies_p.h>

namespace TESSEL {

namespace ResourceType {

namespace {

[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;

constexpr VocabularyRow<ResourceTypeValue> Rows[] = {
    {ReceiverHF, u"Receiver HF"},
    {ReceiverVUHF, u"Receiver V/UHF"},
    {WidebandReceiverHF, u"Wideband Receiver HF"},
    {WidebandReceiverVUHF, u"Wideband Receiver V/UHF"},
    {SearchReceiverHF, u"Search Receiver HF"},
    {SearchReceiverVUHF, u"Search Receiver V/UHF"},
    {HandoffReceiverHF, u"Handoff Receiver HF"},
    {HandoffReceiverVUHF, u"Handoff Receiver V/UHF"},
    {TunerHF, u"Tuner HF"},
    {TunerVUHF, u"Tuner V/UHF"},
    {GenericReceiver, u"Generic Receiver"},
    {DirectionFinderHF, u"Direction Finder HF"},
    {DirectionFinderVUHF, u"Direction Finder V/UHF"},
    {DFServerHF, u"DF Server HF"},
    {DFServerVUHF, u"DF Server V/UHF"},
    {LocationServer, u"Location Server"},
    {DDCHF, u"DDC HF"},
    {DDCVUHF, u"DDC V/UHF"},
    {SpectrumDDCHF, u"Spectrum DDC HF"},
    {SpectrumDDCVUHF, u"Spectrum DDC V/UHF"},
    {DetectionDDCHF, u"Detection DDC HF"},
    {DetectionDDCVUHF, u"Detection DDC V/UHF"},
    {DemodulatorHF, u"Demodulator HF"},
    {DemodulatorVUHF, u"Demodulator V/UHF"},
    {VoiceDemodulator, u"Voice Demodulator"},
    {DataDemodulator, u"Data Demodulator"},
    {Decoder, u"Decoder"},
    {MorseDecoder, u"Morse Decoder"},
    {FacsimileDecoder, u"Facsimile Decoder"},
    {RadioTeletypeDecoder, u"Radio Teletype Decoder"},
    {VoiceDecoder, u"Voice Decoder"},
    {BitstreamDecoder, u"Bitstream Decoder"},
    {AudioRecorder, u"Audio Recorder"},
    {IFRecorder, u"IF Recorder"},
    {WidebandRecorder, u"Wideband Recorder"},
    {BitstreamRecorder, u"Bitstream Recorder"},
    {SpectrumRecorder, u"Spectrum Recorder"},
    {Playback, u"Playback"},
    {ClassifierHF, u"Classifier HF"},
    {ClassifierVUHF, u"Classifier V/UHF"},
    {BitstreamClassifier, u"Bitstream Classifier"},
    {SpeakerClassifier, u"Speaker Classifier"},
    {LanguageClassifier, u"Language Classifier"},
    {ActivityDetector, u"Activity Detector"},
    {BurstDetector, u"Burst Detector"},
    {ExciterHF, u"Exciter HF"},
    {ExciterVUHF, u"Exciter V/UHF"},
    {AntennaMatrix, u"Antenna Matrix"},
    {AntennaRotator, u"Antenna Rotator"},
    {Antenna, u"Antenna"},
};
constexpr Vocabulary ResourceTypes{Rows, u"undefined"};

} // namespace

static_assert(Antenna == 49, "job documents tell the antenna resource by this number");

QString ResourceTypeToName(ResourceTypeValue value)
{
    return ResourceTypes.nameOf(value);
}

ResourceTypeValue NameToResourceType(const QString &name)
{
    return ResourceTypes.valueOf(name);
}

bool IsValidResourceType(ResourceTypeValue value)
{
    return ResourceTypes.isValid(value);
}

ResourceTypeValue GetInvalidResourceType()
{
    return ResourceTypes.invalid();
}

QDebug operator<<(QDebug debug, ResourceTypeValue value)
{
    return printName(debug, ResourceTypes.table(), value);
}

} // namespace ResourceType

NameTable resourceTypes()
{
    return ResourceType::ResourceTypes.table();
}

} // namespace TESSEL
