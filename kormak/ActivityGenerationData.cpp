#include "kormak/ActivityGenerationData.h"

#include <kormak/Vocabularies_p.h>
#include <objectbase/Constants_p.h>
#include <objectbase/Debug_p.h>
#include <objectbase/DocumentRows_p.h>
#include <objectbase/DocumentXml_p.h>
#include <objectbase/Messages_p.h>

namespace KORMAK {

using namespace TESSEL;

namespace {

[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;

using Data = ActivityGenerationData;

constexpr QStringView ObjectName = u"ActivityGeneration";
constexpr QStringView CurrentVersion = u"2.2";
constexpr QStringView OldVersion = u"1.0";

constexpr VocabularyRow<Data::ActivityGenerationMode> ModeRows[] = {
    {Data::AGSC, u"AGSC"},
    {Data::AGMC, u"AGMC"},
    {Data::AGED, u"AGED"},
};
constexpr Vocabulary Modes{ModeRows};

constexpr VocabularyRow<Data::EnergyActivityGenerationChannel> ChannelRows[] = {
    {Data::ADem, u"ADem"},
    {Data::DDem, u"DDem"},
};
constexpr Vocabulary Channels{ChannelRows};

constexpr VocabularyRow<Data::ActivityGenerationDataBaseWriteMode> WriteModeRows[] = {
    {Data::Never, u"Never"},
    {Data::OnEnergyDetection, u"On Energy Detection"},
    {Data::Always, u"Always"},
};
constexpr Vocabulary WriteModes{WriteModeRows};

constexpr VocabularyRow<Data::DDemActiveCriteria> CriteriaRows[] = {
    {Data::SignalDetection, u"Signal Detection"},
    {Data::DemodulatorLocked, u"Demodulator Locked"},
    {Data::DemodulatorAndDecoderLocked, u"Demodulator and Decoder Locked"},
    {Data::MorseQualityOverThreshold, u"Morse Quality Over Threshold"},
};
constexpr Vocabulary Criteria{CriteriaRows};

} // namespace

NameTable generationModes()
{
    return Modes.table();
}

NameTable energyChannels()
{
    return Channels.table();
}

NameTable databaseWriteModes()
{
    return WriteModes.table();
}

NameTable activeCriteria()
{
    return Criteria.table();
}

struct ActivityGenerationData::Xml {
    static bool hasMode(const Data &data) { return Modes.isValid(data.mode); }
    static QString currentVersion(const Data & /*data*/) { return CurrentVersion.toString(); }

