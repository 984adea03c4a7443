#include <kormak/AutomaticWorkflow.h>
#include <tests/support/Files.h>
#include <tests/support/LocaleRuns.h>
#include <tests/support/Objects.h>
#include <tests/support/RowNames.h>
#include <tests/support/VocabularyChecks.h>

#include <QTemporaryDir>

#include <limits>
#include <type_traits>

using namespace KORMAK;
using namespace TestSupport;
using TESSEL::Area;
using TESSEL::Coordinate;
using Mode = AutomaticWorkflow::WorkflowMode;
using Strategy = AutomaticWorkflow::SearchStrategy;
using Change = void (*)(AutomaticWorkflow &);
using CountIsValid = bool (AutomaticWorkflow::*)(unsigned int) const;
using SetCount = void (AutomaticWorkflow::*)(unsigned int);

Q_DECLARE_METATYPE(KORMAK::AutomaticWorkflow)
Q_DECLARE_METATYPE(Change)
Q_DECLARE_METATYPE(CountIsValid)
Q_DECLARE_METATYPE(SetCount)

static_assert(std::is_base_of_v<TESSEL::ITesselObject, AutomaticWorkflow>);
static_assert(std::is_same_v<decltype(std::declval<AutomaticWorkflow &>().GetArea()), Area &>);
static_assert(std::is_same_v<decltype(std::declval<const AutomaticWorkflow &>().GetArea()), const Area &>);
static_assert(
    std::is_same_v<decltype(std::declval<const AutomaticWorkflow &>().GetVersion()), const QString &>);

namespace {

/// A workflow that differs from a new one in every field.
AutomaticWorkflow fullWorkflow()
{
    AutomaticWorkflow workflow;
    workflow.SetWorkflowMode(AutomaticWorkflow::AutomaticMode);
    workflow.SetNumberClassifiers(7);
    workflow.SetClassificationTime(120);
    workflow.SetClassificationResults(5);
    workflow.SetSearchStrategy(AutomaticWorkflow::LatestActiveFirst);
    workflow.SetHFBitstreamClassification(true);
    workflow.GetArea().SetName("Harbour");
    workflow.GetArea().AddCoordinate({54.5, 10.25});
    workflow.GetArea().AddCoordinate({-0.1, -179.75});
    return workflow;
}

QString fullChildren()
{
    return "<Classifiers>7</Classifiers><ClassificationTime>120</ClassificationTime>"
           "<ClassificationResult>5</ClassificationResult><SearchStrategy>LatestActiveFirst</SearchStrategy>"
           "<BitstreamClassification>true</BitstreamClassification>"
           "<Area Version=\"1.0\"><Name>Harbour</Name>"
           "<Coordinate><Latitude>54.5</Latitude><Longitude>10.25</Longitude></Coordinate>"
           "<Coordinate><Latitude>-0.1</Latitude><Longitude>-179.75</Longitude></Coordinate></Area>";
}

QString manualElement(const QString &version = "1.0")
{
    return "<AutomaticWorkflow Version=\"" + version + "\" Mode=\"ManualMode\"/>";
}

QString automaticElement(const QString &children)
{
    return "<AutomaticWorkflow Version=\"1.0\" Mode=\"AutomaticMode\">" + children + "</AutomaticWorkflow>";
}

QString element(const QString &children)
{
    return "<AutomaticWorkflow Version=\"1.0\">" + children + "</AutomaticWorkflow>";
}

QStringList fieldsOf(const AutomaticWorkflow &workflow)
{
    QString area = "Area=" + workflow.GetArea().GetName();
    for (const Coordinate &coordinate : workflow.GetArea().GetCoordinate())
        area += QString(" (%1;%2)").arg(coordinate.GetLatitude()).arg(coordinate.GetLongitude());
    return {
        "Version=" + workflow.GetVersion(),
        "Mode=" + QString::number(workflow.GetWorkflowMode()),
        "Classifiers=" + QString::number(workflow.GetNumberClassifiers()),
        "Time=" + QString::number(workflow.GetClassificationTime()),
        "Results=" + QString::number(workflow.GetClassificationResults()),
        "Strategy=" + QString::number(workflow.GetSearchStrategy()),
        QString("Bitstream=") + (workflow.GetHFBitstreamClassification() ? "true" : "false"),
        area,
    };
}

QStringList newFields()
{
    return {"Version=1.0", "Mode=-1",     "Classifiers=1",   "Time=40",
            "Results=3",   "Strategy=-1", "Bitstream=false", "Area="};
}

/// A workflow that takes itself for incomplete whatever it holds.
class NeverComplete : public AutomaticWorkflow {
public:
    [[nodiscard]] bool HasData() const override { return false; }
};

class AlwaysComplete : public AutomaticWorkflow {
public:
    [[nodiscard]] bool HasData() const override { return true; }
};

// No setter and no document gives a workflow a count outside its limits or a mode outside its vocabulary.
// What it does with such values is tested through the members themselves: access is not checked in the
// arguments of an explicit instantiation.
struct Members {
    Mode &mode;
    Strategy &strategy;
    unsigned int &classifiers;
    unsigned int &time;
    unsigned int &results;
};
Members membersOf(AutomaticWorkflow &workflow);

template <auto mode, auto strategy, auto classifiers, auto time, auto results>
struct MemberAccess {
    friend Members membersOf(AutomaticWorkflow &workflow)
    {
        return {workflow.*mode, workflow.*strategy, workflow.*classifiers, workflow.*time, workflow.*results};
    }
};
template struct MemberAccess<&AutomaticWorkflow::workflowMode, &AutomaticWorkflow::searchStrategy,
                             &AutomaticWorkflow::numberClassifiers, &AutomaticWorkflow::classificationTime,
                             &AutomaticWorkflow::classificationResults>;

struct Values {
    int mode;
    unsigned int classifiers;
    unsigned int time;
    unsigned int results;
    int strategy;
    QString area = {};
};

AutomaticWorkflow workflowOf(const Values &values)
{
    AutomaticWorkflow workflow;
    const Members members = membersOf(workflow);
    members.mode = static_cast<Mode>(values.mode);
    members.strategy = static_cast<Strategy>(values.strategy);
    members.classifiers = values.classifiers;
    members.time = values.time;
    members.results = values.results;
    workflow.GetArea().SetName(values.area);
    return workflow;
}

VocabularyChecks::Vocabulary<Mode> modes()
{
    return {{"ManualMode", "AutomaticMode"},
            "undefined",
            AutomaticWorkflow::WorkflowModeToName,
            AutomaticWorkflow::NameToWorkflowMode,
            [](Mode value) { return AutomaticWorkflow().IsValidWorkflowMode(value); },
            AutomaticWorkflow::GetInvalidWorkflow,
            {}};
}

VocabularyChecks::Vocabulary<Strategy> strategies()
{
    return {{"LowestIdFirst", "HighestIdFirst", "SmallestBandwidthFirst", "LowestLevelFirst",
             "HighestLevelFirst", "LatestActiveFirst", "ShortestSignalsFirst"},
            "undefined",
            AutomaticWorkflow::SearchStrategyToName,
            AutomaticWorkflow::NameToSearchStrategy,
            [](Strategy value) { return AutomaticWorkflow().IsValidSearchStrategy(value); },
            AutomaticWorkflow::GetInvalidSearchStrategy,
            {}};
}

} // namespace

