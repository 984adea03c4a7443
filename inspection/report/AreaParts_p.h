// Areas that are cut where they cross 180 degrees, as maps and GeoJSON have them, and the one outline that
// they were cut from.
#ifndef KORMAK_INSPECTION_REPORT_AREAPARTS_P_H
#define KORMAK_INSPECTION_REPORT_AREAPARTS_P_H

#include <inspection/report/AreaOutline_p.h>
#include <objectbase/Coordinate.h>

#include <QVector>

#include <optional>
#include <vector>

namespace KORMAK::Inspection {

/// A point, a line or a polygon, in parts of which none crosses 180 degrees. Rings are not closed.
struct AreaParts {
    AreaOutline::Shape shape = AreaOutline::Shape::None;
    std::vector<OutlineRing> parts = {};

    [[nodiscard]] static AreaParts of(const AreaOutline &outline);

    /// Whether the boundary is the same, wherever the rings begin, whichever way they lead and in whatever
    /// order they are.
    [[nodiscard]] bool isSame(const AreaParts &other) const;
    /// The coordinates whose outline is cut into just these parts; nothing when there are none.
    [[nodiscard]] std::optional<QVector<TESSEL::Coordinate>> joined() const;

private:
    [[nodiscard]] bool hasTwins() const;
    [[nodiscard]] bool isOnBothSides() const;
};

} // namespace KORMAK::Inspection

#endif
