// The lines of equal latitude and longitude on a map.
#ifndef KORMAK_INSPECTION_REPORT_GRATICULE_P_H
#define KORMAK_INSPECTION_REPORT_GRATICULE_P_H

#include <inspection/inspection_export.h>
#include <inspection/report/MapFrame_p.h>

#include <QString>

#include <vector>

namespace KORMAK::Inspection {

struct GraticuleLine {
    enum class Direction { Parallel, Meridian };

    Direction direction;
    double degrees; ///< its latitude or longitude
    std::vector<FrameLine> parts; ///< those in the frame
};

/// As many as a map can show without being crowded.
[[nodiscard]] INSPECTION_EXPORT std::vector<GraticuleLine> graticuleOf(const MapProjection &projection,
                                                                       const MapFrame &frame);

/// Of the lines of the finest graticule.
inline constexpr int GraticuleDecimals = 5;

/// "54.5° N", "0°", with at most so many decimals.
[[nodiscard]] INSPECTION_EXPORT QString latitudeText(double degrees, int decimals = GraticuleDecimals);
/// "7.25° E", "180°"
[[nodiscard]] INSPECTION_EXPORT QString longitudeText(double degrees, int decimals = GraticuleDecimals);

} // namespace KORMAK::Inspection

#endif
