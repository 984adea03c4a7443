#ifndef KORMAK_ACTIVITYGENERATIONDATA_H
#define KORMAK_ACTIVITYGENERATIONDATA_H

#include <kormak/kormak_export.h>
#include <kormak/VocabularyNames.h>
#include <objectbase/ITesselObject.h>

#include <QString>
#include <QStringList>

namespace KORMAK {

/// How detections become activities, and what of them is written to the database.
///
/// \snippet docs/KormakSnippetsTest.cpp ActivityGenerationData
///
/// Two forms of the document are read: the current one, in which unknown elements are ignored, and the
/// older form of version "1.0", whose text is the generation mode. Only the current form is written. Units
/// and scales of durations, scores and thresholds are those of the processing chain; no range is enforced on
/// them.
class KORMAK_EXPORT ActivityGenerationData : public TESSEL::ITesselObject {
public:
    /// The names are in \ref vocabulary_activity_generation_mode.
    enum ActivityGenerationMode : qint32 {
        InvalidActivityGenerationMode = -1,
        AGSC,
        AGMC,
        AGED,
    };

    /// The demodulation channel that drives energy-based generation. The names are in
    /// \ref vocabulary_energy_channel.
    enum EnergyActivityGenerationChannel : qint32 {
        InvalidEnergyActivityGenerationChannel = -1,
        ADem,
        DDem,
    };

    /// When results are written to the database. The names are in \ref vocabulary_write_mode.
    enum ActivityGenerationDataBaseWriteMode : qint32 {
        InvalidActivityGenerationDataBaseWriteMode = -1,
        Never,
        OnEnergyDetection,
        Always,
    };

    /// What marks a demodulated signal as active. The names are in \ref vocabulary_criteria.
    enum DDemActiveCriteria : qint32 {
        InvalidDDemActiveCriteria = -1,
        SignalDetection,
        DemodulatorLocked,
        DemodulatorAndDecoderLocked,
        MorseQualityOverThreshold,
    };

    ActivityGenerationData();
    ActivityGenerationData(const ActivityGenerationData &other);
    ActivityGenerationData &operator=(const ActivityGenerationData &other);
    ~ActivityGenerationData() override;

    /// \name Settings
    /// The setters of the vocabulary fields throw a TesselException "...: Invalid ...", named after the
    /// vocabulary, for a value outside it, and then leave the field unchanged. All others store any value.
    /// @{

    /// Mandatory.
    [[nodiscard]] ActivityGenerationMode GetActivtyGenerationMode() const noexcept { return mode; }
    void SetActivtyGenerationMode(const ActivityGenerationMode &value);

    /// Generation starts by itself.
    [[nodiscard]] bool GetAutoStartOn() const noexcept { return autoStartOn; }
    void SetAutoStartOn(bool on);

    [[nodiscard]] EnergyActivityGenerationChannel GetEnergyActivityGenerationChannel() const noexcept
    {
        return energyChannel;
    }
    void SetEnergyActivityGenerationChannel(const EnergyActivityGenerationChannel &value);

    [[nodiscard]] float GetLevelMinBurstDuration() const noexcept { return levelMinBurstDuration; }
    void SetLevelMinBurstDuration(float value);

    [[nodiscard]] float GetLevelMaxBreakDuration() const noexcept { return levelMaxBreakDuration; }
    void SetLevelMaxBreakDuration(float value);

    [[nodiscard]] float GetDDemMinBurstDuration() const noexcept { return ddemMinBurstDuration; }
    void SetDDemMinBurstDuration(float value);

    [[nodiscard]] float GetDDemMaxBreakDuration() const noexcept { return ddemMaxBreakDuration; }
    void SetDDemMaxBreakDuration(float value);

    [[nodiscard]] DDemActiveCriteria GetDDemActiveCriteria() const noexcept { return ddemActiveCriteria; }
    void SetDDemActiveCriteria(DDemActiveCriteria value);

    [[nodiscard]] int GetDDemMorseQualityThreshold() const noexcept { return ddemMorseQualityThreshold; }
    void SetDDemMorseQualityThreshold(int value);

    [[nodiscard]] int GetClassIntermScore() const noexcept { return classIntermScore; }
    void SetClassIntermScore(int value);

    [[nodiscard]] int GetClassFinalScore() const noexcept { return classFinalScore; }
    void SetClassFinalScore(int value);

    [[nodiscard]] int GetClassStartScore() const noexcept { return classStartScore; }
    void SetClassStartScore(int value);

    [[nodiscard]] int GetClassStopScore() const noexcept { return classStopScore; }
    void SetClassStopScore(int value);

    [[nodiscard]] int GetClassMinConfidence() const noexcept { return classMinConfidence; }
    void SetClassMinConfidence(int value);

    [[nodiscard]] float GetDetConvMinBurstDuration() const noexcept { return detConvMinBurstDuration; }
    void SetDetConvMinBurstDuration(float value);

    /// Energy detections are written to the database.
    [[nodiscard]] bool GetDbWriteEnergy() const noexcept { return dbWriteEnergy; }
    void SetDbWriteEnergy(bool on);

    /// When results of the digital demodulator are written to the database.
    [[nodiscard]] ActivityGenerationDataBaseWriteMode GetDbWriteDDem() const noexcept { return dbWriteDDem; }
    void SetDbWriteDDem(ActivityGenerationDataBaseWriteMode value);

    /// When results of the classifier are written to the database.
    [[nodiscard]] ActivityGenerationDataBaseWriteMode GetDbWriteClass() const noexcept
    {
        return dbWriteClass;
    }
    void SetDbWriteClass(ActivityGenerationDataBaseWriteMode value);

    [[nodiscard]] bool GetCutAtLocations() const noexcept { return cutAtLocations; }
    void SetCutAtLocations(bool on);

