#include "inspection/XmlTree_p.h"

#include <inspection/QuotedText_p.h>
#include <inspection/XmlPlaces_p.h>
#include <objectbase/DocumentXml_p.h>

#include <QHash>
#include <QStringList>
#include <QXmlStreamReader>

#include <algorithm>
#include <limits>
#include <new>
#include <utility>

namespace KORMAK::Inspection {

class XmlTreeBuilder {
public:
    XmlTreeBuilder(XmlTree &result, const QByteArray &document, int depthLimit)
        : tree(result), text(document), mostDepth(depthLimit), placed(document), reader(placed.xml())
    {
    }

    void build()
    {
        if (!breaksBeforeRoot())
            read();
        for (; !open.empty(); open.pop_back())
            setText(open.back().element, open.back().text);
    }

private:
    using Index = XmlTree::Index;
    using Attributes = std::vector<XmlTree::Attribute>;

    /// An element that is not closed yet, the last of its children so far, and its text so far.
    struct Open {
        Index element;
        Index lastChild;
        QString text;
    };

    static constexpr auto MostNodes = static_cast<std::size_t>(std::numeric_limits<Index>::max());

    XmlTree::Node &at(Index index) { return tree.nodes[static_cast<std::size_t>(index)]; }
    Index currentIndex() const { return open.empty() ? XmlTree::None : open.back().element; }

    /// What the library refuses to read at all.
    bool breaksBeforeRoot()
    {
        PlacedReader prolog(text);
        if (TESSEL::readToRoot(prolog.xml()))
            return false;
        tree.breakOff = {oneLine(prolog.xml().errorString()), prolog.placeOfError(), XmlTree::None};
        return true;
    }

    void read()
    {
        while (!reader.atEnd() && !tree.isBroken()) {
            switch (reader.readNext()) {
            case QXmlStreamReader::StartElement:
                startElement();
                break;
            case QXmlStreamReader::EndElement:
                endElement();
                break;
            case QXmlStreamReader::Characters:
                if (!open.empty())
                    open.back().text += reader.text();
                break;
            default:
                addAside();
                break;
            }
        }
        if (reader.hasError())
            tree.breakOff = {oneLine(reader.errorString()), placed.placeOfError(), currentIndex()};
    }

    quint32 numberOf(const QString &name)
    {
        const auto known = numbers.constFind(name); // documents repeat few names many times
        if (known != numbers.constEnd())
            return *known;
        const auto number = static_cast<quint32>(tree.names.size());
        tree.names.push_back(name);
        numbers.insert(name, number);
        return number;
    }

    void startElement()
    {
        if (tree.nodes.size() == MostNodes || tree.nodeAttributes.size() >= MostNodes)
            throw std::bad_alloc();
        const qsizetype start = placed.startOfToken();
        const auto present = attributes();
        if (tree.isBroken())
            return;
        XmlTree::Node node{};
        node.name = numberOf(reader.qualifiedName().toString());
        node.offset = static_cast<qint32>(start);
        node.parent = currentIndex();
        node.nextSibling = XmlTree::None;
        node.firstAttribute = static_cast<quint32>(tree.nodeAttributes.size());
        for (const XmlTree::Attribute &attribute : present)
            tree.nodeAttributes.push_back({numberOf(attribute.name), tree.texts.put(attribute.value)});
        const auto index = static_cast<Index>(tree.nodes.size());
        tree.nodes.push_back(node);
        if (tree.tooDeep == XmlTree::None && !open.empty() && static_cast<qint64>(open.size()) >= mostDepth)
            tree.tooDeep = index;
        if (!open.empty()) {
            const Index before = std::exchange(open.back().lastChild, index);
            if (before != XmlTree::None)
                at(before).nextSibling = index;
        }
        open.push_back({index, XmlTree::None, {}});
    }

    /// In the order in which they stand in the tag. Qt's reader does not mind that a namespace is declared
    /// twice, but that is not well-formed.
    Attributes attributes()
    {
        const QXmlStreamAttributes plain = reader.attributes();
        const QXmlStreamNamespaceDeclarations declarations = reader.namespaceDeclarations();
        Attributes all;
        all.reserve(static_cast<std::size_t>(plain.size() + declarations.size()));
        for (const auto &declaration : declarations) {
            const QString prefix = declaration.prefix().toString();
            all.push_back({prefix.isEmpty() ? QStringLiteral("xmlns") : QStringLiteral("xmlns:") + prefix,
                           declaration.namespaceUri().toString()});
        }
        const bool hasDeclarations = !all.empty();
        if (declarations.size() > 1)
            refuseRepeated(all);
        for (const auto &attribute : plain)
            all.push_back({attribute.qualifiedName().toString(), attribute.value().toString()});
        if (hasDeclarations)
            sortAsInTag(all);
        return all;
    }

