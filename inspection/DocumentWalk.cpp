#include "inspection/DocumentWalk_p.h"

#include <inspection/Advice_p.h>
#include <inspection/DocumentTexts_p.h>
#include <inspection/FieldPlaces_p.h>
#include <inspection/QuotedText_p.h>
#include <inspection/Remedy_p.h>
#include <inspection/XmlCursor_p.h>
#include <objectbase/DocumentTable_p.h>
#include <objectbase/DocumentXml_p.h>
#include <objectbase/Messages_p.h>
#include <objectbase/Nesting_p.h>

#include <QHash>

#include <algorithm>
#include <memory>
#include <unordered_map>
#include <utility>
#include <vector>

namespace KORMAK::Inspection {

namespace {

using namespace TESSEL;
using Index = XmlTree::Index;
using Content = Row::Content;

/// Each element is an object of its own.
bool isList(const Row &row)
{
    return row.part && row.part->kind != Part::Kind::One;
}

/// The rows of a table by the names that they have in a tree.
class NamedRows {
public:
    const ObjectTable &table;

    NamedRows(const ObjectTable &ofObjects, const XmlTree &xml)
        : table(ofObjects), names(xml.allNames()), children(std::min(names.size(), MostKnown)),
          attributes(children.size())
    {
    }

    /// The row by which a child element of the name is read; null when it is not.
    [[nodiscard]] const Row *child(XmlTree::NameNumber name)
    {
        return rowOf(children, name,
                     [this](const QString &text) { return childRow(table, localName(text)); });
    }
    [[nodiscard]] const Row *attribute(XmlTree::NameNumber name)
    {
        return rowOf(attributes, name, [this](const QString &text) { return table.attribute(text); });
    }

private:
    static constexpr std::size_t MostKnown = 1024; // documents have some dozens of names

    struct Known {
        const Row *row = nullptr;
        bool isKnown = false;
    };

    template <class Find>
    const Row *rowOf(std::vector<Known> &rows, XmlTree::NameNumber name, Find find)
    {
        if (name >= rows.size())
            return find(names[name]);
        Known &known = rows[name];
        if (!known.isKnown)
            known = {find(names[name]), true};
        return known.row;
    }

    const std::vector<QString> &names;
    std::vector<Known> children;
    std::vector<Known> attributes;
};

/// Of elements that are but a text.
constexpr ObjectTable NoTable{};

struct ObjectState;

/// What has been read so far in the elements of one row.
struct RowState {
    Index last = XmlTree::None;
    bool isMisplaced = false; ///< there is no text in the last one
    std::ptrdiff_t finding = -1; ///< about the text of the last one, if there is one
    std::unique_ptr<ObjectState> object = nullptr; ///< which several elements fill
};

struct ObjectState {
    ObjectState(NamedRows &namedRows, void *filled) : table(namedRows.table), named(namedRows), object(filled)
    {
    }

    const ObjectTable &table;
    NamedRows &named;
    void *object;
    Index index = XmlTree::Root; ///< the last element of the object
    bool mayGoOn = false; ///< in another element of its name

    /// Stays in its place while the object is read on.
    RowState &state(const Row *row)
    {
        const auto known = std::find_if(rows.begin(), rows.end(), IsOf{row});
        if (known != rows.end())
            return known->second;
        rows.reserve(table.elements.size() + 1); // one for the text of the object
        return rows.emplace_back(row, RowState()).second;
    }
    /// Null: there is no element of the row.
    [[nodiscard]] const RowState *find(const Row *row) const
    {
        const auto known = std::find_if(rows.begin(), rows.end(), IsOf{row});
        return known == rows.end() ? nullptr : &known->second;
    }
    [[nodiscard]] Index last(const Row *row) const
    {
        const RowState *const known = find(row);
        return known ? known->last : XmlTree::None;
    }

private:
    using OfRow = std::pair<const Row *, RowState>;

    struct IsOf {
        const Row *row;
        bool operator()(const OfRow &one) const { return one.first == row; }
    };

