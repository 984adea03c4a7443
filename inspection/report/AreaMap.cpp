#include "inspection/report/AreaMap_p.h"

#include <inspection/report/AreaDrawing_p.h>
#include <inspection/report/AreaOutline_p.h>
#include <inspection/report/AreaShape_p.h>
#include <inspection/report/Graticule_p.h>
#include <inspection/report/MapFrame_p.h>
#include <inspection/report/MapLabels_p.h>
#include <inspection/report/MapLand_p.h>
#include <inspection/report/Svg_p.h>
#include <objectbase/Area.h>

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

/// Text at a place that is a share of the map and some pixels from there.
struct Label {
    QString text;
    QString look;
    MapDistance x;
    MapDistance y;
    LabelAnchor anchor;
};

constexpr double PlaceSize = 11; ///< pixels, as the style sheet has it
constexpr double NumberSize = 12;

LabelBox boxOf(const Label &label)
{
    const double size = label.look == QLatin1String("place") ? PlaceSize : NumberSize;
    return boxOf(label.text, label.x, label.y, label.anchor, size);
}

QString anchorText(LabelAnchor anchor)
{
    return anchor == LabelAnchor::Start ? QStringLiteral("start")
        : anchor == LabelAnchor::End    ? QStringLiteral("end")
                                        : QStringLiteral("middle");
}

void writeLabel(Html &html, const Label &label)
{
    html.element(u"text", label.text,
                 {{u"x", Svg::percent(label.x.share)},
                  {u"y", Svg::percent(label.y.share)},
                  {u"dx", Svg::number(label.x.pixels)},
                  {u"dy", Svg::number(label.y.pixels)},
                  {u"class", label.look},
                  {u"text-anchor", anchorText(label.anchor)}});
}

/// The first of the labels that there is room for, if there is one.
void writeOneOf(Html &html, MapLabels &labels, const std::vector<Label> &candidates)
{
    const auto found = std::find_if(candidates.begin(), candidates.end(),
                                    [&labels](const Label &one) { return labels.take(boxOf(one)); });
    if (found != candidates.end())
        writeLabel(html, *found);
}

void writeDegrees(Html &html, MapLabels &labels, const GraticuleLine &line)
{
    const auto place = labelPlace(line);
    if (!place)
        return;
    const QString look = QStringLiteral("place");
    if (line.direction == GraticuleLine::Direction::Parallel)
        writeOneOf(html, labels,
                   {{latitudeText(line.degrees), look, {0, 5}, {*place, -4}, LabelAnchor::Start}});
    else
        writeOneOf(html, labels,
                   {{longitudeText(line.degrees), look, {*place, 0}, {0, 14}, LabelAnchor::Middle}});
}

void writeScale(Html &html, MapLabels &labels, const MapProjection &projection, const MapFrame &frame)
{
    const bool isRound = projection.kind() == MapProjection::Kind::Azimuthal;
    const double perUnit = frame.kilometresPerUnit() / (isRound ? 1 : MapProjection::TrueCosine);
    const double kilometres = roundDistance(perUnit * MapFrame::Width);
    constexpr double End = 0.97;
    const double length = kilometres / perUnit / MapFrame::Width;
    constexpr double Bar = 0.955;
    const QString y = Svg::percent(Bar);
    Svg::line(html, Svg::percent(End - length), y, Svg::percent(End), y, u"scale-back");
    Svg::line(html, Svg::percent(End - length), y, Svg::percent(End), y, u"scale");
    const QString text = distanceText(kilometres) + (isRound ? QString() : QStringLiteral(" on the equator"));
    const Label label{text,
                      QStringLiteral("place"),
                      {isRound ? End - length / 2 : End, 0},
                      {Bar, -7},
                      isRound ? LabelAnchor::Middle : LabelAnchor::End};
    writeLabel(html, label);
    constexpr double HalfBar = 3;
    labels.block(boxOf(label));
    labels.block({{End - length, 0}, {Bar, -HalfBar}, {End, 0}, {Bar, HalfBar}});
}

/// Half of the earth in a corner, and where on it the map is. A map of much of the earth needs none.
void writeLocator(Html &html, MapLabels &labels, const Place &centre, const MapFrame &ofMap)
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
    labels.block({{0, 0}, {1 - (Share + Corner) * Aspect, 0}, {Share + Corner, 0}, {1, 0}});
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

