#include "inspection/PlacesByPath_p.h"

#include <inspection/FieldTable_p.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace KORMAK::Inspection {

namespace {

using TESSEL::ObjectTable;
using TESSEL::Part;
using TESSEL::Row;
using Index = XmlTree::Index;

constexpr QStringView TypeName = u"ParameterType";
constexpr QStringView BooleanName = u"Boolean";

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

PlacesByPath::PlacesByPath(const XmlTree &xml, const DocumentKind &kind, const TESSEL::ITesselObject &object,
                           EditScope wanted)
    : tree(xml), scope(std::move(wanted))
{
    const ObjectTable &table = kind.table();
    places[QString()].push_back({XmlTree::Root, nullptr, &table});
    if (const Row *const whole = table.wholeText ? table.wholeText(kind.address(object)) : nullptr) {
        addAttributes(table, XmlTree::Root, {});
        const auto *const field =
            std::find_if(table.elements.begin(), table.elements.end(),
                         [whole](const Row &row) { return row.requiredAs == whole->requiredAs; });
        places[field->name.toString()].push_back({XmlTree::Root, whole, nullptr});
    } else {
        add(table, XmlTree::Root, {});
    }
}

const std::vector<FieldPlace> *PlacesByPath::find(const QString &path) const
{
    const auto found = places.find(path);
    return found == places.end() ? nullptr : &found->second;
}

void PlacesByPath::add(const ObjectTable &table, Index element, const QString &prefix)
{
    addAttributes(table, element, prefix);
    for (Index child = tree.firstChild(element); child != XmlTree::None; child = tree.nextSibling(child))
        addChild(table, child, prefix);
    addUnread(table, element, prefix);
}

void PlacesByPath::addAttributes(const ObjectTable &table, Index element, const QString &prefix)
{
    for (const Row &row : table.attributes) {
        if (row.read && tree.attribute(element, row.name))
            places[prefix + row.name.toString()].push_back({element, &row, nullptr, true});
    }
}

void PlacesByPath::addChild(const ObjectTable &table, Index child, const QString &prefix)
{
    const Row *const row = childRow(table, localName(tree.name(child)));
    if (!row || row->content == Row::Content::Ignored)
        return;
    // A block may go by another name than the one that it ends with, which is that of the field.
    QString path = prefix + (row->end.isNull() ? row->name : row->end).toString();
    if (!row->part) {
        const Row *const field = table.field(row->name);
        if (field && field->part) // the text of the element is the value of a block
            path += QStringLiteral(".Value");
        places[path].push_back({child, row, nullptr});
        return;
    }
    const ObjectTable &inner = row->part->table();
    if (row->part->kind == Part::Kind::List) {
        path += QLatin1Char('[') + QString::number(counts[path]++) + QLatin1Char(']');
    } else if (row->part->kind == Part::Kind::Map) {
        const FieldTable &fields = fieldsOf(table);
        path += bracketed(*fields.find(row->name)->parts,
                          tree.attribute(child, UniqueNameAttribute).value_or(QString()));
        if (prefix.isEmpty() && !scope.holds(path))
            return;
        forget(path); // of several with one name only the last one counts
    } else if (inner.begin) {
        forgetLists(inner, path + QLatin1Char('.')); // it forgets what elements before it held
    }
    places[path].push_back({child, row, &inner});
    add(inner, child, path + QLatin1Char('.'));
}

/// Places in the object at \a path.
void PlacesByPath::forget(const QString &path)
{
    const auto isWithin = [&path](const auto &entry) {
        return entry.first.size() > path.size() && entry.first.startsWith(path)
            && (entry.first[path.size()] == QLatin1Char('.') || entry.first[path.size()] == QLatin1Char('['));
    };
    for (auto place = places.upper_bound(path); place != places.end() && place->first.startsWith(path);)
        place = isWithin(*place) ? places.erase(place) : std::next(place);
    for (auto count = counts.lower_bound(path); count != counts.end() && count->first.startsWith(path);)
        count = count->first == path || isWithin(*count) ? counts.erase(count) : std::next(count);
}

void PlacesByPath::forgetLists(const ObjectTable &table, const QString &prefix)
{
    for (const Row &row : table.elements) {
        if (row.part && row.part->kind == Part::Kind::List)
            forget(prefix + (row.end.isNull() ? row.name : row.end).toString());
    }
}

void PlacesByPath::addUnread(const ObjectTable &table, Index element, const QString &prefix)
{
    for (const Row &row : table.attributes) {
        const QString path = prefix + row.name.toString();
        const auto text = row.read ? std::nullopt : tree.attribute(element, row.name);
        if (text && childRow(table, row.name))
            unreadValues.push_back(
                {path, *text, QStringLiteral("/@") + row.name.toString(), tree.offset(element)});
    }
    const Row *const boolean = table.element(BooleanName);
    if (boolean && table.element(TypeName) && !find(prefix + TypeName.toString())) {
        if (const Index child = tree.findChild(element, BooleanName); child != XmlTree::None) {
            unreadValues.push_back(
                {prefix + TypeName.toString(), BooleanName.toString(), {}, tree.offset(child)});
            unreadValues.push_back({prefix + BooleanName.toString() + QStringLiteral(".Value"),
                                    tree.text(child),
                                    {},
                                    tree.offset(child)});
        }
    }
}

} // namespace KORMAK::Inspection
