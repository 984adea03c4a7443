// Setting fields by their paths: "AntennaData.Azimuth=45", "Area.Coordinate=52.1,13.4",
// "Parameter[Gain].Integer.Minimum=0".
#ifndef KORMAK_INSPECTION_FIELDASSIGNMENT_P_H
#define KORMAK_INSPECTION_FIELDASSIGNMENT_P_H

#include <inspection/FieldTable_p.h>

#include <QString>
#include <QStringList>

#include <vector>

namespace KORMAK::Inspection {

/// A field of one of the objects that a document is made of.
struct FieldStep {
    const FieldRow *row;
    qsizetype place; ///< of the row in its table
    bool hasKey = false; ///< there are brackets
    QString key = {};
};

/// What one FIELD=VALUE asks for.
struct FieldAssignment {
    QString path;
    std::vector<FieldStep> steps;
    QString text;
};

/// What \a text asks for, FIELD=VALUE. \throws FieldError for what is no field or cannot be set
[[nodiscard]] FieldAssignment readAssignment(const FieldTable &table, const QString &text);

/// Sets in \a object what \a texts ask for, FIELD=VALUE, as far as can be: by the ranks of the fields, then
/// as they stand in the table. So it does not matter in which order they are given, but for values that are
/// added to a list.
struct FieldAssignments {
    std::vector<FieldAssignment> wanted; ///< in that order
    QStringList errors; ///< what is no field, cannot be set to that or is set twice; empty: all is done
};
[[nodiscard]] FieldAssignments assignAll(const FieldTable &table, const QStringList &texts, void *object);

/// Whether a table is of plain values that are added to a list, all at once.
[[nodiscard]] bool isPlainList(const FieldRow &row);
/// Whether an object can be set as a whole, its values separated by commas.
[[nodiscard]] bool isSetAsWhole(const FieldRow &row);
/// The names of the fields that can be set.
[[nodiscard]] QStringList settableKeys(const FieldTable &table);

} // namespace KORMAK::Inspection

#endif
