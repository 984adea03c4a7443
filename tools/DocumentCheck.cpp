#include "tools/DocumentCheck.h"

#include <tools/DocumentFile.h>
#include <tools/FormProblems.h>

#include <algorithm>
#include <new>

namespace {

Finding breakOf(const XmlTree &tree)
{
    const XmlTree::Break &broken = *tree.broken();
    return {broken.offset, broken.message, tree.path(broken.element), FindingId::NotWellFormed,
            Severity::Error};
}

/// A finding tells of the refusal when the library says what it says, or when it is an error at that place.
bool isTold(const Rejection &rejection, const Findings &findings)
{
    return std::any_of(findings.begin(), findings.end(), [&rejection](const Finding &finding) {
        return finding.severity == Severity::Error
            && (finding.complaint == rejection.message
                || (finding.complaint.isEmpty() && finding.offset == rejection.offset));
    });
}

void append(Findings &findings, Findings more)
{
    std::move(more.begin(), more.end(), std::back_inserter(findings));
}

FileCheck failed(const QString &path, const DocumentError &error)
{
    const Finding finding{0, error.message, {}, error.id, Severity::Error, {}, error.allowed};
    return {path, error.position ? Faulty : Failed, nullptr, false, {}, {{finding, error.position}}};
}

} // namespace

FileCheck unreadable(const QString &path, const QString &reason)
{
    return failed(path, {reason});
}

FileCheck checkFile(const QString &path, const TESSEL::ReadingLimits &limits)
{
    try {
        return checkText(path, readText(path), limits);
    } catch (const DocumentError &error) {
        return failed(path, error);
    } catch (const std::bad_alloc &) {
        return unreadable(path, NotEnoughMemory.toString());
    }
}

FileCheck checkText(const QString &path, const SourceText &text, const TESSEL::ReadingLimits &limits)
{
    Document document;
    try {
        document = documentOf(text, XmlTree::Extent::Whole, limits);
    } catch (const DocumentError &error) {
        return failed(path, error);
    }
    const XmlTree &tree = document.tree;
    Findings findings = findProblems(tree, document.kind->form(tree));
    std::optional<Rejection> rejection = readObject(document);
    if (tree.isBroken())
        findings.push_back(breakOf(tree));
    if (!rejection) {
        rejection = checkObject(document);
        if (document.kind->lint)
            append(findings, document.kind->lint(*document.object, tree));
    }
    if (rejection && !isTold(*rejection, findings)) {
        findings.push_back({rejection->offset,
                            rejection->message,
                            {},
                            rejection->id,
                            Severity::Error,
                            {},
                            {},
                            rejection->message});
    }
    std::stable_sort(findings.begin(), findings.end(),
                     [](const Finding &a, const Finding &b) { return a.offset < b.offset; });

    FileCheck check{path, rejection ? Faulty : Good, document.kind, document.object->HasData()};
    if (!rejection)
        check.state = stateOf(document);
    if (findings.empty())
        return check;
    TextPositions positions(document.text);
    check.findings.reserve(findings.size());
    for (Finding &finding : findings) {
        const TextPosition position = positions.at(finding.offset);
        check.findings.push_back({std::move(finding), position});
    }
    return check;
}
