// Goes through a tree as a reader goes through the text: from the start of an element to its end.
#ifndef KORMAK_TOOLS_XMLCURSOR_H
#define KORMAK_TOOLS_XMLCURSOR_H

#include <tools/XmlTree.h>

class XmlCursor {
public:
    /// At the start of the root.
    explicit XmlCursor(const XmlTree &xml) : tree(xml) { }

    [[nodiscard]] XmlTree::Index element() const noexcept { return current; }
    [[nodiscard]] bool isAtEnd() const noexcept { return atEnd; }

    /// To the next start or end; false behind the end of the root.
    bool next()
    {
        const XmlTree::Element &here = tree.element(current);
        if (!atEnd && here.firstChild != XmlTree::None) {
            current = here.firstChild;
        } else if (!atEnd) {
            atEnd = true;
        } else if (here.nextSibling != XmlTree::None) {
            current = here.nextSibling;
            atEnd = false;
        } else if (here.parent != XmlTree::None) {
            current = here.parent;
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

#endif
