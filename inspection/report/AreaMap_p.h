// The map of an area: its outline over the coastlines, with a graticule, a scale and its extent in words.
#ifndef KORMAK_INSPECTION_REPORT_AREAMAP_P_H
#define KORMAK_INSPECTION_REPORT_AREAMAP_P_H

#include <inspection/report/Html_p.h>

namespace TESSEL {
class Area;
}

namespace KORMAK::Inspection {

/// A figure; where there is nothing to draw, a paragraph that says why.
void writeAreaMap(Html &html, const TESSEL::Area &area);

} // namespace KORMAK::Inspection

#endif
