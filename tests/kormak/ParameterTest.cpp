#include <objectbase/Logger.h>
#include <tests/support/ObjectStates.h>
#include <tests/support/Samples.h>
#include <tests/support/VocabularyChecks.h>

#include <array>
#include <atomic>
#include <functional>
#include <limits>
#include <memory>
#include <thread>
#include <type_traits>
#include <vector>

using namespace KORMAK;
using namespace TestSupport;

static_assert(std::is_base_of_v<TESSEL::ITesselObject, Parameter>);
static_assert(std::is_same_v<std::underlying_type_t<ParameterType>, qint32>);
static_assert(std::is_same_v<std::underlying_type_t<Parameter::ValueType>, qint32>);
static_assert(std::is_same_v<std::underlying_type_t<Parameter::ControlType>, qint32>);
static_assert(std::is_same_v<decltype(std::declval<Parameter &>().GetParameterType()), ParameterType &>);
static_assert(
    std::is_same_v<decltype(std::declval<const Parameter &>().GetParameterType()), const ParameterType &>);
static_assert(std::is_same_v<decltype(std::declval<Parameter &>().GetValueType()), Parameter::ValueType &>);
static_assert(
    std::is_same_v<decltype(std::declval<const Parameter &>().GetValueType()), const Parameter::ValueType &>);
static_assert(
    std::is_same_v<decltype(std::declval<Parameter &>().GetControlType()), Parameter::ControlType &>);
static_assert(std::is_same_v<decltype(std::declval<const Parameter &>().GetControlType()),
                             const Parameter::ControlType &>);
static_assert(std::is_same_v<decltype(std::declval<const Parameter &>().GetMultiplier()), const double &>);
static_assert(
    std::is_same_v<decltype(std::declval<const Parameter &>().ValueTypeToName({})), const QString &>);
static_assert(
    std::is_same_v<decltype(std::declval<const Parameter &>().ControlTypeToName({})), const QString &>);

using Change = void (*)(OpenParameter &);
Q_DECLARE_METATYPE(Change)
using Predicate = bool (*)(const Parameter &);
Q_DECLARE_METATYPE(Predicate)

class ParameterTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void parameterTypeNames_data();
    void parameterTypeNames();
    void unknownParameterTypeNames_data();
    void unknownParameterTypeNames();
    void parameterTypeValues_data();
    void parameterTypeValues();
    void valueTypeNames_data();
    void valueTypeNames();
    void unknownValueTypeNames_data();
    void unknownValueTypeNames();
    void valueTypeValues_data();
    void valueTypeValues();
    void controlTypeNames_data();
    void controlTypeNames();
    void unknownControlTypeNames_data();
    void unknownControlTypeNames();
    void controlTypeValues_data();
    void controlTypeValues();
    void enumerators();
    void unknownNamesAreReported_data();
    void unknownNamesAreReported();
    void unknownValuesAreReported_data();
    void unknownValuesAreReported();
    void messagesNameTheObject();

    void newParameter();
    void reset();
    void resetKeepsWhatHandlersKeep();

    void texts_data();
    void texts();
    void displaySuffix_data();
    void displaySuffix();
    void hasSuffix();
    void typesAreStoredAsGiven_data();
    void typesAreStoredAsGiven();
    void typesCanBeChangedInPlace();
    void hasControlType_data();
    void hasControlType();
    void predicates_data();
    void predicates();
    void typeByName_data();
    void typeByName();
    void unknownTypeNameChangesNothing_data();
    void unknownTypeNameChangesNothing();

    void namesReachTheHandler_data();
    void namesReachTheHandler();
    void multiplierReachesTheHandler_data();
    void multiplierReachesTheHandler();
    void withoutTypeNoHandlerIsReached_data();
    void withoutTypeNoHandlerIsReached();
    void typeSetLaterHandsNothingOn_data();
    void typeSetLaterHandsNothingOn();
    void newTypeLeavesTheHandlerBefore();

    void handlersAreReplaced();
    void handlersCanBeChangedInPlace();

    void validParameter_data();
    void validParameter();
    void validParameterOfUnknownType_data();
    void validParameterOfUnknownType();
    void completeness_data();
    void completeness();
    void everyTypeCanBeComplete_data();
    void everyTypeCanBeComplete();
    void anyData_data();
    void anyData();
    void check_data();
    void check();
    void checkOnDemand();

    void equality_data();
    void equality();
    void equalityComparesTheHandlerOfTheType_data();
    void equalityComparesTheHandlerOfTheType();
    void equalityOfEveryType_data();
    void equalityOfEveryType();
    void equalityOfDoubleLists();
    void equalityOfNaN();
    void withoutTypeNothingIsEqual_data();
    void withoutTypeNothingIsEqual();
    void enabledIsCompared();

    void copies_data();
    void copies();
    void copiesAreIndependent();
    void copiesTheBase();
    void selfAssignment();

    void handlersKeepTheirAddress_data();
    void handlersKeepTheirAddress();
    void copiesShareNoHandler_data();
    void copiesShareNoHandler();
    void namesOfTypesBelongToTheParameter();
    void threadsReadOneParameter();
};

