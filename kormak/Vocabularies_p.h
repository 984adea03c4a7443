// Not installed. The vocabularies of the library that tables of other files, and of other libraries, refer
// to.
#ifndef KORMAK_VOCABULARIES_P_H
#define KORMAK_VOCABULARIES_P_H

#include <kormak/kormak_export.h>
#include <objectbase/Vocabulary_p.h>

namespace KORMAK {

[[nodiscard]] KORMAK_EXPORT TESSEL::NameTable activeCriteria();
[[nodiscard]] KORMAK_EXPORT TESSEL::NameTable connectableResources();
[[nodiscard]] KORMAK_EXPORT TESSEL::NameTable controlTypes();
[[nodiscard]] KORMAK_EXPORT TESSEL::NameTable databaseWriteModes();
[[nodiscard]] KORMAK_EXPORT TESSEL::NameTable energyChannels();
[[nodiscard]] KORMAK_EXPORT TESSEL::NameTable generationModes();
[[nodiscard]] KORMAK_EXPORT TESSEL::NameTable jobTypes();
[[nodiscard]] KORMAK_EXPORT TESSEL::NameTable parameterTypes();
[[nodiscard]] KORMAK_EXPORT TESSEL::NameTable searchStrategies();
[[nodiscard]] KORMAK_EXPORT TESSEL::NameTable subjobTypes();
[[nodiscard]] KORMAK_EXPORT TESSEL::NameTable valueTypes();
[[nodiscard]] KORMAK_EXPORT TESSEL::NameTable workflowModes();

} // namespace KORMAK

#endif
