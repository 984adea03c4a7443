#include "inspection/report/AreaShape_p.h"

#include <inspection/report/AreaDrawing_p.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace KORMAK::Inspection {

using Shape = AreaOutline::Shape;

namespace {

constexpr double Pole = 90;
constexpr double HalfTurn = 180;
constexpr double Turn = 360;
constexpr double Pi = 3.14159265358979323846;

template <class Point>
bool isWithin(const std::vector<Point> &polygon, double x, double y, double (*xOf)(const Point &),
              double (*yOf)(const Point &))
{
    bool isInside = false;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const Point &a = polygon[i];
        const Point &b = polygon[(i + 1) % polygon.size()];
        if ((yOf(a) > y) == (yOf(b) > y))
            continue;
        const double crossing = xOf(a) + (y - yOf(a)) / (yOf(b) - yOf(a)) * (xOf(b) - xOf(a));
        isInside = isInside != (x < crossing);
    }
    return isInside;
}

void append(std::vector<FrameLine> &lines, std::vector<FrameLine> more)
{
    std::move(more.begin(), more.end(), std::back_inserter(lines));
}

void appendPolygon(AreaShape &shape, const MapFrame &frame, const std::vector<MapPoint> &polygon)
{
    FrameLine placed;
    for (const MapPoint &point : polygon)
        placed.push_back(frame.place(point));
    placed = frame.clippedPolygon(std::move(placed));
    if (!placed.empty())
        shape.inside.push_back(std::move(placed));
}

/// Along the edge of the map from one of its points, the shorter way.
void appendArc(std::vector<MapPoint> &points, const MapPoint &to)
{
    constexpr double Step = Pi / 360;
    const MapPoint from = points.back();
    const double radius = std::hypot(from.x, from.y);
    const double start = std::atan2(from.y, from.x);
    const double angle = std::remainder(std::atan2(to.y, to.x) - start, 2 * Pi);
    const double steps = std::ceil(std::abs(angle) / Step);
    for (double step = 1; step < steps; ++step) {
        const double at = start + angle * step / steps;
        points.push_back({radius * std::cos(at), radius * std::sin(at)});
    }
    points.push_back(to);
}

std::vector<MapPoint> circle(double radius)
{
    std::vector<MapPoint> points{{radius, 0}};
    appendArc(points, {0, radius});
    appendArc(points, {-radius, 0});
    appendArc(points, {0, -radius});
    appendArc(points, {radius, 0});
    return points;
}

/// Whether what is inside of \a boundary on the map is outside of the area, by most of some places.
bool isInverted(const MapProjection &projection, const std::vector<MapPoint> &boundary,
                const AreaInside &inside)
{
    constexpr double Least = -1.713; // so that no place is on an axis
    constexpr double Spacing = 0.51;
    constexpr int Count = 8;
    int votes = 0;
    for (int i = 0; i < Count; ++i) {
        for (int j = 0; j < Count; ++j) {
            const MapPoint point{Least + Spacing * i, Least + Spacing * j};
            if (std::hypot(point.x, point.y) >= MapProjection::RimRadius)
                continue;
            const auto place = projection.placeAt(point);
            const bool isInBoundary = isWithin<MapPoint>(
                boundary, point.x, point.y, [](const MapPoint &one) { return one.x; },
                [](const MapPoint &one) { return one.y; });
            if (place)
                votes += isInBoundary == inside.holds(*place) ? -1 : 1;
        }
    }
    return votes > 0;
}

