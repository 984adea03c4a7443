#ifndef KORMAK_INSPECTION_PARAMETERSUMMARY_H
#define KORMAK_INSPECTION_PARAMETERSUMMARY_H

#include <inspection/inspection_export.h>

#include <QString>

#include <optional>

namespace KORMAK {

class Parameter;

/// A parameter of a receiver as a data sheet shows it: what stands for its value, default and limits in the
/// unit that users see.
///
/// \snippet docs/InspectionSnippetsTest.cpp ParameterSummary
struct INSPECTION_EXPORT ParameterSummary {
    /// Of a parameter of no type: without a value and limits.
    explicit ParameterSummary(const Parameter &parameter);

    QString name; ///< for users: the display name or, where there is none, the unique name
    QString group; ///< the first part of the representation name; empty where it has only one
    QString value; ///< with its unit; empty: none
    QString defaultValue; ///< with its unit, where it is another one than the value; else empty
    QString minimum; ///< with its unit; empty: none
    QString maximum; ///< with its unit; empty: none
    QString range; ///< "0 to 30 dB"; empty: there are no limits
    std::optional<double> share; ///< where the value is between the limits, from 0 to 1
};

/// What stored numbers of \a parameter are divided by to be shown: its multiplier, and 1 where that is 0 or
/// no finite number.
[[nodiscard]] INSPECTION_EXPORT double DivisorOf(const Parameter &parameter);

/// The group of \a parameter, as ParameterSummary has it.
[[nodiscard]] INSPECTION_EXPORT QString GroupOf(const Parameter &parameter);

} // namespace KORMAK

#endif
