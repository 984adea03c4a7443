// The names of the vocabularies as the library reads them, in order of value.
#ifndef KORMAK_TOOLS_FORMNAMES_H
#define KORMAK_TOOLS_FORMNAMES_H

#include <QStringList>

namespace FormNames {

[[nodiscard]] const QStringList &jobTypes();
[[nodiscard]] const QStringList &resourceTypes();
[[nodiscard]] const QStringList &polarizations();
[[nodiscard]] const QStringList &workflowModes();
[[nodiscard]] const QStringList &searchStrategies();
[[nodiscard]] const QStringList &generationModes();
[[nodiscard]] const QStringList &energyChannels();
[[nodiscard]] const QStringList &activeCriteria();
[[nodiscard]] const QStringList &writeModes();
[[nodiscard]] const QStringList &parameterTypes();
[[nodiscard]] const QStringList &valueTypes();
[[nodiscard]] const QStringList &controlTypes();

} // namespace FormNames

#endif
