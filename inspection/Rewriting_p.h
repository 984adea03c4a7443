// What becomes of a document when the library writes it anew.
#ifndef KORMAK_INSPECTION_REWRITING_P_H
#define KORMAK_INSPECTION_REWRITING_P_H

#include <inspection/FindingData_p.h>
#include <inspection/ParsedDocument_p.h>

#include <QByteArray>
#include <QString>

#include <optional>
#include <variant>

namespace KORMAK::Inspection {

/// The one that the library writes, or the one that is read back as the object: see ReadableForm_p.h.
enum class WrittenForm { OfLibrary, Readable };

struct Rewriting {
    /// What keeps the document from being written. If there is something, the rest is empty.
    Findings blockers = {};
    /// Why the library writes nothing for it.
    std::optional<Rejection> refusal = std::nullopt;
    QByteArray text = {}; ///< that is written
    Findings losses = {}; ///< what the document says and the text does not
};

/// The readable form is written of documents that are not complete, too, and takes up values that stand where
/// the library writes them, but does not read them. \a document has its whole tree, and its text was read.
/// Its object is gone afterwards: large documents would stand in memory many times over.
[[nodiscard]] Rewriting rewrite(ParsedDocument &document, WrittenForm form = WrittenForm::OfLibrary);

/// What \a document says and \a text does not, which is written for an object of the same kind.
[[nodiscard]] Findings lossesIn(const ParsedDocument &document, const QByteArray &text);

/// The text that is written for \a object of \a kind; why there is none as the second alternative.
[[nodiscard]] std::variant<QString, Rejection> writtenDocument(const DocumentKind &kind,
                                                               const TESSEL::ITesselObject &object);

/// What is not read from \a text, which was written for \a object, as it is in the object: at the paths of
/// the fields, without places.
[[nodiscard]] Findings notReadBack(const DocumentKind &kind, const TESSEL::ITesselObject &object,
                                   const QString &text);

} // namespace KORMAK::Inspection

#endif