namespace {

// What a new parameter holds, written out: nothing here is taken from the class.
State newState()
{
    State state{
        {"ObjectName", "Parameter"},
        {"BaseVersion", "1.0"},
        {"UniqueName", ""},
        {"RepresentationName", ""},
        {"DisplayName", ""},
        {"DisplaySuffix", ""},
        {"ToolTip", ""},
        {"Multiplier", "1"},
        {"Enable", "true"},
        {"ValueType", "-1"},
        {"ControlType", "-1"},
        {"ParameterType", "-1"},
    };
    for (const QString &handler : typeNames()) {
        if (handler == "DoubleList")
            continue;
        state[handler + ".UniqueName"] = "";
        state[handler + ".RepresentationName"] = "";
    }
    for (const QString &handler : QStringList{"Integer", "Long", "TimeStamp", "Float", "Double"}) {
        state[handler + ".Default"] = "0";
        state[handler + ".Value"] = "0";
        state[handler + ".Multiplier"] = "1";
    }
    state["Boolean.Value"] = "false";
    state["Integer.Minimum"] = "-32768";
    state["Integer.Maximum"] = "32767";
    state["Long.Minimum"] = "-2147483647";
    state["Long.Maximum"] = "2147483647";
    state["TimeStamp.Minimum"] = "-9223372036854775808";
    state["TimeStamp.Maximum"] = "9223372036854775807";
    state["Float.Minimum"] = "-3.40282347e+38";
    state["Float.Maximum"] = "3.40282347e+38";
    state["Float.Precision"] = "2";
    state["Double.Minimum"] = "-1.7976931348623157e+308";
    state["Double.Maximum"] = "1.7976931348623157e+308";
    state["Double.Value"] = "-111111.11";
    state["Double.Precision"] = "2";
    state["Double.IsList"] = "false";
    state["Double.MaxLength"] = "0";
    state["Double.List"] = "";
    state["String.Default"] = "";
    state["String.Value"] = "";
    state["Enum.List"] = "";
    state["Enum.Default"] = "-1|||0|";
    state["Enum.Selected"] = "-1|||0|";
    return state;
}

// The functions for value types and control types throw for what is unknown.
template <class Enum, class ToName>
QString nameOrNull(Enum value, ToName toName)
{
    QString name;
    const QString message = messageOf([&] { name = toName(value); });
    return message.isNull() ? name : QString();
}

template <class Enum, class FromName>
Enum valueOrInvalid(const QString &name, FromName fromName)
{
    auto value = static_cast<Enum>(-1);
    messageOf([&] { value = fromName(name); });
    return value;
}

VocabularyChecks::Vocabulary<ParameterType> parameterTypes()
{
    return {typeNames(),
            QString(),
            ParameterTypeToName,
            NameToParameterType,
            [](ParameterType type) { return !ParameterTypeToName(type).isEmpty(); },
            {},
            {}};
}

VocabularyChecks::Vocabulary<Parameter::ValueType> valueTypes()
{
    using Type = Parameter::ValueType;
    const auto toName = [](Type type) {
        return nameOrNull(type, [](Type t) { return Parameter().ValueTypeToName(t); });
    };
    return {{"ValueSelection", "ValueBoolean", "ValueNumericInt", "ValueNumericFloat", "ValueString",
             "ValueNumericInt64", "ValueFrequency", "ValueFloatList"},
            QString(),
            toName,
            [](const QString &name) {
                return valueOrInvalid<Type>(name,
                                            [](const QString &n) { return Parameter().NameToValueType(n); });
            },
            [toName](Type type) { return !toName(type).isNull(); },
            {},
            {}};
}

VocabularyChecks::Vocabulary<Parameter::ControlType> controlTypes()
{
    using Type = Parameter::ControlType;
    const auto toName = [](Type type) {
        return nameOrNull(type, [](Type t) { return Parameter().ControlTypeToName(t); });
    };
    return {{"VCFrequency", "VCLineEdit", "VCLineEditFrequency", "VCTimeEdit"},
            QString(),
            toName,
            [](const QString &name) {
                return valueOrInvalid<Type>(
                    name, [](const QString &n) { return Parameter().NameToControlType(n); });
            },
            [](Type type) {
                Parameter parameter;
                parameter.SetControlType(type);
                return parameter.HasControlType();
            },
            {},
            {}};
}

/// Every field of a parameter that a caller can change, changed.
void fill(OpenParameter &parameter)
{
    process(parameter, "<Parameter Version=\"2.5\"><Enable>false</Enable></Parameter>");
    for (int type = 0; type < TypeCount; ++type) {
        parameter.SetParameterType(typeOf(type));
        parameter.SetUniqueParameterName("unique");
        parameter.SetRepresenationName("representation");
        parameter.SetMultiplier(1000);
    }
    parameter.SetDisplayName("display");
    parameter.SetDisplaySuffix("Hz");
    parameter.SetToolTip("tip");
    parameter.SetValueType(Parameter::ValueFrequency);
    parameter.SetControlType(Parameter::VCTimeEdit);
    parameter.GetBooleanHandler().SetValue(true);
    const auto setNumbers = [](auto &handler) {
        handler.SetMinimum(1);
        handler.SetMaximum(9);
        handler.SetDefault(4);
        handler.SetValue(5);
    };
    setNumbers(parameter.GetIntegerHandler());
    setNumbers(parameter.GetLongHandler());
    setNumbers(parameter.GetTimeStampHandler());
    setNumbers(parameter.GetFloatHandler());
    setNumbers(parameter.GetDoubleHandler());
    parameter.GetFloatHandler().SetPrecision(7);
    parameter.GetDoubleHandler().SetPrecision(8);
    parameter.GetDoubleHandler().SetUseAsList(true);
    parameter.GetDoubleHandler().SetMaxDoubleListLength(6);
    parameter.GetDoubleHandler().AppendDoubleValue(2.5);
    parameter.GetStringHandler().SetDefault("default");
    parameter.GetStringHandler().SetValue("value");
    parameter.GetEnumHandler().AppendEnumValue(enumValue(1, "Low", 0.5));
    parameter.GetEnumHandler().SetDefaultValue(enumValue(2, "Mid", 1));
    parameter.GetEnumHandler().SetSelectedEnumValue(enumValue(3, "High", 2));
}

void setHandlerValue(OpenParameter &parameter, const QString &handler)
{
    if (handler == "Boolean")
        parameter.GetBooleanHandler().SetValue(true);
    else if (handler == "Long")
        parameter.GetLongHandler().SetValue(77);
    else if (handler == "Integer")
        parameter.GetIntegerHandler().SetValue(77);
    else if (handler == "String")
        parameter.GetStringHandler().SetValue("77");
    else if (handler == "Double")
        parameter.GetDoubleHandler().SetValue(77);
    else if (handler == "Float")
        parameter.GetFloatHandler().SetValue(77);
    else if (handler == "Enum")
        parameter.GetEnumHandler().AppendEnumValue(enumValue(77, "77", 77));
    else if (handler == "TimeStamp")
        parameter.GetTimeStampHandler().SetValue(77);
}

} // namespace

void ParameterTest::parameterTypeNames_data()
{
    VocabularyChecks::addNames(parameterTypes());
}

void ParameterTest::parameterTypeNames()
{
    VocabularyChecks::checkName(parameterTypes());
}

void ParameterTest::unknownParameterTypeNames_data()
{
    VocabularyChecks::addUnknownNames(parameterTypes());
}

void ParameterTest::unknownParameterTypeNames()
{
    VocabularyChecks::checkUnknownName(parameterTypes());
}

void ParameterTest::parameterTypeValues_data()
{
    VocabularyChecks::addValues(parameterTypes());
}

void ParameterTest::parameterTypeValues()
{
    VocabularyChecks::checkValue(parameterTypes());
}

void ParameterTest::valueTypeNames_data()
{
    VocabularyChecks::addNames(valueTypes());
}

void ParameterTest::valueTypeNames()
{
    VocabularyChecks::checkName(valueTypes());
}

void ParameterTest::unknownValueTypeNames_data()
{
    VocabularyChecks::addUnknownNames(valueTypes());
}

void ParameterTest::unknownValueTypeNames()
{
    VocabularyChecks::checkUnknownName(valueTypes());
}

void ParameterTest::valueTypeValues_data()
{
    VocabularyChecks::addValues(valueTypes());
}

void ParameterTest::valueTypeValues()
{
    VocabularyChecks::checkValue(valueTypes());
}

void ParameterTest::controlTypeNames_data()
{
    VocabularyChecks::addNames(controlTypes());
}

void ParameterTest::controlTypeNames()
{
    VocabularyChecks::checkName(controlTypes());
}

void ParameterTest::unknownControlTypeNames_data()
{
    VocabularyChecks::addUnknownNames(controlTypes());
}

void ParameterTest::unknownControlTypeNames()
{
    VocabularyChecks::checkUnknownName(controlTypes());
}

void ParameterTest::controlTypeValues_data()
{
    VocabularyChecks::addValues(controlTypes());
}

void ParameterTest::controlTypeValues()
{
    VocabularyChecks::checkValue(controlTypes());
}

