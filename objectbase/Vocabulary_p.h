// Not installed. A vocabulary: the values of an enumeration and their names. State the rows once, in order of
// value;
//     constexpr VocabularyRow<Colour> Rows[] = {{Red, u"Red"}, {Blue, u"Blue"}};
//     constexpr Vocabulary Colours {Rows, u"undefined"};
// names in both directions, the valid range and the list of names follow. A gap in the values does not
// compile.
#ifndef TESSEL_VOCABULARY_P_H
#define TESSEL_VOCABULARY_P_H

#include <objectbase/Text_p.h>

#include <QStringList>

#include <algorithm>
#include <iterator>

namespace TESSEL {

/// A row of any vocabulary.
struct NamedValue {
    qint32 value;
    QStringView name; ///< what is read
    QStringView writtenAs; ///< what is written; null: documents do not say it
};

/// The values of any enumeration and their names, in order of value.
class NameTable {
public:
    template <std::size_t Count>
    constexpr explicit NameTable(const NamedValue (&table)[Count], QStringView unknownName = {})
        : rows(table), count(Count), unknown(unknownName)
    {
    }

    [[nodiscard]] constexpr const NamedValue *begin() const noexcept { return rows; }
    [[nodiscard]] constexpr const NamedValue *end() const noexcept { return rows + count; }

    [[nodiscard]] bool isValid(qint32 value) const noexcept { return find(value) != end(); }

    /// What is written for \a value.
    [[nodiscard]] QString nameOf(qint32 value) const
    {
        const NamedValue *const row = find(value);
        if (row == end())
            return unknown.toString();
        return (row->writtenAs.isNull() ? row->name : row->writtenAs).toString();
    }

    /// -1 for an unknown name.
    [[nodiscard]] qint32 valueOf(QStringView name) const noexcept
    {
        const auto *const row =
            std::find_if(begin(), end(), [name](const auto &candidate) { return candidate.name == name; });
        return row == end() ? -1 : row->value;
    }

    /// The names that are read.
    [[nodiscard]] QStringList names() const
    {
        QStringList list;
        std::transform(begin(), end(), std::back_inserter(list),
                       [](const auto &row) { return row.name.toString(); });
        return list;
    }

    [[nodiscard]] const NamedValue *find(qint32 value) const noexcept
    {
        const auto place = static_cast<std::size_t>(static_cast<quint32>(value));
        if (place < count && rows[place].value == value) // as where the values have no gap
            return rows + place;
        return std::find_if(begin(), end(), [value](const auto &row) { return row.value == value; });
    }

private:
    const NamedValue *rows;
    std::size_t count;
    QStringView unknown;
};

template <class Enum>
struct VocabularyRow {
    Enum value;
    QStringView name;
    QStringView writtenAs = name;
};

template <class Enum, std::size_t Count>
class Vocabulary {
public:
    /// \a unknownName is the name of every value outside the table.
    constexpr explicit Vocabulary(const VocabularyRow<Enum> (&table)[Count], QStringView unknownName = {})
        : unknown(unknownName)
    {
        for (std::size_t i = 0; i < Count; ++i) {
            if (table[i].value != static_cast<Enum>(i))
                throw "the values of a vocabulary run from 0 without a gap, in order";
            rows[i] = {static_cast<qint32>(i), table[i].name, table[i].writtenAs};
        }
    }

    /// Refers to this, which must be static.
    [[nodiscard]] constexpr NameTable table() const noexcept { return NameTable(rows, unknown); }

    [[nodiscard]] static constexpr Enum invalid() noexcept { return static_cast<Enum>(-1); }

    [[nodiscard]] static constexpr bool isValid(Enum value) noexcept
    {
        return static_cast<quint32>(value) < Count;
    }

    [[nodiscard]] QString nameOf(Enum value) const { return table().nameOf(static_cast<qint32>(value)); }

    [[nodiscard]] Enum valueOf(QStringView name) const noexcept
    {
        return static_cast<Enum>(table().valueOf(name));
    }

    [[nodiscard]] QStringList names() const { return table().names(); }

private:
    NamedValue rows[Count]{};
    QStringView unknown;
};

} // namespace TESSEL

#endif
