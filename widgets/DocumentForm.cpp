#include "widgets/DocumentForm.h"

#include <inspection/Document.h>
#include <inspection/SaidTexts_p.h>
#include <models/OpenDocument.h>
#include <widgets/AreaView.h>
#include <widgets/FieldControl_p.h>
#include <widgets/FieldOutline_p.h>
#include <widgets/ValueMark_p.h>

#include <QApplication>
#include <QEvent>
#include <QGridLayout>
#include <QHash>
#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QPushButton>
#include <QScrollArea>
#include <QTextDocument>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

namespace KORMAK {

using namespace Widgets;

namespace {

using Action = DocumentEdit::Change::Action;
using Requirement = Field::Requirement;

/// Where lines begin, whatever the direction of their text.
Qt::Alignment leading(const QWidget &widget)
{
    return Qt::AlignVCenter | Qt::AlignAbsolute | (widget.isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft);
}

/// What findings say, with a sign for how much it matters.
class Notes : public QWidget {
public:
    explicit Notes(QWidget *parent) : QWidget(parent), label(new QLabel(this))
    {
        auto *const layout = new QVBoxLayout(this);
        layout->addWidget(label);
        label->setWordWrap(true);
        label->setTextFormat(Qt::PlainText);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        label->setFocusPolicy(Qt::NoFocus);
        hide();
    }

    void show(const QStringList &lines, ValueMark newMark)
    {
        mark = newMark;
        constexpr int Sign = 18;
        layout()->setContentsMargins(isRightToLeft() ? 0 : Sign, 0, isRightToLeft() ? Sign : 0, 2);
        label->setAlignment(leading(*this));
        label->setText(lines.join(QLatin1Char('\n')));
        paletteOf();
        setVisible(!lines.isEmpty());
        update();
    }
    [[nodiscard]] QString text() const { return label->text(); }

protected:
    void changeEvent(QEvent *event) override
    {
        QWidget::changeEvent(event);
        if (event->type() == QEvent::PaletteChange && !isColoring)
            paletteOf();
    }
    void paintEvent(QPaintEvent * /*event*/) override
    {
        QPainter painter(this);
        constexpr int Size = 14;
        const int top = (fontMetrics().lineSpacing() - Size) / 2;
        paintMark(painter, {isRightToLeft() ? width() - Size : 0, std::max(0, top), Size, Size}, mark,
                  palette());
    }

private:
    void paletteOf()
    {
        isColoring = true;
        QPalette colors = QApplication::palette(label);
        colors.setColor(QPalette::WindowText, colorOf(mark, palette()));
        label->setPalette(colors);
        isColoring = false;
    }

    QLabel *const label;
    ValueMark mark = ValueMark::None;
    bool isColoring = false;
};

/// What stands in the grid for a line of the outline.
struct Row {
    OutlineLine line;
    QLabel *label = nullptr; ///< or the heading
    QPushButton *button = nullptr; ///< to add, to remove, to show more
    QWidget *bar = nullptr; ///< around a heading and its button
    std::unique_ptr<FieldControl> control;
    AreaView *map = nullptr;
    Notes *notes = nullptr;
    QString refusal = {}; ///< why what was typed is not taken
    QStringList messages = {}; ///< of findings
    bool hasError = false; ///< among them
    bool isGone = false;
};

QString keyOf(const OutlineLine &line)
{
    const QString kind = QString::number(static_cast<int>(line.kind)) + QLatin1Char(' ');
    return kind
        + (line.kind == OutlineLine::Kind::Value ? FieldControl::keyOf(line.node.GetField())
                                                 : line.node.GetPath());
}

QString parentOf(const QString &path)
{
    const auto end = std::max(path.lastIndexOf(QLatin1Char('.')), path.lastIndexOf(QLatin1Char('[')));
    return end < 0 ? QString() : path.left(end);
}

} // namespace

struct DocumentForm::Private {
    using Kind = OutlineLine::Kind;

