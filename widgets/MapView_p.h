// Not installed. Which part of the earth a map shows, and where on it things are.
#ifndef KORMAK_WIDGETS_MAPVIEW_P_H
#define KORMAK_WIDGETS_MAPVIEW_P_H

#include <inspection/report/AreaOutline_p.h>
#include <inspection/report/MapFrame_p.h>
#include <inspection/report/MapProjection_p.h>
#include <objectbase/Coordinate.h>

#include <QPointF>
#include <QSizeF>

#include <optional>

namespace KORMAK::Widgets {

/// A value: what is seen from elsewhere is another one.
class MapView {
public:
    /// All of it.
    explicit MapView(const QSizeF &sizeOfMap);
    /// \a pixelsPerRadius: how many the radius of the earth takes.
    MapView(const QSizeF &sizeOfMap, const Inspection::Place &centreOfMap, double pixelsPerRadius);
    /// So that an area is seen; all of the earth for one without points.
    MapView(const QSizeF &sizeOfMap, const Inspection::AreaOutline &outline);

    [[nodiscard]] const Inspection::MapProjection &projection() const noexcept { return ofEarth; }
    [[nodiscard]] const Inspection::MapFrame &frame() const noexcept { return inFrame; }
    /// Pixels from the middle of all of the earth to its edge.
    [[nodiscard]] double radiusOfEarth() const noexcept;
    [[nodiscard]] QSizeF size() const noexcept { return sizeInPixels; }
    [[nodiscard]] bool isSame(const MapView &other) const noexcept
    {
        return sizeInPixels == other.sizeInPixels && centre.latitude == other.centre.latitude
            && centre.longitude == other.centre.longitude && pixels == other.pixels;
    }
    [[nodiscard]] double pixelsPerDegree() const noexcept;
    /// How many decimals degrees need to be finer than what can be seen.
    [[nodiscard]] int decimals() const;
    /// Degrees: round, and some pixels long.
    [[nodiscard]] double step() const;

    [[nodiscard]] std::optional<QPointF> position(const TESSEL::Coordinate &place) const;
    /// From -180 to 180 degrees east.
    [[nodiscard]] std::optional<TESSEL::Coordinate> place(const QPointF &position) const;

    [[nodiscard]] MapView resized(const QSizeF &newSize) const;
    /// With what is seen moved by \a pixels; not beyond a pole.
    [[nodiscard]] MapView moved(const QPointF &byPixels) const;
    /// With what is at \a position staying there. Not nearer than 10 m across, not farther than all.
    [[nodiscard]] MapView zoomed(double factor, const QPointF &position) const;

private:
    QSizeF sizeInPixels;
    Inspection::Place centre;
    double pixels;
    Inspection::MapProjection ofEarth;
    Inspection::MapFrame inFrame;
};

} // namespace KORMAK::Widgets

#endif
