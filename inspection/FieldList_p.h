// The fields that an object has at the moment, each with its path.
#ifndef KORMAK_INSPECTION_FIELDLIST_P_H
#define KORMAK_INSPECTION_FIELDLIST_P_H

#include <inspection/Field.h>
#include <inspection/FieldTable_p.h>

#include <QString>
#include <QVector>

#include <algorithm>
#include <optional>

namespace KORMAK::Inspection {

/// What is known of the object that a field is in.
struct FieldSurroundings {
    bool isReached = true; ///< a change of the object can be brought about
    Field::Requirement requirement = Field::Requirement::Always; ///< of the object

    /// Of the objects in the field that \a row describes. What stands in a list or is called by a name is
    /// required of each.
    [[nodiscard]] FieldSurroundings within(const FieldRow &row) const
    {
        return {isReached && row.parts->change,
                row.parts->kind == FieldParts::Kind::One ? std::min(requirement, row.requirement)
                                                         : Field::Requirement::Always};
    }
};

struct FieldMaker {
    [[nodiscard]] static Field made(const QString &path, const FieldRow &row, FieldValue value,
                                    const FieldSurroundings &around);
};

[[nodiscard]] QString typeName(Field::Type type);

/// All fields of \a object, those of the objects in it included, in the order of the tables.
[[nodiscard]] QVector<Field> fieldsOf(const FieldTable &table, const void *object);

/// The field called \a path; nothing when \a object has none.
[[nodiscard]] std::optional<Field> fieldAt(const FieldTable &table, const void *object, const QString &path);

} // namespace KORMAK::Inspection

#endif
