// The places of the earth on a flat map: round a place, or all of it.
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
    enum class Kind {
        Azimuthal, ///< round a place, areas as large as they are: Lambert's, without seams at 180 degrees or
                   ///< poles
        Cylindrical, ///< all of the earth, edges of areas straight: equidistant, true to scale at 48.2
                     ///< degrees
    };
    static constexpr double EdgeRadius = 2; ///< of an azimuthal map of all of the earth
    static const double RimRadius; ///< of what project() gives of it
    /// Of the parallel that a cylindrical map is true to scale at: so that it is four by three.
    static constexpr double TrueCosine = 2.0 / 3;

    /// North of \a centre is up. A cylindrical map has it in the middle of its width.
    explicit MapProjection(const Place &centre, Kind kind = Kind::Azimuthal);

    [[nodiscard]] Kind kind() const noexcept { return ofKind; }
    [[nodiscard]] double centralLongitude() const noexcept { return longitudeOfCentre; }

    /// Nothing for what is nearly opposite of the centre of an azimuthal map, which would be everywhere along
    /// its edge.
    [[nodiscard]] std::optional<MapPoint> project(double latitude, double longitude) const;
    /// Where such a place would be, at the edge of those that are not.
    [[nodiscard]] MapPoint atRim(double latitude, double longitude) const;
    /// On a cylindrical map that goes on east and west of the earth: longitudes may be beyond 180 degrees.
    [[nodiscard]] MapPoint onCylinder(double latitude, double longitude) const;

    /// The place at a point of the map; nothing beyond its edge.
    [[nodiscard]] std::optional<Place> placeAt(const MapPoint &point) const;
    /// On the other side of the earth from the centre.
    [[nodiscard]] Place placeOpposite() const;

    /// The angle at the centre of the earth between the centre of the map and a place, in degrees.
    [[nodiscard]] double distance(double latitude, double longitude) const;
    /// The same for a point of the map that is \a radius from its centre.
    [[nodiscard]] static double distanceAt(double radius);

private:
    double sineOfLatitude;
    double cosineOfLatitude;
    double longitudeOfCentre;
    Kind ofKind;
};

} // namespace KORMAK::Inspection

#endif