void ParameterTest::enumerators()
{
    QCOMPARE(NameToParameterType("Boolean"), ParameterType::Boolean);
    QCOMPARE(NameToParameterType("Long"), ParameterType::Long);
    QCOMPARE(NameToParameterType("Integer"), ParameterType::Integer);
    QCOMPARE(NameToParameterType("String"), ParameterType::String);
    QCOMPARE(NameToParameterType("Double"), ParameterType::Double);
    QCOMPARE(NameToParameterType("DoubleList"), ParameterType::DoubleList);
    QCOMPARE(NameToParameterType("Float"), ParameterType::Float);
    QCOMPARE(NameToParameterType("Enum"), ParameterType::Enum);
    QCOMPARE(NameToParameterType("TimeStamp"), ParameterType::TimeStamp);
    QCOMPARE(NameToParameterType("none"), ParameterType::Invalid);

    const Parameter parameter;
    QCOMPARE(parameter.NameToValueType("ValueSelection"), Parameter::ValueSelection);
    QCOMPARE(parameter.NameToValueType("ValueBoolean"), Parameter::ValueBoolean);
    QCOMPARE(parameter.NameToValueType("ValueNumericInt"), Parameter::ValueNumericInt);
    QCOMPARE(parameter.NameToValueType("ValueNumericFloat"), Parameter::ValueNumericFloat);
    QCOMPARE(parameter.NameToValueType("ValueString"), Parameter::ValueString);
    QCOMPARE(parameter.NameToValueType("ValueNumericInt64"), Parameter::ValueNumericInt64);
    QCOMPARE(parameter.NameToValueType("ValueFrequency"), Parameter::ValueFrequency);
    QCOMPARE(parameter.NameToValueType("ValueFloatList"), Parameter::ValueFloatList);
    QCOMPARE(static_cast<int>(Parameter::InvalidValueType), -1);

    QCOMPARE(parameter.NameToControlType("VCFrequency"), Parameter::VCFrequency);
    QCOMPARE(parameter.NameToControlType("VCLineEdit"), Parameter::VCLineEdit);
    QCOMPARE(parameter.NameToControlType("VCLineEditFrequency"), Parameter::VCLineEditFrequency);
    QCOMPARE(parameter.NameToControlType("VCTimeEdit"), Parameter::VCTimeEdit);
    QCOMPARE(static_cast<int>(Parameter::InvalidControlType), -1);
}

void ParameterTest::unknownNamesAreReported_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("word") << "Dial";
    QTest::newRow("empty") << "";
    QTest::newRow("lower case") << "vctimeedit";
    QTest::newRow("placeholders") << "%2 %1 %L1 %99";
    QTest::newRow("outside Latin-1") << QString(QChar(0x3a9));
    QTest::newRow("quotes") << "'";
}

// The message for control types speaks of value types, too.
void ParameterTest::unknownNamesAreReported()
{
    QFETCH(QString, name);
    const Parameter parameter;
    const QString message = "Parameter: Invalid ValueType '" + name + '\'';

    QCOMPARE(messageOf([&] { (void)parameter.NameToValueType(name); }), message);
    QCOMPARE(messageOf([&] { (void)parameter.NameToControlType(name); }), message);
}

void ParameterTest::unknownValuesAreReported_data()
{
    QTest::addColumn<int>("value");
    QTest::addColumn<QString>("valueMessage");
    QTest::addColumn<QString>("controlMessage");

    const auto row = [](int value, bool isValueType = false) {
        const QString text = QString::number(value);
        QTest::newRow(qPrintable(text))
            << value << (isValueType ? QString() : QString("Parameter: Invalid ValueType '" + text + '\''))
            << QString("Parameter: Invalid ControlType '" + text + '\'');
    };
    row(-1);
    row(4, true);
    row(7, true);
    row(8);
    row(1000000); // no group separators
    row(std::numeric_limits<int>::min());
    row(std::numeric_limits<int>::max());
}

void ParameterTest::unknownValuesAreReported()
{
    QFETCH(int, value);
    QFETCH(QString, valueMessage);
    QFETCH(QString, controlMessage);
    const Parameter parameter;

    const auto valueType = static_cast<Parameter::ValueType>(value);
    const auto controlType = static_cast<Parameter::ControlType>(value);
    QCOMPARE(messageOf([&] { (void)parameter.ValueTypeToName(valueType); }), valueMessage);
    QCOMPARE(messageOf([&] { (void)parameter.ControlTypeToName(controlType); }), controlMessage);
}

void ParameterTest::messagesNameTheObject()
{
    OpenParameter parameter;
    parameter.SetObjectName("%1 and %2");

    QCOMPARE(messageOf([&] { parameter.Check(); }), QString("%1 and %2: Please set ParameterType"));
    QCOMPARE(messageOf([&] { (void)parameter.NameToValueType("x"); }),
             QString("%1 and %2: Invalid ValueType 'x'"));
    QCOMPARE(messageOf([&] { (void)parameter.ControlTypeToName(Parameter::InvalidControlType); }),
             QString("%1 and %2: Invalid ControlType '-1'"));
}

void ParameterTest::newParameter()
{
    const Parameter parameter;

    QCOMPARE(changes(newState(), stateOf(parameter)), QStringList());
    QCOMPARE(stateOf(parameter).keys(), newState().keys());
    QVERIFY(!parameter.HasData());
    QVERIFY(!parameter.AnyData());
    QCOMPARE(messageOf([&] { parameter.Check(); }), QString("Parameter: Please set ParameterType"));
}

void ParameterTest::reset()
{
    OpenParameter parameter;
    fill(parameter);
    parameter.Reset();

    QVERIFY(!parameter.HasData());
    QVERIFY(!parameter.AnyData());
    QCOMPARE(parameter.ValueTypeToName(Parameter::ValueFloatList), QString("ValueFloatList"));
    QCOMPARE(parameter.ControlTypeToName(Parameter::VCTimeEdit), QString("VCTimeEdit"));
    // The version cannot be asked for; it is seen when it is written.
    Parameter complete = completeParameter(1);
    process(complete, "<Parameter Version=\"2.5\" UniqueName=\"n\"/>");
    QVERIFY(elementOf(complete).startsWith("<Parameter Version=\"2.5\""));
    complete.Reset();
    complete.SetParameterType(ParameterType::Long);
    complete.SetValueType(Parameter::ValueNumericInt);
    complete.SetUniqueParameterName("n");
    complete.SetRepresenationName("N");
    QVERIFY(elementOf(complete).startsWith("<Parameter Version=\"1.0\""));
}

void ParameterTest::resetKeepsWhatHandlersKeep()
{
    OpenParameter parameter;
    fill(parameter);
    parameter.Reset();

    const QStringList kept{
        "Boolean.RepresentationName=representation",
        "Boolean.UniqueName=unique",
        "Double.MaxLength=6",
        "Double.RepresentationName=representation",
        "Double.UniqueName=unique",
        "Enum.Default=2|Mid||1|false",
        "Enum.RepresentationName=representation",
        "Enum.Selected=3|High||2|false",
        "Enum.UniqueName=unique",
        "Float.RepresentationName=representation",
        "Float.UniqueName=unique",
        "Integer.RepresentationName=representation",
        "Integer.UniqueName=unique",
        "Integer.Value=5",
        "Long.RepresentationName=representation",
        "Long.UniqueName=unique",
        "Long.Value=5",
        "TimeStamp.RepresentationName=representation",
        "TimeStamp.UniqueName=unique",
    };
    QCOMPARE(changes(newState(), stateOf(parameter)), kept);
}

void ParameterTest::texts_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QStringList>("changed");

    const auto row = [](const char *name, const QStringList &changed, Change change) {
        QTest::newRow(name) << change << changed;
    };
    row("unique name", {QString::fromUtf8("UniqueName=rx 1 \u20ac")},
        [](OpenParameter &p) { p.SetUniqueParameterName("rx 1 \u20ac"); });
    row("representation name", {QString::fromUtf8("RepresentationName=RX \u20ac")},
        [](OpenParameter &p) { p.SetRepresenationName("RX \u20ac"); });
    row("display name", {QString::fromUtf8("DisplayName=Gain \u20ac")},
        [](OpenParameter &p) { p.SetDisplayName("Gain \u20ac"); });
    row("tool tip", {QString::fromUtf8("ToolTip=Tip \u20ac")},
        [](OpenParameter &p) { p.SetToolTip("Tip \u20ac"); });
    row("display suffix", {"DisplaySuffix=Hz"}, [](OpenParameter &p) { p.SetDisplaySuffix("Hz"); });
    row("multiplier", {"Multiplier=-2.5"}, [](OpenParameter &p) { p.SetMultiplier(-2.5); });
}

