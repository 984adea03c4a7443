#include <tests/support/ToolSupport.h>

#include <QProcess>
#include <QRegularExpression>
#include <QStandardPaths>
#include <QThread>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace ToolSupport;

class CheckCommandTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void good_data();
    void good();
    void suspicious_data();
    void suspicious();
    void faulty_data();
    void faulty();
    void namesThatAreAllowed();
    void notText_data();
    void notText();
    void otherEncodings_data();
    void otherEncodings();
    void unreadable_data();
    void unreadable();
    void fileWithoutPermission();
    void namesOfFiles();
    void namesThatCannotBePrinted();
    void standardInput();
    void standardInputAmongFiles();
    void lint();
    void strict_data();
    void strict();
    void quiet_data();
    void quiet();
    void allFilesAreGoneThrough_data();
    void allFilesAreGoneThrough();
    void folders_data();
    void folders();
    void foldersThatCannotBeGoneThrough();
    void linksBelowFolders_data();
    void linksBelowFolders();
    void whatIsNoFileBelowFolders();
    void namesThatAreNotUtf8();
    void order_data();
    void order();
    void json();
    void jsonOfEveryKindOfFinding();
    void progress();
    void resultsAreToldAtOnce();
    void largeDocument();
    void deeplyNestedDocument();
    void manyProblems_data();
    void manyProblems();
};

namespace {

/// The complete workflow with three corners of its area.
QByteArray plausibleWorkflow()
{
    const QByteArray corner = "<Coordinate><Latitude>5%1</Latitude><Longitude>8</Longitude></Coordinate>";
    return with(completeWorkflow(), "    </Area>",
                QByteArray(corner).replace("%1", "4") + QByteArray(corner).replace("%1", "5") + "</Area>");
}

} // namespace

void CheckCommandTest::good_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("state");

    const QString complete = "Job, complete";
    QTest::newRow("complete") << completeJob() << complete;
    QTest::newRow("byte-order mark") << "\xEF\xBB\xBF" + completeJob() << complete;
    QTest::newRow("another encoding declared, with the same characters")
        << jobWith("\"1.0\"?>", "\"1.0\" encoding=\"ISO-8859-1\"?>") << complete;
    QTest::newRow("its encoding declared")
        << jobWith("\"1.0\"?>", "\"1.0\" encoding=\"utf-8\"?>").replace("Mara", "M\xC3\xA4ra") << complete;
    QTest::newRow("without declaration") << jobWith("<?xml version=\"1.0\"?>\n", "") << complete;
    QTest::newRow("comments, instructions and a document type")
        << jobWith("<Job Version", "<!-- a --><?b c?><!DOCTYPE Job><Job Version") << complete;
    QTest::newRow("characters of two, three and four bytes")
        << jobWith("Mara Lind",
                   "\xC2\x80\xDF\xBF\xE0\xA0\x80\xED\x9F\xBF\xEE\x80\x80\xEF\xBF\xBD\xF0\x90\x80\x80"
                   "\xF4\x8F\xBF\xBD")
        << complete;
    QTest::newRow("bound to its schema")
        << jobWith("<Job ",
                   "<Job xmlns:xsi=\"http://www.w3.org/2001/XMLSchema-instance\" "
                   "xsi:noNamespaceSchemaLocation=\"Job.xsd\" ")
        << complete;
    QTest::newRow("in a namespace") << jobWith("<Job ",
                                               "<Job xmlns=\"urn:a\" xmlns:b=\"urn:b\" xml:lang=\"de\" ")
                                           .replace("Author>", "b:Author>")
                                    << complete;
    QTest::newRow("workflow") << plausibleWorkflow() << "AutomaticWorkflow, complete";
    QTest::newRow("activity generation") << completeGeneration() << "ActivityGeneration, complete";
    QTest::newRow("activity generation in the older form")
        << QByteArray("<ActivityGeneration Version='1.0' Autostart='true'>AGMC</ActivityGeneration>")
        << "ActivityGeneration, complete";
    QTest::newRow("receiver") << completeReceiver() << "GenericReceiver, complete";
    QTest::newRow("receiver without parameters")
        << QByteArray("<GenericReceiver><Script a='b'>x<y/></Script></GenericReceiver>")
        << "GenericReceiver, complete";
    QTest::newRow("parameter") << completeParameter() << "Parameter, complete";
}

void CheckCommandTest::good()
{
    QFETCH(QByteArray, document);
    QFETCH(QString, state);

    Folder folder;
    folder.write("job.xml", document);
    const Run run = folder.run({"check", "job.xml"});
    QCOMPARE(run.err, QString());
    QCOMPARE(run.out, "job.xml: " + state + "\n");
    QCOMPARE(run.status, 0);
}

namespace {

/// The lines that the tool writes of job.xml, each of which begins with a place and a severity. Of the names
/// that are allowed, only the first is compared.
QString linesOfJob(const QStringList &lines)
{
    QString text;
    for (const QString &line : lines)
        text += "job.xml:" + line + '\n';
    return text;
}

QString withFirstNames(QString text)
{
    return text.replace(QRegularExpression("\\(allowed: ([^,)]*), [^)]*\\)"), "(allowed: \\1, ...)");
}

/// The last line of what is told of several files; as many of each as are not 0.
QString summaryOf(const std::vector<std::pair<qsizetype, QString>> &counts)
{
    qsizetype files = 0;
    QStringList parts;
    for (const auto &[count, name] : counts) {
        files += count;
        if (count > 0)
            parts << QString::number(count) + ' ' + name;
    }
    return QString("%1 %2: %3\n")
        .arg(QString::number(files), files == 1 ? "file" : "files", parts.join(", "));
}

const QString Incomplete = ", not complete: the library accepts it but would write nothing for it";

} // namespace

