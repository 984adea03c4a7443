// A direction as a compass rose.
#ifndef KORMAK_INSPECTION_REPORT_COMPASSROSE_P_H
#define KORMAK_INSPECTION_REPORT_COMPASSROSE_P_H

#include <inspection/report/Html_p.h>

#include <QString>

namespace KORMAK::Inspection {

/// \a degrees clockwise from north, which may be beyond a full turn. Nothing for what is no number.
void writeCompassRose(Html &html, double degrees, const QString &caption);

/// The nearest of 16 directions: "north-northeast". \a degrees is finite.
[[nodiscard]] QString directionText(double degrees);

} // namespace KORMAK::Inspection

#endif
