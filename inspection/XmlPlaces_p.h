// Where things stand in the text of an XML document, as offsets in bytes of its UTF-8.
#ifndef KORMAK_INSPECTION_XMLPLACES_P_H
#define KORMAK_INSPECTION_XMLPLACES_P_H

#include <QBuffer>
#include <QByteArray>
#include <QString>
#include <QStringView>
#include <QXmlStreamReader>

#include <optional>
#include <vector>

namespace KORMAK::Inspection {

/// Reads a document, a piece at a time, and tells where in it the reader is.
class PlacedReader {
public:
    /// \a utf8: declares no other encoding; see withoutEncoding().
    explicit PlacedReader(QByteArray utf8);

    [[nodiscard]] QXmlStreamReader &xml() noexcept { return reader; }

    /// Behind what was read.
    [[nodiscard]] qsizetype offset();
    /// Where the token begins that the reader stands on: a start element, a comment, a processing instruction
    /// or a document type.
    [[nodiscard]] qsizetype startOfToken();
    /// What the reader has come upon that made it give up.
    [[nodiscard]] qsizetype placeOfError();

    struct NamePlace {
        QString name;
        qsizetype offset;
    };
    /// The names of the attributes in the start tag that the reader stands on, namespace declarations
    /// included, as they stand there. Empty when the tag stands in an entity.
    [[nodiscard]] std::vector<NamePlace> attributesInTag();

private:
    const QByteArray text;
    QBuffer device;
    QXmlStreamReader reader;
    const qsizetype begin;
    const bool isAscii; ///< each character is a byte
    qsizetype place; ///< that `units` code units lie before
    qint64 units = 0;
    qsizetype lastStart = 0;
    qsizetype lastEnd = 0; ///< of what was looked through for the starts of tokens
};

/// What an XML declaration says of the encoding.
struct DeclaredEncoding {
    qsizetype begin; ///< behind the version
    qsizetype end;
    QByteArray name; ///< as it is written
    qsizetype place; ///< of the name
};

/// Nothing when \a text declares none, or none that is known. It need not be UTF-8.
[[nodiscard]] std::optional<DeclaredEncoding> declaredEncoding(const QByteArray &text);

/// \a utf8 with blanks in the place of the encoding that its XML declaration tells, if it does: the text is
/// UTF-8, whatever it was before.
[[nodiscard]] QByteArray withoutEncoding(QByteArray utf8);

/// The element that a reader of \a utf8 was in, or had just left, when it had come to \a offset.
[[nodiscard]] qsizetype elementReadAt(const QByteArray &utf8, qsizetype offset);

} // namespace KORMAK::Inspection

#endif
