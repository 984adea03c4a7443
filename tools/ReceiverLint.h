// What is suspicious about receivers and parameters that the library accepts.
#ifndef KORMAK_TOOLS_RECEIVERLINT_H
#define KORMAK_TOOLS_RECEIVERLINT_H

#include <tools/Finding.h>
#include <tools/ParameterElements.h>

#include <vector>

/// In the order of the document.
[[nodiscard]] Findings lint(const std::vector<ParameterElement> &parameters);

#endif
