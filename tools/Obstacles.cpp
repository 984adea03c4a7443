#include "tools/Obstacles.h"

#include <kormak/AutomaticWorkflow.h>
#include <kormak/Parameter.h>
#include <objectbase/TesselException.h>

#include <algorithm>

using namespace KORMAK;

namespace {

constexpr QStringView ModeName = u"Mode";

} // namespace

std::optional<QString> complaintOf(const TESSEL::ITesselObject &object)
{
    try {
        object.Check();
    } catch (const TESSEL::TesselException &exception) {
        return exception.GetErrorMessage();
    }
    return std::nullopt;
}

std::optional<QString> whyIncomplete(const TESSEL::ITesselObject &object)
{
    if (object.HasData())
        return std::nullopt;
    return complaintOf(object).value_or(
        QStringLiteral("the library accepts it but would write nothing for it"));
}

Findings modeNotReadBack(const AutomaticWorkflow &workflow, const XmlTree &tree)
{
    const XmlTree::Index child = tree.findChild(XmlTree::Root, ModeName);
    if (child != XmlTree::None && workflow.HasData()) {
        return {{tree.offset(child),
                 QStringLiteral(
                     "the mode would be written as the attribute \"Mode\", but it is read only from an "
                     "element \"Mode\": the rewritten document would not be complete"),
                 tree.path(child)}};
    }
    if (child == XmlTree::None && tree.attribute(XmlTree::Root, ModeName)) {
        return {
            {tree.offset(XmlTree::Root),
             QStringLiteral("the mode stands in the attribute \"Mode\", but it is read only from an element "
                            "\"Mode\": the document is not complete"),
             tree.path(XmlTree::Root)}};
    }
    return {};
}

Findings incompleteParameters(const std::vector<ParameterElement> &parameters)
{
    Findings findings;
    for (const ParameterElement &element : parameters) {
        if (element.parameter.HasData())
            continue;
        const QString reason =
            complaintOf(element.parameter).value_or(QStringLiteral("its handler holds no data"));
        findings.push_back(element.finding(element.index, QStringLiteral("not complete: ") + reason));
    }
    std::sort(findings.begin(), findings.end(),
              [](const Finding &a, const Finding &b) { return a.offset < b.offset; });
    return findings;
}
