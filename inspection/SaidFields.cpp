#include "inspection/SaidFields_p.h"

#include <inspection/FieldPlaces_p.h>
#include <inspection/FieldText_p.h>
#include <inspection/ParsedDocument_p.h>

namespace KORMAK::Inspection {

using Index = XmlTree::Index;

struct SaidFields::Private {
    XmlTree tree = {};
    qsizetype begin = 0; ///< of what the tree counts
    QHash<QString, QString> texts = {};
    QHash<Index, QString> paths = {}; ///< of the objects and fields that are elements

    Private() = default;
    Private(const QByteArray &text, const TESSEL::ReadingLimits &limits) : begin(byteOrderMarkSize(text))
    {
        ParsedDocument document = documentOf(checkedText(text), limits);
        if (!document.object || document.tree.isBroken())
            return;
        tree = std::move(document.tree);
        const FieldPlaces places(tree, *document.kind, *document.object);
        add(places.root(), {});
    }

    void add(const PlaceNode &node, const QString &path)
    {
        if (!node.own.empty())
            paths.insert(node.own.back().element, path);
        for (const auto &[name, place] : node.fields) {
            const QString fieldPath = joined(path, name.toString());
            if (!place.isAttribute) {
                paths.insert(place.element, fieldPath);
                texts.insert(fieldPath, tree.text(place.element));
            } else if (place.element == node.own.back().element) {
                texts.insert(fieldPath, tree.attribute(place.element, place.row->name).value_or(QString()));
            }
        }
        for (const auto &[step, inner] : node.inner)
            add(inner, joined(path, step));
    }

    /// The last element that begins before \a offset, or there.
    [[nodiscard]] Index elementAt(qsizetype offset) const
    {
        Index first = XmlTree::Root;
        Index end = tree.end();
        while (end - first > 1) {
            const Index middle = first + (end - first) / 2;
            (tree.offset(middle) <= offset ? first : end) = middle;
        }
        return first;
    }
};

SaidFields::SaidFields(const QByteArray &text, const TESSEL::ReadingLimits &limits)
    : d(std::make_shared<const Private>())
{
    try {
        d = std::make_shared<const Private>(text, limits);
    } catch (const DocumentError &) {
        // no document, or one that is refused: there are no fields
    }
}

const QHash<QString, QString> &SaidFields::texts() const noexcept
{
    return d->texts;
}

QString SaidFields::pathOf(const Finding &finding) const
{
    const QString path = finding.GetFieldPath();
    if (!finding.HasPlace() || !d->tree.hasRoot())
        return path;
    // From the place outwards, the first object or field that the finding is about or within.
    for (Index element = d->elementAt(finding.GetOffset() - d->begin); element > XmlTree::Root;
         element = d->tree.parent(element)) {
        const auto known = d->paths.constFind(element);
        if (known == d->paths.constEnd())
            continue;
        const QString inFindings = fieldPathOf(d->tree.path(element));
        if (path == inFindings || path.startsWith(inFindings + QLatin1Char('.')))
            return *known + path.mid(inFindings.size());
    }
    return path;
}

} // namespace KORMAK::Inspection
