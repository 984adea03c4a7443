#include <kormak/ActivityGenerationData.h>
#include <tests/support/Files.h>
#include <tests/support/LocaleRuns.h>
#include <tests/support/Objects.h>
#include <tests/support/RowNames.h>
#include <tests/support/VocabularyChecks.h>

#include <array>
#include <cfloat>
#include <cmath>
#include <limits>
#include <type_traits>

using namespace KORMAK;
using namespace TestSupport;
using Data = ActivityGenerationData;
using Mode = Data::ActivityGenerationMode;
using Channel = Data::EnergyActivityGenerationChannel;
using WriteMode = Data::ActivityGenerationDataBaseWriteMode;
using Criteria = Data::DDemActiveCriteria;

Q_DECLARE_METATYPE(KORMAK::ActivityGenerationData)

static_assert(std::is_base_of_v<TESSEL::ITesselObject, Data>);
static_assert(std::is_same_v<decltype(std::declval<const Data &>().GetVersion()), const QString &>);
static_assert(std::is_same_v<decltype(&Data::SetActivtyGenerationMode), void (Data::*)(const Mode &)>);
static_assert(
    std::is_same_v<decltype(&Data::SetEnergyActivityGenerationChannel), void (Data::*)(const Channel &)>);
static_assert(std::is_same_v<decltype(&Data::SetDDemActiveCriteria), void (Data::*)(Criteria)>);
static_assert(std::is_same_v<decltype(&Data::SetDbWriteDDem), void (Data::*)(WriteMode)>);
static_assert(std::is_same_v<decltype(&Data::SetDbWriteClass), void (Data::*)(WriteMode)>);

