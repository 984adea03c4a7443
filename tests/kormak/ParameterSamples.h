// What the tests of receiver parameters share: parameters that are complete, and the whole state of a
// parameter as texts, so that a test can name everything that an operation changes.
#ifndef KORMAK_PARAMETERSAMPLES_H
#define KORMAK_PARAMETERSAMPLES_H

#include "../TestSupport.h"

#include <kormak/Parameter.h>

#include <QMap>
#include <QStringList>

namespace TestSupport {

/// A parameter whose protected operations are open.
class OpenParameter : public KORMAK::Parameter {
public:
    using Parameter::Parameter;
    explicit OpenParameter(const Parameter &other) : Parameter(other) { }

    using Parameter::ProcessDoubleList;
    using Parameter::ProcessEnumList;
    using Parameter::ProcessFloatList;
    using Parameter::ProcessIntegerList;
    using Parameter::ProcessLongList;
    using Parameter::ProcessStringList;
    using Parameter::ProcessTimeStampList;
    using Parameter::ProcessXmlStartElement;
    using Parameter::SetObjectName;
    using Parameter::SetParameterType;
};

/// The names of the parameter types, in order of value.
inline QStringList typeNames()
{
    return {"Boolean", "Long", "Integer", "String", "Double", "DoubleList", "Float", "Enum", "TimeStamp"};
}

inline constexpr int TypeCount = 9;
inline constexpr int NoType = -1;

inline KORMAK::ParameterType typeOf(int code)
{
    return static_cast<KORMAK::ParameterType>(code);
}

/// One row per parameter type: its code and the name of its handler.
inline void addTypes()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<QString>("handler");

    for (int type = 0; type < TypeCount; ++type) {
        const QString name = typeNames()[type];
        QTest::newRow(qPrintable(name)) << type << (name == "DoubleList" ? QString("Double") : name);
    }
}

inline KORMAK::EnumHandler::EnumValue enumValue(int key, const QString &name, double value,
                                                const QString &identifier = {},
                                                const QString &isDefault = "false")
{
    KORMAK::EnumHandler::EnumValue entry;
    entry.Key = key;
    entry.Name = name;
    entry.Identifier = identifier;
    entry.Value = value;
    entry.Default = isDefault;
    return entry;
}

inline QString describe(const KORMAK::EnumHandler::EnumValue &entry)
{
    return QString("%1|%2|%3|%4|%5")
        .arg(QString::number(entry.Key), entry.Name, entry.Identifier, QString::number(entry.Value, 'g', 17),
             entry.Default);
}

using State = QMap<QString, QString>;

namespace Detail {

inline QString stateText(long long number)
{
    return QString::number(number);
}

inline QString stateText(double number)
{
    return QString::number(number, 'g', 17);
}

inline QString stateText(float number)
{
    return QString::number(static_cast<double>(number), 'g', 9);
}

inline QString stateText(qint32 number)
{
    return QString::number(number);
}

inline QString stateText(bool on)
{
    return on ? "true" : "false";
}

inline void addNames(State &state, const QString &handlerName, const KORMAK::TypeHandler &handler)
{
    state[handlerName + ".UniqueName"] = handler.GetUniqueParameterName();
    state[handlerName + ".RepresentationName"] = handler.GetRepresentationName();
}

template <class Handler>
void addNumbers(State &state, const QString &handlerName, const Handler &handler)
{
    addNames(state, handlerName, handler);
    state[handlerName + ".Minimum"] = stateText(handler.GetMinimum());
    state[handlerName + ".Maximum"] = stateText(handler.GetMaximum());
    state[handlerName + ".Default"] = stateText(handler.GetDefault());
    state[handlerName + ".Value"] = stateText(handler.GetValue());
    state[handlerName + ".Multiplier"] = stateText(handler.GetMultiplier());
}

} // namespace Detail