Q_DECLARE_METATYPE(Values)

class AutomaticWorkflowTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void initTestCase_data() { LocaleRuns::addLocales(); }
    void init() { LocaleRuns::useLocale(); }
    void cleanup() { LocaleRuns::restoreLocale(); }

    void newWorkflow();
    void reset();
    void resetKeepsTheName();

    void modeNames_data() { VocabularyChecks::addNames(modes()); }
    void modeNames() { VocabularyChecks::checkName(modes()); }
    void unknownModeNames_data() { VocabularyChecks::addUnknownNames(modes()); }
    void unknownModeNames() { VocabularyChecks::checkUnknownName(modes()); }
    void modeValues_data() { VocabularyChecks::addValues(modes()); }
    void modeValues() { VocabularyChecks::checkValue(modes()); }
    void strategyNames_data() { VocabularyChecks::addNames(strategies()); }
    void strategyNames() { VocabularyChecks::checkName(strategies()); }
    void unknownStrategyNames_data() { VocabularyChecks::addUnknownNames(strategies()); }
    void unknownStrategyNames() { VocabularyChecks::checkUnknownName(strategies()); }
    void strategyValues_data() { VocabularyChecks::addValues(strategies()); }
    void strategyValues() { VocabularyChecks::checkValue(strategies()); }

    void counts_data();
    void counts();
    void setWorkflowMode_data() { VocabularyChecks::addValues(modes()); }
    void setWorkflowMode();
    void setSearchStrategy_data() { VocabularyChecks::addValues(strategies()); }
    void setSearchStrategy();
    void setHFBitstreamClassification();
    void messagesNameTheObject();

    void completeness_data();
    void completeness();
    void anyData_data();
    void anyData();
    void check_data();
    void check();
    void checkOfADerivedClass();
    void checkOnDemand();

    void writing_data();
    void writing();
    void writesUnderItsName();
    void documents();
    void documentOfAnIncompleteWorkflow();
    void automaticWithoutStrategyHandsNothingOn();

    void reading_data();
    void reading();
    void areaErrorsPassThrough();
    void unknownTags_data();
    void unknownTags();
    void readingReplacesOnlyWhatIsThere();
    void readingKeepsWhatCameBeforeAnError();
    void lastElementCounts();
    void modeAttributeIsIgnored_data();
    void modeAttributeIsIgnored();
    void version_data();
    void version();
    void readingStaysOnTheEndElement();
    void elementInsideText();
    void documentsOfOthers();
    void writtenAndReadBack();
    void merging();
    void examples_data();
    void examples();

    void equality_data();
    void equality();
    void notANumberIsUnequal_data();
    void notANumberIsUnequal();

    void copies();
    void assignment();
    void selfAssignment();
};

void AutomaticWorkflowTest::newWorkflow()
{
    const AutomaticWorkflow workflow;

    QCOMPARE(fieldsOf(workflow), newFields());
    QCOMPARE(workflow.GetObjectName(), QString("AutomaticWorkflow"));
    QVERIFY(!workflow.HasData());
    QVERIFY(workflow.AnyData());
    QCOMPARE(elementOf(workflow), QString());
    QCOMPARE(messageOf([&] { workflow.Check(); }), QString("AutomaticWorkflow: Please set WorkflowMode"));
}

void AutomaticWorkflowTest::reset()
{
    AutomaticWorkflow workflow = fullWorkflow();
    process(workflow, "<AutomaticWorkflow Version=\"3.4\"><Area Version=\"5.6\"/></AutomaticWorkflow>");
    QCOMPARE(workflow.GetVersion(), QString("3.4"));
    QCOMPARE(workflow.GetArea().GetVersion(), QString("5.6"));
    workflow.GetArea().AddCoordinate({1, 2});

    workflow.Reset();

    QCOMPARE(fieldsOf(workflow), newFields());
    QCOMPARE(workflow.GetArea().GetVersion(), QString("1.0"));
    QVERIFY(workflow == AutomaticWorkflow());
}

void AutomaticWorkflowTest::resetKeepsTheName()
{
    Renamed<AutomaticWorkflow> workflow;
    workflow.SetObjectName("Other");
    workflow.Reset();
    QCOMPARE(workflow.GetObjectName(), QString("Other"));
}

void AutomaticWorkflowTest::counts_data()
{
    QTest::addColumn<CountIsValid>("isValid");
    QTest::addColumn<SetCount>("set");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("field");
    QTest::addColumn<unsigned int>("value");
    QTest::addColumn<bool>("isInside");

    const auto add = [](CountIsValid isValid, SetCount set, const QString &name, const QString &field,
                        unsigned int most) {
        const auto row = [&](const char *description, unsigned int value, bool isInside) {
            QTest::newRow(qPrintable(name + ", " + description))
                << isValid << set << name << field << value << isInside;
        };
        row("zero", 0, false);
        row("least", 1, true);
        row("second", 2, true);
        row("last but one", most - 1, true);
        row("most", most, true);
        row("one too many", most + 1, false);
        row("most in the low byte", 1024 + most % 256, false);
        row("most in the low word", 65536 + most, false);
        row("greatest signed number", 2147483647U, false);
        row("sign bit alone", 2147483648U, false);
        row("minus one", static_cast<unsigned int>(-1), false);
    };
    add(&AutomaticWorkflow::IsValidNumberClassifers, &AutomaticWorkflow::SetNumberClassifiers,
        "NumberClassifiers", "Classifiers", 23);
    add(&AutomaticWorkflow::IsValidClassificationTime, &AutomaticWorkflow::SetClassificationTime,
        "ClassificationTime", "Time", 999);
    add(&AutomaticWorkflow::IsValidClassificationResults, &AutomaticWorkflow::SetClassificationResults,
        "ClassificationResults", "Results", 10);
}

