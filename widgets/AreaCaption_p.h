// Not installed. What is said below the map of an area.
#ifndef KORMAK_WIDGETS_AREACAPTION_P_H
#define KORMAK_WIDGETS_AREACAPTION_P_H

#include <QString>

QT_BEGIN_NAMESPACE
class QLocale;
QT_END_NAMESPACE

namespace KORMAK::Widgets {

class AreaEditor;

/// The point that is selected or the extent of the area, and what people should know of it; empty without a
/// document.
[[nodiscard]] QString areaCaption(const AreaEditor &editor, const QLocale &locale);

} // namespace KORMAK::Widgets

#endif
