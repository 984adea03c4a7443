// Something to tell about a place in a document, while it is put together; Finding is what callers get.
#ifndef KORMAK_INSPECTION_FINDINGDATA_P_H
#define KORMAK_INSPECTION_FINDINGDATA_P_H

#include <inspection/Finding.h>
#include <inspection/TextPosition_p.h>

#include <QString>
#include <QStringList>
#include <QStringView>

#include <optional>
#include <vector>

namespace KORMAK::Inspection {

using Severity = Finding::Severity;
using ReadingLimit = Finding::Limit;

struct FindingData {
    qsizetype offset; ///< in the text of the document
    QString message;
    QString path = {}; ///< of the element or attribute that it is about; empty: none
    QStringView id = FindingId::Suspicious;
    Severity severity = Severity::Warning;
    std::optional<QString> found = std::nullopt; ///< the text that is there
    QStringList allowed = {}; ///< the names that could be there
    QString complaint = {}; ///< what the library says when it refuses the document for this
    ReadingLimit limit = ReadingLimit::None; ///< that the document goes beyond
    Finding::Correction correction = Finding::Correction::None;
    QString suggestion = {}; ///< what the correction puts there
    QStringView vocabulary = {}; ///< that the allowed names are; null: none
    QString unknownName = {}; ///< of the element or attribute, when it is not known
    /// What of the message says which fault it is, where it also quotes what may change without it: the names
    /// of entries that have one key. Empty: all of it.
    QString gist = {};
    bool isContradiction = false; ///< to something else in the document, of which only one counts
    bool isInherent = false; ///< every document that says the same has it: it is told, but nobody's fault
};

using Findings = std::vector<FindingData>;

struct FindingMaker {
    /// \a position: nothing when it is not about a place. \a skipped bytes stood before the text.
    [[nodiscard]] static Finding made(FindingData data, const std::optional<TextPosition> &position,
                                      qsizetype skipped);
    /// Why a change of the field at \a path, or of the whole document, cannot be made.
    [[nodiscard]] static Finding notEdited(const QString &message, const QString &path = {});
    [[nodiscard]] static const FindingData &contentOf(const Finding &finding);
    [[nodiscard]] static const std::optional<TextPosition> &positionOf(const Finding &finding);
};

} // namespace KORMAK::Inspection

#endif
