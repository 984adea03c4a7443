#include <kormak/GenericReceiver.h>
#include <tests/support/LocaleRuns.h>
#include <tests/support/ObjectStates.h>
#include <tests/support/Samples.h>

#include <cmath>
#include <limits>

using namespace KORMAK;
using namespace TestSupport;

using Change = void (*)(Parameter &);
Q_DECLARE_METATYPE(Change)
using BlockReader = void (OpenParameter::*)(QXmlStreamReader &);
Q_DECLARE_METATYPE(BlockReader)

class ParameterXmlTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void mergeReplacesEntries();
    void mergeWithoutEntries();
    void mergeWithItself_data();
    void mergeWithItself();
    void readingAppendsEntries();

    void initTestCase_data();
    void init();
    void cleanup();

    void writing_data();
    void writing();
    void writingOptionalChildren_data();
    void writingOptionalChildren();
    void writingMultiplier_data();
    void writingMultiplier();
    void writingNumbers_data();
    void writingNumbers();
    void writingEntries_data();
    void writingEntries();
    void writingIncomplete_data();
    void writingIncomplete();
    void writingSpecialCharacters();
    void writingUnderAnotherName();
    void document();

    void attributes_data();
    void attributes();
    void attributesReachTheHandler();
    void children_data();
    void children();
    void childrenKeepWhatTheyDoNotMention();
    void unknownChildren_data();
    void unknownChildren();
    void unknownChildEndsReading();
    void booleans_data();
    void booleans();
    void unknownTypeNames_data();
    void unknownTypeNames();
    void numbers_data();
    void numbers();
    void otherOrders_data();
    void otherOrders();

    void blocks_data();
    void blocks();
    void doubleListBlocks_data();
    void doubleListBlocks();
    void doubleListBlockReadsToTheEnd();
    void blocksEndWithTheFirstEndElementOfTheirName();
    void malformedBlocks_data();
    void malformedBlocks();
    void malformedOutsideBlocks_data();
    void malformedOutsideBlocks();
    void entries_data();
    void entries();
    void entriesBesideOthers_data();
    void entriesBesideOthers();
    void blockReaders_data();
    void blockReaders();

    void roundTrip_data();
    void roundTrip();
    void roundTripOfTheDisplay();
    void booleanLosesItsType();
    void stringLosesItsDefault();
    void doubleListLosesItsValues();
    void multiplierStaysInTheParameter();

    void childInsideAText_data();
    void childInsideAText();
};

namespace {

const char Attributes[] = "Version=\"1.0\" UniqueName=\"rx.gain\"";
const char Names[] = "<RepresentationName>Gain</RepresentationName>";

QString element(const QString &children, const QString &attributes = Attributes)
{
    return "<Parameter " + attributes + '>' + children + "</Parameter>";
}

/// What completeParameter() writes, with \a typePart behind the common children.
QString completeElement(const QString &typePart)
{
    return element(QString(Names) + "<ValueType>ValueNumericFloat</ValueType><Enable>true</Enable>"
                   + typePart);
}

/// What \a children change of a parameter that has its names.
QStringList changesByChildren(const QString &children)
{
    OpenParameter parameter = objectFrom<OpenParameter>(element(Names));
    return changesBy(parameter, [&children](OpenParameter &p) { process(p, element(Names + children)); });
}

/// The changes of a handler, names included, in the order of changes().
QStringList handlerChanges(const QString &handler, const QStringList &fields)
{
    QStringList list{handler + ".UniqueName=rx.gain", handler + ".RepresentationName=Gain"};
    for (const QString &field : fields)
        list.append(handler + '.' + field);
    return sorted(list);
}

QString limits(const QString &minimum, const QString &maximum, const QString &defaultText)
{
    return "<Minimum>" + minimum + "</Minimum><Maximum>" + maximum + "</Maximum><Default>" + defaultText
        + "</Default>";
}

template <class Handler, class Number>
void setLimits(Handler &handler, Number minimum, Number maximum, Number defaultValue)
{
    handler.SetMinimum(minimum);
    handler.SetMaximum(maximum);
    handler.SetDefault(defaultValue);
}

// As many digits as Qt writes for the greatest double.
const char GreatestDouble[] = "179769313486231570814527423731704356798070567525844996598917476803157260780028"
                              "538760589558632766878171540"
                              "458953514382464234321326889464182768467546703537516986049910576551282076245490"
                              "090389328944075868508455133"
                              "942304583236903222948165808559332123348274797826204144723168738177180919299881"
                              "250404026184124858368.000000";
const char GreatestFloat[] = "340282346638528859811704183484516925440.000000";

/// A number in an element: where it stands, what it sets and what it can hold.
struct NumberPlace {
    QString block; ///< empty: a child of the parameter itself
    QString child;
    QStringList keys;
    enum { Int, LongLong, Float, Double } type;
};

QVector<NumberPlace> numberPlaces()
{
    QVector<NumberPlace> places{
        {"", "Multiplier", {"Multiplier"}, NumberPlace::Double},
        {"Float", "Precision", {"Float.Precision"}, NumberPlace::Int},
        {"Double", "Precision", {"Double.Precision"}, NumberPlace::Int},
        {"Double", "MaxDoubleListLength", {"Double.MaxLength"}, NumberPlace::Int},
    };
    const auto add = [&places](const QString &block, auto type) {
        places.append({block, "Minimum", {block + ".Minimum"}, type});
        places.append({block, "Maximum", {block + ".Maximum"}, type});
        places.append({block, "Default", {block + ".Default", block + ".Value"}, type});
    };
    add("Integer", NumberPlace::Int);
    add("Long", NumberPlace::Int);
    add("TimeStamp", NumberPlace::LongLong);
    add("Float", NumberPlace::Float);
    add("Double", NumberPlace::Double);
    return places;
}

} // namespace

void ParameterXmlTest::initTestCase_data()
{
    LocaleRuns::addLocales();
}

void ParameterXmlTest::init()
{
    LocaleRuns::useLocale();
}

void ParameterXmlTest::cleanup()
{
    LocaleRuns::restoreLocale();
}

void ParameterXmlTest::writing_data()
{
    QTest::addColumn<int>("type");
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("typePart");

    const auto row = [](const char *name, int type, const QString &typePart, Change change) {
        QTest::newRow(name) << type << change << typePart;
    };
    row("Boolean, false", 0, "<Boolean>false</Boolean>", [](Parameter &) {});
    row("Boolean, true", 0, "<Boolean>true</Boolean>",
        [](Parameter &p) { p.GetBooleanHandler().SetValue(true); });
    row("Long", 1,
        "<ParameterType>Long</ParameterType><Long>" + limits("-2147483647", "2147483647", "0") + "</Long>",
        [](Parameter &) {});
    row("Long, changed", 1,
        "<ParameterType>Long</ParameterType><Long>" + limits("-2147483648", "10", "-5") + "</Long>",
        [](Parameter &p) {
            setLimits(p.GetLongHandler(), std::numeric_limits<qint32>::min(), 10, -5);
            p.GetLongHandler().SetValue(7);
            p.GetLongHandler().SetMultiplier(3);
        });
    row("Integer", 2,
        "<ParameterType>Integer</ParameterType><Integer>" + limits("-32768", "32767", "0") + "</Integer>",
        [](Parameter &) {});
    row("Integer, changed", 2,
        "<ParameterType>Integer</ParameterType><Integer>" + limits("1", "1000000", "-5") + "</Integer>",
        [](Parameter &p) {
            setLimits(p.GetIntegerHandler(), 1, 1000000, -5);
            p.GetIntegerHandler().SetValue(7);
            p.GetIntegerHandler().SetMultiplier(3);
        });
    row("String", 3, "<ParameterType>String</ParameterType><String Default=\"text\"/>",
        [](Parameter &p) { p.GetStringHandler().SetValue("another"); });
    row("String without default", 3, "<ParameterType>String</ParameterType><String/>",
        [](Parameter &p) { p.GetStringHandler().SetDefault(""); });
    row("Double", 4,
        "<ParameterType>Double</ParameterType><Double>"
            + limits(QString('-') + GreatestDouble, GreatestDouble, "1.500000")
            + "<Precision>2</Precision></Double>",
        [](Parameter &) {});
    row("Double, changed", 4,
        "<ParameterType>Double</ParameterType><Double>" + limits("-1.250000", "100000000.000000", "0.333333")
            + "<Precision>-3</Precision></Double>",
        [](Parameter &p) {
            setLimits(p.GetDoubleHandler(), -1.25, 1e8, 1.0 / 3);
            p.GetDoubleHandler().SetValue(7);
            p.GetDoubleHandler().SetMultiplier(3);
            p.GetDoubleHandler().SetPrecision(-3);
            p.GetDoubleHandler().SetMaxDoubleListLength(9);
            p.GetDoubleHandler().AppendDoubleValue(1);
        });
    row("DoubleList", 5,
        "<ParameterType>DoubleList</ParameterType><Double>" + limits("0.000000", "2.000000", "1.000000")
            + "<Precision>4</Precision><MaxDoubleListLength>3</MaxDoubleListLength></Double>",
        [](Parameter &p) {
            setLimits(p.GetDoubleHandler(), 0.0, 2.0, 1.0);
            p.GetDoubleHandler().SetPrecision(4);
            p.GetDoubleHandler().AppendDoubleValue(1);
        });
    row("DoubleList without maximum length", 5,
        "<ParameterType>DoubleList</ParameterType><Double>" + limits("0.000000", "2.000000", "1.000000")
            + "<Precision>2</Precision><MaxDoubleListLength>-1</MaxDoubleListLength></Double>",
        [](Parameter &p) {
            setLimits(p.GetDoubleHandler(), 0.0, 2.0, 1.0);
            p.GetDoubleHandler().SetMaxDoubleListLength(-1);
            p.GetDoubleHandler().AppendDoubleValue(1);
        });
    row("Float", 6,
        "<ParameterType>Float</ParameterType><Float>"
            + limits(QString('-') + GreatestFloat, GreatestFloat, "0.000000")
            + "<Precision>2</Precision></Float>",
        [](Parameter &) {});
    row("Float, changed", 6,
        "<ParameterType>Float</ParameterType><Float>" + limits("-0.100000", "16777216.000000", "1000.099976")
            + "<Precision>0</Precision></Float>",
        [](Parameter &p) {
            setLimits(p.GetFloatHandler(), -0.1F, 16777216.0F, 1000.1F);
            p.GetFloatHandler().SetValue(7);
            p.GetFloatHandler().SetMultiplier(3);
            p.GetFloatHandler().SetPrecision(0);
        });
    row("Enum", 7,
        "<ParameterType>Enum</ParameterType><Enum><EnumValue Key=\"1\" Name=\"Low\" "
        "Value=\"0.50\"/>"
        "<EnumValue Key=\"2\" Name=\"High\" Identifier=\"HI\" Value=\"1.50\" Default=\"true\"/>"
        "</Enum>",
        [](Parameter &) {});
    row("TimeStamp", 8,
        "<ParameterType>TimeStamp</ParameterType><TimeStamp>"
            + limits("-9223372036854775808", "9223372036854775807", "0") + "</TimeStamp>",
        [](Parameter &) {});
    row("TimeStamp, changed", 8,
        "<ParameterType>TimeStamp</ParameterType><TimeStamp>" + limits("-1", "4294967296", "1790000000000")
            + "</TimeStamp>",
        [](Parameter &p) {
            setLimits(p.GetTimeStampHandler(), -1LL, 4294967296LL, 1790000000000LL);
            p.GetTimeStampHandler().SetValue(7);
            p.GetTimeStampHandler().SetMultiplier(3);
        });
}