    std::vector<OfRow> rows;
};

/// The first thing that Check() of an object asks for when there is nothing in it.
QString pleaseSetFirst(const ObjectTable &table)
{
    QString message;
    table.inOrder([&](const Row &row) {
        if (message.isEmpty() && !row.requiredAs.isNull() && !row.part)
            message = Messages::pleaseSet(table.name.toString(), row.requiredAs);
    });
    return message;
}

class Walk {
public:
    Walk(const XmlTree &xml, const ITesselObject &filled) : tree(xml), document(filled), cursor(xml) { }

    WalkOutcome read(const ObjectTable &table, void *object)
    {
        ObjectState root(namedRows(table), object);
        readObject(root);
        if (tree.firstTooDeep() != XmlTree::None)
            stopAtDepth();
        stop();
        if (!tree.isBroken())
            checkRequirements(root, Severity::Error);
        std::stable_sort(outcome.findings.begin(), outcome.findings.end(),
                         [](const FindingData &a, const FindingData &b) { return a.offset < b.offset; });
        return std::move(outcome);
    }

private:
    // Reading

    /// The library stops here, by an exception.
    void refuse(Index index, const QString &message)
    {
        if (outcome.rejection)
            return;
        outcome.rejection = Rejection{message, tree.offset(index)};
        stop();
    }

    /// What has been read until then is all that there is.
    void stop()
    {
        if (!hasStopped)
            outcome.isComplete = document.HasData();
        hasStopped = true;
    }

    /// An error of the reader ends the reading of each open object as if it was whole; but blocks throw.
    void stopReader()
    {
        if (!hasStopped && openList && !isInBlock)
            leave(*openList);
        stop();
    }

    /// The reader stops at the first element that is too deep.
    void stopAtDepth()
    {
        if (outcome.rejection)
            return;
        stopReader();
        outcome.rejection =
            Rejection{depthMessage(document.GetReadingLimits().GetDepth()), tree.offset(tree.firstTooDeep()),
                      FindingId::BeyondLimit, ReadingLimit::Depth};
    }

    /// To the next start or end; false behind the end of the root.
    bool advance()
    {
        if (!cursor.next())
            return false;
        if (tree.firstTooDeep() != XmlTree::None && !cursor.isAtEnd()
            && cursor.element() >= tree.firstTooDeep())
            stopAtDepth();
        return true;
    }

    /// The document breaks off in the element.
    bool isCutOff(Index index) const
    {
        Index open = tree.brokenIn();
        while (open != XmlTree::None && open != index)
            open = tree.parent(open);
        return open != XmlTree::None;
    }

    /// The cursor is at the start of the child, and at its end afterwards.
    void readChild(ObjectState &parent)
    {
        const Row *const row = parent.named.child(tree.nameNumber(cursor.element()));
        if (!row) {
            reportUnknown(parent);
            cursor.skip();
            return;
        }
        RowState &state = parent.state(row);
        reportRepetition(parent, *row, state.last);
        state.last = cursor.element();
        readRow(parent, *row, state);
    }

    void readRow(ObjectState &parent, const Row &row, RowState &state)
    {
        switch (row.content) {
        case Content::Text:
            readText(parent, row, state);
            cursor.skip();
            break;
        case Content::Object:
            if (isList(row)) {
                ObjectState object(namedRows(row.part->table()), row.part->enter(parent.object));
                const OpenPart part{parent.object, *row.part, object.object};
                openList = &part;
                readObject(object);
                openList = nullptr;
                leave(part);
                if (!tree.isBroken())
                    checkRequirements(object, Severity::Warning);
            } else {
                readObject(filledObject(parent, row, state));
            }
            break;
        case Content::Block:
            readBlock(filledObject(parent, row, state), row.end);
            break;
        case Content::Entry: {
            ObjectState entry(namedRows(row.part->table()), row.part->enter(parent.object));
            readAttributes(entry);
            reportStrayText();
            leave({parent.object, *row.part, entry.object});
            break;
        }
        case Content::Ignored:
            if (const QStringView why = adviceFor(parent.table.name, row.name).ignored; !why.isEmpty())
                add(cursor.element(), FindingId::Unread, why.toString());
            cursor.skip();
            break;
        }
    }

