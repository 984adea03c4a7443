#include <tests/support/ToolSupport.h>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/resource.h>
#include <sys/stat.h>
#endif

using namespace ToolSupport;

class FormatCommandTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void canonicalForm_data();
    void canonicalForm();
    void targets_data();
    void targets();
    void readableForm_data();
    void readableForm();
    void lossesInReadableForm_data();
    void lossesInReadableForm();
    void losses_data();
    void losses();
    void commentsOnRequest();
    void nothingIsWrittenOnLoss_data();
    void nothingIsWrittenOnLoss();
    void refused_data();
    void refused();
    void severalFiles();
    void severalFilesThatAreGood();
    void filesThatWouldNotChange_data();
    void filesThatWouldNotChange();
    void check_data();
    void check();
    void checkOfSeveralFiles();
    void namesOfChangedFiles();
    void incompleteParameters();
    void unwritable_data();
    void unwritable();
    void fullDisk();
    void largeDocument();
};

void FormatCommandTest::canonicalForm_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QByteArray>("formatted");

    QTest::newRow("canonical already") << completeJob() << completeJob();
    QTest::newRow("on one line") << completeJob().simplified().replace("> <", "><") << completeJob();
    QTest::newRow("lines with carriage returns") << completeJob().replace("\n", "\r\n") << completeJob();
    QTest::newRow("byte-order mark") << "\xEF\xBB\xBF" + completeJob() << completeJob();
    QTest::newRow("other declaration")
        << jobWith("\"1.0\"?>", "\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>") << completeJob();
    QTest::newRow("other order") << jobWith("    <ResourceType>Antenna</ResourceType>\n", "")
                                        .replace("    <JobHeader",
                                                 "<ResourceType>Antenna</ResourceType><JobHeader")
                                 << completeJob();
    QTest::newRow("other quotes and references")
        << jobWith("Mara Lind", "&#77;ara <![CDATA[Lind]]>")
               .replace("<Job Version=\"1.0\">", "<Job Version = '1.0' >")
        << completeJob();
    QTest::newRow("other forms of numbers")
        << jobWith(">1500000<", ">1.5e6<").replace(">30000000<", "> +30000000.00 <") << completeJob();
    QTest::newRow("blanks in a text")
        << jobWith(">Mara Lind<", "> Mara\n\tLind <") << jobWith(">Mara Lind<", "> Mara\n\tLind <");
    QTest::newRow("text that looks like a number")
        << jobWith(">East<", ">007<") << jobWith(">East<", ">007<");
    QTest::newRow("carriage return in a text")
        << jobWith(">Mara Lind<", ">Mara&#xD;Lind<") << jobWith(">Mara Lind<", ">Mara&#13;Lind<");
    QTest::newRow("element without text") << jobWith("<Author>", "<Description/><Author>") << completeJob();

    QTest::newRow("activity generation") << completeGeneration() << completeGeneration();
    QTest::newRow("activity generation, other forms of numbers")
        << with(completeGeneration(), ">0.2<", ">0.20000<").replace(">65<", "> 65 <") << completeGeneration();
    QTest::newRow("activity generation, empty element without meaning")
        << with(completeGeneration(), "<DbWriteEnergy>", "<DbWriteLevel/><DbWriteEnergy>")
        << completeGeneration();
    QTest::newRow("activity generation, settings that are not given")
        << QByteArray("<ActivityGeneration><Mode>AGED</Mode></ActivityGeneration>")
        << QByteArray("<?xml version=\"1.0\"?>\n"
                      "<ActivityGeneration Version=\"2.2\" Autostart=\"false\">\n"
                      "    <Mode>AGED</Mode>\n"
                      "    <EnergyChannel>ADem</EnergyChannel>\n"
                      "    <LevelMinBurstDuration>0.5</LevelMinBurstDuration>\n"
                      "    <LevelMaxBreakDuration>0.5</LevelMaxBreakDuration>\n"
                      "    <DDemActiveCriteria>Demodulator Locked</DDemActiveCriteria>\n"
                      "    <DDemMinBurstDuration>0.5</DDemMinBurstDuration>\n"
                      "    <DDemMaxBreakDuration>0.5</DDemMaxBreakDuration>\n"
                      "    <DDemMorseQualityThreshold>80</DDemMorseQualityThreshold>\n"
                      "    <ClassIntermScore>1</ClassIntermScore>\n"
                      "    <ClassFinalScore>3</ClassFinalScore>\n"
                      "    <ClassStartScore>3</ClassStartScore>\n"
                      "    <ClassStopScore>3</ClassStopScore>\n"
                      "    <ClassMinConfidence>0</ClassMinConfidence>\n"
                      "    <DetConvMinBurstDuration>0</DetConvMinBurstDuration>\n"
                      "    <DbWriteEnergy>true</DbWriteEnergy>\n"
                      "    <DbWriteDDem>Never</DbWriteDDem>\n"
                      "    <DbWriteClass>Never</DbWriteClass>\n"
                      "    <CutAtLocations>true</CutAtLocations>\n"
                      "    <SessionCloseTime>10</SessionCloseTime>\n"
                      "    <RestartAttachmentsOnSessionClose>false</RestartAttachmentsOnSessionClose>\n"
                      "</ActivityGeneration>\n");
    QTest::newRow("parameter") << completeParameter() << completeParameter();
    QTest::newRow("parameter, empty elements and a multiplier of 1") << with(
        completeParameter(), "<Enable>",
        "<DisplayName/><ToolTip></ToolTip><ControlType/><DisplaySuffix/><Multiplier>1</Multiplier><Enable>")
                                                                     << completeParameter();
    QTest::newRow("receiver") << completeReceiver() << completeReceiver();
    const QByteArray level =
        completeReceiver()
            .mid(completeReceiver().indexOf("    <Parameter Version=\"1.0\" UniqueName=\"Level\">"))
            .replace("</GenericReceiver>\n", "");
    QTest::newRow("receiver, parameters in other order")
        << with(completeReceiver(), level, "")
               .replace("<GenericReceiver Version=\"1.0\">\n", "<GenericReceiver Version=\"1.0\">\n" + level)
        << completeReceiver();
    QTest::newRow("receiver, what enumeration entries need not say")
        << with(completeReceiver(), "Name=\"Narrow\"", "Name=\"Narrow\" Identifier=\"\" Default=\"false\"")
        << completeReceiver();
    QTest::newRow("receiver, empty script")
        << with(completeReceiver(), "</GenericReceiver>", "<Script/></GenericReceiver>")
        << completeReceiver();
    QTest::newRow("receiver without parameters")
        << QByteArray("<GenericReceiver Version='7'></GenericReceiver>")
        << QByteArray("<?xml version=\"1.0\"?>\n<GenericReceiver Version=\"7\"/>\n");
}

