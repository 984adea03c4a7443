#include "inspection/ReadableForm_p.h"

#include <inspection/FieldDiff_p.h>
#include <inspection/FieldText_p.h>
#include <objectbase/DocumentTable_p.h>
#include <objectbase/DocumentWriter_p.h>
#include <objectbase/ITesselObject.h>

#include <QXmlStreamWriter>

namespace KORMAK::Inspection {

namespace {

using TESSEL::ObjectTable;
using TESSEL::Row;

/// The same with a replacement for what XML cannot carry.
QString representable(const QString &text)
{
    constexpr char16_t FirstNonCharacter = 0xFFFE;
    QString result = text;
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text[i];
        const bool isPair = c.isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        const bool isLayout = c == QLatin1Char('\t') || c == QLatin1Char('\n') || c == QLatin1Char('\r');
        if (isPair)
            ++i;
        else if ((c < QLatin1Char(' ') && !isLayout) || c.isSurrogate() || c.unicode() >= FirstNonCharacter)
            result[i] = QChar(QChar::ReplacementCharacter);
    }
    return result;
}

bool isWritten(const Row &row, const void *object)
{
    return !row.isWritten || row.isWritten(object);
}

/// What the row holds of an object is a field of it, not only another way to write one.
const FieldRow *fieldOf(const ObjectTable &table, const Row &row)
{
    const FieldRow *const field = fieldsOf(table).find(row.name);
    return field && (field->parts != nullptr) == (row.part != nullptr) ? field : nullptr;
}

/// Writes an object and reads it at the same time, so that it knows what a reader would hold at each place if
/// nothing stood there: a parameter, for example, finds in its handlers what the one before has left.
class ReadableWriter {
public:
    enum class Purpose { Document, Draft };

    ReadableWriter(QXmlStreamWriter &xml, Purpose wanted, const EditScope &parts = {})
        : writer(xml), purpose(wanted), scope(parts)
    {
    }

    void write(QStringView name, const ObjectTable &table, const void *object, void *reader)
    {
        ++depth;
        if (!isSilent)
            writer.writeStartElement(name.toString());
        if (table.begin)
            table.begin(reader);
        writeAttributes(table, object, reader);
        if (const Row *const whole = table.wholeText ? table.wholeText(reader) : nullptr) {
            const QString text = textOf(*whole, object);
            if (!isSilent)
                writer.writeCharacters(text);
            whole->read(reader, text);
        } else {
            for (const Row &row : table.elements)
                writeElement(table, row, object, reader);
        }
        if (!isSilent)
            writer.writeEndElement();
        --depth;
    }

private:
    void writeAttributes(const ObjectTable &table, const void *object, void *reader)
    {
        for (const Row &row : table.attributes) {
            if (!row.read)
                continue;
            row.read(reader, {});
            if (!isWorthWriting(table, row, object, reader) || isPassedOver(row))
                continue;
            const QString text = textOf(row, object);
            if (!isSilent)
                writer.writeAttribute(row.name.toString(), text);
            row.read(reader, text);
        }
    }

    void writeElement(const ObjectTable &table, const Row &row, const void *object, void *reader)
    {
        if (row.part && row.part->enter) {
            writeParts(table, row, object, reader);
        } else if (row.read && isWorthWriting(table, row, object, reader)) {
            const QString text = textOf(row, object);
            if (!isSilent)
                writer.writeTextElement(row.name.toString(), text);
            row.read(reader, text);
        }
    }

    void writeParts(const ObjectTable &table, const Row &row, const void *object, void *reader)
    {
        const bool isOwned = row.content == Row::Content::Object && row.part->kind == TESSEL::Part::Kind::One;
        if (!isOwned && !isWritten(row, object))
            return;
        if (isOwned && !isOwnedPresent(table, row, object, reader))
            return;
        const bool isScoped = depth == 1 && row.part->kind == TESSEL::Part::Kind::Map;
        for (const FieldPart &part : row.part->all(object)) {
            // What is not in the scope still leaves its traces in the reader.
            isSilent = isSilent || (isScoped && !scope.holds(stepOf(table, row, part)));
            void *const partReader = row.part->enter(reader);
            write(row.name, row.part->table(), part.object, partReader);
            if (row.part->leave)
                row.part->leave(reader, partReader);
            isSilent = isSilent && !isScoped;
        }
    }

    static QString stepOf(const ObjectTable &table, const Row &row, const FieldPart &part)
    {
        return row.name.toString() + bracketed(*fieldsOf(table).find(row.name)->parts, part.key);
    }

    static bool isOwnedPresent(const ObjectTable &table, const Row &row, const void *object, void *reader)
    {
        const FieldRow *const field = fieldOf(table, row);
        return (field && field->isShownOf(object))
            || !differences(fieldsOf(row.part->table()), row.part->all(object).front().object,
                            row.part->enter(reader))
                    .empty();
    }

    static bool isWorthWriting(const ObjectTable &table, const Row &row, const void *object,
                               const void *reader)
    {
        const FieldValue value = row.get(object);
        const bool isName = row.type.kind == TextType::Kind::Name;
        return (isSet(value) && (isName || isWritten(row, object)))
            || (fieldOf(table, row) && !areSame(value, row.get(reader)));
    }

    [[nodiscard]] bool isPassedOver(const Row &row) const
    {
        return purpose == Purpose::Draft && row.name == QStringView(u"Version");
    }

    /// Flags may be written with words of their own, and what has no name that is read as others expect it.
    [[nodiscard]] QString textOf(const Row &row, const void *object) const
    {
        const FieldValue value = row.get(object);
        const bool isFlag = row.type.kind == TextType::Kind::Boolean;
        const bool isOthers = row.write && isWritten(row, object)
            && (isFlag || (row.type.kind == TextType::Kind::Name && !hasName(row.type, value)));
        const QString text = isOthers ? row.write(object) : settableText(row.type, value);
        return purpose == Purpose::Draft ? representable(text) : text;
    }

    static bool hasName(const TextType &type, const FieldValue &value)
    {
        const TESSEL::NameTable names = type.names();
        return isSet(value) && names.find(static_cast<qint32>(std::get<qint64>(value))) != names.end();
    }

    QXmlStreamWriter &writer;
    const Purpose purpose;
    const EditScope scope;
    int depth = 0; ///< of open elements
    bool isSilent = false; ///< reads, but does not write
};

void write(QXmlStreamWriter &xml, ReadableWriter::Purpose purpose, const DocumentKind &kind,
           const TESSEL::ITesselObject &object, const EditScope &scope = {})
{
    const auto reader = kind.create();
    ReadableWriter(xml, purpose, scope)
        .write(kind.rootElement, kind.table(), kind.address(object), kind.variableAddress(*reader));
}

} // namespace

std::optional<QByteArray> readableForm(const DocumentKind &kind, const TESSEL::ITesselObject &object,
                                       const EditScope &scope)
{
    TESSEL::DocumentWriter writer;
    write(writer.xml(), ReadableWriter::Purpose::Document, kind, object, scope);
    const auto text = writer.finish();
    return text ? std::optional<QByteArray>(text->toUtf8()) : std::nullopt;
}

bool isRepresentable(const QString &text)
{
    return representable(text) == text;
}

QByteArray draftOf(const DocumentKind &kind, const TESSEL::ITesselObject &object)
{
    QString text;
    QXmlStreamWriter writer(&text);
    write(writer, ReadableWriter::Purpose::Draft, kind, object);
    return text.toUtf8();
}

} // namespace KORMAK::Inspection
