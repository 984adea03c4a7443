#include "inspection/ParameterElements_p.h"

#include <kormak/GenericReceiver.h>

#include <algorithm>
#include <functional>

namespace KORMAK::Inspection {

using Index = XmlTree::Index;

namespace {

constexpr QStringView ParameterTag = u"Parameter";
constexpr QStringView DoubleTag = u"Double";

QString uniqueNameOf(const XmlTree &tree, Index element)
{
    return tree.attribute(element, UniqueNameAttribute).value_or(QString());
}

} // namespace

std::vector<Index> ParameterElement::blocks() const
{
    const QString type = ParameterTypeToName(parameter.GetParameterType());
    std::vector<Index> found;
    for (Index i = tree.firstChild(index); i != XmlTree::None; i = tree.nextSibling(i)) {
        const QString &name = tree.name(i);
        if (name == type || (parameter.IsDoubleList() && name == DoubleTag))
            found.push_back(i);
    }
    return found;
}

std::vector<Index> ParameterElement::inBlocks(QStringView name) const
{
    std::vector<Index> found;
    for (const Index block : blocks()) {
        for (Index i = block + 1; i < tree.end() && tree.parent(i) >= block; ++i) {
            if (tree.name(i) == name)
                found.push_back(i);
        }
    }
    return found;
}

FindingData ParameterElement::finding(Index element, const QString &message) const
{
    return {tree.offset(element), message, tree.path(element)};
}

FindingData ParameterElement::findingInBlocks(QStringView name, const QString &message) const
{
    const auto places = inBlocks(name);
    return places.empty() ? findingAtBlock(message) : finding(places.back(), message);
}

FindingData ParameterElement::findingAtBlock(const QString &message) const
{
    const auto places = blocks();
    return finding(places.empty() ? index : places.back(), message);
}

std::vector<ParameterElement> parameterElements(const GenericReceiver &receiver, const XmlTree &tree)
{
    struct Place {
        Index element;
        const Parameter *parameter;
    };
    std::vector<Place> places;
    for (Index i = tree.firstChild(XmlTree::Root); i != XmlTree::None; i = tree.nextSibling(i)) {
        if (tree.name(i) != ParameterTag)
            continue;
        const auto parameter = receiver.GetParameterList().constFind(uniqueNameOf(tree, i));
        if (parameter != receiver.GetParameterList().constEnd())
            places.push_back({i, &*parameter});
    }
    // The elements of one parameter side by side, the last one first, and then those in their order.
    std::sort(places.begin(), places.end(), [](const Place &a, const Place &b) {
        return a.parameter == b.parameter ? a.element > b.element : std::less<>()(a.parameter, b.parameter);
    });
    std::vector<ParameterElement> elements;
    for (auto place = places.begin(); place != places.end();) {
        const auto end = std::find_if(
            place, places.end(), [place](const Place &other) { return other.parameter != place->parameter; });
        elements.push_back({tree, place->element, *place->parameter, true, end - place > 1});
        place = end;
    }
    return elements;
}

std::vector<ParameterElement> parameterElements(const Parameter &parameter, const XmlTree &tree)
{
    return {{tree, XmlTree::Root, parameter, false, false}};
}

} // namespace KORMAK::Inspection
