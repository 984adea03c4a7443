#include "tools/FindingRules.h"

#include <inspection/Finding.h>

using namespace KORMAK;

namespace {

constexpr FindingRule Rules[] = {
    {FindingId::BadValue, u"A text does not say what belongs there."},
    {FindingId::BeyondLimit, u"The document is more than the limits allow."},
    {FindingId::DeclaredEncoding, u"Another encoding is declared than the text is read in."},
    {FindingId::Encoding, u"The text is not UTF-8, or holds a NUL."},
    {FindingId::MisplacedElement, u"An element stands within a text."},
    {FindingId::MissingAttribute, u"An attribute is missing."},
    {FindingId::MissingElement, u"An element is missing."},
    {FindingId::NotWellFormed, u"The text is not well-formed XML."},
    {FindingId::Refused, u"The library refuses the document, for a reason that it tells in its own words."},
    {FindingId::Repeated, u"An element is given more than once."},
    {FindingId::StrayText, u"A text stands where none is read."},
    {FindingId::Suspicious, u"What is there is allowed, but is hardly meant."},
    {FindingId::SuspiciousAntenna, u"The antenna hardly fits the job."},
    {FindingId::SuspiciousArea, u"An area is hardly one."},
    {FindingId::SuspiciousAzimuth, u"There is no such azimuth."},
    {FindingId::SuspiciousCreation, u"A document was hardly made at that time."},
    {FindingId::SuspiciousLatitude, u"There is no such latitude."},
    {FindingId::SuspiciousLongitude, u"There is no such longitude."},
    {FindingId::SuspiciousRange, u"Nothing is within the limits."},
    {FindingId::SuspiciousVersion, u"The version is not known."},
    {FindingId::UnknownAttribute, u"There is no such attribute."},
    {FindingId::UnknownElement, u"There is no such element."},
    {FindingId::UnknownKind, u"The document is of a kind that is not known."},
    {FindingId::Unread, u"Something is known, but not read."},
    {FindingId::Unreadable, u"A file cannot be read."},
};

} // namespace

TESSEL::TableView<FindingRule> FindingRules::all()
{
    return Rules;
}

QStringList FindingRules::ids()
{
    QStringList ids;
    for (const FindingRule &rule : Rules)
        ids += rule.id.toString();
    return ids;
}

int FindingRules::indexOf(QStringView id)
{
    int index = 0;
    for (const FindingRule &rule : Rules) {
        if (rule.id == id)
            return index;
        ++index;
    }
    return -1;
}
