// The frame of a map: from points of the projection to its own units, cut off at its edges, and as coarse as
// it can show.
#ifndef KORMAK_INSPECTION_REPORT_MAPFRAME_P_H
#define KORMAK_INSPECTION_REPORT_MAPFRAME_P_H

#include <inspection/inspection_export.h>
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

struct FrameSize {
    double width;
    double height;
};

class INSPECTION_EXPORT MapFrame {
public:
    /// Of the maps of pages.
    static constexpr double Width = 800;
    static constexpr double Height = 600;

    /// \a unitsPerRadius: how many units the radius of the earth takes.
    MapFrame(const MapPoint &centreOfMap, double unitsPerRadius, const FrameSize &size = {Width, Height})
        : centre(centreOfMap), scale(unitsPerRadius), frame(size)
    {
    }

    [[nodiscard]] double width() const noexcept { return frame.width; }
    [[nodiscard]] double height() const noexcept { return frame.height; }

    [[nodiscard]] FramePoint place(const MapPoint &point) const noexcept
    {
        return {frame.width / 2 + (point.x - centre.x) * scale,
                frame.height / 2 - (point.y - centre.y) * scale};
    }
    [[nodiscard]] MapPoint pointAt(const FramePoint &place) const noexcept
    {
        return {centre.x + (place.x - frame.width / 2) / scale,
                centre.y - (place.y - frame.height / 2) / scale};
    }
    /// From the centre of the map to the corner that is farthest from it, in radii of the earth.
    [[nodiscard]] double reach() const noexcept;
    [[nodiscard]] double kilometresPerUnit() const noexcept { return EarthRadius / scale; }

    [[nodiscard]] bool holds(const FramePoint &point) const noexcept;
    /// The part of a polygon in the frame and a little around it.
    [[nodiscard]] FrameLine clippedPolygon(FrameLine polygon) const;
    /// The parts of a line, likewise.
    [[nodiscard]] std::vector<FrameLine> clippedLine(const FrameLine &line) const;

private:
    MapPoint centre;
    double scale;
    FrameSize frame;
};

/// The path of SVG along \a line, with points no nearer than \a step, a whole number of which all coordinates
/// are; closed when it is a polygon. Empty when nothing is left of it.
enum class PathEnd { Open, Closed };
[[nodiscard]] QString svgPath(const FrameLine &line, PathEnd end, double step);

} // namespace KORMAK::Inspection

#endif
