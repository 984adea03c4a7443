#ifndef TESSEL_ITESSELOBJECT_H
#define TESSEL_ITESSELOBJECT_H

#include <objectbase/objectbase_export.h>
#include <objectbase/ObjectTypes.h>

#include <QSharedDataPointer>
#include <QString>

#include <memory>

QT_BEGIN_NAMESPACE
class QByteArray;
class QDataStream;
class QDateTime;
class QDebug;
class QFile;
class QXmlStreamReader;
class QXmlStreamWriter;
QT_END_NAMESPACE

namespace TESSEL {

class DocumentTables;
class Logger;
class Nesting;
class OwnedReading;
class ReadingLimits;
struct ObjectTable;

/// Base of every document object: a named XML element with a "Version" attribute that can be checked, written
/// to XML or a binary form and read back.
///
/// \snippet docs/ObjectbaseSnippetsTest.cpp ITesselObject
///
/// A class derived from it states what is complete (HasData()), what its defaults are (Reset()), what it
/// reports (Check()) and its XML (GetXml(), ProcessXml(), ProcessXmlStartElement()); all other operations
/// work through these.
///
/// The virtual operations stand in a fixed order that compiled programs rely on: never insert, move or remove
/// one.
class OBJECTBASE_EXPORT ITesselObject {
public:
    /// An object without type and name.
    ITesselObject();
    /// An object of \a type with the name of that type.
    explicit ITesselObject(ObjectTypes type);
    ITesselObject(const ITesselObject &other);
    /// Copies type, name, validate flag, logger and reading limits.
    ITesselObject &operator=(const ITesselObject &other);

    virtual ~ITesselObject();

    /// True when the object is complete: every mandatory field holds a valid value. Only a complete object is
    /// written.
    [[nodiscard]] virtual bool HasData() const = 0;

    /// Puts every field back to its default.
    virtual void Reset() = 0;

    /// Check() when \a validate is true, nothing otherwise.
    virtual void Check(bool validate) const;

    /// Returns when the object is complete, otherwise throws a TesselException that names the first missing
    /// or invalid field. A class may let an incomplete object pass where no rule of its own catches the gap.
    virtual void Check() const = 0;

    /// \name Values that mean "set"
    /// NaN (float, double), the smallest value (int, long long), the largest value (unsigned int), an invalid
    /// date and an empty text are not valid. A bool always is.
    /// @{
    [[nodiscard]] virtual bool IsValid(float value) const;
    [[nodiscard]] virtual bool IsValid(bool value) const;
    [[nodiscard]] virtual bool IsValid(unsigned int value) const;
    [[nodiscard]] virtual bool IsValid(long long value) const;
    [[nodiscard]] virtual bool IsValid(const QDateTime &value) const;
    [[nodiscard]] virtual bool IsValid(const QString &value) const;
    [[nodiscard]] virtual bool IsValid(double value) const;
    [[nodiscard]] virtual bool IsValid(int value) const;
    /// @}

    /// \name Marking a value as not set
    /// The counterpart of IsValid().
    /// @{
    virtual void SetInvalid(float &value) const;
    virtual void SetInvalid(unsigned int &value) const;
    virtual void SetInvalid(long long &value) const;
    virtual void SetInvalid(QString &value) const;
    virtual void SetInvalid(double &value) const;
    virtual void SetInvalid(int &value) const;
    /// @}

    /// Writes the object's element; nothing at all when the object is not complete.
    virtual void GetXml(QXmlStreamWriter &writer) const = 0;

    /// Appends the binary form to \a stream. \a version is the version of the binary form that is wanted; as
    /// there is only version 1, that is the one written. With \a compress the XML in it is compressed.
    /// \return false when the object writes no element or the stream fails
    /// \throws TesselException as GetXmlString()
    [[nodiscard]] virtual bool GetBinary(QDataStream &stream, int version, bool compress) const;

    /// Reads what GetBinary() wrote, compressed or not, as if its XML was read. The version of the form is
    /// told by the data; \a version is what the caller expects and decides nothing. When the data are
    /// truncated, damaged or of an object with another name, the object stays as it was and the status of
    /// \a stream is QDataStream::ReadCorruptData.
    /// \throws TesselException as reading the XML
    virtual void SetBinary(QDataStream &stream, int version);

    /// Reads the XML document \a text into the object. Fields that the document does not mention keep their
    /// values.
    /// \return false when \a text is not well-formed up to its very end or has more elements in one another
    /// than the limits allow (what was read until then is kept), when it goes beyond another of the limits,
    /// declares an entity of more than 4096 characters or the same namespace twice in one element (the object
    /// is untouched) and, with \a validate, when the root element does not have the object's name (untouched,
    /// too) \throws TesselException for a document that the object does not understand
    [[nodiscard]] virtual bool SetXmlString(const QString &text, bool validate);

    /// Reads a binary form that fills \a data entirely.
    /// \return false when the data are truncated, damaged or of an object with another name (the object then
    /// stays as it was), and, for a form that no object wrote, as SetXmlString()
    /// \throws TesselException as reading the XML
    [[nodiscard]] virtual bool SetBinaryRepresentation(QByteArray &data);
    /// Reads a binary form from \a stream, which is left behind it.
    [[nodiscard]] virtual bool SetBinaryRepresentation(QDataStream &stream);