    /// A part that is being read.
    struct OpenPart {
        void *parent;
        const Part &part;
        void *object;
    };

    static void leave(const OpenPart &open)
    {
        if (open.part.leave)
            open.part.leave(open.parent, open.object);
    }

    ObjectState &filledObject(const ObjectState &parent, const Row &row, RowState &state)
    {
        void *const object = row.part->enter(parent.object);
        if (!state.object)
            state.object = std::make_unique<ObjectState>(namedRows(row.part->table()), object);
        state.object->mayGoOn = true;
        state.object->object = object;
        return *state.object;
    }

    void readText(const ObjectState &parent, const Row &row, RowState &state)
    {
        const Index index = cursor.element();
        state.finding = -1;
        state.isMisplaced = tree.hasChild(index);
        if (index != parent.index && tree.hasAttributes(index))
            checkAttributes(index, namedRows(NoTable));
        TextPool::Room room;
        const QStringView text =
            index == XmlTree::Root && !tree.isBroken() ? tree.rootText() : tree.text(index, room);
        const bool isWhole = !state.isMisplaced && index != tree.brokenIn();
        if (isWhole && !isValid(row.type, text)) {
            state.finding = static_cast<std::ptrdiff_t>(outcome.findings.size());
            FindingData &finding = add(index, FindingId::BadValue, objectionTo(row, text.toString()));
            finding.found = text.toString();
            suggestions.add(finding, row.type);
        }
        try {
            row.read(parent.object, text);
        } catch (const TesselException &exception) {
            if (isWhole) {
                refuse(index, exception.GetErrorMessage());
                setSeverity(state.finding >= 0 ? outcome.findings[static_cast<std::size_t>(state.finding)]
                                               : add(index, FindingId::Refused, exception.GetErrorMessage()),
                            Severity::Error, exception.GetErrorMessage());
            }
        }
        if (state.isMisplaced)
            reportMisplaced(tree.firstChild(index));
    }

    void readObject(ObjectState &object)
    {
        object.index = cursor.element();
        const QString &ownName = tree.name(object.index);
        if (object.table.begin)
            object.table.begin(object.object);
        readAttributes(object);
        if (const Row *const row = object.table.wholeText ? object.table.wholeText(object.object) : nullptr) {
            RowState &state = object.state(row);
            state.last = object.index;
            readText(object, *row, state);
            cursor.skip();
            return;
        }
        reportStrayText();
        while (advance()) {
            if (!cursor.isAtEnd())
                readChild(object);
            else if (tree.name(cursor.element()) == ownName)
                return; // told by its name, since a block may have ended below
        }
    }

    /// What follows behind the element, when the block goes on there, is read, but not judged: it is the
    /// fault of the block.
    void readBlock(ObjectState &block, QStringView end)
    {
        block.index = cursor.element();
        readAttributes(block);
        reportStrayText();
        bool isInside = true;
        isInBlock = true;
        while (advance()) {
            if (cursor.isAtEnd() && tree.name(cursor.element()) == end)
                break;
            if (cursor.isAtEnd())
                isInside = isInside && cursor.element() != block.index;
            else if (isInside)
                readInBlock(block);
            else
                passInBlock(block);
        }
        if (isCutOff(cursor.element()))
            stopReader();
        isInBlock = false;
    }

    void readInBlock(ObjectState &block)
    {
        const Index index = cursor.element();
        const Index parent = tree.parent(index);
        if (isKnown(block, index))
            readChild(block);
        else if (parent == block.index || isKnown(block, parent))
            reportUnknown(block); // and what is in it is not told again
    }

