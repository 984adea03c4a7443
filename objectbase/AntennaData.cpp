#include "objectbase/AntennaData.h"

#include <objectbase/Constants_p.h>
#include <objectbase/Vocabulary_p.h>
#include <objectbase/XmlForm_p.h>

namespace TESSEL {

namespace {

[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;

constexpr VocabularyRow<AntennaData::Polarization> Rows[] = {
    {AntennaData::Horizontal, u"Horizontal"},
    {AntennaData::Vertical, u"Vertical"},
    {AntennaData::Slant, u"Slant"},
    {AntennaData::LeftHandCircular, u"Left-Hand Circular"},
    {AntennaData::RightHandCircular, u"Right-Hand Circular"},
};
constexpr Vocabulary Polarizations{Rows, u"undefined"};

/// Equal, or both not set.
bool same(double a, double b)
{
    return a == b || (std::isnan(a) && std::isnan(b));
}

} // namespace

struct AntennaData::Xml {
    static bool hasAzimuth(const AntennaData &antenna) { return antenna.IsValid(antenna.azimuth); }
    static bool hasPolarization(const AntennaData &antenna)
    {
        return IsValidPolarization(antenna.polarization);
    }

    static constexpr XmlAttribute<AntennaData> attributes[] = {
        attribute<&AntennaData::version>(TagVersion),
    };
    static constexpr XmlElement<AntennaData> elements[] = {
        element<&AntennaData::name>(u"Name"),
        element<&AntennaData::minimumFrequency>(u"MinimumFrequency"),
        element<&AntennaData::maximumFrequency>(u"MaximumFrequency"),
        element<&AntennaData::azimuth>(u"Azimuth").when(hasAzimuth),
        namedElement<&AntennaData::polarization, NameToPolarization, PolarizationToName>(u"Polarization")
            .when(hasPolarization),
    };
};

AntennaData::AntennaData() : ITesselObject(ObjectTypes::AntennaData)
{
    AntennaData::Reset();
}

AntennaData::AntennaData(const AntennaData &other) = default;

AntennaData &AntennaData::operator=(const AntennaData &other) = default;

AntennaData::~AntennaData() = default;

void AntennaData::SetName(const QString &text)
{
    name = text;
}

void AntennaData::SetMinimumFrequency(double hertz)
{
    minimumFrequency = hertz;
}

void AntennaData::SetMaximumFrequency(double hertz)
{
    maximumFrequency = hertz;
}

void AntennaData::SetAzimuth(double degrees)
{
    azimuth = degrees;
}

void AntennaData::SetPolarization(Polarization value)
{
    polarization = value;
}

QString AntennaData::PolarizationToName(Polarization value)
{
    return Polarizations.nameOf(value);
}

AntennaData::Polarization AntennaData::NameToPolarization(const QString &name)
{
    return Polarizations.valueOf(name);
}

bool AntennaData::IsValidPolarization(Polarization value)
{
    return Polarizations.isValid(value);
}

AntennaData::Polarization AntennaData::GetInvalidPolarization()
{
    return Polarizations.invalid();
}

bool AntennaData::operator==(const AntennaData &other) const
{
    return name == other.name && same(minimumFrequency, other.minimumFrequency)
        && same(maximumFrequency, other.maximumFrequency) && same(azimuth, other.azimuth)
        && polarization == other.polarization;
}

bool AntennaData::isMinimumFrequencyValid() const
{
    return minimumFrequency >= 0;
}

bool AntennaData::isMaximumFrequencyValid() const
{
    return maximumFrequency > minimumFrequency;
}

bool AntennaData::HasData() const
{
    return !name.isEmpty() && isMinimumFrequencyValid() && isMaximumFrequencyValid();
}

bool AntennaData::AnyData() const
{
    return !name.isEmpty() || IsValid(minimumFrequency) || IsValid(maximumFrequency) || IsValid(azimuth)
        || IsValidPolarization(polarization);
}

void AntennaData::Reset()
{
    version = defaultVersion();
    name.clear();
    SetInvalid(minimumFrequency);
    SetInvalid(maximumFrequency);
    SetInvalid(azimuth);
    polarization = GetInvalidPolarization();
}

void AntennaData::Check() const
{
    if (HasData())
        return;
    if (name.isEmpty())
        throwPleaseSet(*this, u"Name");
    if (!isMinimumFrequencyValid())
        throwPleaseSet(*this, u"MinimumFrequency");
    if (!isMaximumFrequencyValid())
        throwPleaseSet(*this, u"MaximumFrequency");
}

const QString &AntennaData::GetVersion() const
{
    return version;
}

void AntennaData::GetXml(QXmlStreamWriter &writer) const
{
    writeDocument<Xml>(*this, writer);
}

void AntennaData::ProcessXml(QXmlStreamReader &reader)
{
    readDocument<Xml>(*this, reader);
}

void AntennaData::ProcessXmlStartElement(QXmlStreamReader &reader)
{
    readChild<Xml>(*this, reader);
}

} // namespace TESSEL
