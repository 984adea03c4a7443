#include "kormak/TypeHandler.h"

#include <objectbase/Constants_p.h>

#include <algorithm>
#include <limits>
#include <utility>

namespace KORMAK {

namespace {

[[maybe_unused]] constexpr auto LogLevels = TESSEL::LogLevelNames;

constexpr int DefaultPrecision = 2;
constexpr double NoValue = -111111.11;

template <class Number>
using Limits = std::numeric_limits<Number>;

const QString &noName()
{
    static const QString none;
    return none;
}

} // namespace

struct TypeHandler::Names : QSharedData {
    QString representation;
    QString uniqueParameter;
};

TypeHandler::TypeHandler() = default;

TypeHandler::TypeHandler(const TypeHandler &other) = default;

// NOLINTNEXTLINE(performance-move-constructor-init): the source keeps what it holds
TypeHandler::TypeHandler(TypeHandler &&other) noexcept : TypeHandler(std::as_const(other)) { }

TypeHandler &TypeHandler::operator=(const TypeHandler &other) = default;

TypeHandler &TypeHandler::operator=(TypeHandler &&other) noexcept
{
    names.swap(other.names);
    return *this;
}

TypeHandler::~TypeHandler() = default;

TypeHandler::Names &TypeHandler::editableNames()
{
    if (!names)
        names = new Names;
    return *names;
}

void TypeHandler::clearNames()
{
    names = nullptr;
}

void TypeHandler::SetRepresentationName(const QString &name)
{
    // The argument may be one of the names that are no longer shared then.
    const QString lasting = name; // NOLINT(performance-unnecessary-copy-initialization)
    editableNames().representation = lasting;
}

const QString &TypeHandler::GetRepresentationName() const
{
    return names ? names->representation : noName();
}

void TypeHandler::SetUniqueParameterName(const QString &name)
{
    const QString lasting = name; // NOLINT(performance-unnecessary-copy-initialization): as above
    editableNames().uniqueParameter = lasting;
}

const QString &TypeHandler::GetUniqueParameterName() const
{
    return names ? names->uniqueParameter : noName();
}

bool TypeHandler::hasNamesOf(const TypeHandler &other) const
{
    return GetRepresentationName() == other.GetRepresentationName()
        && GetUniqueParameterName() == other.GetUniqueParameterName();
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

void DoubleHandler::SetDoubleList(QVector<double> &list)
{
    doubleList.value = list;
}

void DoubleHandler::AppendDoubleValue(const double &number)
{
    doubleList.value.append(number);
}

bool DoubleHandler::HasData() const
{
    if (useAsList)
        return !doubleList.value.isEmpty() || maxDoubleListLength > 0;
    return GetValue() != NoValue;
}

bool DoubleHandler::AnyData() const
{
    return GetMinimum() != Limits<double>::lowest() || GetMaximum() != Limits<double>::max()
        || GetDefault() != 0 || GetValue() != NoValue || useAsList || !doubleList.value.isEmpty()
        || maxDoubleListLength > 0;
}

void DoubleHandler::Reset()
{
    resetLimits(Limits<double>::lowest(), Limits<double>::max());
    SetValue(NoValue);
    precision = DefaultPrecision;
    useAsList = false;
    doubleList.value = {}; // clear() would keep memory for as many numbers
}

bool DoubleHandler::operator==(const DoubleHandler &other) const
{
    const QVector<double> &list = doubleList.value;
    const QVector<double> &otherList = other.doubleList.value;
    // Not the operator of the list, which takes lists that share their data for equal even when they hold a
    // NaN.
    return std::equal(list.begin(), list.end(), otherList.begin(), otherList.end())
        && (!useAsList || maxDoubleListLength == other.maxDoubleListLength) && hasNumbersOf(other)
        && precision == other.precision && hasNamesOf(other);
}

bool StringHandler::HasData() const
{
    return !value.value.isEmpty();
}

bool StringHandler::AnyData() const
{
    return !value.value.isEmpty() || !defaultValue.value.isEmpty() || !GetRepresentationName().isEmpty()
        || !GetUniqueParameterName().isEmpty();
}

void StringHandler::Reset()
{
    defaultValue.value.clear();
    value.value.clear();
    clearNames();
}

bool StringHandler::operator==(const StringHandler &other) const
{
    return defaultValue.value == other.defaultValue.value && value.value == other.value.value
        && hasNamesOf(other);
}

} // namespace KORMAK