void AutomaticWorkflowTest::counts()
{
    QFETCH(CountIsValid, isValid);
    QFETCH(SetCount, set);
    QFETCH(QString, name);
    QFETCH(QString, field);
    QFETCH(unsigned int, value);
    QFETCH(bool, isInside);
    const QString number = QString::number(value);
    AutomaticWorkflow workflow = fullWorkflow();

    QCOMPARE((workflow.*isValid)(value), isInside);
    const QString message = messageOf([&] { (workflow.*set)(value); });
    if (isInside) {
        QCOMPARE(message, QString());
        QCOMPARE(fieldsOf(workflow), with(fieldsOf(fullWorkflow()), {field + '=' + number}));
    } else {
        QCOMPARE(message, QString("AutomaticWorkflow: Invalid " + name + " '" + number + "'"));
        QCOMPARE(fieldsOf(workflow), fieldsOf(fullWorkflow()));
    }
}

void AutomaticWorkflowTest::setWorkflowMode()
{
    QFETCH(int, value);
    QFETCH(bool, isKnown);
    const QString number = QString::number(value);

    for (const Mode before : {AutomaticWorkflow::ManualMode, AutomaticWorkflow::AutomaticMode}) {
        AutomaticWorkflow workflow = fullWorkflow();
        workflow.SetWorkflowMode(before);
        const QString message = messageOf([&] { workflow.SetWorkflowMode(static_cast<Mode>(value)); });
        const QString kept = QString::number(before);
        QCOMPARE(message,
                 isKnown ? QString() : QString("AutomaticWorkflow: Invalid WorkflowMode '" + number + "'"));
        QCOMPARE(fieldsOf(workflow),
                 with(fieldsOf(fullWorkflow()), {QString("Mode=" + (isKnown ? number : kept))}));
    }
}

void AutomaticWorkflowTest::setSearchStrategy()
{
    QFETCH(int, value);
    QFETCH(bool, isKnown);
    const QString number = QString::number(value);

    AutomaticWorkflow workflow = fullWorkflow();
    const QString message = messageOf([&] { workflow.SetSearchStrategy(static_cast<Strategy>(value)); });
    QCOMPARE(message,
             isKnown ? QString() : QString("AutomaticWorkflow: Invalid SearchStrategy '" + number + "'"));
    QCOMPARE(fieldsOf(workflow),
             isKnown ? with(fieldsOf(fullWorkflow()), {"Strategy=" + number}) : fieldsOf(fullWorkflow()));
}

void AutomaticWorkflowTest::setHFBitstreamClassification()
{
    AutomaticWorkflow workflow;
    workflow.SetHFBitstreamClassification(true);
    QCOMPARE(fieldsOf(workflow), with(newFields(), {"Bitstream=true"}));
    workflow.SetHFBitstreamClassification(false);
    QCOMPARE(fieldsOf(workflow), newFields());
}

void AutomaticWorkflowTest::messagesNameTheObject()
{
    Renamed<AutomaticWorkflow> workflow;
    workflow.SetObjectName("Night %2 watch");
    const auto read = [&](const QString &child) { process(workflow, element(child)); };

    QCOMPARE(messageOf([&] { workflow.Check(); }), QString("Night %2 watch: Please set WorkflowMode"));
    QCOMPARE(messageOf([&] { workflow.SetNumberClassifiers(24); }),
             QString("Night %2 watch: Invalid NumberClassifiers '24'"));
    QCOMPARE(messageOf([&] { workflow.SetWorkflowMode(static_cast<Mode>(2)); }),
             QString("Night %2 watch: Invalid WorkflowMode '2'"));
    QCOMPARE(messageOf([&] { read("<Height/>"); }), QString("Unknown Tag 'Height' in 'Night %2 watch'."));
}

void AutomaticWorkflowTest::completeness_data()
{
    QTest::addColumn<Values>("values");
    QTest::addColumn<bool>("isComplete");

    const auto add = [](const char *description, const Values &values, bool isComplete) {
        QTest::newRow(description) << values << isComplete;
    };
    add("new", {-1, 1, 40, 3, -1}, false);
    add("no mode, all else valid", {-1, 1, 40, 3, 0, "Harbour"}, false);
    add("manual", {0, 1, 40, 3, -1}, true);
    add("manual, nothing else valid", {0, 0, 0, 0, -1}, true);
    add("automatic", {1, 1, 40, 3, 0}, true);
    add("automatic, least", {1, 1, 1, 1, 0}, true);
    add("automatic, most", {1, 23, 999, 10, 6}, true);
    add("automatic, no classifier", {1, 0, 40, 3, 0}, false);
    add("automatic, too many classifiers", {1, 24, 40, 3, 0}, false);
    add("automatic, no time", {1, 1, 0, 3, 0}, false);
    add("automatic, too much time", {1, 1, 1000, 3, 0}, false);
    add("automatic, no results", {1, 1, 40, 0, 0}, false);
    add("automatic, too many results", {1, 1, 40, 11, 0}, false);
    add("automatic, no strategy", {1, 1, 40, 3, -1}, false);
    add("automatic, unknown strategy", {1, 1, 40, 3, 7}, false);
    add("unknown mode", {2, 1, 40, 3, 0}, false);
    add("negative mode", {-2, 1, 40, 3, 0}, false);
}

/// Only a complete workflow is written.
void AutomaticWorkflowTest::completeness()
{
    QFETCH(Values, values);
    QFETCH(bool, isComplete);
    const AutomaticWorkflow workflow = workflowOf(values);

    QCOMPARE(workflow.HasData(), isComplete);
    QCOMPARE(elementOf(workflow).isEmpty(), !isComplete);
}

void AutomaticWorkflowTest::anyData_data()
{
    QTest::addColumn<Values>("values");
    QTest::addColumn<bool>("isAny");

    const auto add = [](const char *description, const Values &values, bool isAny) {
        QTest::newRow(description) << values << isAny;
    };
    add("nothing", {-1, 0, 0, 0, -1}, false);
    add("everything too great", {2, 24, 1000, 11, 7}, false);
    add("area alone", {-1, 0, 0, 0, -1, "Harbour"}, false);
    add("manual", {0, 0, 0, 0, -1}, true);
    add("automatic", {1, 0, 0, 0, -1}, true);
    add("least classifiers", {-1, 1, 0, 0, -1}, true);
    add("most classifiers", {-1, 23, 0, 0, -1}, true);
    add("least time", {-1, 0, 1, 0, -1}, true);
    add("most time", {-1, 0, 999, 0, -1}, true);
    add("least results", {-1, 0, 0, 1, -1}, true);
    add("most results", {-1, 0, 0, 10, -1}, true);
    add("first strategy", {-1, 0, 0, 0, 0}, true);
    add("last strategy", {-1, 0, 0, 0, 6}, true);
}

