#include "widgets/ParameterEdit.h"

#include <kormak/Parameter.h>
#include <models/ParameterValue_p.h>
#include <widgets/ComboBox_p.h>
#include <widgets/FrequencyEdit.h>
#include <widgets/LineEdits_p.h>
#include <widgets/ParameterText_p.h>
#include <widgets/ValueMark_p.h>

#include <QCheckBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QHelpEvent>
#include <QPainter>
#include <QStyleOptionComboBox>
#include <QToolTip>

#include <utility>

namespace KORMAK {

namespace {

class MarkedBox : public Widgets::ComboBox {
public:
    using ComboBox::ComboBox;

    void setMarked(bool marked)
    {
        isMarked = marked;
        update();
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QComboBox::paintEvent(event);
        if (!isMarked)
            return;
        constexpr int Width = 16;
        QStyleOptionComboBox option;
        initStyleOption(&option);
        QRect place =
            style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
        if (isRightToLeft())
            place.setRight(place.left() + Width);
        else
            place.setLeft(place.right() - Width);
        QPainter painter(this);
        Widgets::paintMark(painter, place, Widgets::ValueMark::Warning, palette());
    }

private:
    bool isMarked = false;
};

/// The sign of a problem beside a control that has no room for it.
class MarkLabel : public QWidget {
public:
    explicit MarkLabel(QWidget *parent) : QWidget(parent)
    {
        constexpr int Side = 14;
        setFixedSize(Side, Side);
        hide();
    }

protected:
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        Widgets::paintMark(painter, rect(), Widgets::ValueMark::Warning, palette());
    }
};

} // namespace

/// What all controls have in common.
class ParameterEdit::Control {
public:
    Control() = default;
    Control(const Control &) = delete;
    Control &operator=(const Control &) = delete;
    virtual ~Control() = default;

    [[nodiscard]] virtual QWidget *widget() = 0;
    virtual void show(const Parameter &parameter) = 0; // how it is edited
    virtual void setValue(const QVariant &value) = 0;
    [[nodiscard]] virtual QVariant value() const = 0;
    [[nodiscard]] virtual ValueEdit *line() { return nullptr; }
    /// \return false when there is no room for a mark in the control
    virtual bool mark(bool /*isMarked*/) { return false; }
    /// Whether it takes the room that there is.
    [[nodiscard]] virtual bool isWide() const { return true; }
};

struct ParameterEdit::Private {
    Parameter parameter;
    ParameterControl kind = ParameterControl::None;
    std::unique_ptr<Control> control;
    MarkLabel *mark = nullptr;
    QString note;
    // Of a control that is no line:
    QString problem;
    QString refusal; // of what was chosen
    QVariant known; // the value as it was set or told last
    QVariant former; // the one before it

    [[nodiscard]] ValueEdit *line() const { return control ? control->line() : nullptr; }

    class WIDGETS_NO_EXPORT CheckBoxControl;
    class WIDGETS_NO_EXPORT ChoiceControl;
    template <class Line>
    class WIDGETS_NO_EXPORT LineControl;

    [[nodiscard]] WIDGETS_NO_EXPORT static std::unique_ptr<Control> make(ParameterControl kind,
                                                                         ParameterEdit &edit);
};

class ParameterEdit::Private::CheckBoxControl : public Control {
public:
    explicit CheckBoxControl(ParameterEdit &edit) : box(new QCheckBox(&edit))
    {
        connect(box, &QCheckBox::toggled, &edit, &ParameterEdit::Finished);
    }

    [[nodiscard]] QWidget *widget() override { return box; }
    void show(const Parameter & /*edited*/) override { }
    void setValue(const QVariant &value) override
    {
        const QSignalBlocker blocker(box);
        box->setChecked(value.toBool());
    }
    [[nodiscard]] QVariant value() const override { return box->isChecked(); }
    [[nodiscard]] bool isWide() const override { return false; }

private:
    QCheckBox *box;
};

class ParameterEdit::Private::ChoiceControl : public Control {
public:
    explicit ChoiceControl(ParameterEdit &edit) : box(new MarkedBox(&edit))
    {
        box->setFocusPolicy(Qt::StrongFocus);
        box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
        connect(box, QOverload<int>::of(&QComboBox::currentIndexChanged), &edit, &ParameterEdit::Finished);
    }

