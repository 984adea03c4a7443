#include <kormak/GenericReceiver.h>
#include <objectbase/Logger.h>
#include <tests/support/Files.h>
#include <tests/support/ObjectStates.h>
#include <tests/support/Samples.h>

#include <QTemporaryDir>

#include <algorithm>
#include <functional>
#include <limits>
#include <memory>
#include <type_traits>

using namespace KORMAK;
using namespace TestSupport;

using ParameterMap = QMap<QString, Parameter>;

static_assert(std::is_base_of_v<TESSEL::ITesselObject, GenericReceiver>);
static_assert(std::is_same_v<decltype(std::declval<GenericReceiver &>().GetParameterList()), ParameterMap &>);
static_assert(std::is_same_v<decltype(std::declval<const GenericReceiver &>().GetParameterList()),
                             const ParameterMap &>);
static_assert(
    std::is_same_v<decltype(std::declval<const GenericReceiver &>().GetVersion()), const QString &>);

class GenericReceiverTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void newReceiver();
    void reset();

    void addParameter();
    void addParameterReplaces();
    void addParameterOfTheReceiverItself();
    void emptyNameIsAName();
    void unknownParameter_data();
    void unknownParameter();
    void getParameterGivesACopy();
    void keysDoNotFollowNames();

    void completeness();
    void anyData();
    void check();
    void checkOfAnEmptyReceiverThatIsNotComplete();

    void writingNothing();
    void writing();
    void writingInOrderOfKeys();
    void oneIncompleteParameterKeepsAllFromBeingWritten_data();
    void oneIncompleteParameterKeepsAllFromBeingWritten();
    void document();

    void versions_data();
    void versions();
    void reading();
    void readingReplaces();
    void readingStoresIncompleteParameters();
    void readingKeepsWhatIsThere();
    void readingStaysOnTheEndElement();
    void scripts_data();
    void scripts();
    void unknownTags_data();
    void unknownTags();
    void malformedDocuments_data();
    void malformedDocuments();
    void doubleListBlockTakesWhatFollows();
    void handlersKeepFromTheParameterBefore_data();
    void handlersKeepFromTheParameterBefore();
    void resetKeepsTheParameterRead();
    void copiesKeepTheParameterRead();
    void booleansKeepTheReceiverFromBeingWritten();
    void roundTrip();

    void loading_data();
    void loading();
    void loadingChangesNothing();
    void loadingFails_data();
    void loadingFails();
    void importing();
    void importingDecodesUtf8Only();
    void importingAdds();
    void importingFails_data();
    void importingFails();
    void importingWithoutFile();

    void equality();
    void equalityOfVersions();
    void equalityOfKeys();
    void equalityOfParametersWithoutType();
    void equalityOfNaN();

    void copies();
    void copiesTheBase();
    void selfAssignment();
    void manyParameters();
    void textsThatRecur();
    void handlersOfOtherTypes();
    void parametersShareNothing();
};

namespace {

QString parameterElement(const QString &uniqueName, const QString &children = {})
{
    return "<Parameter Version=\"1.0\" UniqueName=\"" + uniqueName + "\">" + children + "</Parameter>";
}

QString receiverElement(const QString &children, const QString &attributes = "Version=\"1.0\"")
{
    return "<GenericReceiver " + attributes + '>' + children + "</GenericReceiver>";
}

GenericReceiver receiverOf(const QVector<Parameter> &parameters)
{
    GenericReceiver receiver;
    for (const Parameter &parameter : parameters)
        receiver.AddParameter(parameter);
    return receiver;
}

QStringList keysOf(const GenericReceiver &receiver)
{
    return receiver.GetParameterList().keys();
}

/// Everything that can be seen of \a receiver.
QStringList everythingOf(const GenericReceiver &receiver)
{
    return QStringList{receiver.GetObjectName()} + changes(State(), stateOf(receiver));
}

/// A file that lives as long as this object.
struct SampleFile {
    explicit SampleFile(const QByteArray &content, const QString &name = "receiver.xml")
        : path(writtenFile(folder.filePath(name), content))
    {
    }

    QTemporaryDir folder;
    QString path;
};

// The same list of parameters, not only an equal one.
bool isShared(const GenericReceiver &a, const GenericReceiver &b)
{
    return &a.GetParameterList().begin().value() == &b.GetParameterList().begin().value();
}

} // namespace

void GenericReceiverTest::newReceiver()
{
    const GenericReceiver receiver;

    QCOMPARE(receiver.GetObjectType(), TESSEL::ObjectTypes::GenericReceiver);
    QCOMPARE(static_cast<int>(receiver.GetObjectType()), 38);
    QCOMPARE(receiver.GetObjectName(), QString("GenericReceiver"));
    QCOMPARE(receiver.GetVersion(), QString("1.0"));
    QVERIFY(receiver.GetParameterList().isEmpty());
    QVERIFY(receiver.HasData());
    QVERIFY(receiver.AnyData());
    QVERIFY(receiver == GenericReceiver());
}

void GenericReceiverTest::reset()
{
    GenericReceiver receiver = objectFrom<GenericReceiver>(
        receiverElement(parameterElement("a") + parameterElement("b"), "Version=\"7\""));
    QCOMPARE(keysOf(receiver), QStringList({"a", "b"}));
    QCOMPARE(receiver.GetVersion(), QString("7"));

    receiver.Reset();
    QCOMPARE(everythingOf(receiver), QStringList({"GenericReceiver", "Version=1.0"}));
}

void GenericReceiverTest::addParameter()
{
    GenericReceiver receiver;
    Parameter parameter = completeParameter(4, "b");
    receiver.AddParameter(parameter);
    receiver.AddParameter(completeParameter(7, "a"));
    const State state = stateOf(parameter);
    parameter.SetDisplayName("changed");

    QCOMPARE(keysOf(receiver), QStringList({"a", "b"}));
    QCOMPARE(stateOf(receiver.GetParameter("b")), state);
    QVERIFY(receiver.GetParameter("a") == completeParameter(7, "a"));
}

void GenericReceiverTest::addParameterReplaces()
{
    GenericReceiver receiver = receiverOf({completeParameter(4, "a"), completeParameter(4, "b")});
    const Parameter second = completeParameter(1, "a", "second");
    receiver.AddParameter(second);

    QCOMPARE(keysOf(receiver), QStringList({"a", "b"}));
    QCOMPARE(stateOf(receiver.GetParameter("a")), stateOf(second));
    QVERIFY(receiver.GetParameter("b") == completeParameter(4, "b"));
}