    void refuseRepeated(const Attributes &declarations)
    {
        QStringList sorted;
        for (const XmlTree::Attribute &declaration : declarations)
            sorted += declaration.name;
        std::sort(sorted.begin(), sorted.end());
        const auto twice = std::adjacent_find(sorted.begin(), sorted.end());
        if (twice == sorted.end())
            return;
        qsizetype place = placed.startOfToken();
        for (const auto &[name, offset] : placed.attributesInTag()) {
            if (name == *twice)
                place = offset; // of the last one
        }
        tree.breakOff = {
            QStringLiteral("The namespace declaration '%1' stands twice in one element.").arg(*twice), place,
            currentIndex()};
    }

    void sortAsInTag(Attributes &all)
    {
        QHash<QString, qsizetype> places;
        for (const auto &[name, offset] : placed.attributesInTag())
            places.insert(name, offset);
        const auto placeOf = [&places](const XmlTree::Attribute &attribute) {
            return places.value(attribute.name, std::numeric_limits<qsizetype>::max());
        };
        std::stable_sort(all.begin(), all.end(),
                         [&placeOf](const auto &a, const auto &b) { return placeOf(a) < placeOf(b); });
    }

    void endElement()
    {
        const auto &[element, lastChild, content] = open.back();
        const bool hasLayout = lastChild != XmlTree::None || element == XmlTree::Root;
        if (element == XmlTree::Root && lastChild == XmlTree::None)
            tree.rootContent = content;
        setText(element, hasLayout ? withoutLayout(content) : QStringView(content));
        open.pop_back();
    }

    void setText(Index element, QStringView content) { at(element).text = tree.texts.put(content); }

    static QStringView withoutLayout(QStringView text)
    {
        const auto isLayout = [](QChar c) { return QStringView(u" \t\r\n").contains(c); };
        const auto begin = std::find_if_not(text.begin(), text.end(), isLayout);
        const auto end = std::find_if_not(text.rbegin(), std::make_reverse_iterator(begin), isLayout).base();
        return text.mid(begin - text.begin(), end - begin);
    }

    void addAside()
    {
        using Kind = XmlTree::Aside::Kind;
        if (reader.isComment())
            add(Kind::Comment, reader.text().toString());
        else if (reader.isDTD())
            add(Kind::DocumentType, reader.dtdName().toString());
        else if (reader.isProcessingInstruction())
            add(Kind::Instruction,
                (reader.processingInstructionTarget().toString() + QLatin1Char(' ')
                 + reader.processingInstructionData().toString())
                    .trimmed());
    }

    void add(XmlTree::Aside::Kind kind, const QString &content)
    {
        tree.asides.push_back({kind, content, placed.startOfToken(), currentIndex()});
    }

    XmlTree &tree;
    const QByteArray &text;
    const int mostDepth;
    PlacedReader placed;
    QXmlStreamReader &reader;
    QHash<QString, quint32> numbers;
    std::vector<Open> open;
};

XmlTree::XmlTree(const QByteArray &utf8, int mostDepth)
{
    XmlTreeBuilder(*this, utf8, mostDepth).build();
}

std::size_t XmlTree::attributesEnd(Index element) const
{
    return element + 1 < end() ? node(element + 1).firstAttribute : nodeAttributes.size();
}

std::vector<XmlTree::Attribute> XmlTree::attributes(Index element) const
{
    std::vector<Attribute> found;
    const std::size_t last = attributesEnd(element);
    for (std::size_t i = node(element).firstAttribute; i < last; ++i)
        found.push_back({names[nodeAttributes[i].name], texts.text(nodeAttributes[i].value)});
    return found;
}

bool XmlTree::hasAttributes(Index element) const
{
    return node(element).firstAttribute < attributesEnd(element);
}

std::optional<QString> XmlTree::attribute(Index element, QStringView name) const
{
    const std::size_t last = attributesEnd(element);
    for (std::size_t i = node(element).firstAttribute; i < last; ++i) {
        if (names[nodeAttributes[i].name] == name)
            return texts.text(nodeAttributes[i].value);
    }
    return std::nullopt;
}

XmlTree::Index XmlTree::findChild(Index parent, QStringView name) const
{
    Index child = firstChild(parent);
    while (child != None && this->name(child) != name)
        child = nextSibling(child);
    return child;
}

QString XmlTree::path(Index element) const
{
    constexpr int MostSteps = 20;
    QStringList steps;
    for (; element != None && steps.size() < MostSteps; element = parent(element)) {
        const auto uniqueName = attribute(element, UniqueNameAttribute);
        const QString step = shortened(name(element));
        steps.prepend(uniqueName ? QStringLiteral("%1[%2]").arg(step, shortened(*uniqueName)) : step);
    }
    if (element != None)
        steps.prepend(QString(QChar(0x2026)));
    return steps.join(QLatin1Char('/'));
}

XmlTree::Index elementNamed(const XmlTree &tree, QStringView name)
{
    for (XmlTree::Index i = XmlTree::Root; i < tree.end(); ++i) {
        if (localName(tree.name(i)) == name)
            return i;
    }
    return XmlTree::Root;
}

} // namespace KORMAK::Inspection
