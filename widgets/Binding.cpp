#include "widgets/Binding.h"

#include <kormak/Parameter.h>
#include <models/OpenDocument.h>
#include <models/ParameterModel.h>
#include <widgets/NumberEdit.h>
#include <widgets/ParameterControl.h>
#include <widgets/ParameterEdit.h>
#include <widgets/ParameterValue_p.h>

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDateTimeEdit>
#include <QDoubleSpinBox>
#include <QEvent>
#include <QLineEdit>
#include <QPointer>
#include <QRegularExpression>
#include <QSlider>
#include <QSpinBox>
#include <QWidget>

#include <algorithm>
#include <initializer_list>
#include <limits>
#include <memory>
#include <optional>
#include <vector>

namespace KORMAK {

namespace {

using Widgets::DecimalNumber;
using Widgets::NumberFormat;

const QString &prefix()
{
    static const QString text = QStringLiteral("kormak_");
    return text;
}

QString translated(const char *text)
{
    return QCoreApplication::translate("KORMAK::Binding", text);
}

QString noValue()
{
    return translated("the parameter has no type, and so no value");
}

QString noParameter(const QString &name)
{
    return translated("there is no parameter %1").arg(name);
}

/// \a shown as a whole number of 32 bits; nothing when it is none.
std::optional<int> wholeNumber(const std::optional<DecimalNumber> &shown)
{
    bool isWhole = false;
    const int number = shown ? shown->ToText().toInt(&isWhole) : 0;
    return isWhole ? std::optional(number) : std::nullopt;
}

DecimalNumber decimal(qint64 number)
{
    return Widgets::decimalOf(number).value_or(DecimalNumber());
}

/// What a control is connected with.
struct Link {
    ParameterModel &model;
    const OpenDocument &document;
    QString parameter; // its unique name
};

/// A control and the parameter that it is connected with.
class Bound : public QObject {
public:
    Bound(QWidget &control, const Link &link)
        : widget(&control), model(link.model), document(link.document), parameterName(link.parameter),
          ownToolTip(control.toolTip())
    {
        if (control.focusPolicy() == Qt::WheelFocus)
            control.setFocusPolicy(Qt::StrongFocus);
        control.installEventFilter(this);
    }

    /// Shows what the document says now.
    /// \return why it does not; empty when it does
    QString refresh()
    {
        if (!widget)
            return {};
        const Parameter *const found = parameter();
        QString reason = found ? whyUnfit(*found) : noParameter(parameterName);
        if (found && reason.isEmpty() && !isOpen()) {
            isShowing = true;
            reason = show(*found);
            isShowing = false;
        }
        const bool isEnabled = found && reason.isEmpty() && found->IsEnabled()
            && index().data(ParameterModel::SettableRole).toBool();
        if (!reason.isEmpty())
            widget->setToolTip(reason);
        else if (ownToolTip.isEmpty())
            widget->setToolTip(Widgets::describe(*found, widget->locale()));
        else
            widget->setToolTip(ownToolTip);
        // Last: what has the focus loses it and hands on what was typed, and the parameter is another one
        // then.
        widget->setEnabled(isEnabled);
        return reason;
    }

    /// Whether the control was not destroyed.
    [[nodiscard]] bool isThere() const { return widget; }

    /// Takes what was typed, or says why not.
    virtual void take(OpenDocument & /*receiver*/) { }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Wheel && watched == widget && !widget->hasFocus()) {
            event->ignore(); // what is around scrolls
            return true;
        }
        return QObject::eventFilter(watched, event);
    }

protected:
    /// Why this class of control is nothing for \a found; empty when it is.
    [[nodiscard]] virtual QString whyUnfit(const Parameter &found) const = 0;
    /// Shows the value.
    /// \return why it cannot be shown as it is; empty when it is shown
    [[nodiscard]] virtual QString show(const Parameter &found) = 0;
    /// Whether something was typed that is not taken yet.
    [[nodiscard]] virtual bool isOpen() const { return false; }
    /// Tells why what was set is not in the document.
    virtual void showRefusal(const QString &reason)
    {
        refresh();
        widget->setToolTip(reason);
    }

