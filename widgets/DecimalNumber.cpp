#include "widgets/DecimalNumber_p.h"

#include <objectbase/QtCompat_p.h>
#include <objectbase/Text_p.h>

#include <algorithm>
#include <cmath>

namespace KORMAK::Widgets {

namespace {

using TESSEL::TextSize;

/// More would be typed by mistake: doubles end before it.
constexpr int MostExponent = 400;
constexpr TextSize MostDigits = 400;

/// What a quotient that never ends is rounded to.
constexpr TextSize QuotientDigits = 34;

int valueOf(char digit)
{
    return digit - '0';
}

char digitOf(int value)
{
    return static_cast<char>('0' + value);
}

QByteArray withoutLeadingZeros(const QByteArray &digits)
{
    TextSize first = 0;
    while (first < digits.size() && digits.at(first) == '0')
        ++first;
    return digits.mid(first);
}

/// Below 0, 0 or above 0; both without zeros at their beginning.
int compareWhole(const QByteArray &a, const QByteArray &b)
{
    if (a.size() != b.size())
        return a.size() < b.size() ? -1 : 1;
    return a == b ? 0 : (a < b ? -1 : 1);
}

QByteArray sumOf(QByteArray a, const QByteArray &b)
{
    if (a.size() < b.size())
        return sumOf(b, a);
    int carry = 0;
    for (TextSize i = 1; i <= a.size(); ++i) {
        const int sum =
            valueOf(a.at(a.size() - i)) + (i <= b.size() ? valueOf(b.at(b.size() - i)) : 0) + carry;
        a[a.size() - i] = digitOf(sum % 10);
        carry = sum / 10;
    }
    return carry > 0 ? a.prepend(digitOf(carry)) : a;
}

/// \a a is not less than \a b.
QByteArray differenceOf(QByteArray a, const QByteArray &b)
{
    int borrowed = 0;
    for (TextSize i = 1; i <= a.size(); ++i) {
        int digit =
            valueOf(a.at(a.size() - i)) - (i <= b.size() ? valueOf(b.at(b.size() - i)) : 0) - borrowed;
        borrowed = digit < 0 ? 1 : 0;
        digit += 10 * borrowed;
        a[a.size() - i] = digitOf(digit);
    }
    return withoutLeadingZeros(a);
}

struct Scanner {
    QStringView text;
    TextSize position = 0;

