// Something to tell about a place in a document.
#ifndef KORMAK_TOOLS_FINDING_H
#define KORMAK_TOOLS_FINDING_H

#include <QString>

#include <vector>

struct Finding {
    qsizetype offset; ///< in the text of the document
    QString message;
};

using Findings = std::vector<Finding>;

#endif
