// In which fields two documents of the same kind differ.
#ifndef KORMAK_INSPECTION_FIELDDIFF_P_H
#define KORMAK_INSPECTION_FIELDDIFF_P_H

#include <inspection/Difference.h>
#include <inspection/FieldTable_p.h>

#include <QString>

#include <vector>

namespace KORMAK::Inspection {

struct FieldDifference {
    /// What a field holds in one of the documents.
    struct Side {
        QString text; ///< as JSON, but "not set" and "nan"; empty: there is no such field
        QString json;
    };

    QString path;
    Side before;
    Side after;

    /// "BEFORE -> AFTER", or that it was added or removed
    [[nodiscard]] QString change() const;
    /// "PATH: " and the change, in one line
    [[nodiscard]] QString toLine() const;
};

struct DifferenceMaker {
    [[nodiscard]] static Difference made(FieldDifference difference);
};

/// In the order of the fields. Elements of lists are compared by their place, parameters by their names;
/// what only one document has makes one difference. Two NaN are alike.
[[nodiscard]] std::vector<FieldDifference> differences(const FieldTable &table, const void *before,
                                                       const void *after);

} // namespace KORMAK::Inspection

#endif
