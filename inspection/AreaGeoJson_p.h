// The area of a document as GeoJSON (RFC 7946).
#ifndef KORMAK_INSPECTION_AREAGEOJSON_P_H
#define KORMAK_INSPECTION_AREAGEOJSON_P_H

#include <QString>

namespace TESSEL {
class Area;
class ITesselObject;
} // namespace TESSEL

namespace KORMAK::Inspection {

/// The area in \a document; null when its kind has none.
[[nodiscard]] const TESSEL::Area *areaOf(const TESSEL::ITesselObject &document);

/// What is said of a document of the kind \a kind that has none.
[[nodiscard]] QString noAreaIn(const QString &kind);

/// A Feature in one object: longitude before latitude, rings closed and anticlockwise, cut at 180 degrees,
/// numbers exact. Where the polygons do not tell the one outline that they are parts of, the property
/// "outline" does. A point or a line for an area of one or two coordinates, no geometry for one of none.
/// \throws FieldError when a coordinate is nowhere on the earth
[[nodiscard]] QString areaGeoJson(const TESSEL::Area &area, const QString &kind);

} // namespace KORMAK::Inspection

#endif