void FormatCommandTest::canonicalForm()
{
    QFETCH(QByteArray, document);
    QFETCH(QByteArray, formatted);

    Folder folder;
    folder.write("job.xml", document);
    const Run run = folder.run({"format", "job.xml"});
    QCOMPARE(run.err, QString());
    QCOMPARE(run.out, QString::fromUtf8(formatted));
    QCOMPARE(run.status, 0);
    QCOMPARE(folder.read("job.xml"), QString::fromUtf8(document));
}

void FormatCommandTest::targets_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("target"); // empty: standard output

    QTest::newRow("standard output") << QStringList{"job.xml"} << "";
    QTest::newRow("standard output, named") << QStringList{"job.xml", "-o", "-"} << "";
    QTest::newRow("standard input") << QStringList{"-"} << "";
    QTest::newRow("new file") << QStringList{"job.xml", "-o", "new.xml"} << "new.xml";
    QTest::newRow("option in front") << QStringList{"-o", "new.xml", "job.xml"} << "new.xml";
    QTest::newRow("file that is there") << QStringList{"job.xml", "-o", "old.xml"} << "old.xml";
    QTest::newRow("in place") << QStringList{"job.xml", "--in-place"} << "job.xml";
    QTest::newRow("the file itself") << QStringList{"job.xml", "-o", "job.xml"} << "job.xml";
    QTest::newRow("standard input into a file") << QStringList{"-", "-o", "new.xml"} << "new.xml";
}

void FormatCommandTest::targets()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, target);

    const QByteArray untidy = completeJob().replace("    ", "\t");
    Folder folder;
    folder.write("job.xml", untidy);
    folder.write("old.xml", QByteArray(10000, 'x'));
    const Run run = folder.run(QStringList{"format"} + arguments, untidy);
    QCOMPARE(run.err, QString());
    QCOMPARE(run.status, 0);
    const QString expected = QString::fromUtf8(completeJob());
    QCOMPARE(run.out,
             target.isEmpty()                       ? expected
                 : arguments.contains("--in-place") ? QString("job.xml\n")
                                                    : QString());
    QCOMPARE(folder.read("job.xml"), target == "job.xml" ? expected : QString::fromUtf8(untidy));
    QCOMPARE(folder.read("old.xml"), target == "old.xml" ? expected : QString(10000, 'x'));
    QCOMPARE(folder.read("new.xml"), target == "new.xml" ? expected : QString("(no file)"));
    QCOMPARE(folder.names().size(), target == "new.xml" ? 3 : 2);
}

void FormatCommandTest::readableForm_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QByteArray>("formatted");

    const QByteArray start = "<?xml version=\"1.0\"?>\n";
    QTest::newRow("as the library writes it") << completeJob() << completeJob();
    QTest::newRow("mode as an attribute")
        << QByteArray("<AutomaticWorkflow Mode=\"ManualMode\" Version=\"1.0\"/>")
        << start + "<AutomaticWorkflow Version=\"1.0\">\n    <Mode>ManualMode</Mode>\n</AutomaticWorkflow>\n";
    QTest::newRow("mode as an attribute and as an element")
        << QByteArray("<AutomaticWorkflow Mode=\"ManualMode\"><Mode>ManualMode</Mode></AutomaticWorkflow>")
        << start + "<AutomaticWorkflow>\n    <Mode>ManualMode</Mode>\n</AutomaticWorkflow>\n";
    QTest::newRow("default of a string as an attribute")
        << QByteArray("<GenericReceiver><Parameter UniqueName=\"a=b]\"><ParameterType>String</ParameterType>"
                      "<String Default=\"x=y\"/></Parameter></GenericReceiver>")
        << start
            + "<GenericReceiver>\n    <Parameter UniqueName=\"a=b]\">\n        <Enable>true</Enable>\n"
              "        <ParameterType>String</ParameterType>\n        <String>\n"
              "            <Default>x=y</Default>\n        </String>\n    </Parameter>\n</GenericReceiver>\n";
    QTest::newRow("boolean without a type")
        << QByteArray("<Parameter UniqueName=\"a\"><Boolean>true</Boolean></Parameter>")
        << start
            + "<Parameter UniqueName=\"a\">\n    <Enable>true</Enable>\n"
              "    <ParameterType>Boolean</ParameterType>\n    <Boolean>true</Boolean>\n</Parameter>\n";
    QTest::newRow("document that is not complete")
        << QByteArray("<Job><JobHeader><Author>a</Author></JobHeader></Job>")
        << start
            + "<Job>\n    <JobHeader>\n        <Author>a</Author>\n        <ShowJDH>true</ShowJDH>\n"
              "    </JobHeader>\n</Job>\n";
    QTest::newRow("number of single precision with more digits")
        << QByteArray("<ActivityGeneration><Mode>AGED</Mode><SessionCloseTime>359.899994</SessionCloseTime>"
                      "</ActivityGeneration>")
        << QByteArray();
}