void AutomaticWorkflowTest::anyData()
{
    QFETCH(Values, values);
    QFETCH(bool, isAny);
    QCOMPARE(workflowOf(values).AnyData(), isAny);
}

void AutomaticWorkflowTest::check_data()
{
    QTest::addColumn<Values>("values");
    QTest::addColumn<QString>("message");

    const auto add = [](const char *description, const Values &values, const QString &message) {
        QTest::newRow(description) << values << message;
    };
    const QString start = "AutomaticWorkflow: Please set ";
    add("no mode", {-1, 1, 40, 3, 0, "Harbour"}, start + "WorkflowMode");
    add("no mode comes first", {-1, 0, 0, 0, -1}, start + "WorkflowMode");
    add("manual", {0, 0, 0, 0, -1}, {});
    add("automatic", {1, 1, 40, 3, 0}, {});
    add("automatic, no strategy", {1, 1, 40, 3, -1}, {});
    add("automatic, nothing else valid", {1, 0, 1000, 11, -1}, {});
    for (const int mode : {2, -2, 256, std::numeric_limits<int>::min()}) {
        const QByteArray description = "mode " + QByteArray::number(mode) + ", ";
        const auto addUnknown = [&](const char *what, Values values, const QString &message) {
            values.mode = mode;
            add(description + what, values, message);
        };
        addUnknown("area first", {0, 0, 0, 0, -1}, "Area: Please set Name");
        addUnknown("then classifiers", {0, 0, 0, 0, -1, "Harbour"}, start + "NumberClassifers");
        addUnknown("too many classifiers", {0, 24, 0, 0, -1, "Harbour"}, start + "NumberClassifers");
        addUnknown("then time", {0, 23, 0, 0, -1, "Harbour"}, start + "ClassificationTime");
        addUnknown("too much time", {0, 1, 1000, 0, -1, "Harbour"}, start + "ClassificationTime");
        addUnknown("then results", {0, 1, 999, 0, -1, "Harbour"}, start + "ClassificationResults");
        addUnknown("too many results", {0, 1, 1, 11, -1, "Harbour"}, start + "ClassificationResults");
        addUnknown("strategy last", {0, 1, 1, 10, -1, "Harbour"}, start + "SearchStrategy");
        addUnknown("unknown strategy passes", {0, 1, 1, 1, 7, "Harbour"}, {});
        addUnknown("all else valid", {0, 1, 40, 3, 0, "Harbour"}, {});
    }
}

void AutomaticWorkflowTest::check()
{
    QFETCH(Values, values);
    QFETCH(QString, message);
    const AutomaticWorkflow workflow = workflowOf(values);
    QCOMPARE(messageOf([&] { workflow.Check(); }), message);
}

/// A derived class may know better what is complete.
void AutomaticWorkflowTest::checkOfADerivedClass()
{
    const AlwaysComplete complete;
    QCOMPARE(messageOf([&] { complete.Check(); }), QString());

    NeverComplete incomplete;
    QCOMPARE(messageOf([&] { incomplete.Check(); }), QString("AutomaticWorkflow: Please set WorkflowMode"));
    incomplete.SetWorkflowMode(AutomaticWorkflow::AutomaticMode);
    QCOMPARE(messageOf([&] { incomplete.Check(); }), QString());
    incomplete.SetWorkflowMode(AutomaticWorkflow::ManualMode);
    QCOMPARE(messageOf([&] { incomplete.Check(); }), QString("Area: Please set Name"));
    incomplete.GetArea().SetName("Harbour");
    QCOMPARE(messageOf([&] { incomplete.Check(); }), QString("AutomaticWorkflow: Please set SearchStrategy"));
    incomplete.SetSearchStrategy(AutomaticWorkflow::LowestIdFirst);
    QCOMPARE(messageOf([&] { incomplete.Check(); }), QString());
    QCOMPARE(elementOf(incomplete), QString());
}

void AutomaticWorkflowTest::checkOnDemand()
{
    const AutomaticWorkflow workflow;
    QCOMPARE(messageOf([&] { workflow.Check(false); }), QString());
    QCOMPARE(messageOf([&] { workflow.Check(true); }), QString("AutomaticWorkflow: Please set WorkflowMode"));
}

void AutomaticWorkflowTest::writing_data()
{
    QTest::addColumn<AutomaticWorkflow>("workflow");
    QTest::addColumn<QString>("element");

    AutomaticWorkflow workflow;
    QTest::newRow("new") << workflow << QString();
    workflow.SetWorkflowMode(AutomaticWorkflow::ManualMode);
    QTest::newRow("manual") << workflow << manualElement();
    workflow.SetWorkflowMode(AutomaticWorkflow::AutomaticMode);
    QTest::newRow("automatic, no strategy") << workflow << QString();
    workflow.SetSearchStrategy(AutomaticWorkflow::LowestIdFirst);
    QTest::newRow("automatic, defaults")
        << workflow
        << automaticElement("<Classifiers>1</Classifiers><ClassificationTime>40</ClassificationTime>"
                            "<ClassificationResult>3</ClassificationResult>"
                            "<SearchStrategy>LowestIdFirst</SearchStrategy>"
                            "<BitstreamClassification>false</BitstreamClassification>");
    workflow.GetArea().AddCoordinate({1, 2});
    workflow.SetNumberClassifiers(23);
    workflow.SetClassificationTime(999);
    workflow.SetClassificationResults(10);
    workflow.SetSearchStrategy(AutomaticWorkflow::ShortestSignalsFirst);
    QTest::newRow("automatic, greatest values, area without a name")
        << workflow
        << automaticElement("<Classifiers>23</Classifiers><ClassificationTime>999</ClassificationTime>"
                            "<ClassificationResult>10</ClassificationResult>"
                            "<SearchStrategy>ShortestSignalsFirst</SearchStrategy>"
                            "<BitstreamClassification>false</BitstreamClassification>");
    workflow = fullWorkflow();
    QTest::newRow("automatic with area") << workflow << automaticElement(fullChildren());
    workflow.SetWorkflowMode(AutomaticWorkflow::ManualMode);
    QTest::newRow("manual, everything else set") << workflow << manualElement();
    process(workflow, "<AutomaticWorkflow Version=\"2.5\"/>");
    QTest::newRow("version that was read") << workflow << manualElement("2.5");
    process(workflow, "<AutomaticWorkflow/>");
    QTest::newRow("no version was read") << workflow << manualElement("");
}

