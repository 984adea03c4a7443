#ifndef KORMAK_INSPECTION_KINDS_H
#define KORMAK_INSPECTION_KINDS_H

#include <inspection/inspection_export.h>
#include <objectbase/ReadingLimits.h>

#include <QByteArray>
#include <QString>
#include <QStringList>

namespace TESSEL {
class ITesselObject;
}

namespace KORMAK {

/// The kinds of document that can be inspected, as their root elements are called.
[[nodiscard]] INSPECTION_EXPORT QStringList GetDocumentKinds();

/// The kind of the document that \a text is, as its root element tells; empty when it is none of
/// GetDocumentKinds(), when the text is not UTF-8, is not well-formed up to the root element or goes beyond
/// \a limits. What stands behind the start of the root element need not be well-formed.
[[nodiscard]] INSPECTION_EXPORT QString DocumentKindOf(const QByteArray &text,
                                                       const TESSEL::ReadingLimits &limits = {});
/// The kind of the document that \a object is, told by its class; empty for a class that is no document of
/// its own, such as TESSEL::Area.
[[nodiscard]] INSPECTION_EXPORT QString DocumentKindOf(const TESSEL::ITesselObject &object);

} // namespace KORMAK

#endif
