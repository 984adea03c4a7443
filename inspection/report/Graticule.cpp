#include "inspection/report/Graticule_p.h"

#include <algorithm>
#include <cmath>
#include <iterator>

namespace KORMAK::Inspection {

namespace {

using Direction = GraticuleLine::Direction;

constexpr double Pole = 90;
constexpr double DateLine = 180;
constexpr double Turn = 360;
constexpr double Pi = 3.14159265358979323846;
constexpr double PerRadian = 180 / Pi;
constexpr double Steps[] = {1e-5, 2e-5, 5e-5, 1e-4, 2e-4, 5e-4, 1e-3, 2e-3, 5e-3, 0.01, 0.02,
                            0.05, 0.1,  0.2,  0.5,  1,    2,    5,    10,   15,   30};
constexpr double StepRoundEarth = 60; // of the meridians of a map of all of it
constexpr double LinesAcross = 5; // at most, about

double stepFor(double span)
{
    const auto *const found = std::find_if(std::begin(Steps), std::end(Steps),
                                           [span](double step) { return step >= span / LinesAcross; });
    return found == std::end(Steps) ? *std::prev(std::end(Steps)) : *found;
}

/// What of the earth a frame shows.
struct Range {
    double south = Pole;
    double north = -Pole;
    double west = Turn;
    double east = -Turn;
};

Range rangeOf(const MapProjection &projection, const MapFrame &frame)
{
    constexpr int Samples = 24;
    Range range;
    for (int i = 0; i <= Samples; ++i) {
        for (int j = 0; j <= Samples; ++j) {
            const FramePoint point{frame.width() * i / Samples, frame.height() * j / Samples};
            const auto place = projection.placeAt(frame.pointAt(point));
            if (!place)
                continue;
            range.south = std::min(range.south, place->latitude);
            range.north = std::max(range.north, place->latitude);
            range.west = std::min(range.west, place->longitude);
            range.east = std::max(range.east, place->longitude);
        }
    }
    for (const double pole : {Pole, -Pole}) {
        const auto point = projection.project(pole, 0);
        if (!point || !frame.holds(frame.place(*point)))
            continue;
        (pole > 0 ? range.north : range.south) = pole;
        range.east = range.west + Turn;
    }
    return range;
}

/// The line that \a place gives points of, for arguments from \a from to \a to.
template <class PlaceOf>
std::vector<FrameLine> partsOf(const MapProjection &projection, const MapFrame &frame, double from, double to,
                               PlaceOf placeOf)
{
    constexpr int Samples = 90;
    std::vector<FrameLine> whole(1);
    for (int i = 0; i <= Samples; ++i) {
        const Place place = placeOf(from + (to - from) * i / Samples);
        const bool isOnCylinder = projection.kind() == MapProjection::Kind::Cylindrical;
        if (const auto point = isOnCylinder
                ? std::optional(projection.onCylinder(place.latitude, place.longitude))
                : projection.project(place.latitude, place.longitude))
            whole.back().push_back(frame.place(*point));
        else if (!whole.back().empty())
            whole.emplace_back();
    }
    std::vector<FrameLine> parts;
    for (const FrameLine &line : whole) {
        std::vector<FrameLine> some = frame.clippedLine(line);
        std::move(some.begin(), some.end(), std::back_inserter(parts));
    }
    return parts;
}

QString degreesText(double degrees, int decimals, QStringView positive, QStringView negative)
{
    QString number = QString::number(std::abs(degrees), 'f', decimals);
    while (number.contains(QLatin1Char('.')) && number.endsWith(QLatin1Char('0')))
        number.chop(1);
    if (number.endsWith(QLatin1Char('.')))
        number.chop(1);
    const bool isZero = number == QLatin1String("0");
    number += QChar(0xB0);
    const QStringView side = isZero ? QStringView() : degrees > 0 ? positive : negative;
    return side.isEmpty() ? number : number + QChar(0xA0) + side.toString();
}

} // namespace

std::vector<GraticuleLine> graticuleOf(const MapProjection &projection, const MapFrame &frame)
{
    const Range range = rangeOf(projection, frame);
    const double height = frame.kilometresPerUnit() * frame.height() / EarthRadius * PerRadian;
    const double parallelStep = stepFor(std::min(height, range.north - range.south));
    const double widest = std::max(std::abs(range.south), std::abs(range.north));
    constexpr double LeastCosine = 0.05;
    const double cosine = std::max(std::cos(std::min(widest, Pole) / PerRadian), LeastCosine);
    const bool isRoundEarth = projection.kind() == MapProjection::Kind::Cylindrical;
    const double meridianStep = isRoundEarth
        ? StepRoundEarth
        : std::max(parallelStep, stepFor(std::min(height / cosine, range.east - range.west)));
    // So far beyond the frame that lines reach its edge, and no farther: they are bent.
    const double beyondSouth = std::min(1.0, (range.north - range.south) / 4);
    const double beyondWest = std::min(1.0, (range.east - range.west) / 4);
    const double farthest = isRoundEarth ? Pole + 1 : Pole; // where the pole is the edge of the map
    std::vector<GraticuleLine> lines;
    for (double i = std::ceil(range.south / parallelStep); i * parallelStep <= range.north; ++i) {
        const double latitude = i * parallelStep;
        if (std::abs(latitude) >= Pole)
            continue;
        lines.push_back({Direction::Parallel, latitude,
                         partsOf(projection, frame, range.west - beyondWest, range.east + beyondWest,
                                 [latitude](double longitude) {
                                     return Place{latitude, longitude};
                                 })});
    }
    const double end = std::min(range.east, range.west + Turn - meridianStep / 2);
    for (double i = std::ceil(range.west / meridianStep); i * meridianStep <= end; ++i) {
        const double longitude = i * meridianStep;
        lines.push_back({Direction::Meridian, std::remainder(longitude, Turn),
                         partsOf(projection, frame, std::max(range.south - beyondSouth, -farthest),
                                 std::min(range.north + beyondSouth, farthest), [longitude](double latitude) {
                                     return Place{latitude, longitude};
                                 })});
    }
    return lines;
}

QString latitudeText(double degrees, int decimals)
{
    return degreesText(degrees, decimals, u"N", u"S");
}

QString longitudeText(double degrees, int decimals)
{
    return std::abs(degrees) == DateLine ? QStringLiteral("180") + QChar(0xB0)
                                         : degreesText(degrees, decimals, u"E", u"W");
}

} // namespace KORMAK::Inspection