void ParameterXmlTest::writing()
{
    QFETCH(int, type);
    QFETCH(Change, change);
    QFETCH(QString, typePart);
    Parameter parameter = completeParameter(type);
    change(parameter);

    QCOMPARE(elementOf(parameter), completeElement(typePart));
}

void ParameterXmlTest::writingOptionalChildren_data()
{
    QTest::addColumn<Change>("change");
    QTest::addColumn<QString>("children");

    const auto row = [](const char *name, const QString &children, Change change) {
        QTest::newRow(name) << change << children;
    };
    const QString valueType = "<ValueType>ValueNumericFloat</ValueType>";
    const QString enable = "<Enable>true</Enable>";
    row("none", Names + valueType + enable, [](Parameter &) {});
    row("display name", Names + QString("<DisplayName>D</DisplayName>") + valueType + enable,
        [](Parameter &p) { p.SetDisplayName("D"); });
    row("tool tip", Names + QString("<ToolTip>T</ToolTip>") + valueType + enable,
        [](Parameter &p) { p.SetToolTip("T"); });
    row("first value type", Names + QString("<ValueType>ValueSelection</ValueType>") + enable,
        [](Parameter &p) { p.SetValueType(Parameter::ValueSelection); });
    row("last value type", Names + QString("<ValueType>ValueFloatList</ValueType>") + enable,
        [](Parameter &p) { p.SetValueType(Parameter::ValueFloatList); });
    row("unknown value type", Names + enable,
        [](Parameter &p) { p.SetValueType(static_cast<Parameter::ValueType>(8)); });
    row("negative value type", Names + enable,
        [](Parameter &p) { p.SetValueType(static_cast<Parameter::ValueType>(-2)); });
    row("first control type", Names + valueType + "<ControlType>VCFrequency</ControlType>" + enable,
        [](Parameter &p) { p.SetControlType(Parameter::VCFrequency); });
    row("last control type", Names + valueType + "<ControlType>VCTimeEdit</ControlType>" + enable,
        [](Parameter &p) { p.SetControlType(Parameter::VCTimeEdit); });
    row("unknown control type", Names + valueType + enable,
        [](Parameter &p) { p.SetControlType(static_cast<Parameter::ControlType>(4)); });
    row("display suffix", Names + valueType + "<DisplaySuffix>Hz</DisplaySuffix>" + enable,
        [](Parameter &p) { p.SetDisplaySuffix("Hz"); });
    row("multiplier", Names + valueType + "<Multiplier>2.50</Multiplier>" + enable,
        [](Parameter &p) { p.SetMultiplier(2.5); });
    row("disabled", Names + valueType + "<Enable>false</Enable>", [](Parameter &p) {
        process(p, "<Parameter Version=\"1.0\" UniqueName=\"rx.gain\"><Enable>false</Enable></Parameter>");
    });
    row("all",
        Names
            + QString(
                "<DisplayName>D</DisplayName><ToolTip>T</ToolTip><ValueType>ValueNumericFloat</ValueType>"
                "<ControlType>VCLineEdit</ControlType><DisplaySuffix>Hz</DisplaySuffix>"
                "<Multiplier>0.00</Multiplier><Enable>true</Enable>"),
        [](Parameter &p) {
            p.SetMultiplier(0);
            p.SetDisplaySuffix("Hz");
            p.SetControlType(Parameter::VCLineEdit);
            p.SetToolTip("T");
            p.SetDisplayName("D");
        });
}

void ParameterXmlTest::writingOptionalChildren()
{
    QFETCH(Change, change);
    QFETCH(QString, children);
    Parameter parameter = completeParameter(0);
    change(parameter);

    QCOMPARE(elementOf(parameter), element(children + "<Boolean>false</Boolean>"));
}

void ParameterXmlTest::writingMultiplier_data()
{
    QTest::addColumn<double>("multiplier");
    QTest::addColumn<QString>("text");

    QTest::newRow("exactly 1") << 1.0 << "";
    QTest::newRow("next to 1") << std::nextafter(1.0, 2.0) << "1.00";
    QTest::newRow("-1") << -1.0 << "-1.00";
    QTest::newRow("two decimals") << 2.5 << "2.50";
    QTest::newRow("rounded up") << 0.126 << "0.13";
    QTest::newRow("rounded down") << 1.234 << "1.23";
    QTest::newRow("too small for the decimals") << 0.001 << "0.00";
    QTest::newRow("thousands without separator") << 1000000.0 << "1000000.00";
    QTest::newRow("no exponent") << 1e21 << "1000000000000000000000.00";
    QTest::newRow("0") << 0.0 << "0.00";
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << "nan";
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << "inf";
    QTest::newRow("negative infinite") << -std::numeric_limits<double>::infinity() << "-inf";
}

void ParameterXmlTest::writingMultiplier()
{
    QFETCH(double, multiplier);
    QFETCH(QString, text);
    Parameter parameter = completeParameter(0);
    parameter.SetMultiplier(multiplier);

    const QString written = text.isEmpty() ? QString() : "<Multiplier>" + text + "</Multiplier>";
    QCOMPARE(elementOf(parameter),
             element(Names + QString("<ValueType>ValueNumericFloat</ValueType>") + written
                     + "<Enable>true</Enable><Boolean>false</Boolean>"));
}

void ParameterXmlTest::writingNumbers_data()
{
    QTest::addColumn<double>("number");
    QTest::addColumn<QString>("asDouble");
    QTest::addColumn<QString>("asFloat");

    QTest::newRow("0") << 0.0 << "0.000000"
                       << "0.000000";
    QTest::newRow("whole") << 7.0 << "7.000000"
                           << "7.000000";
    QTest::newRow("negative") << -2.5 << "-2.500000"
                              << "-2.500000";
    QTest::newRow("not exact in binary") << 0.1 << "0.100000"
                                         << "0.100000";
    QTest::newRow("seven decimals") << 0.1234567 << "0.123457"
                                    << "0.123457";
    QTest::newRow("a float has fewer digits") << 1234.5678 << "1234.567800"
                                              << "1234.567749";
    QTest::newRow("smaller than the decimals") << 4e-7 << "0.000000"
                                               << "0.000000";
    QTest::newRow("tiny") << 1e-30 << "0.000000"
                          << "0.000000";
    QTest::newRow("no exponent") << 1e21 << "1000000000000000000000.000000"
                                 << "1000000020040877342720.000000";
    QTest::newRow("no separators") << 12345678.0 << "12345678.000000"
                                   << "12345678.000000";
    QTest::newRow("not a number") << std::numeric_limits<double>::quiet_NaN() << "nan"
                                  << "nan";
    QTest::newRow("infinite") << std::numeric_limits<double>::infinity() << "inf"
                              << "inf";
    QTest::newRow("negative infinite") << -std::numeric_limits<double>::infinity() << "-inf"
                                       << "-inf";
}

