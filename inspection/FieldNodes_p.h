// The tree of the fields of an object, one level at a time.
#ifndef KORMAK_INSPECTION_FIELDNODES_P_H
#define KORMAK_INSPECTION_FIELDNODES_P_H

#include <inspection/FieldNode.h>
#include <inspection/FieldTable_p.h>

#include <QString>
#include <QVector>

namespace KORMAK::Inspection {

struct FieldNodeData {
    FieldNode::Kind kind;
    QString path;
    QString pathInFindings;
    QString label;
    bool isElement = false;
    bool isExtensible = false;
    Field field = {}; ///< of a value
    QString shownText = {}; ///< of an object that people read in one line
};

struct FieldNodeMaker {
    [[nodiscard]] static FieldNode made(FieldNodeData data);
};

/// What is directly below \a path, which is empty for the object itself; nothing where there is no such
/// place.
[[nodiscard]] QVector<FieldNode> nodesBelow(const FieldTable &table, const void *object, const QString &path);

} // namespace KORMAK::Inspection

#endif
