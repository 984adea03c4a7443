#include "ToolSupport.h"

#include <QRegularExpression>

using namespace ToolSupport;

class ShowCommandTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void documents_data();
    void documents();
    void parameterTypes_data();
    void parameterTypes();
    void frequencies_data();
    void frequencies();
    void controlCharacters();
    void standardInput();
    void faulty_data();
    void faulty();
};

void ShowCommandTest::documents_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("shown");

    QTest::newRow("complete") << completeJob()
                              << "Job, complete\n"
                                 "Version:              1.0\n"
                                 "Job header:\n"
                                 "  Version:            1.0\n"
                                 "  Job type:           Antenna\n"
                                 "  Author:             Mara Lind\n"
                                 "  Creation:           2026-03-29 00:59:59.250 UTC\n"
                                 "  Show data header:   yes\n"
                                 "  Description:        not set\n"
                                 "Resource type:        Antenna\n"
                                 "Antenna data:\n"
                                 "  Version:            1.0\n"
                                 "  Name:               East\n"
                                 "  Minimum frequency:  1500000 Hz (1.5 MHz)\n"
                                 "  Maximum frequency:  30000000 Hz (30 MHz)\n"
                                 "  Azimuth:            not set\n"
                                 "  Polarization:       not set\n";
    QTest::newRow("everything set")
        << jobWith("true</ShowJDH>", "false</ShowJDH><Description>first\n  second</Description>")
               .replace("<Name>", "<Azimuth>45.5</Azimuth><Polarization>Slant</Polarization><Name>")
        << "Job, complete\n"
           "Version:              1.0\n"
           "Job header:\n"
           "  Version:            1.0\n"
           "  Job type:           Antenna\n"
           "  Author:             Mara Lind\n"
           "  Creation:           2026-03-29 00:59:59.250 UTC\n"
           "  Show data header:   no\n"
           "  Description:        first\n"
           "                        second\n"
           "Resource type:        Antenna\n"
           "Antenna data:\n"
           "  Version:            1.0\n"
           "  Name:               East\n"
           "  Minimum frequency:  1500000 Hz (1.5 MHz)\n"
           "  Maximum frequency:  30000000 Hz (30 MHz)\n"
           "  Azimuth:            45.5 degrees\n"
           "  Polarization:       Slant\n";
    QTest::newRow("empty") << QByteArray("<Job/>")
                           << "Job, not complete: JobHeader: Please set Author\n"
                              "Version:             not set\n"
                              "Job header:\n"
                              "  Version:           1.0\n"
                              "  Job type:          not set\n"
                              "  Author:            not set\n"
                              "  Creation:          not set\n"
                              "  Show data header:  yes\n"
                              "  Description:       not set\n"
                              "Resource type:       not set\n";
    QTest::newRow("search job") << QByteArray(
        "<Job Version='2'><JobHeader Version='3'><JobType>Search MC HF</JobType></JobHeader></Job>")
                                << "Job, not complete: JobHeader: Please set Author\n"
                                   "Version:                 2\n"
                                   "Job header:\n"
                                   "  Version:               3\n"
                                   "  Job type:              Search MC HF\n"
                                   "  Author:                not set\n"
                                   "  Creation:              not set\n"
                                   "  Show data header:      yes\n"
                                   "  Description:           not set\n"
                                   "  Connectable resource:  not set\n"
                                   "Resource type:           not set\n";
    QTest::newRow("antenna data on another resource")
        << QByteArray(
               "<Job><ResourceType>Decoder</ResourceType><AntennaData><Name>East</Name></AntennaData></Job>")
        << "Job, not complete: JobHeader: Please set Author\n"
           "Version:              not set\n"
           "Job header:\n"
           "  Version:            1.0\n"
           "  Job type:           not set\n"
           "  Author:             not set\n"
           "  Creation:           not set\n"
           "  Show data header:   yes\n"
           "  Description:        not set\n"
           "Resource type:        Decoder\n"
           "Antenna data (never written: not the antenna resource):\n"
           "  Version:            not set\n"
           "  Name:               East\n"
           "  Minimum frequency:  not set\n"
           "  Maximum frequency:  not set\n"
           "  Azimuth:            not set\n"
           "  Polarization:       not set\n";

    QTest::newRow("workflow") << completeWorkflow()
                              << "AutomaticWorkflow, complete\n"
                                 "Version:                      1.0\n"
                                 "Workflow mode:                AutomaticMode\n"
                                 "Classifiers:                  8\n"
                                 "Classification time:          25\n"
                                 "Classification results:       4\n"
                                 "Search strategy:              LowestLevelFirst\n"
                                 "HF bitstream classification:  yes\n"
                                 "Area:\n"
                                 "  Version:                    1.0\n"
                                 "  Name:                       North\n"
                                 "  Coordinate:                 latitude 53.55, longitude -7.1\n";
    QTest::newRow("empty workflow") << QByteArray("<AutomaticWorkflow/>")
                                    << "AutomaticWorkflow, not complete: AutomaticWorkflow: Please set "
                                       "WorkflowMode\n"
                                       "Version:                      not set\n"
                                       "Workflow mode:                not set\n"
                                       "Classifiers:                  1\n"
                                       "Classification time:          40\n"
                                       "Classification results:       3\n"
                                       "Search strategy:              not set\n"
                                       "HF bitstream classification:  no\n";
    QTest::newRow("area without a place")
        << QByteArray("<AutomaticWorkflow><Mode>ManualMode</Mode><Area><Coordinate><Latitude>nan</Latitude>"
                      "<Longitude>1e20</Longitude></Coordinate></Area></AutomaticWorkflow>")
        << "AutomaticWorkflow, complete\n"
           "Version:                      not set\n"
           "Workflow mode:                ManualMode\n"
           "Classifiers:                  1\n"
           "Classification time:          40\n"
           "Classification results:       3\n"
           "Search strategy:              not set\n"
           "HF bitstream classification:  no\n"
           "Area:\n"
           "  Version:                    not set\n"
           "  Name:                       not set\n"
           "  Coordinate:                 latitude nan, longitude 1e+20\n";
    QTest::newRow("activity generation")
        << completeGeneration()
        << "ActivityGeneration, complete\n"
           "Version:                                      2.2\n"
           "Generation mode:                              AGED\n"
           "Starts by itself:                             yes\n"
           "Energy channel:                               DDem\n"
           "Level: minimum burst duration:                0.2\n"
           "Level: maximum break duration:                1.5\n"
           "Demodulator: active criteria:                 Signal Detection\n"
           "Demodulator: minimum burst duration:          0.75\n"
           "Demodulator: maximum break duration:          2.5\n"
           "Demodulator: Morse quality threshold:         65\n"
           "Classifier: intermediate score:               2\n"
           "Classifier: final score:                      5\n"
           "Classifier: start score:                      4\n"
           "Classifier: stop score:                       1\n"
           "Classifier: minimum confidence:               60\n"
           "Detection converter: minimum burst duration:  0.05\n"
           "Database: energy detections:                  no\n"
           "Database: demodulator results:                Always\n"
           "Database: classifier results:                 On Energy Detection\n"
           "Cut at locations:                             yes\n"
           "Session close time:                           30\n"
           "Restart attachments on session close:         yes\n";
    QTest::newRow("activity generation with unknown names")
        << QByteArray(
               "<ActivityGeneration><EnergyChannel>x</EnergyChannel><DDemActiveCriteria/><DbWriteDDem/>"
               "<DbWriteClass/><ClassStopScore>-7</ClassStopScore>"
               "<SessionCloseTime>0.123456789</SessionCloseTime></ActivityGeneration>")
        << "ActivityGeneration, not complete: ActivityGeneration: Please set ActivityGenerationMode\n"
           "Version:                                      not set\n"
           "Generation mode:                              not set\n"
           "Starts by itself:                             no\n"
           "Energy channel:                               not set\n"
           "Level: minimum burst duration:                0.5\n"
           "Level: maximum break duration:                0.5\n"
           "Demodulator: active criteria:                 not set\n"
           "Demodulator: minimum burst duration:          0.5\n"
           "Demodulator: maximum break duration:          0.5\n"
           "Demodulator: Morse quality threshold:         80\n"
           "Classifier: intermediate score:               1\n"
           "Classifier: final score:                      3\n"
           "Classifier: start score:                      3\n"
           "Classifier: stop score:                       -7\n"
           "Classifier: minimum confidence:               0\n"
           "Detection converter: minimum burst duration:  0\n"
           "Database: energy detections:                  yes\n"
           "Database: demodulator results:                not set\n"
           "Database: classifier results:                 not set\n"
           "Cut at locations:                             yes\n"
           "Session close time:                           0.123457\n"
           "Restart attachments on session close:         no\n";
    QTest::newRow("receiver") << completeReceiver()
                              << "GenericReceiver, complete\n"
                                 "Version:                1.0\n"
                                 "Parameters:             2\n"
                                 "Filter:\n"
                                 "  Representation name:  rx.filter\n"
                                 "  Value type:           ValueSelection\n"
                                 "  Parameter type:       Enum\n"
                                 "  Entry 1:              Narrow (0.5)\n"
                                 "  Entry 2:              Wide (2, w), default\n"
                                 "Level:\n"
                                 "  Representation name:  rx.level\n"
                                 "  Value type:           ValueNumericFloat\n"
                                 "  Parameter type:       Float\n"
                                 "  Limits:               -20 to 120\n"
                                 "  Default:              0\n"
                                 "  Decimals:             1\n";
    QTest::newRow("receiver with incomplete parameters")
        << QByteArray("<GenericReceiver Version='1.0'><Parameter UniqueName='a&#10;long, long, long name'/>"
                      "<Parameter/></GenericReceiver>")
        << "GenericReceiver, not complete: the library accepts it but would write nothing for it\n"
           "Version:                1.0\n"
           "Parameters:             2\n"
           "(no unique name):\n"
           "  Representation name:  not set\n"
           "  Value type:           not set\n"
           "  Parameter type:       not set\n"
           "a\\nlong, long, long name:\n"
           "  Representation name:  not set\n"
           "  Value type:           not set\n"
           "  Parameter type:       not set\n";
    QTest::newRow("parameter") << completeParameter()
                               << "Parameter, complete\n"
                                  "Unique name:          Gain\n"
                                  "Representation name:  rx.gain\n"
                                  "Value type:           ValueNumericInt\n"
                                  "Parameter type:       Integer\n"
                                  "Limits:               0 to 40\n"
                                  "Default:              20\n";
    QTest::newRow("parameter with everything set")
        << with(completeParameter(), "<ValueType>",
                "<DisplayName>Gain</DisplayName><ToolTip>first\nsecond</ToolTip><ControlType>VCLineEdit</"
                "ControlType>"
                "<DisplaySuffix>dB</DisplaySuffix><Multiplier>0.25</Multiplier><ValueType>")
               .replace(">true<", ">false<")
        << "Parameter, complete\n"
           "Unique name:          Gain\n"
           "Representation name:  rx.gain\n"
           "Display name:         Gain\n"
           "Tool tip:             first\n"
           "                      second\n"
           "Value type:           ValueNumericInt\n"
           "Control type:         VCLineEdit\n"
           "Unit:                 dB\n"
           "Multiplier:           0.25\n"
           "Enabled:              no\n"
           "Parameter type:       Integer\n"
           "Limits:               0 to 40\n"
           "Default:              20\n";
    QTest::newRow("empty parameter") << QByteArray("<Parameter/>")
                                     << "Parameter, not complete: Parameter: Please set ParameterType\n"
                                        "Unique name:          not set\n"
                                        "Representation name:  not set\n"
                                        "Value type:           not set\n"
                                        "Parameter type:       not set\n";
}