/// Where the pole is on the map, if it is. On a map of all of the earth it is the edge.
void writePole(Html &html, MapLabels &labels, const MapProjection &projection, const MapFrame &frame,
               double pole)
{
    const auto point = projection.project(pole, 0);
    if (!point || !frame.holds(frame.place(*point)) || projection.kind() != MapProjection::Kind::Azimuthal)
        return;
    const FramePoint place = frame.place(*point);
    const double x = place.x / MapFrame::Width;
    const double y = place.y / MapFrame::Height;
    Svg::circle(html, Svg::percent(x), Svg::percent(y), QStringLiteral("2.5"), u"pole");
    const QString name = pole > 0 ? QStringLiteral("North Pole") : QStringLiteral("South Pole");
    const QString look = QStringLiteral("place");
    writeOneOf(html, labels,
               {{name, look, {x, 0}, {y, 15}, LabelAnchor::Middle},
                {name, look, {x, 0}, {y, -7}, LabelAnchor::Middle},
                {name, look, {x, 8}, {y, 4}, LabelAnchor::Start},
                {name, look, {x, -8}, {y, 4}, LabelAnchor::End}});
}

/// Points up, which is north along the middle of the map.
void writeNorth(Html &html, MapLabels &labels)
{
    html.open(u"svg",
              {{u"x", QStringLiteral("100%")},
               {u"y", QStringLiteral("0")},
               {u"overflow", QStringLiteral("visible")}});
    html.open(u"path", {{u"class", QStringLiteral("north")}, {u"d", QStringLiteral("M-22 12l7 20-7-5-7 5z")}})
        .close();
    Svg::text(html, QStringLiteral("-22"), QStringLiteral("45"), u"place", QStringLiteral("N"));
    html.close();
    labels.block({{1, -31}, {0, 8}, {1, -12}, {0, 48}});
}

/// The number of a coordinate, beside its dot, outside of the area if that can be.
std::vector<Label> numberLabels(int number, const FramePoint &place)
{
    const double x = place.x / MapFrame::Width;
    const double y = place.y / MapFrame::Height;
    constexpr double Half = 0.5;
    const bool isLeft = x < Half;
    const bool isUpper = y < Half;
    constexpr double Aside = 8;
    constexpr double Above = -5;
    constexpr double Below = 13;
    std::vector<Label> labels;
    for (const bool isOutwards : {true, false}) {
        for (const bool isAway : {true, false}) {
            const bool isToLeft = isLeft == isOutwards;
            labels.push_back({QString::number(number),
                              QStringLiteral("corner-number"),
                              {x, isToLeft ? -Aside : Aside},
                              {y, isUpper == isAway ? Above : Below},
                              isToLeft ? LabelAnchor::End : LabelAnchor::Start});
        }
    }
    return labels;
}

/// Dots and, unless there are many or they are close together, the numbers of the coordinates.
void writeCorners(Html &html, MapLabels &labels, const AreaOutline &outline, const MapProjection &projection,
                  const MapFrame &frame)
{
    constexpr std::size_t MostDots = 60;
    constexpr std::size_t MostNumbers = 20;
    constexpr double Near = 36; // units
    if (outline.points().size() > MostDots)
        return;
    FrameLine numbered;
    const bool isNumbered = outline.points().size() > 1 && outline.points().size() <= MostNumbers;
    int number = 0;
    for (const OutlinePoint &corner : outline.points()) {
        ++number;
        const auto point = projection.project(corner.latitude, corner.longitude);
        if (!point)
            continue;
        const FramePoint place = frame.place(*point);
        Svg::circle(html, Svg::percent(place.x / MapFrame::Width), Svg::percent(place.y / MapFrame::Height),
                    QStringLiteral("3.5"), u"corner");
        const auto isNear = [&place](const FramePoint &other) {
            return std::hypot(place.x - other.x, place.y - other.y) < Near;
        };
        if (!isNumbered || std::any_of(numbered.begin(), numbered.end(), isNear))
            continue;
        numbered.push_back(place);
        writeOneOf(html, labels, numberLabels(number, place));
    }
}

void writeShape(Html &html, const AreaShape &shape)
{
    writePath(html, pathOf(shape.inside, PathEnd::Closed, LineStep), u"area");
    writePath(html, pathOf(shape.edges, PathEnd::Open, LineStep), u"outline");
}

void writeDrawing(Html &html, const TESSEL::Area &area, const AreaOutline &outline)
{
    const MapProjection projection = projectionFor(outline);
    const MapFrame frame = frameFor(outline, projection, {MapFrame::Width, MapFrame::Height});
    const QString extent = extentText(outline);

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
    writeShape(html, shapeOn(projection, frame, outline));
    html.close();
    MapLabels labels;
    writeLocator(html, labels, centreOf(densified(outline)), frame);
    writeScale(html, labels, projection, frame);
    writeNorth(html, labels);
    writeCorners(html, labels, outline, projection, frame);
    writePole(html, labels, projection, frame, 90);
    writePole(html, labels, projection, frame, -90);
    for (const GraticuleLine &one : graticule)
        writeDegrees(html, labels, one);
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
