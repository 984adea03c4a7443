// Not installed. Draws the map of an area: the earth, and the outline with its points.
#ifndef KORMAK_WIDGETS_AREAMAPPAINTER_P_H
#define KORMAK_WIDGETS_AREAMAPPAINTER_P_H

#include <inspection/report/AreaOutline_p.h>
#include <objectbase/Coordinate.h>
#include <widgets/MapView_p.h>

#include <QFont>
#include <QLocale>
#include <QPalette>
#include <QString>
#include <QVector>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

namespace KORMAK::Widgets {

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
