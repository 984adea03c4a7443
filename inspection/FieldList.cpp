#include "inspection/FieldList_p.h"

#include <utility>

namespace KORMAK::Inspection {

namespace {

/// Gathers the fields of an object, or the one that is wanted.
class FieldWalk {
public:
    QVector<Field> found;

    FieldWalk() = default;
    explicit FieldWalk(QString path) : wanted(std::move(path)), isOneWanted(true) { }

    void walk(const FieldTable &table, const void *object, const QString &prefix,
              const FieldSurroundings &around = {})
    {
        for (const FieldRow &row : table) {
            if (!row.existsIn(object))
                continue;
            const QString path = prefix + row.key.toString();
            if (isOneWanted && !wanted.startsWith(path))
                continue;
            if (row.parts)
                walkParts(*row.parts, object, path, around.within(row));
            else if (!isOneWanted || path == wanted)
                found.push_back(FieldMaker::made(path, row, row.get(object), around));
        }
    }

private:
    void walkParts(const FieldParts &parts, const void *object, const QString &path,
                   const FieldSurroundings &around)
    {
        for (const FieldPart &part : parts.all(object)) {
            const QString prefix = path + bracketed(parts, part.key);
            if (isOneWanted && !wanted.startsWith(prefix))
                continue;
            walk(parts.table, part.object, parts.table.isPlain() ? prefix : prefix + QLatin1Char('.'),
                 around);
        }
    }

    const QString wanted;
    const bool isOneWanted = false;
};

} // namespace

QVector<Field> fieldsOf(const FieldTable &table, const void *object)
{
    FieldWalk all;
    all.walk(table, object, QString());
    return std::move(all.found);
}

std::optional<Field> fieldAt(const FieldTable &table, const void *object, const QString &path)
{
    FieldWalk one(path);
    one.walk(table, object, QString());
    return one.found.isEmpty() ? std::nullopt : std::optional(one.found.constFirst());
}

} // namespace KORMAK::Inspection