namespace {

/// A setting and its element.
template <class Value>
struct Setting {
    const char *tag;
    Value (Data::*get)() const;
    void (Data::*set)(Value);
};

const Setting<float> floatSettings[] = {
    {"LevelMinBurstDuration", &Data::GetLevelMinBurstDuration, &Data::SetLevelMinBurstDuration},
    {"LevelMaxBreakDuration", &Data::GetLevelMaxBreakDuration, &Data::SetLevelMaxBreakDuration},
    {"DDemMinBurstDuration", &Data::GetDDemMinBurstDuration, &Data::SetDDemMinBurstDuration},
    {"DDemMaxBreakDuration", &Data::GetDDemMaxBreakDuration, &Data::SetDDemMaxBreakDuration},
    {"DetConvMinBurstDuration", &Data::GetDetConvMinBurstDuration, &Data::SetDetConvMinBurstDuration},
    {"SessionCloseTime", &Data::GetSessionCloseTime, &Data::SetSessionCloseTime},
};

const Setting<int> intSettings[] = {
    {"DDemMorseQualityThreshold", &Data::GetDDemMorseQualityThreshold, &Data::SetDDemMorseQualityThreshold},
    {"ClassIntermScore", &Data::GetClassIntermScore, &Data::SetClassIntermScore},
    {"ClassFinalScore", &Data::GetClassFinalScore, &Data::SetClassFinalScore},
    {"ClassStartScore", &Data::GetClassStartScore, &Data::SetClassStartScore},
    {"ClassStopScore", &Data::GetClassStopScore, &Data::SetClassStopScore},
    {"ClassMinConfidence", &Data::GetClassMinConfidence, &Data::SetClassMinConfidence},
};

const Setting<bool> boolSettings[] = {
    {"DbWriteEnergy", &Data::GetDbWriteEnergy, &Data::SetDbWriteEnergy},
    {"CutAtLocations", &Data::GetCutAtLocations, &Data::SetCutAtLocations},
    {"RestartAttachmentsOnSessionClose", &Data::GetRestartAttachmentsOnSessionClose,
     &Data::SetRestartAttachmentsOnSessionClose},
};

/// A setting that holds a value of a vocabulary.
struct NamedSetting {
    const char *tag;
    const char *field; ///< in messages
    QStringList names;
    int (*get)(const Data &);
    void (*set)(Data &, int);
};

const QStringList modeNames{"AGSC", "AGMC", "AGED"};
const QStringList channelNames{"ADem", "DDem"};
const QStringList writeModeNames{"Never", "On Energy Detection", "Always"};
const QStringList criteriaNames{"Signal Detection", "Demodulator Locked", "Demodulator and Decoder Locked",
                                "Morse Quality Over Threshold"};

const NamedSetting namedSettings[] = {
    {"Mode", "ActivityGenerationMode", modeNames,
     [](const Data &data) { return static_cast<int>(data.GetActivtyGenerationMode()); },
     [](Data &data, int value) { data.SetActivtyGenerationMode(static_cast<Mode>(value)); }},
    {"EnergyChannel", "EnergyActivityGenerationChannel", channelNames,
     [](const Data &data) { return static_cast<int>(data.GetEnergyActivityGenerationChannel()); },
     [](Data &data, int value) { data.SetEnergyActivityGenerationChannel(static_cast<Channel>(value)); }},
    {"DDemActiveCriteria", "DDemActiveCriteria", criteriaNames,
     [](const Data &data) { return static_cast<int>(data.GetDDemActiveCriteria()); },
     [](Data &data, int value) { data.SetDDemActiveCriteria(static_cast<Criteria>(value)); }},
    {"DbWriteDDem", "ActivityGenerationDataBaseWriteMode", writeModeNames,
     [](const Data &data) { return static_cast<int>(data.GetDbWriteDDem()); },
     [](Data &data, int value) { data.SetDbWriteDDem(static_cast<WriteMode>(value)); }},
    {"DbWriteClass", "ActivityGenerationDataBaseWriteMode", writeModeNames,
     [](const Data &data) { return static_cast<int>(data.GetDbWriteClass()); },
     [](Data &data, int value) { data.SetDbWriteClass(static_cast<WriteMode>(value)); }},
};

/// All digits, so that nothing that is compared is rounded.
QString exact(float value)
{
    return QString::number(static_cast<double>(value), 'g', std::numeric_limits<float>::max_digits10);
}

QString word(bool value)
{
    return value ? "true" : "false";
}

QString assigned(const QString &field, const QString &value)
{
    return field + '=' + value;
}

QStringList fieldsOf(const Data &data)
{
    QStringList fields{"Version=" + data.GetVersion(), "Autostart=" + word(data.GetAutoStartOn())};
    for (const auto &setting : namedSettings)
        fields << assigned(setting.tag, QString::number(setting.get(data)));
    for (const auto &setting : floatSettings)
        fields << assigned(setting.tag, exact((data.*setting.get)()));
    for (const auto &setting : intSettings)
        fields << assigned(setting.tag, QString::number((data.*setting.get)()));
    for (const auto &setting : boolSettings)
        fields << assigned(setting.tag, word((data.*setting.get)()));
    return fields;
}

QStringList newFields()
{
    return {
        "Version=2.2",
        "Autostart=false",
        "Mode=-1",
        "EnergyChannel=0",
        "DDemActiveCriteria=1",
        "DbWriteDDem=0",
        "DbWriteClass=0",
        "LevelMinBurstDuration=0.5",
        "LevelMaxBreakDuration=0.5",
        "DDemMinBurstDuration=0.5",
        "DDemMaxBreakDuration=0.5",
        "DetConvMinBurstDuration=0",
        "SessionCloseTime=10",
        "DDemMorseQualityThreshold=80",
        "ClassIntermScore=1",
        "ClassFinalScore=3",
        "ClassStartScore=3",
        "ClassStopScore=3",
        "ClassMinConfidence=0",
        "DbWriteEnergy=true",
        "CutAtLocations=true",
        "RestartAttachmentsOnSessionClose=false",
    };
}

/// The children that a new object writes once its mode is set to 0.
QStringList newChildren()
{
    return {
        "Mode=AGSC",
        "EnergyChannel=ADem",
        "LevelMinBurstDuration=0.5",
        "LevelMaxBreakDuration=0.5",
        "DDemActiveCriteria=Demodulator Locked",
        "DDemMinBurstDuration=0.5",
        "DDemMaxBreakDuration=0.5",
        "DDemMorseQualityThreshold=80",
        "ClassIntermScore=1",
        "ClassFinalScore=3",
        "ClassStartScore=3",
        "ClassStopScore=3",
        "ClassMinConfidence=0",
        "DetConvMinBurstDuration=0",
        "DbWriteEnergy=true",
        "DbWriteDDem=Never",
        "DbWriteClass=Never",
        "CutAtLocations=true",
        "SessionCloseTime=10",
        "RestartAttachmentsOnSessionClose=false",
    };
}

/// \a children ("tag=text") as an element in the form that is written.
QString writtenElement(const QStringList &children, bool autoStart = false)
{
    QString text = "<ActivityGeneration Version=\"2.2\" Autostart=\"" + word(autoStart) + "\">";
    for (const QString &child : children) {
        const QString tag = child.section('=', 0, 0);
        text += '<' + tag + '>' + child.section('=', 1) + "</" + tag + '>';
    }
    return text + "</ActivityGeneration>";
}

/// As a document: "tag=text" on lines of their own.
QString writtenDocument(const QStringList &children, bool autoStart = false)
{
    return document(
        writtenElement(children, autoStart).replace("><", ">\n    <").replace("\n    </A", "\n</A") + '\n');
}

QString element(const QString &children)
{
    return "<ActivityGeneration Version=\"2.2\">" + children + "</ActivityGeneration>";
}

QString child(const QString &tag, const QString &text)
{
    return '<' + tag + '>' + text + "</" + tag + '>';
}

/// A new object with mode AGSC.
Data simpleData()
{
    Data data;
    data.SetActivtyGenerationMode(Data::AGSC);
    return data;
}

/// Differs from a new object in every field but the version.
Data fullData()
{
    Data data;
    data.SetActivtyGenerationMode(Data::AGED);
    data.SetAutoStartOn(true);
    data.SetEnergyActivityGenerationChannel(Data::DDem);
    data.SetLevelMinBurstDuration(0.2F);
    data.SetLevelMaxBreakDuration(1.5F);
    data.SetDDemActiveCriteria(Data::DemodulatorAndDecoderLocked);
    data.SetDDemMinBurstDuration(0.75F);
    data.SetDDemMaxBreakDuration(2.5F);
    data.SetDDemMorseQualityThreshold(65);
    data.SetClassIntermScore(2);
    data.SetClassFinalScore(5);
    data.SetClassStartScore(4);
    data.SetClassStopScore(-1);
    data.SetClassMinConfidence(60);
    data.SetDetConvMinBurstDuration(0.05F);
    data.SetDbWriteEnergy(false);
    data.SetDbWriteDDem(Data::Always);
    data.SetDbWriteClass(Data::OnEnergyDetection);
    data.SetCutAtLocations(false);
    data.SetSessionCloseTime(30);
    data.SetRestartAttachmentsOnSessionClose(true);
    return data;
}

QStringList fullChildren()
{
    return {
        "Mode=AGED",
        "EnergyChannel=DDem",
        "LevelMinBurstDuration=0.2",
        "LevelMaxBreakDuration=1.5",
        "DDemActiveCriteria=Demodulator and Decoder Locked",
        "DDemMinBurstDuration=0.75",
        "DDemMaxBreakDuration=2.5",
        "DDemMorseQualityThreshold=65",
        "ClassIntermScore=2",
        "ClassFinalScore=5",
        "ClassStartScore=4",
        "ClassStopScore=-1",
        "ClassMinConfidence=60",
        "DetConvMinBurstDuration=0.05",
        "DbWriteEnergy=false",
        "DbWriteDDem=Always",
        "DbWriteClass=On Energy Detection",
        "CutAtLocations=false",
        "SessionCloseTime=30",
        "RestartAttachmentsOnSessionClose=true",
    };
}

const Data names;

VocabularyChecks::Vocabulary<Mode> modes()
{
    return {modeNames,
            {},
            [](Mode value) { return names.ActivityGenerationModeToName(value); },
            [](const QString &name) { return names.NameToActivityGenerationMode(name); },
            [](Mode value) { return names.IsValidActivityGenerationMode(value); },
            [] { return names.GetInvalidActivityGenerationMode(); },
            {}};
}

VocabularyChecks::Vocabulary<Channel> channels()
{
    return {channelNames,
            {},
            [](Channel value) { return names.EnergyActivityGenerationChannelToName(value); },
            [](const QString &name) { return names.NameToEnergyActivityGenerationChannel(name); },
            [](Channel value) { return names.IsValidEnergyActivityGenerationChannel(value); },
            {},
            {}};
}

VocabularyChecks::Vocabulary<WriteMode> writeModes()
{
    return {writeModeNames,
            {},
            [](WriteMode value) { return names.ActivityGenerationDataBaseWriteModeToName(value); },
            [](const QString &name) { return names.NameToActivityGenerationDataBaseWriteMode(name); },
            [](WriteMode value) { return names.IsValidActivityGenerationDataBaseWriteMode(value); },
            {},
            {}};
}

VocabularyChecks::Vocabulary<Criteria> criteria()
{
    return {criteriaNames,
            {},
            [](Criteria value) { return names.DDemActiveCriteriaToName(value); },
            [](const QString &name) { return names.NameToDDemActiveCriteria(name); },
            [](Criteria value) { return names.IsValidDDemActiveCriteria(value); },
            {},
            {}};
}

} // namespace

class ActivityGenerationDataTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data() { LocaleRuns::addLocales(); }
    void init() { LocaleRuns::useLocale(); }
    void cleanup() { LocaleRuns::restoreLocale(); }

    void newData();
    void reset();
    void resetKeepsTheName();

    void modeNames_data() { VocabularyChecks::addNames(modes()); }
    void modeNames() { VocabularyChecks::checkName(modes()); }
    void unknownModeNames_data() { VocabularyChecks::addUnknownNames(modes()); }
    void unknownModeNames() { VocabularyChecks::checkUnknownName(modes()); }
    void modeValues_data() { VocabularyChecks::addValues(modes()); }
    void modeValues() { VocabularyChecks::checkValue(modes()); }
    void channelNames_data() { VocabularyChecks::addNames(channels()); }
    void channelNames() { VocabularyChecks::checkName(channels()); }
    void unknownChannelNames_data() { VocabularyChecks::addUnknownNames(channels()); }
    void unknownChannelNames() { VocabularyChecks::checkUnknownName(channels()); }
    void channelValues_data() { VocabularyChecks::addValues(channels()); }
    void channelValues() { VocabularyChecks::checkValue(channels()); }
    void writeModeNames_data() { VocabularyChecks::addNames(writeModes()); }
    void writeModeNames() { VocabularyChecks::checkName(writeModes()); }
    void unknownWriteModeNames_data() { VocabularyChecks::addUnknownNames(writeModes()); }
    void unknownWriteModeNames() { VocabularyChecks::checkUnknownName(writeModes()); }
    void writeModeValues_data() { VocabularyChecks::addValues(writeModes()); }
    void writeModeValues() { VocabularyChecks::checkValue(writeModes()); }
    void criteriaNames_data() { VocabularyChecks::addNames(criteria()); }
    void criteriaNames() { VocabularyChecks::checkName(criteria()); }
    void unknownCriteriaNames_data() { VocabularyChecks::addUnknownNames(criteria()); }
    void unknownCriteriaNames() { VocabularyChecks::checkUnknownName(criteria()); }
    void criteriaValues_data() { VocabularyChecks::addValues(criteria()); }
    void criteriaValues() { VocabularyChecks::checkValue(criteria()); }
    void lists();
    void listsAreShared();

    void settersOfNamedSettings_data();
    void settersOfNamedSettings();
    void settersOfNumbers_data();
    void settersOfNumbers();
    void settersOfSwitches();
    void messagesNameTheObject();

    void completeness_data() { VocabularyChecks::addValues(modes()); }
    void completeness();
    void nothingButTheModeIsChecked();
    void checkOnDemand();

    void writing_data();
    void writing();
    void writingFloats_data();
    void writingFloats();
    void writingIntegers_data();
    void writingIntegers();
    void documents();
    void documentOfAnIncompleteObject();

    void readingNames_data();
    void readingNames();
    void readingFloats_data();
    void readingFloats();
    void readingIntegers_data();
    void readingIntegers();
    void readingSwitches_data();
    void readingSwitches();
    void autoStart_data();
    void autoStart();
    void version_data();
    void version();
    void unknownElements_data();
    void unknownElements();
    void unknownNamesAreWrittenEmpty();
    void readingReplacesOnlyWhatIsThere();
    void lastElementCounts();
    void readingStaysOnTheEndElement();
    void elementInsideText();
    void documentsOfOthers();
    void writtenAndReadBack();
    void merging();

    void olderForm_data();
    void olderForm();
    void olderFormKeepsAllElse();
    void olderFormUnderAnotherName();
    void olderFormWithElementsInside_data();
    void olderFormWithElementsInside();
    void olderFormStaysOnTheEndElement();
    void olderFormIsWrittenAsTheCurrentOne();
    void currentFormAfterTheOlderOne();

    void examples_data();
    void examples();

    void equality();
    void copies();
    void assignment();
    void selfAssignment();
};

void ActivityGenerationDataTest::newData()
{
    const Data data;

    QCOMPARE(fieldsOf(data), newFields());
    QCOMPARE(data.GetObjectName(), QString("ActivityGeneration"));
    QVERIFY(!data.HasData());
    QVERIFY(!data.AnyData());
    QCOMPARE(elementOf(data), QString());
    QCOMPARE(messageOf([&] { data.Check(); }),
             QString("ActivityGeneration: Please set ActivityGenerationMode"));
    QVERIFY(!std::signbit(data.GetDetConvMinBurstDuration()));
}

void ActivityGenerationDataTest::reset()
{
    Data data = fullData();
    const QStringList before = fieldsOf(data);
    for (const QString &field : newFields())
        QCOMPARE(before.contains(field), field.startsWith("Version="));
    process(data, "<ActivityGeneration Version=\"1.7\" Autostart=\"true\"/>");
    QCOMPARE(fieldsOf(data), with(before, {"Version=1.7"}));

    data.Reset();
    QCOMPARE(fieldsOf(data), newFields());
}

void ActivityGenerationDataTest::resetKeepsTheName()
{
    Renamed<Data> data;
    data.SetObjectName("Other");
    data.Reset();
    QCOMPARE(data.GetObjectName(), QString("Other"));
}

void ActivityGenerationDataTest::lists()
{
    const Data data;
    QCOMPARE(data.GetActivityGenerationModeList(), ::modeNames);
    QCOMPARE(data.GetActivityGenerationDataBaseWriteModeList(), ::writeModeNames);
    QCOMPARE(data.GetEnergyActivityGenerationChannelList(true), ::channelNames);
    QCOMPARE(data.GetEnergyActivityGenerationChannelList(false), QStringList{"ADem"});
    QCOMPARE(data.GetDDemActiveCriteriaList(true), ::criteriaNames);
    QCOMPARE(data.GetDDemActiveCriteriaList(false), (QStringList{"Signal Detection", "Demodulator Locked"}));

    QStringList list = data.GetActivityGenerationModeList();
    list[0] = "changed";
    QCOMPARE(data.GetActivityGenerationModeList(), ::modeNames);
    QCOMPARE(data.ActivityGenerationModeToName(Data::AGSC), QString("AGSC"));
}

// What the getters give shares with the list of the object, and so do the lists of copies.
void ActivityGenerationDataTest::listsAreShared()
{
    const auto listsOf = [](const Data &data) {
        return std::array<QStringList, 4>{
            data.GetActivityGenerationModeList(), data.GetActivityGenerationDataBaseWriteModeList(),
            data.GetEnergyActivityGenerationChannelList(true), data.GetDDemActiveCriteriaList(true)};
    };
    const Data data;
    const Data copy(data);
    const auto lists = listsOf(data);
    const auto again = listsOf(data);
    const auto ofCopy = listsOf(copy);
    for (std::size_t i = 0; i < lists.size(); ++i) {
        QCOMPARE(&again.at(i).at(0), &lists.at(i).at(0));
        QCOMPARE(&ofCopy.at(i).at(0), &lists.at(i).at(0));
    }
}

void ActivityGenerationDataTest::settersOfNamedSettings_data()
{
    QTest::addColumn<int>("setting");
    QTest::addColumn<int>("value");
    QTest::addColumn<bool>("isKnown");

    for (int setting = 0; setting < int(std::size(namedSettings)); ++setting) {
        const int count = namedSettings[setting].names.size();
        for (const int value : {std::numeric_limits<int>::min(), -2, -1, 0, 1, count - 1, count, 256, 65536,
                                std::numeric_limits<int>::max()})
            QTest::newRow(qPrintable(QString("%1 %2").arg(namedSettings[setting].tag).arg(value)))
                << setting << value << (value >= 0 && value < count);
    }
}

void ActivityGenerationDataTest::settersOfNamedSettings()
{
    QFETCH(int, setting);
    QFETCH(int, value);
    QFETCH(bool, isKnown);
    const auto &named = namedSettings[setting];
    const QString number = QString::number(value);

    for (const Data &before : {Data(), fullData()}) {
        Data data = before;
        const QString message = messageOf([&] { named.set(data, value); });
        QCOMPARE(message,
                 isKnown
                     ? QString()
                     : QString("ActivityGeneration: Invalid " + QString(named.field) + " '" + number + '\''));
        QCOMPARE(fieldsOf(data),
                 isKnown ? with(fieldsOf(before), {assigned(named.tag, number)}) : fieldsOf(before));
    }
}

