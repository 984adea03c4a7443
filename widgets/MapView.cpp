#include "widgets/MapView_p.h"

#include <inspection/report/AreaDrawing_p.h>

#include <algorithm>
#include <cmath>

namespace KORMAK::Widgets {

using namespace Inspection;

namespace {

constexpr double Pi = 3.14159265358979323846;
constexpr double PerDegree = Pi / 180;
constexpr double RadiusOfMap = 2; ///< of all of the earth, in its radii
constexpr double Pole = 90;
constexpr double DateLine = 180;
constexpr double Turn = 360;

/// With some room around it.
double scaleOfEarth(const QSizeF &size)
{
    constexpr double Room = 1.04;
    return std::max(1.0, std::min(size.width(), size.height()) / (2 * RadiusOfMap * Room));
}

FrameSize frameSizeOf(const QSizeF &size)
{
    return {std::max(1.0, size.width()), std::max(1.0, size.height())};
}

/// The view of an area that has a point.
MapView viewOf(const QSizeF &size, const AreaOutline &outline)
{
    const MapProjection best = projectionFor(outline);
    if (best.kind() == MapProjection::Kind::Cylindrical) { // too large for one side of the earth
        const Extent extent = outline.extent();
        const double latitude = outline.windings() == 0 ? (extent.south + extent.north) / 2
            : outline.isRoundNorthPole()                ? Pole
                                                        : -Pole;
        return {size, {latitude, best.centralLongitude()}, scaleOfEarth(size)};
    }
    const FrameSize frameSize = frameSizeOf(size);
    const MapFrame frame = frameFor(outline, best, frameSize);
    const auto centre = best.placeAt(frame.pointAt({frameSize.width / 2, frameSize.height / 2}));
    const double scale = EarthRadius / frame.kilometresPerUnit();
    return {size, centre.value_or(centreOf(densified(outline))), std::max(scale, scaleOfEarth(size))};
}

} // namespace

MapView::MapView(const QSizeF &sizeOfMap) : MapView(sizeOfMap, {20, 10}, scaleOfEarth(sizeOfMap)) { }

MapView::MapView(const QSizeF &sizeOfMap, const Place &centreOfMap, double pixelsPerRadius)
    : sizeInPixels(sizeOfMap), centre(centreOfMap), pixels(pixelsPerRadius), ofEarth(centreOfMap),
      inFrame({0, 0}, pixelsPerRadius, frameSizeOf(sizeOfMap))
{
}

MapView::MapView(const QSizeF &sizeOfMap, const AreaOutline &outline)
    : MapView(outline.shape() == AreaOutline::Shape::None ? MapView(sizeOfMap) : viewOf(sizeOfMap, outline))
{
}

double MapView::pixelsPerDegree() const noexcept
{
    return pixels * PerDegree;
}

double MapView::radiusOfEarth() const noexcept
{
    return RadiusOfMap * pixels;
}

int MapView::decimals() const
{
    constexpr double PartOfPixel = 0.25;
    constexpr int Most = 9;
    return std::clamp(static_cast<int>(std::ceil(-std::log10(PartOfPixel / pixelsPerDegree()))), 0, Most);
}

double MapView::step() const
{
    constexpr double Pixels = 12;
    return roundNumber(Pixels / pixelsPerDegree());
}

std::optional<QPointF> MapView::position(const TESSEL::Coordinate &place) const
{
    const auto point = ofEarth.project(place.GetLatitude(), place.GetLongitude());
    if (!point)
        return std::nullopt;
    const FramePoint at = inFrame.place(*point);
    return QPointF(at.x, at.y);
}

std::optional<TESSEL::Coordinate> MapView::place(const QPointF &position) const
{
    const auto place = ofEarth.placeAt(inFrame.pointAt({position.x(), position.y()}));
    if (!place)
        return std::nullopt;
    return TESSEL::Coordinate(place->latitude, std::remainder(place->longitude, Turn));
}

MapView MapView::resized(const QSizeF &newSize) const
{
    return {newSize, centre, pixels};
}

MapView MapView::moved(const QPointF &byPixels) const
{
    const FramePoint middle{inFrame.width() / 2, inFrame.height() / 2};
    const auto there = ofEarth.placeAt(inFrame.pointAt({middle.x - byPixels.x(), middle.y - byPixels.y()}));
    if (!there)
        return *this;
    const double east = std::remainder(there->longitude - centre.longitude, Turn);
    const bool isBeyondPole = std::abs(east) > Pole;
    const Place to = isBeyondPole ? Place{there->latitude > 0 ? Pole : -Pole, centre.longitude}
                                  : Place{there->latitude, std::remainder(there->longitude, 2 * DateLine)};
    return {sizeInPixels, to, pixels};
}

MapView MapView::zoomed(double factor, const QPointF &position) const
{
    constexpr double LeastWidth = 0.01; // km
    const double most = inFrame.width() / LeastWidth * EarthRadius;
    const double least = scaleOfEarth(sizeInPixels);
    const double wanted = std::clamp(pixels * factor, least, most);
    if (wanted == least && factor < 1)
        return {sizeInPixels, centre, least};
    const auto fixed = place(position);
    const MapView nearer(sizeInPixels, centre, wanted);
    if (!fixed)
        return nearer;
    const auto at = nearer.position(*fixed);
    return at ? nearer.moved(position - *at) : nearer;
}

} // namespace KORMAK::Widgets