void ParameterXmlTest::writingNumbers()
{
    QFETCH(double, number);
    QFETCH(QString, asDouble);
    QFETCH(QString, asFloat);

    Parameter parameter = completeParameter(4);
    setLimits(parameter.GetDoubleHandler(), number, number, number);
    QCOMPARE(elementOf(parameter),
             completeElement("<ParameterType>Double</ParameterType><Double>"
                             + limits(asDouble, asDouble, asDouble) + "<Precision>2</Precision></Double>"));

    parameter = completeParameter(6);
    const auto asNumber = static_cast<float>(number);
    setLimits(parameter.GetFloatHandler(), asNumber, asNumber, asNumber);
    QCOMPARE(elementOf(parameter),
             completeElement("<ParameterType>Float</ParameterType><Float>" + limits(asFloat, asFloat, asFloat)
                             + "<Precision>2</Precision></Float>"));
}

void ParameterXmlTest::writingEntries_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("identifier");
    QTest::addColumn<double>("value");
    QTest::addColumn<QString>("isDefault");
    QTest::addColumn<QString>("attributes");

    const auto row = [](const char *description, int key, const QString &name, const QString &identifier,
                        double value, const QString &isDefault, const QString &attributes) {
        QTest::newRow(description) << key << name << identifier << value << isDefault << attributes;
    };
    row("smallest", 0, "A", "", 0, "false", "Key=\"0\" Name=\"A\" Value=\"0.00\"");
    row("without name", -1, "", "", 0, "", "Key=\"-1\" Name=\"\" Value=\"0.00\"");
    row("identifier", 1, "A", "I", 1, "false", "Key=\"1\" Name=\"A\" Identifier=\"I\" Value=\"1.00\"");
    row("default", 1, "A", "", 1, "true", "Key=\"1\" Name=\"A\" Value=\"1.00\" Default=\"true\"");
    row("all", 1, "A", "I", 1, "true",
        "Key=\"1\" Name=\"A\" Identifier=\"I\" Value=\"1.00\" Default=\"true\"");
    row("default in capitals", 1, "A", "", 1, "TRUE", "Key=\"1\" Name=\"A\" Value=\"1.00\"");
    row("rounded value", 1, "A", "", 123456.789, "", "Key=\"1\" Name=\"A\" Value=\"123456.79\"");
    row("negative value", 1, "A", "", -0.5, "", "Key=\"1\" Name=\"A\" Value=\"-0.50\"");
    row("huge value", 1, "A", "", 1e20, "", "Key=\"1\" Name=\"A\" Value=\"100000000000000000000.00\"");
    row("value not a number", 1, "A", "", std::numeric_limits<double>::quiet_NaN(), "",
        "Key=\"1\" Name=\"A\" Value=\"nan\"");
    row("least key", std::numeric_limits<int>::min(), "A", "", 0, "",
        "Key=\"-2147483648\" Name=\"A\" Value=\"0.00\"");
    row("greatest key", std::numeric_limits<int>::max(), "A", "", 0, "",
        "Key=\"2147483647\" Name=\"A\" Value=\"0.00\"");
    row("special characters", 1, "<\"A\" & B>", "\n", 0, "",
        "Key=\"1\" Name=\"&lt;&quot;A&quot; &amp; B&gt;\" Identifier=\"&#10;\" Value=\"0.00\"");
}

void ParameterXmlTest::writingEntries()
{
    QFETCH(int, key);
    QFETCH(QString, name);
    QFETCH(QString, identifier);
    QFETCH(double, value);
    QFETCH(QString, isDefault);
    QFETCH(QString, attributes);
    Parameter parameter = completeParameter(7);
    parameter.GetEnumHandler().GetEnumList() = {enumValue(3, "first", 1),
                                                enumValue(key, name, value, identifier, isDefault)};

    QCOMPARE(elementOf(parameter),
             completeElement("<ParameterType>Enum</ParameterType><Enum>"
                             "<EnumValue Key=\"3\" Name=\"first\" Value=\"1.00\"/><EnumValue "
                             + attributes + "/></Enum>"));
}

void ParameterXmlTest::writingIncomplete_data()
{
    QTest::addColumn<Change>("change");

    const auto row = [](const char *name, Change change) { QTest::newRow(name) << change; };
    row("no parameter type", [](Parameter &p) { p.SetParameterType(ParameterType::Invalid); });
    row("unknown parameter type", [](Parameter &p) { p.SetParameterType(typeOf(TypeCount)); });
    row("no value type", [](Parameter &p) { p.SetValueType(Parameter::InvalidValueType); });
    row("no unique name", [](Parameter &p) { p.SetUniqueParameterName(""); });
    row("no representation name", [](Parameter &p) { p.SetRepresenationName(""); });
    row("no value", [](Parameter &p) { p.GetStringHandler().SetValue(""); });
}

void ParameterXmlTest::writingIncomplete()
{
    QFETCH(Change, change);
    Parameter parameter = completeParameter(3);
    QVERIFY(!elementOf(parameter).isEmpty());
    change(parameter);

    QCOMPARE(elementOf(parameter), QString());
}

void ParameterXmlTest::writingSpecialCharacters()
{
    Parameter parameter = completeParameter(3, "<a> & \"b\"\n", "<c> & \"d\"");
    parameter.GetStringHandler().SetDefault("'e' <f>\t");

    QCOMPARE(
        elementOf(parameter),
        QString("<Parameter Version=\"1.0\" UniqueName=\"&lt;a&gt; &amp; &quot;b&quot;&#10;\">"
                "<RepresentationName>&lt;c&gt; &amp; &quot;d&quot;</RepresentationName>"
                "<ValueType>ValueNumericFloat</ValueType><Enable>true</Enable>"
                "<ParameterType>String</ParameterType><String Default=\"'e' &lt;f&gt;&#9;\"/></Parameter>"));
    Parameter read;
    QVERIFY(read.SetXmlString(parameter.GetXmlString(), true));
    QCOMPARE(read.GetUniqueParameterName(), QString("<a> & \"b\"\n"));
    QCOMPARE(read.GetRepresenationName(), QString("<c> & \"d\""));
}

void ParameterXmlTest::writingUnderAnotherName()
{
    OpenParameter parameter(completeParameter(0));
    parameter.SetObjectName("Setting");
    QCOMPARE(elementOf(parameter),
             completeElement("<Boolean>false</Boolean>")
                 .replace("Parameter ", "Setting ")
                 .replace("/Parameter", "/Setting"));
}

void ParameterXmlTest::document()
{
    QCOMPARE(completeParameter(7).GetXmlString(),
             TestSupport::document("<Parameter Version=\"1.0\" UniqueName=\"rx.gain\">\n"
                                   "    <RepresentationName>Gain</RepresentationName>\n"
                                   "    <ValueType>ValueNumericFloat</ValueType>\n"
                                   "    <Enable>true</Enable>\n"
                                   "    <ParameterType>Enum</ParameterType>\n"
                                   "    <Enum>\n"
                                   "        <EnumValue Key=\"1\" Name=\"Low\" Value=\"0.50\"/>\n"
                                   "        <EnumValue Key=\"2\" Name=\"High\" Identifier=\"HI\" "
                                   "Value=\"1.50\" Default=\"true\"/>\n"
                                   "    </Enum>\n"
                                   "</Parameter>\n"));
    QCOMPARE(messageOf([] { (void)Parameter().GetXmlString(); }),
             QString("Parameter: Please set ParameterType"));
}

void ParameterXmlTest::attributes_data()
{
    QTest::addColumn<QString>("attributes");
    QTest::addColumn<QString>("version");
    QTest::addColumn<QString>("uniqueName");

    const auto row = [](const char *name, const QString &attributes, const QString &version,
                        const QString &uniqueName) {
        QTest::newRow(name) << attributes << version << uniqueName;
    };
    row("both", "Version=\"2.0\" UniqueName=\"a\"", "2.0", "a");
    row("in the other order", "UniqueName=\"a\" Version=\"2.0\"", "2.0", "a");
    row("without version", "UniqueName=\"a\"", "", "a");
    row("without unique name", "Version=\"2.0\"", "2.0", "");
    row("none", "", "", "");
    row("empty", "Version=\"\" UniqueName=\"\"", "", "");
    row("lower case", "version=\"2.0\" uniqueName=\"a\"", "", "");
    row("upper case", "VERSION=\"2.0\" UNIQUENAME=\"a\"", "", "");
    row("others beside", "Name=\"x\" Version=\"2.0\" Type=\"y\" UniqueName=\"a\"", "2.0", "a");
    row("in a namespace", "xmlns:n=\"urn:n\" n:Version=\"2.0\" n:UniqueName=\"a\"", "", "");
    row("any text", "Version=\" v &amp; w \" UniqueName=\"&lt;a&gt; %1 \"", " v & w ", "<a> %1 ");
}