    [[nodiscard]] QWidget *widget() override { return box; }
    void show(const Parameter &edited) override
    {
        const QSignalBlocker blocker(box);
        box->clear();
        for (const EnumHandler::EnumValue &entry : edited.GetEnumHandler().GetEnumList()) {
            box->addItem(entry.Name);
            QString details = QString::number(entry.Key);
            if (!entry.Identifier.isEmpty())
                details += QStringLiteral(", ") + entry.Identifier;
            box->setItemData(box->count() - 1, details, Qt::ToolTipRole);
        }
        // An entry that is none of them stays to be seen.
        box->setPlaceholderText(edited.GetEnumHandler().GetDefaultValue().Name);
    }
    void setValue(const QVariant &value) override
    {
        const QSignalBlocker blocker(box);
        box->setCurrentIndex(value.isValid() ? value.toInt() : -1);
    }
    [[nodiscard]] QVariant value() const override
    {
        return box->count() > 0 ? QVariant(static_cast<qint64>(box->currentIndex())) : QVariant();
    }
    bool mark(bool isMarked) override
    {
        box->setMarked(isMarked);
        return true;
    }

private:
    MarkedBox *box;
};

template <class Line>
class ParameterEdit::Private::LineControl : public Control {
public:
    explicit LineControl(ParameterEdit &edit) : shown(new Line(&edit))
    {
        connect(shown, &ValueEdit::Edited, &edit, &ParameterEdit::Edited);
        connect(shown, &ValueEdit::Finished, &edit, &ParameterEdit::Finished);
    }

    [[nodiscard]] QWidget *widget() override { return shown; }
    [[nodiscard]] ValueEdit *line() override { return shown; }
    void show(const Parameter &edited) override
    {
        const Widgets::NumberFormat format = Widgets::formatOf(edited, shown->locale());
        if constexpr (!std::is_same_v<Widgets::MomentEdit, Line>)
            shown->SetUnit(edited.GetDisplaySuffix());
        if constexpr (std::is_base_of_v<NumberEdit, Line>) {
            shown->SetType(format.type);
            shown->SetMultiplier(format.multiplier);
            shown->SetDecimals(format.decimals);
            shown->SetLimits(format.minimum, format.maximum);
        } else if constexpr (std::is_same_v<Widgets::MomentEdit, Line>) {
            shown->SetFormat(format);
        } else if constexpr (std::is_same_v<Widgets::NumberListEdit, Line>) {
            shown->SetFormat(format, edited.GetDoubleHandler().GetMaxDoubleListLength());
        }
    }
    void setValue(const QVariant &value) override { shown->SetValue(value); }
    [[nodiscard]] QVariant value() const override { return shown->GetValue(); }

private:
    Line *shown;
};

std::unique_ptr<ParameterEdit::Control> ParameterEdit::Private::make(ParameterControl kind,
                                                                     ParameterEdit &edit)
{
    switch (kind) {
    case ParameterControl::CheckBox:
        return std::make_unique<CheckBoxControl>(edit);
    case ParameterControl::Choice:
        return std::make_unique<ChoiceControl>(edit);
    case ParameterControl::Number:
        return std::make_unique<LineControl<NumberEdit>>(edit);
    case ParameterControl::Frequency:
        return std::make_unique<LineControl<FrequencyEdit>>(edit);
    case ParameterControl::Moment:
        return std::make_unique<LineControl<Widgets::MomentEdit>>(edit);
    case ParameterControl::Text:
        return std::make_unique<LineControl<Widgets::TextEdit>>(edit);
    case ParameterControl::NumberList:
    case ParameterControl::FrequencyList:
        return std::make_unique<LineControl<Widgets::NumberListEdit>>(edit);
    case ParameterControl::None:
        break;
    }
    return nullptr;
}

ParameterEdit::ParameterEdit(QWidget *parent) : QWidget(parent), d(std::make_unique<Private>())
{
    auto *const layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    d->mark = new MarkLabel(this);
    layout->addWidget(d->mark);
    layout->addStretch(0);
    connect(this, &ParameterEdit::Finished, this, [this] {
        d->former = std::exchange(d->known, GetValue());
        d->refusal.clear();
        tell();
    });
}

