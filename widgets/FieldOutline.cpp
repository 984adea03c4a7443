#include "widgets/FieldOutline_p.h"

#include <inspection/Document.h>

#include <QCoreApplication>

#include <algorithm>

namespace KORMAK::Widgets {

using Kind = FieldNode::Kind;

bool isWithin(const QString &path, const QString &whole)
{
    return path.startsWith(whole)
        && (path.size() == whole.size() || path.at(whole.size()) == QLatin1Char('.')
            || path.at(whole.size()) == QLatin1Char('['));
}

bool ShownElements::contains(const QString &list, int index) const
{
    return index < PageSize || pages.value(list).contains(index / PageSize);
}

bool ShownElements::add(const QString &list, int index)
{
    if (contains(list, index))
        return false;
    pages[list].insert(index / PageSize);
    return true;
}

bool ShownElements::addAround(const Document &document, const QString &path)
{
    bool isMore = false;
    QString around;
    for (;;) {
        const QVector<FieldNode> nodes = document.GetNodes(around);
        const auto next = std::find_if(nodes.begin(), nodes.end(), [&path](const FieldNode &node) {
            return isWithin(path, node.GetPath());
        });
        if (next == nodes.end())
            return isMore;
        if (next->IsElement() && add(around, static_cast<int>(next - nodes.begin())))
            isMore = true;
        around = next->GetPath();
    }
}

FieldOutline::FieldOutline(const Document &ofDocument, const ShownElements &shownElements)
    : document(ofDocument), shown(shownElements)
{
    addBelow({});
}

/// Values before the objects, so that each stands below its own heading.
void FieldOutline::addBelow(const QString &path)
{
    const QVector<FieldNode> nodes = document.GetNodes(path);
    for (const FieldNode &node : nodes) {
        const Field field = node.GetField();
        if (node.GetKind() == Kind::Value && field.IsSettable() && field.IsInDocuments())
            all.append({OutlineLine::Kind::Value, node, node.GetLabel()});
    }
    for (const FieldNode &node : nodes) {
        if (node.GetKind() == Kind::Object)
            addGroup(node);
        else if (node.GetKind() != Kind::Value)
            addList(node);
    }
}

void FieldOutline::addGroup(const FieldNode &node)
{
    all.append({OutlineLine::Kind::Heading, node, node.GetLabel()});
    const auto heading = all.size();
    const QVector<FieldNode> below = document.GetNodes(node.GetPath());
    const bool isArea = std::any_of(below.begin(), below.end(), [&node](const FieldNode &one) {
        return one.GetKind() == Kind::List && one.GetPath() == node.GetPath() + QStringLiteral(".Coordinate");
    });
    if (isArea)
        all.append({OutlineLine::Kind::Map, node});
    addBelow(node.GetPath());
    if (all.size() == heading)
        all.removeLast();
}

void FieldOutline::addList(const FieldNode &node)
{
    const QVector<FieldNode> elements = document.GetNodes(node.GetPath());
    const auto count = static_cast<int>(elements.size());
    all.append({OutlineLine::Kind::Heading, node, node.GetLabel(), count});
    for (int i = 0; i < count; ++i) {
        const FieldNode &element = elements.at(i);
        if (!shown.contains(node.GetPath(), i)) {
            const bool isFirst = shown.contains(node.GetPath(), i - 1);
            if (isFirst)
                all.append({OutlineLine::Kind::More, node, {}, 0, i});
            ++all.last().count;
            continue;
        }
        // People count from 1.
        const QString title = node.GetKind() == Kind::List
            ? QStringLiteral("%1 %2").arg(node.GetLabel(), QString::number(i + 1))
            : element.GetLabel();
        if (element.GetKind() == Kind::Value) {
            all.append({OutlineLine::Kind::Value, element, title});
            continue;
        }
        all.append({OutlineLine::Kind::Element, element, title});
        addBelow(element.GetPath());
    }
}

} // namespace KORMAK::Widgets