void CheckCommandTest::suspicious_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("state");
    QTest::addColumn<QStringList>("lines"); // without the severity

    const auto add = [](const char *name, const QByteArray &document, const QString &state,
                        const QStringList &lines) { QTest::newRow(name) << document << state << lines; };
    const QString job = "Job, complete";
    const QString area = "AutomaticWorkflow/Area";

    const QString declared = " is declared, but the text is read as UTF-8";
    add("another encoding declared",
        jobWith("\"1.0\"?>", "\"1.0\" encoding='ISO-8859-1'?>").replace("Mara", "M\xC3\xA4ra"), job,
        {"1:31 the encoding ISO-8859-1" + declared});
    add("ASCII declared",
        jobWith("\"1.0\"?>", "\"1.0\" encoding='us-ascii'?>").replace("Mara", "M\xC3\xA4ra"), job,
        {"1:31 the encoding us-ascii" + declared});
    add("another encoding declared that is not of bytes",
        jobWith("\"1.0\"?>", "\"1.0\" encoding=\"UTF-16\"?>"), job, {"1:31 the encoding UTF-16" + declared});
    add("another encoding declared, and another finding",
        "<?xml version='1.0' encoding='UTF-16'?>"
            + jobWith("<?xml version=\"1.0\"?>\n", "").replace(">true<", ">yes<"),
        job,
        {"1:31 the encoding UTF-16" + declared,
         "6:9 Job/JobHeader/ShowJDH: \"yes\" is not a boolean; it reads as false (allowed: true, ...)"});
    add("job on another resource", jobOnDecoder(), "Job" + Incomplete,
        {"9:5 Job/ResourceType: only a job on the resource \"Antenna\" is ever complete; the library would "
         "write "
         "nothing for this one"});
    add("antenna of a job on another resource", jobOnDecoder().replace("        <Name>East</Name>\n", ""),
        "Job" + Incomplete,
        {"9:5 Job/ResourceType: only a job on the resource \"Antenna\" is ever complete; the library would "
         "write "
         "nothing for this one"});
    add("data header flag that is empty", jobWith("<ShowJDH>true</ShowJDH>", "<ShowJDH/>"),
        "Job" + Incomplete,
        {"7:9 Job/JobHeader/ShowJDH: is empty: the header is not complete, and the library would write "
         "nothing"});
    add("data header flag in capitals", jobWith(">true<", ">TRUE<"), job,
        {"7:9 Job/JobHeader/ShowJDH: \"TRUE\" is not a boolean; it reads as false; did you mean "
         "\"true\"? (allowed: true, ...)"});
    add("frequency with a unit", jobWith(">1500000<", ">1.5 MHz<"), job,
        {"12:9 Job/AntennaData/MinimumFrequency: \"1.5 MHz\" is not a number; it reads as 0"});
    add("azimuth that no double can hold", jobWith("<Name>", "<Azimuth>1e400</Azimuth><Name>"), job,
        {"11:9 Job/AntennaData/Azimuth: \"1e400\" is not a number; it reads as 0"});
    add("polarization in lower case", jobWith("<Name>", "<Polarization>slant</Polarization><Name>"), job,
        {"11:9 Job/AntennaData/Polarization: \"slant\" is not a known name; it reads as \"not set\"; did you "
         "mean \"Slant\"? (allowed: Horizontal, ...)"});
    add("element given twice", jobWith("<Author>", "<Author>Someone</Author><Author>"), job,
        {"5:33 Job/JobHeader/Author: given before; the last one counts"});
    add("element given twice, the first bad", jobWith("<JobType>", "<JobType>x</JobType>\n<JobType>"), job,
        {"4:9 Job/JobHeader/JobType: \"x\" is not a known name; it reads as \"not set\" (allowed: Antenna, "
         "...)",
         "5:1 Job/JobHeader/JobType: given before; the last one counts"});
    add("header given twice, in parts",
        jobWith("        <Author>Mara Lind</Author>\n", "")
            .replace("    <ResourceType>", "<JobHeader><Author>A</Author></JobHeader><ResourceType>"),
        job, {"8:1 Job/JobHeader: given before; the last one counts"});
    add("unknown attributes",
        jobWith("<Name>", "<Name lang='de'>").replace("<Job Version", "<Job Autor='a' Version"), job,
        {"2:1 Job/@Autor: unknown attribute, which is passed over (allowed: Version)",
         "11:9 Job/AntennaData/Name/@lang: unknown attribute, which is passed over"});
    add("text between elements", jobWith("<Name>", "a <Name>").replace("<ResourceType>", "b\n<ResourceType>"),
        job, {"2:1 Job: the text \"b\" is not read", "11:5 Job/AntennaData: the text \"a\" is not read"});
    add("name of more than one line", jobWith("<Job Version", "<Job\n a='b' Version"), job,
        {"2:1 Job/@a: unknown attribute, which is passed over (allowed: Version)"});

    add("workflow without a strategy",
        with(plausibleWorkflow(), "    <SearchStrategy>LowestLevelFirst</SearchStrategy>\n", ""),
        "AutomaticWorkflow" + Incomplete,
        {"2:1 AutomaticWorkflow/SearchStrategy: missing (allowed: LowestIdFirst, ...)"});
    add("mode of a workflow in two places", with(plausibleWorkflow(), "Workflow V", "Workflow Mode='x' V"),
        "AutomaticWorkflow, complete",
        {"2:1 AutomaticWorkflow/@Mode: is not read: the mode is read from an element \"Mode\""});
    add("area without a name", with(plausibleWorkflow(), "        <Name>North</Name>\n", ""),
        "AutomaticWorkflow, complete", {"9:5 " + area + "/Name: missing"});
    add("area with an empty name", with(plausibleWorkflow(), "<Name>North</Name>", "<Name/>"),
        "AutomaticWorkflow, complete", {"10:9 " + area + "/Name: is empty"});
    add("coordinate in parts",
        with(completeWorkflow(), "<Coordinate>", "<Coordinate/><Coordinate>").replace("53.55", "53,55"),
        "AutomaticWorkflow, complete",
        {"9:5 " + area + ": the area is a line: it has the coordinates of two points only",
         "11:9 " + area + "/Coordinate/Latitude: missing", "11:9 " + area + "/Coordinate/Longitude: missing",
         "12:13 " + area
             + "/Coordinate/Latitude: \"53,55\" is not a number; it reads as 0; did you mean \"53.55\"?"});

    add("unknown setting of activity generation",
        with(completeGeneration(), "<CutAtLocations>", "<CutAtPlaces><Mode/></CutAtPlaces><CutAtLocations>")
            .replace("<SessionCloseTime>", "<DbWriteDc>Never</DbWriteDc><SessionCloseTime>"),
        "ActivityGeneration, complete",
        {"20:5 ActivityGeneration/CutAtPlaces: unknown element, which is passed over (allowed: "
         "CutAtLocations, ...)",
         "21:5 ActivityGeneration/DbWriteDc: is passed over: a setting of older systems, which is no more"});
    add("texts of activity generation",
        with(completeGeneration(), ">DDem<", ">CDem<")
            .replace(">0.2<", ">1e39<")
            .replace(">65<", ">65.0<")
            .replace("=\"true\"", "=\"1\""),
        "ActivityGeneration, complete",
        {"2:1 ActivityGeneration/@Autostart: \"1\" is not a boolean; it reads as false (allowed: true, ...)",
         "4:5 ActivityGeneration/EnergyChannel: \"CDem\" is not a known name; it reads as \"not set\"; did "
         "you "
         "mean \"ADem\" or \"DDem\"? (allowed: ADem, ...)",
         "5:5 ActivityGeneration/LevelMinBurstDuration: \"1e39\" is not a number of single precision; it "
         "reads as "
         "0",
         "10:5 ActivityGeneration/DDemMorseQualityThreshold: \"65.0\" is not a whole number of 32 bits; it "
         "reads "
         "as 0"});
    add("unknown attribute of activity generation in the older form",
        "<ActivityGeneration Version='1.0' Auto='true'>AGMC</ActivityGeneration>",
        "ActivityGeneration, complete",
        {"1:1 ActivityGeneration/@Auto: unknown attribute, which is passed over (allowed: Version, ...)"});

    add("incomplete parameters",
        "<GenericReceiver>\n<Parameter/>\n<Parameter UniqueName='P'><ValueType>x</ValueType>"
        "<RepresentationName/></Parameter></GenericReceiver>",
        "GenericReceiver" + Incomplete,
        {"2:1 GenericReceiver/Parameter/@UniqueName: missing",
         "2:1 GenericReceiver/Parameter/ParameterType: missing (allowed: Boolean, ...)",
         "2:1 GenericReceiver/Parameter/ValueType: missing (allowed: ValueSelection, ...)",
         "2:1 GenericReceiver/Parameter/RepresentationName: missing",
         "3:1 GenericReceiver/Parameter[P]/ParameterType: missing (allowed: Boolean, ...)",
         "3:27 GenericReceiver/Parameter[P]/ValueType: \"x\" is not a known name; it reads as \"not set\" "
         "(allowed: ValueString, ...)",
         "3:51 GenericReceiver/Parameter[P]/RepresentationName: is empty"});
    add("parameter type that is unknown behind one that is known",
        with(completeParameter(), "    <Integer>", "<ParameterType>int</ParameterType><Integer>"),
        "Parameter, complete",
        {"7:1 Parameter[Gain]/ParameterType: given before; the last one counts",
         "7:1 Parameter[Gain]/ParameterType: \"int\" is not a known name; it leaves the type as it was "
         "(allowed: Integer, ...)"});
    add("texts of a block", with(completeParameter(), ">0<", ">0x<").replace("<Default>20<", "<Default><"),
        "Parameter, complete",
        {"8:9 Parameter[Gain]/Integer/Minimum: \"0x\" is not a whole number of 32 bits; it reads as 0",
         "10:9 Parameter[Gain]/Integer/Default: \"\" is not a whole number of 32 bits; it reads as 0"});
    add("unknown elements of a block",
        with(completeParameter(), "<Minimum>0</Minimum>",
             "<Limits><Unit><Dim/></Unit><Minimum>x</Minimum><Precision/></Limits>"),
        "Parameter, complete",
        {"8:9 Parameter[Gain]/Integer/Limits: unknown element, which is passed over (allowed: Minimum, ...)",
         "8:36 Parameter[Gain]/Integer/Limits/Minimum: \"x\" is not a whole number of 32 bits; it reads as "
         "0"});
    add("entries",
        with(completeReceiver(), "Key=\"1\"", "Size='3' Key=\"one\"")
            .replace("Default=\"true\"/>", "Default=\"yes\">text<a/></EnumValue>"),
        "GenericReceiver, complete",
        {"9:13 GenericReceiver/Parameter[Filter]/Enum/EnumValue/@Size: unknown attribute, which is passed "
         "over "
         "(allowed: Key, ...)",
         "9:13 GenericReceiver/Parameter[Filter]/Enum/EnumValue/@Key: \"one\" is not a whole number of 32 "
         "bits; it "
         "reads as 0",
         "10:13 GenericReceiver/Parameter[Filter]/Enum/EnumValue/@Default: \"yes\" is not a boolean; it "
         "reads as "
         "false (allowed: true, ...)",
         "10:13 GenericReceiver/Parameter[Filter]/Enum/EnumValue: the text \"text\" is not read",
         "10:90 GenericReceiver/Parameter[Filter]/Enum/EnumValue/a: unknown element, which is passed over "
         "(allowed: "
         "EnumValue)"});
    add("default of a string as an attribute",
        "<Parameter "
        "UniqueName='P'><RepresentationName>r</RepresentationName><ValueType>ValueString</ValueType>"
        "<ParameterType>String</ParameterType>\n<String "
        "Default='a'><Default>b</Default></String></Parameter>",
        "Parameter, complete",
        {"2:1 Parameter[P]/String/@Default: is not read: the default is read from an element \"Default\""});
    add("what a block that is not closed takes in",
        "<Parameter "
        "UniqueName='P'><RepresentationName>r</RepresentationName><ValueType>ValueFloatList</ValueType>"
        "<ParameterType>DoubleList</ParameterType>\n<DoubleList><Foo/><MaxDoubleListLength>1</"
        "MaxDoubleListLength>"
        "</DoubleList><Bar/><Minimum>x</Minimum></Parameter>",
        "Parameter, complete",
        {"2:1 Parameter[P]/DoubleList: a block \"DoubleList\" is read on to the next end of a \"Double\"; "
         "open it as "
         "that",
         "2:13 Parameter[P]/DoubleList/Foo: unknown element, which is passed over (allowed: Minimum, ...)"});
}

void CheckCommandTest::suspicious()
{
    QFETCH(QByteArray, document);
    QFETCH(QString, state);
    QFETCH(QStringList, lines);

    Folder folder;
    folder.write("job.xml", document);
    const Run run = folder.run({"check", "job.xml"});
    QCOMPARE(withFirstNames(run.err),
             linesOfJob(lines.replaceInStrings(QRegularExpression("^(\\S+) "), "\\1: warning: ")));
    QCOMPARE(run.out, "job.xml: " + state + "\n");
    QCOMPARE(run.status, 0);
}

