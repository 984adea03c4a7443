#include <inspection/Document.h>
#include <inspection/DocumentEdit.h>
#include <inspection/DocumentKind_p.h>
#include <inspection/FieldListing_p.h>
#include <tests/inspection/DocumentSamples.h>
#include <tests/support/OtherText.h>
#include <tests/support/RandomDocuments.h>

#include <QRegularExpression>
#include <QtTest>

using namespace KORMAK;
using namespace KORMAK::Inspection;

using Change = DocumentEdit::Change;
using Action = Change::Action;
using Changes = QVector<DocumentEdit::Change>;

Q_DECLARE_METATYPE(Changes)

class DocumentEditTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void changes_data();
    void changes();
    void refused_data();
    void refused();
    void newFindings();
    void comparedFindings_data();
    void comparedFindings();
    void inherentFindings();
    void lostComments();
    void places();
    void nothing();
    void manyElements();
    void offsetsBehindAByteOrderMark();
    void everyFieldOfExamples_data();
    void everyFieldOfExamples();
    void everyFieldOfRandomDocuments_data();
    void everyFieldOfRandomDocuments();
};

namespace {

Change set(const QString &path, const QString &text)
{
    return {Action::Set, path, text};
}

Change unset(const QString &path)
{
    return {Action::Unset, path};
}

QString linesOf(const QVector<Finding> &findings)
{
    QStringList lines;
    for (const Finding &finding : findings) {
        lines += finding.GetId() + ' ' + finding.GetPath() + ": " + finding.GetMessage();
    }
    return lines.join('\n');
}

const QByteArray Job1 = "<?xml version='1.0' encoding='UTF-8'?>\n"
                        "<!-- antenna -->\n"
                        "<Job Version='1.0'>\n"
                        "  <JobHeader Version='1.0'><!-- who -->\n"
                        "    <JobType>Antenna</JobType>\n"
                        "    <Author><![CDATA[Mara & Co]]></Author>\n"
                        "    <Creation>2026-03-29T00:59:59,250Z</Creation>\n"
                        "    <ShowJDH>true</ShowJDH>\n"
                        "  </JobHeader>\n"
                        "  <ResourceType>Antenna</ResourceType>\n"
                        "  <AntennaData>\n"
                        "    <Name>East</Name>\n"
                        "    <MinimumFrequency>1.500e6</MinimumFrequency>\n"
                        "    <MaximumFrequency>30000000</MaximumFrequency>\n"
                        "  </AntennaData>\n"
                        "</Job>\n<!-- end -->";

const QByteArray Workflow = "<AutomaticWorkflow Version=\"1.0\">\n"
                            "\t<Mode>AutomaticMode</Mode>\n"
                            "\t<SearchStrategy>LowestIdFirst</SearchStrategy>\n"
                            "\t<Area>\n"
                            "\t\t<Name>a</Name>\n"
                            "\t\t<Coordinate><Latitude>1</Latitude><Longitude>2</Longitude></Coordinate>\n"
                            "\t\t<Coordinate><Latitude>3</Latitude><Longitude>4</Longitude></Coordinate>\n"
                            "\t\t<Coordinate><Latitude>5</Latitude><Longitude>7</Longitude></Coordinate>\n"
                            "\t\t<Coordinate><Latitude>7</Latitude><Longitude>8</Longitude></Coordinate>\n"
                            "\t</Area>\n"
                            "</AutomaticWorkflow>\n";

const QByteArray Receiver =
    "<GenericReceiver Version=\"1.0\">\n"
    "    <Parameter Version=\"1.0\" UniqueName=\"Gain\">\n"
    "        <RepresentationName>rx.gain</RepresentationName>\n"
    "        <ValueType>ValueNumericInt</ValueType>\n"
    "        <Enable>true</Enable>\n"
    "        <ParameterType>Integer</ParameterType>\n"
    "        <Integer>\n"
    "            <Minimum>0</Minimum>\n"
    "            <Maximum>40</Maximum>\n"
    "            <Default>20</Default>\n"
    "        </Integer>\n"
    "    </Parameter>\n"
    "    <Parameter Version=\"1.0\" UniqueName=\"Mode\">\n"
    "        <RepresentationName>rx.mode</RepresentationName>\n"
    "        <ValueType>ValueSelection</ValueType>\n"
    "        <Enable>true</Enable>\n"
    "        <ParameterType>Enum</ParameterType>\n"
    "        <Enum>\n"
    "            <EnumValue Key=\"1\" Name='A \"1\"' Value=\"0.50\" Default=\"true\"/>\n"
    "            <EnumValue Key=\"2\" Name=\"B\" Value=\"1\"/>\n"
    "        </Enum>\n"
    "    </Parameter>\n"
    "    <Script>beep</Script>\n"
    "</GenericReceiver>\n";

const QByteArray Declared = "<!DOCTYPE ActivityGeneration [<!ATTLIST ActivityGeneration Version CDATA "
                            "\"2.0\" Autostart CDATA \"true\">]>\n";

/// \a text with one occurrence of \a what replaced.
QByteArray with(QByteArray text, const QByteArray &what, const QByteArray &instead)
{
    if (text.count(what) != 1)
        qFatal("%s stands %d times in the text", what.constData(), static_cast<int>(text.count(what)));
    return text.replace(what, instead);
}

} // namespace