    DocumentForm &form;
    QScrollArea *area = nullptr;
    QWidget *page = nullptr;
    QGridLayout *grid = nullptr;
    QLabel *heading = nullptr; ///< what the document is
    QLabel *legend = nullptr; ///< what the asterisks mean
    QPointer<OpenDocument> document = {};
    std::map<QString, std::unique_ptr<Row>> rows = {}; ///< by their keys
    QVector<Row *> order = {};
    QHash<QString, int> shownElements = {};
    QString current = {};
    std::vector<std::unique_ptr<Row>> gone = {};

    // Building

    void read(bool isOther)
    {
        if (isOther) {
            clear();
            shownElements.clear();
            area->ensureVisible(0, 0);
        }
        const Document none;
        const Document &now = document ? document->GetDocument() : none;
        const FieldOutline outline(now, shownElements);
        QVector<Row *> newOrder;
        std::map<QString, std::unique_ptr<Row>> left;
        std::swap(left, rows);
        for (const OutlineLine &line : outline.lines()) {
            const QString key = keyOf(line);
            const auto former = left.find(key);
            std::unique_ptr<Row> row = former == left.end() ? made(line) : std::move(former->second);
            if (former != left.end())
                left.erase(former);
            row->line = line;
            newOrder.append(row.get());
            rows[key] = std::move(row);
        }
        for (auto &[key, row] : left)
            remove(std::move(row));
        // Two empty lists are not compared: Qt would compare nothing at no address.
        const bool isMoved = newOrder.size() != order.size() || (!order.isEmpty() && newOrder != order);
        order = newOrder;
        if (isMoved)
            arrange();
        show();
    }

    void clear()
    {
        for (auto &[key, row] : rows)
            remove(std::move(row));
        rows.clear();
        order.clear();
        tellCurrent();
    }

    /// What is sending a signal may be among it: it lives until that is over. What has the focus loses it and
    /// hands on what was typed, which is no longer of this document.
    void remove(std::unique_ptr<Row> row)
    {
        row->isGone = true;
        if (row->map)
            row->map->SetDocument(nullptr);
        for (QWidget *const widget :
             {row->bar ? row->bar : row->label, static_cast<QWidget *>(row->notes),
              row->control ? &row->control->widget() : nullptr, static_cast<QWidget *>(row->map),
              row->bar ? nullptr : static_cast<QWidget *>(row->button)}) {
            if (!widget)
                continue;
            widget->hide();
            widget->deleteLater();
        }
        if (gone.empty())
            QTimer::singleShot(0, &form, [this] { gone.clear(); });
        gone.push_back(std::move(row));
    }

    std::unique_ptr<Row> made(const OutlineLine &line)
    {
        auto row = std::make_unique<Row>();
        Row *const self = row.get();
        switch (line.kind) {
        case Kind::Heading:
        case Kind::Element:
            makeHeading(*row, line);
            break;
        case Kind::Value:
            row->label = new QLabel(page);
            row->label->setTextFormat(Qt::PlainText);
            row->control = FieldControl::make(
                line.node.GetField(), page,
                [this, self](const std::optional<QString> &text) { return set(*self, text); });
            row->control->givenUp = [this, self] {
                self->refusal.clear();
                showNotes(*self);
            };
            row->notes = new Notes(page);
            row->label->setBuddy(&row->control->widget());
            break;
        case Kind::Map:
            row->map = new AreaView(page);
            row->map->SetDocument(document, line.node.GetPath());
            break;
        case Kind::More:
            row->button = new QPushButton(page);
            connect(row->button, &QPushButton::clicked, &form,
                    [this, self] { showMore(self->line.node.GetPath()); });
            break;
        }
        return row;
    }