void CheckCommandTest::faulty_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QStringList>("lines");

    const auto add = [](const char *name, const QByteArray &document, const QStringList &lines) {
        QTest::newRow(name) << document << lines;
    };
    const QString unknownInAntenna = " unknown element; did you mean \"Name\"? (allowed: Name, ...)";
    const QString unknownInJob = " unknown element (allowed: JobHeader, ...)";

    add("unknown element", jobWith("<Name>East</Name>", "<Nam>East</Nam>"),
        {"10:5: error: Job/AntennaData/Name: missing",
         "11:9: error: Job/AntennaData/Nam:" + unknownInAntenna});
    add("unknown element with attributes on several lines",
        jobWith("<ResourceType>", "<Extra\n a='>'\n b='1'/><ResourceType>"),
        {"9:5: error: Job/Extra:" + unknownInJob});
    add("unknown element behind a comment",
        jobWith("<ResourceType>", "<!-- <Extra> --><Extra/><ResourceType>"),
        {"9:21: error: Job/Extra:" + unknownInJob});
    add("unknown element behind characters of several code units",
        jobWith("<Name>East</Name>", "<Name>\xF0\x9F\x93\xA1\xC3\xA4</Name><Nam/>"),
        {"11:24: error: Job/AntennaData/Nam:" + unknownInAntenna});
    add("unknown element behind lines of every end",
        jobWith("<ResourceType>", "<!--\r\n\r--><Foo/><ResourceType>"),
        {"11:4: error: Job/Foo:" + unknownInJob});
    add("unknown element behind a byte-order mark",
        jobWith("<?xml version=\"1.0\"?>\n", "\xEF\xBB\xBF").replace("<Job Version=\"1.0\">", "<Job><Foo/>"),
        {"1:6: error: Job/Foo:" + unknownInJob});
    add("unknown elements, and what is in them",
        jobWith("<ResourceType>", "<A><B/><JobHeader/></A><C/><ResourceType>"),
        {"9:5: error: Job/A:" + unknownInJob, "9:28: error: Job/C:" + unknownInJob});
    add("unknown element with a prefix", jobWith("<ResourceType>", "<a:Foo xmlns:a='urn:a'/><ResourceType>"),
        {"9:5: error: Job/a:Foo:" + unknownInJob});
    add("element in a text", jobWith("Mara Lind", "Mara\n<b>Lind</b>"),
        {"6:1: error: Job/JobHeader/Author/b: an element where a text belongs"});
    add("element in a text, and more behind it",
        jobWith("Mara Lind", "<b/>").replace("<Name>East</Name>", "<Name>E<i>a</i>st</Name><Nam/>"),
        {"5:17: error: Job/JobHeader/Author/b: an element where a text belongs",
         "11:16: error: Job/AntennaData/Name/i: an element where a text belongs",
         "11:33: error: Job/AntennaData/Nam:" + unknownInAntenna});

    add("field of the header missing", jobWithoutAuthor(), {"3:5: error: Job/JobHeader/Author: missing"});
    add("field of the antenna missing", jobWith("<Name>East</Name>", ""),
        {"10:5: error: Job/AntennaData/Name: missing"});
    add("empty texts", jobWith("Mara Lind", "").replace("<Name>East</Name>", "<Name></Name>"),
        {"5:9: error: Job/JobHeader/Author: is empty", "11:9: error: Job/AntennaData/Name: is empty"});
    add("nothing but the resource", "<Job><ResourceType>Antenna</ResourceType></Job>",
        {"1:1: error: Job/JobHeader: missing", "1:1: error: Job/AntennaData: missing"});
    add("empty parts", "<Job>\n<JobHeader/>\n<ResourceType>Antenna</ResourceType>\n<AntennaData/></Job>",
        {"2:1: error: Job/JobHeader/Author: missing", "2:1: error: Job/JobHeader/Creation: missing",
         "2:1: error: Job/JobHeader/JobType: missing (allowed: Production SC HF, ...)",
         "4:1: error: Job/AntennaData/Name: missing", "4:1: error: Job/AntennaData/MinimumFrequency: missing",
         "4:1: error: Job/AntennaData/MaximumFrequency: missing"});
    add("antenna without a resource",
        jobWith("    <ResourceType>Antenna</ResourceType>\n", "").replace("        <Name>East</Name>\n", ""),
        {"2:1: error: Job/ResourceType: missing (allowed: Receiver HF, ...)",
         "9:5: error: Job/AntennaData/Name: missing"});
    add("empty job", "\n\n  <Job/>",
        {"3:3: error: Job/JobHeader: missing",
         "3:3: error: Job/ResourceType: missing (allowed: Receiver HF, ...)"});
    add("texts that read as not set",
        jobWith(">Antenna</JobType", ">Exciter</JobType")
            .replace("00:59:59,250Z", "00:59:59Z")
            .replace("<ResourceType>Antenna", "<ResourceType>antenna"),
        {"4:9: error: Job/JobHeader/JobType: \"Exciter\" is not a known name; it reads as \"not set\" "
         "(allowed: Exciter HF, ...)",
         "6:9: error: Job/JobHeader/Creation: \"2026-03-29T00:59:59Z\" is not a time such as "
         "2026-03-15T22:00:00,000Z; it reads as \"not set\"; did you mean \"2026-03-29T00:59:59,000Z\"?",
         "9:5: error: Job/ResourceType: \"antenna\" is not a known name; it reads as \"not set\"; did you "
         "mean "
         "\"Antenna\"? (all names: kormak list ResourceType)"});
    add("element given twice, the last bad", jobWith("</JobType>", "</JobType><JobType>x</JobType>"),
        {"4:35: warning: Job/JobHeader/JobType: given before; the last one counts",
         "4:35: error: Job/JobHeader/JobType: \"x\" is not a known name; it reads as \"not set\" (allowed: "
         "Antenna, ...)"});
    add("frequencies that make no range", jobWith(">1500000<", ">-1<").replace(">30000000<", ">0<"),
        {"12:9: error: Job/AntennaData/MinimumFrequency: \"-1\" is not 0 Hz or more",
         "13:9: error: Job/AntennaData/MaximumFrequency: \"0\" is not above 0 Hz and the minimum frequency"});
    add("frequencies that are equal", jobWith(">1500000<", ">3e7<"),
        {"13:9: error: Job/AntennaData/MaximumFrequency: \"30000000\" is not above 0 Hz and the minimum "
         "frequency"});
    add("frequency without a number", jobWith(">30000000<", ">high<"),
        {"13:9: error: Job/AntennaData/MaximumFrequency: \"high\" is not a number; it reads as 0"});
    add("search job", jobWith(">Antenna</JobType>", ">Search MC VUHF</JobType><ConnectableResource/>"),
        {"4:9: error: Job/JobHeader/JobType: a search job needs a connectable resource, for which a document "
         "has no "
         "element: no such job is ever complete",
         "4:42: error: Job/JobHeader/ConnectableResource: unknown element (allowed: Author, ...)"});

    add("unknown kind in another encoding", "<?xml version='1.0' encoding='UTF-32'?>\n<Work/>",
        {"1:31: warning: the encoding UTF-32 is declared, but the text is read as UTF-8",
         "2:1: error: unknown kind of document 'Work' (allowed: Job, ...)"});
    add("unknown kind", "<!-- <Job> -->\n <Work a='1'/>",
        {"2:2: error: unknown kind of document 'Work' (allowed: Job, ...)"});
    add("part of a document", "<JobHeader/>",
        {"1:1: error: unknown kind of document 'JobHeader' (allowed: Job, ...)"});
    add("kind in another case", "<parameter/>",
        {"1:1: error: unknown kind of document 'parameter'; did you mean \"Parameter\"? (allowed: Job, "
         "...)"});
    add("empty workflow", "\n<AutomaticWorkflow/>",
        {"2:1: error: AutomaticWorkflow/Mode: missing (allowed: ManualMode, ...)"});
    add("mode of a workflow as an attribute", "<AutomaticWorkflow Version='1.0' Mode='ManualMode'/>",
        {"1:1: warning: AutomaticWorkflow/@Mode: is not read: the mode is read from an element \"Mode\"",
         "1:1: error: AutomaticWorkflow/Mode: missing (allowed: ManualMode, ...)"});
    add("unknown element in an area",
        with(completeWorkflow(), "<Coordinate>", "<Centre/><Coordinate><Height/>"),
        {"11:9: error: AutomaticWorkflow/Area/Centre: unknown element (allowed: Name, ...)",
         "11:30: error: AutomaticWorkflow/Area/Coordinate/Height: unknown element (allowed: Latitude, ...)"});
    add("settings of a workflow out of range",
        with(completeWorkflow(), ">8<", ">24<")
            .replace(">25<", ">0<")
            .replace(">4<", ">4.0<")
            .replace(">LowestLevelFirst<", ">First<")
            .replace(">true<", ">1<"),
        {"4:5: error: AutomaticWorkflow/Classifiers: \"24\" is not a whole number from 1 to 23",
         "5:5: error: AutomaticWorkflow/ClassificationTime: \"0\" is not a whole number from 1 to 999",
         "6:5: error: AutomaticWorkflow/ClassificationResult: \"4.0\" is not a whole number from 1 to 10",
         "7:5: error: AutomaticWorkflow/SearchStrategy: \"First\" is not a known name (allowed: "
         "LowestIdFirst, ...)",
         "8:5: warning: AutomaticWorkflow/BitstreamClassification: \"1\" is not a boolean; it reads as false "
         "(allowed: true, ...)"});
    add("empty activity generation", "<ActivityGeneration Version='2.2'/>",
        {"1:1: error: ActivityGeneration/Mode: missing (allowed: AGSC, ...)"});
    add("mode of the older form", "<ActivityGeneration Version='1.0' Autostart='no'>AG</ActivityGeneration>",
        {"1:1: warning: ActivityGeneration/@Autostart: \"no\" is not a boolean; it reads as false (allowed: "
         "true, "
         "...)",
         "1:1: error: ActivityGeneration: \"AG\" is not a known name; it reads as \"not set\" (allowed: "
         "AGSC, ...)"});
    add("element in the older form",
        "<ActivityGeneration Version='1.0'>\n<Mode>AGMC</Mode></ActivityGeneration>",
        {"2:1: error: ActivityGeneration/Mode: an element where a text belongs"});
    add("empty parameter", "\n  <Parameter/>",
        {"2:3: error: Parameter/@UniqueName: missing",
         "2:3: error: Parameter/ParameterType: missing (allowed: Boolean, ...)",
         "2:3: error: Parameter/ValueType: missing (allowed: ValueSelection, ...)",
         "2:3: error: Parameter/RepresentationName: missing"});
    add("empty name of a parameter", with(completeParameter(), "\"Gain\"", "\"\""),
        {"2:1: error: Parameter[]/@UniqueName: is empty"});
    add("unknown elements in parameters",
        with(completeReceiver(), "        <Float>", "        <Colour/><Float>").replace("rx.filter", "<i/>"),
        {"4:29: error: GenericReceiver/Parameter[Filter]/RepresentationName/i: an element where a text "
         "belongs",
         "18:9: error: GenericReceiver/Parameter[Level]/Colour: unknown element (allowed: Long, ...)"});
    add("unknown element in a receiver",
        with(completeReceiver(), "</GenericReceiver>", "<Job/></GenericReceiver>"),
        {"25:1: error: GenericReceiver/Job: unknown element (allowed: Parameter, ...)"});
    add("element behind the first end of a block",
        with(completeParameter(), "<Integer>", "<Integer><Integer/>").replace("<Minimum>0<", "<Minimum>x<"),
        {"7:14: warning: Parameter[Gain]/Integer/Integer: unknown element, which is passed over (allowed: "
         "Minimum, ...)",
         "8:9: error: Parameter[Gain]/Integer/Minimum: unknown element (allowed: Enum, ...)",
         "9:9: error: Parameter[Gain]/Integer/Maximum: unknown element (allowed: Enum, ...)",
         "10:9: error: Parameter[Gain]/Integer/Default: unknown element (allowed: Enable, ...)"});
    add("element in a text that a block which is not closed takes in",
        with(completeParameter(), "    <Integer>", "<DoubleList/><Integer>").replace(">0<", "><b/><"),
        {"8:18: error: Parameter[Gain]/Integer/Minimum/b: an element where a text belongs"});
    add("block of a type with an element in a number", with(completeParameter(), ">40<", ">\n <b>40</b><"),
        {"10:2: error: Parameter[Gain]/Integer/Maximum/b: an element where a text belongs"});

    add("block of a type with a wrong end tag", with(completeParameter(), "</Maximum>", "</Minimum>"),
        {"9:29: error: Parameter[Gain]/Integer/Maximum: Opening and ending tag mismatch."});
    add("block of a type cut off", completeParameter().left(completeParameter().indexOf("        <Default>")),
        {"10:1: error: Parameter[Gain]/Integer: Premature end of document."});
    add("block of a type in a receiver with an unknown entity",
        with(completeReceiver(), ">120.000000<", ">&most;<"),
        {"20:27: error: GenericReceiver/Parameter[Level]/Float/Maximum: Entity 'most' not declared."});
    add("empty file", "", {"1:1: error: Premature end of document."});
    add("no element", "<!-- a -->\n", {"2:1: error: Premature end of document."});
    add("no XML", "Job", {"1:1: error: Start tag expected."});
    add("cut off", completeJob().left(completeJob().indexOf("    <ResourceType>")),
        {"9:1: error: Job: Premature end of document."});
    add("cut off in a text", completeJob().left(completeJob().indexOf("500000</Min")),
        {"12:28: error: Job/AntennaData/MinimumFrequency: Premature end of document."});
    const QByteArray twoProblems = jobWith(">true<", ">yes<").replace("<Name>", "<Nam/><Name>");
    add("problems before the place where it is cut off", twoProblems.left(twoProblems.indexOf("    </Ant")),
        {"7:9: warning: Job/JobHeader/ShowJDH: \"yes\" is not a boolean; it reads as false (allowed: true, "
         "...)",
         "11:9: error: Job/AntennaData/Nam:" + unknownInAntenna,
         "14:1: error: Job/AntennaData: Premature end of document."});
    add("wrong end tag", jobWith("</Name>", "</Nam>"),
        {"11:24: error: Job/AntennaData/Name: Opening and ending tag mismatch."});
    add("text behind the document", completeJob() + "x", {"16:1: error: Extra content at end of document."});
    add("text behind the document that is refused", jobWith("<ResourceType>", "<Foo/><ResourceType>") + "x",
        {"9:5: error: Job/Foo:" + unknownInJob, "16:1: error: Extra content at end of document."});
    add("unknown entity", jobWith("Mara Lind", "Mara &amp; &nobody;"),
        {"5:35: error: Job/JobHeader/Author: Entity 'nobody' not declared."});
    add("character outside XML", jobWith("Mara Lind", "Mara\x01"),
        {"5:21: error: Job/JobHeader/Author: Unexpected ''."});
    add("prefix that is not declared", jobWith("<Author>Mara", "<Author x:a='b'>Mara"),
        {"5:24: error: Job/JobHeader: Namespace prefix 'x' not declared"});
    const auto twice = [](const char *name) {
        return QString(" The namespace declaration '%1' stands twice in one element.").arg(name);
    };
    add("namespace that is declared twice", jobWith("<Author>", "<Author xmlns=\"a\" xmlns=\"a\">"),
        {"5:27: error: Job/JobHeader:" + twice("xmlns")});
    add("prefix that is declared twice, with an attribute between",
        jobWith("<JobHeader Ver", "<JobHeader xmlns:x='a' x:b='' xmlns:x='a' Ver"),
        {"3:35: error: Job:" + twice("xmlns:x")});
    add("prefix that is declared twice in the root", jobWith("<Job Ver", "<Job xmlns:x='a' xmlns:x='b' Ver"),
        {"2:18: error:" + twice("xmlns:x")});
    add("namespace that is declared twice in the root, without children", "<Job xmlns=\"a\" xmlns=\"a\"/>",
        {"1:16: error:" + twice("xmlns")});
    add("namespace that is declared twice, behind what is refused",
        jobWith("<ResourceType>", "<Foo/><ResourceType xmlns='a' xmlns='a'>"),
        {"9:5: error: Job/Foo:" + unknownInJob, "9:35: error: Job:" + twice("xmlns")});
    add("namespace that is declared twice in an entity",
        "<!DOCTYPE Job [<!ENTITY e \"<JobHeader xmlns:x='a' xmlns:x='a'/>\">]>\n<Job>&e;</Job>",
        {"2:1: error: Job:" + twice("xmlns:x")});
}

