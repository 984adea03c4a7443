// What the fields of a document hold that documents say, by their paths.
#ifndef KORMAK_INSPECTION_HELDFIELDS_P_H
#define KORMAK_INSPECTION_HELDFIELDS_P_H

#include <inspection/DocumentKind_p.h>
#include <inspection/EditScope_p.h>
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

/// Those in the \a scope.
[[nodiscard]] HeldFields heldBy(const DocumentKind &kind, const TESSEL::ITesselObject &object,
                                const EditScope &scope = {});

/// Whether two objects hold the same outside the \a scope: the same fields with the same values, and lists
/// and maps of the same length, in the same order. Then heldBy() would give the same for both, but for what
/// is in the scope.
[[nodiscard]] bool areSameBeside(const EditScope &scope, const DocumentKind &kind,
                                 const TESSEL::ITesselObject &a, const TESSEL::ITesselObject &b);

/// Whether \a path is that of a field of the object at \a whole.
[[nodiscard]] bool isBelow(const QString &path, const QString &whole);
/// The path of the object that the field is of; empty for one of the document itself.
[[nodiscard]] QString parentOf(const QString &path);
/// The path of a list for that of an element in it, and the index; -1 when it is none.
[[nodiscard]] std::pair<QString, int> listOf(const QString &path);

} // namespace KORMAK::Inspection

#endif
