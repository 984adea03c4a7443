// What a document holds, for people to read: labelled values, of which some have fields of their own.
#ifndef KORMAK_TOOLS_FIELD_H
#define KORMAK_TOOLS_FIELD_H

#include <QString>
#include <QStringView>

#include <optional>
#include <type_traits>
#include <vector>

QT_BEGIN_NAMESPACE
class QDateTime;
QT_END_NAMESPACE

/// The text of a value, with its unit; nothing when the value is not set.
using FieldValue = std::optional<QString>;

struct Field {
    QString label;
    FieldValue value;
    std::vector<Field> fields = {};
};

/// A field that is an object: no value of its own.
[[nodiscard]] Field group(const QString &label, std::vector<Field> fields);

[[nodiscard]] FieldValue textValue(const QString &text);
[[nodiscard]] FieldValue yesOrNo(bool value);
/// With 6 significant digits.
[[nodiscard]] FieldValue number(float value);
/// With as many digits as tell it from every other number.
[[nodiscard]] FieldValue number(double value);
template <class Integer, std::enable_if_t<std::is_integral_v<Integer>, bool> = true>
[[nodiscard]] FieldValue number(Integer value)
{
    static_assert(!std::is_same_v<Integer, bool>, "a bool is a yesOrNo()");
    return QString::number(value);
}

[[nodiscard]] FieldValue dateValue(const QDateTime &dateTime);
/// NaN: not set.
[[nodiscard]] FieldValue quantity(double value, QStringView unit);
/// In Hz and the larger unit that fits. NaN: not set.
[[nodiscard]] FieldValue frequency(double hertz);

/// The name of \a value in its vocabulary.
template <class Enum>
[[nodiscard]] FieldValue nameOf(Enum value, bool (*isValid)(Enum), QString (*toName)(Enum))
{
    return isValid(value) ? FieldValue(toName(value)) : std::nullopt;
}

#endif