void CheckCommandTest::faulty()
{
    QFETCH(QByteArray, document);
    QFETCH(QStringList, lines);

    Folder folder;
    folder.write("job.xml", document);
    const Run run = folder.run({"check", "job.xml"});
    QCOMPARE(withFirstNames(run.err), linesOfJob(lines));
    QCOMPARE(run.out, QString());
    QCOMPARE(run.status, 1);
}

void CheckCommandTest::namesThatAreAllowed()
{
    Folder folder;
    folder.write("job.xml", with(completeWorkflow(), ">LowestLevelFirst<", ">&#10;%1<"));
    const Run run = folder.run({"check", "job.xml"});
    QCOMPARE(
        run.err,
        QString(
            "job.xml:7:5: error: AutomaticWorkflow/SearchStrategy: \"\\n%1\" is not a known name (allowed: "
            "LowestIdFirst, HighestIdFirst, LowestLevelFirst, HighestLevelFirst; 3 more: kormak list "
            "SearchStrategy)\n"));
    folder.write("settings.xml", with(completeGeneration(), "<CutAtLocations>", "<Foo/><CutAtLocations>"));
    QCOMPARE(
        folder.run({"check", "settings.xml"}).err,
        QString("settings.xml:20:5: warning: ActivityGeneration/Foo: unknown element, which is passed over "
                "(allowed: Mode, ClassStopScore, CutAtLocations, ClassFinalScore; 16 more: kormak new "
                "ActivityGeneration --list-fields)\n"));
}

void CheckCommandTest::notText_data()
{
    QTest::addColumn<QByteArray>("text"); // behind four characters of the second line
    QTest::addColumn<QString>("message");

    QTest::newRow("Latin-1") << QByteArray("\xE4r") << "byte 0xe4 is not UTF-8";
    QTest::newRow("continuation alone") << QByteArray("\x80") << "byte 0x80 is not UTF-8";
    QTest::newRow("overlong in two bytes") << QByteArray("\xC1\xBF") << "byte 0xc1 is not UTF-8";
    QTest::newRow("overlong in three bytes") << QByteArray("\xE0\x9F\xBF") << "byte 0xe0 is not UTF-8";
    QTest::newRow("overlong in four bytes") << QByteArray("\xF0\x8F\xBF\xBF") << "byte 0xf0 is not UTF-8";
    QTest::newRow("surrogate") << QByteArray("\xED\xA0\x80") << "byte 0xed is not UTF-8";
    QTest::newRow("behind the last character") << QByteArray("\xF4\x90\x80\x80") << "byte 0xf4 is not UTF-8";
    QTest::newRow("never in UTF-8") << QByteArray("\xFF") << "byte 0xff is not UTF-8";
    QTest::newRow("third byte wrong") << QByteArray("\xE2\x82(") << "byte 0xe2 is not UTF-8";
    QTest::newRow("fourth byte missing") << QByteArray("\xF0\x9F\x93") << "byte 0xf0 is not UTF-8";
    QTest::newRow("NUL") << QByteArray(1, '\0') << "the text holds a NUL byte";
    QTest::newRow("NUL before a wrong byte") << QByteArray("\0\xFF", 2) << "the text holds a NUL byte";
}

void CheckCommandTest::notText()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, message);

    const QByteArray begin = "<Job>\n\xC3\xA4\xF0\x9F\x93\xA1xy";
    for (const QByteArray &end : {QByteArray(), QByteArray("</Job>\xFF")}) {
        Folder folder;
        folder.write("job.xml", begin + text + end);
        const Run run = folder.run({"check", "job.xml"});
        QCOMPARE(run.err, "job.xml:2:5: error: " + message + "\n");
        QCOMPARE(run.status, 1);
    }
}

void CheckCommandTest::otherEncodings_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("message"); // "%1" is FILE
    QTest::addColumn<QString>("warning"); // of the converted document

    const auto add = [](const char *name, const QByteArray &document, const QString &problem,
                        const QString &words, const QString &encoding, const QString &warning = {}) {
        QTest::newRow(name) << document
                            << QString("%1; it %2 %3: \"iconv -f %3 -t UTF-8 FILE > NEWFILE\" converts it")
                                   .arg(problem, words, encoding)
                            << warning;
    };
    const QString nul = "the text holds a NUL byte";
    const QString text = QString::fromUtf8(completeJob());
    const QByteArray marks = "\xEF\xBB\xBF";
    const auto wide = [](const QString &characters, int size, bool isBigEndian) {
        QByteArray bytes;
        for (const QChar c : characters) {
            QByteArray character(size, '\0');
            character[isBigEndian ? size - 1 : 0] = static_cast<char>(c.unicode() & 0xFFU);
            character[isBigEndian ? size - 2 : 1] = static_cast<char>(c.unicode() >> 8U);
            bytes += character;
        }
        return bytes;
    };
    const QString marked = QChar(0xFEFF) + text;
    add("UTF-16, little endian, with a mark", wide(marked, 2, false), "byte 0xff is not UTF-8", "is",
        "UTF-16");
    add("UTF-16, big endian, with a mark", wide(marked, 2, true), "byte 0xfe is not UTF-8", "is", "UTF-16");
    add("UTF-32, little endian, with a mark", wide(marked, 4, false), "byte 0xff is not UTF-8", "is",
        "UTF-32");
    add("UTF-32, big endian, with a mark", wide(marked, 4, true), nul, "is", "UTF-32");
    add("UTF-16, little endian", wide(text, 2, false), nul, "is", "UTF-16LE");
    add("UTF-16, big endian", wide(text, 2, true), nul, "is", "UTF-16BE");
    add("UTF-32, little endian", wide(text, 4, false), nul, "is", "UTF-32LE");
    add("UTF-32, big endian", wide(text, 4, true), nul, "is", "UTF-32BE");
    add("UTF-16 that says so",
        wide(QString(marked).replace("\"1.0\"?>", "\"1.0\" encoding='UTF-16'?>"), 2, false),
        "byte 0xff is not UTF-8", "is", "UTF-16",
        "1:31: warning: the encoding UTF-16 is declared, but the text is read as UTF-8");
    add("Latin-1", jobWith("Mara", "M\xE4ra"), "byte 0xe4 is not UTF-8", "may be", "ISO-8859-1");
    add("Windows", jobWith("Mara", "\x93Mara\x94"), "byte 0x93 is not UTF-8", "may be", "WINDOWS-1252");
    add("what is declared", jobWith("\"1.0\"?>", "\"1.0\" encoding='ISO-8859-2'?>").replace("Mara", "\xA9ra"),
        "byte 0xa9 is not UTF-8", "says that it is", "ISO-8859-2",
        "1:31: warning: the encoding ISO-8859-2 is declared, but the text is read as UTF-8");
    add("declared as UTF-8", jobWith("\"1.0\"?>", "\"1.0\" encoding='UTF-8'?>").replace("Mara", "M\xE4ra"),
        "byte 0xe4 is not UTF-8", "may be", "ISO-8859-1");

    const auto addUnclear = [](const char *name, const QByteArray &document, const QString &problem) {
        QTest::newRow(name) << document << problem << "";
    };
    addUnclear("UTF-8 with a fault", jobWith("Mara", "M\xC3\xA4ra").replace("Lind", "L\xEFnd"),
               "byte 0xef is not UTF-8");
    addUnclear("surrogate", jobWith("Mara", "\xED\xA0\x80"), "byte 0xed is not UTF-8");
    addUnclear("no document", "Mara\xE4", "byte 0xe4 is not UTF-8");
    addUnclear("no text", "<\x01\xE4", "byte 0xe4 is not UTF-8");
    addUnclear("NUL in a text", jobWith("Mara", QByteArray("\0", 1)), nul);
    addUnclear("NUL behind the first character", QByteArray("<\0Job/>", 7), nul);
    addUnclear("nothing but marks", marks + "\xFF", "byte 0xff is not UTF-8");
}

