#include "inspection/DocumentEdit.h"

#include <inspection/Document.h>
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
#include <objectbase/TesselException.h>

#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMap>
#include <QSet>

#include <algorithm>
#include <cmath>
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
    QVector<Finding> corrected;
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
    const auto begin = path.lastIndexOf(QLatin1Char('['));
    bool isIndex = begin > 0 && path.endsWith(QLatin1Char(']'));
    const QString key = isIndex ? path.mid(begin + 1, path.size() - begin - 2) : QString();
    const int index = key.toInt(&isIndex);
    return isIndex && index >= 0 && QString::number(index) == key ? std::pair(path.left(begin), index)
                                                                  : std::pair(path, -1);
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

int orderOf(const ObjectTable &table, const Row &row)
{
    return static_cast<int>(&row - table.elements.begin());
}

/// The last child of \a parent, an object of the \a table, that the library would write before a new element
/// of \a row. \a isAhead: whether that one stands before a child of its own kind.
template <class IsAhead>
Index siblingBefore(const XmlTree &tree, const ObjectTable &table, Index parent, const Row &row,
                    IsAhead isAhead)
{
    const int order = orderOf(table, row);
    Index previous = XmlTree::None;
    for (Index child = tree.firstChild(parent); child != XmlTree::None; child = tree.nextSibling(child)) {
        const Row *const other = childRow(table, localName(tree.name(child)));
        const int otherOrder = other ? orderOf(table, *other) : order + 1;
        if (otherOrder < order || (otherOrder == order && !isAhead(child)))
            previous = child;
    }
    return previous;
}

/// Makes the patches for changes of one document.
class Editing {
public:
    QVector<Finding> errors;

