#include "inspection/FieldPlaces_p.h"

#include <inspection/FieldTable_p.h>
#include <inspection/HeldFields_p.h>
#include <objectbase/Text_p.h>

#include <algorithm>
#include <utility>

namespace KORMAK::Inspection {

namespace {

using TESSEL::borrowed;
using TESSEL::ObjectTable;
using TESSEL::Part;
using TESSEL::Row;
using Index = XmlTree::Index;

constexpr QStringView TypeName = u"ParameterType";
constexpr QStringView BooleanName = u"Boolean";
constexpr QStringView ValueName = u"Value";

/// Whether a block of an object in a map may take in what stands behind that: it does not end as it begins.
bool readsOn(const XmlTree &tree, const ObjectTable &table)
{
    return std::any_of(table.elements.begin(), table.elements.end(), [&tree](const Row &row) {
        if (!row.part || row.part->kind != Part::Kind::Map)
            return false;
        const auto isOpen = [&inner = row.part->table()](const QString &name) {
            const Row *const block = childRow(inner, localName(name));
            return block && !block->end.isNull() && block->end != name;
        };
        return std::any_of(tree.allNames().begin(), tree.allNames().end(), isOpen);
    });
}

void forgetLists(PlaceNode &node, const ObjectTable &table)
{
    for (const Row &row : table.elements) {
        if (row.part && row.part->kind == Part::Kind::List)
            node.inner.erase(borrowed(row.end.isNull() ? row.name : row.end));
    }
}

/// "Coordinate[0]" of the path "Area.Coordinate[0]".
QString lastStep(const QString &path)
{
    const QString around = parentOf(path);
    return path.mid(around.isEmpty() ? 0 : around.size() + 1);
}

} // namespace

bool isRead(const Row &row)
{
    return row.read || row.content == Row::Content::Ignored || (row.part && row.part->enter);
}

const Row *childRow(const ObjectTable &table, QStringView name)
{
    const auto *const row =
        std::find_if(table.elements.begin(), table.elements.end(),
                     [name](const Row &candidate) { return candidate.name == name && isRead(candidate); });
    return row == table.elements.end() ? nullptr : row;
}

QString joined(const QString &path, const QString &step)
{
    return path.isEmpty() || step.startsWith(QLatin1Char('[')) ? path + step : path + QLatin1Char('.') + step;
}

const PlaceNode *PlaceNode::find(const QString &step) const
{
    const auto found = inner.find(step);
    return found == inner.end() ? nullptr : &found->second;
}

const FieldPlace *PlaceNode::last(QStringView name) const
{
    const auto found = std::find_if(fields.rbegin(), fields.rend(),
                                    [name](const Field &field) { return field.name == name; });
    const bool isFormer =
        found != fields.rend() && found->place.isAttribute && found->place.element != own.back().element;
    return found == fields.rend() || isFormer ? nullptr : &found->place;
}

FieldPlaces::FieldPlaces(const XmlTree &xml, const DocumentKind &kind, const TESSEL::ITesselObject &object,
                         EditScope wanted)
    : tree(xml), cursor(xml), scope(readsOn(xml, kind.table()) ? EditScope() : std::move(wanted))
{
    const ObjectTable &table = kind.table();
    document.own.push_back({XmlTree::Root, nullptr, &table});
    if (const Row *const whole = table.wholeText ? table.wholeText(kind.address(object)) : nullptr) {
        addAttributes(document);
        const auto *const field =
            std::find_if(table.elements.begin(), table.elements.end(),
                         [whole](const Row &row) { return row.requiredAs == whole->requiredAs; });
        document.fields.push_back({field->name, {XmlTree::Root, whole, nullptr}});
    } else {
        addObject(document, Row::Content::Object, {});
    }
}

std::vector<FieldPlace> FieldPlaces::find(const QString &path) const
{
    const PlaceNode *const node = nodeAt(path);
    if (node && !node->own.empty())
        return node->own;
    const PlaceNode *const object = nodeAt(parentOf(path));
    const QString name = lastStep(path);
    std::vector<FieldPlace> places;
    if (object && object->last(name)) {
        for (const PlaceNode::Field &field : object->fields) {
            if (field.name == name)
                places.push_back(field.place);
        }
    }
    return places;
}

const PlaceNode *FieldPlaces::nodeAt(const QString &path) const
{
    if (path.isEmpty())
        return &document;
    const QString step = lastStep(path);
    const auto key = step.indexOf(QLatin1Char('['));
    const PlaceNode *node = nodeAt(parentOf(path));
    node = node ? node->find(step.left(key)) : nullptr;
    return node && key >= 0 ? node->find(step.mid(key)) : node;
}

/// The cursor is at the start of the element, and at its end afterwards.
void FieldPlaces::addObject(PlaceNode &node, Row::Content content, const QString &path)
{
    const FieldPlace own = node.own.back();
    // Told by its name, since a block may have ended further in, or have read on.
    const QStringView end =
        content == Row::Content::Block ? own.row->end : QStringView(tree.name(own.element));
    addAttributes(node);
    while (cursor.next() && !(cursor.isAtEnd() && tree.name(cursor.element()) == end)) {
        if (cursor.isAtEnd())
            continue;
        if (const Row *const row = childRow(*own.table, localName(tree.name(cursor.element()))))
            addElement(node, *row, path);
        else if (content != Row::Content::Block)
            cursor.skip(); // blocks look into what they do not know
    }
    addUnread(node, path);
}

void FieldPlaces::addAttributes(PlaceNode &node)
{
    const ObjectTable &table = *node.own.back().table;
    tree.eachAttribute(cursor.element(), [&](XmlTree::NameNumber name, QStringView /*value*/) {
        const Row *const row = table.attribute(tree.allNames()[name]);
        if (row && row->read)
            node.fields.push_back({row->name, {cursor.element(), row, nullptr, true}});
    });
}

void FieldPlaces::addElement(PlaceNode &around, const Row &row, const QString &aroundPath)
{
    const Index element = cursor.element();
    // A block may go by another name than the one that it ends with, which is that of the field.
    const QStringView name = row.end.isNull() ? row.name : row.end;
    const QString step = borrowed(name);
    const ObjectTable &table = *around.own.back().table;
    if (!row.part) {
        cursor.skip();
        if (row.content == Row::Content::Ignored)
            return;
        const Row *const field = table.field(row.name);
        if (field && field->part) // the text of the element is the value of a block
            around.inner[step].fields.push_back({ValueName, {element, &row, nullptr}});
        else
            around.fields.push_back({name, {element, &row, nullptr}});
        return;
    }
    const ObjectTable &inner = row.part->table();
    const Part::Kind kind = row.part->kind;
    const auto inBrackets = [&](const QString &key) {
        return bracketed(*fieldsOf(table).find(name)->parts, key);
    };
    QString key;
    if (kind == Part::Kind::Map)
        key = inBrackets(tree.attribute(element, UniqueNameAttribute).value_or(QString()));
    if (kind == Part::Kind::Map && aroundPath.isEmpty() && !scope.holds(step + key)) {
        cursor.skip();
        return;
    }
    PlaceNode &field = around.inner[step];
    if (kind == Part::Kind::List)
        key = inBrackets(QString::number(field.inner.size()));
    PlaceNode &node = kind == Part::Kind::One ? field : field.inner[key];
    if (kind == Part::Kind::Map)
        node = {std::move(node.own)}; // of several with one name only the last one counts
    else if (inner.begin)
        forgetLists(node, inner); // it forgets what elements before it held
    node.own.push_back({element, &row, &inner});
    if (row.content == Row::Content::Entry)
        addAttributes(node); // what is in it belongs to the block around it
    else
        addObject(node, row.content, joined(aroundPath, step) + key);
}

void FieldPlaces::addUnread(const PlaceNode &node, const QString &path)
{
    const auto [element, ownRow, table, isAttribute] = node.own.back();
    for (const Row &row : table->attributes) {
        const auto text = row.read ? std::nullopt : tree.attribute(element, row.name);
        if (text && childRow(*table, row.name))
            unreadValues.push_back({joined(path, row.name.toString()), *text,
                                    QStringLiteral("/@") + row.name.toString(), tree.offset(element)});
    }
    const Row *const boolean = table->element(BooleanName);
    if (boolean && !node.last(TypeName) && table->element(TypeName)) {
        if (const Index child = tree.findChild(element, BooleanName); child != XmlTree::None) {
            unreadValues.push_back(
                {joined(path, TypeName.toString()), BooleanName.toString(), {}, tree.offset(child)});
            unreadValues.push_back({joined(path, BooleanName.toString()) + QStringLiteral(".Value"),
                                    tree.text(child),
                                    {},
                                    tree.offset(child)});
        }
    }
}

} // namespace KORMAK::Inspection
