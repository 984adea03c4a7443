#include "tools/TableFields.h"

#include <inspection/FieldText_p.h>
#include <tools/Command.h>

#include <algorithm>
#include <cstddef>
#include <utility>

using namespace KORMAK::Inspection;

namespace Table {

namespace {

using PartKind = FieldParts::Kind;

constexpr QStringView FileField = u"file";
constexpr QStringView KindField = u"kind";
constexpr QStringView CompleteField = u"complete";

constexpr TextType PlainText{};
constexpr TextType Boolean{TextType::Kind::Boolean};

QStringList ownFields()
{
    return {FileField.toString(), KindField.toString(), CompleteField.toString()};
}

std::vector<const DocumentKind *> allKinds()
{
    std::vector<const DocumentKind *> kinds;
    for (const QString &name : documentKindNames())
        kinds.push_back(findDocumentKind(name));
    return kinds;
}

/// The parts called \a name that documents hold by names; null when there are none.
const FieldTable *partTable(const QString &name)
{
    for (const DocumentKind *kind : allKinds()) {
        const FieldRow *const row = kind->fields().find(name);
        if (row && row->parts && row->parts->kind == PartKind::Map)
            return &row->parts->table;
    }
    return nullptr;
}

/// \a path without what stands in brackets.
QString withoutBrackets(const QString &path)
{
    QString result;
    bool isInBrackets = false;
    for (const QChar c : path) {
        isInBrackets = isInBrackets || c == QLatin1Char('[');
        if (!isInBrackets)
            result += c;
        isInBrackets = isInBrackets && c != QLatin1Char(']');
    }
    return result;
}

bool isPathOrWithin(const QString &outer, const QString &path)
{
    return path == outer || path.startsWith(outer + QLatin1Char('.'));
}

QStringList keysOf(const FieldTable &table)
{
    QStringList keys;
    for (const FieldRow &row : table)
        keys += row.key.toString();
    return keys;
}

/// Adds the paths of the plain fields that may have to be there.
void addRequired(QStringList &paths, const FieldTable &table, const QString &prefix)
{
    for (const FieldRow &row : table) {
        if (row.requirement == KORMAK::Field::Requirement::None)
            continue;
        const QString path = prefix + row.key.toString();
        if (!row.parts && row.isInDocuments)
            paths += path;
        else if (row.parts && row.parts->kind == PartKind::One)
            addRequired(paths, row.parts->table, path + QLatin1Char('.'));
    }
}

} // namespace

QString Cell::text() const
{
    return type ? settableText(*type, value) : QString();
}

QStringList partNames()
{
    QStringList names;
    for (const DocumentKind *kind : allKinds()) {
        for (const FieldRow &row : kind->fields()) {
            if (row.parts && row.parts->kind == PartKind::Map)
                names += row.key.toString();
        }
    }
    return names;
}

std::optional<Parts> partsOf(const DocumentKind &kind, const void *document, const QString &part)
{
    const FieldTable *const table = partTable(part);
    if (&kind.fields() == table)
        return Parts{table, {document}};
    const FieldRow *const row = kind.fields().find(part);
    if (!row || !row->parts || row->parts->kind != PartKind::Map)
        return std::nullopt;
    Parts parts{&row->parts->table, {}};
    for (const FieldPart &one : row->parts->all(document))
        parts.all.push_back(one.object);
    return parts;
}

/// Looks for a field in tables, with no document at hand.
class FieldSearch {
public:
    explicit FieldSearch(const std::vector<FieldName::Step> &wanted) : steps(wanted) { }

    /// The type of the field in objects of the \a table; null when they have none.
    const TextType *typeIn(const FieldTable &table)
    {
        const FieldTable *current = &table;
        QString path;
        for (std::size_t i = 0; i < steps.size(); ++i) {
            const FieldName::Step &step = steps[i];
            const FieldRow *const row = current->isPlain() ? nullptr : current->find(step.key);
            if (!row) {
                addAllowed(i, *current, path);
                return nullptr;
            }
            path += (i == 0 ? QString() : QStringLiteral(".")) + step.key;
            const bool isLast = i + 1 == steps.size();
            if (!row->parts && isLast && !step.hasBracket)
                return &row->type;
            if (const QString fault = faultOf(step, *row, path); !fault.isEmpty()) {
                reason = fault;
                return nullptr;
            }
            if (!row->parts) {
                reason = path + QStringLiteral(": has no fields");
                return nullptr;
            }
            current = &row->parts->table;
            if (isLast && current->isPlain())
                return &current->rows.front().type;
            if (isLast)
                reason = path + QStringLiteral(": takes one of its fields: ")
                    + keysOf(*current).join(QStringLiteral(", "));
        }
        return nullptr;
    }

    /// Why there is no such field, once it has been looked for.
    [[nodiscard]] QString explanation(const QString &name) const
    {
        if (!reason.isEmpty())
            return reason;
        QStringList names = deepest == 0 ? ownFields() + allowed : allowed;
        names.removeDuplicates();
        const QString place = deepest == 0 ? QString() : QStringLiteral(" in ") + around;
        return QStringLiteral("there is no field '%1'%2").arg(deepest == 0 ? name : last(name), place)
            + (names.isEmpty() ? QString()
                               : QStringLiteral(". Allowed: ") + names.join(QStringLiteral(", ")));
    }

private:
    [[nodiscard]] QString last(const QString &name) const
    {
        return deepest < steps.size() ? steps[deepest].key : name;
    }

