#include "inspection/DocumentSays_p.h"

#include <inspection/DocumentTexts_p.h>
#include <inspection/FieldPlaces_p.h>
#include <inspection/FieldText_p.h>

#include <QStringList>

#include <optional>

namespace KORMAK::Inspection {

using TESSEL::ObjectTable;
using TESSEL::Row;
using Index = XmlTree::Index;

/// Goes through the fields of an object and what they were read from.
class SayingWalk {
public:
    SayingWalk(DocumentSays &made, const XmlTree &readFrom) : says(made), tree(readFrom) { }

    void visit(const ObjectTable &table, const void *object, const FieldSource &source, const QString &prefix)
    {
        for (const FieldRow &field : fieldsOf(table)) {
            if (!field.existsIn(object))
                continue;
            const std::size_t before = says.sayings.size();
            const QString path = prefix + field.key.toString();
            if (field.parts)
                visitParts(table, field, object, source, path);
            else if (const auto text = differentText(table, field, object, source))
                says.sayings.push_back({path, text->text, text->breaksOff});
            if (says.sayings.size() > before)
                says.places.emplace(DocumentSays::Place(&field, object), before);
        }
    }

private:
    void visitParts(const ObjectTable &table, const FieldRow &field, const void *object,
                    const FieldSource &source, const QString &path)
    {
        const auto parts = field.parts->all(object);
        const Row *const element = table.element(field.key);
        if (!element)
            return;
        if (!element->part) { // the text of the element is the first field of the part
            const FieldRow &first = field.parts->table.rows.front();
            const auto text = textOf(*element, source);
            if (text && isOther(*element, *text, element->get(object))) {
                says.places.emplace(DocumentSays::Place(&first, parts.front().object), says.sayings.size());
                says.sayings.push_back(
                    {path + QLatin1Char('.') + first.key.toString(), text->text, text->breaksOff});
            }
            return;
        }
        const auto sources = sourcesOf(tree, table, *element, parts, source);
        for (std::size_t i = 0; i < parts.size(); ++i) {
            visit(element->part->table(), parts[i].object, sources[i],
                  path + bracketed(*field.parts, parts[i].key) + QLatin1Char('.'));
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

    /// The last element of \a row counts.
    [[nodiscard]] std::optional<Text> textOf(const Row &row, const FieldSource &source) const
    {
        const Elements elements = elementsIn(tree, source, row.name);
        return elements.empty() ? std::nullopt : std::optional<Text>(textAt(elements.back()));
    }

    [[nodiscard]] std::optional<Text> attributeOf(QStringView name, const FieldSource &source) const
    {
        const auto value = tree.attribute(source.elements.back(), name);
        return value ? std::optional<Text>({*value}) : std::nullopt;
    }

    static bool isOther(const Row &row, const Text &text, const FieldValue &value)
    {
        if (!text.isText || text.breaksOff || !isValid(row.type, text.text))
            return true;
        return row.type.kind == TextType::Kind::Text && settableText(row.type, value) != text.text;
    }

    /// What stands where the field is read, or else where it is not.
    [[nodiscard]] std::optional<Text> differentText(const ObjectTable &table, const FieldRow &field,
                                                    const void *object, const FieldSource &source) const
    {
        const Row *const whole = table.wholeText ? table.wholeText(object) : nullptr;
        const bool isWhole = whole && whole->get == field.get;
        const Row *const element = isWhole ? whole : table.element(field.key);
        const Row *const attribute = table.attribute(field.key);
        if (source.elements.empty() || (!element && !attribute))
            return std::nullopt;
        const FieldValue value = field.get(object);
        std::optional<Text> unread;
        for (const Row *const row : {element, attribute}) {
            if (!row)
                continue;
            const auto text = row == attribute ? attributeOf(row->name, source)
                : isWhole                      ? std::optional<Text>(textAt(source.elements.back()))
                                               : textOf(*row, source);
            if (text && row->read)
                return isOther(*row, *text, value) ? text : std::nullopt;
            if (text && !unread)
                unread = text;
        }
        return unread && unread->text != settableText(field.type, value) ? unread : std::nullopt;
    }

    DocumentSays &says;
    const XmlTree &tree;
};

DocumentSays::DocumentSays(const DocumentKind &kind, const TESSEL::ITesselObject &object, const XmlTree &tree)
{
    SayingWalk(*this, tree).visit(kind.table(), kind.address(object), {{XmlTree::Root}}, QString());
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
