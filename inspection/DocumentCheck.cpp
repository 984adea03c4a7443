#include "inspection/DocumentCheck_p.h"

#include <inspection/Plausibility_p.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace KORMAK::Inspection {

namespace {

FindingData breakOf(const XmlTree &tree)
{
    const XmlTree::Break &broken = *tree.broken();
    return {broken.offset, broken.message, tree.path(broken.element), FindingId::NotWellFormed,
            Severity::Error};
}

/// A finding tells of the refusal when the library says what it says, or when it is an error at that place.
bool isTold(const Rejection &rejection, const Findings &findings)
{
    return std::any_of(findings.begin(), findings.end(), [&rejection](const FindingData &finding) {
        return finding.severity == Severity::Error
            && (finding.complaint == rejection.message
                || (finding.complaint.isEmpty() && finding.offset == rejection.offset));
    });
}

void append(Findings &findings, Findings more)
{
    std::move(more.begin(), more.end(), std::back_inserter(findings));
}

} // namespace

DocumentCheck checkText(const QByteArray &text, const TESSEL::ReadingLimits &limits,
                        const QString &expectedKind, Findings ofBytes)
{
    ParsedDocument document;
    try {
        document = documentOf(text, limits, expectedKind);
    } catch (const DocumentError &error) {
        DocumentCheck check = failedCheck(error);
        TextPositions positions(text);
        auto place = check.findings.begin();
        for (FindingData &finding : ofBytes) {
            const TextPosition position = positions.at(finding.offset);
            place = check.findings.insert(place, {std::move(finding), position}) + 1;
        }
        return check;
    }
    return checkDocument(std::move(document), std::move(ofBytes));
}

DocumentCheck checkDocument(ParsedDocument document, Findings ofBytes)
{
    const XmlTree &tree = document.tree;
    Findings findings = std::move(ofBytes);
    append(findings, std::move(document.findings));
    std::optional<Rejection> rejection = std::move(document.rejection);
    const bool isRead = !rejection;
    if (tree.isBroken())
        findings.push_back(breakOf(tree));
    if (isRead) {
        rejection = checkObject(document);
        if (document.kind->lint)
            append(findings, document.kind->lint(*document.object, tree));
        append(findings, implausible(*document.kind, *document.object, tree));
    }
    if (rejection && !isTold(*rejection, findings))
        findings.push_back(errorOf(*rejection, Words::OfLibrary));
    std::stable_sort(findings.begin(), findings.end(),
                     [](const FindingData &a, const FindingData &b) { return a.offset < b.offset; });

    DocumentCheck check{!rejection, document.kind, document.isComplete};
    if (!rejection)
        check.state = stateOf(*document.kind, *document.object);
    if (isRead)
        check.object = std::move(document.object);
    if (findings.empty())
        return check;
    TextPositions positions(document.text);
    check.findings.reserve(findings.size());
    for (FindingData &finding : findings) {
        const TextPosition position = positions.at(finding.offset);
        check.findings.push_back({std::move(finding), position});
    }
    return check;
}

FindingData errorOf(const Rejection &rejection, Words words)
{
    const QString complaint = words == Words::OfLibrary ? rejection.message : QString();
    return {rejection.offset, rejection.message, {}, rejection.id, Severity::Error, {}, {},
            complaint,        rejection.limit};
}

DocumentCheck failedCheck(const DocumentError &error)
{
    FindingData finding = errorOf({error.message, error.offset, error.id, error.limit}, Words::OfInspection);
    finding.allowed = error.allowed;
    finding.suggestion = error.otherName;
    if (!error.otherName.isEmpty())
        finding.correction = Finding::Correction::Name;
    DocumentCheck check;
    check.findings.push_back({std::move(finding), error.position});
    return check;
}

} // namespace KORMAK::Inspection