void DocumentEditTest::changes_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<Changes>("changes");
    QTest::addColumn<QByteArray>("result");

    const auto add = [](const char *name, const QByteArray &text, const Changes &wanted,
                        const QByteArray &result) { QTest::newRow(name) << text << wanted << result; };
    const QByteArray mark = "\xEF\xBB\xBF";

    add("no changes", Job1, {}, Job1);
    add("text", Job1, {set("AntennaData.Name", "North & South <1>")},
        with(Job1, ">East<", ">North &amp; South &lt;1&gt;<"));
    add("text beyond ASCII", Job1, {set("AntennaData.Name", QStringLiteral("Süd 😀"))},
        with(Job1, ">East<", ">Süd 😀<"));
    add("section", Job1, {set("JobHeader.Author", "A & B")}, with(Job1, "Mara & Co", "A & B"));
    add("section that would end early", Job1, {set("JobHeader.Author", "]]>")},
        with(Job1, "<![CDATA[Mara & Co]]>", "]]&gt;"));
    add("text with references and a comment",
        with(Job1, "<![CDATA[Mara & Co]]>", "M&#228;r<!--x-->a &amp; Co"), {set("JobHeader.Author", "B")},
        with(Job1, "<![CDATA[Mara & Co]]>", "B<!--x-->"));
    add("line ends and tabs in a text", Job1, {set("AntennaData.Name", "a\r\nb\tc")},
        with(Job1, ">East<", ">a&#13;\nb\tc<"));
    const QByteArray returns = QByteArray(Job1).replace("\n", "\r\n");
    add("line ends as in the document", returns,
        {set("AntennaData.Name", "a\nb"), set("JobHeader.Author", "c\nd")},
        with(with(returns, ">East<", ">a\r\nb<"), "Mara & Co", "c\r\nd"));
    add("line ends as in the document, in what is added",
        with(with(returns, "<Name>East</Name>", "<Name/>"), "    <ShowJDH>true</ShowJDH>\r\n", ""),
        {set("AntennaData.Name", "a\nb"), set("JobHeader.Description", "c\nd")},
        with(with(returns, "<Name>East</Name>", "<Name>a\r\nb</Name>"), "    <ShowJDH>true</ShowJDH>\r\n",
             "    <Description>c\r\nd</Description>\r\n"));
    add("line ends as in the document, in an object that is added",
        "<Job>\r\n  <ResourceType>Antenna</ResourceType>\r\n</Job>\r\n", {set("AntennaData.Name", "a\nb")},
        "<Job>\r\n  <ResourceType>Antenna</ResourceType>\r\n  <AntennaData Version=\"1.0\">\r\n    "
        "<Name>a\r\nb</Name>"
        "\r\n  </AntennaData>\r\n</Job>\r\n");
    add("line end in an attribute of a document with carriage returns",
        QByteArray(Receiver).replace("\n", "\r\n"), {set("Parameter[Mode].Enum.EnumValue[1].Name", "a\nb")},
        with(QByteArray(Receiver).replace("\n", "\r\n"), "Name=\"B\"", "Name=\"a&#10;b\""));
    add("element without an end tag", with(Job1, "<Name>East</Name>", "<Name />"),
        {set("AntennaData.Name", "B")}, with(Job1, "<Name>East</Name>", "<Name >B</Name>"));
    add("element without a text", with(Job1, ">East<", "><"), {set("AntennaData.Name", "B")},
        with(Job1, ">East<", ">B<"));
    add("number, with the digits that are given", Job1, {set("AntennaData.MinimumFrequency", "2.00e6")},
        with(Job1, "1.500e6", "2.00e6"));
    add("number that is the same already", Job1, {set("AntennaData.MinimumFrequency", "1500000")}, Job1);
    add("invalid number that is read as 0", with(Job1, "1.500e6", "1,5 MHz"),
        {set("AntennaData.MinimumFrequency", "0")}, with(Job1, "1.500e6", "0"));
    add("name", Job1, {set("JobHeader.JobType", "Exciter HF")},
        with(Job1, ">Antenna</JobType", ">Exciter HF</JobType"));
    add("flag", Job1, {set("JobHeader.ShowJDH", "false")}, with(Job1, ">true<", ">false<"));
    add("the last of several elements", with(Job1, "<Name>East</Name>", "<Name>West</Name><Name>East</Name>"),
        {set("AntennaData.Name", "B")}, with(Job1, "<Name>East</Name>", "<Name>West</Name><Name>B</Name>"));
    add("several", Job1, {set("AntennaData.Name", "B"), set("JobHeader.Author", "C")},
        with(with(Job1, ">East<", ">B<"), "Mara & Co", "C"));
    add("byte order mark", mark + Job1, {set("AntennaData.Name", "B")}, mark + with(Job1, ">East<", ">B<"));
    add("prefix", "<k:Parameter xmlns:k=\"u\" UniqueName=\"a\"/>", {set("ToolTip", "t")},
        "<k:Parameter xmlns:k=\"u\" UniqueName=\"a\"><k:ToolTip>t</k:ToolTip></k:Parameter>");
    add("entity in a text",
        "<!DOCTYPE Parameter [<!ENTITY e \"x\"><!-- ]> "
        "-->]>\n<Parameter><ToolTip>a&e;b</ToolTip></Parameter>",
        {set("DisplayName", "t")},
        "<!DOCTYPE Parameter [<!ENTITY e \"x\"><!-- ]> -->]>\n<Parameter><DisplayName>t</DisplayName>"
        "<ToolTip>a&e;b</ToolTip></Parameter>");

    // Adding

    add("element in the order in which it is written", Job1, {set("JobHeader.Description", "d")},
        with(Job1, "</ShowJDH>\n", "</ShowJDH>\n    <Description>d</Description>\n"));
    add("elements behind others", Job1,
        {set("AntennaData.Polarization", "Slant"), set("AntennaData.Azimuth", "45")},
        with(Job1, "30000000</MaximumFrequency>\n",
             "30000000</MaximumFrequency>\n    <Azimuth>45</Azimuth>\n    "
             "<Polarization>Slant</Polarization>\n"));
    add("element before all others", with(Job1, "    <Name>East</Name>\n", ""),
        {set("AntennaData.Name", "B")}, with(Job1, ">East<", ">B<"));
    add("element before one that is removed",
        with(Job1, "</MaximumFrequency>\n", "</MaximumFrequency>\n    <Polarization>Slant</Polarization>\n"),
        {set("AntennaData.Azimuth", "45"), unset("AntennaData.Polarization")},
        with(Job1, "</MaximumFrequency>\n", "</MaximumFrequency>\n    <Azimuth>45</Azimuth>\n"));
    add("element behind one that is removed", Job1,
        {set("AntennaData.Azimuth", "45"), unset("AntennaData.MaximumFrequency")},
        with(Job1, "<MaximumFrequency>30000000</MaximumFrequency>", "<Azimuth>45</Azimuth>"));
    add("attribute behind one that is removed, and before one", Receiver,
        {unset("Parameter[Mode].Enum.EnumValue[0].Value"), unset("Parameter[Mode].Enum.EnumValue[1].Value"),
         set("Parameter[Mode].Enum.EnumValue[1].Identifier", "b")},
        with(with(Receiver, " Value=\"0.50\"", ""), "Name=\"B\" Value=\"1\"", "Name=\"B\" Identifier=\"b\""));
    add("parameter in place of another one", Receiver,
        {unset("Parameter[Mode]"), set("Parameter[Level].ToolTip", "t")},
        Receiver.left(Receiver.indexOf("    <Parameter", Receiver.indexOf("</Parameter>")))
            + "    <Parameter Version=\"1.0\" UniqueName=\"Level\">\n        <ToolTip>t</ToolTip>\n"
              "        <Enable>true</Enable>\n    </Parameter>\n    "
              "<Script>beep</Script>\n</GenericReceiver>\n");
    add("attribute that the document type declares",
        Declared + "<ActivityGeneration Version=\"2.0\">\n</ActivityGeneration>", {set("Autostart", "false")},
        Declared + "<ActivityGeneration Version=\"2.0\" Autostart=\"false\">\n</ActivityGeneration>");
    add("attributes that the document type declares",
        "<!DOCTYPE Parameter [<!ATTLIST EnumValue Key CDATA '1' Name CDATA 'A' Value CDATA '1.00'>]>\n"
        "<Parameter UniqueName='a'><ParameterType>Enum</ParameterType><Enum><EnumValue/></Enum></Parameter>",
        {set("Enum.EnumValue[0].Value", "3"), set("Enum.EnumValue[0].Key", "7")},
        "<!DOCTYPE Parameter [<!ATTLIST EnumValue Key CDATA '1' Name CDATA 'A' Value CDATA '1.00'>]>\n"
        "<Parameter UniqueName='a'><ParameterType>Enum</ParameterType><Enum><EnumValue Key=\"7\" "
        "Value=\"3\"/></Enum>"
        "</Parameter>");
    add("attribute that the document type declares, as it is", Declared + "<ActivityGeneration/>",
        {set("Autostart", "true")}, Declared + "<ActivityGeneration/>");
    add("attribute that the document type declares, away where it is given",
        Declared + "<ActivityGeneration Autostart=\"false\"/>", {unset("Autostart")},
        Declared + "<ActivityGeneration/>");
    add("behind the comment in the line",
        with(Job1, "</ShowJDH>\n", "</ShowJDH> <!-- a --><!-- b\n c --> \n"),
        {set("JobHeader.Description", "d")},
        with(Job1, "</ShowJDH>\n",
             "</ShowJDH> <!-- a --><!-- b\n c --> \n    <Description>d</Description>\n"));
    add("behind the comment of the parent", Job1, {set("JobHeader.JobType", "Exciter HF")},
        with(Job1, ">Antenna</JobType", ">Exciter HF</JobType"));
    add("first, behind the comment of the parent", with(Job1, "    <JobType>Antenna</JobType>\n", ""),
        {set("JobHeader.JobType", "Antenna")},
        with(with(Job1, "    <JobType>Antenna</JobType>\n", ""), "<!-- who -->\n",
             "<!-- who -->\n    <JobType>Antenna</JobType>\n"));
    add("in an element that holds a comment",
        "<AutomaticWorkflow>\n  <Mode>ManualMode</Mode>\n  <Area> <!-- none --> "
        "</Area>\n</AutomaticWorkflow>",
        {set("Area.Name", "a")},
        "<AutomaticWorkflow>\n  <Mode>ManualMode</Mode>\n  <Area> <!-- none --> \n    <Name>a</Name>\n  "
        "</Area>\n"
        "</AutomaticWorkflow>");
    const QByteArray shared =
        with(Job1, "</MaximumFrequency>\n", "</MaximumFrequency> <Polarization>Slant</Polarization>\n");
    add("between elements in one line", shared, {set("AntennaData.Azimuth", "45")},
        with(shared, "<Polarization>", "<Azimuth>45</Azimuth><Polarization>"));
    add("in place of the first element in a line", shared,
        {set("AntennaData.Azimuth", "45"), unset("AntennaData.MaximumFrequency")},
        with(shared, "<MaximumFrequency>30000000</MaximumFrequency> <Polarization>",
             "<Azimuth>45</Azimuth><Polarization>"));
    add("behind the comment of one that is removed", with(Job1, "</ShowJDH>\n", "</ShowJDH> <!-- a -->\n"),
        {set("JobHeader.Description", "d"), unset("JobHeader.ShowJDH")},
        with(Job1, "<ShowJDH>true</ShowJDH>\n", "<!-- a -->\n    <Description>d</Description>\n"));
    add("element as the library would hold it anyway", with(Job1, "    <ShowJDH>true</ShowJDH>\n", ""),
        {set("JobHeader.ShowJDH", "true")}, Job1);
    add("object", "<Job>\n  <ResourceType>Antenna</ResourceType>\n</Job>\n",
        {set("AntennaData.Name", "B"), set("AntennaData.Azimuth", "45")},
        "<Job>\n  <ResourceType>Antenna</ResourceType>\n  <AntennaData Version=\"1.0\">\n    <Name>B</Name>\n"
        "    <Azimuth>45</Azimuth>\n  </AntennaData>\n</Job>\n");
    add("in a document of one line", "<Job><ResourceType>Antenna</ResourceType></Job>",
        {set("JobHeader.Author", "a")},
        "<Job><JobHeader Version=\"1.0\"><Author>a</Author><ShowJDH>true</ShowJDH></JobHeader>"
        "<ResourceType>Antenna</ResourceType></Job>");
    add("in an empty element of many lines", "<AutomaticWorkflow\n  Version=\"1.0\"\n/>\n",
        {set("Mode", "ManualMode"), set("Classifiers", "7")},
        "<AutomaticWorkflow\n  Version=\"1.0\"\n>\n    <Mode>ManualMode</Mode>\n    "
        "<Classifiers>7</Classifiers>\n"
        "</AutomaticWorkflow>\n");
    add("in an element with a line end only", "<AutomaticWorkflow>\r\n</AutomaticWorkflow>",
        {set("Mode", "ManualMode")},
        "<AutomaticWorkflow>\r\n    <Mode>ManualMode</Mode>\r\n</AutomaticWorkflow>");
    add("attribute", with(Receiver, " Default=\"true\"", ""),
        {set("Parameter[Mode].Enum.EnumValue[0].Default", "true")}, Receiver);
    add("attribute between others", Receiver,
        {set("Parameter[Mode].Enum.EnumValue[1].Identifier", "b \"c\"")},
        with(Receiver, "Name=\"B\"", "Name=\"B\" Identifier=\"b &quot;c&quot;\""));
    add("attribute in single quotes", Receiver,
        {set("Parameter[Mode].Enum.EnumValue[0].Name", "A 'x' \"y\"")},
        with(Receiver, "'A \"1\"'", "'A &apos;x&apos; \"y\"'"));
    add("element of a list", Workflow, {set("Area.Coordinate", "9,10")},
        with(Workflow, "<Latitude>7</Latitude><Longitude>8</Longitude></Coordinate>\n",
             "<Latitude>7</Latitude><Longitude>8</Longitude></Coordinate>\n"
             "\t\t<Coordinate>\n\t\t\t<Latitude>9</Latitude>\n\t\t\t<Longitude>10</Longitude>\n\t\t</"
             "Coordinate>\n"));
    add("more elements of a list than have one digit",
        "<AutomaticWorkflow><Area>\n<Name>a</Name>\n</Area></AutomaticWorkflow>",
        Changes(12, set("Area.Coordinate", "1,2")) + Changes{set("Area.Coordinate", "3,4")},
        "<AutomaticWorkflow><Area>\n<Name>a</Name>\n"
            + QByteArray(
                  "<Coordinate>\n    <Latitude>1</Latitude>\n    <Longitude>2</Longitude>\n</Coordinate>\n")
                  .repeated(12)
            + "<Coordinate>\n    <Latitude>3</Latitude>\n    "
              "<Longitude>4</Longitude>\n</Coordinate>\n</Area></"
              "AutomaticWorkflow>");
    const QByteArray named =
        with(Workflow, "<Coordinate><Latitude>7", "<Coordinate UniqueName=\"a\"><Latitude>7");
    add("element of a list, behind one with an attribute that orders parameters", named,
        {set("Area.Coordinate", "9,10")},
        with(named, "<Longitude>8</Longitude></Coordinate>\n",
             "<Longitude>8</Longitude></Coordinate>\n"
             "\t\t<Coordinate>\n\t\t\t<Latitude>9</Latitude>\n\t\t\t<Longitude>10</Longitude>\n\t\t</"
             "Coordinate>\n"));
    add("element of a list, and another one changed", Workflow,
        {set("Area.Coordinate", "9,10"), set("Area.Coordinate[1].Latitude", "3.5")},
        with(with(Workflow, "<Latitude>3<", "<Latitude>3.5<"),
             "<Latitude>7</Latitude><Longitude>8</Longitude></Coordinate>\n",
             "<Latitude>7</Latitude><Longitude>8</Longitude></Coordinate>\n"
             "\t\t<Coordinate>\n\t\t\t<Latitude>9</Latitude>\n\t\t\t<Longitude>10</Longitude>\n\t\t</"
             "Coordinate>\n"));
    add("element of the list that counts",
        "<AutomaticWorkflow><Area><Coordinate/><Coordinate/></Area><Area><Coordinate><Latitude>1</Latitude>"
        "</Coordinate></Area></AutomaticWorkflow>",
        {set("Area.Coordinate[0].Latitude", "2"), set("Area.Coordinate", "3,4")},
        "<AutomaticWorkflow><Area><Coordinate/><Coordinate/></Area><Area><Coordinate><Latitude>2</Latitude>"
        "</Coordinate><Coordinate><Latitude>3</Latitude><Longitude>4</Longitude></Coordinate></Area>"
        "</AutomaticWorkflow>");
    add("element of a list, all its values", Workflow, {set("Area.Coordinate[1]", "9,4")},
        with(Workflow, "<Latitude>3<", "<Latitude>9<"));
    add("entry of an enumeration", Receiver, {set("Parameter[Mode].Enum.EnumValue", "3,C,,2")},
        with(Receiver, "Name=\"B\" Value=\"1\"/>\n",
             "Name=\"B\" Value=\"1\"/>\n            <EnumValue Key=\"3\" Name=\"C\" Value=\"2\"/>\n"));
    add("parameter, in the order of names", Receiver,
        {set("Parameter[Level].ParameterType", "Boolean"), set("Parameter[Level].Boolean.Value", "true"),
         set("Parameter[Level].RepresentationName", "r"), set("Parameter[Level].ValueType", "ValueBoolean")},
        with(Receiver, "    </Parameter>\n    <Parameter Version=\"1.0\" UniqueName=\"Mode\">",
             "    </Parameter>\n    <Parameter Version=\"1.0\" UniqueName=\"Level\">\n"
             "        <RepresentationName>r</RepresentationName>\n        "
             "<ValueType>ValueBoolean</ValueType>\n"
             "        <Enable>true</Enable>\n        <ParameterType>Boolean</ParameterType>\n"
             "        <Boolean>true</Boolean>\n    </Parameter>\n"
             "    <Parameter Version=\"1.0\" UniqueName=\"Mode\">"));
    add("value of a boolean", "<Parameter UniqueName='a'><ParameterType>Boolean</ParameterType></Parameter>",
        {set("Boolean.Value", "true")},
        "<Parameter "
        "UniqueName='a'><ParameterType>Boolean</ParameterType><Boolean>true</Boolean></Parameter>");
    add("mode of the older activity generation",
        "<ActivityGeneration Version=\"1.0\">AGED</ActivityGeneration>", {set("Mode", "AGSC")},
        "<ActivityGeneration Version=\"1.0\">AGSC</ActivityGeneration>");

    add("entry by its key", Receiver, {set("Parameter[Mode].Enum.EnumValue[Key=2].Name", "C")},
        with(Receiver, "Name=\"B\"", "Name=\"C\""));
    add("parameter that is called as a key",
        "<GenericReceiver><Parameter UniqueName='Key=2'/></GenericReceiver>",
        {set("Parameter[Key=2].ToolTip", "t")},
        "<GenericReceiver><Parameter UniqueName='Key=2'><ToolTip>t</ToolTip></Parameter></GenericReceiver>");

    add("entry by its key, in a parameter that is called as a key", with(Receiver, "\"Mode\"", "\"Key=1\""),
        {set("Parameter[Key=1].Enum.EnumValue[Key=2].Name", "C")},
        with(with(Receiver, "\"Mode\"", "\"Key=1\""), "Name=\"B\"", "Name=\"C\""));

    // Removing

    add("entry away by its key", Receiver, {unset("Parameter[Mode].Enum.EnumValue[Key=2]")},
        with(Receiver, "            <EnumValue Key=\"2\" Name=\"B\" Value=\"1\"/>\n", ""));
    add("element away", with(Job1, "</ShowJDH>\n", "</ShowJDH>\n    <Description>d</Description>\n"),
        {unset("JobHeader.Description")}, Job1);
    add("all of several elements",
        with(Job1, "<Name>East</Name>", "<Name>East</Name>\n    <Name>West</Name>"),
        {unset("AntennaData.Name"), set("JobHeader.Author", "B")},
        with(with(Job1, "    <Name>East</Name>\n", ""), "Mara & Co", "B"));
    add("element away, not the comment behind it", with(Job1, "</ShowJDH>\n", "</ShowJDH> <!-- a -->\n"),
        {unset("JobHeader.ShowJDH")}, with(Job1, "<ShowJDH>true</ShowJDH>\n", "<!-- a -->\n"));
    add("element away, not the one behind it",
        with(Job1, "<Name>East</Name>\n", "<Name>East</Name> <Azimuth>1</Azimuth>\n"),
        {unset("AntennaData.Name")}, with(Job1, "<Name>East</Name>", "<Azimuth>1</Azimuth>"));
    add("element away, not the one before it",
        with(Job1, "<Name>East</Name>\n", "<Name>East</Name><Azimuth>1</Azimuth>\n"),
        {unset("AntennaData.Azimuth")}, Job1);
    add("all elements of a line away",
        with(Job1, "<Name>East</Name>\n", "<Name>East</Name> <Azimuth>1</Azimuth> \n"),
        {unset("AntennaData.Azimuth"), unset("AntennaData.Name")}, with(Job1, "    <Name>East</Name>\n", ""));
    add("element away in the line in which its parent ends",
        with(Job1, "<MaximumFrequency>30000000</MaximumFrequency>\n  ",
             "<MaximumFrequency>30000000</MaximumFrequency>"),
        {unset("AntennaData.MaximumFrequency")},
        with(Job1, "\n    <MaximumFrequency>30000000</MaximumFrequency>\n  ", ""));
    add("attribute away", Receiver, {unset("Parameter[Mode].Enum.EnumValue[0].Default")},
        with(Receiver, " Default=\"true\"", ""));
    add("what is not there", Job1, {unset("JobHeader.Description")}, Job1);
    add("elements of a list", Workflow, {unset("Area.Coordinate[0]"), unset("Area.Coordinate[2]")},
        with(with(Workflow, "\t\t<Coordinate><Latitude>1</Latitude><Longitude>2</Longitude></Coordinate>\n",
                  ""),
             "\t\t<Coordinate><Latitude>5</Latitude><Longitude>7</Longitude></Coordinate>\n", ""));
    add("parameter away", Receiver, {unset("Parameter[Gain]")},
        Receiver.left(Receiver.indexOf("    <Parameter"))
            + Receiver.mid(Receiver.indexOf("    <Parameter", Receiver.indexOf("</Parameter>"))));
    add("parameter whose name is a number",
        "<GenericReceiver><Parameter UniqueName='1'/><Parameter UniqueName='2'/></GenericReceiver>",
        {unset("Parameter[1]")}, "<GenericReceiver><Parameter UniqueName='2'/></GenericReceiver>");
    add("lines that end with carriage returns", QByteArray(Job1).replace("\n", "\r\n"),
        {set("JobHeader.Description", "d"), unset("AntennaData.Name"), set("AntennaData.Azimuth", "1")},
        QByteArray(with(with(with(Job1, "    <Name>East</Name>\n", ""), "</ShowJDH>\n",
                             "</ShowJDH>\n    <Description>d</Description>\n"),
                        "30000000</MaximumFrequency>\n",
                        "30000000</MaximumFrequency>\n    <Azimuth>1</Azimuth>\n"))
            .replace("\n", "\r\n"));
}

