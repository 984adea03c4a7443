#include "inspection/report/MapProjection_p.h"

#include <algorithm>
#include <cmath>

namespace KORMAK::Inspection {

namespace {

constexpr double Pi = 3.14159265358979323846;
constexpr double PerDegree = Pi / 180;
constexpr double Farthest = 168; // degrees

} // namespace

MapProjection::MapProjection(const Place &centre)
    : sineOfLatitude(std::sin(centre.latitude * PerDegree)),
      cosineOfLatitude(std::cos(centre.latitude * PerDegree)), longitudeOfCentre(centre.longitude)
{
}

std::optional<MapPoint> MapProjection::project(double latitude, double longitude) const
{
    const double sine = std::sin(latitude * PerDegree);
    const double cosine = std::cos(latitude * PerDegree);
    const double angle = (longitude - longitudeOfCentre) * PerDegree;
    const double cosineOfDistance = sineOfLatitude * sine + cosineOfLatitude * cosine * std::cos(angle);
    static const double LeastCosine = std::cos(Farthest * PerDegree);
    if (cosineOfDistance < LeastCosine)
        return std::nullopt;
    const double scale = std::sqrt(2 / (1 + cosineOfDistance));
    return MapPoint{scale * cosine * std::sin(angle),
                    scale * (cosineOfLatitude * sine - sineOfLatitude * cosine * std::cos(angle))};
}

std::optional<Place> MapProjection::placeAt(const MapPoint &point) const
{
    constexpr double EdgeRadius = 2;
    const double radius = std::hypot(point.x, point.y);
    if (radius > EdgeRadius)
        return std::nullopt;
    const double distance = 2 * std::asin(radius / EdgeRadius);
    const double part = radius == 0 ? 0 : std::sin(distance) / radius;
    const double latitude = std::asin(
        std::clamp(std::cos(distance) * sineOfLatitude + point.y * part * cosineOfLatitude, -1.0, 1.0));
    const double longitude =
        std::atan2(point.x * part, cosineOfLatitude * std::cos(distance) - point.y * part * sineOfLatitude);
    return Place{latitude / PerDegree, longitudeOfCentre + longitude / PerDegree};
}

double MapProjection::distance(double latitude, double longitude) const
{
    const double cosine = sineOfLatitude * std::sin(latitude * PerDegree)
        + cosineOfLatitude * std::cos(latitude * PerDegree)
            * std::cos((longitude - longitudeOfCentre) * PerDegree);
    return std::acos(std::clamp(cosine, -1.0, 1.0)) / PerDegree;
}

double MapProjection::distanceAt(double radius)
{
    return 2 * std::asin(std::min(radius / 2, 1.0)) / PerDegree;
}

} // namespace KORMAK::Inspection