    void passInBlock(ObjectState &block)
    {
        const Row *const row = block.named.child(tree.nameNumber(cursor.element()));
        if (!row)
            return;
        const std::size_t before = outcome.findings.size();
        RowState state;
        readRow(block, *row, state);
        if (!state.isMisplaced)
            outcome.findings.erase(outcome.findings.begin() + static_cast<std::ptrdiff_t>(before),
                                   outcome.findings.end());
    }

    bool isKnown(const ObjectState &object, Index index) const
    {
        return object.named.child(tree.nameNumber(index)) != nullptr;
    }

    void readAttributes(const ObjectState &object)
    {
        const Index index = cursor.element();
        for (const Row &row : object.table.attributes) {
            if (!row.read)
                continue;
            bool isThere = false;
            tree.eachAttribute(index, [&](XmlTree::NameNumber name, QStringView value) {
                if (object.named.attribute(name) != &row)
                    return;
                isThere = true;
                row.read(object.object, value);
            });
            if (!isThere)
                row.read(object.object, QStringView());
        }
        if (tree.hasAttributes(index))
            checkAttributes(index, object.named);
    }

    void checkAttributes(Index index, NamedRows &named)
    {
        tree.eachAttribute(index, [&](XmlTree::NameNumber name, QStringView value) {
            const Row *const row = named.attribute(name);
            if (!row || !row->read || !isValid(row->type, value))
                reportAttribute(index, {tree.allNames()[name], value.toString()}, row, named.table);
        });
    }

    /// \a row: null when there is none of the name.
    void reportAttribute(Index index, const XmlTree::Attribute &attribute, const Row *row,
                         const ObjectTable &table)
    {
        if (attribute.name.contains(QLatin1Char(':')) || attribute.name == QLatin1String("xmlns"))
            return; // meant for others
        if (!row) {
            reportUnknownAttribute(index, attribute, table);
        } else if (!row->read) {
            const Advice advice = adviceFor(table.name, u'@' + attribute.name);
            suggestElement(index, table,
                           addAttribute(index, attribute, FindingId::Unread, advice.ignored.toString()));
        } else {
            suggestions.add(
                addAttribute(index, attribute, FindingId::BadValue, objectionTo(*row, attribute.value)),
                row->type);
        }
    }

    // Requirements

    /// \a severity: of what Check() would ask for if it came to the object.
    void checkRequirements(const ObjectState &state, Severity severity)
    {
        for (const Row &row : state.table.attributes) {
            if (row.isValid && !row.isValid(state.object))
                reportInvalidAttribute(state, row, severity);
        }
        const auto checkElement = [&](const Row &row) {
            const RowState *const given = state.find(&row);
            if (row.part)
                checkPart(state, row, given ? given->object.get() : nullptr, severity);
            else
                checkRow(state, row, given, severity);
        };
        const Row *const text = state.table.wholeText ? state.table.wholeText(state.object) : nullptr;
        if (text) {
            checkElement(*text);
            return;
        }
        for (const Row *const row : checkedElements(state.table))
            checkElement(*row);
    }

    /// An object that is there is judged, too, when the document does not say whether it is needed.
    void checkPart(const ObjectState &state, const Row &row, const ObjectState *part, Severity severity)
    {
        if (!row.isApplicableTo(state.object) && !(part && hasInvalid(state)))
            return;
        const bool isRequired = !row.requiredAs.isNull();
        if (part && row.content == Content::Object)
            checkRequirements(*part, isRequired ? severity : Severity::Warning);
        else if (!part && isRequired)
            reportMissing(state, row, severity, pleaseSetFirst(row.part->table()));
    }

    static bool hasInvalid(const ObjectState &state)
    {
        return std::any_of(
            state.table.elements.begin(), state.table.elements.end(), [&state](const Row &row) {
                return row.isValid && row.isApplicableTo(state.object) && !row.isValid(state.object);
            });
    }

