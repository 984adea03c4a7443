// Reads an area from GeoJSON (RFC 7946).
#ifndef KORMAK_INSPECTION_GEOJSONAREA_P_H
#define KORMAK_INSPECTION_GEOJSONAREA_P_H

#include <objectbase/Coordinate.h>

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <QVector>

namespace KORMAK::Inspection {

/// What a GeoJSON text says of an area.
struct GeoJsonArea {
    QVector<TESSEL::Coordinate> coordinates; ///< none: the text has no geometry
    QString name;
    QString namePlace; ///< of the name in the text
    QStringList ignored; ///< places of what no area holds
};

/// A Polygon without holes, a MultiPolygon or MultiLineString that was cut at 180 degrees, a line between two
/// positions or a Point, in a Feature, alone in a FeatureCollection or by itself.
/// \throws TESSEL::TesselException for anything else, with the place in the text
[[nodiscard]] GeoJsonArea readGeoJsonArea(const QByteArray &json);

} // namespace KORMAK::Inspection

#endif
