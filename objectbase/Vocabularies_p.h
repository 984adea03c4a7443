// Not installed. The vocabularies of the library that tables of other files, and of other libraries, refer
// to.
#ifndef TESSEL_VOCABULARIES_P_H
#define TESSEL_VOCABULARIES_P_H

#include <objectbase/objectbase_export.h>
#include <objectbase/Vocabulary_p.h>

namespace TESSEL {

[[nodiscard]] OBJECTBASE_EXPORT NameTable objectTypes();
[[nodiscard]] OBJECTBASE_EXPORT NameTable polarizations();
[[nodiscard]] OBJECTBASE_EXPORT NameTable resourceTypes();

} // namespace TESSEL

#endif
