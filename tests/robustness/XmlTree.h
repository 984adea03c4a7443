// Documents as trees that can be taken apart, and what a reader meets in them, one event after the other.
#ifndef KORMAK_ROBUSTNESS_XMLTREE_H
#define KORMAK_ROBUSTNESS_XMLTREE_H

#include <QPair>
#include <QString>
#include <QVector>
#include <QXmlStreamReader>

#include <algorithm>
#include <functional>
#include <stdexcept>

namespace Robustness {

using Attributes = QVector<QPair<QString, QString>>;

struct Node {
    enum Kind {
        Element,
        Text,
        Markup, ///< a comment or processing instruction
        DocumentType, ///< not at its place, in a version of Qt that minds it in texts only
        Fault, ///< whatever XML does not allow in this place
    };

    Kind kind = Element;
    QString name; ///< of an element, with its prefix
    Attributes attributes;
    QVector<Node> children;
    QString source; ///< how a text, markup or fault stands in the document
    QString text; ///< what a text says

    void addAttribute(const QString &attribute, const QString &value)
    {
        attributes.append(qMakePair(attribute, value));
    }

    static Node textOf(const QString &text) { return {Text, {}, {}, {}, text.toHtmlEscaped(), text}; }
    static Node textWrittenAs(const QString &source, const QString &text)
    {
        return {Text, {}, {}, {}, source, text};
    }
    static Node markup(const QString &source) { return {Markup, {}, {}, {}, source, {}}; }
    static Node documentType(const QString &source) { return {DocumentType, {}, {}, {}, source, {}}; }
    static Node fault(const QString &source) { return {Fault, {}, {}, {}, source, {}}; }
    static Node element(const QString &name, const QVector<Node> &children = {})
    {
        return {Element, name, {}, children, {}, {}};
    }
};

struct Event {
    enum Kind { Start, Text, End, DocumentType, Fault };

    Kind kind = Fault;
    QString name;
    Attributes attributes;
    QString text;
    int from = 0; ///< place in the document
    int to = 0;
};

using Events = QVector<Event>;

struct Document {
    QString text;
    Events events;
};

namespace Detail {

inline bool hasDuplicates(const Attributes &attributes)
{
    for (int i = 0; i < attributes.size(); ++i) {
        for (int j = 0; j < i; ++j) {
            if (attributes[i].first == attributes[j].first)
                return true;
        }
    }
    return false;
}

inline QString attributeText(const QString &value)
{
    QString text = value.toHtmlEscaped();
    return text.replace('\n', "&#10;").replace('\t', "&#9;");
}

inline void add(Document &document, Event::Kind kind, const QString &source, const Node &node)
{
    const int from = static_cast<int>(document.text.size());
    document.text += source;
    document.events.append(
        {kind, node.name, node.attributes, node.text, from, static_cast<int>(document.text.size())});
}

inline void render(Document &document, const Node &node)
{
    switch (node.kind) {
    case Node::Text:
        add(document, Event::Text, node.source, node);
        break;
    case Node::Markup:
        document.text += node.source;
        break;
    case Node::DocumentType:
        add(document, Event::DocumentType, node.source, node);
        break;
    case Node::Fault:
        add(document, Event::Fault, node.source, node);
        break;
    case Node::Element:
        QString start = '<' + node.name;
        for (const auto &attribute : node.attributes)
            start += ' ' + attribute.first + "=\"" + attributeText(attribute.second) + '"';
        add(document, hasDuplicates(node.attributes) ? Event::Fault : Event::Start, start + '>', node);
        for (const Node &child : node.children)
            render(document, child);
        add(document, Event::End, "</" + node.name + '>', node);
    }
}

} // namespace Detail

inline Document documentOf(const Node &root)
{
    Document document;
    Detail::render(document, root);
    return document;
}

/// The document up to \a length characters, cut off there.
inline Document prefixOf(const Document &document, int length)
{
    Document prefix{document.text.left(length), {}};
    for (const Event &event : document.events) {
        if (event.to <= length) {
            prefix.events.append(event);
            continue;
        }
        if (event.kind == Event::Text && event.from < length) {
            Event cut = event;
            cut.text.truncate(length - event.from);
            prefix.events.append(cut);
        }
        prefix.events.append(Event{Event::Fault, {}, {}, {}, length, length});
        break;
    }
    return prefix;
}

/// The tree of \a text, a document without blanks between its elements.
inline Node treeOf(const QString &text)
{
    QXmlStreamReader reader(text);
    std::function<Node()> readElement = [&] {
        Node node = Node::element(reader.qualifiedName().toString());
        for (const QXmlStreamAttribute &attribute : reader.attributes())
            node.addAttribute(attribute.qualifiedName().toString(), attribute.value().toString());
        while (!reader.atEnd() && reader.readNext() != QXmlStreamReader::EndElement) {
            if (reader.isStartElement())
                node.children.append(readElement());
            else if (reader.isCharacters())
                node.children.append(Node::textOf(reader.text().toString()));
        }
        return node;
    };
    if (!reader.readNextStartElement())
        throw std::invalid_argument(text.toStdString());
    const Node root = readElement();
    if (reader.hasError())
        throw std::invalid_argument(reader.errorString().toStdString());
    return root;
}

/// A variant of a document, and its name for the report.
struct Variant {
    QString name;
    Node root;
};

using Variants = QVector<Variant>;
using Change = std::function<void(Node &)>;

/// One variant for each element of \a root that \a fits: \a change is applied to the element.
inline Variants changedElements(const Node &root, const QString &what, const Change &change,
                                const std::function<bool(const Node &)> &fits = {})
{
    Variants variants;
    QVector<int> path;
    const std::function<void(const Node &, const QString &)> visit = [&](const Node &node,
                                                                         const QString &name) {
        if (!fits || fits(node)) {
            Variant variant{name + ": " + what, root};
            Node *target = &variant.root;
            for (const int index : path)
                target = &target->children[index];
            change(*target);
            variants.append(variant);
        }
        for (int i = 0; i < node.children.size(); ++i) {
            if (node.children[i].kind != Node::Element)
                continue;
            path.append(i);
            visit(node.children[i], name + '/' + node.children[i].name);
            path.removeLast();
        }
    };
    visit(root, root.name);
    return variants;
}

/// As changedElements(), for every child element; \a change is given its parent and its place in it.
inline Variants changedChildren(const Node &root, const QString &what,
                                const std::function<void(Node &parent, int index)> &change)
{
    Variants variants;
    int most = 0;
    (void)changedElements(root, what, [&most](const Node &node) {
        most = std::max(most, static_cast<int>(node.children.size()));
    });
    for (int index = 0; index < most; ++index) {
        const auto isElementThere = [index](const Node &node) {
            return index < node.children.size() && node.children[index].kind == Node::Element;
        };
        const QString name = QString("child %1 ").arg(index) + what;
        variants += changedElements(
            root, name, [&](Node &node) { change(node, index); }, isElementThere);
    }
    return variants;
}

/// As changedElements(), for every attribute.
inline Variants changedAttributes(const Node &root, const QString &what,
                                  const std::function<void(Node &, int index)> &change)
{
    Variants variants;
    constexpr int MostAttributes = 5;
    for (int index = 0; index < MostAttributes; ++index) {
        variants += changedElements(
            root, QString("attribute %1 ").arg(index) + what, [&](Node &node) { change(node, index); },
            [index](const Node &node) { return index < node.attributes.size(); });
    }
    return variants;
}

} // namespace Robustness

#endif
