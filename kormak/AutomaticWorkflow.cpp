#include "kormak/AutomaticWorkflow.h"

#include <objectbase/Constants_p.h>
#include <objectbase/Vocabulary_p.h>
#include <objectbase/XmlForm_p.h>

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

struct AutomaticWorkflow::Xml {
    static bool isAutomatic(const AutomaticWorkflow &workflow)
    {
        return workflow.workflowMode == AutomaticMode;
    }

    static QString modeName(const AutomaticWorkflow &workflow)
    {
        return WorkflowModeToName(workflow.workflowMode);
    }

    static void readSearchStrategy(AutomaticWorkflow &workflow, QStringView name)
    {
        workflow.SetSearchStrategy(NameToSearchStrategy(borrowed(name)));
    }
    static QString searchStrategyName(const AutomaticWorkflow &workflow)
    {
        return SearchStrategyToName(workflow.searchStrategy);
    }

    using Workflow = AutomaticWorkflow;
    static constexpr XmlAttribute<Workflow> attributes[] = {
        attribute<&Workflow::version>(TagVersion),
        {u"Mode", nullptr, modeName},
    };
    static constexpr XmlElement<Workflow> elements[] = {
        namedElement<&Workflow::workflowMode, NameToWorkflowMode, WorkflowModeToName>(u"Mode").onlyRead(),
        checkedElement<&Workflow::numberClassifiers, &Workflow::SetNumberClassifiers>(u"Classifiers")
            .when(isAutomatic),
        checkedElement<&Workflow::classificationTime, &Workflow::SetClassificationTime>(u"ClassificationTime")
            .when(isAutomatic),
        checkedElement<&Workflow::classificationResults, &Workflow::SetClassificationResults>(
            u"ClassificationResult")
            .when(isAutomatic),
        textElement<Workflow, readSearchStrategy, searchStrategyName>(u"SearchStrategy").when(isAutomatic),
        element<&Workflow::hfBitstreamClassification>(u"BitstreamClassification").when(isAutomatic),
        ownedElement<&Workflow::area>().when(isAutomatic),
    };
};

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
    return workflowMode == ManualMode
        || (workflowMode == AutomaticMode && IsValidNumberClassifers(numberClassifiers)
            && IsValidClassificationTime(classificationTime)
            && IsValidClassificationResults(classificationResults) && IsValidSearchStrategy(searchStrategy));
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
        throwPleaseSet(*this, u"WorkflowMode");
    area.Check();
    if (!IsValidNumberClassifers(numberClassifiers))
        throwPleaseSet(*this, u"NumberClassifers");
    if (!IsValidClassificationTime(classificationTime))
        throwPleaseSet(*this, u"ClassificationTime");
    if (!IsValidClassificationResults(classificationResults))
        throwPleaseSet(*this, u"ClassificationResults");
    if (searchStrategy == GetInvalidSearchStrategy())
        throwPleaseSet(*this, u"SearchStrategy");
}

const QString &AutomaticWorkflow::GetVersion() const
{
    return version;
}

void AutomaticWorkflow::GetXml(QXmlStreamWriter &writer) const
{
    writeDocument<Xml>(*this, writer);
}

void AutomaticWorkflow::ProcessXml(QXmlStreamReader &reader)
{
    readDocument<Xml>(*this, reader);
}

QString AutomaticWorkflow::GetXmlString() const
{
    return ITesselObject::GetXmlString();
}

void AutomaticWorkflow::ProcessXmlStartElement(QXmlStreamReader &reader)
{
    readChild<Xml>(*this, reader);
}

} // namespace KORMAK
