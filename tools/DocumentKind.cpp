#include "tools/DocumentKind.h"

#include <kormak/ActivityGenerationData.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/GenericReceiver.h>
#include <kormak/Job.h>
#include <tools/DocumentFields.h>
#include <tools/Obstacles.h>
#include <tools/ParameterElements.h>
#include <tools/ReceiverLint.h>

#include <algorithm>
#include <iterator>

namespace {

using TESSEL::ITesselObject;

template <class Document>
constexpr DocumentKind kind(QStringView rootElement)
{
    return {
        rootElement,
        []() -> std::unique_ptr<ITesselObject> { return std::make_unique<Document>(); },
        [](const ITesselObject &document) { return fieldsOf(static_cast<const Document &>(document)); },
    };
}

constexpr DocumentKind workflowKind()
{
    DocumentKind row = kind<KORMAK::AutomaticWorkflow>(u"AutomaticWorkflow");
    row.obstacles = [](const ITesselObject &document, const XmlTree &tree) {
        return modeNotReadBack(static_cast<const KORMAK::AutomaticWorkflow &>(document), tree);
    };
    return row;
}

constexpr XmlDefault ParameterDefaults[] = {
    {u"Multiplier", {}, u"1"},
    {u"EnumValue", u"Identifier", u""},
    {u"EnumValue", u"Default", u"false"},
};

/// A kind that is made of parameters.
template <class Document>
constexpr DocumentKind parameterKind(QStringView rootElement)
{
    DocumentKind row = kind<Document>(rootElement);
    row.lint = [](const ITesselObject &document, const XmlTree &tree) {
        return lint(parameterElements(static_cast<const Document &>(document), tree));
    };
    row.obstacles = [](const ITesselObject &document, const XmlTree &tree) {
        return incompleteParameters(parameterElements(static_cast<const Document &>(document), tree));
    };
    row.defaults = ParameterDefaults;
    return row;
}

constexpr DocumentKind Kinds[] = {
    kind<KORMAK::Job>(u"Job"),
    workflowKind(),
    kind<KORMAK::ActivityGenerationData>(u"ActivityGeneration"),
    parameterKind<KORMAK::GenericReceiver>(u"GenericReceiver"),
    parameterKind<KORMAK::Parameter>(u"Parameter"),
};

} // namespace

const DocumentKind *findDocumentKind(QStringView rootElement)
{
    const auto found = std::find_if(std::begin(Kinds), std::end(Kinds), [rootElement](const auto &candidate) {
        return candidate.rootElement == rootElement;
    });
    return found == std::end(Kinds) ? nullptr : found;
}

QStringList documentKindNames()
{
    QStringList names;
    std::transform(std::begin(Kinds), std::end(Kinds), std::back_inserter(names),
                   [](const auto &row) { return row.rootElement.toString(); });
    return names;
}
