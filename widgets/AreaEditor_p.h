// Not installed. What people do to the points of an area, without a map: it knows degrees, and no pixels.
#ifndef KORMAK_WIDGETS_AREAEDITOR_P_H
#define KORMAK_WIDGETS_AREAEDITOR_P_H

#include <models/OpenDocument.h>
#include <widgets/AreaPoints_p.h>

#include <QPointer>
#include <QString>

#include <functional>
#include <optional>

namespace KORMAK::Widgets {

/// Which point is selected, the move of it that the document has not yet, and the changes of the document.
class AreaEditor {
public:
    std::function<void(int index)> selectionChanged; ///< called with what is selected now
    std::function<void()> changed; ///< called when something else is to be shown

    /// Of the area called \a path in \a document, which may be null and may end before this.
    void setArea(OpenDocument *document, const QString &path);
    [[nodiscard]] OpenDocument *document() const { return opened; }
    [[nodiscard]] const QString &path() const noexcept { return areaPath; }
    /// The document says something else of the area. What is selected stays so where points before it came or
    /// went. \return false when it is gone itself, and with it the move; another one is selected then
    bool update();
    /// It is another document.
    void reset();

    [[nodiscard]] const AreaPoints &points() const noexcept { return all; }
    [[nodiscard]] bool isEditable() const { return opened && all.isKnown(); }
    /// As they are to be drawn: with the move that is going on.
    [[nodiscard]] QVector<TESSEL::Coordinate> coordinates() const;

    /// -1: none.
    [[nodiscard]] int selected() const noexcept { return current; }
    /// A move that is going on is taken before.
    void select(int index);

    [[nodiscard]] bool isMoving() const noexcept { return move.has_value(); }
    /// Moves the point that is selected, which the document does not have before takeMove().
    void moveTo(const PlaceText &place);
    /// The same, by degrees; not beyond a pole.
    void moveBy(double north, double east);
    void takeMove();
    void giveUpMove();

    /// \a index is that of the new point, which is selected then; it has at most so many decimals.
    void insert(int index, const TESSEL::Coordinate &place, int decimals);
    void remove(int index);

private:
    [[nodiscard]] bool change(const AreaPoints::Changes &changes);
    [[nodiscard]] QHash<QString, QString> said() const;
    void setSelected(int index);

    QPointer<OpenDocument> opened;
    QString areaPath = QStringLiteral("Area");
    AreaPoints all;
    int current = -1;
    std::optional<PlaceText> move; ///< of the point that is selected
};

} // namespace KORMAK::Widgets

#endif