void GenericReceiverTest::addParameterOfTheReceiverItself()
{
    GenericReceiver receiver = receiverOf({completeParameter(4, "a"), completeParameter(1, "b")});
    const QStringList state = everythingOf(receiver);

    receiver.AddParameter(receiver.GetParameterList()["a"]);
    QCOMPARE(everythingOf(receiver), state);
    receiver.GetParameterList()["a"].SetUniqueParameterName("b");
    receiver.AddParameter(receiver.GetParameterList()["a"]);
    QCOMPARE(stateOf(receiver.GetParameter("b")), stateOf(receiver.GetParameter("a")));
}

void GenericReceiverTest::emptyNameIsAName()
{
    GenericReceiver receiver;
    QVERIFY(!messageOf([&] { (void)receiver.GetParameter(""); }).isNull());
    receiver.AddParameter(Parameter());

    QCOMPARE(receiver.GetParameterList().size(), 1);
    QCOMPARE(stateOf(receiver.GetParameter("")), stateOf(Parameter()));
    QCOMPARE(stateOf(receiver.GetParameter(QString())), stateOf(Parameter()));
    process(receiver, receiverElement("<Parameter><ToolTip>T</ToolTip></Parameter>"));
    QCOMPARE(receiver.GetParameterList().size(), 1);
    QCOMPARE(receiver.GetParameter("").GetToolTip(), QString("T"));
}

void GenericReceiverTest::unknownParameter_data()
{
    QTest::addColumn<QString>("name");

    QTest::newRow("word") << "c";
    QTest::newRow("empty") << "";
    QTest::newRow("upper case") << "A";
    QTest::newRow("longer") << "a ";
    QTest::newRow("placeholders") << "%1 %2 %3";
}

void GenericReceiverTest::unknownParameter()
{
    QFETCH(QString, name);
    GenericReceiver receiver = receiverOf({completeParameter(4, "a"), completeParameter(4, "b")});

    QCOMPARE(messageOf([&] { (void)receiver.GetParameter(name); }),
             "Unknown Parameter '" + name + "' in 'GenericReceiver'.");
    QCOMPARE(keysOf(receiver), QStringList({"a", "b"})); // looking for one does not add it
}

void GenericReceiverTest::getParameterGivesACopy()
{
    GenericReceiver receiver = receiverOf({completeParameter(4, "a")});
    const QStringList state = everythingOf(receiver);
    Parameter parameter = receiver.GetParameter("a");
    parameter.SetRepresenationName("changed");

    QCOMPARE(everythingOf(receiver), state);
    receiver.GetParameterList()["a"].SetRepresenationName("changed");
    QCOMPARE(receiver.GetParameter("a").GetRepresenationName(), QString("changed"));
}

void GenericReceiverTest::keysDoNotFollowNames()
{
    GenericReceiver receiver = receiverOf({completeParameter(0, "a"), completeParameter(0, "b")});
    receiver.GetParameterList()["a"].SetUniqueParameterName("z");

    QCOMPARE(keysOf(receiver), QStringList({"a", "b"}));
    QCOMPARE(receiver.GetParameter("a").GetUniqueParameterName(), QString("z"));
    QVERIFY(!messageOf([&] { (void)receiver.GetParameter("z"); }).isNull());
    // Written in the order of the keys.
    QCOMPARE(elementOf(receiver),
             receiverElement(elementOf(completeParameter(0, "z")) + elementOf(completeParameter(0, "b"))));
}

void GenericReceiverTest::completeness()
{
    GenericReceiver receiver;
    for (int type = 0; type < TypeCount; ++type) {
        receiver.AddParameter(completeParameter(type, typeNames()[type]));
        QVERIFY(receiver.HasData());
    }
    for (const QString &key : typeNames()) {
        GenericReceiver incomplete = receiver;
        incomplete.GetParameterList()[key].SetRepresenationName("");
        QVERIFY(!incomplete.HasData());
        incomplete.GetParameterList().remove(key);
        QVERIFY(incomplete.HasData());
    }
}

void GenericReceiverTest::anyData()
{
    GenericReceiver receiver;
    QVERIFY(receiver.AnyData());
    receiver.AddParameter(Parameter());
    QVERIFY(receiver.AnyData());
    receiver.Reset();
    QVERIFY(receiver.AnyData());
}

void GenericReceiverTest::checkOfAnEmptyReceiverThatIsNotComplete()
{
    class DemandingReceiver : public GenericReceiver {
    public:
        using GenericReceiver::Check;
        bool HasData() const override { return !GetParameterList().isEmpty() && GenericReceiver::HasData(); }
    };
    DemandingReceiver receiver;
    QCOMPARE(messageOf([&] { receiver.Check(); }), QString("GenericReceiver: Please set ParameterList"));
    receiver.AddParameter(Parameter());
    QCOMPARE(messageOf([&] { receiver.Check(); }), QString());
}

void GenericReceiverTest::check()
{
    GenericReceiver receiver;
    QCOMPARE(messageOf([&] { receiver.Check(); }), QString());
    receiver.AddParameter(completeParameter(4));
    QCOMPARE(messageOf([&] { receiver.Check(); }), QString());
    receiver.AddParameter(Parameter());
    QVERIFY(!receiver.HasData());
    QCOMPARE(messageOf([&] { receiver.Check(); }), QString()); // parameters are not checked one by one
    QCOMPARE(messageOf([&] { receiver.Check(true); }), QString());
    QCOMPARE(messageOf([&] { receiver.Check(false); }), QString());
}

void GenericReceiverTest::writingNothing()
{
    QCOMPARE(elementOf(GenericReceiver()), QString("<GenericReceiver Version=\"1.0\"/>"));
}

void GenericReceiverTest::writing()
{
    const Parameter b = completeParameter(7, "b");
    const Parameter a = completeParameter(0, "a");

    QCOMPARE(elementOf(receiverOf({b, a})), receiverElement(elementOf(a) + elementOf(b)));
}

void GenericReceiverTest::writingInOrderOfKeys()
{
    // By the code units of UTF-16: digits as characters, capitals first, and characters behind the basic
    // plane before the last ones in it.
    const QStringList ordered{"1",   "10", "2", "A",      "B",      "a",          "a ",
                              "a.b", "ab", "b", "\u00e4", "\u20ac", "\U0001F4E1", "\uFF21"};
    QVector<Parameter> parameters;
    QString elements;
    for (const QString &name : ordered) {
        parameters.prepend(completeParameter(0, name));
        elements += elementOf(parameters.first());
    }

    const GenericReceiver receiver = receiverOf(parameters);
    QCOMPARE(keysOf(receiver), ordered);
    QCOMPARE(elementOf(receiver), receiverElement(elements));
    std::reverse(parameters.begin(), parameters.end());
    QCOMPARE(elementOf(receiverOf(parameters)), receiverElement(elements));
}