/// What is advised does it.
void CheckCommandTest::otherEncodings()
{
    QFETCH(QByteArray, document);
    QFETCH(QString, message);
    QFETCH(QString, warning);

    Folder folder;
    folder.write("job.xml", document);
    const Run run = folder.run({"check", "job.xml"});
    QVERIFY2(run.err.endsWith(": error: " + message + "\n"), qPrintable(run.err));
    QCOMPARE(run.status, 1);
    const QString call = message.section('"', 1, 1);
    if (call.isEmpty() || QStandardPaths::findExecutable("iconv").isEmpty())
        return;
    QProcess shell;
    shell.setWorkingDirectory(folder.path("."));
    shell.start("sh", {"-c", QString(call).replace("NEWFILE", "new.xml").replace("FILE", "job.xml")});
    QVERIFY(shell.waitForFinished());
    QCOMPARE(shell.exitCode(), 0);
    const Run converted = folder.run({"check", "new.xml"});
    QCOMPARE(converted.err, warning.isEmpty() ? QString() : "new.xml:" + warning + "\n");
    QCOMPARE(converted.out, QString("new.xml: Job, complete\n"));
}

void CheckCommandTest::unreadable_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("reason");

    QTest::newRow("missing") << "none.xml"
                             << "No such file or directory";
    QTest::newRow("in a missing folder") << "none/job.xml"
                                         << "No such file or directory";
    QTest::newRow("empty name") << ""
                                << "No file name specified";
    QTest::newRow("below a file") << "job.xml/job.xml"
                                  << "Not a directory";
    QTest::newRow("link to itself") << "loop"
                                    << "Too many levels of symbolic links";
}

void CheckCommandTest::unreadable()
{
    QFETCH(QString, name);
    QFETCH(QString, reason);

    Folder folder;
    folder.write("job.xml", completeJob());
    QVERIFY(QFile::link("loop", folder.path("loop")));
    const Run run = folder.run({"check", name});
    QCOMPARE(run.err, name + ": error: cannot be read: " + reason + "\n");
    QCOMPARE(run.out, QString());
    QCOMPARE(run.status, 2);
}

void CheckCommandTest::fileWithoutPermission()
{
    Folder folder;
    folder.write("job.xml", completeJob());
    QVERIFY(QFile::setPermissions(folder.path("job.xml"), QFile::WriteOwner));
    if (QFile(folder.path("job.xml")).open(QIODevice::ReadOnly)) {
        skip("this user may read everything");
        return;
    }
    const Run run = folder.run({"check", "job.xml"});
    QCOMPARE(run.err, QString("job.xml: error: cannot be read: Permission denied\n"));
    QCOMPARE(run.status, 2);
}

void CheckCommandTest::namesOfFiles()
{
    const QString name = QString::fromUtf8("l\xC3\xA4ngs %1 -.xml");
    Folder folder;
    folder.environment.insert("LC_ALL", "C.UTF-8");
    folder.write(name, jobWithoutAuthor());
    folder.write("-x", completeJob());
    const Run run = folder.run({"check", "--", name, "-x", folder.path("-x")});
    QCOMPARE(run.err, name + ":3:5: error: Job/JobHeader/Author: missing\n");
    QCOMPARE(run.out,
             "-x: Job, complete\n" + folder.path("-x") + ": Job, complete\n3 files: 2 good, 1 at fault\n");
    QCOMPARE(run.status, 1);
}

void CheckCommandTest::namesThatCannotBePrinted()
{
    const QString name = QString("a\n\x1B[2J") + QChar(0x202E) + "lmx.xml";
    const QString shown = "a\\n\\u001b[2J\\u202elmx.xml";
    Folder folder;
    folder.environment.insert("LC_ALL", "C.UTF-8");
    folder.write(name, completeJob());
    const Run good = folder.run({"check", name});
    QCOMPARE(good.out, shown + ": Job, complete\n");
    QCOMPARE(good.err, QString());

    folder.write(
        name,
        jobWith("<Name>", "<Nam/><Name>").replace("30000000", QString("3%1").arg(QChar(0x202E)).toUtf8()));
    const Run faulty = folder.run({"check", "."});
    QCOMPARE(faulty.err.count('\n'), 2);
    QVERIFY2(faulty.err.startsWith("./" + shown + ":11:9: error: "), qPrintable(faulty.err));
    QVERIFY2(faulty.err.contains("./" + shown
                                 + ":13:9: error: Job/AntennaData/MaximumFrequency: \"3\\u202e\" is not"),
             qPrintable(faulty.err));
    QCOMPARE(faulty.status, 1);

    const Run json = folder.run({"check", "--format", "json", name});
    QCOMPARE(jsonLines(json.out).constFirst()["file"].toString(), name);
    QVERIFY(!json.out.contains(QChar(0x202E)));
}

void CheckCommandTest::standardInput()
{
    const Folder folder;
    const Run good = folder.run({"check", "-"}, completeJob());
    QCOMPARE(good.out, QString("-: Job, complete\n"));
    QCOMPARE(good.err, QString());
    QCOMPARE(good.status, 0);
    const Run faulty = folder.run({"check", "-"}, jobWithoutAuthor());
    QCOMPARE(faulty.out, QString());
    QCOMPARE(faulty.err, QString("-:3:5: error: Job/JobHeader/Author: missing\n"));
    QCOMPARE(faulty.status, 1);
}

void CheckCommandTest::standardInputAmongFiles()
{
    Folder folder;
    folder.write("a.xml", completeJob());
    const Run run = folder.run({"check", "a.xml", "-", "a.xml"}, completeParameter());
    QCOMPARE(run.out,
             QString("a.xml: Job, complete\n-: Parameter, complete\na.xml: Job, complete\n"
                     "3 files: 3 good\n"));
    const Run twice = folder.run({"check", "-", "-"}, completeParameter());
    QCOMPARE(twice.err, QString("kormak check: standard input can be read only once\n"));
    QCOMPARE(twice.status, 2);
}

void CheckCommandTest::lint()
{
    Folder folder;
    folder.write("a.xml",
                 with(completeReceiver(), ">-20.000000<", ">200<").replace("Key=\"2\"", "Key=\"1\""));
    folder.write("b.xml", with(completeParameter(), ">20<", ">50<").replace("Gain", "G&#10;ain%1"));
    folder.write("c.xml",
                 with(completeParameter(), "    <Integer>", "    <Foo/><Integer>").replace(">20<", ">50<"));
    const Run run = folder.run({"check", "a.xml", "b.xml", "c.xml"});
    QCOMPARE(
        withFirstNames(run.err),
        QString(
            "a.xml:10:13: warning: GenericReceiver/Parameter[Filter]/Enum/EnumValue: the entries 'Narrow' "
            "and "
            "'Wide' have the same key\n"
            "a.xml:19:13: warning: GenericReceiver/Parameter[Level]/Float/Minimum: the minimum 200 is above "
            "the maximum 120\n"
            "b.xml:10:9: warning: Parameter[G\\nain%1]/Integer/Default: the default 50 is above the maximum "
            "40\n"
            "c.xml:7:5: error: Parameter[Gain]/Foo: unknown element (allowed: Float, ...)\n"));
    const QString states = "a.xml: GenericReceiver, complete\nb.xml: Parameter, complete\n";
    QCOMPARE(run.out, states + "3 files: 2 with warnings, 1 at fault\n");
    QCOMPARE(run.status, 1);

    const Run suspicious = folder.run({"check", "a.xml", "b.xml"});
    QCOMPARE(suspicious.out, states + "2 files: 2 with warnings\n");
    QCOMPARE(suspicious.status, 0);
}

namespace {

const QStringList Verdicts{"good", "warned", "unwritten", "faulty", "missing"};

/// A file called after each of the verdicts that there can be on one.
void writeOneOfEach(Folder &folder)
{
    folder.write("good.xml", completeJob());
    folder.write("warned.xml", jobWith(">true<", ">TRUE<"));
    folder.write("unwritten.xml", jobOnDecoder());
    folder.write("faulty.xml", jobWithoutAuthor());
}

} // namespace

void CheckCommandTest::strict_data()
{
    QTest::addColumn<QString>("names");
    QTest::addColumn<int>("status");
    QTest::addColumn<int>("strictStatus");
    QTest::addColumn<QString>("summary");

    QTest::newRow("good") << "good good" << 0 << 0 << "2 files: 2 good";
    QTest::newRow("with warnings") << "good warned good" << 0 << 1 << "3 files: 2 good, 1 with warnings";
    QTest::newRow("never written") << "unwritten good" << 0 << 1 << "2 files: 1 good, 1 never written";
    QTest::newRow("at fault") << "faulty warned" << 1 << 1 << "2 files: 1 with warnings, 1 at fault";
    QTest::newRow("unreadable") << "missing unwritten" << 2 << 2 << "2 files: 1 never written, 1 unreadable";
    QTest::newRow("one of each") << Verdicts.join(" ") << 2 << 2
                                 << "5 files: 1 good, 1 with warnings, 1 never written, 1 at fault, "
                                    "1 unreadable";
}

void CheckCommandTest::strict()
{
    QFETCH(QString, names);
    QFETCH(int, status);
    QFETCH(int, strictStatus);
    QFETCH(QString, summary);

    Folder folder;
    writeOneOfEach(folder);
    QStringList files = names.split(' ');
    files.replaceInStrings(QRegularExpression("$"), ".xml");
    const Run run = folder.run(QStringList{"check"} + files);
    QCOMPARE(run.status, status);
    QVERIFY2(run.out.endsWith('\n' + summary + '\n') || run.out == summary + '\n', qPrintable(run.out));
    const Run strict = folder.run(QStringList{"check", "--strict"} + files);
    QCOMPARE(strict.status, strictStatus);
    QCOMPARE(strict.out, run.out);
    QCOMPARE(strict.err, run.err);

    const Run json = folder.run(QStringList{"check", "--strict", "--format", "json"} + files);
    QCOMPARE(json.status, strictStatus);
    const QJsonObject counts = jsonLines(json.out).constLast();
    const QStringList keys{"good", "withWarnings", "neverWritten", "faulty", "unreadable"};
    for (int i = 0; i < keys.size(); ++i)
        QCOMPARE(counts[keys[i]].toInt(), static_cast<int>(files.count(Verdicts[i] + ".xml")));
    QCOMPARE(counts["files"].toInt(), static_cast<int>(files.size()));
}

