// Not installed. Lists of numbers as people read and write them: parted by semicolons, since commas stand in
// numbers.
#ifndef KORMAK_WIDGETS_NUMBERLIST_P_H
#define KORMAK_WIDGETS_NUMBERLIST_P_H

#include <widgets/NumberFormat_p.h>

#include <QVariantList>

namespace KORMAK::Widgets {

[[nodiscard]] NumberFormat::Reading readList(const NumberFormat &format, const QString &text);
[[nodiscard]] QString showList(const NumberFormat &format, const QVariantList &values);

/// With \a mostValues above 0, also when there are more than these.
[[nodiscard]] QString problemOfList(const NumberFormat &format, const QVariantList &values, int mostValues);

} // namespace KORMAK::Widgets

#endif
