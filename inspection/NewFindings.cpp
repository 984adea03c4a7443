#include "inspection/NewFindings_p.h"

#include <map>
#include <tuple>

namespace KORMAK::Inspection {

namespace {

using PlacedFinding = DocumentCheck::PlacedFinding;

/// Tells findings apart in whatever text they are.
using Key = std::tuple<FormerPlaces::Place, QString, QString, QString>;

/// The end of the path that tells what is missing, or the attribute: of elements the place tells which it is,
/// though those that they stand in be called otherwise.
QString lastStep(const QString &path)
{
    const QString step = path.section(QLatin1Char('/'), -1);
    return step.section(QLatin1Char('['), 0, 0);
}

Key keyOf(const PlacedFinding &one, const FormerPlaces &places)
{
    const FindingData &finding = one.finding;
    return {one.position ? places.of(finding.offset) : FormerPlaces::Place(-1, 0), finding.id.toString(),
            lastStep(finding.path), finding.gist.isEmpty() ? finding.message : finding.gist};
}

} // namespace

std::vector<PlacedFinding> newFindings(const PatchedCheck &after, const PatchedCheck &before)
{
    std::map<Key, int> warnings;
    std::map<Key, int> errors;
    const FormerPlaces placesBefore(before.patches);
    for (const PlacedFinding &one : before.check.findings)
        ++(one.finding.severity == Severity::Error ? errors : warnings)[keyOf(one, placesBefore)];
    const auto takeFrom = [](std::map<Key, int> &known, const Key &key) {
        const auto found = known.find(key);
        return found != known.end() && found->second-- > 0;
    };
    const FormerPlaces placesAfter(after.patches);
    std::vector<PlacedFinding> added;
    for (const PlacedFinding &one : after.check.findings) {
        const Key key = keyOf(one, placesAfter);
        const bool isWarning = one.finding.severity != Severity::Error;
        if (!(isWarning && takeFrom(warnings, key)) && !takeFrom(errors, key))
            added.push_back(one);
    }
    return added;
}

} // namespace KORMAK::Inspection
