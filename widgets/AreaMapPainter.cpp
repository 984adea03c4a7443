#include "widgets/AreaMapPainter_p.h"

#include <inspection/report/AreaDrawing_p.h>
#include <inspection/report/AreaShape_p.h>
#include <inspection/report/Graticule_p.h>
#include <inspection/report/MapLand_p.h>

#include <QFontMetricsF>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace KORMAK::Widgets {

using namespace Inspection;

namespace {

constexpr double Pole = 90;
constexpr double DateLine = 180;

QPolygonF polygonOf(const FrameLine &line)
{
    QPolygonF polygon;
    polygon.reserve(static_cast<int>(line.size()));
    for (const FramePoint &point : line)
        polygon.append(QPointF(point.x, point.y));
    return polygon;
}

QPainterPath pathOf(const std::vector<FrameLine> &lines)
{
    QPainterPath path;
    for (const FrameLine &line : lines) {
        if (!line.empty())
            path.addPolygon(polygonOf(line));
    }
    return path;
}

/// With a pen that is not transparent. A piece at a time: what a long line takes Qt grows faster than its
/// length, and on screens with small pixels a coast would take seconds.
void paintLine(QPainter &painter, const QPolygonF &line)
{
    constexpr auto Piece = 32;
    const auto size = static_cast<int>(line.size());
    for (int i = 0; i + 1 < size; i += Piece)
        painter.drawPolyline(line.constData() + i, std::min(Piece + 1, size - i));
}

/// Text that is read on whatever is below it.
void paintText(QPainter &painter, const MapColors &colors, const QPointF &baseline, const QString &text,
               const QColor &color)
{
    QPainterPath path;
    path.addText(baseline, painter.font(), text);
    constexpr double Halo = 3;
    QColor halo = colors.halo;
    halo.setAlpha(217);
    painter.strokePath(path, QPen(halo, Halo, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(path, color);
}

/// Where a line of the graticule meets the left edge, or the upper one for a meridian; nothing when it does
/// not or when there is no room for its degrees.
std::optional<double> labelPlace(const GraticuleLine &line, const QSizeF &size, double room)
{
    const bool isParallel = line.direction == GraticuleLine::Direction::Parallel;
    const double length = isParallel ? size.height() : size.width();
    for (const FrameLine &part : line.parts) {
        for (std::size_t i = 0; i + 1 < part.size(); ++i) {
            const double from = isParallel ? part[i].x : part[i].y;
            const double to = isParallel ? part[i + 1].x : part[i + 1].y;
            if ((from < 0) == (to < 0))
                continue;
            const double share = from / (from - to);
            const double a = isParallel ? part[i].y : part[i].x;
            const double b = isParallel ? part[i + 1].y : part[i + 1].x;
            const double at = a + share * (b - a);
            if (at > room && at < length - room)
                return at;
        }
    }
    return std::nullopt;
}

void paintGraticule(QPainter &painter, const MapView &view, const MapColors &colors, const QLocale &locale)
{
    const std::vector<GraticuleLine> lines = graticuleOf(view.projection(), view.frame());
    QColor faint = colors.coast;
    faint.setAlpha(115);
    painter.setPen(QPen(faint, 1));
    for (const GraticuleLine &line : lines)
        painter.drawPath(pathOf(line.parts));
    const QFontMetricsF metrics(painter.font());
    double lastEnd = -1;
    double lastY = -1;
    for (const GraticuleLine &line : lines) {
        const bool isParallel = line.direction == GraticuleLine::Direction::Parallel;
        const QString text =
            localised(isParallel ? latitudeText(line.degrees) : longitudeText(line.degrees), locale);
        const double width = metrics.horizontalAdvance(text);
        const double room = isParallel ? 2 * metrics.height() : width / 2 + metrics.height() * 2;
        const auto at = labelPlace(line, view.size(), room);
        if (!at)
            continue;
        constexpr double Gap = 5;
        if (isParallel) {
            if (lastY >= 0 && std::abs(*at - lastY) < metrics.height())
                continue;
            lastY = *at;
            paintText(painter, colors, {Gap, *at - Gap / 2}, text, colors.text);
        } else {
            const double left = *at - width / 2;
            if (lastEnd >= 0 && left<lastEnd + Gap && * at + width / 2> lastEnd - width)
                continue;
            lastEnd = *at + width / 2;
            paintText(painter, colors, {left, metrics.ascent() + Gap / 2}, text, colors.text);
        }
    }
}

void paintPole(QPainter &painter, const MapView &view, const MapColors &colors, double pole)
{
    const auto at = view.position({pole, 0});
    if (!at || !QRectF(QPointF(), view.size()).contains(*at))
        return;
    constexpr double Radius = 2.5;
    painter.setPen(Qt::NoPen);
    painter.setBrush(colors.text);
    painter.drawEllipse(*at, Radius, Radius);
    const QString name = pole > 0 ? QStringLiteral("North Pole") : QStringLiteral("South Pole");
    const QFontMetricsF metrics(painter.font());
    paintText(painter, colors, *at + QPointF(-metrics.horizontalAdvance(name) / 2, metrics.height()), name,
              colors.text);
}

void paintScale(QPainter &painter, const MapView &view, const MapColors &colors, const QLocale &locale)
{
    const double perPixel = view.frame().kilometresPerUnit();
    const double kilometres = roundDistance(perPixel * view.size().width());
    const double length = kilometres / perPixel;
    constexpr double Gap = 12;
    const QPointF end(view.size().width() - Gap, view.size().height() - Gap);
    const QPointF start = end - QPointF(length, 0);
    painter.setPen(QPen(colors.halo, 6, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(start - QPointF(1.5, 0), end + QPointF(1.5, 0));
    painter.setPen(QPen(colors.text, 3, Qt::SolidLine, Qt::FlatCap));
    painter.drawLine(start, end);
    constexpr double MetresPerKilometre = 1000;
    const QString text = kilometres < 1
        ? locale.toString(kilometres * MetresPerKilometre, 'f', 0) + QStringLiteral(" m")
        : locale.toString(kilometres, 'f', 0) + QStringLiteral(" km");
    const double width = QFontMetricsF(painter.font()).horizontalAdvance(text);
    paintText(painter, colors, {end.x() - length / 2 - width / 2, end.y() - 7}, text, colors.text);
}

/// Points up, which is north along the middle of the map.
void paintNorth(QPainter &painter, const MapView &view, const MapColors &colors)
{
    const QFontMetricsF metrics(painter.font());
    const QPointF top(view.size().width() - 22, 10);
    QPolygonF arrow;
    for (const QPointF &point : {QPointF(0, 0), QPointF(7, 20), QPointF(0, 15), QPointF(-7, 20)})
        arrow.append(top + point);
    QPainterPath path;
    path.addPolygon(arrow);
    path.closeSubpath();
    painter.strokePath(path, QPen(colors.halo, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(path, colors.text);
    const QString letter = QStringLiteral("N");
    paintText(painter, colors,
              top + QPointF(-metrics.horizontalAdvance(letter) / 2, 20 + metrics.ascent() + 1), letter,
              colors.text);
}

void paintOutline(QPainter &painter, const MapView &view, const MapColors &colors, const AreaOutline &outline)
{
    const AreaShape shape = shapeOn(view.projection(), view.frame(), outline);
    QPainterPath path;
    for (const FrameLine &polygon : shape.inside) {
        path.addPolygon(polygonOf(polygon));
        path.closeSubpath();
    }
    path.setFillRule(Qt::OddEvenFill);
    QColor fill = colors.area;
    fill.setAlpha(56);
    painter.fillPath(path, fill);
    painter.setPen(QPen(colors.area, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(pathOf(shape.edges));
}

void paintPoints(QPainter &painter, const MapView &view, const MapLook &look,
                 const QVector<TESSEL::Coordinate> &coordinates, const PointMarks &marks)
{
    const MapColors colors(look.palette);
    constexpr int MostLarge = 60;
    constexpr int MostNumbers = 20;
    constexpr double Large = 5;
    constexpr double Small = 3;
    constexpr double Near = 30;
    const double radius = marks.count > MostLarge ? Small : Large;
    const QFontMetricsF metrics(painter.font());
    const QPointF middle(view.size().width() / 2, view.size().height() / 2);
    QVector<QPointF> numbered;
    for (int i = 0; i < marks.count; ++i) {
        const auto at = isOnEarth(coordinates.at(i)) ? view.position(coordinates.at(i)) : std::nullopt;
        if (!at)
            continue;
        const bool isSelected = i == marks.selected;
        if (isSelected) {
            constexpr double Ring = 5;
            const QColor ring = marks.hasFocus ? look.palette.color(QPalette::Highlight) : colors.text;
            painter.setPen(QPen(colors.halo, 5));
            painter.setBrush(Qt::NoBrush);
            painter.drawEllipse(*at, radius + Ring, radius + Ring);
            painter.setPen(QPen(ring, 2.5));
            painter.drawEllipse(*at, radius + Ring, radius + Ring);
        }
        painter.setPen(QPen(colors.halo, 1.5));
        painter.setBrush(colors.area);
        painter.drawEllipse(*at, radius, radius);
        const auto isNear = [&at](const QPointF &other) {
            return std::hypot(at->x() - other.x(), at->y() - other.y()) < Near;
        };
        if (!isSelected
            && (marks.count < 2 || marks.count > MostNumbers
                || std::any_of(numbered.begin(), numbered.end(), isNear)))
            continue;
        numbered.append(*at);
        const QString number = look.locale.toString(i + 1);
        constexpr double Gap = 11;
        const bool isLeft = at->x() < middle.x();
        const double x = isLeft ? at->x() - Gap - metrics.horizontalAdvance(number) : at->x() + Gap;
        const double y = at->y() < middle.y() ? at->y() - Gap / 2 : at->y() + Gap / 2 + metrics.ascent();
        paintText(painter, colors, {x, y}, number, colors.area);
    }
}

} // namespace

MapColors::MapColors(const QPalette &palette)
{
    constexpr double Middle = 0.5;
    const bool isDark = palette.color(QPalette::Base).lightnessF() < Middle;
    sea = isDark ? QColor(0x16, 0x24, 0x2e) : QColor(0xdb, 0xe8, 0xef);
    land = isDark ? QColor(0x3a, 0x3f, 0x3a) : QColor(0xef, 0xea, 0xdb);
    coast = isDark ? QColor(0x8d, 0x9e, 0xa9) : QColor(0x71, 0x83, 0x8f);
    area = isDark ? QColor(0xff, 0x9a, 0x91) : QColor(0xb3, 0x26, 0x1e);
    text = isDark ? QColor(0xe6, 0xe9, 0xed) : QColor(0x1a, 0x1f, 0x24);
    halo = isDark ? QColor(0x14, 0x18, 0x1d) : QColor(0xff, 0xff, 0xff);
    beyond = palette.color(QPalette::Base);
}

void paintEarth(QPainter &painter, const MapView &view, const MapLook &look)
{
    const MapColors colors(look.palette);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(look.font);
    painter.fillRect(QRectF(QPointF(), view.size()), colors.beyond);
    const FramePoint centre = view.frame().place({0, 0});
    const double radius = view.radiusOfEarth();
    painter.setPen(QPen(colors.coast, 1));
    painter.setBrush(colors.sea);
    painter.drawEllipse(QPointF(centre.x, centre.y), radius, radius);
    constexpr double Farthest = 1.98; // so that no land is torn along the edge of the map
    const LandShapes land = landIn({view.projection(), view.frame(), Farthest});
    const auto penOf = [](const QColor &color) {
        return QPen(color, 1, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    };
    for (const FrameLine &piece : land.land) {
        QPolygonF polygon = polygonOf(piece);
        painter.setPen(Qt::NoPen);
        painter.setBrush(colors.land);
        painter.drawPolygon(polygon);
        polygon.append(polygon.value(0));
        painter.setPen(penOf(colors.land)); // over the seams between pieces
        paintLine(painter, polygon);
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(penOf(colors.coast));
    for (const FrameLine &coast : land.coasts)
        paintLine(painter, polygonOf(coast));
    paintGraticule(painter, view, colors, look.locale);
    paintPole(painter, view, colors, Pole);
    paintPole(painter, view, colors, -Pole);
    paintScale(painter, view, colors, look.locale);
    paintNorth(painter, view, colors);
}

void paintArea(QPainter &painter, const MapView &view, const MapLook &look,
               const QVector<TESSEL::Coordinate> &coordinates, const PointMarks &marks)
{
    painter.setRenderHint(QPainter::Antialiasing);
    QFont font = look.font;
    font.setBold(true);
    painter.setFont(font);
    const AreaOutline outline(coordinates);
    if (outline.error().isEmpty() && outline.shape() != AreaOutline::Shape::None)
        paintOutline(painter, view, MapColors(look.palette), outline);
    paintPoints(painter, view, look, coordinates, marks);
}

bool isOnEarth(const TESSEL::Coordinate &place)
{
    return std::abs(place.GetLatitude()) <= Pole && std::abs(place.GetLongitude()) <= DateLine;
}

AreaOutline outlineOnEarth(const QVector<TESSEL::Coordinate> &coordinates)
{
    QVector<TESSEL::Coordinate> places;
    std::copy_if(coordinates.begin(), coordinates.end(), std::back_inserter(places), isOnEarth);
    return AreaOutline(places);
}

QString localised(QString text, const QLocale &locale)
{
    const QString point(locale.decimalPoint());
    for (auto i = text.size() - 2; i > 0; --i) {
        if (text.at(i) == QLatin1Char('.') && text.at(i - 1).isDigit() && text.at(i + 1).isDigit())
            text.replace(i, 1, point);
    }
    return text;
}

} // namespace KORMAK::Widgets
