#include "inspection/DocumentEdit.h"

#include <inspection/DocumentCheck_p.h>
#include <inspection/DocumentTexts_p.h>
#include <inspection/FieldAssignment_p.h>
#include <inspection/FieldText_p.h>
#include <inspection/PlacesByPath_p.h>
#include <inspection/QuotedText_p.h>
#include <inspection/ReadableForm_p.h>
#include <inspection/XmlEditor_p.h>
#include <objectbase/ITesselObject.h>
#include <objectbase/QtCompat_p.h>

#include <QMap>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <map>
#include <utility>

namespace KORMAK {

using namespace Inspection;
using TESSEL::ITesselObject;
using TESSEL::ObjectTable;
using TESSEL::Part;
using TESSEL::Row;

struct DocumentEdit::Private {
    QByteArray text;
    QVector<Place> places;
    QVector<Finding> findings;
    bool isDone = false;
};

namespace {

using Index = XmlTree::Index;
using Action = DocumentEdit::Change::Action;

/// What a field holds that documents say.
struct Held {
    const FieldRow *row;
    FieldValue value;
    bool isConditional; ///< whether there is such a field depends on others
};
using HeldFields = std::map<QString, Held>;

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

HeldFields heldBy(const DocumentKind &kind, const ITesselObject &object)
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

/// The path of a list for that of an element in it, and the index; -1 when it is none.
std::pair<QString, int> listOf(const QString &path)
{
    static const QRegularExpression indexed(QStringLiteral("^(.*)\\[(\\d+)\\]$"));
    const auto match = indexed.match(path);
    return match.hasMatch() ? std::pair(match.captured(1), match.captured(2).toInt()) : std::pair(path, -1);
}

Finding errorAbout(const QString &message, const QString &path = {})
{
    FindingData data{0, message, oneLine(path), FindingId::NotEdited, Severity::Error};
    return FindingMaker::made(std::move(data), std::nullopt, 0);
}

/// A document with what stands where in it.
struct Layout {
    Layout(const QByteArray &text, const XmlTree &xml, const DocumentKind &kind, const ITesselObject &object)
        : tree(xml), source(text, tree), places(tree, kind, object)
    {
    }

    const XmlTree &tree;
    XmlSource source;
    PlacesByPath places;
};

/// Makes the patches for changes of one document.
class Editing {
public:
    QVector<Finding> errors;

    Editing(ParsedDocument &parsed, const QVector<DocumentEdit::Change> &wanted)
        : document(parsed), kind(*parsed.kind), changes(wanted),
          layout(parsed.text, parsed.tree, kind, *parsed.object), editor(layout.tree, layout.source),
          changed(kind.copy(*parsed.object)), before(heldBy(kind, *parsed.object))
    {
    }

    std::vector<TextPatch> patches()
    {
        if (!layout.source.isWhole())
            fail(QStringLiteral("what stands in an entity cannot be changed"));
        const std::vector<FieldAssignment> wanted =
            errors.isEmpty() ? applied() : std::vector<FieldAssignment>();
        after = heldBy(kind, *changed);
        if (errors.isEmpty())
            set(wanted);
        for (const DocumentEdit::Change &change : changes) {
            if (errors.isEmpty() && change.action == Action::Unset)
                unset(change.path);
        }
        std::vector<TextPatch> result = editor.patches();
        if (!arrange(result))
            fail(QStringLiteral("two of the changes are of one place"));
        return result;
    }

    /// What would be read from \a object otherwise than it was asked.
    void compare(const ITesselObject &object)
    {
        HeldFields expected = after;
        for (const QString &path : unsetPaths())
            forget(expected, path);
        const HeldFields read = heldBy(kind, object);
        for (const auto &[path, held] : read) {
            const auto wanted = expected.find(path);
            if (wanted == expected.end() ? !isUnset(path) : !areSame(wanted->second.value, held.value))
                fail(QStringLiteral("would be read as %1").arg(text(held)), path);
        }
        for (const auto &[path, held] : expected) {
            // With what is unset, a type for example, fields go that are of no use without it.
            if (read.find(path) == read.end() && !(held.isConditional && isUnsetting()))
                fail(QStringLiteral("would be gone"), path);
        }
    }

private:
    void fail(const QString &message, const QString &path = {}) { errors += errorAbout(message, path); }