    [[nodiscard]] const Parameter *parameter() const
    {
        return Widgets::findParameter(document.GetDocument(), parameterName);
    }
    [[nodiscard]] QModelIndex index() const
    {
        return model.index(model.GetRow(parameterName), ParameterModel::ValueColumn);
    }
    [[nodiscard]] QVariant value() const { return index().data(ParameterModel::ValueRole); }
    [[nodiscard]] QString notes() const
    {
        return index().data(ParameterModel::MessagesRole).toStringList().join(QLatin1Char('\n'));
    }

    /// What people did, unless it is shown to them at the moment.
    /// \return whether the document has it now
    bool change(const QVariant &wanted)
    {
        if (isShowing || !wanted.isValid() || !parameter())
            return true;
        QString reason;
        const auto connection =
            connect(&document, &OpenDocument::Refused, this, [&reason](const QVector<Finding> &findings) {
                if (!findings.isEmpty())
                    reason = findings.constFirst().GetMessage();
            });
        const bool isDone = model.setData(index(), wanted, ParameterModel::ValueRole);
        disconnect(connection);
        if (!isDone && !reason.isEmpty() && widget)
            showRefusal(reason);
        return isDone || reason.isEmpty();
    }

    void refuse(OpenDocument &receiver, const QString &problem) const
    {
        receiver.Refuse(index().data(ParameterModel::ValuePathRole).toString(), problem);
    }

    [[nodiscard]] QString unfit(const Parameter &found) const
    {
        const QString type = ParameterTypeToName(found.GetParameterType());
        return type.isEmpty() ? noValue()
                              : translated("a %1 is nothing for a parameter of the type %2")
                                    .arg(QString::fromLatin1(widget->metaObject()->className()), type);
    }
    [[nodiscard]] QString unfitUnless(const Parameter &found,
                                      std::initializer_list<ParameterType> types) const
    {
        const bool isFit = std::find(types.begin(), types.end(), found.GetParameterType()) != types.end();
        return isFit ? QString() : unfit(found);
    }
    [[nodiscard]] QString cannotBeShown(const Parameter &found) const
    {
        return translated("%1 cannot be shown here as it is")
            .arg(Widgets::shownValue(found, value(), widget->locale()));
    }
    [[nodiscard]] NumberFormat formatOf(const Parameter &found) const
    {
        return Widgets::formatOf(found, widget->locale());
    }

private:
    QPointer<QWidget> widget;
    ParameterModel &model;
    const OpenDocument &document;
    QString parameterName;
    QString ownToolTip;
    bool isShowing = false;
};

class BoundParameterEdit : public Bound {
public:
    BoundParameterEdit(ParameterEdit &control, const Link &link) : Bound(control, link), edit(control)
    {
        connect(&edit, &ParameterEdit::Finished, this, [this] { change(edit.GetValue()); });
    }

    void take(OpenDocument &receiver) override
    {
        if (!edit.Take())
            refuse(receiver, edit.GetProblem());
    }

protected:
    [[nodiscard]] QString whyUnfit(const Parameter &found) const override
    {
        return ParameterControlOf(found) == ParameterControl::None ? noValue() : QString();
    }
    [[nodiscard]] QString show(const Parameter &found) override
    {
        edit.SetParameter(found);
        edit.SetNote(notes());
        return {};
    }
    [[nodiscard]] bool isOpen() const override { return edit.IsOpen(); }
    void showRefusal(const QString &reason) override { edit.SetNote(reason); }

private:
    ParameterEdit &edit;
};

class BoundNumberEdit : public Bound {
public:
    BoundNumberEdit(NumberEdit &control, const Link &link) : Bound(control, link), edit(control)
    {
        connect(&edit, &NumberEdit::Finished, this, [this] { change(edit.GetValue()); });
    }

