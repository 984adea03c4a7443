// A document that is to be changed, with what stands where in it.
#ifndef KORMAK_INSPECTION_EDITLAYOUT_P_H
#define KORMAK_INSPECTION_EDITLAYOUT_P_H

#include <inspection/FieldPlaces_p.h>
#include <inspection/XmlSource_p.h>
#include <inspection/XmlTree_p.h>

#include <QByteArray>

#include <functional>

namespace KORMAK::Inspection {

struct EditLayout {
    EditLayout(const QByteArray &text, const XmlTree &xml, const DocumentKind &kind,
               const TESSEL::ITesselObject &object, const EditScope &scope = {})
        : tree(xml), source(text, tree), places(tree, kind, object, scope)
    {
    }

    const XmlTree &tree;
    XmlSource source;
    FieldPlaces places;
};

/// Where the element of the row stands among those of the table.
[[nodiscard]] inline int orderOf(const TESSEL::ObjectTable &table, const TESSEL::Row &row)
{
    return static_cast<int>(&row - table.elements.begin());
}

/// The last child of \a parent, an object of the \a table, that the library would write before a new element
/// of \a row. \a isAhead: whether that one stands before a child of its own kind; null: it does not.
[[nodiscard]] XmlTree::Index siblingBefore(const XmlTree &tree, const TESSEL::ObjectTable &table,
                                           XmlTree::Index parent, const TESSEL::Row &row,
                                           const std::function<bool(XmlTree::Index)> &isAhead = nullptr);

} // namespace KORMAK::Inspection

#endif
