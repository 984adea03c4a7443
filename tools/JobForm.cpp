#include <kormak/JobType.h>
#include <objectbase/ResourceType.h>
#include <tools/DocumentForm.h>
#include <tools/NameLists.h>

#include <algorithm>
#include <cmath>

using namespace KORMAK;
using namespace TESSEL;

namespace {

using namespace DocumentForms;
using Kind = TextForm::Kind;

constexpr QStringView JobTypeTag = u"JobType";
constexpr QStringView ShowTag = u"ShowJDH";
constexpr QStringView ResourceTypeTag = u"ResourceType";
constexpr QStringView AntennaTag = u"AntennaData";
constexpr QStringView MinimumTag = u"MinimumFrequency";
constexpr QStringView MaximumTag = u"MaximumFrequency";

bool isSearchJob(const ObjectTexts &header)
{
    return JobType::IsSearchMC(JobType::NameToJobType(header.text(JobTypeTag).value_or(QString())));
}

bool hasEmptyFlag(const ObjectTexts &header)
{
    const auto flag = header.text(ShowTag);
    return flag && flag->isEmpty();
}

constexpr ElementForm HeaderElements[] = {
    text(u"Author").askedFor(u"Author"),
    text(u"Creation", Kind::DateTime).askedFor(u"Creation"),
    text(JobTypeTag, JobTypes).askedFor(u"JobType"),
    text(ShowTag, Kind::Flag),
    text(u"Description"),
};
constexpr FormRule HeaderRules[] = {
    {JobTypeTag, isSearchJob,
     u"a search job needs a connectable resource, for which a document has no element: no such job is ever "
     u"complete",
     u"ConnectableRessource"},
    {ShowTag, hasEmptyFlag, u"is empty: the header is not complete, and the library would write nothing"},
};
constexpr ObjectForm Header{u"JobHeader", VersionOnly, HeaderElements, HeaderRules};

/// As the library reads it; 0 for a text that is no number.
double frequency(const ObjectTexts &antenna, QStringView tag)
{
    const auto said = antenna.text(tag);
    bool ok = false;
    const double hertz = said ? said->toDouble(&ok) : std::nan("");
    return !said || ok ? hertz : 0;
}

bool isMinimum(const ObjectTexts &antenna)
{
    return frequency(antenna, MinimumTag) >= 0;
}

bool isMaximum(const ObjectTexts &antenna)
{
    return frequency(antenna, MaximumTag) > std::fmax(frequency(antenna, MinimumTag), 0);
}

constexpr ElementForm AntennaElements[] = {
    text(u"Name").askedFor(u"Name"),
    text(MinimumTag, Kind::Double).askedFor(MinimumTag).metBy(isMinimum, u"0 Hz or more"),
    text(MaximumTag, Kind::Double)
        .askedFor(MaximumTag)
        .metBy(isMaximum, u"above 0 Hz and the minimum frequency"),
    text(u"Azimuth", Kind::Double),
    text(u"Polarization", Polarizations),
};
constexpr ObjectForm Antenna{AntennaTag, VersionOnly, AntennaElements};

ResourceType::ResourceTypeValue resourceOf(const ObjectTexts &job)
{
    return ResourceType::NameToResourceType(job.text(ResourceTypeTag).value_or(QString()));
}

/// A job that does not say what it runs on, but describes an antenna, is meant to run on that.
bool isOnAntenna(const ObjectTexts &job)
{
    const auto resource = resourceOf(job);
    return resource == ResourceType::Antenna
        || (!ResourceType::IsValidResourceType(resource) && job.text(AntennaTag));
}

bool isOnOtherResource(const ObjectTexts &job)
{
    const auto resource = resourceOf(job);
    return ResourceType::IsValidResourceType(resource) && resource != ResourceType::Antenna;
}

constexpr ElementForm JobElements[] = {
    object(Header).askedFor({}),
    text(ResourceTypeTag, ResourceTypes).askedFor(u"ResourceType"),
    object(Antenna).askedFor({}, isOnAntenna),
};
constexpr FormRule JobRules[] = {
    {ResourceTypeTag, isOnOtherResource,
     u"only a job on the resource \"Antenna\" is ever complete; the library would write nothing for this "
     u"one"},
};
constexpr ObjectForm JobObject{u"Job", VersionOnly, JobElements, JobRules};

constexpr ElementForm Root[] = {object(JobObject).askedFor({})};
constexpr ObjectForm Document{{}, {}, Root};

} // namespace

const ObjectForm &jobForm(const XmlTree & /*document*/)
{
    return Document;
}
