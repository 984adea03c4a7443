#include "objectbase/DocumentXml_p.h"

#include <objectbase/Constants_p.h>
#include <objectbase/Messages_p.h>

#include <algorithm>

namespace TESSEL {

namespace {

[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;

bool isNamed(const Row &row, QStringView name, const void *object)
{
    return name == (row.part && row.part->name ? QStringView(row.part->name(object)) : row.name);
}

bool isRead(const Row &row)
{
    return row.read || row.content == Row::Content::Ignored || (row.part && row.part->read);
}

bool isWritten(const Row &row, const void *object)
{
    return (row.write || (row.part && row.part->write)) && (!row.isWritten || row.isWritten(object));
}

} // namespace

bool readToRoot(QXmlStreamReader &reader)
{
    while (!reader.atEnd() && !reader.isStartElement()) {
        reader.readNext();
        refuseLongEntities(reader);
    }
    return reader.isStartElement();
}

void readAttributes(const ObjectTable &table, void *object, const QXmlStreamReader &reader)
{
    const QXmlStreamAttributes present = reader.attributes();
    for (const Row &row : table.attributes) {
        if (!row.read)
            continue;
        const auto found = std::find_if(present.begin(), present.end(), [&row](const auto &candidate) {
            return QStringView(candidate.qualifiedName()) == row.name;
        });
        row.read(object, found == present.end() ? QStringView() : QStringView(found->value()));
    }
}

bool readKnownChild(const ObjectTable &table, void *object, QXmlStreamReader &reader)
{
    const QStringView name = reader.name();
    const auto *const row =
        std::find_if(table.elements.begin(), table.elements.end(), [&](const auto &candidate) {
            return isRead(candidate) && isNamed(candidate, name, object);
        });
    if (row == table.elements.end())
        return false;
    if (row->part)
        row->part->read(object, reader);
    else if (row->read)
        row->read(object, elementText(reader));
    return true; // what is ignored is left untouched, and skipped by the base
}

void readChild(const ObjectTable &table, void *object, const ITesselObject &document,
               QXmlStreamReader &reader)
{
    if (!readKnownChild(table, object, reader))
        fail(Messages::unknownTag(document.GetObjectName(), reader.name()));
}

void writeElement(const ObjectTable &table, const void *object, QXmlStreamWriter &writer, const QString &name)
{
    writer.writeStartElement(name);
    for (const Row &row : table.attributes) {
        if (isWritten(row, object))
            writer.writeAttribute(borrowed(row.name), row.write(object));
    }
    for (const Row &row : table.elements) {
        if (!isWritten(row, object))
            continue;
        if (row.part)
            row.part->write(object, writer, borrowed(row.name));
        else
            writer.writeTextElement(borrowed(row.name), row.write(object));
    }
    writer.writeEndElement();
}

void checkRequired(const ObjectTable &table, const void *object, const ITesselObject &document)
{
    table.inOrder([&](const Row &row) {
        if (row.requiredAs.isNull() || !row.isApplicableTo(object))
            return;
        if (row.part)
            row.part->check(object);
        else if (!row.isValid(object))
            fail(Messages::pleaseSet(document.GetObjectName(), row.requiredAs));
    });
}

} // namespace TESSEL
