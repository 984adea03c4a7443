#include <kormak/Job.h>
#include <tools/DocumentFields.h>

using namespace KORMAK;
using namespace TESSEL;

namespace {

std::vector<Field> fieldsOf(const JobHeader &header)
{
    std::vector<Field> fields{
        {QStringLiteral("Version"), textValue(header.GetVersion())},
        {QStringLiteral("Job type"),
         nameOf(header.GetJobType(), JobType::IsValidJobType, JobType::JobTypeToName)},
        {QStringLiteral("Author"), textValue(header.GetAuthor())},
        {QStringLiteral("Creation"), dateValue(header.GetCreation())},
        {QStringLiteral("Show data header"), yesOrNo(header.GetShowJDH())},
        {QStringLiteral("Description"), textValue(header.GetDescription())},
    };
    if (JobType::IsSearchMC(header.GetJobType())) {
        fields.push_back(
            {QStringLiteral("Connectable resource"),
             nameOf(header.GetConnectableResource(), ConnectableResourceType::IsValidConnectableResourceType,
                    ConnectableResourceType::ConnectableResourceTypeToName)});
    }
    return fields;
}

std::vector<Field> fieldsOf(const AntennaData &antenna)
{
    return {
        {QStringLiteral("Version"), textValue(antenna.GetVersion())},
        {QStringLiteral("Name"), textValue(antenna.GetName())},
        {QStringLiteral("Minimum frequency"), frequency(antenna.GetMinimumFrequency())},
        {QStringLiteral("Maximum frequency"), frequency(antenna.GetMaximumFrequency())},
        {QStringLiteral("Azimuth"), quantity(antenna.GetAzimuth(), u"degrees")},
        {QStringLiteral("Polarization"),
         nameOf(antenna.GetPolarization(), AntennaData::IsValidPolarization,
                AntennaData::PolarizationToName)},
    };
}

} // namespace

std::vector<Field> fieldsOf(const Job &job)
{
    std::vector<Field> fields{
        {QStringLiteral("Version"), textValue(job.GetVersion())},
        group(QStringLiteral("Job header"), fieldsOf(job.GetJobHeader())),
        {QStringLiteral("Resource type"),
         nameOf(job.GetResourceType(), ResourceType::IsValidResourceType, ResourceType::ResourceTypeToName)},
    };
    const bool isOnAntenna = job.GetResourceType() == ResourceType::Antenna;
    if (isOnAntenna || job.GetAntennaData().AnyData()) {
        fields.push_back(group(isOnAntenna
                                   ? QStringLiteral("Antenna data")
                                   : QStringLiteral("Antenna data (never written: not the antenna resource)"),
                               fieldsOf(job.GetAntennaData())));
    }
    return fields;
}
