// Not installed. The constants that several source files share: log-level names, the name of the version
// attribute, the version of a new object. A name that only one document uses stands in that document's
// source.
#ifndef TESSEL_CONSTANTS_P_H
#define TESSEL_CONSTANTS_P_H

#include <objectbase/Shared_p.h>

#include <QString>
#include <QStringView>

#include <array>

namespace TESSEL {

/// Names of the log levels. Each source file carries its copy, so that log output can be added to any of
/// them under the same names; nothing reads them today.
inline constexpr std::array<QStringView, 3> LogLevelNames{u"INFO", u"WARNING", u"ERROR"};

inline constexpr QStringView TagVersion = u"Version";
inline constexpr QStringView DefaultVersion = u"1.0";

/// DefaultVersion, as objects hold it.
[[nodiscard]] inline QString defaultVersion()
{
    return shared([] { return DefaultVersion.toString(); });
}

} // namespace TESSEL

#endif