void GenericReceiverTest::oneIncompleteParameterKeepsAllFromBeingWritten_data()
{
    QTest::addColumn<QString>("key");

    QTest::newRow("first") << "a";
    QTest::newRow("in between") << "b";
    QTest::newRow("last") << "c";
}

void GenericReceiverTest::oneIncompleteParameterKeepsAllFromBeingWritten()
{
    QFETCH(QString, key);
    GenericReceiver receiver =
        receiverOf({completeParameter(0, "a"), completeParameter(1, "b"), completeParameter(4, "c")});
    QVERIFY(!elementOf(receiver).isEmpty());
    receiver.GetParameterList()[key].SetValueType(Parameter::InvalidValueType);

    QCOMPARE(elementOf(receiver), QString());
    QVERIFY(!receiver.SaveXml(QTemporaryDir().filePath("receiver.xml")));
}

void GenericReceiverTest::document()
{
    QCOMPARE(GenericReceiver().GetXmlString(), TestSupport::document("<GenericReceiver Version=\"1.0\"/>\n"));
    QCOMPARE(receiverOf({completeParameter(0, "a")}).GetXmlString(),
             TestSupport::document("<GenericReceiver Version=\"1.0\">\n"
                                   "    <Parameter Version=\"1.0\" UniqueName=\"a\">\n"
                                   "        <RepresentationName>Gain</RepresentationName>\n"
                                   "        <ValueType>ValueNumericFloat</ValueType>\n"
                                   "        <Enable>true</Enable>\n"
                                   "        <Boolean>false</Boolean>\n"
                                   "    </Parameter>\n"
                                   "</GenericReceiver>\n"));
}

void GenericReceiverTest::versions_data()
{
    QTest::addColumn<QString>("attributes");
    QTest::addColumn<QString>("version");

    QTest::newRow("usual") << "Version=\"1.0\""
                           << "1.0";
    QTest::newRow("another") << "Version=\"2 &amp; 3\""
                             << "2 & 3";
    QTest::newRow("empty") << "Version=\"\""
                           << "";
    QTest::newRow("absent") << ""
                            << "";
    QTest::newRow("lower case") << "version=\"2.0\""
                                << "";
    QTest::newRow("others beside") << "Name=\"x\" Version=\"2.0\""
                                   << "2.0";
}

void GenericReceiverTest::versions()
{
    QFETCH(QString, attributes);
    QFETCH(QString, version);
    const GenericReceiver receiver = objectFrom<GenericReceiver>(receiverElement("", attributes));

    QCOMPARE(receiver.GetVersion(), version);
    QCOMPARE(elementOf(receiver), "<GenericReceiver Version=\"" + version.toHtmlEscaped() + "\"/>");
}

void GenericReceiverTest::reading()
{
    const Parameter a = completeParameter(1, "a");
    const Parameter b = completeParameter(7, "b");
    const GenericReceiver receiver =
        objectFrom<GenericReceiver>(receiverElement(elementOf(b) + " text " + elementOf(a)));

    QCOMPARE(keysOf(receiver), QStringList({"a", "b"}));
    QVERIFY(receiver.GetParameterList()["a"] == a);
    QVERIFY(receiver.GetParameterList()["b"] == b);
    QVERIFY(receiver == receiverOf({a, b}));
}

void GenericReceiverTest::readingReplaces()
{
    const GenericReceiver receiver = objectFrom<GenericReceiver>(
        receiverElement(parameterElement("a", "<ToolTip>1</ToolTip><DisplayName>1</DisplayName>")
                        + parameterElement("b") + parameterElement("a", "<ToolTip>2</ToolTip>")));

    QCOMPARE(keysOf(receiver), QStringList({"a", "b"}));
    QCOMPARE(receiver.GetParameterList()["a"].GetToolTip(), QString("2"));
    QCOMPARE(receiver.GetParameterList()["a"].GetDisplayName(), QString());
}

void GenericReceiverTest::readingStoresIncompleteParameters()
{
    const GenericReceiver receiver =
        objectFrom<GenericReceiver>(receiverElement("<Parameter/>" + parameterElement("a")));

    QCOMPARE(keysOf(receiver), QStringList({"", "a"}));
    QVERIFY(!receiver.HasData());
}

void GenericReceiverTest::readingKeepsWhatIsThere()
{
    GenericReceiver receiver =
        receiverOf({completeParameter(4, "a", "before"), completeParameter(4, "c", "before")});
    process(receiver,
            receiverElement(elementOf(completeParameter(4, "b")) + elementOf(completeParameter(4, "c"))));

    QVERIFY(receiver
            == receiverOf(
                {completeParameter(4, "a", "before"), completeParameter(4, "b"), completeParameter(4, "c")}));
}

void GenericReceiverTest::readingStaysOnTheEndElement()
{
    GenericReceiver receiver;
    QXmlStreamReader reader("<List>" + receiverElement(parameterElement("a") + "<Script><Script/></Script>")
                            + "<Next/></List>");
    reader.readNextStartElement();
    reader.readNextStartElement();
    receiver.ProcessXml(reader);

    QCOMPARE(reader.tokenType(), QXmlStreamReader::EndElement);
    QCOMPARE(reader.name().toString(), QString("GenericReceiver"));
    QVERIFY(reader.readNextStartElement());
    QCOMPARE(reader.name().toString(), QString("Next"));
}

void GenericReceiverTest::scripts_data()
{
    QTest::addColumn<QString>("script");

    QTest::newRow("empty") << "<Script/>";
    QTest::newRow("attributes") << "<Script Version=\"9\" UniqueName=\"s\"/>";
    QTest::newRow("text") << "<Script>if (a &lt; b) return;</Script>";
    QTest::newRow("character data") << "<Script><![CDATA[<Parameter UniqueName=\"s\"/>]]></Script>";
    QTest::newRow("unknown descendants") << "<Script><A><B x=\"1\">text</B></A><C/></Script>";
    QTest::newRow("parameters") << "<Script>" + parameterElement("s", "<Unit/>") + "</Script>";
    QTest::newRow("scripts") << "<Script><Script/><Script>text</Script></Script>";
    QTest::newRow("a receiver") << "<Script>" + receiverElement(parameterElement("s")) + "</Script>";
    QTest::newRow("several") << "<Script/><Script/>";
}

void GenericReceiverTest::scripts()
{
    QFETCH(QString, script);
    const QString a = elementOf(completeParameter(4, "a"));
    const QString b = elementOf(completeParameter(4, "b"));
    const QStringList expected = everythingOf(objectFrom<GenericReceiver>(receiverElement(a + b)));

    QCOMPARE(everythingOf(objectFrom<GenericReceiver>(receiverElement(script + a + b))), expected);
    QCOMPARE(everythingOf(objectFrom<GenericReceiver>(receiverElement(a + script + b))), expected);
    QCOMPARE(everythingOf(objectFrom<GenericReceiver>(receiverElement(a + b + script))), expected);
    QCOMPARE(elementOf(objectFrom<GenericReceiver>(receiverElement(script))),
             QString("<GenericReceiver Version=\"1.0\"/>"));
}

