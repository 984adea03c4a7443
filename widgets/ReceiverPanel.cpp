#include "widgets/ReceiverPanel.h"

#include <kormak/Parameter.h>
#include <models/OpenDocument.h>
#include <models/ParameterModel.h>
#include <widgets/ComboBox_p.h>
#include <widgets/PanelDelegate_p.h>
#include <widgets/PanelRows_p.h>
#include <widgets/PanelView_p.h>
#include <widgets/ParameterControl.h>
#include <widgets/ParameterEdit.h>
#include <widgets/ParameterText_p.h>
#include <widgets/ValueChange_p.h>

#include <QAction>
#include <QCheckBox>
#include <QEvent>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QPushButton>
#include <QShortcut>
#include <QVBoxLayout>

#include <algorithm>
#include <utility>

namespace KORMAK {

using Widgets::Draft;
using Widgets::PanelDelegate;
using Widgets::PanelRows;
using Widgets::PanelView;

struct ReceiverPanel::Private {
    explicit Private(OpenDocument &receiver, ReceiverPanel &panel)
        : document(receiver), model(receiver), rows(model, receiver, nullptr),
          view(new PanelView(rows, &panel))
    {
    }

    OpenDocument &document;
    ParameterModel model;
    PanelRows rows;
    PanelView *view;
    QLineEdit *search = nullptr;
    QComboBox *group = nullptr;
    QCheckBox *changed = nullptr;
    QPushButton *restore = nullptr;
    QLabel *counts = nullptr;
    bool areColumnsPlaced = false;
    bool isUpdateWanted = false;

    [[nodiscard]] QModelIndex valueOf(const QModelIndex &index) const
    {
        return rows.index(index.row(), PanelRows::ValueColumn);
    }
    [[nodiscard]] PanelDelegate &delegate() const
    {
        return *static_cast<PanelDelegate *>(view->itemDelegate());
    }
    [[nodiscard]] ParameterEdit *editor() const { return delegate().openEditor(); }

    void restoreDefault(const QModelIndex &index)
    {
        if (editor() && delegate().openIndex().row() == index.row())
            editor()->Discard();
        rows.removeDraft(index);
        rows.setData(valueOf(index), index.data(ParameterModel::DefaultRole), ParameterModel::ValueRole);
    }

