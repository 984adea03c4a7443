#include "inspection/report/AreaParts_p.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>
#include <set>
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

/// The same whichever way \a points lead.
OutlineRing undirected(OutlineRing points)
{
    OutlineRing backwards(points.rbegin(), points.rend());
    return areBefore(backwards, points) ? backwards : points;
}

/// The same for a ring, wherever it begins.
OutlineRing canonicalRing(const OutlineRing &ring)
{
    const OutlineRing backwards(ring.rbegin(), ring.rend());
    const OutlineRing one = fromLeastStart(ring);
    const OutlineRing other = fromLeastStart(backwards);
    return areBefore(one, other) ? one : other;
}

/// The same for a point or a line. All of it on 180 degrees, it is on both sides.
OutlineRing canonicalLine(OutlineRing line)
{
    if (std::all_of(line.begin(), line.end(), isOnLine)) {
        for (OutlinePoint &point : line)
            point.longitude = DateLine;
    }
    return undirected(std::move(line));
}

/// Places along 180 degrees at which something changes: what changes twice does not.
class Changes {
public:
    void toggle(double latitude)
    {
        if (latitudes.erase(latitude) == 0)
            latitudes.insert(latitude);
    }
    [[nodiscard]] const std::set<double> &all() const noexcept { return latitudes; }
    [[nodiscard]] bool operator==(const Changes &other) const { return latitudes == other.latitudes; }

private:
    std::set<double> latitudes;
};

/// The boundary of polygons that are cut at 180 degrees. Where their rings begin, which way they lead and how
/// those that touch are divided into rings makes no difference to it.
class Boundary {
public:
    explicit Boundary(const std::vector<OutlineRing> &polygons)
    {
        for (const OutlineRing &polygon : polygons)
            take(withoutIdlePoints(polygon));
        std::sort(rings.begin(), rings.end(), areBefore);
        std::sort(chains.begin(), chains.end(), areBefore);
    }

    std::vector<OutlineRing> rings = {}; ///< away from 180 degrees
    std::vector<OutlineRing> chains = {}; ///< from 180 degrees to there again
    Changes west = {}; ///< along the west side of 180 degrees: where a polygon begins or ends
    Changes east = {};

    [[nodiscard]] bool operator==(const Boundary &other) const
    {
        return rings == other.rings && chains == other.chains && west == other.west && east == other.east;
    }

private:
    void take(const OutlineRing &ring)
    {
        const auto start = std::find_if(ring.begin(), ring.end(), isOnLine);
        if (start == ring.end()) {
            rings.push_back(canonicalRing(ring));
            return;
        }
        const auto first = static_cast<std::size_t>(start - ring.begin());
        OutlineRing chain{*start};
        for (std::size_t i = 1; i <= ring.size(); ++i) {
            const OutlinePoint &point = ring[(first + i) % ring.size()];
            chain.push_back(point);
            if (isOnLine(point)) {
                takeChain(std::move(chain));
                chain = {point};
            }
        }
    }

    void takeChain(OutlineRing chain)
    {
        const OutlinePoint &from = chain.front();
        const OutlinePoint &to = chain.back();
        if (chain.size() > 2) {
            chains.push_back(undirected(std::move(chain)));
        } else if (from.longitude == to.longitude) {
            Changes &side = from.longitude > 0 ? west : east;
            side.toggle(from.latitude);
            side.toggle(to.latitude);
        } else if (from.latitude != to.latitude || std::abs(from.latitude) != Pole) {
            chains.push_back(undirected(std::move(chain)));
        }
    }
};

Coordinates coordinatesOf(const OutlineRing &ring)
{
    Coordinates coordinates;
    for (const OutlinePoint &point : ring)
        coordinates.append(TESSEL::Coordinate(point.latitude, point.longitude));
    return coordinates;
}

/// Joins the boundary of polygons, across 180 degrees, to one outline.
class Joining {
public:
    explicit Joining(const std::vector<OutlineRing> &polygons)
    {
        Boundary boundary(polygons);
        chains = std::move(boundary.chains);
        isJoinable = boundary.rings.empty() && !chains.empty();
        addStretches(boundary);
        if (isJoinable)
            connect();
    }

