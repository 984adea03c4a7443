// The outline of an area on the earth: what maps and GeoJSON are made of. Its edges are straight in latitude
// and longitude, and each takes the shorter way round the earth.
#ifndef KORMAK_INSPECTION_REPORT_AREAOUTLINE_P_H
#define KORMAK_INSPECTION_REPORT_AREAOUTLINE_P_H

#include <inspection/inspection_export.h>
#include <objectbase/Coordinate.h>

#include <QString>
#include <QVector>

#include <optional>
#include <vector>

namespace KORMAK::Inspection {

/// A place, in degrees. Longitudes of neighbours in an outline do not jump: east of 180 they go on.
struct OutlinePoint {
    double longitude; ///< as the area has it
    double latitude;
    int turns = 0; ///< how often the outline has gone round the earth, eastwards, when it comes here

    [[nodiscard]] double unwrapped() const noexcept
    {
        constexpr double Turn = 360;
        return turns == 0 ? longitude : longitude + Turn * turns;
    }
    [[nodiscard]] bool operator==(const OutlinePoint &other) const noexcept
    {
        return longitude == other.longitude && latitude == other.latitude;
    }
};

using OutlineRing = std::vector<OutlinePoint>;

/// In square degrees; above 0 when \a ring, which is not closed, is anticlockwise.
[[nodiscard]] double doubleSignedArea(const OutlineRing &ring);

/// Where the edge from \a west of 180 degrees to \a east of it, both not on it, meets it.
[[nodiscard]] double latitudeAtDateLine(const OutlinePoint &west, const OutlinePoint &east);

/// West to east, which may lead across 180, and south to north.
struct Extent {
    double west;
    double south;
    double east;
    double north;
};

class INSPECTION_EXPORT AreaOutline {
public:
    enum class Shape {
        None, ///< there is no coordinate
        Point,
        Line, ///< there and back
        Polygon,
    };

    explicit AreaOutline(const QVector<TESSEL::Coordinate> &coordinates);

    /// Why there is no outline: a coordinate that is nowhere on the earth; empty when there is one.
    [[nodiscard]] const QString &error() const noexcept { return reason; }
    [[nodiscard]] Shape shape() const noexcept;
    /// Each different from the one before it, the last one from the first.
    [[nodiscard]] const OutlineRing &points() const noexcept { return ring; }
    /// How often it leads round the earth, eastwards: -1 or 1 round a pole, else 0.
    [[nodiscard]] int windings() const noexcept { return turnsRound; }
    /// Of an outline round a pole: which one it is taken to be round, the nearer one.
    [[nodiscard]] bool isRoundNorthPole() const noexcept;
    /// Nothing where that would take too long to find out: of many thousand coordinates.
    [[nodiscard]] std::optional<bool> crossesItself() const noexcept { return hasCrossing; }
    /// There must be a point.
    [[nodiscard]] Extent extent() const;
    /// Of what is enclosed, in km^2 on a sphere; of an outline that crosses itself it says nothing.
    [[nodiscard]] double squareKilometres() const;

    /// The polygon in parts of which none crosses 180 degrees, the outline of each anticlockwise and not
    /// closed; longitudes there are 180 or -180. Those of an outline that crosses itself may overlap. What
    /// leads across 180 degrees to one place and straight back is left out, unless that is all there is.
    [[nodiscard]] std::vector<OutlineRing> polygons() const;
    /// The line in parts of which none crosses 180 degrees.
    [[nodiscard]] std::vector<OutlineRing> lines() const;
    /// The polygon in the plane of longitudes and latitudes; one round a pole leads over the pole and back,
    /// along 180 degrees where it comes there.
    [[nodiscard]] OutlineRing closedRound() const;

private:
    [[nodiscard]] std::vector<OutlineRing> partsWith(std::size_t leastCorners) const;

    OutlineRing ring;
    QString reason;
    int turnsRound = 0;
    std::optional<bool> hasCrossing = false;
};

} // namespace KORMAK::Inspection

#endif