void FormatCommandTest::readableForm()
{
    QFETCH(QByteArray, document);
    QFETCH(QByteArray, formatted);

    Folder folder;
    folder.write("in.xml", document);
    const Run run = folder.run({"format", "--readable", "in.xml", "-o", "out.xml"});
    QCOMPARE(run.err, QString());
    QCOMPARE(run.status, 0);
    if (formatted.isEmpty())
        QVERIFY(folder.read("out.xml").contains("<SessionCloseTime>359.9</SessionCloseTime>"));
    else
        QCOMPARE(folder.read("out.xml"), QString::fromUtf8(formatted));
    // It is that already.
    const Run again = folder.run({"format", "--readable", "--check", "out.xml"});
    QCOMPARE(again.out + again.err, QString());
    QCOMPARE(again.status, 0);
}

void FormatCommandTest::lossesInReadableForm_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("loss");

    QTest::newRow("value that is read as another")
        << jobWith("1500000", "1.5 MHz")
        << "12:9: loss: Job/AntennaData/MinimumFrequency: was \"1.5 MHz\", would be \"0\"";
    QTest::newRow("two modes") << QByteArray(
        "<AutomaticWorkflow Mode=\"ManualMode\"><Mode>AutomaticMode</Mode></AutomaticWorkflow>")
                               << "1:1: loss: AutomaticWorkflow/@Mode: was \"ManualMode\", would be missing";
    QTest::newRow("mode that is none")
        << QByteArray("<AutomaticWorkflow Mode=\"manual\"/>")
        << "1:1: loss: AutomaticWorkflow/@Mode: was \"manual\", would be missing";
    QTest::newRow("flag that is none")
        << QByteArray("<Parameter UniqueName=\"a\"><Boolean>on</Boolean></Parameter>")
        << "1:27: loss: Parameter[a]/Boolean: was \"on\", would be \"false\"";
    QTest::newRow("comment") << jobWith("<Author>", "<!--c--><Author>")
                             << "5:9: loss: Job/JobHeader: the comment \"c\" would be missing";
    QTest::newRow("elements that are ignored")
        << QByteArray(
               "<ActivityGeneration><Mode>AGED</Mode><DbWriteDc>Always</DbWriteDc></ActivityGeneration>")
        << "1:38: loss: ActivityGeneration/DbWriteDc: was \"Always\", would be missing";
}

void FormatCommandTest::lossesInReadableForm()
{
    QFETCH(QByteArray, document);
    QFETCH(QString, loss);

    Folder folder;
    folder.write("in.xml", document);
    const Run run = folder.run({"format", "--readable", "in.xml"});
    QCOMPARE(run.err.split('\n').constFirst(), "in.xml:" + loss);
    QCOMPARE(run.out, QString());
    QCOMPARE(run.status, 1);
}

