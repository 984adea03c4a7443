// Documents in memory: their text, their kind, their object, or what is wrong and where.
#ifndef KORMAK_INSPECTION_PARSEDDOCUMENT_P_H
#define KORMAK_INSPECTION_PARSEDDOCUMENT_P_H

#include <inspection/DocumentKind_p.h>
#include <inspection/DocumentWalk_p.h>
#include <inspection/TextPosition_p.h>
#include <objectbase/ITesselObject.h>
#include <objectbase/ReadingLimits.h>

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QStringView>

#include <memory>
#include <optional>

namespace KORMAK::Inspection {

struct ParsedDocument {
    QByteArray text; ///< in UTF-8
    XmlTree tree; ///< of the text
    const DocumentKind *kind = nullptr;
    std::unique_ptr<TESSEL::ITesselObject> object; ///< of the kind; what the library would have read, or more
    Findings findings = {}; ///< what is wrong with the text, but for where it breaks off
    std::optional<Rejection> rejection = std::nullopt; ///< what the library would not have read on for
    bool isComplete = false; ///< what it would have read
};

/// Why a document cannot be used. Without a position it is not the document that is at fault: it cannot be
/// read at all.
struct DocumentError {
    QString message;
    std::optional<TextPosition> position = std::nullopt;
    QStringView id = FindingId::Unreadable;
    QStringList allowed = {}; ///< the names that could be there
    ReadingLimit limit = ReadingLimit::None;
    qsizetype offset = 0; ///< of the position
    QString otherName =
        {}; ///< what the root element is to be called, but for its prefix; null: nothing is certain
};

/// Of the mark that \a bytes begin with; 0 without one.
[[nodiscard]] qsizetype byteOrderMarkSize(const QByteArray &bytes);
/// The index of the first byte that does not belong to a character in UTF-8, or the size when all do. Qt
/// itself would put a replacement character there and say nothing.
[[nodiscard]] qsizetype firstByteOutsideUtf8(const QByteArray &bytes);

/// \a bytes as the text of a document: UTF-8 without a mark, without a NUL, and with no encoding declared.
/// \a findings take what there is to tell of the bytes; null: nobody asks.
/// \throws DocumentError for anything that Qt would replace or stop at without a word
[[nodiscard]] QByteArray checkedText(QByteArray bytes, Findings *findings = nullptr);
/// The document that the checked \a text is. \throws DocumentError when it goes beyond the limits before it
/// is read, has no root element, is of no known kind or, if one is expected, of another
[[nodiscard]] ParsedDocument documentOf(const QByteArray &text, const TESSEL::ReadingLimits &limits,
                                        const QString &expectedKind = {});
/// What Check() says of \a document.
[[nodiscard]] std::optional<Rejection> checkObject(const ParsedDocument &document);

/// \throws DocumentError what \a rejection says of \a text
[[noreturn]] void throwRejection(const Rejection &rejection, const QByteArray &text);

/// Whether \a object of \a kind is complete and, if not, why: "Job, not complete: JobHeader: Please set
/// Author"
[[nodiscard]] QString stateOf(const DocumentKind &kind, const TESSEL::ITesselObject &object);

} // namespace KORMAK::Inspection

#endif
