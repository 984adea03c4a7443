#include "inspection/report/AreaOutline_p.h"

#include <inspection/FieldText_p.h>
#include <inspection/report/MapProjection_p.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace KORMAK::Inspection {

namespace {

constexpr double Pole = 90;
constexpr double DateLine = 180;
constexpr double Turn = 360;

constexpr double Pi = 3.14159265358979323846;
constexpr double PerDegree = Pi / 180;

QString placeError(int index, QStringView name, double value, double most)
{
    return QStringLiteral("Coordinate[%1]: %2 %3 is not from -%4 to %4")
        .arg(QString::number(index), name.toString(), numberText(value), numberText(most));
}

/// Where \a point is beside the line that is 180 degrees in turn \a line: below 0 west of it, 0 on it.
int sideOf(const OutlinePoint &point, int line)
{
    if (point.turns == line)
        return point.longitude < DateLine ? -1 : 0;
    if (point.turns == line + 1)
        return point.longitude > -DateLine ? 1 : 0;
    return point.turns < line ? -1 : 1;
}

/// Where the edge between \a a and \a b, which are on different sides of the line, meets it. The same point
/// whichever comes first.
OutlinePoint meeting(const OutlinePoint &a, const OutlinePoint &b, int line)
{
    if (sideOf(a, line) > sideOf(b, line))
        return meeting(b, a, line);
    if (sideOf(a, line) == 0 || sideOf(b, line) == 0)
        return {DateLine, sideOf(a, line) == 0 ? a.latitude : b.latitude, line};
    // Of the way to the line and on from there: the same wherever the outline begins to count turns.
    const double before = DateLine - a.longitude + Turn * (line - a.turns);
    const double behind = b.longitude + DateLine + Turn * (b.turns - line - 1);
    return {DateLine, a.latitude + before / (before + behind) * (b.latitude - a.latitude), line};
}

enum class Side : qint8 { West = -1, East = 1 };

bool isOn(Side side, const OutlinePoint &point, int line)
{
    return sideOf(point, line) == static_cast<int>(side);
}

/// Those runs of the outline that are on \a side of the line, each with the points where it leaves the line
/// and comes back to it. \a ring has points on both sides.
std::vector<OutlineRing> runsOn(Side side, const OutlineRing &ring, int line)
{
    std::size_t start = 0;
    while (isOn(side, ring[start], line))
        ++start;
    std::vector<OutlineRing> runs;
    for (std::size_t i = 1; i <= ring.size(); ++i) {
        const OutlinePoint &before = ring[(start + i - 1) % ring.size()];
        const OutlinePoint &point = ring[(start + i) % ring.size()];
        const bool wasOn = isOn(side, before, line);
        const bool isOnNow = isOn(side, point, line);
        if (isOnNow && !wasOn)
            runs.push_back({meeting(before, point, line)});
        if (isOnNow)
            runs.back().push_back(point);
        else if (wasOn)
            runs.back().push_back(meeting(before, point, line));
    }
    return runs;
}

/// The parts of the polygon on \a side of the line. Along the line, every second stretch between the ends of
/// the runs is within the polygon: it joins a run to another.
std::vector<OutlineRing> partsOn(Side side, const OutlineRing &ring, int line)
{
    const auto isHere = [&](const OutlinePoint &point) { return isOn(side, point, line); };
    const auto isNotBeyond = [&](const OutlinePoint &point) {
        return isHere(point) || sideOf(point, line) == 0;
    };
    if (std::none_of(ring.begin(), ring.end(), isHere))
        return {};
    if (std::all_of(ring.begin(), ring.end(), isNotBeyond))
        return {ring};
    const std::vector<OutlineRing> runs = runsOn(side, ring, line);
    struct End {
        double latitude;
        std::size_t run;
        bool isStart;
    };
    std::vector<End> ends;
    for (std::size_t i = 0; i < runs.size(); ++i) {
        ends.push_back({runs[i].front().latitude, i, true});
        ends.push_back({runs[i].back().latitude, i, false});
    }
    std::stable_sort(ends.begin(), ends.end(),
                     [](const End &a, const End &b) { return a.latitude < b.latitude; });
    const auto indexOf = [](const End &end) { return 2 * end.run + (end.isStart ? 0 : 1); };
    std::vector<End> partners(ends.size());
    for (std::size_t i = 0; i < ends.size(); i += 2) {
        partners[indexOf(ends[i])] = ends[i + 1];
        partners[indexOf(ends[i + 1])] = ends[i];
    }
    std::vector<OutlineRing> parts;
    std::vector<bool> isTaken(runs.size());
    for (std::size_t first = 0; first < runs.size(); ++first) {
        if (isTaken[first])
            continue;
        OutlineRing part;
        for (End end{0, first, true}; !isTaken[end.run];) {
            const OutlineRing &run = runs[end.run];
            isTaken[end.run] = true;
            if (end.isStart)
                part.insert(part.end(), run.begin(), run.end());
            else // only of an outline that crosses itself
                part.insert(part.end(), run.rbegin(), run.rend());
            end.isStart = !end.isStart;
            end = partners[indexOf(end)];
        }
        parts.push_back(std::move(part));
    }
    return parts;
}

/// In turn \a turn, with longitudes from -180 to 180.
OutlineRing inTurn(OutlineRing ring, int turn)
{
    for (OutlinePoint &point : ring) {
        if (point.turns != turn)
            point.longitude = point.turns < turn ? -DateLine : DateLine;
        point.turns = 0;
    }
    ring.erase(std::unique(ring.begin(), ring.end()), ring.end());
    while (ring.size() > 1 && ring.front() == ring.back())
        ring.pop_back();
    return ring;
}

/// Which way \a c lies of the line from \a a to \a b; 0: on it.
double turnOf(const OutlinePoint &a, const OutlinePoint &b, const OutlinePoint &c)
{
    return (b.unwrapped() - a.unwrapped()) * (c.latitude - a.latitude)
        - (b.latitude - a.latitude) * (c.unwrapped() - a.unwrapped());
}

struct Edge {
    OutlinePoint from;
    OutlinePoint to;

