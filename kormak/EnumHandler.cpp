#include "kormak/EnumHandler.h"

#include <objectbase/Constants_p.h>
#include <objectbase/Text_p.h>

#include <algorithm>

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

EnumHandler::EnumValue::EnumValue() = default;

EnumHandler::EnumValue::EnumValue(const EnumValue &other) = default;

EnumHandler::EnumValue &EnumHandler::EnumValue::operator=(const EnumValue &other) = default;

EnumHandler::EnumValue::~EnumValue() = default;

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

/// Most handlers never choose an entry, and many parameters read one after the other carry the same choice:
/// copies share it.
struct EnumHandler::Choice : QSharedData {
    EnumValue defaultValue;
    EnumValue selectedValue;
};

const EnumHandler::Choice &EnumHandler::chosen() const
{
    static const Choice none;
    return choice ? *choice : none;
}

EnumHandler::Choice &EnumHandler::editableChoice()
{
    if (!choice)
        choice = new Choice;
    return *choice;
}

EnumHandler::Choice &EnumHandler::lentChoice()
{
    isChoiceLent = true;
    return editableChoice();
}

EnumHandler::EnumHandler() = default;

EnumHandler::EnumHandler(const EnumHandler &other)
    : TypeHandler(other), enumList(other.enumList), choice(other.choice)
{
    if (other.isChoiceLent)
        choice.detach();
}

// NOLINTNEXTLINE(performance-move-constructor-init): the source keeps what it holds
EnumHandler::EnumHandler(EnumHandler &&other) noexcept : EnumHandler(std::as_const(other)) { }

EnumHandler &EnumHandler::operator=(const EnumHandler &other)
{
    TypeHandler::operator=(other);
    enumList = other.enumList;
    if (isChoiceLent || other.isChoiceLent) {
        SetDefaultValue(other.GetDefaultValue());
        SetSelectedEnumValue(other.GetSelectedEnumValue());
    } else {
        choice = other.choice;
    }
    return *this;
}

EnumHandler &EnumHandler::operator=(EnumHandler &&other) noexcept
{
    TypeHandler::operator=(static_cast<TypeHandler &&>(other)); // the names alone
    enumList.swap(other.enumList);
    if (choice || other.choice) {
        Choice &target = editableChoice();
        Choice &source = other.editableChoice();
        exchangeTexts(target.defaultValue, source.defaultValue);
        exchangeTexts(target.selectedValue, source.selectedValue);
    }
    return *this;
}

EnumHandler::~EnumHandler() = default;

EnumHandler::EnumValue &EnumHandler::GetDefaultValue()
{
    return lentChoice().defaultValue;
}

const EnumHandler::EnumValue &EnumHandler::GetDefaultValue() const
{
    return chosen().defaultValue;
}

void EnumHandler::SetDefaultValue(const EnumValue &entry)
{
    // The argument may be one of the entries that are no longer shared then.
    const EnumValue lasting = entry; // NOLINT(performance-unnecessary-copy-initialization)
    editableChoice().defaultValue = lasting;
}

EnumHandler::EnumValue &EnumHandler::GetSelectedEnumValue()
{
    return lentChoice().selectedValue;
}

const EnumHandler::EnumValue &EnumHandler::GetSelectedEnumValue() const
{
    return chosen().selectedValue;
}

void EnumHandler::SetSelectedEnumValue(const EnumValue &entry)
{
    const EnumValue lasting = entry; // NOLINT(performance-unnecessary-copy-initialization): as above
    editableChoice().selectedValue = lasting;
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
    return findEntry(enumList, editableChoice().defaultValue,
                     [&name](const EnumValue &entry) { return entry.Name == name; });
}

const EnumHandler::EnumValue &EnumHandler::GetEnumValue(int key) const
{
    return findEntry(enumList, chosen().defaultValue,
                     [key](const EnumValue &entry) { return entry.Key == key; });
}

const EnumHandler::EnumValue &EnumHandler::GetEnumValue(double value) const
{
    return findEntry(enumList, chosen().defaultValue,
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
    enumList = {}; // clear() would keep memory for as many entries
}

bool EnumHandler::operator==(const EnumHandler &other) const
{
    // Not the operator of the list, which takes lists that share their data for equal even when they hold a
    // NaN.
    return std::equal(enumList.begin(), enumList.end(), other.enumList.begin(), other.enumList.end())
        && chosen().defaultValue == other.chosen().defaultValue
        && chosen().selectedValue == other.chosen().selectedValue && hasNamesOf(other);
}

} // namespace KORMAK
