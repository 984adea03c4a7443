#include "inspection/report/AreaParts_p.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <utility>

namespace KORMAK::Inspection {

namespace {

using Shape = AreaOutline::Shape;
using Coordinates = QVector<TESSEL::Coordinate>;

constexpr double DateLine = 180;
constexpr double Pole = 90;

bool isOnLine(const OutlinePoint &point)
{
    return std::abs(point.longitude) == DateLine;
}

bool isBefore(const OutlinePoint &a, const OutlinePoint &b)
{
    return std::pair(a.longitude, a.latitude) < std::pair(b.longitude, b.latitude);
}

bool areBefore(const OutlineRing &a, const OutlineRing &b)
{
    return std::lexicographical_compare(a.begin(), a.end(), b.begin(), b.end(), isBefore);
}

/// Where to begin so that \a ring is less than from any other point on.
std::size_t leastStart(const OutlineRing &ring)
{
    const std::size_t size = ring.size();
    std::size_t least = 0;
    std::size_t other = 1;
    for (std::size_t same = 0; least < size && other < size && same < size;) {
        const OutlinePoint &a = ring[(least + same) % size];
        const OutlinePoint &b = ring[(other + same) % size];
        if (a == b) {
            ++same;
            continue;
        }
        (isBefore(b, a) ? least : other) += same + 1;
        if (least == other)
            ++other;
        same = 0;
    }
    return std::min(least, other);
}

OutlineRing fromLeastStart(OutlineRing ring)
{
    std::rotate(ring.begin(), ring.begin() + static_cast<std::ptrdiff_t>(leastStart(ring)), ring.end());
    return ring;
}

/// Without the points that say nothing: those on straight stretches along 180 degrees, and those between
/// others at a pole.
OutlineRing withoutIdlePoints(const OutlineRing &ring)
{
    OutlineRing result;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const OutlinePoint &before = result.empty() ? ring.back() : result.back();
        const OutlinePoint &next = ring[(i + 1) % ring.size()];
        const bool isStraight = isOnLine(ring[i]) && before.longitude == ring[i].longitude
            && next.longitude == ring[i].longitude
            && (ring[i].latitude - before.latitude) * (next.latitude - ring[i].latitude) > 0;
        const bool isAtPole = std::abs(ring[i].latitude) == Pole && before.latitude == ring[i].latitude
            && next.latitude == ring[i].latitude;
        if (!isStraight && !isAtPole)
            result.push_back(ring[i]);
    }
    return result;
}

OutlineRing canonical(const OutlineRing &ring)
{
    OutlineRing forwards = withoutIdlePoints(ring);
    OutlineRing backwards(forwards.rbegin(), forwards.rend());
    forwards = fromLeastStart(std::move(forwards));
    backwards = fromLeastStart(std::move(backwards));
    return areBefore(forwards, backwards) ? forwards : backwards;
}

std::vector<OutlineRing> canonical(const AreaParts &area)
{
    std::vector<OutlineRing> rings;
    std::transform(area.parts.begin(), area.parts.end(), std::back_inserter(rings),
                   [](const OutlineRing &ring) { return canonical(ring); });
    if (area.shape == Shape::Point && isOnLine(rings.front().front()))
        rings.front().front().longitude = DateLine;
    std::sort(rings.begin(), rings.end(), areBefore);
    return rings;
}

Coordinates coordinatesOf(const OutlineRing &ring)
{
    Coordinates coordinates;
    for (const OutlinePoint &point : ring)
        coordinates.append(TESSEL::Coordinate(point.latitude, point.longitude));
    return coordinates;
}

/// Joins polygons along 180 degrees.
class Joining {
public:
    explicit Joining(const std::vector<OutlineRing> &polygons)
    {
        for (const OutlineRing &polygon : polygons)
            take(withoutIdlePoints(
                doubleSignedArea(polygon) < 0 ? OutlineRing(polygon.rbegin(), polygon.rend()) : polygon));
        keepOneSidedStretches();
    }

    /// Nothing when the polygons are not parts of one.
    [[nodiscard]] OutlineRing outline()
    {
        if (!canBeJoined || chains.empty())
            return {};
        OutlineRing ring;
        const double start = chains.begin()->first;
        double latitude = start;
        while (!chains.empty()) {
            const auto [chain, end] = chains.equal_range(latitude);
            if (chain == end || std::next(chain) != end)
                return {};
            latitude = chain->second.back().latitude;
            ring.insert(ring.end(), chain->second.begin(), chain->second.end());
            chains.erase(chain);
        }
        return latitude == start ? withoutCuts(ring) : OutlineRing();
    }

private:
    static bool isStretch(const OutlinePoint &a, const OutlinePoint &b)
    {
        return isOnLine(a) && a.longitude == b.longitude;
    }
    static bool isAtPole(const OutlinePoint &a, const OutlinePoint &b)
    {
        return isOnLine(a) && isOnLine(b) && a.latitude == b.latitude && std::abs(a.latitude) == Pole;
    }