    [[nodiscard]] float GetSessionCloseTime() const noexcept { return sessionCloseTime; }
    void SetSessionCloseTime(float value);

    [[nodiscard]] bool GetRestartAttachmentsOnSessionClose() const noexcept
    {
        return restartAttachmentsOnSessionClose;
    }
    void SetRestartAttachmentsOnSessionClose(bool on);
    /// @}

    /// \name Names
    /// The name of a value outside its vocabulary is empty; an unknown name (case-sensitive) is -1.
    /// @{
    [[nodiscard]] QString ActivityGenerationModeToName(const ActivityGenerationMode &value) const;
    [[nodiscard]] ActivityGenerationMode NameToActivityGenerationMode(const QString &name) const;
    [[nodiscard]] bool IsValidActivityGenerationMode(const ActivityGenerationMode &value) const;
    [[nodiscard]] ActivityGenerationMode GetInvalidActivityGenerationMode() const;
    [[nodiscard]] QStringList GetActivityGenerationModeList() const;

    [[nodiscard]] QString
    EnergyActivityGenerationChannelToName(const EnergyActivityGenerationChannel &value) const;
    [[nodiscard]] EnergyActivityGenerationChannel
    NameToEnergyActivityGenerationChannel(const QString &name) const;
    [[nodiscard]] bool
    IsValidEnergyActivityGenerationChannel(const EnergyActivityGenerationChannel &value) const;
    /// All names, or the first one alone where only the analog channel can be offered.
    [[nodiscard]] QStringList GetEnergyActivityGenerationChannelList(bool all) const;

    [[nodiscard]] QString
    ActivityGenerationDataBaseWriteModeToName(const ActivityGenerationDataBaseWriteMode &value) const;
    [[nodiscard]] ActivityGenerationDataBaseWriteMode
    NameToActivityGenerationDataBaseWriteMode(const QString &name) const;
    [[nodiscard]] bool
    IsValidActivityGenerationDataBaseWriteMode(const ActivityGenerationDataBaseWriteMode &value) const;
    [[nodiscard]] QStringList GetActivityGenerationDataBaseWriteModeList() const;

    [[nodiscard]] QString DDemActiveCriteriaToName(const DDemActiveCriteria &value) const;
    [[nodiscard]] DDemActiveCriteria NameToDDemActiveCriteria(const QString &name) const;
    [[nodiscard]] bool IsValidDDemActiveCriteria(const DDemActiveCriteria &value) const;
    /// All names, or the first two where neither decoder nor Morse quality can be offered.
    [[nodiscard]] QStringList GetDDemActiveCriteriaList(bool all) const;
    /// @}

    /// Compares the generation mode and nothing else.
    [[nodiscard]] bool operator==(const ActivityGenerationData &other) const;
    [[nodiscard]] bool operator!=(const ActivityGenerationData &other) const { return !(*this == other); }

    /// The generation mode is valid.
    [[nodiscard]] bool HasData() const override;
    /// As HasData().
    [[nodiscard]] bool AnyData() const;
    void Reset() override;
    using ITesselObject::Check;
    /// \throws TesselException "...: Please set ActivityGenerationMode"
    void Check() const override;
    /// The version of the form that was last read; "2.2" for a new object, and always in what is written.
    [[nodiscard]] const QString &GetVersion() const override;

    /// \cond
    void GetXml(QXmlStreamWriter &writer) const override;
    void ProcessXml(QXmlStreamReader &reader) override;

protected:
    void ProcessXmlStartElement(QXmlStreamReader &reader) override;
    /// \endcond

private:
    friend class TESSEL::DocumentTables;
    struct KORMAK_NO_EXPORT Xml;

    [[nodiscard]] static const TESSEL::ObjectTable &table();

    QString version;
    ActivityGenerationMode mode;
    bool autoStartOn;
    VocabularyNames modeNames;
    VocabularyNames channelNames;
    VocabularyNames writeModeNames;
    VocabularyNames criteriaNames;
    EnergyActivityGenerationChannel energyChannel;
    float levelMinBurstDuration;
    float levelMaxBreakDuration;
    float ddemMinBurstDuration;
    float ddemMaxBreakDuration;
    DDemActiveCriteria ddemActiveCriteria;
    int ddemMorseQualityThreshold;
    int classIntermScore;
    int classFinalScore;
    int classStartScore;
    int classStopScore;
    int classMinConfidence;
    float detConvMinBurstDuration;
    bool dbWriteEnergy;
    ActivityGenerationDataBaseWriteMode dbWriteDDem;
    ActivityGenerationDataBaseWriteMode dbWriteClass;
    bool cutAtLocations;
    float sessionCloseTime;
    bool restartAttachmentsOnSessionClose;
};

/// Writes the name of \a value, or its number when it has none.
KORMAK_EXPORT QDebug operator<<(QDebug debug, ActivityGenerationData::ActivityGenerationMode value);

/// Writes the name of \a value, or its number when it has none.
KORMAK_EXPORT QDebug operator<<(QDebug debug, ActivityGenerationData::EnergyActivityGenerationChannel value);

/// Writes the name of \a value, or its number when it has none.
KORMAK_EXPORT QDebug operator<<(QDebug debug,
                                ActivityGenerationData::ActivityGenerationDataBaseWriteMode value);

/// Writes the name of \a value, or its number when it has none.
KORMAK_EXPORT QDebug operator<<(QDebug debug, ActivityGenerationData::DDemActiveCriteria value);

/// Writes the name of the object and all of its fields that are set, in a line.
KORMAK_EXPORT QDebug operator<<(QDebug debug, const ActivityGenerationData &object);

} // namespace KORMAK

#endif
