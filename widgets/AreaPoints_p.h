// Not installed. The points of an area of a document, and the changes that move, add and remove them.
#ifndef KORMAK_WIDGETS_AREAPOINTS_P_H
#define KORMAK_WIDGETS_AREAPOINTS_P_H

#include <inspection/DocumentEdit.h>
#include <objectbase/Coordinate.h>

#include <QHash>
#include <QString>
#include <QVector>

#include <optional>

namespace KORMAK {

class Document;

namespace Widgets {

/// A place as it is written into a document.
struct PlaceText {
    QString latitude;
    QString longitude;

    [[nodiscard]] TESSEL::Coordinate coordinate() const
    {
        return {latitude.toDouble(), longitude.toDouble()};
    }
};

/// \a degrees with at most so many decimals, and without a zero at their end.
[[nodiscard]] QString degreesText(double degrees, int decimals);
/// How many decimals the shortest text has that is read as \a value; 0 when it is a text with an exponent.
[[nodiscard]] int decimalsOf(double value);

class AreaPoints {
public:
    using Changes = QVector<DocumentEdit::Change>;

    AreaPoints() = default;
    /// Those of the area called \a path.
    AreaPoints(const Document &document, const QString &path);

    /// Whether the document can have such an area.
    [[nodiscard]] bool isKnown() const noexcept { return hasArea; }
    /// As the document has them.
    [[nodiscard]] const QVector<TESSEL::Coordinate> &coordinates() const noexcept { return all; }
    /// Whether the last coordinate repeats the first: they are one point then.
    [[nodiscard]] bool isClosed() const;
    /// How many points there are to move.
    [[nodiscard]] int count() const { return static_cast<int>(all.size()) - (isClosed() ? 1 : 0); }
    [[nodiscard]] const TESSEL::Coordinate &at(int index) const { return all.at(index); }

    /// Which of these points that one of \a former is; nothing when it is gone. Points that came or went in
    /// one place tell how those behind them have moved.
    [[nodiscard]] std::optional<int> indexOf(int index, const AreaPoints &former) const;
    /// Half way from a point to the next one.
    [[nodiscard]] TESSEL::Coordinate behind(int index) const;

    /// The coordinates with a point moved.
    [[nodiscard]] QVector<TESSEL::Coordinate> moved(int index, const TESSEL::Coordinate &place) const;

    [[nodiscard]] Changes move(int index, const PlaceText &place) const;
    /// \a index is that of the new point. \a said are the texts of the document, which the points behind it
    /// keep.
    [[nodiscard]] Changes insert(int index, const PlaceText &place,
                                 const QHash<QString, QString> &said) const;
    [[nodiscard]] Changes remove(int index, const QHash<QString, QString> &said) const;

private:
    [[nodiscard]] QString element(int index) const;
    [[nodiscard]] PlaceText textOf(int index, const QHash<QString, QString> &said) const;
    void addMove(Changes &changes, int index, const PlaceText &place) const;

    QString list;
    QVector<TESSEL::Coordinate> all;
    bool hasArea = false;
};

} // namespace Widgets

} // namespace KORMAK

#endif
