#include "inspection/FieldPlaces_p.h"

#include <QHash>

#include <algorithm>
#include <iterator>

namespace KORMAK::Inspection {

using TESSEL::FieldPart;
using TESSEL::ObjectTable;
using TESSEL::Part;
using TESSEL::Row;
using Depth = FieldSource::Depth;
using Index = XmlTree::Index;

namespace {

/// A block may be written in more than one way.
Elements elementsOf(const XmlTree &tree, const ObjectTable &table, const Row &row, const FieldSource &source)
{
    Elements all;
    for (const Row &other : table.elements) {
        if (other.part && (other.end.isNull() ? other.name : other.end) == row.name) {
            const Elements found = elementsIn(tree, source, other.name);
            all.insert(all.end(), found.begin(), found.end());
        }
    }
    std::sort(all.begin(), all.end());
    return all;
}

} // namespace

Elements elementsIn(const XmlTree &tree, const FieldSource &source, QStringView name)
{
    Elements found;
    for (const Index element : source.elements) {
        const bool isDeep = source.depth == Depth::Descendants;
        for (Index i = isDeep ? element + 1 : tree.firstChild(element);
             isDeep ? i < tree.end() && tree.parent(i) >= element : i != XmlTree::None;
             i = isDeep ? i + 1 : tree.nextSibling(i)) {
            if (localName(tree.name(i)) == name)
                found.push_back(i);
        }
    }
    return found;
}

std::vector<FieldSource> sourcesOf(const XmlTree &tree, const ObjectTable &table, const Row &row,
                                   const std::vector<FieldPart> &parts, const FieldSource &source)
{
    FieldSource own = source;
    if (table.begin && !own.elements.empty()) // forgets what elements before the last one said
        own.elements.erase(own.elements.begin(), std::prev(own.elements.end()));
    const Elements all = elementsOf(tree, table, row, row.part->kind == Part::Kind::List ? own : source);
    const Depth depth = row.content == Row::Content::Block ? Depth::Descendants : Depth::Children;
    std::vector<FieldSource> sources(parts.size(), {{}, depth});
    if (row.part->kind == Part::Kind::One) {
        for (FieldSource &one : sources)
            one.elements = all;
    } else if (row.part->kind == Part::Kind::List) {
        for (std::size_t i = 0; i < std::min(all.size(), sources.size()); ++i)
            sources[i].elements = {all[i]};
    } else {
        QHash<QString, Index> lastOfName;
        for (const Index element : all)
            lastOfName[tree.attribute(element, UniqueNameAttribute).value_or(QString())] = element;
        for (std::size_t i = 0; i < sources.size(); ++i) {
            const auto last = lastOfName.constFind(parts[i].key);
            if (last != lastOfName.constEnd())
                sources[i].elements = {*last};
        }
    }
    return sources;
}

} // namespace KORMAK::Inspection
