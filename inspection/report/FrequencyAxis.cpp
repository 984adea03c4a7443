#include "inspection/report/FrequencyAxis_p.h"

#include <inspection/FieldText_p.h>
#include <inspection/report/Svg_p.h>

#include <algorithm>
#include <cmath>
#include <iterator>

namespace KORMAK::Inspection {

namespace {

constexpr double First = 3e3; // Hz
constexpr double Last = 30e9;
constexpr QStringView Bands[] = {u"VLF", u"LF", u"MF", u"HF", u"VHF", u"UHF", u"SHF"};
constexpr auto BandCount = static_cast<double>(std::size(Bands));

/// From 0 to 1 along the axis.
double shareOf(double hertz)
{
    return std::log10(std::clamp(hertz, First, Last) / First) / BandCount;
}

Html &openDrawing(Html &html, QStringView look)
{
    return html.open(
        u"svg",
        {{u"class", QStringLiteral("strip ") + look.toString()}, {u"aria-hidden", QStringLiteral("true")}});
}

void writeBands(Html &html)
{
    openDrawing(html, u"bands");
    double band = 0;
    for (const QStringView name : Bands) {
        const QString width = Svg::percent(1 / BandCount);
        const bool isOdd = std::fmod(band, 2) == 1;
        Svg::rectangle(html, Svg::percent(band / BandCount), QStringLiteral("0"), width,
                       QStringLiteral("100%"), isOdd ? u"band odd" : u"band");
        Svg::text(html, Svg::percent((band + 0.5) / BandCount), QStringLiteral("15"), u"band-name",
                  name.toString());
        ++band;
    }
    html.close();
}

void writeGrid(Html &html)
{
    for (double border = 0; border <= BandCount; ++border) {
        const QString x = Svg::percent(border / BandCount);
        Svg::line(html, x, QStringLiteral("0"), x, QStringLiteral("100%"), u"grid");
    }
}

void writeTicks(Html &html)
{
    openDrawing(html, u"ticks");
    double hertz = First;
    constexpr double Decade = 10;
    for (double border = 0; border <= BandCount; ++border) {
        Svg::tickLabel(html, border / BandCount, frequencyText(hertz));
        hertz *= Decade;
    }
    html.close();
}

void writeRange(Html &html, const FrequencyRange &range)
{
    const bool isRange = range.least <= range.most;
    QString text = QStringLiteral("%1 to %2").arg(frequencyText(range.least), frequencyText(range.most));
    if (!std::isnan(range.standard))
        text += QStringLiteral(", default ")
            + (std::isfinite(range.standard) ? frequencyText(range.standard) : numberText(range.standard));
    html.open(u"p", {{u"class", QStringLiteral("bar-name")}})
        .element(u"strong", range.name)
        .text(u" ")
        .element(u"span", text)
        .close();
    openDrawing(html, u"track");
    writeGrid(html);
    const bool isBelow = isRange && range.most < First;
    const bool isAbove = isRange && range.least > Last;
    if (isRange && !isBelow && !isAbove) {
        const double from = shareOf(range.least);
        const double to = shareOf(range.most);
        constexpr double LeastWidth = 0.004; // so that a narrow range can be seen
        Svg::rectangle(html, Svg::percent(std::min(from, 1 - LeastWidth)), QStringLiteral("3"),
                       Svg::percent(std::max(to - from, LeastWidth)), QStringLiteral("10"), u"range");
    }
    const auto arrow = [&html](const QString &x, char16_t shape, QStringView anchor, bool isAlone) {
        Svg::text(html, x, QStringLiteral("12"), isAlone ? u"beyond alone" : u"beyond", QString(QChar(shape)),
                  anchor);
    };
    if (isRange && range.least < First)
        arrow(QStringLiteral("0"), u'\u25C2', u"start", isBelow);
    if (isRange && range.most > Last)
        arrow(QStringLiteral("100%"), u'\u25B8', u"end", isAbove);
    if (range.standard >= First && range.standard <= Last) {
        const QString x = Svg::percent(shareOf(range.standard));
        Svg::line(html, x, QStringLiteral("0"), x, QStringLiteral("16"), u"marked");
    }
    html.close();
}

} // namespace

QString frequencyText(double hertz)
{
    constexpr struct {
        double hertz;
        QStringView unit;
    } Units[] = {{1e9, u"GHz"}, {1e6, u"MHz"}, {1e3, u"kHz"}, {0, u"Hz"}};
    constexpr int Digits = 15;
    if (!std::isfinite(hertz))
        return std::isnan(hertz) ? QStringLiteral("not set") : QStringLiteral("no limit");
    const auto *const row = std::find_if(std::begin(Units), std::end(Units),
                                         [hertz](const auto &one) { return std::abs(hertz) >= one.hertz; });
    const double number = row->hertz > 0 ? hertz / row->hertz : hertz;
    return QString::number(number, 'g', Digits) + QChar(0xA0) + row->unit.toString();
}

void writeFrequencyAxis(Html &html, const std::vector<FrequencyRange> &ranges, const QString &caption)
{
    html.open(u"figure", {{u"class", QStringLiteral("axis")}});
    html.element(u"figcaption", caption);
    writeBands(html);
    for (const FrequencyRange &range : ranges)
        writeRange(html, range);
    writeTicks(html);
    html.close();
}

} // namespace KORMAK::Inspection
