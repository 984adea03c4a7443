// What a map of an area shows, and what is said below it, whatever it is drawn with.
#ifndef KORMAK_INSPECTION_REPORT_AREADRAWING_P_H
#define KORMAK_INSPECTION_REPORT_AREADRAWING_P_H

#include <inspection/inspection_export.h>
#include <inspection/report/AreaOutline_p.h>
#include <inspection/report/MapFrame_p.h>
#include <inspection/report/MapProjection_p.h>

#include <QString>

namespace KORMAK::Inspection {

/// In the middle of the points on the sphere; where they cancel out, the first of them.
[[nodiscard]] INSPECTION_EXPORT Place centreOf(const OutlineRing &points);

/// The outline with so many points between its own that its edges look as bent as they are.
[[nodiscard]] INSPECTION_EXPORT OutlineRing densified(const AreaOutline &outline);

/// How an area is drawn: round its middle, or, where it is not within a quarter of the earth's circumference
/// of it, on a map of all of the earth. There must be a point.
[[nodiscard]] INSPECTION_EXPORT MapProjection projectionFor(const AreaOutline &outline);
/// With room around the area to see where it is.
[[nodiscard]] INSPECTION_EXPORT MapFrame frameFor(const AreaOutline &outline, const MapProjection &projection,
                                                  const FrameSize &size);

/// The greatest of 1, 2, 5, 10, 20 and so on, or of their decimal parts, that is not above \a most.
[[nodiscard]] INSPECTION_EXPORT double roundNumber(double most);

/// The longest round distance of at most a third of the width, in km.
[[nodiscard]] INSPECTION_EXPORT double roundDistance(double widthInKilometres);

/// "50 km", "200 m".
[[nodiscard]] INSPECTION_EXPORT QString distanceText(double kilometres);

/// From where to where, and how large.
[[nodiscard]] INSPECTION_EXPORT QString extentText(const AreaOutline &outline);

/// What people should know of the outline; empty when there is nothing special about it.
[[nodiscard]] INSPECTION_EXPORT QString remarkOn(const AreaOutline &outline);

/// "54.5° N, 7.25° E", with at most four decimals.
[[nodiscard]] INSPECTION_EXPORT QString placeText(double latitude, double longitude);

} // namespace KORMAK::Inspection

#endif
