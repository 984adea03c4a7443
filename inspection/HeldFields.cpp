#include "inspection/HeldFields_p.h"

#include <algorithm>
#include <vector>

namespace KORMAK::Inspection {

namespace {

using Kind = FieldParts::Kind;

void addHeld(HeldFields &all, const FieldTable &table, const void *object, const QString &prefix,
             const EditScope &scope, bool isConditional = false)
{
    for (const FieldRow &row : table) {
        if (!row.isInDocuments || !row.existsIn(object))
            continue;
        const QString path = prefix + row.key.toString();
        if (!row.parts) {
            all[path] = {&row, row.get(object), isConditional || row.exists};
            continue;
        }
        for (const FieldPart &part : row.parts->all(object)) {
            const QString step = path + bracketed(*row.parts, part.key);
            if (!prefix.isEmpty() || row.parts->kind != Kind::Map || scope.holds(step))
                addHeld(all, row.parts->table, part.object, step + QLatin1Char('.'), scope,
                        isConditional || row.exists);
        }
    }
}

bool areSameObjects(const FieldTable &table, const void *a, const void *b);

bool areSameParts(const FieldTable &table, const std::vector<FieldPart> &a, const std::vector<FieldPart> &b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [&table](const FieldPart &one, const FieldPart &other) {
                          return one.key == other.key && areSameObjects(table, one.object, other.object);
                      });
}

bool areSameFields(const FieldRow &row, const void *a, const void *b)
{
    if (row.existsIn(a) != row.existsIn(b))
        return false;
    if (!row.existsIn(a))
        return true;
    if (!row.parts)
        return areSame(row.get(a), row.get(b));
    return areSameParts(row.parts->table, row.parts->all(a), row.parts->all(b));
}

bool areSameObjects(const FieldTable &table, const void *a, const void *b)
{
    return std::all_of(table.begin(), table.end(), [a, b](const FieldRow &row) {
        return !row.isInDocuments || areSameFields(row, a, b);
    });
}

std::vector<FieldPart> partsBeside(const EditScope &scope, const FieldRow &row, const void *object)
{
    std::vector<FieldPart> parts = row.parts->all(object);
    const auto isInScope = [&](const FieldPart &part) {
        return scope.holds(row.key.toString() + bracketed(*row.parts, part.key));
    };
    parts.erase(std::remove_if(parts.begin(), parts.end(), isInScope), parts.end());
    return parts;
}

} // namespace

HeldFields heldBy(const DocumentKind &kind, const TESSEL::ITesselObject &object, const EditScope &scope)
{
    HeldFields all;
    addHeld(all, kind.fields(), kind.address(object), {}, scope);
    return all;
}

bool areSameBeside(const EditScope &scope, const DocumentKind &kind, const TESSEL::ITesselObject &a,
                   const TESSEL::ITesselObject &b)
{
    const void *const addressOfA = kind.address(a);
    const void *const addressOfB = kind.address(b);
    const FieldTable &fields = kind.fields();
    return std::all_of(fields.begin(), fields.end(), [&](const FieldRow &row) {
        if (!row.isInDocuments || !row.parts || row.parts->kind != Kind::Map)
            return true; // the whole row is in the scope
        if (!row.existsIn(addressOfA) || !row.existsIn(addressOfB))
            return row.existsIn(addressOfA) == row.existsIn(addressOfB);
        return areSameParts(row.parts->table, partsBeside(scope, row, addressOfA),
                            partsBeside(scope, row, addressOfB));
    });
}

bool isBelow(const QString &path, const QString &whole)
{
    return path.size() > whole.size() && path.startsWith(whole) && path[whole.size()] == QLatin1Char('.');
}

QString parentOf(const QString &path)
{
    bool isInName = false;
    int end = 0;
    for (int i = 0; i < path.size(); ++i) {
        const QChar c = path[i];
        if (isInName && c == QLatin1Char('\\'))
            ++i;
        else if (c == QLatin1Char('.') && !isInName)
            end = i;
        isInName = c == QLatin1Char('[') || (isInName && c != QLatin1Char(']'));
    }
    return path.left(end);
}

std::pair<QString, int> listOf(const QString &path)
{
    const auto begin = path.lastIndexOf(QLatin1Char('['));
    bool isIndex = begin > 0 && path.endsWith(QLatin1Char(']'));
    const QString key = isIndex ? path.mid(begin + 1, path.size() - begin - 2) : QString();
    const int index = key.toInt(&isIndex);
    return isIndex && index >= 0 && QString::number(index) == key ? std::pair(path.left(begin), index)
                                                                  : std::pair(path, -1);
}

} // namespace KORMAK::Inspection
