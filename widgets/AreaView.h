#ifndef KORMAK_WIDGETS_AREAVIEW_H
#define KORMAK_WIDGETS_AREAVIEW_H

#include <objectbase/Coordinate.h>
#include <widgets/widgets_export.h>

#include <QPointF>
#include <QString>
#include <QWidget>

#include <memory>
#include <optional>

namespace KORMAK {

class OpenDocument;

/// A map of the area of a document, on which its points are moved, added and removed.
///
/// \snippet docs/FormSnippetsTest.cpp AreaView
///
/// With the mouse, points are dragged, a double click adds one to the nearest edge, and the map itself is
/// dragged and, when it has the focus, zoomed by the wheel. With the keyboard, Tab goes from point to point;
/// the arrow keys move the one that is selected, by a tenth with Shift, until Enter or another point takes
/// the move and Escape gives it up; Insert adds a point behind it and Delete removes it; plus and minus zoom,
/// Home shows the whole area, and the arrow keys with Ctrl, or while no point is selected, move the map.
///
/// Each of these is one change of the document, also of one that it makes incomplete. What is not moved stays
/// as it is written. The first and the last point of an outline that is closed are one. Across 180 degrees
/// and round the poles an edge takes the shorter way. Places that are nowhere on the earth are told below the
/// map.
class WIDGETS_EXPORT AreaView : public QWidget {
    Q_OBJECT

public:
    /// Without a document there is nothing to see but the earth.
    explicit AreaView(QWidget *parent = nullptr);
    ~AreaView() override;

    /// Shows and changes the area called \a path in \a document, which may be null and may end before this.
    void SetDocument(OpenDocument *document, const QString &path = QStringLiteral("Area"));
    /// Null without one.
    [[nodiscard]] OpenDocument *GetDocument() const;

    /// The index of the point that is selected, as the document counts them from 0; -1 when none is.
    [[nodiscard]] int GetSelectedPoint() const noexcept;
    /// Selects a point; an index that there is not selects none. A move that is going on is taken before.
    void SetSelectedPoint(int index);

    /// Moves and zooms the map so that the whole area is seen, now and when it changes.
    void ShowWholeArea();
    /// Shows \a factor times as much detail; less than 1 shows more of the earth.
    void Zoom(double factor);

    /// Where \a place is in the widget; nothing when it is nearly opposite of the middle of the map.
    [[nodiscard]] std::optional<QPointF> GetPosition(const TESSEL::Coordinate &place) const;
    /// The place at \a position in the widget; nothing beside the earth.
    [[nodiscard]] std::optional<TESSEL::Coordinate> GetPlace(const QPointF &position) const;

    /// What is said below the map: the point that is selected or the extent of the area, and what people
    /// should know of it.
    [[nodiscard]] QString GetCaption() const;

    /// \cond
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;
    /// \endcond

Q_SIGNALS:
    /// GetSelectedPoint() is now \a index.
    void SelectedPointChanged(int index);

protected:
    /// \cond
    void changeEvent(QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    bool event(QEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    bool focusNextPrevChild(bool next) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mouseDoubleClickEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    /// \endcond

private:
    struct Private;

    const std::unique_ptr<Private> d;
};

} // namespace KORMAK

#endif
