// Everything that there is to tell about an object that was not read from a text.
#ifndef KORMAK_INSPECTION_OBJECTFINDINGS_P_H
#define KORMAK_INSPECTION_OBJECTFINDINGS_P_H

#include <inspection/DocumentKind_p.h>
#include <inspection/FindingData_p.h>

#include <QString>

#include <optional>

namespace KORMAK::Inspection {

/// Why the library refuses \a object: what Check() says or, of an object that is complete, why it cannot be
/// written.
[[nodiscard]] std::optional<QString> refusalOf(const TESSEL::ITesselObject &object);

/// With an error exactly when the library refuses \a object. The places mean nothing.
[[nodiscard]] Findings findProblems(const DocumentKind &kind, const TESSEL::ITesselObject &object);

} // namespace KORMAK::Inspection

#endif