void ParameterXmlTest::attributes()
{
    QFETCH(QString, attributes);
    QFETCH(QString, version);
    QFETCH(QString, uniqueName);
    OpenParameter parameter(completeParameter(0, "before"));

    process(parameter, element("", attributes));
    QCOMPARE(parameter.GetUniqueParameterName(), uniqueName);
    QCOMPARE(parameter.GetVersion(), QString("1.0")); // of the base
    parameter.SetUniqueParameterName("n");
    QVERIFY(elementOf(parameter).startsWith("<Parameter Version=\"" + version.toHtmlEscaped()
                                            + "\" UniqueName=\"n\">"));
}

void ParameterXmlTest::attributesReachTheHandler()
{
    OpenParameter parameter;
    QCOMPARE(changesBy(parameter, [](Parameter &p) { process(p, element("")); }),
             QStringList("UniqueName=rx.gain"));

    parameter.SetParameterType(ParameterType::Long);
    QCOMPARE(changesBy(parameter, [](Parameter &p) { process(p, element("")); }),
             QStringList("Long.UniqueName=rx.gain"));
    QCOMPARE(changesBy(parameter, [](Parameter &p) { process(p, element("", "Version=\"1.0\"")); }),
             QStringList({"Long.UniqueName=", "UniqueName="}));
}

void ParameterXmlTest::children_data()
{
    QTest::addColumn<QString>("children");
    QTest::addColumn<QStringList>("changed");

    const auto row = [](const char *name, const QString &children, const QStringList &changed) {
        QTest::newRow(name) << children << changed;
    };
    row("RepresentationName", "<RepresentationName>R</RepresentationName>", {"RepresentationName=R"});
    row("ParameterType", "<ParameterType>Float</ParameterType>", {"ParameterType=6"});
    row("DisplayName", "<DisplayName>D &amp; E</DisplayName>", {"DisplayName=D & E"});
    row("ToolTip", "<ToolTip>T</ToolTip>", {"ToolTip=T"});
    row("ValueType", "<ValueType>ValueFrequency</ValueType>", {"ValueType=6"});
    row("ControlType", "<ControlType>VCLineEdit</ControlType>", {"ControlType=1"});
    row("DisplaySuffix", "<DisplaySuffix>Hz</DisplaySuffix>", {"DisplaySuffix=Hz"});
    row("DisplaySuffix outside Latin-1", "<DisplaySuffix>\u2126\u03a9</DisplaySuffix>",
        {"DisplaySuffix=\u2126\u03a9"});
    row("Multiplier", "<Multiplier>2.5</Multiplier>", {"Multiplier=2.5"});
    row("Enable", "<Enable>false</Enable>", {"Enable=false"});
    row("Boolean", "<Boolean>true</Boolean>", handlerChanges("Boolean", {"Value=true"}));
    row("Enum", "<Enum><EnumValue Key=\"4\" Name=\"N\" Identifier=\"I\" Value=\"2.5\"/></Enum>",
        handlerChanges("Enum",
                       {"List=4|N|I|2.5|false", "Default=4|N|I|2.5|false", "Selected=4|N|I|2.5|false"}));
    row("Double",
        "<Double>" + limits("-2.5", "1e3", "0.1")
            + "<Precision>5</Precision><MaxDoubleListLength>6</MaxDoubleListLength></Double>",
        handlerChanges("Double",
                       {"Minimum=-2.5", "Maximum=1000", "Default=0.10000000000000001",
                        "Value=0.10000000000000001", "Precision=5", "MaxLength=6"}));
    row("DoubleList",
        "<DoubleList><Double>" + limits("-2.5", "1e3", "0.1")
            + "<Precision>5</Precision><MaxDoubleListLength>6</MaxDoubleListLength></Double></DoubleList>",
        handlerChanges("Double",
                       {"Minimum=-2.5", "Maximum=1000", "Default=0.10000000000000001",
                        "Value=0.10000000000000001", "Precision=5", "MaxLength=6"}));
    row("Integer", "<Integer>" + limits("-2147483648", "2147483647", "5") + "</Integer>",
        handlerChanges("Integer", {"Minimum=-2147483648", "Maximum=2147483647", "Default=5", "Value=5"}));
    row("Long", "<Long>" + limits("-2147483648", "7", "5") + "</Long>",
        handlerChanges("Long", {"Minimum=-2147483648", "Maximum=7", "Default=5", "Value=5"}));
    row("Float", "<Float>" + limits("-2.5", "1e3", "0.1") + "<Precision>5</Precision></Float>",
        handlerChanges(
            "Float",
            {"Minimum=-2.5", "Maximum=1000", "Default=0.100000001", "Value=0.100000001", "Precision=5"}));
    row("String", "<String><Default> a &lt; b </Default></String>",
        handlerChanges("String", {"Default= a < b ", "Value= a < b "}));
    row("TimeStamp", "<TimeStamp>" + limits("-5", "4294967296", "5000000000") + "</TimeStamp>",
        handlerChanges("TimeStamp",
                       {"Minimum=-5", "Maximum=4294967296", "Default=5000000000", "Value=5000000000"}));

    row("none", "", {});
    row("text between", " text <!-- comment --> <?instruction?>", {});
    row("attributes of children", "<DisplayName Text=\"x\">D</DisplayName>", {"DisplayName=D"});
    row("text in a character data section", "<DisplayName><![CDATA[<D>]]></DisplayName>",
        {"DisplayName=<D>"});
    row("blanks are kept", "<DisplayName> D </DisplayName>", {"DisplayName= D "});
    row("comment in a text", "<DisplayName>D<!-- x -->E</DisplayName>", {"DisplayName=DE"});
    row("the last of several counts", "<ToolTip>1</ToolTip><ToolTip>2</ToolTip>", {"ToolTip=2"});
    row("in a namespace", "<n:ToolTip xmlns:n=\"urn:n\">T</n:ToolTip>", {"ToolTip=T"});
    row("blocks do not set the type", "<Long/><String/><TimeStamp/>",
        sorted(handlerChanges("Long", {}) + handlerChanges("String", {}) + handlerChanges("TimeStamp", {})));
    row("block of another type", "<ParameterType>Long</ParameterType><Integer><Minimum>3</Minimum></Integer>",
        sorted(handlerChanges("Integer", {"Minimum=3"}) + QStringList("ParameterType=1")));
}

void ParameterXmlTest::children()
{
    QFETCH(QString, children);
    QFETCH(QStringList, changed);

    QCOMPARE(changesByChildren(children), changed);
    OpenParameter parameter;
    QCOMPARE(process(parameter, element(Names + children)), QXmlStreamReader::EndElement);
}

void ParameterXmlTest::childrenKeepWhatTheyDoNotMention()
{
    OpenParameter parameter(completeParameter(4));
    parameter.SetDisplayName("D");
    parameter.SetDisplaySuffix("Hz");
    parameter.SetToolTip("T");
    parameter.SetMultiplier(5);
    parameter.SetControlType(Parameter::VCTimeEdit);
    parameter.GetDoubleHandler().AppendDoubleValue(3);

    QCOMPARE(changesBy(parameter, [](Parameter &p) { process(p, element("")); }), QStringList());
    QCOMPARE(changesBy(parameter, [](Parameter &p) { process(p, element("<Double/>")); }), QStringList());
    QCOMPARE(changesBy(parameter, [](Parameter &p) { process(p, element("<ToolTip/>")); }),
             QStringList("ToolTip="));
}

void ParameterXmlTest::unknownChildren_data()
{
    QTest::addColumn<QString>("name");

    const QStringList names{
        "RepresentationName", "ParameterType", "DisplayName", "ToolTip", "ValueType", "ControlType",
        "DisplaySuffix",      "Multiplier",    "Enable",      "Boolean", "Enum",      "Double",
        "DoubleList",         "Integer",       "Long",        "Float",   "String",    "TimeStamp"};
    for (const QString &name : names) {
        for (const QString &other : {name.toLower(), name.toUpper(), name + 's', name.chopped(1)})
            QTest::newRow(qPrintable(other)) << other;
    }
    for (const QString &name : QStringList{"RepresenationName", "UniqueName", "Version", "Enabled", "Minimum",
                                           "Maximum", "Default", "Precision", "MaxDoubleListLength",
                                           "EnumValue", "Parameter", "Script", "GenericReceiver"})
        QTest::newRow(qPrintable(name)) << name;
}

void ParameterXmlTest::unknownChildren()
{
    QFETCH(QString, name);
    OpenParameter parameter;

    QCOMPARE(messageOf([&] { process(parameter, element('<' + name + "/>")); }),
             "Unknown Tag '" + name + "' in 'Parameter'.");
    QCOMPARE(changes(parameter), QStringList("UniqueName=rx.gain"));
    parameter.SetObjectName("%1");
    QCOMPARE(messageOf([&] { process(parameter, element('<' + name + "/>")); }),
             "Unknown Tag '" + name + "' in '%1'.");
}

void ParameterXmlTest::unknownChildEndsReading()
{
    OpenParameter parameter;
    const QString children = "<ToolTip>T</ToolTip><Unit>Hz</Unit><DisplayName>D</DisplayName>";

    QCOMPARE(messageOf([&] { process(parameter, element(children)); }),
             QString("Unknown Tag 'Unit' in 'Parameter'."));
    QCOMPARE(changes(parameter), QStringList({"ToolTip=T", "UniqueName=rx.gain"}));
}