    static QString text(const Held &held)
    {
        return isSet(held.value) ? quoted(settableText(held.row->type, held.value))
                                 : QStringLiteral("not set");
    }

    /// Makes the changes in the object that set something.
    std::vector<FieldAssignment> applied()
    {
        QStringList texts;
        for (const DocumentEdit::Change &change : changes) {
            if (change.action != Action::Set)
                continue;
            const QString setting = change.path + QLatin1Char('=') + change.text;
            try {
                if (readAssignment(kind.fields(), setting).path != change.path) // an = in it ended it early
                    fail(QStringLiteral("there is no such field"), change.path);
            } catch (const FieldError &) {
                // told below
            }
            texts += setting;
        }
        auto [wanted, messages] = assignAll(kind.fields(), texts, kind.variableAddress(*changed));
        for (const QString &message : std::as_const(messages))
            fail(message);
        return wanted;
    }

    // Setting

    void set(const std::vector<FieldAssignment> &wanted)
    {
        auto form = readableForm(kind, *changed);
        if (!form) {
            fail(QStringLiteral("holds a character that XML cannot carry"));
            return;
        }
        formTree = XmlTree(*form);
        formLayout = std::make_unique<Layout>(*form, formTree, kind, *changed);
        for (const FieldAssignment &assignment : wanted) {
            const FieldStep &last = assignment.steps.back();
            if (last.row->parts)
                setWhole(assignment);
            else
                setValue(pathOf(assignment), assignment.text);
        }
    }

    /// As other paths are spelled, whatever is escaped in that of the assignment.
    static QString pathOf(const FieldAssignment &assignment)
    {
        QStringList steps;
        for (const FieldStep &step : assignment.steps) {
            steps +=
                step.row->key.toString() + (step.hasKey ? bracketed(*step.row->parts, step.key) : QString());
        }
        return steps.join(QLatin1Char('.'));
    }

    /// All values at once, of an element that is there or is to be added.
    void setWhole(const FieldAssignment &assignment)
    {
        const QString path = pathOf(assignment);
        const bool isWhole =
            assignment.steps.back().row->parts->kind != Part::Kind::List || assignment.steps.back().hasKey;
        for (const auto &[fieldPath, held] : after) {
            const QString part = parentOf(fieldPath);
            const bool isIn = isWhole ? part == path : listOf(part).first == path;
            const auto former = before.find(fieldPath);
            if (isIn && (former == before.end() || !areSame(former->second.value, held.value)))
                setValue(fieldPath, {});
        }
    }

    void setValue(const QString &path, const QString &asked)
    {
        if (isInAdded(path))
            return;
        const auto held = after.find(path);
        if (held == after.end()) {
            fail(QStringLiteral("no document says it"), path);
            return;
        }
        const QString said = textFor(path, held->second, asked);
        const std::vector<FieldPlace> *const places = layout.places.find(path);
        if (places)
            replace(places->back(), path, held->second, said);
        else
            add(path, said);
    }

    /// The \a asked text where it says the same, since people have chosen its digits.
    [[nodiscard]] QString textFor(const QString &path, const Held &held, const QString &asked) const
    {
        using Kind = TextType::Kind;
        const TextType &type = held.row->type;
        const bool isChosen =
            !asked.isEmpty() && type.kind != Kind::Boolean && type.kind != Kind::Name && isValid(type, asked);
        if (isChosen)
            return asked;
        if (const auto *const places = formLayout->places.find(path))
            return valueIn(*formLayout, places->back());
        return settableText(type, held.value);
    }