void GenericReceiverTest::unknownTags_data()
{
    QTest::addColumn<QString>("child");
    QTest::addColumn<QString>("message");

    const auto row = [](const QString &name) {
        QTest::newRow(qPrintable(name)) << '<' + name + "/>"
                                        << "Unknown Tag '" + name + "' in 'GenericReceiver'.";
    };
    for (const QString &name : QStringList{"parameter", "PARAMETER", "Parameters", "ParameterList", "script",
                                           "SCRIPT", "Scripts", "Name", "Version", "GenericReceiver"})
        row(name);
    QTest::newRow("in a parameter") << parameterElement("b", "<Unit/>")
                                    << "Unknown Tag 'Unit' in 'Parameter'.";
    QTest::newRow("parameter in a parameter")
        << parameterElement("b", "<Parameter/>") << "Unknown Tag 'Parameter' in 'Parameter'.";
    QTest::newRow("script in a parameter")
        << parameterElement("b", "<Script/>") << "Unknown Tag 'Script' in 'Parameter'.";
}

void GenericReceiverTest::unknownTags()
{
    QFETCH(QString, child);
    QFETCH(QString, message);
    const QString text =
        receiverElement(parameterElement("a") + child + parameterElement("c"), "Version=\"2\"");
    GenericReceiver receiver;

    QCOMPARE(messageOf([&] { process(receiver, text); }), message);
    // What was read before stays; the parameter in which it happened is not stored.
    QCOMPARE(receiver.GetVersion(), QString("2"));
    QCOMPARE(keysOf(receiver), QStringList("a"));

    const SampleFile file(text.toUtf8());
    QCOMPARE(messageOf([&] { GenericReceiver().ImportXML(file.path); }), message);
}

void GenericReceiverTest::malformedDocuments_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("keys");

    const QString open = "<GenericReceiver>" + parameterElement("a");
    QTest::newRow("truncated") << open << QStringList("a");
    QTest::newRow("truncated in a parameter")
        << open + "<Parameter UniqueName=\"b\">" << QStringList({"a", "b"});
    QTest::newRow("truncated in a script") << open + "<Script>" << QStringList("a");
    QTest::newRow("wrong end element") << open + "</Receiver>" << QStringList("a");
    QTest::newRow("trailing text") << open + "</GenericReceiver>text" << QStringList("a");
    QTest::newRow("two root elements") << open + "</GenericReceiver><GenericReceiver/>" << QStringList("a");
}

void GenericReceiverTest::malformedDocuments()
{
    QFETCH(QString, text);
    QFETCH(QStringList, keys);
    GenericReceiver receiver;

    QVERIFY(!receiver.SetXmlString(text, true));
    QCOMPARE(keysOf(receiver), keys);
}

// A block that is opened as "DoubleList" ends with "Double", wherever that is.
void GenericReceiverTest::doubleListBlockTakesWhatFollows()
{
    const QString list = parameterElement("a", "<DoubleList><Minimum>1</Minimum></DoubleList>");
    const QString number = parameterElement(
        "b", "<ToolTip>T</ToolTip><Double><Maximum>2</Maximum></Double><DisplayName>D</DisplayName>");

    GenericReceiver receiver =
        objectFrom<GenericReceiver>(receiverElement(list + number + parameterElement("c")));
    QCOMPARE(keysOf(receiver), QStringList({"a", "c"}));
    QCOMPARE(changes(receiver.GetParameter("a")),
             QStringList({"DisplayName=D", "Double.Maximum=2", "Double.Minimum=1", "Double.UniqueName=a",
                          "UniqueName=a"}));

    GenericReceiver toTheEnd;
    QVERIFY(toTheEnd.SetXmlString(receiverElement(list + parameterElement("c") + "<Unit/>"), true));
    QCOMPARE(keysOf(toTheEnd), QStringList("a"));
}

void GenericReceiverTest::handlersKeepFromTheParameterBefore_data()
{
    QTest::addColumn<QString>("first");
    QTest::addColumn<QString>("second");
    QTest::addColumn<QStringList>("changed"); // of the second, since a new parameter

    const auto row = [](const char *name, const QString &first, const QString &second,
                        const QStringList &changed) {
        QTest::newRow(name) << first << second << sorted(changed + QStringList("UniqueName=b"));
    };
    const QString names = "<RepresentationName>R</RepresentationName>";

    row("nothing of the parameter itself",
        "<ParameterType>Float</ParameterType><DisplayName>D</DisplayName><ToolTip>T</ToolTip>"
        "<ValueType>ValueString</ValueType><ControlType>VCLineEdit</ControlType>"
        "<DisplaySuffix>Hz</DisplaySuffix><Multiplier>3</Multiplier><Enable>false</Enable>",
        "", {});
    row("names", names + "<Float/><Enum/><Double/><Boolean>false</Boolean>", "",
        {"Boolean.RepresentationName=R", "Boolean.UniqueName=a", "Double.RepresentationName=R",
         "Double.UniqueName=a", "Enum.RepresentationName=R", "Enum.UniqueName=a",
         "Float.RepresentationName=R", "Float.UniqueName=a"});
    row("names through the type", "<ParameterType>Float</ParameterType>" + names,
        "<ParameterType>Float</ParameterType>", {"Float.RepresentationName=R", "ParameterType=6"});
    row("names are replaced by a block", names + "<Float/>", "<Float/>", {"Float.UniqueName=b"});
    row("no names of a string", names + "<String><Default>x</Default></String>", "", {});
    row("value of an integer",
        "<Integer>"
        "<Minimum>1</Minimum><Maximum>9</Maximum><Default>5</Default></Integer>",
        "", {"Integer.UniqueName=a", "Integer.Value=5"});
    row("value of an integer, next one without default", "<Integer><Default>5</Default></Integer>",
        "<Integer><Minimum>1</Minimum></Integer>",
        {"Integer.Minimum=1", "Integer.UniqueName=b", "Integer.Value=5"});
    row("value of an integer, next one with default", "<Integer><Default>5</Default></Integer>",
        "<Integer><Default>6</Default></Integer>",
        {"Integer.Default=6", "Integer.UniqueName=b", "Integer.Value=6"});
    row("value of a long", "<Long><Minimum>1</Minimum><Maximum>9</Maximum><Default>5</Default></Long>",
        "<Long/>", {"Long.UniqueName=b", "Long.Value=5"});
    row("nothing of a time stamp",
        "<TimeStamp><Minimum>1</Minimum><Maximum>9</Maximum><Default>5</Default></TimeStamp>", "<TimeStamp/>",
        {"TimeStamp.UniqueName=b"});
    row("nothing of a float",
        "<Float><Minimum>1</Minimum><Maximum>9</Maximum><Default>5</Default><Precision>7</Precision></Float>",
        "<Float/>", {"Float.UniqueName=b"});
    row("maximum length of a list",
        "<ParameterType>DoubleList</ParameterType><Double><Minimum>1</Minimum><Maximum>9</Maximum>"
        "<Default>5</Default><Precision>7</Precision><MaxDoubleListLength>4</MaxDoubleListLength></Double>",
        "<Double/>", {"Double.MaxLength=4", "Double.UniqueName=b"});
    row("maximum length of a list, next one with its own",
        "<Double><MaxDoubleListLength>4</MaxDoubleListLength></Double>",
        "<Double><MaxDoubleListLength>0</MaxDoubleListLength></Double>", {"Double.UniqueName=b"});
    row("default and selected entry", "<Enum><EnumValue Key=\"1\" Name=\"A\" Value=\"2\"/></Enum>", "<Enum/>",
        {"Enum.Default=1|A||2|false", "Enum.Selected=1|A||2|false", "Enum.UniqueName=b"});
    row("default and selected entry, next one with its own",
        "<Enum><EnumValue Key=\"1\" Name=\"A\" Value=\"2\"/></Enum>", "<Enum><EnumValue Key=\"3\"/></Enum>",
        {"Enum.Default=3|||0|false", "Enum.List=3|||0|false", "Enum.Selected=3|||0|false",
         "Enum.UniqueName=b"});
    row("nothing of a string", "<String><Default>x</Default></String>", "<String/>", {"String.UniqueName=b"});
    row("nothing of a boolean", "<Boolean>true</Boolean>", "", {"Boolean.UniqueName=a"});
    row("nothing of a multiplier", "<ParameterType>Long</ParameterType><Multiplier>5</Multiplier>",
        "<ParameterType>Long</ParameterType>", {"ParameterType=1"});
}

