#ifndef KORMAK_INSPECTION_DOCUMENT_H
#define KORMAK_INSPECTION_DOCUMENT_H

#include <inspection/Difference.h>
#include <inspection/Field.h>
#include <inspection/FieldNode.h>
#include <inspection/Finding.h>
#include <inspection/inspection_export.h>
#include <objectbase/ITesselObject.h>
#include <objectbase/ReadingLimits.h>

#include <QByteArray>
#include <QPair>
#include <QString>
#include <QVector>

#include <memory>
#include <optional>

QT_BEGIN_NAMESPACE
class QDebug;
class QIODevice;
QT_END_NAMESPACE

namespace KORMAK {

/// A document that is made of a text or of an object, with everything that there is to tell about it.
///
/// \snippet docs/InspectionSnippetsTest.cpp Document
///
/// A value: copies share their data until one of them changes. Documents in different threads do not touch
/// each other, whether they are copies or not. Nothing but the operations that say so throws, except for
/// std::bad_alloc.
class INSPECTION_EXPORT Document {
public:
    /// The path of a field and the text that it is set to.
    using Setting = QPair<QString, QString>;

    /// No document: of no kind, without an object, findings or fields.
    Document();
    /// The document that \a text is, all of it: what is wrong with it, GetFindings() tells. A byte order mark
    /// and the name of an encoding in the XML declaration are ignored; the text must be UTF-8. What goes
    /// beyond \a limits is refused.
    explicit Document(const QByteArray &text, const TESSEL::ReadingLimits &limits = {});
    /// The document that \a object is, which is copied, as an object of the class that belongs to its kind.
    /// An object that DocumentKindOf() knows no kind of makes a document without an object, with a finding
    /// that says so.
    explicit Document(const TESSEL::ITesselObject &object);
    /// \name Reading
    /// The whole document or nothing of it: never into an object that another document has filled. What is
    /// wrong, GetFindings() tells; there is an object exactly when the text can be read to its end. With \a
    /// kind, one of GetDocumentKinds(), a document of another kind is an error; empty: any will do.
    /// @{
    [[nodiscard]] static Document Read(const QByteArray &text, const QString &kind = {},
                                       const TESSEL::ReadingLimits &limits = {});
    /// All that stands in \a device from its position on. \a device must be open for reading.
    [[nodiscard]] static Document Read(QIODevice &device, const QString &kind = {},
                                       const TESSEL::ReadingLimits &limits = {});
    /// The file \a path.
    [[nodiscard]] static Document ReadFile(const QString &path, const QString &kind = {},
                                           const TESSEL::ReadingLimits &limits = {});
    /// @}
    /// A document of the kind called \a kind as the library makes one: with all defaults, and not complete as
    /// a rule.
    /// \throws TESSEL::TesselException that lists the kinds when there is no such one
    [[nodiscard]] static Document New(const QString &kind);

    /// One of GetDocumentKinds(); empty when the kind is not known.
    [[nodiscard]] QString GetKind() const;
    /// Whether the library accepts the document: it reads its text to the end, Check() passes, and nothing in
    /// it is beyond XML. An accepted document need not be complete.
    [[nodiscard]] bool IsAccepted() const;
    /// Whether everything mandatory is there. Of a text that is refused, what was read until then counts.
    [[nodiscard]] bool IsComplete() const;
    /// What it is and whether it is complete and, if not, why, in one line for people: "Job, not complete:
    /// JobHeader: Please set Author". Of a text that is not read to its end, the first error; of no document,
    /// empty.
    [[nodiscard]] QString GetState() const;

    /// Everything that there is to tell about it, whether it is accepted or not: there is an error among them
    /// exactly when it is not. Of a text, all have a place and stand in their order; of an object, none has
    /// a place, and each field that is missing is told, not only the one that Check() asks for. Once a field
    /// is set, the document is that of its object.
    [[nodiscard]] QVector<Finding> GetFindings() const;
    /// What would get lost if the document were written: what the text that it was made of says and the
    /// library does not write, with places, whatever fields have been set since; and, where it is made of an
    /// object or a field has been set, fields that are not read back as they are. When it would not be
    /// written at all, errors say why, and nothing else is told.
    [[nodiscard]] QVector<Finding> GetLosses() const;

