// A parameter of a receiver as a data sheet shows it: what stands for its value, default and limits in the
// unit that users see.
#ifndef KORMAK_INSPECTION_REPORT_PARAMETERSUMMARY_P_H
#define KORMAK_INSPECTION_REPORT_PARAMETERSUMMARY_P_H

#include <inspection/report/FrequencyAxis_p.h>
#include <kormak/Parameter.h>

#include <QString>

#include <optional>

namespace KORMAK::Inspection {

struct ParameterSummary {
    QString value; ///< with its unit; empty: none
    QString defaultValue; ///< where it is another one
    QString range; ///< "0 to 30 dB"; empty: there are no limits
    std::optional<double> share; ///< where the value is between the limits, from 0 to 1
};

[[nodiscard]] ParameterSummary summaryOf(const Parameter &parameter);

/// Its limits in Hz, for a parameter that is a frequency in Hz, kHz, MHz or GHz and has limits.
[[nodiscard]] std::optional<FrequencyRange> frequencyRangeOf(const Parameter &parameter);

/// The name that people see: the display name or, where there is none, the unique name.
[[nodiscard]] QString displayNameOf(const Parameter &parameter);

} // namespace KORMAK::Inspection

#endif
