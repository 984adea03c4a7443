// What is suspicious about receivers and parameters that the library accepts.
#ifndef KORMAK_INSPECTION_RECEIVERLINT_P_H
#define KORMAK_INSPECTION_RECEIVERLINT_P_H

#include <inspection/FindingData_p.h>
#include <inspection/ParameterElements_p.h>

#include <vector>

namespace KORMAK::Inspection {

/// In the order of the document.
[[nodiscard]] Findings lint(const std::vector<ParameterElement> &parameters);

} // namespace KORMAK::Inspection

#endif
