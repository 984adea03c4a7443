#include "inspection/FieldDiff_p.h"

#include <inspection/Json_p.h>
#include <inspection/QuotedText_p.h>

#include <cmath>
#include <utility>

namespace KORMAK::Inspection {

namespace {

using Side = FieldDifference::Side;

bool isNan(const FieldValue &value)
{
    const auto *number = std::get_if<double>(&value);
    const auto *shortNumber = std::get_if<float>(&value);
    return (number && std::isnan(*number)) || (shortNumber && std::isnan(*shortNumber));
}

Side sideOf(const TextType &type, const FieldValue &value)
{
    const QString json = jsonValue(type, value);
    if (!isSet(value))
        return {QStringLiteral("not set"), json};
    return {isNan(value) ? QStringLiteral("nan") : json, json};
}

Side sideOf(const FieldTable &table, const void *object)
{
    const QString json = table.isPlain() ? jsonValue(table.rows.front().type, table.rows.front().get(object))
                                         : jsonObject(table, object);
    return {json, json};
}

/// Walks two objects side by side.
class Comparison {
public:
    std::vector<FieldDifference> found;

    void compare(const FieldTable &table, const void *a, const void *b)
    {
        for (const FieldRow &row : table) {
            const bool isInA = row.existsIn(a);
            const bool isInB = row.existsIn(b);
            if (!isInA && !isInB)
                continue;
            const Step step(*this, row.key);
            if (row.parts)
                compareParts(*row.parts, isInA ? row.parts->all(a) : Parts(),
                             isInB ? row.parts->all(b) : Parts());
            else
                compareValues(row, isInA ? a : nullptr, isInB ? b : nullptr);
        }
    }

private:
    using Parts = std::vector<FieldPart>;

    /// A name in the path, as long as the object lives.
    struct Step {
        Step(Comparison &owner, QStringView name) : comparison(owner) { comparison.steps.push_back(name); }
        Step(const Step &) = delete;
        Step &operator=(const Step &) = delete;
        ~Step() { comparison.steps.pop_back(); }

        Comparison &comparison;
    };

    void compareValues(const FieldRow &row, const void *a, const void *b)
    {
        const FieldValue before = a ? row.get(a) : FieldValue();
        const FieldValue after = b ? row.get(b) : FieldValue();
        if ((a != nullptr) != (b != nullptr) || !areSame(before, after))
            add(a ? sideOf(row.type, before) : Side(), b ? sideOf(row.type, after) : Side());
    }

    /// The parts of maps stand in the order of their keys, those of lists in that of their places.
    void compareParts(const FieldParts &parts, const Parts &before, const Parts &after)
    {
        auto a = before.begin();
        auto b = after.begin();
        while (a != before.end() || b != after.end()) {
            const bool isInA = a != before.end() && (b == after.end() || !comesFirst(parts, *b, *a));
            const bool isInB = b != after.end() && (a == before.end() || !comesFirst(parts, *a, *b));
            comparePart(parts, isInA ? &*a : nullptr, isInB ? &*b : nullptr);
            a += isInA ? 1 : 0;
            b += isInB ? 1 : 0;
        }
    }

    static bool comesFirst(const FieldParts &parts, const FieldPart &a, const FieldPart &b)
    {
        return parts.kind == FieldParts::Kind::Map && a.key < b.key;
    }

    void comparePart(const FieldParts &parts, const FieldPart *a, const FieldPart *b)
    {
        keys.push_back({steps.size(), &parts, a ? a->key : b->key});
        if (a && b)
            compare(parts.table, a->object, b->object);
        else
            add(a ? sideOf(parts.table, a->object) : Side(), b ? sideOf(parts.table, b->object) : Side());
        keys.pop_back();
    }

    void add(const Side &before, const Side &after) { found.push_back({path(), before, after}); }

    [[nodiscard]] QString path() const
    {
        QString text;
        auto key = keys.begin();
        for (std::size_t i = 0; i < steps.size(); ++i) {
            if (i > 0 && !steps[i].isEmpty())
                text += QLatin1Char('.');
            text += steps[i].toString();
            for (; key != keys.end() && key->depth == i + 1; ++key)
                text += bracketed(*key->parts, key->key);
        }
        return text;
    }

    /// The key of a part; the field that it belongs to is the one at that depth in the path.
    struct Key {
        std::size_t depth;
        const FieldParts *parts;
        QString key;
    };

    std::vector<QStringView> steps;
    std::vector<Key> keys;
};

} // namespace

QString FieldDifference::change() const
{
    if (before.text.isEmpty())
        return QStringLiteral("added ") + after.text;
    if (after.text.isEmpty())
        return QStringLiteral("removed ") + before.text;
    return before.text + QStringLiteral(" -> ") + after.text;
}

QString FieldDifference::toLine() const
{
    return oneLine(path) + QStringLiteral(": ") + change();
}

std::vector<FieldDifference> differences(const FieldTable &table, const void *before, const void *after)
{
    Comparison comparison;
    comparison.compare(table, before, after);
    return std::move(comparison.found);
}

} // namespace KORMAK::Inspection
