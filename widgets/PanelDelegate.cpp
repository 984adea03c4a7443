#include "widgets/PanelDelegate_p.h"

#include <kormak/Parameter.h>
#include <models/ParameterModel.h>
#include <widgets/PanelRows_p.h>
#include <widgets/ParameterControl.h>
#include <widgets/ParameterEdit.h>
#include <widgets/ParameterText_p.h>
#include <widgets/ValueMark_p.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QToolTip>
#include <QWidget>

#include <algorithm>

namespace KORMAK::Widgets {

namespace {

constexpr int Margin = 4;
constexpr int MarkWidth = 16;

QStyle &styleOf(const QStyleOptionViewItem &option)
{
    return option.widget ? *option.widget->style() : *QApplication::style();
}

QString fitting(const QStyleOptionViewItem &option, const QString &text, int width)
{
    return option.fontMetrics.elidedText(text, Qt::ElideRight, width);
}

int alignment(const QStyleOptionViewItem &option)
{
    const Qt::Alignment side = option.direction == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft;
    return static_cast<int>(side | Qt::AlignVCenter | Qt::AlignAbsolute)
        | static_cast<int>(Qt::TextSingleLine);
}

QPalette::ColorGroup groupOf(const QStyleOptionViewItem &option)
{
    if (!(option.state & QStyle::State_Enabled))
        return QPalette::Disabled;
    return option.state & QStyle::State_Active ? QPalette::Active : QPalette::Inactive;
}

/// An arrow that turns back.
void paintRestore(QPainter &painter, const QRect &place, const QColor &color)
{
    constexpr qreal Side = 12;
    QRectF box(0, 0, Side, Side);
    box.moveCenter(QRectF(place).center());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(color, 1.6, Qt::SolidLine, Qt::RoundCap));
    const QRectF circle = box.adjusted(1, 1, -1, -1);
    constexpr int Sixteenth = 16;
    painter.drawArc(circle, 150 * Sixteenth, 280 * Sixteenth);
    QPainterPath tip;
    const QPointF end(circle.left() + circle.width() * 0.067, circle.top() + circle.height() * 0.25);
    tip.moveTo(end + QPointF(-2.6, -3.4));
    tip.lineTo(end + QPointF(-0.9, 2.2));
    tip.lineTo(end + QPointF(4.2, -0.6));
    tip.closeSubpath();
    painter.fillPath(tip, color);
    painter.restore();
}

} // namespace

PanelDelegate::PanelDelegate(PanelRows &parameters, QObject *parent)
    : QStyledItemDelegate(parent), rows(parameters)
{
}

int PanelDelegate::rowHeight(const QWidget &view)
{
    static constexpr int Space = 6;
    QLineEdit line;
    line.setFont(view.font());
    QComboBox box;
    box.setFont(view.font());
    return std::max(line.sizeHint().height(), box.sizeHint().height()) + Space;
}

int PanelDelegate::headingHeight(const QWidget &view)
{
    constexpr int Space = 14;
    return view.fontMetrics().height() + Space;
}

QRect PanelDelegate::below(const QRect &rect, const QModelIndex &index) const
{
    const auto *const view = static_cast<QAbstractItemView *>(parent());
    return rows.isFirstOfGroup(index.row()) ? rect.adjusted(0, headingHeight(*view), 0, 0) : rect;
}