    [[nodiscard]] double west() const { return std::min(from.unwrapped(), to.unwrapped()); }
    [[nodiscard]] double east() const { return std::max(from.unwrapped(), to.unwrapped()); }
    [[nodiscard]] bool crosses(const Edge &other) const
    {
        return turnOf(from, to, other.from) * turnOf(from, to, other.to) < 0
            && turnOf(other.from, other.to, from) * turnOf(other.from, other.to, to) < 0;
    }
};

std::vector<Edge> edgesOf(const OutlineRing &ring, int windings)
{
    std::vector<Edge> edges;
    for (std::size_t i = 0; i + 1 < ring.size(); ++i)
        edges.push_back({ring[i], ring[i + 1]});
    OutlinePoint first = ring.front();
    first.turns += windings;
    edges.push_back({ring.back(), first});
    return edges;
}

/// Nothing when it takes too long to find out.
std::optional<bool> haveCrossing(std::vector<Edge> edges)
{
    constexpr std::size_t MostTests = 20'000'000;
    std::size_t tests = 0;
    std::sort(edges.begin(), edges.end(), [](const Edge &a, const Edge &b) { return a.west() < b.west(); });
    std::vector<const Edge *> near; // may reach as far east as the next one begins
    for (const Edge &edge : edges) {
        near.erase(std::remove_if(near.begin(), near.end(),
                                  [&edge](const Edge *one) { return one->east() < edge.west(); }),
                   near.end());
        if (std::any_of(near.begin(), near.end(), [&edge](const Edge *one) { return one->crosses(edge); }))
            return true;
        tests += near.size();
        if (tests > MostTests)
            return std::nullopt;
        near.push_back(&edge);
    }
    return false;
}

/// The mean of the sines of the latitudes along the edge.
double meanSine(const Edge &edge)
{
    const double from = edge.from.latitude * PerDegree;
    const double to = edge.to.latitude * PerDegree;
    constexpr double Level = 1e-9;
    const double half = (to - from) / 2;
    return std::sin((from + to) / 2) * (std::abs(half) < Level ? 1 : std::sin(half) / half);
}

double meanLatitude(const OutlineRing &ring)
{
    double sum = 0;
    for (const OutlinePoint &point : ring)
        sum += point.latitude;
    return sum / static_cast<double>(ring.size());
}

/// By how many turns the shorter way over \a step degrees of longitude differs from the way without leaving
/// the map.
int turnsOver(double step)
{
    return step < -DateLine ? 1 : step > DateLine ? -1 : 0;
}

/// Why there is no such place; empty when there is.
QString errorIn(const OutlinePoint &point, int index)
{
    if (!(std::abs(point.latitude) <= Pole)) // which no NaN is
        return placeError(index, u"latitude", point.latitude, Pole);
    if (!(std::abs(point.longitude) <= DateLine))
        return placeError(index, u"longitude", point.longitude, DateLine);
    return {};
}

} // namespace