void DocumentEditTest::changes()
{
    QFETCH(const QByteArray, text);
    QFETCH(const Changes, changes);
    QFETCH(const QByteArray, result);

    const DocumentEdit edit(text, changes, DocumentEdit::NewFindings::Accepted);
    QVERIFY2(edit.IsDone(), qPrintable(linesOf(edit.GetFindings())));
    QCOMPARE(QString::fromUtf8(edit.GetText()), QString::fromUtf8(result));
    QCOMPARE(edit.GetText(), result);
    QCOMPARE(edit.GetPlaces().isEmpty(), text == result);

    // Done again, only what adds something changes anything.
    const bool isAdding = std::any_of(changes.begin(), changes.end(), [](const Change &change) {
        return change.path.endsWith("Area.Coordinate") || change.path.endsWith("EnumValue")
            || change.path.endsWith(']');
    });
    if (!isAdding)
        QCOMPARE(DocumentEdit(result, changes, DocumentEdit::NewFindings::Accepted).GetText(), result);
}

void DocumentEditTest::refused_data()
{
    const QString first =
        "\nnot-edited : only a document that is read to its end can be changed; put that right first";
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<Changes>("changes");
    QTest::addColumn<QString>("findings");

    const auto add = [](const char *name, const QByteArray &text, const Changes &wanted,
                        const QString &findings) { QTest::newRow(name) << text << wanted << findings; };
    add("no document", "", {}, "not-well-formed : Premature end of document." + first);
    add("not UTF-8", "<Job>\xff</Job>", {},
        "encoding : byte 0xff is not UTF-8; it may be ISO-8859-1: \"iconv -f ISO-8859-1 -t UTF-8 FILE > "
        "NEWFILE\" "
        "converts it"
            + first);
    add("unknown kind", "<Root/>", {}, "unknown-kind : unknown kind of document 'Root'" + first);
    add("not read to its end", "<Job><Sort/></Job>", {set("ResourceType", "Antenna")},
        "refused : Unknown Tag 'Sort' in 'Job'." + first);
    add("no field", Job1, {set("Author", "a"), set("JobHeader.Author", "b")},
        "not-edited : there is no field 'Author'. Allowed: JobHeader, ResourceType, AntennaData");
    add("several errors", Job1, {set("JobHeader.ShowJDH", "yes"), set("AntennaData.Azimuth", "north")},
        "not-edited : JobHeader.ShowJDH: 'yes' is not allowed. Allowed: true, false\n"
        "not-edited : AntennaData.Azimuth: 'north' is not allowed. Allowed: finite number in degrees");
    add("field with a sign", Job1, {set("JobHeader.Author=a", "b")},
        "not-edited JobHeader.Author=a: there is no such field");
    add("no such key", Receiver, {set("Parameter[Mode].Enum.EnumValue[Key=3].Name", "C")},
        "not-edited Parameter[Mode].Enum.EnumValue[Key=3].Name: there is no element with this key");
    add("several with the key", with(Receiver, "Key=\"2\"", "Key=\"1\""),
        {set("Parameter[Mode].Enum.EnumValue[Key=1].Name", "C")},
        "not-edited Parameter[Mode].Enum.EnumValue[Key=1].Name: there are several elements with this key: "
        "call it by "
        "its index");
    add("more than two with the key",
        with(with(Receiver, "Key=\"2\"", "Key=\"1\""), "</Enum>", "<EnumValue Key=\"1\" Name=\"C\"/></Enum>"),
        {set("Parameter[Mode].Enum.EnumValue[Key=1].Name", "C")},
        "not-edited Parameter[Mode].Enum.EnumValue[Key=1].Name: there are several elements with this key: "
        "call it by its index");
    add("key without an end", Receiver, {unset("Parameter[Mode].Enum.EnumValue[Key=2")},
        "not-edited Parameter[Mode].Enum.EnumValue[Key=2: there is no such field in the document");
    add("nothing to unset", Job1, {unset("AntennaData.Colour")},
        "not-edited AntennaData.Colour: there is no such field in the document");
    add("the document", Job1, {unset("")}, "not-edited : there is no such field in the document");
    add("what no document says", Receiver, {set("Parameter[Gain].Integer.Value", "3")},
        "not-edited Parameter[Gain].Integer.Value: no document says it");
    add("an object that no document says", Receiver,
        {set("Parameter[Mode].Enum.DefaultValue", "1,A,,1,true")},
        "not-edited Parameter[Mode].Enum.DefaultValue: no document says it");
    add("a list that no document says",
        with(Receiver, "<ParameterType>Integer<", "<ParameterType>DoubleList<"),
        {set("Parameter[Gain].Double.DoubleList", "3")},
        "not-edited Parameter[Gain].Double.DoubleList: no document says it");
    add("one place twice", Job1, {set("AntennaData.Name", "b"), unset("AntennaData.Name")},
        "not-edited : two of the changes are of one place");
    add("what the document type declares", Declared + "<ActivityGeneration Version=\"2.0\"/>",
        {set("SessionCloseTime", "5"), unset("Autostart")},
        "not-edited Autostart: what the document type declares cannot be removed");
    const QByteArray old = "<ActivityGeneration Version=\"1.0\">AGED</ActivityGeneration>";
    add("element of a document that holds a text", old, {set("SessionCloseTime", "5")},
        "not-edited SessionCloseTime: documents of this version hold a text and no elements");
    add("text and element of a document that holds a text", old,
        {set("Mode", "AGSC"), set("SessionCloseTime", "5")},
        "not-edited SessionCloseTime: documents of this version hold a text and no elements");
    add("character", Job1, {set("AntennaData.Name", QString(QChar(1)))},
        "not-edited : holds a character that XML cannot carry");
    add("character in a path", Receiver, {set(QString("Parameter[%1].ToolTip").arg(QChar(1)), "t")},
        "not-edited : holds a character that XML cannot carry");
    add("element in an entity",
        "<!DOCTYPE Parameter [<!ENTITY e \"<ToolTip>t</ToolTip>\">]>\n<Parameter>&e;</Parameter>",
        {set("DisplayName", "t")}, "not-edited : what stands in an entity cannot be changed");
    add("finding that was not there before", Workflow, {unset("Mode")},
        "missing-element AutomaticWorkflow/Mode: missing");
    // Lists take their length from the one before them.
    add("what another parameter takes over",
        "<GenericReceiver><Parameter "
        "UniqueName='a'><RepresentationName>r</RepresentationName><ValueType>ValueFloatList"
        "</ValueType><ParameterType>DoubleList</ParameterType><Double><Default>1</Default>"
        "<MaxDoubleListLength>3</MaxDoubleListLength></Double></Parameter><Parameter UniqueName='b'>"
        "<RepresentationName>r</RepresentationName><ValueType>ValueFloatList</ValueType>"
        "<ParameterType>DoubleList</ParameterType><Double><Default>1</Default></Double></Parameter></"
        "GenericReceiver>",
        {set("Parameter[a].Double.MaxDoubleListLength", "4")},
        "not-edited Parameter[b].Double.MaxDoubleListLength: would be read as \"4\"");
}

