// Not installed. Numbers as people write them, with all their digits: what is typed, multiplied and shown
// takes no detour over binary fractions.
#ifndef KORMAK_WIDGETS_DECIMALNUMBER_P_H
#define KORMAK_WIDGETS_DECIMALNUMBER_P_H

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <optional>

namespace KORMAK::Widgets {

/// A number with any digits that is stored whole: its digits times a power of ten.
class DecimalNumber {
public:
    /// Zero.
    DecimalNumber() = default;
    /// The number that \a text is in the form of documents: "-12.50", "1e7". Nothing for any other text, such
    /// as "nan", and beyond the powers of ten that a double has.
    [[nodiscard]] static std::optional<DecimalNumber> FromText(QStringView text);
    /// The shortest number that reads back as \a value. Nothing for one that is not finite.
    [[nodiscard]] static std::optional<DecimalNumber> FromDouble(double value);
    /// Ten to the power of \a exponent.
    [[nodiscard]] static DecimalNumber PowerOfTen(int exponent);

    /// The number in the form of documents, with at least \a decimals digits behind the point, all its
    /// digits, and without an exponent.
    [[nodiscard]] QString ToText(int decimals = 0) const;
    /// How many digits it has behind the point.
    [[nodiscard]] int GetDecimals() const noexcept { return exponent < 0 ? -exponent : 0; }
    [[nodiscard]] bool IsZero() const noexcept { return digits.isEmpty(); }
    [[nodiscard]] bool IsNegative() const noexcept { return negative; }
    [[nodiscard]] bool IsWhole() const noexcept { return exponent >= 0; }

    [[nodiscard]] DecimalNumber Plus(const DecimalNumber &other) const;
    [[nodiscard]] DecimalNumber Negated() const;
    [[nodiscard]] DecimalNumber Times(const DecimalNumber &other) const;
    /// The quotient; where it never ends, rounded to more digits than any number of a document has. \a
    /// divisor is not zero.
    [[nodiscard]] DecimalNumber DividedBy(const DecimalNumber &divisor) const;
    /// The nearest number with \a decimals digits behind the point.
    [[nodiscard]] DecimalNumber Rounded(int decimals) const;

    /// Below 0, 0 or above 0, as \a a is below, equal to or above \a b.
    [[nodiscard]] static int Compare(const DecimalNumber &a, const DecimalNumber &b);
    [[nodiscard]] bool operator==(const DecimalNumber &other) const { return Compare(*this, other) == 0; }
    [[nodiscard]] bool operator!=(const DecimalNumber &other) const { return !(*this == other); }
    [[nodiscard]] bool operator<(const DecimalNumber &other) const { return Compare(*this, other) < 0; }

private:
    [[nodiscard]] static DecimalNumber make(bool isNegative, QByteArray magnitude, int power);

    QByteArray digits; // from the most significant; without zeros at either end, empty for zero
    int exponent = 0; // of the last digit
    bool negative = false;
};

} // namespace KORMAK::Widgets

#endif
