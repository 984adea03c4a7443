// Reads a document from its tree into its object, as the library reads it from the text, and tells everything
// that is wrong with it, not only what the library stops at.
#ifndef KORMAK_INSPECTION_DOCUMENTWALK_P_H
#define KORMAK_INSPECTION_DOCUMENTWALK_P_H

#include <inspection/FindingData_p.h>
#include <inspection/XmlTree_p.h>

#include <QString>

#include <optional>

namespace TESSEL {
class ITesselObject;
struct ObjectTable;
} // namespace TESSEL

namespace KORMAK::Inspection {

/// What the library refuses a document for.
struct Rejection {
    QString message;
    qsizetype offset; ///< of the element that it is about, or of what ended the reading
    QStringView id = FindingId::Refused;
    ReadingLimit limit = ReadingLimit::None;
};

struct WalkOutcome {
    Findings findings; ///< in the order of the document
    std::optional<Rejection> rejection; ///< where the library would have stopped; the object holds more
    bool isComplete = false; ///< what was read until then
};

/// Fills \a document, a new one whose \a table takes its \a address, with what the tree says, which has a
/// root of that kind. Nothing is said to be missing from a document that breaks off.
[[nodiscard]] WalkOutcome walk(const XmlTree &tree, const TESSEL::ObjectTable &table, void *address,
                               const TESSEL::ITesselObject &document);

} // namespace KORMAK::Inspection

#endif
