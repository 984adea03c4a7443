#include "inspection/report/FrequencyRange_p.h"

#include <inspection/NumberLimit_p.h>
#include <inspection/ParameterNumbers_p.h>
#include <inspection/ParameterSummary.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace KORMAK::Inspection {

namespace {

template <class Handler>
FrequencyRange rangeOf(const Handler &handler, double hertz)
{
    const auto limit = [hertz](auto value) {
        const auto number = static_cast<double>(value);
        return isLimit(value) || std::isnan(number) ? number * hertz : std::copysign(HUGE_VAL, number);
    };
    return {{},
            limit(handler.GetMinimum()),
            limit(handler.GetMaximum()),
            static_cast<double>(handler.GetDefault()) * hertz};
}

} // namespace

std::optional<FrequencyRange> frequencyRangeOf(const Parameter &parameter)
{
    constexpr struct {
        QStringView suffix;
        double hertz;
    } Units[] = {{u"Hz", 1}, {u"kHz", 1e3}, {u"MHz", 1e6}, {u"GHz", 1e9}};
    const auto *const unit = std::find_if(std::begin(Units), std::end(Units), [&parameter](const auto &one) {
        return one.suffix == parameter.GetDisplaySuffix();
    });
    if (unit == std::end(Units) || parameter.GetValueType() != Parameter::ValueFrequency)
        return std::nullopt;
    if (parameter.IsTimeStamp() || parameter.IsDoubleList())
        return std::nullopt;
    const double hertz = unit->hertz / DivisorOf(parameter);
    return withNumbers<std::optional<FrequencyRange>>(parameter, [&](const auto &handler) {
        FrequencyRange range = rangeOf(handler, hertz);
        range.name = ParameterSummary(parameter).name;
        return range;
    });
}

} // namespace KORMAK::Inspection