/// Everything that can be seen of \a parameter.
inline State stateOf(const KORMAK::Parameter &parameter)
{
    using Detail::stateText;
    State state{
        {"ObjectName", parameter.GetObjectName()},
        {"BaseVersion", parameter.GetVersion()},
        {"UniqueName", parameter.GetUniqueParameterName()},
        {"RepresentationName", parameter.GetRepresenationName()},
        {"DisplayName", parameter.GetDisplayName()},
        {"DisplaySuffix", parameter.GetDisplaySuffix()},
        {"ToolTip", parameter.GetToolTip()},
        {"Multiplier", stateText(parameter.GetMultiplier())},
        {"Enable", stateText(parameter.IsEnabled())},
        {"ValueType", stateText(static_cast<qint32>(parameter.GetValueType()))},
        {"ControlType", stateText(static_cast<qint32>(parameter.GetControlType()))},
        {"ParameterType", stateText(static_cast<qint32>(parameter.GetParameterType()))},
    };

    Detail::addNames(state, "Boolean", parameter.GetBooleanHandler());
    state["Boolean.Value"] = stateText(parameter.GetBooleanHandler().GetValue());

    Detail::addNumbers(state, "Integer", parameter.GetIntegerHandler());
    Detail::addNumbers(state, "Long", parameter.GetLongHandler());
    Detail::addNumbers(state, "TimeStamp", parameter.GetTimeStampHandler());
    Detail::addNumbers(state, "Float", parameter.GetFloatHandler());
    state["Float.Precision"] = stateText(parameter.GetFloatHandler().GetPrecision());

    const auto &doubles = parameter.GetDoubleHandler();
    Detail::addNumbers(state, "Double", doubles);
    state["Double.Precision"] = stateText(doubles.GetPrecision());
    state["Double.IsList"] = stateText(doubles.IsDoubleList());
    state["Double.MaxLength"] = stateText(doubles.GetMaxDoubleListLength());
    QStringList numbers;
    for (const double number : doubles.GetDoubleList())
        numbers.append(stateText(number));
    state["Double.List"] = numbers.join(' ');

    const auto &strings = parameter.GetStringHandler();
    Detail::addNames(state, "String", strings);
    state["String.Default"] = strings.GetDefault();
    state["String.Value"] = strings.GetValue();

    const auto &enums = parameter.GetEnumHandler();
    Detail::addNames(state, "Enum", enums);
    QStringList entries;
    for (const auto &entry : enums.GetEnumList())
        entries.append(describe(entry));
    state["Enum.List"] = entries.join(' ');
    state["Enum.Default"] = describe(enums.GetDefaultValue());
    state["Enum.Selected"] = describe(enums.GetSelectedEnumValue());
    return state;
}

/// What differs, as "Key=value now", in order of the keys.
inline QStringList changes(const State &before, const State &now)
{
    QStringList list;
    for (auto entry = now.begin(); entry != now.end(); ++entry) {
        if (entry.value() != before.value(entry.key()))
            list.append(entry.key() + '=' + entry.value());
    }
    return list;
}

/// What differs from a new parameter.
inline QStringList changes(const KORMAK::Parameter &parameter)
{
    return changes(stateOf(KORMAK::Parameter()), stateOf(parameter));
}

/// What \a operation changes of \a parameter.
template <class SomeParameter, class Operation>
QStringList changesBy(SomeParameter &parameter, Operation operation)
{
    const State before = stateOf(parameter);
    operation(parameter);
    return changes(before, stateOf(parameter));
}

inline QStringList sorted(QStringList list)
{
    list.sort();
    return list;
}

/// A parameter of the type with nothing missing. Defaults and values are the same.
inline KORMAK::Parameter completeParameter(int type, const QString &uniqueName = "rx.gain",
                                           const QString &representationName = "Gain")
{
    KORMAK::Parameter parameter;
    parameter.SetParameterType(typeOf(type));
    parameter.SetValueType(KORMAK::Parameter::ValueNumericFloat);
    parameter.SetUniqueParameterName(uniqueName);
    parameter.SetRepresenationName(representationName);
    parameter.GetIntegerHandler().SetValue(0);
    parameter.GetLongHandler().SetValue(0);
    parameter.GetDoubleHandler().SetDefault(1.5);
    parameter.GetDoubleHandler().SetValue(1.5);
    if (parameter.IsDoubleList()) {
        parameter.GetDoubleHandler().SetUseAsList(true);
        parameter.GetDoubleHandler().SetMaxDoubleListLength(3);
    }
    parameter.GetStringHandler().SetDefault("text");
    parameter.GetStringHandler().SetValue("text");
    const auto first = enumValue(1, "Low", 0.5);
    const auto second = enumValue(2, "High", 1.5, "HI", "true");
    parameter.GetEnumHandler().AppendEnumValue(first);
    parameter.GetEnumHandler().AppendEnumValue(second);
    parameter.GetEnumHandler().SetDefaultValue(second);
    parameter.GetEnumHandler().SetSelectedEnumValue(second);
    return parameter;
}

} // namespace TestSupport

#endif
