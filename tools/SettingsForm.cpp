#include <kormak/AutomaticWorkflow.h>
#include <tools/DocumentForm.h>
#include <tools/NameLists.h>
#include <tools/XmlTree.h>

using namespace KORMAK;

namespace {

using namespace DocumentForms;
using Kind = TextForm::Kind;

constexpr QStringView ModeTag = u"Mode";
constexpr QStringView Refused = {};

constexpr ElementForm CoordinateElements[] = {
    text(u"Latitude", Kind::Double).expected(),
    text(u"Longitude", Kind::Double).expected(),
};
constexpr QStringView AreaName = u"Area"; // also in messages about its coordinates
constexpr ObjectForm CoordinateObject{AreaName, {}, CoordinateElements};

constexpr ElementForm AreaElements[] = {
    text(u"Name").askedFor(u"Name"),
    list(u"Coordinate", CoordinateObject),
};
constexpr ObjectForm AreaObject{AreaName, VersionOnly, AreaElements};

bool isAutomatic(const ObjectTexts &workflow)
{
    return AutomaticWorkflow::NameToWorkflowMode(workflow.text(ModeTag).value_or(QString()))
        == AutomaticWorkflow::AutomaticMode;
}

constexpr AttributeForm WorkflowAttributes[] = {
    {u"Version"},
    {ModeTag, Kind::Any, {}, u"is not read: the mode is read from an element \"Mode\""},
};
constexpr ElementForm WorkflowElements[] = {
    text(ModeTag, WorkflowModes).askedFor(u"WorkflowMode"),
    text(u"Classifiers", TextForm::upTo(23)).elseRefusedAs(u"NumberClassifiers"),
    text(u"ClassificationTime", TextForm::upTo(999)).elseRefusedAs(u"ClassificationTime"),
    text(u"ClassificationResult", TextForm::upTo(10)).elseRefusedAs(u"ClassificationResults"),
    text(u"SearchStrategy", {SearchStrategies, Refused})
        .expected(isAutomatic)
        .elseRefusedAs(u"SearchStrategy"),
    text(u"BitstreamClassification", Kind::Boolean),
    object(AreaObject),
};
constexpr ObjectForm WorkflowObject{u"AutomaticWorkflow", WorkflowAttributes, WorkflowElements};

constexpr ElementForm WorkflowRoot[] = {object(WorkflowObject).askedFor({})};
constexpr ObjectForm WorkflowDocument{{}, {}, WorkflowRoot};

constexpr QStringView GenerationName = u"ActivityGeneration";
constexpr QStringView ModeField = u"ActivityGenerationMode";
constexpr QStringView OldVersion = u"1.0";
constexpr QStringView Obsolete = u"is passed over: a setting of older systems, which is no more";

constexpr AttributeForm GenerationAttributes[] = {
    {u"Version"},
    {u"Autostart", Kind::Boolean},
};
constexpr ElementForm GenerationElements[] = {
    text(ModeTag, GenerationModes).askedFor(ModeField),
    text(u"EnergyChannel", EnergyChannels),
    text(u"LevelMinBurstDuration", Kind::Float),
    text(u"LevelMaxBreakDuration", Kind::Float),
    text(u"DDemActiveCriteria", ActiveCriteria),
    text(u"DDemMinBurstDuration", Kind::Float),
    text(u"DDemMaxBreakDuration", Kind::Float),
    text(u"DDemMorseQualityThreshold", Kind::Integer),
    text(u"ClassIntermScore", Kind::Integer),
    text(u"ClassFinalScore", Kind::Integer),
    text(u"ClassStartScore", Kind::Integer),
    text(u"ClassStopScore", Kind::Integer),
    text(u"ClassMinConfidence", Kind::Integer),
    text(u"DetConvMinBurstDuration", Kind::Float),
    text(u"DbWriteEnergy", Kind::Boolean),
    ignored(u"DbWriteLevel", Obsolete),
    ignored(u"DbWriteDc", Obsolete),
    text(u"DbWriteDDem", DatabaseWriteModes),
    text(u"DbWriteClass", DatabaseWriteModes),
    text(u"CutAtLocations", Kind::Boolean),
    text(u"SessionCloseTime", Kind::Float),
    text(u"RestartAttachmentsOnSessionClose", Kind::Boolean),
};
constexpr bool RefusesOthers = false;
constexpr ObjectForm GenerationObject{
    GenerationName, GenerationAttributes, GenerationElements, {}, RefusesOthers};

constexpr ElementForm GenerationRoot[] = {object(GenerationObject).askedFor({})};
constexpr ObjectForm GenerationDocument{{}, {}, GenerationRoot};

/// The older form: the text of the root is the mode.
constexpr ElementForm oldRoot()
{
    ElementForm row = text(GenerationName, GenerationModes).askedFor(ModeField);
    row.attributes = GenerationAttributes;
    return row;
}
constexpr ElementForm OldGenerationRoot[] = {oldRoot()};
constexpr ObjectForm OldGenerationDocument{GenerationName, {}, OldGenerationRoot};

} // namespace

const ObjectForm &workflowForm(const XmlTree & /*document*/)
{
    return WorkflowDocument;
}

const ObjectForm &generationForm(const XmlTree &document)
{
    const auto version = document.attribute(XmlTree::Root, u"Version");
    return version && *version == OldVersion ? OldGenerationDocument : GenerationDocument;
}
