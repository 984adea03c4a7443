#include <tests/support/ToolSupport.h>

using namespace ToolSupport;

class ReceiverLintTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void parameters_data();
    void parameters();
    void receivers_data();
    void receivers();
    void incompleteDocuments();
    void manyParameters();
    void manyEntries();
};

namespace {

/// A parameter called P whose blocks stand on the second line. No type: an empty text.
QByteArray parameter(const QByteArray &type, const QByteArray &blocks, const QByteArray &uniqueName = "P")
{
    const QByteArray typeElement = type.isEmpty() ? type : "<ParameterType>" + type + "</ParameterType>";
    return "<Parameter UniqueName='" + uniqueName
        + "'><RepresentationName>r</RepresentationName><ValueType>ValueString</ValueType>" + typeElement
        + "\n" + blocks + "</Parameter>";
}

QString doesNotCount(const QString &place, const QString &block, const QString &type)
{
    return QString("%1 \"%2\" does not count, since the type of the parameter is %3").arg(place, block, type);
}

QString noBlock(const QString &type)
{
    return QString("there is no \"%1\", though that is the type of the parameter").arg(type);
}

/// What a check of \a document, which the library accepts, finds suspicious: place, blank, message. What is
/// at fault in its form is left out.
QStringList warningsOf(const QByteArray &document, bool isComplete)
{
    Folder folder;
    folder.write("r.xml", document);
    const Run run = folder.run({"check", "--format", "json", "r.xml"});
    QStringList warnings;
    for (const QJsonObject &line : jsonLines(run.out)) {
        if (line["type"] == "file" && (line["status"] != "good" || line["complete"] != isComplete))
            return {run.out};
        if (!line["id"].toString().startsWith("suspicious"))
            continue;
        if (line["severity"] != "warning")
            return {run.out};
        warnings << QString("%1:%2 %3")
                        .arg(QString::number(line["line"].toInt()), QString::number(line["column"].toInt()),
                             line["message"].toString());
    }
    return warnings;
}

} // namespace

