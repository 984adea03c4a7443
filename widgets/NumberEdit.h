#ifndef KORMAK_WIDGETS_NUMBEREDIT_H
#define KORMAK_WIDGETS_NUMBEREDIT_H

#include <widgets/ValueEdit.h>

namespace KORMAK {

namespace Widgets {
struct NumberFormat;
} // namespace Widgets

/// A line for a number of a document: in the unit, by the multiplier and with the decimals that its
/// parameter asks for, as people write numbers where they live.
///
/// \snippet docs/WidgetsSnippetsTest.cpp NumberEdit
///
/// No digit gets lost on the way between what is typed, shown and held: a number of 64 bits stands there
/// whole, and a number in double precision with all the digits that tell it apart. Blanks or the separator of
/// the locale may stand between thousands. A text that could be two numbers, as "14.263" where the point
/// separates thousands, is not taken; GetProblem() tells how to write it. The unit may be typed behind the
/// number. Up and down change the digit left of the cursor, page up and down the one before it. A value
/// outside the limits is marked, and neither refused nor moved.
class WIDGETS_EXPORT NumberEdit : public ValueEdit {
    Q_OBJECT

public:
    /// What numbers are held as.
    enum class Type : qint32 {
        Whole32, ///< whole numbers of 32 bits; values are qint64 all the same
        Whole64, ///< whole numbers of 64 bits; values are qint64
        Float, ///< in single precision; values are float
        Double, ///< in double precision; values are double
    };

    /// For whole numbers of 64 bits, without a unit.
    explicit NumberEdit(QWidget *parent = nullptr);
    ~NumberEdit() override;

    /// What its numbers are held as. A value is to be set again when it changes.
    [[nodiscard]] Type GetType() const noexcept;
    void SetType(Type type);

    /// What shown numbers are multiplied by to be held, as Parameter::GetMultiplier() says it: 1000 holds 15
    /// kHz as 15000. 0, infinity and NaN count as 1.
    [[nodiscard]] double GetMultiplier() const noexcept;
    void SetMultiplier(double multiplier);

    /// The most that SetDecimals() takes.
    static constexpr int MostDecimals = 100;
    /// How many digits are shown behind the decimal point, at least: a number that has more is shown with all
    /// of them. What is set outside 0 to MostDecimals counts as the nearer of both.
    [[nodiscard]] int GetDecimals() const noexcept;
    void SetDecimals(int decimals);

    /// The limits in terms of the value; invalid for none.
    [[nodiscard]] QVariant GetMinimum() const;
    [[nodiscard]] QVariant GetMaximum() const;
    void SetLimits(const QVariant &minimum, const QVariant &maximum);

    /// The value as documents have it: "14263000"; empty for none.
    [[nodiscard]] QString GetValueText() const;

protected:
    /// What units may be typed.
    enum class Units : qint32 {
        Shown, ///< that which is shown
        Frequencies, ///< those of frequencies
    };

    /// As the other one, and \a units may be typed.
    NumberEdit(Units units, QWidget *parent);

    [[nodiscard]] Reading Read(const QString &text) const override;
    [[nodiscard]] QString Show(const QVariant &value) const override;
    [[nodiscard]] QString ProblemOf(const QVariant &value) const override;
    [[nodiscard]] QVariant Step(int steps) const override;
    [[nodiscard]] int PlaceCursor(const QString &shown, int position) const override;

private:
    struct Private;

    [[nodiscard]] WIDGETS_NO_EXPORT Widgets::NumberFormat format() const;

    std::unique_ptr<Private> d;
};

} // namespace KORMAK

#endif
