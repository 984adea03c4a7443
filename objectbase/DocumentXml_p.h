// Not installed. Reads and writes documents by their tables, and tells what they lack.
#ifndef TESSEL_DOCUMENTXML_P_H
#define TESSEL_DOCUMENTXML_P_H

#include <objectbase/DocumentTable_p.h>
#include <objectbase/objectbase_export.h>

#include <QXmlStreamReader>
#include <QXmlStreamWriter>

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <utility>

namespace TESSEL {

class ITesselObject;

/// The text of the current element; leaves \a reader on its end. A child element inside it is an error of \a
/// reader.
[[nodiscard]] inline QString elementText(QXmlStreamReader &reader)
{
    return reader.readElementText(QXmlStreamReader::ErrorOnUnexpectedElement);
}

/// A document type with an entity that is longer than Qt lets nested ones become is an error of \a reader: a
/// few references to it could fill the memory.
inline void refuseLongEntities(QXmlStreamReader &reader)
{
    constexpr int LongestEntity = 4096;
    if (!reader.isDTD())
        return;
    const QXmlStreamEntityDeclarations entities = reader.entityDeclarations();
    const bool isTooLong = std::any_of(entities.begin(), entities.end(), [](const auto &entity) {
        return entity.value().size() > LongestEntity;
    });
    if (isTooLong)
        reader.raiseError(QStringLiteral("An entity is longer than %1 characters.").arg(LongestEntity));
}

/// Reads to the root element and tells whether there is one. Long entities are refused.
[[nodiscard]] OBJECTBASE_EXPORT bool readToRoot(QXmlStreamReader &reader);

/// Reads the attributes of the current element.
OBJECTBASE_EXPORT void readAttributes(const ObjectTable &table, void *object, const QXmlStreamReader &reader);

/// Reads a child of \a object if a row stands for it, and tells whether one did.
OBJECTBASE_EXPORT bool readKnownChild(const ObjectTable &table, void *object, QXmlStreamReader &reader);

/// As readKnownChild(); a child without a row ends the reading of \a document, which is \a object or holds
/// it.
OBJECTBASE_EXPORT void readChild(const ObjectTable &table, void *object, const ITesselObject &document,
                                 QXmlStreamReader &reader);

/// Writes an element \a name with the attributes and children of the table.
OBJECTBASE_EXPORT void writeElement(const ObjectTable &table, const void *object, QXmlStreamWriter &writer,
                                    const QString &name);

namespace Detail {

/// Nothing that the row requires of \a object is missing. Of rows without a requirement nothing is left in an
/// optimised program. (Sanitizers make a comparison with the address of a function no constant expression.)
template <const auto &Rows, std::size_t Index>
bool isThere(const void *object)
{
    const Row *const row = &Rows[Index];
    if (row->isApplicable && !row->isApplicable(object))
        return true;
    if (row->isComplete)
        return row->isComplete(object);
    return !row->isValid || row->isValid(object);
}

template <const auto &Rows, std::size_t... Indexes>
bool areThere(const void *object, std::index_sequence<Indexes...> /*all*/)
{
    return (isThere<Rows, Indexes>(object) && ...);
}

} // namespace Detail

/// Nothing that the tables in \a Xml require of \a object is missing.
template <class Xml>
[[nodiscard]] bool isComplete(const void *object)
{
    return Detail::areThere<Xml::attributes>(object, std::make_index_sequence<std::size(Xml::attributes)>())
        && Detail::areThere<Xml::elements>(object, std::make_index_sequence<std::size(Xml::elements)>());
}

/// \throws TesselException for the first thing that Check() asks for and \a object, which is \a document,
/// lacks
OBJECTBASE_EXPORT void checkRequired(const ObjectTable &table, const void *object,
                                     const ITesselObject &document);

} // namespace TESSEL

#endif
