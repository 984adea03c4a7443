#include "inspection/Kinds.h"

#include <inspection/DocumentKind_p.h>
#include <inspection/ParsedDocument_p.h>

namespace KORMAK {

using namespace Inspection;

QStringList GetDocumentKinds()
{
    return documentKindNames();
}

QString DocumentKindOf(const QByteArray &text, const TESSEL::ReadingLimits &limits)
{
    try {
        return documentOf(checkedText(text), limits).kind->rootElement.toString();
    } catch (const DocumentError &) {
        return {};
    }
}

QString DocumentKindOf(const TESSEL::ITesselObject &object)
{
    const DocumentKind *kind = documentKindOf(object);
    return kind ? kind->rootElement.toString() : QString();
}

} // namespace KORMAK
