// What people and programs can ask of a document, field by field: one table per class, made of the rows of
// the class and of labels for people. The commands that show, compare and set fields walk these
// tables.
//
// A key is called as the element or attribute of the document; a field without one as the getter of the
// class. Keys joined by points are the path of a field: "JobHeader.Author", "Area.Coordinate[0].Latitude",
// "Parameter[Gain].Integer.Minimum". Scripts rely on them.
#ifndef KORMAK_INSPECTION_FIELDTABLE_P_H
#define KORMAK_INSPECTION_FIELDTABLE_P_H

#include <inspection/Field.h>
#include <objectbase/DocumentTable_p.h>

#include <QString>
#include <QStringView>

#include <algorithm>
#include <vector>

namespace KORMAK::Inspection {

using TESSEL::FieldChange;
using TESSEL::FieldError;
using TESSEL::FieldPart;
using TESSEL::FieldValue;
using TESSEL::TextType;

[[nodiscard]] inline bool isSet(const FieldValue &value)
{
    return !std::holds_alternative<std::monostate>(value);
}

/// Equal, two NaN included.
[[nodiscard]] bool areSame(const FieldValue &a, const FieldValue &b);

struct FieldTable;

/// How a field is made of objects that have fields.
struct FieldParts {
    using Kind = TESSEL::Part::Kind;

    Kind kind;
    const FieldTable &table;
    std::vector<FieldPart> (*all)(const void *object);
    /// Does \a work on the part called \a key, which is made if a list ends before it or a map has none.
    void (*change)(void *object, const QString &key, const FieldChange &work);
};

/// How a field is shown to people.
struct FieldLabel {
    enum class Shown { Always, IfSet, IfWritten, Never };
    using Predicate = bool (*)(const void *object);

    QStringView key;
    QStringView label; ///< empty: the parts are shown as fields of the object itself
    Shown shown = Shown::Always; ///< to people, who need not see all
    Predicate isShown = nullptr; ///< null: as said above
    QStringView (*remark)(const void *object) = nullptr; ///< shown behind the label; null: none
    QStringView condition = {}; ///< when it exists, as a call of 'new' would say it
    bool isProse = false; ///< tables have no column for it
    bool isSetFirst = false; ///< other setters go by this field
};

struct FieldRow : FieldLabel {
    bool isLabelled = true; ///< false: nobody has a label for it, and its key stands for one
    TextType type = {};
    FieldValue (*get)(const void *object) = nullptr;
    void (*set)(void *object, const FieldValue &value) = nullptr; ///< null when no setter reaches the field
    const FieldParts *parts = nullptr; ///< null for a plain value
    Predicate exists = nullptr; ///< null: always
    Predicate isWritten = nullptr; ///< null: always
    Field::Requirement requirement = Field::Requirement::None;
    bool isInDocuments = true; ///< a document can say what it holds
    int rank = 0; ///< fields of less rank are set before those of more; equal ones in the order of the rows

    [[nodiscard]] bool existsIn(const void *object) const { return !exists || exists(object); }
    [[nodiscard]] bool isShownOf(const void *object) const
    {
        return existsIn(object) && shown != Shown::Never && (!isShown || isShown(object))
            && (shown != Shown::IfSet || isSet(get(object)))
            && (shown != Shown::IfWritten || !isWritten || isWritten(object));
    }
};

struct FieldTable {
    std::vector<FieldRow> rows;
    QString (*inLine)(const void *object) = nullptr; ///< for objects that people read in one line; else null

    [[nodiscard]] auto begin() const { return rows.begin(); }
    [[nodiscard]] auto end() const { return rows.end(); }
    /// Null when there is none.
    [[nodiscard]] const FieldRow *find(QStringView key) const
    {
        const auto row = std::find_if(begin(), end(), [key](const auto &one) { return one.key == key; });
        return row == end() ? nullptr : &*row;
    }
    /// The objects are plain values.
    [[nodiscard]] bool isPlain() const { return rows.size() == 1 && rows.front().key.isEmpty(); }
};

/// The fields of the objects that \a table describes.
[[nodiscard]] const FieldTable &fieldsOf(const TESSEL::ObjectTable &table);

/// "[KEY]"; empty for an empty key of a field that is one object. What would end the key early is escaped.
[[nodiscard]] QString bracketed(const FieldParts &parts, const QString &key);

} // namespace KORMAK::Inspection

#endif
