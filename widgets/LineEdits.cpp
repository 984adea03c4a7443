#include "widgets/LineEdits_p.h"

#include <widgets/NumberList_p.h>

namespace KORMAK::Widgets {

ValueEdit::Reading TextEdit::Read(const QString &text) const
{
    return {text, {}};
}

QString TextEdit::Show(const QVariant &value) const
{
    return value.toString();
}

MomentEdit::MomentEdit(QWidget *parent) : ValueEdit(parent)
{
    connect(this, &QLineEdit::textChanged, this, [this] {
        if (GetUnit() != format.unitOf(text()))
            SetUnit(format.unitOf(text()));
    });
}

void MomentEdit::SetFormat(const NumberFormat &number)
{
    format = {number};
    Refresh();
}

ValueEdit::Reading MomentEdit::Read(const QString &text) const
{
    const auto [value, problem] = format.read(text);
    return {value, problem};
}

QString MomentEdit::Show(const QVariant &value) const
{
    return format.show(value);
}

QString MomentEdit::ProblemOf(const QVariant &value) const
{
    return format.problemOf(value);
}

QVariant MomentEdit::Step(int steps) const
{
    return format.stepped(GetValue(), text(), cursorPosition(), steps);
}

int MomentEdit::PlaceCursor(const QString & /*shown*/, int position) const
{
    return position; // its parts have fixed places
}

void NumberListEdit::SetFormat(const NumberFormat &number, int mostNumbers)
{
    format = number;
    mostValues = mostNumbers;
    Refresh();
}

NumberFormat NumberListEdit::inLocale() const
{
    NumberFormat current = format;
    current.locale = locale();
    current.isMirrored = isRightToLeft();
    return current;
}

ValueEdit::Reading NumberListEdit::Read(const QString &text) const
{
    const auto [value, problem] = readList(inLocale(), text);
    return {value, problem};
}

QString NumberListEdit::Show(const QVariant &value) const
{
    return showList(inLocale(), value.toList());
}

QString NumberListEdit::ProblemOf(const QVariant &value) const
{
    return problemOfList(inLocale(), value.toList(), mostValues);
}

} // namespace KORMAK::Widgets
