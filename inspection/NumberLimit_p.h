// Which limits of a parameter are some.
#ifndef KORMAK_INSPECTION_NUMBERLIMIT_P_H
#define KORMAK_INSPECTION_NUMBERLIMIT_P_H

#include <cmath>
#include <limits>
#include <type_traits>

namespace KORMAK::Inspection {

/// The greatest number with a fraction, and the least, stand for none.
template <class Number>
[[nodiscard]] bool isLimit(Number value)
{
    return !std::is_floating_point_v<
               Number> || std::abs(static_cast<double>(value)) < static_cast<double>(std::numeric_limits<Number>::max());
}

} // namespace KORMAK::Inspection

#endif
