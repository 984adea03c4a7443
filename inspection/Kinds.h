#ifndef KORMAK_INSPECTION_KINDS_H
#define KORMAK_INSPECTION_KINDS_H

#include <inspection/inspection_export.h>

#include <QStringList>

namespace KORMAK {

/// What programs can learn about documents: of which kind they are, what is wrong with them, what they hold.
namespace Inspection {

/// The kinds of document that can be inspected, as their root elements are called.
[[nodiscard]] INSPECTION_EXPORT QStringList GetKinds();

} // namespace Inspection

} // namespace KORMAK

#endif