void PanelDelegate::paint(QPainter *painter, const QStyleOptionViewItem &option,
                          const QModelIndex &index) const
{
    QStyleOptionViewItem row = option;
    initStyleOption(&row, index);
    row.rect = below(option.rect, index);
    const auto *const view = static_cast<QAbstractItemView *>(parent());
    painter->save();
    painter->setLayoutDirection(Qt::LayoutDirectionAuto); // of texts, which may be in another language
    if (row.rect != option.rect) {
        // The name of the group stands above its first column, and may reach into the others.
        QRect heading = option.rect;
        heading.setHeight(headingHeight(*view));
        if (index.column() == PanelRows::NameColumn) {
            QFont font = row.font;
            font.setBold(true);
            painter->setFont(font);
            painter->setPen(row.palette.color(QPalette::Text));
            const QString group = rows.groupOf(index.row());
            painter->drawText(heading.adjusted(Margin, 0, -Margin, -Margin),
                              static_cast<int>(row.direction == Qt::RightToLeft
                                                   ? Qt::AlignRight | Qt::AlignBottom | Qt::AlignAbsolute
                                                   : Qt::AlignLeft | Qt::AlignBottom | Qt::AlignAbsolute),
                              group.isEmpty() ? tr("Others") : group);
        }
    }
    if (view->currentIndex().row() == index.row()) {
        QColor light = row.palette.color(groupOf(row), QPalette::Highlight);
        light.setAlphaF(0.16F);
        painter->fillRect(row.rect, light);
    }
    const bool isEnabled = index.data(ParameterModel::EnabledRole).toBool();
    row.state.setFlag(QStyle::State_Enabled, isEnabled && (option.state & QStyle::State_Enabled));
    switch (index.column()) {
    case PanelRows::NameColumn:
        paintName(*painter, row, row.rect, index);
        break;
    case PanelRows::ValueColumn:
        paintValue(*painter, row, row.rect, index);
        break;
    case PanelRows::DefaultColumn:
        paintDefault(*painter, row, row.rect, index);
        break;
    default:
        painter->setPen(isEnabled ? remarkColor(row.palette)
                                  : row.palette.color(QPalette::Disabled, QPalette::Text));
        const QRect text = row.rect.adjusted(2 * Margin, 0, -Margin, 0);
        painter->drawText(text, alignment(row), fitting(row, row.text, text.width()));
        break;
    }
    painter->restore();
}

void PanelDelegate::paintName(QPainter &painter, const QStyleOptionViewItem &option, const QRect &rect,
                              const QModelIndex &index) const
{
    QRect text = rect.adjusted(Margin, 0, -Margin, 0);
    QRect mark = text;
    const bool isMirrored = option.direction == Qt::RightToLeft;
    mark.setWidth(MarkWidth);
    if (isMirrored)
        mark.moveRight(text.right());
    text.adjust(isMirrored ? 0 : MarkWidth + Margin, 0, isMirrored ? -MarkWidth - Margin : 0, 0);
    if (rows.hasDraft(index))
        paintMark(painter, mark, ValueMark::Error, option.palette);
    else if (!rows.problemOf(index).isEmpty())
        paintMark(painter, mark, ValueMark::Warning, option.palette);
    else if (index.data(ParameterModel::ChangedRole).toBool())
        paintMark(painter, mark, ValueMark::Changed, option.palette);
    painter.setPen(option.palette.color(groupOf(option), QPalette::Text));
    painter.setFont(option.font);
    painter.drawText(text, alignment(option), fitting(option, option.text, text.width()));
}

void PanelDelegate::paintValue(QPainter &painter, const QStyleOptionViewItem &option, const QRect &rect,
                               const QModelIndex &index) const
{
    const Parameter *const parameter = rows.parameter(index);
    if (!parameter)
        return;
    QStyle &style = styleOf(option);
    const bool isMirrored = option.direction == Qt::RightToLeft;
    const QRect place = rect.adjusted(Margin, 3, -Margin, -3);
    const bool isEditable = rows.isEditable(index);
    const QVariant value = index.data(ParameterModel::ValueRole);
    const QColor color =
        option.palette.color(isEditable ? groupOf(option) : QPalette::Disabled, QPalette::Text);
    const ParameterControl control = ParameterControlOf(*parameter);
    const QString shown = rows.hasDraft(index)
        ? rows.draft(index).text
        : (value.isValid() ? shownValue(*parameter, value, rows.locale()) : QString());
    if (control == ParameterControl::CheckBox && isEditable) {
        QStyleOptionButton box;
        box.QStyleOption::operator=(option);
        box.rect = place;
        box.state = (option.state & (QStyle::State_Enabled | QStyle::State_Active))
            | (value.toBool() ? QStyle::State_On : QStyle::State_Off);
        style.drawControl(QStyle::CE_CheckBox, &box, &painter, option.widget);
        return;
    }
    QRect inner = place.adjusted(Margin, 0, -Margin, 0); // where lines have their text
    if (control == ParameterControl::Choice && isEditable) {
        QStyleOptionComboBox box;
        box.QStyleOption::operator=(option);
        box.rect = place;
        box.state = option.state & (QStyle::State_Enabled | QStyle::State_Active);
        box.subControls = QStyle::SC_All;
        const QRect field =
            style.subControlRect(QStyle::CC_ComboBox, &box, QStyle::SC_ComboBoxEditField, option.widget);
        box.currentText = fitting(option, shown, field.width() - Margin);
        if (isMirrored) // its own direction, not that of the panel
            box.currentText = QChar(0x2068) + box.currentText + QChar(0x2069);
        style.drawComplexControl(QStyle::CC_ComboBox, &box, &painter, option.widget);
        style.drawControl(QStyle::CE_ComboBoxLabel, &box, &painter, option.widget);
        return;
    }
    if (isEditable && control != ParameterControl::None) {
        QStyleOptionFrame frame;
        frame.QStyleOption::operator=(option);
        frame.rect = place;
        frame.state = (option.state & (QStyle::State_Enabled | QStyle::State_Active)) | QStyle::State_Sunken;
        frame.lineWidth = style.pixelMetric(QStyle::PM_DefaultFrameWidth, &frame, option.widget);
        style.drawPrimitive(QStyle::PE_PanelLineEdit, &frame, &painter, option.widget);
    }
    painter.setFont(option.font);
    if (shown.isEmpty() && !isEditable) {
        painter.setPen(option.palette.color(QPalette::Disabled, QPalette::Text));
        const QString none = control == ParameterControl::None ? tr("no type") : QStringLiteral("–");
        painter.drawText(inner, alignment(option), none);
        return;
    }
    const QString unit = rows.hasDraft(index) ? QString() : shownUnit(*parameter, value, rows.locale());
    const int unitWidth = unit.isEmpty() ? 0 : option.fontMetrics.horizontalAdvance(unit) + Margin;
    const QString text = fitting(option, shown, inner.width() - unitWidth);
    painter.setPen(rows.hasDraft(index) ? colorOf(ValueMark::Error, option.palette) : color);
    painter.drawText(inner, alignment(option), text);
    const int behind = option.fontMetrics.horizontalAdvance(text) + Margin;
    inner.adjust(isMirrored ? 0 : behind, 0, isMirrored ? -behind : 0, 0);
    painter.setPen(isEditable ? remarkColor(option.palette) : color);
    painter.drawText(inner, alignment(option), unit);
}

