// By what patches of its text a document is changed, and what it is to say then.
#ifndef KORMAK_INSPECTION_EDITPLAN_P_H
#define KORMAK_INSPECTION_EDITPLAN_P_H

#include <inspection/DocumentEdit.h>
#include <inspection/ExpectedFields_p.h>
#include <inspection/ParsedDocument_p.h>
#include <inspection/TextPatch_p.h>

#include <QVector>

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
    [[nodiscard]] const ExpectedFields &expected() const noexcept { return expectedFields; }

private:
    class Plan;

    QVector<Finding> allErrors;
    std::vector<TextPatch> allPatches;
    Findings allLosses;
    ExpectedFields expectedFields;
};

} // namespace KORMAK::Inspection

#endif