    [[nodiscard]] static QString valueIn(const Layout &where, const FieldPlace &place)
    {
        if (place.isAttribute)
            return where.tree.attribute(place.element, place.row->name).value_or(QString());
        return place.element == XmlTree::Root ? where.tree.rootText() : where.tree.text(place.element);
    }

    void replace(const FieldPlace &place, const QString &path, const Held &held, const QString &said)
    {
        const QString there = valueIn(layout, place);
        const auto former = before.find(path);
        const bool isThere = former != before.end() && areSame(former->second.value, held.value)
            && isValid(held.row->type, there);
        if (there == said || isThere)
            return;
        if (place.isAttribute)
            editor.setAttribute(place.element, place.row->name.toString(), said);
        else
            editor.setText(place.element, said);
    }

    // Adding

    [[nodiscard]] bool isInAdded(const QString &path) const
    {
        return std::any_of(added.begin(), added.end(),
                           [&path](const QString &whole) { return path == whole || isBelow(path, whole); });
    }

    /// With all objects that it stands in and that are not there.
    void add(const QString &path, const QString &said)
    {
        const QString owner = ownerOf(path);
        QString object = owner;
        QString missing;
        while (!layout.places.find(object)) {
            missing = object;
            object = parentOf(object);
        }
        const FieldPlace &parent = layout.places.find(object)->back();
        if (missing.isEmpty())
            addValue(path, owner, said, parent);
        else
            addObject(missing, parent);
    }

    /// The object whose element or attribute the field is: that around a block that is but a text.
    [[nodiscard]] QString ownerOf(const QString &path) const
    {
        const QString parent = parentOf(path);
        const bool isText = !formLayout->places.find(parent) && formLayout->places.find(path);
        return isText ? parentOf(parent) : parent;
    }

    void addObject(const QString &path, const FieldPlace &parent)
    {
        added.insert(path);
        const auto *const places = formLayout->places.find(path);
        if (!places) {
            fail(QStringLiteral("no document says it"), path);
            return;
        }
        const FieldPlace &place = places->back();
        const XmlEditor::NewElement element{&formLayout->source, &formLayout->tree, place.element};
        editor.addElement(parent.element, previousSibling(parent, place), orderOf(*parent.table, *place.row),
                          element);
    }

    void addValue(const QString &path, const QString &owner, const QString &said, const FieldPlace &parent)
    {
        added.insert(path);
        const QString inOwner = owner.isEmpty() ? path : path.mid(owner.size() + 1);
        const QString name = inOwner.section(QLatin1Char('.'), 0, 0);
        const Row *const element = childRow(*parent.table, name);
        const Row *const attribute = parent.table->attribute(name);
        if (element && element->read) {
            editor.addElement(parent.element, previousSibling(parent, {XmlTree::None, element, nullptr}),
                              orderOf(*parent.table, *element),
                              {nullptr, nullptr, XmlTree::None, name, said});
        } else if (attribute && attribute->read) {
            editor.addAttribute(parent.element, name, said, previousAttribute(parent, *attribute));
        } else {
            fail(QStringLiteral("no document says it"), path);
        }
    }

    static int orderOf(const ObjectTable &table, const Row &row)
    {
        return static_cast<int>(&row - table.elements.begin());
    }

    [[nodiscard]] QString previousAttribute(const FieldPlace &parent, const Row &row) const
    {
        QString previous;
        for (const Row &other : parent.table->attributes) {
            if (&other == &row)
                break;
            if (layout.tree.attribute(parent.element, other.name))
                previous = other.name.toString();
        }
        return previous;
    }

    /// The last child of \a parent that the library would write before \a place.
    [[nodiscard]] Index previousSibling(const FieldPlace &parent, const FieldPlace &place) const
    {
        const int order = orderOf(*parent.table, *place.row);
        Index previous = XmlTree::None;
        for (Index child = layout.tree.firstChild(parent.element); child != XmlTree::None;
             child = layout.tree.nextSibling(child)) {
            const Row *const row = childRow(*parent.table, localName(layout.tree.name(child)));
            if (!row)
                continue;
            const int other = orderOf(*parent.table, *row);
            if (other < order || (other == order && !isAhead(place, child)))
                previous = child;
        }
        return previous;
    }

