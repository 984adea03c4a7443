#include <kormak/ActivityGenerationData.h>
#include <kormak/AutomaticWorkflow.h>
#include <tools/DocumentFields.h>

using namespace KORMAK;
using namespace TESSEL;

namespace {

std::vector<Field> fieldsOf(const Area &area)
{
    std::vector<Field> fields{
        {QStringLiteral("Version"), textValue(area.GetVersion())},
        {QStringLiteral("Name"), textValue(area.GetName())},
    };
    for (const Coordinate &coordinate : area.GetCoordinate()) {
        fields.push_back({QStringLiteral("Coordinate"),
                          QStringLiteral("latitude %1, longitude %2")
                              .arg(*number(coordinate.GetLatitude()), *number(coordinate.GetLongitude()))});
    }
    return fields;
}

} // namespace

std::vector<Field> fieldsOf(const AutomaticWorkflow &workflow)
{
    std::vector<Field> fields{
        {QStringLiteral("Version"), textValue(workflow.GetVersion())},
        {QStringLiteral("Workflow mode"),
         nameOf(workflow.GetWorkflowMode(), AutomaticWorkflow::IsValidWorkflowMode,
                AutomaticWorkflow::WorkflowModeToName)},
        {QStringLiteral("Classifiers"), number(workflow.GetNumberClassifiers())},
        {QStringLiteral("Classification time"), number(workflow.GetClassificationTime())},
        {QStringLiteral("Classification results"), number(workflow.GetClassificationResults())},
        {QStringLiteral("Search strategy"),
         nameOf(workflow.GetSearchStrategy(), AutomaticWorkflow::IsValidSearchStrategy,
                AutomaticWorkflow::SearchStrategyToName)},
        {QStringLiteral("HF bitstream classification"), yesOrNo(workflow.GetHFBitstreamClassification())},
    };
    if (workflow.GetArea().AnyData())
        fields.push_back(group(QStringLiteral("Area"), fieldsOf(workflow.GetArea())));
    return fields;
}

std::vector<Field> fieldsOf(const ActivityGenerationData &data)
{
    return {
        {QStringLiteral("Version"), textValue(data.GetVersion())},
        {QStringLiteral("Generation mode"),
         textValue(data.ActivityGenerationModeToName(data.GetActivtyGenerationMode()))},
        {QStringLiteral("Starts by itself"), yesOrNo(data.GetAutoStartOn())},
        {QStringLiteral("Energy channel"),
         textValue(data.EnergyActivityGenerationChannelToName(data.GetEnergyActivityGenerationChannel()))},
        {QStringLiteral("Level: minimum burst duration"), number(data.GetLevelMinBurstDuration())},
        {QStringLiteral("Level: maximum break duration"), number(data.GetLevelMaxBreakDuration())},
        {QStringLiteral("Demodulator: active criteria"),
         textValue(data.DDemActiveCriteriaToName(data.GetDDemActiveCriteria()))},
        {QStringLiteral("Demodulator: minimum burst duration"), number(data.GetDDemMinBurstDuration())},
        {QStringLiteral("Demodulator: maximum break duration"), number(data.GetDDemMaxBreakDuration())},
        {QStringLiteral("Demodulator: Morse quality threshold"), number(data.GetDDemMorseQualityThreshold())},
        {QStringLiteral("Classifier: intermediate score"), number(data.GetClassIntermScore())},
        {QStringLiteral("Classifier: final score"), number(data.GetClassFinalScore())},
        {QStringLiteral("Classifier: start score"), number(data.GetClassStartScore())},
        {QStringLiteral("Classifier: stop score"), number(data.GetClassStopScore())},
        {QStringLiteral("Classifier: minimum confidence"), number(data.GetClassMinConfidence())},
        {QStringLiteral("Detection converter: minimum burst duration"),
         number(data.GetDetConvMinBurstDuration())},
        {QStringLiteral("Database: energy detections"), yesOrNo(data.GetDbWriteEnergy())},
        {QStringLiteral("Database: demodulator results"),
         textValue(data.ActivityGenerationDataBaseWriteModeToName(data.GetDbWriteDDem()))},
        {QStringLiteral("Database: classifier results"),
         textValue(data.ActivityGenerationDataBaseWriteModeToName(data.GetDbWriteClass()))},
        {QStringLiteral("Cut at locations"), yesOrNo(data.GetCutAtLocations())},
        {QStringLiteral("Session close time"), number(data.GetSessionCloseTime())},
        {QStringLiteral("Restart attachments on session close"),
         yesOrNo(data.GetRestartAttachmentsOnSessionClose())},
    };
}
