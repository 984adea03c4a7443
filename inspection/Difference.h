#ifndef KORMAK_INSPECTION_DIFFERENCE_H
#define KORMAK_INSPECTION_DIFFERENCE_H

#include <inspection/inspection_export.h>

#include <QString>

#include <memory>

QT_BEGIN_NAMESPACE
class QDebug;
QT_END_NAMESPACE

namespace KORMAK {

namespace Inspection {
struct DifferenceMaker;
struct FieldDifference;
} // namespace Inspection

/// A field in which two documents differ, or that only one of them has. A value; copies share their data.
///
/// \snippet docs/InspectionSnippetsTest.cpp Difference
class INSPECTION_EXPORT Difference {
public:
    /// A difference without a path.
    Difference();

    /// The path of the field as Field::GetPath() gives it, or of an element of a list or map that only one
    /// document has.
    [[nodiscard]] QString GetPath() const;

    /// Whether the first document has the field.
    [[nodiscard]] bool HasBefore() const;
    /// What the first document holds, for people: as JSON, but "not set" and "nan"; empty when it has no such
    /// field.
    [[nodiscard]] QString GetBefore() const;
    /// What the first document holds in JSON, null for what is not set and for NaN; empty when it has no such
    /// field.
    [[nodiscard]] QString GetBeforeJson() const;

    /// Whether the second document has the field.
    [[nodiscard]] bool HasAfter() const;
    /// What the second document holds, as GetBefore().
    [[nodiscard]] QString GetAfter() const;
    /// What the second document holds, as GetBeforeJson().
    [[nodiscard]] QString GetAfterJson() const;

    /// All of it in a line for people: "JobHeader.Author: "Keller" -> "Brandt"".
    [[nodiscard]] QString GetText() const;

    /// Path and both sides are equal.
    [[nodiscard]] bool operator==(const Difference &other) const;
    [[nodiscard]] bool operator!=(const Difference &other) const { return !(*this == other); }

private:
    friend struct Inspection::DifferenceMaker;

    [[nodiscard]] INSPECTION_NO_EXPORT const Inspection::FieldDifference &data() const;

    std::shared_ptr<const Inspection::FieldDifference> d; // null: of the default
};

/// Writes GetText().
INSPECTION_EXPORT QDebug operator<<(QDebug debug, const Difference &difference);

} // namespace KORMAK

#endif
