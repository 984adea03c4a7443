#include "Alternatives.h"
#include "TreeBinding.h"

#include <cstring>
#include <pugixml.hpp>

namespace Pugixml {

namespace {

struct Api {
    using Node = pugi::xml_node;

    static bool isNamed(const Node &node, const char *name) { return std::strcmp(node.name(), name) == 0; }
    template <class Call>
    static void forEachChild(const Node &node, Call call)
    {
        for (const Node &child : node.children())
            call(child);
    }

    static QString text(const Node &node) { return QString::fromUtf8(node.text().get()); }
    static long long integer(const Node &node) { return node.text().as_llong(); }
    static double real(const Node &node) { return node.text().as_double(); }
    static bool isTrue(const Node &node) { return std::strcmp(node.text().get(), "true") == 0; }

    static QString attribute(const Node &node, const char *name)
    {
        return QString::fromUtf8(node.attribute(name).value());
    }
    static long long integerAttribute(const Node &node, const char *name)
    {
        return node.attribute(name).as_llong();
    }
    static double realAttribute(const Node &node, const char *name)
    {
        return node.attribute(name).as_double();
    }
    static bool isTrueAttribute(const Node &node, const char *name)
    {
        return std::strcmp(node.attribute(name).value(), "true") == 0;
    }

    static Node append(Node parent, const char *name) { return parent.append_child(name); }
    static Node append(Node parent, QStringView name)
    {
        return parent.append_child(name.toUtf8().constData());
    }
    static void append(Node parent, const char *name, const QString &text)
    {
        append(parent, name).text().set(text.toUtf8().constData());
    }
    static void set(Node node, const char *name, const QString &text)
    {
        node.append_attribute(name).set_value(text.toUtf8().constData());
    }
};

struct StringWriter final : pugi::xml_writer {
    std::string text;

    void write(const void *data, std::size_t size) override
    {
        text.append(static_cast<const char *>(data), size);
    }
};

} // namespace

Lean::Receiver read(const std::string &text)
{
    pugi::xml_document document;
    if (!document.load_buffer(text.data(), text.size(), pugi::parse_default, pugi::encoding_utf8)
        || !Api::isNamed(document.document_element(), "GenericReceiver"))
        throw std::runtime_error("not a receiver");
    return TreeBinding<Api>::read(document.document_element());
}

std::string write(const Lean::Receiver &receiver)
{
    pugi::xml_document document;
    TreeBinding<Api>::write(document.append_child("GenericReceiver"), receiver);
    StringWriter writer;
    document.save(writer, "    ");
    return std::move(writer.text);
}

} // namespace Pugixml