    /// As wide as what is in the first rows, and not wider than is good for all.
    WIDGETS_NO_EXPORT void placeColumns();
    WIDGETS_NO_EXPORT void fillGroups();
};

void ReceiverPanel::Private::placeColumns()
{
    constexpr int Looked = 200;
    constexpr int MostCharacters = 32;
    constexpr int LeastValueCharacters = 30;
    constexpr int MostValueCharacters = 40;
    constexpr int LeastDefaultCharacters = 20;
    const int character = view->fontMetrics().averageCharWidth();
    QHeaderView &header = *view->horizontalHeader();
    const auto wanted = [this, &header](int column) {
        int width = header.sectionSizeHint(column);
        for (int row = 0; row < rows.rowCount() && row < Looked; ++row)
            width = std::max(width, view->sizeHintForIndex(rows.index(row, column)).width());
        return width;
    };
    for (const int column : {PanelRows::NameColumn, PanelRows::DefaultColumn})
        header.resizeSection(column, std::min(wanted(column), MostCharacters * character));
    header.resizeSection(PanelRows::ValueColumn,
                         std::clamp(wanted(PanelRows::ValueColumn), LeastValueCharacters * character,
                                    MostValueCharacters * character));
    header.resizeSection(
        PanelRows::DefaultColumn,
        std::max(header.sectionSize(PanelRows::DefaultColumn), LeastDefaultCharacters * character));
}

void ReceiverPanel::Private::fillGroups()
{
    const QStringList names = rows.GetGroups();
    QStringList shown{ReceiverPanel::tr("All groups")};
    for (const QString &name : names)
        shown += name.isEmpty() ? ReceiverPanel::tr("Others") : name;
    QStringList before;
    for (int i = 0; i < group->count(); ++i)
        before += group->itemText(i);
    if (shown == before)
        return;
    const QString current = group->currentIndex() > 0 ? group->currentData().toString() : QString();
    const bool hasCurrent = group->currentIndex() > 0 && names.contains(current);
    const QSignalBlocker blocker(group);
    group->clear();
    group->addItem(shown.constFirst());
    for (int i = 0; i < names.size(); ++i)
        group->addItem(shown.at(i + 1), names.at(i));
    group->setCurrentIndex(hasCurrent ? static_cast<int>(names.indexOf(current)) + 1 : 0);
    group->setVisible(names.size() > 1);
    if (!hasCurrent)
        rows.SetGroup(std::nullopt);
}

ReceiverPanel::ReceiverPanel(OpenDocument &receiver, QWidget *parent)
    : QWidget(parent), d(std::make_unique<Private>(receiver, *this))
{
    d->rows.setLocale(locale());
    d->search = new QLineEdit(this);
    d->search->setPlaceholderText(tr("Search"));
    d->search->setAccessibleName(tr("Search"));
    d->search->setClearButtonEnabled(true);
    d->group = new Widgets::ComboBox(this);
    d->group->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    d->group->setAccessibleName(tr("Group"));
    d->changed = new QCheckBox(tr("Changed only"), this);
    d->changed->setToolTip(tr("Shows the parameters that differ from their defaults"));
    d->restore = new QPushButton(tr("Restore all"), this);
    d->restore->setToolTip(tr("Gives all parameters their defaults"));
    d->counts = new QLabel(this);

    auto *const bar = new QHBoxLayout;
    bar->addWidget(d->search, 1);
    bar->addWidget(d->group);
    bar->addWidget(d->changed);
    bar->addWidget(d->restore);
    auto *const layout = new QVBoxLayout(this);
    layout->addLayout(bar);
    layout->addWidget(d->view, 1);
    layout->addWidget(d->counts);

    // Before the view closes the editor.
    connect(&d->rows, &QAbstractItemModel::rowsAboutToBeRemoved, this, &ReceiverPanel::keepTyped);
    d->view->setModel(&d->rows);
    d->view->setItemDelegate(new PanelDelegate(d->rows, d->view));
    d->view->setAccessibleName(tr("Parameters"));
    d->view->setContextMenuPolicy(Qt::CustomContextMenu);
    for (int column = 0; column < d->rows.columnCount(); ++column) {
        const bool isShown = column == PanelRows::NameColumn || column == PanelRows::ValueColumn
            || column == PanelRows::DefaultColumn || column == PanelRows::LimitsColumn;
        d->view->setColumnHidden(column, !isShown);
    }
    d->view->horizontalHeader()->setStretchLastSection(true);
    for (QWidget *const first : {static_cast<QWidget *>(d->search), static_cast<QWidget *>(d->group),
                                 static_cast<QWidget *>(d->changed), static_cast<QWidget *>(d->view)}) {
        QWidget *const second = first == d->search ? static_cast<QWidget *>(d->group)
            : first == d->group                    ? static_cast<QWidget *>(d->changed)
            : first == d->changed                  ? static_cast<QWidget *>(d->view)
                                                   : static_cast<QWidget *>(d->restore);
        setTabOrder(first, second);
    }
    setFocusProxy(d->search);

    auto *const find = new QShortcut(QKeySequence::Find, this);
    find->setContext(Qt::WidgetWithChildrenShortcut);
    connect(find, &QShortcut::activated, this, [this] {
        d->search->setFocus(Qt::ShortcutFocusReason);
        d->search->selectAll();
    });
    connect(d->search, &QLineEdit::textChanged, this, [this](const QString &words) {
        d->rows.SetSearch(words);
        updateRows();
    });
    connect(d->group, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this](int chosen) {
        d->rows.SetGroup(chosen > 0 ? std::optional(d->group->itemData(chosen).toString()) : std::nullopt);
        updateRows();
    });
    connect(d->changed, &QCheckBox::toggled, this, [this](bool isOn) {
        d->rows.SetShow(isOn ? ParameterFilter::Show::Changed : ParameterFilter::Show::All);
        updateRows();
    });
    connect(d->restore, &QPushButton::clicked, this, &ReceiverPanel::RestoreDefaults);
    connect(d->view, &QTableView::clicked, this, &ReceiverPanel::clicked);
    connect(d->view, &QWidget::customContextMenuRequested, this, &ReceiverPanel::showMenu);
    connect(d->view->selectionModel(), &QItemSelectionModel::currentRowChanged, this,
            [this](const QModelIndex &current) {
                d->view->viewport()->update();
                Q_EMIT CurrentParameterChanged(current.isValid() ? d->rows.uniqueName(current) : QString());
            });
    connect(&d->rows, &QAbstractItemModel::modelReset, this, &ReceiverPanel::updateRows);
    connect(&d->rows, &QAbstractItemModel::layoutChanged, this, &ReceiverPanel::updateRowsLater);
    connect(&d->rows, &QAbstractItemModel::rowsInserted, this, &ReceiverPanel::updateRowsLater);
    connect(&d->rows, &QAbstractItemModel::rowsRemoved, this, &ReceiverPanel::updateRowsLater);
    connect(&d->rows, &QAbstractItemModel::dataChanged, this, &ReceiverPanel::updateCounts);
    connect(&d->model, &QAbstractItemModel::rowsInserted, this, &ReceiverPanel::updateCounts);
    connect(&d->model, &QAbstractItemModel::rowsRemoved, this, &ReceiverPanel::updateCounts);
    connect(&receiver, &OpenDocument::Replaced, this, [this] {
        d->rows.clearDrafts();
        d->areColumnsPlaced = false;
        updateRows();
    });
    connect(&receiver, &OpenDocument::Changed, this, &ReceiverPanel::dropLost); // after the model
    connect(&receiver, &OpenDocument::OpenEditsWanted, this, &ReceiverPanel::takeOpenEdits);
    updateRows();
}

