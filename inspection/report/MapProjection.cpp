#include "inspection/report/MapProjection_p.h"

#include <algorithm>
#include <cmath>

namespace KORMAK::Inspection {

namespace {

constexpr double Pi = 3.14159265358979323846;
constexpr double PerDegree = Pi / 180;
constexpr double Farthest = 168; // degrees
constexpr double Turn = 360;

} // namespace

const double MapProjection::RimRadius = EdgeRadius * std::sin(Farthest / 2 * PerDegree);

MapProjection::MapProjection(const Place &centre, Kind kind)
    : sineOfLatitude(std::sin(centre.latitude * PerDegree)),
      cosineOfLatitude(std::cos(centre.latitude * PerDegree)), longitudeOfCentre(centre.longitude),
      ofKind(kind)
{
}

std::optional<MapPoint> MapProjection::project(double latitude, double longitude) const
{
    if (ofKind == Kind::Cylindrical)
        return onCylinder(latitude, longitudeOfCentre + std::remainder(longitude - longitudeOfCentre, Turn));
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

MapPoint MapProjection::atRim(double latitude, double longitude) const
{
    const double cosine = std::cos(latitude * PerDegree);
    const double angle = (longitude - longitudeOfCentre) * PerDegree;
    const double x = cosine * std::sin(angle);
    const double y =
        cosineOfLatitude * std::sin(latitude * PerDegree) - sineOfLatitude * cosine * std::cos(angle);
    const double length = std::hypot(x, y);
    if (length == 0)
        return {RimRadius, 0};
    return {x / length * RimRadius, y / length * RimRadius};
}

MapPoint MapProjection::onCylinder(double latitude, double longitude) const
{
    return {(longitude - longitudeOfCentre) * PerDegree * TrueCosine, latitude * PerDegree};
}

std::optional<Place> MapProjection::placeAt(const MapPoint &point) const
{
    if (ofKind == Kind::Cylindrical) {
        constexpr double Rounding = 1e-9; // degrees
        const double latitude = point.y / PerDegree;
        const double east = point.x / TrueCosine / PerDegree;
        if (std::abs(latitude) > Turn / 4 + Rounding || std::abs(east) > Turn / 2 + Rounding)
            return std::nullopt;
        return Place{std::clamp(latitude, -Turn / 4, Turn / 4), longitudeOfCentre + east};
    }
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

Place MapProjection::placeOpposite() const
{
    return {-std::atan2(sineOfLatitude, cosineOfLatitude) / PerDegree, longitudeOfCentre + Turn / 2};
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