    /// Replaces the fields that \a other writes, as if its document was read into this object; the entries of
    /// an enumeration are replaced, too, which reading would append. An object does not change when it is
    /// merged with itself.
    /// \return false when \a other has another name or writes no element
    /// \throws TesselException as GetXmlString() of \a other and reading that text
    [[nodiscard]] virtual bool MergeTesselObject(const ITesselObject &other);

    /// ObjectTypes::Invalid for an object whose class has no type number.
    [[nodiscard]] virtual ObjectTypes GetObjectType() const;

    /// The name of the object and of its XML element; it also stands in messages.
    [[nodiscard]] virtual const QString &GetObjectName() const;

    /// Reads the object's element; \a reader stands on its start element. The base hands each child start
    /// element to ProcessXmlStartElement() and returns on the end element of the object. On malformed XML it
    /// returns early and the error stays in \a reader.
    virtual void ProcessXml(QXmlStreamReader &reader);

    /// The object as a whole XML document.
    /// \throws TesselException as Check(), and "...: Text cannot be represented in XML" when a text holds a
    /// character that XML cannot carry
    [[nodiscard]] virtual QString GetXmlString() const;

    /// Appends the binary form to \a stream; nothing when the object writes no element.
    /// \throws TesselException as GetXmlString()
    virtual void GetBinaryRepresentation(QDataStream &stream) const;
    /// The binary form; empty when the object writes no element.
    [[nodiscard]] virtual QByteArray GetBinaryRepresentationAsQByteArray();
    /// As GetBinaryRepresentation(), compressed with \a level: 0 (none) to 9 (best), -1 for the usual one.
    virtual void GetCompressedBinaryRepresentation(QDataStream &stream, int level) const;
    /// As GetBinaryRepresentationAsQByteArray(), compressed with \a level.
    [[nodiscard]] virtual QByteArray GetCompressedBinaryRepresentationAsQByteArray(int level);

    /// Reads the UTF-8 file \a path with `SetXmlString(text, true)`.
    /// \return false when the file cannot be read, and as SetXmlString()
    [[nodiscard]] virtual bool LoadXml(const QString &path);
    /// Reads from \a file, from its position when it is open, else from its start.
    [[nodiscard]] virtual bool LoadXml(QFile *file);

    /// Reads a binary form from \a file; see LoadXml() and SetBinaryRepresentation().
    [[nodiscard]] virtual bool LoadBinary(QFile *file);

    /// Writes GetXmlString() in UTF-8 to the file \a path, all or nothing.
    /// \return false when the object writes no element (no file is touched) or the file cannot be written
    /// (a file that stood there before is still there, unchanged)
    /// \throws TesselException as GetXmlString()
    [[nodiscard]] virtual bool SaveXml(const QString &path) const;

    /// A flag for applications; the library does not look at it. True at the start.
    virtual void SetValidate(bool validate) const;
    [[nodiscard]] virtual bool GetValidate() const;

    /// A logger for applications; the library logs nothing. None at the start.
    virtual void SetLogger(std::shared_ptr<Logger> logger) const;
    virtual void ResetLogger() const;

    /// The version text of the object; "1.0" unless a class keeps its own.
    [[nodiscard]] virtual const QString &GetVersion() const;

protected:
    /// For constructors of derived classes. The name of the object does not change with its type.
    virtual void SetObjectType(ObjectTypes type);
    /// For constructors of derived classes: the object is written, and expected in what is read, as an
    /// element of this name.
    virtual void SetObjectName(const QString &name);

    /// Reads one child; \a reader stands on its start element. Must leave \a reader on the child's end
    /// element or untouched, in which case the child is skipped whole.
    /// \throws TesselException for a child that the object does not understand
    virtual void ProcessXmlStartElement(QXmlStreamReader &reader);

public:
    /// The logger, if one is set.
    [[nodiscard]] const std::shared_ptr<Logger> &GetLogger() const noexcept { return logger; }

    /// What input may become while it is read into this object; the defaults of ReadingLimits at the start.
    /// Objects that are fields of another are read within the limits of that one. Text beyond a limit is
    /// refused before it is read, but for the depth of elements, which is counted while reading. A reader of
    /// the caller's that is handed to ProcessXml() has the text already: there the depth alone counts, and
    /// one element too many is a custom error of the reader.
    void SetReadingLimits(const ReadingLimits &limits);
    [[nodiscard]] ReadingLimits GetReadingLimits() const;

protected:
    /// The text of the current element; leaves \a reader on its end element. A child element inside it
    /// becomes an error of \a reader.
    static QString GetTextValue(QXmlStreamReader &reader);

    /// True while MergeTesselObject() reads the document of the other object: what is read then takes the
    /// place of what is there, of lists, too, to which reading otherwise appends.
    [[nodiscard]] bool isMerging() const noexcept { return merging.isSet; }

private:
    /// A state of the moment, which no copy takes over.
    struct Passing {
        Passing() = default;
        Passing(const Passing & /*other*/) noexcept { }
        Passing &operator=(const Passing & /*other*/) noexcept { return *this; }
        ~Passing() = default;

        bool isSet = false;
    };
    friend class Nesting;
    friend class OwnedReading;
    struct SharedLimits;
    using OwnLimits = QSharedDataPointer<const SharedLimits>;

    QString objectName;
    mutable std::shared_ptr<Logger> logger;
    OwnLimits ownLimits; // null: the defaults
    ObjectTypes objectType = ObjectTypes::Invalid;
    quint16 outerElements = 0; // while it is read as a field of another object
    mutable bool validateFlag = true;
    Passing merging;
};

} // namespace TESSEL

#endif