void GenericReceiverTest::handlersKeepFromTheParameterBefore()
{
    QFETCH(QString, first);
    QFETCH(QString, second);
    QFETCH(QStringList, changed);
    const QString start = parameterElement("a", first);
    const QString rest = parameterElement("b", second);

    GenericReceiver receiver = objectFrom<GenericReceiver>(receiverElement(start + rest));
    QCOMPARE(changes(receiver.GetParameter("b")), changed);
    // Whatever lies between them, and also from one document to the next.
    receiver =
        objectFrom<GenericReceiver>(receiverElement(start + "<Script/>" + parameterElement("c") + rest));
    QCOMPARE(changes(receiver.GetParameter("b")), changed);
    receiver = objectFrom<GenericReceiver>(receiverElement(start));
    process(receiver, receiverElement(rest));
    QCOMPARE(changes(receiver.GetParameter("b")), changed);
}

void GenericReceiverTest::resetKeepsTheParameterRead()
{
    GenericReceiver receiver = objectFrom<GenericReceiver>(
        receiverElement(parameterElement("a", "<Integer><Default>5</Default></Integer>")));
    receiver.Reset();
    process(receiver, receiverElement(parameterElement("b")));

    QCOMPARE(changes(receiver.GetParameter("b")),
             QStringList({"Integer.UniqueName=a", "Integer.Value=5", "UniqueName=b"}));
}

void GenericReceiverTest::copiesKeepTheParameterRead()
{
    const GenericReceiver source = objectFrom<GenericReceiver>(
        receiverElement(parameterElement("a", "<Integer><Default>5</Default></Integer>")));
    GenericReceiver copy = source;
    GenericReceiver assigned;
    assigned = source;

    for (GenericReceiver *receiver : {&copy, &assigned}) {
        process(*receiver, receiverElement(parameterElement("b")));
        QCOMPARE(changes(receiver->GetParameter("b")),
                 QStringList({"Integer.UniqueName=a", "Integer.Value=5", "UniqueName=b"}));
    }
    // Parameters that are added are none that are read.
    GenericReceiver added = receiverOf({source.GetParameter("a")});
    process(added, receiverElement(parameterElement("b")));
    QCOMPARE(changes(added.GetParameter("b")), QStringList("UniqueName=b"));
}

// The type of a boolean parameter is not written.
void GenericReceiverTest::booleansKeepTheReceiverFromBeingWritten()
{
    const GenericReceiver receiver = objectFrom<GenericReceiver>(
        elementOf(receiverOf({completeParameter(0, "a"), completeParameter(1, "b")})));

    QCOMPARE(keysOf(receiver), QStringList({"a", "b"}));
    QVERIFY(!receiver.HasData());
    QCOMPARE(elementOf(receiver), QString());
}

void GenericReceiverTest::roundTrip()
{
    GenericReceiver receiver;
    for (const int type : {1, 2, 4, 5, 6, 7, 8})
        receiver.AddParameter(completeParameter(type, "<" + typeNames()[type] + "> \u20ac"));
    const QString text = receiver.GetXmlString();

    GenericReceiver read;
    QVERIFY(read.SetXmlString(text, true));
    QVERIFY(read == receiver);
    QCOMPARE(read.GetXmlString(), text);

    const SampleFile file("", "saved.xml");
    QVERIFY(receiver.SaveXml(file.path));
    GenericReceiver imported;
    imported.ImportXML(file.path);
    QVERIFY(imported == receiver);
}

void GenericReceiverTest::loading_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("text");

    QTest::newRow("empty") << QByteArray() << "";
    QTest::newRow("any text") << QByteArray(" no XML \n") << " no XML \n";
    QTest::newRow("UTF-8") << QByteArray("\xce\xa9 \xe2\x82\xac \xf0\x9f\x93\xa1")
                           << "\u03a9 \u20ac \U0001F4E1";
    QTest::newRow("byte order mark") << QByteArray("\xef\xbb\xbf<a/>") << "<a/>";
    QTest::newRow("CR LF") << QByteArray("a\r\nb\r\n\r\n") << "a\nb\n\n";
    QTest::newRow("no line end behind the last line") << QByteArray("a\nb") << "a\nb";
    QTest::newRow("not UTF-8") << QByteArray("a\xff"
                                             "b")
                               << QString("a") + QChar(0xfffd) + 'b';
}

void GenericReceiverTest::loading()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, text);
    const SampleFile file(content);

    QString loaded = "before";
    GenericReceiver().Load(file.path, loaded);
    QCOMPARE(loaded, text);
}

void GenericReceiverTest::loadingChangesNothing()
{
    GenericReceiver receiver = receiverOf({completeParameter(4, "a")});
    const QStringList state = everythingOf(receiver);
    const SampleFile file(receiverElement(parameterElement("b"), "Version=\"2\"").toUtf8());
    QString text;
    receiver.Load(file.path, text);

    QCOMPARE(text, receiverElement(parameterElement("b"), "Version=\"2\""));
    QCOMPARE(everythingOf(receiver), state);
}

