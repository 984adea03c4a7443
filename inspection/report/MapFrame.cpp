#include "inspection/report/MapFrame_p.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

namespace KORMAK::Inspection {

namespace {

/// So that no line along the edge is seen.
constexpr double Margin = 8;

/// One of the four edges that things are cut off at.
struct Limit {
    double FramePoint::*axis;
    double value;
    bool keepsBelow;

    [[nodiscard]] bool holds(const FramePoint &point) const
    {
        return keepsBelow ? point.*axis <= value : point.*axis >= value;
    }
    [[nodiscard]] FramePoint crossing(const FramePoint &a, const FramePoint &b) const
    {
        const double share = (value - a.*axis) / (b.*axis - a.*axis);
        FramePoint point{a.x + share * (b.x - a.x), a.y + share * (b.y - a.y)};
        point.*axis = value;
        return point;
    }
};

std::array<Limit, 4> limitsOf(const MapFrame &frame)
{
    return {{
        {&FramePoint::x, -Margin, false},
        {&FramePoint::x, frame.width() + Margin, true},
        {&FramePoint::y, -Margin, false},
        {&FramePoint::y, frame.height() + Margin, true},
    }};
}

FrameLine clipped(const FrameLine &polygon, const Limit &limit)
{
    FrameLine result;
    for (std::size_t i = 0; i < polygon.size(); ++i) {
        const FramePoint &before = polygon[i == 0 ? polygon.size() - 1 : i - 1];
        const FramePoint &point = polygon[i];
        if (limit.holds(before) != limit.holds(point))
            result.push_back(limit.crossing(before, point));
        if (limit.holds(point))
            result.push_back(point);
    }
    return result;
}

std::vector<FrameLine> clippedParts(const FrameLine &line, const Limit &limit)
{
    std::vector<FrameLine> parts;
    bool wasHeld = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
        const bool isHeld = limit.holds(line[i]);
        if (i > 0 && isHeld != wasHeld) {
            if (isHeld)
                parts.emplace_back();
            parts.back().push_back(limit.crossing(line[i - 1], line[i]));
        } else if (i == 0 && isHeld) {
            parts.emplace_back();
        }
        if (isHeld)
            parts.back().push_back(line[i]);
        wasHeld = isHeld;
    }
    return parts;
}

QString stepText(qint64 steps, double step)
{
    constexpr int Digits = 7;
    return QString::number(static_cast<double>(steps) * step, 'g', Digits);
}

} // namespace

double MapFrame::reach() const noexcept
{
    const double halfWidth = frame.width / 2 / scale;
    const double halfHeight = frame.height / 2 / scale;
    return std::hypot(std::abs(centre.x) + halfWidth, std::abs(centre.y) + halfHeight);
}

bool MapFrame::holds(const FramePoint &point) const noexcept
{
    return point.x >= 0 && point.x <= frame.width && point.y >= 0 && point.y <= frame.height;
}

FrameLine MapFrame::clippedPolygon(FrameLine polygon) const
{
    for (const Limit &limit : limitsOf(*this)) {
        if (!std::all_of(polygon.begin(), polygon.end(),
                         [&limit](const FramePoint &point) { return limit.holds(point); }))
            polygon = clipped(polygon, limit);
    }
    return polygon;
}

std::vector<FrameLine> MapFrame::clippedLine(const FrameLine &line) const
{
    std::vector<FrameLine> parts{line};
    for (const Limit &limit : limitsOf(*this)) {
        std::vector<FrameLine> left;
        for (const FrameLine &part : parts) {
            std::vector<FrameLine> some = clippedParts(part, limit);
            std::move(some.begin(), some.end(), std::back_inserter(left));
        }
        parts = std::move(left);
    }
    return parts;
}

QString svgPath(const FrameLine &line, PathEnd end, double step)
{
    std::vector<std::pair<qint64, qint64>> points;
    points.reserve(line.size());
    for (const FramePoint &point : line) {
        const std::pair<qint64, qint64> rounded{std::llround(point.x / step), std::llround(point.y / step)};
        if (points.empty() || points.back() != rounded)
            points.push_back(rounded);
    }
    if (end == PathEnd::Closed) {
        while (points.size() > 1 && points.front() == points.back())
            points.pop_back();
    }
    const std::size_t least = end == PathEnd::Closed ? 3 : 2;
    if (points.size() < least)
        return {};
    QString path = QLatin1Char('M') + stepText(points.front().first, step) + QLatin1Char(' ')
        + stepText(points.front().second, step);
    for (std::size_t i = 1; i < points.size(); ++i) {
        const QString x = stepText(points[i].first - points[i - 1].first, step);
        const QString y = stepText(points[i].second - points[i - 1].second, step);
        path += (i == 1 ? QLatin1Char('l') : QLatin1Char(' ')) + x + QLatin1Char(' ') + y;
    }
    return end == PathEnd::Closed ? path + QLatin1Char('z') : path;
}

} // namespace KORMAK::Inspection
