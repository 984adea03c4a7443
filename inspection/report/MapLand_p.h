// The land in the frame of a map.
#ifndef KORMAK_INSPECTION_REPORT_MAPLAND_P_H
#define KORMAK_INSPECTION_REPORT_MAPLAND_P_H

#include <inspection/inspection_export.h>
#include <inspection/report/MapFrame_p.h>
#include <inspection/report/MapProjection_p.h>

#include <vector>

namespace KORMAK::Inspection {

/// Which part of the earth's land is drawn, and how.
struct LandView {
    const MapProjection &projection;
    const MapFrame &frame;
    double farthest; ///< from the centre of the map, in radii; what is beyond is pulled to this edge
};

/// The land in the frame, and its coasts, which the outlines of the pieces of land are but in part.
struct LandShapes {
    std::vector<FrameLine> land;
    std::vector<FrameLine> coasts;
};

[[nodiscard]] INSPECTION_EXPORT LandShapes landIn(const LandView &view);

} // namespace KORMAK::Inspection

#endif
