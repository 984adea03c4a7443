// Not installed. The table of a panel: moves from value to value, and tells when it is empty.
#ifndef KORMAK_WIDGETS_PANELVIEW_P_H
#define KORMAK_WIDGETS_PANELVIEW_P_H

#include <QString>
#include <QTableView>

namespace KORMAK::Widgets {

class PanelRows;

class PanelView : public QTableView {
public:
    PanelView(PanelRows &parameters, QWidget *parent);

    /// What stands there when there are no rows.
    void setEmptyText(const QString &text);

protected:
    QModelIndex moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) override;
    void keyPressEvent(QKeyEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    PanelRows &rows;
    QString emptyText;
};

} // namespace KORMAK::Widgets

#endif