    [[nodiscard]] bool isAtEnd() const { return position >= text.size(); }
    [[nodiscard]] bool isDigit() const
    {
        return !isAtEnd() && text[position] >= QLatin1Char('0') && text[position] <= QLatin1Char('9');
    }
    bool take(char character)
    {
        const bool isThere = !isAtEnd() && text[position] == QLatin1Char(character);
        position += isThere ? 1 : 0;
        return isThere;
    }
    QByteArray takeDigits()
    {
        QByteArray digits;
        for (; isDigit(); ++position)
            digits += static_cast<char>(text[position].unicode());
        return digits;
    }
};

} // namespace

DecimalNumber DecimalNumber::make(bool isNegative, QByteArray magnitude, int power)
{
    magnitude = withoutLeadingZeros(magnitude);
    while (magnitude.endsWith('0')) {
        magnitude.chop(1);
        ++power;
    }
    DecimalNumber number;
    number.digits = magnitude;
    number.exponent = magnitude.isEmpty() ? 0 : power;
    number.negative = isNegative && !magnitude.isEmpty();
    return number;
}

std::optional<DecimalNumber> DecimalNumber::FromText(QStringView text)
{
    Scanner scanner{text};
    const bool isNegative = scanner.take('-');
    if (!isNegative)
        scanner.take('+');
    QByteArray magnitude = scanner.takeDigits();
    int power = 0;
    if (scanner.take('.')) {
        const QByteArray decimals = scanner.takeDigits();
        power = -static_cast<int>(decimals.size());
        magnitude += decimals;
    }
    if (magnitude.isEmpty() || magnitude.size() > MostDigits)
        return std::nullopt;
    if (scanner.take('e') || scanner.take('E')) {
        const bool isSmall = scanner.take('-');
        if (!isSmall)
            scanner.take('+');
        bool isNumber = false;
        const int written = scanner.takeDigits().toInt(&isNumber);
        if (!isNumber || written > MostExponent)
            return std::nullopt;
        power += isSmall ? -written : written;
    }
    if (!scanner.isAtEnd())
        return std::nullopt;
    return make(isNegative, magnitude, power);
}

std::optional<DecimalNumber> DecimalNumber::FromDouble(double value)
{
    return std::isfinite(value) ? FromText(TESSEL::shortestText(value)) : std::nullopt;
}

DecimalNumber DecimalNumber::PowerOfTen(int exponent)
{
    return make(false, QByteArrayLiteral("1"), exponent);
}

QString DecimalNumber::ToText(int decimals) const
{
    QByteArray text = digits;
    if (exponent > 0)
        text += QByteArray(exponent, '0');
    const TextSize behind = GetDecimals();
    if (text.size() <= behind)
        text.prepend(QByteArray(behind + 1 - text.size(), '0'));
    text += QByteArray(std::max<TextSize>(decimals - behind, 0), '0');
    const TextSize shown = std::max<TextSize>(decimals, behind);
    if (shown > 0)
        text.insert(text.size() - shown, '.');
    if (negative)
        text.prepend('-');
    return QString::fromLatin1(text);
}

DecimalNumber DecimalNumber::Plus(const DecimalNumber &other) const
{
    const int power = std::min(exponent, other.exponent);
    const QByteArray a = withoutLeadingZeros(digits + QByteArray(exponent - power, '0'));
    const QByteArray b = withoutLeadingZeros(other.digits + QByteArray(other.exponent - power, '0'));
    if (negative == other.negative)
        return make(negative, sumOf(a, b), power);
    return compareWhole(a, b) >= 0 ? make(negative, differenceOf(a, b), power)
                                   : make(other.negative, differenceOf(b, a), power);
}

DecimalNumber DecimalNumber::Negated() const
{
    return make(!negative, digits, exponent);
}

DecimalNumber DecimalNumber::Times(const DecimalNumber &other) const
{
    QByteArray product;
    for (const char digit : other.digits) {
        product += '0';
        for (int i = 0; i < valueOf(digit); ++i)
            product = sumOf(product, digits);
    }
    return make(negative != other.negative, product, exponent + other.exponent);
}

DecimalNumber DecimalNumber::DividedBy(const DecimalNumber &divisor) const
{
    QByteArray quotient;
    QByteArray remainder;
    int power = exponent - divisor.exponent;
    TextSize next = 0;
    const auto significant = [&quotient] { return withoutLeadingZeros(quotient).size(); };
    while (next < digits.size() || (!remainder.isEmpty() && significant() <= QuotientDigits)) {
        if (next >= digits.size())
            --power;
        remainder = withoutLeadingZeros(remainder + (next < digits.size() ? digits.at(next) : '0'));
        ++next;
        int times = 0;
        for (; compareWhole(remainder, divisor.digits) >= 0; ++times)
            remainder = differenceOf(remainder, divisor.digits);
        quotient += digitOf(times);
    }
    const DecimalNumber result = make(negative != divisor.negative, quotient, power);
    return remainder.isEmpty() ? result : result.Rounded(-power - 1);
}

DecimalNumber DecimalNumber::Rounded(int decimals) const
{
    const int surplus = -exponent - decimals;
    if (surplus <= 0)
        return *this;
    const QByteArray kept = digits.left(std::max<TextSize>(digits.size() - surplus, 0));
    const bool isUp = digits.size() >= surplus && digits.at(digits.size() - surplus) >= '5';
    return make(negative, isUp ? sumOf(kept, QByteArrayLiteral("1")) : kept, -decimals);
}

int DecimalNumber::Compare(const DecimalNumber &a, const DecimalNumber &b)
{
    const DecimalNumber difference = a.Plus(b.Negated());
    return difference.IsZero() ? 0 : (difference.IsNegative() ? -1 : 1);
}

} // namespace KORMAK::Widgets
