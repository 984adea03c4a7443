// The fields that an object has at the moment, each with its path.
#ifndef KORMAK_INSPECTION_FIELDLIST_P_H
#define KORMAK_INSPECTION_FIELDLIST_P_H

#include <inspection/Field.h>
#include <inspection/FieldTable_p.h>

#include <QString>
#include <QVector>

#include <optional>

namespace KORMAK::Inspection {

struct FieldMaker {
    [[nodiscard]] static Field made(const QString &path, const FieldRow &row, FieldValue value,
                                    bool isReached);
};

[[nodiscard]] QString typeName(Field::Type type);

/// All fields of \a object, those of the objects in it included, in the order of the tables.
[[nodiscard]] QVector<Field> fieldsOf(const FieldTable &table, const void *object);

/// The field called \a path; nothing when \a object has none.
[[nodiscard]] std::optional<Field> fieldAt(const FieldTable &table, const void *object, const QString &path);

} // namespace KORMAK::Inspection

#endif