void DocumentEditTest::refused()
{
    QFETCH(const QByteArray, text);
    QFETCH(const Changes, changes);
    QFETCH(const QString, findings);

    const DocumentEdit edit(text, changes);
    QVERIFY(!edit.IsDone());
    QCOMPARE(linesOf(edit.GetFindings()), findings);
    QCOMPARE(edit.GetText(), text);
    QVERIFY(edit.GetPlaces().isEmpty());
}

/// Those that were there before do not matter, those that are new only as the caller says.
void DocumentEditTest::newFindings()
{
    const QByteArray faulty = with(Workflow, "<Name>a", "<Name x=\"y\">a");
    QVERIFY(!Document(faulty).GetFindings().isEmpty());
    const DocumentEdit edit(faulty, {set("Area.Name", "b")});
    QVERIFY(edit.IsDone());
    QCOMPARE(edit.GetText(), with(faulty, ">a<", ">b<"));
    QVERIFY(edit.GetFindings().isEmpty());

    const DocumentEdit accepted(Workflow, {unset("Mode")}, DocumentEdit::NewFindings::Accepted);
    QVERIFY(accepted.IsDone());
    QCOMPARE(accepted.GetText(), with(Workflow, "\t<Mode>AutomaticMode</Mode>\n", ""));
    QCOMPARE(linesOf(accepted.GetFindings()), QString("missing-element AutomaticWorkflow/Mode: missing"));
}

