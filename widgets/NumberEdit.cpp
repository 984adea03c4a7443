#include "widgets/NumberEdit.h"

#include <widgets/NumberFormat_p.h>

#include <algorithm>

namespace KORMAK {

struct NumberEdit::Private {
    Units units = Units::Shown;
    Type type = Type::Whole64;
    double multiplier = 1;
    int decimals = 0;
    QVariant minimum;
    QVariant maximum;
    /// The place of the last step, while the cursor stays: the digit may be gone after it.
    mutable int place = 0;
    mutable int steppedPosition = -1;
    mutable QString steppedText;
};

NumberEdit::NumberEdit(QWidget *parent) : NumberEdit(Units::Shown, parent) { }

NumberEdit::NumberEdit(Units units, QWidget *parent) : ValueEdit(parent), d(std::make_unique<Private>())
{
    d->units = units;
    setInputMethodHints(Qt::ImhPreferNumbers);
}

NumberEdit::~NumberEdit() = default;

NumberEdit::Type NumberEdit::GetType() const noexcept
{
    return d->type;
}

void NumberEdit::SetType(Type type)
{
    d->type = type;
    Refresh();
}

double NumberEdit::GetMultiplier() const noexcept
{
    return d->multiplier;
}

void NumberEdit::SetMultiplier(double multiplier)
{
    d->multiplier = multiplier;
    Refresh();
}

int NumberEdit::GetDecimals() const noexcept
{
    return d->decimals;
}

void NumberEdit::SetDecimals(int decimals)
{
    d->decimals = std::clamp(decimals, 0, MostDecimals);
    Refresh();
}

QVariant NumberEdit::GetMinimum() const
{
    return d->minimum;
}

QVariant NumberEdit::GetMaximum() const
{
    return d->maximum;
}

void NumberEdit::SetLimits(const QVariant &minimum, const QVariant &maximum)
{
    d->minimum = minimum;
    d->maximum = maximum;
    Refresh();
}

QString NumberEdit::GetValueText() const
{
    return Widgets::documentText(GetValue());
}

Widgets::NumberFormat NumberEdit::format() const
{
    Widgets::NumberFormat format;
    format.type = d->type;
    format.locale = locale();
    format.unit = GetUnit();
    format.isFrequency = d->units == Units::Frequencies;
    format.isMirrored = isRightToLeft();
    format.multiplier = d->multiplier;
    format.decimals = d->decimals;
    format.minimum = d->minimum;
    format.maximum = d->maximum;
    return format;
}

ValueEdit::Reading NumberEdit::Read(const QString &text) const
{
    const auto [value, problem] = format().read(text);
    return {value, problem};
}

QString NumberEdit::Show(const QVariant &value) const
{
    return format().show(value);
}

QString NumberEdit::ProblemOf(const QVariant &value) const
{
    return format().problemOf(value);
}

QVariant NumberEdit::Step(int steps) const
{
    if (cursorPosition() != d->steppedPosition || text() != d->steppedText)
        d->place = format().placeAt(text(), cursorPosition());
    return format().stepped(GetValue(), steps, d->place);
}

int NumberEdit::PlaceCursor(const QString & /*shown*/, int /*position*/) const
{
    d->steppedText = text();
    d->steppedPosition = format().positionOf(d->steppedText, d->place);
    return d->steppedPosition;
}

} // namespace KORMAK