void ReceiverLintTest::parameters_data()
{
    QTest::addColumn<QByteArray>("type");
    QTest::addColumn<QByteArray>("blocks");
    QTest::addColumn<QStringList>("warnings"); // place, blank, message
    QTest::addColumn<bool>("isComplete");

    const auto add = [](const char *name, const QByteArray &type, const QByteArray &blocks,
                        const QStringList &warnings, bool isComplete = true) {
        QTest::newRow(name) << type << blocks << warnings << isComplete;
    };
    const QByteArray five = "<Default>5</Default>";

    add("minimum above maximum, integer", "Integer",
        "<Integer><Minimum>6</Minimum><Maximum>5</Maximum><Default>5</Default></Integer>",
        {"2:10 the minimum 6 is above the maximum 5"});
    add("minimum above maximum, long", "Long",
        "<Long><Maximum>-3</Maximum><Minimum>-2</Minimum><Default>5</Default></Long>",
        {"2:28 the minimum -2 is above the maximum -3"});
    add("minimum above maximum, time stamp", "TimeStamp",
        "<TimeStamp><Minimum>9223372036854775807</Minimum><Maximum>9223372036854775806</Maximum></TimeStamp>",
        {"2:12 the minimum 9223372036854775807 is above the maximum 9223372036854775806"});
    add("minimum above maximum, float", "Float",
        "<Float><Minimum>0.5</Minimum><Maximum>0.25</Maximum></Float>",
        {"2:8 the minimum 0.5 is above the maximum 0.25"});
    add("minimum above maximum, double", "Double",
        "<Double><Minimum>1e20</Minimum><Maximum>1000000.5</Maximum><Default>5</Default></Double>",
        {"2:9 the minimum 1e+20 is above the maximum 1000000.5"});
    add("minimum above maximum, double list", "DoubleList",
        "<Double><Minimum>2</Minimum><Maximum>1</Maximum><MaxDoubleListLength>1</MaxDoubleListLength></"
        "Double>",
        {"2:9 the minimum 2 is above the maximum 1"});
    add("minimum above the maximum that integers have", "Integer",
        "<Integer><Minimum>40000</Minimum><Default>40000</Default></Integer>",
        {"2:10 the minimum 40000 is above the maximum 32767"});
    add("maximum below the minimum that integers have", "Integer",
        "<Integer><Maximum>-40000</Maximum><Default>0</Default></Integer>",
        {"2:10 the minimum -32768 is above the maximum -40000"});
    add("the last minimum counts", "Float",
        "<Float><Minimum>1</Minimum><Maximum>5</Maximum><Minimum>6</Minimum></Float>",
        {"2:48 the minimum 6 is above the maximum 5"});
    add("limits in two blocks", "Float",
        "<Float><Minimum>6</Minimum></Float>\n<Float><Maximum>5</Maximum></Float>",
        {"2:8 the minimum 6 is above the maximum 5"});
    add("minimum in an unknown element", "Float",
        "<Float><a>\n<Minimum>6</Minimum></a><Maximum>5</Maximum></Float>",
        {"3:1 the minimum 6 is above the maximum 5"});
    add("minimum that is the maximum", "Integer",
        "<Integer><Minimum>5</Minimum><Maximum>5</Maximum><Default>5</Default></Integer>", {});
    add("limits that are no numbers", "Float", "<Float><Minimum>nan</Minimum><Maximum>nan</Maximum></Float>",
        {});
    add("limits in the block of another type", "Float",
        "<Float/><Integer><Minimum>6</Minimum><Maximum>5</Maximum></Integer>",
        {doesNotCount("2:9", "Integer", "Float")});

    add("default above the maximum", "Integer",
        "<Integer><Minimum>0</Minimum><Maximum>5</Maximum><Default>6</Default></Integer>",
        {"2:50 the default 6 is above the maximum 5"});
    add("default below the minimum", "TimeStamp", "<TimeStamp><Minimum>6</Minimum>" + five + "</TimeStamp>",
        {"2:32 the default 5 is below the minimum 6"});
    add("default below the minimum, not given", "Float", "<Float><Minimum>6</Minimum></Float>",
        {"2:1 the default 0 is below the minimum 6"});
    add("default outside the limits that integers have", "Integer",
        "<Integer><Default>32768</Default></Integer>", {"2:10 the default 32768 is above the maximum 32767"});
    add("the last default counts", "Long",
        "<Long><Maximum>5</Maximum><Default>1</Default><Default>6</Default></Long>",
        {"2:47 the default 6 is above the maximum 5"});
    add("default outside limits that exclude all", "Integer",
        "<Integer><Minimum>6</Minimum><Maximum>4</Maximum>" + five + "</Integer>",
        {"2:10 the minimum 6 is above the maximum 4"});
    add("default at the maximum", "Integer", "<Integer><Maximum>5</Maximum>" + five + "</Integer>", {});
    add("default at the minimum", "Double", "<Double><Minimum>5</Minimum>" + five + "</Double>", {});
    add("default outside the limits of a list", "DoubleList",
        "<Double><Minimum>6</Minimum><Default>5</Default><MaxDoubleListLength>1</MaxDoubleListLength></"
        "Double>",
        {});

    add("enumeration without entries", "Enum", "<Enum/>", {"2:1 the enumeration has no entries"}, false);
    add("enumeration without a block", "Enum", "", {"1:1 the enumeration has no entries"}, false);
    add("enumeration with an entry", "Enum", "<Enum><EnumValue/></Enum>", {});
    add("no enumeration", "Float", "<Enum/>",
        {"1:1 " + noBlock("Float"), doesNotCount("2:1", "Enum", "Float")});

    add("entries of one key", "Enum",
        "<Enum><EnumValue Key='1' Name='A'/><EnumValue Key='2' Name='B'/>\n<EnumValue Key='01' Name='C'/>\n"
        " <EnumValue Key='1' Name='%1'/></Enum>",
        {"3:1 the entries 'A' and 'C' have the same key", "4:2 the entries 'A' and '%1' have the same key"});
    add("entries without keys", "Enum", "<Enum><EnumValue Name='A'/><b><EnumValue Name='B'/></b></Enum>",
        {"2:31 the entries 'A' and 'B' have the same key"});
    add("entries of one key in two blocks", "Enum",
        "<Enum><EnumValue Key='1' Name='A'/></Enum>\n<Enum><EnumValue Key='1' Name='B'/></Enum>",
        {"3:7 the entries 'A' and 'B' have the same key"});
    add("entries of one name and value", "Enum",
        "<Enum><EnumValue Key='1' Name='A' Value='1'/><EnumValue Key='2' Name='A' Value='1'/></Enum>", {});
    add("entries of one key of no enumeration", "Float",
        "<Enum><EnumValue Key='1' Name='A'/><EnumValue Key='1' Name='B'/></Enum>",
        {"1:1 " + noBlock("Float"), doesNotCount("2:1", "Enum", "Float")});

    const QString twoDefaults = " are both marked as the default; the last one marked counts";
    add("entries marked as the default", "Enum",
        "<Enum><EnumValue Key='1' Name='A' Default='true'/><EnumValue Key='2' Name='B' Default='true'/>"
        "<EnumValue Key='3'/><EnumValue Key='4' Name='C' Default='true'/></Enum>",
        {"2:51 the entries 'A' and 'B'" + twoDefaults, "2:115 the entries 'B' and 'C'" + twoDefaults});
    add("entries marked otherwise", "Enum",
        "<Enum><EnumValue Key='1' Default='true'/><EnumValue Key='2' Default='TRUE'/><EnumValue Key='3' "
        "Default='false'/></Enum>",
        {});
    add("entry marked after the first", "Enum",
        "<Enum><EnumValue Key='1'/><EnumValue Key='2' Default='true'/></Enum>", {});

    const QString boolean =
        "the type of a boolean parameter is never written, and a parameter without a type keeps "
        "the whole document from being written";
    add("boolean", "Boolean", "<Boolean>true</Boolean>", {"2:1 " + boolean});
    add("boolean without a value", "Boolean", "", {"1:1 " + boolean, "1:1 " + noBlock("Boolean")});
    add("value of a boolean in a parameter of another type", "Float", "<Float/><Boolean>true</Boolean>",
        {doesNotCount("2:9", "Boolean", "Float")});

    add("block that is never closed", "DoubleList",
        "<DoubleList><MaxDoubleListLength>1</MaxDoubleListLength></DoubleList>",
        {"2:1 a block \"DoubleList\" is read on to the next end of a \"Double\"; open it as that"});
    add("block that is closed by another", "DoubleList",
        "<DoubleList/>\n<Double><MaxDoubleListLength>1</MaxDoubleListLength></Double>",
        {"2:1 a block \"DoubleList\" is read on to the next end of a \"Double\"; open it as that"});
    add("block of a list", "DoubleList", "<Double><MaxDoubleListLength>1</MaxDoubleListLength></Double>", {});
    add("element called as the block of a list", "DoubleList",
        "<Double><DoubleList/><MaxDoubleListLength>1</MaxDoubleListLength></Double>", {});

    // Nothing is carried over to the parameter of a document of its own.
    add("integer without a default", "Integer", "<Integer/>", {});
    add("long without a default", "Long", "<Long/>", {});
    add("long without a block", "Long", "", {"1:1 " + noBlock("Long")});
    add("float without a block", "Float", "", {"1:1 " + noBlock("Float")});
    add("time stamp without a block", "TimeStamp", "", {"1:1 " + noBlock("TimeStamp")});
    add("blocks of every type", "Integer",
        "<Boolean>true</Boolean><Enum/><Double/><Integer/>\n<Long/><Float/><String/><TimeStamp/>"
        "<Integer/>",
        {doesNotCount("2:1", "Boolean", "Integer"), doesNotCount("2:24", "Enum", "Integer"),
         doesNotCount("2:31", "Double", "Integer"), doesNotCount("3:1", "Long", "Integer"),
         doesNotCount("3:8", "Float", "Integer"), doesNotCount("3:16", "String", "Integer"),
         doesNotCount("3:25", "TimeStamp", "Integer")});

    const QString noValue = "without a \"%1\" the parameter has no value: it is not complete, and nothing "
                            "would be written";
    add("double list without a length", "DoubleList", "<Double/>",
        {"2:1 " + noValue.arg("MaxDoubleListLength")}, false);
    add("double without a default", "Double", "<Double><Minimum>-1</Minimum></Double>",
        {"2:1 " + noValue.arg("Default")}, false);
    add("double without a block", "Double", "", {"1:1 " + noValue.arg("Default")}, false);
    add("string without a default", "String", "<String Default='a'/>", {"2:1 " + noValue.arg("Default")},
        false);
    add("string with a default", "String", "<String><Default>a</Default></String>", {});

    add("several", "Enum",
        "<DoubleList/><Double/>\n<Enum><EnumValue Key='1' Name='A' Default='true'/>\n"
        "<EnumValue Key='1' Name='B' Default='true'/></Enum>",
        {"2:1 a block \"DoubleList\" is read on to the next end of a \"Double\"; open it as that",
         doesNotCount("2:14", "Double", "Enum"), "4:1 the entries 'A' and 'B' have the same key",
         "4:1 the entries 'A' and 'B'" + twoDefaults});
    add("enumeration whose entries a block has swallowed", "Enum",
        "<DoubleList>\n<Enum><EnumValue Key='1' Name='A'/></Enum></DoubleList>\n<Enum><EnumValue/></Enum>",
        {"2:1 a block \"DoubleList\" is read on to the next end of a \"Double\"; open it as that",
         "4:1 the enumeration has no entries"},
        false);
}

