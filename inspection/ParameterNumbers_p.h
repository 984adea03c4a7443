// The handler of numbers that a parameter uses, whichever it is. Not installed.
#ifndef KORMAK_INSPECTION_PARAMETERNUMBERS_P_H
#define KORMAK_INSPECTION_PARAMETERNUMBERS_P_H

#include <kormak/Parameter.h>

namespace KORMAK::Inspection {

/// What \a visit makes of the handler of numbers that \a parameter uses; nothing when it uses none.
template <class Result, class Visitor>
[[nodiscard]] Result withNumbers(const Parameter &parameter, Visitor visit)
{
    switch (parameter.GetParameterType()) {
    case ParameterType::Long:
        return visit(parameter.GetLongHandler());
    case ParameterType::Integer:
        return visit(parameter.GetIntegerHandler());
    case ParameterType::Double:
    case ParameterType::DoubleList:
        return visit(parameter.GetDoubleHandler());
    case ParameterType::Float:
        return visit(parameter.GetFloatHandler());
    case ParameterType::TimeStamp:
        return visit(parameter.GetTimeStampHandler());
    case ParameterType::Boolean:
    case ParameterType::String:
    case ParameterType::Enum:
    case ParameterType::Invalid:
        break;
    }
    return Result();
}

} // namespace KORMAK::Inspection

#endif
