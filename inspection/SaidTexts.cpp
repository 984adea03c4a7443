#include "inspection/SaidTexts_p.h"

#include <inspection/ParsedDocument_p.h>
#include <inspection/PlacesByPath_p.h>

namespace KORMAK::Inspection {

QHash<QString, QString> saidTexts(const QByteArray &text, const TESSEL::ReadingLimits &limits)
{
    QHash<QString, QString> texts;
    try {
        const ParsedDocument document = documentOf(checkedText(text), limits);
        if (!document.object || document.tree.isBroken())
            return texts;
        const PlacesByPath places(document.tree, *document.kind, *document.object);
        for (const auto &[path, all] : places.all()) {
            const FieldPlace &place = all.back();
            if (place.table)
                continue;
            texts.insert(path,
                         place.isAttribute
                             ? document.tree.attribute(place.element, place.row->name).value_or(QString())
                             : document.tree.text(place.element));
        }
    } catch (const DocumentError &) {
        // no document, or one that is refused: there are no fields
    }
    return texts;
}

} // namespace KORMAK::Inspection
