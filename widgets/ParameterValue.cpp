#include "widgets/ParameterValue_p.h"

#include <inspection/ParameterNumbers_p.h>
#include <kormak/GenericReceiver.h>
#include <widgets/MomentFormat_p.h>
#include <widgets/NumberList_p.h>
#include <widgets/ParameterControl.h>

#include <QCoreApplication>

#include <algorithm>
#include <cmath>
#include <limits>
#include <type_traits>

namespace KORMAK::Widgets {

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("KORMAK::ParameterEdit", text);
}

template <class Number>
QVariant variantOf(Number value)
{
    if constexpr (std::is_integral_v<Number>)
        return static_cast<qint64>(value);
    else
        return value;
}

/// The limits of a type as a whole are none.
template <class Number>
QVariant limitOf(Number limit)
{
    using Range = std::numeric_limits<Number>;
    return limit == Range::max() || limit == Range::lowest() ? QVariant() : variantOf(limit);
}

qint64 entryOf(const EnumHandler &handler)
{
    const auto &entries = handler.GetEnumList();
    const auto found = std::find(entries.begin(), entries.end(), handler.GetDefaultValue());
    return found == entries.end() ? -1 : found - entries.begin();
}

MomentFormat momentOf(const Parameter &parameter, const QLocale &locale)
{
    return {formatOf(parameter, locale)};
}

} // namespace

QVariant valueOf(const Parameter &parameter)
{
    switch (parameter.GetParameterType()) {
    case ParameterType::Boolean:
        return parameter.GetBooleanHandler().GetValue();
    case ParameterType::Enum:
        return parameter.GetEnumHandler().HasData() ? QVariant(entryOf(parameter.GetEnumHandler()))
                                                    : QVariant();
    case ParameterType::String:
        return parameter.GetStringHandler().GetDefault();
    case ParameterType::DoubleList: {
        QVariantList values;
        for (const double value : parameter.GetDoubleHandler().GetDoubleList())
            values += value;
        return values;
    }
    default:
        return Inspection::withNumbers<QVariant>(
            parameter, [](const auto &handler) { return variantOf(handler.GetDefault()); });
    }
}

NumberFormat formatOf(const Parameter &parameter, const QLocale &locale)
{
    NumberFormat format;
    format.locale = locale;
    format.unit = parameter.GetDisplaySuffix();
    format.multiplier = parameter.GetMultiplier();
    const ParameterControl control = ParameterControlOf(parameter);
    format.isFrequency = control == ParameterControl::Frequency || control == ParameterControl::FrequencyList;
    switch (parameter.GetParameterType()) {
    case ParameterType::Double:
    case ParameterType::DoubleList:
        format.type = NumberEdit::Type::Double;
        format.decimals = parameter.GetDoubleHandler().GetPrecision();
        break;
    case ParameterType::Float:
        format.type = NumberEdit::Type::Float;
        format.decimals = parameter.GetFloatHandler().GetPrecision();
        break;
    case ParameterType::TimeStamp:
        format.type = NumberEdit::Type::Whole64;
        break;
    default:
        format.type = NumberEdit::Type::Whole32;
        break;
    }
    format.decimals = std::clamp(format.decimals, 0, NumberEdit::MostDecimals);
    format.minimum = Inspection::withNumbers<QVariant>(
        parameter, [](const auto &handler) { return limitOf(handler.GetMinimum()); });
    format.maximum = Inspection::withNumbers<QVariant>(
        parameter, [](const auto &handler) { return limitOf(handler.GetMaximum()); });
    return format;
}

QString shownValue(const Parameter &parameter, const QVariant &value, const QLocale &locale)
{
    switch (ParameterControlOf(parameter)) {
    case ParameterControl::CheckBox:
        return value.toBool() ? translated("yes") : translated("no");
    case ParameterControl::Choice: {
        const EnumHandler &handler = parameter.GetEnumHandler();
        const qint64 entry = value.toLongLong();
        return value.isValid() && entry >= 0 && entry < handler.GetEnumList().size()
            ? handler.GetEnumList().at(static_cast<int>(entry)).Name
            : handler.GetDefaultValue().Name;
    }
    case ParameterControl::Moment:
        return momentOf(parameter, locale).show(value);
    case ParameterControl::Number:
    case ParameterControl::Frequency:
        return formatOf(parameter, locale).show(value);
    case ParameterControl::NumberList:
    case ParameterControl::FrequencyList:
        return showList(formatOf(parameter, locale), value.toList());
    case ParameterControl::Text:
    case ParameterControl::None:
        break;
    }
    return value.toString();
}

