#include "kormak/Job.h"

#include <objectbase/Constants_p.h>
#include <objectbase/Debug_p.h>
#include <objectbase/DocumentRows_p.h>
#include <objectbase/DocumentXml_p.h>
#include <objectbase/Messages_p.h>
#include <objectbase/Vocabularies_p.h>

namespace KORMAK {

using namespace TESSEL;

namespace {

[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;
[[maybe_unused]] constexpr QStringView DateTimeFormat = u"yyyy-MM-ddThh:mm:ss,zzzZ";
[[maybe_unused]] constexpr QStringView TimeFormat = u"hh:mm:ss,zzz";

} // namespace

struct Job::Xml {
    static bool isOnAntenna(const Job &job) { return job.IsValidAntennaData(job.resourceType); }
    static bool hasHeader(const Job &job) { return job.jobHeader.HasData(); }
    static bool hasAntenna(const Job &job) { return job.antennaData.HasData(); }
    static bool hasResource(const Job &job)
    {
        return job.resourceType != ResourceType::GetInvalidResourceType();
    }

    /// Antenna data are refused on another resource.
    static void changeAntenna(void *object, const QString & /*key*/, const FieldChange &work)
    {
        auto &job = *static_cast<Job *>(object);
        AntennaData antenna(job.antennaData);
        work(&antenna);
        job.SetAntennaData(antenna);
    }

    static constexpr Row attributes[] = {
        Rows::attribute<&Job::version>(TagVersion),
    };
    static constexpr Row elements[] = {
        Rows::ownedElement<&Job::jobHeader>(u"JobHeader").requiredPart<hasHeader>(),
        Rows::namedElement<&Job::resourceType, resourceTypes, &Job::SetResourceType>(u"ResourceType")
            .required<hasResource>()
            .needed<isOnAntenna>(),
        Rows::ownedElement<&Job::antennaData, changeAntenna>(u"AntennaData")
            .writtenIf<isOnAntenna>()
            .requiredPart<hasAntenna>()
            .requiredIf<isOnAntenna>(),
    };
    static constexpr ObjectTable table{u"Job", attributes, elements};
};

const ObjectTable &Job::table()
{
    return Xml::table;
}

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
        fail(Messages::antennaDataRefused(GetObjectName(), ResourceType::ResourceTypeToName(resourceType)));
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
    return isComplete<Xml>(this);
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
    if (!HasData())
        checkRequired(Xml::table, this, *this);
}

const QString &Job::GetVersion() const
{
    return version;
}

void Job::GetXml(QXmlStreamWriter &writer) const
{
    if (HasData())
        writeElement(Xml::table, this, writer, GetObjectName());
}

void Job::ProcessXml(QXmlStreamReader &reader)
{
    readAttributes(Xml::table, this, reader);
    ITesselObject::ProcessXml(reader);
}

QString Job::GetXmlString() const
{
    return ITesselObject::GetXmlString();
}

void Job::ProcessXmlStartElement(QXmlStreamReader &reader)
{
    readChild(Xml::table, this, *this, reader);
}

QDebug operator<<(QDebug debug, const Job &object)
{
    return TESSEL::printDocument(debug, object);
}

} // namespace KORMAK
