#include "inspection/report/AreaMap_p.h"

#include <inspection/report/AreaDrawing_p.h>
#include <inspection/report/AreaOutline_p.h>
#include <inspection/report/Graticule_p.h>
#include <inspection/report/MapFrame_p.h>
#include <inspection/report/MapLand_p.h>
#include <inspection/report/Svg_p.h>
#include <objectbase/Area.h>

#include <QLocale>

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>
#include <vector>

namespace KORMAK::Inspection {

namespace {

using Shape = AreaOutline::Shape;

constexpr double LineStep = 0.5; ///< units between points of the outline
constexpr double LandStep = 1;

QString pathOf(const std::vector<FrameLine> &lines, PathEnd end, double step)
{
    QString path;
    for (const FrameLine &line : lines)
        path += svgPath(line, end, step);
    return path;
}

void writePath(Html &html, const QString &path, QStringView look)
{
    if (!path.isEmpty())
        html.open(u"path", {{u"class", look.toString()}, {u"d", path}}).close();
}

QString shareOf(double value, double whole)
{
    return Svg::percent(value / whole);
}

/// Where a line between two points meets the left edge, for a parallel, or the upper one, as a share of the
/// edge; nothing when it does not or is too near a corner.
std::optional<double> labelPlace(const FramePoint &a, const FramePoint &b, GraticuleLine::Direction direction)
{
    const bool isParallel = direction == GraticuleLine::Direction::Parallel;
    constexpr double FromCorner = 0.1;
    constexpr double LastParallel = 0.72; // the locator stands below it
    constexpr double LastMeridian = 0.86; // the arrow stands behind it
    const double from = isParallel ? a.x : a.y;
    const double to = isParallel ? b.x : b.y;
    if ((from < 0) == (to < 0))
        return std::nullopt;
    const double share = from / (from - to);
    const double at = isParallel ? (a.y + share * (b.y - a.y)) / MapFrame::Height
                                 : (a.x + share * (b.x - a.x)) / MapFrame::Width;
    const bool isFree = at >= FromCorner && at <= (isParallel ? LastParallel : LastMeridian);
    return isFree ? std::optional(at) : std::nullopt;
}

std::optional<double> labelPlace(const GraticuleLine &line)
{
    for (const FrameLine &part : line.parts) {
        for (std::size_t i = 0; i + 1 < part.size(); ++i) {
            if (const auto place = labelPlace(part[i], part[i + 1], line.direction))
                return place;
        }
    }
    return std::nullopt;
}

void writeLabel(Html &html, const GraticuleLine &line)
{
    const auto place = labelPlace(line);
    if (!place)
        return;
    if (line.direction == GraticuleLine::Direction::Parallel) {
        html.element(u"text", latitudeText(line.degrees),
                     {{u"x", QStringLiteral("0")},
                      {u"y", Svg::percent(*place)},
                      {u"dx", QStringLiteral("5")},
                      {u"dy", QStringLiteral("-4")},
                      {u"class", QStringLiteral("place")}});
    } else {
        html.element(u"text", longitudeText(line.degrees),
                     {{u"x", Svg::percent(*place)},
                      {u"y", QStringLiteral("14")},
                      {u"class", QStringLiteral("place")},
                      {u"text-anchor", QStringLiteral("middle")}});
    }
}

void writeScale(Html &html, const MapFrame &frame)
{
    const double kilometres = roundDistance(frame.kilometresPerUnit() * MapFrame::Width);
    constexpr double End = 0.97;
    const double length = kilometres / frame.kilometresPerUnit() / MapFrame::Width;
    constexpr double Bar = 0.955;
    const QString y = Svg::percent(Bar);
    Svg::line(html, Svg::percent(End - length), y, Svg::percent(End), y, u"scale-back");
    Svg::line(html, Svg::percent(End - length), y, Svg::percent(End), y, u"scale");
    html.element(u"text",
                 QLocale::c().toString(kilometres, 'f', kilometres < 1 ? 1 : 0) + QStringLiteral(" km"),
                 {{u"x", Svg::percent(End - length / 2)},
                  {u"y", y},
                  {u"dy", QStringLiteral("-7")},
                  {u"class", QStringLiteral("place")},
                  {u"text-anchor", QStringLiteral("middle")}});
}

/// Half of the earth in a corner, and where on it the map is. A map of much of the earth needs none.
void writeLocator(Html &html, const Place &centre, const MapFrame &ofMap)
{
    constexpr double Widest = 4500; // km
    if (ofMap.kilometresPerUnit() * MapFrame::Width > Widest)
        return;
    const MapProjection projection(centre);
    constexpr double Hemisphere = 1.4142135623730951; // the radius of half of the earth on the map
    constexpr double Size = MapFrame::Height;
    constexpr double Share = 0.165;
    constexpr double Aspect = MapFrame::Width / MapFrame::Height;
    constexpr double Rim = 4;
    constexpr double Corner = 0.012;
    const MapFrame frame({0, 0}, (Size / 2 - Rim) / Hemisphere);
    constexpr double Step = 4; // as fine as its size needs
    html.open(
        u"svg",
        {{u"x", Svg::percent(Corner)},
         {u"y", Svg::percent(1 - Share * Aspect - Corner * Aspect)},
         {u"width", Svg::percent(Share)},
         {u"height", Svg::percent(Share * Aspect)},
         {u"viewBox",
          QStringLiteral("%1 0 %2 %2").arg(Svg::number((MapFrame::Width - Size) / 2), Svg::number(Size))}});
    const QString x = Svg::number(MapFrame::Width / 2);
    const QString y = Svg::number(MapFrame::Height / 2);
    const QString radius = Svg::number(Size / 2 - Rim);
    Svg::circle(html, x, y, radius, u"globe");
    writePath(html, pathOf(landIn({projection, frame, Hemisphere}).land, PathEnd::Closed, Step), u"land");
    Svg::circle(html, x, y, radius, u"rim");
    constexpr double LeastSide = 36;
    const double scale = ofMap.kilometresPerUnit() / frame.kilometresPerUnit();
    const double width = std::max(MapFrame::Width * scale, LeastSide);
    const double height = width / Aspect;
    Svg::rectangle(html, Svg::number(MapFrame::Width / 2 - width / 2),
                   Svg::number(MapFrame::Height / 2 - height / 2), Svg::number(width), Svg::number(height),
                   u"here");
    html.close();
}

/// Where the pole is on the map, if it is.
void writePole(Html &html, const MapProjection &projection, const MapFrame &frame, double pole)
{
    const auto point = projection.project(pole, 0);
    if (!point || !frame.holds(frame.place(*point)))
        return;
    const FramePoint place = frame.place(*point);
    const QString x = shareOf(place.x, MapFrame::Width);
    const QString y = shareOf(place.y, MapFrame::Height);
    Svg::circle(html, x, y, QStringLiteral("2.5"), u"pole");
    html.element(u"text", pole > 0 ? QStringLiteral("North Pole") : QStringLiteral("South Pole"),
                 {{u"x", x},
                  {u"y", y},
                  {u"dy", QStringLiteral("15")},
                  {u"class", QStringLiteral("place")},
                  {u"text-anchor", QStringLiteral("middle")}});
}

/// Points up, which is north along the middle of the map.
void writeNorth(Html &html)
{
    html.open(u"svg",
              {{u"x", QStringLiteral("100%")},
               {u"y", QStringLiteral("0")},
               {u"overflow", QStringLiteral("visible")}});
    html.open(u"path", {{u"class", QStringLiteral("north")}, {u"d", QStringLiteral("M-22 12l7 20-7-5-7 5z")}})
        .close();
    Svg::text(html, QStringLiteral("-22"), QStringLiteral("45"), u"place", QStringLiteral("N"));
    html.close();
}

/// Dots and, unless there are many or they are close together, the numbers of the coordinates.
void writeCorners(Html &html, const AreaOutline &outline, const MapProjection &projection,
                  const MapFrame &frame)
{
    constexpr std::size_t MostDots = 60;
    constexpr std::size_t MostNumbers = 20;
    constexpr double Near = 36; // units
    if (outline.points().size() > MostDots)
        return;
    FrameLine numbered;
    const bool isNumbered = outline.points().size() > 1 && outline.points().size() <= MostNumbers;
    const FramePoint middle{MapFrame::Width / 2, MapFrame::Height / 2};
    int number = 0;
    for (const OutlinePoint &corner : outline.points()) {
        ++number;
        const auto point = projection.project(corner.latitude, corner.longitude);
        if (!point)
            continue;
        const FramePoint place = frame.place(*point);
        const QString x = shareOf(place.x, MapFrame::Width);
        const QString y = shareOf(place.y, MapFrame::Height);
        Svg::circle(html, x, y, QStringLiteral("3.5"), u"corner");
        const auto isNear = [&place](const FramePoint &other) {
            return std::hypot(place.x - other.x, place.y - other.y) < Near;
        };
        if (!isNumbered || std::any_of(numbered.begin(), numbered.end(), isNear))
            continue;
        numbered.push_back(place);
        const bool isLeft = place.x < middle.x;
        html.element(u"text", QString::number(number),
                     {{u"x", x},
                      {u"y", y},
                      {u"dx", isLeft ? QStringLiteral("-8") : QStringLiteral("8")},
                      {u"dy", place.y < middle.y ? QStringLiteral("-5") : QStringLiteral("13")},
                      {u"class", QStringLiteral("corner-number")},
                      {u"text-anchor", isLeft ? QStringLiteral("end") : QStringLiteral("start")}});
    }
}

void writeOutline(Html &html, const MapFrame &frame, const FrameLine &outline, Shape shape)
{
    if (shape == Shape::Polygon)
        writePath(html, svgPath(frame.clippedPolygon(outline), PathEnd::Closed, LineStep), u"area");
    writePath(html, pathOf(frame.clippedLine(outline), PathEnd::Open, LineStep), u"outline");
}

void writeDrawing(Html &html, const TESSEL::Area &area, const AreaOutline &outline)
{
    const OutlineRing points = densified(outline);
    const MapProjection projection(centreOf(points));
    std::vector<MapPoint> projected;
    for (const OutlinePoint &point : points) {
        if (const auto one = projection.project(point.latitude, point.longitude))
            projected.push_back(*one);
    }
    const Bounds bounds = boundsOf(projected);
    const MapFrame frame = frameFor(bounds, outline.shape(), {MapFrame::Width, MapFrame::Height});
    FrameLine line;
    for (const MapPoint &point : projected)
        line.push_back(frame.place(point));
    const QString extent = extentText(outline, bounds);

    html.open(u"figure", {{u"class", QStringLiteral("map")}});
    html.open(u"svg",
              {{u"class", QStringLiteral("chart map")},
               {u"role", QStringLiteral("img")},
               {u"aria-label", QStringLiteral("Map of the area %1: %2").arg(area.GetName(), extent)}});
    html.open(u"svg",
              {{u"width", QStringLiteral("100%")},
               {u"height", QStringLiteral("100%")},
               {u"viewBox",
                QStringLiteral("0 0 %1 %2").arg(Svg::number(MapFrame::Width), Svg::number(MapFrame::Height))},
               {u"preserveAspectRatio", QStringLiteral("none")}});
    const LandShapes land = landIn({projection, frame, HUGE_VAL});
    const std::vector<GraticuleLine> graticule = graticuleOf(projection, frame);
    writePath(html, pathOf(land.land, PathEnd::Closed, LandStep), u"land");
    writePath(html, pathOf(land.coasts, PathEnd::Open, LandStep), u"coast");
    QString lines;
    for (const GraticuleLine &one : graticule)
        lines += pathOf(one.parts, PathEnd::Open, LandStep);
    writePath(html, lines, u"graticule");
    writeOutline(html, frame, line, outline.shape());
    html.close();
    for (const GraticuleLine &one : graticule)
        writeLabel(html, one);
    writePole(html, projection, frame, 90);
    writePole(html, projection, frame, -90);
    writeCorners(html, outline, projection, frame);
    writeLocator(html, centreOf(points), frame);
    writeScale(html, frame);
    writeNorth(html);
    html.close();
    html.open(u"figcaption").text(extent + QLatin1Char('.'));
    const QString remark = remarkOn(outline);
    if (!remark.isEmpty())
        html.text(u" ").element(u"strong", remark);
    html.close();
    html.close();
}

} // namespace

void writeAreaMap(Html &html, const TESSEL::Area &area)
{
    const AreaOutline outline(area.GetCoordinate());
    if (!outline.error().isEmpty())
        html.element(u"p", QStringLiteral("There is no map of the area: %1.").arg(outline.error()),
                     {{u"class", QStringLiteral("missing")}});
    else if (outline.shape() == Shape::None)
        html.element(u"p", QStringLiteral("There is no map of the area: it has no coordinates."),
                     {{u"class", QStringLiteral("missing")}});
    else
        writeDrawing(html, area, outline);
}

} // namespace KORMAK::Inspection