void ShowCommandTest::parameterTypes_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("shown"); // behind the type

    QTest::newRow("boolean") << QByteArray("<Boolean>true</Boolean>") << "Boolean"
                             << "Value: yes\n";
    QTest::newRow("long") << QByteArray("<Long><Minimum>-2147483647</Minimum><Maximum>7</Maximum></Long>")
                          << "Long"
                          << "Limits: -2147483647 to 7\n"
                             "Default: 0\n";
    QTest::newRow("integer without limits") << QByteArray() << "Integer"
                                            << "Limits: -32768 to 32767\n"
                                               "Default: 0\n";
    QTest::newRow("string") << QByteArray("<String><Default>north</Default></String>") << "String"
                            << "Default: north\n";
    QTest::newRow("string without a default") << QByteArray() << "String"
                                              << "Default: not set\n";
    QTest::newRow("double") << QByteArray("<Double><Minimum>0.1</Minimum><Maximum>1234567.125</Maximum>"
                                          "<Default>1e20</Default><Precision>3</Precision></Double>")
                            << "Double"
                            << "Limits: 0.1 to 1234567.125\n"
                               "Default: 1e+20\n"
                               "Decimals: 3\n";
    QTest::newRow("double without limits") << QByteArray() << "Double"
                                           << "Limits: none\n"
                                              "Default: 0\n"
                                              "Decimals: 2\n";
    QTest::newRow("double list") << QByteArray(
        "<Double><Minimum>1</Minimum><MaxDoubleListLength>8</MaxDoubleListLength></Double>")
                                 << "DoubleList"
                                 << "Limits: at least 1\n"
                                    "Default: 0\n"
                                    "Decimals: 2\n"
                                    "Maximum length: 8\n";
    QTest::newRow("float") << QByteArray("<Float><Maximum>0.1234567</Maximum></Float>") << "Float"
                           << "Limits: at most 0.123457\n"
                              "Default: 0\n"
                              "Decimals: 2\n";
    QTest::newRow("enumeration without entries") << QByteArray("<Enum/>") << "Enum"
                                                 << "";
    QTest::newRow("time stamp") << QByteArray("<TimeStamp><Default>253402300799999</Default></TimeStamp>")
                                << "TimeStamp"
                                << "Limits: -9223372036854775808 to 9223372036854775807\n"
                                   "Default: 253402300799999\n";
}

