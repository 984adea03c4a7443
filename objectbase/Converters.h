#ifndef TESSEL_CONVERTERS_H
#define TESSEL_CONVERTERS_H

#include <objectbase/objectbase_export.h>

#include <QDateTime>
#include <QString>

namespace TESSEL {

/// The text form of dates in documents: UTC, "yyyy-MM-ddThh:mm:ss,zzzZ", for example
/// "2026-03-29T00:59:59,250Z". The two functions are inverse to each other, milliseconds included.
///
/// \snippet docs/ObjectbaseSnippetsTest.cpp Converters
namespace Converters {

/// \a dateTime in UTC, whatever its own time zone; empty when it is invalid.
[[nodiscard]] OBJECTBASE_EXPORT QString ToString(const QDateTime &dateTime);

/// The date that \a text says, in UTC; `QDateTime()` for anything that ToString() would not have written.
[[nodiscard]] OBJECTBASE_EXPORT QDateTime ToDateTime(const QString &text);

} // namespace Converters

} // namespace TESSEL

#endif
