#include "widgets/FindingsView.h"

#include <inspection/Document.h>
#include <inspection/SaidFields_p.h>
#include <models/FindingModel.h>
#include <models/OpenDocument.h>
#include <widgets/TextSize_p.h>
#include <widgets/ValueMark_p.h>

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPointer>
#include <QStackedLayout>
#include <QStyledItemDelegate>
#include <QTreeView>

#include <algorithm>
#include <functional>

namespace KORMAK {

using namespace Widgets;

namespace {

using Column = FindingModel::Column;

ValueMark markOf(const QModelIndex &index)
{
    const int severity = index.data(FindingModel::SeverityRole).toInt();
    return severity == static_cast<int>(Finding::Severity::Error) ? ValueMark::Error : ValueMark::Warning;
}

/// A sign beside the severity, which is told by its form, too, and messages in as many lines as they need.
class FindingDelegate : public QStyledItemDelegate {
public:
    explicit FindingDelegate(QTreeView *ofView) : QStyledItemDelegate(ofView), view(ofView) { }

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        QSize size = QStyledItemDelegate::sizeHint(option, index);
        constexpr int Room = 8;
        size.rwidth() += index.column() == Column::SeverityColumn ? Sign + 2 * Room : Room;
        if (index.column() == Column::MessageColumn) {
            const int width = std::max(1, view->columnWidth(index.column()) - Room);
            size.setHeight(option.fontMetrics
                               .boundingRect(QRect(0, 0, width, QWIDGETSIZE_MAX),
                                             static_cast<int>(Qt::AlignLeading) | Qt::TextWordWrap,
                                             index.data().toString())
                               .height());
        }
        size.setHeight(std::max(size.height(), option.fontMetrics.height()) + Room);
        return size;
    }

protected:
    void initStyleOption(QStyleOptionViewItem *option, const QModelIndex &index) const override
    {
        QStyledItemDelegate::initStyleOption(option, index);
        option->displayAlignment = Qt::AlignTop | Qt::AlignAbsolute
            | (option->direction == Qt::RightToLeft ? Qt::AlignRight : Qt::AlignLeft);
        if (index.column() == Column::MessageColumn)
            option->features |= QStyleOptionViewItem::WrapText;
        if (option->direction == Qt::RightToLeft && !option->text.isRightToLeft()) {
            // The text runs as its own language does.
            constexpr char16_t Isolate = 0x2066;
            constexpr char16_t End = 0x2069;
            option->text = QChar(Isolate) + option->text + QChar(End);
        }
        if (index.column() != Column::SeverityColumn)
            return;
        const qreal ratio = view->devicePixelRatioF();
        QPixmap sign(QSize(Sign, Sign) * ratio);
        sign.setDevicePixelRatio(ratio);
        sign.fill(Qt::transparent);
        QPainter painter(&sign);
        paintMark(painter, {0, 0, Sign, Sign}, markOf(index), option->palette);
        painter.end();
        option->icon = QIcon(sign);
        option->decorationSize = {Sign, Sign};
        option->decorationAlignment = Qt::AlignTop;
        option->features |= QStyleOptionViewItem::HasDecoration;
    }

    void paint(QPainter *painter, const QStyleOptionViewItem &option, const QModelIndex &index) const override
    {
        constexpr int Above = 4;
        QStyleOptionViewItem lower = option;
        // The background goes over the whole row.
        QStyleOptionViewItem background = option;
        initStyleOption(&background, index);
        background.text.clear();
        background.icon = {};
        background.features &= ~QStyleOptionViewItem::HasDecoration;
        view->style()->drawControl(QStyle::CE_ItemViewItem, &background, painter, view);
        lower.rect.adjust(0, Above, 0, -Above + 2);
        QStyledItemDelegate::paint(painter, lower, index);
    }

private:
    static constexpr int Sign = 14;
    QTreeView *const view;
};

} // namespace

struct FindingsView::Private {
    FindingsView &widget;
    QTreeView *view = nullptr;
    QLabel *empty = nullptr;
    QStackedLayout *layout = nullptr;
    QPointer<OpenDocument> document = {};
    std::unique_ptr<FindingModel> model = {};

