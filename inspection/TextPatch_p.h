// Changes of spans of a text, all given by their places in the original.
#ifndef KORMAK_INSPECTION_TEXTPATCH_P_H
#define KORMAK_INSPECTION_TEXTPATCH_P_H

#include <QByteArray>

#include <utility>
#include <vector>

namespace KORMAK::Inspection {

struct TextPatch {
    qsizetype begin;
    qsizetype end;
    QByteArray text;
};

/// Orders \a patches by their places; those at one place stay in their order. False when two overlap.
[[nodiscard]] bool arrange(std::vector<TextPatch> &patches);

/// \a text with \a patches, which are arranged.
[[nodiscard]] QByteArray patched(const QByteArray &text, const std::vector<TextPatch> &patches);

/// Where that stood in the original what stands in the text with patches, which are arranged.
class FormerPlaces {
public:
    /// The offset in the original, and 0; of what was inserted the place of the patch, and where it stands in
    /// that, from 1.
    using Place = std::pair<qsizetype, qsizetype>;

    /// \a patches stay where they are.
    explicit FormerPlaces(const std::vector<TextPatch> &patches);

    [[nodiscard]] Place of(qsizetype offset) const;

private:
    const std::vector<TextPatch> &patches;
    std::vector<qsizetype> begins; ///< of the patches, in the text with them
};

} // namespace KORMAK::Inspection

#endif