    void take(OpenDocument &receiver) override
    {
        if (!edit.Take())
            refuse(receiver, edit.GetProblem());
    }

protected:
    [[nodiscard]] QString whyUnfit(const Parameter &found) const override
    {
        return unfitUnless(found,
                           {ParameterType::Integer, ParameterType::Long, ParameterType::TimeStamp,
                            ParameterType::Float, ParameterType::Double});
    }
    [[nodiscard]] QString show(const Parameter &found) override
    {
        const NumberFormat format = formatOf(found);
        edit.SetUnit(format.unit);
        edit.SetType(format.type);
        edit.SetMultiplier(format.multiplier);
        edit.SetDecimals(format.decimals);
        edit.SetLimits(format.minimum, format.maximum);
        edit.SetValue(value());
        edit.SetNote(notes());
        return {};
    }
    [[nodiscard]] bool isOpen() const override { return edit.IsOpen(); }
    void showRefusal(const QString &reason) override { edit.SetNote(reason); }

private:
    NumberEdit &edit;
};

class BoundCheckBox : public Bound {
public:
    BoundCheckBox(QCheckBox &control, const Link &link) : Bound(control, link), box(control)
    {
        connect(&box, &QCheckBox::toggled, this, [this](bool isOn) { change(isOn); });
    }

protected:
    [[nodiscard]] QString whyUnfit(const Parameter &found) const override
    {
        return unfitUnless(found, {ParameterType::Boolean});
    }
    [[nodiscard]] QString show(const Parameter & /*found*/) override
    {
        box.setChecked(value().toBool());
        return {};
    }

private:
    QCheckBox &box;
};

class BoundComboBox : public Bound {
public:
    BoundComboBox(QComboBox &control, const Link &link) : Bound(control, link), box(control)
    {
        connect(&box, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
                [this](int chosen) { change(chosen < 0 ? QVariant() : QVariant(chosen)); });
    }

protected:
    [[nodiscard]] QString whyUnfit(const Parameter &found) const override
    {
        return unfitUnless(found, {ParameterType::Enum});
    }
    [[nodiscard]] QString show(const Parameter & /*found*/) override
    {
        const QStringList names = index().data(ParameterModel::EntryNamesRole).toStringList();
        QStringList shown;
        for (int i = 0; i < box.count(); ++i)
            shown += box.itemText(i);
        if (names != shown) {
            box.clear();
            box.addItems(names);
        }
        box.setCurrentIndex(value().toInt());
        return {};
    }

private:
    QComboBox &box;
};

/// What was typed into a spin box or a date and time, and is not taken yet.
bool isTyped(const QAbstractSpinBox &box)
{
    const auto *const line = box.findChild<QLineEdit *>();
    return box.hasFocus() && line && line->isModified();
}

void takeTyped(QAbstractSpinBox &box)
{
    box.interpretText();
    if (auto *const line = box.findChild<QLineEdit *>())
        line->setModified(false);
}

class BoundSpinBox : public Bound {
public:
    BoundSpinBox(QSpinBox &control, const Link &link) : Bound(control, link), box(control)
    {
        box.setKeyboardTracking(false);
        connect(&box, QOverload<int>::of(&QSpinBox::valueChanged), this, [this](int number) {
            if (parameter())
                change(formatOf(*parameter()).held(decimal(number)));
        });
    }