void ParameterTest::texts()
{
    QFETCH(Change, change);
    QFETCH(QStringList, changed);
    OpenParameter parameter;

    QCOMPARE(changesBy(parameter, change), changed);
    QCOMPARE(changes(newState(), stateOf(parameter)), changed);
}

void ParameterTest::displaySuffix_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("stored");

    QTest::newRow("empty") << ""
                           << "";
    QTest::newRow("ASCII") << "kHz"
                           << "kHz";
    QTest::newRow("Latin-1") << QString("dB") + QChar(0xb5) + 'V' << QString("dB") + QChar(0xb5) + 'V';
    QTest::newRow("last of Latin-1") << QString(QChar(0xff)) << QString(QChar(0xff));
    QTest::newRow("first behind Latin-1") << QString(QChar(0x100)) << "?";
    QTest::newRow("Greek") << QString('k') + QChar(0x3a9) << "k?";
    QTest::newRow("Greek mu") << QString(QChar(0x3bc)) + 's' << "?s";
    QTest::newRow("NUL") << QString("k") + QChar(0) + 'm' << "k";
    QTest::newRow("euro") << QString(QChar(0x20ac)) << "?";
}

void ParameterTest::displaySuffix()
{
    QFETCH(QString, text);
    QFETCH(QString, stored);
    Parameter parameter;
    parameter.SetDisplaySuffix("before");

    parameter.SetDisplaySuffix(text);
    QCOMPARE(parameter.GetDisplaySuffix(), stored);
}

void ParameterTest::hasSuffix()
{
    Parameter parameter;
    QVERIFY(!parameter.HasSuffix());
    QVERIFY(!std::as_const(parameter).HasSuffix());
    parameter.SetDisplaySuffix(" ");
    QVERIFY(parameter.HasSuffix());
    QVERIFY(std::as_const(parameter).HasSuffix());
    parameter.SetDisplaySuffix("");
    QVERIFY(!parameter.HasSuffix());
    QVERIFY(!std::as_const(parameter).HasSuffix());
}

void ParameterTest::typesAreStoredAsGiven_data()
{
    QTest::addColumn<int>("code");

    for (const int code : {0, 3, 4, 7, 8, 9, 4711, -2, std::numeric_limits<int>::max()})
        QTest::newRow(qPrintable(QString::number(code))) << code;
}

void ParameterTest::typesAreStoredAsGiven()
{
    QFETCH(int, code);
    const QString text = QString::number(code);
    OpenParameter parameter;

    QCOMPARE(changesBy(parameter, [code](Parameter &p) { p.SetParameterType(typeOf(code)); }),
             QStringList("ParameterType=" + text));
    QCOMPARE(changesBy(parameter,
                       [code](Parameter &p) { p.SetValueType(static_cast<Parameter::ValueType>(code)); }),
             QStringList("ValueType=" + text));
    QCOMPARE(changesBy(parameter,
                       [code](Parameter &p) { p.SetControlType(static_cast<Parameter::ControlType>(code)); }),
             QStringList("ControlType=" + text));
}

void ParameterTest::typesCanBeChangedInPlace()
{
    Parameter parameter;
    parameter.GetParameterType() = ParameterType::Float;
    parameter.GetValueType() = Parameter::ValueFloatList;
    parameter.GetControlType() = Parameter::VCLineEdit;

    QCOMPARE(changes(parameter), QStringList({"ControlType=1", "ParameterType=6", "ValueType=7"}));
    QVERIFY(parameter.IsFloat());
}

void ParameterTest::hasControlType_data()
{
    QTest::addColumn<int>("code");
    QTest::addColumn<bool>("isValid");

    QTest::newRow("not set") << -1 << false;
    QTest::newRow("first") << 0 << true;
    QTest::newRow("last") << 3 << true;
    QTest::newRow("behind the last") << 4 << false;
    QTest::newRow("smallest number") << std::numeric_limits<int>::min() << false;
}

void ParameterTest::hasControlType()
{
    QFETCH(int, code);
    QFETCH(bool, isValid);
    Parameter parameter;
    parameter.SetControlType(static_cast<Parameter::ControlType>(code));

    QCOMPARE(parameter.HasControlType(), isValid);
    QCOMPARE(std::as_const(parameter).HasControlType(), isValid);
}

void ParameterTest::predicates_data()
{
    QTest::addColumn<Predicate>("isOfType");
    QTest::addColumn<int>("type");

    const auto row = [](const char *name, int type, Predicate isOfType) {
        QTest::newRow(name) << isOfType << type;
    };
    row("IsBoolean", 0, [](const Parameter &p) { return p.IsBoolean(); });
    row("IsLong", 1, [](const Parameter &p) { return p.IsLong(); });
    row("IsInteger", 2, [](const Parameter &p) { return p.IsInteger(); });
    row("IsString", 3, [](const Parameter &p) { return p.IsString(); });
    row("IsDouble", 4, [](const Parameter &p) { return p.IsDouble(); });
    row("IsDoubleList", 5, [](const Parameter &p) { return p.IsDoubleList(); });
    row("IsFloat", 6, [](const Parameter &p) { return p.IsFloat(); });
    row("IsEnum", 7, [](const Parameter &p) { return p.IsEnum(); });
    row("IsTimeStamp", 8, [](const Parameter &p) { return p.IsTimeStamp(); });
}

void ParameterTest::predicates()
{
    QFETCH(Predicate, isOfType);
    QFETCH(int, type);

    for (int code = -2; code <= TypeCount; ++code) {
        Parameter parameter;
        parameter.SetParameterType(typeOf(code));
        QCOMPARE(isOfType(parameter), code == type);
    }
}

void ParameterTest::typeByName_data()
{
    addTypes();
}

void ParameterTest::typeByName()
{
    QFETCH(int, type);
    OpenParameter parameter;
    parameter.SetUniqueParameterName("unique");
    parameter.SetRepresenationName("representation");
    parameter.SetMultiplier(3);

    QCOMPARE(changesBy(parameter, [type](OpenParameter &p) { p.SetParameterType(typeNames()[type]); }),
             QStringList("ParameterType=" + QString::number(type)));
}

void ParameterTest::unknownTypeNameChangesNothing_data()
{
    VocabularyChecks::addUnknownNames(parameterTypes());
}

void ParameterTest::unknownTypeNameChangesNothing()
{
    QFETCH(QString, name);
    for (const int type : {NoType, 6}) {
        OpenParameter parameter;
        parameter.SetParameterType(typeOf(type));
        QCOMPARE(changesBy(parameter, [&name](OpenParameter &p) { p.SetParameterType(name); }),
                 QStringList());
    }
}

void ParameterTest::namesReachTheHandler_data()
{
    addTypes();
}

void ParameterTest::namesReachTheHandler()
{
    QFETCH(int, type);
    QFETCH(QString, handler);
    Parameter parameter;
    parameter.SetParameterType(typeOf(type));

    QCOMPARE(changesBy(parameter, [](Parameter &p) { p.SetUniqueParameterName("unique"); }),
             sorted({"UniqueName=unique", handler + ".UniqueName=unique"}));
    QCOMPARE(changesBy(parameter, [](Parameter &p) { p.SetRepresenationName("representation"); }),
             sorted({"RepresentationName=representation", handler + ".RepresentationName=representation"}));
    QCOMPARE(changesBy(parameter, [](Parameter &p) { p.SetUniqueParameterName(""); }),
             sorted({"UniqueName=", handler + ".UniqueName="}));
}

void ParameterTest::multiplierReachesTheHandler_data()
{
    addTypes();
}

