#include "widgets/ValueEdit.h"

#include <widgets/ValueMark_p.h>

#include <QEvent>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QPainter>
#include <QPointer>
#include <QStyle>
#include <QStyleOptionFrame>
#include <QToolTip>
#include <QWheelEvent>

#include <algorithm>

namespace KORMAK {

using Widgets::ValueMark;

namespace {

constexpr int Gap = 4; // between the text, the unit and the mark
constexpr int MarkWidth = 14;
constexpr int InnerMargin = 2; // that Qt leaves beside the text of a line
constexpr int Page = 10; // steps

} // namespace

struct ValueEdit::Private {
    QVariant value;
    QString shown; // the text of the value
    QString unit;
    QString note;
    bool isNotTaken = false; // what was typed: it is no value, or was refused
    QString problem; // that is told
    QVariant former; // the value before the last one that was typed
    QString typed; // as which it was typed
    QString refusal; // of what was typed; empty: it was not refused
    int wheelAngle = 0;

    [[nodiscard]] ValueMark mark() const
    {
        if (isNotTaken)
            return ValueMark::Error;
        return problem.isEmpty() ? ValueMark::None : ValueMark::Warning;
    }
};

ValueEdit::ValueEdit(QWidget *parent) : QLineEdit(parent), d(std::make_unique<Private>())
{
    setFocusPolicy(Qt::StrongFocus);
    connect(this, &QLineEdit::textEdited, this, &ValueEdit::Edited);
    connect(this, &QLineEdit::textChanged, this, [this] { tell(); });
    connect(this, &QLineEdit::returnPressed, this, &ValueEdit::Take);
    placeMargins();
}

ValueEdit::~ValueEdit() = default;

QVariant ValueEdit::GetValue() const
{
    return d->value;
}

void ValueEdit::SetValue(const QVariant &value)
{
    d->refusal.clear();
    showValue(value);
}

void ValueEdit::showValue(const QVariant &value)
{
    d->value = value;
    Discard();
}

QString ValueEdit::GetUnit() const
{
    return d->unit;
}

void ValueEdit::SetUnit(const QString &unit)
{
    d->unit = unit;
    placeMargins();
    Refresh();
}

bool ValueEdit::IsOpen() const
{
    return text() != d->shown;
}

bool ValueEdit::Take()
{
    if (!IsOpen())
        return true;
    const Reading reading = Read(text());
    if (!reading.value.isValid())
        return false;
    d->typed = text();
    d->former = d->value;
    SetValue(reading.value);
    if (d->former == d->value)
        return true;
    const QPointer<ValueEdit> self(this);
    Q_EMIT Finished();
    return !self || !IsOpen();
}

void ValueEdit::Refuse(const QString &reason)
{
    d->refusal = reason;
    showValue(d->former);
    setText(d->typed);
}

void ValueEdit::Discard()
{
    d->shown = d->value.isValid() ? Show(d->value) : QString();
    if (text() != d->shown)
        setText(d->shown);
    tell();
}

QString ValueEdit::GetProblem() const
{
    return d->problem;
}

QString ValueEdit::GetNote() const
{
    return d->note;
}

void ValueEdit::SetNote(const QString &note)
{
    d->note = note;
    tell();
}

QSize ValueEdit::sizeHint() const
{
    const QMargins margins = textMargins();
    return QLineEdit::sizeHint() + QSize(margins.left() + margins.right(), 0);
}

QSize ValueEdit::minimumSizeHint() const
{
    const QMargins margins = textMargins();
    return QLineEdit::minimumSizeHint() + QSize(margins.left() + margins.right(), 0);
}

QString ValueEdit::ProblemOf(const QVariant & /*value*/) const
{
    return {};
}

QVariant ValueEdit::Step(int /*steps*/) const
{
    return {};
}

int ValueEdit::PlaceCursor(const QString &shown, int position) const
{
    // What is right of the cursor stays right of it.
    return std::max(0, static_cast<int>(text().size() - shown.size()) + position);
}

void ValueEdit::Refresh()
{
    if (IsOpen()) {
        d->shown = d->value.isValid() ? Show(d->value) : QString();
        tell();
    } else {
        Discard();
    }
}

void ValueEdit::changeEvent(QEvent *event)
{
    QLineEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange
        || event->type() == QEvent::LayoutDirectionChange)
        placeMargins();
    else if (event->type() == QEvent::LocaleChange)
        Refresh();
}

bool ValueEdit::event(QEvent *event)
{
    if (event->type() == QEvent::ShortcutOverride && IsOpen()
        && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) { // ours, not that of a dialogue around
        event->accept();
        return true;
    }
    if (event->type() != QEvent::ToolTip || d->problem.isEmpty())
        return QLineEdit::event(event);
    const QString tip = toolTip().isEmpty() ? d->problem : d->problem + QStringLiteral("\n\n") + toolTip();
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), tip, this);
    return true;
}

