// The changes of a document that make it say what JSON says.
#ifndef KORMAK_INSPECTION_FIELDCHANGES_P_H
#define KORMAK_INSPECTION_FIELDCHANGES_P_H

#include <inspection/DocumentEdit.h>

#include <QJsonObject>
#include <QVector>

namespace KORMAK {
class Document;
}

namespace KORMAK::Inspection {

struct FieldTable;

/// \a fields, by the keys of \a table, are what \a document is to say; null unsets.
/// \throws TESSEL::TesselException for what is no field of it
[[nodiscard]] QVector<DocumentEdit::Change> fieldChanges(const QJsonObject &fields, const FieldTable &table,
                                                         const Document &document);

} // namespace KORMAK::Inspection

#endif
