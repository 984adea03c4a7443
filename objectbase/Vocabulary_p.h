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

template <class Enum>
struct VocabularyRow {
    Enum value;
    QStringView name; ///< what is read
    QStringView writtenAs = name; ///< what is written, where it differs from what is read
};

template <class Enum, std::size_t Count>
class Vocabulary {
public:
    /// \a table is static; \a unknownName is the name of every value outside it.
    constexpr explicit Vocabulary(const VocabularyRow<Enum> (&table)[Count], QStringView unknownName = {})
        : rows(table), unknown(unknownName)
    {
        for (std::size_t i = 0; i < Count; ++i) {
            if (rows[i].value != static_cast<Enum>(i))
                throw "the values of a vocabulary run from 0 without a gap, in order";
        }
    }

    [[nodiscard]] static constexpr Enum invalid() noexcept { return static_cast<Enum>(-1); }

    [[nodiscard]] static constexpr bool isValid(Enum value) noexcept
    {
        return static_cast<quint32>(value) < Count;
    }

    [[nodiscard]] QString nameOf(Enum value) const
    {
        return (isValid(value) ? rows[static_cast<std::size_t>(value)].writtenAs : unknown).toString();
    }

    [[nodiscard]] Enum valueOf(QStringView name) const noexcept
    {
        const auto row = std::find_if(std::begin(rows), std::end(rows),
                                      [name](const auto &candidate) { return candidate.name == name; });
        return row == std::end(rows) ? invalid() : row->value;
    }

    /// The names that are read, in order of value.
    [[nodiscard]] QStringList names() const
    {
        QStringList list;
        std::transform(std::begin(rows), std::end(rows), std::back_inserter(list),
                       [](const auto &row) { return row.name.toString(); });
        return list;
    }

private:
    const VocabularyRow<Enum> (&rows)[Count];
    QStringView unknown;
};

} // namespace TESSEL

#endif
