// An area on a map, to be filled and to be outlined, right wherever on the earth the map is.
#ifndef KORMAK_INSPECTION_REPORT_AREASHAPE_P_H
#define KORMAK_INSPECTION_REPORT_AREASHAPE_P_H

#include <inspection/inspection_export.h>
#include <inspection/report/AreaOutline_p.h>
#include <inspection/report/MapFrame_p.h>
#include <inspection/report/MapProjection_p.h>

#include <vector>

namespace KORMAK::Inspection {

/// Which places an area encloses: none, unless it is a polygon.
class INSPECTION_EXPORT AreaInside {
public:
    explicit AreaInside(const AreaOutline &outline);

    /// Where the outline crosses itself, every second part is inside.
    [[nodiscard]] bool holds(const Place &place) const;

private:
    OutlineRing ring;
    double west = 0;
    double east = 0;
};

struct AreaShape {
    std::vector<FrameLine> inside; ///< polygons that are filled together, by the even-odd rule
    std::vector<FrameLine> edges;
};

/// What of the area is in the frame. There must be a point.
[[nodiscard]] INSPECTION_EXPORT AreaShape shapeOn(const MapProjection &projection, const MapFrame &frame,
                                                  const AreaOutline &outline);

} // namespace KORMAK::Inspection

#endif
