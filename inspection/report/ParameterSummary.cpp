#include "inspection/report/ParameterSummary_p.h"

#include <inspection/FieldText_p.h>

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <type_traits>

namespace KORMAK::Inspection {

namespace {

/// Blanks between the thousands of the whole part, so that long numbers can be read.
QString grouped(QString number)
{
    constexpr int Group = 3;
    constexpr int LeastDigits = 5;
    const bool isNegative = number.startsWith(QLatin1Char('-'));
    int end = isNegative ? 1 : 0;
    while (end < number.size() && number.at(end).isDigit())
        ++end;
    const int begin = isNegative ? 1 : 0;
    if (end - begin < LeastDigits)
        return number;
    for (int i = end - Group; i > begin; i -= Group)
        number.insert(i, QChar(0x202F));
    return number;
}

QString withSuffix(const QString &number, const Parameter &parameter)
{
    if (!parameter.HasSuffix())
        return number;
    const bool isDegree = parameter.GetDisplaySuffix() == QString(QChar(0xB0));
    return number + (isDegree ? QString() : QString(QChar(0xA0))) + parameter.GetDisplaySuffix();
}

/// What the stored values are divided by to be shown. A factor of nothing cannot be.
double divisorOf(const Parameter &parameter)
{
    const double multiplier = parameter.GetMultiplier();
    return std::isfinite(multiplier) && multiplier != 0 ? multiplier : 1;
}

template <class Number>
QString shownNumber(const Parameter &parameter, Number value)
{
    const double divisor = divisorOf(parameter);
    if (divisor == 1)
        return grouped(numberText(value));
    constexpr int Digits = std::is_same_v<Number, float> ? 6 : 15;
    const double shown = static_cast<double>(value) / divisor;
    const QString text = QString::number(shown, 'g', Digits);
    return grouped(text.contains(QLatin1Char('e')) && std::abs(shown) < 1e15 && std::abs(shown) >= 1
                       ? QString::number(shown, 'f', 0)
                       : text);
}

template <class Number>
bool isLimit(Number value)
{
    return !std::is_floating_point_v<
               Number> || std::abs(static_cast<double>(value)) < static_cast<double>(std::numeric_limits<Number>::max());
}

template <class Number>
QString rangeText(const Parameter &parameter, Number least, Number most)
{
    if (!isLimit(least) && !isLimit(most))
        return {};
    if (!isLimit(least))
        return QStringLiteral("at most ") + withSuffix(shownNumber(parameter, most), parameter);
    if (!isLimit(most))
        return QStringLiteral("at least ") + withSuffix(shownNumber(parameter, least), parameter);
    return QStringLiteral("%1 to %2")
        .arg(shownNumber(parameter, least), withSuffix(shownNumber(parameter, most), parameter));
}

template <class Handler>
ParameterSummary numberSummary(const Parameter &parameter, const Handler &handler, bool hasValue = true)
{
    const auto least = handler.GetMinimum();
    const auto most = handler.GetMaximum();
    const auto standard = handler.GetDefault();
    const auto value = hasValue ? handler.GetValue() : standard;
    ParameterSummary summary;
    summary.value = withSuffix(shownNumber(parameter, value), parameter);
    if (value != standard)
        summary.defaultValue = withSuffix(shownNumber(parameter, standard), parameter);
    summary.range = rangeText(parameter, least, most);
    const double span = static_cast<double>(most) - static_cast<double>(least);
    if (isLimit(least) && isLimit(most) && span > 0 && std::isfinite(span) && value >= least && value <= most)
        summary.share = (static_cast<double>(value) - static_cast<double>(least)) / span;
    return summary;
}

ParameterSummary listSummary(const Parameter &parameter, const DoubleHandler &handler)
{
    ParameterSummary summary;
    QStringList texts;
    for (const double value : handler.GetDoubleList())
        texts += shownNumber(parameter, value);
    if (!texts.isEmpty())
        summary.value = withSuffix(texts.join(QStringLiteral(", ")), parameter);
    summary.range = rangeText(parameter, handler.GetMinimum(), handler.GetMaximum());
    const QString length = QStringLiteral("up to %1 values").arg(handler.GetMaxDoubleListLength());
    summary.range += summary.range.isEmpty() ? length : QStringLiteral("; ") + length;
    return summary;
}

ParameterSummary doubleSummary(const Parameter &parameter)
{
    const DoubleHandler &handler = parameter.GetDoubleHandler();
    return numberSummary(parameter, handler, handler.HasData());
}

ParameterSummary textSummary(const StringHandler &handler)
{
    ParameterSummary summary;
    summary.value = handler.GetValue();
    if (handler.GetDefault() != handler.GetValue())
        summary.defaultValue = handler.GetDefault();
    return summary;
}

ParameterSummary entrySummary(const EnumHandler &handler)
{
    ParameterSummary summary;
    if (!handler.HasData())
        return summary;
    summary.value = handler.GetSelectedEnumValue().Name;
    if (handler.GetDefaultValue() != handler.GetSelectedEnumValue())
        summary.defaultValue = handler.GetDefaultValue().Name;
    return summary;
}

template <class Handler>
FrequencyRange rangeOf(const Handler &handler, double hertz)
{
    const auto limit = [hertz](auto value) {
        return isLimit(value) ? static_cast<double>(value) * hertz : std::copysign(HUGE_VAL, value);
    };
    return {{},
            limit(handler.GetMinimum()),
            limit(handler.GetMaximum()),
            static_cast<double>(handler.GetDefault()) * hertz};
}

} // namespace

ParameterSummary summaryOf(const Parameter &parameter)
{
    switch (parameter.GetParameterType()) {
    case ParameterType::Boolean:
        return {parameter.GetBooleanHandler().GetValue() ? QStringLiteral("yes") : QStringLiteral("no"),
                {},
                {},
                {}};
    case ParameterType::Long:
        return numberSummary(parameter, parameter.GetLongHandler());
    case ParameterType::Integer:
        return numberSummary(parameter, parameter.GetIntegerHandler());
    case ParameterType::TimeStamp:
        return numberSummary(parameter, parameter.GetTimeStampHandler());
    case ParameterType::Float:
        return numberSummary(parameter, parameter.GetFloatHandler());
    case ParameterType::Double:
        return doubleSummary(parameter);
    case ParameterType::DoubleList:
        return listSummary(parameter, parameter.GetDoubleHandler());
    case ParameterType::String:
        return textSummary(parameter.GetStringHandler());
    case ParameterType::Enum:
        return entrySummary(parameter.GetEnumHandler());
    case ParameterType::Invalid:
        break;
    }
    return {};
}

std::optional<FrequencyRange> frequencyRangeOf(const Parameter &parameter)
{
    constexpr struct {
        QStringView suffix;
        double hertz;
    } Units[] = {{u"Hz", 1}, {u"kHz", 1e3}, {u"MHz", 1e6}, {u"GHz", 1e9}};
    const auto *const unit = std::find_if(std::begin(Units), std::end(Units), [&parameter](const auto &one) {
        return one.suffix == parameter.GetDisplaySuffix();
    });
    if (unit == std::end(Units) || parameter.GetValueType() != Parameter::ValueFrequency)
        return std::nullopt;
    const double hertz = unit->hertz / divisorOf(parameter);
    const auto named = [&parameter](FrequencyRange range) {
        range.name = displayNameOf(parameter);
        return range;
    };
    switch (parameter.GetParameterType()) {
    case ParameterType::Long:
        return named(rangeOf(parameter.GetLongHandler(), hertz));
    case ParameterType::Integer:
        return named(rangeOf(parameter.GetIntegerHandler(), hertz));
    case ParameterType::Float:
        return named(rangeOf(parameter.GetFloatHandler(), hertz));
    case ParameterType::Double:
        return named(rangeOf(parameter.GetDoubleHandler(), hertz));
    default:
        return std::nullopt;
    }
}

QString displayNameOf(const Parameter &parameter)
{
    return parameter.GetDisplayName().isEmpty() ? parameter.GetUniqueParameterName()
                                                : parameter.GetDisplayName();
}

} // namespace KORMAK::Inspection