    void take(OpenDocument & /*receiver*/) override { takeTyped(box); }

protected:
    [[nodiscard]] QString whyUnfit(const Parameter &found) const override
    {
        return unfitUnless(found, {ParameterType::Integer, ParameterType::Long});
    }
    [[nodiscard]] QString show(const Parameter &found) override
    {
        const NumberFormat format = formatOf(found);
        const auto shown = wholeNumber(format.shown(value()));
        if (!shown)
            return cannotBeShown(found);
        if (!format.held(decimal(1)).isValid())
            return translated("not every whole number can be held");
        using Range = std::numeric_limits<int>;
        // The range keeps nothing from being shown.
        box.setRange(std::min(wholeNumber(format.shown(format.minimum)).value_or(Range::min()), *shown),
                     std::max(wholeNumber(format.shown(format.maximum)).value_or(Range::max()), *shown));
        if (box.suffix().isEmpty() && !format.unit.isEmpty())
            box.setSuffix(QChar(0xA0) + format.unit);
        box.setValue(*shown);
        return {};
    }
    [[nodiscard]] bool isOpen() const override { return isTyped(box); }

private:
    QSpinBox &box;
};

class BoundDoubleSpinBox : public Bound {
public:
    BoundDoubleSpinBox(QDoubleSpinBox &control, const Link &link) : Bound(control, link), box(control)
    {
        box.setKeyboardTracking(false);
        connect(&box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, [this](double number) {
            const auto shown = DecimalNumber::FromText(QString::number(number, 'f', box.decimals()));
            if (parameter() && shown)
                change(formatOf(*parameter()).held(*shown));
        });
    }

    void take(OpenDocument & /*receiver*/) override { takeTyped(box); }

protected:
    [[nodiscard]] QString whyUnfit(const Parameter &found) const override
    {
        return unfitUnless(
            found,
            {ParameterType::Integer, ParameterType::Long, ParameterType::Float, ParameterType::Double});
    }
    [[nodiscard]] QString show(const Parameter &found) override
    {
        constexpr int MostDecimals = 15;
        const NumberFormat format = formatOf(found);
        const auto shown = format.shown(value());
        if (!shown || shown->GetDecimals() > MostDecimals)
            return cannotBeShown(found);
        const double number = shown->ToText().toDouble();
        const int decimals = std::max(format.decimals, shown->GetDecimals());
        const auto again = DecimalNumber::FromText(QString::number(number, 'f', decimals));
        if (!again || *again != *shown)
            return cannotBeShown(found);
        const auto limit = [&format](const QVariant &held, double none) {
            const auto limited = format.shown(held);
            return limited ? limited->ToText().toDouble() : none;
        };
        using Range = std::numeric_limits<double>;
        // Neither the decimals nor the range keep anything from being shown.
        box.setDecimals(decimals);
        box.setRange(std::min(limit(format.minimum, Range::lowest()), number),
                     std::max(limit(format.maximum, Range::max()), number));
        if (box.suffix().isEmpty() && !format.unit.isEmpty())
            box.setSuffix(QChar(0xA0) + format.unit);
        box.setValue(number);
        return {};
    }
    [[nodiscard]] bool isOpen() const override { return isTyped(box); }

private:
    QDoubleSpinBox &box;
};

class BoundSlider : public Bound {
public:
    BoundSlider(QSlider &control, const Link &link) : Bound(control, link), slider(control)
    {
        connect(&slider, &QSlider::valueChanged, this,
                [this](int number) { change(static_cast<qint64>(number)); });
    }

protected:
    [[nodiscard]] QString whyUnfit(const Parameter &found) const override
    {
        const QString reason = unfitUnless(found, {ParameterType::Integer, ParameterType::Long});
        const NumberFormat format = formatOf(found);
        return !reason.isEmpty() || (format.minimum.isValid() && format.maximum.isValid())
            ? reason
            : translated("a slider needs a minimum and a maximum");
    }
    [[nodiscard]] QString show(const Parameter &found) override
    {
        const NumberFormat format = formatOf(found);
        const int number = value().toInt();
        slider.setRange(std::min(format.minimum.toInt(), number), std::max(format.maximum.toInt(), number));
        slider.setValue(number);
        return {};
    }
    [[nodiscard]] bool isOpen() const override { return slider.isSliderDown(); }

private:
    QSlider &slider;
};

