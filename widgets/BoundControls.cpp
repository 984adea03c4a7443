#include "widgets/BoundControl_p.h"

#include <widgets/NumberEdit.h>
#include <widgets/ParameterControl.h>
#include <widgets/ParameterEdit.h>
#include <widgets/ParameterText_p.h>

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDateTimeEdit>
#include <QDoubleSpinBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPointer>
#include <QSlider>
#include <QSpinBox>

#include <algorithm>
#include <limits>
#include <memory>
#include <optional>

namespace KORMAK::Widgets {

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("KORMAK::Binding", text);
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
    return decimalOf(number).value_or(DecimalNumber());
}

/// Takes what was typed in \a edit, a ParameterEdit or NumberEdit.
/// \return why it is no value. What a document refuses, that has told already.
template <class Edit>
QString takeFrom(Edit &edit)
{
    const QPointer<Edit> self(&edit);
    bool isToldOf = false;
    const QObject listening;
    QObject::connect(&edit, &Edit::Finished, &listening, [&isToldOf] { isToldOf = true; });
    return edit.Take() || isToldOf || !self ? QString() : edit.GetProblem();
}

class BoundParameterEdit : public BoundControl {
public:
    BoundParameterEdit(ParameterEdit &control, const BoundTo &link)
        : BoundControl(control, link), edit(control)
    {
        connect(&edit, &ParameterEdit::Finished, this, [this] { change(edit.GetValue()); });
    }

protected:
    [[nodiscard]] QString whyUnfit(const Parameter &found) const override
    {
        return ParameterControlOf(found) == ParameterControl::None ? unfit(found) : QString();
    }
    [[nodiscard]] QString show(const Parameter &found) override
    {
        edit.SetParameter(found);
        edit.SetNote(notes());
        return {};
    }
    [[nodiscard]] bool isOpen() const override { return edit.IsOpen(); }
    [[nodiscard]] QString openText() const override { return edit.findChild<QLineEdit *>()->text(); }
    void discard() override { edit.Discard(); }
    [[nodiscard]] QString take() override { return takeFrom(edit); }
    void refused(const QString &reason) override { edit.Refuse(reason); }
    [[nodiscard]] bool marksItself() const override { return true; }

private:
    ParameterEdit &edit;
};

class BoundNumberEdit : public BoundControl {
public:
    BoundNumberEdit(NumberEdit &control, const BoundTo &link) : BoundControl(control, link), edit(control)
    {
        connect(&edit, &NumberEdit::Finished, this, [this] { change(edit.GetValue()); });
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
    [[nodiscard]] QString openText() const override { return edit.text(); }
    void discard() override { edit.Discard(); }
    [[nodiscard]] QString take() override { return takeFrom(edit); }
    void refused(const QString &reason) override { edit.Refuse(reason); }
    [[nodiscard]] bool marksItself() const override { return true; }

private:
    NumberEdit &edit;
};

class BoundCheckBox : public BoundControl {
public:
    BoundCheckBox(QCheckBox &control, const BoundTo &link) : BoundControl(control, link), box(control)
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

class BoundComboBox : public BoundControl {
public:
    BoundComboBox(QComboBox &control, const BoundTo &link) : BoundControl(control, link), box(control)
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

/// A spin box or a date and time: they put back what they cannot read, which is told here.
class BoundStepBox : public BoundControl {
public:
    BoundStepBox(QAbstractSpinBox &control, const BoundTo &link)
        : BoundControl(control, link), stepBox(control), line(control.findChild<QLineEdit *>())
    {
        stepBox.setKeyboardTracking(false);
        connect(&stepBox, &QAbstractSpinBox::editingFinished, this, [this] { settle(); });
        if (line)
            connect(line, &QLineEdit::textEdited, this, [this] { updateProblem(); });
    }

protected:
    [[nodiscard]] bool isOpen() const override { return line && line->isModified(); }
    [[nodiscard]] QString openText() const override
    {
        QString text = line->text();
        const QString unit = suffix();
        return unit.isEmpty() || !text.endsWith(unit) ? text : text.chopped(unit.size());
    }
    void discard() override { settle(); }
    [[nodiscard]] QString take() override
    {
        QString reason = whyUnreadable();
        if (!reason.isEmpty())
            return reason;
        settle();
        stepBox.interpretText();
        return {};
    }
    bool filter(QEvent &event) override
    {
        const bool isLeft = event.type() == QEvent::FocusOut;
        if (!isOpen() || !(isLeft || isStep(event)))
            return false;
        const QString reason = whyUnreadable();
        if (reason.isEmpty())
            return false;
        refuse(reason);
        return !isLeft;
    }

    [[nodiscard]] virtual QString suffix() const { return {}; }

private:
    /// Whether the box reads what is typed on \a event. Clicks into the text go to the line in it.
    [[nodiscard]] static bool isStep(QEvent &event)
    {
        switch (event.type()) {
        case QEvent::Wheel:
        case QEvent::MouseButtonPress:
            return true;
        case QEvent::KeyPress:
            break;
        default:
            return false;
        }
        switch (static_cast<QKeyEvent &>(event).key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
        case Qt::Key_Up:
        case Qt::Key_Down:
        case Qt::Key_PageUp:
        case Qt::Key_PageDown:
            return true;
        default:
            return false;
        }
    }

