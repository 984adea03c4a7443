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

    /// \a isReached: a change of the object can be brought about.
    void walk(const FieldTable &table, const void *object, const QString &prefix, bool isReached)
    {
        for (const FieldRow &row : table) {
            if (!row.existsIn(object))
                continue;
            const QString path = prefix + row.key.toString();
            if (isOneWanted && !wanted.startsWith(path))
                continue;
            if (row.parts)
                walkParts(*row.parts, object, path, isReached);
            else if (!isOneWanted || path == wanted)
                found.push_back(FieldMaker::made(path, row, row.get(object), isReached));
        }
    }

private:
    void walkParts(const FieldParts &parts, const void *object, const QString &path, bool isOuterReached)
    {
        const bool isReached = isOuterReached && parts.change;
        for (const FieldPart &part : parts.all(object)) {
            const QString prefix = path + bracketed(parts, part.key);
            if (isOneWanted && !wanted.startsWith(prefix))
                continue;
            walk(parts.table, part.object, parts.table.isPlain() ? prefix : prefix + QLatin1Char('.'),
                 isReached);
        }
    }

    const QString wanted;
    const bool isOneWanted = false;
};

} // namespace

QVector<Field> fieldsOf(const FieldTable &table, const void *object)
{
    FieldWalk all;
    all.walk(table, object, QString(), true);
    return std::move(all.found);
}

std::optional<Field> fieldAt(const FieldTable &table, const void *object, const QString &path)
{
    FieldWalk one(path);
    one.walk(table, object, QString(), true);
    return one.found.isEmpty() ? std::nullopt : std::optional(one.found.constFirst());
}

} // namespace KORMAK::Inspection
