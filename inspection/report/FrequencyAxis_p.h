// Ranges of frequencies on one logarithmic axis from VLF to SHF, with the names of the bands.
#ifndef KORMAK_INSPECTION_REPORT_FREQUENCYAXIS_P_H
#define KORMAK_INSPECTION_REPORT_FREQUENCYAXIS_P_H

#include <inspection/report/Html_p.h>

#include <QString>

#include <limits>
#include <vector>

namespace KORMAK::Inspection {

/// In Hz; NaN: not set.
struct FrequencyRange {
    QString name;
    double least;
    double most;
    double standard = std::numeric_limits<double>::quiet_NaN(); ///< the default
};

/// \a caption tells what ranges they are. Where one reaches beyond the axis, an arrow says so.
void writeFrequencyAxis(Html &html, const std::vector<FrequencyRange> &ranges, const QString &caption);

/// In the largest unit that fits: "1.5 MHz"
[[nodiscard]] QString frequencyText(double hertz);

} // namespace KORMAK::Inspection

#endif
