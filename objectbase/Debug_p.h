// Not installed. What QDebug is given of enumerators and documents.
#ifndef TESSEL_DEBUG_P_H
#define TESSEL_DEBUG_P_H

#include <objectbase/DocumentTable_p.h>
#include <objectbase/objectbase_export.h>

#include <QDebug>

namespace TESSEL {

/// Writes \a text as it stands, whatever \a debug does with texts.
OBJECTBASE_EXPORT QDebug printText(QDebug debug, const QString &text);

/// Writes the name that is read as \a value, which unlike those that are written no other value has, or the
/// number of a value without a name.
OBJECTBASE_EXPORT QDebug printValue(QDebug debug, const NameTable &names, qint32 value);

template <class Enum>
QDebug printName(QDebug debug, const NameTable &names, Enum value)
{
    return printValue(debug, names, static_cast<qint32>(value));
}

/// \a name with all fields of the table that are set, but for the version that a new object has, on one line:
/// "Area(Name="Harbour", Coordinate[0](Latitude=53.5, Longitude=9.9))".
[[nodiscard]] OBJECTBASE_EXPORT QString fieldsText(const QString &name, const ObjectTable &table,
                                                   const void *object);

template <class Document>
QDebug printDocument(QDebug debug, const Document &document)
{
    return printText(debug, fieldsText(document.GetObjectName(), DocumentTables::of<Document>(), &document));
}

} // namespace TESSEL

#endif