    Editing(ParsedDocument &parsed, const QVector<DocumentEdit::Change> &wanted)
        : kind(*parsed.kind), changes(wanted), layout(parsed.text, parsed.tree, kind, *parsed.object),
          editor(layout.tree, layout.source), changed(kind.copy(*parsed.object)),
          before(heldBy(kind, *parsed.object))
    {
        for (DocumentEdit::Change &change : changes)
            change.path = withIndexes(change.path);
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
            forget(expected, path, isInList(path));
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

    /// \a path with indexes in the place of keys: "EnumValue[1].Name" for "EnumValue[Key=7].Name". There are
    /// parameters called "Key=7", too.
    QString withIndexes(const QString &path)
    {
        const QString start = QStringLiteral("[Key=");
        for (auto begin = path.indexOf(start); begin >= 0; begin = path.indexOf(start, begin + 1)) {
            const auto keyBegin = begin + start.size();
            const auto end = path.indexOf(QLatin1Char(']'), keyBegin);
            const QString key = path.mid(keyBegin, end < 0 ? -1 : end - keyBegin);
            for (int i = 0;; ++i) {
                const QString element = path.left(begin) + QStringLiteral("[%1]").arg(i);
                const auto held = before.find(element + QStringLiteral(".Key"));
                if (held == before.end() && i > 0)
                    fail(QStringLiteral("there is no element with this key"), path);
                if (held == before.end())
                    break;
                if (settableText(held->second.row->type, held->second.value) == key)
                    return element + path.mid(end + 1);
            }
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
            // Other changes may set what stands in the elements that a list has already.
            const bool isOther =
                former == before.end() || (isWhole && !areSame(former->second.value, held.value));
            if (isIn && isOther)
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

    [[nodiscard]] Index previousSibling(const FieldPlace &parent, const FieldPlace &place) const
    {
        return siblingBefore(layout.tree, *parent.table, parent.element, *place.row,
                             [&](Index child) { return isAhead(place, child); });
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

    /// Of a parameter, the name may be a number, too.
    [[nodiscard]] bool isInList(const QString &path) const
    {
        const auto *const places = layout.places.find(path);
        return places && places->back().row && places->back().row->part
            && places->back().row->part->kind == Part::Kind::List;
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
    static void forget(HeldFields &fields, const QString &path, bool isInList)
    {
        const auto [list, index] = isInList ? listOf(path) : std::pair(path, -1);
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

    const DocumentKind &kind;
    QVector<DocumentEdit::Change> changes;
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

/// Puts right what is certain.
class Fixing {
public:
    Fixing(const QByteArray &checked, const TESSEL::ReadingLimits &readingLimits)
        : text(checked), limits(readingLimits), document(documentOf(text, limits)),
          layout(text, document.tree, *document.kind, *document.object), editor(layout.tree, layout.source)
    {
    }

    /// \a fixed: what is put right.
    std::vector<TextPatch> patches(QVector<Finding> &fixed)
    {
        if (!layout.source.isWhole())
            return {};
        for (const auto &[finding, position] : checkText(text, limits).findings) {
            if (correct(finding))
                fixed += FindingMaker::made(finding, position, 0);
        }
        std::vector<TextPatch> all = editor.patches();
        return arrange(all) ? all : std::vector<TextPatch>();
    }

private:
    bool correct(const FindingData &finding)
    {
        using Correction = Finding::Correction;
        const Index element = elementAt(finding.offset);
        if (finding.correction == Correction::None || element == XmlTree::None)
            return false;
        const auto at = finding.path.lastIndexOf(QLatin1String("/@"));
        const QString attribute = at < 0 ? QString() : finding.path.mid(at + 2);
        if (!attribute.isEmpty() && !layout.source.attribute(element, attribute.toUtf8()))
            return false;
        if (finding.correction == Correction::Element)
            return moveToElement(element, attribute, finding.suggestion);
        if (finding.correction == Correction::Text && attribute.isEmpty())
            editor.setText(element, finding.suggestion);
        else if (finding.correction == Correction::Text)
            editor.setAttribute(element, attribute, finding.suggestion);
        else if (attribute.isEmpty())
            editor.rename(element, finding.suggestion);
        else
            editor.renameAttribute(element, attribute, finding.suggestion);
        return true;
    }

    [[nodiscard]] Index elementAt(qsizetype offset) const
    {
        for (Index i = XmlTree::Root; i < layout.tree.end(); ++i) {
            if (layout.tree.offset(i) == offset)
                return i;
        }
        return XmlTree::None;
    }

    bool moveToElement(Index element, const QString &attribute, const QString &value)
    {
        for (const auto &[path, places] : layout.places.all()) {
            const auto place =
                std::find_if(places.begin(), places.end(), [element](const FieldPlace &candidate) {
                    return candidate.element == element && candidate.table;
                });
            if (place == places.end())
                continue;
            const Row *const row = childRow(*place->table, attribute);
            if (!row)
                return false;
            const Index previous = siblingBefore(layout.tree, *place->table, element, *row,
                                                 [](Index /*child*/) { return false; });
            editor.addElement(element, previous, orderOf(*place->table, *row),
                              {nullptr, nullptr, XmlTree::None, attribute, value});
            editor.removeAttribute(element, attribute);
            return true;
        }
        return false;
    }

    const QByteArray &text;
    const TESSEL::ReadingLimits &limits;
    ParsedDocument document;
    Layout layout;
    XmlEditor editor;
};

/// \a json with long whole numbers as texts: Qt 5 reads all numbers as doubles.
QByteArray withLongNumbersAsTexts(const QByteArray &json)
{
    constexpr qsizetype MostDigits = 15; // that every double holds
    QByteArray result;
    bool isInText = false;
    for (int i = 0; i < json.size();) {
        int end = i + 1;
        const char c = json.at(i);
        if (isInText && c == '\\' && end < json.size()) {
            ++end;
        } else if (c == '"') {
            isInText = !isInText;
        } else if (!isInText && (c == '-' || (c >= '0' && c <= '9'))) {
            while (end < json.size() && QByteArray("0123456789.eE+-").contains(json.at(end)))
                ++end;
        }
        const QByteArray piece = json.mid(i, end - i);
        const bool isWhole = !piece.contains('.') && !piece.contains('e') && !piece.contains('E');
        const bool isLong = !isInText && piece.size() > MostDigits && isWhole;
        result += isLong ? '"' + piece + '"' : piece;
        i = end;
    }
    return result;
}

/// Reads JSON as fields.
class ChangesReader {
public:
    QVector<DocumentEdit::Change> changes;

    explicit ChangesReader(const Document &read)
    {
        const QVector<Field> fields = read.GetFields();
        for (const Field &field : fields)
            known.insert(field.GetPath(), field);
    }

    void read(const QJsonObject &object, const FieldTable &table, const QString &prefix)
    {
        for (auto member = object.begin(); member != object.end(); ++member) {
            const FieldRow *const row = table.find(member.key());
            const QString path = prefix + member.key();
            if (!row)
                fail(path, QStringLiteral("there is no such field"));
            row->parts ? readParts(member.value(), *row->parts, path) : readValue(member.value(), path);
        }
    }

private:
    [[noreturn]] static void fail(const QString &path, const QString &message)
    {
        throw TESSEL::TesselException(path + QStringLiteral(": ") + message);
    }

    void readParts(const QJsonValue &value, const FieldParts &parts, const QString &path)
    {
        using Kind = FieldParts::Kind;
        if (value.isNull() && parts.kind == Kind::One) {
            if (isKnown(path))
                changes.push_back({Action::Unset, path});
            return;
        }
        if (parts.kind == Kind::List ? !value.isArray() : !value.isObject())
            fail(path,
                 parts.kind == Kind::List ? QStringLiteral("is no array") : QStringLiteral("is no object"));
        if (parts.kind == Kind::One) {
            read(value.toObject(), parts.table, path + QLatin1Char('.'));
        } else if (parts.kind == Kind::Map) {
            const QJsonObject all = value.toObject();
            for (auto part = all.begin(); part != all.end(); ++part)
                readPart(part.value(), parts, path + bracketed(parts, part.key()));
        } else {
            const QJsonArray all = value.toArray();
            for (int i = 0; i < all.size(); ++i)
                readPart(all.at(i), parts, path + QStringLiteral("[%1]").arg(i));
        }
    }

    void readPart(const QJsonValue &value, const FieldParts &parts, const QString &path)
    {
        if (value.isNull())
            changes.push_back({Action::Unset, path});
        else if (parts.table.isPlain())
            readValue(value, path);
        else if (value.isObject())
            read(value.toObject(), parts.table, path + QLatin1Char('.'));
        else
            fail(path, QStringLiteral("is no object"));
    }

    void readValue(const QJsonValue &value, const QString &path)
    {
        const auto field = known.constFind(path);
        const bool isThere = field != known.constEnd();
        if (value.isNull()) {
            if (isThere && field->IsSet())
                changes.push_back({Action::Unset, path});
            return;
        }
        const QString text = textOf(value, path);
        if (!isThere || !isSame(*field, value, text))
            changes.push_back({Action::Set, path, text});
    }

    static QString textOf(const QJsonValue &value, const QString &path)
    {
        constexpr double MostExact = 9007199254740992.0; // longer ones are texts
        if (value.isString())
            return value.toString();
        if (value.isBool())
            return value.toBool() ? QStringLiteral("true") : QStringLiteral("false");
        if (!value.isDouble())
            fail(path, QStringLiteral("is no value"));
        const double number = value.toDouble();
        const bool isWhole = number == std::floor(number) && std::abs(number) < MostExact;
        return isWhole ? QString::number(static_cast<qint64>(number)) : numberText(number);
    }

    static bool isSame(const Field &field, const QJsonValue &value, const QString &text)
    {
        const QVariant held = field.GetValue();
        if (field.GetType() == Field::Type::Float && value.isDouble())
            return static_cast<float>(value.toDouble()) == held.toFloat();
        return held.isValid()
            && (field.GetText() == text
                || (value.isDouble() && held.toDouble() == value.toDouble()
                    && field.GetType() == Field::Type::Double));
    }

    [[nodiscard]] bool isKnown(const QString &path) const
    {
        return std::any_of(known.keyBegin(), known.keyEnd(),
                           [&path](const QString &field) { return isBelow(field, path); });
    }

    QHash<QString, Field> known;
};

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

DocumentEdit DocumentEdit::Fix(const QByteArray &text, const TESSEL::ReadingLimits &limits)
{
    constexpr int MostRounds = 100; // what is put right lets more be read, and found
    auto made = std::make_shared<Private>();
    made->text = text;
    try {
        QByteArray now = checkedText(text);
        const qsizetype skipped = byteOrderMarkSize(text);
        for (int round = 0; round < MostRounds; ++round) {
            QVector<Finding> fixed;
            std::vector<TextPatch> patches = Fixing(now, limits).patches(fixed);
            if (patches.empty())
                break;
            now = patched(now, patches);
            for (TextPatch &patch : patches) {
                patch.begin += skipped;
                patch.end += skipped;
            }
            made->text = patched(made->text, patches);
            made->corrected += fixed;
        }
        made->findings = findingsOf(checkText(now, limits));
    } catch (const DocumentError &error) {
        made->findings = {errorAbout(error)};
    }
    made->isDone = !made->corrected.isEmpty();
    DocumentEdit result;
    result.d = std::move(made);
    return result;
}

QVector<DocumentEdit::Change> DocumentEdit::ReadChanges(const QByteArray &json, const QByteArray &text,
                                                        const TESSEL::ReadingLimits &limits)
{
    QJsonParseError error;
    const QJsonDocument parsed = QJsonDocument::fromJson(withLongNumbersAsTexts(json), &error);
    if (error.error != QJsonParseError::NoError) {
        throw TESSEL::TesselException(
            QStringLiteral("is no JSON: %1 at byte %2").arg(error.errorString()).arg(error.offset));
    }
    if (!parsed.isObject())
        throw TESSEL::TesselException(QStringLiteral("is no JSON object"));
    const Document document(text, limits);
    const DocumentKind *const kind = findDocumentKind(document.GetKind());
    if (!kind || !document.GetObject())
        throw TESSEL::TesselException(document.GetState());
    const QJsonObject whole = parsed.object();
    const bool isWhole = whole.value(QStringLiteral("fields")).isObject();
    const QString expected = whole.value(QStringLiteral("kind")).toString();
    if (isWhole && !expected.isEmpty() && expected != document.GetKind()) {
        throw TESSEL::TesselException(
            QStringLiteral("holds fields of kind %1, not %2").arg(expected, document.GetKind()));
    }
    ChangesReader reader(document);
    reader.read(isWhole ? whole.value(QStringLiteral("fields")).toObject() : whole, kind->fields(), {});
    return reader.changes;
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

QVector<Finding> DocumentEdit::GetCorrected() const
{
    return d ? d->corrected : QVector<Finding>();
}

QVector<Finding> DocumentEdit::GetFindings() const
{
    return d ? d->findings : QVector<Finding>();
}

} // namespace KORMAK
