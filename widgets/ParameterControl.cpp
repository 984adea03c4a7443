#include "widgets/ParameterControl.h"

#include <kormak/Parameter.h>
#include <widgets/MomentFormat_p.h>

#include <algorithm>
#include <iterator>

namespace KORMAK {

namespace {

/// The first row that a parameter fits is what it asks for; Invalid fits every type.
struct Row {
    ParameterType type;
    Parameter::ValueType valueType;
    Parameter::ControlType controlType;
    ParameterControl control;

    [[nodiscard]] bool fits(const Parameter &parameter) const
    {
        return type == parameter.GetParameterType()
            && (valueType == Parameter::InvalidValueType || valueType == parameter.GetValueType())
            && (controlType == Parameter::InvalidControlType || controlType == parameter.GetControlType())
            && (control != ParameterControl::Moment
                || Widgets::MomentFormat::PowerOfUnit(parameter.GetDisplaySuffix()));
    }
};

constexpr auto AnyValue = Parameter::InvalidValueType;
constexpr auto AnyControl = Parameter::InvalidControlType;

constexpr Row Rows[] = {
    {ParameterType::Boolean, AnyValue, AnyControl, ParameterControl::CheckBox},
    {ParameterType::Enum, AnyValue, AnyControl, ParameterControl::Choice},
    {ParameterType::String, AnyValue, AnyControl, ParameterControl::Text},
    {ParameterType::TimeStamp, AnyValue, Parameter::VCTimeEdit, ParameterControl::Moment},
    {ParameterType::TimeStamp, AnyValue, AnyControl, ParameterControl::Number},
    {ParameterType::DoubleList, Parameter::ValueFrequency, AnyControl, ParameterControl::FrequencyList},
    {ParameterType::DoubleList, AnyValue, Parameter::VCFrequency, ParameterControl::FrequencyList},
    {ParameterType::DoubleList, AnyValue, Parameter::VCLineEditFrequency, ParameterControl::FrequencyList},
    {ParameterType::DoubleList, AnyValue, AnyControl, ParameterControl::NumberList},
    {ParameterType::Long, Parameter::ValueFrequency, AnyControl, ParameterControl::Frequency},
    {ParameterType::Long, AnyValue, Parameter::VCFrequency, ParameterControl::Frequency},
    {ParameterType::Long, AnyValue, Parameter::VCLineEditFrequency, ParameterControl::Frequency},
    {ParameterType::Long, AnyValue, AnyControl, ParameterControl::Number},
    {ParameterType::Integer, Parameter::ValueFrequency, AnyControl, ParameterControl::Frequency},
    {ParameterType::Integer, AnyValue, Parameter::VCFrequency, ParameterControl::Frequency},
    {ParameterType::Integer, AnyValue, Parameter::VCLineEditFrequency, ParameterControl::Frequency},
    {ParameterType::Integer, AnyValue, AnyControl, ParameterControl::Number},
    {ParameterType::Float, Parameter::ValueFrequency, AnyControl, ParameterControl::Frequency},
    {ParameterType::Float, AnyValue, Parameter::VCFrequency, ParameterControl::Frequency},
    {ParameterType::Float, AnyValue, Parameter::VCLineEditFrequency, ParameterControl::Frequency},
    {ParameterType::Float, AnyValue, AnyControl, ParameterControl::Number},
    {ParameterType::Double, Parameter::ValueFrequency, AnyControl, ParameterControl::Frequency},
    {ParameterType::Double, AnyValue, Parameter::VCFrequency, ParameterControl::Frequency},
    {ParameterType::Double, AnyValue, Parameter::VCLineEditFrequency, ParameterControl::Frequency},
    {ParameterType::Double, AnyValue, AnyControl, ParameterControl::Number},
};

} // namespace

ParameterControl ParameterControlOf(const Parameter &parameter)
{
    const auto *const row = std::find_if(std::begin(Rows), std::end(Rows),
                                         [&parameter](const Row &one) { return one.fits(parameter); });
    return row == std::end(Rows) ? ParameterControl::None : row->control;
}

} // namespace KORMAK