    /// What is wrong with the brackets of a \a step to the \a row; empty: nothing.
    static QString faultOf(const FieldName::Step &step, const FieldRow &row, const QString &path)
    {
        const bool takesBrackets = row.parts && row.parts->kind != PartKind::One;
        if (step.hasBracket == takesBrackets)
            return {};
        return path
            + (step.hasBracket                        ? QStringLiteral(": takes no brackets")
                   : row.parts->kind == PartKind::Map ? QStringLiteral(": takes a name, %1[NAME]").arg(path)
                                                      : QStringLiteral(": takes an index, %1[N]").arg(path));
    }

    void addAllowed(std::size_t depth, const FieldTable &table, const QString &path)
    {
        if (depth < deepest)
            return;
        if (depth > deepest)
            allowed.clear();
        deepest = depth;
        around = path;
        if (!table.isPlain())
            allowed += keysOf(table);
    }

    const std::vector<FieldName::Step> &steps;
    QString reason;
    QStringList allowed; ///< where no step matches
    QString around;
    std::size_t deepest = 0;
};

FieldName::FieldName(QString name, QString part) : text(std::move(name)), partName(std::move(part))
{
    if (ownFields().contains(text)) {
        allTypes = {text == CompleteField ? &Boolean : &PlainText};
        return;
    }
    readSteps();
    FieldSearch search(steps);
    if (!partName.isEmpty()) {
        if (const TextType *const type = search.typeIn(*partTable(partName))) {
            isOfPart = true;
            allTypes = {type};
            return;
        }
    }
    for (const DocumentKind *kind : allKinds()) {
        const TextType *const type = search.typeIn(kind->fields());
        if (type && std::find(allTypes.begin(), allTypes.end(), type) == allTypes.end())
            allTypes.push_back(type);
    }
    if (allTypes.empty())
        throw UsageError{search.explanation(text)};
}

void FieldName::readSteps()
{
    int at = 0;
    do {
        const int end = endOfName(text, at, QStringLiteral("."));
        const QString whole = text.mid(at, end - at);
        const auto bracket = static_cast<int>(whole.indexOf(QLatin1Char('[')));
        Step step{whole};
        if (bracket >= 0) {
            if (!whole.endsWith(QLatin1Char(']')))
                throw UsageError{QStringLiteral("'%1' lacks a ]").arg(text)};
            step.key = whole.left(bracket);
            step.hasBracket = true;
            for (int i = bracket + 1; i + 1 < whole.size(); ++i) {
                if (whole[i] == QLatin1Char('\\') && i + 2 < whole.size())
                    ++i;
                step.bracketKey += whole[i];
            }
        }
        steps.push_back(step);
        at = end + 1;
    } while (at <= text.size());
}

Cell FieldName::in(const Subject &subject) const
{
    if (text == FileField)
        return {&PlainText, subject.file};
    if (text == KindField)
        return {&PlainText, subject.kind->rootElement.toString()};
    if (text == CompleteField)
        return {&Boolean, subject.isComplete};
    const FieldTable *table = isOfPart ? subject.partTable : &subject.kind->fields();
    const void *object = isOfPart ? subject.part : subject.document;
    if (!table)
        return {};
    for (const Step &step : steps) {
        const FieldRow *const row = table->isPlain() ? nullptr : table->find(step.key);
        if (!row || !row->existsIn(object))
            return {};
        if (!row->parts)
            return &step == &steps.back() ? Cell{&row->type, row->get(object)} : Cell();
        const auto all = row->parts->all(object);
        const auto part = std::find_if(all.begin(), all.end(), [&step](const FieldPart &candidate) {
            return candidate.key == step.bracketKey;
        });
        if (part == all.end() || step.hasBracket == (row->parts->kind == PartKind::One))
            return {};
        table = &row->parts->table;
        object = part->object;
    }
    return table->isPlain() ? Cell{&table->rows.front().type, table->rows.front().get(object)} : Cell();
}

QString FieldName::joinedKeys() const
{
    QStringList keys;
    for (const Step &step : steps)
        keys += step.key;
    return keys.join(QLatin1Char('.'));
}

bool FieldName::isWithin(const QString &path, const DocumentKind &kind) const
{
    if (steps.empty())
        return false;
    const bool isInPart = isOfPart && kind.fields().find(partName);
    const QString own = isInPart ? partName + QLatin1Char('.') + joinedKeys() : joinedKeys();
    return isPathOrWithin(withoutBrackets(fieldPathOf(path)), own);
}

int endOfName(const QString &text, int begin, const QString &ends)
{
    bool isInBrackets = false;
    int at = begin;
    for (; at < text.size(); ++at) {
        const QChar c = text[at];
        if (!isInBrackets && ends.contains(c))
            break;
        if (isInBrackets && c == QLatin1Char('\\'))
            ++at;
        else
            isInBrackets = c == QLatin1Char('[') || (isInBrackets && c != QLatin1Char(']'));
    }
    return std::min(at, static_cast<int>(text.size()));
}

std::vector<FieldName> fieldsCalled(const QString &names, const QString &part)
{
    std::vector<FieldName> fields;
    for (int at = 0; at <= names.size();) {
        const int end = endOfName(names, at, QStringLiteral(","));
        const QString name = names.mid(at, end - at).trimmed();
        if (std::any_of(fields.begin(), fields.end(),
                        [&name](const FieldName &field) { return field.name() == name; }))
            throw UsageError{QStringLiteral("the column '%1' is given twice").arg(name)};
        fields.emplace_back(name, part);
        at = end + 1;
    }
    return fields;
}

std::vector<FieldName> usualFields(const DocumentKind &kind, const QString &part)
{
    QStringList names(FileField.toString());
    if (part.isEmpty())
        names += KindField.toString();
    addRequired(names, part.isEmpty() ? kind.fields() : *partTable(part), QString());
    std::vector<FieldName> fields;
    for (const QString &name : names)
        fields.emplace_back(name, part);
    return fields;
}

} // namespace Table
