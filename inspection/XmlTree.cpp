#include "inspection/XmlTree_p.h"

#include <inspection/QuotedText_p.h>
#include <inspection/XmlPlaces_p.h>
#include <objectbase/DocumentXml_p.h>
#include <objectbase/QtCompat_p.h>

#include <QHash>
#include <QStringList>
#include <QXmlStreamReader>

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <new>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace KORMAK::Inspection {

namespace {

bool areEqual(QStringView a, QStringView b)
{
    return a.size() == b.size()
        && std::memcmp(a.data(), b.data(), static_cast<std::size_t>(a.size()) * sizeof(QChar)) == 0;
}

bool holds(const QByteArray &text, std::string_view word)
{
    return std::string_view(text.constData(), static_cast<std::size_t>(text.size())).find(word)
        != std::string_view::npos;
}

} // namespace

class XmlTreeBuilder {
public:
    XmlTreeBuilder(XmlTree &result, const QByteArray &document, int depthLimit)
        : tree(result), mostDepth(depthLimit), placed(document), reader(placed.xml()),
          mayDeclareNamespaces(holds(document, "xmlns") || holds(document, "!DOCTYPE"))
    {
    }

    void build()
    {
        read();
        for (; !open.empty(); close())
            setText(open.back().element, openText());
    }

private:
    using Index = XmlTree::Index;
    using Attributes = std::vector<XmlTree::Attribute>;

    /// An element that is not closed yet, and the last of its children so far.
    struct Open {
        Index element;
        Index lastChild;
        std::size_t textBegin; ///< of its text so far in that of all open elements
    };

    struct NameHash {
        std::size_t operator()(QStringView name) const { return static_cast<std::size_t>(qHash(name)); }
    };

    /// A name that was met, at a place that its length and outer characters tell.
    struct RecentName {
        QStringView name = {}; ///< null: none
        quint32 number = 0;
    };
    static constexpr std::size_t RecentNames = 256;

    static constexpr auto MostNodes = static_cast<std::size_t>(std::numeric_limits<Index>::max());

    XmlTree::Node &at(Index index) { return tree.nodes[static_cast<std::size_t>(index)]; }
    Index currentIndex() const { return open.empty() ? XmlTree::None : open.back().element; }

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
                if (!open.empty()) {
                    const auto text = reader.text();
                    texts.append(QStringView(text).utf16(), static_cast<std::size_t>(text.size()));
                }
                break;
            default:
                addAside();
                TESSEL::refuseLongEntities(reader); // as the library does
                break;
            }
        }
        if (!reader.hasError())
            return;
        tree.breakOff = {oneLine(reader.errorString()), placed.placeOfError(), currentIndex()};
        if (!tree.hasRoot()) // it is no document that something stands beside
            tree.asides.clear();
    }

    quint32 numberOf(QStringView name)
    {
        const uint place =
            name.front().unicode() * 7U + name.back().unicode() * 31U + static_cast<uint>(name.size()) * 131U;
        RecentName &recent = recentNames[place % RecentNames];
        if (!areEqual(recent.name, name)) {
            recent.number = numberOfRare(name);
            recent.name = tree.names[recent.number]; // whose characters stay where they are
        }
        return recent.number;
    }

    quint32 numberOfRare(QStringView name)
    {
        const auto known = numbers.find(name); // documents repeat few names many times
        if (known != numbers.end())
            return known->second;
        const auto number = static_cast<quint32>(tree.names.size());
        tree.names.push_back(name.toString());
        numbers.emplace(tree.names.back(), number);
        return number;
    }

    void startElement()
    {
        if (tree.nodes.size() == MostNodes || tree.nodeAttributes.size() >= MostNodes)
            throw std::bad_alloc();
        const qsizetype start = placed.startOfToken();
        const QXmlStreamNamespaceDeclarations declarations =
            mayDeclareNamespaces ? reader.namespaceDeclarations() : QXmlStreamNamespaceDeclarations();
        const auto present = declarations.isEmpty() ? Attributes() : withDeclarations(declarations);
        if (tree.isBroken())
            return;
        XmlTree::Node node{};
        node.name = numberOf(reader.qualifiedName());
        node.offset = static_cast<qint32>(start);
        node.parent = currentIndex();
        node.nextSibling = XmlTree::None;
        node.firstAttribute = static_cast<quint32>(tree.nodeAttributes.size());
        if (declarations.isEmpty()) {
            const QXmlStreamAttributes plain = reader.attributes();
            for (const auto &attribute : plain)
                addAttribute(attribute.qualifiedName(), attribute.value());
        }
        for (const XmlTree::Attribute &attribute : present)
            addAttribute(attribute.name, attribute.value);
        const auto index = static_cast<Index>(tree.nodes.size());
        tree.nodes.push_back(node);
        if (tree.tooDeep == XmlTree::None && !open.empty() && static_cast<qint64>(open.size()) >= mostDepth)
            tree.tooDeep = index;
        if (!open.empty()) {
            const Index before = std::exchange(open.back().lastChild, index);
            if (before != XmlTree::None)
                at(before).nextSibling = index;
        }
        open.push_back({index, XmlTree::None, texts.size()});
    }

    void addAttribute(QStringView name, QStringView value)
    {
        tree.nodeAttributes.push_back({numberOf(name), tree.texts.put(value)});
    }

    /// The attributes and \a declarations in the order in which they stand in the tag. Qt's reader does not
    /// mind that a namespace is declared twice, but that is not well-formed.
    Attributes withDeclarations(const QXmlStreamNamespaceDeclarations &declarations)
    {
        const QXmlStreamAttributes plain = reader.attributes();
        Attributes all;
        all.reserve(static_cast<std::size_t>(plain.size() + declarations.size()));
        for (const auto &declaration : declarations) {
            const QString prefix = declaration.prefix().toString();
            all.push_back({prefix.isEmpty() ? QStringLiteral("xmlns") : QStringLiteral("xmlns:") + prefix,
                           declaration.namespaceUri().toString()});
        }
        if (declarations.size() > 1)
            refuseRepeated(all);
        for (const auto &attribute : plain)
            all.push_back({attribute.qualifiedName().toString(), attribute.value().toString()});
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
        const Open &element = open.back();
        const QStringView content = openText();
        const bool isRoot = element.element == XmlTree::Root;
        const bool hasLayout = element.lastChild != XmlTree::None || isRoot;
        if (isRoot && element.lastChild == XmlTree::None)
            tree.rootContent = content.isEmpty() ? QString() : content.toString();
        setText(element.element, hasLayout ? withoutLayout(content) : content);
        close();
    }

    /// Of the innermost element that is open.
    QStringView openText() const
    {
        const std::size_t begin = open.back().textBegin;
        return {texts.data() + begin, static_cast<qsizetype>(texts.size() - begin)};
    }

    void close()
    {
        texts.resize(open.back().textBegin);
        open.pop_back();
    }

    void setText(Index element, QStringView content) { at(element).text = tree.texts.put(content); }

    static QStringView withoutLayout(QStringView text)
    {
        const auto isLayout = [](QChar c) { return c == u' ' || c == u'\n' || c == u'\t' || c == u'\r'; };
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
    const int mostDepth;
    PlacedReader placed;
    QXmlStreamReader &reader;
    std::unordered_map<QStringView, quint32, NameHash> numbers;
    std::vector<Open> open;
    const bool mayDeclareNamespaces; ///< only words in the text, or entities, do
    std::array<RecentName, RecentNames> recentNames;
    std::u16string texts; ///< of all open elements, one behind the other
};

XmlTree::XmlTree(const QByteArray &utf8, int mostDepth)
{
    XmlTreeBuilder(*this, utf8, mostDepth).build();
}

std::vector<XmlTree::Attribute> XmlTree::attributes(Index element) const
{
    std::vector<Attribute> found;
    const std::size_t last = attributesEnd(element);
    for (std::size_t i = node(element).firstAttribute; i < last; ++i)
        found.push_back({names[nodeAttributes[i].name], texts.text(nodeAttributes[i].value)});
    return found;
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