void ReceiverLintTest::parameters()
{
    QFETCH(QByteArray, type);
    QFETCH(QByteArray, blocks);
    QFETCH(QStringList, warnings);
    QFETCH(bool, isComplete);

    QCOMPARE(warningsOf(parameter(type, blocks), isComplete), warnings);
}

void ReceiverLintTest::receivers_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QStringList>("warnings");
    QTest::addColumn<bool>("isComplete");

    const auto add = [](const char *name, const QByteArray &content, const QStringList &warnings,
                        bool isComplete = true) { QTest::newRow(name) << content << warnings << isComplete; };
    const QByteArray integer = "<Integer><Default>1</Default></Integer>";
    const QByteArray list = "<Double><MaxDoubleListLength>1</MaxDoubleListLength></Double>";
    const QByteArray outside = "<Integer><Maximum>1</Maximum><Default>2</Default></Integer>";

    add("nothing", "", {});
    add("a warning of a parameter", "\n" + parameter("Integer", outside),
        {"3:30 the default 2 is above the maximum 1"});

    const QString repeated = "the unique name was given before; only this element counts";
    add("two of one name", parameter("Integer", integer) + "\n" + parameter("Integer", integer),
        {"3:1 " + repeated});
    add("three of one name",
        parameter("Integer", integer) + "\n" + parameter("Float", "") + "\n" + parameter("Integer", integer),
        {"5:1 " + repeated});
    add("two of one name, the first suspicious",
        parameter("Integer", outside) + "\n" + parameter("Integer", integer), {"3:1 " + repeated});
    add("two of one name, the second suspicious",
        parameter("Integer", integer) + "\n" + parameter("Integer", outside),
        {"3:1 " + repeated, "4:30 the default 2 is above the maximum 1"});
    add("names in other letters", parameter("Integer", integer) + parameter("Integer", integer, "p"), {});
    add("one name in another element", parameter("Integer", integer) + "<Script UniqueName='P'/>", {});

    const auto noDefault = [](const QString &type) {
        return "there is no \"Default\", so the value is that of the " + type + " parameter before it";
    };
    add("integer without a default", parameter("Integer", "<Integer><Minimum>0</Minimum></Integer>"),
        {"2:1 " + noDefault("Integer")});
    add("integer without a block", parameter("Integer", ""),
        {"1:18 " + noDefault("Integer"), "1:18 " + noBlock("Integer")});
    add("integer with a default elsewhere",
        parameter("Integer", "<Integer/><Long><Default>1</Default></Long>"),
        {"2:1 " + noDefault("Integer"), doesNotCount("2:11", "Long", "Integer")});
    add("integer with a default", parameter("Integer", integer), {});
    add("integer with an empty default", parameter("Integer", "<Integer><Default/></Integer>"), {});
    add("long without a default", parameter("Long", "<Long/>"), {"2:1 " + noDefault("Long")});
    add("long with a default", parameter("Long", "<Long><Default>1</Default></Long>"), {});
    add("other types without a default",
        parameter("Float", "<Float/>", "f") + parameter("TimeStamp", "<TimeStamp/>", "t"), {});

    const QString noLength =
        "there is no \"MaxDoubleListLength\", so the maximum length is that of the double list before it";
    add("list without a length",
        parameter("DoubleList", list, "l") + "\n" + parameter("DoubleList", "<Double/>"),
        {"4:1 " + noLength});
    add("first list without a length", parameter("DoubleList", "<Double/>"),
        {"2:1 without a \"MaxDoubleListLength\" the parameter has no value: it is not complete, and nothing "
         "would "
         "be written",
         "2:1 " + noLength},
        false);
    add("list with a length", parameter("DoubleList", list), {});
    add("double without a length", parameter("Double", "<Double><Default>1</Default></Double>"), {});

    add("boolean", parameter("", "<Boolean>true</Boolean>"),
        {"2:1 the type of a boolean parameter is never written, and a parameter without a type keeps the "
         "whole "
         "document from being written"},
        false);
    add("neither boolean nor of any type", parameter("", ""), {}, false);

    add("parameters behind a block that is never closed",
        parameter("DoubleList", "<DoubleList><MaxDoubleListLength>1</MaxDoubleListLength></DoubleList>")
            + "\n" + parameter("Integer", outside, "swallowed"),
        {
            "2:1 a block \"DoubleList\" is read on to the next end of a \"Double\"; open it as that",
        });
}

