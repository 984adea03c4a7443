#include "tools/FormProblems.h"

#include <tools/Console.h>
#include <tools/XmlCursor.h>

#include <QHash>

#include <algorithm>
#include <memory>
#include <utility>

namespace {

using Index = XmlTree::Index;
using Content = ElementForm::Content;
using Demand = ElementForm::Demand;

struct ObjectState;

/// What the document has said so far in the elements of one row.
struct RowState {
    Index last = XmlTree::None;
    bool isSet = false;
    std::ptrdiff_t finding = -1; ///< about the text of the last one, if there is one
    std::unique_ptr<ObjectState> object = nullptr; ///< which several elements fill
};

struct ObjectState {
    explicit ObjectState(const ObjectForm &objectForm)
        : form(objectForm), rows(objectForm.elements.size()) { }

    const ObjectForm &form;
    Index index = XmlTree::Root; ///< the last element of the object
    std::vector<RowState> rows;
};

class TextsOf : public ObjectTexts {
public:
    TextsOf(const XmlTree &xml, const ObjectState &object) : tree(xml), state(object) { }

    [[nodiscard]] std::optional<QString> text(QStringView element) const override
    {
        const Index index = last(element);
        return index == XmlTree::None ? std::nullopt : std::optional(tree.text(index));
    }

    [[nodiscard]] Index last(QStringView element) const
    {
        const auto &rows = state.form.elements;
        const auto row = std::find_if(rows.begin(), rows.end(),
                                      [element](const auto &candidate) { return candidate.name == element; });
        return row == rows.end() ? XmlTree::None
                                 : state.rows[static_cast<std::size_t>(row - rows.begin())].last;
    }

private:
    const XmlTree &tree;
    const ObjectState &state;
};

QString pleaseSet(const ObjectForm &form, QStringView field)
{
    return QStringLiteral("%1: Please set %2").arg(form.name.toString(), field.toString());
}

/// What the library says when an object is missing: it asks for the first field.
QString pleaseSetFirst(const ObjectForm &form)
{
    const auto row = std::find_if(form.elements.begin(), form.elements.end(),
                                  [](const auto &candidate) { return !candidate.field.isEmpty(); });
    return row == form.elements.end() ? QString() : pleaseSet(form, row->field);
}

class ProblemFinder {
public:
    explicit ProblemFinder(const XmlTree &xml) : tree(xml), cursor(xml) { }

    Findings find(const ObjectForm &document)
    {
        ObjectState state(document);
        readChild(state);
        demand(state, Severity::Error);
        std::stable_sort(findings.begin(), findings.end(),
                         [](const Finding &a, const Finding &b) { return a.offset < b.offset; });
        return std::move(findings);
    }

private:
    // Reading

    /// The cursor is at the start of the child, and at its end afterwards.
    void readChild(ObjectState &parent)
    {
        const auto &rows = parent.form.elements;
        const QStringView name = localName(tree.name(cursor.element()));
        const auto row = std::find_if(rows.begin(), rows.end(),
                                      [name](const auto &candidate) { return candidate.name == name; });
        if (row == rows.end()) {
            reportUnknown(parent.form);
            cursor.skip();
            return;
        }
        RowState &state = parent.rows[static_cast<std::size_t>(row - rows.begin())];
        reportRepetition(parent, *row, state.last);
        state.last = cursor.element();
        readRow(parent, *row, state);
    }

    void readRow(const ObjectState &parent, const ElementForm &row, RowState &state)
    {
        switch (row.content) {
        case Content::Text:
            readText(parent, row, state);
            cursor.skip();
            break;
        case Content::Object:
            readObject(filledObject(row, state));
            break;
        case Content::List: {
            ObjectState object(*row.object);
            readObject(object);
            demand(object, Severity::Warning);
            break;
        }
        case Content::Block:
            readBlock(filledObject(row, state), row.end);
            break;
        case Content::Entry:
            checkAttributes(row.object->attributes);
            reportStrayText();
            break;
        case Content::Ignored:
            if (!row.unread.isEmpty())
                add(cursor.element(), FindingId::Unread, row.unread.toString());
            cursor.skip();
            break;
        }
    }