void GenericReceiverTest::loadingFails_data()
{
    QTest::addColumn<QString>("name"); // in a folder

    QTest::newRow("missing file") << "missing.xml";
    QTest::newRow("missing folder") << "missing/receiver.xml";
    QTest::newRow("a folder") << "";
    QTest::newRow("placeholders") << "%1 %2.xml";
    QTest::newRow("outside Latin-1") << "\u03a9.xml";
}

void GenericReceiverTest::loadingFails()
{
    QFETCH(QString, name);
    const QTemporaryDir folder;
    const QString path = name.isEmpty() ? folder.path() : folder.path() + '/' + name;
    const QString message = "Can't open file for reading: '" + path + '\'';
    GenericReceiver receiver = receiverOf({completeParameter(4, "a")});
    const QStringList state = everythingOf(receiver);
    QString text = "before";

    QCOMPARE(messageOf([&] { receiver.Load(path, text); }), message);
    QCOMPARE(text, QString("before"));
    QCOMPARE(messageOf([&] { receiver.ImportXML(path); }), message);
    QCOMPARE(everythingOf(receiver), state);
}

void GenericReceiverTest::importing()
{
    const GenericReceiver receiver = receiverOf({completeParameter(4, "a"), completeParameter(7, "\u03a9")});
    QByteArray content = receiver.GetXmlString().toUtf8();
    const SampleFile plain(content);
    const SampleFile marked("\xef\xbb\xbf" + content);
    const SampleFile windows(content.replace("\n", "\r\n"));

    for (const SampleFile *file : {&plain, &marked, &windows}) {
        GenericReceiver imported;
        imported.ImportXML(file->path);
        QVERIFY(imported == receiver);
    }
}

// Whatever the document says about its encoding.
void GenericReceiverTest::importingDecodesUtf8Only()
{
    const SampleFile file("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?>\n<GenericReceiver>"
                          "<Parameter UniqueName=\"\xce\xa9\"/></GenericReceiver>");
    GenericReceiver receiver;
    receiver.ImportXML(file.path);

    QCOMPARE(keysOf(receiver), QStringList("\u03a9"));
}

void GenericReceiverTest::importingAdds()
{
    GenericReceiver receiver = receiverOf({completeParameter(4, "a")});
    const SampleFile file(receiverElement(elementOf(completeParameter(4, "b")), "Version=\"2\"").toUtf8());
    receiver.ImportXML(file.path);

    QCOMPARE(keysOf(receiver), QStringList({"a", "b"}));
    QCOMPARE(receiver.GetVersion(), QString("2"));
    const SampleFile empty("<GenericReceiver/>");
    receiver.ImportXML(empty.path);
    QCOMPARE(keysOf(receiver), QStringList({"a", "b"}));
    QCOMPARE(receiver.GetVersion(), QString());
}

void GenericReceiverTest::importingFails_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("message");
    QTest::addColumn<bool>("isUntouched");

    const auto corrupted = [](const char *name, const QByteArray &content, bool isUntouched = false) {
        QTest::newRow(name) << content << "GenericReceiver: Corrupted XML or it does not meet the our format!"
                            << isUntouched;
    };
    const QByteArray open = "<GenericReceiver>" + parameterElement("b").toUtf8();
    corrupted("empty", "", true);
    corrupted("no XML", "receiver", true);
    corrupted("comment alone", "<!-- receiver -->", true);
    corrupted("another root element", "<Receiver>" + parameterElement("b").toUtf8() + "</Receiver>", true);
    corrupted("root element in lower case", "<genericreceiver/>", true);
    corrupted("one parameter", parameterElement("b").toUtf8(), true);
    corrupted("truncated", open);
    corrupted("wrong end element", open + "</Receiver>");
    corrupted("trailing text", open + "</GenericReceiver>text");
    corrupted(
        "element in a text",
        "<GenericReceiver><Parameter UniqueName=\"b\"><ToolTip><b/></ToolTip></Parameter></GenericReceiver>");

    const QByteArray inBlock = open + "<Parameter UniqueName=\"c\"><Long>";
    QXmlStreamReader reader(inBlock);
    while (!reader.atEnd())
        reader.readNext();
    QTest::newRow("truncated in a block") << inBlock << reader.errorString() << false;
    QTest::newRow("unknown tag") << open + "<Unit/></GenericReceiver>"
                                 << "Unknown Tag 'Unit' in 'GenericReceiver'." << false;
}

void GenericReceiverTest::importingFails()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, message);
    QFETCH(bool, isUntouched);
    const SampleFile file(content);
    GenericReceiver receiver = receiverOf({completeParameter(4, "a")});
    const QStringList state = everythingOf(receiver);

    QCOMPARE(messageOf([&] { receiver.ImportXML(file.path); }), message);
    QCOMPARE(everythingOf(receiver) == state, isUntouched);
    QCOMPARE(keysOf(receiver), isUntouched ? QStringList("a") : QStringList({"a", "b"}));
}

void GenericReceiverTest::importingWithoutFile()
{
    GenericReceiver receiver;
    QTest::ignoreMessage(QtWarningMsg, "QFSFileEngine::open: No file name specified");
    QCOMPARE(messageOf([&] { receiver.ImportXML(""); }), QString("Can't open file for reading: ''"));
}

void GenericReceiverTest::equality()
{
    const Parameter a = completeParameter(1, "a");
    const Parameter b = completeParameter(4, "b");
    const Parameter c = completeParameter(4, "c");
    const GenericReceiver receiver = receiverOf({a, b});
    const auto isEqual = [&receiver](const GenericReceiver &other) {
        const bool equal = receiver == other;
        return equal == (other == receiver) && equal != (receiver != other) ? QVariant(equal) : QVariant();
    };

    QCOMPARE(isEqual(receiverOf({a, b})), QVariant(true));
    QCOMPARE(isEqual(receiverOf({b, a})), QVariant(true));
    QCOMPARE(isEqual(receiver), QVariant(true));
    QCOMPARE(isEqual(receiverOf({a})), QVariant(false));
    QCOMPARE(isEqual(receiverOf({a, b, c})), QVariant(false));
    QCOMPARE(isEqual(receiverOf({a, c})), QVariant(false));
    QCOMPARE(isEqual(receiverOf({c, b})), QVariant(false));
    QCOMPARE(isEqual(GenericReceiver()), QVariant(false));
    QCOMPARE(isEqual(receiverOf({completeParameter(1, "a", "other"), b})), QVariant(false));
    QCOMPARE(isEqual(receiverOf({a, completeParameter(4, "b", "other")})), QVariant(false));

    // What parameters do not compare, and the parameter that was read last, do not count.
    Parameter sameB = b;
    sameB.SetToolTip("other");
    QCOMPARE(isEqual(receiverOf({a, sameB})), QVariant(true));
    GenericReceiver read =
        objectFrom<GenericReceiver>(receiverElement(parameterElement("x", "<ToolTip>T</ToolTip>")));
    read.GetParameterList() = receiver.GetParameterList();
    QCOMPARE(isEqual(read), QVariant(true));
}

