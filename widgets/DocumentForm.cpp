#include "widgets/DocumentForm.h"

#include <inspection/Document.h>
#include <inspection/SaidFields_p.h>
#include <models/OpenDocument.h>
#include <widgets/FieldNotes_p.h>
#include <widgets/FormRow_p.h>
#include <widgets/TextSize_p.h>

#include <QApplication>
#include <QEvent>
#include <QGridLayout>
#include <QHash>
#include <QLabel>
#include <QPointer>
#include <QScrollArea>
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
using Kind = OutlineLine::Kind;

/// What \a path is in; empty for nothing.
QString parentOf(const QString &path)
{
    const auto end = std::max(path.lastIndexOf(QLatin1Char('.')), path.lastIndexOf(QLatin1Char('[')));
    return end < 0 ? QString() : path.left(end);
}

/// What a new element of \a list begins with: what the last one has, but for a number that tells elements
/// apart.
QString textOfNewElement(const Document &document, const QString &list)
{
    const QVector<FieldNode> elements = document.GetNodes(list);
    if (elements.isEmpty())
        return QStringLiteral("0");
    const QVector<FieldNode> values = document.GetNodes(elements.last().GetPath());
    if (!values.isEmpty() && values.first().GetField().GetType() == Field::Type::Integer) {
        qint64 most = -1;
        for (const FieldNode &element : elements) {
            const QVector<FieldNode> ofElement = document.GetNodes(element.GetPath());
            most = std::max(most, ofElement.first().GetField().GetValue().toLongLong());
        }
        return QString::number(most + 1);
    }
    QStringList texts;
    for (const FieldNode &value : values)
        texts += value.GetField().GetText();
    return texts.join(QLatin1Char(','));
}

} // namespace

struct DocumentForm::Private {
    DocumentForm &form;
    QScrollArea *area = nullptr;
    QWidget *page = nullptr;
    QGridLayout *grid = nullptr;
    QLabel *heading = nullptr; ///< what the document is
    QLabel *legend = nullptr; ///< what the asterisks mean
    QPointer<OpenDocument> document = {};
    std::map<QString, std::unique_ptr<FormRow>> rows = {}; ///< by their keys
    QVector<FormRow *> order = {};
    ShownElements shown = {};
    QString current = {};
    std::vector<std::unique_ptr<FormRow>> gone = {}; ///< until what they send is over

    const Document none = {};

    [[nodiscard]] const Document &now() const { return document ? document->GetDocument() : none; }

    // Building

