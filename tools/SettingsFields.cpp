#include <kormak/ActivityGenerationData.h>
#include <kormak/AutomaticWorkflow.h>
#include <tools/DocumentFields.h>
#include <tools/FieldRows.h>
#include <tools/FieldText.h>
#include <tools/NameLists.h>

using namespace KORMAK;
using namespace TESSEL;

namespace {

using CoordinateRow = FieldRows<Coordinate>;

constexpr FieldRow CoordinateRows[] = {
    CoordinateRow::value<&Coordinate::GetLatitude, &Coordinate::SetLatitude>(u"Latitude", u"Latitude")
        .in(u"degrees"),
    CoordinateRow::value<&Coordinate::GetLongitude, &Coordinate::SetLongitude>(u"Longitude", u"Longitude")
        .in(u"degrees"),
};

QString coordinateText(const void *object)
{
    const auto &coordinate = *static_cast<const Coordinate *>(object);
    return QStringLiteral("latitude %1, longitude %2")
        .arg(numberText(coordinate.GetLatitude()), numberText(coordinate.GetLongitude()));
}

constexpr FieldTable CoordinateFields{CoordinateRows, coordinateText};

const QVector<Coordinate> &coordinatesOf(const Area &area)
{
    return area.GetCoordinate();
}

QVector<Coordinate> &coordinatesIn(Area &area)
{
    return area.GetCoordinate();
}

void addCoordinate(Area &area)
{
    area.AddCoordinate(Coordinate());
}

using AreaRow = FieldRows<Area>;

constexpr FieldParts Coordinates =
    AreaRow::list<coordinatesOf, coordinatesIn, addCoordinate>(CoordinateFields);

constexpr FieldRow AreaRows[] = {
    AreaRow::value<&Area::GetVersion>(u"Version", u"Version"),
    AreaRow::value<&Area::GetName, &Area::SetName>(u"Name", u"Name"),
    AreaRow::parts(u"Coordinate", u"Coordinate", Coordinates),
};
constexpr FieldTable AreaFields{AreaRows};

const Area &areaOf(const AutomaticWorkflow &workflow)
{
    return workflow.GetArea();
}

void changeArea(AutomaticWorkflow &workflow, const FieldChange &work)
{
    work(&workflow.GetArea());
}

bool hasArea(const AutomaticWorkflow &workflow)
{
    return workflow.GetArea().AnyData();
}

constexpr qint64 MostClassifiers = 23;
constexpr qint64 LongestClassificationTime = 999;
constexpr qint64 MostClassificationResults = 10;

using WF = AutomaticWorkflow;
using WorkflowRow = FieldRows<WF>;

constexpr FieldParts AreaPart = WorkflowRow::one<areaOf, changeArea>(AreaFields);

constexpr FieldRow WorkflowRows[] = {
    WorkflowRow::value<&WF::GetVersion>(u"Version", u"Version"),
    WorkflowRow::name<&WF::GetWorkflowMode, &WF::SetWorkflowMode>(u"Mode", u"Workflow mode", WorkflowModes),
    WorkflowRow::value<&WF::GetNumberClassifiers, &WF::SetNumberClassifiers>(u"Classifiers", u"Classifiers")
        .from(1, MostClassifiers),
    WorkflowRow::value<&WF::GetClassificationTime, &WF::SetClassificationTime>(u"ClassificationTime",
                                                                               u"Classification time")
        .from(1, LongestClassificationTime),
    WorkflowRow::value<&WF::GetClassificationResults, &WF::SetClassificationResults>(
        u"ClassificationResult", u"Classification results")
        .from(1, MostClassificationResults),
    WorkflowRow::name<&WF::GetSearchStrategy, &WF::SetSearchStrategy>(u"SearchStrategy", u"Search strategy",
                                                                      SearchStrategies),
    WorkflowRow::value<&WF::GetHFBitstreamClassification, &WF::SetHFBitstreamClassification>(
        u"BitstreamClassification", u"HF bitstream classification"),
    WorkflowRow::parts(u"Area", u"Area", AreaPart).shownIf<hasArea>(),
};

using AG = ActivityGenerationData;
using GenerationRow = FieldRows<AG>;

constexpr FieldRow GenerationRows[] = {
    GenerationRow::value<&AG::GetVersion>(u"Version", u"Version"),
    GenerationRow::name<&AG::GetActivtyGenerationMode, &AG::SetActivtyGenerationMode>(
        u"Mode", u"Generation mode", GenerationModes),
    GenerationRow::value<&AG::GetAutoStartOn, &AG::SetAutoStartOn>(u"Autostart", u"Starts by itself"),
    GenerationRow::name<&AG::GetEnergyActivityGenerationChannel, &AG::SetEnergyActivityGenerationChannel>(
        u"EnergyChannel", u"Energy channel", EnergyChannels),
    GenerationRow::value<&AG::GetLevelMinBurstDuration, &AG::SetLevelMinBurstDuration>(
        u"LevelMinBurstDuration", u"Level: minimum burst duration"),
    GenerationRow::value<&AG::GetLevelMaxBreakDuration, &AG::SetLevelMaxBreakDuration>(
        u"LevelMaxBreakDuration", u"Level: maximum break duration"),
    GenerationRow::name<&AG::GetDDemActiveCriteria, &AG::SetDDemActiveCriteria>(
        u"DDemActiveCriteria", u"Demodulator: active criteria", ActiveCriteria),
    GenerationRow::value<&AG::GetDDemMinBurstDuration, &AG::SetDDemMinBurstDuration>(
        u"DDemMinBurstDuration", u"Demodulator: minimum burst duration"),
    GenerationRow::value<&AG::GetDDemMaxBreakDuration, &AG::SetDDemMaxBreakDuration>(
        u"DDemMaxBreakDuration", u"Demodulator: maximum break duration"),
    GenerationRow::value<&AG::GetDDemMorseQualityThreshold, &AG::SetDDemMorseQualityThreshold>(
        u"DDemMorseQualityThreshold", u"Demodulator: Morse quality threshold"),
    GenerationRow::value<&AG::GetClassIntermScore, &AG::SetClassIntermScore>(
        u"ClassIntermScore", u"Classifier: intermediate score"),
    GenerationRow::value<&AG::GetClassFinalScore, &AG::SetClassFinalScore>(u"ClassFinalScore",
                                                                           u"Classifier: final score"),
    GenerationRow::value<&AG::GetClassStartScore, &AG::SetClassStartScore>(u"ClassStartScore",
                                                                           u"Classifier: start score"),
    GenerationRow::value<&AG::GetClassStopScore, &AG::SetClassStopScore>(u"ClassStopScore",
                                                                         u"Classifier: stop score"),
    GenerationRow::value<&AG::GetClassMinConfidence, &AG::SetClassMinConfidence>(
        u"ClassMinConfidence", u"Classifier: minimum confidence"),
    GenerationRow::value<&AG::GetDetConvMinBurstDuration, &AG::SetDetConvMinBurstDuration>(
        u"DetConvMinBurstDuration", u"Detection converter: minimum burst duration"),
    GenerationRow::value<&AG::GetDbWriteEnergy, &AG::SetDbWriteEnergy>(u"DbWriteEnergy",
                                                                       u"Database: energy detections"),
    GenerationRow::name<&AG::GetDbWriteDDem, &AG::SetDbWriteDDem>(
        u"DbWriteDDem", u"Database: demodulator results", DatabaseWriteModes),
    GenerationRow::name<&AG::GetDbWriteClass, &AG::SetDbWriteClass>(
        u"DbWriteClass", u"Database: classifier results", DatabaseWriteModes),
    GenerationRow::value<&AG::GetCutAtLocations, &AG::SetCutAtLocations>(u"CutAtLocations",
                                                                         u"Cut at locations"),
    GenerationRow::value<&AG::GetSessionCloseTime, &AG::SetSessionCloseTime>(u"SessionCloseTime",
                                                                             u"Session close time"),
    GenerationRow::value<&AG::GetRestartAttachmentsOnSessionClose, &AG::SetRestartAttachmentsOnSessionClose>(
        u"RestartAttachmentsOnSessionClose", u"Restart attachments on session close"),
};

} // namespace

const FieldTable AutomaticWorkflowFields{WorkflowRows};
const FieldTable ActivityGenerationFields{GenerationRows};

QStringList missingBeyondCheck(const AutomaticWorkflow &workflow)
{
    QStringList missing;
    if (!workflow.IsValidSearchStrategy(workflow.GetSearchStrategy()))
        missing += QStringLiteral("AutomaticWorkflow: Please set SearchStrategy");
    return missing;
}

QStringList missingBeyondCheck(const ActivityGenerationData & /*data*/)
{
    return {}; // Check() says it all
}
