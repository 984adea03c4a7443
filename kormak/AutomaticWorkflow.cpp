#include "kormak/AutomaticWorkflow.h"

#include <kormak/Vocabularies_p.h>
#include <objectbase/Constants_p.h>
#include <objectbase/Debug_p.h>
#include <objectbase/DocumentRows_p.h>
#include <objectbase/DocumentXml_p.h>
#include <objectbase/Messages_p.h>

#include <algorithm>

namespace KORMAK {

using namespace TESSEL;

namespace {

[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;

constexpr QStringView ObjectName = u"AutomaticWorkflow";

constexpr VocabularyRow<AutomaticWorkflow::WorkflowMode> ModeRows[] = {
    {AutomaticWorkflow::ManualMode, u"ManualMode"},
    {AutomaticWorkflow::AutomaticMode, u"AutomaticMode"},
};
constexpr Vocabulary Modes{ModeRows, u"undefined"};

constexpr VocabularyRow<AutomaticWorkflow::SearchStrategy> StrategyRows[] = {
    {AutomaticWorkflow::LowestIdFirst, u"LowestIdFirst"},
    {AutomaticWorkflow::HighestIdFirst, u"HighestIdFirst"},
    {AutomaticWorkflow::SmallestBandwidthFirst, u"SmallestBandwidthFirst"},
    {AutomaticWorkflow::LowestLevelFirst, u"LowestLevelFirst"},
    {AutomaticWorkflow::HighestLevelFirst, u"HighestLevelFirst"},
    {AutomaticWorkflow::LatestActiveFirst, u"LatestActiveFirst"},
    {AutomaticWorkflow::ShortestSignalsFirst, u"ShortestSignalsFirst"},
};
constexpr Vocabulary Strategies{StrategyRows, u"undefined"};

constexpr unsigned int MostClassifiers = 23;
constexpr unsigned int LongestClassificationTime = 999;
constexpr unsigned int MostClassificationResults = 10;

constexpr bool isFromOneTo(unsigned int most, unsigned int value)
{
    return value >= 1 && value <= most;
}

bool haveSameCoordinates(const Area &a, const Area &b)
{
    // Not the operator of the list, which takes lists that share their data for equal even when they hold a
    // NaN.
    return std::equal(a.GetCoordinate().begin(), a.GetCoordinate().end(), b.GetCoordinate().begin(),
                      b.GetCoordinate().end());
}

} // namespace

NameTable workflowModes()
{
    return Modes.table();
}

NameTable searchStrategies()
{
    return Strategies.table();
}

struct AutomaticWorkflow::Xml {
    using Workflow = AutomaticWorkflow;

    static bool isAutomatic(const Workflow &workflow) { return workflow.workflowMode == AutomaticMode; }
    static bool hasMode(const Workflow &workflow) { return Modes.isValid(workflow.workflowMode); }
    static bool hasClassifiers(const Workflow &workflow)
    {
        return workflow.IsValidNumberClassifers(workflow.numberClassifiers);
    }
    static bool hasTime(const Workflow &workflow)
    {
        return workflow.IsValidClassificationTime(workflow.classificationTime);
    }
    static bool hasResults(const Workflow &workflow)
    {
        return workflow.IsValidClassificationResults(workflow.classificationResults);
    }
    static bool hasStrategy(const Workflow &workflow) { return Strategies.isValid(workflow.searchStrategy); }

