#include "inspection/ParameterElements_p.h"

#include <kormak/GenericReceiver.h>

#include <algorithm>
#include <functional>
#include <iterator>

namespace KORMAK::Inspection {

using Index = XmlTree::Index;

namespace {

constexpr QStringView ParameterTag = u"Parameter";
constexpr QStringView DoubleTag = u"Double";

QString uniqueNameOf(const XmlTree &tree, Index element)
{
    return tree.attribute(element, UniqueNameAttribute).value_or(QString());
}

/// Which types the names in a tree are those of.
class ChildTypes {
public:
    explicit ChildTypes(const XmlTree &readFrom) : tree(readFrom)
    {
        std::transform(
            tree.allNames().begin(), tree.allNames().end(), std::back_inserter(bits),
            [](const QString &name) { return ParameterElement::bitOf(NameToParameterType(name)); });
    }

    [[nodiscard]] unsigned of(Index element) const
    {
        unsigned all = 0;
        for (Index i = tree.firstChild(element); i != XmlTree::None; i = tree.nextSibling(i))
            all |= bits[tree.nameNumber(i)];
        return all;
    }

private:
    const XmlTree &tree;
    std::vector<unsigned> bits; ///< by the numbers of the names
};

} // namespace

/// Whether \a work is true of a block; it is done on no more then.
template <class Work>
bool ParameterElement::anyBlock(Work work) const
{
    const QString type = ParameterTypeToName(parameter.GetParameterType());
    for (Index i = tree.firstChild(index); i != XmlTree::None; i = tree.nextSibling(i)) {
        const QString &name = tree.name(i);
        if ((name == type || (parameter.IsDoubleList() && name == DoubleTag)) && work(i))
            return true;
    }
    return false;
}

/// As anyBlock(), of elements in blocks.
template <class Work>
bool ParameterElement::anyInBlocks(QStringView name, Work work) const
{
    return anyBlock([&](Index block) {
        for (Index i = block + 1; i < tree.end() && tree.parent(i) >= block; ++i) {
            if (tree.name(i) == name && work(i))
                return true;
        }
        return false;
    });
}

bool ParameterElement::hasBlock() const
{
    return anyBlock([](Index /*block*/) { return true; });
}

std::vector<Index> ParameterElement::blocks() const
{
    std::vector<Index> found;
    anyBlock([&found](Index block) {
        found.push_back(block);
        return false;
    });
    return found;
}

std::vector<Index> ParameterElement::inBlocks(QStringView name) const
{
    std::vector<Index> found;
    anyInBlocks(name, [&found](Index element) {
        found.push_back(element);
        return false;
    });
    return found;
}

bool ParameterElement::isInBlocks(QStringView name) const
{
    return anyInBlocks(name, [](Index /*element*/) { return true; });
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
    const ChildTypes types(tree);
    std::vector<ParameterElement> elements;
    elements.reserve(places.size());
    for (auto place = places.begin(); place != places.end();) {
        const auto end = std::find_if(
            place, places.end(), [place](const Place &other) { return other.parameter != place->parameter; });
        elements.push_back(
            {tree, place->element, *place->parameter, true, end - place > 1, types.of(place->element)});
        place = end;
    }
    return elements;
}

std::vector<ParameterElement> parameterElements(const Parameter &parameter, const XmlTree &tree)
{
    return {{tree, XmlTree::Root, parameter, false, false, ChildTypes(tree).of(XmlTree::Root)}};
}

} // namespace KORMAK::Inspection
