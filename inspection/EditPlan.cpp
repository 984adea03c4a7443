#include "inspection/EditPlan_p.h"

#include <inspection/DocumentTexts_p.h>
#include <inspection/EditLayout_p.h>
#include <inspection/FieldAssignment_p.h>
#include <inspection/FieldText_p.h>
#include <inspection/QuotedText_p.h>
#include <inspection/ReadableForm_p.h>
#include <inspection/XmlEditor_p.h>
#include <objectbase/ITesselObject.h>

#include <QSet>

#include <algorithm>

namespace KORMAK::Inspection {

using TESSEL::Part;
using TESSEL::Row;
using Index = XmlTree::Index;
using Action = DocumentEdit::Change::Action;

namespace {

constexpr QStringView KeyStart = u"[Key=";

} // namespace

class EditPlan::Plan {
public:
    QVector<Finding> errors;
    Findings losses; ///< of what is removed

    Plan(ParsedDocument &parsed, const QVector<DocumentEdit::Change> &wanted)
        : kind(*parsed.kind), changes(withIndexes(wanted, *parsed.object)), scope(scopeOfChanges()),
          layout(parsed.text, parsed.tree, kind, *parsed.object, scope), editor(layout.tree, layout.source),
          changed(kind.copy(*parsed.object)), before(heldBy(kind, *parsed.object, scope))
    {
        const TESSEL::ObjectTable &table = kind.table();
        holdsText = table.wholeText && table.wholeText(kind.address(*parsed.object));
    }

