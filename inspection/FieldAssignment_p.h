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

/// What each of \a texts asks for, FIELD=VALUE, in the order in which it is to be done: by the ranks of the
/// fields, then as they stand in the table. So it does not matter in which order they
/// are given, but for values that are added to a list.
/// \throws FieldError for what is no field, cannot be set or is set twice
[[nodiscard]] std::vector<FieldAssignment> assignments(const FieldTable &table, const QStringList &texts);

/// Does what \a assignment asks for. \throws FieldError
void assign(const FieldAssignment &assignment, void *object);

/// A field that can be set and what it may be set to.
struct SettableField {
    QString path; ///< N stands for an index, NAME for a name
    QString allowed;
    QStringList texts = {}; ///< what it may be set to; empty when that cannot be listed
};

[[nodiscard]] std::vector<SettableField> settableFields(const FieldTable &table);

} // namespace KORMAK::Inspection

#endif
