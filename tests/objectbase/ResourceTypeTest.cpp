#include <objectbase/ResourceType.h>
#include <tests/support/VocabularyChecks.h>

using namespace TESSEL;
using ResourceType::ResourceTypeValue;

namespace {

VocabularyChecks::Vocabulary<ResourceTypeValue> resourceTypes()
{
    return {
        {
            "Receiver HF",
            "Receiver V/UHF",
            "Wideband Receiver HF",
            "Wideband Receiver V/UHF",
            "Search Receiver HF",
            "Search Receiver V/UHF",
            "Handoff Receiver HF",
            "Handoff Receiver V/UHF",
            "Tuner HF",
            "Tuner V/UHF",
            "Generic Receiver",
            "Direction Finder HF",
            "Direction Finder V/UHF",
            "DF Server HF",
            "DF Server V/UHF",
            "Location Server",
            "DDC HF",
            "DDC V/UHF",
            "Spectrum DDC HF",
            "Spectrum DDC V/UHF",
            "Detection DDC HF",
            "Detection DDC V/UHF",
            "Demodulator HF",
            "Demodulator V/UHF",
            "Voice Demodulator",
            "Data Demodulator",
            "Decoder",
            "Morse Decoder",
            "Facsimile Decoder",
            "Radio Teletype Decoder",
            "Voice Decoder",
            "Bitstream Decoder",
            "Audio Recorder",
            "IF Recorder",
            "Wideband Recorder",
            "Bitstream Recorder",
            "Spectrum Recorder",
            "Playback",
            "Classifier HF",
            "Classifier V/UHF",
            "Bitstream Classifier",
            "Speaker Classifier",
            "Language Classifier",
            "Activity Detector",
            "Burst Detector",
            "Exciter HF",
            "Exciter V/UHF",
            "Antenna Matrix",
            "Antenna Rotator",
            "Antenna",
        },
        "undefined",
        ResourceType::ResourceTypeToName,
        ResourceType::NameToResourceType,
        ResourceType::IsValidResourceType,
        ResourceType::GetInvalidResourceType,
        {},
    };
}

} // namespace

class ResourceTypeTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void names_data() { VocabularyChecks::addNames(resourceTypes()); }
    void names() { VocabularyChecks::checkName(resourceTypes()); }
    void unknownNames_data() { VocabularyChecks::addUnknownNames(resourceTypes()); }
    void unknownNames() { VocabularyChecks::checkUnknownName(resourceTypes()); }
    void values_data() { VocabularyChecks::addValues(resourceTypes()); }
    void values() { VocabularyChecks::checkValue(resourceTypes()); }
    void antennaIs49();
};

void ResourceTypeTest::antennaIs49()
{
    QCOMPARE(static_cast<int>(ResourceType::Antenna), 49);
    QCOMPARE(static_cast<int>(ResourceType::Invalid), -1);
    QCOMPARE(ResourceType::ResourceTypeToName(static_cast<ResourceTypeValue>(49)), QString("Antenna"));
    QCOMPARE(static_cast<int>(ResourceType::NameToResourceType("Antenna")), 49);
}

QTEST_GUILESS_MAIN(ResourceTypeTest)
#include "ResourceTypeTest.moc"
