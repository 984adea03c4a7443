#include "inspection/ParameterSummary.h"

#include <inspection/FieldText_p.h>
#include <inspection/NumberLimit_p.h>
#include <inspection/ParameterNumbers_p.h>
#include <kormak/Parameter.h>
#include <objectbase/QtCompat_p.h>

#include <QStringList>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>
#include <type_traits>

namespace KORMAK {

using namespace Inspection;

namespace {

QString displayNameOf(const Parameter &parameter)
{
    return parameter.GetDisplayName().isEmpty() ? parameter.GetUniqueParameterName()
                                                : parameter.GetDisplayName();
}

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

template <class Number>
QString shownNumber(const Parameter &parameter, Number value)
{
    const double divisor = DivisorOf(parameter);
    if (divisor == 1)
        return grouped(numberText(value));
    const double shown = static_cast<double>(value) / divisor;
    if constexpr (std::is_same_v<Number, float>)
        return grouped(numberText(static_cast<float>(shown)));
    constexpr int Digits = 15;
    const QString text = QString::number(shown, 'g', Digits);
    return grouped(text.contains(QLatin1Char('e')) && std::abs(shown) < 1e15 && std::abs(shown) >= 1
                       ? QString::number(shown, 'f', 0)
                       : text);
}

template <class Number>
void addLimits(ParameterSummary &summary, const Parameter &parameter, Number least, Number most)
{
    if (isLimit(least))
        summary.minimum = withSuffix(shownNumber(parameter, least), parameter);
    if (isLimit(most))
        summary.maximum = withSuffix(shownNumber(parameter, most), parameter);
    if (isLimit(least) && isLimit(most))
        summary.range = QStringLiteral("%1 to %2").arg(shownNumber(parameter, least), summary.maximum);
    else if (isLimit(most))
        summary.range = QStringLiteral("at most ") + summary.maximum;
    else if (isLimit(least))
        summary.range = QStringLiteral("at least ") + summary.minimum;
}

template <class Handler>
void addNumber(ParameterSummary &summary, const Parameter &parameter, const Handler &handler,
               bool hasValue = true)
{
    const auto least = handler.GetMinimum();
    const auto most = handler.GetMaximum();
    const auto standard = handler.GetDefault();
    const auto value = hasValue ? handler.GetValue() : standard;
    summary.value = withSuffix(shownNumber(parameter, value), parameter);
    if (value != standard)
        summary.defaultValue = withSuffix(shownNumber(parameter, standard), parameter);
    addLimits(summary, parameter, least, most);
    const double span = static_cast<double>(most) - static_cast<double>(least);
    if (isLimit(least) && isLimit(most) && span > 0 && std::isfinite(span) && value >= least && value <= most)
        summary.share = (static_cast<double>(value) - static_cast<double>(least)) / span;
}

void addList(ParameterSummary &summary, const Parameter &parameter, const DoubleHandler &handler)
{
    QStringList texts;
    for (const double value : handler.GetDoubleList())
        texts += shownNumber(parameter, value);
    if (!texts.isEmpty())
        summary.value = withSuffix(texts.join(QStringLiteral(", ")), parameter);
    addLimits(summary, parameter, handler.GetMinimum(), handler.GetMaximum());
    const QString length = QStringLiteral("up to %1 values").arg(handler.GetMaxDoubleListLength());
    summary.range += summary.range.isEmpty() ? length : QStringLiteral("; ") + length;
}

void addText(ParameterSummary &summary, const StringHandler &handler)
{
    summary.value = handler.GetValue();
    if (handler.GetDefault() != handler.GetValue())
        summary.defaultValue = handler.GetDefault();
}

void addEntry(ParameterSummary &summary, const EnumHandler &handler)
{
    if (!handler.HasData())
        return;
    summary.value = handler.GetSelectedEnumValue().Name;
    if (handler.GetDefaultValue() != handler.GetSelectedEnumValue())
        summary.defaultValue = handler.GetDefaultValue().Name;
}

} // namespace

double DivisorOf(const Parameter &parameter)
{
    const double multiplier = parameter.GetMultiplier();
    return std::isfinite(multiplier) && multiplier != 0 ? multiplier : 1;
}

QString GroupOf(const Parameter &parameter)
{
    const QString &name = parameter.GetRepresenationName();
    for (TESSEL::TextSize i = 0; i < name.size(); ++i) {
        if (name.at(i) == QLatin1Char('.') || name.at(i) == QLatin1Char('/'))
            return name.left(i);
    }
    return {};
}

ParameterSummary::ParameterSummary(const Parameter &parameter)
    : name(displayNameOf(parameter)), group(GroupOf(parameter))
{
    switch (parameter.GetParameterType()) {
    case ParameterType::Boolean:
        value = parameter.GetBooleanHandler().GetValue() ? QStringLiteral("yes") : QStringLiteral("no");
        break;
    case ParameterType::Double:
        addNumber(*this, parameter, parameter.GetDoubleHandler(), parameter.GetDoubleHandler().HasData());
        break;
    case ParameterType::DoubleList:
        addList(*this, parameter, parameter.GetDoubleHandler());
        break;
    case ParameterType::String:
        addText(*this, parameter.GetStringHandler());
        break;
    case ParameterType::Enum:
        addEntry(*this, parameter.GetEnumHandler());
        break;
    default:
        withNumbers<void>(parameter, [&](const auto &handler) { addNumber(*this, parameter, handler); });
        break;
    }
}

} // namespace KORMAK