ParameterEdit::~ParameterEdit()
{
    // Losing the focus, it would take what is typed, and there would be nobody to tell.
    if (d->control)
        disconnect(d->control->widget(), nullptr, this, nullptr);
}

const Parameter &ParameterEdit::GetParameter() const noexcept
{
    return d->parameter;
}

ParameterControl ParameterEdit::GetControl() const noexcept
{
    return d->kind;
}

void ParameterEdit::SetParameter(const Parameter &parameter)
{
    d->parameter = parameter;
    const ParameterControl kind = ParameterControlOf(parameter);
    if (kind != d->kind) {
        d->kind = kind;
        makeControl();
    }
    setAccessibleName(Widgets::nameOf(parameter));
    if (d->control) {
        d->control->widget()->setAccessibleName(Widgets::nameOf(parameter));
        d->control->widget()->setToolTip(Widgets::describe(parameter, locale()));
        d->control->show(parameter);
    }
    setToolTip(Widgets::describe(parameter, locale()));
    SetValue(ParameterValue(parameter).value);
}

void ParameterEdit::makeControl()
{
    if (d->control) {
        // Later: it may be what has just told that its value is another one.
        QWidget *const former = d->control->widget();
        disconnect(former, nullptr, this, nullptr);
        former->hide();
        former->setParent(nullptr);
        former->deleteLater();
    }
    setFocusProxy(nullptr);
    d->control = Private::make(d->kind, *this);
    if (!d->control)
        return;
    QWidget *const widget = d->control->widget();
    auto *const box = static_cast<QHBoxLayout *>(layout());
    box->insertWidget(0, widget, d->control->isWide() ? 1 : 0);
    box->setStretch(2, d->control->isWide() ? 0 : 1);
    setFocusProxy(widget);
    setFocusPolicy(widget->focusPolicy());
    if (isVisible())
        widget->show();
}

QVariant ParameterEdit::GetValue() const
{
    return d->control ? d->control->value() : QVariant();
}

void ParameterEdit::SetValue(const QVariant &value)
{
    d->known = value;
    d->refusal.clear();
    if (d->control)
        d->control->setValue(value);
    SetNote(d->note);
}

bool ParameterEdit::IsOpen() const
{
    return d->line() && d->line()->IsOpen();
}

bool ParameterEdit::Take()
{
    return !d->line() || d->line()->Take();
}

void ParameterEdit::Refuse(const QString &reason)
{
    if (d->line()) {
        d->line()->Refuse(reason);
        return;
    }
    SetValue(d->former);
    d->refusal = reason;
    tell();
}

void ParameterEdit::Discard()
{
    if (d->line())
        d->line()->Discard();
}

QString ParameterEdit::GetProblem() const
{
    return d->line() ? d->line()->GetProblem() : d->problem;
}

void ParameterEdit::SetNote(const QString &note)
{
    d->note = note;
    tell();
}

void ParameterEdit::tell()
{
    if (d->line()) {
        d->line()->SetNote(d->note);
        d->mark->hide();
        return;
    }
    d->problem = d->refusal;
    if (d->problem.isEmpty() && d->control)
        d->problem = Widgets::problemOf(d->parameter, GetValue(), locale());
    if (d->problem.isEmpty())
        d->problem = d->note;
    const bool isMarked = !d->problem.isEmpty();
    d->mark->setVisible(!(d->control && d->control->mark(isMarked)) && isMarked);
    if (d->control)
        d->control->widget()->setAccessibleDescription(d->problem);
}

void ParameterEdit::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::LocaleChange && d->control && !IsOpen()) {
        const QVariant value = GetValue();
        d->control->show(d->parameter);
        d->control->setValue(value);
    }
}

bool ParameterEdit::event(QEvent *event)
{
    if (event->type() != QEvent::ToolTip || d->problem.isEmpty())
        return QWidget::event(event);
    const QString tip = toolTip().isEmpty() ? d->problem : d->problem + QStringLiteral("\n\n") + toolTip();
    QToolTip::showText(static_cast<QHelpEvent *>(event)->globalPos(), tip, this);
    return true;
}

} // namespace KORMAK