void AutomaticWorkflowTest::writing()
{
    QFETCH(AutomaticWorkflow, workflow);
    QFETCH(QString, element);
    QCOMPARE(elementOf(workflow), element);
}

void AutomaticWorkflowTest::writesUnderItsName()
{
    Renamed<AutomaticWorkflow> workflow;
    workflow.SetObjectName("NightWatch");
    workflow.SetWorkflowMode(AutomaticWorkflow::ManualMode);
    QCOMPARE(elementOf(workflow), QString("<NightWatch Version=\"1.0\" Mode=\"ManualMode\"/>"));
}

void AutomaticWorkflowTest::documents()
{
    AutomaticWorkflow workflow;
    workflow.SetWorkflowMode(AutomaticWorkflow::ManualMode);
    QCOMPARE(workflow.GetXmlString(), document(manualElement() + '\n'));

    workflow.SetWorkflowMode(AutomaticWorkflow::AutomaticMode);
    workflow.SetSearchStrategy(AutomaticWorkflow::HighestIdFirst);
    workflow.GetArea().SetName("Nordsee & Elbe");
    QCOMPARE(workflow.GetXmlString(),
             document("<AutomaticWorkflow Version=\"1.0\" Mode=\"AutomaticMode\">\n"
                      "    <Classifiers>1</Classifiers>\n"
                      "    <ClassificationTime>40</ClassificationTime>\n"
                      "    <ClassificationResult>3</ClassificationResult>\n"
                      "    <SearchStrategy>HighestIdFirst</SearchStrategy>\n"
                      "    <BitstreamClassification>false</BitstreamClassification>\n"
                      "    <Area Version=\"1.0\">\n"
                      "        <Name>Nordsee &amp; Elbe</Name>\n"
                      "    </Area>\n"
                      "</AutomaticWorkflow>\n"));
}

void AutomaticWorkflowTest::documentOfAnIncompleteWorkflow()
{
    const AutomaticWorkflow workflow;
    QString text = "untouched";
    QCOMPARE(messageOf([&] { text = workflow.GetXmlString(); }),
             QString("AutomaticWorkflow: Please set WorkflowMode"));
    QCOMPARE(text, QString("untouched"));
}

/// The check lets it pass, although it writes no element.
void AutomaticWorkflowTest::automaticWithoutStrategyHandsNothingOn()
{
    AutomaticWorkflow workflow;
    workflow.SetWorkflowMode(AutomaticWorkflow::AutomaticMode);
    const QTemporaryDir folder;
    const QString path = folder.filePath("workflow.xml");

    QCOMPARE(workflow.GetXmlString().trimmed(), document({}).trimmed());
    QVERIFY(!workflow.SaveXml(path));
    QVERIFY(!QFile::exists(path));
    QCOMPARE(workflow.GetBinaryRepresentationAsQByteArray(), QByteArray());
    AutomaticWorkflow other = fullWorkflow();
    QVERIFY(!other.MergeTesselObject(workflow));
    QCOMPARE(fieldsOf(other), fieldsOf(fullWorkflow()));
}

void AutomaticWorkflowTest::reading_data()
{
    QTest::addColumn<QString>("child");
    QTest::addColumn<QStringList>("changes");
    QTest::addColumn<QString>("message");

    const auto add = [](const QString &tag, const QString &text, const QStringList &changes,
                        const QString &message = {}) {
        QTest::newRow(tag.toUtf8() + ' ' + RowNames::quoted(text))
            << QString('<' + tag + '>' + text + "</" + tag + '>') << changes << message;
    };

    add("Mode", "ManualMode", {"Mode=0"});
    add("Mode", "AutomaticMode", {"Mode=1"});
    for (const char *text : {"", "Manual", "manualmode", "AUTOMATICMODE", " ManualMode", "ManualMode ",
                             "\nAutomaticMode\n", "0", "1", "undefined"})
        add("Mode", text, {"Mode=-1"});

    const auto addCount = [&](const QString &tag, const QString &field, const QString &name, int most) {
        const auto stores = [&](const QString &text, int value) {
            add(tag, text, {QString(field + '=' + QString::number(value))});
        };
        const auto rejects = [&](const QString &text, const QString &value) {
            add(tag, text, {}, QString("AutomaticWorkflow: Invalid " + name + " '" + value + '\''));
        };
        stores("1", 1);
        stores(QString::number(most), most);
        stores("+9", 9);
        stores("009", 9);
        stores(" 9", 9);
        stores("9 ", 9);
        stores("\t\n9\n ", 9);
        stores("<![CDATA[9]]>", 9);
        stores("<!-- nine -->9", 9);
        stores("&#57;", 9);
        rejects("0", "0");
        rejects(QString::number(most + 1), QString::number(most + 1));
        rejects("2147483648", "2147483648");
        rejects("4294967295", "4294967295");
        rejects("", "0");
        for (const char *text : {"abc",
                                 "9a",
                                 "a9",
                                 "-1",
                                 "-9",
                                 "--9",
                                 "+-9",
                                 "- 9",
                                 "9 9",
                                 "9.0",
                                 "9,0",
                                 "9.",
                                 "9e0",
                                 "1e1",
                                 "0x9",
                                 "0b1",
                                 "1,0",
                                 "1'0",
                                 "1_0",
                                 "nan",
                                 "inf",
                                 "true",
                                 "4294967296",
                                 "4294967305",
                                 "18446744073709551625",
                                 "99999999999999999999999999",
                                 "\u0669"})
            rejects(text, "0");
    };
    addCount("Classifiers", "Classifiers", "NumberClassifiers", 23);
    addCount("ClassificationTime", "Time", "ClassificationTime", 999);
    addCount("ClassificationResult", "Results", "ClassificationResults", 10);

    const QStringList names = strategies().names;
    for (int value = 0; value < names.size(); ++value)
        add("SearchStrategy", names[value], {"Strategy=" + QString::number(value)});
    for (const char *text : {"", "lowestidfirst", "LOWESTIDFIRST", " LowestIdFirst", "LowestIdFirst ", "0",
                             "7", "LowestId", "undefined"})
        add("SearchStrategy", text, {}, "AutomaticWorkflow: Invalid SearchStrategy '-1'");

    add("BitstreamClassification", "true", {"Bitstream=true"});
    for (const char *text : {"", "false", "True", "TRUE", " true", "true ", "1", "yes", "on", "wahr"})
        add("BitstreamClassification", text, {"Bitstream=false"});

    add("Area", "<Name>Baltic</Name>", {"Area=Baltic"});
    add("Area", "<Coordinate><Latitude>1.5</Latitude><Longitude>-2.5</Longitude></Coordinate>",
        {"Area=Harbour (1.5;-2.5)"});
}