    void reportInvalidAttribute(const ObjectState &state, const Row &row, Severity severity)
    {
        const QString complaint = Messages::pleaseSet(state.table.name.toString(), row.requiredAs);
        if (const auto value = tree.attribute(state.index, row.name)) {
            setSeverity(addAttribute(state.index, {row.name.toString(), *value}, FindingId::BadValue,
                                     QStringLiteral("is empty")),
                        severity, complaint);
        } else {
            setSeverity(add(state.index, FindingId::MissingAttribute, QStringLiteral("missing"),
                            QStringLiteral("/@") + row.name.toString()),
                        severity, complaint);
        }
    }

    void checkRow(const ObjectState &state, const Row &row, const RowState *given, Severity severity)
    {
        if (given && given->isMisplaced)
            return;
        if (row.isExpected && !given) {
            reportMissing(state, row, Severity::Warning, {});
        } else if (row.isRequired() && row.isApplicableTo(state.object)) {
            if (row.isValid && !row.isValid(state.object))
                reportInvalid(state, row, given, severity,
                              Messages::pleaseSet(state.table.name.toString(), row.requiredAs));
            else if (row.isComplete && !row.isComplete(state.object) && !reportIncomplete(state, row, {}))
                reportInvalid(state, row, given, Severity::Warning, {});
        }
    }

    void reportMissing(const ObjectState &state, const Row &row, Severity severity, const QString &complaint)
    {
        FindingData &finding = add(state.index, FindingId::MissingElement, QStringLiteral("missing"),
                                   QLatin1Char('/') + row.name.toString());
        allowTexts(finding, row.type);
        setSeverity(finding, severity, complaint);
    }

    /// What it means that \a row is not complete, told where the document says so; null when nothing can be
    /// told.
    FindingData *reportIncomplete(const ObjectState &state, const Row &row, QStringView otherPlace)
    {
        const QStringView meaning = adviceFor(state.table.name, row.name).incomplete;
        const Index place = state.last(otherPlace.isNull() ? &row : state.table.element(otherPlace));
        if (meaning.isEmpty() || place == XmlTree::None)
            return nullptr;
        FindingData &finding = add(place, FindingId::BadValue, meaning.toString());
        finding.found = tree.text(place);
        return &finding;
    }

    void reportInvalid(const ObjectState &state, const Row &row, const RowState *given, Severity severity,
                       const QString &complaint)
    {
        const Advice advice = adviceFor(state.table.name, row.name);
        if (!advice.place.isNull()) {
            if (FindingData *const finding = reportIncomplete(state, row, advice.place))
                setSeverity(*finding, severity, complaint);
        } else if (!given) {
            reportMissing(state, row, severity, complaint);
        } else if (given->finding >= 0) {
            setSeverity(outcome.findings[static_cast<std::size_t>(given->finding)], severity, complaint);
        } else {
            const QString text = tree.text(given->last);
            FindingData &finding =
                add(given->last, FindingId::BadValue,
                    advice.requirement.isEmpty() || text.isEmpty()
                        ? QStringLiteral("is empty")
                        : QStringLiteral("%1 is not %2").arg(quoted(text), advice.requirement.toString()));
            finding.found = text;
            setSeverity(finding, severity, complaint);
        }
    }

    // Findings

    FindingData &add(Index index, QStringView id, const QString &message, const QString &below = {})
    {
        if (index != pathIndex) {
            pathIndex = index;
            path = tree.path(index);
        }
        outcome.findings.push_back({tree.offset(index), message, path + below, id});
        return outcome.findings.back();
    }

    FindingData &addAttribute(Index index, const XmlTree::Attribute &attribute, QStringView id,
                              const QString &message)
    {
        FindingData &finding = add(index, id, message, QStringLiteral("/@") + shortened(attribute.name));
        finding.found = attribute.value;
        return finding;
    }

    /// What a setter has refused already stays an error.
    static void setSeverity(FindingData &finding, Severity severity, const QString &complaint)
    {
        if (severity != Severity::Error || finding.severity == Severity::Error)
            return;
        finding.severity = Severity::Error;
        finding.complaint = complaint;
    }

