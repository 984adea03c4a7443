// What UnloadTest loads: it links the libraries, so that they go when it goes.
#include <kormak/ActivityGenerationData.h>
#include <kormak/AutomaticWorkflow.h>
#include <kormak/GenericReceiver.h>
#include <kormak/Job.h>
#include <kormak/SubjobType.h>
#include <objectbase/Area.h>
#include <objectbase/Converters.h>
#include <objectbase/Logger.h>
#include <objectbase/TesselException.h>

#include <QDateTime>
#include <QStringList>
#include <QXmlStreamReader>

using namespace KORMAK;
using namespace TESSEL;

namespace {

template <class Call>
QString messageOf(Call call)
{
    try {
        call();
    } catch (const TesselException &exception) {
        return exception.GetErrorMessage();
    }
    return {};
}

/// The texts that every object has.
template <class Document>
void addTextsOf(QStringList &texts, const Document &document)
{
    texts << document.GetObjectName() << document.GetVersion() << messageOf([&] { document.Check(); });
}

QString errorOf(ITesselObject &object, const QString &text)
{
    QXmlStreamReader reader(text);
    reader.readNextStartElement();
    (void)messageOf([&] { object.ProcessXml(reader); });
    return reader.errorString();
}

} // namespace

extern "C" Q_DECL_EXPORT void collectTexts(QStringList *texts)
{
    for (int value = -1; value <= 50; ++value) {
        *texts << JobType::JobTypeToName(JobType::JobTypeValue(value))
               << SubjobType::SubjobTypeToName(SubjobType::SubjobTypeValue(value))
               << ConnectableResourceType::ConnectableResourceTypeToName(
                      ConnectableResourceType::ConnectableResourceTypeValue(value))
               << ResourceType::ResourceTypeToName(ResourceType::ResourceTypeValue(value))
               << ObjectTypeToName(ObjectTypes(value))
               << AntennaData::PolarizationToName(AntennaData::Polarization(value))
               << AutomaticWorkflow::WorkflowModeToName(AutomaticWorkflow::WorkflowMode(value))
               << AutomaticWorkflow::SearchStrategyToName(AutomaticWorkflow::SearchStrategy(value))
               << ParameterTypeToName(ParameterType(value)) << Logger::LevelToName(Logger::Level(value));
    }
    ActivityGenerationData data;
    *texts << data.ActivityGenerationModeToName(ActivityGenerationData::AGED)
           << data.EnergyActivityGenerationChannelToName(ActivityGenerationData::DDem)
           << data.ActivityGenerationDataBaseWriteModeToName(ActivityGenerationData::Always)
           << data.DDemActiveCriteriaToName(ActivityGenerationData::SignalDetection)
           << data.GetActivityGenerationModeList() << data.GetActivityGenerationDataBaseWriteModeList()
           << data.GetEnergyActivityGenerationChannelList(false) << data.GetDDemActiveCriteriaList(true);

    Parameter parameter;
    *texts << parameter.ValueTypeToName(Parameter::ValueFrequency)
           << parameter.ControlTypeToName(Parameter::VCTimeEdit)
           << messageOf([&] { (void)parameter.NameToValueType(QStringLiteral("no")); });
    addTextsOf(*texts, parameter);
    addTextsOf(*texts, data);
    addTextsOf(*texts, Job());
    addTextsOf(*texts, JobHeader());
    addTextsOf(*texts, AutomaticWorkflow());
    addTextsOf(*texts, GenericReceiver());
    addTextsOf(*texts, Area());
    addTextsOf(*texts, AntennaData());

    GenericReceiver receiver;
    *texts << messageOf([&] { (void)receiver.GetParameter(QStringLiteral("x")); })
           << messageOf([&] { receiver.ImportXML(QStringLiteral("/nowhere/at/all")); })
           << errorOf(receiver,
                      QStringLiteral("<GenericReceiver><Parameter><ToolTip><b/></ToolTip></Parameter>"
                                     "</GenericReceiver>"));
    const QString document = QStringLiteral(
        "<GenericReceiver Version=\"1.0\"><Parameter Version=\"1.0\" UniqueName=\"a\">"
        "<RepresentationName>b</RepresentationName><ValueType>ValueSelection</ValueType>"
        "<ParameterType>Enum</ParameterType><Enum><EnumValue Key=\"1\" Name=\"c\"/></Enum></Parameter>"
        "</GenericReceiver>");
    if (receiver.SetXmlString(document, true)) {
        const Parameter read = receiver.GetParameter(QStringLiteral("a"));
        *texts << receiver.GetXmlString() << receiver.GetVersion() << read.GetObjectName()
               << read.GetRepresenationName() << read.GetEnumHandler().GetEnumList().first().Default
               << read.GetEnumHandler().GetUniqueParameterName();
    }
    JobHeader header;
    header.SetCreation(QDateTime({2026, 3, 14}, {6, 30}, Qt::UTC));
    *texts << Converters::ToString(header.GetCreation())
           << messageOf([&] { header.SetJobType(JobType::JobTypeValue(99)); });
}
