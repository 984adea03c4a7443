#include "inspection/TextPatch_p.h"

#include <objectbase/QtCompat_p.h>

#include <algorithm>
#include <iterator>

namespace KORMAK::Inspection {

bool arrange(std::vector<TextPatch> &patches)
{
    // What is inserted goes before what is replaced from there on.
    std::stable_sort(patches.begin(), patches.end(), [](const TextPatch &a, const TextPatch &b) {
        return a.begin != b.begin ? a.begin < b.begin : a.end == a.begin && b.end != b.begin;
    });
    return std::adjacent_find(patches.begin(), patches.end(),
                              [](const TextPatch &a, const TextPatch &b) { return a.end > b.begin; })
        == patches.end();
}

QByteArray patched(const QByteArray &text, const std::vector<TextPatch> &patches)
{
    QByteArray result;
    qsizetype at = 0;
    const auto copyTo = [&](qsizetype end) {
        result.append(text.constData() + at, static_cast<TESSEL::TextSize>(end - at));
    };
    for (const TextPatch &patch : patches) {
        copyTo(patch.begin);
        result += patch.text;
        at = patch.end;
    }
    copyTo(text.size());
    return result;
}

FormerPlaces::FormerPlaces(const std::vector<TextPatch> &arranged) : patches(arranged)
{
    qsizetype growth = 0;
    for (const TextPatch &patch : patches) {
        begins.push_back(patch.begin + growth);
        growth += patch.text.size() - (patch.end - patch.begin);
    }
}

FormerPlaces::Place FormerPlaces::of(qsizetype offset) const
{
    const auto next = std::upper_bound(begins.begin(), begins.end(), offset);
    if (next == begins.begin())
        return {offset, 0};
    const auto last = std::prev(next);
    const TextPatch &patch = patches[static_cast<std::size_t>(last - begins.begin())];
    const qsizetype within = offset - *last;
    return within < patch.text.size() ? Place(patch.begin, within + 1)
                                      : Place(patch.end + within - patch.text.size(), 0);
}

} // namespace KORMAK::Inspection
