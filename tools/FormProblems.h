// What is wrong with a document, held against its form: everything, not only what the library stops at.
#ifndef KORMAK_TOOLS_FORMPROBLEMS_H
#define KORMAK_TOOLS_FORMPROBLEMS_H

#include <tools/DocumentForm.h>
#include <tools/Finding.h>
#include <tools/XmlTree.h>

/// In the order of the document. The document is gone through as the library reads it, so that there is an
/// error exactly when the library refuses the document; but where the library stops, this goes on. Nothing is
/// said to be missing from a document that breaks off, and one without a root has no problems.
[[nodiscard]] Findings findProblems(const XmlTree &document, const ObjectForm &form);

#endif