class BoundDateTimeEdit : public Bound {
public:
    BoundDateTimeEdit(QDateTimeEdit &control, const Link &link) : Bound(control, link), edit(control)
    {
        edit.setKeyboardTracking(false);
        edit.setTimeSpec(Qt::UTC);
        edit.setDisplayFormat(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"));
        connect(&edit, &QDateTimeEdit::dateTimeChanged, this, [this](const QDateTime &dateTime) {
            if (parameter())
                change(Widgets::readValue(*parameter(), textOf(dateTime), edit.locale()).value);
        });
    }

    void take(OpenDocument & /*receiver*/) override { takeTyped(edit); }

protected:
    [[nodiscard]] QString whyUnfit(const Parameter &found) const override
    {
        return ParameterControlOf(found) == ParameterControl::Moment ? QString() : unfit(found);
    }
    [[nodiscard]] QString show(const Parameter &found) override
    {
        // What is shown must be all of it: no digit behind the milliseconds, no year out of range.
        const QString shown = Widgets::shownValue(found, value(), edit.locale());
        QDateTime dateTime = QDateTime::fromString(shown, Qt::ISODateWithMs);
        dateTime.setTimeSpec(Qt::UTC);
        if (!dateTime.isValid()
            || Widgets::readValue(found, textOf(dateTime), edit.locale()).value != value())
            return cannotBeShown(found);
        edit.setDateTimeRange(QDateTime({1, 1, 1}, {0, 0}, Qt::UTC),
                              QDateTime({9999, 12, 31}, {23, 59, 59, 999}, Qt::UTC));
        edit.setDateTime(dateTime);
        return edit.dateTime() == dateTime ? QString() : cannotBeShown(found);
    }
    [[nodiscard]] bool isOpen() const override { return isTyped(edit); }

private:
    [[nodiscard]] static QString textOf(const QDateTime &dateTime)
    {
        return dateTime.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"));
    }

    QDateTimeEdit &edit;
};

class BoundLineEdit : public Bound {
public:
    BoundLineEdit(QLineEdit &control, const Link &link) : Bound(control, link), line(control)
    {
        connect(&line, &QLineEdit::editingFinished, this, [this] { takeText(); });
    }

    void take(OpenDocument &receiver) override
    {
        const QString problem = takeText();
        if (!problem.isEmpty())
            refuse(receiver, problem);
    }

protected:
    [[nodiscard]] QString whyUnfit(const Parameter &found) const override
    {
        switch (ParameterControlOf(found)) {
        case ParameterControl::Number:
        case ParameterControl::Frequency:
        case ParameterControl::Moment:
        case ParameterControl::Text:
            return {};
        default:
            return unfit(found);
        }
    }
    [[nodiscard]] QString show(const Parameter &found) override
    {
        line.setText(Widgets::shownValue(found, value(), line.locale()));
        line.setModified(false);
        return {};
    }
    [[nodiscard]] bool isOpen() const override { return line.isModified(); }
    void showRefusal(const QString &reason) override { line.setToolTip(reason); }

private:
    /// \return why what was typed is no value; it then stays
    QString takeText()
    {
        const Parameter *const found = parameter();
        if (!line.isModified() || !found)
            return {};
        const auto [wanted, problem] = Widgets::readValue(*found, line.text(), line.locale());
        line.setToolTip(problem);
        if (!wanted.isValid())
            return problem;
        line.setModified(false);
        if (change(wanted))
            refresh();
        else
            line.setModified(true); // it stays to be seen
        return {};
    }

