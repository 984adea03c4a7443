#ifndef KORMAK_NODOUBLEVALUE_P_H
#define KORMAK_NODOUBLEVALUE_P_H

namespace KORMAK {

/// The value of a DoubleHandler that has none.
inline constexpr double NoDoubleValue = -111111.11;

} // namespace KORMAK

#endif
