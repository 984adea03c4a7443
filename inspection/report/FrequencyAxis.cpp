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
        const double share = border / BandCount;
        const bool isFirst = border == 0;
        const bool isLast = border == BandCount;
        html.element(u"text", frequencyText(hertz),
                     {{u"x", Svg::percent(share)},
                      {u"y", QStringLiteral("12")},
                      {u"dx",
                       isFirst      ? QStringLiteral("-8")
                           : isLast ? QStringLiteral("8")
                                    : QStringLiteral("0")},
                      {u"class", QStringLiteral("tick")},
                      {u"text-anchor",
                       isFirst      ? QStringLiteral("start")
                           : isLast ? QStringLiteral("end")
                                    : QStringLiteral("middle")}});

        hertz *= Decade;
    }
    html.close();
}

void writeRange(Html &html, const FrequencyRange &range)
{
    const bool isRange = range.least <= range.most;
    QString text = QStringLiteral("%1 to %2").arg(frequencyText(range.least), frequencyText(range.most));
    if (!std::isnan(range.standard))
        text += QStringLiteral(", default ") + frequencyText(range.standard);
    html.open(u"p", {{u"class", QStringLiteral("bar-name")}})
        .element(u"strong", range.name)
        .text(u" ")
        .element(u"span", text)
        .close();
    openDrawing(html, u"track");
    writeGrid(html);
    if (isRange) {
        const double from = shareOf(range.least);
        const double to = shareOf(range.most);
        constexpr double LeastWidth = 0.004; // so that a narrow range can be seen
        Svg::rectangle(html, Svg::percent(std::min(from, 1 - LeastWidth)), QStringLiteral("3"),
                       Svg::percent(std::max(to - from, LeastWidth)), QStringLiteral("10"), u"range");
        if (range.least < First)
            Svg::text(html, QStringLiteral("0"), QStringLiteral("12"), u"beyond", QString(QChar(0x25C2)),
                      u"start");
        if (range.most > Last)
            Svg::text(html, QStringLiteral("100%"), QStringLiteral("12"), u"beyond", QString(QChar(0x25B8)),
                      u"end");
    }
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