void ActivityGenerationDataTest::settersOfNumbers_data()
{
    QTest::addColumn<float>("value");
    QTest::addColumn<int>("number");

    QTest::newRow("ordinary") << 1.25F << 17;
    QTest::newRow("zero") << 0.0F << 0;
    QTest::newRow("negative") << -0.5F << -1;
    QTest::newRow("greatest") << FLT_MAX << std::numeric_limits<int>::max();
    QTest::newRow("least") << -FLT_MAX << std::numeric_limits<int>::min();
    QTest::newRow("no number") << std::numeric_limits<float>::quiet_NaN() << 101;
    QTest::newRow("infinity") << std::numeric_limits<float>::infinity() << 1000;
}

/// Any value is stored, in the one setting alone.
void ActivityGenerationDataTest::settersOfNumbers()
{
    QFETCH(float, value);
    QFETCH(int, number);

    for (const auto &setting : floatSettings) {
        Data data;
        (data.*setting.set)(value);
        QCOMPARE(fieldsOf(data), with(newFields(), {assigned(setting.tag, exact(value))}));
    }
    for (const auto &setting : intSettings) {
        Data data;
        (data.*setting.set)(number);
        QCOMPARE(fieldsOf(data), with(newFields(), {assigned(setting.tag, QString::number(number))}));
    }
}

void ActivityGenerationDataTest::settersOfSwitches()
{
    for (const bool on : {true, false, true}) {
        for (const auto &setting : boolSettings) {
            Data data;
            (data.*setting.set)(!on);
            (data.*setting.set)(on);
            QCOMPARE(fieldsOf(data), with(newFields(), {assigned(setting.tag, word(on))}));
        }
        Data data;
        data.SetAutoStartOn(!on);
        data.SetAutoStartOn(on);
        QCOMPARE(fieldsOf(data), with(newFields(), {assigned("Autostart", word(on))}));
    }
}

void ActivityGenerationDataTest::messagesNameTheObject()
{
    Renamed<Data> data;
    data.SetObjectName("Night %2 watch");
    const auto setMode = [&] { data.SetActivtyGenerationMode(static_cast<Mode>(3)); };
    const auto readOlderForm = [&] { process(data, "<Watch Version=\"1.0\">AGED</Watch>"); };

    QCOMPARE(messageOf([&] { data.Check(); }), QString("Night %2 watch: Please set ActivityGenerationMode"));
    QCOMPARE(messageOf(setMode), QString("Night %2 watch: Invalid ActivityGenerationMode '3'"));
    QCOMPARE(messageOf(readOlderForm), QString("Unknown Tag 'Watch' in 'Night %2 watch'."));
}

void ActivityGenerationDataTest::completeness()
{
    QFETCH(int, value);
    QFETCH(bool, isKnown);

    Data data;
    try {
        data.SetActivtyGenerationMode(static_cast<Mode>(value));
    } catch (const TESSEL::TesselException &) {
        QVERIFY(!isKnown);
    }
    QCOMPARE(data.HasData(), isKnown);
    QCOMPARE(data.AnyData(), isKnown);
    QCOMPARE(messageOf([&] { data.Check(); }),
             isKnown ? QString() : QString("ActivityGeneration: Please set ActivityGenerationMode"));
    QCOMPARE(elementOf(data).isEmpty(), !isKnown);
}

void ActivityGenerationDataTest::nothingButTheModeIsChecked()
{
    Data data = fullData();
    process(data, element("<Mode/>"));
    QVERIFY(!data.HasData());
    QVERIFY(!data.AnyData());
    QCOMPARE(messageOf([&] { data.Check(); }),
             QString("ActivityGeneration: Please set ActivityGenerationMode"));

    process(data,
            element("<Mode>AGMC</Mode><EnergyChannel/><DDemActiveCriteria/><DbWriteDDem/><DbWriteClass/>"
                    "<SessionCloseTime>nan</SessionCloseTime><ClassFinalScore>-7</ClassFinalScore>"));
    QVERIFY(data.HasData());
    QVERIFY(data.AnyData());
    QCOMPARE(messageOf([&] { data.Check(); }), QString());
}

void ActivityGenerationDataTest::checkOnDemand()
{
    const Data data;
    QCOMPARE(messageOf([&] { data.Check(false); }), QString());
    QCOMPARE(messageOf([&] { data.Check(true); }),
             QString("ActivityGeneration: Please set ActivityGenerationMode"));
}

void ActivityGenerationDataTest::writing_data()
{
    QTest::addColumn<Data>("data");
    QTest::addColumn<QString>("element");

    const auto add = [](const QString &description, const Data &data, const QString &element) {
        QTest::newRow(qPrintable(description)) << data << element;
    };
    add("new", Data(), {});
    add("mode alone", simpleData(), writtenElement(newChildren()));
    add("everything", fullData(), writtenElement(fullChildren(), true));
    for (const auto &setting : namedSettings) {
        for (int value = 0; value < setting.names.size(); ++value) {
            Data data = simpleData();
            setting.set(data, value);
            add(assigned(setting.tag, setting.names[value]), data,
                writtenElement(with(newChildren(), {assigned(setting.tag, setting.names[value])})));
        }
    }
    for (const auto &setting : boolSettings) {
        for (const bool on : {false, true}) {
            Data data = simpleData();
            (data.*setting.set)(on);
            add(assigned(setting.tag, word(on)), data,
                writtenElement(with(newChildren(), {assigned(setting.tag, word(on))})));
        }
    }
    Data data = simpleData();
    data.SetAutoStartOn(true);
    add("starts by itself", data, writtenElement(newChildren(), true));
    for (const char *version : {"", "0.9", "2.1", "2.3", "later"}) {
        data = simpleData();
        process(data, "<ActivityGeneration Version=\"" + QString(version) + "\"/>");
        add("read as version '" + QString(version) + '\'', data, writtenElement(newChildren()));
    }
}

void ActivityGenerationDataTest::writing()
{
    QFETCH(Data, data);
    QFETCH(QString, element);
    QCOMPARE(elementOf(data), element);
}

