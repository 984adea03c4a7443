#include "inspection/report/MapLabels_p.h"

#include <inspection/report/MapFrame_p.h>

#include <algorithm>
#include <iterator>

namespace KORMAK::Inspection {

namespace {

/// Pixels, from a telephone to the widest that a map is.
constexpr double Widths[] = {270, 328, 400, 480, 567, 680, 768};

bool isBefore(const MapDistance &a, const MapDistance &b, double length)
{
    return a.share * length + a.pixels <= b.share * length + b.pixels;
}

bool areApart(const LabelBox &a, const LabelBox &b, double width)
{
    const double height = width * MapFrame::Height / MapFrame::Width;
    return isBefore(a.right, b.left, width) || isBefore(b.right, a.left, width)
        || isBefore(a.bottom, b.top, height) || isBefore(b.bottom, a.top, height);
}

bool isOnMap(const LabelBox &box, double width)
{
    const double height = width * MapFrame::Height / MapFrame::Width;
    return isBefore({0, 0}, box.left, width) && isBefore(box.right, {1, 0}, width)
        && isBefore({0, 0}, box.top, height) && isBefore(box.bottom, {1, 0}, height);
}

} // namespace

LabelBox boxOf(const QString &text, const MapDistance &x, const MapDistance &y, LabelAnchor anchor,
               double size)
{
    constexpr double WidthOfLetter = 0.65; // of their height, on average and rather too much
    constexpr double Descent = 0.25;
    const double width = static_cast<double>(text.size()) * size * WidthOfLetter;
    const double before = anchor == LabelAnchor::Start ? 0 : anchor == LabelAnchor::End ? width : width / 2;
    return {{x.share, x.pixels - before},
            {y.share, y.pixels - size},
            {x.share, x.pixels - before + width},
            {y.share, y.pixels + size * Descent}};
}

bool MapLabels::take(const LabelBox &box)
{
    const bool isFree = std::all_of(std::begin(Widths), std::end(Widths), [&](double width) {
        return isOnMap(box, width) && std::all_of(taken.begin(), taken.end(), [&](const LabelBox &other) {
                   return areApart(box, other, width);
               });
    });
    if (isFree)
        taken.push_back(box);
    return isFree;
}

} // namespace KORMAK::Inspection