void FormatCommandTest::losses_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QStringList>("lines"); // behind the name of the file
    QTest::addColumn<bool>("hasComments");

    QTest::newRow("text that is no number")
        << jobWith("<Name>", "<Azimuth>north</Azimuth><Name>")
        << QStringList{"11:9: loss: Job/AntennaData/Azimuth: was \"north\", would be \"0\""} << false;
    QTest::newRow("number that no double holds")
        << jobWith(">30000000<", ">9007199254740993<")
        << QStringList{"13:9: loss: Job/AntennaData/MaximumFrequency: was \"9007199254740993\", would be "
                       "\"9007199254740992\""}
        << false;
    QTest::newRow("unknown name")
        << jobWith("<Name>", "<Polarization>Round</Polarization><Name>")
        << QStringList{"11:9: loss: Job/AntennaData/Polarization: was \"Round\", would "
                       "be missing"}
        << false;
    QTest::newRow("element given twice")
        << jobWith("<Author>", "<Author>Nils</Author><Author>")
        << QStringList{"5:9: loss: Job/JobHeader/Author: was \"Nils\", would be \"Mara Lind\"",
                       "5:30: loss: Job/JobHeader/Author: was \"Mara Lind\", would be missing"}
        << false;
    QTest::newRow("antenna given twice")
        << jobWith("    </AntennaData>\n",
                   "    </AntennaData>\n<AntennaData><Name>East</Name></AntennaData>\n")
        << QStringList{"10:5: loss: Job/AntennaData/@Version: was \"1.0\", would be \"\"",
                       "15:1: loss: Job/AntennaData: would be missing with all that is in it"}
        << false;
    QTest::newRow("unknown attributes")
        << jobWith("<Job Version=\"1.0\"", "<Job Version=\"1.0\" Id='7' xmlns:a='b' a:c='d'")
        << QStringList{"2:1: loss: Job/@Id: was \"7\", would be missing",
                       "2:1: loss: Job/@xmlns:a: was \"b\", would be missing",
                       "2:1: loss: Job/@a:c: was \"d\", would be missing"}
        << false;
    QTest::newRow("prefix") << completeJob()
                                   .replace("Job ", "k:Job ")
                                   .replace("/Job>", "/k:Job>")
                                   .replace("Job V", "Job xmlns:k='b' V")
                            << QStringList{"2:1: loss: k:Job: would be missing with all that is in it"}
                            << false;
    QTest::newRow("text between elements")
        << jobWith("<ResourceType>", "urgent\n<ResourceType>")
        << QStringList{"2:1: loss: Job: was \"urgent\", would be \"\""} << false;
    QTest::newRow("document type") << jobWith("<Job Version", "<!DOCTYPE Job>\n<Job Version")
                                   << QStringList{"2:1: loss: the document type \"Job\" would be missing"}
                                   << false;
    QTest::newRow("style sheet") << jobWith("<Job Version",
                                            "<?xml-stylesheet href=\"job.css\"?>\n<Job Version")
                                 << QStringList{"2:1: loss: the processing instruction \"xml-stylesheet "
                                                "href=\"job.css\"\" would be "
                                                "missing"}
                                 << false;
    QTest::newRow("comments")
        << "<!-- head -->" + jobWith("<?xml version=\"1.0\"?>", "").replace("East", "E<!-- two\nlines -->ast")
        << QStringList{"1:1: loss: the comment \" head \" would be missing",
                       "11:16: loss: Job/AntennaData/Name: the comment \" two\\nlines \" would be missing"}
        << true;
    QTest::newRow("activity generation in the older form")
        << QByteArray("<ActivityGeneration Version='1.0'>AGMC</ActivityGeneration>")
        << QStringList{"1:1: loss: ActivityGeneration: was \"AGMC\", would be \"\"",
                       "1:1: loss: ActivityGeneration/@Version: was \"1.0\", would be \"2.2\""}
        << false;
    QTest::newRow("activity generation with unknown elements and names")
        << with(completeGeneration(), ">DDem<", ">Dem<")
               .replace("<DbWriteEnergy>", "<DbWriteLevel>Always</DbWriteLevel><DbWriteEnergy>")
        << QStringList{"4:5: loss: ActivityGeneration/EnergyChannel: was \"Dem\", would be \"\"",
                       "17:5: loss: ActivityGeneration/DbWriteLevel: was \"Always\", would be missing"}
        << false;
    QTest::newRow("type of a boolean parameter")
        << with(completeReceiver(), "<ParameterType>Float<", "<Boolean>true</Boolean><ParameterType>Boolean<")
        << QStringList{"17:32: loss: GenericReceiver/Parameter[Level]/ParameterType: was \"Boolean\", would "
                       "be "
                       "missing",
                       "18:9: loss: GenericReceiver/Parameter[Level]/Float: would be missing with all that "
                       "is in "
                       "it"}
        << false;
    QTest::newRow("default of a string parameter")
        << QByteArray("<Parameter UniqueName='P&#10;Q'><RepresentationName>p</RepresentationName>"
                      "<ValueType>ValueString</ValueType><ParameterType>String</ParameterType>\n"
                      "<String><Default>north</Default></String></Parameter>")
        << QStringList{"2:9: loss: Parameter[P\\nQ]/String/Default: was \"north\", would be missing"}
        << false;
    QTest::newRow("block of a double list")
        << QByteArray("<Parameter UniqueName='P'><RepresentationName>p</RepresentationName>"
                      "<ValueType>ValueFloatList</ValueType><ParameterType>DoubleList</ParameterType>\n"
                      "<DoubleList><MaxDoubleListLength>3</MaxDoubleListLength></DoubleList></Parameter>")
        << QStringList{"2:1: loss: Parameter[P]/DoubleList: would be missing with all that is in it"}
        << false;
    QTest::newRow("digits of a parameter")
        << with(completeReceiver(), ">-20.000000<", ">-20.0000001<")
               .replace("Value=\"0.50\"", "Value=\"0.505\"")
               .replace("        <ParameterType>Float<",
                        "<Multiplier>1.001</Multiplier><ParameterType>Float<")
        << QStringList{"9:13: loss: GenericReceiver/Parameter[Filter]/Enum/EnumValue/@Value: was \"0.505\", "
                       "would "
                       "be \"0.51\"",
                       "17:1: loss: GenericReceiver/Parameter[Level]/Multiplier: was \"1.001\", would be "
                       "\"1.00\"",
                       "19:13: loss: GenericReceiver/Parameter[Level]/Float/Minimum: was \"-20.0000001\", "
                       "would be "
                       "\"-20.000000\""}
        << false;
    QTest::newRow("parameter given twice")
        << with(completeReceiver(), "UniqueName=\"Level\"", "UniqueName=\"Filter\"")
               .replace("<GenericReceiver Version=\"1.0\">\n",
                        "<GenericReceiver Version=\"1.0\">\n<Script>x</Script>")
        << QStringList{"3:1: loss: GenericReceiver/Script: was \"x\", would be missing",
                       "4:9: loss: GenericReceiver/Parameter[Filter]/RepresentationName: was \"rx.filter\", "
                       "would "
                       "be \"rx.level\"",
                       "5:9: loss: GenericReceiver/Parameter[Filter]/ValueType: was \"ValueSelection\", "
                       "would be "
                       "\"ValueNumericFloat\"",
                       "7:9: loss: GenericReceiver/Parameter[Filter]/ParameterType: was \"Enum\", would be "
                       "\"Float\"",
                       "8:9: loss: GenericReceiver/Parameter[Filter]/Enum: would be missing with all that is "
                       "in it",
                       "13:5: loss: GenericReceiver/Parameter[Filter]: would be missing with all that is in "
                       "it"}
        << false;
    QTest::newRow("unknown attribute of an enumeration entry")
        << with(completeReceiver(), "<EnumValue Key=\"1\"", "<EnumValue Size=\"3\" Key=\"1\"")
        << QStringList{"9:13: loss: GenericReceiver/Parameter[Filter]/Enum/EnumValue/@Size: was \"3\", would "
                       "be "
                       "missing"}
        << false;
    QTest::newRow("instruction behind the document")
        << completeJob() + "<?a?>"
        << QStringList{"16:1: loss: the processing instruction \"a\" would be missing"} << false;
}

