// Goes through a tree as a reader goes through the text: from the start of an element to its end.
#ifndef KORMAK_INSPECTION_XMLCURSOR_P_H
#define KORMAK_INSPECTION_XMLCURSOR_P_H

#include <inspection/XmlTree_p.h>

namespace KORMAK::Inspection {

class XmlCursor {
public:
    /// At the start of the root, which there is.
    explicit XmlCursor(const XmlTree &xml) : tree(xml) { }

    [[nodiscard]] XmlTree::Index element() const noexcept { return current; }
    [[nodiscard]] bool isAtEnd() const noexcept { return atEnd; }

    /// To the next start or end; false behind the end of the root.
    bool next()
    {
        if (!atEnd && tree.hasChild(current)) {
            current = tree.firstChild(current);
        } else if (!atEnd) {
            atEnd = true;
        } else if (tree.nextSibling(current) != XmlTree::None) {
            current = tree.nextSibling(current);
            atEnd = false;
        } else if (tree.parent(current) != XmlTree::None) {
            current = tree.parent(current);
        } else {
            return false;
        }
        return true;
    }

    /// To the end of the element.
    void skip() { atEnd = true; }

private:
    const XmlTree &tree;
    XmlTree::Index current = XmlTree::Root;
    bool atEnd = false;
};

} // namespace KORMAK::Inspection

#endif