double doubleSignedArea(const OutlineRing &ring)
{
    double area = 0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const OutlinePoint &a = ring[i];
        const OutlinePoint &b = ring[(i + 1) % ring.size()];
        area += (b.unwrapped() - a.unwrapped()) * (a.latitude + b.latitude);
    }
    return -area;
}

double latitudeAtDateLine(const OutlinePoint &west, const OutlinePoint &east)
{
    return meeting({west.longitude, west.latitude}, {east.longitude, east.latitude, 1}, 0).latitude;
}

AreaOutline::AreaOutline(const QVector<TESSEL::Coordinate> &coordinates)
{
    int index = 0;
    for (const TESSEL::Coordinate &coordinate : coordinates) {
        OutlinePoint point{coordinate.GetLongitude(), coordinate.GetLatitude()};
        reason = errorIn(point, index);
        if (!reason.isEmpty()) {
            ring.clear();
            return;
        }
        ++index;
        if (!ring.empty()) {
            const OutlinePoint &before = ring.back();
            const double step = point.longitude - before.longitude;
            point.turns = before.turns + turnsOver(step);
            if (point.latitude == before.latitude && point.unwrapped() == before.unwrapped())
                continue;
        }
        ring.push_back(point);
    }
    if (ring.empty())
        return;
    const double step = ring.front().longitude - ring.back().longitude;
    turnsRound = ring.back().turns + turnsOver(step);
    if (ring.size() > 1 && ring.front().latitude == ring.back().latitude
        && std::remainder(step, Turn) == 0) { // closed already
        turnsRound = ring.back().turns + static_cast<int>(std::lround(-step / Turn));
        ring.pop_back();
    }
    if (shape() == Shape::Polygon)
        hasCrossing = haveCrossing(edgesOf(ring, turnsRound));
}

AreaOutline::Shape AreaOutline::shape() const noexcept
{
    constexpr std::size_t LeastCorners = 3;
    return ring.size() >= LeastCorners ? Shape::Polygon
        : ring.size() == 2             ? Shape::Line
        : ring.size() == 1             ? Shape::Point
                                       : Shape::None;
}

bool AreaOutline::isRoundNorthPole() const noexcept
{
    return meanLatitude(ring) >= 0;
}

Extent AreaOutline::extent() const
{
    const auto [south, north] =
        std::minmax_element(ring.begin(), ring.end(), [](const OutlinePoint &a, const OutlinePoint &b) {
            return a.latitude < b.latitude;
        });
    if (turnsRound != 0) {
        return isRoundNorthPole() ? Extent{-DateLine, south->latitude, DateLine, Pole}
                                  : Extent{-DateLine, -Pole, DateLine, north->latitude};
    }
    const auto [west, east] =
        std::minmax_element(ring.begin(), ring.end(), [](const OutlinePoint &a, const OutlinePoint &b) {
            return a.unwrapped() < b.unwrapped();
        });
    if (west->unwrapped() == east->unwrapped()) {
        const double longitude = ring.back().longitude;
        return {longitude, south->latitude, longitude, north->latitude};
    }
    // 180 degrees are on the side that the area is on.
    return {west->longitude == DateLine ? -DateLine : west->longitude, south->latitude,
            east->longitude == -DateLine ? DateLine : east->longitude, north->latitude};
}

double AreaOutline::squareKilometres() const
{
    if (shape() != Shape::Polygon)
        return 0;
    double sum = 0;
    for (const Edge &edge : edgesOf(ring, turnsRound))
        sum += (edge.to.unwrapped() - edge.from.unwrapped()) * PerDegree * meanSine(edge);
    if (turnsRound != 0)
        sum = 2 * Pi - sum * turnsRound * (isRoundNorthPole() ? 1 : -1);
    return std::abs(sum) * EarthRadius * EarthRadius;
}

