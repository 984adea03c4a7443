#include "tools/DocumentCheck.h"

#include <tools/DocumentFile.h>
#include <tools/LimitOptions.h>

#include <new>
#include <utility>

using namespace KORMAK::Inspection;

namespace {

/// Tells with which option more would be allowed, where a limit is met.
DocumentCheck withOptions(DocumentCheck check)
{
    for (auto &[finding, position] : check.findings) {
        finding.message = withOption(finding.message, finding.limit);
        finding.complaint = withOption(finding.complaint, finding.limit);
    }
    return check;
}

FileCheck failed(const QString &path, const DocumentError &error)
{
    return {path, error.position ? Faulty : Failed, withOptions(failedCheck(error))};
}

} // namespace

FileCheck unreadable(const QString &path, const QString &reason)
{
    return failed(path, {reason});
}

FileCheck checkFile(const QString &path, const TESSEL::ReadingLimits &limits)
{
    try {
        const SourceText source = readText(path);
        DocumentCheck check = withOptions(checkText(source.text, limits));
        check.object.reset(); // its room is needed for what is told
        return {path, check.isAccepted ? Good : Faulty, std::move(check)};
    } catch (const DocumentError &error) {
        return failed(path, error);
    } catch (const std::bad_alloc &) {
        return unreadable(path, NotEnoughMemory.toString());
    }
}
