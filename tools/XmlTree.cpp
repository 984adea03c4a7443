#include "tools/XmlTree.h"

#include <tools/Console.h>
#include <tools/XmlPlaces.h>

#include <QSet>
#include <QStringList>
#include <QXmlStreamReader>

#include <algorithm>

class XmlTreeBuilder {
public:
    XmlTreeBuilder(XmlTree &result, const QString &document) : tree(result), text(document), reader(document)
    {
        reader.setNamespaceProcessing(false);
    }

    void build()
    {
        while (!reader.atEnd()) {
            switch (reader.readNext()) {
            case QXmlStreamReader::StartElement:
                startElement();
                break;
            case QXmlStreamReader::EndElement:
                endElement();
                break;
            case QXmlStreamReader::Characters:
                if (!open.empty())
                    current().text += reader.text();
                break;
            default:
                addAside();
                break;
            }
        }
        tree.isCut = reader.hasError();
        tree.brokenElement = currentIndex();
    }

private:
    /// An element that is not closed yet, and the last of its children so far.
    struct Open {
        XmlTree::Index element;
        XmlTree::Index lastChild;
    };

    XmlTree::Element &at(XmlTree::Index index) { return tree.elements[static_cast<std::size_t>(index)]; }
    XmlTree::Element &current() { return at(open.back().element); }
    XmlTree::Index currentIndex() const { return open.empty() ? XmlTree::None : open.back().element; }

    /// Documents repeat few names many times.
    template <class Text>
    const QString &shared(Text name)
    {
        return *names.insert(name.toString());
    }

    void startElement()
    {
        const auto index = static_cast<XmlTree::Index>(tree.elements.size());
        const auto attributesBegin = static_cast<XmlTree::Index>(tree.attributes.size());
        const QXmlStreamAttributes present = reader.attributes();
        for (const auto &attribute : present)
            tree.attributes.push_back({shared(attribute.qualifiedName()), attribute.value().toString()});
        XmlTree::Element element;
        element.name = shared(reader.qualifiedName());
        element.offset = startOfToken(reader, text);
        element.parent = currentIndex();
        element.firstAttribute = attributesBegin;
        element.attributesEnd = static_cast<XmlTree::Index>(tree.attributes.size());
        tree.elements.push_back(element);
        if (!open.empty())
            link(index);
        open.push_back({index, XmlTree::None});
    }

    void link(XmlTree::Index child)
    {
        Open &parent = open.back();
        if (parent.lastChild == XmlTree::None)
            at(parent.element).firstChild = child;
        else
            at(parent.lastChild).nextSibling = child;
        parent.lastChild = child;
    }

    void endElement()
    {
        XmlTree::Element &element = current();
        if (element.firstChild != XmlTree::None || element.parent == XmlTree::None)
            element.text = withoutLayout(element.text);
        open.pop_back();
    }

    static QString withoutLayout(const QString &text)
    {
        const auto isLayout = [](QChar c) { return QStringView(u" \t\r\n").contains(c); };
        const auto begin = std::find_if_not(text.begin(), text.end(), isLayout);
        const auto end = std::find_if_not(text.rbegin(), std::make_reverse_iterator(begin), isLayout).base();
        return QString(begin, static_cast<int>(end - begin));
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
        tree.asides.push_back({kind, content, startOfToken(reader, text), currentIndex()});
    }

    XmlTree &tree;
    const QString &text;
    QXmlStreamReader reader;
    QSet<QString> names;
    std::vector<Open> open;
};

XmlTree::XmlTree(const QString &text)
{
    XmlTreeBuilder(*this, text).build();
}

const XmlTree::Attribute *XmlTree::findAttribute(const Element &element, QStringView name) const
{
    const auto begin = attributes.begin() + element.firstAttribute;
    const auto end = attributes.begin() + element.attributesEnd;
    const auto found =
        std::find_if(begin, end, [name](const auto &candidate) { return candidate.name == name; });
    return found == end ? nullptr : &*found;
}

XmlTree::Index XmlTree::findChild(Index parent, QStringView name) const
{
    Index child = element(parent).firstChild;
    while (child != None && element(child).name != name)
        child = element(child).nextSibling;
    return child;
}

QString XmlTree::path(Index index) const
{
    constexpr int MostSteps = 20;
    QStringList steps;
    for (; index != None && steps.size() < MostSteps; index = element(index).parent) {
        const Element &step = element(index);
        const Attribute *uniqueName = findAttribute(step, UniqueNameAttribute);
        const QString name = Console::shortened(step.name);
        steps.prepend(uniqueName ? QStringLiteral("%1[%2]").arg(name, Console::shortened(uniqueName->value))
                                 : name);
    }
    if (index != None)
        steps.prepend(QString(QChar(0x2026)));
    return steps.join(QLatin1Char('/'));
}
