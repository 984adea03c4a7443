#include "inspection/ObjectFindings_p.h"

#include <inspection/Completeness_p.h>
#include <inspection/DocumentWalk_p.h>
#include <inspection/Plausibility_p.h>
#include <inspection/QuotedText_p.h>
#include <inspection/ReadableForm_p.h>
#include <objectbase/ITesselObject.h>
#include <objectbase/TesselException.h>

#include <algorithm>
#include <iterator>

namespace KORMAK::Inspection {

namespace {

void append(Findings &findings, Findings more)
{
    std::move(more.begin(), more.end(), std::back_inserter(findings));
}

bool isMissing(const FindingData &finding)
{
    return finding.id == FindingId::MissingElement || finding.id == FindingId::MissingAttribute
        || finding.id == FindingId::BadValue;
}

/// What keeps an object from being written that passes Check(), as far as nothing among \a findings tells it.
void addMissing(Findings &findings, const DocumentKind &kind, const TESSEL::ITesselObject &object)
{
    const QStringList missing = kind.missing(object);
    for (const QString &text : missing) {
        const QString place = text.section(QLatin1Char(':'), 0, 0);
        const bool isTold =
            std::any_of(findings.begin(), findings.end(), [&place](const FindingData &finding) {
                return isMissing(finding) && finding.path.contains(place);
            });
        if (!isTold)
            findings.push_back({0, oneLine(text), {}, FindingId::MissingElement});
    }
}

} // namespace

std::optional<QString> refusalOf(const TESSEL::ITesselObject &object)
{
    if (auto complaint = complaintOf(object))
        return complaint;
    if (!object.HasData())
        return std::nullopt;
    try {
        (void)object.GetXmlString();
    } catch (const TESSEL::TesselException &exception) {
        return exception.GetErrorMessage();
    }
    return std::nullopt;
}

Findings findProblems(const DocumentKind &kind, const TESSEL::ITesselObject &object)
{
    const XmlTree tree(draftOf(kind, object));
    const auto draft = kind.create();
    Findings findings = walk(tree, kind.table(), kind.variableAddress(*draft), *draft).findings;
    const auto refusal = refusalOf(object);
    if (refusal) {
        const bool isTold =
            std::any_of(findings.begin(), findings.end(), [&refusal](const FindingData &finding) {
                return finding.severity == Severity::Error && finding.complaint == *refusal;
            });
        if (!isTold)
            findings.push_back({0, *refusal, {}, FindingId::Refused, Severity::Error, {}, {}, *refusal});
        append(findings, implausible(kind, object, tree));
        return findings;
    }
    for (FindingData &finding : findings) {
        finding.severity = Severity::Warning;
        finding.complaint.clear();
    }
    if (!object.HasData())
        addMissing(findings, kind, object);
    if (kind.lint)
        append(findings, kind.lint(object, tree));
    append(findings, implausible(kind, object, tree));
    return findings;
}

} // namespace KORMAK::Inspection