void ShowCommandTest::parameterTypes()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, type);
    QFETCH(QString, shown);

    Folder folder;
    folder.write("p.xml",
                 "<Parameter><ParameterType>" + type.toUtf8() + "</ParameterType>" + content
                     + "</Parameter>");
    const Run run = folder.run({"show", "p.xml"});
    const QString label = "Parameter type:";
    const QString lines = run.out.mid(run.out.indexOf(label)).replace(QRegularExpression(": +"), ": ");
    QCOMPARE(lines, label + " " + type + "\n" + shown);
    QCOMPARE(run.err, QString());
    QCOMPARE(run.status, 0);
}

void ShowCommandTest::documents()
{
    QFETCH(QByteArray, document);
    QFETCH(QString, shown);

    Folder folder;
    folder.write("job.xml", document);
    const Run run = folder.run({"show", "job.xml"});
    QCOMPARE(run.err, QString());
    QCOMPARE(run.out, shown);
    QCOMPARE(run.status, 0);
}

void ShowCommandTest::frequencies_data()
{
    QTest::addColumn<QByteArray>("text");
    QTest::addColumn<QString>("shown");

    QTest::newRow("zero") << QByteArray("0") << "0 Hz";
    QTest::newRow("below a kilohertz") << QByteArray("999.5") << "999.5 Hz";
    QTest::newRow("kilohertz") << QByteArray("1000") << "1000 Hz (1 kHz)";
    QTest::newRow("below a megahertz") << QByteArray("999999") << "999999 Hz (999.999 kHz)";
    QTest::newRow("megahertz") << QByteArray("1e6") << "1000000 Hz (1 MHz)";
    QTest::newRow("gigahertz") << QByteArray("2400000000") << "2400000000 Hz (2.4 GHz)";
    QTest::newRow("many digits") << QByteArray("123456789.125") << "123456789.125 Hz (123.456789125 MHz)";
    QTest::newRow("inexact in the larger unit") << QByteArray("100100") << "100100 Hz (100.1 kHz)";
    QTest::newRow("negative") << QByteArray("-1500") << "-1500 Hz (-1.5 kHz)";
    QTest::newRow("huge") << QByteArray("1e20") << "1e+20 Hz (100000000000 GHz)";
    QTest::newRow("infinite") << QByteArray("inf") << "inf Hz";
    QTest::newRow("no number") << QByteArray("nan") << "not set";
}

