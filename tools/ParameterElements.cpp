#include "tools/ParameterElements.h"

#include <kormak/GenericReceiver.h>

#include <QHash>

using namespace KORMAK;
using Index = XmlTree::Index;

namespace {

constexpr QStringView ParameterTag = u"Parameter";
constexpr QStringView DoubleTag = u"Double";

QString uniqueNameOf(const XmlTree &tree, Index element)
{
    const XmlTree::Attribute *name = tree.findAttribute(tree.element(element), UniqueNameAttribute);
    return name ? name->value : QString();
}

} // namespace

std::vector<Index> ParameterElement::blocks() const
{
    const QString type = ParameterTypeToName(parameter.GetParameterType());
    std::vector<Index> found;
    for (Index i = tree.element(index).firstChild; i != XmlTree::None; i = tree.element(i).nextSibling) {
        const QString &name = tree.element(i).name;
        if (name == type || (parameter.IsDoubleList() && name == DoubleTag))
            found.push_back(i);
    }
    return found;
}

std::vector<Index> ParameterElement::inBlocks(QStringView name) const
{
    std::vector<Index> found;
    for (const Index block : blocks()) {
        for (Index i = block + 1; i < tree.end() && tree.element(i).parent >= block; ++i) {
            if (tree.element(i).name == name)
                found.push_back(i);
        }
    }
    return found;
}

Finding ParameterElement::finding(Index element, const QString &message) const
{
    return {tree.element(element).offset, message, tree.path(element)};
}

Finding ParameterElement::findingInBlocks(QStringView name, const QString &message) const
{
    const auto places = inBlocks(name);
    return places.empty() ? findingAtBlock(message) : finding(places.back(), message);
}

Finding ParameterElement::findingAtBlock(const QString &message) const
{
    const auto places = blocks();
    return finding(places.empty() ? index : places.back(), message);
}

std::vector<ParameterElement> parameterElements(const GenericReceiver &receiver, const XmlTree &tree)
{
    struct Namesakes {
        Index last = XmlTree::None;
        int count = 0;
    };
    QHash<QString, Namesakes> byName;
    const auto forEachElement = [&tree](auto visit) {
        for (Index i = tree.element(XmlTree::Root).firstChild; i != XmlTree::None;
             i = tree.element(i).nextSibling) {
            if (tree.element(i).name == ParameterTag)
                visit(i, uniqueNameOf(tree, i));
        }
    };
    forEachElement([&byName](Index element, const QString &name) {
        Namesakes &namesakes = byName[name];
        namesakes.last = element;
        ++namesakes.count;
    });
    std::vector<ParameterElement> elements;
    forEachElement([&](Index element, const QString &name) {
        const Namesakes namesakes = byName.value(name);
        const auto parameter = receiver.GetParameterList().constFind(name);
        if (element == namesakes.last && parameter != receiver.GetParameterList().constEnd())
            elements.push_back({tree, element, *parameter, true, namesakes.count > 1});
    });
    return elements;
}

std::vector<ParameterElement> parameterElements(const Parameter &parameter, const XmlTree &tree)
{
    return {{tree, XmlTree::Root, parameter, false, false}};
}