void GenericReceiverTest::equalityOfVersions()
{
    GenericReceiver receiver = receiverOf({completeParameter(1, "a")});
    GenericReceiver other = receiver;
    process(other, receiverElement("", "Version=\"1.00\""));
    QVERIFY(receiver != other);
    QVERIFY(!(other == receiver));
    process(receiver, receiverElement("", "Version=\"1.00\""));
    QVERIFY(receiver == other);
}

void GenericReceiverTest::equalityOfKeys()
{
    GenericReceiver receiver = receiverOf({completeParameter(1, "a")});
    GenericReceiver other;
    other.GetParameterList()["key"] = completeParameter(1, "a");
    QVERIFY(receiver != other);
    QVERIFY(!(receiver == other));
    receiver.GetParameterList()["key"] = receiver.GetParameterList().take("a");
    QVERIFY(receiver == other);
}

void GenericReceiverTest::equalityOfParametersWithoutType()
{
    const GenericReceiver receiver = receiverOf({Parameter()});
    const GenericReceiver copy = receiver;
    QVERIFY(receiver != copy);
    QVERIFY(!(receiver == copy));
}

void GenericReceiverTest::equalityOfNaN()
{
    Parameter parameter = completeParameter(6, "a");
    parameter.GetFloatHandler().SetValue(std::numeric_limits<float>::quiet_NaN());
    const GenericReceiver receiver = receiverOf({parameter});
    const GenericReceiver copy = receiver;
    QVERIFY(receiver != copy);
    QVERIFY(!(receiver == copy));
}

void GenericReceiverTest::copies()
{
    GenericReceiver original =
        objectFrom<GenericReceiver>(receiverElement(elementOf(completeParameter(4, "a")), "Version=\"2\""));
    const QStringList state = everythingOf(original);

    GenericReceiver copy = original;
    GenericReceiver assigned = receiverOf({completeParameter(1, "z")});
    GenericReceiver &result = (assigned = original);
    QCOMPARE(&result, &assigned);
    for (GenericReceiver *receiver : {&copy, &assigned}) {
        QCOMPARE(everythingOf(*receiver), state);
        receiver->GetParameterList()["a"].SetDisplayName("changed");
        receiver->AddParameter(completeParameter(1, "b"));
        QCOMPARE(everythingOf(original), state);
    }
    copy.Reset();
    QCOMPARE(everythingOf(original), state);
    QCOMPARE(keysOf(assigned), QStringList({"a", "b"}));
}

void GenericReceiverTest::copiesTheBase()
{
    GenericReceiver original;
    original.SetValidate(false);
    original.SetLogger(std::make_shared<TESSEL::Logger>());

    const GenericReceiver copy = original;
    GenericReceiver assigned;
    assigned = original;
    for (const GenericReceiver *receiver : {&copy, static_cast<const GenericReceiver *>(&assigned)}) {
        QCOMPARE(receiver->GetObjectName(), QString("GenericReceiver"));
        QCOMPARE(static_cast<int>(receiver->GetObjectType()), 38);
        QVERIFY(!receiver->GetValidate());
        QVERIFY(receiver->GetLogger() && receiver->GetLogger() == original.GetLogger());
    }
}

void GenericReceiverTest::selfAssignment()
{
    GenericReceiver receiver = receiverOf({completeParameter(4, "a")});
    const QStringList state = everythingOf(receiver);
    const GenericReceiver &same = receiver;
    receiver = same;

    QCOMPARE(everythingOf(receiver), state);
}

void GenericReceiverTest::manyParameters()
{
    constexpr int Count = 100000;
    const int types[] = {1, 2, 7, 8}; // the limits of the others are long texts
    GenericReceiver receiver;
    for (int i = 0; i < Count; ++i)
        receiver.AddParameter(completeParameter(types[i % 4], QString("rx.%1").arg(i), QString::number(i)));
    QCOMPARE(receiver.GetParameterList().size(), Count);

    // A copy shares the list until one of the two changes.
    GenericReceiver copy = receiver;
    GenericReceiver assigned;
    assigned = receiver;
    QVERIFY(isShared(receiver, copy));
    QVERIFY(isShared(receiver, assigned));
    QVERIFY(copy.HasData());
    QVERIFY(copy == receiver);
    const QString text = copy.GetXmlString();
    QVERIFY(isShared(receiver, copy));
    copy.AddParameter(completeParameter(1, "another"));
    QVERIFY(!isShared(receiver, copy));
    QVERIFY(isShared(receiver, assigned));

    GenericReceiver read;
    QVERIFY(read.SetXmlString(text, true));
    QCOMPARE(read.GetParameterList().size(), Count);
    QVERIFY(read == receiver);
}

namespace {

QString labelledElement(const QString &uniqueName, const QString &label, const QString &unit,
                        const QString &entry)
{
    return parameterElement(uniqueName,
                            "<DisplayName>" + label + "</DisplayName><ToolTip>tip of " + label
                                + "</ToolTip><DisplaySuffix>" + unit
                                + "</DisplaySuffix><ParameterType>Enum</ParameterType><Enum><EnumValue "
                                  "Key=\"0\" Name=\""
                                + entry + "\" Identifier=\"id " + entry + "\" Value=\"0.00\"/></Enum>");
}

} // namespace

// More labels than are kept, long ones and empty ones; units that recur among them.
void GenericReceiverTest::textsThatRecur()
{
    constexpr int Count = 2000;
    const auto uniqueName = [](int i) { return QString("rx.%1").arg(i, 4, 10, QChar('0')); };
    const auto label = [](int i) {
        return i % 3 == 0 ? QString()
            : i % 5 == 0  ? QString(60 + i % 9, 'x')
                          : QString("label %1").arg(i % 700);
    };
    const auto unit = [](int i) { return QString("unit %1").arg(i % 7); };
    const auto entry = [](int i) { return QString("entry %1").arg(i % 600); };
    QString children;
    for (int i = 0; i < Count; ++i)
        children += labelledElement(uniqueName(i), label(i), unit(i), entry(i));

    const GenericReceiver receiver = objectFrom<GenericReceiver>(receiverElement(children));
    QCOMPARE(receiver.GetParameterList().size(), Count);
    for (int i = 0; i < Count; ++i) {
        const Parameter parameter = receiver.GetParameter(uniqueName(i));
        QCOMPARE(parameter.GetDisplayName(), label(i));
        QCOMPARE(parameter.GetToolTip(), "tip of " + label(i));
        QCOMPARE(parameter.GetDisplaySuffix(), unit(i));
        const EnumHandler &handler = parameter.GetEnumHandler();
        QCOMPARE(handler.GetEnumList().size(), 1);
        QCOMPARE(handler.GetEnumList().first().Name, entry(i));
        QCOMPARE(handler.GetEnumList().first().Identifier, "id " + entry(i));
    }
}

