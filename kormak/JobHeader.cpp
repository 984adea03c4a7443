#include "kormak/JobHeader.h"

#include <kormak/Vocabularies_p.h>
#include <objectbase/Constants_p.h>
#include <objectbase/Debug_p.h>
#include <objectbase/DocumentRows_p.h>
#include <objectbase/DocumentXml_p.h>
#include <objectbase/Messages_p.h>

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
    static bool hasAuthor(const JobHeader &header) { return !header.author.isEmpty(); }
    static bool hasCreation(const JobHeader &header) { return header.creation != QDateTime(); }
    static bool hasJobType(const JobHeader &header) { return JobType::IsValidJobType(header.jobType); }
    static bool hasShowJDH(const JobHeader &header) { return !header.showJDH.isEmpty(); }
    static bool hasDescription(const JobHeader &header) { return !header.description.isEmpty(); }
    static bool hasConnectableResource(const JobHeader &header)
    {
        return header.IsValidConnectableRessource(header.connectableResource);
    }

    /// The text of the flag, and whether it says something else than true or false.
    static QString showJDHText(const JobHeader &header) { return header.showJDH; }
    static bool hasOddShowJDH(const JobHeader &header)
    {
        return header.showJDH != toText(header.GetShowJDH());
    }

    static constexpr Row attributes[] = {
        Rows::attribute<&JobHeader::version>(TagVersion),
    };
    static constexpr Row elements[] = {
        Rows::namedElement<&JobHeader::jobType, jobTypes, &JobHeader::SetJobType>(u"JobType")
            .required<hasJobType>(),
        Rows::element<&JobHeader::author, &JobHeader::SetAuthor>(u"Author").required<hasAuthor>(),
        Rows::element<&JobHeader::creation, &JobHeader::SetCreation>(u"Creation").required<hasCreation>(),
        // Check() is silent about it.
        Rows::element<&JobHeader::showJDH>(u"ShowJDH")
            .valued<&JobHeader::GetShowJDH, &JobHeader::SetShowJDH>()
            .orEmpty()
            .needed<hasShowJDH>(),
        Rows::namedElement<&JobHeader::connectableResource, connectableResources>(u"ConnectableResource")
            .onlyWritten()
            .writtenIf<&JobHeader::IsSearchMCJob>()
            .required<hasConnectableResource>(u"ConnectableRessource")
            .requiredIf<&JobHeader::IsSearchMCJob>(),
        Rows::element<&JobHeader::description, &JobHeader::SetDescription>(u"Description")
            .writtenIf<hasDescription>(),
    };
    static constexpr Row fields[] = {
        Rows::field<showJDHText>(u"ShowJDHText").writtenIf<hasOddShowJDH>(),
    };
    static constexpr QStringView checked[] = {u"Author", u"Creation", u"JobType", u"ConnectableResource"};
    static constexpr ObjectTable table{u"JobHeader", attributes, elements, fields, checked};
};

const ObjectTable &JobHeader::table()
{
    return Xml::table;
}

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
    return isComplete<Xml>(this);
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

void JobHeader::Check() const
{
    if (!HasData())
        checkRequired(Xml::table, this, *this);
}

const QString &JobHeader::GetVersion() const
{
    return version;
}

void JobHeader::GetXml(QXmlStreamWriter &writer) const
{
    if (HasData())
        writeElement(Xml::table, this, writer, GetObjectName());
}

void JobHeader::ProcessXml(QXmlStreamReader &reader)
{
    readAttributes(Xml::table, this, reader);
    ITesselObject::ProcessXml(reader);
}

void JobHeader::ProcessXmlStartElement(QXmlStreamReader &reader)
{
    readChild(Xml::table, this, *this, reader);
}

QDebug operator<<(QDebug debug, const JobHeader &object)
{
    return TESSEL::printDocument(debug, object);
}

} // namespace KORMAK
