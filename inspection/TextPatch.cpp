#include "inspection/TextPatch_p.h"

#include <objectbase/QtCompat_p.h>

#include <algorithm>

namespace KORMAK::Inspection {

bool arrange(std::vector<TextPatch> &patches)
{
    std::stable_sort(patches.begin(), patches.end(),
                     [](const TextPatch &a, const TextPatch &b) { return a.begin < b.begin; });
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

} // namespace KORMAK::Inspection