    void makeHeading(Row &row, const OutlineLine &line)
    {
        Row *const self = &row;
        row.bar = new QWidget(page);
        auto *const layout = new QHBoxLayout(row.bar);
        const bool isElement = line.kind == Kind::Element;
        layout->setContentsMargins(0, isElement ? 6 : 14, 0, 2);
        row.label = new QLabel(row.bar);
        row.label->setTextFormat(Qt::PlainText);
        layout->addWidget(row.label, 1);
        row.notes = new Notes(page);
        const bool isList = line.node.GetKind() == FieldNode::Kind::List;
        if (!isElement && !(isList && line.node.IsExtensible()))
            return;
        row.button =
            new QPushButton(isElement ? DocumentForm::tr("Remove") : DocumentForm::tr("Add"), row.bar);
        row.button->setAutoDefault(false);
        layout->addWidget(row.button);
        connect(row.button, &QPushButton::clicked, &form, [this, self, isElement] {
            isElement ? removeElement(self->line.node.GetPath()) : addElement(*self);
        });
    }

    void arrange()
    {
        while (QLayoutItem *const item = grid->takeAt(0))
            delete item;
        int at = 0;
        QWidget *before = nullptr;
        const auto next = [&before](QWidget *widget) {
            if (!widget)
                return;
            widget->show(); // at once, so that it can take the focus
            if (before)
                QWidget::setTabOrder(before, widget);
            before = widget;
        };
        grid->addWidget(heading, at++, 0, 1, 2);
        int required = 0;
        for (Row *const row : std::as_const(order)) {
            if (row->control) {
                row->label->setFixedHeight(
                    std::max(row->control->lineHeight(), row->label->sizeHint().height()));
                grid->addWidget(row->label, at, 0, Qt::AlignTop);
                grid->addWidget(&row->control->widget(), at++, 1, alignmentOf(*row));
                grid->addWidget(row->notes, at++, 1);
                next(&row->control->widget());
                if (row->line.node.GetField().GetRequirement() == Requirement::Always)
                    ++required;
            } else if (row->map) {
                grid->addWidget(row->map, at++, 0, 1, 2);
                next(row->map);
            } else if (row->bar) {
                grid->addWidget(row->bar, at++, 0, 1, 2);
                row->bar->show();
                grid->addWidget(row->notes, at++, 0, 1, 2);
                next(row->button);
            } else {
                grid->addWidget(row->button, at++, 1, Qt::AlignLeading);
                next(row->button);
            }
        }
        grid->addWidget(legend, at++, 0, 1, 2);
        legend->setVisible(required > 0);
    }

    /// Texts take the width that there is.
    [[nodiscard]] static Qt::Alignment alignmentOf(const Row &row)
    {
        return row.line.node.GetField().GetType() == Field::Type::Text ? Qt::Alignment()
                                                                       : Qt::Alignment(Qt::AlignLeading);
    }

    // Showing

    void show()
    {
        const Document none;
        const Document &now = document ? document->GetDocument() : none;
        const QHash<QString, QString> said =
            document ? Inspection::saidTexts(document->GetText()) : QHash<QString, QString>();
        QMultiHash<QString, Finding> findings;
        const QVector<Finding> all = now.GetFindings();
        for (const Finding &finding : all)
            findings.insert(finding.GetFieldPath(), finding);
        legend->setAlignment(leading(form));
        showHeading(now);
        for (Row *const row : std::as_const(order))
            showRow(*row, said, findings);
    }

    void showHeading(const Document &now) const
    {
        if (!document || document->GetText().isEmpty())
            heading->setText(DocumentForm::tr("No document is open."));
        else if (order.isEmpty())
            heading->setText(now.GetState());
        else
            heading->setText(QString());
        heading->setVisible(!heading->text().isEmpty());
    }

