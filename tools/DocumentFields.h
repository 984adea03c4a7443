// The fields of each kind of document, and what it lacks where Check() of the library is silent.
#ifndef KORMAK_TOOLS_DOCUMENTFIELDS_H
#define KORMAK_TOOLS_DOCUMENTFIELDS_H

#include <tools/Field.h>

#include <QStringList>

namespace KORMAK {
class ActivityGenerationData;
class AutomaticWorkflow;
class GenericReceiver;
class Job;
class Parameter;
} // namespace KORMAK

extern const FieldTable ActivityGenerationFields;
extern const FieldTable AutomaticWorkflowFields;
extern const FieldTable GenericReceiverFields;
extern const FieldTable JobFields;
extern const FieldTable ParameterFields;

[[nodiscard]] QStringList missingBeyondCheck(const KORMAK::ActivityGenerationData &data);
[[nodiscard]] QStringList missingBeyondCheck(const KORMAK::AutomaticWorkflow &workflow);
[[nodiscard]] QStringList missingBeyondCheck(const KORMAK::GenericReceiver &receiver);
[[nodiscard]] QStringList missingBeyondCheck(const KORMAK::Job &job);
[[nodiscard]] QStringList missingBeyondCheck(const KORMAK::Parameter &parameter);

#endif
