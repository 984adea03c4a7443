// What the fields of a class are: one table per class, one row per field. The commands that show, compare and
// set fields walk these tables; FieldRows.h makes their rows.
//
// A key is called as the element or attribute of the document; a field without one as the getter of the
// class. Keys joined by points are the path of a field: "JobHeader.Author", "Area.Coordinate[0].Latitude",
// "Parameter[Gain].Integer.Minimum". Scripts rely on them.
#ifndef KORMAK_TOOLS_FIELD_H
#define KORMAK_TOOLS_FIELD_H

#include <QDateTime>
#include <QString>
#include <QStringView>

#include <cstddef>
#include <functional>
#include <limits>
#include <variant>
#include <vector>

struct NameList;

/// Nothing: not set. A value of a vocabulary is its number.
using FieldValue = std::variant<std::monostate, bool, qint64, float, double, QString, QDateTime>;

[[nodiscard]] inline bool isSet(const FieldValue &value)
{
    return !std::holds_alternative<std::monostate>(value);
}

/// Equal, two NaN included.
[[nodiscard]] bool areSame(const FieldValue &a, const FieldValue &b);

/// What the values of a field are.
struct FieldForm {
    enum class Type { Text, Bool, Integer, Float, Double, Date, Name };

    Type type = Type::Text;
    const NameList *names = nullptr; ///< of a Name
    qint64 least = std::numeric_limits<qint64>::min(); ///< of an Integer
    qint64 most = std::numeric_limits<qint64>::max();
    QStringView unit = {};
    bool isLimit = false; ///< the greatest number, or the least, stands for none
};

struct FieldTable;

/// An object in an object.
struct FieldPart {
    QString key; ///< its index in a list, or its name in a map; otherwise empty
    const void *object;
};

/// A field cannot be set as it was asked for.
struct FieldError {
    QString message;
};

/// Something to be done with an object. May throw a FieldError or a TesselException.
using FieldChange = std::function<void(void *object)>;

/// How a field is made of objects that have fields.
struct FieldParts {
    enum class Kind {
        One,
        List, ///< the keys run from 0 without a gap
        Map,
    };

    Kind kind;
    const FieldTable &table;
    std::vector<FieldPart> (*all)(const void *object);
    /// Does \a work on the part called \a key, which is made if a list ends before it or a map has none.
    /// Null when the part cannot be changed.
    void (*change)(void *object, const QString &key, const FieldChange &work);
};

struct FieldRow {
    QStringView key; ///< empty for the one row of a list of plain values
    QStringView label; ///< for people; empty: the parts are shown as fields of the object itself
    FieldForm form = {};
    FieldValue (*get)(const void *object) = nullptr;
    void (*set)(void *object, const FieldValue &value) = nullptr; ///< null when no setter reaches the field
    const FieldParts *parts = nullptr; ///< null for a plain value
    bool (*exists)(const void *object) = nullptr; ///< null: always
    QStringView condition = {}; ///< when it exists, as a call of 'new' would say it
    enum class Shown { Always, IfSet, Never } shown = Shown::Always; ///< to people, who need not see all
    bool (*isShown)(const void *object) = nullptr; ///< null: as said above
    QStringView (*remark)(const void *object) = nullptr; ///< shown behind the label; null: none
    bool isProse = false; ///< tables have no column for it
    int rank = 0; ///< fields of less rank are set before those of more; equal ones in the order of the rows

    [[nodiscard]] bool existsIn(const void *object) const { return !exists || exists(object); }
    [[nodiscard]] bool isShownOf(const void *object) const
    {
        return existsIn(object) && shown != Shown::Never && (!isShown || isShown(object))
            && (shown != Shown::IfSet || isSet(get(object)));
    }
};

struct FieldTable {
    const FieldRow *rows;
    std::size_t size;
    QString (*inLine)(const void *object) = nullptr; ///< for objects that people read in one line; else null

    template <std::size_t Count>
    constexpr FieldTable(const FieldRow (&table)[Count], QString (*text)(const void *) = nullptr)
        : rows(table), size(Count), inLine(text)
    {
    }

    [[nodiscard]] const FieldRow *begin() const { return rows; }
    [[nodiscard]] const FieldRow *end() const { return rows + size; }
    /// The objects are plain values.
    [[nodiscard]] bool isPlain() const { return size == 1 && rows->key.isEmpty(); }
};

/// "[KEY]"; empty for an empty key of a field that is one object. What would end the key early is escaped.
[[nodiscard]] QString bracketed(const FieldParts &parts, const QString &key);

#endif
