#include "objectbase/Coordinate.h"

#include <objectbase/Constants_p.h>
#include <objectbase/Debug_p.h>
#include <objectbase/Text_p.h>

namespace TESSEL {

namespace {

[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;

} // namespace

QDebug operator<<(QDebug debug, const Coordinate &coordinate)
{
    return printText(debug,
                     QStringLiteral("Coordinate(Latitude=%1, Longitude=%2)")
                         .arg(toText(coordinate.GetLatitude()), toText(coordinate.GetLongitude())));
}

} // namespace TESSEL
