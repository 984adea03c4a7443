#include "inspection/FieldNodes_p.h"

#include <inspection/FieldList_p.h>
#include <inspection/QuotedText_p.h>

#include <utility>

namespace KORMAK::Inspection {

namespace {

using Kind = FieldNode::Kind;

/// Goes down to the place that is wanted, and gathers what is directly below it.
class NodeWalk {
public:
    QVector<FieldNode> found;

    explicit NodeWalk(QString path) : wanted(std::move(path)) { }

    struct Place {
        QString path = {};
        QString inFindings = {};
        FieldSurroundings around = {};

        [[nodiscard]] Place below(QStringView key) const
        {
            const QString separator = path.isEmpty() ? QString() : QStringLiteral(".");
            return {path + separator + key.toString(), inFindings + separator + key.toString(), around};
        }
    };

    void walkObject(const FieldTable &table, const void *object, const Place &place)
    {
        const bool isWanted = place.path == wanted;
        for (const FieldRow &row : table) {
            if (!row.existsIn(object))
                continue;
            Place here = place.below(row.key);
            if (isWanted)
                found.push_back(nodeOf(row, object, here));
            else if (row.parts && isOnTheWay(here))
                walkParts(*row.parts, object, {here.path, here.inFindings, here.around.within(row)});
        }
    }

private:
    [[nodiscard]] bool isOnTheWay(const Place &place) const
    {
        const auto end = place.path.size();
        return wanted.startsWith(place.path)
            && (wanted.size() == end || wanted.at(end) == QLatin1Char('.')
                || wanted.at(end) == QLatin1Char('['));
    }

    void walkParts(const FieldParts &parts, const void *object, const Place &place)
    {
        const bool isWanted = parts.kind != FieldParts::Kind::One && place.path == wanted;
        for (const FieldPart &part : parts.all(object)) {
            const Place here = placeOf(parts, part, place);
            if (isWanted)
                found.push_back(elementOf(parts, part, here));
            else if (isOnTheWay(here))
                walkObject(parts.table, part.object, here);
        }
    }

    [[nodiscard]] static Place placeOf(const FieldParts &parts, const FieldPart &part, Place place)
    {
        place.path += bracketed(parts, part.key);
        if (parts.kind == FieldParts::Kind::Map)
            place.inFindings += QLatin1Char('[') + shortened(part.key) + QLatin1Char(']');
        return place;
    }

    [[nodiscard]] static FieldNode nodeOf(const FieldRow &row, const void *object, const Place &place)
    {
        FieldNodeData node{Kind::Value, place.path, place.inFindings,
                           (row.label.isEmpty() ? row.key : row.label).toString()};
        if (!row.parts) {
            node.field = FieldMaker::made(place.path, row, row.get(object), place.around);
        } else {
            node.kind = row.parts->kind == FieldParts::Kind::One ? Kind::Object
                : row.parts->kind == FieldParts::Kind::Map       ? Kind::Map
                                                                 : Kind::List;
            node.isExtensible = node.kind != Kind::Object && place.around.within(row).isReached;
        }
        return FieldNodeMaker::made(std::move(node));
    }

    [[nodiscard]] static FieldNode elementOf(const FieldParts &parts, const FieldPart &part,
                                             const Place &place)
    {
        FieldNodeData node{Kind::Object, place.path, place.inFindings, part.key, true};
        if (parts.table.isPlain()) {
            const FieldRow &row = parts.table.rows.front();
            node.kind = Kind::Value;
            node.field = FieldMaker::made(place.path, row, row.get(part.object), place.around);
        } else if (parts.table.inLine) {
            node.shownText = parts.table.inLine(part.object);
        }
        return FieldNodeMaker::made(std::move(node));
    }

    const QString wanted;
};

} // namespace

QVector<FieldNode> nodesBelow(const FieldTable &table, const void *object, const QString &path)
{
    NodeWalk walk(path);
    walk.walkObject(table, object, {});
    return std::move(walk.found);
}

} // namespace KORMAK::Inspection
