#include "models/ParameterValue_p.h"

#include <inspection/Field.h>
#include <inspection/NumberLimit_p.h>
#include <inspection/ParameterNumbers_p.h>

#include <type_traits>

namespace KORMAK {

namespace {

using Change = DocumentEdit::Change;
using Action = Change::Action;

/// Whole numbers of all lengths as qint64.
template <class Number>
QVariant variantOf(Number number)
{
    if constexpr (std::is_integral_v<Number>)
        return QVariant(static_cast<qint64>(number));
    else
        return QVariant(number);
}

template <class Number>
QVariant limitOf(Number number)
{
    return Inspection::isLimit(number) ? variantOf(number) : QVariant();
}

template <class Handler>
void addNumber(ParameterValue &value, const Handler &handler)
{
    value.value = variantOf(handler.GetDefault());
    value.minimum = limitOf(handler.GetMinimum());
    value.maximum = limitOf(handler.GetMaximum());
    if constexpr (std::is_floating_point_v<std::decay_t<decltype(handler.GetDefault())>>)
        value.precision = handler.GetPrecision();
}

/// The entry that is the default. Among equal ones, that is the one that is marked last or, when none is, the
/// first.
int entryOf(const EnumHandler &handler)
{
    const auto &entries = handler.GetEnumList();
    const auto &standard = handler.GetDefaultValue();
    const auto place = standard.IsDefault() ? entries.lastIndexOf(standard) : entries.indexOf(standard);
    return static_cast<int>(place);
}

QVariantList numbersOf(const DoubleHandler &handler)
{
    QVariantList numbers;
    for (const double number : handler.GetDoubleList())
        numbers += number;
    return numbers;
}

std::optional<QVector<Change>> changesToEntry(const QVariant &wanted, const EnumHandler &handler,
                                              const QString &prefix)
{
    const auto &entries = handler.GetEnumList();
    int place = -1;
    if (wanted.userType() == QMetaType::QString) {
        for (int i = static_cast<int>(entries.size()) - 1; i >= 0; --i) {
            if (entries.at(i).Name == wanted.toString())
                place = i;
        }
    } else {
        bool isNumber = false;
        place = wanted.toInt(&isNumber);
        place = isNumber ? place : -1;
    }
    if (place < 0 || place >= static_cast<int>(entries.size()))
        return std::nullopt;
    if (place == entryOf(handler))
        return QVector<Change>();
    QVector<Change> changes;
    for (int i = 0; i < static_cast<int>(entries.size()); ++i) {
        const QString path = prefix + QStringLiteral("Enum.EnumValue[%1].Default").arg(i);
        if (i == place)
            changes.push_back({Action::Set, path, QStringLiteral("true")});
        else if (entries.at(i).IsDefault())
            changes.push_back({Action::Unset, path, {}});
    }
    return changes;
}

} // namespace

ParameterValue::ParameterValue(const Parameter &parameter)
{
    switch (parameter.GetParameterType()) {
    case ParameterType::Boolean:
        value = parameter.GetBooleanHandler().GetValue();
        path = QStringLiteral("Boolean.Value");
        break;
    case ParameterType::DoubleList:
        addNumber(*this, parameter.GetDoubleHandler());
        value = numbersOf(parameter.GetDoubleHandler());
        break;
    case ParameterType::String:
        value = parameter.GetStringHandler().GetDefault();
        path = QStringLiteral("String.Default");
        break;
    case ParameterType::Enum:
        value = entryOf(parameter.GetEnumHandler());
        break;
    default:
        Inspection::withNumbers<void>(parameter, [&](const auto &handler) {
            addNumber(*this, handler);
            path = ParameterTypeToName(parameter.GetParameterType()) + QStringLiteral(".Default");
        });
        break;
    }
}

std::optional<QVector<DocumentEdit::Change>>
ParameterValue::changesTo(const QVariant &wanted, const Parameter &parameter, const QString &prefix)
{
    if (parameter.IsEnum())
        return changesToEntry(wanted, parameter.GetEnumHandler(), prefix);
    const QString path = ParameterValue(parameter).path;
    if (path.isEmpty())
        return std::nullopt;
    if (!wanted.isValid())
        return QVector<Change>{{Action::Unset, prefix + path, {}}};
    return QVector<Change>{{Action::Set, prefix + path, Field::TextOf(wanted)}};
}

bool ParameterValue::isSettable(const Parameter &parameter)
{
    return parameter.IsEnum() ? parameter.GetEnumHandler().HasData()
                              : !ParameterValue(parameter).path.isEmpty();
}

} // namespace KORMAK