void ActivityGenerationDataTest::writingFloats_data()
{
    QTest::addColumn<float>("value");
    QTest::addColumn<QString>("text");

    const auto add = [](float value, const char *text) { QTest::newRow(text) << value << QString(text); };
    add(0.0F, "0");
    QTest::newRow("-0") << -0.0F << "0";
    add(0.5F, "0.5");
    add(10.0F, "10");
    add(0.1F, "0.1");
    add(-0.1F, "-0.1");
    add(1.0F / 3, "0.333333");
    add(2.0F / 3, "0.666667");
    add(123456.0F, "123456");
    add(100000.0F, "100000");
    QTest::newRow("six digits are not exceeded") << 1.0000005F << "1";
    QTest::newRow("1000000") << 1000000.0F << "1e+06";
    QTest::newRow("999999.5") << 999999.5F << "1e+06";
    QTest::newRow("1234567") << 1234567.0F << "1.23457e+06";
    QTest::newRow("16777216") << 16777216.0F << "1.67772e+07";
    QTest::newRow("-16777216") << -16777216.0F << "-1.67772e+07";
    add(0.0001F, "0.0001");
    add(0.00012345F, "0.00012345");
    add(0.00001F, "1e-05");
    add(1e-7F, "1e-07");
    add(1e20F, "1e+20");
    QTest::newRow("greatest") << FLT_MAX << "3.40282e+38";
    QTest::newRow("least") << -FLT_MAX << "-3.40282e+38";
    QTest::newRow("smallest normal") << FLT_MIN << "1.17549e-38";
    QTest::newRow("smallest") << std::numeric_limits<float>::denorm_min() << "1.4013e-45";
    add(std::numeric_limits<float>::infinity(), "inf");
    add(-std::numeric_limits<float>::infinity(), "-inf");
    add(std::numeric_limits<float>::quiet_NaN(), "nan");
}

void ActivityGenerationDataTest::writingFloats()
{
    QFETCH(float, value);
    QFETCH(QString, text);

    for (const auto &setting : floatSettings) {
        Data data = simpleData();
        (data.*setting.set)(value);
        QCOMPARE(elementOf(data), writtenElement(with(newChildren(), {assigned(setting.tag, text)})));
    }
}

void ActivityGenerationDataTest::writingIntegers_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("text");

    const auto add = [](int value, const char *text) { QTest::newRow(text) << value << QString(text); };
    add(0, "0");
    add(7, "7");
    add(-1, "-1");
    add(1000, "1000");
    add(-1234567, "-1234567");
    add(std::numeric_limits<int>::max(), "2147483647");
    add(std::numeric_limits<int>::min(), "-2147483648");
}

void ActivityGenerationDataTest::writingIntegers()
{
    QFETCH(int, value);
    QFETCH(QString, text);

    for (const auto &setting : intSettings) {
        Data data = simpleData();
        (data.*setting.set)(value);
        QCOMPARE(elementOf(data), writtenElement(with(newChildren(), {assigned(setting.tag, text)})));
    }
}

void ActivityGenerationDataTest::documents()
{
    QCOMPARE(simpleData().GetXmlString(), writtenDocument(newChildren()));
    QCOMPARE(fullData().GetXmlString(), writtenDocument(fullChildren(), true));
}

void ActivityGenerationDataTest::documentOfAnIncompleteObject()
{
    QString text = "untouched";
    QCOMPARE(messageOf([&] { text = Data().GetXmlString(); }),
             QString("ActivityGeneration: Please set ActivityGenerationMode"));
    QCOMPARE(text, QString("untouched"));
}

void ActivityGenerationDataTest::readingNames_data()
{
    QTest::addColumn<int>("setting");
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("value");

    for (int setting = 0; setting < int(std::size(namedSettings)); ++setting) {
        const auto &named = namedSettings[setting];
        const auto add = [&](const QString &text, int value) {
            QTest::newRow(named.tag + (' ' + RowNames::quoted(text))) << setting << text << value;
        };
        for (int value = 0; value < named.names.size(); ++value) {
            const QString &name = named.names[value];
            add(name, value);
            add("<![CDATA[" + name + "]]>", value);
            add(name.left(2) + "<!-- -->" + name.mid(2), value);
            add(' ' + name, -1);
            add(name + '\n', -1);
            add(name.toLower(), -1);
        }
        for (const char *text : {"", "0", "1", "-1", "undefined", "Sometimes"})
            add(text, -1);
    }
}

/// A name is stored as what it says, known or not; nothing is reported.
void ActivityGenerationDataTest::readingNames()
{
    QFETCH(int, setting);
    QFETCH(QString, text);
    QFETCH(int, value);
    const auto &named = namedSettings[setting];

    for (const Data &before : {Data(), fullData()}) {
        Data data = before;
        QCOMPARE(messageOf([&] { process(data, element(child(named.tag, text))); }), QString());
        QCOMPARE(fieldsOf(data),
                 with(fieldsOf(before), {assigned(named.tag, QString::number(value)), "Autostart=false"}));
    }
}

void ActivityGenerationDataTest::readingFloats_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<float>("value");

    const auto add = [](const char *text, float value) {
        QTest::newRow(RowNames::quoted(text)) << QString(text) << value;
    };
    add("0", 0);
    add("-0", -0.0F);
    add("0.5", 0.5F);
    add("+0.5", 0.5F);
    add("-0.5", -0.5F);
    add(".5", 0.5F);
    add("5.", 5);
    add("0.1", 0.1F);
    add("007", 7);
    add(" 2.5", 2.5F);
    add("2.5 ", 2.5F);
    add("\n\t2.5\n", 2.5F);
    add("<![CDATA[2.5]]>", 2.5F);
    add("2<!-- -->.5", 2.5F);
    add("&#50;.5", 2.5F);
    add("1e3", 1000);
    add("1E3", 1000);
    add("1e+3", 1000);
    add("1e-7", 1e-7F);
    add("1e-07", 1e-7F);
    add("1.23457e+06", 1.23457e6F);
    add("16777217", 16777216);
    add("3.40282e+38", 3.40282e38F);
    add("3.4028234e38", FLT_MAX);
    add("-3.4028234e38", -FLT_MAX);
    add("1.4013e-45", std::numeric_limits<float>::denorm_min());
    add("inf", std::numeric_limits<float>::infinity());
    add("-inf", -std::numeric_limits<float>::infinity());
    add("nan", std::numeric_limits<float>::quiet_NaN());
    // no number, or none that fits
    for (const char *text :
         {"",         " ",       "abc",     "1a",   "a1",    "1 2",    "- 1",   "--1",    "+-1",   "1,5",
          "1.000,5",  "1,000.5", "1.5.2",   "0x10", "1e",    "1e+",    "e5",    "1_0",    "1f",    "true",
          "infinity", "3.5e38",  "-3.5e38", "1e39", "1e400", "-1e400", "1e-50", "1e-400", "\u0661"})
        add(text, 0);
}

void ActivityGenerationDataTest::readingFloats()
{
    QFETCH(QString, text);
    QFETCH(float, value);

    for (const auto &setting : floatSettings) {
        Data data = simpleData();
        (data.*setting.set)(99);
        QCOMPARE(messageOf([&] { process(data, element(child(setting.tag, text))); }), QString());
        QCOMPARE(fieldsOf(data), with(newFields(), {"Mode=0", assigned(setting.tag, exact(value))}));
        if (!std::isnan(value))
            QCOMPARE(std::signbit((data.*setting.get)()), std::signbit(value));
    }
}

