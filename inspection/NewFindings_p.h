// Which findings of a changed text were not there before it was changed.
#ifndef KORMAK_INSPECTION_NEWFINDINGS_P_H
#define KORMAK_INSPECTION_NEWFINDINGS_P_H

#include <inspection/DocumentCheck_p.h>
#include <inspection/TextPatch_p.h>

#include <vector>

namespace KORMAK::Inspection {

/// What there is to tell of a text with \a patches, which are arranged.
struct PatchedCheck {
    const DocumentCheck &check;
    const std::vector<TextPatch> &patches;
};

/// The findings \a after that say something else than those \a before, say it of another place of the
/// original, or make an error of a warning.
[[nodiscard]] std::vector<DocumentCheck::PlacedFinding> newFindings(const PatchedCheck &after,
                                                                    const PatchedCheck &before);

} // namespace KORMAK::Inspection

#endif