void CheckCommandTest::quiet_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("out");
    QTest::addColumn<QStringList>("files"); // of which JSON tells

    const QString unwritten = "unwritten.xml: Job" + Incomplete + '\n';
    QTest::newRow("good") << QStringList{"good.xml"} << "" << QStringList();
    QTest::newRow("several good") << QStringList{"good.xml", "good.xml"} << "" << QStringList();
    QTest::newRow("with warnings") << QStringList{"good.xml", "warned.xml"}
                                   << "2 files: 1 good, 1 with warnings\n"
                                   << QStringList{"warned.xml"};
    QTest::newRow("never written") << QStringList{"unwritten.xml"} << unwritten
                                   << QStringList{"unwritten.xml"};
    QTest::newRow("at fault") << QStringList{"faulty.xml"} << "" << QStringList{"faulty.xml"};
    QTest::newRow("one of each") << QStringList{".", "missing.xml"}
                                 << "./" + unwritten
            + "5 files: 1 good, 1 with warnings, 1 never written, 1 at fault, 1 unreadable\n"
                                 << QStringList{"./faulty.xml", "./unwritten.xml", "./warned.xml",
                                                "missing.xml"};
}

void CheckCommandTest::quiet()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, out);
    QFETCH(QStringList, files);

    Folder folder;
    writeOneOfEach(folder);
    const Run loud = folder.run(QStringList{"check"} + arguments);
    const Run quiet = folder.run(QStringList{"check", "-q"} + arguments);
    QCOMPARE(quiet.out, out);
    QCOMPARE(quiet.err, loud.err);
    QCOMPARE(quiet.status, loud.status);

    const Run json = folder.run(QStringList{"check", "--quiet", "--format", "json"} + arguments);
    QStringList told;
    bool isSummedUp = false;
    for (const QJsonObject &line : jsonLines(json.out)) {
        if (line["type"] == "file")
            told << line["file"].toString();
        isSummedUp = isSummedUp || line["type"] == "summary";
    }
    QCOMPARE(told, files);
    QCOMPARE(isSummedUp, !files.isEmpty());
}

void CheckCommandTest::allFilesAreGoneThrough_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<int>("status");

    QTest::newRow("good") << QStringList{"good.xml", "good.xml"} << 0;
    QTest::newRow("good, faulty") << QStringList{"good.xml", "faulty.xml"} << 1;
    QTest::newRow("faulty, good") << QStringList{"faulty.xml", "good.xml"} << 1;
    QTest::newRow("good, missing") << QStringList{"good.xml", "missing.xml"} << 2;
    QTest::newRow("faulty, missing, good") << QStringList{"faulty.xml", "missing.xml", "good.xml"} << 2;
    QTest::newRow("missing, good, faulty") << QStringList{"missing.xml", "good.xml", "faulty.xml"} << 2;
}

void CheckCommandTest::allFilesAreGoneThrough()
{
    QFETCH(QStringList, names);
    QFETCH(int, status);

    Folder folder;
    folder.write("good.xml", completeJob());
    folder.write("faulty.xml", jobWithoutAuthor());
    QString out;
    QString err;
    for (const QString &name : names) {
        if (name == "good.xml")
            out += "good.xml: Job, complete\n";
        else if (name == "faulty.xml")
            err += "faulty.xml:3:5: error: Job/JobHeader/Author: missing\n";
        else
            err += "missing.xml: error: cannot be read: No such file or directory\n";
    }
    out += summaryOf({{names.count("good.xml"), "good"},
                      {names.count("faulty.xml"), "at fault"},
                      {names.count("missing.xml"), "unreadable"}});
    const Run run = folder.run(QStringList{"check"} + names);
    QCOMPARE(run.out, out);
    QCOMPARE(run.err, err);
    QCOMPARE(run.status, status);
}

void CheckCommandTest::folders_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("files");

    QTest::newRow("folder") << QStringList{"jobs"} << QStringList{"jobs/B.XML", "jobs/a.xml", "jobs/c.xml"};
    QTest::newRow("folder with a slash")
        << QStringList{"jobs/"} << QStringList{"jobs/B.XML", "jobs/a.xml", "jobs/c.xml"};
    QTest::newRow("current folder") << QStringList{"."} << QStringList{"./z.xml"};
    QTest::newRow("folder and file twice") << QStringList{"jobs/old", "z.xml", "jobs/old"}
                                           << QStringList{"jobs/old/c.xml", "z.xml", "jobs/old/c.xml"};
    QTest::newRow("file of another name") << QStringList{"jobs/notes.txt"} << QStringList{"jobs/notes.txt"};
    QTest::newRow("folders below, short")
        << QStringList{"-r", "."} << QStringList{"./jobs/B.XML",     "./jobs/a.xml",           "./jobs/c.xml",
                                                 "./jobs/old/c.xml", "./jobs/old/older/a.xml", "./z.xml"};
    QTest::newRow("folders below, long")
        << QStringList{"jobs/old", "--recursive"} << QStringList{"jobs/old/c.xml", "jobs/old/older/a.xml"};
}

void CheckCommandTest::folders()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, files);

    Folder folder;
    QVERIFY(QDir(folder.path(".")).mkpath("jobs/old/older"));
    QVERIFY(QDir(folder.path(".")).mkpath("jobs/folder.xml"));
    for (const QString name : {"jobs/c.xml", "jobs/a.xml", "jobs/B.XML", "jobs/notes.txt", "jobs/old/c.xml",
                               "jobs/old/older/a.xml", "z.xml"})
        folder.write(name, completeJob());
    QVERIFY(QFile::link(".", folder.path("jobs/old/loop")));
    QString out;
    for (const QString &file : files)
        out += file + ": Job, complete\n";
    if (files.size() > 1 || files != arguments)
        out += summaryOf({{files.size(), "good"}});
    const bool isRecursive = arguments != arguments.filter(QRegularExpression("^[^-]"));
    const QString top = arguments.contains(".") ? "./" : "";
    const Run run = folder.run(QStringList{"check"} + arguments);
    QCOMPARE(run.err,
             isRecursive
                 ? QString("%1jobs/old/loop: warning: is the folder %1jobs/old, which is gone through once\n")
                       .arg(top)
                 : QString());
    QCOMPARE(run.out, out);
    QCOMPARE(run.status, 0);
}

void CheckCommandTest::foldersThatCannotBeGoneThrough()
{
    Folder folder;
    QVERIFY(QDir(folder.path(".")).mkpath("a/b"));
    QVERIFY(QDir(folder.path(".")).mkpath("c"));
    folder.write("a/b/j.xml", completeJob());
    folder.write("c/j.txt", completeJob());
    const Run run = folder.run({"check", "a", "c"});
    QCOMPARE(
        run.err,
        QString("a: error: there is no *.xml file in this folder (-r goes through the folders below, too)\n"
                "c: error: there is no *.xml file in this folder\n"));
    QCOMPARE(run.out, QString("2 files: 2 unreadable\n"));
    QCOMPARE(run.status, 2);

    const Run recursive = folder.run({"check", "-r", "a", "c"});
    QCOMPARE(recursive.err, QString("c: error: there is no *.xml file in this folder\n"));
    QCOMPARE(recursive.out, QString("a/b/j.xml: Job, complete\n2 files: 1 good, 1 unreadable\n"));
    QCOMPARE(recursive.status, 2);

    QVERIFY(QFile::setPermissions(folder.path("a/b"), QFile::WriteOwner));
    const bool readsAll = QDir(folder.path("a/b")).isReadable();
    const Run forbidden = folder.run({"check", "-r", "a"});
    QVERIFY(
        QFile::setPermissions(folder.path("a/b"), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner));
    if (readsAll) {
        skip("this user may read everything");
        return;
    }
    QCOMPARE(forbidden.err, QString("a/b: error: cannot be read: Permission denied\n"));
    QCOMPARE(forbidden.status, 2);
}

void CheckCommandTest::linksBelowFolders_data()
{
    using Links = QList<QPair<QString, QString>>;
    QTest::addColumn<Links>("links"); // where they are, and what they lead to
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("complaints");

    const auto add = [](const char *name, const Links &links, const QStringList &arguments,
                        const QStringList &files, const QString &complaints) {
        QTest::newRow(name) << links << arguments << files << complaints;
    };
    const QStringList recursive{"-r", "in"};
    add("to a folder", {{"in/link", "../out"}}, recursive,
        {"in/a.xml", "in/below/c.xml", "in/link/b.xml", "in/link/deep/d.xml"}, "");
    add("to a folder, not gone through", {{"in/link", "../out"}}, {"in"}, {"in/a.xml"}, "");
    add("to a folder that is there twice", {{"in/link", "../out"}, {"in/same", "../out"}}, recursive,
        {"in/a.xml", "in/below/c.xml", "in/link/b.xml", "in/link/deep/d.xml"},
        "in/same: warning: is the folder in/link, which is gone through once\n");
    add("to a folder behind that which holds it", {{"in/a", "../out"}, {"in/b", "../out/deep"}}, recursive,
        {"in/a.xml", "in/a/b.xml", "in/a/deep/d.xml", "in/below/c.xml"},
        "in/b: warning: is the folder in/a/deep, which is gone through once\n");
    add("to a folder beside it, which comes later", {{"in/a", "below"}}, recursive,
        {"in/a.xml", "in/below/c.xml"},
        "in/a: warning: is the folder in/below, which is gone through once\n");
    add("round and round", {{"in/link", "../out"}, {"out/back", "../in"}}, recursive,
        {"in/a.xml", "in/below/c.xml", "in/link/b.xml", "in/link/deep/d.xml"},
        "in/link/back: warning: is the folder in, which is gone through once\n");
    add("folder called like a document", {{"in/link.xml", "../out/deep"}}, recursive,
        {"in/a.xml", "in/below/c.xml", "in/link.xml/d.xml"}, "");
    add("the folder itself", {{"link", "out"}}, {"-r", "link"}, {"link/b.xml", "link/deep/d.xml"}, "");
    add("to a file", {{"in/link.xml", "../out/b.xml"}}, recursive,
        {"in/a.xml", "in/below/c.xml", "in/link.xml"}, "");
    add("to nothing", {{"in/gone.xml", "none"}}, {"in"}, {"in/a.xml"},
        "in/gone.xml: error: cannot be read: No such file or directory\n");
    add("to nothing, perhaps a folder", {{"in/gone", "none"}}, recursive, {"in/a.xml", "in/below/c.xml"},
        "in/gone: error: cannot be read: No such file or directory\n");
    add("to itself", {{"in/self", "self"}, {"in/self.xml", "self.xml"}}, recursive,
        {"in/a.xml", "in/below/c.xml"},
        "in/self: error: cannot be read: Too many levels of symbolic links\n"
        "in/self.xml: error: cannot be read: Too many levels of symbolic links\n");
    add("hidden", {{"in/.gone.xml", "none"}, {"in/.link", "../out"}}, recursive,
        {"in/a.xml", "in/below/c.xml"}, "");
}

