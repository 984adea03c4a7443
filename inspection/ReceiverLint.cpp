#include "inspection/ReceiverLint_p.h"

#include <inspection/FieldText_p.h>
#include <inspection/ParameterNumbers_p.h>
#include <inspection/QuotedText_p.h>
#include <kormak/Parameter.h>

#include <QHash>

#include <algorithm>
#include <optional>
#include <utility>

namespace KORMAK::Inspection {

using Index = XmlTree::Index;
using EnumValue = EnumHandler::EnumValue;

namespace {

constexpr QStringView DefaultTag = u"Default";
constexpr QStringView MinimumTag = u"Minimum";
constexpr QStringView MaximumTag = u"Maximum";
constexpr QStringView MaximumLengthTag = u"MaxDoubleListLength";
constexpr QStringView EntryTag = u"EnumValue";
constexpr QStringView BooleanTag = u"Boolean";
constexpr QStringView DoubleTag = u"Double";
constexpr QStringView DoubleListTag = u"DoubleList";

using Element = ParameterElement;

Findings limitsThatExcludeAll(const Element &element)
{
    return withNumbers<Findings>(element.parameter, [&element](const auto &handler) -> Findings {
        if (!(handler.GetMinimum() > handler.GetMaximum()))
            return {};
        const QStringView place = element.isInBlocks(MinimumTag) ? MinimumTag : MaximumTag;
        FindingData finding = element.findingInBlocks(
            place,
            QStringLiteral("the minimum %1 is above the maximum %2")
                .arg(numberText(handler.GetMinimum()), numberText(handler.GetMaximum())));
        finding.id = FindingId::SuspiciousRange;
        return {finding};
    });
}

/// Not for lists: their values have limits, but they have no use for the default.
Findings defaultOutsideLimits(const Element &element)
{
    if (element.parameter.IsDoubleList())
        return {};
    return withNumbers<Findings>(element.parameter, [&element](const auto &handler) -> Findings {
        const auto value = handler.GetDefault();
        const bool isBelow = value < handler.GetMinimum();
        if (handler.GetMinimum() > handler.GetMaximum() || (!isBelow && !(value > handler.GetMaximum())))
            return {};
        const QString limit = isBelow
            ? QStringLiteral("below the minimum %1").arg(numberText(handler.GetMinimum()))
            : QStringLiteral("above the maximum %1").arg(numberText(handler.GetMaximum()));
        return {element.findingInBlocks(
            DefaultTag, QStringLiteral("the default %1 is %2").arg(numberText(value), limit))};
    });
}

Findings uniqueNameGivenBefore(const Element &element)
{
    if (!element.hasReplaced)
        return {};
    FindingData finding = element.finding(
        element.index, QStringLiteral("the unique name was given before; only this element counts"));
    finding.isContradiction = true;
    return {finding};
}

Findings enumerationWithoutEntries(const Element &element)
{
    const Parameter &parameter = element.parameter;
    if (!parameter.IsEnum() || !parameter.GetEnumHandler().GetEnumList().isEmpty())
        return {};
    return {element.findingAtBlock(QStringLiteral("the enumeration has no entries"))};
}

/// The library is content with it, but writes nothing for it.
Findings noValue(const Element &element)
{
    const Parameter &parameter = element.parameter;
    const bool hasType = parameter.GetParameterType() != ParameterType::Invalid;
    if (!hasType || parameter.IsEnum() || parameter.IsValidParameter())
        return {};
    return {element.findingAtBlock(
        QStringLiteral(
            "without a \"%1\" the parameter has no value: it is not complete, and nothing would be written")
            .arg(parameter.IsDoubleList() ? MaximumLengthTag : DefaultTag))};
}

/// All blocks are read, each into a handler of its own, but only that of the type counts. A "DoubleList" is
/// told of elsewhere.
Findings blockOfOtherType(const Element &element)
{
    const Parameter &parameter = element.parameter;
    const ParameterType type =
        parameter.IsDoubleList() ? ParameterType::Double : parameter.GetParameterType();
    if (type == ParameterType::Invalid || !element.hasChildBeside(type, ParameterType::DoubleList))
        return {};
    const XmlTree &tree = element.tree;
    Findings findings;
    for (Index i = tree.firstChild(element.index); i != XmlTree::None; i = tree.nextSibling(i)) {
        const QString &name = tree.name(i);
        const ParameterType block = NameToParameterType(name);
        if (block == ParameterType::Invalid || block == ParameterType::DoubleList || block == type)
            continue;
        findings.push_back(
            element.finding(i,
                            QStringLiteral("\"%1\" does not count, since the type of the parameter is %2")
                                .arg(name, ParameterTypeToName(parameter.GetParameterType()))));
        findings.back().gist = QStringLiteral("does not count");
    }
    return findings;
}

/// Of enumerations, and of parameters that are not complete for the lack of it, other rules tell.
Findings noBlock(const Element &element)
{
    const Parameter &parameter = element.parameter;
    if (parameter.IsEnum() || !parameter.IsValidParameter() || element.hasBlock())
        return {};
    return {
        element.findingAtBlock(QStringLiteral("there is no \"%1\", though that is the type of the parameter")
                                   .arg(ParameterTypeToName(parameter.GetParameterType())))};
}

/// One finding for each entry to which \a clashesWith gives an earlier one. \a gistOf: what they clash in,
/// whatever they are called.
template <class ClashesWith, class GistOf>
Findings clashes(const Element &element, ClashesWith clashesWith, const QString &clash, GistOf gistOf)
{
    if (!element.parameter.IsEnum())
        return {};
    Findings findings;
    const auto &entries = element.parameter.GetEnumHandler().GetEnumList();
    std::vector<Index> places;
    for (int i = 0; i < static_cast<int>(entries.size()); ++i) {
        const std::optional<int> other = clashesWith(entries[i], i);
        if (!other)
            continue;
        if (places.empty())
            places = element.inBlocks(EntryTag);
        const auto place = static_cast<std::size_t>(i);
        findings.push_back(element.finding(
            place < places.size() ? places[place] : element.index,
            QStringLiteral("the entries '%1' and '%2' %3")
                .arg(oneLine(shortened(entries[*other].Name)), oneLine(shortened(entries[i].Name)), clash)));
        findings.back().gist = gistOf(entries[i]);
        findings.back().isContradiction = true;
    }
    return findings;
}

Findings entriesOfOneKey(const Element &element)
{
    QHash<qint32, int> firstOfKey;
    const auto firstOfSameKey = [&firstOfKey](const EnumValue &entry, int i) -> std::optional<int> {
        const auto first = firstOfKey.constFind(entry.Key);
        if (first != firstOfKey.constEnd())
            return *first;
        firstOfKey.insert(entry.Key, i);
        return std::nullopt;
    };
    return clashes(element, firstOfSameKey, QStringLiteral("have the same key"),
                   [](const EnumValue &entry) { return QStringLiteral("key %1").arg(entry.Key); });
}

Findings entriesMarkedAsDefault(const Element &element)
{
    std::optional<int> marked;
    const auto markedBefore = [&marked](const EnumValue &entry, int i) -> std::optional<int> {
        return entry.IsDefault() ? std::exchange(marked, i) : std::nullopt;
    };
    return clashes(element, markedBefore,
                   QStringLiteral("are both marked as the default; the last one marked counts"),
                   [](const EnumValue &) { return QStringLiteral("default"); });
}

Findings booleanType(const Element &element)
{
    const bool mayBeWithoutType = element.parameter.GetParameterType() == ParameterType::Invalid;
    if (!element.parameter.IsBoolean() && !mayBeWithoutType)
        return {};
    const Index value = element.tree.findChild(element.index, BooleanTag);
    const bool isWithoutType = mayBeWithoutType && value != XmlTree::None;
    if (!element.parameter.IsBoolean() && !isWithoutType)
        return {};
    FindingData finding =
        element.finding(value == XmlTree::None ? element.index : value,
                        QStringLiteral("the type of a boolean parameter is never written, and a parameter "
                                       "without a type keeps the whole document from being written"));
    finding.isInherent = !isWithoutType;
    return {finding};
}

/// A reader of receivers uses one parameter for all, and Reset() leaves some of its state alone.
template <class Message>
Findings leftByAnother(const Element &element, QStringView tag, Message message)
{
    if (!element.isInReceiver || element.isInBlocks(tag))
        return {};
    return {
        element.findingAtBlock(QStringLiteral("there is no \"%1\", so %2").arg(tag.toString(), message()))};
}

Findings valueLeftByAnother(const Element &element)
{
    const Parameter &parameter = element.parameter;
    if (!parameter.IsInteger() && !parameter.IsLong())
        return {};
    return leftByAnother(element, DefaultTag, [&parameter] {
        return QStringLiteral("the value is that of the %1 parameter before it")
            .arg(ParameterTypeToName(parameter.GetParameterType()));
    });
}

Findings lengthLeftByAnother(const Element &element)
{
    if (!element.parameter.IsDoubleList())
        return {};
    return leftByAnother(element, MaximumLengthTag, [] {
        return QStringLiteral("the maximum length is that of the double list before it");
    });
}

Findings blockWithoutEnd(const Element &element)
{
    if (!element.hasChildOf(ParameterType::DoubleList))
        return {};
    const Index block = element.tree.findChild(element.index, DoubleListTag);
    FindingData finding = element.finding(
        block,
        QStringLiteral("a block \"DoubleList\" is read on to the next end of a \"Double\"; open it as that"));
    if (element.tree.findChild(element.index, DoubleTag) == XmlTree::None) {
        finding.suggestion = DoubleTag.toString();
        finding.correction = KORMAK::Finding::Correction::Name;
    }
    return {finding};
}

constexpr Findings (*Rules[])(const Element &) = {
    uniqueNameGivenBefore,
    limitsThatExcludeAll,
    defaultOutsideLimits,
    enumerationWithoutEntries,
    noValue,
    entriesOfOneKey,
    entriesMarkedAsDefault,
    booleanType,
    valueLeftByAnother,
    lengthLeftByAnother,
    blockWithoutEnd,
    blockOfOtherType,
    noBlock,
};

} // namespace

Findings lint(const std::vector<ParameterElement> &parameters)
{
    Findings findings;
    for (const ParameterElement &parameter : parameters) {
        for (const auto rule : Rules) {
            for (FindingData &finding : rule(parameter))
                findings.push_back(std::move(finding));
        }
    }
    std::stable_sort(findings.begin(), findings.end(),
                     [](const FindingData &a, const FindingData &b) { return a.offset < b.offset; });
    return findings;
}

} // namespace KORMAK::Inspection