    void showRow(Row &row, const QHash<QString, QString> &said, const QMultiHash<QString, Finding> &findings)
    {
        const FieldNode &node = row.line.node;
        row.messages.clear();
        row.hasError = false;
        FieldState state{node.GetField()};
        const auto text = said.constFind(node.GetPath());
        if (text != said.constEnd())
            state.said = *text;
        QList<Finding> mine = findings.values(node.GetPathInFindings());
        std::reverse(mine.begin(), mine.end()); // values() has the last one first
        const bool isElement = row.line.kind == Kind::Element;
        for (const Finding &finding : std::as_const(mine)) {
            // Findings do not tell which element of a list they are about: the text that they found does.
            if (isElement || (isInList(node) && finding.HasFound() && finding.GetFound() != state.said))
                continue;
            row.messages += finding.GetMessage();
            row.hasError = row.hasError || finding.GetSeverity() == Finding::Severity::Error;
            state.isBad = state.isBad || finding.GetId() == FindingId::BadValue;
        }
        if (row.label)
            row.label->setAlignment(leading(form));
        if (row.control) {
            showLabel(row);
            row.control->show(state);
            if (!row.control->isOpen())
                row.refusal.clear();
        } else if (row.bar) {
            const bool isList =
                node.GetKind() == FieldNode::Kind::List || node.GetKind() == FieldNode::Kind::Map;
            row.label->setText(isElement ? row.line.title
                                   : isList
                                   ? DocumentForm::tr("%1 (%2)").arg(row.line.title).arg(row.line.count)
                                   : row.line.title);
            QFont font = form.font();
            font.setBold(true);
            row.label->setFont(font);
            if (row.button)
                row.button->setAccessibleName(row.button->text() + QLatin1Char(' ') + row.line.title);
        } else if (row.button) {
            row.button->setText(
                DocumentForm::tr("Show %1 more")
                    .arg(form.locale().toString(std::min(row.line.count, FieldOutline::Few))));
        }
        showNotes(row);
    }

    [[nodiscard]] static bool isInList(const FieldNode &node)
    {
        return node.GetPath() != node.GetPathInFindings();
    }

    void showLabel(Row &row)
    {
        const Field field = row.line.node.GetField();
        const bool isRequired = field.GetRequirement() == Requirement::Always;
        row.label->setText(row.line.title + (isRequired ? QStringLiteral(" *") : QString()));
        QStringList tips{field.GetPath(), field.GetAllowedInWords()};
        if (isRequired)
            tips += DocumentForm::tr("Required");
        else if (field.GetRequirement() == Requirement::Sometimes)
            tips += DocumentForm::tr("Required in some documents");
        // Names that documents give may look like tags.
        const QString tip = tips.join(QLatin1Char('\n'));
        row.label->setToolTip(Qt::mightBeRichText(tip) ? Qt::convertFromPlainText(tip) : tip);
        QWidget &widget = row.control->widget();
        if (widget.toolTip().isEmpty())
            widget.setToolTip(row.label->toolTip());
        QString name = row.line.title;
        if (!field.GetUnit().isEmpty())
            name = DocumentForm::tr("%1 in %2").arg(name, field.GetUnit());
        widget.setAccessibleName(isRequired ? DocumentForm::tr("%1, required").arg(name) : name);
    }

    void showNotes(Row &row)
    {
        if (!row.notes)
            return;
        QStringList lines = row.messages;
        if (!row.refusal.isEmpty())
            lines.prepend(row.refusal);
        const ValueMark mark = lines.isEmpty()       ? ValueMark::None
            : row.hasError || !row.refusal.isEmpty() ? ValueMark::Error
                                                     : ValueMark::Warning;
        row.notes->show(lines, mark);
        if (row.control) {
            row.control->mark(lines.join(QLatin1Char('\n')));
            row.control->widget().setAccessibleDescription(lines.join(QLatin1Char('\n')));
        }
    }

    // Changing