    static ObjectState &filledObject(const ElementForm &row, RowState &state)
    {
        if (!state.object)
            state.object = std::make_unique<ObjectState>(*row.object);
        return *state.object;
    }

    void readText(const ObjectState &parent, const ElementForm &row, RowState &state)
    {
        const Index index = cursor.element();
        checkAttributes(row.attributes);
        if (tree.hasChild(index)) {
            add(tree.firstChild(index), FindingId::MisplacedElement,
                QStringLiteral("an element where a text belongs"))
                .severity = Severity::Error;
            state.isSet = true;
            return;
        }
        if (index == tree.brokenIn())
            return;
        const QString text = tree.text(index);
        const bool isSaid = row.form.isSaidBy(text);
        state.finding = isSaid ? -1 : static_cast<std::ptrdiff_t>(findings.size());
        if (!isSaid)
            reportText(parent.form, row, index);
        const bool isGood = isSaid && !(row.form.isFree() && text.isEmpty());
        state.isSet = isGood || (row.keepsFormer && state.isSet);
    }

    void readObject(ObjectState &object)
    {
        object.index = cursor.element();
        const QString &ownName = tree.name(object.index);
        checkAttributes(object.form.attributes);
        reportStrayText();
        while (cursor.next()) {
            if (!cursor.isAtEnd())
                readChild(object);
            else if (tree.name(cursor.element()) == ownName)
                return; // told by its name, since a block may have ended below
        }
    }

    /// What follows behind the element, when the block goes on there, is not judged: it is the fault of the
    /// block.
    void readBlock(ObjectState &block, QStringView end)
    {
        block.index = cursor.element();
        checkAttributes(block.form.attributes);
        reportStrayText();
        bool isInside = true;
        while (cursor.next()) {
            if (cursor.isAtEnd() && tree.name(cursor.element()) == end)
                return;
            if (cursor.isAtEnd())
                isInside = isInside && cursor.element() != block.index;
            else if (isInside)
                readInBlock(block);
            else
                passInBlock(block.form);
        }
    }

    void readInBlock(ObjectState &block)
    {
        const Index index = cursor.element();
        const Index parent = tree.parent(index);
        if (isKnown(block.form, index))
            readChild(block);
        else if (parent == block.index || isKnown(block.form, parent))
            reportUnknown(block.form); // and what is in it is not told again
    }

    void passInBlock(const ObjectForm &form)
    {
        const auto row =
            std::find_if(form.elements.begin(), form.elements.end(), [this](const ElementForm &candidate) {
                return candidate.name == localName(tree.name(cursor.element()));
            });
        if (row == form.elements.end() || row->content != Content::Text)
            return;
        const Index child = tree.firstChild(cursor.element());
        if (child != XmlTree::None)
            add(child, FindingId::MisplacedElement, QStringLiteral("an element where a text belongs"))
                .severity = Severity::Error;
        cursor.skip();
    }

    bool isKnown(const ObjectForm &form, Index index) const
    {
        const QStringView name = localName(tree.name(index));
        return std::any_of(form.elements.begin(), form.elements.end(),
                           [name](const auto &row) { return row.name == name; });
    }

    void checkAttributes(const FormTable<AttributeForm> &rows)
    {
        const Index index = cursor.element();
        for (const XmlTree::Attribute &attribute : tree.attributes(index)) {
            if (attribute.name.contains(QLatin1Char(':')) || attribute.name == QLatin1String("xmlns"))
                continue; // meant for others
            const auto row = std::find_if(rows.begin(), rows.end(), [&attribute](const auto &candidate) {
                return candidate.name == attribute.name;
            });
            if (row == rows.end())
                reportUnknownAttribute(index, attribute, rows);
            else if (!row->unread.isEmpty())
                addAttribute(index, attribute, FindingId::Unread, row->unread.toString());
            else if (!row->text.isSaidBy(attribute.value))
                addAttribute(index, attribute, FindingId::BadValue, row->text.objectionTo(attribute.value))
                    .allowed = row->text.allowed();
        }
    }

