#include "objectbase/AntennaData.h"

#include <objectbase/Constants_p.h>
#include <objectbase/Debug_p.h>
#include <objectbase/DocumentRows_p.h>
#include <objectbase/DocumentXml_p.h>
#include <objectbase/Vocabularies_p.h>

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

NameTable polarizations()
{
    return Polarizations.table();
}

struct AntennaData::Xml {
    static bool hasName(const AntennaData &antenna) { return !antenna.name.isEmpty(); }
    static bool hasAzimuth(const AntennaData &antenna) { return antenna.IsValid(antenna.azimuth); }
    static bool hasPolarization(const AntennaData &antenna)
    {
        return IsValidPolarization(antenna.polarization);
    }

    using Antenna = AntennaData;
    static constexpr Row attributes[] = {
        Rows::attribute<&Antenna::version>(TagVersion),
    };
    static constexpr Row elements[] = {
        Rows::element<&Antenna::name, &Antenna::SetName>(u"Name").required<hasName>(),
        Rows::numberElement<&Antenna::minimumFrequency, &Antenna::SetMinimumFrequency>(u"MinimumFrequency")
            .required<&Antenna::isMinimumFrequencyValid>()
            .in(u"Hz"),
        Rows::numberElement<&Antenna::maximumFrequency, &Antenna::SetMaximumFrequency>(u"MaximumFrequency")
            .required<&Antenna::isMaximumFrequencyValid>()
            .in(u"Hz"),
        Rows::numberElement<&Antenna::azimuth, &Antenna::SetAzimuth>(u"Azimuth")
            .writtenIf<hasAzimuth>()
            .in(u"degrees"),
        Rows::namedElement<&Antenna::polarization, polarizations, &Antenna::SetPolarization>(u"Polarization")
            .writtenIf<hasPolarization>(),
    };
    static constexpr ObjectTable table{u"AntennaData", attributes, elements};
};

const ObjectTable &AntennaData::table()
{
    return Xml::table;
}

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
    return maximumFrequency > (isMinimumFrequencyValid() ? minimumFrequency : 0);
}

bool AntennaData::HasData() const
{
    return isComplete<Xml>(this);
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
    if (!HasData())
        checkRequired(Xml::table, this, *this);
}

const QString &AntennaData::GetVersion() const
{
    return version;
}

void AntennaData::GetXml(QXmlStreamWriter &writer) const
{
    if (HasData())
        writeElement(Xml::table, this, writer, GetObjectName());
}

void AntennaData::ProcessXml(QXmlStreamReader &reader)
{
    readAttributes(Xml::table, this, reader);
    ITesselObject::ProcessXml(reader);
}

void AntennaData::ProcessXmlStartElement(QXmlStreamReader &reader)
{
    readChild(Xml::table, this, *this, reader);
}

QDebug operator<<(QDebug debug, AntennaData::Polarization value)
{
    return printName(debug, Polarizations.table(), value);
}

QDebug operator<<(QDebug debug, const AntennaData &object)
{
    return printDocument(debug, object);
}

} // namespace TESSEL
