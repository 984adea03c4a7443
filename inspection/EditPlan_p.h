// By what patches of its text a document is changed, and what it is to say then.
#ifndef KORMAK_INSPECTION_EDITPLAN_P_H
#define KORMAK_INSPECTION_EDITPLAN_P_H

#include <inspection/DocumentEdit.h>
#include <inspection/ExpectedFields_p.h>
#include <inspection/ParsedDocument_p.h>
#include <inspection/TextPatch_p.h>

#include <QVector>

#include <memory>
#include <vector>

namespace KORMAK::Inspection {

class EditPlan {
public:
    EditPlan(ParsedDocument &document, const QVector<DocumentEdit::Change> &changes);

    /// Why it cannot be done; empty when it can.
    [[nodiscard]] const QVector<Finding> &errors() const noexcept { return allErrors; }
    /// Arranged; of a plan without errors.
    [[nodiscard]] const std::vector<TextPatch> &patches() const noexcept { return allPatches; }
    /// Comments and the like in what is removed.
    [[nodiscard]] const Findings &losses() const noexcept { return allLosses; }
    /// What \a read, the object of the document when it is done, holds otherwise than it is to, as errors.
    [[nodiscard]] QVector<Finding> differencesTo(const TESSEL::ITesselObject &read) const;

private:
    class Plan;

    struct Removal {
        QString path;
        bool isInList;
    };

    [[nodiscard]] QVector<Finding> differencesIn(const EditScope &part,
                                                 const TESSEL::ITesselObject &read) const;

    QVector<Finding> allErrors;
    std::vector<TextPatch> allPatches;
    Findings allLosses;
    const DocumentKind *kind;
    EditScope scope; ///< of the changes
    std::unique_ptr<TESSEL::ITesselObject> changed; ///< as it is to be read, but for the removals
    std::vector<Removal> removals;
};

} // namespace KORMAK::Inspection

#endif