ReceiverPanel::~ReceiverPanel()
{
    // The view refers to what is destroyed before it.
    delete d->view;
}

ParameterModel &ReceiverPanel::GetModel() noexcept
{
    return d->model;
}

QString ReceiverPanel::GetSearch() const
{
    return d->search->text();
}

void ReceiverPanel::SetSearch(const QString &words)
{
    d->search->setText(words);
}

ParameterFilter::Show ReceiverPanel::GetShow() const
{
    return d->rows.GetShow();
}

void ReceiverPanel::SetShow(ParameterFilter::Show show)
{
    d->changed->setChecked(show == ParameterFilter::Show::Changed);
}

QString ReceiverPanel::GetCurrentParameter() const
{
    const QModelIndex current = d->view->currentIndex();
    return current.isValid() ? d->rows.uniqueName(current) : QString();
}

bool ReceiverPanel::ShowParameter(const QString &uniqueName)
{
    const int row = d->model.GetRow(uniqueName);
    if (row < 0)
        return false;
    const auto find = [this, row] {
        return d->rows.mapFromSource(d->model.index(row, PanelRows::ValueColumn));
    };
    if (!find().isValid()) {
        SetSearch({});
        SetShow(ParameterFilter::Show::All);
        d->group->setCurrentIndex(0);
    }
    d->view->setCurrentIndex(find());
    d->view->scrollTo(find(), QAbstractItemView::PositionAtCenter);
    return true;
}

void ReceiverPanel::RestoreDefaults()
{
    d->rows.clearDrafts();
    if (ParameterEdit *const editor = d->editor())
        editor->Discard();
    d->model.RestoreDefaults(); // what is refused, the document tells
    d->view->viewport()->update();
}

void ReceiverPanel::updateRows()
{
    if (!d->counts)
        return;
    d->isUpdateWanted = false;
    d->fillGroups();
    QHeaderView &header = *d->view->verticalHeader();
    const int height = PanelDelegate::rowHeight(*d->view);
    const int heading = PanelDelegate::headingHeight(*d->view);
    header.setDefaultSectionSize(height);
    for (int row = 0; row < d->rows.rowCount(); ++row) {
        const int wanted = height + (d->rows.isFirstOfGroup(row) ? heading : 0);
        if (header.sectionSize(row) != wanted)
            header.resizeSection(row, wanted);
    }
    if (!d->areColumnsPlaced && d->rows.rowCount() > 0) {
        d->placeColumns();
        d->areColumnsPlaced = true;
    }
    updateCounts();
}

void ReceiverPanel::updateRowsLater()
{
    // A search takes rows away here and there, and tells of each place.
    if (std::exchange(d->isUpdateWanted, true))
        return;
    QMetaObject::invokeMethod(
        this, [this] { updateRows(); }, Qt::QueuedConnection);
}

void ReceiverPanel::updateCounts()
{
    const int all = d->model.rowCount();
    const int shown = d->rows.rowCount();
    d->counts->setText(all == shown ? tr("%1 parameters").arg(all)
                                    : tr("%1 of %2 parameters").arg(shown).arg(all));
    d->view->setEmptyText(all > 0 ? tr("No parameter is like this")
                                  : tr("There are no parameters in this document"));
    d->restore->setEnabled(all > 0);
}

