// Not installed. The XML form of a document class: two tables, `attributes` and `elements`, in a private
// nested struct Xml, one row per name, in the order in which they are written. A row says how its value is
// read and written; readDocument(), readChild() and writeDocument() walk the tables. One-sided rows:
// onlyRead(), onlyWritten(), when().
#ifndef TESSEL_XMLFORM_P_H
#define TESSEL_XMLFORM_P_H

#include <objectbase/ITesselObject.h>
#include <objectbase/Messages_p.h>
#include <objectbase/Nesting_p.h>
#include <objectbase/Text_p.h>

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>
#include <iterator>
#include <type_traits>

namespace TESSEL {

template <class Document>
struct XmlAttribute {
    QStringView name;
    void (*read)(Document &, QStringView text); ///< an absent attribute reads as an empty text
    QString (*write)(const Document &);
    bool (*written)(const Document &) = nullptr; ///< null: always

    /// Written only where \a condition holds; read always.
    [[nodiscard]] constexpr XmlAttribute when(bool (*condition)(const Document &)) const
    {
        return {name, read, write, condition};
    }
};

template <class Document>
struct XmlElement {
    QStringView tag; ///< null for an owned object: its own name is the tag
    void (*read)(Document &, QXmlStreamReader &);
    void (*write)(const Document &, QXmlStreamWriter &, const QString &tag);
    bool (*written)(const Document &) = nullptr; ///< null: always
    const QString &(*ownedName)(const Document &) = nullptr;

    [[nodiscard]] constexpr XmlElement onlyRead() const { return {tag, read, nullptr, written, ownedName}; }
    [[nodiscard]] constexpr XmlElement onlyWritten() const
    {
        return {tag, nullptr, write, written, ownedName};
    }
    /// Written only where \a condition holds; read always.
    [[nodiscard]] constexpr XmlElement when(bool (*condition)(const Document &)) const
    {
        return {tag, read, write, condition, ownedName};
    }