    void reportMisplaced(Index child)
    {
        static const QString words = [] {
            QXmlStreamReader reader(QStringLiteral("<a><b/></a>"));
            reader.readNextStartElement();
            (void)elementText(reader);
            return reader.errorString();
        }();
        add(child, FindingId::MisplacedElement, QStringLiteral("an element where a text belongs")).severity =
            Severity::Error;
        if (!outcome.rejection)
            stopReader();
        refuse(child, words);
    }

    void reportUnknown(const ObjectState &parent)
    {
        const ObjectTable &table = parent.table;
        const Index index = cursor.element();
        FindingData &finding =
            add(index, FindingId::UnknownElement,
                table.refusesOthers ? QStringLiteral("unknown element")
                                    : QStringLiteral("unknown element, which is passed over"));
        finding.allowed = namesIn(table);
        const QString name = localName(tree.name(index)).toString();
        const QString otherCase = nameInOtherCase(name, finding.allowed);
        suggestName(finding, name, canBeRenamed(parent, otherCase) ? otherCase : QString());
        if (table.refusesOthers) {
            const QString complaint = Messages::unknownTag(table.name.toString(), name);
            setSeverity(finding, Severity::Error, complaint);
            refuse(index, complaint);
        }
    }

    /// Whether the unknown element can be called \a name without being given twice. Where unknown ones are
    /// passed over, a prefix may say that it is meant for others.
    bool canBeRenamed(const ObjectState &parent, const QString &name) const
    {
        const Index index = cursor.element();
        const bool hasPrefix = tree.name(index).size() != name.size();
        if (name.isEmpty() || tree.parent(index) != parent.index
            || (hasPrefix && !parent.table.refusesOthers))
            return false;
        return isList(*parent.table.element(name)) || isCalledOnce(parent.index, parent.mayGoOn, name);
    }

    /// Whether only one element or attribute of an object is called \a name, in whatever case. \a mayGoOn:
    /// the object of \a element, in others of its name.
    bool isCalledOnce(Index element, bool mayGoOn, const QString &name) const
    {
        const Index parent = tree.parent(element);
        if (!mayGoOn || parent == XmlTree::None)
            return countCalled(element, name) == 1;
        int count = 0;
        for (Index i = tree.firstChild(parent); i != XmlTree::None && count <= 1; i = tree.nextSibling(i)) {
            if (isCalled(i, localName(tree.name(element))))
                count += countCalled(i, name);
        }
        return count == 1;
    }

    bool isCalled(Index element, QStringView name) const
    {
        return localName(tree.name(element)).compare(name, Qt::CaseInsensitive) == 0;
    }

    /// Of the attributes and children of \a element; more than 1 for several.
    int countCalled(Index element, const QString &name) const
    {
        int count = 0;
        if (tree.hasAttributes(element)) {
            for (const XmlTree::Attribute &attribute : tree.attributes(element))
                count += attribute.name.compare(name, Qt::CaseInsensitive) == 0 ? 1 : 0;
        }
        for (Index i = tree.firstChild(element); i != XmlTree::None && count <= 1; i = tree.nextSibling(i))
            count += isCalled(i, name) ? 1 : 0;
        return count;
    }

    /// The attribute that \a finding is about is not read, but an element of its name may be. No object of a
    /// list has one.
    void suggestElement(Index index, const ObjectTable &table, FindingData &finding) const
    {
        const QString name = finding.path.section(QLatin1Char('@'), -1);
        const Row *const row = childRow(table, name);
        if (!row || !isValid(row->type, *finding.found) || !isCalledOnce(index, true, name))
            return;
        finding.suggestion = *finding.found;
        finding.correction = Finding::Correction::Element;
    }