    std::vector<TextPatch> patches()
    {
        if (!layout.source.isWhole())
            fail(QStringLiteral("what stands in an entity cannot be changed"));
        const std::vector<FieldAssignment> wanted =
            errors.isEmpty() ? applied() : std::vector<FieldAssignment>();
        after = heldBy(kind, *changed, scope);
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

    /// Moves what tells what is to be read when it is done.
    void moveTo(EditPlan &plan)
    {
        for (const DocumentEdit::Change &change : std::as_const(changes)) {
            if (change.action == Action::Unset)
                plan.removals.push_back({change.path, isInList(change.path)});
        }
        plan.kind = &kind;
        plan.scope = scope;
        plan.changed = std::move(changed);
    }

private:
    void fail(const QString &message, const QString &path = {})
    {
        errors += FindingMaker::notEdited(message, path);
    }

    QVector<DocumentEdit::Change> withIndexes(QVector<DocumentEdit::Change> wanted,
                                              const TESSEL::ITesselObject &object)
    {
        QStringList paths;
        for (const DocumentEdit::Change &change : std::as_const(wanted))
            paths += change.path;
        if (paths.filter(KeyStart.toString()).isEmpty())
            return wanted;
        const HeldFields held = heldBy(kind, object, EditScope(paths));
        for (DocumentEdit::Change &change : wanted)
            change.path = withIndexes(change.path, held);
        return wanted;
    }

    /// The paths as they are given, and as they are spelled elsewhere.
    [[nodiscard]] EditScope scopeOfChanges() const
    {
        QStringList paths;
        for (const DocumentEdit::Change &change : changes) {
            paths += change.path;
            try {
                paths += pathOf(readAssignment(kind.fields(), settingOf(change)));
            } catch (const FieldError &) {
                // told when it is to be made
            }
        }
        return EditScope(paths);
    }

    static QString settingOf(const DocumentEdit::Change &change)
    {
        return change.path + QLatin1Char('=') + change.text;
    }

    /// \a path with indexes in the place of keys: "EnumValue[1].Name" for "EnumValue[Key=7].Name". There are
    /// parameters called "Key=7", too.
    QString withIndexes(const QString &path, const HeldFields &fields)
    {
        const QString start = KeyStart.toString();
        for (auto begin = path.indexOf(start); begin >= 0; begin = path.indexOf(start, begin + 1)) {
            const auto keyBegin = begin + start.size();
            const auto end = path.indexOf(QLatin1Char(']'), keyBegin);
            if (end < 0)
                break;
            const QString key = path.mid(keyBegin, end - keyBegin);
            const auto element = [&path, begin](int i) {
                return path.left(begin) + QStringLiteral("[%1]").arg(i);
            };
            QStringList found;
            int count = 0;
            for (;; ++count) {
                const auto held = fields.find(element(count) + QStringLiteral(".Key"));
                if (held == fields.end())
                    break;
                if (settableText(held->second.row->type, held->second.value) == key)
                    found += element(count) + path.mid(end + 1);
            }
            if (found.size() == 1)
                return found.constFirst();
            if (!found.isEmpty())
                fail(QStringLiteral("there are several elements with this key: call it by its index"), path);
            else if (count > 0)
                fail(QStringLiteral("there is no element with this key"), path);
        }
        return path;
    }

    /// Makes the changes in the object that set something.
    std::vector<FieldAssignment> applied()
    {
        QStringList texts;
        for (const DocumentEdit::Change &change : changes) {
            if (change.action != Action::Set)
                continue;
            const QString setting = settingOf(change);
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
        if (!isWritable()) {
            fail(QStringLiteral("holds a character that XML cannot carry"));
            return;
        }
        for (const FieldAssignment &assignment : wanted) {
            const bool isSaid = std::all_of(assignment.steps.begin(), assignment.steps.end(),
                                            [](const FieldStep &step) { return step.row->isInDocuments; });
            const FieldStep &last = assignment.steps.back();
            if (!isSaid)
                fail(QStringLiteral("no document says it"), pathOf(assignment));
            else if (last.row->parts)
                setWhole(assignment);
            else
                setValue(pathOf(assignment), assignment.text);
        }
    }

    /// Whether XML can carry what the changed object holds. What is not set now has been read from XML.
    [[nodiscard]] bool isWritable() const
    {
        const bool isPlain = std::all_of(changes.begin(), changes.end(), [](const auto &change) {
            return isRepresentable(change.path) && isRepresentable(change.text);
        });
        return isPlain || readableForm(kind, *changed);
    }

    /// The changed object, as it would be written.
    const EditLayout &form()
    {
        if (!formLayout) {
            const auto text = readableForm(kind, *changed, scope);
            formTree = XmlTree(text.value());
            formLayout = std::make_unique<EditLayout>(*text, formTree, kind, *changed, scope);
        }
        return *formLayout;
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

    /// All values at once, of an element that is there, or of all those that are added to a list.
    void setWhole(const FieldAssignment &assignment)
    {
        const QString path = pathOf(assignment);
        const FieldStep &last = assignment.steps.back();
        if (last.row->parts->kind != Part::Kind::List || last.hasKey) {
            setObject(path);
        } else if (!completedLists.contains(path)) {
            completedLists.insert(path);
            const auto at = [&path](int index) { return path + QStringLiteral("[%1]").arg(index); };
            for (int i = 0; hasObject(after, at(i)); ++i) {
                if (!hasObject(before, at(i)))
                    setObject(at(i));
            }
        }
    }

    static bool hasObject(const HeldFields &fields, const QString &path)
    {
        const auto field = fields.lower_bound(path + QLatin1Char('.'));
        return field != fields.end() && isBelow(field->first, path);
    }

    /// The fields of the object at \a path that are to hold something else.
    void setObject(const QString &path)
    {
        for (auto field = after.lower_bound(path + QLatin1Char('.'));
             field != after.end() && isBelow(field->first, path); ++field) {
            const auto former = before.find(field->first);
            const bool isSame = former != before.end() && areSame(former->second.value, field->second.value);
            if (!isSame && parentOf(field->first) == path)
                setValue(field->first, {});
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
        const std::vector<FieldPlace> places = layout.places.find(path);
        if (places.empty())
            add(path, said);
        else
            replace(places.back(), path, held->second, said);
    }

    /// The \a asked text where it says the same, since people have chosen its digits.
    [[nodiscard]] QString textFor(const QString &path, const HeldField &held, const QString &asked)
    {
        using Kind = TextType::Kind;
        const TextType &type = held.row->type;
        const bool isChosen =
            !asked.isEmpty() && type.kind != Kind::Boolean && type.kind != Kind::Name && isValid(type, asked);
        if (isChosen)
            return asked;
        if (const auto places = form().places.find(path); !places.empty())
            return valueIn(form(), places.back());
        return settableText(type, held.value);
    }

    [[nodiscard]] static QString valueIn(const EditLayout &where, const FieldPlace &place)
    {
        if (place.isAttribute)
            return where.tree.attribute(place.element, place.row->name).value_or(QString());
        return place.element == XmlTree::Root ? where.tree.rootText() : where.tree.text(place.element);
    }

    void replace(const FieldPlace &place, const QString &path, const HeldField &held, const QString &said)
    {
        const QString there = valueIn(layout, place);
        const auto former = before.find(path);
        const bool isThere = former != before.end() && areSame(former->second.value, held.value)
            && isValid(held.row->type, there);
        if (there == said || isThere)
            return;
        if (!place.isAttribute)
            editor.setText(place.element, said);
        else if (isInTag(place.element, *place.row))
            editor.setAttribute(place.element, place.row->name.toString(), said);
        else
            editor.addAttribute(place.element, place.row->name.toString(), said,
                                previousAttribute(layout.places.find(parentOf(path)).back(), *place.row));
    }

    /// Of an attribute, which may be there only because the document type declares what it holds.
    [[nodiscard]] bool isInTag(Index element, const Row &attribute) const
    {
        return layout.source.attribute(element, attribute.name.toUtf8()).has_value();
    }

    // Adding

    [[nodiscard]] bool isInAdded(const QString &path) const
    {
        for (QString whole = path; !whole.isEmpty(); whole = parentOf(whole)) {
            if (added.contains(whole))
                return true;
        }
        return false;
    }

    /// With all objects that it stands in and that are not there.
    void add(const QString &path, const QString &said)
    {
        const QString owner = ownerOf(path);
        QString object = owner;
        QString missing;
        while (layout.places.find(object).empty()) {
            missing = object;
            object = parentOf(object);
        }
        const FieldPlace parent = layout.places.find(object).back();
        if (missing.isEmpty())
            addValue(path, owner, said, parent);
        else
            addObject(missing, parent);
    }

    /// The object whose element or attribute the field is: that around a block that is but a text.
    [[nodiscard]] QString ownerOf(const QString &path)
    {
        const QString parent = parentOf(path);
        const bool isText = form().places.find(parent).empty() && !form().places.find(path).empty();
        return isText ? parentOf(parent) : parent;
    }

    void addObject(const QString &path, const FieldPlace &parent)
    {
        added.insert(path);
        const auto places = form().places.find(path);
        if (places.empty()) {
            fail(QStringLiteral("no document says it"), path);
            return;
        }
        const FieldPlace &place = places.back();
        const XmlEditor::NewElement element{&form().source, &form().tree, place.element};
        if (mayAddElement(path))
            editor.addElement(parent.element, previousSibling(parent, place),
                              orderOf(*parent.table, *place.row), element);
    }

    bool mayAddElement(const QString &path)
    {
        if (holdsText)
            fail(QStringLiteral("documents of this version hold a text and no elements"), path);
        return !holdsText;
    }

    void addValue(const QString &path, const QString &owner, const QString &said, const FieldPlace &parent)
    {
        added.insert(path);
        const QString inOwner = owner.isEmpty() ? path : path.mid(owner.size() + 1);
        const QString name = inOwner.section(QLatin1Char('.'), 0, 0);
        const Row *const element = childRow(*parent.table, name);
        const Row *const attribute = parent.table->attribute(name);
        if (element && element->read) {
            if (!mayAddElement(path))
                return;
            editor.addElement(
                parent.element, siblingBefore(layout.tree, *parent.table, parent.element, *element),
                orderOf(*parent.table, *element), {nullptr, nullptr, XmlTree::None, name, said});
        } else if (attribute && attribute->read) {
            editor.addAttribute(parent.element, name, said, previousAttribute(parent, *attribute));
        } else {
            fail(QStringLiteral("no document says it"), path);
        }
    }

    [[nodiscard]] QString previousAttribute(const FieldPlace &parent, const Row &row) const
    {
        QString previous;
        for (const Row &other : parent.table->attributes) {
            if (&other == &row)
                break;
            if (isInTag(parent.element, other))
                previous = other.name.toString();
        }
        return previous;
    }

    [[nodiscard]] Index previousSibling(const FieldPlace &parent, const FieldPlace &place)
    {
        return siblingBefore(layout.tree, *parent.table, parent.element, *place.row,
                             [&](Index child) { return isAhead(place, child); });
    }

    /// Whether a new element called by a name stands before \a child.
    [[nodiscard]] bool isAhead(const FieldPlace &place, Index child)
    {
        return place.row->part->kind == Part::Kind::Map
            && form().tree.attribute(place.element, UniqueNameAttribute)
            < layout.tree.attribute(child, UniqueNameAttribute);
    }

    // Removing

    void unset(const QString &path)
    {
        const auto places = path.isEmpty() ? std::vector<FieldPlace>() : layout.places.find(path);
        if (places.empty()) {
            const bool isKnown = before.count(path) != 0
                || std::any_of(before.begin(), before.end(),
                               [&path](const auto &field) { return isBelow(field.first, path); });
            if (!isKnown)
                fail(QStringLiteral("there is no such field in the document"), path);
            return;
        }
        for (const FieldPlace &place : places) {
            if (place.isAttribute && !isInTag(place.element, *place.row))
                fail(QStringLiteral("what the document type declares cannot be removed"), path);
            else if (place.isAttribute)
                editor.removeAttribute(place.element, place.row->name.toString());
            else if (place.element == XmlTree::Root)
                editor.setText(place.element, {});
            else
                removeElement(place.element);
        }
    }

    void removeElement(Index element)
    {
        using Aside = XmlTree::Aside;
        const XmlTree &tree = layout.tree;
        editor.removeElement(element);
        for (const Aside &aside : tree.allAsides()) {
            Index around = aside.parent;
            while (around != XmlTree::None && around != element)
                around = tree.parent(around);
            if (around == XmlTree::None)
                continue;
            const bool isComment = aside.kind == Aside::Kind::Comment;
            losses.push_back({aside.offset,
                              QStringLiteral("the %1 %2 is removed with what it stands in")
                                  .arg(isComment ? QStringLiteral("comment") : QStringLiteral("instruction"),
                                       quoted(aside.text)),
                              tree.path(aside.parent), isComment ? FindingId::LostComment : FindingId::Lost});
        }
    }

    /// Of a parameter, the name may be a number, too.
    [[nodiscard]] bool isInList(const QString &path) const
    {
        const auto places = layout.places.find(path);
        return !places.empty() && places.back().row && places.back().row->part
            && places.back().row->part->kind == Part::Kind::List;
    }

    const DocumentKind &kind;
    const QVector<DocumentEdit::Change> changes;
    const EditScope scope;
    EditLayout layout;
    XmlEditor editor;
    std::unique_ptr<TESSEL::ITesselObject> changed; ///< as it is to be read
    bool holdsText; ///< a document of a form that is one text in the root element
    HeldFields before;
    HeldFields after;
    XmlTree formTree;
    std::unique_ptr<EditLayout> formLayout; ///< of the changed object; null until it is asked for
    QSet<QString> added;
    QSet<QString> completedLists; ///< to which all is added that is to be
};

EditPlan::EditPlan(ParsedDocument &document, const QVector<DocumentEdit::Change> &changes)
{
    Plan plan(document, changes);
    allPatches = plan.patches();
    allErrors = plan.errors;
    allLosses = plan.losses;
    plan.moveTo(*this);
}

QVector<Finding> EditPlan::differencesIn(const EditScope &part, const TESSEL::ITesselObject &read) const
{
    ExpectedFields expected(heldBy(*kind, *changed, part));
    for (const auto &[path, isInList] : removals)
        isInList ? expected.unsetElement(path) : expected.unset(path);
    return expected.differencesTo(heldBy(*kind, read, part));
}

/// Outside the scope no path is removed, moves up or may be anything, since each of those begins with a step
/// of the scope: there the same fields are expected as the changed object holds. Only where they are not the
/// same in the same order is the whole document compared by its paths, to tell each difference.
QVector<Finding> EditPlan::differencesTo(const TESSEL::ITesselObject &read) const
{
    QVector<Finding> differences = differencesIn(scope, read);
    if (differences.isEmpty() && areSameBeside(scope, *kind, *changed, read))
        return differences;
    return differencesIn({}, read);
}

} // namespace KORMAK::Inspection
