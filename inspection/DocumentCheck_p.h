// The check of a text: everything there is to tell about it, and what the library makes of it.
#ifndef KORMAK_INSPECTION_DOCUMENTCHECK_P_H
#define KORMAK_INSPECTION_DOCUMENTCHECK_P_H

#include <inspection/FindingData_p.h>
#include <inspection/ParsedDocument_p.h>
#include <inspection/TextPosition_p.h>

#include <QByteArray>
#include <QString>

#include <memory>
#include <optional>
#include <vector>

namespace KORMAK::Inspection {

struct DocumentCheck {
    struct PlacedFinding {
        FindingData finding;
        std::optional<TextPosition> position; ///< nothing when it is not about a place
    };

    bool isAccepted = false; ///< by the library
    const DocumentKind *kind = nullptr; ///< null when it is not known
    bool isComplete = false;
    QString state = {}; ///< of a document that is accepted: what it is, and whether it is complete
    std::vector<PlacedFinding> findings = {}; ///< in the order of the document
    std::unique_ptr<TESSEL::ITesselObject> object = nullptr; ///< null when the text is not read to its end
};

/// All that there is to tell about the checked \a text, and whether the library accepts it. \a ofBytes has
/// been told of the bytes that it was made of.
[[nodiscard]] DocumentCheck checkText(const QByteArray &text, const TESSEL::ReadingLimits &limits = {},
                                      const QString &expectedKind = {}, Findings ofBytes = {});

/// All that there is to tell about the \a document.
[[nodiscard]] DocumentCheck checkDocument(ParsedDocument document, Findings ofBytes = {});

/// In whose words a rejection says why; those of the library are the complaint of its finding, too.
enum class Words { OfLibrary, OfInspection };
[[nodiscard]] FindingData errorOf(const Rejection &rejection, Words words);

/// The outcome for a document that cannot be used.
[[nodiscard]] DocumentCheck failedCheck(const DocumentError &error);

} // namespace KORMAK::Inspection

#endif