OutlineRing AreaOutline::closedRound() const
{
    if (turnsRound == 0)
        return ring;
    const std::vector<Edge> edges = edgesOf(ring, turnsRound);
    const int line = turnsRound > 0 ? ring.front().turns : ring.front().turns - 1; // that it comes to first
    const auto isOver = [&](const Edge &edge) {
        return turnsRound > 0 ? sideOf(edge.from, line) < 0 && sideOf(edge.to, line) >= 0
                              : sideOf(edge.from, line) > 0 && sideOf(edge.to, line) <= 0;
    };
    const auto found = std::find_if(edges.begin(), edges.end(), isOver);
    const auto first = static_cast<std::size_t>(found == edges.end() ? 0 : found - edges.begin());
    OutlineRing closed{found == edges.end() ? ring.front() : meeting(found->from, found->to, line)};
    for (std::size_t i = 1; i <= ring.size(); ++i) {
        OutlinePoint point = ring[(first + i) % ring.size()];
        if (first + i >= ring.size())
            point.turns += turnsRound;
        closed.push_back(point);
    }
    OutlinePoint end = closed.front();
    end.turns += turnsRound;
    closed.push_back(end);
    const double pole = isRoundNorthPole() ? Pole : -Pole;
    closed.push_back({end.longitude, pole, end.turns});
    closed.push_back({closed.front().longitude, pole, closed.front().turns});
    return closed;
}

std::vector<OutlineRing> AreaOutline::partsWith(std::size_t leastCorners) const
{
    const OutlineRing closed = closedRound();
    const auto [least, most] =
        std::minmax_element(closed.begin(), closed.end(),
                            [](const OutlinePoint &a, const OutlinePoint &b) { return a.turns < b.turns; });
    std::vector<OutlineRing> all;
    for (int turn = least->turns; turn <= most->turns + 1; ++turn) {
        for (const OutlineRing &eastern : partsOn(Side::East, closed, turn - 1)) {
            for (const OutlineRing &part : partsOn(Side::West, eastern, turn)) {
                OutlineRing polygon = inTurn(part, turn);
                if (polygon.size() < leastCorners)
                    continue;
                if (doubleSignedArea(polygon) < 0)
                    std::reverse(polygon.begin() + 1, polygon.end());
                all.push_back(std::move(polygon));
            }
        }
    }
    return all;
}

std::vector<OutlineRing> AreaOutline::polygons() const
{
    constexpr std::size_t OfPolygon = 3;
    constexpr std::size_t ThereAndBack = 2; // which says something only where there is nothing else
    std::vector<OutlineRing> parts = partsWith(OfPolygon);
    if (parts.empty())
        parts = partsWith(ThereAndBack);
    if (parts.empty()) // all of it along 180 degrees
        parts.push_back(inTurn(ring, ring.front().turns));
    return parts;
}

std::vector<OutlineRing> AreaOutline::lines() const
{
    const OutlinePoint &from = ring.front();
    const OutlinePoint &to = ring.back();
    const int line = std::min(from.turns, to.turns);
    if (from.turns == to.turns)
        return {{{from.longitude, from.latitude}, {to.longitude, to.latitude}}};
    if (sideOf(from, line) == 0 || sideOf(to, line) == 0) { // it is on the side of the other end
        const double side = sideOf(from, line) != 0 ? from.longitude : to.longitude;
        const auto beside = [side](const OutlinePoint &point) {
            const bool isOnLine = std::abs(point.longitude) == DateLine;
            return OutlinePoint{isOnLine ? std::copysign(DateLine, side) : point.longitude, point.latitude};
        };
        return {{beside(from), beside(to)}};
    }
    const double latitude = meeting(from, to, line).latitude;
    const double side = from.longitude < 0 ? -DateLine : DateLine;
    return {{{from.longitude, from.latitude}, {side, latitude}},
            {{-side, latitude}, {to.longitude, to.latitude}}};
}

} // namespace KORMAK::Inspection