void ActivityGenerationDataTest::readingIntegers_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("value");

    const auto add = [](const char *text, int value) {
        QTest::newRow(RowNames::quoted(text)) << QString(text) << value;
    };
    add("0", 0);
    add("-0", 0);
    add("17", 17);
    add("+17", 17);
    add("-17", -17);
    add("0017", 17);
    add(" 17", 17);
    add("17 ", 17);
    add("\n\t17\n", 17);
    add("<![CDATA[17]]>", 17);
    add("1<!-- -->7", 17);
    add("&#49;7", 17);
    add("2147483647", std::numeric_limits<int>::max());
    add("-2147483648", std::numeric_limits<int>::min());
    for (const char *text :
         {"",      " ",    "abc",        "17a",         "a17",        "1 7",
          "- 17",  "--17", "+-17",       "17.0",        "17.",        "17,0",
          "1,000", "1e1",  "0x11",       "0b1",         "1_7",        "true",
          "nan",   "inf",  "2147483648", "-2147483649", "4294967313", "99999999999999999999999999",
          "\u0661"})
        add(text, 0);
}

void ActivityGenerationDataTest::readingIntegers()
{
    QFETCH(QString, text);
    QFETCH(int, value);

    for (const auto &setting : intSettings) {
        Data data = simpleData();
        (data.*setting.set)(99);
        QCOMPARE(messageOf([&] { process(data, element(child(setting.tag, text))); }), QString());
        QCOMPARE(fieldsOf(data),
                 with(newFields(), {"Mode=0", assigned(setting.tag, QString::number(value))}));
    }
}

void ActivityGenerationDataTest::readingSwitches_data()
{
    QTest::addColumn<QString>("text");

    for (const char *text : {"true", "false", "", "True", "TRUE", " true", "true ", "true\n", "1", "yes",
                             "on", "truefalse", "wahr", "<![CDATA[true]]>", "tr<!-- -->ue"})
        QTest::newRow(RowNames::quoted(text)) << QString(text);
}

void ActivityGenerationDataTest::readingSwitches()
{
    QFETCH(QString, text);
    const bool isTrue = text == "true" || text.contains("<!");

    for (const auto &setting : boolSettings) {
        for (const bool before : {false, true}) {
            Data data = simpleData();
            (data.*setting.set)(before);
            QCOMPARE(messageOf([&] { process(data, element(child(setting.tag, text))); }), QString());
            QCOMPARE(fieldsOf(data), with(newFields(), {"Mode=0", assigned(setting.tag, word(isTrue))}));
        }
    }
}

void ActivityGenerationDataTest::autoStart_data()
{
    QTest::addColumn<QString>("attribute");
    QTest::addColumn<bool>("isOn");

    QTest::newRow("none") << "" << false;
    QTest::newRow("true") << "Autostart=\"true\"" << true;
    for (const char *text : {"false", "", "True", "TRUE", " true", "true ", "1", "yes", "on"})
        QTest::newRow(RowNames::quoted(text)) << "Autostart=\"" + QString(text) + '"' << false;
    QTest::newRow("other case") << "AutoStart=\"true\"" << false;
    QTest::newRow("lower case") << "autostart=\"true\"" << false;
}

void ActivityGenerationDataTest::autoStart()
{
    QFETCH(QString, attribute);
    QFETCH(bool, isOn);

    for (const char *version : {"2.2", "1.0", ""}) {
        for (const bool before : {false, true}) {
            Data data;
            data.SetAutoStartOn(before);
            process(data,
                    "<ActivityGeneration Version=\"" + QString(version) + "\" " + attribute
                        + "></ActivityGeneration>");
            QCOMPARE(fieldsOf(data),
                     with(newFields(), {"Version=" + QString(version), assigned("Autostart", word(isOn))}));
        }
    }
    // It is an attribute; an element of that name is one that is not known.
    Data data = simpleData();
    process(data, element("<Autostart>true</Autostart>"));
    QCOMPARE(data.GetAutoStartOn(), false);
}

void ActivityGenerationDataTest::version_data()
{
    QTest::addColumn<QString>("attribute");
    QTest::addColumn<QString>("version");

    QTest::newRow("current") << "Version=\"2.2\""
                             << "2.2";
    QTest::newRow("another") << "Version=\"2.1\""
                             << "2.1";
    QTest::newRow("almost the older one") << "Version=\"1.00\""
                                          << "1.00";
    QTest::newRow("older one, blank in front") << "Version=\" 1.0\""
                                               << " 1.0";
    QTest::newRow("older one, blank behind") << "Version=\"1.0 \""
                                             << "1.0 ";
    QTest::newRow("beginning of the older one") << "Version=\"1\""
                                                << "1";
    QTest::newRow("empty") << "Version=\"\""
                           << "";
    QTest::newRow("none") << ""
                          << "";
    QTest::newRow("lower case") << "version=\"1.0\""
                                << "";
}

/// Whatever is not exactly the older version is read in the current form.
void ActivityGenerationDataTest::version()
{
    QFETCH(QString, attribute);
    QFETCH(QString, version);

    Data data;
    process(data, "<ActivityGeneration " + attribute + ">AGMC<Mode>AGED</Mode></ActivityGeneration>");
    QCOMPARE(fieldsOf(data), with(newFields(), {"Version=" + version, "Mode=2"}));
}

void ActivityGenerationDataTest::unknownElements_data()
{
    QTest::addColumn<QString>("unknown");

    const auto add = [](const char *description, const QString &unknown) {
        QTest::newRow(description) << unknown;
    };
    for (const char *tag : {"DbWriteLevel", "DbWriteDc", "mode", "MODE", "energyChannel", "dbWriteEnergy",
                            "Extra", "Version", "Autostart", "AutomaticWorkflow"}) {
        add(tag, child(tag, "Always"));
        add(qPrintable(QString("%1, empty").arg(tag)), '<' + QString(tag) + "/>");
    }
    add("known element inside", "<Extra><Mode>AGMC</Mode></Extra>");
    add("known elements deep inside",
        "<Extra><More><Mode>AGMC</Mode></More><Mode>AGSC</Mode> text "
        "<SessionCloseTime>7</SessionCloseTime></Extra>");
    add("known elements inside a name of older systems",
        "<DbWriteLevel><Mode>AGMC</Mode></DbWriteLevel><DbWriteDc><DbWriteDDem>Never</DbWriteDDem></"
        "DbWriteDc>");
    add("same element inside itself", "<Extra><Extra><Extra/></Extra><Mode>AGMC</Mode></Extra>");
    add("a whole document inside",
        "<Extra><ActivityGeneration Version=\"1.0\" Autostart=\"false\">AGMC</ActivityGeneration></Extra>");
    add("a whole document as a child",
        "<ActivityGeneration Version=\"2.2\" Autostart=\"false\"><Mode>AGMC</Mode></ActivityGeneration>");
    add("an older document as a child", "<ActivityGeneration Version=\"1.0\">AGMC</ActivityGeneration>");
    add("attributes", "<Extra Version=\"1.0\" Autostart=\"false\" Mode=\"AGMC\"/>");
    add("text, comment and instruction", "AGMC<!-- <Mode>AGMC</Mode> --><?Mode AGMC?><![CDATA[<Mode/>]]>");
}