NumberFormat::Reading readValue(const Parameter &parameter, const QString &text, const QLocale &locale)
{
    switch (ParameterControlOf(parameter)) {
    case ParameterControl::Moment:
        return momentOf(parameter, locale).read(text);
    case ParameterControl::Number:
    case ParameterControl::Frequency:
        return formatOf(parameter, locale).read(text);
    case ParameterControl::NumberList:
    case ParameterControl::FrequencyList:
        return readList(formatOf(parameter, locale), text);
    case ParameterControl::Text:
        return {text, {}};
    case ParameterControl::CheckBox:
    case ParameterControl::Choice:
    case ParameterControl::None:
        break;
    }
    return {};
}

QString shownUnit(const Parameter &parameter, const QVariant &value, const QLocale &locale)
{
    switch (ParameterControlOf(parameter)) {
    case ParameterControl::Number:
    case ParameterControl::Frequency:
    case ParameterControl::NumberList:
    case ParameterControl::FrequencyList:
    case ParameterControl::Text:
        return parameter.GetDisplaySuffix();
    case ParameterControl::Moment:
        return momentOf(parameter, locale).unitOf(shownValue(parameter, value, locale));
    default:
        return {};
    }
}

QString problemOf(const Parameter &parameter, const QVariant &value, const QLocale &locale)
{
    switch (ParameterControlOf(parameter)) {
    case ParameterControl::Moment:
        return momentOf(parameter, locale).problemOf(value);
    case ParameterControl::Number:
    case ParameterControl::Frequency:
        return formatOf(parameter, locale).problemOf(value);
    case ParameterControl::NumberList:
    case ParameterControl::FrequencyList:
        return problemOfList(formatOf(parameter, locale), value.toList(),
                             parameter.GetDoubleHandler().GetMaxDoubleListLength());
    case ParameterControl::Choice:
        return value.isValid() && value.toLongLong() < 0 ? translated("This is none of the entries")
                                                         : QString();
    default:
        return {};
    }
}

QString rangeOf(const Parameter &parameter, const QLocale &locale)
{
    const NumberFormat format = formatOf(parameter, locale);
    const bool isMoment = ParameterControlOf(parameter) == ParameterControl::Moment;
    const auto limit = [&format, isMoment](const QVariant &value) {
        return isMoment ? MomentFormat{format}.show(value) : format.showWithUnit(value);
    };
    if (format.minimum.isValid() && format.maximum.isValid()) {
        NumberFormat plain = format;
        plain.unit.clear();
        const QString least = isMoment ? limit(format.minimum) : plain.showWithUnit(format.minimum);
        return translated("%1 to %2").arg(least, limit(format.maximum));
    }
    if (format.minimum.isValid())
        return translated("At least %1").arg(limit(format.minimum));
    return format.maximum.isValid() ? translated("At most %1").arg(limit(format.maximum)) : QString();
}

QString describe(const Parameter &parameter, const QLocale &locale)
{
    QStringList lines{parameter.GetToolTip(), rangeOf(parameter, locale)};
    if (parameter.IsDoubleList() && parameter.GetDoubleHandler().GetMaxDoubleListLength() > 0)
        lines += translated("Up to %1 values, parted by semicolons")
                     .arg(parameter.GetDoubleHandler().GetMaxDoubleListLength());
    lines.removeAll(QString());
    return lines.join(QLatin1Char('\n'));
}

QString nameOf(const Parameter &parameter)
{
    return parameter.GetDisplayName().isEmpty() ? parameter.GetUniqueParameterName()
                                                : parameter.GetDisplayName();
}

const Parameter *findParameter(const Document &document, const QString &name)
{
    const auto *const receiver = dynamic_cast<const GenericReceiver *>(document.GetObject());
    if (!receiver) {
        const auto *const parameter = dynamic_cast<const Parameter *>(document.GetObject());
        return parameter && parameter->GetUniqueParameterName() == name ? parameter : nullptr;
    }
    const auto &parameters = receiver->GetParameterList();
    const auto found = parameters.constFind(name);
    return found == parameters.constEnd() ? nullptr : &*found;
}

} // namespace KORMAK::Widgets