/// On a map round a place: what is beyond its edge is drawn along the edge, and what has the place opposite
/// of the centre inside is the rest of the map.
AreaShape shapeOnDisc(const MapProjection &projection, const MapFrame &frame, const AreaOutline &outline)
{
    AreaShape shape;
    std::vector<MapPoint> boundary;
    FrameLine edge;
    bool wasBeyond = false;
    bool isAnyBeyond = false;
    for (const OutlinePoint &point : densified(outline)) {
        const auto on = projection.project(point.latitude, point.longitude);
        const MapPoint place = on ? *on : projection.atRim(point.latitude, point.longitude);
        if (on) {
            edge.push_back(frame.place(place));
        } else if (!edge.empty()) {
            append(shape.edges, frame.clippedLine(edge));
            edge.clear();
        }
        if (!on && wasBeyond)
            appendArc(boundary, place);
        else
            boundary.push_back(place);
        wasBeyond = !on;
        isAnyBeyond = isAnyBeyond || !on;
    }
    append(shape.edges, frame.clippedLine(edge));
    if (outline.shape() != Shape::Polygon)
        return shape;
    const AreaInside inside(outline);
    const auto opposite = projection.placeOpposite();
    if (isAnyBeyond ? isInverted(projection, boundary, inside) : inside.holds(opposite))
        appendPolygon(shape, frame,
                      circle(isAnyBeyond ? MapProjection::RimRadius : MapProjection::EdgeRadius));
    appendPolygon(shape, frame, boundary);
    return shape;
}

struct Longitudes {
    double west;
    double east;
};

Longitudes longitudesOf(const OutlineRing &points)
{
    const auto [west, east] =
        std::minmax_element(points.begin(), points.end(), [](const OutlinePoint &a, const OutlinePoint &b) {
            return a.unwrapped() < b.unwrapped();
        });
    return {west->unwrapped(), east->unwrapped()};
}

/// Wherever \a points come onto the map, which may be at both its ends.
std::vector<std::vector<MapPoint>> onCylinder(const MapProjection &projection, const OutlineRing &points)
{
    const auto [west, east] = longitudesOf(points);
    const double least = projection.centralLongitude() - HalfTurn;
    std::vector<std::vector<MapPoint>> copies;
    for (double turn = std::ceil((least - east) / Turn); west + turn * Turn <= least + Turn; ++turn) {
        copies.emplace_back();
        for (const OutlinePoint &point : points)
            copies.back().push_back(projection.onCylinder(point.latitude, point.unwrapped() + turn * Turn));
    }
    return copies;
}

/// On a map of all of the earth, edges are straight.
AreaShape shapeOnCylinder(const MapProjection &projection, const MapFrame &frame, const AreaOutline &outline)
{
    AreaShape shape;
    OutlineRing points = outline.points();
    if (outline.shape() == Shape::Polygon) {
        points.push_back(points.front());
        points.back().turns += outline.windings();
        for (const std::vector<MapPoint> &polygon : onCylinder(projection, outline.closedRound()))
            appendPolygon(shape, frame, polygon);
    }
    for (const std::vector<MapPoint> &copy : onCylinder(projection, points)) {
        FrameLine line;
        for (const MapPoint &point : copy)
            line.push_back(frame.place(point));
        append(shape.edges, frame.clippedLine(line));
    }
    return shape;
}

} // namespace

AreaInside::AreaInside(const AreaOutline &outline)
{
    if (outline.shape() != Shape::Polygon)
        return;
    ring = outline.closedRound();
    const Longitudes longitudes = longitudesOf(ring);
    west = longitudes.west;
    east = longitudes.east;
}

bool AreaInside::holds(const Place &place) const
{
    constexpr double BesidePole = 1e-9;
    const double latitude = std::clamp(place.latitude, -Pole + BesidePole, Pole - BesidePole);
    bool isInside = false;
    for (double turn = std::ceil((west - place.longitude) / Turn); place.longitude + turn * Turn <= east;
         ++turn) {
        const bool isIn = isWithin<OutlinePoint>(
            ring, place.longitude + turn * Turn, latitude,
            [](const OutlinePoint &point) { return point.unwrapped(); },
            [](const OutlinePoint &point) { return point.latitude; });
        isInside = isInside != isIn;
    }
    return isInside;
}

AreaShape shapeOn(const MapProjection &projection, const MapFrame &frame, const AreaOutline &outline)
{
    return projection.kind() == MapProjection::Kind::Azimuthal ? shapeOnDisc(projection, frame, outline)
                                                               : shapeOnCylinder(projection, frame, outline);
}

} // namespace KORMAK::Inspection
