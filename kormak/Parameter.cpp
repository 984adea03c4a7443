#include "kormak/Parameter.h"

#include <kormak/HandlerSlot_p.h>
#include <kormak/Vocabularies_p.h>
#include <objectbase/Constants_p.h>
#include <objectbase/Debug_p.h>
#include <objectbase/DocumentXml_p.h>
#include <objectbase/Messages_p.h>
#include <objectbase/Text_p.h>

#include <type_traits>

namespace KORMAK {

using namespace TESSEL;

namespace {

[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;
[[maybe_unused]] constexpr QStringView DateTimeFormat = u"yyyy-MM-ddThh:mm:ss,zzzZ";
[[maybe_unused]] constexpr QStringView TimeFormat = u"hh:mm:ss,zzz";

constexpr QStringView ObjectName = u"Parameter";

constexpr VocabularyRow<ParameterType> ParameterTypeRows[] = {
    {ParameterType::Boolean, u"Boolean", {}}, {ParameterType::Long, u"Long"},
    {ParameterType::Integer, u"Integer"},     {ParameterType::String, u"String"},
    {ParameterType::Double, u"Double"},       {ParameterType::DoubleList, u"DoubleList"},
    {ParameterType::Float, u"Float"},         {ParameterType::Enum, u"Enum"},
    {ParameterType::TimeStamp, u"TimeStamp"},
};
constexpr Vocabulary ParameterTypes{ParameterTypeRows};

constexpr VocabularyRow<Parameter::ValueType> ValueTypeRows[] = {
    {Parameter::ValueSelection, u"ValueSelection"},   {Parameter::ValueBoolean, u"ValueBoolean"},
    {Parameter::ValueNumericInt, u"ValueNumericInt"}, {Parameter::ValueNumericFloat, u"ValueNumericFloat"},
    {Parameter::ValueString, u"ValueString"},         {Parameter::ValueNumericInt64, u"ValueNumericInt64"},
    {Parameter::ValueFrequency, u"ValueFrequency"},   {Parameter::ValueFloatList, u"ValueFloatList"},
};
constexpr Vocabulary ValueTypes{ValueTypeRows};

constexpr VocabularyRow<Parameter::ControlType> ControlTypeRows[] = {
    {Parameter::VCFrequency, u"VCFrequency"},
    {Parameter::VCLineEdit, u"VCLineEdit"},
    {Parameter::VCLineEditFrequency, u"VCLineEditFrequency"},
    {Parameter::VCTimeEdit, u"VCTimeEdit"},
};
constexpr Vocabulary ControlTypes{ControlTypeRows};

template <class Handler, class = void>
constexpr bool HasMultiplier = false;
template <class Handler>
constexpr bool HasMultiplier<Handler, std::void_t<decltype(&Handler::SetMultiplier)>> = true;

} // namespace

NameTable parameterTypes()
{
    return ParameterTypes.table();
}

NameTable valueTypes()
{
    return ValueTypes.table();
}

NameTable controlTypes()
{
    return ControlTypes.table();
}

QString ParameterTypeToName(ParameterType type)
{
    return ParameterTypes.nameOf(type);
}

ParameterType NameToParameterType(const QString &name)
{
    return ParameterTypes.valueOf(name);
}

/// The one place that knows which handler a parameter type selects: the result of \a visit, called with the
/// member, or a default result when no type is set.
template <class Visitor>
auto Parameter::visitHandler(Visitor visit) const
{
    switch (parameterType) {
    case ParameterType::Boolean:
        return visit(&Parameter::booleanHandler);
    case ParameterType::Long:
        return visit(&Parameter::longHandler);
    case ParameterType::Integer:
        return visit(&Parameter::integerHandler);
    case ParameterType::String:
        return visit(&Parameter::stringHandler);
    case ParameterType::Double:
    case ParameterType::DoubleList:
        return visit(&Parameter::doubleHandler);
    case ParameterType::Float:
        return visit(&Parameter::floatHandler);
    case ParameterType::Enum:
        return visit(&Parameter::enumHandler);
    case ParameterType::TimeStamp:
        return visit(&Parameter::timeStampHandler);
    case ParameterType::Invalid:
        break;
    }
    return decltype(visit(&Parameter::booleanHandler))();
}

Parameter::Parameter()
    : valueTypeNames(shared([] { return ValueTypes.names(); })),
      controlTypeNames(shared([] { return ControlTypes.names(); }))
{
    SetObjectName(shared([] { return ObjectName.toString(); }));
    Parameter::Reset();
}

Parameter::Parameter(const Parameter &other) = default;

Parameter &Parameter::operator=(const Parameter &other) = default;

Parameter::~Parameter() = default;

void Parameter::SetUniqueParameterName(const QString &name)
{
    uniqueName = name;
    visitHandler([this](auto handler) { (this->*handler).edit().SetUniqueParameterName(uniqueName); });
}

void Parameter::SetRepresenationName(const QString &name)
{
    representationName = name;
    visitHandler([this](auto handler) { (this->*handler).edit().SetRepresentationName(representationName); });
}

void Parameter::SetDisplayName(const QString &text)
{
    displayName = text;
}

void Parameter::SetDisplaySuffix(const QString &text)
{
    displaySuffix = QString::fromLatin1(text.toLatin1().constData()); // Qt 5 ends at a NUL in any case
}

void Parameter::SetToolTip(const QString &text)
{
    toolTip = text;
}

void Parameter::SetMultiplier(double factor)
{
    multiplier = factor;
    visitHandler([this](auto handler) {
        if constexpr (HasMultiplier<std::decay_t<decltype((this->*handler).look())>>)
            (this->*handler).edit().SetMultiplier(multiplier);
    });
}

void Parameter::SetParameterType(const ParameterType &type)
{
    parameterType = type;
}

void Parameter::SetParameterType(const QString &name)
{
    const ParameterType type = NameToParameterType(name);
    if (ParameterTypes.isValid(type))
        parameterType = type;
}

void Parameter::SetValueType(const ValueType &type)
{
    valueType = type;
}

void Parameter::SetControlType(const ControlType &type)
{
    controlType = type;
}

bool Parameter::IsValidValueType(ValueType type)
{
    return ValueTypes.isValid(type);
}

bool Parameter::IsValidControlType(ControlType type)
{
    return ControlTypes.isValid(type);
}

Parameter::ValueType Parameter::ToValueType(const QString &name) const
{
    return ValueTypes.valueOf(name);
}

Parameter::ControlType Parameter::ToControlType(const QString &name) const
{
    return ControlTypes.valueOf(name);
}

Parameter::ValueType Parameter::NameToValueType(const QString &name) const
{
    const ValueType type = ToValueType(name);
    if (!IsValidValueType(type))
        fail(Messages::invalid(GetObjectName(), u"ValueType", name));
    return type;
}

Parameter::ControlType Parameter::NameToControlType(const QString &name) const
{
    const ControlType type = ToControlType(name);
    if (!IsValidControlType(type))
        fail(Messages::invalid(GetObjectName(), u"ValueType", name)); // applications look for this text
    return type;
}

const QString &Parameter::ValueTypeToName(ValueType type) const
{
    if (!IsValidValueType(type))
        fail(Messages::invalid(GetObjectName(), u"ValueType", numberText(type)));
    return valueTypeNames.at(type);
}

const QString &Parameter::ControlTypeToName(ControlType type) const
{
    if (!IsValidControlType(type))
        fail(Messages::invalid(GetObjectName(), u"ControlType", numberText(type)));
    return controlTypeNames.at(type);
}

BooleanHandler &Parameter::GetBooleanHandler()
{
    return booleanHandler.lend();
}

const BooleanHandler &Parameter::GetBooleanHandler() const
{
    return booleanHandler.lend();
}

void Parameter::SetBooleanHandler(const BooleanHandler &handler)
{
    booleanHandler = handler;
}

IntegerHandler &Parameter::GetIntegerHandler()
{
    return integerHandler.lend();
}

const IntegerHandler &Parameter::GetIntegerHandler() const
{
    return integerHandler.lend();
}

void Parameter::SetIntegerHandler(const IntegerHandler &handler)
{
    integerHandler = handler;
}

LongHandler &Parameter::GetLongHandler()
{
    return longHandler.lend();
}

const LongHandler &Parameter::GetLongHandler() const
{
    return longHandler.lend();
}

void Parameter::SetLongHandler(const LongHandler &handler)
{
    longHandler = handler;
}

FloatHandler &Parameter::GetFloatHandler()
{
    return floatHandler.lend();
}

const FloatHandler &Parameter::GetFloatHandler() const
{
    return floatHandler.lend();
}

void Parameter::SetFloatHandler(const FloatHandler &handler)
{
    floatHandler = handler;
}

DoubleHandler &Parameter::GetDoubleHandler()
{
    return doubleHandler.lend();
}

const DoubleHandler &Parameter::GetDoubleHandler() const
{
    return doubleHandler.lend();
}

void Parameter::SetDoubleHandler(const DoubleHandler &handler)
{
    doubleHandler = handler;
}

StringHandler &Parameter::GetStringHandler()
{
    return stringHandler.lend();
}

const StringHandler &Parameter::GetStringHandler() const
{
    return stringHandler.lend();
}

void Parameter::SetStringHandler(const StringHandler &handler)
{
    stringHandler = handler;
}

TimeStampHandler &Parameter::GetTimeStampHandler()
{
    return timeStampHandler.lend();
}

const TimeStampHandler &Parameter::GetTimeStampHandler() const
{
    return timeStampHandler.lend();
}

void Parameter::SetTimeStampHandler(const TimeStampHandler &handler)
{
    timeStampHandler = handler;
}

EnumHandler &Parameter::GetEnumHandler()
{
    return enumHandler.lend();
}

const EnumHandler &Parameter::GetEnumHandler() const
{
    return enumHandler.lend();
}

void Parameter::SetEnumHandler(const EnumHandler &handler)
{
    enumHandler = handler;
}

bool Parameter::IsValidParameter() const
{
    return visitHandler([this](auto handler) { return (this->*handler).look().HasData(); });
}

bool Parameter::operator==(const Parameter &other) const
{
    return uniqueName == other.uniqueName && representationName == other.representationName
        && parameterType == other.parameterType && displayName == other.displayName
        && enabled == other.enabled
        && visitHandler([&](auto handler) { return (this->*handler).look() == (other.*handler).look(); });
}

bool Parameter::AnyData() const
{
    return !representationName.isEmpty() || parameterType != ParameterType::Invalid
        || valueType != InvalidValueType || IsValidParameter();
}

void Parameter::Reset()
{
    version = defaultVersion();
    uniqueName.clear();
    representationName.clear();
    displayName.clear();
    displaySuffix.clear();
    toolTip.clear();
    enabled = true;
    multiplier = 1.0;
    valueType = InvalidValueType;
    controlType = InvalidControlType;
    parameterType = ParameterType::Invalid;
    booleanHandler.reset();
    enumHandler.reset();
    integerHandler.reset();
    doubleHandler.reset();
    longHandler.reset();
    stringHandler.reset();
    floatHandler.reset();
    timeStampHandler.reset();
}

QDebug operator<<(QDebug debug, ParameterType value)
{
    return TESSEL::printName(debug, ParameterTypes.table(), value);
}

QDebug operator<<(QDebug debug, Parameter::ValueType value)
{
    return TESSEL::printName(debug, ValueTypes.table(), value);
}

QDebug operator<<(QDebug debug, Parameter::ControlType value)
{
    return TESSEL::printName(debug, ControlTypes.table(), value);
}

QDebug operator<<(QDebug debug, const Parameter &object)
{
    return TESSEL::printDocument(debug, object);
}

} // namespace KORMAK
