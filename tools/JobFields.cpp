#include <kormak/Job.h>
#include <tools/DocumentFields.h>
#include <tools/FieldRows.h>
#include <tools/NameLists.h>
#include <tools/WrittenForm.h>

#include <cmath>

using namespace KORMAK;
using namespace TESSEL;

namespace {

constexpr QStringView FlagName = u"ShowJDH";

/// The text of the data-header flag, which only the written form tells. The copy lacks nothing else.
QString flagText(const JobHeader &header)
{
    JobHeader copy(header);
    copy.SetAuthor(QStringLiteral("-"));
    copy.SetCreation(QDateTime::fromMSecsSinceEpoch(0, Qt::UTC));
    copy.SetJobType(JobType::Antenna);
    copy.SetDescription(QString());
    return writtenText(copy, FlagName);
}

/// The flag says something else than true or false.
bool hasOddFlag(const JobHeader &header)
{
    return !header.GetShowJDH() && flagText(header) != QStringView(u"false");
}

bool isSearchJob(const JobHeader &header)
{
    return JobType::IsSearchMC(header.GetJobType());
}

using HeaderRow = FieldRows<JobHeader>;

constexpr FieldRow HeaderRows[] = {
    HeaderRow::value<&JobHeader::GetVersion>(u"Version", u"Version"),
    HeaderRow::name<&JobHeader::GetJobType, &JobHeader::SetJobType>(u"JobType", u"Job type", JobTypes),
    HeaderRow::value<&JobHeader::GetAuthor, &JobHeader::SetAuthor>(u"Author", u"Author"),
    HeaderRow::value<&JobHeader::GetCreation, &JobHeader::SetCreation>(u"Creation", u"Creation"),
    HeaderRow::value<&JobHeader::GetShowJDH, &JobHeader::SetShowJDH>(FlagName, u"Show data header"),
    HeaderRow::value<flagText>(u"ShowJDHText", u"Show data header, as written").existsIf<hasOddFlag>(),
    HeaderRow::value<&JobHeader::GetDescription, &JobHeader::SetDescription>(u"Description", u"Description"),
    HeaderRow::name<&JobHeader::GetConnectableResource>(u"ConnectableResource", u"Connectable resource",
                                                        ConnectableResourceTypes)
        .shownIf<isSearchJob>(),
};
constexpr FieldTable HeaderFields{HeaderRows};

/// NaN is not set.
template <auto Getter>
std::optional<double> number(const AntennaData &antenna)
{
    const double value = (antenna.*Getter)();
    return std::isnan(value) ? std::nullopt : std::optional(value);
}

using AntennaRow = FieldRows<AntennaData>;

constexpr FieldRow AntennaRows[] = {
    AntennaRow::value<&AntennaData::GetVersion>(u"Version", u"Version"),
    AntennaRow::value<&AntennaData::GetName, &AntennaData::SetName>(u"Name", u"Name"),
    AntennaRow::value<number<&AntennaData::GetMinimumFrequency>, &AntennaData::SetMinimumFrequency>(
        u"MinimumFrequency", u"Minimum frequency")
        .in(u"Hz"),
    AntennaRow::value<number<&AntennaData::GetMaximumFrequency>, &AntennaData::SetMaximumFrequency>(
        u"MaximumFrequency", u"Maximum frequency")
        .in(u"Hz"),
    AntennaRow::value<number<&AntennaData::GetAzimuth>, &AntennaData::SetAzimuth>(u"Azimuth", u"Azimuth")
        .in(u"degrees"),
    AntennaRow::name<&AntennaData::GetPolarization, &AntennaData::SetPolarization>(
        u"Polarization", u"Polarization", Polarizations),
};
constexpr FieldTable AntennaFields{AntennaRows};

const JobHeader &headerOf(const Job &job)
{
    return job.GetJobHeader();
}

void changeHeader(Job &job, const FieldChange &work)
{
    work(&job.GetJobHeader());
}

const AntennaData &antennaOf(const Job &job)
{
    return job.GetAntennaData();
}

/// The setter refuses antenna data on another resource.
void changeAntenna(Job &job, const FieldChange &work)
{
    AntennaData antenna(antennaOf(job));
    work(&antenna);
    job.SetAntennaData(antenna);
}

bool isOnAntenna(const Job &job)
{
    return job.GetResourceType() == ResourceType::Antenna;
}

bool hasAntenna(const Job &job)
{
    return isOnAntenna(job) || job.GetAntennaData().AnyData();
}

QStringView whetherWritten(const Job &job)
{
    return isOnAntenna(job) ? QStringView() : QStringView(u"never written: not the antenna resource");
}

using JobRow = FieldRows<Job>;

constexpr FieldParts Header = JobRow::one<headerOf, changeHeader>(HeaderFields);
constexpr FieldParts Antenna = JobRow::one<antennaOf, changeAntenna>(AntennaFields);

constexpr FieldRow JobRows[] = {
    JobRow::value<&Job::GetVersion>(u"Version", u"Version"),
    JobRow::parts(u"JobHeader", u"Job header", Header),
    JobRow::name<&Job::GetResourceType, &Job::SetResourceType>(u"ResourceType", u"Resource type",
                                                               ResourceTypes),
    JobRow::parts(u"AntennaData", u"Antenna data", Antenna).shownIf<hasAntenna>().remarked<whetherWritten>(),
};

} // namespace

const FieldTable JobFields{JobRows};

QStringList missingBeyondCheck(const Job &job)
{
    if (job.GetResourceType() != ResourceType::Antenna)
        return {QStringLiteral("Job: only a job with ResourceType \"%1\" is written")
                    .arg(ResourceType::ResourceTypeToName(ResourceType::Antenna))};
    if (flagText(job.GetJobHeader()).isEmpty())
        return {QStringLiteral("JobHeader: Please set ShowJDH")};
    return {};
}