void ShowCommandTest::frequencies()
{
    QFETCH(QByteArray, text);
    QFETCH(QString, shown);

    Folder folder;
    folder.write("job.xml", jobWith(">1500000<", ">" + text + "<"));
    const Run run = folder.run({"show", "job.xml"});
    const QStringList lines = run.out.split('\n').filter("Minimum frequency:");
    QCOMPARE(lines, QStringList{"  Minimum frequency:  " + shown});
}

void ShowCommandTest::controlCharacters()
{
    Folder folder;
    folder.write("job.xml",
                 jobWith("Mara Lind",
                         "Mara\xC2\x9B"
                         "2J\tLind&#13;\xE2\x80\xA8x"));
    const Run run = folder.run({"show", "job.xml"});
    QCOMPARE(run.out.split('\n').filter("Author"),
             QStringList{"  Author:             Mara\\u009b2J\\tLind\\r\\u2028x"});
}

void ShowCommandTest::standardInput()
{
    Folder folder;
    folder.write("job.xml", completeJob());
    QCOMPARE(folder.run({"show", "-"}, completeJob()).out, folder.run({"show", "job.xml"}).out);
}

void ShowCommandTest::faulty_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("complaint");
    QTest::addColumn<int>("status");

    QTest::newRow("unknown element") << "tag.xml"
                                     << "tag.xml:1:6: error: Unknown Tag 'Foo' in 'Job'.\n"
                                     << 1;
    QTest::newRow("missing") << "none.xml"
                             << "none.xml: error: cannot be read: No such file or directory\n"
                             << 2;
}

void ShowCommandTest::faulty()
{
    QFETCH(QString, name);
    QFETCH(QString, complaint);
    QFETCH(int, status);

    Folder folder;
    folder.write("tag.xml", "<Job><Foo/></Job>");
    const Run run = folder.run({"show", name});
    QCOMPARE(run.out, QString());
    QCOMPARE(run.err, complaint);
    QCOMPARE(run.status, status);
}

QTEST_GUILESS_MAIN(ShowCommandTest)
#include "ShowCommandTest.moc"
