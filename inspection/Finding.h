#ifndef KORMAK_INSPECTION_FINDING_H
#define KORMAK_INSPECTION_FINDING_H

#include <inspection/inspection_export.h>

#include <QString>
#include <QStringList>
#include <QStringView>

#include <memory>

QT_BEGIN_NAMESPACE
class QDebug;
QT_END_NAMESPACE

namespace KORMAK {

/// What kinds of findings there are; Finding::GetId() gives one of these.
///
/// \snippet docs/InspectionSnippetsTest.cpp FindingId
namespace FindingId {

/// A text does not say what belongs there.
inline constexpr QStringView BadValue = u"bad-value";
/// The document is more than the limits allow; Finding::GetLimit() tells which.
inline constexpr QStringView BeyondLimit = u"beyond-limit";
/// The declaration of the document says another encoding than UTF-8, which it is read in.
inline constexpr QStringView DeclaredEncoding = u"declared-encoding";
/// The text is not UTF-8, or holds a NUL. The message says in which encoding it seems to be.
inline constexpr QStringView Encoding = u"encoding";
/// Something in the text that a rewritten document would not hold.
inline constexpr QStringView Lost = u"lost";
/// A comment that a rewritten document would not hold.
inline constexpr QStringView LostComment = u"lost-comment";
/// An element stands within a text.
inline constexpr QStringView MisplacedElement = u"misplaced-element";
/// An attribute is missing.
inline constexpr QStringView MissingAttribute = u"missing-attribute";
/// An element is missing.
inline constexpr QStringView MissingElement = u"missing-element";
/// A change of the text of a document cannot be made; the path is that of the field.
inline constexpr QStringView NotEdited = u"not-edited";
/// A field would not be read from the written document as it is; the path is that of the field.
inline constexpr QStringView NotReadBack = u"not-read-back";
/// The text is not well-formed XML.
inline constexpr QStringView NotWellFormed = u"not-well-formed";
/// The library refuses the document, for a reason that it tells in its own words.
inline constexpr QStringView Refused = u"refused";
/// An element is given more than once.
inline constexpr QStringView Repeated = u"repeated";
/// The document is of another kind than the one that was expected.
inline constexpr QStringView OtherKind = u"other-kind";
/// A text stands where none is read.
inline constexpr QStringView StrayText = u"stray-text";
/// What is there is allowed, but is hardly meant.
inline constexpr QStringView Suspicious = u"suspicious";
/// \name Suspicious values
/// What is there is allowed, but implausible; \ref inspection_plausibility has the rules.
/// @{
inline constexpr QStringView SuspiciousAntenna = u"suspicious-antenna";
inline constexpr QStringView SuspiciousArea = u"suspicious-area";
inline constexpr QStringView SuspiciousAzimuth = u"suspicious-azimuth";
inline constexpr QStringView SuspiciousCreation = u"suspicious-creation";
inline constexpr QStringView SuspiciousLatitude = u"suspicious-latitude";
inline constexpr QStringView SuspiciousLongitude = u"suspicious-longitude";
inline constexpr QStringView SuspiciousRange = u"suspicious-range";
inline constexpr QStringView SuspiciousVersion = u"suspicious-version";
/// @}
/// There is no such attribute.
inline constexpr QStringView UnknownAttribute = u"unknown-attribute";
/// There is no such element.
inline constexpr QStringView UnknownElement = u"unknown-element";
/// The document is of a kind that is not known.
inline constexpr QStringView UnknownKind = u"unknown-kind";
/// An element or attribute is known, but ignored.
inline constexpr QStringView Unread = u"unread";
/// A file or device cannot be read.
inline constexpr QStringView Unreadable = u"unreadable";
/// The document is not written, or the file cannot be.
inline constexpr QStringView Unwritten = u"unwritten";

} // namespace FindingId

namespace Inspection {
struct FindingData;
struct FindingMaker;
struct TextPosition;
} // namespace Inspection

/// Something to tell about a document and, where it was made of text, about a place in it. A value; copies
/// share their data.
///
/// \snippet docs/InspectionSnippetsTest.cpp Finding
class INSPECTION_EXPORT Finding {
public:
    /// How much it matters.
    enum class Severity : qint32 {
        Warning, ///< the library accepts the document, but reads what is there not as it looks, or it is
                 ///< suspicious
        Error, ///< the library refuses the document for it
    };