void ParameterXmlTest::booleans_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("isTrue");

    QTest::newRow("true") << "true" << true;
    QTest::newRow("false") << "false" << false;
    for (const QString &text :
         QStringList{"", "1", "0", "TRUE", "True", " true", "true ", "yes", "on", "truex"})
        QTest::newRow(qPrintable('"' + text + '"')) << text << false;
}

void ParameterXmlTest::booleans()
{
    QFETCH(QString, text);
    QFETCH(bool, isTrue);
    // From the other value.
    const QString before = isTrue ? "false" : "true";
    const QString after = isTrue ? "true" : "false";

    OpenParameter parameter = objectFrom<OpenParameter>(
        element("<Enable>" + before + "</Enable><Boolean>" + before + "</Boolean>"));
    QCOMPARE(
        changesBy(parameter, [&text](Parameter &p) { process(p, element("<Enable>" + text + "</Enable>")); }),
        QStringList("Enable=" + after));
    QCOMPARE(changesBy(parameter,
                       [&text](Parameter &p) { process(p, element("<Boolean>" + text + "</Boolean>")); }),
             QStringList("Boolean.Value=" + after));
}

void ParameterXmlTest::unknownTypeNames_data()
{
    QTest::addColumn<QString>("text");

    for (const QString &text :
         QStringList{"", "3", "-1", "double", "FLOAT", " Float", "Float ", "valuefrequency",
                     "ValueFrequency ", "vctimeedit", "VCTimeEdit ", "none"})
        QTest::newRow(qPrintable('"' + text + '"')) << text;
}

// An unknown parameter type changes nothing, the other two are then not set.
void ParameterXmlTest::unknownTypeNames()
{
    QFETCH(QString, text);
    OpenParameter parameter = objectFrom<OpenParameter>(element("<ParameterType>Float</ParameterType>"
                                                                "<ValueType>ValueFrequency</ValueType>"
                                                                "<ControlType>VCTimeEdit</ControlType>"));
    QCOMPARE(changes(parameter),
             QStringList({"ControlType=3", "ParameterType=6", "UniqueName=rx.gain", "ValueType=6"}));
    parameter.GetFloatHandler().SetUniqueParameterName("rx.gain");

    QCOMPARE(changesBy(parameter,
                       [&text](Parameter &p) {
                           process(p,
                                   element("<ParameterType>" + text + "</ParameterType><ValueType>" + text
                                           + "</ValueType><ControlType>" + text + "</ControlType>"));
                       }),
             QStringList({"ControlType=-1", "ValueType=-1"}));
}

void ParameterXmlTest::numbers_data()
{
    QTest::addColumn<QString>("block");
    QTest::addColumn<QString>("child");
    QTest::addColumn<QStringList>("keys");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("number");

    for (const NumberPlace &place : numberPlaces()) {
        const auto add = [&place](const QString &text, const QString &number) {
            QString shown = text;
            shown.replace('\n', "\\n").replace('\t', "\\t");
            QTest::newRow(qPrintable(place.block + ' ' + place.child + " \"" + shown + '"'))
                << place.block << place.child << place.keys << text << number;
        };
        for (const QString &text : QStringList{"", " ", "abc", "12abc", "0x10", "1,000", "1 000", "1'000",
                                               "--1", "1.2.3", "true", "\u0661"})
            add(text, "0");
        add("0", "0");
        add("42", "42");
        add("-42", "-42");
        add("+42", "42");
        add("007", "7");
        add(" 42 ", "42");
        add("\n\t42\n", "42");

        const bool isWhole = place.type == NumberPlace::Int || place.type == NumberPlace::LongLong;
        add("1.5", isWhole ? "0" : "1.5");
        add("1e3", isWhole ? "0" : "1000");
        add("1,5", "0");
        if (place.type == NumberPlace::Int) {
            add("2147483647", "2147483647");
            add("-2147483648", "-2147483648");
            for (const QString &text :
                 QStringList{"2147483648", "-2147483649", "4294967295", "4294967296", "4294967338",
                             "9223372036854775807", "99999999999999999999"})
                add(text, "0");
        } else if (place.type == NumberPlace::LongLong) {
            add("9223372036854775807", "9223372036854775807");
            add("-9223372036854775808", "-9223372036854775808");
            for (const QString &text : QStringList{"9223372036854775808", "-9223372036854775809",
                                                   "18446744073709551615", "99999999999999999999"})
                add(text, "0");
        } else {
            add("1e400", "0");
            add("-1e400", "0");
            add("1e-400", "0");
            add("inf", "inf");
            add("-inf", "-inf");
            add("nan", "nan");
            const bool isFloat = place.type == NumberPlace::Float;
            add("1e39", isFloat ? "0" : "9.9999999999999994e+38");
            add("3.4028234663852886e+38", isFloat ? "3.40282347e+38" : "3.4028234663852886e+38");
            add("0.1", isFloat ? "0.100000001" : "0.10000000000000001");
            if (!isFloat)
                add("1.7976931348623157e+308", "1.7976931348623157e+308");
        }
    }
}

void ParameterXmlTest::numbers()
{
    QFETCH(QString, block);
    QFETCH(QString, child);
    QFETCH(QStringList, keys);
    QFETCH(QString, text);
    QFETCH(QString, number);

    // After another number, so that it is seen to be replaced.
    const auto childElement = [&](const QString &content) {
        return '<' + child + '>' + content + "</" + child + '>';
    };
    QString children = childElement("99") + childElement(text);
    if (!block.isEmpty())
        children = '<' + block + '>' + children + "</" + block + '>';
    const State state = stateOf(objectFrom<OpenParameter>(element(children)));

    for (const QString &key : keys)
        QCOMPARE(state[key], number);
}

void ParameterXmlTest::otherOrders_data()
{
    QTest::addColumn<QString>("children");
    QTest::addColumn<QStringList>("changed"); // since a new parameter

    const auto row = [](const char *name, const QString &children, const QStringList &changed) {
        QTest::newRow(name) << children << sorted(changed + QStringList("UniqueName=rx.gain"));
    };
    const QString type = "<ParameterType>Long</ParameterType>";
    const QString name = "<RepresentationName>Gain</RepresentationName>";
    const QString multiplier = "<Multiplier>5</Multiplier>";
    row("name, multiplier, type", name + multiplier + type,
        {"Multiplier=5", "ParameterType=1", "RepresentationName=Gain"});
    row("type, name", type + name,
        {"Long.RepresentationName=Gain", "ParameterType=1", "RepresentationName=Gain"});
    row("type, multiplier", type + multiplier, {"Long.Multiplier=5", "Multiplier=5", "ParameterType=1"});
    row("block, name", "<Long/>" + name, {"Long.UniqueName=rx.gain", "RepresentationName=Gain"});
    row("block, type, name", "<Long/>" + type + name,
        {"Long.RepresentationName=Gain", "Long.UniqueName=rx.gain", "ParameterType=1",
         "RepresentationName=Gain"});
    row("block, name, type", "<Long/>" + name + type,
        {"Long.UniqueName=rx.gain", "ParameterType=1", "RepresentationName=Gain"});
    row("boolean, name", "<Boolean>true</Boolean>" + name,
        {"Boolean.UniqueName=rx.gain", "Boolean.Value=true", "RepresentationName=Gain"});
    row("type of a list before the block", "<ParameterType>DoubleList</ParameterType><Double/>",
        {"Double.IsList=true", "Double.UniqueName=rx.gain", "ParameterType=5"});
    row("type of a list after the block", "<Double/><ParameterType>DoubleList</ParameterType>",
        {"Double.UniqueName=rx.gain", "ParameterType=5"});
    row("another type before the block",
        "<ParameterType>DoubleList</ParameterType><Double/><ParameterType>Double</ParameterType><Double/>",
        {"Double.UniqueName=rx.gain", "ParameterType=4"});
    row("from the end to the front",
        "<Enum><EnumValue Key=\"1\" Name=\"A\" Value=\"1\"/></Enum><ParameterType>Enum</ParameterType>"
        "<Enable>false</Enable><Multiplier>5</Multiplier><DisplaySuffix>Hz</DisplaySuffix>"
        "<ControlType>VCFrequency</ControlType><ValueType>ValueSelection</ValueType><ToolTip>T</ToolTip>"
        "<DisplayName>D</DisplayName><RepresentationName>Gain</RepresentationName>",
        {"ControlType=0", "DisplayName=D", "DisplaySuffix=Hz", "Enable=false", "Enum.Default=1|A||1|false",
         "Enum.List=1|A||1|false", "Enum.RepresentationName=Gain", "Enum.Selected=1|A||1|false",
         "Enum.UniqueName=rx.gain", "Multiplier=5", "ParameterType=7", "RepresentationName=Gain", "ToolTip=T",
         "ValueType=0"});
}

void ParameterXmlTest::otherOrders()
{
    QFETCH(QString, children);
    QFETCH(QStringList, changed);

    QCOMPARE(changes(objectFrom<OpenParameter>(element(children))), changed);
}