    bool change(const DocumentEdit::Change &change, Row *row)
    {
        if (!document)
            return false;
        const QVector<Finding> refused = document->Change({change}, DocumentEdit::NewFindings::Accepted);
        if (row) {
            row->refusal.clear();
            for (const Finding &finding : refused)
                row->refusal +=
                    (row->refusal.isEmpty() ? QString() : QStringLiteral("\n")) + finding.GetMessage();
            if (!row->isGone)
                showNotes(*row);
        }
        return refused.isEmpty();
    }

    bool set(Row &row, const std::optional<QString> &text)
    {
        if (row.isGone)
            return true;
        const QString path = row.line.node.GetPath();
        return change({text ? Action::Set : Action::Unset, path, text.value_or(QString())}, &row);
    }

    void takeOpenEdits()
    {
        // Each change may move lines.
        QStringList keys;
        for (const auto &[key, row] : rows) {
            if (row->control && row->control->isOpen())
                keys += key;
        }
        for (const QString &key : std::as_const(keys)) {
            const auto row = rows.find(key);
            if (row == rows.end())
                continue;
            const QString problem = row->second->control->take();
            if (!problem.isEmpty())
                document->Refuse(row->second->line.node.GetPath(), problem);
        }
    }

    void removeElement(const QString &path)
    {
        takeOpenEdits();
        change({Action::Unset, path}, nullptr);
    }

    /// As the last element is, but for a number that tells elements apart.
    void addElement(Row &row)
    {
        takeOpenEdits();
        const QString list = row.line.node.GetPath();
        const QVector<FieldNode> elements = document->GetDocument().GetNodes(list);
        QStringList texts{QStringLiteral("0")};
        if (!elements.isEmpty()) {
            const QVector<FieldNode> values = document->GetDocument().GetNodes(elements.last().GetPath());
            if (!values.isEmpty() && values.first().GetField().GetType() == Field::Type::Integer) {
                qint64 most = -1;
                for (const FieldNode &element : elements) {
                    const QVector<FieldNode> ofElement = document->GetDocument().GetNodes(element.GetPath());
                    most = std::max(most, ofElement.first().GetField().GetValue().toLongLong());
                }
                texts = QStringList{QString::number(most + 1)};
            } else {
                texts.clear();
                for (const FieldNode &value : values)
                    texts += value.GetField().GetText();
            }
        }
        if (elements.size() >= std::max(shownElements.value(list), FieldOutline::Few))
            shownElements[list] = static_cast<int>(elements.size()) + 1;
        change({Action::Set, list, texts.join(QLatin1Char(','))}, &row);
        form.ShowField(QStringLiteral("%1[%2]").arg(list).arg(elements.size()));
    }

    void showMore(const QString &list)
    {
        const int before = std::max(shownElements.value(list), FieldOutline::Few);
        shownElements[list] = before + FieldOutline::Few;
        read(false);
        form.ShowField(QStringLiteral("%1[%2]").arg(list).arg(before));
    }

    // Finding

    [[nodiscard]] Row *find(const QString &path) const
    {
        const auto is = [&path](const Row *row) {
            return row->line.node.GetPath() == path && row->line.kind != Kind::More
                && row->line.kind != Kind::Map;
        };
        const auto isCalled = [&path](const Row *row) {
            return row->line.node.GetPathInFindings() == path && row->line.kind != Kind::More
                && row->line.kind != Kind::Map;
        };
        auto row = std::find_if(order.begin(), order.end(), is);
        if (row == order.end())
            row = std::find_if(order.begin(), order.end(), isCalled);
        return row == order.end() ? nullptr : *row;
    }

    /// The first control below the row, itself included.
    [[nodiscard]] QWidget *controlBelow(Row *row) const
    {
        for (auto i = order.indexOf(row); i >= 0 && i < order.size(); ++i) {
            if (order.at(i)->control)
                return &order.at(i)->control->widget();
            if (order.at(i)->button && order.at(i)->line.kind == Kind::Heading)
                return order.at(i)->button;
        }
        return nullptr;
    }

