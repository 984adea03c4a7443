#include "inspection/DocumentSays_p.h"

#include <inspection/DocumentTexts_p.h>
#include <inspection/FieldPlaces_p.h>
#include <inspection/FieldText_p.h>
#include <objectbase/Text_p.h>

#include <QStringList>

#include <optional>

namespace KORMAK::Inspection {

using TESSEL::borrowed;
using TESSEL::ObjectTable;
using TESSEL::Row;
using Index = XmlTree::Index;

/// Goes through the fields of an object and the places that they were read from.
class SayingWalk {
public:
    SayingWalk(DocumentSays &made, const XmlTree &readFrom) : says(made), tree(readFrom) { }

    void visit(const ObjectTable &table, const void *object, const PlaceNode &node, const QString &prefix)
    {
        for (const FieldRow &field : fieldsOf(table)) {
            if (!field.existsIn(object))
                continue;
            const std::size_t before = says.sayings.size();
            if (field.parts)
                visitParts(table, field, object, node.find(borrowed(field.key)), prefix);
            else if (const auto text = differentText(table, field, object, node))
                says.sayings.push_back({prefix + field.key.toString(), text->text, text->breaksOff});
            if (says.sayings.size() > before)
                says.places.emplace(DocumentSays::Place(&field, object), before);
        }
    }

private:
    /// \a node: null when there are none in the document.
    void visitParts(const ObjectTable &table, const FieldRow &field, const void *object,
                    const PlaceNode *node, const QString &prefix)
    {
        const Row *const element = table.element(field.key);
        if (!element || !node)
            return;
        const QString path = prefix + field.key.toString();
        const auto parts = field.parts->all(object);
        if (element->part) {
            for (const FieldPart &part : parts) {
                const QString key = bracketed(*field.parts, part.key);
                if (const PlaceNode *const inner = key.isEmpty() ? node : node->find(key))
                    visit(element->part->table(), part.object, *inner, path + key + QLatin1Char('.'));
            }
            return;
        }
        // The text of the element is the first field of the part.
        const FieldRow &first = field.parts->table.rows.front();
        const FieldPlace *const value = node->last(first.key);
        if (const auto text = value ? readText(*value, element->get(object)) : std::nullopt) {
            says.places.emplace(DocumentSays::Place(&first, parts.front().object), says.sayings.size());
            says.sayings.push_back(
                {path + QLatin1Char('.') + first.key.toString(), text->text, text->breaksOff});
        }
    }

    struct Text {
        QString text;
        bool isText = true; ///< false: there are elements in it
        bool breaksOff = false;
    };

    [[nodiscard]] Text textAt(Index element) const
    {
        const bool isRoot = element == XmlTree::Root && !tree.hasChild(element) && !tree.isBroken();
        if (isRoot)
            return {tree.rootText()};
        QStringList texts{tree.text(element)};
        for (Index i = element + 1; i < tree.end() && tree.parent(i) >= element; ++i)
            texts += tree.text(i);
        texts.removeAll(QString());
        return {texts.join(QLatin1Char(' ')), !tree.hasChild(element), element == tree.brokenIn()};
    }

    static bool isOther(const Row &row, const Text &text, const FieldValue &value)
    {
        if (!text.isText || text.breaksOff || !isValid(row.type, text.text))
            return true;
        return row.type.kind == TextType::Kind::Text && settableText(row.type, value) != text.text;
    }

    /// What stands at the \a place where the \a value of a field is read.
    [[nodiscard]] std::optional<Text> readText(const FieldPlace &place, const FieldValue &value) const
    {
        const Text text = place.isAttribute
            ? Text{tree.attribute(place.element, place.row->name).value_or(QString())}
            : textAt(place.element);
        return isOther(*place.row, text, value) ? std::optional<Text>(text) : std::nullopt;
    }

    /// What stands where the field is not read: an element or an attribute of its name in the object at \a
    /// node.
    [[nodiscard]] std::optional<Text> unreadText(const ObjectTable &table, const FieldRow &field,
                                                 const PlaceNode &node) const
    {
        Index last = XmlTree::None;
        for (const FieldPlace &place : node.own) {
            for (Index i = tree.firstChild(place.element); i != XmlTree::None; i = tree.nextSibling(i))
                last = localName(tree.name(i)) == field.key ? i : last;
        }
        if (last != XmlTree::None && table.element(field.key))
            return textAt(last);
        const auto value =
            table.attribute(field.key) ? tree.attribute(node.own.back().element, field.key) : std::nullopt;
        return value ? std::optional<Text>({*value}) : std::nullopt;
    }

    /// What stands where the field is read, or else where it is not.
    [[nodiscard]] std::optional<Text> differentText(const ObjectTable &table, const FieldRow &field,
                                                    const void *object, const PlaceNode &node) const
    {
        if (!table.element(field.key) && !table.attribute(field.key))
            return std::nullopt;
        const FieldValue value = field.get(object);
        if (const FieldPlace *const read = node.last(field.key))
            return readText(*read, value);
        const auto unread = unreadText(table, field, node);
        return unread && unread->text != settableText(field.type, value) ? unread : std::nullopt;
    }

    DocumentSays &says;
    const XmlTree &tree;
};

DocumentSays::DocumentSays(const DocumentKind &kind, const TESSEL::ITesselObject &object, const XmlTree &tree)
{
    const FieldPlaces found(tree, kind, object);
    SayingWalk(*this, tree).visit(kind.table(), kind.address(object), found.root(), {});
}

const DocumentSays::Saying *DocumentSays::of(const FieldRow &row, const void *object) const
{
    const auto place = places.find({&row, object});
    return place == places.end() || row.parts ? nullptr : &sayings[place->second];
}

bool DocumentSays::concern(const FieldRow &row, const void *object) const
{
    return places.find({&row, object}) != places.end();
}

} // namespace KORMAK::Inspection