    enum class Cuts : qint8 { Kept, LeftOut };
    /// Empty when the polygons are not parts of one.
    [[nodiscard]] OutlineRing outline(Cuts cuts) const
    {
        OutlineRing ring;
        if (!isJoinable)
            return ring;
        End end{0, Where::Front};
        do {
            const OutlineRing &chain = chains[end.chain];
            // Its first point stands there already, as the last one of the chain before it.
            if (end.where == Where::Front)
                ring.insert(ring.end(), chain.begin() + 1, chain.end() - 1);
            else
                ring.insert(ring.end(), chain.rbegin() + 1, chain.rend() - 1);
            const End last = other(end);
            end = partnerOf(last);
            if (cuts == Cuts::Kept || !isCut(last, end))
                ring.push_back(corner(last, end));
        } while (end.chain != 0 || end.where != Where::Front);
        return withoutIdlePoints(ring);
    }

private:
    enum class Where : qint8 { Front, Back };
    struct End {
        std::size_t chain;
        Where where;
    };
    using Pair = std::pair<End, End>;

    static End other(const End &end)
    {
        return {end.chain, end.where == Where::Front ? Where::Back : Where::Front};
    }
    static std::size_t indexOf(const End &end) { return 2 * end.chain + (end.where == Where::Back ? 1 : 0); }
    [[nodiscard]] const End &partnerOf(const End &end) const { return partners[indexOf(end)]; }

    [[nodiscard]] const OutlinePoint &pointAt(const End &end) const
    {
        return end.where == Where::Front ? chains[end.chain].front() : chains[end.chain].back();
    }
    /// The point beside the last.
    [[nodiscard]] const OutlinePoint &pointBeside(const End &end) const
    {
        const OutlineRing &chain = chains[end.chain];
        return end.where == Where::Front ? chain[1] : chain[chain.size() - 2];
    }

    /// What is on one side of 180 degrees only is an edge of the outline.
    void addStretches(const Boundary &boundary)
    {
        Changes changes = boundary.west;
        for (const double latitude : boundary.east.all())
            changes.toggle(latitude);
        std::set<double> corners = changes.all();
        for (const OutlineRing &chain : chains) {
            corners.insert(chain.front().latitude);
            corners.insert(chain.back().latitude);
        }
        bool isEdge = false;
        double before = 0;
        for (const double latitude : corners) {
            if (isEdge)
                chains.push_back({{DateLine, before}, {DateLine, latitude}});
            isEdge = isEdge != (changes.all().count(latitude) > 0);
            before = latitude;
        }
    }

    /// Which end the outline goes on with behind each: with the one straight ahead, if there is one.
    void connect()
    {
        std::map<double, std::vector<End>> corners;
        for (std::size_t i = 0; i < chains.size(); ++i) {
            for (const Where where : {Where::Front, Where::Back})
                corners[pointAt({i, where}).latitude].push_back({i, where});
        }
        partners.resize(2 * chains.size(), End{0, Where::Front});
        std::vector<std::vector<Pair>> pairs;
        for (auto &corner : corners) {
            if (corner.second.size() % 2 != 0) {
                isJoinable = false;
                return;
            }
            pairs.push_back(pairsOf(corner.second));
            for (const Pair &pair : pairs.back())
                set(pair);
        }
        joinCircuits(pairs);
    }

    void set(const Pair &pair)
    {
        partners[indexOf(pair.first)] = pair.second;
        partners[indexOf(pair.second)] = pair.first;
    }

    [[nodiscard]] std::vector<Pair> pairsOf(std::vector<End> ends) const
    {
        constexpr std::size_t MostCompared = 64;
        std::vector<Pair> pairs;
        const bool isFew = ends.size() <= MostCompared;
        while (!ends.empty()) {
            const End end = ends.back();
            ends.pop_back();
            auto ahead = isFew
                ? std::find_if(ends.begin(), ends.end(), [&](const End &one) { return isCut(end, one); })
                : ends.end();
            if (ahead == ends.end())
                ahead = std::prev(ends.end());
            pairs.emplace_back(end, *ahead);
            ends.erase(ahead);
        }
        return pairs;
    }

    /// Where two circuits meet, each goes on as the other.
    void joinCircuits(std::vector<std::vector<Pair>> &corners)
    {
        std::vector<std::size_t> circuits = circuitOfChains();
        const auto rootOf = [&circuits](std::size_t one) {
            while (circuits[one] != one)
                one = circuits[one] = circuits[circuits[one]];
            return one;
        };
        for (std::vector<Pair> &pairs : corners) {
            for (std::size_t i = 1; i < pairs.size(); ++i) {
                const std::size_t one = rootOf(pairs[0].first.chain);
                const std::size_t another = rootOf(pairs[i].first.chain);
                if (one == another)
                    continue;
                std::swap(pairs[0].second, pairs[i].first);
                set(pairs[0]);
                set(pairs[i]);
                circuits[another] = one;
            }
        }
        for (std::size_t i = 0; i < chains.size(); ++i)
            isJoinable = isJoinable && rootOf(i) == rootOf(0);
    }