/// Findings are told apart by what they say and by what of the document they say it of.
void DocumentEditTest::comparedFindings_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<Changes>("changes");
    QTest::addColumn<QString>("added"); // empty: none

    const auto add = [](const char *name, const QByteArray &text, const Changes &wanted,
                        const QString &added = {}) { QTest::newRow(name) << text << wanted << added; };
    const QByteArray faulty = with(Workflow, "<Latitude>5<", "<Latitude>95<");
    const auto latitude = [](const QString &value) {
        return "suspicious-latitude AutomaticWorkflow/Area/Coordinate/Latitude: " + value
            + " is not a latitude from -90 to 90 degrees";
    };
    add("beside it", faulty,
        {set("Area.Coordinate[2].Longitude", "9"), set("Area.Coordinate[1].Latitude", "9")});
    add("behind what is longer now", faulty,
        {set("Area.Name", "longer"), set("SearchStrategy", "HighestIdFirst")});
    add("before what is added and removed", faulty,
        {set("Area.Coordinate", "9,10"), unset("Area.Coordinate[1]")});
    add("moved up in the list", faulty, {unset("Area.Coordinate[0]"), set("Area.Name", "b")});
    add("one for another", faulty,
        {set("Area.Coordinate[0].Latitude", "97"), set("Area.Coordinate[2].Latitude", "9")}, latitude("97"));
    add("one removed for another", faulty,
        {set("Area.Coordinate[0].Latitude", "95"), unset("Area.Coordinate[2]")}, latitude("95"));
    add("one added, and not the old one", faulty, {set("Area.Coordinate[3].Latitude", "95")}, latitude("95"));
    add("the same of another value", faulty, {set("Area.Coordinate[2].Latitude", "96")}, latitude("96"));
    add("put right", faulty, {set("Area.Coordinate[2].Latitude", "6")});
    add("error in place of a warning", with(Job1, "1.500e6", "1,5 MHz"),
        {set("AntennaData.MinimumFrequency", "-1")},
        "bad-value Job/AntennaData/MinimumFrequency: \"-1\" is not 0 Hz or more");

    const QByteArray entries = "<EnumValue Key=\"0\" Name=\"A\"/><EnumValue Key=\"7\" Name=\"B\"/>"
                               "<EnumValue Key=\"0\" Name=\"C\"/>";
    const QByteArray keys =
        Receiver.left(Receiver.indexOf("<EnumValue")) + entries + Receiver.mid(Receiver.indexOf("</Enum>"));
    const auto key = [](const QString &name) { return "Parameter[Mode].Enum.EnumValue" + name; };
    const QString clash =
        "suspicious GenericReceiver/Parameter[Mode]/Enum/EnumValue: the entries 'B' and 'C' have "
        "the same key";
    add("entry with another key that is there", keys, {set(key("[2].Key"), "7")}, clash);
    add("entry with the same key, renamed", keys, {set(key("[2].Name"), "D"), set(key("[0].Name"), "E")});
    add("entry with the same key, of which the first is removed", with(keys, "Key=\"7\"", "Key=\"0\""),
        {unset(key("[0]"))});
    add("entry with the same key as one that is added",
        with(keys, "Key=\"0\" Name=\"C\"", "Key=\"1\" Name=\"C\""), {set(key(""), "7,D")},
        "suspicious GenericReceiver/Parameter[Mode]/Enum/EnumValue: the entries 'B' and 'D' have the same "
        "key");
    add("area that is still without extent",
        "<AutomaticWorkflow><Mode>ManualMode</Mode><Area><Name>a</Name><Coordinate><Latitude>1</"
        "Latitude><Longitude>2"
        "</Longitude></Coordinate></Area></AutomaticWorkflow>",
        {set("Area.Coordinate", "3,4")});
    add("block of another type that is still none",
        with(with(Receiver, "<ParameterType>Integer<", "<ParameterType>String<"), "</Integer>\n",
             "</Integer><Float><Default>1</Default></Float>\n"),
        {set("Parameter[Gain].ParameterType", "Float")});
}