    void read(bool isOther)
    {
        if (isOther) {
            clear();
            shown.clear();
            area->ensureVisible(0, 0);
        }
        const FieldOutline outline(now(), shown);
        QVector<FormRow *> newOrder;
        std::map<QString, std::unique_ptr<FormRow>> left;
        std::swap(left, rows);
        for (const OutlineLine &line : outline.lines()) {
            const QString key = FormRow::keyOf(line);
            const auto former = left.find(key);
            std::unique_ptr<FormRow> row = former == left.end() ? made(line) : std::move(former->second);
            if (former != left.end())
                left.erase(former);
            row->setLine(line);
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

    void remove(std::unique_ptr<FormRow> row)
    {
        row->retire();
        if (gone.empty())
            QTimer::singleShot(0, &form, [this] { gone.clear(); });
        gone.push_back(std::move(row));
    }

    std::unique_ptr<FormRow> made(const OutlineLine &line)
    {
        // The row is there when they are called.
        const auto self = std::make_shared<FormRow *>(nullptr);
        auto row = std::make_unique<FormRow>(
            line, page, document,
            FormRow::Actions{[this, self](const std::optional<QString> &text) { return set(**self, text); },
                             [this, self] { press(**self); }});
        *self = row.get();
        return row;
    }

    void arrange()
    {
        constexpr int Both = 2; // columns
        while (QLayoutItem *const item = grid->takeAt(0))
            delete item;
        int at = 0;
        grid->addWidget(heading, at++, 0, 1, Both);
        QWidget *before = nullptr;
        bool isRequired = false;
        for (const FormRow *const row : std::as_const(order)) {
            row->arrange(*grid, at);
            QWidget *const target = row->focusTarget();
            if (before && target)
                QWidget::setTabOrder(before, target);
            before = target ? target : before;
            isRequired = isRequired
                || (row->control()
                    && row->line().node.GetField().GetRequirement() == Field::Requirement::Always);
        }
        grid->addWidget(legend, at++, 0, 1, Both);
        legend->setVisible(isRequired);
    }

    // Showing

    void show()
    {
        const Inspection::SaidFields said(document ? document->GetText() : QByteArray());
        const QHash<const FormRow *, QVector<FormRow::Note>> notes = notesOf(said);
        legend->setAlignment(leadingSide(form));
        showHeading();
        for (FormRow *const row : std::as_const(order)) {
            const auto text = said.texts().constFind(row->path());
            row->show(text == said.texts().constEnd() ? std::nullopt : std::optional(*text),
                      notes.value(row));
        }
    }

    /// What findings say, each at the row of its field or, where there is none, of what that is in.
    [[nodiscard]] QHash<const FormRow *, QVector<FormRow::Note>>
    notesOf(const Inspection::SaidFields &said) const
    {
        QHash<QString, const FormRow *> places;
        for (const FormRow *const row : order) {
            if (row->isPlace())
                places.insert(row->path(), row);
        }
        QHash<const FormRow *, QVector<FormRow::Note>> notes;
        const QVector<Finding> findings = now().GetFindings();
        for (const Finding &finding : findings) {
            const QString path = said.pathOf(finding);
            QString around = path;
            while (!around.isEmpty() && !places.contains(around))
                around = parentOf(around);
            if (around.isEmpty())
                continue;
            QString within = path.mid(around.size());
            if (within.startsWith(QLatin1Char('.')))
                within.remove(0, 1);
            notes[places.value(around)].append({finding, within});
        }
        return notes;
    }

    void showHeading() const
    {
        if (!document || document->GetText().isEmpty())
            heading->setText(DocumentForm::tr("No document is open."));
        else if (order.isEmpty())
            heading->setText(now().GetState());
        else
            heading->setText(QString());
        heading->setVisible(!heading->text().isEmpty());
    }

    // Changing

    /// \return why it is not done; empty when it is
    QString change(const DocumentEdit::Change &change)
    {
        if (!document)
            return {};
        QStringList reasons;
        const QVector<Finding> refused = document->Change({change}, DocumentEdit::NewFindings::Accepted);
        for (const Finding &finding : refused)
            reasons += finding.GetMessage();
        return reasons.join(QLatin1Char('\n'));
    }

    QString set(const FormRow &row, const std::optional<QString> &text)
    {
        if (row.isRetired())
            return {};
        return change({text ? Action::Set : Action::Unset, row.path(), text.value_or(QString())});
    }

    void press(FormRow &row)
    {
        switch (row.line().kind) {
        case Kind::Element:
            takeOpenEdits();
            row.setRefusal(change({Action::Unset, row.path()}));
            break;
        case Kind::More:
            showMore(row.line());
            break;
        default:
            addElement(row);
        }
    }

    void takeOpenEdits()
    {
        // Each change may move lines.
        QStringList keys;
        for (const auto &[key, row] : rows) {
            if (row->control() && row->control()->isOpen())
                keys += key;
        }
        for (const QString &key : std::as_const(keys)) {
            const auto row = rows.find(key);
            if (row == rows.end())
                continue;
            const QString problem = row->second->control()->take();
            if (!problem.isEmpty())
                document->Refuse(row->second->path(), problem);
        }
    }

    void addElement(FormRow &row)
    {
        takeOpenEdits();
        const QString list = row.path();
        const auto index = static_cast<int>(now().GetNodes(list).size());
        row.setRefusal(change({Action::Set, list, textOfNewElement(now(), list)}));
        form.ShowField(QStringLiteral("%1[%2]").arg(list).arg(index));
    }

    void showMore(const OutlineLine &line)
    {
        const FieldNode first = now().GetNodes(line.node.GetPath()).value(line.first);
        form.ShowField(first.GetPath());
    }

    // Finding

    [[nodiscard]] FormRow *find(const QString &path) const
    {
        const auto is = [&path](const FormRow *row) { return row->isPlace() && row->path() == path; };
        const auto isCalled = [&path](const FormRow *row) {
            return row->isPlace() && row->line().node.GetPathInFindings() == path;
        };
        auto row = std::find_if(order.begin(), order.end(), is);
        if (row == order.end())
            row = std::find_if(order.begin(), order.end(), isCalled);
        return row == order.end() ? nullptr : *row;
    }

    /// The first control below the row, itself included.
    [[nodiscard]] QWidget *controlBelow(FormRow *row) const
    {
        for (auto i = order.indexOf(row); i >= 0 && i < order.size(); ++i) {
            if (order.at(i)->control())
                return order.at(i)->editor();
            if (order.at(i)->line().kind == Kind::Heading && order.at(i)->focusTarget())
                return order.at(i)->focusTarget();
        }
        return nullptr;
    }

    void tellCurrent()
    {
        const QWidget *const focused = QApplication::focusWidget();
        QString path;
        for (const FormRow *const row : std::as_const(order)) {
            const QWidget *const widget = row->editor();
            if (widget && focused && (widget == focused || widget->isAncestorOf(focused)))
                path = row->path();
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
    if (d->shown.addAround(d->now(), path))
        d->read(false);
    for (QString at = path; !at.isEmpty(); at = parentOf(at)) {
        FormRow *const row = d->find(at);
        if (!row)
            continue;
        constexpr int Margin = 60;
        d->page->layout()->activate(); // so that what has come can be scrolled to
        if (QWidget *const control = d->controlBelow(row)) {
            d->area->ensureWidgetVisible(control, 0, Margin);
            control->setFocus(Qt::OtherFocusReason);
        }
        d->area->ensureWidgetVisible(row->place(), 0, Margin);
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
    const auto row = std::find_if(d->order.begin(), d->order.end(), [&path](const FormRow *one) {
        return one->path() == path && one->editor();
    });
    return row == d->order.end() ? nullptr : (*row)->editor();
}

QString DocumentForm::GetNotes(const QString &path) const
{
    const FormRow *const row = d->find(path);
    return row ? row->notesText() : QString();
}

QSize DocumentForm::sizeHint() const
{
    constexpr int Characters = 90;
    constexpr int Lines = 38;
    return sizeOfText(*this, Characters, Lines);
}

void DocumentForm::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    const QEvent::Type type = event->type();
    if (type == QEvent::FontChange || type == QEvent::LocaleChange || type == QEvent::LayoutDirectionChange)
        d->show();
}

} // namespace KORMAK
