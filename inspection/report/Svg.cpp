#include "inspection/report/Svg_p.h"

#include <cmath>

namespace KORMAK::Inspection::Svg {

QString number(double value)
{
    constexpr double Hundredths = 100;
    constexpr int Digits = 8;
    return QString::number(std::round(value * Hundredths) / Hundredths + 0.0, 'g', Digits);
}

QString percent(double share)
{
    constexpr double Whole = 100;
    return number(share * Whole) + QLatin1Char('%');
}

void text(Html &html, const QString &x, const QString &y, QStringView look, const QString &content,
          QStringView anchor)
{
    html.element(u"text", content,
                 {{u"x", x}, {u"y", y}, {u"class", look.toString()}, {u"text-anchor", anchor.toString()}});
}

void tickLabel(Html &html, double share, const QString &content)
{
    // What begins or ends the axis stands a little beyond it, as the page has room for; a digit has room
    // anyway.
    constexpr int FewCharacters = 2;
    const bool isLong = content.size() > FewCharacters;
    const bool isFirst = isLong && share <= 0;
    const bool isLast = isLong && share >= 1;
    html.element(u"text", content,
                 {{u"x", percent(share)},
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
}

void line(Html &html, const QString &x1, const QString &y1, const QString &x2, const QString &y2,
          QStringView look)
{
    html.open(u"line", {{u"x1", x1}, {u"y1", y1}, {u"x2", x2}, {u"y2", y2}, {u"class", look.toString()}})
        .close();
}

void rectangle(Html &html, const QString &x, const QString &y, const QString &width, const QString &height,
               QStringView look)
{
    html.open(u"rect",
              {{u"x", x}, {u"y", y}, {u"width", width}, {u"height", height}, {u"class", look.toString()}})
        .close();
}

void circle(Html &html, const QString &x, const QString &y, const QString &radius, QStringView look)
{
    html.open(u"circle", {{u"cx", x}, {u"cy", y}, {u"r", radius}, {u"class", look.toString()}}).close();
}

} // namespace KORMAK::Inspection::Svg
