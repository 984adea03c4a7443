// Not installed. Every conversion between a value and its text stands here, once: toText(value) writes,
// fromText(text, value) reads. Whatever a text does not say properly reads as 0, false or an invalid date.
// borrowed() makes a QString of a constant for a call that does not keep it.
#ifndef TESSEL_TEXT_P_H
#define TESSEL_TEXT_P_H

#include <objectbase/Converters.h>
#include <objectbase/Shared_p.h>

#include <QString>
#include <QStringView>

#include <array>
#include <charconv>
#include <cmath>
#include <iterator>
#include <optional>
#include <system_error>
#include <type_traits>

namespace TESSEL {

/// A QString that refers to the characters of \a text, for as long as a call takes that does not keep it.
/// Nothing that callers get may be borrowed: it must outlive what the characters belong to, the library's
/// constants included.
[[nodiscard]] inline QString borrowed(QStringView text)
{
    return text.isNull()
        ? QString()
        : QString::fromRawData(text.data(), static_cast<decltype(QString().size())>(text.size()));
}

// Reading

/// An equal text stays: the version of nearly every document is the constant that a new object shares with
/// all.
inline void fromText(QStringView text, QString &value)
{
    if (QStringView(value) != text)
        value = text.toString();
}

/// True is the exact word; anything else is false.
inline void fromText(QStringView text, bool &value)
{
    value = text == QStringView(u"true");
}

inline void fromText(QStringView text, QDateTime &value)
{
    value = Converters::ToDateTime(text.toString());
}

namespace Detail {

/// The number in a text of digits, minus signs and points, as all but a few are, without the copies that Qt
/// makes. Nothing for any other text, and for one that is no number.
template <class Number>
std::optional<Number> plainNumber(QStringView text)
{
    constexpr std::size_t LongestPlainNumber = 32;
    std::array<char, LongestPlainNumber> digits{};
    const auto size = static_cast<std::size_t>(text.size());
    if (size > digits.size())
        return std::nullopt;
    for (std::size_t i = 0; i < size; ++i) {
        const char16_t c = text.utf16()[i];
        if ((c < u'0' || c > u'9') && c != u'.' && c != u'-')
            return std::nullopt;
        digits[i] = static_cast<char>(c);
    }
    Number number{};
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + size, number);
    return error == std::errc() && end == digits.data() + size ? std::optional(number) : std::nullopt;
}

/// \a convert is Qt's conversion. It gives infinity for a number that is too large, which reads as 0 here.
template <class Number>
Number number(QStringView text, Number (*convert)(const QString &, bool *))
{
    if (const auto plain = plainNumber<Number>(text))
        return *plain;
    bool ok = false;
    const Number number = convert(text.toString(), &ok);
    return ok ? number : Number(0);
}

} // namespace Detail

inline void fromText(QStringView text, int &value)
{
    value = Detail::number<int>(text, [](const QString &t, bool *ok) { return t.toInt(ok); });
}

inline void fromText(QStringView text, unsigned int &value)
{
    value = Detail::number<unsigned int>(text, [](const QString &t, bool *ok) { return t.toUInt(ok); });
}

inline void fromText(QStringView text, long long &value)
{
    value = Detail::number<long long>(text, [](const QString &t, bool *ok) { return t.toLongLong(ok); });
}

inline void fromText(QStringView text, double &value)
{
    value = Detail::number<double>(text, [](const QString &t, bool *ok) { return t.toDouble(ok); });
}

/// As Qt rounds: to double first.
inline void fromText(QStringView text, float &value)
{
    const auto plain = Detail::plainNumber<double>(text);
    value = plain ? static_cast<float>(*plain)
                  : Detail::number<float>(text, [](const QString &t, bool *ok) { return t.toFloat(ok); });
}

// Writing

[[nodiscard]] inline QString toText(const QString &value)
{
    return value;
}

[[nodiscard]] inline QString toText(bool value)
{
    return value ? shared([] { return QStringView(u"true").toString(); })
                 : shared([] { return QStringView(u"false").toString(); });
}

[[nodiscard]] inline QString toText(const QDateTime &value)
{
    return Converters::ToString(value);
}

[[nodiscard]] inline QString toText(int value)
{
    return QString::number(value);
}

[[nodiscard]] inline QString toText(unsigned int value)
{
    return QString::number(value);
}

[[nodiscard]] inline QString toText(long long value)
{
    return QString::number(value);
}

/// General form with 6 significant digits.
[[nodiscard]] inline QString toText(float value)
{
    return QString::number(static_cast<double>(value), 'g', 6);
}

namespace Detail {

/// The text that std::to_chars() makes of \a value.
template <class Number, class... Format>
[[nodiscard]] QString charsText(Number value, Format... format)
{
    constexpr std::size_t LongestDouble = 384; // the greatest has 309 digits before its decimals
    char buffer[LongestDouble];
    const auto end = std::to_chars(std::begin(buffer), std::end(buffer), value, format...).ptr;
    return QString::fromLatin1(buffer, static_cast<int>(end - buffer));
}

} // namespace Detail

/// The shortest text that is read back as the same number of its type, the sign of zero included; without an
/// exponent as long as people would write it so.
template <class Number>
[[nodiscard]] QString shortestText(Number value)
{
    constexpr auto LeastFixed = static_cast<Number>(1e-6);
    constexpr auto MostFixed = static_cast<Number>(1e16);
    const Number magnitude = std::abs(value);
    const bool isFixed = magnitude == 0 || (magnitude >= LeastFixed && magnitude < MostFixed);
    return Detail::charsText(value, isFixed ? std::chars_format::fixed : std::chars_format::scientific);
}

/// The shortest text; that of a NaN has no sign.
[[nodiscard]] inline QString toText(double value)
{
    return std::isnan(value) ? QStringView(u"nan").toString() : shortestText(value);
}

/// Fixed-point with exactly \a decimals decimals, at most 6.
[[nodiscard]] inline QString fixedText(double value, int decimals)
{
    // A whole number, as most limits are, needs no rounding. Qt takes two hundred times as long for the
    // greatest double, which is the limit of a parameter that has none.
    if (std::trunc(value) == value)
        return Detail::charsText(value + 0.0, std::chars_format::fixed, decimals); // no minus before a zero
    return QString::number(value, 'f', decimals);
}

/// A whole number, or the number of an enumerator, in decimal.
template <class Value>
[[nodiscard]] QString numberText(Value value)
{
    if constexpr (std::is_enum_v<Value>)
        return QString::number(static_cast<std::underlying_type_t<Value>>(value));
    else
        return QString::number(value);
}

} // namespace TESSEL

#endif