void ReceiverLintTest::receivers()
{
    QFETCH(QByteArray, content);
    QFETCH(QStringList, warnings);
    QFETCH(bool, isComplete);

    QCOMPARE(warningsOf("<GenericReceiver>" + content + "</GenericReceiver>", isComplete), warnings);
}

void ReceiverLintTest::incompleteDocuments()
{
    Folder folder;
    folder.write(
        "r.xml",
        "<Parameter UniqueName='P'><Integer><Minimum>6</Minimum><Maximum>5</Maximum></Integer>"
        "<ParameterType>Integer</ParameterType><RepresentationName>r</RepresentationName></Parameter>");
    const Run run = folder.run({"check", "r.xml"});
    QCOMPARE(
        run.err,
        QString("r.xml:1:1: error: Parameter[P]/ValueType: missing (allowed: ValueSelection, ValueBoolean, "
                "ValueNumericInt, ValueNumericFloat; 4 more: kormak list ValueType)\n"
                "r.xml:1:36: warning: Parameter[P]/Integer/Minimum: the minimum 6 is above the maximum 5\n"));
    QCOMPARE(run.out, QString());
    QCOMPARE(run.status, 1);
}

void ReceiverLintTest::manyParameters()
{
    verifyTimeGrowsWithNumber([](int count) {
        QByteArray content;
        for (int i = 0; i < count; ++i)
            content += parameter("Integer", "<Integer><Default>1</Default></Integer>",
                                 "p" + QByteArray::number(i / 2));
        const QStringList warnings = warningsOf("<GenericReceiver>" + content + "</GenericReceiver>", true);
        QCOMPARE(warnings.size(), count / 2);
        QVERIFY2(warnings.last().endsWith(" the unique name was given before; only this element counts"),
                 qPrintable(warnings.last()));
    });
}

void ReceiverLintTest::manyEntries()
{
    verifyTimeGrowsWithNumber([](int count) {
        QByteArray content;
        for (int i = 0; i < count; ++i)
            content += "<EnumValue Key='" + QByteArray::number(i / 2) + "' Name='n' Default='true'/>\n";
        const QStringList warnings = warningsOf(parameter("Enum", "<Enum>" + content + "</Enum>"), true);
        QCOMPARE(warnings.filter("have the same key").size(), count / 2);
        QCOMPARE(warnings.filter("both marked as the default").size(), count - 1);
    });
}

QTEST_GUILESS_MAIN(ReceiverLintTest)
#include "ReceiverLintTest.moc"
