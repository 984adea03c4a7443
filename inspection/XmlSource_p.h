// Where the elements and attributes of a document stand in its bytes, from their first to their last.
#ifndef KORMAK_INSPECTION_XMLSOURCE_P_H
#define KORMAK_INSPECTION_XMLSOURCE_P_H

#include <inspection/XmlTree_p.h>

#include <QByteArray>

#include <optional>
#include <vector>

namespace KORMAK::Inspection {

class XmlSource {
public:
    struct Element {
        qsizetype begin; ///< of the start tag
        qsizetype tagEnd; ///< behind the start tag
        qsizetype contentEnd; ///< the end tag begins
        qsizetype end; ///< behind the end tag

        [[nodiscard]] bool isEmptyTag() const noexcept { return tagEnd == end; }
    };
    struct Attribute {
        qsizetype begin; ///< of the blanks before its name
        qsizetype valueBegin;
        qsizetype valueEnd;
        qsizetype end; ///< behind the quote

        [[nodiscard]] char quote(const QByteArray &utf8) const { return utf8.at(static_cast<int>(valueEnd)); }
    };

    /// \a tree is that of \a utf8, which is well-formed.
    XmlSource(QByteArray utf8, const XmlTree &tree);

    /// Whether each element stands in the text itself: those in entities do not. Without that there is no
    /// element to ask for.
    [[nodiscard]] bool isWhole() const noexcept { return isComplete; }

    [[nodiscard]] const QByteArray &text() const noexcept { return bytes; }
    [[nodiscard]] QByteArray text(qsizetype begin, qsizetype end) const;
    [[nodiscard]] const Element &element(XmlTree::Index index) const
    {
        return elements[static_cast<std::size_t>(index)];
    }
    /// The attribute \a name in the start tag of the element, its prefix included.
    [[nodiscard]] std::optional<Attribute> attribute(XmlTree::Index index, const QByteArray &name) const;
    /// The name of the element, as it stands in the start tag.
    [[nodiscard]] QByteArray name(XmlTree::Index index) const;
    /// The pieces of text directly in the element, each with its references or as a CDATA section: what is
    /// between its children, comments and instructions.
    struct Piece {
        qsizetype begin;
        qsizetype end;
        bool isSection;
    };
    [[nodiscard]] std::vector<Piece> pieces(XmlTree::Index index) const;
    /// Behind the comment or instruction at \a at; \a at when there is none.
    [[nodiscard]] qsizetype behindComment(qsizetype at) const;

private:
    [[nodiscard]] bool startsWith(qsizetype at, const char *what) const;
    /// Behind the next \a what from \a at on.
    [[nodiscard]] qsizetype behind(qsizetype at, const char *what) const;
    [[nodiscard]] qsizetype behindTag(qsizetype at) const;
    [[nodiscard]] qsizetype behindDocumentType(qsizetype at) const;
    /// Behind what begins with < at \a at and is no tag; \a at when it is one.
    [[nodiscard]] qsizetype behindAside(qsizetype at) const;
    void scan();

    const QByteArray bytes;
    std::vector<Element> elements;
    bool isComplete = false;
};

} // namespace KORMAK::Inspection

#endif
