#ifndef KORMAK_INSPECTION_FIELDNODE_H
#define KORMAK_INSPECTION_FIELDNODE_H

#include <inspection/Field.h>
#include <inspection/inspection_export.h>

#include <QString>

#include <memory>

QT_BEGIN_NAMESPACE
class QDebug;
QT_END_NAMESPACE

namespace KORMAK {

namespace Inspection {
struct FieldNodeMaker;
} // namespace Inspection

/// A place in the tree of what a document holds, as it was when it was asked for: a field, an object that has
/// fields, or a list of such. A value; copies share their data.
///
/// \snippet docs/InspectionSnippetsTest.cpp FieldNode
class INSPECTION_EXPORT FieldNode {
public:
    /// What stands at a place.
    enum class Kind : qint32 {
        Value, ///< a field, which has nothing below it
        Object, ///< an object; its fields are below it
        List, ///< objects or values that are called by their places
        Map, ///< objects that are called by names
    };

    /// A place without a path, which holds nothing.
    FieldNode();

    /// What stands here.
    [[nodiscard]] Kind GetKind() const noexcept;
    /// How it is called, as the paths of fields have it: "Area.Coordinate[0].Latitude", "Area.Coordinate[0]",
    /// "Area.Coordinate" or "Area". Document::GetNodes() tells what is below it.
    [[nodiscard]] QString GetPath() const;
    /// How it is called by findings, Finding::GetFieldPath(): as GetPath(), but without the places in lists,
    /// with long names cut and nothing escaped.
    [[nodiscard]] QString GetPathInFindings() const;
    /// What it is, for people: "Latitude". Of an element of a list or map, its place or name there: "0",
    /// "Gain".
    [[nodiscard]] QString GetLabel() const;
    /// Whether it is an element of a list or of a map, which can be removed.
    [[nodiscard]] bool IsElement() const noexcept;
    /// Whether it is a list or a map that elements can be added to.
    [[nodiscard]] bool IsExtensible() const noexcept;
    /// The field that is a value; one without a path for all that is none.
    [[nodiscard]] Field GetField() const;

    /// What it holds, for people to read: of a value, as Field::GetShownText(); of an object that is read in
    /// one line, such as a coordinate, all of it; else empty.
    [[nodiscard]] QString GetShownText() const;

    /// Everything is equal, with fields as Field compares them.
    [[nodiscard]] bool operator==(const FieldNode &other) const;
    [[nodiscard]] bool operator!=(const FieldNode &other) const { return !(*this == other); }

private:
    friend struct Inspection::FieldNodeMaker;
    struct Private;

    [[nodiscard]] INSPECTION_NO_EXPORT const Private &data() const;

    std::shared_ptr<const Private> d; // null: of the default
};

/// Writes the name of \a value, or its number when it has none.
INSPECTION_EXPORT QDebug operator<<(QDebug debug, FieldNode::Kind value);

/// Writes kind and path, in a line.
INSPECTION_EXPORT QDebug operator<<(QDebug debug, const FieldNode &node);

} // namespace KORMAK

#endif