/// What is not known is passed over with everything inside, and reading goes on behind it.
void ActivityGenerationDataTest::unknownElements()
{
    QFETCH(QString, unknown);

    Data data = fullData();
    const QString text = "<ActivityGeneration Version=\"2.2\" Autostart=\"true\">" + unknown
        + "<ClassMinConfidence>61</ClassMinConfidence>" + unknown + "<ClassFinalScore>62</ClassFinalScore>"
        + unknown + "</ActivityGeneration>";
    QVERIFY(data.SetXmlString(text, true));
    QCOMPARE(fieldsOf(data), with(fieldsOf(fullData()), {"ClassMinConfidence=61", "ClassFinalScore=62"}));
    QCOMPARE(elementOf(data),
             writtenElement(with(fullChildren(), {"ClassMinConfidence=61", "ClassFinalScore=62"}), true));
}

void ActivityGenerationDataTest::unknownNamesAreWrittenEmpty()
{
    Data data;
    process(data,
            element("<Mode>AGMC</Mode><EnergyChannel>BDem</EnergyChannel>"
                    "<DDemActiveCriteria>demodulator locked</DDemActiveCriteria>"
                    "<DbWriteDDem>always</DbWriteDDem><DbWriteClass>Sometimes</DbWriteClass>"));
    QCOMPARE(elementOf(data),
             writtenElement(with(
                 newChildren(),
                 {"Mode=AGMC", "EnergyChannel=", "DDemActiveCriteria=", "DbWriteDDem=", "DbWriteClass="})));
}

void ActivityGenerationDataTest::readingReplacesOnlyWhatIsThere()
{
    Data data = fullData();
    process(data, "<ActivityGeneration Version=\"2.2\"/>");
    QCOMPARE(fieldsOf(data), with(fieldsOf(fullData()), {"Autostart=false"}));
}

void ActivityGenerationDataTest::lastElementCounts()
{
    Data data;
    process(data,
            element("<SessionCloseTime>7</SessionCloseTime><Mode>AGMC</Mode><Mode>AGED</Mode>"
                    "<SessionCloseTime>8</SessionCloseTime>"));
    QCOMPARE(fieldsOf(data), with(newFields(), {"Mode=2", "SessionCloseTime=8"}));
}

void ActivityGenerationDataTest::readingStaysOnTheEndElement()
{
    QXmlStreamReader reader("<Settings>" + writtenElement(fullChildren(), true)
                            + "<Mode>AGSC</Mode></Settings>");
    reader.readNextStartElement();
    reader.readNextStartElement();
    Data data;
    data.ProcessXml(reader);

    QVERIFY(reader.isEndElement());
    QCOMPARE(reader.name().toString(), QString("ActivityGeneration"));
    QCOMPARE(fieldsOf(data), fieldsOf(fullData()));
    QVERIFY(reader.readNextStartElement());
    QCOMPARE(reader.name().toString(), QString("Mode"));
}

/// Where a text is due, an element is an error of the document; the value is what stood before it.
void ActivityGenerationDataTest::elementInsideText()
{
    Data data = fullData();
    QVERIFY(!data.SetXmlString(element("<ClassFinalScore>3<b/>4</ClassFinalScore>"
                                       "<ClassMinConfidence>9</ClassMinConfidence>"),
                               true));
    QCOMPARE(fieldsOf(data), with(fieldsOf(fullData()), {"Autostart=false", "ClassFinalScore=3"}));
}

void ActivityGenerationDataTest::documentsOfOthers()
{
    Data data = fullData();
    QVERIFY(!data.SetXmlString(
        "<ActivityGenerationData Version=\"2.2\"><Mode>AGSC</Mode></ActivityGenerationData>", true));
    QVERIFY(!data.SetXmlString("<Watch Version=\"1.0\">AGSC</Watch>", true));
    QCOMPARE(fieldsOf(data), fieldsOf(fullData()));

    // In the current form, the name of the element is not looked at.
    QVERIFY(data.SetXmlString("<Watch Version=\"2.2\" Autostart=\"true\"><Mode>AGSC</Mode></Watch>", false));
    QCOMPARE(fieldsOf(data), with(fieldsOf(fullData()), {"Mode=0"}));
    QVERIFY(!data.SetXmlString("<ActivityGeneration><Mode>AGMC</Mode>", true));
    QCOMPARE(fieldsOf(data), with(fieldsOf(fullData()), {"Version=", "Autostart=false", "Mode=1"}));
}

void ActivityGenerationDataTest::writtenAndReadBack()
{
    for (const Data &written : {simpleData(), fullData()}) {
        Data data;
        QVERIFY(data.SetXmlString(written.GetXmlString(), true));
        QCOMPARE(fieldsOf(data), fieldsOf(written));
        QCOMPARE(data.GetXmlString(), written.GetXmlString());
    }
}

void ActivityGenerationDataTest::merging()
{
    Data data;
    QVERIFY(data.MergeTesselObject(fullData()));
    QCOMPARE(fieldsOf(data), fieldsOf(fullData()));

    Data fromBinary;
    QByteArray binary = fullData().GetBinaryRepresentationAsQByteArray();
    QVERIFY(fromBinary.SetBinaryRepresentation(binary));
    QCOMPARE(fieldsOf(fromBinary), fieldsOf(fullData()));
}

void ActivityGenerationDataTest::olderForm_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("mode");

    const auto add = [](const char *text, int mode) {
        QTest::newRow(RowNames::quoted(text)) << QString(text) << mode;
    };
    add("AGSC", 0);
    add("AGMC", 1);
    add("AGED", 2);
    add("<![CDATA[AGED]]>", 2);
    add("AG<!-- -->ED", 2);
    add("AG<?x y?>ED", 2);
    for (const char *text : {"", "aged", " AGED", "AGED ", "\nAGED\n", "AGXX", "2"})
        add(text, -1);
}

void ActivityGenerationDataTest::olderForm()
{
    QFETCH(QString, text);
    QFETCH(int, mode);

    for (const bool autoStart : {false, true}) {
        Data data;
        QVERIFY(data.SetXmlString("<ActivityGeneration Version=\"1.0\" Autostart=\"" + word(autoStart) + "\">"
                                      + text + "</ActivityGeneration>",
                                  true));
        QCOMPARE(fieldsOf(data),
                 with(newFields(),
                      {"Version=1.0", assigned("Autostart", word(autoStart)),
                       assigned("Mode", QString::number(mode))}));
    }
}

void ActivityGenerationDataTest::olderFormKeepsAllElse()
{
    Data data = fullData();
    process(data, "<ActivityGeneration Version=\"1.0\">AGMC</ActivityGeneration>");
    QCOMPARE(fieldsOf(data), with(fieldsOf(fullData()), {"Version=1.0", "Autostart=false", "Mode=1"}));
    process(data, "<ActivityGeneration Version=\"1.0\" Autostart=\"true\">none</ActivityGeneration>");
    QCOMPARE(fieldsOf(data), with(fieldsOf(fullData()), {"Version=1.0", "Autostart=true", "Mode=-1"}));
    QVERIFY(!data.HasData());
}

void ActivityGenerationDataTest::olderFormUnderAnotherName()
{
    for (const char *tag : {"Watch", "activityGeneration", "ActivityGenerationData", "Mode"}) {
        Data data = fullData();
        const QString text = "<" + QString(tag) + " Version=\"1.0\">AGSC</" + tag + '>';
        QCOMPARE(messageOf([&] { process(data, text); }),
                 QString("Unknown Tag '" + QString(tag) + "' in 'ActivityGeneration'."));
        QCOMPARE(messageOf([&] { (void)data.SetXmlString(text, false); }),
                 QString("Unknown Tag '" + QString(tag) + "' in 'ActivityGeneration'."));
        QCOMPARE(fieldsOf(data), with(fieldsOf(fullData()), {"Version=1.0", "Autostart=false"}));
    }
}

