#include "widgets/FormRow_p.h"

#include <models/OpenDocument.h>
#include <widgets/AreaView.h>
#include <widgets/DocumentForm.h>
#include <widgets/FieldNotes_p.h>

#include <QGridLayout>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTextDocument>

#include <algorithm>
#include <utility>

namespace KORMAK::Widgets {

using Kind = OutlineLine::Kind;
using Requirement = Field::Requirement;

FormRow::FormRow(OutlineLine newLine, QWidget *page, OpenDocument *document, Actions rowActions)
    : outlineLine(std::move(newLine)), actions(std::move(rowActions))
{
    switch (outlineLine.kind) {
    case Kind::Heading:
    case Kind::Element:
        makeHeading(page);
        break;
    case Kind::Value:
        makeControl(page);
        break;
    case Kind::Map:
        map = new AreaView(page);
        map->SetDocument(document, path());
        break;
    case Kind::More:
        makeMore(page);
        break;
    }
}

FormRow::~FormRow() = default;

void FormRow::makeControl(QWidget *page)
{
    label = new QLabel(page);
    label->setTextFormat(Qt::PlainText);
    fieldControl = FieldControl::make(outlineLine.node.GetField(), page, actions.set);
    fieldControl->refusalChanged = [this] { showNotes(); };
    notes = new FieldNotes(page);
    label->setBuddy(&fieldControl->widget());
}

void FormRow::makeHeading(QWidget *page)
{
    constexpr int AboveElement = 6;
    constexpr int AboveHeading = 14;
    const bool isElement = outlineLine.kind == Kind::Element;
    bar = new QWidget(page);
    auto *const layout = new QHBoxLayout(bar);
    layout->setContentsMargins(0, isElement ? AboveElement : AboveHeading, 0, 2);
    label = new QLabel(bar);
    label->setTextFormat(Qt::PlainText);
    layout->addWidget(label, 1);
    notes = new FieldNotes(page);
    const FieldNode &node = outlineLine.node;
    const bool isGrowing = node.GetKind() == FieldNode::Kind::List && node.IsExtensible();
    if (!isElement && !isGrowing)
        return;
    button = new QPushButton(isElement ? DocumentForm::tr("Remove") : DocumentForm::tr("Add"), bar);
    button->setAutoDefault(false);
    layout->addWidget(button);
    QObject::connect(button, &QPushButton::clicked, bar, actions.press);
}

void FormRow::makeMore(QWidget *page)
{
    button = new QPushButton(page);
    button->setAutoDefault(false);
    QObject::connect(button, &QPushButton::clicked, page, actions.press);
}

QString FormRow::keyOf(const OutlineLine &line)
{
    const QString kind = QString::number(static_cast<int>(line.kind)) + QLatin1Char(' ');
    switch (line.kind) {
    case Kind::Value:
        return kind + FieldControl::keyOf(line.node.GetField());
    case Kind::More:
        return kind + line.node.GetPath() + QLatin1Char(' ') + QString::number(line.first);
    default:
        return kind + line.node.GetPath();
    }
}

bool FormRow::isPlace() const
{
    return outlineLine.kind != Kind::More && outlineLine.kind != Kind::Map;
}

QWidget *FormRow::editor() const
{
    return fieldControl ? &fieldControl->widget() : map;
}

QWidget *FormRow::focusTarget() const
{
    return editor() ? editor() : button;
}

QWidget *FormRow::place() const
{
    return bar ? bar : focusTarget();
}

void FormRow::arrange(QGridLayout &grid, int &at) const
{
    constexpr int Both = 2; // columns
    if (fieldControl) {
        // Texts take the width that there is, and may have many lines: the label stands beside the first.
        const bool isText = outlineLine.node.GetField().GetType() == Field::Type::Text;
        grid.addWidget(label, at, 0, isText ? Qt::AlignTop : Qt::Alignment());
        grid.addWidget(&fieldControl->widget(), at++, 1,
                       isText ? Qt::Alignment() : Qt::Alignment(Qt::AlignLeading));
        grid.addWidget(notes, at++, 1);
    } else if (map) {
        grid.addWidget(map, at++, 0, 1, Both);
    } else if (bar) {
        grid.addWidget(bar, at++, 0, 1, Both);
        grid.addWidget(notes, at++, 0, 1, Both);
    } else {
        grid.addWidget(button, at++, 1, Qt::AlignLeading);
    }
    // At once, so that it can take the focus.
    for (QWidget *const widget : {static_cast<QWidget *>(label), bar, focusTarget()}) {
        if (widget)
            widget->show();
    }
}

void FormRow::show(const std::optional<QString> &said, const QVector<Note> &newNotes)
{
    FieldState state{outlineLine.node.GetField(), said};
    messages.clear();
    hasError = false;
    for (const Note &note : newNotes) {
        const QString message = note.finding.GetMessage();
        messages += note.place.isEmpty() ? message : note.place + QStringLiteral(": ") + message;
        hasError = hasError || note.finding.GetSeverity() == Finding::Severity::Error;
        state.isBad = state.isBad || (note.place.isEmpty() && note.finding.GetId() == FindingId::BadValue);
    }
    if (fieldControl) {
        fieldControl->show(state);
        showLabel();
    } else if (bar) {
        showHeading();
    } else if (button) {
        const int count = std::min(outlineLine.count, ShownElements::PageSize);
        button->setText(DocumentForm::tr("Show %1 more").arg(button->locale().toString(count)));
    }
    showNotes();
}

void FormRow::showLabel()
{
    const Field field = outlineLine.node.GetField();
    const bool isRequired = field.GetRequirement() == Requirement::Always;
    label->setAlignment(leadingSide(*label));
    label->setText(outlineLine.title + (isRequired ? QStringLiteral(" *") : QString()));
    if (field.GetType() == Field::Type::Text)
        label->setFixedHeight(std::max(fieldControl->lineHeight(), label->sizeHint().height()));
    QStringList tips{field.GetPath(), field.GetAllowedInWords()};
    if (isRequired)
        tips += DocumentForm::tr("Required");
    else if (field.GetRequirement() == Requirement::Sometimes)
        tips += DocumentForm::tr("Required in some documents");
    // Names that documents give may look like tags.
    const QString tip = tips.join(QLatin1Char('\n'));
    label->setToolTip(Qt::mightBeRichText(tip) ? Qt::convertFromPlainText(tip) : tip);
    QWidget &widget = fieldControl->widget();
    if (widget.toolTip().isEmpty())
        widget.setToolTip(label->toolTip());
    QString name = outlineLine.title;
    if (!field.GetUnit().isEmpty())
        name = DocumentForm::tr("%1 in %2").arg(name, field.GetUnit());
    widget.setAccessibleName(isRequired ? DocumentForm::tr("%1, required").arg(name) : name);
}

void FormRow::showHeading()
{
    const FieldNode::Kind kind = outlineLine.node.GetKind();
    const bool isList =
        outlineLine.kind == Kind::Heading && (kind == FieldNode::Kind::List || kind == FieldNode::Kind::Map);
    label->setAlignment(leadingSide(*label));
    label->setText(isList ? DocumentForm::tr("%1 (%2)").arg(outlineLine.title).arg(outlineLine.count)
                          : outlineLine.title);
    QFont font = bar->font();
    font.setBold(true);
    label->setFont(font);
    if (button)
        button->setAccessibleName(button->text() + QLatin1Char(' ') + outlineLine.title);
}

void FormRow::setRefusal(const QString &reason)
{
    refusal = reason;
    showNotes();
}

void FormRow::showNotes()
{
    if (!notes || retired)
        return;
    const QString reason = fieldControl ? fieldControl->refusal() : refusal;
    QStringList lines = messages;
    if (!reason.isEmpty())
        lines.prepend(reason);
    const ValueMark mark = lines.isEmpty() ? ValueMark::None
        : hasError || !reason.isEmpty()    ? ValueMark::Error
                                           : ValueMark::Warning;
    notes->show(lines, mark);
    if (fieldControl)
        fieldControl->widget().setAccessibleDescription(lines.join(QLatin1Char('\n')));
}

QString FormRow::notesText() const
{
    return notes ? notes->text() : QString();
}

void FormRow::retire()
{
    retired = true;
    if (map)
        map->SetDocument(nullptr);
    for (QWidget *const widget : {bar ? bar : label, static_cast<QWidget *>(notes), editor(),
                                  bar ? nullptr : static_cast<QWidget *>(button)}) {
        if (!widget)
            continue;
        widget->hide(); // what has the focus hands on what was typed
        widget->deleteLater();
    }
}

} // namespace KORMAK::Widgets
