#include "inspection/FieldAssignment_p.h"

#include <inspection/DocumentTexts_p.h>
#include <inspection/FieldText_p.h>
#include <objectbase/TesselException.h>

#include <algorithm>
#include <tuple>
#include <utility>

namespace KORMAK::Inspection {

namespace {

using Kind = FieldParts::Kind;

constexpr QChar Separator = QLatin1Char(',');

/// What is wrong with a field for what another field is, perhaps one that could not be set.
struct ConditionError : FieldError { };

bool canBeSet(const FieldRow &row)
{
    return row.set || row.parts;
}

QString quoted(const QString &text)
{
    return QLatin1Char('\'') + text + QLatin1Char('\'');
}

/// Reads the path of a FIELD=VALUE.
class PathReader {
public:
    PathReader(const FieldTable &table, QString assignment) : current(&table), text(std::move(assignment)) { }

    FieldAssignment read()
    {
        FieldAssignment result;
        do
            result.steps.push_back(step());
        while (skip(QLatin1Char('.')));
        if (!skip(QLatin1Char('=')))
            throw FieldError{quoted(text) + QStringLiteral(" is not FIELD=VALUE")};
        result.path = text.left(at - 1);
        result.text = text.mid(at);
        checkEnd(result.steps.back(), result.path);
        return result;
    }

private:
    bool skip(QChar c)
    {
        const bool isThere = at < text.size() && text[at] == c;
        at += isThere ? 1 : 0;
        return isThere;
    }

    QString name()
    {
        const int begin = at;
        while (at < text.size() && !QStringLiteral(".[=").contains(text[at]))
            ++at;
        return text.mid(begin, at - begin);
    }

    FieldStep step()
    {
        const int begin = at;
        const QString key = name();
        const FieldTable *table = current;
        const FieldRow *const row = table ? table->find(key) : nullptr;
        if (!row || table->isPlain())
            throwUnknown(key, begin);
        if (!canBeSet(*row))
            throw FieldError{text.left(at) + QStringLiteral(": no setter reaches this field")};
        FieldStep result{row, row - table->rows.data()};
        if (row->parts && row->parts->kind != Kind::One && skip(QLatin1Char('['))) {
            result.hasKey = true;
            result.key = bracketKey(begin);
            checkKey(*row->parts, result.key);
        }
        if (row->parts && row->parts->kind != Kind::One && !result.hasKey && at < text.size()
            && text[at] == QLatin1Char('.'))
            throwWithoutKey(*row, text.left(at));
        current = row->parts ? &row->parts->table : nullptr;
        return result;
    }

    QString bracketKey(int begin)
    {
        QString key;
        while (at < text.size() && text[at] != QLatin1Char(']')) {
            if (text[at] == QLatin1Char('\\') && at + 1 < text.size())
                ++at;
            key += text[at++];
        }
        if (!skip(QLatin1Char(']')))
            throw FieldError{quoted(text.mid(begin)) + QStringLiteral(" lacks a ]")};
        return key;
    }

    void checkKey(const FieldParts &parts, const QString &key) const
    {
        bool isIndex = false;
        const int index = key.toInt(&isIndex);
        if (parts.kind == Kind::List && (!isIndex || index < 0 || QString::number(index) != key))
            throw FieldError{text.left(at)
                             + QStringLiteral(": the index of a list is a whole number from 0")};
    }

    [[noreturn]] void throwUnknown(const QString &key, int begin) const
    {
        const QString place = begin > 0 ? QStringLiteral(" in ") + text.left(begin - 1) : QString();
        const QStringList allowed = current && !current->isPlain() ? settableKeys(*current) : QStringList();
        throw FieldError{QStringLiteral("there is no field %1%2").arg(quoted(key), place)
                         + (allowed.isEmpty()
                                ? QString()
                                : QStringLiteral(". Allowed: ") + allowed.join(QStringLiteral(", ")))};
    }

    [[noreturn]] static void throwWithoutKey(const FieldRow &row, const QString &path)
    {
        throw FieldError{path
                         + (row.parts->kind == Kind::Map ? QStringLiteral(": takes a name, %1[NAME]")
                                                         : QStringLiteral(": takes an index, %1[N]"))
                               .arg(path)};
    }

    static void checkEnd(const FieldStep &last, const QString &path)
    {
        const FieldRow &row = *last.row;
        if (!row.parts || isSetAsWhole(row))
            return;
        if (row.parts->kind != Kind::One && !last.hasKey)
            throwWithoutKey(row, path);
        throw FieldError{path + QStringLiteral(": takes one of its fields: ")
                         + settableKeys(row.parts->table).join(QStringLiteral(", "))};
    }

