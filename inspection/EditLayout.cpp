#include "inspection/EditLayout_p.h"

namespace KORMAK::Inspection {

XmlTree::Index siblingBefore(const XmlTree &tree, const TESSEL::ObjectTable &table, XmlTree::Index parent,
                             const TESSEL::Row &row, const std::function<bool(XmlTree::Index)> &isAhead)
{
    const int order = orderOf(table, row);
    XmlTree::Index previous = XmlTree::None;
    for (XmlTree::Index child = tree.firstChild(parent); child != XmlTree::None;
         child = tree.nextSibling(child)) {
        const TESSEL::Row *const other = childRow(table, localName(tree.name(child)));
        const int otherOrder = other ? orderOf(table, *other) : order + 1;
        if (otherOrder < order || (otherOrder == order && !(isAhead && isAhead(child))))
            previous = child;
    }
    return previous;
}

} // namespace KORMAK::Inspection
