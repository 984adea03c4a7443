// Whether a document is complete, and what keeps it from being rewritten: what Check() says, and what it does
// not name.
#ifndef KORMAK_INSPECTION_COMPLETENESS_P_H
#define KORMAK_INSPECTION_COMPLETENESS_P_H

#include <inspection/FindingData_p.h>
#include <inspection/ParameterElements_p.h>
#include <inspection/XmlTree_p.h>
#include <objectbase/DocumentTable_p.h>

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace KORMAK {
class AutomaticWorkflow;
class GenericReceiver;
class Parameter;
} // namespace KORMAK

namespace TESSEL {
class ITesselObject;
}

namespace KORMAK::Inspection {

/// The message of Check(); nothing when it passes.
[[nodiscard]] std::optional<QString> complaintOf(const TESSEL::ITesselObject &object);

/// Why nothing is written for \a object; nothing when it is complete.
[[nodiscard]] std::optional<QString> whyIncomplete(const TESSEL::ITesselObject &object);

/// What keeps an object from being written that passes Check() but is not complete.
[[nodiscard]] QStringList missingBeyondCheck(const TESSEL::ObjectTable &table, const void *object);
[[nodiscard]] QStringList missingBeyondCheck(const Parameter &parameter);
[[nodiscard]] QStringList missingBeyondCheck(const GenericReceiver &receiver);
template <class Document>
[[nodiscard]] QStringList missingBeyondCheck(const Document &document)
{
    return missingBeyondCheck(TESSEL::DocumentTables::of<Document>(), &document);
}

/// The mode that is not read where it stands, or would not be where it would be written.
[[nodiscard]] Findings modeNotReadBack(const KORMAK::AutomaticWorkflow &workflow, const XmlTree &tree);

[[nodiscard]] Findings incompleteParameters(const std::vector<ParameterElement> &parameters);

} // namespace KORMAK::Inspection

#endif