    const FieldTable *current; ///< null behind a plain value
    const QString text;
    int at = 0;
};

/// Orders steps as they are to be done. What is added to a list goes before what is changed in it.
auto orderOf(const FieldStep &step)
{
    const bool isList = step.row->parts && step.row->parts->kind == Kind::List;
    return std::make_tuple(step.row->rank, step.place, step.hasKey, isList ? step.key.toInt() : 0,
                           isList ? QString() : step.key);
}

bool comesBefore(const FieldAssignment &a, const FieldAssignment &b)
{
    return std::lexicographical_compare(
        a.steps.begin(), a.steps.end(), b.steps.begin(), b.steps.end(),
        [](const FieldStep &left, const FieldStep &right) { return orderOf(left) < orderOf(right); });
}

bool isAppending(const FieldAssignment &assignment)
{
    const FieldStep &last = assignment.steps.back();
    return last.row->parts && last.row->parts->kind == Kind::List && !last.hasKey;
}

void setValue(const FieldRow &row, void *object, const QString &text)
{
    const FieldValue value = valueOfText(row.type, text);
    row.set(object, value);
    const FieldValue stored = row.get(object);
    if (!areSame(stored, value)) {
        throw FieldError{QStringLiteral("'%1' would be stored as '%2'")
                             .arg(text, shownText(row.type, stored).value_or(QString()))};
    }
}

/// Sets the fields of \a object, as many as \a texts.
void setValues(const FieldTable &table, void *object, const QStringList &texts)
{
    if (texts.size() > static_cast<int>(table.rows.size())) {
        throw FieldError{QStringLiteral("takes %1 values at most: %2")
                             .arg(table.rows.size())
                             .arg(settableKeys(table).join(QStringLiteral(", ")))};
    }
    auto row = table.begin();
    for (const QString &text : texts) {
        try {
            setValue(*row, object, text);
        } catch (const FieldError &error) {
            throw FieldError{row->key.isEmpty() ? error.message
                                                : row->key.toString() + QStringLiteral(": ") + error.message};
        }
        ++row;
    }
}

/// One element, or several plain values.
void append(const FieldParts &parts, void *object, const QString &text)
{
    const auto add = [&](const QStringList &texts) {
        const QString end = QString::number(static_cast<int>(parts.all(object).size()));
        parts.change(object, end, [&](void *part) { setValues(parts.table, part, texts); });
    };
    const QStringList texts = text.split(Separator);
    if (!parts.table.isPlain()) {
        add(texts);
        return;
    }
    for (const QString &one : texts)
        add({one});
}

void assign(std::vector<FieldStep>::const_iterator step, std::vector<FieldStep>::const_iterator end,
            void *object, const QString &text)
{
    const FieldRow &row = *step->row;
    const bool isLast = std::next(step) == end;
    if (!row.existsIn(object))
        throw ConditionError{{QStringLiteral("needs ") + row.condition.toString()}};
    if (!row.parts) {
        setValue(row, object, text);
    } else if (isLast && row.parts->kind == Kind::List && !step->hasKey) {
        append(*row.parts, object, text);
    } else {
        row.parts->change(object, step->key, [&](void *part) {
            if (isLast)
                setValues(row.parts->table, part,
                          row.parts->table.isPlain() ? QStringList(text) : text.split(Separator));
            else
                assign(std::next(step), end, part, text);
        });
    }
}

/// \throws FieldError
void assign(const FieldAssignment &assignment, void *object)
{
    const QString start = assignment.path + QStringLiteral(": ");
    try {
        assign(assignment.steps.begin(), assignment.steps.end(), object, assignment.text);
    } catch (const ConditionError &error) {
        throw ConditionError{{start + error.message}};
    } catch (const FieldError &error) {
        throw FieldError{start + error.message};
    } catch (const TESSEL::TesselException &exception) {
        throw ConditionError{{start + exception.GetErrorMessage()}};
    }
}

void checkOnce(FieldAssignments &result)
{
    const auto &wanted = result.wanted;
    for (auto i = wanted.begin(); i != wanted.end() && std::next(i) != wanted.end(); ++i) {
        const bool isAgain = !comesBefore(*i, *std::next(i)) && !isAppending(*i);
        if (isAgain && (i == wanted.begin() || comesBefore(*std::prev(i), *i)))
            result.errors += i->path + QStringLiteral(": is set twice");
    }
}

} // namespace

FieldAssignment readAssignment(const FieldTable &table, const QString &text)
{
    return PathReader(table, text).read();
}

FieldAssignments assignAll(const FieldTable &table, const QStringList &texts, void *object)
{
    FieldAssignments result;
    for (const QString &text : texts) {
        try {
            result.wanted.push_back(readAssignment(table, text));
        } catch (const FieldError &error) {
            result.errors += error.message;
        }
    }
    std::stable_sort(result.wanted.begin(), result.wanted.end(), comesBefore);
    checkOnce(result);
    for (const FieldAssignment &assignment : result.wanted) {
        try {
            assign(assignment, object);
        } catch (const ConditionError &error) {
            if (result.errors.isEmpty()) // otherwise it may follow from what is told already
                result.errors += error.message;
        } catch (const FieldError &error) {
            result.errors += error.message;
        }
    }
    return result;
}

bool isPlainList(const FieldRow &row)
{
    return row.parts && row.parts->table.isPlain();
}

bool isSetAsWhole(const FieldRow &row)
{
    return row.parts && (row.parts->table.inLine || isPlainList(row));
}

QStringList settableKeys(const FieldTable &table)
{
    QStringList keys;
    for (const FieldRow &row : table) {
        if (canBeSet(row))
            keys += row.key.toString();
    }
    return keys;
}

} // namespace KORMAK::Inspection