    static constexpr Row attributes[] = {
        Rows::attribute<&Data::version>(TagVersion).writtenBy<currentVersion>(),
        Rows::attribute<&Data::autoStartOn, &Data::SetAutoStartOn>(u"Autostart"),
    };
    static constexpr Row elements[] = {
        Rows::namedElement<&Data::mode, generationModes, &Data::SetActivtyGenerationMode>(u"Mode")
            .required<hasMode>(u"ActivityGenerationMode"),
        Rows::namedElement<&Data::energyChannel, energyChannels, &Data::SetEnergyActivityGenerationChannel>(
            u"EnergyChannel"),
        Rows::element<&Data::levelMinBurstDuration, &Data::SetLevelMinBurstDuration>(
            u"LevelMinBurstDuration"),
        Rows::element<&Data::levelMaxBreakDuration, &Data::SetLevelMaxBreakDuration>(
            u"LevelMaxBreakDuration"),
        Rows::namedElement<&Data::ddemActiveCriteria, activeCriteria, &Data::SetDDemActiveCriteria>(
            u"DDemActiveCriteria"),
        Rows::element<&Data::ddemMinBurstDuration, &Data::SetDDemMinBurstDuration>(u"DDemMinBurstDuration"),
        Rows::element<&Data::ddemMaxBreakDuration, &Data::SetDDemMaxBreakDuration>(u"DDemMaxBreakDuration"),
        Rows::element<&Data::ddemMorseQualityThreshold, &Data::SetDDemMorseQualityThreshold>(
            u"DDemMorseQualityThreshold"),
        Rows::element<&Data::classIntermScore, &Data::SetClassIntermScore>(u"ClassIntermScore"),
        Rows::element<&Data::classFinalScore, &Data::SetClassFinalScore>(u"ClassFinalScore"),
        Rows::element<&Data::classStartScore, &Data::SetClassStartScore>(u"ClassStartScore"),
        Rows::element<&Data::classStopScore, &Data::SetClassStopScore>(u"ClassStopScore"),
        Rows::element<&Data::classMinConfidence, &Data::SetClassMinConfidence>(u"ClassMinConfidence"),
        Rows::element<&Data::detConvMinBurstDuration, &Data::SetDetConvMinBurstDuration>(
            u"DetConvMinBurstDuration"),
        Rows::element<&Data::dbWriteEnergy, &Data::SetDbWriteEnergy>(u"DbWriteEnergy"),
        Rows::ignoredElement(
            u"DbWriteLevel"), // in documents of older systems; there is no such setting any more
        Rows::ignoredElement(u"DbWriteDc"),
        Rows::namedElement<&Data::dbWriteDDem, databaseWriteModes, &Data::SetDbWriteDDem>(u"DbWriteDDem"),
        Rows::namedElement<&Data::dbWriteClass, databaseWriteModes, &Data::SetDbWriteClass>(u"DbWriteClass"),
        Rows::element<&Data::cutAtLocations, &Data::SetCutAtLocations>(u"CutAtLocations"),
        Rows::element<&Data::sessionCloseTime, &Data::SetSessionCloseTime>(u"SessionCloseTime"),
        Rows::element<&Data::restartAttachmentsOnSessionClose, &Data::SetRestartAttachmentsOnSessionClose>(
            u"RestartAttachmentsOnSessionClose"),
    };
    /// In the older form the text of the element is the mode.
    static constexpr Row olderForm =
        Rows::namedElement<&Data::mode, generationModes, &Data::SetActivtyGenerationMode>(ObjectName)
            .required<hasMode>(u"ActivityGenerationMode");
    static const Row *wholeText(const void *object)
    {
        return static_cast<const Data *>(object)->version == OldVersion ? &olderForm : nullptr;
    }
    static constexpr bool RefusesOthers = false;
    static constexpr ObjectTable table{ObjectName, attributes,    elements, {},
                                       {},         RefusesOthers, nullptr,  wholeText};
};

const ObjectTable &ActivityGenerationData::table()
{
    return Xml::table;
}

ActivityGenerationData::ActivityGenerationData()
    : modeNames(shared([] { return Modes.names(); })), channelNames(shared([] { return Channels.names(); })),
      writeModeNames(shared([] { return WriteModes.names(); })),
      criteriaNames(shared([] { return Criteria.names(); }))
{
    SetObjectName(shared([] { return ObjectName.toString(); }));
    ActivityGenerationData::Reset();
}

ActivityGenerationData::ActivityGenerationData(const ActivityGenerationData &other) = default;

ActivityGenerationData &ActivityGenerationData::operator=(const ActivityGenerationData &other) = default;

ActivityGenerationData::~ActivityGenerationData() = default;

void ActivityGenerationData::SetActivtyGenerationMode(const ActivityGenerationMode &value)
{
    storeValid(*this, mode, value, IsValidActivityGenerationMode(value), u"ActivityGenerationMode");
}

void ActivityGenerationData::SetEnergyActivityGenerationChannel(const EnergyActivityGenerationChannel &value)
{
    storeValid(*this, energyChannel, value, IsValidEnergyActivityGenerationChannel(value),
               u"EnergyActivityGenerationChannel");
}

void ActivityGenerationData::SetDDemActiveCriteria(DDemActiveCriteria value)
{
    storeValid(*this, ddemActiveCriteria, value, IsValidDDemActiveCriteria(value), u"DDemActiveCriteria");
}

void ActivityGenerationData::SetDbWriteDDem(ActivityGenerationDataBaseWriteMode value)
{
    storeValid(*this, dbWriteDDem, value, IsValidActivityGenerationDataBaseWriteMode(value),
               u"ActivityGenerationDataBaseWriteMode");
}

void ActivityGenerationData::SetDbWriteClass(ActivityGenerationDataBaseWriteMode value)
{
    storeValid(*this, dbWriteClass, value, IsValidActivityGenerationDataBaseWriteMode(value),
               u"ActivityGenerationDataBaseWriteMode");
}

void ActivityGenerationData::SetAutoStartOn(bool on)
{
    autoStartOn = on;
}

void ActivityGenerationData::SetLevelMinBurstDuration(float value)
{
    levelMinBurstDuration = value;
}

void ActivityGenerationData::SetLevelMaxBreakDuration(float value)
{
    levelMaxBreakDuration = value;
}

void ActivityGenerationData::SetDDemMinBurstDuration(float value)
{
    ddemMinBurstDuration = value;
}

void ActivityGenerationData::SetDDemMaxBreakDuration(float value)
{
    ddemMaxBreakDuration = value;
}

void ActivityGenerationData::SetDDemMorseQualityThreshold(int value)
{
    ddemMorseQualityThreshold = value;
}

void ActivityGenerationData::SetClassIntermScore(int value)
{
    classIntermScore = value;
}

void ActivityGenerationData::SetClassFinalScore(int value)
{
    classFinalScore = value;
}

void ActivityGenerationData::SetClassStartScore(int value)
{
    classStartScore = value;
}

void ActivityGenerationData::SetClassStopScore(int value)
{
    classStopScore = value;
}

void ActivityGenerationData::SetClassMinConfidence(int value)
{
    classMinConfidence = value;
}

void ActivityGenerationData::SetDetConvMinBurstDuration(float value)
{
    detConvMinBurstDuration = value;
}

void ActivityGenerationData::SetDbWriteEnergy(bool on)
{
    dbWriteEnergy = on;
}

void ActivityGenerationData::SetCutAtLocations(bool on)
{
    cutAtLocations = on;
}

void ActivityGenerationData::SetSessionCloseTime(float value)
{
    sessionCloseTime = value;
}

void ActivityGenerationData::SetRestartAttachmentsOnSessionClose(bool on)
{
    restartAttachmentsOnSessionClose = on;
}

QString ActivityGenerationData::ActivityGenerationModeToName(const ActivityGenerationMode &value) const
{
    return modeNames.list().value(value);
}

ActivityGenerationData::ActivityGenerationMode
ActivityGenerationData::NameToActivityGenerationMode(const QString &name) const
{
    return Modes.valueOf(name);
}

bool ActivityGenerationData::IsValidActivityGenerationMode(const ActivityGenerationMode &value) const
{
    return Modes.isValid(value);
}

ActivityGenerationData::ActivityGenerationMode
ActivityGenerationData::GetInvalidActivityGenerationMode() const
{
    return Modes.invalid();
}

QStringList ActivityGenerationData::GetActivityGenerationModeList() const
{
    return modeNames.list();
}

QString ActivityGenerationData::EnergyActivityGenerationChannelToName(
    const EnergyActivityGenerationChannel &value) const
{
    return channelNames.list().value(value);
}

ActivityGenerationData::EnergyActivityGenerationChannel
ActivityGenerationData::NameToEnergyActivityGenerationChannel(const QString &name) const
{
    return Channels.valueOf(name);
}

bool ActivityGenerationData::IsValidEnergyActivityGenerationChannel(
    const EnergyActivityGenerationChannel &value) const
{
    return Channels.isValid(value);
}

QStringList ActivityGenerationData::GetEnergyActivityGenerationChannelList(bool all) const
{
    return all ? channelNames.list() : QStringList(channelNames.list().mid(0, 1));
}

QString ActivityGenerationData::ActivityGenerationDataBaseWriteModeToName(
    const ActivityGenerationDataBaseWriteMode &value) const
{
    return writeModeNames.list().value(value);
}

ActivityGenerationData::ActivityGenerationDataBaseWriteMode
ActivityGenerationData::NameToActivityGenerationDataBaseWriteMode(const QString &name) const
{
    return WriteModes.valueOf(name);
}

bool ActivityGenerationData::IsValidActivityGenerationDataBaseWriteMode(
    const ActivityGenerationDataBaseWriteMode &value) const
{
    return WriteModes.isValid(value);
}

QStringList ActivityGenerationData::GetActivityGenerationDataBaseWriteModeList() const
{
    return writeModeNames.list();
}

QString ActivityGenerationData::DDemActiveCriteriaToName(const DDemActiveCriteria &value) const
{
    return criteriaNames.list().value(value);
}

ActivityGenerationData::DDemActiveCriteria
ActivityGenerationData::NameToDDemActiveCriteria(const QString &name) const
{
    return Criteria.valueOf(name);
}

bool ActivityGenerationData::IsValidDDemActiveCriteria(const DDemActiveCriteria &value) const
{
    return Criteria.isValid(value);
}

QStringList ActivityGenerationData::GetDDemActiveCriteriaList(bool all) const
{
    return all ? criteriaNames.list() : QStringList(criteriaNames.list().mid(0, 2));
}

bool ActivityGenerationData::operator==(const ActivityGenerationData &other) const
{
    return mode == other.mode;
}

bool ActivityGenerationData::HasData() const
{
    return isComplete<Xml>(this);
}

bool ActivityGenerationData::AnyData() const
{
    return ActivityGenerationData::HasData();
}

void ActivityGenerationData::Reset()
{
    version = shared([] { return CurrentVersion.toString(); });
    mode = GetInvalidActivityGenerationMode();
    autoStartOn = false;
    energyChannel = ADem;
    levelMinBurstDuration = 0.5F;
    levelMaxBreakDuration = 0.5F;
    ddemMinBurstDuration = 0.5F;
    ddemMaxBreakDuration = 0.5F;
    ddemActiveCriteria = DemodulatorLocked;
    ddemMorseQualityThreshold = 80;
    classIntermScore = 1;
    classFinalScore = 3;
    classStartScore = 3;
    classStopScore = 3;
    classMinConfidence = 0;
    detConvMinBurstDuration = 0.0F;
    dbWriteEnergy = true;
    dbWriteDDem = Never;
    dbWriteClass = Never;
    cutAtLocations = true;
    sessionCloseTime = 10.0F;
    restartAttachmentsOnSessionClose = false;
}

void ActivityGenerationData::Check() const
{
    if (!isComplete<Xml>(this))
        checkRequired(Xml::table, this, *this);
}

const QString &ActivityGenerationData::GetVersion() const
{
    return version;
}

void ActivityGenerationData::GetXml(QXmlStreamWriter &writer) const
{
    if (HasData())
        writeElement(Xml::table, this, writer, GetObjectName());
}

void ActivityGenerationData::ProcessXml(QXmlStreamReader &reader)
{
    readAttributes(Xml::table, this, reader);
    if (version == OldVersion)
        ProcessXmlStartElement(reader);
    else
        ITesselObject::ProcessXml(reader);
}

void ActivityGenerationData::ProcessXmlStartElement(QXmlStreamReader &reader)
{
    if (version != OldVersion) {
        readKnownChild(Xml::table, this, reader); // the base skips what no row stands for
    } else if (reader.name() == ObjectName) {
        mode = NameToActivityGenerationMode(GetTextValue(reader)); // in the older form the text is the mode
    } else {
        fail(Messages::unknownTag(GetObjectName(), reader.name()));
    }
}

QDebug operator<<(QDebug debug, ActivityGenerationData::ActivityGenerationMode value)
{
    return TESSEL::printName(debug, Modes.table(), value);
}

QDebug operator<<(QDebug debug, ActivityGenerationData::EnergyActivityGenerationChannel value)
{
    return TESSEL::printName(debug, Channels.table(), value);
}

QDebug operator<<(QDebug debug, ActivityGenerationData::ActivityGenerationDataBaseWriteMode value)
{
    return TESSEL::printName(debug, WriteModes.table(), value);
}

QDebug operator<<(QDebug debug, ActivityGenerationData::DDemActiveCriteria value)
{
    return TESSEL::printName(debug, Criteria.table(), value);
}

QDebug operator<<(QDebug debug, const ActivityGenerationData &object)
{
    return TESSEL::printDocument(debug, object);
}

} // namespace KORMAK