void PanelDelegate::paintDefault(QPainter &painter, const QStyleOptionViewItem &option, const QRect &rect,
                                 const QModelIndex &index) const
{
    if (!index.data(ParameterModel::ChangedRole).toBool())
        return;
    const bool isMirrored = option.direction == Qt::RightToLeft;
    QRect text = rect.adjusted(Margin, 0, -Margin, 0);
    QRect arrow = text;
    arrow.setWidth(MarkWidth);
    if (isMirrored)
        arrow.moveRight(text.right());
    text.adjust(isMirrored ? 0 : MarkWidth + Margin, 0, isMirrored ? -MarkWidth - Margin : 0, 0);
    if (rows.isEditable(index))
        paintRestore(painter, arrow, colorOf(ValueMark::Changed, option.palette));
    painter.setPen(remarkColor(option.palette));
    painter.drawText(text, alignment(option), fitting(option, option.text, text.width()));
}

QSize PanelDelegate::sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const
{
    constexpr int Rest = 4 * Margin;
    int beside = 0; // a mark, or what belongs to a control
    if (index.column() == PanelRows::NameColumn || index.column() == PanelRows::DefaultColumn)
        beside = MarkWidth + Margin;
    else if (index.column() == PanelRows::ValueColumn)
        beside = MarkWidth + 3 * Margin;
    const auto *const view = static_cast<QAbstractItemView *>(parent());
    return {option.fontMetrics.horizontalAdvance(index.data().toString()) + beside + Rest, rowHeight(*view)};
}

bool PanelDelegate::helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                              const QModelIndex &index)
{
    // What has no room is told whole.
    const QString tip = index.data(Qt::ToolTipRole).toString();
    if (event->type() != QEvent::ToolTip || !index.isValid()
        || sizeHint(option, index).width() <= option.rect.width())
        return QStyledItemDelegate::helpEvent(event, view, option, index);
    const QString text = index.data().toString();
    QToolTip::showText(event->globalPos(), tip.isEmpty() ? text : text + QStringLiteral("\n\n") + tip, view);
    return true;
}

QWidget *PanelDelegate::createEditor(QWidget *parent, const QStyleOptionViewItem & /*option*/,
                                     const QModelIndex &index) const
{
    const Parameter *const parameter = rows.parameter(index);
    if (!parameter || !rows.isEditable(index) || ParameterControlOf(*parameter) == ParameterControl::None)
        return nullptr;
    auto *const edit = new ParameterEdit(parent);
    edit->setLocale(rows.locale());
    edit->SetParameter(*parameter);
    auto *const self = const_cast<PanelDelegate *>(this);
    connect(edit, &ParameterEdit::Finished, self, [self, edit] {
        if (self->openEditor() == edit && !self->isCommitting)
            Q_EMIT self->commitData(edit);
    });
    edited = edit;
    editedIndex = index;
    rows.setEdited(rows.uniqueName(index));
    // The keys go to what is in it.
    if (QWidget *const inner = edit->focusProxy())
        inner->installEventFilter(self);
    return edit;
}

