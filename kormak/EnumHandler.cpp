#include "kormak/EnumHandler.h"

#include <objectbase/Constants_p.h>
#include <objectbase/Text_p.h>

#include <algorithm>
#include <utility>

namespace KORMAK {

namespace {

[[maybe_unused]] constexpr auto LogLevels = TESSEL::LogLevelNames;

using EnumValue = EnumHandler::EnumValue;

template <class Matches>
const EnumValue &findEntry(const QVector<EnumValue> &list, const EnumValue &otherwise, Matches matches)
{
    const auto entry = std::find_if(list.begin(), list.end(), matches);
    return entry == list.end() ? otherwise : *entry;
}

/// The texts change places; the numbers of \a target become those of \a source.
void exchangeTexts(EnumValue &target, EnumValue &source) noexcept
{
    target.Key = source.Key;
    target.Name.swap(source.Name);
    target.Identifier.swap(source.Identifier);
    target.Value = source.Value;
    target.Default.swap(source.Default);
}

} // namespace

bool EnumHandler::EnumValue::operator==(const EnumValue &other) const
{
    return Key == other.Key && Name == other.Name && Value == other.Value && Identifier == other.Identifier
        && IsDefault() == other.IsDefault();
}

bool EnumHandler::EnumValue::IsDefault() const
{
    bool isDefault = false;
    TESSEL::fromText(Default, isDefault);
    return isDefault;
}

// NOLINTNEXTLINE(performance-move-constructor-init): the source keeps what it holds
EnumHandler::EnumHandler(EnumHandler &&other) noexcept : EnumHandler(std::as_const(other)) { }

EnumHandler &EnumHandler::operator=(EnumHandler &&other) noexcept
{
    NamedHandler::operator=(std::move(other));
    enumList.swap(other.enumList);
    exchangeTexts(defaultValue, other.defaultValue);
    exchangeTexts(selectedValue, other.selectedValue);
    return *this;
}

void EnumHandler::SetDefaultValue(const EnumValue &entry)
{
    defaultValue = entry;
}

void EnumHandler::SetSelectedEnumValue(const EnumValue &entry)
{
    selectedValue = entry;
}

void EnumHandler::SetEnumList(QVector<EnumValue> &list)
{
    enumList = list;
}

void EnumHandler::AppendEnumValue(const EnumValue &entry)
{
    enumList.append(entry);
}

const EnumHandler::EnumValue &EnumHandler::GetEnumValue(const QString &name)
{
    enumList.detach(); // the entry that is returned belongs to this handler alone
    return findEntry(enumList, defaultValue, [&name](const EnumValue &entry) { return entry.Name == name; });
}

const EnumHandler::EnumValue &EnumHandler::GetEnumValue(int key) const
{
    return findEntry(enumList, defaultValue, [key](const EnumValue &entry) { return entry.Key == key; });
}

const EnumHandler::EnumValue &EnumHandler::GetEnumValue(double value) const
{
    return findEntry(enumList, defaultValue,
                     [value](const EnumValue &entry) { return entry.Value == value; });
}

bool EnumHandler::HasData() const
{
    return !enumList.isEmpty();
}

bool EnumHandler::AnyData() const
{
    return EnumHandler::HasData();
}

void EnumHandler::Reset()
{
    enumList = QVector<EnumValue>(); // clear() would keep memory for as many entries
}

bool EnumHandler::operator==(const EnumHandler &other) const
{
    // Not the operator of the list, which takes lists that share their data for equal even when they hold a
    // NaN.
    return std::equal(enumList.begin(), enumList.end(), other.enumList.begin(), other.enumList.end())
        && defaultValue == other.defaultValue && selectedValue == other.selectedValue && hasNamesOf(other);
}

} // namespace KORMAK