    [[nodiscard]] QString name(const Document &document) const
    {
        return ownedName ? ownedName(document) : borrowed(tag);
    }
    [[nodiscard]] bool isNamed(QStringView name, const Document &document) const
    {
        return name == (ownedName ? QStringView(ownedName(document)) : tag);
    }
};

/// Reads to the root element and tells whether there is one. A document type with an entity that is longer
/// than Qt lets nested ones become is an error of \a reader: a few references to it could fill the memory.
[[nodiscard]] inline bool readToRoot(QXmlStreamReader &reader)
{
    constexpr int LongestEntity = 4096;
    while (!reader.atEnd() && !reader.isStartElement()) {
        reader.readNext();
        if (!reader.isDTD())
            continue;
        const QXmlStreamEntityDeclarations entities = reader.entityDeclarations();
        const bool isTooLong = std::any_of(entities.begin(), entities.end(), [](const auto &entity) {
            return entity.value().size() > LongestEntity;
        });
        if (isTooLong)
            reader.raiseError(QStringLiteral("An entity is longer than %1 characters.").arg(LongestEntity));
    }
    return reader.isStartElement();
}

/// The text of the current element; leaves \a reader on its end. A child element inside it is an error of \a
/// reader.
[[nodiscard]] inline QString elementText(QXmlStreamReader &reader)
{
    return reader.readElementText(QXmlStreamReader::ErrorOnUnexpectedElement);
}

namespace Detail {

template <auto Member>
struct MemberOf;

template <class Owner, class Field, Field Owner::*Member>
struct MemberOf<Member> {
    using Document = Owner;
    using Type = Field;
};

/// Calls a free function, or a member function of \a document.
template <auto Function, class Document, class Argument>
decltype(auto) call(const Document &document, const Argument &argument)
{
    if constexpr (std::is_member_function_pointer_v<decltype(Function)>)
        return (document.*Function)(argument);
    else
        return Function(argument);
}

template <auto Member>
void readMember(typename MemberOf<Member>::Document &document, QStringView text)
{
    fromText(text, document.*Member);
}

template <auto Member>
QString writeMember(const typename MemberOf<Member>::Document &document)
{
    return toText(document.*Member);
}

template <auto Member, auto Setter>
void readThroughSetter(typename MemberOf<Member>::Document &document, QStringView text)
{
    typename MemberOf<Member>::Type value{};
    fromText(text, value);
    (document.*Setter)(value);
}

template <auto Member, auto NameToValue>
void readName(typename MemberOf<Member>::Document &document, QStringView text)
{
    document.*Member = call<NameToValue>(document, borrowed(text));
}

template <auto Member, auto ValueToName>
QString writeName(const typename MemberOf<Member>::Document &document)
{
    return call<ValueToName>(document, document.*Member);
}

template <class Document, void (*Read)(Document &, QStringView)>
void readElementText(Document &document, QXmlStreamReader &reader)
{
    Read(document, elementText(reader));
}

template <class Document, QString (*Write)(const Document &)>
void writeElementText(const Document &document, QXmlStreamWriter &writer, const QString &tag)
{
    writer.writeTextElement(tag, Write(document));
}

} // namespace Detail

/// An attribute that holds a member as text.
template <auto Member>
constexpr auto attribute(QStringView name)
{
    return XmlAttribute<typename Detail::MemberOf<Member>::Document>{name, Detail::readMember<Member>,
                                                                     Detail::writeMember<Member>};
}

/// An element whose text is read by \a Read and given by \a Write.
template <class Document, void (*Read)(Document &, QStringView), QString (*Write)(const Document &)>
constexpr auto textElement(QStringView tag)
{
    return XmlElement<Document>{tag, Detail::readElementText<Document, Read>,
                                Detail::writeElementText<Document, Write>};
}

/// An element that holds a member as text.
template <auto Member>
constexpr auto element(QStringView tag)
{
    return textElement<typename Detail::MemberOf<Member>::Document, Detail::readMember<Member>,
                       Detail::writeMember<Member>>(tag);
}

/// As element(), read through a setter that may throw.
template <auto Member, auto Setter>
constexpr auto checkedElement(QStringView tag)
{
    return textElement<typename Detail::MemberOf<Member>::Document, Detail::readThroughSetter<Member, Setter>,
                       Detail::writeMember<Member>>(tag);
}

/// An element that holds a member by its name in a vocabulary, stored as it comes out, unknown or not.
template <auto Member, auto NameToValue, auto ValueToName>
constexpr auto namedElement(QStringView tag)
{
    return textElement<typename Detail::MemberOf<Member>::Document, Detail::readName<Member, NameToValue>,
                       Detail::writeName<Member, ValueToName>>(tag);
}

/// The element of an object that the document owns.
template <auto Member>
constexpr auto ownedElement()
{
    using Document = typename Detail::MemberOf<Member>::Document;
    return XmlElement<Document>{
        {},
        [](Document &document, QXmlStreamReader &reader) { readOwned(document, document.*Member, reader); },
        [](const Document &document, QXmlStreamWriter &writer, const QString &) {
            (document.*Member).GetXml(writer);
        },
        nullptr,
        [](const Document &document) -> const QString & { return (document.*Member).GetObjectName(); },
    };
}

/// Reads the attributes of the current element.
template <class Xml, class Document>
void readAttributes(Document &document, const QXmlStreamReader &reader)
{
    const QXmlStreamAttributes present = reader.attributes();
    for (const auto &row : Xml::attributes) {
        if (!row.read)
            continue;
        const auto found = std::find_if(present.begin(), present.end(), [&row](const auto &candidate) {
            return QStringView(candidate.qualifiedName()) == row.name;
        });
        row.read(document, found == present.end() ? QStringView() : QStringView(found->value()));
    }
}

/// Reads the document's element, \a reader being on its start: attributes, then the children.
template <class Xml, class Document>
void readDocument(Document &document, QXmlStreamReader &reader)
{
    readAttributes<Xml>(document, reader);
    document.ITesselObject::ProcessXml(reader);
}

/// Reads a child of the document if a row stands for it, and tells whether one did.
template <class Xml, class Document>
[[nodiscard]] bool readKnownChild(Document &document, QXmlStreamReader &reader)
{
    const QStringView name = reader.name();
    const auto row =
        std::find_if(std::begin(Xml::elements), std::end(Xml::elements), [&](const auto &candidate) {
            return candidate.read && candidate.isNamed(name, document);
        });
    if (row == std::end(Xml::elements))
        return false;
    row->read(document, reader);
    return true;
}

/// As readKnownChild(); a child without a row ends the reading.
template <class Xml, class Document>
void readChild(Document &document, QXmlStreamReader &reader)
{
    if (!readKnownChild<Xml>(document, reader))
        throwUnknownTag(document, reader.name());
}

/// Writes an element \a name with the attributes and children of the tables.
template <class Xml, class Document>
void writeElement(const Document &document, QXmlStreamWriter &writer, const QString &name)
{
    const auto isWritten = [&document](const auto &row) {
        return row.write && (!row.written || row.written(document));
    };
    writer.writeStartElement(name);
    for (const auto &row : Xml::attributes) {
        if (isWritten(row))
            writer.writeAttribute(borrowed(row.name), row.write(document));
    }
    for (const auto &row : Xml::elements) {
        if (isWritten(row))
            row.write(document, writer, row.name(document));
    }
    writer.writeEndElement();
}

/// Writes the document's element; nothing when the document is not complete.
template <class Xml, class Document>
void writeDocument(const Document &document, QXmlStreamWriter &writer)
{
    if (document.HasData())
        writeElement<Xml>(document, writer, document.GetObjectName());
}

} // namespace TESSEL

#endif
