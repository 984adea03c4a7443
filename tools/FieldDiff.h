// In which fields two documents of the same kind differ.
#ifndef KORMAK_TOOLS_FIELDDIFF_H
#define KORMAK_TOOLS_FIELDDIFF_H

#include <tools/Field.h>

#include <QString>

#include <vector>

struct FieldDifference {
    /// What a field holds in one of the documents.
    struct Side {
        QString text; ///< as JSON, but "not set" and "nan"; empty: there is no such field
        QString json;
    };

    QString path;
    Side before;
    Side after;

    /// "PATH: BEFORE -> AFTER", or that it was added or removed, in one line
    [[nodiscard]] QString toLine() const;
};

/// In the order of the fields. Elements of lists are compared by their place, parameters by their names;
/// what only one document has makes one difference. Two NaN are alike.
[[nodiscard]] std::vector<FieldDifference> differences(const FieldTable &table, const void *before,
                                                       const void *after);

#endif
