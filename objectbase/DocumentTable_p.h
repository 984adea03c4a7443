// Not installed. What a document is, said once: each class has a table with a row for every attribute,
// element and inner field. Reading, writing, HasData() and Check() follow from it, and so does whatever other
// libraries tell about documents. DocumentRows_p.h makes the rows, DocumentXml_p.h reads and writes with
// them.
#ifndef TESSEL_DOCUMENTTABLE_P_H
#define TESSEL_DOCUMENTTABLE_P_H

#include <objectbase/Vocabulary_p.h>

#include <QDateTime>
#include <QString>
#include <QStringView>

#include <cstddef>
#include <functional>
#include <limits>
#include <variant>
#include <vector>

QT_BEGIN_NAMESPACE
class QXmlStreamReader;
class QXmlStreamWriter;
QT_END_NAMESPACE

namespace TESSEL {

/// Nothing: not set. A value of a vocabulary is its number.
using FieldValue = std::variant<std::monostate, bool, qint64, float, double, QString, QDateTime>;

/// A field cannot be set as it was asked for.
struct FieldError {
    QString message;
};

/// What the text of an attribute or element says.
struct TextType {
    enum class Kind : quint8 { Text, Boolean, Integer, Unsigned, LongLong, Float, Double, DateTime, Name };

    Kind kind = Kind::Text;
    bool mayBeEmpty = false; ///< an empty text is one of those that it may be
    bool isLimit = false; ///< the greatest number, or the least, stands for none
    NameTable (*names)() = nullptr; ///< of a Name
    qint64 least = std::numeric_limits<qint64>::min(); ///< of whole numbers
    qint64 most = std::numeric_limits<qint64>::max();
    QStringView unit = {};
};

/// A view of a static table.
template <class Item>
class TableView {
public:
    constexpr TableView() = default;
    template <std::size_t Count>
    constexpr TableView(const Item (&items)[Count]) : first(items), count(Count)
    {
    }

    [[nodiscard]] constexpr const Item *begin() const noexcept { return first; }
    [[nodiscard]] constexpr const Item *end() const noexcept { return first + count; }
    [[nodiscard]] constexpr std::size_t size() const noexcept { return count; }

private:
    const Item *first = nullptr;
    std::size_t count = 0;
};

struct ObjectTable;

/// An object in an object.
struct FieldPart {
    QString key; ///< its index in a list, or its name in a map; otherwise empty
    const void *object;
};

/// Something to be done with an object. May throw a FieldError or a TesselException.
using FieldChange = std::function<void(void *object)>;

/// Objects with a table of their own in an object.
struct Part {
    enum class Kind : quint8 { One, List, Map };

    Kind kind;
    const ObjectTable &(*table)();
    std::vector<FieldPart> (*all)(const void *object);
    /// Does the work on the part called \a key, which is made if a list ends before it or a map has none.
    void (*change)(void *object, const QString &key, const FieldChange &work);

    // An element with the part; null where no document holds one.
    const QString &(*name)(const void *object) = nullptr; ///< its own; null: that of the row
    void (*check)(const void *object) = nullptr; ///< its Check()
    void (*read)(void *object, QXmlStreamReader &reader) = nullptr;
    void (*write)(const void *object, QXmlStreamWriter &writer, const QString &tag) = nullptr;
    void *(*enter)(void *object) = nullptr; ///< the part that is filled by reading the next element
    void (*leave)(void *object, void *part) = nullptr; ///< it has been read; null: nothing to do
};

/// An attribute, an element, or a field that no document says.
struct Row {
    enum class Content : quint8 {
        Text,
        Object, ///< read up to the end of the element
        Block, ///< read up to the next end of the name `end`; all that is in it is looked at
        Entry, ///< attributes only; what is in it belongs to the block around it
        Ignored,
    };
    using Predicate = bool (*)(const void *object);