    /// Which of the reading limits a document goes beyond.
    enum class Limit : qint32 {
        None, ///< it is not about a limit
        Attributes, ///< TESSEL::ReadingLimits::GetAttributes()
        Depth, ///< TESSEL::ReadingLimits::GetDepth()
        Entities, ///< TESSEL::ReadingLimits::GetEntityCharacters() and GetEntityFactor()
    };

    /// What GetSuggestion() is to be done with.
    enum class Correction : qint32 {
        None, ///< there is no suggestion
        Text, ///< it takes the place of the text that was found, in the element or attribute
        Name, ///< the element, but for its prefix, or attribute is to be called so
        Element, ///< it is the text of an element called as the attribute, which goes in the attribute's
                 ///< place
    };

    /// A warning without an id or message.
    Finding();
    /// An error that tells why the field called \a path was not changed, for programs that refuse a change
    /// themselves: FindingId::NotEdited, with \a message, and without a place.
    [[nodiscard]] static Finding NotEdited(const QString &path, const QString &message);

    /// Whether the library refuses the document for it.
    [[nodiscard]] Severity GetSeverity() const noexcept;
    /// What it is about, for programs: one of FindingId.
    [[nodiscard]] QString GetId() const;
    /// What it is about, for people: a sentence without path and place. Texts of the document stand in it
    /// between quotation marks, cut when they are long and without characters that could steer a terminal.
    /// Where a name differs from allowed ones by a letter, asks whether those were meant.
    [[nodiscard]] QString GetMessage() const;
    /// The element or attribute that it is about, from the root: "Job/JobHeader/Author",
    /// "GenericReceiver/Parameter[Gain]/@UniqueName". Empty when it is about the document as a whole. Where
    /// something is missing, the path that it would have.
    [[nodiscard]] QString GetPath() const;
    /// The field or the object that it is about, as FieldNode::GetPathInFindings() calls it:
    /// "JobHeader.Author" for the path "Job/JobHeader/Author".
    [[nodiscard]] QString GetFieldPath() const;

    /// Whether it is about a place in a text.
    [[nodiscard]] bool HasPlace() const noexcept;
    /// The place in bytes from 0, as they were given; -1 without a place.
    [[nodiscard]] qint64 GetOffset() const noexcept;
    /// The line of the place, from 1; 0 without a place.
    [[nodiscard]] qint64 GetLine() const noexcept;
    /// The column of the place in characters, from 1; 0 without a place. A byte order mark does not count.
    [[nodiscard]] qint64 GetColumn() const noexcept;

    /// Whether there is a text that it is about.
    [[nodiscard]] bool HasFound() const noexcept;
    /// The text that is there, as the document has it; empty when HasFound() is false.
    [[nodiscard]] QString GetFound() const;
    /// The names that could be there; empty when they cannot be listed.
    [[nodiscard]] QStringList GetAllowed() const;
    /// What puts it right for certain: a name that differs in case, or by one letter that is neither a
    /// capital nor a digit, if there is only one such name and nothing else that says the same; a number with
    /// a point for its comma; a time that says its zone, in the form of documents. Empty when nothing is
    /// certain, as where a comma may stand between thousands.
    [[nodiscard]] QString GetSuggestion() const;
    /// What is to be done with the suggestion.
    [[nodiscard]] Correction GetCorrection() const noexcept;
    /// What the library itself says when it refuses the document for this; empty when it says nothing of its
    /// own.
    [[nodiscard]] QString GetComplaint() const;
    /// The limit that the document goes beyond.
    [[nodiscard]] Limit GetLimit() const noexcept;

    /// Everything is equal, the place included.
    [[nodiscard]] bool operator==(const Finding &other) const;
    [[nodiscard]] bool operator!=(const Finding &other) const { return !(*this == other); }

private:
    friend struct Inspection::FindingMaker;
    struct Private;

    INSPECTION_NO_EXPORT explicit Finding(std::shared_ptr<const Private> content);
    [[nodiscard]] INSPECTION_NO_EXPORT const Private &data() const;

    std::shared_ptr<const Private> d; // null: of the default
};

/// Writes the name of \a value, or its number when it has none.
INSPECTION_EXPORT QDebug operator<<(QDebug debug, Finding::Severity value);

/// Writes the name of \a value, or its number when it has none.
INSPECTION_EXPORT QDebug operator<<(QDebug debug, Finding::Limit value);

/// Writes the name of \a value, or its number when it has none.
INSPECTION_EXPORT QDebug operator<<(QDebug debug, Finding::Correction value);

/// Writes severity, id, line and column, path and message, in a line.
INSPECTION_EXPORT QDebug operator<<(QDebug debug, const Finding &finding);

} // namespace KORMAK

#endif
