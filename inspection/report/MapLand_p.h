// The land in the frame of a map.
#ifndef KORMAK_INSPECTION_REPORT_MAPLAND_P_H
#define KORMAK_INSPECTION_REPORT_MAPLAND_P_H

#include <inspection/report/MapFrame_p.h>
#include <inspection/report/MapProjection_p.h>

#include <QString>

namespace KORMAK::Inspection {

/// Which part of the earth's land is drawn, and how.
struct LandView {
    const MapProjection &projection;
    const MapFrame &frame;
    double farthest; ///< from the centre of the map, in radii; what is beyond is pulled to this edge
    double step; ///< units between points
};

/// The paths of the land in the frame and of its coasts; empty where there is only sea.
struct LandPaths {
    QString land;
    QString coasts;
};

[[nodiscard]] LandPaths landIn(const LandView &view);

} // namespace KORMAK::Inspection

#endif
