#include "widgets/ParameterText_p.h"

#include <kormak/GenericReceiver.h>
#include <models/ParameterValue_p.h>
#include <widgets/MomentFormat_p.h>
#include <widgets/NumberList_p.h>
#include <widgets/ParameterControl.h>

#include <QCoreApplication>

#include <algorithm>
#include <limits>

namespace KORMAK::Widgets {

namespace {

QString translated(const char *text)
{
    return QCoreApplication::translate("KORMAK::ParameterEdit", text);
}

/// The limits of a type as a whole, or of all but its least number, tell nothing.
template <class Number>
QVariant withoutTypeLimit(const QVariant &limit)
{
    using Range = std::numeric_limits<Number>;
    const qint64 number = limit.toLongLong();
    return number <= Range::min() + 1 || number == Range::max() ? QVariant() : limit;
}

QVariant toldLimit(const QVariant &limit, NumberFormat::Type type)
{
    switch (type) {
    case NumberFormat::Type::Whole32:
        return withoutTypeLimit<qint32>(limit);
    case NumberFormat::Type::Whole64:
        return withoutTypeLimit<qint64>(limit);
    default:
        return limit;
    }
}

MomentFormat momentOf(const Parameter &parameter, const QLocale &locale)
{
    return {formatOf(parameter, locale)};
}

} // namespace

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
        format.type = NumberFormat::Type::Double;
        break;
    case ParameterType::Float:
        format.type = NumberFormat::Type::Float;
        break;
    case ParameterType::TimeStamp:
        format.type = NumberFormat::Type::Whole64;
        break;
    default: // the numbers of the type Long have 32 bits, too
        format.type = NumberFormat::Type::Whole32;
        break;
    }
    const ParameterValue held(parameter);
    format.decimals = std::clamp(held.precision, 0, NumberEdit::MostDecimals);
    format.minimum = toldLimit(held.minimum, format.type);
    format.maximum = toldLimit(held.maximum, format.type);
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
