#include "Alternatives.h"

#include <GenericReceiver.hxx>
#include <sstream>
#include <xercesc/util/PlatformUtils.hpp>

namespace XsdTree {

class Tree {
public:
    explicit Tree(std::unique_ptr<Generated::GenericReceiver> parsed) : root(std::move(parsed)) { }

    std::unique_ptr<Generated::GenericReceiver> root;
};

void Deleter::operator()(Tree *tree) const
{
    delete tree;
}

Library::Library()
{
    xercesc::XMLPlatformUtils::Initialize();
}

Library::~Library()
{
    xercesc::XMLPlatformUtils::Terminate();
}

namespace {

constexpr auto Flags = xml_schema::flags::dont_initialize;

QString textOf(const std::string &utf8)
{
    return QString::fromStdString(utf8);
}

/// The last of the texts; empty when there is none.
template <class Sequence>
QString lastOf(const Sequence &texts)
{
    return texts.empty() ? QString() : textOf(texts.back());
}

template <class Optional>
QString attributeOf(const Optional &text)
{
    return text ? textOf(*text) : QString();
}

QString childText(const Generated::Block &block, const char *name)
{
    for (const xercesc::DOMElement &child : block.any()) {
        if (xsd::cxx::xml::transcode<char>(child.getLocalName()) == name)
            return textOf(xsd::cxx::xml::transcode<char>(child.getTextContent()));
    }
    return {};
}

Lean::WholeNumber wholeNumberOf(const Generated::Block &block)
{
    return {childText(block, "Minimum").toLongLong(), childText(block, "Maximum").toLongLong(),
            childText(block, "Default").toLongLong()};
}

Lean::RealNumber realNumberOf(const Generated::Block &block)
{
    return {childText(block, "Minimum").toDouble(), childText(block, "Maximum").toDouble(),
            childText(block, "Default").toDouble(), childText(block, "Precision").toInt(),
            childText(block, "MaxDoubleListLength").toInt()};
}

QVector<Lean::Entry> entriesOf(const Generated::Block &block)
{
    QVector<Lean::Entry> entries;
    for (const xercesc::DOMElement &child : block.any()) {
        const Generated::EnumValue entry(child);
        entries.append({static_cast<int>(entry.Key().get()), attributeOf(entry.Name()),
                        attributeOf(entry.Identifier()), attributeOf(entry.Value()).toDouble(),
                        attributeOf(entry.Default()) == QLatin1String("true")});
    }
    return entries;
}

Lean::Parameter parameterOf(const Generated::Parameter &parameter)
{
    Lean::Parameter lean;
    lean.version = attributeOf(parameter.Version());
    lean.uniqueName = attributeOf(parameter.UniqueName());
    lean.representationName = lastOf(parameter.RepresentationName());
    lean.displayName = lastOf(parameter.DisplayName());
    lean.toolTip = lastOf(parameter.ToolTip());
    lean.displaySuffix = lastOf(parameter.DisplaySuffix());
    if (!parameter.Multiplier().empty())
        lean.multiplier = lastOf(parameter.Multiplier()).toDouble();
    lean.type = static_cast<Lean::Type>(Lean::placeOf(Lean::TypeNames, lastOf(parameter.ParameterType())));
    lean.valueType = Lean::placeOf(Lean::ValueTypeNames, lastOf(parameter.ValueType()));
    lean.controlType = Lean::placeOf(Lean::ControlTypeNames, lastOf(parameter.ControlType()));
    lean.enabled = lastOf(parameter.Enable()) == QLatin1String("true");
    if (!parameter.Boolean().empty())
        lean.value = lastOf(parameter.Boolean()) == QLatin1String("true");
    else if (!parameter.Integer().empty())
        lean.value = wholeNumberOf(parameter.Integer().back());
    else if (!parameter.Long().empty())
        lean.value = wholeNumberOf(parameter.Long().back());
    else if (!parameter.TimeStamp().empty())
        lean.value = wholeNumberOf(parameter.TimeStamp().back());
    else if (!parameter.Float().empty())
        lean.value = realNumberOf(parameter.Float().back());
    else if (!parameter.Double().empty())
        lean.value = realNumberOf(parameter.Double().back());
    else if (!parameter.String().empty())
        lean.value = childText(parameter.String().back(), "Default");
    else if (!parameter.Enum().empty())
        lean.value = entriesOf(parameter.Enum().back());
    return lean;
}

} // namespace

Owned read(const std::string &document)
{
    std::istringstream stream(document);
    return Owned(new Tree(Generated::GenericReceiver_(stream, Flags | xml_schema::flags::dont_validate)));
}

std::string write(const Tree &tree)
{
    std::ostringstream stream;
    Generated::GenericReceiver_(stream, *tree.root, xml_schema::namespace_infomap(), "UTF-8", Flags);
    return stream.str();
}

Lean::Receiver receiverOf(const Tree &tree)
{
    Lean::Receiver receiver;
    receiver.version = attributeOf(tree.root->Version());
    for (const Generated::Parameter &parameter : tree.root->Parameter()) {
        const Lean::Parameter lean = parameterOf(parameter);
        receiver.parameters.insert(lean.uniqueName, lean);
    }
    return receiver;
}

} // namespace XsdTree
