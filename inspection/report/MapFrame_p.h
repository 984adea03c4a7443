// The frame of a map: from points of the projection to its own units, cut off at its edges, and as coarse as
// it can show.
#ifndef KORMAK_INSPECTION_REPORT_MAPFRAME_P_H
#define KORMAK_INSPECTION_REPORT_MAPFRAME_P_H

#include <inspection/report/MapProjection_p.h>

#include <QString>

#include <vector>

namespace KORMAK::Inspection {

/// In units of the frame; x to the right, y downwards.
struct FramePoint {
    double x;
    double y;
};

using FrameLine = std::vector<FramePoint>;

class MapFrame {
public:
    static constexpr double Width = 800;
    static constexpr double Height = 600;

    /// \a unitsPerRadius: how many units the radius of the earth takes.
    MapFrame(const MapPoint &centreOfMap, double unitsPerRadius) : centre(centreOfMap), scale(unitsPerRadius)
    {
    }

    [[nodiscard]] FramePoint place(const MapPoint &point) const noexcept
    {
        return {Width / 2 + (point.x - centre.x) * scale, Height / 2 - (point.y - centre.y) * scale};
    }
    [[nodiscard]] MapPoint pointAt(const FramePoint &place) const noexcept
    {
        return {centre.x + (place.x - Width / 2) / scale, centre.y - (place.y - Height / 2) / scale};
    }
    /// From the centre of the map to the corner that is farthest from it, in radii of the earth.
    [[nodiscard]] double reach() const noexcept;
    [[nodiscard]] double kilometresPerUnit() const noexcept { return EarthRadius / scale; }

    [[nodiscard]] static bool holds(const FramePoint &point) noexcept;
    /// The part of a polygon in the frame and a little around it.
    [[nodiscard]] static FrameLine clippedPolygon(FrameLine polygon);
    /// The parts of a line, likewise.
    [[nodiscard]] static std::vector<FrameLine> clippedLine(const FrameLine &line);

private:
    MapPoint centre;
    double scale;
};

/// The path of SVG along \a line, with points no nearer than \a step, a whole number of which all coordinates
/// are; closed when it is a polygon. Empty when nothing is left of it.
enum class PathEnd { Open, Closed };
[[nodiscard]] QString svgPath(const FrameLine &line, PathEnd end, double step);

} // namespace KORMAK::Inspection

#endif