void FormatCommandTest::losses()
{
    QFETCH(QByteArray, document);
    QFETCH(QStringList, lines);
    QFETCH(bool, hasComments);

    QString complaint;
    for (const QString &line : lines)
        complaint += "job.xml:" + line + "\n";
    complaint += "job.xml: error: not written, since the lines above would be lost";
    if (hasComments)
        complaint += " (--drop-comments allows to lose comments)";

    Folder folder;
    folder.write("job.xml", document);
    const Run run = folder.run({"format", "job.xml"});
    QCOMPARE(run.err, complaint + "\n");
    QCOMPARE(run.out, QString());
    QCOMPARE(run.status, 1);
}

void FormatCommandTest::commentsOnRequest()
{
    Folder folder;
    folder.write("job.xml", jobWith("<Name>Ea", "<!-- a --><Name>Ea<!-- b -->") + "<!-- c -->");
    const Run run = folder.run({"format", "--drop-comments", "job.xml"});
    QCOMPARE(run.err, QString());
    QCOMPARE(run.out, QString::fromUtf8(completeJob()));
    QCOMPARE(run.status, 0);

    folder.write("job.xml", jobWith("<Name>", "<!-- a --><Name>") + "<?b?>");
    const Run refused = folder.run({"format", "--drop-comments", "job.xml"});
    QCOMPARE(refused.err,
             QString("job.xml:16:1: loss: the processing instruction \"b\" would be missing\n"
                     "job.xml: error: not written, since the lines above would be lost\n"));
    QCOMPARE(refused.out, QString());
    QCOMPARE(refused.status, 1);
}

void FormatCommandTest::nothingIsWrittenOnLoss_data()
{
    QTest::addColumn<QStringList>("options");

    QTest::newRow("in place") << QStringList{"--in-place"};
    QTest::newRow("new file") << QStringList{"-o", "new.xml"};
    QTest::newRow("file that is there") << QStringList{"-o", "old.xml"};
}

void FormatCommandTest::nothingIsWrittenOnLoss()
{
    QFETCH(QStringList, options);

    const QByteArray commented = "<!-- a -->" + jobWith("<?xml version=\"1.0\"?>\n", "");
    Folder folder;
    folder.write("job.xml", commented);
    folder.write("old.xml", "old");
    const Run run = folder.run(QStringList{"format", "job.xml"} + options);
    QCOMPARE(run.status, 1);
    QCOMPARE(folder.names(), (QStringList{"job.xml", "old.xml"}));
    QCOMPARE(folder.read("job.xml"), QString::fromUtf8(commented));
    QCOMPARE(folder.read("old.xml"), QString("old"));
}