    /// One chain of the circuit that each chain is in.
    [[nodiscard]] std::vector<std::size_t> circuitOfChains() const
    {
        std::vector<std::size_t> circuits(chains.size(), chains.size());
        for (std::size_t i = 0; i < chains.size(); ++i) {
            for (End end{i, Where::Front}; circuits[end.chain] == chains.size(); end = partnerOf(other(end)))
                circuits[end.chain] = i;
        }
        return circuits;
    }

    /// Whether the outline is straight across 180 degrees between two ends, as if there were no corner.
    [[nodiscard]] bool isCut(const End &one, const End &another) const
    {
        const OutlinePoint &a = pointBeside(one);
        const OutlinePoint &b = pointBeside(another);
        if (isOnLine(a) || isOnLine(b) || pointAt(one).longitude == pointAt(another).longitude)
            return false;
        const OutlinePoint &west = pointAt(one).longitude > 0 ? a : b;
        const OutlinePoint &east = pointAt(one).longitude > 0 ? b : a;
        return west.longitude - east.longitude > DateLine
            && latitudeAtDateLine(west, east) == pointAt(one).latitude;
    }

    /// On either side of 180 degrees, but for a neighbour that is half round the earth from both.
    [[nodiscard]] OutlinePoint corner(const End &one, const End &another) const
    {
        double side = DateLine;
        for (const End &end : {one, another}) {
            if (pointBeside(end).longitude == 0)
                side = pointAt(end).longitude;
        }
        return {side, pointAt(one).latitude};
    }

    std::vector<OutlineRing> chains; ///< and stretches along 180 degrees
    std::vector<End> partners; ///< of each end
    bool isJoinable;
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
    if (shape != other.shape)
        return false;
    if (shape == Shape::Polygon)
        return Boundary(parts) == Boundary(other.parts);
    const auto linesOf = [](const AreaParts &area) {
        std::vector<OutlineRing> lines;
        std::transform(area.parts.begin(), area.parts.end(), std::back_inserter(lines), canonicalLine);
        std::sort(lines.begin(), lines.end(), areBefore);
        return lines;
    };
    return linesOf(*this) == linesOf(other);
}

std::optional<Coordinates> AreaParts::joined() const
{
    std::vector<Coordinates> candidates;
    if (shape == Shape::Polygon) {
        const Joining joining(parts);
        for (const Joining::Cuts cuts : {Joining::Cuts::LeftOut, Joining::Cuts::Kept})
            candidates.push_back(coordinatesOf(joining.outline(cuts)));
    }
    if (parts.size() <= 1) {
        // As it is, unless it was closed along 180 degrees.
        const Coordinates asItIs = parts.empty() ? Coordinates() : coordinatesOf(parts.front());
        candidates.insert(isOnBothSides() ? candidates.end() : candidates.begin(), asItIs);
    }
    if (shape == Shape::Line && parts.size() == 2) {
        for (const OutlinePoint &from : parts[0]) {
            for (const OutlinePoint &to : parts[1])
                candidates.push_back(coordinatesOf({from, to}));
        }
    }
    for (const Coordinates &candidate : candidates) {
        const AreaParts found = of(AreaOutline(candidate));
        // A boundary that is there twice cancels out, which two polygons do not.
        if (isSame(found) && (found.parts.size() == parts.size() || !hasTwins()))
            return candidate;
    }
    return std::nullopt;
}

bool AreaParts::hasTwins() const
{
    std::vector<OutlineRing> rings;
    std::transform(parts.begin(), parts.end(), std::back_inserter(rings), canonicalRing);
    std::sort(rings.begin(), rings.end(), areBefore);
    return std::adjacent_find(rings.begin(), rings.end()) != rings.end();
}

bool AreaParts::isOnBothSides() const
{
    const auto isOn = [this](double side) {
        return std::any_of(parts.begin(), parts.end(), [side](const OutlineRing &ring) {
            return std::any_of(ring.begin(), ring.end(),
                               [side](const OutlinePoint &point) { return point.longitude == side; });
        });
    };
    return isOn(DateLine) && isOn(-DateLine);
}

} // namespace KORMAK::Inspection