void DocumentEditTest::comparedFindings()
{
    QFETCH(const QByteArray, text);
    QFETCH(const Changes, changes);
    QFETCH(const QString, added);

    const DocumentEdit accepted(text, changes, DocumentEdit::NewFindings::Accepted);
    QCOMPARE(linesOf(accepted.GetFindings()), added);
    const DocumentEdit edit(text, changes);
    QCOMPARE(edit.IsDone(), added.isEmpty());
    QCOMPARE(linesOf(edit.GetFindings()), added);
}

/// What is told of every parameter of a type keeps nobody from adding one.
void DocumentEditTest::inherentFindings()
{
    const DocumentEdit edit(
        Receiver,
        {set("Parameter[On].ParameterType", "Boolean"), set("Parameter[On].Boolean.Value", "true"),
         set("Parameter[On].RepresentationName", "r"), set("Parameter[On].ValueType", "ValueBoolean")});
    QVERIFY2(edit.IsDone(), qPrintable(linesOf(edit.GetFindings())));
    QCOMPARE(edit.GetFindings().size(), 1);
    QVERIFY(edit.GetFindings().first().GetMessage().startsWith(
        "the type of a boolean parameter is never written"));

    const DocumentEdit untyped(
        Receiver,
        {set("Parameter[On].ParameterType", "Boolean"), set("Parameter[On].RepresentationName", "r"),
         set("Parameter[On].ValueType", "ValueBoolean"), unset("Parameter[On].ParameterType")});
    QVERIFY(!untyped.IsDone());
    const DocumentEdit other(Receiver, {set("Parameter[Gain].Integer.Minimum", "50")});
    QVERIFY(!other.IsDone());
}