void AutomaticWorkflowTest::reading()
{
    QFETCH(QString, child);
    QFETCH(QStringList, changes);
    QFETCH(QString, message);

    AutomaticWorkflow workflow = fullWorkflow();
    // For an area that is read its own coordinates go.
    const bool isArea = child.startsWith("<Area");
    const QStringList before = isArea ? with(fieldsOf(workflow), {"Area=Harbour"}) : fieldsOf(workflow);
    QCOMPARE(messageOf([&] { process(workflow, element(child)); }), message);
    QCOMPARE(fieldsOf(workflow), with(before, changes));
}

void AutomaticWorkflowTest::areaErrorsPassThrough()
{
    AutomaticWorkflow workflow = fullWorkflow();
    QCOMPARE(messageOf([&] { process(workflow, element("<Area><Classifiers>2</Classifiers></Area>")); }),
             QString("Unknown Tag 'Classifiers' in 'Area'."));
    QCOMPARE(workflow.GetNumberClassifiers(), 7U);
}

void AutomaticWorkflowTest::unknownTags_data()
{
    QTest::addColumn<QString>("child");
    QTest::addColumn<QString>("tag");

    for (const char *tag : {"mode", "MODE", "WorkflowMode", "classifiers", "Classifier", "NumberClassifiers",
                            "classificationTime", "ClassificationResults", "Searchstrategy",
                            "HFBitstreamClassification", "area", "AREA", "Name", "Coordinate", "Version",
                            "Autostart", "DbWriteLevel", "AutomaticWorkflow", "Größe"})
        QTest::newRow(tag) << QString('<' + QString(tag) + "/>") << QString(tag);
    QTest::newRow("known element inside") << "<Extra><Mode>ManualMode</Mode></Extra>"
                                          << "Extra";
    QTest::newRow("text inside") << "<Extra>ManualMode</Extra>"
                                 << "Extra";
}

void AutomaticWorkflowTest::unknownTags()
{
    QFETCH(QString, child);
    QFETCH(QString, tag);

    AutomaticWorkflow workflow = fullWorkflow();
    const QString children =
        "<Classifiers>2</Classifiers>" + child + "<ClassificationTime>3</ClassificationTime>";
    QCOMPARE(messageOf([&] { process(workflow, element(children)); }),
             QString("Unknown Tag '" + tag + "' in 'AutomaticWorkflow'."));
    QCOMPARE(fieldsOf(workflow), with(fieldsOf(fullWorkflow()), {"Classifiers=2"}));
}

void AutomaticWorkflowTest::readingReplacesOnlyWhatIsThere()
{
    AutomaticWorkflow workflow = fullWorkflow();
    process(workflow, element({}));
    QCOMPARE(fieldsOf(workflow), fieldsOf(fullWorkflow()));
    process(workflow, element(" text <!-- and a comment --> is no element <?nor an instruction?>"));
    QCOMPARE(fieldsOf(workflow), fieldsOf(fullWorkflow()));
}

void AutomaticWorkflowTest::readingKeepsWhatCameBeforeAnError()
{
    AutomaticWorkflow workflow;
    const QString text = "<AutomaticWorkflow Version=\"1.1\"><Mode>AutomaticMode</Mode>"
                         "<Classifiers>9</Classifiers><ClassificationTime>1000</ClassificationTime>"
                         "<ClassificationResult>8</ClassificationResult></AutomaticWorkflow>";
    QCOMPARE(messageOf([&] { process(workflow, text); }),
             QString("AutomaticWorkflow: Invalid ClassificationTime '1000'"));
    QCOMPARE(fieldsOf(workflow), with(newFields(), {"Version=1.1", "Mode=1", "Classifiers=9"}));
}

void AutomaticWorkflowTest::lastElementCounts()
{
    AutomaticWorkflow workflow;
    process(workflow,
            element("<SearchStrategy>LowestIdFirst</SearchStrategy><Mode>ManualMode</Mode>"
                    "<Classifiers>4</Classifiers><Mode>AutomaticMode</Mode>"
                    "<Classifiers>5</Classifiers>"
                    "<SearchStrategy>HighestIdFirst</SearchStrategy>"));
    QCOMPARE(fieldsOf(workflow), with(newFields(), {"Mode=1", "Classifiers=5", "Strategy=1"}));
}

void AutomaticWorkflowTest::modeAttributeIsIgnored_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<QString>("attribute");

    for (const int before : {-1, 0, 1}) {
        for (const char *attribute : {"ManualMode", "AutomaticMode", "Manual", ""})
            QTest::newRow(qPrintable(QString("%1 before '%2'").arg(before).arg(attribute)))
                << before << QString(attribute);
    }
}

void AutomaticWorkflowTest::modeAttributeIsIgnored()
{
    QFETCH(int, before);
    QFETCH(QString, attribute);

    AutomaticWorkflow workflow;
    if (before >= 0)
        workflow.SetWorkflowMode(static_cast<Mode>(before));
    process(workflow,
            "<AutomaticWorkflow Version=\"1.0\" Mode=\"" + attribute
                + "\"><Classifiers>2</Classifiers></AutomaticWorkflow>");
    QCOMPARE(fieldsOf(workflow), with(newFields(), {"Mode=" + QString::number(before), "Classifiers=2"}));
}

void AutomaticWorkflowTest::version_data()
{
    QTest::addColumn<QString>("attributes");
    QTest::addColumn<QString>("version");

    QTest::newRow("1.0") << "Version=\"1.0\""
                         << "1.0";
    QTest::newRow("another") << "Version=\"2.2\""
                             << "2.2";
    QTest::newRow("any text") << "Version=\" a b \""
                              << " a b ";
    QTest::newRow("empty") << "Version=\"\""
                           << "";
    QTest::newRow("none") << ""
                          << "";
    QTest::newRow("lower case") << "version=\"1.0\""
                                << "";
    QTest::newRow("upper case") << "VERSION=\"1.0\""
                                << "";
}

