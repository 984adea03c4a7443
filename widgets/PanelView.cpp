#include "widgets/PanelView_p.h"

#include <widgets/PanelRows_p.h>
#include <widgets/ValueMark_p.h>

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>

namespace KORMAK::Widgets {

PanelView::PanelView(PanelRows &parameters, QWidget *parent) : QTableView(parent), rows(parameters)
{
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setSelectionMode(
        NoSelection); // the current row is painted by the delegate, lighter: controls stand in it
    setEditTriggers(EditKeyPressed | AnyKeyPressed);
    setVerticalScrollMode(ScrollPerPixel);
    setHorizontalScrollMode(ScrollPerPixel);
    setFrameShape(StyledPanel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setSectionsMovable(false);
    viewport()->setBackgroundRole(QPalette::Window); // as forms have it: what can be edited is told apart
    horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
}

void PanelView::setEmptyText(const QString &text)
{
    emptyText = text;
    viewport()->update();
}

QModelIndex PanelView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers)
{
    if (action != MoveNext && action != MovePrevious)
        return QTableView::moveCursor(action, modifiers);
    const int direction = action == MoveNext ? 1 : -1;
    for (int row = currentIndex().row() + direction; row >= 0 && row < rows.rowCount(); row += direction) {
        const QModelIndex index = rows.index(row, PanelRows::ValueColumn);
        if (rows.isEditable(index))
            return index;
    }
    return {};
}

void PanelView::keyPressEvent(QKeyEvent *event)
{
    const bool isEnter = event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter;
    if (isEnter && state() != EditingState && rows.isEditable(currentIndex())) {
        edit(rows.index(currentIndex().row(), PanelRows::ValueColumn));
        return;
    }
    QTableView::keyPressEvent(event);
}

void PanelView::paintEvent(QPaintEvent *event)
{
    QTableView::paintEvent(event);
    if (rows.rowCount() > 0 || emptyText.isEmpty())
        return;
    QPainter painter(viewport());
    painter.setPen(remarkColor(palette()));
    painter.drawText(viewport()->rect(),
                     static_cast<int>(Qt::AlignCenter) | static_cast<int>(Qt::TextWordWrap), emptyText);
}

} // namespace KORMAK::Widgets
