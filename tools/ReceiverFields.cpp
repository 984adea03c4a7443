#include <kormak/GenericReceiver.h>
#include <tools/DocumentFields.h>

#include <limits>
#include <type_traits>

using namespace KORMAK;

namespace {

using Fields = std::vector<Field>;

/// For what few parameters have: a receiver has many parameters.
void addIfSet(Fields &fields, const QString &label, const FieldValue &value)
{
    if (value)
        fields.push_back({label, value});
}

/// The limits that reading leaves in floating-point numbers when the document has none.
template <class Number>
bool isLimited(Number limit)
{
    constexpr Number Most = std::numeric_limits<Number>::max();
    return !std::is_floating_point_v<Number> || (limit != Most && limit != -Most);
}

template <class Number>
FieldValue limits(Number minimum, Number maximum)
{
    if (isLimited(minimum) && isLimited(maximum))
        return QStringLiteral("%1 to %2").arg(*number(minimum), *number(maximum));
    if (isLimited(minimum))
        return QStringLiteral("at least %1").arg(*number(minimum));
    if (isLimited(maximum))
        return QStringLiteral("at most %1").arg(*number(maximum));
    return QStringLiteral("none");
}

template <class Handler>
void addNumbers(Fields &fields, const Handler &handler)
{
    fields.push_back({QStringLiteral("Limits"), limits(handler.GetMinimum(), handler.GetMaximum())});
    fields.push_back({QStringLiteral("Default"), number(handler.GetDefault())});
}

template <class Handler>
void addDecimals(Fields &fields, const Handler &handler)
{
    fields.push_back({QStringLiteral("Decimals"), number(handler.GetPrecision())});
}

void addEntries(Fields &fields, const EnumHandler &handler)
{
    for (const EnumHandler::EnumValue &entry : handler.GetEnumList()) {
        QString text = entry.Name + QStringLiteral(" (") + *number(entry.Value);
        if (!entry.Identifier.isEmpty())
            text += QStringLiteral(", ") + entry.Identifier;
        text += QLatin1Char(')');
        if (entry == handler.GetDefaultValue())
            text += QStringLiteral(", default");
        fields.push_back({QStringLiteral("Entry %1").arg(entry.Key), text});
    }
}

void addValue(Fields &fields, const Parameter &parameter)
{
    switch (parameter.GetParameterType()) {
    case ParameterType::Boolean:
        fields.push_back({QStringLiteral("Value"), yesOrNo(parameter.GetBooleanHandler().GetValue())});
        break;
    case ParameterType::Long:
        addNumbers(fields, parameter.GetLongHandler());
        break;
    case ParameterType::Integer:
        addNumbers(fields, parameter.GetIntegerHandler());
        break;
    case ParameterType::String:
        fields.push_back({QStringLiteral("Default"), textValue(parameter.GetStringHandler().GetDefault())});
        break;
    case ParameterType::Double:
    case ParameterType::DoubleList:
        addNumbers(fields, parameter.GetDoubleHandler());
        addDecimals(fields, parameter.GetDoubleHandler());
        break;
    case ParameterType::Float:
        addNumbers(fields, parameter.GetFloatHandler());
        addDecimals(fields, parameter.GetFloatHandler());
        break;
    case ParameterType::Enum:
        addEntries(fields, parameter.GetEnumHandler());
        break;
    case ParameterType::TimeStamp:
        addNumbers(fields, parameter.GetTimeStampHandler());
        break;
    case ParameterType::Invalid:
        break;
    }
    if (parameter.IsDoubleList()) {
        fields.push_back({QStringLiteral("Maximum length"),
                          number(parameter.GetDoubleHandler().GetMaxDoubleListLength())});
    }
}

/// All but the unique name.
Fields settingsOf(const Parameter &parameter)
{
    const bool hasValueType = parameter.GetValueType() != Parameter::InvalidValueType;
    Fields fields{{QStringLiteral("Representation name"), textValue(parameter.GetRepresenationName())}};
    addIfSet(fields, QStringLiteral("Display name"), textValue(parameter.GetDisplayName()));
    addIfSet(fields, QStringLiteral("Tool tip"), textValue(parameter.GetToolTip()));
    fields.push_back(
        {QStringLiteral("Value type"),
         hasValueType ? FieldValue(parameter.ValueTypeToName(parameter.GetValueType())) : std::nullopt});
    if (parameter.HasControlType()) {
        fields.push_back(
            {QStringLiteral("Control type"), parameter.ControlTypeToName(parameter.GetControlType())});
    }
    addIfSet(fields, QStringLiteral("Unit"), textValue(parameter.GetDisplaySuffix()));
    if (parameter.GetMultiplier() != 1.0)
        fields.push_back({QStringLiteral("Multiplier"), number(parameter.GetMultiplier())});
    if (!parameter.IsEnabled())
        fields.push_back({QStringLiteral("Enabled"), yesOrNo(false)});
    fields.push_back(
        {QStringLiteral("Parameter type"), textValue(ParameterTypeToName(parameter.GetParameterType()))});
    addValue(fields, parameter);
    return fields;
}

QString labelOf(const QString &uniqueName)
{
    return uniqueName.isEmpty() ? QStringLiteral("(no unique name)") : uniqueName;
}

} // namespace

Fields fieldsOf(const Parameter &parameter)
{
    Fields fields = settingsOf(parameter);
    fields.insert(fields.begin(),
                  {QStringLiteral("Unique name"), textValue(parameter.GetUniqueParameterName())});
    return fields;
}

Fields fieldsOf(const GenericReceiver &receiver)
{
    const auto &parameters = receiver.GetParameterList();
    Fields fields{
        {QStringLiteral("Version"), textValue(receiver.GetVersion())},
        {QStringLiteral("Parameters"), number(parameters.size())},
    };
    for (auto entry = parameters.constBegin(); entry != parameters.constEnd(); ++entry)
        fields.push_back(group(labelOf(entry.key()), settingsOf(*entry)));
    return fields;
}