/// What goes with an element is named.
void DocumentEditTest::lostComments()
{
    const QByteArray text = with(with(Receiver, "<Integer>", "<Integer><!-- why\n0 --><?note?>"),
                                 "    <Script>", "    <!-- stays --><Script>");
    const DocumentEdit edit(text, {unset("Parameter[Gain]")});
    QVERIFY(edit.IsDone());
    QVERIFY(edit.GetText().contains("<!-- stays -->"));
    QCOMPARE(
        linesOf(edit.GetFindings()),
        QString(
            "lost-comment GenericReceiver/Parameter[Gain]/Integer: the comment \" why\\n0 \" is removed with "
            "what it stands in\n"
            "lost GenericReceiver/Parameter[Gain]/Integer: the instruction \"note\" is removed with what it "
            "stands in"));
    QCOMPARE(edit.GetFindings().first().GetOffset(), text.indexOf("<!-- why"));
    QCOMPARE(edit.GetFindings().first().GetSeverity(), Finding::Severity::Warning);
}

void DocumentEditTest::places()
{
    const DocumentEdit edit(
        "\xEF\xBB\xBF<Parameter>\n  <ToolTip>ü</ToolTip><DisplayName>a</DisplayName></Parameter>",
        {set("DisplayName", "b"), unset("ToolTip")}, DocumentEdit::NewFindings::Accepted);
    QVERIFY2(edit.IsDone(), qPrintable(linesOf(edit.GetFindings())));
    const QVector<DocumentEdit::Place> places = edit.GetPlaces();
    QCOMPARE(places.size(), 2);
    QCOMPARE(places.at(0).offset, qint64(17));
    QCOMPARE(places.at(0).line, qint64(2));
    QCOMPARE(places.at(0).column, qint64(3));
    QCOMPARE(places.at(0).removed, QByteArray("<ToolTip>ü</ToolTip>"));
    QCOMPARE(places.at(0).inserted, QByteArray());
    QCOMPARE(places.at(1).offset, qint64(51));
    QCOMPARE(places.at(1).line, qint64(2));
    QCOMPARE(places.at(1).column, qint64(36));
    QCOMPARE(places.at(1).removed, QByteArray("a"));
    QCOMPARE(places.at(1).inserted, QByteArray("b"));
}

void DocumentEditTest::nothing()
{
    const DocumentEdit none;
    QVERIFY(!none.IsDone());
    QVERIFY(none.GetText().isEmpty() && none.GetPlaces().isEmpty() && none.GetFindings().isEmpty());
}