    void tellCurrent()
    {
        const QWidget *const focused = QApplication::focusWidget();
        QString path;
        for (const Row *const row : std::as_const(order)) {
            const QWidget *const widget = row->control ? &row->control->widget() : row->map;
            if (widget && focused && (widget == focused || widget->isAncestorOf(focused)))
                path = row->line.node.GetPath();
        }
        if (std::exchange(current, path) != path)
            Q_EMIT form.CurrentFieldChanged(path);
    }
};

DocumentForm::DocumentForm(QWidget *parent) : QWidget(parent), d(new Private{*this})
{
    auto *const layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    d->area = new QScrollArea(this);
    d->area->setWidgetResizable(true);
    d->area->setFrameShape(QFrame::NoFrame);
    d->area->setFocusPolicy(Qt::NoFocus);
    layout->addWidget(d->area);
    d->page = new QWidget;
    auto *const top = new QVBoxLayout(d->page);
    d->grid = new QGridLayout;
    top->addLayout(d->grid);
    top->addStretch(1);
    d->grid->setColumnStretch(1, 1);
    d->grid->setHorizontalSpacing(14);
    d->grid->setVerticalSpacing(5);
    d->heading = new QLabel(d->page);
    d->heading->setWordWrap(true);
    d->heading->setTextFormat(Qt::PlainText);
    d->legend = new QLabel(tr("* required"), d->page);
    d->area->setWidget(d->page);
    connect(qApp, &QApplication::focusChanged, this, [this] { d->tellCurrent(); });
    d->read(true);
    d->arrange();
}

DocumentForm::~DocumentForm()
{
    qApp->disconnect(this);
    if (d->document)
        d->document->disconnect(this);
}

void DocumentForm::SetDocument(OpenDocument *document)
{
    if (d->document)
        d->document->disconnect(this);
    d->document = document;
    if (document) {
        connect(document, &OpenDocument::Replaced, this, [this] { d->read(true); });
        connect(document, &OpenDocument::Changed, this, [this] { d->read(false); });
        connect(document, &OpenDocument::OpenEditsWanted, this, [this] { d->takeOpenEdits(); });
        connect(document, &QObject::destroyed, this, [this] {
            d->document = nullptr;
            d->read(true);
        });
    }
    d->read(true);
}

OpenDocument *DocumentForm::GetDocument() const
{
    return d->document;
}

bool DocumentForm::ShowField(const QString &path)
{
    for (QString at = path; !at.isEmpty(); at = parentOf(at)) {
        Row *const row = d->find(at);
        if (!row)
            continue;
        d->page->layout()->activate();
        QWidget *const place = row->control ? &row->control->widget() : row->bar ? row->bar : nullptr;
        QWidget *const control = d->controlBelow(row);
        constexpr int Margin = 60;
        if (control) {
            d->area->ensureWidgetVisible(control, 0, Margin);
            control->setFocus(Qt::OtherFocusReason);
        }
        if (place)
            d->area->ensureWidgetVisible(place, 0, Margin);
        return true;
    }
    return false;
}

QString DocumentForm::GetCurrentField() const
{
    return d->current;
}

QWidget *DocumentForm::GetControl(const QString &path) const
{
    for (const Row *const row : std::as_const(d->order)) {
        if (row->line.node.GetPath() == path && row->control)
            return &row->control->widget();
        if (row->line.node.GetPath() == path && row->map)
            return row->map;
    }
    return nullptr;
}

QString DocumentForm::GetNotes(const QString &path) const
{
    const Row *const row = d->find(path);
    return row && row->notes ? row->notes->text() : QString();
}

QSize DocumentForm::sizeHint() const
{
    constexpr int Width = 620;
    constexpr int Height = 640;
    return {Width, Height};
}

void DocumentForm::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    const QEvent::Type type = event->type();
    if (type == QEvent::FontChange || type == QEvent::LocaleChange || type == QEvent::LayoutDirectionChange)
        d->show();
}

} // namespace KORMAK