void AutomaticWorkflowTest::version()
{
    QFETCH(QString, attributes);
    QFETCH(QString, version);

    AutomaticWorkflow workflow = fullWorkflow();
    process(workflow, "<AutomaticWorkflow " + attributes + "/>");
    QCOMPARE(fieldsOf(workflow), with(fieldsOf(fullWorkflow()), {"Version=" + version}));
}

void AutomaticWorkflowTest::readingStaysOnTheEndElement()
{
    QXmlStreamReader reader("<Settings>" + element(fullChildren()) + "<Mode>ManualMode</Mode></Settings>");
    reader.readNextStartElement();
    reader.readNextStartElement();
    AutomaticWorkflow workflow;
    workflow.ProcessXml(reader);

    QVERIFY(reader.isEndElement());
    QCOMPARE(reader.name().toString(), QString("AutomaticWorkflow"));
    QCOMPARE(fieldsOf(workflow), with(fieldsOf(fullWorkflow()), {"Mode=-1"}));
    QVERIFY(reader.readNextStartElement());
    QCOMPARE(reader.name().toString(), QString("Mode"));
}

/// Where a text is due, an element is an error of the document; the value is what stood before it.
void AutomaticWorkflowTest::elementInsideText()
{
    AutomaticWorkflow workflow = fullWorkflow();
    QVERIFY(!workflow.SetXmlString(
        element("<ClassificationTime>3<b/>4</ClassificationTime><Classifiers>2</Classifiers>"), true));
    QCOMPARE(fieldsOf(workflow), with(fieldsOf(fullWorkflow()), {"Time=3"}));
}

void AutomaticWorkflowTest::documentsOfOthers()
{
    AutomaticWorkflow workflow = fullWorkflow();
    QVERIFY(!workflow.SetXmlString("<Workflow><Classifiers>2</Classifiers></Workflow>", true));
    QVERIFY(
        !workflow.SetXmlString("<automaticWorkflow><Classifiers>2</Classifiers></automaticWorkflow>", true));
    QCOMPARE(fieldsOf(workflow), fieldsOf(fullWorkflow()));

    QVERIFY(
        workflow.SetXmlString("<Workflow Version=\"1.0\"><Classifiers>2</Classifiers></Workflow>", false));
    QCOMPARE(fieldsOf(workflow), with(fieldsOf(fullWorkflow()), {"Classifiers=2"}));
    QVERIFY(!workflow.SetXmlString("<AutomaticWorkflow><Classifiers>3</Classifiers>", true));
    QCOMPARE(fieldsOf(workflow), with(fieldsOf(fullWorkflow()), {"Version=", "Classifiers=3"}));
}

void AutomaticWorkflowTest::writtenAndReadBack()
{
    AutomaticWorkflow workflow;
    QVERIFY(workflow.SetXmlString(fullWorkflow().GetXmlString(), true));

    QCOMPARE(fieldsOf(workflow), with(fieldsOf(fullWorkflow()), {"Mode=-1"}));
    QVERIFY(!workflow.HasData());
    QCOMPARE(elementOf(workflow), QString());
    workflow.SetWorkflowMode(AutomaticWorkflow::AutomaticMode);
    QVERIFY(workflow == fullWorkflow());
    QCOMPARE(workflow.GetXmlString(), fullWorkflow().GetXmlString());

    AutomaticWorkflow fromElement;
    QVERIFY(fromElement.SetXmlString(element("<Mode>AutomaticMode</Mode>" + fullChildren()), true));
    QVERIFY(fromElement.HasData());
    QVERIFY(fromElement == fullWorkflow());
}

/// Merging and the binary form go through the document, which does not hand the mode on.
void AutomaticWorkflowTest::merging()
{
    AutomaticWorkflow workflow;
    workflow.SetWorkflowMode(AutomaticWorkflow::ManualMode);
    QVERIFY(workflow.MergeTesselObject(fullWorkflow()));
    QCOMPARE(fieldsOf(workflow), with(fieldsOf(fullWorkflow()), {"Mode=0"}));

    AutomaticWorkflow fromBinary;
    QByteArray binary = fullWorkflow().GetBinaryRepresentationAsQByteArray();
    QVERIFY(fromBinary.SetBinaryRepresentation(binary));
    QCOMPARE(fieldsOf(fromBinary), with(fieldsOf(fullWorkflow()), {"Mode=-1"}));
}

void AutomaticWorkflowTest::examples_data()
{
    QTest::addColumn<QString>("path");

    for (const QString &path : pathsIn(EXAMPLES_DIR "/settings", {"automatic-workflow*.xml"}))
        QTest::newRow(qPrintable(QFileInfo(path).completeBaseName())) << path;
}

/// Each example is written as it was read, once its mode is set; a mode that stands as an element becomes an
/// attribute.
void AutomaticWorkflowTest::examples()
{
    QFETCH(QString, path);
    const QString content = TestSupport::textOf(path);
    const bool isManual = content.contains("ManualMode");
    const bool isModeElement = content.contains("<Mode>");

    AutomaticWorkflow workflow;
    QVERIFY(workflow.LoadXml(path));
    QCOMPARE(workflow.HasData(), isModeElement);
    QCOMPARE(workflow.GetWorkflowMode() == AutomaticWorkflow::AutomaticMode, isModeElement);
    QString expected = content;
    expected.replace("Version=\"1.0\">\n    <Mode>AutomaticMode</Mode>",
                     "Version=\"1.0\" Mode=\"AutomaticMode\">");
    workflow.SetWorkflowMode(isManual ? AutomaticWorkflow::ManualMode : AutomaticWorkflow::AutomaticMode);
    QCOMPARE(workflow.GetXmlString(), expected);
    QCOMPARE(workflow.GetArea().HasData(), content.contains("<Area"));
    QVERIFY(isManual || workflow.GetNumberClassifiers() != AutomaticWorkflow().GetNumberClassifiers());
}

