#include "Lean.h"

#include <kormak/GenericReceiver.h>

#include <QStringList>
#include <QXmlStreamReader>

#include <algorithm>

namespace Lean {

bool Entry::operator==(const Entry &other) const
{
    return key == other.key && name == other.name && identifier == other.identifier && value == other.value
        && isDefault == other.isDefault;
}

bool WholeNumber::operator==(const WholeNumber &other) const
{
    return minimum == other.minimum && maximum == other.maximum && standard == other.standard;
}

bool RealNumber::operator==(const RealNumber &other) const
{
    return minimum == other.minimum && maximum == other.maximum && standard == other.standard
        && precision == other.precision && maximumLength == other.maximumLength;
}

bool Parameter::operator==(const Parameter &other) const
{
    return version == other.version && uniqueName == other.uniqueName
        && representationName == other.representationName && displayName == other.displayName
        && toolTip == other.toolTip && displaySuffix == other.displaySuffix && multiplier == other.multiplier
        && type == other.type && valueType == other.valueType && controlType == other.controlType
        && enabled == other.enabled && value == other.value;
}

bool Receiver::operator==(const Receiver &other) const
{
    return version == other.version && parameters == other.parameters;
}

QStringView blockName(Type type)
{
    return TypeNames[type == DoubleList ? Double : type];
}

namespace {

template <class Handler>
WholeNumber wholeNumberOf(const Handler &handler)
{
    return {handler.GetMinimum(), handler.GetMaximum(), handler.GetDefault()};
}

template <class Handler>
RealNumber realNumberOf(const Handler &handler)
{
    return {static_cast<double>(handler.GetMinimum()), static_cast<double>(handler.GetMaximum()),
            static_cast<double>(handler.GetDefault()), handler.GetPrecision(), 0};
}

Parameter parameterOf(const KORMAK::Parameter &parameter)
{
    Parameter lean;
    lean.version = QStringLiteral("1.0"); // the library keeps it to itself
    lean.uniqueName = parameter.GetUniqueParameterName();
    lean.representationName = parameter.GetRepresenationName();
    lean.displayName = parameter.GetDisplayName();
    lean.toolTip = parameter.GetToolTip();
    lean.displaySuffix = parameter.GetDisplaySuffix();
    lean.multiplier = parameter.GetMultiplier();
    lean.type = static_cast<Type>(parameter.GetParameterType());
    lean.valueType = parameter.GetValueType();
    lean.controlType = parameter.GetControlType();
    lean.enabled = parameter.IsEnabled();
    switch (lean.type) {
    case Boolean:
        lean.value = parameter.GetBooleanHandler().GetValue();
        break;
    case Long:
        lean.value = wholeNumberOf(parameter.GetLongHandler());
        break;
    case Integer:
        lean.value = wholeNumberOf(parameter.GetIntegerHandler());
        break;
    case TimeStamp:
        lean.value = wholeNumberOf(parameter.GetTimeStampHandler());
        break;
    case Float:
        lean.value = realNumberOf(parameter.GetFloatHandler());
        break;
    case Double:
        lean.value = realNumberOf(parameter.GetDoubleHandler());
        break;
    case DoubleList: {
        RealNumber number = realNumberOf(parameter.GetDoubleHandler());
        number.maximumLength = parameter.GetDoubleHandler().GetMaxDoubleListLength();
        lean.value = number;
        break;
    }
    case String:
        lean.value = parameter.GetStringHandler().GetDefault();
        break;
    case Enum: {
        QVector<Entry> entries;
        for (const auto &entry : parameter.GetEnumHandler().GetEnumList())
            entries.append({entry.Key, entry.Name, entry.Identifier, entry.Value, entry.IsDefault()});
        lean.value = entries;
        break;
    }
    case NoType:
        break;
    }
    return lean;
}

} // namespace

Receiver receiverOf(const KORMAK::GenericReceiver &receiver)
{
    Receiver lean;
    lean.version = receiver.GetVersion();
    for (const KORMAK::Parameter &parameter : receiver.GetParameterList())
        lean.parameters.insert(parameter.GetUniqueParameterName(), parameterOf(parameter));
    return lean;
}

QStringList contentOf(const QString &document)
{
    QXmlStreamReader reader(document);
    QStringList content;
    while (!reader.atEnd()) {
        switch (reader.readNext()) {
        case QXmlStreamReader::StartElement: {
            content << '<' + reader.name().toString();
            QStringList attributes;
            for (const QXmlStreamAttribute &attribute : reader.attributes())
                attributes << attribute.name().toString() + '=' + attribute.value().toString();
            attributes.sort();
            content << attributes;
            break;
        }
        case QXmlStreamReader::EndElement:
            content << QStringLiteral(">");
            break;
        case QXmlStreamReader::Characters:
            if (!reader.isWhitespace())
                content << reader.text().toString();
            break;
        default:
            break;
        }
    }
    if (reader.hasError())
        content << reader.errorString();
    return content;
}

} // namespace Lean