void ActivityGenerationDataTest::olderFormWithElementsInside_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<int>("mode");

    QTest::newRow("element alone") << "<Mode>AGMC</Mode>" << -1;
    QTest::newRow("element on a line of its own") << "\n    <Mode>AGMC</Mode>\n" << -1;
    QTest::newRow("behind the text") << "AGSC<Mode>AGMC</Mode>" << 0;
    QTest::newRow("inside the text") << "AG<b/>SC" << -1;
    QTest::newRow("unknown element") << "AGSC<DbWriteLevel/>" << 0;
}

/// An element is an error of the document; the mode is what the text before it says.
void ActivityGenerationDataTest::olderFormWithElementsInside()
{
    QFETCH(QString, content);
    QFETCH(int, mode);

    Data data = fullData();
    QVERIFY(!data.SetXmlString(
        "<ActivityGeneration Version=\"1.0\" Autostart=\"true\">" + content + "</ActivityGeneration>", true));
    QCOMPARE(fieldsOf(data),
             with(fieldsOf(fullData()), {"Version=1.0", assigned("Mode", QString::number(mode))}));
}

void ActivityGenerationDataTest::olderFormStaysOnTheEndElement()
{
    QXmlStreamReader reader(QString("<Settings><ActivityGeneration Version=\"1.0\">AGMC</ActivityGeneration>"
                                    "<Mode>AGSC</Mode></Settings>"));
    reader.readNextStartElement();
    reader.readNextStartElement();
    Data data;
    data.ProcessXml(reader);

    QVERIFY(reader.isEndElement());
    QCOMPARE(reader.name().toString(), QString("ActivityGeneration"));
    QCOMPARE(data.GetActivtyGenerationMode(), Data::AGMC);
    QVERIFY(reader.readNextStartElement());
    QCOMPARE(reader.name().toString(), QString("Mode"));
}

void ActivityGenerationDataTest::olderFormIsWrittenAsTheCurrentOne()
{
    Data data;
    process(data, "<ActivityGeneration Version=\"1.0\" Autostart=\"true\">AGMC</ActivityGeneration>");
    QCOMPARE(elementOf(data), writtenElement(with(newChildren(), {"Mode=AGMC"}), true));
    QCOMPARE(data.GetVersion(), QString("1.0"));
    QCOMPARE(data.GetXmlString(), writtenDocument(with(newChildren(), {"Mode=AGMC"}), true));
}

void ActivityGenerationDataTest::currentFormAfterTheOlderOne()
{
    Data data;
    process(data, "<ActivityGeneration Version=\"1.0\">AGMC</ActivityGeneration>");
    process(data, writtenElement(fullChildren(), true));
    QCOMPARE(fieldsOf(data), fieldsOf(fullData()));
}

void ActivityGenerationDataTest::examples_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("document");

    QTest::newRow("current form") << "activity-generation.xml"
                                  << writtenDocument(with(fullChildren(), {"ClassStopScore=1"}), true);
    QTest::newRow("older form") << "activity-generation-1.0.xml"
                                << writtenDocument(with(newChildren(), {"Mode=AGMC"}), true);
    QTest::newRow("children of older systems")
        << "activity-generation-of-older-system.xml"
        << writtenDocument(
               with(newChildren(),
                    {"LevelMaxBreakDuration=0.25", "DDemActiveCriteria=Signal Detection",
                     "DDemMaxBreakDuration=1", "DbWriteDDem=On Energy Detection", "SessionCloseTime=12.5"}));
}

/// Whatever its form, a document is written in the current one; in that form byte by byte.
void ActivityGenerationDataTest::examples()
{
    QFETCH(QString, path);
    QFETCH(QString, document);

    const QStringList paths = pathsIn(EXAMPLES_DIR "/settings", {path});
    QCOMPARE(paths.size(), 1);
    QCOMPARE(namesIn(EXAMPLES_DIR "/settings", {"activity-generation*.xml"}).size(), 3);
    Data data;
    QVERIFY(data.LoadXml(paths.first()));
    QCOMPARE(data.GetXmlString(), document);
    QCOMPARE(TestSupport::textOf(paths.first()) == document, path == "activity-generation.xml");
}

/// Only the mode counts.
void ActivityGenerationDataTest::equality()
{
    for (int mode = -1; mode < 3; ++mode) {
        for (int otherMode = -1; otherMode < 3; ++otherMode) {
            Data data;
            Data other = fullData();
            process(data, element(child("Mode", ::modeNames.value(mode))));
            process(other,
                    "<ActivityGeneration Version=\"3\" Autostart=\"true\">"
                        + child("Mode", ::modeNames.value(otherMode)) + "</ActivityGeneration>");
            QCOMPARE(data == other, mode == otherMode);
            QCOMPARE(data != other, mode != otherMode);
        }
    }
    Renamed<Data> renamed;
    renamed.SetObjectName("Other");
    renamed.SetSessionCloseTime(std::numeric_limits<float>::quiet_NaN());
    QVERIFY(renamed == Data());
    QVERIFY(!(renamed != Data()));
}

void ActivityGenerationDataTest::copies()
{
    Renamed<Data> original;
    process(original, writtenElement(fullChildren(), true).replace("\"2.2\"", "\"4.2\""));
    original.SetObjectName("Original");
    original.SetValidate(false);
    const QStringList fields = with(fieldsOf(fullData()), {"Version=4.2"});

    Data copy = original;
    QCOMPARE(fieldsOf(copy), fields);
    QCOMPARE(copy.GetObjectName(), QString("Original"));
    QCOMPARE(copy.GetValidate(), false);
    QCOMPARE(copy.GetActivityGenerationModeList(), ::modeNames);
    QCOMPARE(copy.GetDDemActiveCriteriaList(true), ::criteriaNames);
    copy.Reset();
    QCOMPARE(fieldsOf(original), fields);
}

void ActivityGenerationDataTest::assignment()
{
    Renamed<Data> original;
    process(original, writtenElement(fullChildren(), true).replace("\"2.2\"", "\"4.2\""));
    original.SetObjectName("Original");
    original.SetValidate(false);

    Data data;
    Data &result = data = original;
    QCOMPARE(&result, &data);
    QCOMPARE(fieldsOf(data), with(fieldsOf(fullData()), {"Version=4.2"}));
    QCOMPARE(data.GetObjectName(), QString("Original"));
    QCOMPARE(data.GetValidate(), false);

    data = Data();
    QCOMPARE(fieldsOf(data), newFields());
    QCOMPARE(data.GetObjectName(), QString("ActivityGeneration"));
}

void ActivityGenerationDataTest::selfAssignment()
{
    Data data = fullData();
    const Data &same = data;
    data = same;
    QCOMPARE(fieldsOf(data), fieldsOf(fullData()));
}

QTEST_GUILESS_MAIN(ActivityGenerationDataTest)
#include "ActivityGenerationDataTest.moc"