void FormatCommandTest::refused_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("complaint");

    QTest::newRow("not complete") << jobWithoutAuthor() << "3:5: error: JobHeader: Please set Author";
    QTest::newRow("accepted, but nothing would be written")
        << jobOnDecoder()
        << "2:1: error: Job, not complete: the library accepts it but would write nothing for it";
    QTest::newRow("unknown element") << jobWith("<Name>", "<Nam/><Name>")
                                     << "11:9: error: Unknown Tag 'Nam' in 'AntennaData'.";
    QTest::newRow("not well-formed") << completeJob() + "<"
                                     << "16:2: error: Premature end of document.";
    QTest::newRow("namespace that is declared twice, before what would be lost")
        << jobWith("<JobHeader ", "<!--x--><JobHeader xmlns:x='a' xmlns:x='a' x:Foo='lost' ")
        << "3:36: error: The namespace declaration 'xmlns:x' stands twice in one element.";
    QTest::newRow("unknown kind") << QByteArray(
        "<Work/>") << "1:1: error: unknown kind of document 'Work' (allowed: " + knownKinds() + ")";
    QTest::newRow("mode of a workflow as an attribute")
        << QByteArray("<AutomaticWorkflow Version='1.0' Mode='ManualMode'/>")
        << "1:1: error: AutomaticWorkflow: the mode stands in the attribute \"Mode\", but it is read only "
           "from an element "
           "\"Mode\": "
           "the document is not complete";
    QTest::newRow("mode of a workflow as an element")
        << completeWorkflow()
        << "3:5: error: AutomaticWorkflow/Mode: the mode would be written as the attribute \"Mode\", but it "
           "is read only from an "
           "element "
           "\"Mode\": the rewritten document would not be complete";
    QTest::newRow("mode of a workflow as both")
        << with(completeWorkflow(), "Workflow Version", "Workflow Mode=\"ManualMode\" Version")
        << "3:5: error: AutomaticWorkflow/Mode: the mode would be written as the attribute \"Mode\", but it "
           "is read only from an "
           "element "
           "\"Mode\": the rewritten document would not be complete";
    QTest::newRow("workflow without a mode")
        << QByteArray("<AutomaticWorkflow/>") << "1:1: error: AutomaticWorkflow: Please set WorkflowMode";
    QTest::newRow("workflow with an unknown mode")
        << with(completeWorkflow(), "AutomaticMode", "Automatic")
        << "2:1: error: AutomaticWorkflow: Please set WorkflowMode";
    QTest::newRow("workflow with an unknown mode as an element")
        << with(completeWorkflow(), "AutomaticMode", "Automatic")
               .replace("Workflow Version", "Workflow Mode=\"ManualMode\" Version")
        << "2:1: error: AutomaticWorkflow: Please set WorkflowMode";
    QTest::newRow("workflow without a strategy")
        << with(completeWorkflow(), "    <SearchStrategy>LowestLevelFirst</SearchStrategy>\n", "")
        << "2:1: error: AutomaticWorkflow, not complete: the library accepts it but would write nothing for "
           "it";
    QTest::newRow("activity generation without a mode")
        << with(completeGeneration(), ">AGED<", ">AGE<")
        << "2:1: error: ActivityGeneration: Please set ActivityGenerationMode";
    QTest::newRow("parameter without a value type")
        << with(completeParameter(), "    <ValueType>ValueNumericInt</ValueType>\n", "")
        << "2:1: error: Parameter[Gain]: not complete: Parameter: Please set ValueType";
    QTest::newRow("parameter without a name")
        << with(completeParameter(), " UniqueName=\"Gain\"", "")
        << "2:1: error: Parameter: not complete: Parameter: Please set UniqueName attribute";
    QTest::newRow("parameter without data")
        << with(completeParameter(), "<ParameterType>Integer<", "<ParameterType>Double<")
        << "2:1: error: Parameter[Gain]: not complete: its handler holds no data";
    QTest::newRow("one incomplete parameter of a receiver")
        << with(completeReceiver(), "        <ParameterType>Enum</ParameterType>\n", "")
        << "3:5: error: GenericReceiver/Parameter[Filter]: not complete: Parameter: Please set ParameterType";
    QTest::newRow("incomplete parameter that another replaces")
        << with(completeReceiver(), "<Parameter Version=\"1.0\" UniqueName=\"Level\">",
                "<Parameter UniqueName=\"Level\"/><Parameter UniqueName=\"Level\">")
               .replace("<RepresentationName>rx.level<", "<RepresentationName><")
        << "13:36: error: GenericReceiver/Parameter[Level]: not complete: Parameter: Please set "
           "RepresentationName";
    QTest::newRow("not UTF-8") << QByteArray("\xFF") << "1:1: error: byte 0xff is not UTF-8";
}

void FormatCommandTest::refused()
{
    QFETCH(QByteArray, document);
    QFETCH(QString, complaint);

    Folder folder;
    folder.write("job.xml", document);
    const Run run = folder.run({"format", "--in-place", "--drop-comments", "job.xml"});
    QCOMPARE(run.err, "job.xml:" + complaint + "\n");
    QCOMPARE(run.out, QString());
    QCOMPARE(run.status, 1);
    QFile file(folder.path("job.xml"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), document);
}

void FormatCommandTest::severalFiles()
{
    const QByteArray untidy = completeJob().replace("    ", "\t");
    Folder folder;
    folder.write("a.xml", untidy);
    folder.write("bad.xml", jobWithoutAuthor());
    folder.write("commented.xml", untidy + "<!-- a -->");
    folder.write("z.xml", completeParameter().replace("\n", "\r\n"));
    const Run run = folder.run({"format", "--in-place", "a.xml", "bad.xml", "commented.xml", "z.xml"});
    QCOMPARE(
        run.err,
        QString(
            "bad.xml:3:5: error: JobHeader: Please set Author\n"
            "commented.xml:16:1: loss: the comment \" a \" would be missing\n"
            "commented.xml: error: not written, since the lines above would be lost (--drop-comments allows "
            "to lose comments)\n"));
    QCOMPARE(run.out, QString("a.xml\nz.xml\n"));
    QCOMPARE(run.status, 1);
    QCOMPARE(folder.read("a.xml"), QString(completeJob()));
    QCOMPARE(folder.read("bad.xml"), QString(jobWithoutAuthor()));
    QCOMPARE(folder.read("commented.xml"), QString(untidy + "<!-- a -->"));
    QCOMPARE(folder.read("z.xml"), QString(completeParameter()));

    const Run missing = folder.run({"format", "--in-place", "none.xml", "bad.xml"});
    QCOMPARE(missing.err,
             QString("none.xml: error: cannot be read: No such file or directory\n"
                     "bad.xml:3:5: error: JobHeader: Please set Author\n"));
    QCOMPARE(missing.status, 2);
}