    /// Writes the object to the file \a path as SaveXml() does, all of it or nothing.
    /// \return empty when it is written, else errors: everything that keeps it from being written, the
    /// parameter of a receiver that is not complete, for example, or what is wrong with the file
    [[nodiscard]] QVector<Finding> SaveFile(const QString &path) const;
    /// Everything that keeps the object from being written, be it to a file or in a binary form, as errors;
    /// empty when nothing does.
    [[nodiscard]] QVector<Finding> GetWriteErrors() const;

    /// The object of the document, null when the text is not read to its end or is of no known kind. It is
    /// there until this document is changed, assigned to or destroyed, and no copy of it is left.
    [[nodiscard]] const TESSEL::ITesselObject *GetObject() const noexcept;

    /// A copy of the object; nothing when there is none or it is of another class.
    template <class Class>
    [[nodiscard]] std::optional<Class> Get() const
    {
        const auto *const object = dynamic_cast<const Class *>(GetObject());
        return object ? std::optional<Class>(*object) : std::nullopt;
    }

    /// All fields that the document has at the moment, also those that are not set; none without an object.
    /// Fields that belong to a type of parameter, for example, are there for parameters of that type.
    [[nodiscard]] QVector<Field> GetFields() const;
    /// The field called \a path, as GetFields() calls it.
    /// \throws TESSEL::TesselException when the document has no such field at the moment
    [[nodiscard]] Field GetField(const QString &path) const;
    /// The tree of the fields, one level at a time: what is directly below \a path, in the order of
    /// GetFields(); an empty \a path is the document itself. Empty where nothing is.
    [[nodiscard]] QVector<FieldNode> GetNodes(const QString &path = {}) const;
    /// Sets the field called \a path to what \a text says, as Field::GetText() says it. Also adds what is not
    /// there yet: the parameter that is named between brackets, the element of a list behind its last one,
    /// and, without brackets, a whole element: "Area.Coordinate" to "52.1,13.4".
    /// \throws TESSEL::TesselException that says what is allowed when there is no such field, no setter
    /// reaches it, or the text is refused; the document is then as it was
    void SetField(const QString &path, const QString &text);
    /// Sets several fields, each at most once, in whatever order they are to be set: the type of a parameter
    /// before what depends on it.
    /// \throws TESSEL::TesselException as SetField(); the document is then as it was
    void SetFields(const QVector<Setting> &settings);

    /// In which fields \a a and \a b differ, in the order of the fields. Parameters are matched by their
    /// names, elements of lists by their places; NaN equals NaN.
    /// \throws TESSEL::TesselException when one has no object, or when they are of different kinds
    [[nodiscard]] static QVector<Difference> Compare(const Document &a, const Document &b);
    /// Whether the objects are equal by the operator of their class, which leaves out some fields, and for
    /// which NaN equals nothing.
    /// \throws TESSEL::TesselException as Compare()
    [[nodiscard]] static bool AreEqualObjects(const Document &a, const Document &b);

    /// The findings in JSON, an object in each line, and a last one that sums up: as `kormak check --format
    /// json` tells them of the file called \a file.
    [[nodiscard]] QByteArray GetFindingsJson(const QString &file) const;
    /// What GetLosses() tells in JSON, an object in each line, as GetFindingsJson().
    [[nodiscard]] QByteArray GetLossesJson(const QString &file) const;
    /// Kind, state and all fields in JSON, and in "documentSays" the texts, by the paths of their fields,
    /// that say something else than what is understood: as `kormak show --format json` tells them of a
    /// document that is read to its end. Empty without an object. Once a field is set, no text counts.
    [[nodiscard]] QByteArray GetFieldsJson() const;
    /// What Compare() and AreEqualObjects() tell in JSON: as `kormak diff --format json`.
    /// \throws TESSEL::TesselException as Compare()
    [[nodiscard]] static QByteArray GetDifferencesJson(const Document &a, const Document &b);

private:
    struct Private;

    INSPECTION_NO_EXPORT explicit Document(std::shared_ptr<const Private> content);
    [[nodiscard]] INSPECTION_NO_EXPORT static Document unreadable(const QString &reason);
    [[nodiscard]] INSPECTION_NO_EXPORT const Private &data() const;

    std::shared_ptr<const Private> d; // null: no document
};

/// Writes kind and state and, where there is an object, all fields that are set, in a line.
INSPECTION_EXPORT QDebug operator<<(QDebug debug, const Document &document);

} // namespace KORMAK

#endif
