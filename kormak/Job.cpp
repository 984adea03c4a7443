#include "kormak/Job.h"

#include <objectbase/Constants_p.h>
#include <objectbase/XmlForm_p.h>

namespace KORMAK {

using namespace TESSEL;

namespace {

[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;
[[maybe_unused]] constexpr QStringView DateTimeFormat = u"yyyy-MM-ddThh:mm:ss,zzzZ";
[[maybe_unused]] constexpr QStringView TimeFormat = u"hh:mm:ss,zzz";

} // namespace

struct Job::Xml {
    static bool isOnAntenna(const Job &job) { return job.IsValidAntennaData(job.resourceType); }

    static constexpr XmlAttribute<Job> attributes[] = {
        attribute<&Job::version>(TagVersion),
    };
    static constexpr XmlElement<Job> elements[] = {
        ownedElement<&Job::jobHeader>(),
        namedElement<&Job::resourceType, ResourceType::NameToResourceType, ResourceType::ResourceTypeToName>(
            u"ResourceType"),
        ownedElement<&Job::antennaData>().when(isOnAntenna),
    };
};

Job::Job() : ITesselObject(ObjectTypes::Job)
{
    Job::Reset();
}

Job::Job(const Job &other) = default;

Job &Job::operator=(const Job &other) = default;

Job::~Job() = default;

void Job::SetJobHeader(const JobHeader &header)
{
    jobHeader = header;
}

void Job::SetAntennaData(const AntennaData &data)
{
    if (!IsValidAntennaData(resourceType)) {
        throw TesselException(borrowed(u"Antenna data cannot be set for resource '%1' in '%2'.")
                                  .arg(ResourceType::ResourceTypeToName(resourceType), GetObjectName()));
    }
    antennaData = data;
}

void Job::SetResourceType(const ResourceType::ResourceTypeValue &value)
{
    resourceType = value;
}

bool Job::IsValidAntennaData(ResourceType::ResourceTypeValue type) const
{
    return type == ResourceType::Antenna;
}

bool Job::operator==(const Job &other) const
{
    return jobHeader == other.jobHeader && GetVersion() == other.GetVersion()
        && resourceType == other.resourceType
        && (!IsValidAntennaData(resourceType) || antennaData == other.antennaData);
}

bool Job::HasData() const
{
    return jobHeader.HasData() && ResourceType::IsValidResourceType(resourceType)
        && IsValidAntennaData(resourceType) && antennaData.HasData();
}

bool Job::AnyData() const
{
    return jobHeader.AnyData() || ResourceType::IsValidResourceType(resourceType) || antennaData.AnyData();
}

void Job::Reset()
{
    jobHeader.Reset();
    antennaData.Reset();
    resourceType = ResourceType::GetInvalidResourceType();
    version = defaultVersion();
}

void Job::Check() const
{
    if (HasData())
        return;
    jobHeader.Check();
    if (resourceType == ResourceType::GetInvalidResourceType())
        throwPleaseSet(*this, u"ResourceType");
    if (IsValidAntennaData(resourceType))
        antennaData.Check();
}

const QString &Job::GetVersion() const
{
    return version;
}

void Job::GetXml(QXmlStreamWriter &writer) const
{
    writeDocument<Xml>(*this, writer);
}

void Job::ProcessXml(QXmlStreamReader &reader)
{
    readDocument<Xml>(*this, reader);
}

QString Job::GetXmlString() const
{
    return ITesselObject::GetXmlString();
}

void Job::ProcessXmlStartElement(QXmlStreamReader &reader)
{
    readChild<Xml>(*this, reader);
}

} // namespace KORMAK
