#include "kormak/JobHeader.h"

#include <objectbase/Constants_p.h>
#include <objectbase/XmlForm_p.h>

#include <limits>

namespace KORMAK {

using namespace TESSEL;

namespace {

[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;

/// The creation as headers compare it.
quint32 secondsSinceEpoch(const QDateTime &dateTime)
{
    constexpr quint32 OutOfRange = std::numeric_limits<quint32>::max();
    // Qt rounds seconds towards zero, so that the last second before 1970 would count as the first one of it.
    if (!dateTime.isValid() || dateTime.toMSecsSinceEpoch() < 0)
        return OutOfRange;
    const qint64 seconds = dateTime.toSecsSinceEpoch();
    return seconds < OutOfRange ? static_cast<quint32>(seconds) : OutOfRange;
}

} // namespace

struct JobHeader::Xml {
    static bool isSearchJob(const JobHeader &header) { return header.IsSearchMCJob(); }
    static bool hasDescription(const JobHeader &header) { return !header.description.isEmpty(); }

    static constexpr XmlAttribute<JobHeader> attributes[] = {
        attribute<&JobHeader::version>(TagVersion),
    };
    static constexpr XmlElement<JobHeader> elements[] = {
        namedElement<&JobHeader::jobType, JobType::NameToJobType, JobType::JobTypeToName>(u"JobType"),
        element<&JobHeader::author>(u"Author"),
        element<&JobHeader::creation>(u"Creation"),
        element<&JobHeader::showJDH>(u"ShowJDH"),
        namedElement<&JobHeader::connectableResource, ConnectableResourceType::NameToConnectableResourceType,
                     ConnectableResourceType::ConnectableResourceTypeToName>(u"ConnectableResource")
            .onlyWritten()
            .when(isSearchJob),
        element<&JobHeader::description>(u"Description").when(hasDescription),
    };
};

JobHeader::JobHeader() : ITesselObject(ObjectTypes::JobHeader)
{
    JobHeader::Reset();
}

JobHeader::JobHeader(const JobHeader &other) = default;

JobHeader &JobHeader::operator=(const JobHeader &other) = default;

JobHeader::~JobHeader() = default;

void JobHeader::SetJobType(const JobType::JobTypeValue &value)
{
    storeValid(*this, jobType, value, JobType::IsValidJobType(value), u"JobType");
}

void JobHeader::SetAuthor(const QString &text)
{
    author = text;
}

void JobHeader::SetCreation(const QDateTime &dateTime)
{
    creation = dateTime;
}

void JobHeader::SetDescription(const QString &text)
{
    description = text;
}

bool JobHeader::GetShowJDH() const
{
    bool show = false;
    fromText(showJDH, show);
    return show;
}

void JobHeader::SetShowJDH(bool show)
{
    showJDH = toText(show);
}

bool JobHeader::IsSearchMCJob() const
{
    return JobType::IsSearchMC(jobType);
}

// Not a range test: whatever came from outside counts, only "not set" does not.
bool JobHeader::IsValidConnectableRessource(
    const ConnectableResourceType::ConnectableResourceTypeValue &value) const
{
    return value != ConnectableResourceType::GetInvalidConnectableResourceType();
}

bool JobHeader::operator==(const JobHeader &other) const
{
    return jobType == other.jobType && secondsSinceEpoch(creation) == secondsSinceEpoch(other.creation)
        && description == other.description && author == other.author && GetShowJDH() == other.GetShowJDH()
        && GetVersion() == other.GetVersion();
}

bool JobHeader::HasData() const
{
    return !author.isEmpty() && creation != QDateTime() && !showJDH.isEmpty()
        && JobType::IsValidJobType(jobType)
        && (!IsSearchMCJob() || IsValidConnectableRessource(connectableResource));
}

bool JobHeader::AnyData() const
{
    return !author.isEmpty() || creation != QDateTime() || !description.isEmpty() || !showJDH.isEmpty()
        || JobType::IsValidJobType(jobType);
}

void JobHeader::Reset()
{
    version = defaultVersion();
    author.clear();
    creation = QDateTime();
    description.clear();
    SetShowJDH(true);
    jobType = JobType::GetInvalidJobType();
    connectableResource = ConnectableResourceType::GetInvalidConnectableResourceType();
}

// A missing data-header flag is not reported, although the header is incomplete without it.
void JobHeader::Check() const
{
    if (HasData())
        return;
    if (author.isEmpty())
        throwPleaseSet(*this, u"Author");
    if (creation == QDateTime())
        throwPleaseSet(*this, u"Creation");
    if (!JobType::IsValidJobType(jobType))
        throwPleaseSet(*this, u"JobType");
    if (IsSearchMCJob() && !IsValidConnectableRessource(connectableResource))
        throwPleaseSet(*this, u"ConnectableRessource");
}

const QString &JobHeader::GetVersion() const
{
    return version;
}

void JobHeader::GetXml(QXmlStreamWriter &writer) const
{
    writeDocument<Xml>(*this, writer);
}

void JobHeader::ProcessXml(QXmlStreamReader &reader)
{
    readDocument<Xml>(*this, reader);
}

void JobHeader::ProcessXmlStartElement(QXmlStreamReader &reader)
{
    readChild<Xml>(*this, reader);
}

} // namespace KORMAK
