// The frequencies that a parameter of a receiver can be set to.
#ifndef KORMAK_INSPECTION_REPORT_FREQUENCYRANGE_P_H
#define KORMAK_INSPECTION_REPORT_FREQUENCYRANGE_P_H

#include <inspection/report/FrequencyAxis_p.h>
#include <kormak/Parameter.h>

#include <optional>

namespace KORMAK::Inspection {

/// Its limits in Hz, for a parameter that is a frequency in Hz, kHz, MHz or GHz and has limits.
[[nodiscard]] std::optional<FrequencyRange> frequencyRangeOf(const Parameter &parameter);

} // namespace KORMAK::Inspection

#endif
