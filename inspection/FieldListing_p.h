// What there is to set in documents of a kind, before there is a document.
#ifndef KORMAK_INSPECTION_FIELDLISTING_P_H
#define KORMAK_INSPECTION_FIELDLISTING_P_H

#include <inspection/DocumentKind_p.h>
#include <inspection/FieldTable_p.h>

#include <QString>
#include <QStringList>

#include <vector>

namespace KORMAK::Inspection {

/// A field that can be set, or an element that can be added.
struct SettableField {
    QString path; ///< N stands for an index, NAME for a name
    QString allowed; ///< in words
    const FieldRow *row; ///< of its values; null: several of different types, separated by commas
    Field::Requirement requirement = Field::Requirement::None;
    FieldValue standard = {}; ///< what it holds as long as nothing is said
    QString condition = {}; ///< when it exists, as a call of 'new' would say it; empty: always
};

/// Those that no document says are left out.
[[nodiscard]] std::vector<SettableField> settableFields(const DocumentKind &kind);

/// The same in JSON.
[[nodiscard]] QString settableFieldsJson(const DocumentKind &kind);

} // namespace KORMAK::Inspection

#endif