    static constexpr Row attributes[] = {
        Rows::attribute<&Workflow::version>(TagVersion),
        Rows::namedElement<&Workflow::workflowMode, workflowModes>(u"Mode").onlyWritten(),
    };
    static constexpr Row elements[] = {
        Rows::namedElement<&Workflow::workflowMode, workflowModes, &Workflow::SetWorkflowMode>(u"Mode")
            .onlyRead()
            .required<hasMode>(u"WorkflowMode"),
        Rows::checkedElement<&Workflow::numberClassifiers, &Workflow::SetNumberClassifiers>(u"Classifiers")
            .from(1, MostClassifiers)
            .refusedAs(u"NumberClassifiers")
            .writtenIf<isAutomatic>()
            .needed<hasClassifiers>()
            .requiredIf<isAutomatic>(),
        Rows::checkedElement<&Workflow::classificationTime, &Workflow::SetClassificationTime>(
            u"ClassificationTime")
            .from(1, LongestClassificationTime)
            .refusedAs(u"ClassificationTime")
            .writtenIf<isAutomatic>()
            .needed<hasTime>()
            .requiredIf<isAutomatic>(),
        Rows::checkedElement<&Workflow::classificationResults, &Workflow::SetClassificationResults>(
            u"ClassificationResult")
            .from(1, MostClassificationResults)
            .refusedAs(u"ClassificationResults")
            .writtenIf<isAutomatic>()
            .needed<hasResults>()
            .requiredIf<isAutomatic>(),
        Rows::checkedNamedElement<&Workflow::searchStrategy, searchStrategies, &Workflow::SetSearchStrategy>(
            u"SearchStrategy")
            .refusedAs(u"SearchStrategy")
            .writtenIf<isAutomatic>()
            .needed<hasStrategy>()
            .requiredIf<isAutomatic>(),
        Rows::element<&Workflow::hfBitstreamClassification, &Workflow::SetHFBitstreamClassification>(
            u"BitstreamClassification")
            .writtenIf<isAutomatic>(),
        Rows::ownedElement<&Workflow::area>(u"Area").writtenIf<isAutomatic>(),
    };
    static constexpr ObjectTable table{ObjectName, attributes, elements};
};

const ObjectTable &AutomaticWorkflow::table()
{
    return Xml::table;
}

AutomaticWorkflow::AutomaticWorkflow()
{
    SetObjectName(shared([] { return ObjectName.toString(); }));
    AutomaticWorkflow::Reset();
}

AutomaticWorkflow::AutomaticWorkflow(const AutomaticWorkflow &other) = default;

AutomaticWorkflow &AutomaticWorkflow::operator=(const AutomaticWorkflow &other) = default;

AutomaticWorkflow::~AutomaticWorkflow() = default;

void AutomaticWorkflow::SetWorkflowMode(WorkflowMode value)
{
    storeValid(*this, workflowMode, value, IsValidWorkflowMode(value), u"WorkflowMode");
}

void AutomaticWorkflow::SetNumberClassifiers(unsigned int value)
{
    storeValid(*this, numberClassifiers, value, IsValidNumberClassifers(value), u"NumberClassifiers");
}

void AutomaticWorkflow::SetClassificationTime(unsigned int value)
{
    storeValid(*this, classificationTime, value, IsValidClassificationTime(value), u"ClassificationTime");
}

void AutomaticWorkflow::SetClassificationResults(unsigned int value)
{
    storeValid(*this, classificationResults, value, IsValidClassificationResults(value),
               u"ClassificationResults");
}

void AutomaticWorkflow::SetSearchStrategy(SearchStrategy value)
{
    storeValid(*this, searchStrategy, value, IsValidSearchStrategy(value), u"SearchStrategy");
}

void AutomaticWorkflow::SetHFBitstreamClassification(bool on)
{
    hfBitstreamClassification = on;
}

QString AutomaticWorkflow::WorkflowModeToName(WorkflowMode value)
{
    return Modes.nameOf(value);
}

AutomaticWorkflow::WorkflowMode AutomaticWorkflow::NameToWorkflowMode(const QString &name)
{
    return Modes.valueOf(name);
}

AutomaticWorkflow::WorkflowMode AutomaticWorkflow::GetInvalidWorkflow()
{
    return Modes.invalid();
}

QString AutomaticWorkflow::SearchStrategyToName(SearchStrategy value)
{
    return Strategies.nameOf(value);
}

AutomaticWorkflow::SearchStrategy AutomaticWorkflow::NameToSearchStrategy(const QString &name)
{
    return Strategies.valueOf(name);
}

AutomaticWorkflow::SearchStrategy AutomaticWorkflow::GetInvalidSearchStrategy()
{
    return Strategies.invalid();
}

bool AutomaticWorkflow::IsValidWorkflowMode(WorkflowMode value) const
{
    return Modes.isValid(value);
}

bool AutomaticWorkflow::IsValidSearchStrategy(SearchStrategy value) const
{
    return Strategies.isValid(value);
}

bool AutomaticWorkflow::IsValidNumberClassifers(unsigned int value) const
{
    return isFromOneTo(MostClassifiers, value);
}

bool AutomaticWorkflow::IsValidClassificationTime(unsigned int value) const
{
    return isFromOneTo(LongestClassificationTime, value);
}

bool AutomaticWorkflow::IsValidClassificationResults(unsigned int value) const
{
    return isFromOneTo(MostClassificationResults, value);
}

bool AutomaticWorkflow::operator==(const AutomaticWorkflow &other) const
{
    return workflowMode == other.workflowMode && numberClassifiers == other.numberClassifiers
        && classificationTime == other.classificationTime
        && classificationResults == other.classificationResults && area.GetName() == other.area.GetName()
        && searchStrategy == other.searchStrategy
        && hfBitstreamClassification == other.hfBitstreamClassification
        && haveSameCoordinates(area, other.area);
}

bool AutomaticWorkflow::HasData() const
{
    return isComplete<Xml>(this);
}

bool AutomaticWorkflow::AnyData() const
{
    return IsValidWorkflowMode(workflowMode) || IsValidNumberClassifers(numberClassifiers)
        || IsValidClassificationTime(classificationTime)
        || IsValidClassificationResults(classificationResults) || IsValidSearchStrategy(searchStrategy);
}

void AutomaticWorkflow::Reset()
{
    workflowMode = GetInvalidWorkflow();
    numberClassifiers = 1;
    classificationTime = 40;
    classificationResults = 3;
    searchStrategy = GetInvalidSearchStrategy();
    hfBitstreamClassification = false;
    area.Reset();
    version = defaultVersion();
}

void AutomaticWorkflow::Check() const
{
    if (HasData() || workflowMode == AutomaticMode)
        return;
    if (workflowMode == GetInvalidWorkflow())
        fail(Messages::pleaseSet(GetObjectName(), u"WorkflowMode"));
    area.Check();
    if (!IsValidNumberClassifers(numberClassifiers))
        fail(Messages::pleaseSet(GetObjectName(), u"NumberClassifers"));
    if (!IsValidClassificationTime(classificationTime))
        fail(Messages::pleaseSet(GetObjectName(), u"ClassificationTime"));
    if (!IsValidClassificationResults(classificationResults))
        fail(Messages::pleaseSet(GetObjectName(), u"ClassificationResults"));
    if (searchStrategy == GetInvalidSearchStrategy())
        fail(Messages::pleaseSet(GetObjectName(), u"SearchStrategy"));
}

const QString &AutomaticWorkflow::GetVersion() const
{
    return version;
}

void AutomaticWorkflow::GetXml(QXmlStreamWriter &writer) const
{
    if (HasData())
        writeElement(Xml::table, this, writer, GetObjectName());
}

void AutomaticWorkflow::ProcessXml(QXmlStreamReader &reader)
{
    readAttributes(Xml::table, this, reader);
    ITesselObject::ProcessXml(reader);
}

QString AutomaticWorkflow::GetXmlString() const
{
    return ITesselObject::GetXmlString();
}

void AutomaticWorkflow::ProcessXmlStartElement(QXmlStreamReader &reader)
{
    readChild(Xml::table, this, *this, reader);
}

QDebug operator<<(QDebug debug, AutomaticWorkflow::WorkflowMode value)
{
    return TESSEL::printName(debug, Modes.table(), value);
}

QDebug operator<<(QDebug debug, AutomaticWorkflow::SearchStrategy value)
{
    return TESSEL::printName(debug, Strategies.table(), value);
}

QDebug operator<<(QDebug debug, const AutomaticWorkflow &object)
{
    return TESSEL::printDocument(debug, object);
}

} // namespace KORMAK
