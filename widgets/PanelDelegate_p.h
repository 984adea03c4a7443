// Not installed. Paints the rows of a panel like the controls that edit them, and makes these where one is
// edited.
#ifndef KORMAK_WIDGETS_PANELDELEGATE_P_H
#define KORMAK_WIDGETS_PANELDELEGATE_P_H

#include <QPersistentModelIndex>
#include <QPointer>
#include <QStyledItemDelegate>

namespace KORMAK {

class ParameterEdit;

namespace Widgets {

class PanelRows;
struct Draft;

class PanelDelegate : public QStyledItemDelegate {
public:
    PanelDelegate(PanelRows &parameters, QObject *parent);

    /// The heights of a row, and of the heading of a group above it.
    [[nodiscard]] static int rowHeight(const QWidget &view);
    [[nodiscard]] static int headingHeight(const QWidget &view);

    /// The editor that is open; null when none is.
    [[nodiscard]] ParameterEdit *openEditor() const;
    /// Where it is.
    [[nodiscard]] QModelIndex openIndex() const { return editedIndex; }
    /// What was typed in \a edit and is not taken.
    [[nodiscard]] static Draft draftOf(const ParameterEdit &edit, const QModelIndex &index);

    void paint(QPainter *painter, const QStyleOptionViewItem &option,
               const QModelIndex &index) const override;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem &option, const QModelIndex &index) const override;
    bool helpEvent(QHelpEvent *event, QAbstractItemView *view, const QStyleOptionViewItem &option,
                   const QModelIndex &index) override;
    [[nodiscard]] QWidget *createEditor(QWidget *parent, const QStyleOptionViewItem &option,
                                        const QModelIndex &index) const override;
    void destroyEditor(QWidget *editor, const QModelIndex &index) const override;
    void setEditorData(QWidget *editor, const QModelIndex &index) const override;
    void setModelData(QWidget *editor, QAbstractItemModel *model, const QModelIndex &index) const override;
    void updateEditorGeometry(QWidget *editor, const QStyleOptionViewItem &option,
                              const QModelIndex &index) const override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    /// The place of a row below the heading that may be above it.
    [[nodiscard]] QRect below(const QRect &rect, const QModelIndex &index) const;
    void paintName(QPainter &painter, const QStyleOptionViewItem &option, const QRect &rect,
                   const QModelIndex &index) const;
    void paintValue(QPainter &painter, const QStyleOptionViewItem &option, const QRect &rect,
                    const QModelIndex &index) const;
    void paintDefault(QPainter &painter, const QStyleOptionViewItem &option, const QRect &rect,
                      const QModelIndex &index) const;

    PanelRows &rows;
    mutable QPointer<ParameterEdit> edited;
    mutable QPersistentModelIndex editedIndex;
    mutable bool isCommitting = false; // what is typed, of which the editor tells
};

} // namespace Widgets

} // namespace KORMAK

#endif