    /// An anticlockwise \a polygon: stretches along the line, and chains between them.
    void take(const OutlineRing &polygon)
    {
        const std::size_t size = polygon.size();
        const auto isChain = [&](std::size_t i) {
            const OutlinePoint &a = polygon[i % size];
            const OutlinePoint &b = polygon[(i + 1) % size];
            return !isStretch(a, b) && !isAtPole(a, b);
        };
        std::size_t first = 0;
        while (first < size && isChain(first))
            ++first;
        if (first == size) { // joined to nothing
            canBeJoined = false;
            return;
        }
        OutlineRing chain;
        for (std::size_t i = first; i < first + size; ++i) {
            const OutlinePoint &a = polygon[i % size];
            const OutlinePoint &b = polygon[(i + 1) % size];
            if (isChain(i)) {
                if (chain.empty())
                    chain.push_back(a);
                chain.push_back(b);
            } else if (!isAtPole(a, b)) {
                const int step = b.latitude > a.latitude ? 1 : -1;
                northwards[std::min(a.latitude, b.latitude)] += step;
                northwards[std::max(a.latitude, b.latitude)] -= step;
            }
            if (!chain.empty() && (!isChain(i + 1) || i + 1 == first + size)) {
                chains.emplace(chain.front().latitude, chain);
                chain.clear();
            }
        }
    }

    /// What is on one side of the line only is an edge of the outline.
    void keepOneSidedStretches()
    {
        int steps = 0;
        for (auto from = northwards.begin(); from != northwards.end(); ++from) {
            steps += from->second;
            canBeJoined = canBeJoined && std::abs(steps) <= 1;
            const auto to = std::next(from);
            if (steps == 0 || to == northwards.end())
                continue;
            const double begin = steps > 0 ? from->first : to->first;
            const double end = steps > 0 ? to->first : from->first;
            chains.emplace(begin, OutlineRing{{DateLine, begin}, {DateLine, end}});
        }
    }

    /// Without the points at which an edge was cut, each of which stands there twice, once on each side.
    static OutlineRing withoutCuts(const OutlineRing &ring)
    {
        const std::size_t size = ring.size();
        OutlineRing result;
        for (std::size_t i = 0; i < size; ++i) {
            const OutlinePoint &previous = ring[(i + size - 1) % size];
            const OutlinePoint &point = ring[i];
            const OutlinePoint &next = ring[(i + 1) % size];
            const OutlinePoint &behindNext = ring[(i + 2) % size];
            const bool isTwice = isOnLine(point) && isOnLine(next) && point.latitude == next.latitude;
            const bool wasTwice =
                isOnLine(point) && isOnLine(previous) && point.latitude == previous.latitude;
            if (wasTwice || (isTwice && isCut(previous, point, behindNext)))
                continue;
            result.push_back({isOnLine(point) ? DateLine : point.longitude, point.latitude});
        }
        return withoutIdlePoints(result);
    }

    static bool isCut(const OutlinePoint &before, const OutlinePoint &cut, const OutlinePoint &behind)
    {
        const bool isAcross = !isOnLine(before) && !isOnLine(behind)
            && std::signbit(before.longitude) != std::signbit(behind.longitude);
        if (!isAcross)
            return false;
        const bool isEastwards = before.longitude > 0;
        return latitudeAtDateLine(isEastwards ? before : behind, isEastwards ? behind : before)
            == cut.latitude;
    }

    std::map<double, int> northwards; ///< by how much the stretches that lead north along the line change
    std::multimap<double, OutlineRing> chains; ///< by the latitude at which they begin
    bool canBeJoined = true;
};

} // namespace

AreaParts AreaParts::of(const AreaOutline &outline)
{
    switch (outline.shape()) {
    case Shape::Point:
        return {Shape::Point, {outline.points()}};
    case Shape::Line:
        return {Shape::Line, outline.lines()};
    case Shape::Polygon:
        return {Shape::Polygon, outline.polygons()};
    case Shape::None:
        break;
    }
    return {};
}

bool AreaParts::isSame(const AreaParts &other) const
{
    return shape == other.shape && parts.size() == other.parts.size() && canonical(*this) == canonical(other);
}

std::optional<Coordinates> AreaParts::joined() const
{
    std::vector<Coordinates> candidates;
    if (parts.size() <= 1)
        candidates.push_back(parts.empty() ? Coordinates() : coordinatesOf(parts.front()));
    if (shape == Shape::Line && parts.size() == 2) {
        for (const OutlinePoint &from : parts[0]) {
            for (const OutlinePoint &to : parts[1])
                candidates.push_back(coordinatesOf({from, to}));
        }
    }
    if (shape == Shape::Polygon)
        candidates.push_back(coordinatesOf(Joining(parts).outline()));
    for (const Coordinates &candidate : candidates) {
        if (isSame(of(AreaOutline(candidate))))
            return candidate;
    }
    return std::nullopt;
}

} // namespace KORMAK::Inspection