void ValueEdit::focusOutEvent(QFocusEvent *event)
{
    // A context menu or a popup over the line takes the focus, but not the text.
    const QPointer<ValueEdit> self(this);
    if (event->reason() != Qt::PopupFocusReason)
        Take();
    if (self)
        QLineEdit::focusOutEvent(event);
}

void ValueEdit::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Up:
        step(1);
        return;
    case Qt::Key_Down:
        step(-1);
        return;
    case Qt::Key_PageUp:
        step(Page);
        return;
    case Qt::Key_PageDown:
        step(-Page);
        return;
    case Qt::Key_Escape:
        if (IsOpen()) {
            Discard();
            selectAll();
            return;
        }
        break;
    default:
        break;
    }
    QLineEdit::keyPressEvent(event);
}

void ValueEdit::wheelEvent(QWheelEvent *event)
{
    if (!hasFocus() || isReadOnly()) {
        event->ignore(); // what is around scrolls
        return;
    }
    d->wheelAngle += event->angleDelta().y();
    const int steps = d->wheelAngle / QWheelEvent::DefaultDeltasPerStep;
    d->wheelAngle -= steps * QWheelEvent::DefaultDeltasPerStep;
    event->accept();
    if (steps != 0)
        step(steps);
}

void ValueEdit::step(int steps)
{
    if (isReadOnly() || !Take())
        return;
    const int position = cursorPosition();
    const QString before = text();
    const QVariant next = Step(steps);
    if (!next.isValid() || next == d->value)
        return;
    d->former = d->value;
    SetValue(next);
    d->typed = text();
    setCursorPosition(PlaceCursor(before, position));
    Q_EMIT Finished();
}

void ValueEdit::tell()
{
    const ValueMark before = d->mark();
    QVariant value = d->value;
    QString problem;
    d->isNotTaken = false;
    if (IsOpen()) {
        const Reading reading = Read(text());
        value = reading.value;
        d->isNotTaken = !value.isValid();
        problem = reading.problem;
    }
    if (value.isValid())
        problem = ProblemOf(value);
    if (IsOpen() && !d->refusal.isEmpty() && text() == d->typed) {
        d->isNotTaken = true;
        problem = d->refusal;
    }
    if (problem.isEmpty())
        problem = d->note;
    if (problem != d->problem) {
        d->problem = problem;
        setAccessibleDescription(problem);
    }
    if (d->mark() != before)
        placeMargins();
    update();
}

void ValueEdit::placeMargins()
{
    int behind = 0;
    if (!d->unit.isEmpty())
        behind += fontMetrics().horizontalAdvance(d->unit) + Gap;
    if (d->mark() != ValueMark::None)
        behind += MarkWidth + Gap;
    if (isRightToLeft())
        setTextMargins(behind, 0, 0, 0);
    else
        setTextMargins(0, 0, behind, 0);
    updateGeometry();
}

QRect ValueEdit::innerRect() const
{
    QStyleOptionFrame option;
    initStyleOption(&option);
    return style()
        ->subElementRect(QStyle::SE_LineEditContents, &option, this)
        .adjusted(InnerMargin, 0, -InnerMargin, 0);
}

void ValueEdit::paintEvent(QPaintEvent *event)
{
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    QRect inner = innerRect();
    const bool isMirrored = isRightToLeft();
    if (d->mark() != ValueMark::None) {
        QRect place = inner;
        place.setWidth(MarkWidth);
        if (!isMirrored)
            place.moveRight(inner.right());
        Widgets::paintMark(painter, place, d->mark(), palette());
        inner.adjust(isMirrored ? MarkWidth + Gap : 0, 0, isMirrored ? 0 : -MarkWidth - Gap, 0);
    }
    // Another unit that is being typed takes its place.
    const QString typed = IsOpen() ? text().trimmed() : QString();
    if (d->unit.isEmpty() || (!typed.isEmpty() && typed.at(typed.size() - 1).isLetter()))
        return;
    const QString &before = text().isEmpty() ? placeholderText() : text();
    const int unitWidth = fontMetrics().horizontalAdvance(d->unit);
    const int behind = std::min(fontMetrics().horizontalAdvance(before) + Gap, inner.width() - unitWidth);
    inner.adjust(isMirrored ? 0 : behind, 0, isMirrored ? -behind : 0, 0);
    painter.setPen(isEnabled() ? Widgets::remarkColor(palette())
                               : palette().color(QPalette::Disabled, QPalette::Text));
    painter.drawText(
        inner, static_cast<int>(Qt::AlignVCenter | (isMirrored ? Qt::AlignRight : Qt::AlignLeft)), d->unit);
}

} // namespace KORMAK