    // Demands

    /// \a severity: of what Check() would ask for if it came to the object.
    void demand(const ObjectState &object, Severity severity)
    {
        if (tree.isBroken())
            return;
        const TextsOf texts(tree, object);
        for (const AttributeForm &row : object.form.attributes) {
            if (!row.field.isEmpty())
                demandAttribute(object, row, severity);
        }
        for (std::size_t i = 0; i < object.rows.size(); ++i) {
            const ElementForm &row = object.form.elements[i];
            const bool isWanted = !row.condition || row.condition(texts);
            const Severity rowSeverity = row.demand == Demand::Asked ? severity : Severity::Warning;
            if (row.content == Content::Object && object.rows[i].object && isWanted)
                demand(*object.rows[i].object, rowSeverity);
            else if (row.demand != Demand::None && isWanted)
                demandRow(object, i, texts, rowSeverity);
        }
        for (const FormRule &rule : object.form.rules) {
            if (rule.isBroken(texts))
                reportRule(object, rule, texts.last(rule.element), severity);
        }
    }

    void demandAttribute(const ObjectState &object, const AttributeForm &row, Severity severity)
    {
        const auto value = tree.attribute(object.index, row.name);
        if (value && !value->isEmpty())
            return;
        const QString complaint = pleaseSet(object.form, row.field);
        if (value) {
            setSeverity(addAttribute(object.index, {row.name.toString(), *value}, FindingId::BadValue,
                                     QStringLiteral("is empty")),
                        severity, complaint);
        } else {
            setSeverity(add(object.index, FindingId::MissingAttribute, QStringLiteral("missing"),
                            QStringLiteral("/@") + row.name.toString()),
                        severity, complaint);
        }
    }

    void demandRow(const ObjectState &object, std::size_t number, const TextsOf &texts, Severity severity)
    {
        const ElementForm &row = object.form.elements[number];
        const RowState &state = object.rows[number];
        const bool isThere = state.last != XmlTree::None;
        const QString complaint =
            row.object ? pleaseSetFirst(*row.object) : pleaseSet(object.form, row.field);
        if (!isThere) {
            Finding &finding = add(object.index, FindingId::MissingElement, QStringLiteral("missing"),
                                   QLatin1Char('/') + row.name.toString());
            finding.allowed = row.form.allowed();
            setSeverity(finding, severity, complaint);
        } else if (row.isMet ? !row.isMet(texts) : !state.isSet) {
            Finding &finding = state.finding >= 0 ? findings[static_cast<std::size_t>(state.finding)]
                                                  : reportUnmet(row, state.last);
            setSeverity(finding, severity, complaint);
        }
    }

    Finding &reportUnmet(const ElementForm &row, Index index)
    {
        const QString text = tree.text(index);
        const QString message = row.wanted.isEmpty() || text.isEmpty()
            ? QStringLiteral("is empty")
            : QStringLiteral("%1 is not %2").arg(Console::quoted(text), row.wanted.toString());
        Finding &finding = add(index, FindingId::BadValue, message);
        finding.found = text;
        return finding;
    }

    void reportRule(const ObjectState &object, const FormRule &rule, Index place, Severity severity)
    {
        Finding &finding = add(place, FindingId::BadValue, rule.message.toString());
        finding.found = tree.text(place);
        if (!rule.field.isEmpty())
            setSeverity(finding, severity, pleaseSet(object.form, rule.field));
    }

    // Findings

