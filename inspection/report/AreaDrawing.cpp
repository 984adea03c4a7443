#include "inspection/report/AreaDrawing_p.h"

#include <inspection/report/AreaShape_p.h>
#include <inspection/report/Graticule_p.h>

#include <algorithm>
#include <cmath>
#include <limits>

namespace KORMAK::Inspection {

using Shape = AreaOutline::Shape;

namespace {

constexpr double Pi = 3.14159265358979323846;
constexpr double PerDegree = Pi / 180;
constexpr double Turn = 360;

/// In degrees, as if they were as long everywhere.
double lengthOf(const OutlinePoint &from, const OutlinePoint &to)
{
    return std::hypot(to.unwrapped() - from.unwrapped(), to.latitude - from.latitude);
}

QString withUnit(const QString &number, const QString &unit)
{
    return number + QChar(0xA0) + unit;
}

/// With three digits, at most \a mostDecimals, and blanks between thousands.
QString roundedText(double value, int mostDecimals)
{
    constexpr int Digits = 3;
    constexpr double Base = 10;
    const int exponent = value == 0 ? 0 : static_cast<int>(std::floor(std::log10(std::abs(value))));
    const double power = std::pow(Base, exponent - (Digits - 1));
    const double rounded = std::round(value / power) * power;
    QString text = QString::number(rounded, 'f', std::clamp(Digits - 1 - exponent, 0, mostDecimals));
    constexpr int Group = 3;
    const auto point = text.indexOf(QLatin1Char('.'));
    for (auto i = (point < 0 ? text.size() : point) - Group; i > 0; i -= Group)
        text.insert(i, QChar(0x202F));
    return text;
}

/// In km, or in m where that is more readable.
QString lengthText(double kilometres)
{
    constexpr double MetresPerKilometre = 1000;
    constexpr int MostDecimals = 4;
    constexpr double Nothing = 1e-7;
    if (kilometres < Nothing)
        return withUnit(QStringLiteral("0"), QStringLiteral("km"));
    return kilometres < 1
        ? withUnit(roundedText(kilometres * MetresPerKilometre, MostDecimals), QStringLiteral("m"))
        : withUnit(roundedText(kilometres, MostDecimals), QStringLiteral("km"));
}

QString areaText(double squareKilometres)
{
    constexpr double SquareMetres = 1e6; // in a square kilometre
    constexpr int MostDecimals = 6;
    const QChar square(0xB2);
    return squareKilometres > 0 && squareKilometres < 1
        ? withUnit(roundedText(squareKilometres * SquareMetres, MostDecimals),
                   QString(QLatin1Char('m')) + square)
        : withUnit(squareKilometres == 0 ? QStringLiteral("0") : roundedText(squareKilometres, MostDecimals),
                   QStringLiteral("km") + square);
}

/// So many that the sides of the area can be told from each other.
int decimalsFor(const Extent &extent)
{
    constexpr int Least = 4;
    constexpr int Most = 9;
    const double east = std::abs(std::remainder(extent.east - extent.west, Turn));
    const double size = std::max(extent.north - extent.south, east);
    return size == 0 ? Least : std::clamp(2 - static_cast<int>(std::floor(std::log10(size))), Least, Most);
}

struct Bounds {
    MapPoint least;
    MapPoint most;
};

/// Of an outline that is on the map as a whole.
Bounds boundsOf(const MapProjection &projection, const AreaOutline &outline)
{
    constexpr double None = std::numeric_limits<double>::infinity();
    Bounds bounds{{None, None}, {-None, -None}};
    for (const OutlinePoint &point : densified(outline)) {
        const auto place = projection.project(point.latitude, point.longitude);
        if (!place)
            continue;
        bounds.least = {std::min(bounds.least.x, place->x), std::min(bounds.least.y, place->y)};
        bounds.most = {std::max(bounds.most.x, place->x), std::max(bounds.most.y, place->y)};
    }
    return bounds;
}

/// In km. On a map of all of the earth, the width is that along the parallel where the area is widest.
struct AreaSize {
    double width;
    double height;
};

AreaSize sizeOf(const AreaOutline &outline)
{
    const MapProjection projection = projectionFor(outline);
    if (projection.kind() == MapProjection::Kind::Azimuthal) {
        const Bounds bounds = boundsOf(projection, outline);
        return {(bounds.most.x - bounds.least.x) * EarthRadius,
                (bounds.most.y - bounds.least.y) * EarthRadius};
    }
    const Extent extent = outline.extent();
    const bool isOnEquator = extent.south <= 0 && extent.north >= 0;
    const double nearest =
        isOnEquator ? 0 : std::min(std::abs(extent.south), std::abs(extent.north)) * PerDegree;
    double east = extent.east - extent.west;
    if (east <= 0)
        east += Turn;
    return {east * PerDegree * std::cos(nearest) * EarthRadius,
            (extent.north - extent.south) * PerDegree * EarthRadius};
}

/// With room around the bounds to see where they are.
MapFrame frameRound(const Bounds &bounds, AreaOutline::Shape shape, const FrameSize &size)
{
    constexpr double ShareOfArea = 0.6;
    constexpr double LeastWidth = 0.01; // km
    constexpr double WidthRoundPoint = 600; // km
    constexpr double WidthOfEarth = 2 * 2.05 * EarthRadius; // of all of it
    const double width = (bounds.most.x - bounds.least.x) * EarthRadius / ShareOfArea;
    const double height = (bounds.most.y - bounds.least.y) * EarthRadius / ShareOfArea;
    const double wanted = std::max(width, height * size.width / size.height);
    const double most = WidthOfEarth * size.width / size.height;
    const double kilometres = std::clamp(wanted, shape == Shape::Point ? WidthRoundPoint : LeastWidth, most);
    const bool isEarth = kilometres == most;
    return {isEarth ? MapPoint{0, 0}
                    : MapPoint{(bounds.least.x + bounds.most.x) / 2, (bounds.least.y + bounds.most.y) / 2},
            size.width / kilometres * EarthRadius, size};
}

} // namespace

Place centreOf(const OutlineRing &points)
{
    double x = 0;
    double y = 0;
    double z = 0;
    for (const OutlinePoint &point : points) {
        const double cosine = std::cos(point.latitude * PerDegree);
        x += cosine * std::cos(point.longitude * PerDegree);
        y += cosine * std::sin(point.longitude * PerDegree);
        z += std::sin(point.latitude * PerDegree);
    }
    constexpr double LeastLength = 1e-3;
    const auto count = static_cast<double>(points.size());
    if (std::hypot(x, y, z) / count < LeastLength)
        return {points.front().latitude, points.front().longitude};
    return {std::atan2(z, std::hypot(x, y)) / PerDegree, std::atan2(y, x) / PerDegree};
}

OutlineRing densified(const AreaOutline &outline)
{
    OutlineRing ring = outline.points();
    if (outline.shape() == Shape::Polygon) {
        ring.push_back(ring.front());
        ring.back().turns += outline.windings();
    }
    constexpr double MostSteps = 20000;
    double length = 0;
    for (std::size_t i = 0; i + 1 < ring.size(); ++i)
        length += lengthOf(ring[i], ring[i + 1]);
    const double spacing = std::max(0.5, length / MostSteps); // degrees
    OutlineRing points;
    for (std::size_t i = 0; i + 1 < ring.size(); ++i) {
        const double east = ring[i + 1].unwrapped() - ring[i].unwrapped();
        const double north = ring[i + 1].latitude - ring[i].latitude;
        const double steps = std::max(std::ceil(lengthOf(ring[i], ring[i + 1]) / spacing), 1.0);
        for (double step = 0; step < steps; ++step) {
            points.push_back(
                {ring[i].unwrapped() + east * step / steps, ring[i].latitude + north * step / steps});
        }
    }
    points.push_back({ring.back().unwrapped(), ring.back().latitude});
    return points;
}

MapProjection projectionFor(const AreaOutline &outline)
{
    constexpr double Farthest = 95; // degrees
    const OutlineRing points = densified(outline);
    const MapProjection round(centreOf(points));
    const bool isNear = std::all_of(points.begin(), points.end(), [&round](const OutlinePoint &point) {
        return round.distance(point.latitude, point.longitude) <= Farthest;
    });
    if (isNear && !AreaInside(outline).holds(round.placeOpposite()))
        return round;
    if (outline.windings() != 0)
        return MapProjection({0, 0}, MapProjection::Kind::Cylindrical);
    const auto [west, east] =
        std::minmax_element(points.begin(), points.end(), [](const OutlinePoint &a, const OutlinePoint &b) {
            return a.longitude < b.longitude;
        });
    return MapProjection({0, std::remainder((west->longitude + east->longitude) / 2, Turn)},
                         MapProjection::Kind::Cylindrical);
}

MapFrame frameFor(const AreaOutline &outline, const MapProjection &projection, const FrameSize &size)
{
    if (projection.kind() == MapProjection::Kind::Azimuthal)
        return frameRound(boundsOf(projection, outline), outline.shape(), size);
    const double width = 2 * Pi * MapProjection::TrueCosine;
    return {{0, 0}, std::min(size.width / width, size.height / Pi), size};
}

double roundNumber(double most)
{
    constexpr double Base = 10;
    const double power = std::pow(Base, std::floor(std::log10(most)));
    const double factor = most / power;
    constexpr double Two = 2;
    constexpr double Five = 5;
    return power * (factor >= Five ? Five : factor >= Two ? Two : 1);
}

double roundDistance(double widthInKilometres)
{
    constexpr double Share = 0.3;
    return roundNumber(widthInKilometres * Share);
}

QString distanceText(double kilometres)
{
    constexpr double MetresPerKilometre = 1000;
    constexpr int Digits = 10;
    return kilometres < 1
        ? QString::number(kilometres * MetresPerKilometre, 'g', Digits) + QStringLiteral(" m")
        : QString::number(kilometres, 'g', Digits) + QStringLiteral(" km");
}

QString extentText(const AreaOutline &outline)
{
    if (outline.shape() == Shape::Point)
        return placeText(outline.points().front().latitude, outline.points().front().longitude);
    const Extent extent = outline.extent();
    const int decimals = decimalsFor(extent);
    const QString longitudes = outline.windings() != 0 ? QStringLiteral("round the pole")
        : extent.east - extent.west == Turn            ? QStringLiteral("all longitudes")
                                            : longitudeText(extent.west, decimals) + QStringLiteral(" to ")
            + longitudeText(extent.east, decimals);
    QString text =
        QStringLiteral("%1 to %2, %3")
            .arg(latitudeText(extent.south, decimals), latitudeText(extent.north, decimals), longitudes);
    const AreaSize size = sizeOf(outline);
    text += QStringLiteral("; about %1 by %2").arg(lengthText(size.width), lengthText(size.height));
    constexpr double Noise = 1e-7; // of the area of an outline without room in it
    const double area = outline.squareKilometres();
    if (outline.shape() == Shape::Polygon && outline.crossesItself() == false)
        text += QStringLiteral(", ") + areaText(area > size.width * size.height * Noise ? area : 0);
    return text;
}

QString remarkOn(const AreaOutline &outline)
{
    if (!outline.crossesItself())
        return QStringLiteral("The outline has too many coordinates to tell whether it crosses itself.");
    if (*outline.crossesItself())
        return QStringLiteral("The outline crosses itself, so it is not certain what is within it.");
    if (outline.shape() == Shape::Point)
        return QStringLiteral("The area is one point: it encloses nothing.");
    if (outline.shape() == Shape::Line)
        return QStringLiteral("The area is a line between two points: it encloses nothing.");
    if (outline.windings() != 0)
        return QStringLiteral("The outline leads round the earth; the area is taken to be the part with the "
                              "nearer pole.");
    return {};
}

QString placeText(double latitude, double longitude)
{
    constexpr int Decimals = 4;
    return latitudeText(latitude, Decimals) + QStringLiteral(", ") + longitudeText(longitude, Decimals);
}

} // namespace KORMAK::Inspection
