#include "inspection/report/BarAxis_p.h"

#include <inspection/FieldText_p.h>
#include <inspection/report/Svg_p.h>

#include <algorithm>
#include <cmath>

namespace KORMAK::Inspection {

namespace {

constexpr double Decade = 10;

/// From 0 to 1 along the axis.
class Axis {
public:
    Axis(const std::vector<Bar> &bars, Scale scale)
    {
        double least = 0;
        double most = 0;
        double leastAboveZero = HUGE_VAL;
        for (const Bar &bar : bars) {
            if (!std::isfinite(bar.value))
                continue;
            least = std::min(least, bar.value);
            most = std::max(most, bar.value);
            if (bar.value > 0)
                leastAboveZero = std::min(leastAboveZero, bar.value);
        }
        constexpr double TooFarApart = 25;
        constexpr double LeastForLogarithm = 1e-12;
        isLogarithmic = scale == Scale::Fitting && least == 0 && leastAboveZero > LeastForLogarithm
            && most / leastAboveZero > TooFarApart;
        if (isLogarithmic) {
            from =
                std::pow(Decade, std::floor(std::log10(leastAboveZero)) - (leastAboveZero >= most ? 1 : 0));
            if (from == leastAboveZero) // or its bar would have no length
                from /= Decade;
            to = std::pow(Decade, std::ceil(std::log10(most)));
            for (double tick = from; tick <= to * 1.001; tick *= Decade)
                marks.push_back(tick);
            return;
        }
        const double span = std::max(most - least, most == least ? 1.0 : 0.0);
        const double step = stepFor(span);
        from = std::floor(least / step) * step;
        to = std::max(std::ceil(most / step) * step, from + step);
        for (double i = std::round(from / step); i * step <= to + step / 2; ++i)
            marks.push_back(i * step);
    }

    [[nodiscard]] double share(double value) const
    {
        if (!isLogarithmic)
            return std::clamp((value - from) / (to - from), 0.0, 1.0);
        return value <= from ? 0 : std::clamp(std::log10(value / from) / std::log10(to / from), 0.0, 1.0);
    }
    [[nodiscard]] double origin() const { return isLogarithmic ? 0 : share(0); }
    [[nodiscard]] const std::vector<double> &ticks() const { return marks; }
    [[nodiscard]] bool hasDecades() const { return isLogarithmic; }

private:
    static double stepFor(double span)
    {
        constexpr double Ticks = 5;
        const double power = std::pow(Decade, std::floor(std::log10(span / Ticks)));
        constexpr double Factors[] = {1, 2, 5, 10};
        const auto *const factor = std::find_if(std::begin(Factors), std::prev(std::end(Factors)),
                                                [&](double one) { return one * power >= span / Ticks; });
        return *factor * power;
    }

    bool isLogarithmic = false;
    double from = 0;
    double to = 1;
    std::vector<double> marks;
};

Html &openDrawing(Html &html, const QString &look)
{
    return html.open(u"svg",
                     {{u"class", QStringLiteral("strip ") + look}, {u"aria-hidden", QStringLiteral("true")}});
}

void writeBar(Html &html, const Bar &bar, const Axis &axis)
{
    html.open(u"p", {{u"class", QStringLiteral("bar-name")}})
        .element(u"strong", bar.name)
        .text(u" ")
        .element(u"span", bar.text)
        .close();
    openDrawing(html, QStringLiteral("track"));
    for (const double tick : axis.ticks()) {
        const QString x = Svg::percent(axis.share(tick));
        Svg::line(html, x, QStringLiteral("0"), x, QStringLiteral("100%"), u"grid");
    }
    if (std::isfinite(bar.value)) {
        const double origin = axis.origin();
        const double end = axis.share(bar.value);
        constexpr double LeastWidth = 0.004; // so that a bar of nothing can be seen
        Svg::rectangle(html, Svg::percent(std::min(origin, end)), QStringLiteral("3"),
                       Svg::percent(std::max(std::abs(end - origin), LeastWidth)), QStringLiteral("10"),
                       u"range");
    }
    html.close();
}

void writeTicks(Html &html, const Axis &axis)
{
    constexpr int Digits = 6;
    constexpr std::size_t ManyLabels = 7; // on a small screen
    const std::vector<double> &ticks = axis.ticks();
    const std::size_t step = (ticks.size() + ManyLabels - 1) / ManyLabels;
    openDrawing(html, QStringLiteral("ticks"));
    for (std::size_t i = 0; i < ticks.size(); i += step)
        Svg::tickLabel(html, axis.share(ticks[i]), QString::number(ticks[i], 'g', Digits));
    html.close();
}

} // namespace

void writeBars(Html &html, const std::vector<Bar> &bars, const QString &caption, Scale scale)
{
    const Axis axis(bars, scale);
    html.open(u"figure", {{u"class", QStringLiteral("axis")}});
    html.open(u"figcaption").text(caption);
    if (axis.hasDecades())
        html.text(u" The axis is logarithmic.");
    html.close();
    for (const Bar &bar : bars)
        writeBar(html, bar, axis);
    writeTicks(html, axis);
    html.close();
}

} // namespace KORMAK::Inspection