void ParameterTest::multiplierReachesTheHandler()
{
    QFETCH(int, type);
    QFETCH(QString, handler);
    const bool hasMultiplier = handler != "Boolean" && handler != "String" && handler != "Enum";
    Parameter parameter;
    parameter.SetParameterType(typeOf(type));

    QStringList expected{"Multiplier=1000"};
    if (hasMultiplier)
        expected.append(handler + ".Multiplier=1000");
    QCOMPARE(changesBy(parameter, [](Parameter &p) { p.SetMultiplier(1000); }), sorted(expected));
}

void ParameterTest::withoutTypeNoHandlerIsReached_data()
{
    QTest::addColumn<int>("type");

    for (const int type : {NoType, TypeCount, -2, 256 + 2})
        QTest::newRow(qPrintable(QString::number(type))) << type;
}

void ParameterTest::withoutTypeNoHandlerIsReached()
{
    QFETCH(int, type);
    Parameter parameter;
    parameter.SetParameterType(typeOf(type));

    QCOMPARE(changesBy(parameter,
                       [](Parameter &p) {
                           p.SetUniqueParameterName("unique");
                           p.SetRepresenationName("representation");
                           p.SetMultiplier(1000);
                       }),
             QStringList({"Multiplier=1000", "RepresentationName=representation", "UniqueName=unique"}));
}

void ParameterTest::typeSetLaterHandsNothingOn_data()
{
    addTypes();
}

void ParameterTest::typeSetLaterHandsNothingOn()
{
    QFETCH(int, type);
    Parameter parameter;
    parameter.SetUniqueParameterName("unique");
    parameter.SetRepresenationName("representation");
    parameter.SetMultiplier(1000);

    QCOMPARE(changesBy(parameter, [type](Parameter &p) { p.SetParameterType(typeOf(type)); }),
             QStringList("ParameterType=" + QString::number(type)));
}

void ParameterTest::newTypeLeavesTheHandlerBefore()
{
    Parameter parameter;
    parameter.SetParameterType(ParameterType::Integer);
    parameter.SetUniqueParameterName("first");
    parameter.GetIntegerHandler().SetValue(5);
    QCOMPARE(changesBy(parameter, [](Parameter &p) { p.SetParameterType(ParameterType::String); }),
             QStringList("ParameterType=3"));
    QVERIFY(!parameter.IsValidParameter());

    QCOMPARE(changesBy(parameter, [](Parameter &p) { p.SetUniqueParameterName("second"); }),
             QStringList({"String.UniqueName=second", "UniqueName=second"}));

    parameter.SetParameterType(ParameterType::Integer);
    QVERIFY(parameter.IsValidParameter());
    QCOMPARE(parameter.GetIntegerHandler().GetValue(), 5);
    QCOMPARE(parameter.GetIntegerHandler().GetUniqueParameterName(), QString("first"));
}

void ParameterTest::handlersAreReplaced()
{
    OpenParameter source;
    fill(source);
    Parameter target;

    target.SetBooleanHandler(source.GetBooleanHandler());
    target.SetIntegerHandler(source.GetIntegerHandler());
    target.SetLongHandler(source.GetLongHandler());
    target.SetFloatHandler(source.GetFloatHandler());
    target.SetDoubleHandler(source.GetDoubleHandler());
    target.SetStringHandler(source.GetStringHandler());
    target.SetTimeStampHandler(source.GetTimeStampHandler());
    target.SetEnumHandler(source.GetEnumHandler());

    State expected = newState();
    const State full = stateOf(source);
    for (auto entry = full.begin(); entry != full.end(); ++entry) {
        if (entry.key().contains('.'))
            expected[entry.key()] = entry.value();
    }
    QCOMPARE(changes(expected, stateOf(target)), QStringList());
    QCOMPARE(changes(full, stateOf(source)), QStringList());
}

void ParameterTest::handlersCanBeChangedInPlace()
{
    for (const QString &handler :
         QStringList{"Boolean", "Long", "Integer", "String", "Double", "Float", "TimeStamp"}) {
        OpenParameter parameter;
        setHandlerValue(parameter, handler);
        QCOMPARE(changes(parameter),
                 QStringList(handler + ".Value=" + (handler == "Boolean" ? "true" : "77")));
    }
    OpenParameter parameter;
    setHandlerValue(parameter, "Enum");
    QCOMPARE(changes(parameter), QStringList("Enum.List=77|77||77|false"));
}

void ParameterTest::validParameter_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<Change>("change");
    QTest::addColumn<bool>("isValid");

    const auto row = [](const char *name, int type, bool isValid, Change change) {
        QTest::newRow(name) << type << change << isValid;
    };
    const Change nothing = [](OpenParameter &) {};
    row("Boolean", 0, true, nothing);
    row("Long", 1, true, nothing);
    row("Integer", 2, true, nothing);
    row("String without value", 3, false, [](OpenParameter &p) { p.GetStringHandler().SetDefault("x"); });
    row("String with value", 3, true, [](OpenParameter &p) { p.GetStringHandler().SetValue("x"); });
    row("Double without value", 4, false, [](OpenParameter &p) { p.GetDoubleHandler().SetDefault(1); });
    row("Double with value", 4, true, [](OpenParameter &p) { p.GetDoubleHandler().SetValue(0); });
    row("Double with a handler used as a list", 4, false, [](OpenParameter &p) {
        p.GetDoubleHandler().SetValue(0);
        p.GetDoubleHandler().SetUseAsList(true);
    });
    row("DoubleList without list", 5, false, [](OpenParameter &p) {
        p.GetDoubleHandler().SetValue(0);
        p.GetDoubleHandler().SetUseAsList(true);
    });
    row("DoubleList with elements", 5, true, [](OpenParameter &p) {
        p.GetDoubleHandler().SetUseAsList(true);
        p.GetDoubleHandler().AppendDoubleValue(1);
    });
    row("DoubleList with maximum length", 5, true, [](OpenParameter &p) {
        p.GetDoubleHandler().SetUseAsList(true);
        p.GetDoubleHandler().SetMaxDoubleListLength(1);
    });
    row("DoubleList with a handler not used as a list", 5, false,
        [](OpenParameter &p) { p.GetDoubleHandler().AppendDoubleValue(1); });
    row("Float", 6, true, nothing);
    row("Enum without entries", 7, false,
        [](OpenParameter &p) { p.GetEnumHandler().SetSelectedEnumValue(enumValue(1, "x", 1)); });
    row("Enum with an entry", 7, true,
        [](OpenParameter &p) { p.GetEnumHandler().AppendEnumValue(enumValue(1, "x", 1)); });
    row("TimeStamp", 8, true, nothing);
}

void ParameterTest::validParameter()
{
    QFETCH(int, type);
    QFETCH(Change, change);
    QFETCH(bool, isValid);
    OpenParameter parameter;
    change(parameter);
    parameter.SetParameterType(typeOf(type));

    QCOMPARE(parameter.IsValidParameter(), isValid);
    QVERIFY(!parameter.HasData());
    parameter.SetValueType(Parameter::ValueSelection);
    parameter.SetRepresenationName("representation");
    parameter.SetUniqueParameterName("unique");
    QCOMPARE(parameter.HasData(), isValid);
    QCOMPARE(messageOf([&] { parameter.Check(); }), QString()); // also when the handler lacks data
    QCOMPARE(elementOf(parameter).isEmpty(), !isValid);
}

void ParameterTest::validParameterOfUnknownType_data()
{
    withoutTypeNoHandlerIsReached_data();
}

