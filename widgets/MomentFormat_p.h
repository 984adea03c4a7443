// Not installed. How people read and write moments that are held as counts of a unit of time since 1970, in
// UTC.
#ifndef KORMAK_WIDGETS_MOMENTFORMAT_P_H
#define KORMAK_WIDGETS_MOMENTFORMAT_P_H

#include <widgets/NumberFormat_p.h>

#include <optional>

namespace KORMAK::Widgets {

/// "2026-03-14 06:30:00.000001", to the last digit. What is beyond the years 1 to 9999 is a number.
struct MomentFormat {
    /// How the number of units is held; its unit is one of time.
    NumberFormat number;

    /// The power of ten of seconds that \a unit is: -3 for "ms". Nothing when it is no unit of time.
    [[nodiscard]] static std::optional<int> PowerOfUnit(const QString &unit);

    [[nodiscard]] NumberFormat::Reading read(const QString &text) const;
    [[nodiscard]] QString show(const QVariant &value) const;
    /// What stands behind \a shown: a number has its unit already.
    [[nodiscard]] QString unitOf(const QString &shown) const;
    [[nodiscard]] QString problemOf(const QVariant &value) const;
    /// \a value with the part of the date or time at \a position of \a shown moved by \a steps; invalid when
    /// there is none.
    [[nodiscard]] QVariant stepped(const QVariant &value, const QString &shown, int position,
                                   int steps) const;

private:
    [[nodiscard]] int power() const;
};

} // namespace KORMAK::Widgets

#endif
