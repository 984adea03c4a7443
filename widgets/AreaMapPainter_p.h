// Not installed. Draws the map of an area: the earth, and the outline with its points.
#ifndef KORMAK_WIDGETS_AREAMAPPAINTER_P_H
#define KORMAK_WIDGETS_AREAMAPPAINTER_P_H

#include <inspection/report/AreaOutline_p.h>
#include <inspection/report/MapFrame_p.h>
#include <inspection/report/MapProjection_p.h>
#include <objectbase/Coordinate.h>

#include <QFont>
#include <QLocale>
#include <QPalette>
#include <QPixmap>
#include <QPointF>
#include <QSizeF>
#include <QString>
#include <QVector>

#include <optional>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

namespace KORMAK::Widgets {

/// Which part of the earth is seen.
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
    [[nodiscard]] double scale() const noexcept { return pixels; }
    [[nodiscard]] QSizeF size() const noexcept { return sizeInPixels; }
    [[nodiscard]] bool isSame(const MapView &other) const noexcept
    {
        return sizeInPixels == other.sizeInPixels && centre.latitude == other.centre.latitude
            && centre.longitude == other.centre.longitude && pixels == other.pixels;
    }
    [[nodiscard]] double pixelsPerDegree() const noexcept;

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

struct MapColors {
    explicit MapColors(const QPalette &palette);

    QColor sea, land, coast, area, text, halo, beyond;
};

/// How it is to look.
struct MapLook {
    QPalette palette;
    QFont font;
    QLocale locale;
};

/// The land, the graticule with its degrees, the poles, the scale and where north is.
void paintEarth(QPainter &painter, const MapView &view, const MapLook &look);

/// What of the points is seen.
struct PointMarks {
    int count; ///< of those that are drawn, from the first
    int selected; ///< -1: none
    bool hasFocus;
};
/// \a coordinates may hold places that are nowhere on the earth, which are left out.
void paintArea(QPainter &painter, const MapView &view, const MapLook &look,
               const QVector<TESSEL::Coordinate> &coordinates, const PointMarks &marks);

/// Whether it is a place on the earth.
[[nodiscard]] bool isOnEarth(const TESSEL::Coordinate &place);
/// The outline of those that are.
[[nodiscard]] Inspection::AreaOutline outlineOnEarth(const QVector<TESSEL::Coordinate> &coordinates);

/// \a text with the decimal point of \a locale in numbers.
[[nodiscard]] QString localised(QString text, const QLocale &locale);

} // namespace KORMAK::Widgets

#endif
