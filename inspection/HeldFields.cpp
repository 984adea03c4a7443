#include "inspection/HeldFields_p.h"

namespace KORMAK::Inspection {

namespace {

void addHeld(HeldFields &all, const FieldTable &table, const void *object, const QString &prefix,
             bool isConditional = false)
{
    for (const FieldRow &row : table) {
        if (!row.isInDocuments || !row.existsIn(object))
            continue;
        const QString path = prefix + row.key.toString();
        if (!row.parts) {
            all[path] = {&row, row.get(object), isConditional || row.exists};
            continue;
        }
        for (const FieldPart &part : row.parts->all(object))
            addHeld(all, row.parts->table, part.object,
                    path + bracketed(*row.parts, part.key) + QLatin1Char('.'), isConditional || row.exists);
    }
}

} // namespace

HeldFields heldBy(const DocumentKind &kind, const TESSEL::ITesselObject &object)
{
    HeldFields all;
    addHeld(all, kind.fields(), kind.address(object), {});
    return all;
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