void ParameterTest::validParameterOfUnknownType()
{
    QFETCH(int, type);
    Parameter parameter = completeParameter(3);
    parameter.SetParameterType(typeOf(type));

    QVERIFY(!parameter.IsValidParameter());
    QVERIFY(!parameter.HasData());
    QCOMPARE(elementOf(parameter), QString());
    QCOMPARE(messageOf([&] { parameter.Check(); }),
             type == NoType ? QString("Parameter: Please set ParameterType") : QString());
}

void ParameterTest::completeness_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<bool>("isComplete");

    const auto row = [](const char *name, bool isComplete, Change change) {
        QTest::newRow(name) << change << isComplete;
    };
    row("nothing missing", true, [](OpenParameter &) {});
    row("without unique name", false, [](OpenParameter &p) { p.SetUniqueParameterName(""); });
    row("without representation name", false, [](OpenParameter &p) { p.SetRepresenationName(""); });
    row("without parameter type", false,
        [](OpenParameter &p) { p.SetParameterType(ParameterType::Invalid); });
    row("without value type", false, [](OpenParameter &p) { p.SetValueType(Parameter::InvalidValueType); });
    row("without handler data", false, [](OpenParameter &p) { p.GetStringHandler().SetValue(""); });
    row("with an unknown value type", true,
        [](OpenParameter &p) { p.SetValueType(static_cast<Parameter::ValueType>(8)); });
    row("with first value type", true, [](OpenParameter &p) { p.SetValueType(Parameter::ValueSelection); });
    row("with an unknown control type", true,
        [](OpenParameter &p) { p.SetControlType(static_cast<Parameter::ControlType>(4)); });
    row("with multiplier 0", true, [](OpenParameter &p) { p.SetMultiplier(0); });
    row("disabled", true, [](OpenParameter &p) {
        process(p, "<Parameter UniqueName=\"n\"><Enable>false</Enable></Parameter>");
    });
}

void ParameterTest::completeness()
{
    QFETCH(Change, change);
    QFETCH(bool, isComplete);
    OpenParameter parameter(completeParameter(3));
    change(parameter);

    QCOMPARE(parameter.HasData(), isComplete);
}

void ParameterTest::everyTypeCanBeComplete_data()
{
    addTypes();
}

void ParameterTest::everyTypeCanBeComplete()
{
    QFETCH(int, type);
    const Parameter parameter = completeParameter(type);

    QVERIFY(parameter.IsValidParameter());
    QVERIFY(parameter.HasData());
    QVERIFY(parameter.AnyData());
    QCOMPARE(messageOf([&] { parameter.Check(); }), QString());
}

void ParameterTest::anyData_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<bool>("anyData");

    const auto row = [](const char *name, bool anyData, Change change) {
        QTest::newRow(name) << change << anyData;
    };
    row("nothing", false, [](OpenParameter &) {});
    row("unique name", false, [](OpenParameter &p) { p.SetUniqueParameterName("n"); });
    row("representation name", true, [](OpenParameter &p) { p.SetRepresenationName("n"); });
    row("parameter type", true, [](OpenParameter &p) { p.SetParameterType(ParameterType::String); });
    row("unknown parameter type", true, [](OpenParameter &p) { p.SetParameterType(typeOf(TypeCount)); });
    row("value type", true, [](OpenParameter &p) { p.SetValueType(Parameter::ValueSelection); });
    row("control type", false, [](OpenParameter &p) { p.SetControlType(Parameter::VCLineEdit); });
    row("display name", false, [](OpenParameter &p) { p.SetDisplayName("n"); });
    row("display suffix", false, [](OpenParameter &p) { p.SetDisplaySuffix("n"); });
    row("tool tip", false, [](OpenParameter &p) { p.SetToolTip("n"); });
    row("multiplier", false, [](OpenParameter &p) { p.SetMultiplier(2); });
    row("handlers", false, [](OpenParameter &p) {
        fill(p);
        p.SetParameterType(ParameterType::Invalid);
        p.SetValueType(Parameter::InvalidValueType);
        p.SetRepresenationName("");
    });
}

void ParameterTest::anyData()
{
    QFETCH(Change, change);
    QFETCH(bool, anyData);
    OpenParameter parameter;
    change(parameter);

    QCOMPARE(parameter.AnyData(), anyData);
}

void ParameterTest::check_data()
{
    QTest::addColumn<bool>("parameterType");
    QTest::addColumn<bool>("valueType");
    QTest::addColumn<bool>("uniqueName");
    QTest::addColumn<bool>("representationName");
    QTest::addColumn<QString>("message");

    // All combinations: the first gap in this order is named.
    const QStringList messages{"ParameterType", "ValueType", "UniqueName attribute", "RepresentationName"};
    for (int set = 0; set < 16; ++set) {
        const bool isSet[] = {(set & 1) != 0, (set & 2) != 0, (set & 4) != 0, (set & 8) != 0};
        int gap = 0;
        while (gap < 4 && isSet[gap])
            ++gap;
        QStringList fields;
        for (int field = 0; field < 4; ++field) {
            if (isSet[field])
                fields.append(messages[field]);
        }
        QTest::newRow(qPrintable("with " + fields.join(" and ")))
            << isSet[0] << isSet[1] << isSet[2] << isSet[3]
            << (gap < 4 ? QString("Parameter: Please set " + messages[gap]) : QString());
    }
}

void ParameterTest::check()
{
    QFETCH(bool, parameterType);
    QFETCH(bool, valueType);
    QFETCH(bool, uniqueName);
    QFETCH(bool, representationName);
    QFETCH(QString, message);
    Parameter parameter;
    if (parameterType)
        parameter.SetParameterType(ParameterType::Boolean);
    if (valueType)
        parameter.SetValueType(Parameter::ValueSelection);
    if (uniqueName)
        parameter.SetUniqueParameterName("unique");
    if (representationName)
        parameter.SetRepresenationName("representation");

    QCOMPARE(messageOf([&] { parameter.Check(); }), message);
    QCOMPARE(parameter.HasData(), message.isEmpty());
}

void ParameterTest::checkOnDemand()
{
    const Parameter parameter;
    QCOMPARE(messageOf([&] { parameter.Check(false); }), QString());
    QCOMPARE(messageOf([&] { parameter.Check(true); }), QString("Parameter: Please set ParameterType"));
}

void ParameterTest::equality_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<bool>("isEqual");

    const auto row = [](const char *name, bool isEqual, Change change) {
        QTest::newRow(name) << change << isEqual;
    };
    row("nothing changed", true, [](OpenParameter &) {});
    // Set on the parameter alone: the handler bears the same names.
    row("unique name", false, [](OpenParameter &p) {
        p.SetParameterType(ParameterType::Invalid);
        p.SetUniqueParameterName("other");
        p.SetParameterType(ParameterType::Integer);
    });
    row("case of the unique name", false, [](OpenParameter &p) {
        p.SetParameterType(ParameterType::Invalid);
        p.SetUniqueParameterName(p.GetUniqueParameterName().toUpper());
        p.SetParameterType(ParameterType::Integer);
    });
    row("representation name", false, [](OpenParameter &p) {
        p.SetParameterType(ParameterType::Invalid);
        p.SetRepresenationName("other");
        p.SetParameterType(ParameterType::Integer);
    });
    row("parameter type", false, [](OpenParameter &p) { p.SetParameterType(ParameterType::Long); });
    row("display name", false, [](OpenParameter &p) { p.SetDisplayName("other"); });
    row("unique name of the handler", false,
        [](OpenParameter &p) { p.GetIntegerHandler().SetUniqueParameterName("other"); });
    row("representation name of the handler", false,
        [](OpenParameter &p) { p.GetIntegerHandler().SetRepresentationName("other"); });
    row("tool tip", true, [](OpenParameter &p) { p.SetToolTip("other"); });
    row("display suffix", true, [](OpenParameter &p) { p.SetDisplaySuffix("other"); });
    row("value type", true, [](OpenParameter &p) { p.SetValueType(Parameter::ValueFloatList); });
    row("no value type", true, [](OpenParameter &p) { p.SetValueType(Parameter::InvalidValueType); });
    row("control type", true, [](OpenParameter &p) { p.SetControlType(Parameter::VCTimeEdit); });
    row("multiplier", true, [](OpenParameter &p) { p.SetMultiplier(1000); });
    row("version", true,
        [](OpenParameter &p) { process(p, "<Parameter Version=\"9\" UniqueName=\"rx.gain\"/>"); });
    row("object name", true, [](OpenParameter &p) { p.SetObjectName("other"); });
}

