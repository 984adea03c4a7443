// Not installed. Sizes that grow with the font.
#ifndef KORMAK_WIDGETS_TEXTSIZE_P_H
#define KORMAK_WIDGETS_TEXTSIZE_P_H

#include <QFontMetrics>
#include <QSize>
#include <QWidget>

namespace KORMAK::Widgets {

/// The room for so many lines of so many characters in the font of \a widget.
[[nodiscard]] inline QSize sizeOfText(const QWidget &widget, int characters, int lines)
{
    const QFontMetrics metrics = widget.fontMetrics();
    return {characters * metrics.averageCharWidth(), lines * metrics.lineSpacing()};
}

} // namespace KORMAK::Widgets

#endif