    QLineEdit &line;
};

template <class BoundClass, class Control>
std::unique_ptr<Bound> boundAs(QWidget &control, const Link &link)
{
    auto *const found = qobject_cast<Control *>(&control);
    return found ? std::make_unique<BoundClass>(*found, link) : nullptr;
}

using Maker = std::unique_ptr<Bound> (*)(QWidget &, const Link &);

/// What is derived from another class stands before it.
constexpr Maker Makers[] = {
    boundAs<BoundParameterEdit, ParameterEdit>,
    boundAs<BoundNumberEdit, NumberEdit>,
    boundAs<BoundCheckBox, QCheckBox>,
    boundAs<BoundComboBox, QComboBox>,
    boundAs<BoundSpinBox, QSpinBox>,
    boundAs<BoundDoubleSpinBox, QDoubleSpinBox>,
    boundAs<BoundDateTimeEdit, QDateTimeEdit>,
    boundAs<BoundSlider, QSlider>,
    boundAs<BoundLineEdit, QLineEdit>,
};

std::unique_ptr<Bound> makeBound(QWidget &control, const Link &link)
{
    for (const Maker make : Makers) {
        if (auto bound = make(control, link))
            return bound;
    }
    return nullptr;
}

/// The parameter that a control is called after: by its name, else by the only one that differs from it in
/// characters that names of objects seldom have. Empty when there is none.
QString parameterCalled(const QString &called, const ParameterModel &model)
{
    if (model.GetRow(called) >= 0)
        return called;
    QString found;
    for (int row = 0; row < model.rowCount(); ++row) {
        const QString name = model.index(row, 0).data(ParameterModel::UniqueNameRole).toString();
        QString plain = name;
        for (QChar &character : plain) {
            if (!character.isLetterOrNumber())
                character = QLatin1Char('_');
        }
        if (plain != called)
            continue;
        if (!found.isEmpty())
            return {};
        found = name;
    }
    return found;
}

/// All that is connected in a widget.
class Bindings : public QObject {
public:
    Bindings(QWidget &parent, OpenDocument &receiver) : QObject(&parent), model(receiver)
    {
        setObjectName(QStringLiteral("kormakBindings"));
        connect(&model, &QAbstractItemModel::dataChanged, this, [this] { refresh(); });
        connect(&model, &QAbstractItemModel::modelReset, this, [this] { refresh(); });
        connect(&model, &QAbstractItemModel::rowsInserted, this, [this] { refresh(); });
        connect(&model, &QAbstractItemModel::rowsRemoved, this, [this] { refresh(); });
        connect(&receiver, &OpenDocument::OpenEditsWanted, this, [this, &receiver] {
            for (const auto &bound : controls) {
                if (bound->isThere())
                    bound->take(receiver);
            }
        });
        connect(&receiver, &QObject::destroyed, this, [this] { delete this; });
    }

    [[nodiscard]] QStringList add(QWidget &parent, const OpenDocument &receiver)
    {
        QStringList messages;
        const auto children = parent.findChildren<QWidget *>(QRegularExpression(QLatin1Char('^') + prefix()),
                                                             Qt::FindChildrenRecursively);
        for (QWidget *const child : children) {
            const QString called = child->objectName().mid(prefix().size());
            const QString name = parameterCalled(called, model);
            auto bound = makeBound(*child, {model, receiver, name.isEmpty() ? called : name});
            const QString reason = bound ? bound->refresh()
                                         : translated("a %1 cannot show a parameter")
                                               .arg(QString::fromLatin1(child->metaObject()->className()));
            if (!reason.isEmpty())
                messages += child->objectName() + QStringLiteral(": ") + reason;
            if (bound)
                controls.push_back(std::move(bound));
        }
        return messages;
    }

private:
    void refresh()
    {
        for (const auto &bound : controls)
            bound->refresh();
    }

    ParameterModel model;
    std::vector<std::unique_ptr<Bound>> controls;
};

} // namespace

QStringList Bind(QWidget &parent, OpenDocument &receiver)
{
    delete parent.findChild<QObject *>(QStringLiteral("kormakBindings"), Qt::FindDirectChildrenOnly);
    auto *const bindings = new Bindings(parent, receiver);
    return bindings->add(parent, receiver);
}

} // namespace KORMAK
