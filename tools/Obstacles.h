// What keeps a document from being rewritten: what Check() of the library says, and what it has no words for.
#ifndef KORMAK_TOOLS_OBSTACLES_H
#define KORMAK_TOOLS_OBSTACLES_H

#include <tools/Finding.h>
#include <tools/ParameterElements.h>
#include <tools/XmlTree.h>

#include <QString>

#include <optional>
#include <vector>

namespace KORMAK {
class AutomaticWorkflow;
}

namespace TESSEL {
class ITesselObject;
}

/// The message of Check(); nothing when it passes.
[[nodiscard]] std::optional<QString> complaintOf(const TESSEL::ITesselObject &object);

/// Why nothing is written for \a object; nothing when it is complete.
[[nodiscard]] std::optional<QString> whyIncomplete(const TESSEL::ITesselObject &object);

/// The mode that is not read where it stands, or would not be where it would be written.
[[nodiscard]] Findings modeNotReadBack(const KORMAK::AutomaticWorkflow &workflow, const XmlTree &tree);

[[nodiscard]] Findings incompleteParameters(const std::vector<ParameterElement> &parameters);

#endif