    /// Whether a new element called by a name stands before \a child.
    [[nodiscard]] bool isAhead(const FieldPlace &place, Index child) const
    {
        if (place.row->part == nullptr || place.row->part->kind != Part::Kind::Map)
            return false;
        return formLayout->tree.attribute(place.element, UniqueNameAttribute)
            < layout.tree.attribute(child, UniqueNameAttribute);
    }

    // Removing

    void unset(const QString &path)
    {
        const std::vector<FieldPlace> *const places = path.isEmpty() ? nullptr : layout.places.find(path);
        if (!places) {
            const bool isKnown = before.count(path) != 0
                || std::any_of(before.begin(), before.end(),
                               [&path](const auto &field) { return isBelow(field.first, path); });
            if (!isKnown)
                fail(QStringLiteral("there is no such field in the document"), path);
            return;
        }
        for (const FieldPlace &place : *places) {
            if (place.isAttribute)
                editor.removeAttribute(place.element, place.row->name.toString());
            else if (place.element == XmlTree::Root)
                editor.setText(place.element, {});
            else
                editor.removeElement(place.element);
        }
    }

    [[nodiscard]] bool isUnsetting() const { return !unsetPaths().isEmpty(); }

    [[nodiscard]] QStringList unsetPaths() const
    {
        QStringList paths;
        for (const DocumentEdit::Change &change : changes) {
            if (change.action == Action::Unset)
                paths += change.path;
        }
        // The last of a list first, so that the indexes before it stay.
        std::sort(paths.begin(), paths.end(),
                  [](const QString &a, const QString &b) { return listOf(a).second > listOf(b).second; });
        return paths;
    }

    [[nodiscard]] bool isUnset(const QString &path) const
    {
        const QStringList paths = unsetPaths();
        return std::any_of(paths.begin(), paths.end(), [&path](const QString &unsetPath) {
            return path == unsetPath || isBelow(path, unsetPath);
        });
    }

    /// \a path is unset: it may hold anything then. The elements behind one of a list move up.
    static void forget(HeldFields &fields, const QString &path)
    {
        const auto [list, index] = listOf(path);
        HeldFields left;
        for (const auto &[fieldPath, held] : fields) {
            if (fieldPath == path || isBelow(fieldPath, path))
                continue;
            const QString rest = fieldPath.mid(list.size() + 1);
            const int other = index >= 0 && fieldPath.startsWith(list + QLatin1Char('['))
                ? rest.section(QLatin1Char(']'), 0, 0).toInt()
                : -1;
            left[other > index && index >= 0 ? list + QStringLiteral("[%1]").arg(other - 1)
                         + rest.mid(rest.indexOf(QLatin1Char(']')) + 1)
                                             : fieldPath] = held;
        }
        fields = std::move(left);
    }

