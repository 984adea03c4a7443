// Puts right in the text of a document what can be put right for certain.
#ifndef KORMAK_INSPECTION_TEXTFIX_P_H
#define KORMAK_INSPECTION_TEXTFIX_P_H

#include <inspection/Finding.h>
#include <inspection/TextPatch_p.h>
#include <objectbase/ReadingLimits.h>

#include <QByteArray>
#include <QVector>

#include <vector>

namespace KORMAK::Inspection {

struct TextFix {
    std::vector<TextPatch> patches; ///< arranged; empty: there is nothing to be put right
    QVector<Finding> corrected;
};

/// For the checked \a text, before which \a skipped bytes stood. What is put right may let more be read, and
/// put right. \throws DocumentError
[[nodiscard]] TextFix fixOf(const QByteArray &text, qsizetype skipped, const TESSEL::ReadingLimits &limits);

} // namespace KORMAK::Inspection

#endif
