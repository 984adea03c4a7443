// Changes of spans of a text, all given by their places in the original.
#ifndef KORMAK_INSPECTION_TEXTPATCH_P_H
#define KORMAK_INSPECTION_TEXTPATCH_P_H

#include <QByteArray>

#include <optional>
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

} // namespace KORMAK::Inspection

#endif
