#include "widgets/BoundControl_p.h"

#include <widgets/ParameterText_p.h>
#include <widgets/ValueChange_p.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QCoreApplication>
#include <QEvent>
#include <QWidget>

#include <algorithm>
#include <utility>

namespace KORMAK::Widgets {

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("KORMAK::Binding", text);
}

/// Its own, or that of a label.
bool hasName(QWidget &control)
{
    const auto *const button = qobject_cast<QAbstractButton *>(&control);
    const QAccessibleInterface *const found = QAccessible::queryAccessibleInterface(&control);
    return !control.accessibleName().isEmpty() || (button && !button->text().isEmpty())
        || (found && !found->relations(QAccessible::Label).isEmpty());
}

} // namespace

BoundControl::BoundControl(QWidget &control, const BoundTo &link)
    : widget(&control), document(&link.document), model(link.model), isRefreshing(link.isRefreshing),
      parameterName(link.parameter), ownToolTip(control.toolTip()), mark(control)
{
    if (control.focusPolicy() == Qt::WheelFocus)
        control.setFocusPolicy(Qt::StrongFocus);
    control.installEventFilter(this);
}

void BoundControl::refresh(Typed typed)
{
    if (!widget || !document)
        return;
    const Parameter *const found = parameter();
    unfitness = found ? whyUnfit(*found) : noParameter(parameterName);
    const bool isSettable = found && unfitness.isEmpty() && found->IsEnabled()
        && index().data(ParameterModel::SettableRole).toBool();
    isShowing = true;
    const bool isOther = found && found->GetParameterType() != shownType;
    if (isOpen() && (typed == Typed::Dropped || !isSettable || isOther)) {
        const QString text = openText();
        if (typed == Typed::Kept && !text.isEmpty())
            dropped = droppedText(text,
                                  !unfitness.isEmpty() ? unfitness
                                      : isSettable     ? parameterOfOtherType()
                                                       : disabledParameter());
        discard();
    }
    if (!isOpen()) {
        refusal.clear();
        if (unfitness.isEmpty())
            unfitness = show(*found);
    }
    if (found && !hasName(*widget))
        widget->setAccessibleName(nameOf(*found));
    if (found) {
        shownType = found->GetParameterType();
        path = index().data(ParameterModel::ValuePathRole).toString();
    }
    updateProblem();
    widget->setEnabled(isSettable && unfitness.isEmpty());
    isShowing = false;
}

void BoundControl::tellDropped()
{
    const QString message = std::exchange(dropped, {});
    if (!message.isEmpty() && document)
        document->Refuse(path, message);
}

void BoundControl::takeOpen()
{
    if (!widget || !document || !parameter() || !isOpen())
        return;
    const QPointer<BoundControl> self(this);
    const QString reason = take();
    if (self && !reason.isEmpty())
        refuse(reason);
}

void BoundControl::release()
{
    if (!widget)
        return;
    widget->removeEventFilter(this);
    disconnect(widget, nullptr, this, nullptr);
    mark.show(ValueMark::None, {});
    widget->setToolTip(ownToolTip);
    widget = nullptr;
}

bool BoundControl::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Wheel && watched == widget && !widget->hasFocus()) {
        event->ignore(); // what is around scrolls
        return true;
    }
    if (watched == widget
        && (event->type() == QEvent::LocaleChange || event->type() == QEvent::LayoutDirectionChange))
        refresh();
    return (widget && document && filter(*event)) || QObject::eventFilter(watched, event);
}

void BoundControl::refused(const QString &reason)
{
    refresh();
    markRefused(reason);
}

void BoundControl::markRefused(const QString &reason)
{
    refusal = reason;
    updateProblem();
}

void BoundControl::change(const QVariant &wanted)
{
    if (isShowing || !wanted.isValid() || !widget || !document || !parameter())
        return;
    if (isRefreshing) { // who hears of a change makes another one later
        QMetaObject::invokeMethod(
            this, [this, wanted] { change(wanted); }, Qt::QueuedConnection);
        return;
    }
    refusal.clear();
    const QPointer<BoundControl> self(this);
    const QString reason = setParameterValue(model, index(), wanted, *document);
    if (!self || !widget || !document)
        return;
    if (reason.isEmpty())
        refresh(); // also when the document says the same as before
    else
        refused(reason);
}

void BoundControl::refuse(const QString &reason)
{
    markRefused(reason);
    document->Refuse(path, reason);
}

void BoundControl::updateProblem()
{
    const Parameter *const found = parameter();
    if (!widget)
        return;
    const bool isTold = !found || !unfitness.isEmpty() || marksItself();
    const Problem shown = isTold ? Problem{ValueMark::None, {}} : problem(*found);
    mark.show(shown.mark, shown.text);
    QString tip = unfitness;
    if (found && unfitness.isEmpty()) {
        const QString usual = ownToolTip.isEmpty() ? describe(*found, widget->locale()) : ownToolTip;
        tip = shown.text + (shown.text.isEmpty() || usual.isEmpty() ? QString() : QStringLiteral("\n\n"))
            + usual;
    }
    widget->setToolTip(tip);
}

BoundControl::Problem BoundControl::problem(const Parameter &found) const
{
    if (!refusal.isEmpty())
        return {ValueMark::Error, refusal};
    QVariant stands = value();
    if (isOpen()) {
        const auto [typed, reason] = readValue(found, openText(), widget->locale());
        if (!reason.isEmpty())
            return {ValueMark::Error, reason};
        stands = typed;
    }
    const QString ofValue = problemOf(found, stands, widget->locale());
    const QString text = ofValue.isEmpty() ? notes() : ofValue;
    return {text.isEmpty() ? ValueMark::None : ValueMark::Warning, text};
}

const Parameter *BoundControl::parameter() const
{
    return document ? findParameter(document->GetDocument(), parameterName) : nullptr;
}

QModelIndex BoundControl::index() const
{
    return model.index(model.GetRow(parameterName), ParameterModel::ValueColumn);
}

QString BoundControl::notes() const
{
    return index().data(ParameterModel::MessagesRole).toStringList().join(QLatin1Char('\n'));
}

NumberFormat BoundControl::formatOf(const Parameter &found) const
{
    NumberFormat format = Widgets::formatOf(found, widget->locale());
    format.isMirrored = widget->isRightToLeft();
    return format;
}

QString BoundControl::unfit(const Parameter &found) const
{
    const QString type = ParameterTypeToName(found.GetParameterType());
    return type.isEmpty() ? translated("the parameter has no type, and so no value")
                          : translated("a %1 is nothing for a parameter of the type %2")
                                .arg(QString::fromLatin1(widget->metaObject()->className()), type);
}

QString BoundControl::unfitUnless(const Parameter &found, std::initializer_list<ParameterType> types) const
{
    const bool isFit = std::find(types.begin(), types.end(), found.GetParameterType()) != types.end();
    return isFit ? QString() : unfit(found);
}

QString BoundControl::cannotBeShown(const Parameter &found) const
{
    return translated("%1 cannot be shown here as it is").arg(shownValue(found, value(), widget->locale()));
}

} // namespace KORMAK::Widgets