void ParameterXmlTest::blocks_data()
{
    QTest::addColumn<QString>("block");
    QTest::addColumn<QString>("content");
    QTest::addColumn<QStringList>("fields");

    for (const QString &block : QStringList{"Integer", "Long", "TimeStamp", "Float", "Double", "String"}) {
        const auto row = [&block](const QString &name, const QString &content, const QStringList &fields) {
            QTest::newRow(qPrintable(block + ", " + name)) << block << content << fields;
        };
        const QStringList five{"Default=5", "Value=5"};
        row("empty", "", {});
        row("default", "<Default>5</Default>", five);
        row("default of several", "<Default>4</Default><Default>5</Default>", five);
        row("default in a namespace", "<n:Default xmlns:n=\"urn:n\">5</n:Default>", five);
        row("text", " 1 <Default>5</Default> 2 ", five);
        row("comments", "<!-- <Default>4</Default> --><Default>5<!-- 6 --></Default>", five);
        row("unknown child", "<Step>4</Step><Default>5</Default><Unit><A/><B>4</B></Unit>", five);
        row("known child of an unknown one", "<Step>4<A><Default>5</Default></A></Step>", five);
        row("child in lower case", "<default>5</default>", {});
        row("child in upper case", "<DEFAULT>5</DEFAULT>", {});
        row("value", "<Value>5</Value>", {});
        row("multiplier", "<Multiplier>5</Multiplier>", {});
        row("names", "<RepresentationName>R</RepresentationName><UniqueName>U</UniqueName>", {});
        row("block of another name", "<Enum><Default>5</Default></Enum>", five);
        row("list entry", "<EnumValue Key=\"1\"/>", {});
        if (block == "String") {
            row("limits", limits("1", "2", "5"), five);
            row("text of the default", "<Default> a &amp; b </Default>",
                {"Default= a & b ", "Value= a & b "});
        } else {
            row("minimum", "<Minimum>5</Minimum>", {"Minimum=5"});
            row("maximum", "<Maximum>5</Maximum>", {"Maximum=5"});
            row("limits in another order", "<Default>3</Default><Maximum>2</Maximum><Minimum>1</Minimum>",
                {"Minimum=1", "Maximum=2", "Default=3", "Value=3"});
        }
        const bool hasPrecision = block == "Float" || block == "Double";
        row("precision", "<Precision>5</Precision>",
            hasPrecision ? QStringList("Precision=5") : QStringList());
        row("maximum length", "<MaxDoubleListLength>5</MaxDoubleListLength>",
            block == "Double" ? QStringList("MaxLength=5") : QStringList());
    }
}

void ParameterXmlTest::blocks()
{
    QFETCH(QString, block);
    QFETCH(QString, content);
    QFETCH(QStringList, fields);

    QStringList expected = handlerChanges(block, fields);
    QCOMPARE(changesByChildren('<' + block + '>' + content + "</" + block + '>'), expected);
    // Attributes mean nothing, and what follows is read as usual.
    expected.append("ToolTip=T");
    QCOMPARE(changesByChildren('<' + block + " Default=\"9\" Minimum=\"9\">" + content + "</" + block
                               + "><ToolTip>T</ToolTip>"),
             sorted(expected));
}

void ParameterXmlTest::doubleListBlocks_data()
{
    QTest::addColumn<QString>("children");
    QTest::addColumn<QStringList>("fields");
    QTest::addColumn<QString>("toolTip");

    const auto row = [](const char *name, const QString &children, const QStringList &fields,
                        const QString &toolTip) { QTest::newRow(name) << children << fields << toolTip; };
    const QString tip = "<ToolTip>T</ToolTip>";
    row("Double in it", "<DoubleList><Double><Minimum>1</Minimum></Double></DoubleList>" + tip, {"Minimum=1"},
        "T");
    row("an empty Double behind its numbers",
        "<DoubleList><Minimum>1</Minimum><Precision>3</Precision><Double/></DoubleList>" + tip,
        {"Minimum=1", "Precision=3"}, "T");
    row("Double after it",
        "<DoubleList><Minimum>1</Minimum></DoubleList>" + tip + "<Double><Maximum>2</Maximum></Double>",
        {"Minimum=1", "Maximum=2"}, "");
    row("Double after it, and more behind that",
        "<DoubleList><Minimum>1</Minimum></DoubleList><Default>3</Default><Double/>" + tip,
        {"Minimum=1", "Default=3", "Value=3"}, "T");
    row("nothing behind it", "<DoubleList><Minimum>1</Minimum></DoubleList>", {"Minimum=1"}, "");
    row("children of the parameter behind it", "<DoubleList><Minimum>1</Minimum></DoubleList>" + tip,
        {"Minimum=1"}, "");
    row("an unknown child of the parameter behind it", "<DoubleList/><Unit/>" + tip, {}, "");
    row("a block in a namespace", "<n:Double xmlns:n=\"urn:n\"><Minimum>1</Minimum></n:Double>" + tip,
        {"Minimum=1"}, "");
}

void ParameterXmlTest::doubleListBlocks()
{
    QFETCH(QString, children);
    QFETCH(QStringList, fields);
    QFETCH(QString, toolTip);

    QStringList expected = handlerChanges("Double", fields);
    if (!toolTip.isEmpty())
        expected.append("ToolTip=" + toolTip);
    QCOMPARE(changesByChildren(children), sorted(expected));
    expected.append({"Double.IsList=true", "ParameterType=5"});
    QCOMPARE(changesByChildren("<ParameterType>DoubleList</ParameterType>" + children), sorted(expected));
}

void ParameterXmlTest::doubleListBlockReadsToTheEnd()
{
    OpenParameter parameter;
    QXmlStreamReader reader("<List>" + element("<DoubleList/>") + element("<Minimum>1</Minimum>")
                            + "</List>");
    reader.readNextStartElement();
    reader.readNextStartElement();
    parameter.ProcessXml(reader);

    QVERIFY(!reader.hasError());
    QCOMPARE(reader.tokenType(), QXmlStreamReader::EndDocument);
    QCOMPARE(parameter.GetDoubleHandler().GetMinimum(), 1.0);
}

void ParameterXmlTest::blocksEndWithTheFirstEndElementOfTheirName()
{
    for (const QString &block :
         QStringList{"Enum", "Double", "Integer", "Long", "Float", "String", "TimeStamp"}) {
        OpenParameter parameter;
        const QString children =
            '<' + block + "><Step><" + block + "/></Step><Value>1</Value></" + block + '>';
        QCOMPARE(messageOf([&] { process(parameter, element(children)); }),
                 QString("Unknown Tag 'Value' in 'Parameter'."));
    }
}

void ParameterXmlTest::malformedBlocks_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("block");
    QTest::addColumn<bool>("keepsMinimum");

    const QString open = "<Parameter UniqueName=\"n\">";
    for (const QString &block :
         QStringList{"Integer", "Long", "TimeStamp", "Float", "Double", "DoubleList", "String", "Enum"}) {
        const auto row = [&](const char *name, const QString &content, bool keepsMinimum = true) {
            QTest::newRow(qPrintable(block + ", " + name))
                << open + '<' + block + '>' + content << block << keepsMinimum;
        };
        const QString minimum = "<Minimum>5</Minimum>";
        const QString close = "</" + block + "></Parameter>";
        row("truncated", minimum);
        row("truncated in a tag", minimum + "<Maxi");
        row("truncated in a number", minimum + "<Maximum>1");
        row("wrong end element", minimum + "</Parameter>");
        row("ampersand", minimum + "1 & 2" + close);
        row("unknown entity", minimum + "&unit;" + close);
        row("tag without name", minimum + "< >" + close);
        row("wrong end element of a number", minimum + "<Maximum>1</Minimum>" + close);
        row("attribute without value", minimum + "<Step Unit/>" + close);
        if (block != "String" && block != "Enum") {
            row("element in a number", minimum + "<Maximum>1<b/></Maximum>" + close);
            row("element in the first number", "<Minimum>1<b/></Minimum>" + minimum + close, false);
            row("element in a default", minimum + "<Default><b>1</b></Default>" + close);
        }
        if (block == "String")
            row("element in a default", "<Default>1<b/></Default>" + close);
    }
}

// The message is the reader's own.
void ParameterXmlTest::malformedBlocks()
{
    QFETCH(QString, text);
    QFETCH(QString, block);
    QFETCH(bool, keepsMinimum);
    OpenParameter parameter;
    QXmlStreamReader reader(text);
    reader.readNextStartElement();

    const QString message = messageOf([&] { parameter.ProcessXml(reader); });
    QVERIFY(reader.hasError());
    QVERIFY(!message.isEmpty());
    QCOMPARE(message, reader.errorString());

    QCOMPARE(parameter.GetUniqueParameterName(), QString("n"));
    const State state = stateOf(parameter);
    const QString handler = block == "DoubleList" ? QString("Double") : block;
    QCOMPARE(state[handler + ".UniqueName"], QString("n"));
    if (state.contains(handler + ".Minimum"))
        QCOMPARE(state[handler + ".Minimum"] == "5", keepsMinimum);
}

