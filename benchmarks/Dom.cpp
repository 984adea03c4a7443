#include "Alternatives.h"
#include "TreeBinding.h"

#include <QDomDocument>

namespace Dom {

namespace {

struct Api {
    using Node = QDomElement;

    static bool isNamed(const Node &node, const char *name) { return node.tagName() == QLatin1String(name); }
    template <class Call>
    static void forEachChild(const Node &node, Call call)
    {
        for (Node child = node.firstChildElement(); !child.isNull(); child = child.nextSiblingElement())
            call(child);
    }

    static QString text(const Node &node) { return node.text(); }
    static long long integer(const Node &node) { return text(node).toLongLong(); }
    static double real(const Node &node) { return text(node).toDouble(); }
    static bool isTrue(const Node &node) { return text(node) == QLatin1String("true"); }

    static QString attribute(const Node &node, const char *name)
    {
        return node.attribute(QLatin1String(name));
    }
    static long long integerAttribute(const Node &node, const char *name)
    {
        return attribute(node, name).toLongLong();
    }
    static double realAttribute(const Node &node, const char *name)
    {
        return attribute(node, name).toDouble();
    }
    static bool isTrueAttribute(const Node &node, const char *name)
    {
        return attribute(node, name) == QLatin1String("true");
    }

    static Node append(Node parent, const QString &name)
    {
        return parent.appendChild(parent.ownerDocument().createElement(name)).toElement();
    }
    static Node append(Node parent, const char *name) { return append(parent, QString(QLatin1String(name))); }
    static Node append(Node parent, QStringView name) { return append(parent, name.toString()); }
    static void append(Node parent, const char *name, const QString &text)
    {
        append(parent, name).appendChild(parent.ownerDocument().createTextNode(text));
    }
    static void set(Node node, const char *name, const QString &text)
    {
        node.setAttribute(QLatin1String(name), text);
    }
};

} // namespace

Lean::Receiver read(const QString &text)
{
    QDomDocument document;
    if (!document.setContent(text) || !Api::isNamed(document.documentElement(), "GenericReceiver"))
        throw std::runtime_error("not a receiver");
    return TreeBinding<Api>::read(document.documentElement());
}

QString write(const Lean::Receiver &receiver)
{
    QDomDocument document;
    document.appendChild(
        document.createProcessingInstruction(QStringLiteral("xml"), QStringLiteral("version=\"1.0\"")));
    QDomElement root = document.createElement(QStringLiteral("GenericReceiver"));
    document.appendChild(root);
    TreeBinding<Api>::write(root, receiver);
    constexpr int Indentation = 4;
    return document.toString(Indentation);
}

} // namespace Dom
