// The checks of HandlerChecks.h for handlers of numbers: their common fields, NaN and the zeros.
#ifndef KORMAK_NUMERICHANDLERCHECKS_H
#define KORMAK_NUMERICHANDLERCHECKS_H

#include "HandlerChecks.h"

#include <cmath>
#include <limits>

namespace HandlerChecks {

template <class Number>
using Limits = std::numeric_limits<Number>;

inline const QVector<int> Integers{3, 5, 0, -1, Limits<int>::min(), Limits<int>::max()};

/// The fields that every handler of numbers has.
template <class Class, class Number>
std::vector<Field<Class>> numericFields(Number minimum, Number maximum, const Start<Number> &value)
{
    QVector<Number> numbers{Number(-7), Number(12), Number(0), Limits<Number>::lowest(),
                            Limits<Number>::max()};
    if constexpr (std::is_floating_point_v<Number>) {
        numbers << Limits<Number>::quiet_NaN() << Limits<Number>::infinity() << -Limits<Number>::infinity()
                << Number(-0.0) << Limits<Number>::denorm_min() << Number(-111111.11);
    }
    const QVector<double> multipliers{
        0.5, 1000.0, 0.0, -0.0, -1.0, Limits<double>::quiet_NaN(), Limits<double>::infinity()};
    return {
        field<Class, double>("multiplier", &Class::GetMultiplier, &Class::SetMultiplier, multipliers,
                             resetTo(1.0), Compared::No),
        field<Class, Number>("minimum", &Class::GetMinimum, &Class::SetMinimum, numbers, resetTo(minimum)),
        field<Class, Number>("maximum", &Class::GetMaximum, &Class::SetMaximum, numbers, resetTo(maximum)),
        field<Class, Number>("default", &Class::GetDefault, &Class::SetDefault, numbers, resetTo(Number(0))),
        field<Class, Number>("value", &Class::GetValue, &Class::SetValue, numbers, value)};
}

/// All of it is stored; judging it is the owner's business.
template <class Class>
void addMinimumAboveMaximum(const Handler<Class> &handler)
{
    addRow(handler.name, [handler] {
        auto object = filled(handler, 0);
        object.SetMinimum(10);
        object.SetMaximum(-10);
        object.SetDefault(100);
        object.SetValue(-100);
        QCOMPARE(static_cast<int>(object.GetMinimum()), 10);
        QCOMPARE(static_cast<int>(object.GetMaximum()), -10);
        QCOMPARE(static_cast<int>(object.GetDefault()), 100);
        QCOMPARE(static_cast<int>(object.GetValue()), -100);
    });
}

/// A row for each number that is compared, with one left and right value each.
template <class Class, class Number>
void addComparisons(const QString &className, const QString &description, Number left, Number right,
                    bool areEqual)
{
    using Set = void (Class::*)(Number);
    const std::pair<const char *, Set> setters[] = {{"minimum", &Class::SetMinimum},
                                                    {"maximum", &Class::SetMaximum},
                                                    {"default", &Class::SetDefault},
                                                    {"value", &Class::SetValue}};
    for (const auto &[name, set] : setters) {
        addRow(className + ", " + name + ", " + description, [set = set, left, right, areEqual] {
            Class one;
            Class other;
            (one.*set)(left);
            (other.*set)(right);
            QCOMPARE(one == other, areEqual);
            QCOMPARE(other == one, areEqual);
            QCOMPARE(one != other, !areEqual);
            const Class copy = one;
            QCOMPARE(one == copy, !std::isnan(left));
            const Class &same = one;
            QCOMPARE(one == same, !std::isnan(left));
        });
    }
}

template <class Class, class Number>
void addSpecialNumbers(const QString &className)
{
    const Number notANumber = Limits<Number>::quiet_NaN();
    addComparisons<Class, Number>(className, "NaN on both sides", notANumber, notANumber, false);
    addComparisons<Class, Number>(className, "NaN on one side", notANumber, Number(0), false);
    addComparisons<Class, Number>(className, "zeros of both signs", Number(0.0), Number(-0.0), true);
    addComparisons<Class, Number>(className, "neighbours", Number(1), std::nextafter(Number(1), Number(2)),
                                  false);
    addComparisons<Class, Number>(className, "infinities", Limits<Number>::infinity(),
                                  Limits<Number>::infinity(), true);
    addRow(className + ", multiplier, NaN", [] {
        Class one;
        one.SetMultiplier(Limits<double>::quiet_NaN());
        QVERIFY(one == Class(one));
        QVERIFY(one == Class());
    });
}

} // namespace HandlerChecks

#endif