void ParameterXmlTest::malformedOutsideBlocks_data()
{
    QTest::addColumn<QString>("text");

    const QString open = "<Parameter UniqueName=\"n\"><ToolTip>T</ToolTip>";
    QTest::newRow("truncated") << open;
    QTest::newRow("truncated in a text") << open + "<DisplayName>D";
    QTest::newRow("wrong end element") << open + "</Setting>";
    QTest::newRow("element in a text") << open + "<DisplayName>D<b/></DisplayName></Parameter>";
    QTest::newRow("element in a boolean") << open + "<Boolean>true<b/></Boolean></Parameter>";
    QTest::newRow("unknown entity") << open + "&unit;</Parameter>";
    QTest::newRow("behind a block") << open + "<Long></Long><DisplayName></Parameter>";
}

// Nothing is thrown; the error stays in the reader for the caller.
void ParameterXmlTest::malformedOutsideBlocks()
{
    QFETCH(QString, text);
    OpenParameter parameter;
    QXmlStreamReader reader(text);
    reader.readNextStartElement();

    QCOMPARE(messageOf([&] { parameter.ProcessXml(reader); }), QString());
    QVERIFY(reader.hasError());
    QCOMPARE(parameter.GetToolTip(), QString("T"));
    QVERIFY(!Parameter().SetXmlString(text, true));
}

void ParameterXmlTest::entries_data()
{
    QTest::addColumn<QString>("content");
    QTest::addColumn<QString>("list");
    QTest::addColumn<QString>("chosen"); // default and selected entry

    const auto row = [](const QString &name, const QString &content, const QString &list,
                        const QString &chosen) {
        QTest::newRow(qPrintable(name)) << content << list << chosen;
    };
    const QString nothing = "-1|||0|";
    const QString a = "<EnumValue Key=\"1\" Name=\"A\" Value=\"1.5\"/>";
    const QString b = "<EnumValue Key=\"2\" Name=\"B\" Value=\"2.5\"/>";
    const QString markedB = "<EnumValue Key=\"2\" Name=\"B\" Value=\"2.5\" Default=\"true\"/>";
    const QString markedC = "<EnumValue Key=\"3\" Name=\"C\" Value=\"3.5\" Default=\"true\"/>";

    row("no entries", "", "", nothing);
    row("first without mark", a + b, "1|A||1.5|false 2|B||2.5|false", "1|A||1.5|false");
    row("one marked", a + markedB, "1|A||1.5|false 2|B||2.5|true", "2|B||2.5|true");
    row("first marked", markedB + a, "2|B||2.5|true 1|A||1.5|false", "2|B||2.5|true");
    row("two marked", a + markedB + markedC, "1|A||1.5|false 2|B||2.5|true 3|C||3.5|true", "3|C||3.5|true");
    row("two marked, the first entry last", markedB + markedC + a,
        "2|B||2.5|true 3|C||3.5|true 1|A||1.5|false", "3|C||3.5|true");
    row("same entry twice", a + a, "1|A||1.5|false 1|A||1.5|false", "1|A||1.5|false");

    const auto single = [&row](const QString &name, const QString &attributes, const QString &entry) {
        row(name, "<EnumValue " + attributes + "/>", entry, entry);
    };
    single("no attributes", "", "0|||0|false");
    single("key", "Key=\"-7\"", "-7|||0|false");
    single("name", "Name=\" N &amp; M \"", "0| N & M ||0|false");
    single("identifier", "Identifier=\"I\"", "0||I|0|false");
    single("empty identifier", "Identifier=\"\"", "0|||0|false");
    single("value", "Value=\"-2.5e3\"", "0|||-2500|false");
    single("all in another order", "Default=\"true\" Value=\"1\" Identifier=\"I\" Name=\"N\" Key=\"1\"",
           "1|N|I|1|true");
    single("lower case", "key=\"1\" name=\"N\" identifier=\"I\" value=\"1\" default=\"true\"", "0|||0|false");
    single("others beside", "Unit=\"Hz\" Key=\"1\"", "1|||0|false");
    single("key malformed", "Key=\"one\" Value=\"one\"", "0|||0|false");
    single("key not whole", "Key=\"1.5\"", "0|||0|false");
    single("key too large", "Key=\"2147483648\"", "0|||0|false");
    single("greatest key", "Key=\"2147483647\"", "2147483647|||0|false");
    single("value too large", "Value=\"1e400\"", "0|||0|false");
    single("value with a comma", "Value=\"1,5\"", "0|||0|false");
    for (const QString &text : QStringList{"false", "", "TRUE", "True", "1", " true", "true ", "yes"})
        single("marked as \"" + text + '"', "Default=\"" + text + '"', "0|||0|false");
    single("marked", "Default=\"true\"", "0|||0|true");

    row("unknown children", "<Minimum>1</Minimum>" + a + "<Entry Key=\"9\"/><enumvalue Key=\"9\"/>text",
        "1|A||1.5|false", "1|A||1.5|false");
    row("entry in an unknown child", "<Group Key=\"9\">" + a + "</Group>", "1|A||1.5|false",
        "1|A||1.5|false");
    row("text and children of an entry", "<EnumValue Key=\"1\">text<Name>N</Name></EnumValue>", "1|||0|false",
        "1|||0|false");
    row("entry in an entry", "<EnumValue Key=\"1\"><EnumValue Key=\"2\"/></EnumValue>",
        "1|||0|false 2|||0|false", "1|||0|false");
    row("nothing is left of the entry before",
        "<EnumValue Key=\"1\" Name=\"A\" Identifier=\"I\" Value=\"1\" Default=\"true\"/><EnumValue/>",
        "1|A|I|1|true 0|||0|false", "1|A|I|1|true");
}

void ParameterXmlTest::entries()
{
    QFETCH(QString, content);
    QFETCH(QString, list);
    QFETCH(QString, chosen);
    const State state =
        stateOf(objectFrom<OpenParameter>(element(Names + QString("<Enum>") + content + "</Enum>")));

    QCOMPARE(state["Enum.List"], list);
    QCOMPARE(state["Enum.Default"], chosen);
    QCOMPARE(state["Enum.Selected"], chosen);
    QCOMPARE(state["Enum.UniqueName"], QString("rx.gain"));
    QCOMPARE(state["Enum.RepresentationName"], QString("Gain"));
}

void ParameterXmlTest::entriesBesideOthers_data()
{
    QTest::addColumn<QString>("attributes");
    QTest::addColumn<QString>("entry");
    QTest::addColumn<bool>("isChosen");

    QTest::newRow("not marked") << "Key=\"9\""
                                << "9|||0|false" << false;
    QTest::newRow("marked") << "Key=\"9\" Default=\"true\""
                            << "9|||0|true" << true;
}

// Entries are added to those that are there.
void ParameterXmlTest::entriesBesideOthers()
{
    QFETCH(QString, attributes);
    QFETCH(QString, entry);
    QFETCH(bool, isChosen);
    OpenParameter parameter(completeParameter(7));
    parameter.GetEnumHandler().SetSelectedEnumValue(enumValue(1, "Low", 0.5));
    const State before = stateOf(parameter);

    QStringList expected{"Enum.List=" + before["Enum.List"] + ' ' + entry};
    if (isChosen)
        expected.append({"Enum.Default=" + entry, "Enum.Selected=" + entry});
    process(parameter, element("<Enum><EnumValue " + attributes + "/></Enum>"));
    QCOMPARE(changes(before, stateOf(parameter)), sorted(expected));
}

void ParameterXmlTest::blockReaders_data()
{
    QTest::addColumn<BlockReader>("read");
    QTest::addColumn<QString>("block");
    QTest::addColumn<QString>("end");
    QTest::addColumn<QStringList>("changed");

    const auto row = [](const char *name, BlockReader read, const QString &block, const QString &end,
                        const QStringList &changed) {
        QTest::newRow(name) << read << block << end << changed;
    };
    const QString numbers = "<Minimum>1</Minimum><EnumValue Key=\"1\"/>";
    const auto names = [](const QString &handler, const QString &change) {
        return sorted({handler + ".UniqueName=U", handler + ".RepresentationName=R", handler + '.' + change});
    };
    row("integer", &OpenParameter::ProcessIntegerList, "<Any>" + numbers + "<Integer/></Any>", "Integer",
        names("Integer", "Minimum=1"));
    row("long", &OpenParameter::ProcessLongList, "<Any>" + numbers + "<Long/></Any>", "Long",
        names("Long", "Minimum=1"));
    row("time stamp", &OpenParameter::ProcessTimeStampList, "<Any>" + numbers + "<TimeStamp/></Any>",
        "TimeStamp", names("TimeStamp", "Minimum=1"));
    row("float", &OpenParameter::ProcessFloatList, "<Any>" + numbers + "<Float/></Any>", "Float",
        names("Float", "Minimum=1"));
    row("double", &OpenParameter::ProcessDoubleList, "<Any>" + numbers + "<Double/></Any>", "Double",
        names("Double", "Minimum=1"));
    row("string", &OpenParameter::ProcessStringList,
        "<Any><Default>a</Default>" + numbers + "<String/></Any>", "String",
        sorted(names("String", "Default=a") + QStringList("String.Value=a")));
    row("enumeration", &OpenParameter::ProcessEnumList, "<Any>" + numbers + "<Enum/></Any>", "Enum",
        sorted(names("Enum", "List=1|||0|false")
               + QStringList({"Enum.Default=1|||0|false", "Enum.Selected=1|||0|false"})));
}

