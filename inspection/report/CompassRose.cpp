#include "inspection/report/CompassRose_p.h"

#include <inspection/FieldText_p.h>
#include <inspection/report/Svg_p.h>

#include <cmath>
#include <iterator>

namespace KORMAK::Inspection {

namespace {

constexpr double Pi = 3.14159265358979323846;
constexpr double Turn = 360;
constexpr double Radius = 76;
constexpr QStringView Directions[] = {
    u"north",     u"north-northeast", u"northeast", u"east-northeast",  u"east",      u"east-southeast",
    u"southeast", u"south-southeast", u"south",     u"south-southwest", u"southwest", u"west-southwest",
    u"west",      u"west-northwest",  u"northwest", u"north-northwest",
};

double withinTurn(double degrees)
{
    const double rest = std::fmod(degrees, Turn);
    return rest < 0 ? rest + Turn : rest;
}

/// At \a radius from the middle.
QString x(double degrees, double radius)
{
    return Svg::number(radius * std::sin(degrees * Pi / (Turn / 2)));
}

QString y(double degrees, double radius)
{
    return Svg::number(-radius * std::cos(degrees * Pi / (Turn / 2)));
}

void writeDial(Html &html)
{
    Svg::circle(html, QStringLiteral("0"), QStringLiteral("0"), Svg::number(Radius), u"dial");
    constexpr double Step = 30;
    constexpr double Quarter = 90;
    for (double degrees = 0; degrees < Turn; degrees += Step) {
        const double inner = std::fmod(degrees, Quarter) == 0 ? Radius - 12 : Radius - 7;
        Svg::line(html, x(degrees, inner), y(degrees, inner), x(degrees, Radius), y(degrees, Radius),
                  u"tick-mark");
    }
    constexpr QStringView Letters[] = {u"N", u"E", u"S", u"W"};
    constexpr double LetterRadius = Radius + 13;
    constexpr double LetterMiddle = 5; // half of its height
    double degrees = 0;
    for (const QStringView letter : Letters) {
        const double down = -LetterRadius * std::cos(degrees * Pi / (Turn / 2)) + LetterMiddle;
        Svg::text(html, x(degrees, LetterRadius), Svg::number(down), u"letter", letter.toString());
        degrees += Quarter;
    }
}

} // namespace

QString directionText(double degrees)
{
    constexpr auto Count = static_cast<double>(std::size(Directions));
    const auto index = static_cast<std::size_t>(std::lround(withinTurn(degrees) / Turn * Count));
    return Directions[index % std::size(Directions)].toString();
}

void writeCompassRose(Html &html, double degrees, const QString &caption)
{
    if (!std::isfinite(degrees))
        return;
    const double turned = withinTurn(degrees);
    html.open(u"figure", {{u"class", QStringLiteral("rose")}});
    html.open(u"svg",
              {{u"class", QStringLiteral("chart")},
               {u"viewBox", QStringLiteral("-100 -100 200 200")},
               {u"role", QStringLiteral("img")},
               {u"aria-label",
                QStringLiteral("Compass rose: %1%2, %3")
                    .arg(numberText(degrees), QString(QChar(0xB0)), directionText(degrees))}});
    writeDial(html);
    constexpr double Point = 66;
    constexpr double Wing = 12;
    constexpr double SideWays = 90;
    html.open(
            u"path",
            {{u"class", QStringLiteral("needle")},
             {u"d",
              QStringLiteral("M%1 %2L%3 %4L%5 %6z")
                  .arg(x(turned, Point), y(turned, Point), x(turned + SideWays, Wing),
                       y(turned + SideWays, Wing), x(turned - SideWays, Wing), y(turned - SideWays, Wing))}})
        .close();
    html.open(
            u"path",
            {{u"class", QStringLiteral("needle-back")},
             {u"d",
              QStringLiteral("M%1 %2L%3 %4L%5 %6z")
                  .arg(x(turned, -Point), y(turned, -Point), x(turned + SideWays, Wing),
                       y(turned + SideWays, Wing), x(turned - SideWays, Wing), y(turned - SideWays, Wing))}})
        .close();
    Svg::circle(html, QStringLiteral("0"), QStringLiteral("0"), QStringLiteral("3"), u"hub");
    html.close();
    html.element(u"figcaption", caption);
    html.close();
}

} // namespace KORMAK::Inspection
