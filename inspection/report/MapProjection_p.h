// The places of the earth on a flat map: Lambert's azimuthal equal-area projection, which has no seams at 180
// degrees or at the poles.
#ifndef KORMAK_INSPECTION_REPORT_MAPPROJECTION_P_H
#define KORMAK_INSPECTION_REPORT_MAPPROJECTION_P_H

#include <inspection/inspection_export.h>

#include <optional>

namespace KORMAK::Inspection {

inline constexpr double EarthRadius = 6371.0088; ///< in km, the mean of the earth's radii

/// In radii of the earth; x to the right, y upwards.
struct MapPoint {
    double x;
    double y;
};

/// A place on the earth, in degrees.
struct Place {
    double latitude;
    double longitude;
};

class INSPECTION_EXPORT MapProjection {
public:
    /// North of \a centre is up.
    explicit MapProjection(const Place &centre);

    /// Nothing for what is nearly opposite of the centre, which would be everywhere along the edge of the
    /// map.
    [[nodiscard]] std::optional<MapPoint> project(double latitude, double longitude) const;

    /// The place at a point of the map; nothing beyond its edge.
    [[nodiscard]] std::optional<Place> placeAt(const MapPoint &point) const;

    /// The angle at the centre of the earth between the centre of the map and a place, in degrees.
    [[nodiscard]] double distance(double latitude, double longitude) const;
    /// The same for a point of the map that is \a radius from its centre.
    [[nodiscard]] static double distanceAt(double radius);

private:
    double sineOfLatitude;
    double cosineOfLatitude;
    double longitudeOfCentre;
};

} // namespace KORMAK::Inspection

#endif
