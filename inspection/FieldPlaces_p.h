// From which elements of a document the parts of its object were read.
#ifndef KORMAK_INSPECTION_FIELDPLACES_P_H
#define KORMAK_INSPECTION_FIELDPLACES_P_H

#include <inspection/XmlTree_p.h>
#include <objectbase/DocumentTable_p.h>

#include <QStringView>

#include <vector>

namespace KORMAK::Inspection {

using Elements = std::vector<XmlTree::Index>;

/// What an object was read from.
struct FieldSource {
    enum class Depth { Children, Descendants };

    Elements elements; ///< one after the other; none: it is not known from which
    Depth depth = Depth::Children; ///< where the elements of its fields stand
};

/// The elements called \a name, whatever their prefix, that belong to \a source, in the order of the
/// document.
[[nodiscard]] Elements elementsIn(const XmlTree &tree, const FieldSource &source, QStringView name);

/// From what each of \a parts was read, which the \a row of the \a table has in an object that was read from
/// \a source.
[[nodiscard]] std::vector<FieldSource> sourcesOf(const XmlTree &tree, const TESSEL::ObjectTable &table,
                                                 const TESSEL::Row &row,
                                                 const std::vector<TESSEL::FieldPart> &parts,
                                                 const FieldSource &source);

} // namespace KORMAK::Inspection

#endif
