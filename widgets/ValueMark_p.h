// Not installed. How controls and rows look where something is wrong.
#ifndef KORMAK_WIDGETS_VALUEMARK_P_H
#define KORMAK_WIDGETS_VALUEMARK_P_H

#include <QColor>
#include <QPalette>
#include <QRect>

QT_BEGIN_NAMESPACE
class QPainter;
QT_END_NAMESPACE

namespace KORMAK::Widgets {

enum class ValueMark : qint32 {
    None,
    Changed, ///< it is not what it was
    Warning, ///< it is there, but something is wrong with it
    Error, ///< it is not taken
};

/// A colour that is told apart from the background of \a palette, light or dark.
[[nodiscard]] QColor colorOf(ValueMark mark, const QPalette &palette);

/// The colour of units and other remarks: weaker than the text, and still to be read.
[[nodiscard]] QColor remarkColor(const QPalette &palette);

/// Draws the sign of \a mark in the middle of \a place: also by its form told apart from the others.
void paintMark(QPainter &painter, const QRect &place, ValueMark mark, const QPalette &palette);

} // namespace KORMAK::Widgets

#endif