void ReceiverPanel::takeOpenEdits()
{
    const QPointer<ReceiverPanel> self(this);
    QString told; // by the document, if it refuses what stands in the editor
    ParameterEdit *const editor = d->editor();
    if (editor && editor->IsOpen()) {
        told = d->rows.uniqueName(d->delegate().openIndex());
        d->delegate().setModelData(editor, &d->rows, d->delegate().openIndex());
    }
    if (!self)
        return;
    const QStringList names = d->rows.drafts().keys();
    for (const QString &name : names) {
        if (self && d->rows.drafts().contains(name))
            takeDraft(name, name == told);
    }
}

void ReceiverPanel::takeDraft(const QString &name, bool isTold)
{
    const Draft draft = d->rows.drafts().value(name);
    const Parameter *const parameter = Widgets::findParameter(d->document.GetDocument(), name);
    if (!parameter)
        return;
    const QVariant wanted = Widgets::readValue(*parameter, draft.text, locale()).value;
    if (!wanted.isValid()) {
        d->document.Refuse(draft.path, draft.problem);
        return;
    }
    if (isTold)
        return;
    const QPointer<ReceiverPanel> self(this);
    const QModelIndex index = d->model.index(d->model.GetRow(name), PanelRows::ValueColumn);
    const QString reason = Widgets::setParameterValue(d->model, index, wanted, d->document);
    if (self && reason.isEmpty())
        d->rows.removeDraft(d->rows.mapFromSource(index));
}

void ReceiverPanel::keepTyped(const QModelIndex &parent, int first, int last)
{
    const QModelIndex index = d->delegate().openIndex();
    const ParameterEdit *const editor = d->editor();
    if (editor && editor->IsOpen() && !parent.isValid() && index.row() >= first && index.row() <= last)
        d->rows.keepDraft(d->rows.uniqueName(index), PanelDelegate::draftOf(*editor, index));
}

void ReceiverPanel::dropLost()
{
    ParameterEdit *const editor = d->editor();
    const QModelIndex index = d->delegate().openIndex();
    const Parameter *const edited = editor ? d->rows.parameter(index) : nullptr;
    const bool isOther = edited && edited->GetParameterType() != editor->GetParameter().GetParameterType();
    if (editor && (isOther || !d->rows.isEditable(index))) {
        if (editor->IsOpen())
            d->rows.keepDraft(d->rows.uniqueName(index), PanelDelegate::draftOf(*editor, index));
        editor->Discard(); // closing, it takes nothing
        Q_EMIT d->delegate().closeEditor(editor);
    }
    const QPointer<ReceiverPanel> self(this);
    const auto lost = d->rows.takeLostDrafts();
    if (!lost.isEmpty())
        d->view->viewport()->update();
    for (const Draft &draft : lost) {
        if (self)
            d->document.Refuse(draft.path, draft.problem);
    }
}

void ReceiverPanel::clicked(const QModelIndex &index)
{
    if (!d->rows.isEditable(index))
        return;
    if (index.column() == PanelRows::DefaultColumn && index.data(ParameterModel::ChangedRole).toBool()) {
        d->restoreDefault(index);
        return;
    }
    if (index.column() != PanelRows::ValueColumn)
        return;
    d->view->edit(index);
    const ParameterEdit *const editor = d->editor();
    if (!editor)
        return;
    // One click does what it does to a control that is there already.
    if (auto *const box = editor->findChild<QComboBox *>())
        box->showPopup();
    else if (auto *const check = editor->findChild<QCheckBox *>())
        check->click();
}

void ReceiverPanel::showMenu(const QPoint &position)
{
    const QPersistentModelIndex index = d->view->indexAt(position);
    if (!d->rows.isEditable(index))
        return;
    // It stays while the document changes, and goes when the panel does.
    auto *const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction *const restore = menu->addAction(tr("Restore default"));
    restore->setEnabled(index.data(ParameterModel::ChangedRole).toBool());
    connect(restore, &QAction::triggered, this, [this, index] {
        if (d->rows.isEditable(index))
            d->restoreDefault(index);
    });
    menu->popup(d->view->viewport()->mapToGlobal(position));
}

void ReceiverPanel::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (!d || !d->counts)
        return;
    if (event->type() == QEvent::LocaleChange)
        d->rows.setLocale(locale());
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        d->areColumnsPlaced = false;
        updateRows();
    }
}

} // namespace KORMAK
