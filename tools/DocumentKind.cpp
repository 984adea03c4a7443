#include "tools/DocumentKind.h"

#include <kormak/ActivityGenerationData.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/GenericReceiver.h>
#include <kormak/Job.h>
#include <tools/DocumentFields.h>
#include <tools/DocumentForm.h>
#include <tools/Obstacles.h>
#include <tools/ParameterElements.h>
#include <tools/ReceiverLint.h>

#include <algorithm>
#include <iterator>

namespace {

using TESSEL::ITesselObject;

template <class Document>
const Document &as(const ITesselObject &document)
{
    return static_cast<const Document &>(document);
}

template <class Document>
constexpr DocumentKind kind(QStringView rootElement, const FieldTable &fields,
                            const ObjectForm &(*form)(const XmlTree &))
{
    return {
        rootElement,
        []() -> std::unique_ptr<ITesselObject> { return std::make_unique<Document>(); },
        &fields,
        [](const ITesselObject &document) -> const void * { return &as<Document>(document); },
        [](const ITesselObject &a, const ITesselObject &b) { return as<Document>(a) == as<Document>(b); },
        [](const ITesselObject &document) { return missingBeyondCheck(as<Document>(document)); },
        form,
    };
}

constexpr DocumentKind workflowKind()
{
    DocumentKind row =
        kind<KORMAK::AutomaticWorkflow>(u"AutomaticWorkflow", AutomaticWorkflowFields, workflowForm);
    row.obstacles = [](const ITesselObject &document, const XmlTree &tree) {
        return modeNotReadBack(as<KORMAK::AutomaticWorkflow>(document), tree);
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
constexpr DocumentKind parameterKind(QStringView rootElement, const FieldTable &fields,
                                     const ObjectForm &(*form)(const XmlTree &))
{
    DocumentKind row = kind<Document>(rootElement, fields, form);
    row.lint = [](const ITesselObject &document, const XmlTree &tree) {
        return lint(parameterElements(as<Document>(document), tree));
    };
    row.obstacles = [](const ITesselObject &document, const XmlTree &tree) {
        return incompleteParameters(parameterElements(as<Document>(document), tree));
    };
    row.defaults = ParameterDefaults;
    return row;
}

constexpr DocumentKind Kinds[] = {
    kind<KORMAK::Job>(u"Job", JobFields, jobForm),
    workflowKind(),
    kind<KORMAK::ActivityGenerationData>(u"ActivityGeneration", ActivityGenerationFields, generationForm),
    parameterKind<KORMAK::GenericReceiver>(u"GenericReceiver", GenericReceiverFields, receiverForm),
    parameterKind<KORMAK::Parameter>(u"Parameter", ParameterFields, parameterForm),
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
