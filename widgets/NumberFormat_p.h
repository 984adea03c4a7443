// Not installed. How people read and write the numbers of documents: in a unit, times a multiplier, in their
// locale.
#ifndef KORMAK_WIDGETS_NUMBERFORMAT_P_H
#define KORMAK_WIDGETS_NUMBERFORMAT_P_H

#include <widgets/DecimalNumber_p.h>
#include <widgets/NumberEdit.h>

#include <QLocale>

#include <optional>

namespace KORMAK::Widgets {

struct NumberFormat {
    using Type = NumberEdit::Type;

    /// What a text says.
    struct Reading {
        QVariant value; ///< invalid when it says none
        QString problem; ///< then why
    };

    Type type = Type::Whole64;
    QLocale locale;
    QString unit;
    bool isFrequency = false; ///< other units of frequencies may be typed
    bool isMirrored = false; ///< it stands in a text from right to left
    double multiplier = 1;
    int decimals = 0;
    QVariant minimum;
    QVariant maximum;

    [[nodiscard]] Reading read(const QString &text) const;
    /// Without the unit.
    [[nodiscard]] QString show(const QVariant &value) const;
    /// Without decimals that tell nothing.
    [[nodiscard]] QString showWithUnit(const QVariant &value) const;
    [[nodiscard]] QString problemOf(const QVariant &value) const;

    /// The power of ten of the digit left of \a position in \a shown, or right of it when there is none.
    [[nodiscard]] int placeAt(const QString &shown, int position) const;
    /// Where in \a shown the cursor stands right of the digit with the power of ten \a place.
    [[nodiscard]] int positionOf(const QString &shown, int place) const;
    /// \a value and \a steps times ten to the power of \a place, as it is shown; invalid when that cannot be
    /// held.
    [[nodiscard]] QVariant stepped(const QVariant &value, int steps, int place) const;

    /// \a value as it is shown; nothing for one that is not finite.
    [[nodiscard]] std::optional<DecimalNumber> shown(const QVariant &value) const;
    /// The value that is shown as \a number; invalid when it cannot be held.
    [[nodiscard]] QVariant held(const DecimalNumber &number) const;

private:
    [[nodiscard]] DecimalNumber factor() const;
    [[nodiscard]] QVariant store(const DecimalNumber &stored) const;
    [[nodiscard]] QString whyNotHeld(const DecimalNumber &stored) const;
    [[nodiscard]] QString showNumber(const DecimalNumber &shown) const;
    [[nodiscard]] QChar decimalPoint() const;
};

/// \a value, a whole number, float or double; nothing for any other and for what is not finite.
[[nodiscard]] std::optional<DecimalNumber> decimalOf(const QVariant &value);

/// \a value as documents have it.
[[nodiscard]] QString documentText(const QVariant &value);

} // namespace KORMAK::Widgets

#endif
