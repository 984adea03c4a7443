// An XML document as a tree, to compare what two documents say. The nodes stand in one vector, in document
// order: documents may have a million of them, nested to any depth.
#ifndef KORMAK_TOOLS_XMLTREE_H
#define KORMAK_TOOLS_XMLTREE_H

#include <QString>
#include <QStringView>

#include <vector>

class XmlTree {
public:
    using Index = qint32;
    static constexpr Index None = -1;

    struct Attribute {
        QString name;
        QString value;
    };
    struct Element {
        QString name; ///< with its prefix
        QString text; ///< without the white space around it that lays out child elements or the document
        qsizetype offset; ///< where it stands in the text of the document
        Index parent;
        Index firstChild = None;
        Index nextSibling = None;
        Index firstAttribute; ///< namespace declarations count as attributes
        Index attributesEnd;
    };
    /// What stands beside the elements.
    struct Aside {
        enum class Kind { Comment, Instruction, DocumentType };
        Kind kind;
        QString text;
        qsizetype offset;
        Index parent;
    };

    static constexpr Index Root = 0;

    /// When \a text is not well-formed, the tree holds what stands before the place where it breaks.
    explicit XmlTree(const QString &text);

    [[nodiscard]] bool isBroken() const noexcept { return isCut; }
    /// The innermost element that a broken text breaks off in; None when it does so outside the root.
    [[nodiscard]] Index brokenIn() const noexcept { return brokenElement; }

    [[nodiscard]] const Element &element(Index index) const
    {
        return elements[static_cast<std::size_t>(index)];
    }
    [[nodiscard]] const Attribute &attribute(Index index) const
    {
        return attributes[static_cast<std::size_t>(index)];
    }
    /// Elements have the indexes from Root to before this one; all that is in an element follows it.
    [[nodiscard]] Index end() const { return static_cast<Index>(elements.size()); }
    [[nodiscard]] const std::vector<Aside> &allAsides() const noexcept { return asides; }

    /// The attribute of an element; null when it has none of that name.
    [[nodiscard]] const Attribute *findAttribute(const Element &element, QStringView name) const;

    /// The first child called \a name, or None.
    [[nodiscard]] Index findChild(Index parent, QStringView name) const;

    /// The names down to the element, the unique names of those that have one included. Long names are cut,
    /// and of a deep path only the end is told.
    [[nodiscard]] QString path(Index index) const;

private:
    friend class XmlTreeBuilder;

    std::vector<Element> elements;
    std::vector<Attribute> attributes;
    std::vector<Aside> asides;
    bool isCut = false;
    Index brokenElement = None;
};

/// The name of an element without its prefix.
[[nodiscard]] inline QStringView localName(QStringView name)
{
    return name.mid(name.lastIndexOf(QLatin1Char(':')) + 1);
}

/// The attribute that tells apart elements of the same name.
inline constexpr QStringView UniqueNameAttribute = u"UniqueName";

#endif
