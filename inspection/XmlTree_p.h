// An XML document as a tree, to compare what two documents say. The nodes stand in one list, in document
// order: documents may have a million of them, nested to any depth.
#ifndef KORMAK_INSPECTION_XMLTREE_P_H
#define KORMAK_INSPECTION_XMLTREE_P_H

#include <inspection/TextPool_p.h>

#include <QByteArray>
#include <QString>
#include <QStringView>

#include <algorithm>
#include <deque>
#include <iterator>
#include <limits>
#include <optional>
#include <vector>

namespace KORMAK::Inspection {

class XmlTree {
public:
    using Index = qint32;
    static constexpr Index None = -1;

    struct Attribute {
        QString name; ///< with its prefix
        QString value;
    };
    /// What stands beside the elements.
    struct Aside {
        enum class Kind { Comment, Instruction, DocumentType };
        Kind kind;
        QString text;
        qsizetype offset;
        Index parent;
    };
    /// Where and why a text breaks off that is not well-formed.
    struct Break {
        QString message;
        qsizetype offset;
        Index element; ///< the innermost one that it breaks off in; None when it does so outside the root
    };

    static constexpr Index Root = 0;

    /// Of a document without any text.
    XmlTree() = default;
    /// When \a utf8 is not well-formed, the tree holds what stands before the place where it breaks. Offsets
    /// count its bytes. \throws std::bad_alloc
    explicit XmlTree(const QByteArray &utf8, int mostDepth = std::numeric_limits<int>::max());

    [[nodiscard]] const std::optional<Break> &broken() const noexcept { return breakOff; }
    [[nodiscard]] bool isBroken() const noexcept { return breakOff.has_value(); }
    [[nodiscard]] Index brokenIn() const noexcept { return breakOff ? breakOff->element : None; }

    /// The first element within more than \a mostDepth - 1 others; None when there is none.
    [[nodiscard]] Index firstTooDeep() const noexcept { return tooDeep; }

    /// Only a broken text may have none. Without it there is no element to ask for.
    [[nodiscard]] bool hasRoot() const noexcept { return !nodes.empty(); }

    /// With its prefix.
    [[nodiscard]] const QString &name(Index element) const { return names[node(element).name]; }
    /// What an element or attribute is called, as a number from 0: equal names have the same one.
    using NameNumber = quint32;
    [[nodiscard]] NameNumber nameNumber(Index element) const { return node(element).name; }
    /// All names of the document, each at its number.
    [[nodiscard]] const std::vector<QString> &allNames() const noexcept { return names; }
    /// Without the white space around it that lays out child elements or the document.
    [[nodiscard]] QString text(Index element) const { return texts.text(node(element).text); }
    /// As text(), for as long as \a room holds it.
    [[nodiscard]] QStringView text(Index element, TextPool::Room &room) const
    {
        return texts.text(node(element).text, room);
    }
    /// Of a root without children, with all white space.
    [[nodiscard]] const QString &rootText() const noexcept { return rootContent; }
    [[nodiscard]] bool hasText(Index element) const { return node(element).text != TextPool::Empty; }
    /// Where it stands in the text of the document.
    [[nodiscard]] qsizetype offset(Index element) const { return node(element).offset; }
    [[nodiscard]] Index parent(Index element) const { return node(element).parent; }
    [[nodiscard]] Index firstChild(Index element) const
    {
        const Index next = element + 1;
        return next < end() && node(next).parent == element ? next : None;
    }
    [[nodiscard]] Index nextSibling(Index element) const { return node(element).nextSibling; }
    [[nodiscard]] bool hasChild(Index element) const { return firstChild(element) != None; }

    /// Namespace declarations count as attributes.
    [[nodiscard]] std::vector<Attribute> attributes(Index element) const;
    [[nodiscard]] bool hasAttributes(Index element) const
    {
        return node(element).firstAttribute < attributesEnd(element);
    }
    /// The value of the attribute called \a name; nothing when there is none.
    [[nodiscard]] std::optional<QString> attribute(Index element, QStringView name) const;
    /// Does \a work with the name and the value of each attribute, which are there for as long as it takes.
    template <class Work>
    void eachAttribute(Index element, Work work) const
    {
        TextPool::Room room;
        const std::size_t last = attributesEnd(element);
        for (std::size_t i = node(element).firstAttribute; i < last; ++i) {
            const NodeAttribute &attribute = nodeAttributes[i];
            work(attribute.name, texts.text(attribute.value, room));
        }
    }

    /// Elements have the indexes from Root to before this one; all that is in an element follows it.
    [[nodiscard]] Index end() const { return static_cast<Index>(nodes.size()); }
    [[nodiscard]] const std::vector<Aside> &allAsides() const noexcept { return asides; }

    /// The first child called \a name, or None.
    [[nodiscard]] Index findChild(Index parent, QStringView name) const;

    /// The names down to the element, the unique names of those that have one included. Long names are cut,
    /// and of a deep path only the end is told.
    [[nodiscard]] QString path(Index element) const;

private:
    friend class XmlTreeBuilder;

    // As small as can be: a document of a gigabyte has some ten million elements.
    struct Node {
        NameNumber name;
        TextPool::Id text;
        qint32 offset;
        Index parent;
        Index nextSibling;
        quint32 firstAttribute; ///< its attributes end where those of the next element begin
    };
    struct NodeAttribute {
        NameNumber name;
        TextPool::Id value;
    };

    [[nodiscard]] const Node &node(Index element) const { return nodes[static_cast<std::size_t>(element)]; }
    [[nodiscard]] std::size_t attributesEnd(Index element) const
    {
        return element + 1 < end() ? node(element + 1).firstAttribute : nodeAttributes.size();
    }

    std::deque<Node> nodes;
    std::deque<NodeAttribute> nodeAttributes;
    std::vector<QString> names;
    TextPool texts;
    std::vector<Aside> asides;
    std::optional<Break> breakOff;
    Index tooDeep = None;
    QString rootContent;
};

/// The name of an element without its prefix.
[[nodiscard]] inline QStringView localName(QStringView name)
{
    const auto *const colon = std::find(std::make_reverse_iterator(name.end()),
                                        std::make_reverse_iterator(name.begin()), QChar(u':'))
                                  .base();
    return name.mid(colon - name.begin());
}

/// The attribute that tells apart elements of the same name.
inline constexpr QStringView UniqueNameAttribute = u"UniqueName";

/// The first element called \a name whatever its prefix, or the root element when none is.
[[nodiscard]] XmlTree::Index elementNamed(const XmlTree &tree, QStringView name);

} // namespace KORMAK::Inspection

#endif