void ParameterTest::equality()
{
    QFETCH(Change, change);
    QFETCH(bool, isEqual);
    const Parameter original = completeParameter(2);
    OpenParameter other(original);
    change(other);

    QCOMPARE(original == other, isEqual);
    QCOMPARE(other == original, isEqual);
    QCOMPARE(original != other, !isEqual);
    QCOMPARE(other != original, !isEqual);
}

void ParameterTest::equalityComparesTheHandlerOfTheType_data()
{
    addTypes();
}

void ParameterTest::equalityComparesTheHandlerOfTheType()
{
    QFETCH(int, type);
    QFETCH(QString, handler);
    for (const QString &changed : typeNames()) {
        if (changed == "DoubleList")
            continue;
        const Parameter original = completeParameter(type);
        OpenParameter other(original);
        setHandlerValue(other, changed);
        QCOMPARE(original == other, changed != handler);
        QCOMPARE(original != other, changed == handler);
    }
}

void ParameterTest::equalityOfEveryType_data()
{
    addTypes();
}

void ParameterTest::equalityOfEveryType()
{
    QFETCH(int, type);
    QVERIFY(completeParameter(type) == completeParameter(type));
    QVERIFY(completeParameter(type) != completeParameter(type, "other"));
    QVERIFY(completeParameter(type) != completeParameter(type, "rx.gain", "other"));
    for (int other = NoType; other <= TypeCount; ++other) {
        // Also for Double and DoubleList, which share a handler.
        Parameter parameter = completeParameter(type);
        parameter.SetParameterType(typeOf(other));
        QCOMPARE(completeParameter(type) == parameter, other == type);
    }
    // Complete or not.
    Parameter first;
    Parameter second;
    first.SetParameterType(typeOf(type));
    second.SetParameterType(typeOf(type));
    QVERIFY(first == second);
}

void ParameterTest::equalityOfDoubleLists()
{
    const Parameter original = completeParameter(5);
    Parameter other = original;
    other.GetDoubleHandler().AppendDoubleValue(1);
    QVERIFY(original != other);

    // The maximum length counts only when the left one is used as a list.
    Parameter notUsedAsList = original;
    notUsedAsList.GetDoubleHandler().SetMaxDoubleListLength(7);
    notUsedAsList.GetDoubleHandler().SetUseAsList(false);
    QVERIFY(original != notUsedAsList);
    QVERIFY(notUsedAsList == original);
}

void ParameterTest::equalityOfNaN()
{
    Parameter parameter = completeParameter(6);
    parameter.GetFloatHandler().SetValue(std::numeric_limits<float>::quiet_NaN());
    const Parameter copy = parameter;
    QVERIFY(!(parameter == copy));
    QVERIFY(parameter != copy);
}

void ParameterTest::withoutTypeNothingIsEqual_data()
{
    withoutTypeNoHandlerIsReached_data();
}

void ParameterTest::withoutTypeNothingIsEqual()
{
    QFETCH(int, type);
    Parameter parameter;
    parameter.SetParameterType(typeOf(type));
    const Parameter copy = parameter;

    QVERIFY(!(parameter == copy));
    QVERIFY(parameter != copy);
    const Parameter &same = parameter;
    QVERIFY(!(parameter == same));
}

void ParameterTest::enabledIsCompared()
{
    const Parameter enabled = completeParameter(0);
    Parameter disabled = enabled;
    process(disabled, "<Parameter UniqueName=\"rx.gain\"><Enable>false</Enable></Parameter>");
    QCOMPARE(changes(stateOf(enabled), stateOf(disabled)), QStringList("Enable=false"));
    QVERIFY(enabled != disabled);
    QVERIFY(disabled != enabled);

    process(disabled, "<Parameter UniqueName=\"rx.gain\"><Enable>true</Enable></Parameter>");
    QVERIFY(enabled == disabled);
}

void ParameterTest::copies_data()
{
    addTypes();
}

void ParameterTest::copies()
{
    QFETCH(int, type);
    OpenParameter original;
    fill(original);
    original.SetParameterType(typeOf(type));
    const State state = stateOf(original);

    const Parameter copy = original;
    QCOMPARE(stateOf(copy), state);
    QVERIFY(copy == original);

    Parameter assigned = completeParameter(0, "other", "other");
    Parameter &result = (assigned = original);
    QCOMPARE(&result, &assigned);
    QCOMPARE(stateOf(assigned), state);

    OpenParameter source(original);
    const Parameter moved = std::move(source);
    QCOMPARE(stateOf(moved), state);
    QCOMPARE(elementOf(copy), elementOf(original)); // the version, too
    QCOMPARE(elementOf(assigned), elementOf(original));
    QVERIFY(elementOf(copy).contains("Version=\"2.5\""));
    QCOMPARE(stateOf(original), state);
}

void ParameterTest::copiesAreIndependent()
{
    const Parameter original = completeParameter(7);
    const State state = stateOf(original);
    OpenParameter copy(original);
    fill(copy);
    copy.GetEnumHandler().GetEnumList()[0].Name = "changed";

    QCOMPARE(stateOf(original), state);
    QVERIFY(copy != original);
}

void ParameterTest::copiesTheBase()
{
    OpenParameter original(completeParameter(0));
    original.SetObjectName("Setting");
    original.SetValidate(false);
    original.SetLogger(std::make_shared<TESSEL::Logger>());

    const Parameter copy = original;
    QCOMPARE(copy.GetObjectName(), QString("Setting"));
    QCOMPARE(copy.GetObjectType(), original.GetObjectType());
    QVERIFY(!copy.GetValidate());
    QVERIFY(copy.GetLogger() && copy.GetLogger() == original.GetLogger());

    Parameter assigned;
    assigned = original;
    QCOMPARE(assigned.GetObjectName(), QString("Setting"));
    QVERIFY(!assigned.GetValidate());
    QVERIFY(assigned.GetLogger() && assigned.GetLogger() == original.GetLogger());
}

void ParameterTest::selfAssignment()
{
    OpenParameter parameter;
    fill(parameter);
    const State state = stateOf(parameter);
    const Parameter &same = parameter;
    static_cast<Parameter &>(parameter) = same;

    QCOMPARE(stateOf(parameter), state);
}

