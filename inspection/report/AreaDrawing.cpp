#include "inspection/report/AreaDrawing_p.h"

#include <inspection/report/Graticule_p.h>

#include <algorithm>
#include <cmath>

namespace KORMAK::Inspection {

using Shape = AreaOutline::Shape;

namespace {

constexpr double Pi = 3.14159265358979323846;
constexpr double PerDegree = Pi / 180;

/// In degrees, as if they were as long everywhere.
double lengthOf(const OutlinePoint &from, const OutlinePoint &to)
{
    return std::hypot(to.unwrapped() - from.unwrapped(), to.latitude - from.latitude);
}

/// With three digits, and blanks between thousands.
QString roundedText(double value)
{
    constexpr int Digits = 3;
    constexpr double Base = 10;
    const double power =
        value == 0 ? 1 : std::pow(Base, std::floor(std::log10(std::abs(value))) - (Digits - 1));
    const double rounded = std::round(value / power) * power;
    QString text = QString::number(rounded, 'f',
                                   rounded < 1                 ? 3
                                       : rounded < Base        ? 2
                                       : rounded < Base * Base ? 1
                                                               : 0);
    constexpr int Group = 3;
    const auto point = text.indexOf(QLatin1Char('.'));
    for (auto i = (point < 0 ? text.size() : point) - Group; i > 0; i -= Group)
        text.insert(i, QChar(0x202F));
    return text;
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

Bounds boundsOf(const std::vector<MapPoint> &points)
{
    Bounds bounds{points.front(), points.front()};
    for (const MapPoint &point : points) {
        bounds.least = {std::min(bounds.least.x, point.x), std::min(bounds.least.y, point.y)};
        bounds.most = {std::max(bounds.most.x, point.x), std::max(bounds.most.y, point.y)};
    }
    return bounds;
}

MapFrame frameFor(const Bounds &bounds, AreaOutline::Shape shape, const FrameSize &size)
{
    constexpr double ShareOfArea = 0.6;
    constexpr double LeastWidth = 100; // km; coastlines would be too coarse for less
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

double roundDistance(double widthInKilometres)
{
    constexpr double Share = 0.3;
    constexpr double Base = 10;
    const double most = widthInKilometres * Share;
    const double power = std::pow(Base, std::floor(std::log10(most)));
    const double factor = most / power;
    constexpr double Two = 2;
    constexpr double Five = 5;
    return power * (factor >= Five ? Five : factor >= Two ? Two : 1);
}

QString extentText(const AreaOutline &outline, const Bounds &bounds)
{
    if (outline.shape() == Shape::Point)
        return placeText(outline.points().front().latitude, outline.points().front().longitude);
    const Extent extent = outline.extent();
    QString text = QStringLiteral("%1 to %2, %3")
                       .arg(latitudeText(extent.south), latitudeText(extent.north),
                            outline.windings() != 0 ? QStringLiteral("round the pole")
                                                    : longitudeText(extent.west) + QStringLiteral(" to ")
                                    + longitudeText(extent.east));
    text += QStringLiteral("; about %1%3km by %2%3km")
                .arg(roundedText((bounds.most.x - bounds.least.x) * EarthRadius),
                     roundedText((bounds.most.y - bounds.least.y) * EarthRadius), QString(QChar(0xA0)));
    if (outline.shape() == Shape::Polygon && outline.crossesItself() == false)
        text += QStringLiteral(", %1%2km%3")
                    .arg(roundedText(outline.squareKilometres()), QString(QChar(0xA0)), QString(QChar(0xB2)));
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
    return latitudeText(latitude) + QStringLiteral(", ") + longitudeText(longitude);
}

} // namespace KORMAK::Inspection