ParameterEdit *PanelDelegate::openEditor() const
{
    // One that was closed is there until it is destroyed.
    auto *const view = static_cast<QAbstractItemView *>(parent());
    return edited && view->isPersistentEditorOpen(editedIndex) ? edited.data() : nullptr;
}

Draft PanelDelegate::draftOf(const ParameterEdit &edit, const QModelIndex &index)
{
    const auto *const line = edit.findChild<QLineEdit *>();
    return {line ? line->text() : QString(), edit.GetProblem(),
            index.data(ParameterModel::ValuePathRole).toString(), edit.GetParameter().GetParameterType()};
}

void PanelDelegate::destroyEditor(QWidget *editor, const QModelIndex &index) const
{
    if (editor == edited)
        rows.setEdited({});
    QStyledItemDelegate::destroyEditor(editor, index);
}

void PanelDelegate::setEditorData(QWidget *editor, const QModelIndex &index) const
{
    auto *const edit = static_cast<ParameterEdit *>(editor);
    if (!edit->IsOpen()) // what is being typed stays
        edit->SetValue(index.data(ParameterModel::ValueRole));
    QStringList notes = index.data(ParameterModel::MessagesRole).toStringList();
    auto *const line = edit->findChild<QLineEdit *>();
    if (line && rows.hasDraft(index) && !edit->IsOpen()) {
        line->setText(rows.draft(index).text);
        notes.prepend(rows.draft(index).problem);
    }
    edit->SetNote(notes.join(QLatin1Char('\n')));
}

void PanelDelegate::setModelData(QWidget *editor, QAbstractItemModel * /*model*/,
                                 const QModelIndex &index) const
{
    auto *const edit = static_cast<ParameterEdit *>(editor);
    const QPointer<const PanelDelegate> self(this);
    const QPointer<ParameterEdit> there(edit);
    const QPersistentModelIndex row(index);
    isCommitting = true;
    const bool isTaken = edit->Take();
    isCommitting = false;
    if (!rows.isEditable(row))
        return;
    if (isTaken) {
        const QVariant wanted = edit->GetValue();
        const bool isOther = wanted != row.data(ParameterModel::ValueRole);
        const QString reason = isOther ? rows.setValue(row, wanted) : QString();
        if (!self || !there || !row.isValid()) // whoever hears of a value may end all this
            return;
        if (reason.isEmpty()) {
            rows.removeDraft(row);
            return;
        }
        edit->Refuse(reason);
        if (!edit->IsOpen())
            return; // it shows the value of before, and the reason
    }
    rows.setDraft(row, draftOf(*edit, row));
}

void PanelDelegate::updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                                         const QModelIndex &index) const
{
    editor->setGeometry(below(option.rect, index).adjusted(Margin, 3, -Margin, -3));
}

bool PanelDelegate::eventFilter(QObject *watched, QEvent *event)
{
    // Of what is in the editor, once: what it leaves comes by the editor itself again.
    auto *const edit = qobject_cast<ParameterEdit *>(watched->parent());
    if (!edit)
        return qobject_cast<ParameterEdit *>(watched) ? false
                                                      : QStyledItemDelegate::eventFilter(watched, event);
    if (edit != openEditor())
        return false;
    // Escape first forgets what was typed, and closes the editor after that.
    if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent *>(event)->key() == Qt::Key_Escape
        && edit->IsOpen()) {
        edit->Discard();
        Q_EMIT commitData(edit);
        return true;
    }
    const auto isEnter = [event] {
        const int key = static_cast<QKeyEvent *>(event)->key();
        return key == Qt::Key_Return || key == Qt::Key_Enter;
    };
    if (event->type() == QEvent::KeyPress && isEnter() && edit->IsOpen()) {
        Q_EMIT commitData(edit);
        if (!edited || edited->IsOpen())
            return true; // what is not taken stays open, and is marked
    }
    switch (event->type()) {
    case QEvent::KeyPress:
    case QEvent::ShortcutOverride:
    case QEvent::FocusOut:
        return QStyledItemDelegate::eventFilter(edit, event);
    default:
        return false;
    }
}

} // namespace KORMAK::Widgets