void FormatCommandTest::severalFilesThatAreGood()
{
    Folder folder;
    folder.write("a.xml", completeJob().replace("    ", "\t"));
    folder.write("b.xml", completeJob() + "<!-- a -->");
    const Run run = folder.run({"format", "a.xml", "--drop-comments", "b.xml", "--in-place"});
    QCOMPARE(run.err, QString());
    QCOMPARE(run.out, QString("a.xml\nb.xml\n"));
    QCOMPARE(run.status, 0);
    QCOMPARE(folder.read("a.xml"), QString(completeJob()));
    QCOMPARE(folder.read("b.xml"), QString(completeJob()));
}

namespace {

/// What tells whether a file has been written, and whether it is another one.
QString stateOf(const QString &path)
{
#ifdef Q_OS_UNIX
    struct stat status { };
    if (stat(path.toLocal8Bit().constData(), &status) != 0)
        return {};
    return QString("%1 %2").arg(status.st_ino).arg(QFileInfo(path).lastModified().toMSecsSinceEpoch());
#else
    return QString::number(QFileInfo(path).lastModified().toMSecsSinceEpoch());
#endif
}

} // namespace

void FormatCommandTest::filesThatWouldNotChange_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<bool>("isChanged");

    QTest::newRow("as it would be written") << completeJob() << false;
    QTest::newRow("byte-order mark") << "\xEF\xBB\xBF" + completeJob() << true;
    QTest::newRow("encoding declared") << jobWith("\"1.0\"?>", "\"1.0\" encoding=\"UTF-8\"?>") << true;
    QTest::newRow("no line end") << completeJob().chopped(1) << true;
    QTest::newRow("comment to drop") << completeJob() + "<!-- a -->" << true;
}

void FormatCommandTest::filesThatWouldNotChange()
{
    QFETCH(QByteArray, document);
    QFETCH(bool, isChanged);

    const Folder folder;
    const QList<QStringList> calls{{"--in-place", "job.xml"}, {"job.xml", "-o", "./job.xml"}};
    for (const QStringList &arguments : calls) {
        folder.write("job.xml", document);
        QFile file(folder.path("job.xml"));
        QVERIFY(
            file.open(QIODevice::ReadWrite)
            && file.setFileTime(QDateTime::currentDateTime().addDays(-1), QFileDevice::FileModificationTime));
        file.close();
        const QString before = stateOf(folder.path("job.xml"));
        const Run run = folder.run(QStringList{"format", "--drop-comments"} + arguments);
        QCOMPARE(run.err, QString());
        QCOMPARE(run.out, isChanged && arguments.contains("--in-place") ? QString("job.xml\n") : QString());
        QCOMPARE(run.status, 0);
        QCOMPARE(stateOf(folder.path("job.xml")) != before, isChanged);
        QCOMPARE(folder.read("job.xml"), QString(completeJob()));
    }
}

void FormatCommandTest::check_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("out");
    QTest::addColumn<QString>("err");
    QTest::addColumn<int>("status");

    QTest::newRow("would not change") << completeJob() << ""
                                      << "" << 0;
    QTest::newRow("would change") << completeJob().replace("    ", "\t") << "%1\n"
                                  << "" << 1;
    QTest::newRow("byte-order mark") << "\xEF\xBB\xBF" + completeJob() << "%1\n"
                                     << "" << 1;
    QTest::newRow("at fault") << jobWithoutAuthor() << ""
                              << "%1:3:5: error: JobHeader: Please set Author\n"
                              << 1;
    QTest::newRow("loss") << completeJob() + "<!-- a -->"
                          << ""
                          << "%1:16:1: loss: the comment \" a \" would be missing\n"
                             "%1: error: would not be written, since the lines above would be lost "
                             "(--drop-comments allows to lose comments)\n"
                          << 1;
}

void FormatCommandTest::check()
{
    QFETCH(QByteArray, document);
    QFETCH(QString, out);
    QFETCH(QString, err);
    QFETCH(int, status);

    const Folder folder;
    folder.write("job.xml", document);
    const QString before = stateOf(folder.path("job.xml"));
    for (const QString name : {"job.xml", "-"}) {
        const Run run = folder.run({"format", "--check", name}, document);
        QCOMPARE(run.err, QString(err).replace("%1", name));
        QCOMPARE(run.out, QString(out).replace("%1", name));
        QCOMPARE(run.status, status);
    }
    QCOMPARE(stateOf(folder.path("job.xml")), before);
    QCOMPARE(TestSupport::bytesOf(folder.path("job.xml")), document);
    QCOMPARE(folder.names(), QStringList("job.xml"));
}

void FormatCommandTest::checkOfSeveralFiles()
{
    const QByteArray untidy = completeJob().replace("    ", "\t");
    const Folder folder;
    folder.write("a.xml", untidy);
    folder.write("b.xml", completeJob());
    folder.write("c.xml", completeJob() + "<!-- a -->");
    const Run run = folder.run({"format", "--check", "--drop-comments", "a.xml", "b.xml", "c.xml"});
    QCOMPARE(run.err, QString());
    QCOMPARE(run.out, QString("a.xml\nc.xml\n"));
    QCOMPARE(run.status, 1);
    const Run missing = folder.run({"format", "--check", "none.xml", "a.xml"});
    QCOMPARE(missing.err, QString("none.xml: error: cannot be read: No such file or directory\n"));
    QCOMPARE(missing.out, QString("a.xml\n"));
    QCOMPARE(missing.status, 2);
    QCOMPARE(folder.read("a.xml"), QString(untidy));
}