    void reportRepetition(const ObjectState &parent, const Row &row, Index previous)
    {
        const bool mayRepeat =
            isList(row) || row.content == Content::Block || row.content == Content::Ignored;
        if (mayRepeat || previous == XmlTree::None)
            return;
        // An object that is repeated has a finding of its own; what is in it needs none.
        const Index here = cursor.element();
        if (parent.table.refusesOthers && tree.parent(here) != tree.parent(previous))
            return;
        add(here, FindingId::Repeated, QStringLiteral("given before; the last one counts")).isContradiction =
            true;
    }

    void reportStrayText()
    {
        if (!tree.hasText(cursor.element()))
            return;
        const QString text = tree.text(cursor.element()).trimmed();
        if (text.isEmpty())
            return;
        add(cursor.element(), FindingId::StrayText,
            QStringLiteral("the text %1 is not read").arg(quoted(text)))
            .found = text;
    }

    void reportUnknownAttribute(Index index, const XmlTree::Attribute &attribute, const ObjectTable &table)
    {
        QStringList names;
        for (const Row &row : table.attributes) {
            if (row.read)
                names += row.name.toString();
        }
        FindingData &finding = addAttribute(index, attribute, FindingId::UnknownAttribute,
                                            QStringLiteral("unknown attribute, which is passed over"));
        finding.allowed = names;
        const QString otherCase = nameInOtherCase(attribute.name, names);
        const bool isGiven = !otherCase.isEmpty() && hasAttributeLike(index, otherCase, attribute.name);
        suggestName(finding, attribute.name, isGiven ? QString() : otherCase);
    }

    /// Whether the element has another attribute than \a one that is called \a name, in whatever case.
    bool hasAttributeLike(Index index, const QString &name, const QString &one) const
    {
        const std::vector<XmlTree::Attribute> all = tree.attributes(index);
        return std::any_of(all.begin(), all.end(), [&](const XmlTree::Attribute &other) {
            return other.name != one && other.name.compare(name, Qt::CaseInsensitive) == 0;
        });
    }

    /// The same list for all findings.
    const QStringList &namesIn(const ObjectTable &table)
    {
        QStringList &names = allNames[&table];
        if (names.isEmpty()) {
            table.inOrder([&](const Row &row) {
                if (isElement(table, row) && isRead(row) && adviceFor(table.name, row.name).ignored.isEmpty())
                    names += row.name.toString();
            });
        }
        return names;
    }

    NamedRows &namedRows(const ObjectTable &table)
    {
        std::unique_ptr<NamedRows> &rows = rowsOfTables[&table];
        if (!rows)
            rows = std::make_unique<NamedRows>(table, tree);
        return *rows;
    }

    /// Those that something is asked of, in the order of Check().
    const std::vector<const Row *> &checkedElements(const ObjectTable &table)
    {
        const auto [place, isNew] = elementsInOrder.try_emplace(&table);
        std::vector<const Row *> &rows = place->second;
        if (isNew) {
            table.inOrder([&](const Row &row) {
                if (isElement(table, row) && (row.part || row.isExpected || row.isRequired()))
                    rows.push_back(&row);
            });
        }
        return rows;
    }

    static bool isElement(const ObjectTable &table, const Row &row)
    {
        return table.element(row.name) == &row;
    }

    const XmlTree &tree;
    const ITesselObject &document;
    XmlCursor cursor;
    WalkOutcome outcome;
    bool hasStopped = false;
    bool isInBlock = false;
    const OpenPart *openList = nullptr; ///< null: none
    Index pathIndex = XmlTree::None; ///< of `path`: many findings may be about one element
    QString path;
    QHash<const ObjectTable *, QStringList> allNames;
    TextSuggestions suggestions;
    std::unordered_map<const ObjectTable *, std::unique_ptr<NamedRows>> rowsOfTables;
    std::unordered_map<const ObjectTable *, std::vector<const Row *>> elementsInOrder;
};

} // namespace

WalkOutcome walk(const XmlTree &tree, const ObjectTable &table, void *address, const ITesselObject &document)
{
    return Walk(tree, document).read(table, address);
}

} // namespace KORMAK::Inspection