    void settle()
    {
        if (line)
            line->setModified(false);
    }
    [[nodiscard]] QString whyUnreadable() const
    {
        const Parameter *const found = parameter();
        if (!found || stepBox.hasAcceptableInput())
            return {};
        const auto [typed, reason] = readValue(*found, openText(), stepBox.locale());
        const QString problem = reason.isEmpty() ? problemOf(*found, typed, stepBox.locale()) : reason;
        return problem.isEmpty() ? translated("This cannot be set here") : problem;
    }

    QAbstractSpinBox &stepBox;
    QPointer<QLineEdit> line;
};

class BoundSpinBox : public BoundStepBox {
public:
    BoundSpinBox(QSpinBox &control, const BoundTo &link) : BoundStepBox(control, link), box(control)
    {
        connect(&box, QOverload<int>::of(&QSpinBox::valueChanged), this, [this](int number) {
            if (parameter())
                change(formatOf(*parameter()).held(decimal(number)));
        });
    }

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
    [[nodiscard]] QString suffix() const override { return box.suffix(); }

private:
    QSpinBox &box;
};

class BoundDoubleSpinBox : public BoundStepBox {
public:
    BoundDoubleSpinBox(QDoubleSpinBox &control, const BoundTo &link)
        : BoundStepBox(control, link), box(control)
    {
        connect(&box, QOverload<double>::of(&QDoubleSpinBox::valueChanged), this, [this](double number) {
            const auto shown = DecimalNumber::FromText(QString::number(number, 'f', box.decimals()));
            if (parameter() && shown)
                change(formatOf(*parameter()).held(*shown));
        });
    }

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
    [[nodiscard]] QString suffix() const override { return box.suffix(); }

private:
    QDoubleSpinBox &box;
};

class BoundSlider : public BoundControl {
public:
    BoundSlider(QSlider &control, const BoundTo &link) : BoundControl(control, link), slider(control)
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

class BoundDateTimeEdit : public BoundStepBox {
public:
    BoundDateTimeEdit(QDateTimeEdit &control, const BoundTo &link)
        : BoundStepBox(control, link), edit(control)
    {
        edit.setTimeSpec(Qt::UTC);
        edit.setLayoutDirection(Qt::LeftToRight); // else the day stands before the month and the year
        edit.setDisplayFormat(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"));
        connect(&edit, &QDateTimeEdit::dateTimeChanged, this, [this](const QDateTime &dateTime) {
            if (parameter())
                change(readValue(*parameter(), textOf(dateTime), edit.locale()).value);
        });
    }

protected:
    [[nodiscard]] QString whyUnfit(const Parameter &found) const override
    {
        return ParameterControlOf(found) == ParameterControl::Moment ? QString() : unfit(found);
    }
    [[nodiscard]] QString show(const Parameter &found) override
    {
        // What is shown must be all of it: no digit behind the milliseconds, no year out of range.
        const QString shown = shownValue(found, value(), edit.locale());
        QDateTime dateTime = QDateTime::fromString(shown, Qt::ISODateWithMs);
        dateTime.setTimeSpec(Qt::UTC);
        if (!dateTime.isValid() || readValue(found, textOf(dateTime), edit.locale()).value != value())
            return cannotBeShown(found);
        edit.setDateTimeRange(QDateTime({1, 1, 1}, {0, 0}, Qt::UTC),
                              QDateTime({9999, 12, 31}, {23, 59, 59, 999}, Qt::UTC));
        edit.setDateTime(dateTime);
        return edit.dateTime() == dateTime ? QString() : cannotBeShown(found);
    }

private:
    [[nodiscard]] static QString textOf(const QDateTime &dateTime)
    {
        return dateTime.toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz"));
    }

    QDateTimeEdit &edit;
};

class BoundLineEdit : public BoundControl {
public:
    BoundLineEdit(QLineEdit &control, const BoundTo &link) : BoundControl(control, link), line(control)
    {
        connect(&line, &QLineEdit::editingFinished, this, [this] {
            if (isOpen())
                static_cast<void>(take()); // why not is marked already
        });
        connect(&line, &QLineEdit::textEdited, this, [this] { updateProblem(); });
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
        const ParameterControl control = ParameterControlOf(found);
        const bool isNumber = control == ParameterControl::Number || control == ParameterControl::Frequency;
        line.setText(isNumber ? formatOf(found).show(value()) : shownValue(found, value(), line.locale()));
        line.setModified(false);
        return {};
    }
    [[nodiscard]] bool isOpen() const override { return line.isModified(); }
    [[nodiscard]] QString openText() const override { return line.text(); }
    void discard() override { line.setModified(false); }
    [[nodiscard]] QString take() override
    {
        const auto [wanted, problem] = readValue(*parameter(), line.text(), line.locale());
        if (wanted.isValid()) {
            line.setModified(false);
            change(wanted);
        }
        return wanted.isValid() ? QString() : problem;
    }
    void refused(const QString &reason) override
    {
        line.setModified(true); // it stays to be seen
        markRefused(reason);
    }

private:
    QLineEdit &line;
};

template <class BoundClass, class Control>
std::unique_ptr<BoundControl> boundAs(QWidget &control, const BoundTo &link)
{
    auto *const found = qobject_cast<Control *>(&control);
    return found ? std::make_unique<BoundClass>(*found, link) : nullptr;
}

using Maker = std::unique_ptr<BoundControl> (*)(QWidget &, const BoundTo &);

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

} // namespace

std::unique_ptr<BoundControl> makeBoundControl(QWidget &control, const BoundTo &link)
{
    for (const Maker make : Makers) {
        if (auto bound = make(control, link))
            return bound;
    }
    return nullptr;
}

} // namespace KORMAK::Widgets