    Finding &add(Index index, QStringView id, const QString &message, const QString &below = {})
    {
        if (index != pathIndex) {
            pathIndex = index;
            path = tree.path(index);
        }
        findings.push_back({tree.offset(index), message, path + below, id});
        return findings.back();
    }

    Finding &addAttribute(Index index, const XmlTree::Attribute &attribute, QStringView id,
                          const QString &message)
    {
        Finding &finding = add(index, id, message, QStringLiteral("/@") + Console::shortened(attribute.name));
        finding.found = attribute.value;
        return finding;
    }

    /// What a setter has refused already stays an error.
    static void setSeverity(Finding &finding, Severity severity, const QString &complaint)
    {
        if (severity != Severity::Error || finding.severity == Severity::Error)
            return;
        finding.severity = Severity::Error;
        finding.complaint = complaint;
    }

    void reportUnknown(const ObjectForm &form)
    {
        Finding &finding = add(cursor.element(), FindingId::UnknownElement,
                               form.refusesOthers ? QStringLiteral("unknown element")
                                                  : QStringLiteral("unknown element, which is passed over"));
        finding.allowed = namesIn(form);
        if (form.refusesOthers) {
            const QStringView name = localName(tree.name(cursor.element()));
            setSeverity(
                finding, Severity::Error,
                QStringLiteral("Unknown Tag '%1' in '%2'.").arg(name.toString(), form.name.toString()));
        }
    }

    void reportRepetition(const ObjectState &parent, const ElementForm &row, Index former)
    {
        const bool mayRepeat = row.content == Content::List || row.content == Content::Entry
            || row.content == Content::Block || row.content == Content::Ignored;
        if (mayRepeat || former == XmlTree::None)
            return;
        // An object that is given twice is told of itself; what is in it need not be.
        const Index here = cursor.element();
        if (parent.form.refusesOthers && tree.parent(here) != tree.parent(former))
            return;
        add(here, FindingId::Repeated, QStringLiteral("given before; the last one counts"));
    }

    void reportText(const ObjectForm &form, const ElementForm &row, Index index)
    {
        const QString text = tree.text(index);
        Finding &finding = add(index, FindingId::BadValue, row.form.objectionTo(text));
        finding.found = text;
        finding.allowed = row.form.allowed();
        if (!row.refusedAs.isEmpty()) {
            setSeverity(finding, Severity::Error,
                        QStringLiteral("%1: Invalid %2 '%3'")
                            .arg(form.name.toString(), row.refusedAs.toString(), row.form.numberRead(text)));
        }
    }

    void reportStrayText()
    {
        const QString text = tree.text(cursor.element()).trimmed();
        if (text.isEmpty())
            return;
        add(cursor.element(), FindingId::StrayText,
            QStringLiteral("the text %1 is not read").arg(Console::quoted(text)))
            .found = text;
    }

    void reportUnknownAttribute(Index index, const XmlTree::Attribute &attribute,
                                const FormTable<AttributeForm> &rows)
    {
        QStringList names;
        for (const AttributeForm &row : rows) {
            if (row.unread.isEmpty())
                names += row.name.toString();
        }
        addAttribute(index, attribute, FindingId::UnknownAttribute,
                     QStringLiteral("unknown attribute, which is passed over"))
            .allowed = names;
    }

    /// The same list for all findings.
    const QStringList &namesIn(const ObjectForm &form)
    {
        QStringList &names = allNames[&form];
        if (names.isEmpty()) {
            for (const ElementForm &row : form.elements) {
                if (row.unread.isEmpty())
                    names += row.name.toString();
            }
        }
        return names;
    }

    const XmlTree &tree;
    XmlCursor cursor;
    Findings findings;
    Index pathIndex = XmlTree::None; ///< of `path`: many findings may be about one element
    QString path;
    QHash<const ObjectForm *, QStringList> allNames;
};

} // namespace

Findings findProblems(const XmlTree &document, const ObjectForm &form)
{
    return document.hasRoot() ? ProblemFinder(document).find(form) : Findings();
}
