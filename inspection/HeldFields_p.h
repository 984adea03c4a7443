// What the fields of a document hold that documents say, by their paths.
#ifndef KORMAK_INSPECTION_HELDFIELDS_P_H
#define KORMAK_INSPECTION_HELDFIELDS_P_H

#include <inspection/DocumentKind_p.h>
#include <inspection/FieldTable_p.h>

#include <QString>

#include <map>
#include <utility>

namespace KORMAK::Inspection {

struct HeldField {
    const FieldRow *row;
    FieldValue value;
    bool isConditional; ///< whether there is such a field depends on others
};
using HeldFields = std::map<QString, HeldField>;

[[nodiscard]] HeldFields heldBy(const DocumentKind &kind, const TESSEL::ITesselObject &object);

/// Whether \a path is that of a field of the object at \a whole.
[[nodiscard]] bool isBelow(const QString &path, const QString &whole);
/// The path of the object that the field is of; empty for one of the document itself.
[[nodiscard]] QString parentOf(const QString &path);
/// The path of a list for that of an element in it, and the index; -1 when it is none.
[[nodiscard]] std::pair<QString, int> listOf(const QString &path);

} // namespace KORMAK::Inspection

#endif