void ParameterXmlTest::blockReaders()
{
    QFETCH(BlockReader, read);
    QFETCH(QString, block);
    QFETCH(QString, end);
    QFETCH(QStringList, changed);
    OpenParameter parameter;
    parameter.SetUniqueParameterName("U");
    parameter.SetRepresenationName("R");
    QXmlStreamReader reader(block);
    reader.readNextStartElement();

    QCOMPARE(changesBy(parameter, [&](OpenParameter &p) { (p.*read)(reader); }), changed);
    QCOMPARE(reader.tokenType(), QXmlStreamReader::EndElement);
    QCOMPARE(reader.name().toString(), end);
}

void ParameterXmlTest::roundTrip_data()
{
    QTest::addColumn<int>("type");

    for (int type = 0; type < TypeCount; ++type) {
        if (type != 0 && type != 3)
            QTest::newRow(qPrintable(typeNames()[type])) << type;
    }
}

void ParameterXmlTest::roundTrip()
{
    QFETCH(int, type);
    Parameter parameter = completeParameter(type);
    parameter.GetFloatHandler().SetPrecision(5);
    parameter.GetDoubleHandler().SetPrecision(5);
    const QString text = parameter.GetXmlString();

    Parameter read;
    QVERIFY(read.SetXmlString(text, true));
    QVERIFY(read == parameter);
    QVERIFY(parameter == read);
    QVERIFY(read.HasData());
    QCOMPARE(read.GetXmlString(), text);
}

void ParameterXmlTest::roundTripOfTheDisplay()
{
    OpenParameter parameter = objectFrom<OpenParameter>(
        element("<ParameterType>Integer</ParameterType><RepresentationName>\u20ac</RepresentationName>"
                "<ValueType>ValueNumericInt</ValueType><ControlType>VCLineEditFrequency</ControlType>"
                "<DisplayName>D \u20ac</DisplayName><DisplaySuffix>k\u03a9</DisplaySuffix>"
                "<Multiplier>0.25</Multiplier><Enable>false</Enable><Integer/>",
                "Version=\"3\" UniqueName=\"\u20ac &quot;&#13;&#10;\""));
    parameter.SetToolTip(" line\r\nnext ");
    const QString text = parameter.GetXmlString();

    Parameter read;
    QVERIFY(read.SetXmlString(text, true));
    QVERIFY(read == parameter);
    QCOMPARE(changes(stateOf(parameter), stateOf(read)), QStringList("Integer.Multiplier=1"));
    QCOMPARE(read.GetXmlString(), text);
}

void ParameterXmlTest::booleanLosesItsType()
{
    Parameter parameter = completeParameter(0);
    parameter.GetBooleanHandler().SetValue(true);
    const Parameter read = objectFrom<OpenParameter>(elementOf(parameter));

    QCOMPARE(changes(read),
             sorted(handlerChanges("Boolean", {"Value=true"})
                    + QStringList({"RepresentationName=Gain", "UniqueName=rx.gain", "ValueType=3"})));
    QVERIFY(!read.HasData());
    QCOMPARE(elementOf(read), QString());
}

void ParameterXmlTest::stringLosesItsDefault()
{
    const Parameter read = objectFrom<OpenParameter>(elementOf(completeParameter(3)));

    QCOMPARE(changes(read),
             sorted(handlerChanges("String", {})
                    + QStringList({"ParameterType=3", "RepresentationName=Gain", "UniqueName=rx.gain",
                                   "ValueType=3"})));
    QVERIFY(!read.HasData());
    QCOMPARE(elementOf(read), QString());
}

void ParameterXmlTest::doubleListLosesItsValues()
{
    Parameter parameter = completeParameter(5);
    parameter.GetDoubleHandler().AppendDoubleValue(1);
    parameter.GetDoubleHandler().AppendDoubleValue(2);
    const Parameter read = objectFrom<OpenParameter>(elementOf(parameter));

    QCOMPARE(changes(read),
             sorted(handlerChanges("Double", {"Default=1.5", "IsList=true", "MaxLength=3", "Value=1.5"})
                    + QStringList({"ParameterType=5", "RepresentationName=Gain", "UniqueName=rx.gain",
                                   "ValueType=3"})));
    QVERIFY(read.HasData());
    QVERIFY(read != parameter);
    QCOMPARE(elementOf(read), elementOf(parameter));
}

void ParameterXmlTest::multiplierStaysInTheParameter()
{
    Parameter parameter = completeParameter(6);
    parameter.SetMultiplier(1000);
    QCOMPARE(parameter.GetFloatHandler().GetMultiplier(), 1000.0);
    const Parameter read = objectFrom<OpenParameter>(elementOf(parameter));

    QCOMPARE(read.GetMultiplier(), 1000.0);
    QCOMPARE(read.GetFloatHandler().GetMultiplier(), 1.0);
}

void ParameterXmlTest::childInsideAText_data()
{
    QTest::addColumn<QString>("element");
    for (const char *tag : {"RepresentationName", "ParameterType", "DisplayName", "ToolTip", "ValueType",
                            "ControlType", "DisplaySuffix", "Multiplier", "Enable", "Boolean"})
        QTest::newRow(tag) << QString("<%1>a<b/></%1>").arg(tag);
    for (const char *block : {"Integer", "Long", "Float", "Double", "TimeStamp", "String"})
        QTest::newRow(block) << QString("<%1><Default>1<b>2</b></Default></%1>").arg(block);
}

// As the base's own reader of texts has it, wherever the text stands.
void ParameterXmlTest::childInsideAText()
{
    QFETCH(QString, element);
    Parameter parameter;
    QXmlStreamReader reader("<Parameter>" + element + "</Parameter>");
    reader.readNextStartElement();
    (void)messageOf([&] { parameter.ProcessXml(reader); });
    QCOMPARE(reader.error(), QXmlStreamReader::UnexpectedElementError);
    QCOMPARE(reader.errorString(), "Expected character data.");
}

void ParameterXmlTest::mergeReplacesEntries()
{
    Parameter target = completeParameter(7);
    const Parameter same = target;
    const State before = stateOf(target);
    QVERIFY(target.MergeTesselObject(same));
    QCOMPARE(stateOf(target), before);

    Parameter other = completeParameter(7);
    other.GetEnumHandler().Reset();
    other.GetEnumHandler().AppendEnumValue(enumValue(9, "Only", 2.5));
    QVERIFY(target.MergeTesselObject(other));
    QCOMPARE(stateOf(target)["Enum.List"], describe(enumValue(9, "Only", 2.5)));
    QCOMPARE(target.GetEnumHandler().GetDefaultValue().Name, QString("Only"));
    QCOMPARE(target.GetEnumHandler().GetSelectedEnumValue().Name, QString("Only"));
}

void ParameterXmlTest::mergeWithoutEntries()
{
    Parameter target = completeParameter(7);
    const QString entries = stateOf(target)["Enum.List"];
    QVERIFY(target.MergeTesselObject(completeParameter(2)));
    QCOMPARE(stateOf(target)["Enum.List"], entries);

    Parameter incomplete = completeParameter(7);
    incomplete.GetEnumHandler().Reset();
    QVERIFY(!target.MergeTesselObject(incomplete));
    QCOMPARE(stateOf(target)["Enum.List"], entries);
    incomplete.SetValueType(Parameter::InvalidValueType);
    QVERIFY(!messageOf([&] { (void)target.MergeTesselObject(incomplete); }).isEmpty());
    QCOMPARE(stateOf(target)["Enum.List"], entries);
}

void ParameterXmlTest::mergeWithItself_data()
{
    addTypes();
}

void ParameterXmlTest::mergeWithItself()
{
    QFETCH(int, type);

    Parameter parameter = completeParameter(type);
    parameter.GetDoubleHandler().AppendDoubleValue(1.0 / 3);
    parameter.GetFloatHandler().SetValue(7);
    const State before = stateOf(parameter);
    QVERIFY(parameter.MergeTesselObject(parameter));
    QCOMPARE(stateOf(parameter), before);

    GenericReceiver receiver;
    receiver.AddParameter(parameter);
    QVERIFY(receiver.MergeTesselObject(receiver));
    QCOMPARE(stateOf(receiver.GetParameter(parameter.GetUniqueParameterName())), before);
}

void ParameterXmlTest::readingAppendsEntries()
{
    Parameter parameter = completeParameter(7);
    const QString text = parameter.GetXmlString();
    QByteArray binary = parameter.GetBinaryRepresentationAsQByteArray();
    QVERIFY(parameter.SetXmlString(text, true));
    QCOMPARE(parameter.GetEnumHandler().GetEnumList().size(), 4);
    QVERIFY(parameter.SetBinaryRepresentation(binary));
    QCOMPARE(parameter.GetEnumHandler().GetEnumList().size(), 6);
}

QTEST_GUILESS_MAIN(ParameterXmlTest)
#include "ParameterXmlTest.moc"