    ParsedDocument &document;
    const DocumentKind &kind;
    const QVector<DocumentEdit::Change> &changes;
    Layout layout;
    XmlEditor editor;
    std::unique_ptr<ITesselObject> changed; ///< as it is to be read
    HeldFields before;
    HeldFields after;
    XmlTree formTree;
    std::unique_ptr<Layout> formLayout; ///< of the changed object, as it would be written
    QSet<QString> added;
};

/// Findings that \a after has more of than \a before, whatever their places.
QVector<Finding> newAmong(const QVector<Finding> &after, const QVector<Finding> &before)
{
    QMap<QString, int> known;
    const auto keyOf = [](const Finding &finding) {
        return finding.GetId() + QLatin1Char(' ') + finding.GetPath();
    };
    for (const Finding &finding : before)
        ++known[keyOf(finding)];
    QVector<Finding> result;
    for (const Finding &finding : after) {
        if (--known[keyOf(finding)] < 0)
            result += finding;
    }
    return result;
}

QVector<DocumentEdit::Place> placesOf(const std::vector<TextPatch> &patches, const QByteArray &text,
                                      qsizetype skipped)
{
    QVector<DocumentEdit::Place> places;
    TextPositions positions(text);
    for (const TextPatch &patch : patches) {
        const TextPosition position = positions.at(patch.begin);
        places.push_back({static_cast<qint64>(patch.begin + skipped), position.line, position.column,
                          text.mid(static_cast<TESSEL::TextSize>(patch.begin),
                                   static_cast<TESSEL::TextSize>(patch.end - patch.begin)),
                          patch.text});
    }
    return places;
}

QVector<Finding> findingsOf(const DocumentCheck &check)
{
    QVector<Finding> findings;
    for (const auto &[finding, position] : check.findings)
        findings += FindingMaker::made(finding, position, 0);
    return findings;
}

Finding errorAbout(const DocumentError &error)
{
    FindingData data{error.offset, error.message, {}, error.id, Severity::Error};
    data.allowed = error.allowed;
    data.limit = error.limit;
    return FindingMaker::made(std::move(data), error.position, 0);
}

/// What comes of changes.
struct Outcome {
    QByteArray text;
    std::vector<TextPatch> patches;
    QVector<Finding> findings;
    bool isDone = false;
};

/// \throws DocumentError
Outcome edited(const QByteArray &text, const QVector<DocumentEdit::Change> &changes,
               DocumentEdit::NewFindings newFindings, const TESSEL::ReadingLimits &limits)
{
    ParsedDocument document = documentOf(text, limits);
    if (document.rejection)
        throwRejection(*document.rejection, text);
    Editing editing(document, changes);
    Outcome outcome;
    outcome.patches = editing.patches();
    outcome.findings = editing.errors;
    if (!outcome.findings.isEmpty())
        return outcome;
    outcome.text = patched(text, outcome.patches);
    const DocumentCheck check = checkText(outcome.text, limits);
    const QVector<Finding> added = newAmong(findingsOf(check), findingsOf(checkText(text, limits)));
    if (check.object)
        editing.compare(*check.object);
    outcome.findings = editing.errors;
    if (!check.object || (newFindings == DocumentEdit::NewFindings::Refused && outcome.findings.isEmpty()))
        outcome.findings += added;
    outcome.isDone = check.object && outcome.findings.isEmpty();
    if (outcome.isDone)
        outcome.findings = added;
    return outcome;
}

} // namespace

DocumentEdit::DocumentEdit() = default;

DocumentEdit::DocumentEdit(const QByteArray &text, const QVector<Change> &changes, NewFindings newFindings,
                           const TESSEL::ReadingLimits &limits)
{
    auto made = std::make_shared<Private>();
    made->text = text;
    try {
        const QByteArray checked = checkedText(text);
        const Outcome outcome = edited(checked, changes, newFindings, limits);
        const qsizetype skipped = byteOrderMarkSize(text);
        made->findings = outcome.findings;
        made->isDone = outcome.isDone;
        if (made->isDone) {
            std::vector<TextPatch> patches = outcome.patches;
            made->places = placesOf(patches, checked, skipped);
            for (TextPatch &patch : patches) {
                patch.begin += skipped;
                patch.end += skipped;
            }
            made->text = patched(text, patches);
        }
    } catch (const DocumentError &error) {
        made->findings = {errorAbout(error)};
    }
    d = std::move(made);
}

bool DocumentEdit::IsDone() const noexcept
{
    return d && d->isDone;
}

QByteArray DocumentEdit::GetText() const
{
    return d ? d->text : QByteArray();
}

QVector<DocumentEdit::Place> DocumentEdit::GetPlaces() const
{
    return d ? d->places : QVector<Place>();
}

QVector<Finding> DocumentEdit::GetFindings() const
{
    return d ? d->findings : QVector<Finding>();
}

} // namespace KORMAK
