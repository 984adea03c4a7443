#include "widgets/ValueMark_p.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>

namespace KORMAK::Widgets {

namespace {

bool isDark(const QPalette &palette)
{
    return palette.color(QPalette::Base).lightnessF() < 0.5;
}

QPainterPath triangle(const QRectF &box)
{
    QPainterPath path(QPointF(box.center().x(), box.top()));
    path.lineTo(box.bottomRight());
    path.lineTo(box.bottomLeft());
    path.closeSubpath();
    return path;
}

} // namespace

QColor colorOf(ValueMark mark, const QPalette &palette)
{
    const bool onDark = isDark(palette);
    switch (mark) {
    case ValueMark::Changed:
        return onDark ? QColor(0x7A, 0xB8, 0xFF) : QColor(0x1F, 0x5F, 0xB0);
    case ValueMark::Warning:
        return onDark ? QColor(0xFF, 0xB4, 0x54) : QColor(0xA8, 0x5A, 0x00);
    case ValueMark::Error:
        return onDark ? QColor(0xFF, 0x7B, 0x72) : QColor(0xB4, 0x23, 0x18);
    case ValueMark::None:
        break;
    }
    return palette.color(QPalette::Text);
}

QColor remarkColor(const QPalette &palette)
{
    constexpr qreal Share = 0.62;
    const QColor text = palette.color(QPalette::Text);
    const QColor base = palette.color(QPalette::Base);
    const auto mixed = [](qreal a, qreal b) { return a * Share + b * (1 - Share); };
    return QColor::fromRgbF(static_cast<float>(mixed(text.redF(), base.redF())),
                            static_cast<float>(mixed(text.greenF(), base.greenF())),
                            static_cast<float>(mixed(text.blueF(), base.blueF())));
}

void paintMark(QPainter &painter, const QRect &place, ValueMark mark, const QPalette &palette)
{
    if (mark == ValueMark::None)
        return;
    const qreal size = std::min({place.width(), place.height(), 14});
    QRectF box(0, 0, size, size);
    box.moveCenter(QRectF(place).center());
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colorOf(mark, palette));
    if (mark == ValueMark::Changed) {
        const qreal radius = size * 0.22;
        painter.drawEllipse(box.center(), radius, radius);
        painter.restore();
        return;
    }
    if (mark == ValueMark::Error)
        painter.drawEllipse(box);
    else
        painter.drawPath(triangle(box));
    painter.setBrush(palette.color(QPalette::Base));
    const qreal width = size * 0.13;
    const qreal top = box.top() + size * (mark == ValueMark::Error ? 0.2 : 0.33);
    painter.drawRect(QRectF(box.center().x() - width / 2, top, width, size * 0.34));
    painter.drawRect(QRectF(box.center().x() - width / 2, top + size * 0.43, width, width));
    painter.restore();
}

} // namespace KORMAK::Widgets
