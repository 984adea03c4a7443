// What show tells of each kind of document; one fieldsOf() per kind.
#ifndef KORMAK_TOOLS_DOCUMENTFIELDS_H
#define KORMAK_TOOLS_DOCUMENTFIELDS_H

#include <tools/Field.h>

#include <vector>

namespace KORMAK {
class ActivityGenerationData;
class AutomaticWorkflow;
class GenericReceiver;
class Job;
class Parameter;
} // namespace KORMAK

[[nodiscard]] std::vector<Field> fieldsOf(const KORMAK::ActivityGenerationData &data);
[[nodiscard]] std::vector<Field> fieldsOf(const KORMAK::AutomaticWorkflow &workflow);
[[nodiscard]] std::vector<Field> fieldsOf(const KORMAK::GenericReceiver &receiver);
[[nodiscard]] std::vector<Field> fieldsOf(const KORMAK::Job &job);
[[nodiscard]] std::vector<Field> fieldsOf(const KORMAK::Parameter &parameter);

#endif