void CheckCommandTest::linksBelowFolders()
{
    using Links = QList<QPair<QString, QString>>;
    QFETCH(Links, links);
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, files);
    QFETCH(QString, complaints);

    Folder folder;
    QVERIFY(QDir(folder.path(".")).mkpath("in/below"));
    QVERIFY(QDir(folder.path(".")).mkpath("out/deep"));
    for (const QString name : {"in/a.xml", "in/below/c.xml", "out/b.xml", "out/deep/d.xml"})
        folder.write(name, completeJob());
    for (const auto &[place, target] : links)
        QVERIFY(QFile::link(target, folder.path(place)));
    const Run run = folder.run(QStringList("check") + arguments);
    const auto errors = complaints.count(": error: ");
    const auto number = files.size() + errors;
    QCOMPARE(run.err, complaints);
    QCOMPARE(run.out,
             files.join(": Job, complete\n") + ": Job, complete\n"
                 + summaryOf({{files.size(), "good"}, {errors, "unreadable"}}));
    QCOMPARE(run.status, errors > 0 ? 2 : 0);

    const Run json = folder.run(QStringList{"check", "--format", "json"} + arguments);
    QString found;
    int told = 0;
    for (const QJsonObject &line : jsonLines(json.out)) {
        if (line["type"] == "finding") {
            found += line["file"].toString() + ": " + line["severity"].toString() + ": "
                + line["message"].toString() + '\n';
            QCOMPARE(line["id"].toString(), QString(line["severity"] == "error" ? "unreadable" : "unread"));
        }
        told += line["type"] == "file" ? 1 : 0;
    }
    QCOMPARE(found, complaints);
    QCOMPARE(told, static_cast<int>(number));
}

void CheckCommandTest::whatIsNoFileBelowFolders()
{
#ifdef Q_OS_UNIX
    Folder folder;
    QVERIFY(QDir(folder.path(".")).mkpath("in"));
    folder.write("in/a.xml", completeJob());
    QCOMPARE(mkfifo(folder.path("in/pipe.xml").toLocal8Bit().constData(), 0666), 0);
    QCOMPARE(mkfifo(folder.path("in/pipe").toLocal8Bit().constData(), 0666), 0);
    QVERIFY(QFile::link("/dev/null", folder.path("in/null.xml")));
    const Run run = folder.run({"check", "-r", "in"});
    QCOMPARE(run.err,
             QString("in/null.xml: error: cannot be read: it is a device\n"
                     "in/pipe.xml: error: cannot be read: it is a pipe that nobody writes to\n"));
    QCOMPARE(run.status, 2);
#else
    skip("no pipes with names here");
#endif
}

void CheckCommandTest::namesThatAreNotUtf8()
{
#ifdef Q_OS_UNIX
    Folder folder;
    QProcess shell;
    shell.setWorkingDirectory(folder.path("."));
    const auto outputOf = [&shell](const QString &script) {
        shell.start(
            "/bin/sh",
            {"-c",
             "u=$(printf '\\374'); a=$(printf 'Ger\\344te'); b=$(printf '\\357\\273\\277'); " + script});
        const Run run = ended(shell);
        return QString("%1%2%3\n").arg(run.out, run.err).arg(run.status);
    };
    const QString tool = "'" KORMAK_TOOL "' ";
    folder.write("good.xml", completeJob());
    folder.write("faulty.xml", jobWithoutAuthor());
    const QString made =
        outputOf("mkdir \"$a\" && cp good.xml \"$a/job.xml\" && mv faulty.xml Pr${u}fung.xml && "
                 "mv good.xml ${b}mark.xml");
    if (made != "0\n") {
        skip("names of files are UTF-8 here");
        return;
    }
    const QString missing = ":3:5: error: Job/JobHeader/Author: missing\n";
    const Run run = folder.run({"check", "-r", "."});
    QCOMPARE(run.err, "./Pr\\xfcfung.xml" + missing);
    QCOMPARE(run.out,
             QString("./Ger\\xe4te/job.xml: Job, complete\n./\\ufeffmark.xml: Job, complete\n"
                     "3 files: 2 good, 1 at fault\n"));
    QCOMPARE(run.status, 1);
    const Run json = folder.run({"check", "--format", "json", "."});
    QVERIFY2(json.out.contains("\"file\": \"./Pr\\udcfcfung.xml\", \"status\": \"faulty\""),
             qPrintable(json.out));

    QCOMPARE(outputOf(tool + "check Pr${u}fung.xml"), "Pr\\xfcfung.xml" + missing + "1\n");
    QCOMPARE(outputOf(tool + "check \"$a\""),
             QString("Ger\\xe4te/job.xml: Job, complete\n"
                     "1 file: 1 good\n0\n"));
    QCOMPARE(outputOf(tool + "check ${u}.xml"),
             QString("\\xfc.xml: error: cannot be read: No such file or directory\n2\n"));
    QCOMPARE(outputOf(tool + "${u}"),
             QString("kormak: Unknown command '\\xfc'. Allowed: check, show, report, table, diff, format, "
                     "set, fix, new, list, help\n2\n"));
    // To write another name would be worse.
    QCOMPARE(outputOf(tool + "format ${b}mark.xml -o ${u}.xml"),
             QString("\\xfc.xml: error: cannot be written: its name is not UTF-8\n2\n"));
    QCOMPARE(outputOf(tool
                      + "new Parameter --set DisplayName=${u} --set UniqueName=a --set ParameterType=Integer "
                        "--set ValueType=ValueNumericInt --set RepresentationName=r --set Integer.Minimum=0"),
             QString("kormak new: error: DisplayName: holds a character that XML cannot carry\n1\n"));
    QCOMPARE(outputOf("ls | wc -l; rm -r *"), QString("3\n0\n"));
#else
    skip("names of files are UTF-8 here");
#endif
}

void CheckCommandTest::order_data()
{
    QTest::addColumn<QStringList>("options");

    QTest::newRow("as many threads as there are cores") << QStringList();
    QTest::newRow("one thread") << QStringList{"-j", "1"};
    QTest::newRow("many threads") << QStringList{"-j16"};
    QTest::newRow("many threads, long") << QStringList{"--jobs", "7"};
}

void CheckCommandTest::order()
{
    QFETCH(QStringList, options);
    constexpr int Count = 60;

    Folder folder;
    QStringList arguments = QStringList{"check", "--format", "json"} + options;
    for (int i = 0; i < Count; ++i) {
        const QString name = QString("%1.xml").arg((i * 37) % Count);
        // The first take longest.
        folder.write(
            name, jobWith("Mara Lind", QByteArray((Count - i) * 500, 'x')).replace("<Name>", "<Nam/><Name>"));
        arguments << name;
    }
    const Run run = folder.run(arguments);
    const QList<QJsonObject> lines = jsonLines(run.out);
    QCOMPARE(lines.size(), 2 * Count + 1);
    for (int i = 0; i < Count; ++i) {
        const QString name = QString("%1.xml").arg((i * 37) % Count);
        QCOMPARE(lines[2 * i]["type"].toString(), QString("finding"));
        QCOMPARE(lines[2 * i]["file"].toString(), name);
        QCOMPARE(lines[2 * i + 1]["type"].toString(), QString("file"));
        QCOMPARE(lines[2 * i + 1]["file"].toString(), name);
    }
    QCOMPARE(run.status, 1);
}

void CheckCommandTest::json()
{
    Folder folder;
    folder.write("good \"1\".xml", completeJob());
    folder.write(
        "bad.xml",
        jobWith(">Antenna</JobType>", ">A&#10;\xC3\xA4</JobType>").replace("<Name>", "<Nam/><Name>"));
    const Run run =
        folder.run({"check", "good \"1\".xml", "--format=json", "bad.xml", "none.xml", "-"}, "<Parameter/");
    QCOMPARE(run.err, QString());
    QString out = run.out;
    out.replace(QRegularExpression("\"allowed\": \\[\"Production SC HF\",[^]]*\\]"), "\"allowed\": [...]");
    const QString good = R"({"type": "file", "file": "good \"1\".xml", "status": "good", "kind": "Job", )"
                         R"("complete": true, "findings": 0})";
    const QString badName = QString::fromUtf8(
        R"({"type": "finding", "file": "bad.xml", "line": 4, "column": 9, )"
        R"("severity": "error", "id": "bad-value", "path": "Job/JobHeader/JobType", )"
        R"("message": "\"A\\n)"
        "\xC3\xA4"
        R"(\" is not a known name; it reads as \"not set\"", "found": "A\n)"
        "\xC3\xA4"
        R"(", "allowed": [...], "complaint": "JobHeader: Please set JobType", "suggestion": null, )"
        R"("correction": null})");
    const QString unknownElement =
        R"({"type": "finding", "file": "bad.xml", "line": 11, "column": 9, "severity": "error", )"
        R"("id": "unknown-element", "path": "Job/AntennaData/Nam", "message": "unknown element; did you mean \"Name\"?", )"
        R"("found": null, "allowed": ["Name", "MinimumFrequency", "MaximumFrequency", "Azimuth", )"
        R"("Polarization"], "complaint": "Unknown Tag 'Nam' in 'AntennaData'.", "suggestion": null, "correction": null})";
    const QString bad = R"({"type": "file", "file": "bad.xml", "status": "faulty", "kind": "Job", )"
                        R"("complete": false, "findings": 2})";
    const QString noFile =
        R"({"type": "finding", "file": "none.xml", "line": null, "column": null, "severity": "error", )"
        R"("id": "unreadable", "path": null, "message": "cannot be read: No such file or directory", )"
        R"("found": null, "allowed": [], "complaint": null, "suggestion": null, "correction": null})";
    const QString none = R"({"type": "file", "file": "none.xml", "status": "unreadable", "kind": null, )"
                         R"("complete": false, "findings": 1})";
    const QString cutOff =
        R"({"type": "finding", "file": "-", "line": 1, "column": 12, "severity": "error", )"
        R"("id": "not-well-formed", "path": null, "message": "Premature end of document.", )"
        R"("found": null, "allowed": [], "complaint": null, "suggestion": null, "correction": null})";
    const QString input = R"({"type": "file", "file": "-", "status": "faulty", "kind": null, )"
                          R"("complete": false, "findings": 1})";
    const QString summary = R"({"type": "summary", "files": 4, "good": 1, "withWarnings": 0, )"
                            R"("neverWritten": 0, "faulty": 2, "unreadable": 1})";
    QCOMPARE(
        out.split('\n'),
        (QStringList{good, badName, unknownElement, bad, noFile, none, cutOff, input, summary, QString()}));
    QCOMPARE(run.status, 2);
}