void AutomaticWorkflowTest::equality_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<bool>("areEqual");

    const auto add = [](const char *description, Change change, bool areEqual) {
        QTest::newRow(description) << change << areEqual;
    };
    using Workflow = AutomaticWorkflow;
    add(
        "nothing", [](Workflow &) {}, true);
    add(
        "mode", [](Workflow &w) { w.SetWorkflowMode(Workflow::ManualMode); }, false);
    add(
        "classifiers", [](Workflow &w) { w.SetNumberClassifiers(8); }, false);
    add(
        "time", [](Workflow &w) { w.SetClassificationTime(121); }, false);
    add(
        "results", [](Workflow &w) { w.SetClassificationResults(6); }, false);
    add(
        "strategy", [](Workflow &w) { w.SetSearchStrategy(Workflow::LowestIdFirst); }, false);
    add(
        "bitstream", [](Workflow &w) { w.SetHFBitstreamClassification(false); }, false);
    add(
        "name of the area", [](Workflow &w) { w.GetArea().SetName("harbour"); }, false);
    add(
        "first latitude", [](Workflow &w) { w.GetArea().GetCoordinate()[0].SetLatitude(54.500000000000007); },
        false);
    add(
        "first longitude", [](Workflow &w) { w.GetArea().GetCoordinate()[0].SetLongitude(-10.25); }, false);
    add(
        "last latitude", [](Workflow &w) { w.GetArea().GetCoordinate()[1].SetLatitude(0.1); }, false);
    add(
        "last longitude", [](Workflow &w) { w.GetArea().GetCoordinate()[1].SetLongitude(179.75); }, false);
    add(
        "one coordinate more", [](Workflow &w) { w.GetArea().AddCoordinate({}); }, false);
    add(
        "one coordinate less", [](Workflow &w) { w.GetArea().GetCoordinate().removeLast(); }, false);
    add(
        "order of coordinates",
        [](Workflow &w) {
            w.GetArea().GetCoordinate() = {w.GetArea().GetCoordinate()[1], w.GetArea().GetCoordinate()[0]};
        },
        false);
    add(
        "version", [](Workflow &w) { process(w, "<AutomaticWorkflow Version=\"9\"/>"); }, true);
    add(
        "version of the area",
        [](Workflow &w) {
            const QVector<Coordinate> coordinates = w.GetArea().GetCoordinate();
            process(w, element("<Area Version=\"9\"/>"));
            w.GetArea().GetCoordinate() = coordinates;
        },
        true);
    add(
        "validate flag", [](Workflow &w) { w.SetValidate(false); }, true);
}

void AutomaticWorkflowTest::equality()
{
    QFETCH(Change, change);
    QFETCH(bool, areEqual);

    const AutomaticWorkflow workflow = fullWorkflow();
    for (AutomaticWorkflow other : {fullWorkflow(), AutomaticWorkflow(workflow)}) {
        change(other);
        QCOMPARE(workflow == other, areEqual);
        QCOMPARE(other == workflow, areEqual);
        QCOMPARE(workflow != other, !areEqual);
        QCOMPARE(other != workflow, !areEqual);
    }

    Renamed<AutomaticWorkflow> renamed;
    renamed.SetObjectName("Other");
    QVERIFY(renamed == AutomaticWorkflow());
    AutomaticWorkflow negativeZero;
    AutomaticWorkflow zero;
    negativeZero.GetArea().AddCoordinate({-0.0, 0.0});
    zero.GetArea().AddCoordinate({0.0, -0.0});
    QVERIFY(negativeZero == zero);
}

void AutomaticWorkflowTest::notANumberIsUnequal_data()
{
    QTest::addColumn<double>("latitude");
    QTest::addColumn<double>("longitude");

    const double nan = std::numeric_limits<double>::quiet_NaN();
    QTest::newRow("latitude") << nan << 1.0;
    QTest::newRow("longitude") << 1.0 << nan;
    QTest::newRow("both") << nan << nan;
}

/// Also in copies, which share their list of coordinates.
void AutomaticWorkflowTest::notANumberIsUnequal()
{
    QFETCH(double, latitude);
    QFETCH(double, longitude);

    AutomaticWorkflow workflow = fullWorkflow();
    workflow.GetArea().AddCoordinate({latitude, longitude});
    const AutomaticWorkflow copy = workflow;
    AutomaticWorkflow assigned;
    assigned = workflow;
    AutomaticWorkflow number = fullWorkflow();
    number.GetArea().AddCoordinate({1.0, 1.0});

    const AutomaticWorkflow *const others[] = {&workflow, &copy, &assigned, &number};
    for (const AutomaticWorkflow *other : others) {
        QVERIFY(!(workflow == *other));
        QVERIFY(workflow != *other);
        QVERIFY(!(*other == workflow));
    }
}

void AutomaticWorkflowTest::copies()
{
    Renamed<AutomaticWorkflow> original;
    process(original,
            "<AutomaticWorkflow Version=\"4.2\"><Mode>AutomaticMode</Mode>" + fullChildren()
                + "</AutomaticWorkflow>");
    original.SetObjectName("Original");
    original.SetValidate(false);
    const QStringList fields = with(fieldsOf(fullWorkflow()), {"Version=4.2"});

    AutomaticWorkflow copy = original;
    QCOMPARE(fieldsOf(copy), fields);
    QCOMPARE(copy.GetObjectName(), QString("Original"));
    QCOMPARE(copy.GetValidate(), false);

    copy.Reset();
    QCOMPARE(fieldsOf(original), fields);
    copy = original;
    original.GetArea().GetCoordinate()[0].SetLatitude(1);
    original.GetArea().SetName("Other");
    QCOMPARE(fieldsOf(copy), fields);
}

void AutomaticWorkflowTest::assignment()
{
    Renamed<AutomaticWorkflow> original;
    process(original,
            "<AutomaticWorkflow Version=\"4.2\"><Mode>AutomaticMode</Mode>" + fullChildren()
                + "</AutomaticWorkflow>");
    original.SetObjectName("Original");
    original.SetValidate(false);

    AutomaticWorkflow assigned;
    AutomaticWorkflow &result = assigned = original;
    QCOMPARE(&result, &assigned);
    QCOMPARE(fieldsOf(assigned), with(fieldsOf(fullWorkflow()), {"Version=4.2"}));
    QCOMPARE(assigned.GetObjectName(), QString("Original"));
    QCOMPARE(assigned.GetValidate(), false);

    assigned = AutomaticWorkflow();
    QCOMPARE(fieldsOf(assigned), newFields());
    QCOMPARE(assigned.GetObjectName(), QString("AutomaticWorkflow"));
}

void AutomaticWorkflowTest::selfAssignment()
{
    AutomaticWorkflow workflow = fullWorkflow();
    const AutomaticWorkflow &same = workflow;
    workflow = same;
    QCOMPARE(fieldsOf(workflow), fieldsOf(fullWorkflow()));
}

QTEST_GUILESS_MAIN(AutomaticWorkflowTest)
#include "AutomaticWorkflowTest.moc"