void FormatCommandTest::namesOfChangedFiles()
{
    const QByteArray untidy = completeJob().replace("    ", "\t");
    const Folder folder;
    const QString name = "a\nb.xml";
    folder.write(name, untidy);
    QCOMPARE(folder.run({"format", "--check", name}).out, QString("a\\nb.xml\n"));
    QCOMPARE(folder.run({"format", "--in-place", name}).out, QString("a\\nb.xml\n"));
    QCOMPARE(folder.read(name), QString(completeJob()));

    if (!QFile::exists("/dev/full")) {
        skip("there is no device that is always full");
        return;
    }
    // That nobody can be told leaves no file out.
    QStringList names;
    for (int i = 0; i < 50; ++i) {
        names << QString(200, 'a') + QString::number(i);
        folder.write(names.last(), untidy);
    }
    const Run run = folder.run(QStringList{"format", "--in-place"} + names, {}, "/dev/full");
    QCOMPARE(run.err, QString("kormak: standard output: No space left on device\n"));
    QCOMPARE(run.status, 2);
    for (const QString &one : names)
        QCOMPARE(folder.read(one), QString(completeJob()));
}

void FormatCommandTest::incompleteParameters()
{
    Folder folder;
    folder.write("r.xml",
                 "<GenericReceiver>\n"
                 "<Parameter UniqueName='z'><ParameterType>Integer</ParameterType></Parameter>\n"
                 "<Parameter UniqueName='b'><RepresentationName>b</RepresentationName>"
                 "<ValueType>ValueBoolean</ValueType><Boolean>true</Boolean></Parameter>\n"
                 "<Parameter UniqueName='good'><RepresentationName>i</RepresentationName>"
                 "<ValueType>ValueNumericInt</ValueType><ParameterType>Integer</ParameterType></Parameter>\n"
                 "<Parameter UniqueName='a'><RepresentationName>a</RepresentationName>"
                 "<ValueType>ValueString</ValueType><ParameterType>String</ParameterType>"
                 "<String Default='x'/></Parameter>\n"
                 "<Parameter/>\n"
                 "</GenericReceiver>\n");
    const Run run = folder.run({"format", "r.xml"});
    QCOMPARE(
        run.err,
        QString(
            "r.xml:2:1: error: GenericReceiver/Parameter[z]: not complete: Parameter: Please set ValueType\n"
            "r.xml:3:1: error: GenericReceiver/Parameter[b]: not complete: Parameter: Please set "
            "ParameterType\n"
            "r.xml:5:1: error: GenericReceiver/Parameter[a]: not complete: its handler holds no data\n"
            "r.xml:6:1: error: GenericReceiver/Parameter: not complete: Parameter: Please set "
            "ParameterType\n"));
    QCOMPARE(run.out, QString());
    QCOMPARE(run.status, 1);
}

void FormatCommandTest::unwritable_data()
{
    QTest::addColumn<QString>("target");
    QTest::addColumn<QString>("reason");

    QTest::newRow("in a missing folder") << "none/job.xml"
                                         << "No such file or directory";
    QTest::newRow("folder") << "."
                            << "Filename refers to a directory";
}

void FormatCommandTest::unwritable()
{
    QFETCH(QString, target);
    QFETCH(QString, reason);

    Folder folder;
    folder.write("job.xml", completeJob());
    const Run run = folder.run({"format", "job.xml", "-o", target});
    QCOMPARE(run.err, target + ": error: cannot be written: " + reason + "\n");
    QCOMPARE(run.out, QString());
    QCOMPARE(run.status, 2);
    QCOMPARE(folder.names(), QStringList{"job.xml"});
}

void FormatCommandTest::fullDisk()
{
#ifdef Q_OS_UNIX
    const QByteArray untidy = completeJob().replace("    ", "\t");
    Folder folder;
    folder.write("job.xml", untidy);
    const Run run = runOnFullDisk(folder, {"format", "--in-place", "job.xml"});
    QVERIFY2(run.err.startsWith("job.xml: error: cannot be written: "), qPrintable(run.err));
    QCOMPARE(run.out, QString());
    QCOMPARE(run.status, 2);
    QCOMPARE(folder.read("job.xml"), QString::fromUtf8(untidy));
    QCOMPARE(folder.names(), QStringList("job.xml"));
#else
    skip("no limit on the size of files here");
#endif
}

void FormatCommandTest::largeDocument()
{
    const QByteArray line = "fifty megabytes of text in lines that are sixty-four bytes long\n";
    const QByteArray job = jobWith("Mara Lind", line.repeated(800000));
    Folder folder;
    folder.write("job.xml", job);
    const Run run = folder.run({"format", "job.xml", "-o", "out.xml"});
    QCOMPARE(run.err, QString());
    QCOMPARE(run.status, 0);
    QVERIFY(folder.read("out.xml") == QString::fromUtf8(job));
}

QTEST_GUILESS_MAIN(FormatCommandTest)
#include "FormatCommandTest.moc"