void CheckCommandTest::jsonOfEveryKindOfFinding()
{
    Folder folder;
    folder.write(
        "a.xml",
        with(completeReceiver(), "<Parameter Version=\"1.0\" UniqueName=\"Level\">",
             "<Parameter a=''>text<Foo/><Enable>1</Enable><Enable>true</Enable><ToolTip><b/></ToolTip>"
             "<String Default='a'/>")
            .replace("Key=\"2\"", "Key=\"1\"")
            .replace("        <ValueType>ValueSelection</ValueType>\n", ""));
    folder.write("b.xml", with(completeParameter(), ">20<", ">50<") + "x");
    folder.write("c.xml", with(completeParameter(), ">20<", ">50<"));
    folder.write("d.xml", "<Work/>");
    folder.write("e.xml", "\xFF");
    folder.write("f.xml",
                 "<Job Version='9'><JobHeader><JobType>Tuner MC HF</JobType>"
                 "<Creation>2206-03-14T06:30:00,000Z</Creation></JobHeader><ResourceType>Antenna"
                 "</ResourceType><AntennaData><MinimumFrequency>4e7</MinimumFrequency><MaximumFrequency>5e7"
                 "</MaximumFrequency><Azimuth>-1</Azimuth></AntennaData></Job>");
    folder.write("g.xml", with(completeWorkflow(), "53.55", "99").replace("-7.1", "-190"));
    folder.write("h.xml", with(completeParameter(), ">0<", ">41<"));
    folder.write("i.xml", jobWith("\"1.0\"?>", "\"1.0\" encoding=\"UTF-16\"?>"));
    const Run run = folder.run({"check", "--format", "json", ".", "none"});
    QStringList ids;
    for (const QJsonObject &line : jsonLines(run.out)) {
        if (line["type"] == "finding")
            ids << line["id"].toString();
    }
    ids.removeDuplicates();
    ids.sort();
    const QStringList expected{"bad-value",
                               "declared-encoding",
                               "encoding",
                               "misplaced-element",
                               "missing-attribute",
                               "missing-element",
                               "not-well-formed",
                               "repeated",
                               "stray-text",
                               "suspicious",
                               "suspicious-antenna",
                               "suspicious-area",
                               "suspicious-azimuth",
                               "suspicious-creation",
                               "suspicious-latitude",
                               "suspicious-longitude",
                               "suspicious-range",
                               "suspicious-version",
                               "unknown-attribute",
                               "unknown-element",
                               "unknown-kind",
                               "unread",
                               "unreadable"};
    QCOMPARE(ids, expected);
    const Run help = folder.run({"check", "--help"});
    for (const QString &id : expected)
        QVERIFY2(help.out.contains(QRegularExpression("[ \n]" + id + "[,.]")), qPrintable(id));
}

#ifdef Q_OS_UNIX
namespace {

/// A check of two files, the first of which is not read before it is written.
class SlowCheck {
public:
    SlowCheck(QString checkName, const QStringList &options, bool writesToTerminal, bool complainsToTerminal,
              bool isBarExpected)
        : name(std::move(checkName)), writes(writesToTerminal), complains(complainsToTerminal),
          hasBar(isBarExpected), isQuiet(options.contains("--quiet"))
    {
        folder.write("a.xml", completeJob());
        const QByteArray path = QFile::encodeName(folder.path("slow.xml"));
        QCOMPARE(mkfifo(path.constData(), S_IRUSR | S_IWUSR), 0);
        pipe = open(path.constData(), O_RDWR | O_CLOEXEC);
        QVERIFY(pipe >= 0);
        process.setWorkingDirectory(folder.path("."));
        if (writes)
            process.setStandardOutputFile(screen.path());
        if (complains)
            process.setStandardErrorFile(screen.path());
        process.start(KORMAK_TOOL, QStringList{"check", "-j", "2", "slow.xml", "a.xml"} + options);
    }

    void watch()
    {
        QVERIFY(process.waitForStarted());
        const QString bar = "\r[###############---------------] 1/2 files";
        if (hasBar)
            QTRY_VERIFY2_WITH_TIMEOUT(screen.text().contains(bar), qPrintable(name), 60'000);
        else
            QVERIFY2(!screen.text().contains("files"), qPrintable(name));
    }

    void end()
    {
        QCOMPARE(write(pipe, completeJob().constData(), static_cast<std::size_t>(completeJob().size())),
                 static_cast<ssize_t>(completeJob().size()));
        close(pipe);
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitCode(), 0);

        const QString shown = screen.text();
        QVERIFY2(shown.contains("\x1b[K") == hasBar, qPrintable(name + shown));
        const QString results =
            writes ? shown.section("\x1b[K", -1) : QString::fromUtf8(process.readAllStandardOutput());
        const int lines = isQuiet ? 0 : 3; // of two files and the summary
        QVERIFY2(results.count('\n') == lines, qPrintable(name + results));
        QVERIFY2(!results.contains("/2 files"), qPrintable(name + results));
        if (!writes && hasBar)
            QVERIFY2(shown.endsWith("\r\x1b[K"), qPrintable(name)); // nothing is left of the bar
        if (!complains)
            QCOMPARE(process.readAllStandardError(), QByteArray());
    }

    const QString name;

private:
    const bool writes;
    const bool complains;
    const bool hasBar;
    const bool isQuiet;
    Folder folder;
    Screen screen;
    QProcess process;
    int pipe = -1; ///< that somebody may still write to
};

} // namespace
#endif

void CheckCommandTest::progress()
{
#ifdef Q_OS_UNIX
    if (!Screen().isThere()) {
        skip("there are no terminals");
        return;
    }
    SlowCheck checks[] = {
        {"text: ", {}, false, true, true},
        {"text, piped: ", {}, false, false, false},
        {"text, all to a terminal: ", {}, true, true, true},
        {"text, quiet: ", {"--quiet"}, false, true, false},
        {"JSON: ", {"--format", "json"}, false, true, true},
        {"JSON, all to a terminal: ", {"--format", "json"}, true, true, false},
    };
    QThread::msleep(2000); // long enough for a bar to show
    for (SlowCheck &check : checks)
        check.watch();
    for (SlowCheck &check : checks)
        check.end();
#else
    skip("no terminals here");
#endif
}

/// What is known of the first files does not wait for the others.
void CheckCommandTest::resultsAreToldAtOnce()
{
#ifdef Q_OS_UNIX
    const Folder folder;
    folder.write("a.xml", completeJob());
    const QByteArray path = QFile::encodeName(folder.path("slow.xml"));
    QCOMPARE(mkfifo(path.constData(), S_IRUSR | S_IWUSR), 0);
    const int pipe = open(path.constData(), O_RDWR | O_CLOEXEC);
    QVERIFY(pipe >= 0);
    QProcess process;
    process.setWorkingDirectory(folder.path("."));
    process.start(KORMAK_TOOL, {"check", "-j", "2", "a.xml", "slow.xml"});
    QVERIFY(process.waitForReadyRead(60'000));
    QCOMPARE(process.readAllStandardOutput(), QByteArray("a.xml: Job, complete\n"));
    const QByteArray job = completeJob();
    QCOMPARE(write(pipe, job.constData(), static_cast<std::size_t>(job.size())),
             static_cast<ssize_t>(job.size()));
    close(pipe);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.readAllStandardOutput(), QByteArray("slow.xml: Job, complete\n2 files: 2 good\n"));
#else
    skip("no pipes here");
#endif
}

void CheckCommandTest::largeDocument()
{
    constexpr int Lines = 100000;
    const QByteArray line = "megabytes of text in lines, all of which are 64 bytes in length\n";
    Folder folder;
    folder.write("good.xml", jobWith("Mara Lind", line.repeated(Lines)));
    folder.write("faulty.xml", jobWith("Mara Lind", line.repeated(Lines)).replace("<Name>", "<Nam/><Name>"));
    const Run run = folder.run({"check", "good.xml", "faulty.xml"});
    QCOMPARE(run.out, QString("good.xml: Job, complete\n2 files: 1 good, 1 at fault\n"));
    QCOMPARE(withFirstNames(run.err),
             QString("faulty.xml:%1:9: error: Job/AntennaData/Nam: unknown element; did you mean \"Name\"? "
                     "(allowed: Name, ...)\n")
                 .arg(Lines + 11));
    QCOMPARE(run.status, 1);
}

void CheckCommandTest::deeplyNestedDocument()
{
    constexpr int Depth = 100000; // a stack of 8 MiB would overflow
    Folder folder;
    folder.write("job.xml", QByteArray("<Job>").repeated(Depth) + QByteArray("</Job>").repeated(Depth));
    const Run run = folder.run({"check", "job.xml"});
    QCOMPARE(withFirstNames(run.err),
             QString("job.xml:1:1: error: Job/JobHeader: missing\n"
                     "job.xml:1:1: error: Job/ResourceType: missing (allowed: Receiver HF, ...)\n"
                     "job.xml:1:6: error: Job/Job: unknown element (allowed: JobHeader, ...)\n"));
    QCOMPARE(run.status, 1);
}

void CheckCommandTest::manyProblems_data()
{
    QTest::addColumn<QByteArray>("begin");
    QTest::addColumn<QByteArray>("problem");
    QTest::addColumn<QByteArray>("end");
    QTest::addColumn<QString>("last");

    QTest::newRow("unknown elements") << QByteArray("<Job>\n") << QByteArray("<Foo/>\n")
                                      << QByteArray("</Job>") << "Job/Foo: unknown element";
    QTest::newRow("parameters")
        << QByteArray("<GenericReceiver>\n")
        << QByteArray("<Parameter UniqueName='p'><Long><Default>x</Default></Long></Parameter>\n")
        << QByteArray("</GenericReceiver>")
        << "GenericReceiver/Parameter[p]/Long/Default: \"x\" is not a whole number of 32 bits; it "
           "reads as 0";
    QTest::newRow("coordinates") << QByteArray("<AutomaticWorkflow><Mode>ManualMode</Mode><Area>\n")
                                 << QByteArray("<Coordinate/>\n") << QByteArray("</Area></AutomaticWorkflow>")
                                 << "AutomaticWorkflow/Area/Coordinate/Longitude: missing";
    QTest::newRow("nested elements of a block") << QByteArray("<Parameter UniqueName='p'><Long>\n")
                                                << QByteArray("<a><Minimum>x</Minimum>\n") << QByteArray()
                                                << QString(QChar(0x2026)) + QString("/a").repeated(19)
            + "/Minimum: \"x\" is not a whole number of 32 bits; it reads as 0";
}

void CheckCommandTest::manyProblems()
{
    QFETCH(QByteArray, begin);
    QFETCH(QByteArray, problem);
    QFETCH(QByteArray, end);
    QFETCH(QString, last);
    verifyTimeGrowsWithNumber([&](int count) {
        Folder folder;
        folder.write("a.xml", begin + problem.repeated(count) + end);
        const Run run = folder.run({"check", "a.xml"});
        QVERIFY(run.status >= 0);
        const QString message = ": " + last;
        QVERIFY2(run.err.contains(QString("a.xml:%1:").arg(count + 1)), qPrintable(run.err.right(300)));
        QVERIFY2(run.err.count(message) >= count - 20, qPrintable(run.err.right(300)));
    });
}

QTEST_GUILESS_MAIN(CheckCommandTest)
#include "CheckCommandTest.moc"