namespace {

struct Mixed {
    const char *type;
    QString block;
};

/// Element number \a i of a receiver in which the types take turns; its default is the number.
QString mixedElement(int i)
{
    const QString number = QString::number(i);
    const QString standard = "<Default>" + number + "</Default>";
    const Mixed types[] = {
        {"Integer", "<Integer>" + standard + "</Integer>"},
        {"Enum", "<Enum><EnumValue Key=\"" + number + "\" Name=\"entry\"/></Enum>"},
        {"Long", "<Long>" + standard + "</Long>"},
        {"DoubleList",
         "<Double>" + standard + "<MaxDoubleListLength>" + number + "</MaxDoubleListLength></Double>"},
        {"String", "<String>" + standard + "</String>"},
        {"Float", "<Float>" + standard + "</Float>"},
        {"TimeStamp", "<TimeStamp>" + standard + "</TimeStamp>"},
    };
    const Mixed &mixed = types[i % 7];
    return parameterElement("rx." + number,
                            QString("<ParameterType>") + mixed.type + "</ParameterType>" + mixed.block);
}

/// The number of the last element up to \a i whose type is number \a type; -1 when there is none.
int lastOf(int type, int i)
{
    return i < type ? -1 : i - (i - type) % 7;
}

} // namespace

// What a reset leaves alone comes from the elements before; everything else is as in a new parameter.
void GenericReceiverTest::handlersOfOtherTypes()
{
    constexpr int Count = 40;
    QString elements;
    for (int i = 0; i < Count; ++i)
        elements += mixedElement(i);
    GenericReceiver receiver = objectFrom<GenericReceiver>(receiverElement(elements));
    const GenericReceiver copy = receiver;
    const auto nameOf = [](int number) { return number < 0 ? QString() : QString("rx.%1").arg(number); };
    const auto check = [&nameOf](const Parameter &parameter, int i) {
        const int integer = lastOf(0, i);
        const int entries = lastOf(1, i);
        const int longNumber = lastOf(2, i);
        const int list = lastOf(3, i);
        QCOMPARE(parameter.GetIntegerHandler().GetValue(), qMax(integer, 0));
        QCOMPARE(parameter.GetIntegerHandler().GetDefault(), integer == i ? i : 0);
        QCOMPARE(parameter.GetIntegerHandler().GetUniqueParameterName(), nameOf(integer));
        QCOMPARE(parameter.GetEnumHandler().GetSelectedEnumValue().Key, entries);
        QCOMPARE(parameter.GetEnumHandler().GetEnumList().size(), entries == i ? 1 : 0);
        QCOMPARE(parameter.GetEnumHandler().GetUniqueParameterName(), nameOf(entries));
        QCOMPARE(parameter.GetLongHandler().GetValue(), qMax(longNumber, 0));
        QCOMPARE(parameter.GetLongHandler().GetUniqueParameterName(), nameOf(longNumber));
        QCOMPARE(parameter.GetDoubleHandler().GetMaxDoubleListLength(), qMax(list, 0));
        QCOMPARE(parameter.GetDoubleHandler().GetValue(), list == i ? i : -111111.11);
        QCOMPARE(parameter.GetDoubleHandler().GetUniqueParameterName(), nameOf(list));
        QCOMPARE(parameter.GetStringHandler().GetUniqueParameterName(),
                 lastOf(4, i) == i ? nameOf(i) : QString());
        QCOMPARE(parameter.GetFloatHandler().GetValue(), lastOf(5, i) == i ? float(i) : 0.0F);
        QCOMPARE(parameter.GetFloatHandler().GetUniqueParameterName(), nameOf(lastOf(5, i)));
        QCOMPARE(parameter.GetTimeStampHandler().GetUniqueParameterName(), nameOf(lastOf(6, i)));
        QVERIFY(parameter.GetBooleanHandler().GetUniqueParameterName().isEmpty());
    };
    for (int i = 0; i < Count; ++i)
        check(copy.GetParameterList()[nameOf(i)], i);
    for (int i = Count - 1; i >= 0; --i)
        check(receiver.GetParameterList()[nameOf(i)], i);
}

// Nothing that is done to one parameter shows in another that was read with it, or read later.
void GenericReceiverTest::parametersShareNothing()
{
    const QString elements = mixedElement(0) + mixedElement(1) + mixedElement(7) + mixedElement(8);
    GenericReceiver receiver = objectFrom<GenericReceiver>(receiverElement(elements));
    const GenericReceiver before = receiver;

    Parameter &changed = receiver.GetParameterList()["rx.1"]; // an enumeration; integers were read before it
    const Parameter &enumeration = receiver.GetParameterList()["rx.8"];
    const IntegerHandler &inherited = std::as_const(changed).GetIntegerHandler();
    QCOMPARE(inherited.GetValue(), 0);
    changed.GetIntegerHandler().SetValue(77);
    changed.GetIntegerHandler().SetUniqueParameterName("changed");
    QCOMPARE(inherited.GetValue(), 77);
    changed.GetEnumHandler().GetSelectedEnumValue().Name = "changed";
    receiver.GetParameterList()["rx.0"].GetIntegerHandler().SetValue(88);

    process(receiver, receiverElement(mixedElement(9)));
    QCOMPARE(receiver.GetParameterList()["rx.9"].GetIntegerHandler().GetValue(), 7);
    QCOMPARE(receiver.GetParameterList()["rx.9"].GetEnumHandler().GetSelectedEnumValue().Name, "entry");
    QCOMPARE(enumeration.GetEnumHandler().GetSelectedEnumValue().Name, "entry");
    QCOMPARE(enumeration.GetIntegerHandler().GetValue(), 7);
    QCOMPARE(before.GetParameter("rx.0").GetIntegerHandler().GetValue(), 0);
    QCOMPARE(before.GetParameter("rx.1").GetIntegerHandler().GetUniqueParameterName(), "rx.0");
    QCOMPARE(before.GetParameter("rx.1").GetEnumHandler().GetSelectedEnumValue().Name, "entry");
}

QTEST_GUILESS_MAIN(GenericReceiverTest)
#include "GenericReceiverTest.moc"