    QStringView name; ///< an object's own name counts in place of this one
    Content content = Content::Text;
    TextType type = {};
    void (*read)(void *object,
                 QStringView text) = nullptr; ///< null: not read. An absent attribute reads as ""
    QString (*write)(const void *object) = nullptr; ///< null: not written
    Predicate isWritten = nullptr; ///< null: always
    FieldValue (*get)(const void *object) = nullptr;
    void (*set)(void *object, const FieldValue &value) = nullptr; ///< null: no setter reaches the field
    const Part *part = nullptr;
    QStringView end = {}; ///< of a block
    QStringView requiredAs = {}; ///< as Check() calls it when it asks for it; null: it does not
    Predicate isValid = nullptr; ///< what Check() asks for; null: nothing
    Predicate isApplicable = nullptr; ///< when HasData() and Check() look at it; null: always
    Predicate isComplete = nullptr; ///< what HasData() asks for where that is more; null: the same
    QStringView refusedAs = {}; ///< as the setter calls it that refuses texts; null: none does
    QStringView defaultText = {}; ///< what is read where it is missing; null: nothing in particular
    bool keepsFormer = false; ///< an unknown name leaves what an element before it said
    bool isExpected = false; ///< it should be there, although the library is content without it

    [[nodiscard]] constexpr bool isRequired() const noexcept { return isValid || isComplete; }
    [[nodiscard]] bool isApplicableTo(const void *object) const
    {
        return !isApplicable || isApplicable(object);
    }
};

struct ObjectTable {
    QStringView name; ///< of the object, in messages
    TableView<Row> attributes;
    TableView<Row> elements;
    TableView<Row> fields = {}; ///< that documents do not say
    TableView<QStringView> checked = {}; ///< the names of the rows that Check() asks for first, in its order
    bool refusesOthers = true; ///< other elements than these
    void (*begin)(void *object) = nullptr; ///< before an element of the object is read; null: nothing to do
    /// The row that the text of the element is, once its attributes are read; null: it has children.
    const Row *(*wholeText)(const void *object) = nullptr;

    [[nodiscard]] const Row *attribute(QStringView rowName) const { return find(attributes, rowName); }
    [[nodiscard]] const Row *element(QStringView rowName) const { return find(elements, rowName); }

    /// The row that tells what the field called \a rowName holds; null when there is none. A field may also
    /// be an attribute and an element, of which one is read and the other written.
    [[nodiscard]] const Row *field(QStringView rowName) const
    {
        for (const auto &rows : {fields, elements, attributes}) {
            const Row *const row = find(rows, rowName);
            if (row && (row->get || row->part))
                return row;
        }
        return nullptr;
    }
    /// Whether \a row is that of a field. A block that ends as another one is not: it is only another way to
    /// write that.
    [[nodiscard]] bool isField(const Row &row) const
    {
        return field(row.name) == &row && (row.end.isNull() || row.end == row.name);
    }
    /// Whether \a row is one that documents do not say.
    [[nodiscard]] bool isInner(const Row &row) const { return &row >= fields.begin() && &row < fields.end(); }

    /// Does \a work on each attribute and element in the order of Check().
    template <class Work>
    void inOrder(Work work) const
    {
        for (const QStringView rowName : checked) {
            const Row *const row = attribute(rowName) ? attribute(rowName) : element(rowName);
            work(*row);
        }
        for (const auto &rows : {attributes, elements}) {
            for (const Row &row : rows) {
                if (std::find(checked.begin(), checked.end(), row.name) == checked.end())
                    work(row);
            }
        }
    }

private:
    [[nodiscard]] static const Row *find(const TableView<Row> &rows, QStringView rowName)
    {
        const auto *const row = std::find_if(
            rows.begin(), rows.end(), [rowName](const auto &candidate) { return candidate.name == rowName; });
        return row == rows.end() ? nullptr : row;
    }
};

/// Reaches the table of a class.
class DocumentTables {
public:
    template <class Document>
    [[nodiscard]] static const ObjectTable &of()
    {
        return Document::table();
    }
};

} // namespace TESSEL

#endif
