#ifndef KORMAK_WIDGETS_PARAMETERCONTROL_H
#define KORMAK_WIDGETS_PARAMETERCONTROL_H

#include <widgets/widgets_export.h>

#include <QtGlobal>

namespace KORMAK {

class Parameter;

/// What people edit the value of a parameter with.
enum class ParameterControl : qint32 {
    None, ///< nothing: the parameter has no type, and no value
    CheckBox, ///< on or off
    Choice, ///< one of the entries of an enumeration
    Number, ///< a number
    Frequency, ///< a frequency, which may be typed in any unit
    Moment, ///< a date and a time in UTC
    Text, ///< any text
    NumberList, ///< numbers, parted by semicolons
    FrequencyList, ///< frequencies, parted by semicolons
};

/// What \a parameter asks for by its type, value type, control type and unit: a time stamp, for example, is
/// edited as a date and time when its control type says so and its unit is one of time, and else as a number.
[[nodiscard]] WIDGETS_EXPORT ParameterControl ParameterControlOf(const Parameter &parameter);

} // namespace KORMAK

#endif