    void setModel()
    {
        view->setModel(nullptr);
        model.reset();
        if (document) {
            model = std::make_unique<FindingModel>(*document);
            view->setModel(model.get());
            for (const auto signal : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
                connect(model.get(), signal, &widget, [this] { tell(); });
            connect(model.get(), &QAbstractItemModel::modelReset, &widget, [this] { tell(); });
            connect(document, &OpenDocument::Changed, &widget, [this] { tell(); });
            view->setColumnHidden(Column::RemedyColumn, true);
            QHeaderView *const header = view->header();
            header->setStretchLastSection(false);
            header->setSectionResizeMode(Column::SeverityColumn, QHeaderView::ResizeToContents);
            header->setSectionResizeMode(Column::MessageColumn, QHeaderView::Stretch);
            header->setSectionResizeMode(Column::PlaceColumn, QHeaderView::ResizeToContents);
            header->setSectionResizeMode(Column::PathColumn, QHeaderView::Interactive);
        }
        tell();
    }

    void tell() const
    {
        const QString text = widget.GetEmptyText();
        empty->setText(text);
        layout->setCurrentWidget(text.isEmpty() ? static_cast<QWidget *>(view) : empty);
        view->setAccessibleDescription(text);
        fitPaths();
    }

    /// Paths leave room for messages.
    void fitPaths() const
    {
        constexpr int Share = 4; // of the width
        if (!model)
            return;
        const QAbstractItemView &rows = *view;
        const int wanted = rows.sizeHintForColumn(Column::PathColumn);
        view->header()->resizeSection(Column::PathColumn,
                                      std::min(wanted, view->viewport()->width() / Share));
    }

    void activate(const QModelIndex &index) const
    {
        if (!document || !index.isValid())
            return;
        const auto finding = index.data(FindingModel::FindingRole).value<Finding>();
        Q_EMIT widget.FieldActivated(Inspection::SaidFields(document->GetText()).pathOf(finding));
    }

    void copy() const
    {
        QStringList lines;
        QModelIndexList rows = view->selectionModel()->selectedRows();
        std::sort(rows.begin(), rows.end());
        for (const QModelIndex &row : std::as_const(rows)) {
            QStringList cells;
            for (const Column column :
                 {Column::SeverityColumn, Column::PlaceColumn, Column::PathColumn, Column::MessageColumn}) {
                const QString cell = row.sibling(row.row(), column).data().toString();
                if (!cell.isEmpty())
                    cells += cell;
            }
            lines += cells.join(QStringLiteral(": "));
        }
        if (!lines.isEmpty())
            QApplication::clipboard()->setText(lines.join(QLatin1Char('\n')));
    }
};

namespace {

/// Enter chooses on every platform, and Ctrl+C copies whole rows.
class RowsView : public QTreeView {
public:
    using QTreeView::QTreeView;

    std::function<void(const QModelIndex &)> chosen;
    std::function<void()> copied;
    std::function<void()> resized;

protected:
    void keyPressEvent(QKeyEvent *event) override
    {
        if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
            chosen(currentIndex());
        else if (event->matches(QKeySequence::Copy))
            copied();
        else
            QTreeView::keyPressEvent(event);
    }
    void resizeEvent(QResizeEvent *event) override
    {
        QTreeView::resizeEvent(event);
        resized();
        scheduleDelayedItemsLayout(); // messages take other heights
    }
};

} // namespace

FindingsView::FindingsView(QWidget *parent) : QWidget(parent), d(new Private{*this})
{
    auto *const view = new RowsView(this);
    d->view = view;
    view->chosen = [this](const QModelIndex &index) { d->activate(index); };
    view->copied = [this] { d->copy(); };
    view->resized = [this] { d->fitPaths(); };
    view->setRootIsDecorated(false);
    view->setUniformRowHeights(false);
    view->setWordWrap(true);
    view->setTextElideMode(Qt::ElideMiddle);
    view->setAllColumnsShowFocus(true);
    view->setSelectionMode(QAbstractItemView::ExtendedSelection);
    view->setVerticalScrollMode(QAbstractItemView::ScrollPerPixel);
    view->setTabKeyNavigation(false);
    view->setAccessibleName(tr("Findings"));
    view->setItemDelegate(new FindingDelegate(view));
    connect(view, &QAbstractItemView::clicked, this,
            [this](const QModelIndex &index) { d->activate(index); });
    d->empty = new QLabel(this);
    d->empty->setAlignment(Qt::AlignCenter);
    d->empty->setWordWrap(true);
    d->empty->setMargin(12);
    d->layout = new QStackedLayout(this);
    d->layout->addWidget(view);
    d->layout->addWidget(d->empty);
    setFocusProxy(view);
    d->setModel();
}

FindingsView::~FindingsView()
{
    d->view->setModel(nullptr);
}

void FindingsView::SetDocument(OpenDocument *document)
{
    if (d->document)
        d->document->disconnect(this);
    d->document = document;
    if (document) {
        connect(document, &QObject::destroyed, this, [this] {
            d->document = nullptr;
            d->setModel();
        });
    }
    d->setModel();
}

OpenDocument *FindingsView::GetDocument() const
{
    return d->document;
}

int FindingsView::GetCount() const
{
    return d->model ? d->model->rowCount() : 0;
}

QString FindingsView::GetEmptyText() const
{
    if (!d->document)
        return tr("No document is open.");
    if (GetCount() > 0)
        return {};
    return tr("Nothing is wrong with this document.");
}

QSize FindingsView::sizeHint() const
{
    constexpr int Characters = 90;
    constexpr int Lines = 9;
    return sizeOfText(*this, Characters, Lines);
}

} // namespace KORMAK
