#include "widgets/FieldControl_p.h"

#include <widgets/ComboBox_p.h>
#include <widgets/DateTimeLine_p.h>
#include <widgets/FrequencyEdit.h>
#include <widgets/NumberEdit.h>
#include <widgets/ProseEdit_p.h>
#include <widgets/TextSize_p.h>

#include <QCheckBox>
#include <QCoreApplication>
#include <QEvent>
#include <QKeyEvent>

#include <algorithm>
#include <limits>
#include <utility>

namespace KORMAK::Widgets {

namespace {

QString tr(const char *text)
{
    return QCoreApplication::translate("KORMAK::DocumentForm", text);
}

/// What stands where nothing is set.
QString textOfUnset(const FieldState &state)
{
    if (state.said && !state.said->isEmpty())
        return QStringLiteral("\"%1\"").arg(*state.said); // what is not understood
    const QString standard = state.field.GetShownText();
    return standard.isEmpty() ? tr("not set") : tr("not set, counts as %1").arg(standard);
}

/// By Enter, or because the focus goes.
bool isLeft(const QEvent &event)
{
    if (event.type() == QEvent::FocusOut)
        return static_cast<const QFocusEvent &>(event).reason() != Qt::PopupFocusReason;
    if (event.type() != QEvent::KeyPress)
        return false;
    const int key = static_cast<const QKeyEvent &>(event).key();
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

/// So that lines end where those above and below them do.
void setUsualWidth(QWidget &widget)
{
    constexpr int Characters = 42;
    widget.setMinimumWidth(sizeOfText(widget, Characters, 1).width());
}

/// A line whose text is a value. What is no value, or is refused, stays until it is another one or given up.
class LineControl : public FieldControl, public QObject {
public:
    /// How the text of the value of a line is written into documents.
    using Writer = std::function<QString()>;

    LineControl(ValueEdit *line, Writer valueWriter, Setter fieldSetter)
        : FieldControl(std::move(fieldSetter)), edit(line), writer(std::move(valueWriter))
    {
        edit->installEventFilter(this);
        QObject::connect(edit, &ValueEdit::Finished, this, [this] { hand(); });
    }

    [[nodiscard]] QWidget &widget() const override { return *edit; }

    void show(const FieldState &newState) override
    {
        const bool wasOpen = isOpen();
        const QString typed = edit->text();
        const int cursor = edit->cursorPosition();
        state = newState;
        setUsualWidth(*edit);
        edit->setMaximumWidth(edit->minimumWidth());
        edit->setPlaceholderText(textOfUnset(state));
        if (isRefusedValue())
            return;
        const QVariant value = stateValue();
        if (value != edit->GetValue() || value.userType() != edit->GetValue().userType() || !wasOpen)
            edit->SetValue(value);
        shown = edit->text();
        if (wasOpen) {
            edit->setText(typed);
            edit->setCursorPosition(cursor);
        }
    }

    [[nodiscard]] bool isOpen() const override { return !refusal().isEmpty() || edit->text() != shown; }

    QString take() override
    {
        if (!isOpen())
            return {};
        if (edit->text().trimmed().isEmpty()) {
            unset();
        } else if (isRefusedValue()) {
            hand(); // once more
        } else {
            return takeTyped();
        }
        return {};
    }

    bool eventFilter(QObject *object, QEvent *event) override
    {
        // Who empties a line means that the field is not set.
        if (isLeft(*event) && !isRefusedValue())
            (void)take(); // which says at the field why not
        const bool isKey = event->type() == QEvent::ShortcutOverride || event->type() == QEvent::KeyPress;
        if (isKey && isOpen() && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape) {
            event->accept();
            if (event->type() == QEvent::KeyPress) {
                discard();
                edit->selectAll();
            }
            return true;
        }
        return QObject::eventFilter(object, event);
    }

private:
    /// Whether what stands there is a value, but none for the document.
    [[nodiscard]] bool isRefusedValue() const
    {
        return !refusal().isEmpty() && !edit->IsOpen() && edit->GetValue() != stateValue();
    }

    [[nodiscard]] QVariant stateValue() const
    {
        return state.isUnderstood() ? state.field.GetValue() : QVariant();
    }

    void discard()
    {
        edit->SetValue(stateValue());
        shown = edit->text();
        setRefusal({});
    }

    QString takeTyped()
    {
        const QVariant before = edit->GetValue();
        if (!edit->Take()) {
            setRefusal(edit->GetProblem());
            return refusal();
        }
        // Of the same value in other words, nothing is told.
        if (edit->GetValue() == before)
            before == stateValue() ? discard() : hand();
        return {};
    }

    void unset()
    {
        if (set(std::nullopt))
            discard();
    }

    void hand()
    {
        shown = edit->text();
        (void)set(writer());
    }

    ValueEdit *const edit;
    const Writer writer;
    FieldState state = {};
    QString shown = {}; ///< the text for the state
};

std::unique_ptr<FieldControl> makeNumberControl(const Field &field, QWidget *parent,
                                                const FieldControl::Setter &setter)
{
    using Type = Field::Type;
    auto *const edit =
        field.GetUnit() == QLatin1String("Hz") ? new FrequencyEdit(parent) : new NumberEdit(parent);
    edit->SetUnit(field.GetUnit());
    edit->SetType(field.GetType() == Type::Float        ? NumberEdit::Type::Float
                      : field.GetType() == Type::Double ? NumberEdit::Type::Double
                                                        : NumberEdit::Type::Whole64);
    const bool isLimited = field.GetType() == Type::Integer
        && (field.GetMinimum() != std::numeric_limits<qint64>::min()
            || field.GetMaximum() != std::numeric_limits<qint64>::max());
    if (isLimited)
        edit->SetLimits(field.GetMinimum(), field.GetMaximum());
    return std::make_unique<LineControl>(
        edit, [edit] { return edit->GetValueText(); }, setter);
}

std::unique_ptr<FieldControl> makeDateTimeControl(QWidget *parent, const FieldControl::Setter &setter)
{
    auto *const edit = new DateTimeLine(parent);
    return std::make_unique<LineControl>(
        edit, [edit] { return Field::TextOf(edit->GetValue()); }, setter);
}

class TextControl : public FieldControl, public QObject {
public:
    TextControl(QWidget *parent, Setter fieldSetter)
        : FieldControl(std::move(fieldSetter)), edit(new ProseEdit(parent))
    {
        QObject::connect(edit, &ProseEdit::Finished, this, [this] { (void)take(); });
        QObject::connect(edit, &ProseEdit::GivenUp, this, [this] { discard(); });
    }

    [[nodiscard]] QWidget &widget() const override { return *edit; }

    void show(const FieldState &newState) override
    {
        const bool wasOpen = isOpen();
        state = newState;
        edit->setPlaceholderText(textOfUnset(state));
        if (!wasOpen)
            discard();
    }

    [[nodiscard]] bool isOpen() const override { return edit->GetText() != shown; }
    [[nodiscard]] int lineHeight() const override { return edit->minimumSizeHint().height(); }

    QString take() override
    {
        const QString typed = edit->GetText();
        if (typed == shown)
            return {};
        const QString before = std::exchange(shown, typed);
        if (!set(typed.isEmpty() ? std::nullopt : std::optional(typed)))
            shown = before;
        return {};
    }

private:
    void discard()
    {
        edit->SetText(state.field.GetText());
        shown = edit->GetText();
        edit->setReadOnly(shown != state.field.GetText());
        const QString reason = tr("This text holds characters that can only be shown here.");
        if (edit->isReadOnly() || edit->toolTip() == reason)
            edit->setToolTip(edit->isReadOnly() ? reason : QString());
        setRefusal({});
    }

    ProseEdit *const edit;
    FieldState state = {};
    QString shown = {};
};

class BooleanControl : public FieldControl, public QObject {
public:
    BooleanControl(QWidget *parent, Setter fieldSetter)
        : FieldControl(std::move(fieldSetter)), box(new QCheckBox(parent))
    {
        box->setTristate(true);
        box->setFocusPolicy(Qt::StrongFocus);
        QObject::connect(box, &QCheckBox::clicked, this, [this] { hand(); });
        QObject::connect(box, &QCheckBox::stateChanged, this, [this] { tell(); });
    }

    [[nodiscard]] QWidget &widget() const override { return *box; }

    void show(const FieldState &newState) override
    {
        constexpr int Room = 8;
        state = newState;
        box->setMinimumHeight(box->fontMetrics().height() + Room); // as other lines
        setRefusal({});
        showState();
    }

private:
    void showState()
    {
        box->setCheckState(!state.isUnderstood()                 ? Qt::PartiallyChecked
                               : state.field.GetValue().toBool() ? Qt::Checked
                                                                 : Qt::Unchecked);
        tell();
    }

    void hand()
    {
        const Qt::CheckState wanted = box->checkState();
        const bool isTaken =
            set(wanted == Qt::PartiallyChecked ? std::nullopt
                                               : std::optional(Field::TextOf(wanted == Qt::Checked)));
        if (!isTaken)
            showState();
    }

    void tell()
    {
        box->setText(box->checkState() == Qt::Checked ? tr("yes")
                         : box->checkState() == Qt::Unchecked
                         ? tr("no")
                         : textOfUnset(state).replace(QLatin1Char('&'), QLatin1String("&&")));
    }

    QCheckBox *const box;
    FieldState state = {};
};

class NameBox : public ComboBox {
public:
    explicit NameBox(QWidget *parent) : ComboBox(parent)
    {
        setSizeAdjustPolicy(QComboBox::AdjustToContents);
        constexpr int Visible = 20;
        setMaxVisibleItems(Visible);
    }
};

class NameControl : public FieldControl, public QObject {
public:
    NameControl(QWidget *parent, Setter fieldSetter)
        : FieldControl(std::move(fieldSetter)), box(new NameBox(parent))
    {
        QObject::connect(box, QOverload<int>::of(&QComboBox::activated), this,
                         [this](int index) { hand(index); });
    }

    [[nodiscard]] QWidget &widget() const override { return *box; }

    void show(const FieldState &newState) override
    {
        const bool isSame = state.said == newState.said && state.field == newState.field && box->count() > 0;
        state = newState;
        setUsualWidth(*box);
        setRefusal({});
        if (!isSame)
            fill();
    }

private:
    /// Something that is no name.
    [[nodiscard]] bool isUnknown() const
    {
        return state.said && !state.isUnderstood() && !state.said->isEmpty();
    }

    void fill()
    {
        const QStringList names = state.field.GetAllowed();
        box->clear();
        box->addItem(state.said ? tr("not set") : textOfUnset(state));
        box->addItems(names);
        int current = 0;
        if (isUnknown()) {
            // What the document says stays to be seen and is no name that could be chosen.
            box->insertItem(1, QStringLiteral("\"%1\"").arg(*state.said));
            current = 1;
        } else if (state.isUnderstood()) {
            current = box->findText(state.field.GetText(), Qt::MatchExactly | Qt::MatchCaseSensitive);
        }
        box->setCurrentIndex(current);
    }

    void hand(int index)
    {
        if (isUnknown() && index == 1)
            return;
        const QString name = box->itemText(index);
        if (!set(index == 0 ? std::nullopt : std::optional(name)))
            fill();
    }

    NameBox *const box;
    FieldState state = {};
};

} // namespace

bool FieldState::isUnderstood() const
{
    if (!said || !field.IsSet())
        return false;
    const QString text = said->trimmed();
    bool isNumber = false;
    switch (field.GetType()) {
    case Field::Type::Text:
    case Field::Type::DateTime:
        break;
    case Field::Type::Boolean:
        return !isBad;
    case Field::Type::Name:
        return field.GetText() == *said || field.GetAllowed().contains(*said);
    case Field::Type::Integer:
        return text.toLongLong(&isNumber) == field.GetValue().toLongLong() && isNumber;
    case Field::Type::Float:
        return text.toFloat(&isNumber) == field.GetValue().toFloat() && isNumber;
    case Field::Type::Double:
        return text.toDouble(&isNumber) == field.GetValue().toDouble() && isNumber;
    }
    return true;
}

std::unique_ptr<FieldControl> FieldControl::make(const Field &field, QWidget *parent, const Setter &setter)
{
    switch (field.GetType()) {
    case Field::Type::Boolean:
        return std::make_unique<BooleanControl>(parent, setter);
    case Field::Type::Integer:
    case Field::Type::Float:
    case Field::Type::Double:
        return makeNumberControl(field, parent, setter);
    case Field::Type::DateTime:
        return makeDateTimeControl(parent, setter);
    case Field::Type::Name:
        return std::make_unique<NameControl>(parent, setter);
    case Field::Type::Text:
        break;
    }
    return std::make_unique<TextControl>(parent, setter);
}

bool FieldControl::set(const std::optional<QString> &text)
{
    setRefusal({}); // what is shown meanwhile is not that of before
    setRefusal(setter(text));
    return refused.isEmpty();
}

void FieldControl::setRefusal(const QString &reason)
{
    if (std::exchange(refused, reason) != reason && refusalChanged)
        refusalChanged();
}

int FieldControl::lineHeight() const
{
    return std::max(widget().sizeHint().height(), widget().minimumHeight());
}

QString FieldControl::keyOf(const Field &field)
{
    return QStringLiteral("%1 %2 %3 %4 %5 %6")
        .arg(field.GetPath())
        .arg(static_cast<int>(field.GetType()))
        .arg(field.GetUnit(), field.GetVocabulary().GetName())
        .arg(field.GetMinimum())
        .arg(field.GetMaximum());
}

} // namespace KORMAK::Widgets
