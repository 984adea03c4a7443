#include "kormak/TypeHandler.h"

#include <kormak/NoDoubleValue_p.h>
#include <objectbase/Constants_p.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace KORMAK {

namespace {

[[maybe_unused]] constexpr auto LogLevels = TESSEL::LogLevelNames;

constexpr int DefaultPrecision = 2;

template <class Number>
using Limits = std::numeric_limits<Number>;

} // namespace

// NOLINTNEXTLINE(performance-move-constructor-init): the source keeps what it holds, here and below
TypeHandler::TypeHandler(TypeHandler &&other) noexcept : TypeHandler(std::as_const(other)) { }

TypeHandler &TypeHandler::operator=(TypeHandler &&other) noexcept
{
    representationName.swap(other.representationName);
    uniqueParameterName.swap(other.uniqueParameterName);
    return *this;
}

void TypeHandler::SetRepresentationName(const QString &name)
{
    representationName = name;
}

const QString &TypeHandler::GetRepresentationName() const
{
    return representationName;
}

void TypeHandler::SetUniqueParameterName(const QString &name)
{
    uniqueParameterName = name;
}

const QString &TypeHandler::GetUniqueParameterName() const
{
    return uniqueParameterName;
}

bool TypeHandler::hasNamesOf(const TypeHandler &other) const
{
    return GetRepresentationName() == other.GetRepresentationName()
        && GetUniqueParameterName() == other.GetUniqueParameterName();
}

// NOLINTNEXTLINE(performance-move-constructor-init)
NamedHandler::NamedHandler(NamedHandler &&other) noexcept : NamedHandler(std::as_const(other)) { }

NamedHandler &NamedHandler::operator=(NamedHandler &&other) noexcept
{
    TypeHandler::operator=(std::move(other));
    representationName.swap(other.representationName);
    uniqueParameterName.swap(other.uniqueParameterName);
    return *this;
}

void NamedHandler::SetRepresentationName(const QString &name)
{
    representationName = name;
}

const QString &NamedHandler::GetRepresentationName() const
{
    return representationName;
}

void NamedHandler::SetUniqueParameterName(const QString &name)
{
    uniqueParameterName = name;
}

const QString &NamedHandler::GetUniqueParameterName() const
{
    return uniqueParameterName;
}

bool NamedHandler::hasAnyName() const
{
    return !representationName.isEmpty() || !uniqueParameterName.isEmpty();
}

void NamedHandler::clearNames()
{
    representationName.clear();
    uniqueParameterName.clear();
}

bool BooleanHandler::HasData() const
{
    return true;
}

bool BooleanHandler::AnyData() const
{
    return true;
}

void BooleanHandler::Reset()
{
    value = false;
}

bool BooleanHandler::operator==(const BooleanHandler &other) const
{
    return value == other.value && hasNamesOf(other);
}

IntegerHandler::IntegerHandler()
{
    IntegerHandler::Reset();
}

void IntegerHandler::Reset()
{
    resetLimits(Limits<qint16>::min(), Limits<qint16>::max());
}

bool IntegerHandler::operator==(const IntegerHandler &other) const
{
    return hasNumbersOf(other) && hasNamesOf(other);
}

LongHandler::LongHandler()
{
    LongHandler::Reset();
}

void LongHandler::Reset()
{
    resetLimits(-Limits<qint32>::max(), Limits<qint32>::max()); // symmetric; the least number is left out
}

bool LongHandler::operator==(const LongHandler &other) const
{
    return hasNumbersOf(other) && hasNamesOf(other);
}

TimeStampHandler::TimeStampHandler()
{
    TimeStampHandler::Reset();
}

void TimeStampHandler::Reset()
{
    resetLimits(Limits<long long>::min(), Limits<long long>::max());
    SetValue(0);
}

bool TimeStampHandler::operator==(const TimeStampHandler &other) const
{
    return hasNumbersOf(other) && hasNamesOf(other);
}

FloatHandler::FloatHandler()
{
    FloatHandler::Reset();
}

void FloatHandler::Reset()
{
    resetLimits(Limits<float>::lowest(), Limits<float>::max());
    SetValue(0);
    precision = DefaultPrecision;
}

bool FloatHandler::operator==(const FloatHandler &other) const
{
    return hasNumbersOf(other) && hasNamesOf(other);
}

DoubleHandler::DoubleHandler()
{
    DoubleHandler::Reset();
}

// NOLINTNEXTLINE(performance-move-constructor-init)
DoubleHandler::DoubleHandler(DoubleHandler &&other) noexcept : DoubleHandler(std::as_const(other)) { }

DoubleHandler &DoubleHandler::operator=(DoubleHandler &&other) noexcept
{
    NumericHandler::operator=(std::move(other));
    doubleList.swap(other.doubleList);
    maxDoubleListLength = other.maxDoubleListLength;
    precision = other.precision;
    useAsList = other.useAsList;
    return *this;
}

void DoubleHandler::SetDoubleList(QVector<double> &list)
{
    doubleList = list;
}

void DoubleHandler::AppendDoubleValue(const double &number)
{
    doubleList.append(number);
}

bool DoubleHandler::HasData() const
{
    if (useAsList)
        return !doubleList.isEmpty() || maxDoubleListLength > 0;
    return GetValue() != NoDoubleValue;
}

bool DoubleHandler::AnyData() const
{
    return GetMinimum() != Limits<double>::lowest() || GetMaximum() != Limits<double>::max()
        || GetDefault() != 0 || GetValue() != NoDoubleValue || useAsList || !doubleList.isEmpty()
        || maxDoubleListLength > 0;
}

void DoubleHandler::Reset()
{
    resetLimits(Limits<double>::lowest(), Limits<double>::max());
    SetValue(NoDoubleValue);
    precision = DefaultPrecision;
    useAsList = false;
    doubleList = QVector<double>(); // clear() would keep memory for as many numbers
}

bool DoubleHandler::operator==(const DoubleHandler &other) const
{
    const QVector<double> &list = doubleList;
    const QVector<double> &otherList = other.doubleList;
    // Not the operator of the list, which takes lists that share their data for equal even when they hold a
    // NaN.
    return std::equal(list.begin(), list.end(), otherList.begin(), otherList.end())
        && (!useAsList || maxDoubleListLength == other.maxDoubleListLength) && hasNumbersOf(other)
        && precision == other.precision && hasNamesOf(other);
}

// NOLINTNEXTLINE(performance-move-constructor-init)
StringHandler::StringHandler(StringHandler &&other) noexcept : StringHandler(std::as_const(other)) { }

StringHandler &StringHandler::operator=(StringHandler &&other) noexcept
{
    NamedHandler::operator=(std::move(other));
    defaultValue.swap(other.defaultValue);
    value.swap(other.value);
    return *this;
}

bool StringHandler::HasData() const
{
    return !value.isEmpty();
}

bool StringHandler::AnyData() const
{
    return !value.isEmpty() || !defaultValue.isEmpty() || hasAnyName();
}

void StringHandler::Reset()
{
    defaultValue.clear();
    value.clear();
    clearNames();
}

bool StringHandler::operator==(const StringHandler &other) const
{
    return defaultValue == other.defaultValue && value == other.value && hasNamesOf(other);
}

} // namespace KORMAK