namespace {

/// The paths of all fields that documents of the kind can say, with N and NAME for their keys.
QSet<QString> sayable(const QString &kind)
{
    QSet<QString> paths;
    for (const SettableField &field : settableFields(*findDocumentKind(kind)))
        paths += field.path;
    return paths;
}

QString generic(const QString &path)
{
    static const QRegularExpression name("\\[([^\\]\\\\]|\\\\.)*\\]");
    static const QRegularExpression index("(Coordinate|EnumValue|DoubleList)\\[\\d+\\]");
    return QString(path)
        .replace(index, "\\1[N]")
        .replace(QRegularExpression("Parameter\\[([^\\]\\\\]|\\\\.)*\\]"), "Parameter[NAME]");
}

/// What people may not expect, but follows from how the library reads documents.
bool isExpected(const QString &refusal)
{
    static const QRegularExpression reasons("^not-edited .*(would be|must be|cannot be set)",
                                            QRegularExpression::DotMatchesEverythingOption);
    // The older form of activity generation has one text only.
    return refusal.contains(reasons)
        || refusal.endsWith(": documents of this version hold a text and no elements");
}

/// Sets each field of \a text, or some of many, to something else and back again. \return how many were set
int setAndBack(const QByteArray &text)
{
    const Document document(text);
    const QSet<QString> paths = sayable(document.GetKind());
    const QVector<Field> fields = document.GetFields();
    const int step = fields.size() > 300 ? 23 : 1; // no divisor of the number of fields of a parameter
    int count = 0;
    for (int i = 0; i < fields.size(); i += step) {
        const Field &field = fields.at(i);
        if (!field.IsSettable() || !paths.contains(generic(field.GetPath())))
            continue;
        const Changes changes{set(field.GetPath(), TestSupport::otherText(field))};
        const DocumentEdit edit(text, changes, DocumentEdit::NewFindings::Accepted);
        if (!edit.IsDone()) {
            const QString why = linesOf(edit.GetFindings());
            if (!isExpected(why))
                QTest::qFail(qPrintable(field.GetPath() + ": " + why), __FILE__, __LINE__);
            continue;
        }
        ++count;
        const QVector<DocumentEdit::Place> places = edit.GetPlaces();
        const Document changed(edit.GetText());
        if (places.size() != 1 || changed.GetField(field.GetPath()).GetText() == field.GetText()) {
            QTest::qFail(qPrintable(field.GetPath() + " is not set: " + edit.GetText()), __FILE__, __LINE__);
            continue;
        }
        // All but the span is as it was.
        const auto &place = places.constFirst();
        QByteArray back = edit.GetText();
        back.replace(static_cast<int>(place.offset), place.inserted.size(), place.removed);
        if (back != text)
            QTest::qFail(qPrintable(field.GetPath() + ": other bytes changed"), __FILE__, __LINE__);

        // What is given in references or not valid cannot be given again, and texts may be empty.
        const bool isGivenAgain = !place.removed.isEmpty() && place.removed != "/>"
            && !place.removed.contains('&') && !place.removed.contains('<');
        const bool isAdded =
            place.removed.isEmpty() && place.inserted.contains(field.GetPath().section('.', -1).toUtf8());
        if (!isGivenAgain && !isAdded)
            continue;
        const QString owner = field.GetPath().section('.', 0, -2);
        const QString addedPath =
            place.inserted.trimmed().startsWith('<' + owner.section('.', -1).toUtf8()) && !owner.isEmpty()
            ? owner
            : field.GetPath();
        const DocumentEdit again(
            edit.GetText(),
            {isAdded ? unset(addedPath) : set(field.GetPath(), QString::fromUtf8(place.removed))},
            DocumentEdit::NewFindings::Accepted);
        if (again.GetText() != text && !linesOf(again.GetFindings()).contains("is not allowed"))
            QTest::qFail(qPrintable(field.GetPath() + " does not come back: " + linesOf(again.GetFindings())
                                    + '\n' + again.GetText()),
                         __FILE__, __LINE__);
    }
    return count;
}

} // namespace

/// Thousands of elements of a list can be added, changed and removed at once.
void DocumentEditTest::manyElements()
{
    constexpr int Count = 3000;
    const QByteArray text =
        "<AutomaticWorkflow><Mode>ManualMode</Mode><Area><Name>a</Name></Area></AutomaticWorkflow>";
    QElapsedTimer timer;
    timer.start();
    Changes adding;
    Changes removing;
    for (int i = 0; i < Count; ++i) {
        adding += set("Area.Coordinate", QString("1,%1").arg(i % 180));
        removing += unset(QString("Area.Coordinate[%1]").arg(i));
    }
    const DocumentEdit added(text, adding);
    QVERIFY(added.IsDone());
    QCOMPARE(added.GetText().count("<Coordinate>"), Count);
    const DocumentEdit removed(added.GetText(), removing, DocumentEdit::NewFindings::Accepted);
    QVERIFY(removed.IsDone());
    QCOMPARE(removed.GetText().count("<Coordinate>"), 0);
    QVERIFY2(timer.elapsed() < 60'000, qPrintable(QString::number(timer.elapsed()))); // quadratic: minutes
}

/// Findings tell places in the bytes as they were given.
void DocumentEditTest::offsetsBehindAByteOrderMark()
{
    const QByteArray mark = "\xEF\xBB\xBF";
    const QByteArray text = "<Parameter UniqueName='a'>\n<Sort/></Parameter>";
    const DocumentEdit plain(text, {});
    const DocumentEdit marked(mark + text, {});
    QCOMPARE(plain.GetFindings().size(), 2);
    QCOMPARE(plain.GetFindings().last().GetMessage(),
             QString("only a document that is read to its end can be changed; put that right first"));
    QCOMPARE(plain.GetFindings().first().GetOffset(), text.indexOf("<Sort/>"));
    QCOMPARE(marked.GetFindings().first().GetOffset(), mark.size() + text.indexOf("<Sort/>"));

    const QByteArray name = "<Job><JobHeader><JobType>antenna</JobType></JobHeader></Job>";
    const DocumentEdit fix = DocumentEdit::Fix(mark + name);
    QCOMPARE(fix.GetCorrected().size(), 1);
    QCOMPARE(fix.GetCorrected().first().GetOffset(), mark.size() + name.indexOf("<JobType>"));
    QCOMPARE(fix.GetFindings().first().GetOffset() >= mark.size(), true);
}

void DocumentEditTest::everyFieldOfExamples_data()
{
    DocumentSamples::addExamples();
}

void DocumentEditTest::everyFieldOfExamples()
{
    QFETCH(const QString, path);
    const QByteArray text = DocumentSamples::contentOf(path);
    if (!Document(text).GetObject()) {
        QVERIFY(!DocumentEdit(text, {}).IsDone());
        return;
    }
    QVERIFY(setAndBack(text) > 0);
}

void DocumentEditTest::everyFieldOfRandomDocuments_data()
{
    QTest::addColumn<QString>("kind");
    for (const QString &name : documentKindNames())
        QTest::newRow(qPrintable(name)) << name;
}

void DocumentEditTest::everyFieldOfRandomDocuments()
{
    QFETCH(const QString, kind);
    constexpr int Count = 12;
    TestSupport::RandomDocuments random(20'261'122);
    int count = 0;
    for (int i = 0; i < Count && !QTest::currentTestFailed(); ++i)
        count += setAndBack(random.document(kind, i).toUtf8());
    QVERIFY(count > Count);
}

QTEST_GUILESS_MAIN(DocumentEditTest)
#include "DocumentEditTest.moc"
