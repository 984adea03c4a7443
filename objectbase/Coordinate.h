#ifndef TESSEL_COORDINATE_H
#define TESSEL_COORDINATE_H

#include <objectbase/objectbase_export.h>

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QDebug;
QT_END_NAMESPACE

namespace TESSEL {

/// A point on the earth in decimal degrees. Any double is stored as given; nothing is checked or normalised.
///
/// \snippet docs/ObjectbaseSnippetsTest.cpp Coordinate
class Coordinate {
public:
    /// Degrees; without arguments 0, 0.
    constexpr Coordinate(double degreesNorth = 0, double degreesEast = 0) noexcept
        : latitude(degreesNorth), longitude(degreesEast)
    {
    }

    /// Degrees, north positive.
    [[nodiscard]] constexpr double GetLatitude() const noexcept { return latitude; }
    constexpr void SetLatitude(double degrees) noexcept { latitude = degrees; }

    /// Degrees, east positive.
    [[nodiscard]] constexpr double GetLongitude() const noexcept { return longitude; }
    constexpr void SetLongitude(double degrees) noexcept { longitude = degrees; }

    /// Exact comparison; a NaN makes two coordinates unequal.
    friend constexpr bool operator==(const Coordinate &a, const Coordinate &b) noexcept
    {
        return a.latitude == b.latitude && a.longitude == b.longitude;
    }
    friend constexpr bool operator!=(const Coordinate &a, const Coordinate &b) noexcept { return !(a == b); }

private:
    double latitude;
    double longitude;
};

/// Writes both angles, in a line.
OBJECTBASE_EXPORT QDebug operator<<(QDebug debug, const Coordinate &coordinate);

} // namespace TESSEL

#endif
