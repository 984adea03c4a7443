#include "inspection/DocumentKind_p.h"

#include <inspection/Completeness_p.h>
#include <inspection/ParameterElements_p.h>
#include <inspection/ReceiverLint_p.h>
#include <kormak/ActivityGenerationData.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/GenericReceiver.h>
#include <kormak/Job.h>

#include <algorithm>
#include <iterator>

namespace KORMAK::Inspection {

namespace {

using TESSEL::ITesselObject;

template <class Document>
const Document &as(const ITesselObject &document)
{
    return static_cast<const Document &>(document);
}

template <class Document>
constexpr DocumentKind kind(QStringView rootElement)
{
    return {
        rootElement,
        []() -> std::unique_ptr<ITesselObject> { return std::make_unique<Document>(); },
        [](const ITesselObject &object) { return dynamic_cast<const Document *>(&object) != nullptr; },
        [](const ITesselObject &document) -> std::unique_ptr<ITesselObject> {
            return std::make_unique<Document>(as<Document>(document));
        },
        TESSEL::DocumentTables::of<Document>,
        [](const ITesselObject &document) -> const void * { return &as<Document>(document); },
        [](const ITesselObject &a, const ITesselObject &b) { return as<Document>(a) == as<Document>(b); },
        [](const ITesselObject &document) { return missingBeyondCheck(as<Document>(document)); },
    };
}

constexpr DocumentKind workflowKind()
{
    DocumentKind row = kind<AutomaticWorkflow>(u"AutomaticWorkflow");
    row.blockers = [](const ITesselObject &document, const XmlTree &tree) {
        return modeNotReadBack(as<AutomaticWorkflow>(document), tree);
    };
    return row;
}

/// A kind that is made of parameters.
template <class Document>
constexpr DocumentKind parameterKind(QStringView rootElement)
{
    DocumentKind row = kind<Document>(rootElement);
    row.lint = [](const ITesselObject &document, const XmlTree &tree) {
        return lint(parameterElements(as<Document>(document), tree));
    };
    row.blockers = [](const ITesselObject &document, const XmlTree &tree) {
        return incompleteParameters(parameterElements(as<Document>(document), tree));
    };
    return row;
}

constexpr DocumentKind Kinds[] = {
    kind<Job>(u"Job"),
    workflowKind(),
    kind<ActivityGenerationData>(u"ActivityGeneration"),
    parameterKind<GenericReceiver>(u"GenericReceiver"),
    parameterKind<Parameter>(u"Parameter"),
};

void addDefaults(XmlDefaults &defaults, const TESSEL::ObjectTable &table, QStringView element)
{
    for (const TESSEL::Row &row : table.attributes) {
        if (!row.defaultText.isNull())
            defaults.push_back({element, row.name, row.defaultText});
    }
    for (const TESSEL::Row &row : table.elements) {
        if (row.part && row.part->enter)
            addDefaults(defaults, row.part->table(), row.name);
        else if (!row.defaultText.isNull())
            defaults.push_back({row.name, {}, row.defaultText});
    }
}

} // namespace

XmlDefaults DocumentKind::defaults() const
{
    XmlDefaults all;
    addDefaults(all, table(), rootElement);
    return all;
}

const DocumentKind *findDocumentKind(QStringView rootElement)
{
    const auto found = std::find_if(std::begin(Kinds), std::end(Kinds), [rootElement](const auto &candidate) {
        return candidate.rootElement == rootElement;
    });
    return found == std::end(Kinds) ? nullptr : found;
}

const DocumentKind *documentKindOf(const ITesselObject &object)
{
    const auto found = std::find_if(std::begin(Kinds), std::end(Kinds),
                                    [&object](const auto &candidate) { return candidate.isOf(object); });
    return found == std::end(Kinds) ? nullptr : found;
}

QStringList documentKindNames()
{
    QStringList names;
    std::transform(std::begin(Kinds), std::end(Kinds), std::back_inserter(names),
                   [](const auto &row) { return row.rootElement.toString(); });
    return names;
}

} // namespace KORMAK::Inspection