namespace {

/// A handler of a parameter, whichever it is.
struct HandlerAccess {
    std::function<TypeHandler &(Parameter &)> in;
    std::function<const TypeHandler &(const Parameter &)> of;
    std::function<void(Parameter &, const QString &)> replace; ///< by a new one of that unique name
};

template <class Handler>
HandlerAccess access(Handler &(Parameter::*in)(), const Handler &(Parameter::*of)() const,
                     void (Parameter::*set)(const Handler &))
{
    return {[in](Parameter &p) -> TypeHandler & { return (p.*in)(); },
            [of](const Parameter &p) -> const TypeHandler & { return (p.*of)(); },
            [set](Parameter &p, const QString &name) {
                Handler handler;
                handler.SetUniqueParameterName(name);
                (p.*set)(handler);
            }};
}

void addHandlers()
{
    using P = Parameter;
    QTest::addColumn<HandlerAccess>("handler");
    QTest::newRow("Boolean") << access<BooleanHandler>(&P::GetBooleanHandler, &P::GetBooleanHandler,
                                                       &P::SetBooleanHandler);
    QTest::newRow("Integer") << access<IntegerHandler>(&P::GetIntegerHandler, &P::GetIntegerHandler,
                                                       &P::SetIntegerHandler);
    QTest::newRow("Long") << access<LongHandler>(&P::GetLongHandler, &P::GetLongHandler, &P::SetLongHandler);
    QTest::newRow("Float") << access<FloatHandler>(&P::GetFloatHandler, &P::GetFloatHandler,
                                                   &P::SetFloatHandler);
    QTest::newRow("Double") << access<DoubleHandler>(&P::GetDoubleHandler, &P::GetDoubleHandler,
                                                     &P::SetDoubleHandler);
    QTest::newRow("String") << access<StringHandler>(&P::GetStringHandler, &P::GetStringHandler,
                                                     &P::SetStringHandler);
    QTest::newRow("TimeStamp") << access<TimeStampHandler>(&P::GetTimeStampHandler, &P::GetTimeStampHandler,
                                                           &P::SetTimeStampHandler);
    QTest::newRow("Enum") << access<EnumHandler>(&P::GetEnumHandler, &P::GetEnumHandler, &P::SetEnumHandler);
}

/// All blocks at once: whatever the type, the names reach every handler.
const char AllBlocks[] = "<Parameter UniqueName=\"read\"><Boolean>true</Boolean><Integer/><Long/><Float/>"
                         "<Double/><String/><TimeStamp/><Enum/></Parameter>";

QString nameOf(const TypeHandler &handler)
{
    return handler.GetUniqueParameterName();
}

} // namespace

Q_DECLARE_METATYPE(HandlerAccess)

void ParameterTest::handlersKeepTheirAddress_data()
{
    addHandlers();
}

void ParameterTest::handlersKeepTheirAddress()
{
    QFETCH(HandlerAccess, handler);
    for (const bool isConstFirst : {true, false}) {
        for (const bool isReadBefore : {true, false}) {
            Parameter parameter;
            if (isReadBefore)
                process(parameter, AllBlocks);
            const Parameter firstCopy = parameter;
            const TypeHandler &held = isConstFirst ? handler.of(parameter) : handler.in(parameter);
            QCOMPARE(&handler.of(parameter), &held);
            QCOMPARE(&handler.in(parameter), &held);
            QCOMPARE(nameOf(held), isReadBefore ? "read" : "");

            handler.replace(parameter, "replaced");
            QCOMPARE(nameOf(held), "replaced");
            QCOMPARE(nameOf(handler.of(firstCopy)), isReadBefore ? "read" : "");
            const Parameter secondCopy = parameter;
            process(parameter, AllBlocks);
            QCOMPARE(nameOf(held), "read");
            QCOMPARE(nameOf(handler.of(secondCopy)), "replaced");

            Parameter other;
            parameter = other; // in which no handler was asked for
            QCOMPARE(nameOf(held), "");
            handler.in(other).SetUniqueParameterName("other");
            parameter = other;
            QCOMPARE(nameOf(held), "other");
            handler.in(other).SetUniqueParameterName("later");
            QCOMPARE(nameOf(held), "other");
            Parameter read;
            process(read, AllBlocks);
            parameter = read;
            QCOMPARE(nameOf(held), "read");
            read.Reset(); // names stay, but for those of strings
            QCOMPARE(nameOf(held), "read");
            parameter = read;
            QCOMPARE(nameOf(held), nameOf(handler.of(read)));
            const Parameter &same = parameter;
            parameter = same;
            QCOMPARE(nameOf(held), nameOf(handler.of(read)));
            parameter.Reset();
            QCOMPARE(&handler.of(parameter), &held);
            QCOMPARE(&handler.in(parameter), &held);
        }
    }
}

void ParameterTest::copiesShareNoHandler_data()
{
    addHandlers();
}

void ParameterTest::copiesShareNoHandler()
{
    QFETCH(HandlerAccess, handler);
    Parameter source;
    process(source, AllBlocks);
    Parameter copy = source;
    Parameter assigned;
    assigned = source;
    const TypeHandler &ofSource = handler.of(source);
    const TypeHandler &ofCopy = handler.of(copy);
    QVERIFY(&ofSource != &ofCopy);
    QVERIFY(&ofSource != &handler.of(assigned));

    handler.in(copy).SetUniqueParameterName("copy");
    QCOMPARE(nameOf(ofSource), "read");
    QCOMPARE(nameOf(ofCopy), "copy");
    handler.in(source).SetUniqueParameterName("source");
    QCOMPARE(nameOf(ofSource), "source");
    QCOMPARE(nameOf(ofCopy), "copy");
    QCOMPARE(nameOf(handler.of(assigned)), "read");
    const Parameter late = source;
    handler.in(source).SetUniqueParameterName("later");
    QCOMPARE(nameOf(handler.of(late)), "source");

    source = assigned; // as it was read
    assigned.Reset();
    copy = assigned;
    QCOMPARE(nameOf(ofSource), "read");
    QCOMPARE(nameOf(ofCopy), nameOf(handler.of(assigned)));
}

// Whatever lists a parameter was assigned, references to its names stay.
void ParameterTest::namesOfTypesBelongToTheParameter()
{
    Parameter parameter;
    auto other = std::make_unique<Parameter>();
    const QString &value = parameter.ValueTypeToName(Parameter::ValueFrequency);
    const QString &control = parameter.ControlTypeToName(Parameter::VCTimeEdit);
    parameter = *other;
    other.reset();
    QCOMPARE(value, "ValueFrequency");
    QCOMPARE(control, "VCTimeEdit");
    QCOMPARE(&value, &parameter.ValueTypeToName(Parameter::ValueFrequency));
    QCOMPARE(&control, &parameter.ControlTypeToName(Parameter::VCTimeEdit));
}

// Several threads may read one parameter, the handlers that nobody has asked for included.
void ParameterTest::threadsReadOneParameter()
{
    for (int round = 0; round < 50; ++round) {
        Parameter parameter;
        process(parameter, AllBlocks);
        parameter.Reset();
        const Parameter sharing = parameter;
        const Parameter &shared = parameter;
        constexpr int Count = 4;
        std::atomic<int> waiting{Count};
        std::array<std::array<const void *, 4>, Count> seen{};
        std::array<QString, Count> names;
        std::vector<std::thread> threads;
        for (std::size_t i = 0; i < Count; ++i) {
            threads.emplace_back([&, i] {
                --waiting;
                while (waiting > 0) { } // all begin together
                const Parameter copy = shared;
                seen.at(i) = {&shared.GetIntegerHandler(), &shared.GetEnumHandler(),
                              &shared.GetDoubleHandler(),
                              &parameter.GetLongHandler()}; // without const, but only to read
                names.at(i) = copy.GetIntegerHandler().GetUniqueParameterName()
                    + shared.GetEnumHandler().GetUniqueParameterName();
            });
        }
        for (std::thread &thread : threads)
            thread.join();
        for (std::size_t i = 0; i < Count; ++i) {
            QVERIFY(seen.at(i) == seen.at(0));
            QCOMPARE(names.at(i), "readread");
        }
        QVERIFY(&shared.GetIntegerHandler() != &sharing.GetIntegerHandler());
    }
}

QTEST_GUILESS_MAIN(ParameterTest)
#include "ParameterTest.moc"
