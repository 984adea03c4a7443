#include <tests/support/ToolSupport.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

using namespace ToolSupport;

class ShowCommandTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void documents_data();
    void documents();
    void parameterTypes_data();
    void parameterTypes();
    void jobTypeWrittenAsAnother();
    void oddDataHeaderFlag();
    void json_data();
    void json();
    void jsonOfAnyDocument_data();
    void jsonOfAnyDocument();
    void unknownFormat_data();
    void unknownFormat();
    void frequencies_data();
    void frequencies();
    void controlCharacters();
    void terminals_data();
    void terminals();
    void nothingIsLostOnTerminals();
    void singleParameters_data();
    void singleParameters();
    void singleParametersInJson();
    void wrongParameters_data();
    void wrongParameters();
    void standardInput();
    void otherTexts_data();
    void otherTexts();
    void partlyRead_data();
    void partlyRead();
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
           "Energy channel:                               not set (document says \"x\")\n"
           "Level: minimum burst duration:                0.5\n"
           "Level: maximum break duration:                0.5\n"
           "Demodulator: active criteria:                 not set (document says \"\")\n"
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
           "Database: demodulator results:                not set (document says \"\")\n"
           "Database: classifier results:                 not set (document says \"\")\n"
           "Cut at locations:                             yes\n"
           "Session close time:                           0.12345679\n"
           "Restart attachments on session close:         no\n";
    QTest::newRow("receiver")
        << completeReceiver()
        << "GenericReceiver, complete\n"
           "Version:     1.0\n"
           "Parameters:  2\n"
           "  Unique name  Parameter type  Minimum  Maximum  Default        Decimals  Representation name  "
           "Value type\n"
           "  Filter       Enum                              2 Wide (2, w)            rx.filter            "
           "ValueSelection\n"
           "    Entry:  1 Narrow (0.5)\n"
           "    Entry:  2 Wide (2, w)\n"
           "  Level        Float           -20      120      0              1         rx.level             "
           "ValueNumericFloat\n";
    QTest::newRow("receiver without parameters") << QByteArray("<GenericReceiver Version='2'/>")
                                                 << "GenericReceiver, complete\n"
                                                    "Version:     2\n"
                                                    "Parameters:  0\n";
    QTest::newRow("receiver with incomplete parameters")
        << QByteArray("<GenericReceiver Version='1.0'><Parameter UniqueName='a&#10;long, long, long name'/>"
                      "<Parameter/></GenericReceiver>")
        << "GenericReceiver, not complete: the library accepts it but would write nothing for it\n"
           "Version:     1.0\n"
           "Parameters:  2\n"
           "  Unique name               Parameter type  Representation name  Value type\n"
           "  not set                   not set         not set              not set\n"
           "  a\\nlong, long, long name  not set         not set              not set\n";
    QTest::newRow("receiver with long texts")
        << with(completeReceiver(), "<RepresentationName>rx.filter</RepresentationName>",
                "<RepresentationName>a.name.that.is.too.long.for.a.cell</RepresentationName>"
                "<DisplayName>two\nlines</DisplayName><ToolTip>short</ToolTip><Multiplier>0.25</Multiplier>")
        << "GenericReceiver, complete\n"
           "Version:     1.0\n"
           "Parameters:  2\n"
           "  Unique name  Parameter type  Minimum  Maximum  Default        Decimals  Representation name  "
           "Value type         Multiplier\n"
           "  Filter       Enum                              2 Wide (2, w)                                 "
           "ValueSelection     0.25\n"
           "    Entry:                1 Narrow (0.5)\n"
           "    Entry:                2 Wide (2, w)\n"
           "    Representation name:  a.name.that.is.too.long.for.a.cell\n"
           "    Display name:         two\n"
           "                          lines\n"
           "    Tool tip:             short\n"
           "  Level        Float           -20      120      0              1         rx.level             "
           "ValueNumericFloat\n";
    QTest::newRow("receiver with a disabled parameter on a control")
        << with(completeReceiver().replace("<Enable>true</Enable>", "<Enable>false</Enable>"),
                "<ValueType>ValueNumericFloat</ValueType>",
                "<ValueType>ValueNumericFloat</ValueType><ControlType>VCLineEdit</ControlType>"
                "<DisplaySuffix>dB\xC2\xB5V</DisplaySuffix><DisplayName>Level</DisplayName>")
        << QString("GenericReceiver, complete\n"
                   "Version:     1.0\n"
                   "Parameters:  2\n"
                   "  Unique name  Parameter type  Unit  Minimum  Maximum  Default        Decimals  "
                   "Representation name  Value type         Control type  Enabled  Display name\n"
                   "  Filter       Enum                                    2 Wide (2, w)            "
                   "rx.filter            ValueSelection                   no\n"
                   "    Entry:  1 Narrow (0.5)\n"
                   "    Entry:  2 Wide (2, w)\n"
                   "  Level        Float           dB\xC2\xB5V  -20      120      0              1         "
                   "rx.level             ValueNumericFloat  VCLineEdit    no       Level\n");
    QTest::newRow("parameter") << completeParameter()
                               << "Parameter, complete\n"
                                  "Unique name:          Gain\n"
                                  "Parameter type:       Integer\n"
                                  "Minimum:              0\n"
                                  "Maximum:              40\n"
                                  "Default:              20\n"
                                  "Representation name:  rx.gain\n"
                                  "Value type:           ValueNumericInt\n";
    QTest::newRow("parameter with everything set")
        << with(completeParameter(), "<ValueType>",
                "<DisplayName>Gain</DisplayName><ToolTip>first\nsecond</ToolTip><ControlType>VCLineEdit</"
                "ControlType>"
                "<DisplaySuffix>dB</DisplaySuffix><Multiplier>0.25</Multiplier><ValueType>")
               .replace(">true<", ">false<")
        << "Parameter, complete\n"
           "Unique name:          Gain\n"
           "Parameter type:       Integer\n"
           "Unit:                 dB\n"
           "Minimum:              0\n"
           "Maximum:              40\n"
           "Default:              20\n"
           "Representation name:  rx.gain\n"
           "Value type:           ValueNumericInt\n"
           "Control type:         VCLineEdit\n"
           "Multiplier:           0.25\n"
           "Enabled:              no\n"
           "Display name:         Gain\n"
           "Tool tip:             first\n"
           "                      second\n";
    QTest::newRow("empty parameter") << QByteArray("<Parameter/>")
                                     << "Parameter, not complete: Parameter: Please set ParameterType\n"
                                        "Unique name:          not set\n"
                                        "Parameter type:       not set\n"
                                        "Representation name:  not set\n"
                                        "Value type:           not set\n";
}

void ShowCommandTest::parameterTypes_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("shown"); // behind the type

    QTest::newRow("boolean") << QByteArray("<Boolean>true</Boolean>") << "Boolean (never written)"
                             << "Value: yes\n";
    QTest::newRow("long") << QByteArray("<Long><Minimum>-2147483647</Minimum><Maximum>7</Maximum></Long>")
                          << "Long"
                          << "Minimum: -2147483647\n"
                             "Maximum: 7\n"
                             "Default: 0\n";
    QTest::newRow("integer without limits") << QByteArray() << "Integer"
                                            << "Minimum: -32768\n"
                                               "Maximum: 32767\n"
                                               "Default: 0\n";
    QTest::newRow("string") << QByteArray("<String><Default>north</Default></String>") << "String"
                            << "Default: north\n";
    QTest::newRow("string without a default") << QByteArray() << "String"
                                              << "Default: not set\n";
    QTest::newRow("double") << QByteArray("<Double><Minimum>0.1</Minimum><Maximum>1234567.125</Maximum>"
                                          "<Default>1e20</Default><Precision>3</Precision></Double>")
                            << "Double"
                            << "Minimum: 0.1\n"
                               "Maximum: 1234567.125\n"
                               "Default: 1e+20\n"
                               "Decimals: 3\n";
    QTest::newRow("double without limits") << QByteArray() << "Double"
                                           << "Minimum: none\n"
                                              "Maximum: none\n"
                                              "Default: 0\n"
                                              "Decimals: 2\n";
    QTest::newRow("double list") << QByteArray(
        "<Double><Minimum>1</Minimum><MaxDoubleListLength>8</MaxDoubleListLength></Double>")
                                 << "DoubleList"
                                 << "Minimum: 1\n"
                                    "Maximum: none\n"
                                    "Default: 0\n"
                                    "Decimals: 2\n"
                                    "Maximum length: 8\n";
    QTest::newRow("float") << QByteArray("<Float><Maximum>0.1234567</Maximum></Float>") << "Float"
                           << "Minimum: none\n"
                              "Maximum: 0.1234567\n"
                              "Default: 0\n"
                              "Decimals: 2\n";
    QTest::newRow("enumeration without entries") << QByteArray("<Enum/>") << "Enum"
                                                 << "";
    QTest::newRow("time stamp") << QByteArray("<TimeStamp><Default>253402300799999</Default></TimeStamp>")
                                << "TimeStamp"
                                << "Minimum: -9223372036854775808\n"
                                   "Maximum: 9223372036854775807\n"
                                   "Default: 253402300799999\n";
}

void ShowCommandTest::parameterTypes()
{
    QFETCH(QByteArray, content);
    QFETCH(QString, type);
    QFETCH(QString, shown);

    Folder folder;
    folder.write("p.xml",
                 "<Parameter><ParameterType>" + type.section(' ', 0, 0).toUtf8() + "</ParameterType>"
                     + content + "</Parameter>");
    const Run run = folder.run({"show", "p.xml"});
    const QString label = "Parameter type:";
    const QString lines = run.out.mid(run.out.indexOf(label)).replace(QRegularExpression(": +"), ": ");
    QCOMPARE(lines,
             label + " " + type + "\n" + shown + "Representation name: not set\nValue type: not set\n");
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

void ShowCommandTest::jobTypeWrittenAsAnother()
{
    Folder folder;
    folder.write("job.xml", jobWith(">Antenna</JobType>", ">Search MC VUHF</JobType>"));
    const Run run = folder.run({"show", "job.xml"});
    QCOMPARE(run.out.split('\n').filter("Job type"),
             QStringList{"  Job type:              Search MC VUHF (written as \"Surveillance MC VUHF\")"});
}

void ShowCommandTest::oddDataHeaderFlag()
{
    Folder folder;
    folder.write("odd.xml", jobWith(">true</ShowJDH>", ">T&amp;RUE</ShowJDH>"));
    QCOMPARE(folder.run({"show", "odd.xml"}).out.split('\n').filter("data header"),
             (QStringList{"  Show data header:              no (document says \"T&RUE\")",
                          "  Show data header, as written:  T&RUE"}));
    folder.write("empty.xml", jobWith(">true</ShowJDH>", "></ShowJDH>"));
    QCOMPARE(
        folder.run({"show", "empty.xml"}).out.split('\n').filter("data header"),
        (QStringList{"  Show data header:              no", "  Show data header, as written:  not set"}));
}

void ShowCommandTest::json_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("shown");

    QTest::newRow("job") << completeJob().replace("Mara Lind", "M\xC3\xA4r\xC3\xA4 \"L\"&#9;\xF0\x9F\x93\xA1")
                         << QString("{\n"
                                    "  \"kind\": \"Job\",\n"
                                    "  \"complete\": true,\n"
                                    "  \"reason\": null,\n"
                                    "  \"fields\": {\n"
                                    "    \"Version\": \"1.0\",\n"
                                    "    \"JobHeader\": {\n"
                                    "      \"Version\": \"1.0\",\n"
                                    "      \"JobType\": \"Antenna\",\n"
                                    "      \"Author\": \"M\u00E4r\u00E4 \\\"L\\\"\\t\U0001F4E1\",\n"
                                    "      \"Creation\": \"2026-03-29T00:59:59,250Z\",\n"
                                    "      \"ShowJDH\": true,\n"
                                    "      \"Description\": null,\n"
                                    "      \"ConnectableResource\": null\n"
                                    "    },\n"
                                    "    \"ResourceType\": \"Antenna\",\n"
                                    "    \"AntennaData\": {\n"
                                    "      \"Version\": \"1.0\",\n"
                                    "      \"Name\": \"East\",\n"
                                    "      \"MinimumFrequency\": 1500000,\n"
                                    "      \"MaximumFrequency\": 30000000,\n"
                                    "      \"Azimuth\": null,\n"
                                    "      \"Polarization\": null\n"
                                    "    }\n"
                                    "  }\n"
                                    "}\n");
    QTest::newRow("workflow") << completeWorkflow().replace("-7.1", "nan").replace("53.55", "0.1")
                              << QString("{\n"
                                         "  \"kind\": \"AutomaticWorkflow\",\n"
                                         "  \"complete\": true,\n"
                                         "  \"reason\": null,\n"
                                         "  \"fields\": {\n"
                                         "    \"Version\": \"1.0\",\n"
                                         "    \"Mode\": \"AutomaticMode\",\n"
                                         "    \"Classifiers\": 8,\n"
                                         "    \"ClassificationTime\": 25,\n"
                                         "    \"ClassificationResult\": 4,\n"
                                         "    \"SearchStrategy\": \"LowestLevelFirst\",\n"
                                         "    \"BitstreamClassification\": true,\n"
                                         "    \"Area\": {\n"
                                         "      \"Version\": \"1.0\",\n"
                                         "      \"Name\": \"North\",\n"
                                         "      \"Coordinate\": [\n"
                                         "        {\n"
                                         "          \"Latitude\": 0.1,\n"
                                         "          \"Longitude\": null\n"
                                         "        }\n"
                                         "      ]\n"
                                         "    }\n"
                                         "  }\n"
                                         "}\n");
    QTest::newRow("receiver")
        << QByteArray("<GenericReceiver Version='2'><Parameter Version='9&lt;' UniqueName='a.b[c]'>"
                      "<RepresentationName>t</RepresentationName><Multiplier>2.5</Multiplier>"
                      "<Enable>no</Enable><ParameterType>TimeStamp</ParameterType><TimeStamp>"
                      "<Maximum>9007199254740993</Maximum><Default>-1</Default></TimeStamp></Parameter>"
                      "</GenericReceiver>")
        << QString("{\n"
                   "  \"kind\": \"GenericReceiver\",\n"
                   "  \"complete\": false,\n"
                   "  \"reason\": \"the library accepts it but would write nothing for it\",\n"
                   "  \"fields\": {\n"
                   "    \"Version\": \"2\",\n"
                   "    \"Parameter\": {\n"
                   "      \"a.b[c]\": {\n"
                   "        \"UniqueName\": \"a.b[c]\",\n"
                   "        \"ParameterType\": \"TimeStamp\",\n"
                   "        \"DisplaySuffix\": null,\n"
                   "        \"TimeStamp\": {\n"
                   "          \"Minimum\": -9223372036854775808,\n"
                   "          \"Maximum\": 9007199254740993,\n"
                   "          \"Default\": -1,\n"
                   "          \"Value\": -1,\n"
                   "          \"Multiplier\": 1,\n"
                   "          \"RepresentationName\": \"t\",\n"
                   "          \"UniqueParameterName\": \"a.b[c]\"\n"
                   "        },\n"
                   "        \"RepresentationName\": \"t\",\n"
                   "        \"ValueType\": null,\n"
                   "        \"ControlType\": null,\n"
                   "        \"Multiplier\": 2.5,\n"
                   "        \"Enable\": false,\n"
                   "        \"DisplayName\": null,\n"
                   "        \"ToolTip\": null,\n"
                   "        \"Version\": \"9<\"\n"
                   "      }\n"
                   "    }\n"
                   "  },\n"
                   "  \"documentSays\": {\n"
                   "    \"Parameter[a.b[c\\\\]].Enable\": \"no\"\n"
                   "  }\n"
                   "}\n");
    QTest::newRow("enumeration, its default and selected entries included")
        << QByteArray("<Parameter UniqueName='e'><ParameterType>Enum</ParameterType><Enum>"
                      "<EnumValue Key='1' Name='A' Value='1e30'/></Enum></Parameter>")
        << QString("{\n"
                   "  \"kind\": \"Parameter\",\n"
                   "  \"complete\": false,\n"
                   "  \"reason\": \"Parameter: Please set ValueType\",\n"
                   "  \"fields\": {\n"
                   "    \"UniqueName\": \"e\",\n"
                   "    \"ParameterType\": \"Enum\",\n"
                   "    \"DisplaySuffix\": null,\n"
                   "    \"Enum\": {\n"
                   "      \"EnumValue\": [\n"
                   "        {\n"
                   "          \"Key\": 1,\n"
                   "          \"Name\": \"A\",\n"
                   "          \"Identifier\": null,\n"
                   "          \"Value\": 1e+30,\n"
                   "          \"Default\": false\n"
                   "        }\n"
                   "      ],\n"
                   "      \"DefaultValue\": {\n"
                   "        \"Key\": 1,\n"
                   "        \"Name\": \"A\",\n"
                   "        \"Identifier\": null,\n"
                   "        \"Value\": 1e+30,\n"
                   "        \"Default\": false\n"
                   "      },\n"
                   "      \"SelectedEnumValue\": {\n"
                   "        \"Key\": 1,\n"
                   "        \"Name\": \"A\",\n"
                   "        \"Identifier\": null,\n"
                   "        \"Value\": 1e+30,\n"
                   "        \"Default\": false\n"
                   "      },\n"
                   "      \"RepresentationName\": null,\n"
                   "      \"UniqueParameterName\": \"e\"\n"
                   "    },\n"
                   "    \"RepresentationName\": null,\n"
                   "    \"ValueType\": null,\n"
                   "    \"ControlType\": null,\n"
                   "    \"Multiplier\": 1,\n"
                   "    \"Enable\": true,\n"
                   "    \"DisplayName\": null,\n"
                   "    \"ToolTip\": null,\n"
                   "    \"Version\": null\n"
                   "  }\n"
                   "}\n");
}

void ShowCommandTest::json()
{
    QFETCH(QByteArray, document);
    QFETCH(QString, shown);

    Folder folder;
    folder.write("document.xml", document);
    const Run run = folder.run({"show", "--format", "json", "document.xml"});
    QCOMPARE(run.err, QString());
    QCOMPARE(run.out, shown);
    QCOMPARE(run.status, 0);
}

void ShowCommandTest::jsonOfAnyDocument_data()
{
    QTest::addColumn<QByteArray>("document");

    QTest::newRow("job") << completeJob();
    QTest::newRow("workflow") << completeWorkflow();
    QTest::newRow("generation") << completeGeneration();
    QTest::newRow("receiver") << completeReceiver();
    QTest::newRow("parameter") << completeParameter();
    QTest::newRow("infinite") << jobWith(">1500000<", ">-inf<");
    QTest::newRow("empty") << QByteArray("<GenericReceiver/>");
    QTest::newRow("empty list") << QByteArray("<AutomaticWorkflow/>");
}

void ShowCommandTest::jsonOfAnyDocument()
{
    QFETCH(QByteArray, document);

    Folder folder;
    folder.write("document.xml", document);
    const Run run = folder.run({"show", "--format", "json", "document.xml"});
    QJsonParseError error;
    const QJsonObject json = QJsonDocument::fromJson(run.out.toUtf8(), &error).object();
    QCOMPARE(error.errorString(), QString("no error occurred"));
    QCOMPARE(json.value("fields").toObject().isEmpty(), false);
}

void ShowCommandTest::unknownFormat_data()
{
    QTest::addColumn<QStringList>("options");
    QTest::addColumn<QString>("complaint");

    QTest::newRow("unknown") << QStringList{"--format", "yaml"}
                             << "kormak show: Unknown format 'yaml'. Allowed: text, json, geojson\n";
    QTest::newRow("twice") << QStringList{"--format", "json", "--format", "text"}
                           << "kormak show: --format can be given only once\n";
}

void ShowCommandTest::unknownFormat()
{
    QFETCH(QStringList, options);
    QFETCH(QString, complaint);

    Folder folder;
    folder.write("job.xml", completeJob());
    const Run run = folder.run(QStringList("show") + options + QStringList("job.xml"));
    QCOMPARE(run.out, QString());
    QCOMPARE(run.err, complaint);
    QCOMPARE(run.status, 2);
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
                         "2J\tLind&#13;\xE2\x80\xA8x\xE2\x80\xAEy\xF3\xA0\x81\x81z"));
    const Run run = folder.run({"show", "job.xml"});
    QCOMPARE(run.out.split('\n').filter("Author"),
             QStringList{"  Author:             Mara\\u009b2J\\tLind\\r\\u2028x\\u202ey\\udb40\\udc41z"});
}

namespace {

const QString Tuner = EXAMPLES_DIR "/receivers/vuhf-tuner.xml";

#ifdef Q_OS_UNIX
/// What is shown on a terminal.
QString onTerminal(Folder &folder, int columns, const QStringList &arguments)
{
    Screen screen;
    screen.setColumns(columns);
    const Run run = folder.run(QStringList("show") + arguments, {}, screen.path());
    return run.err + QString(screen.text()).remove('\r');
}
#endif

} // namespace

void ShowCommandTest::terminals_data()
{
    QTest::addColumn<int>("columns");
    QTest::addColumn<QByteArray>("variable"); // COLUMNS
    QTest::addColumn<QString>("shown"); // of the first parameter and the header before it

    const QString in80 = "  Unique name  Parameter type  Unit  Minimum   Maximum          Default\n"
                         "  Attenuation  Integer         dB    0         40               0\n"
                         "    Representation name: tuner.attenuation; Value type: ValueNumericInt\n"
                         "    Display name: Attenuation\n";
    const QString in34 = "  Unique name  Parameter type\n"
                         "  Attenuation  Integer\n"
                         "    Unit: dB; Minimum: 0\n"
                         "    Maximum: 40; Default: 0\n"
                         "    Representation name: tuner.attenuation\n"
                         "    Value type: ValueNumericInt\n"
                         "    Display name: Attenuation\n";
    QTest::newRow("80") << 80 << QByteArray() << in80;
    QTest::newRow("as wide as the table gets") << 79 << QByteArray() << in80;
    QTest::newRow("a column less") << 78 << QByteArray()
                                   << "  Unique name  Parameter type  Unit  Minimum   Maximum\n"
                                      "  Attenuation  Integer         dB    0         40\n"
                                      "    Default: 0; Representation name: tuner.attenuation\n"
                                      "    Value type: ValueNumericInt; Display name: Attenuation\n";
    QTest::newRow("unknown") << 0 << QByteArray() << in80;
    QTest::newRow("34") << 34 << QByteArray() << in34;
    QTest::newRow("said otherwise") << 200 << QByteArray("34") << in34;
    QTest::newRow("said to be nothing") << 80 << QByteArray("0") << in80;
    QTest::newRow("very narrow") << 1 << QByteArray()
                                 << "  Unique name\n"
                                    "  Attenuation\n"
                                    "    Parameter type: Integer\n"
                                    "    Unit: dB\n"
                                    "    Minimum: 0\n"
                                    "    Maximum: 40\n"
                                    "    Default: 0\n"
                                    "    Representation name: tuner.attenuation\n"
                                    "    Value type: ValueNumericInt\n"
                                    "    Display name: Attenuation\n";
}

void ShowCommandTest::terminals()
{
#ifdef Q_OS_UNIX
    QFETCH(int, columns);
    QFETCH(QByteArray, variable);
    QFETCH(QString, shown);

    Folder folder;
    folder.environment.remove("COLUMNS");
    const QString wide = folder.run({"show", Tuner}).out;
    if (!variable.isEmpty())
        folder.environment.insert("COLUMNS", variable);
    QCOMPARE(folder.run({"show", Tuner}).out, wide); // it is no terminal
    QCOMPARE(onTerminal(folder, columns, {"--wide", Tuner}), wide);
    const QString start = "GenericReceiver, complete\nVersion:     1.0\nParameters:  7\n";
    const QString text = onTerminal(folder, columns, {Tuner});
    QCOMPARE(text.left(start.size() + shown.size()), start + shown);
    QVERIFY(text.mid(start.size() + shown.size()).startsWith("  Bandwidth"));
#endif
}

void ShowCommandTest::nothingIsLostOnTerminals()
{
#ifdef Q_OS_UNIX
    Folder folder;
    folder.environment.remove("COLUMNS");
    const QString wide = folder.run({"show", Tuner}).out;
    const QStringList lines = wide.split('\n');
    const QStringList words = lines.mid(4).join(' ').split(QRegularExpression(" {2,}"), Qt::SkipEmptyParts);
    QVERIFY(words.size() > 60);
    constexpr int Widest = 205;
    for (int columns = 75; columns <= Widest; columns += 10) {
        const QString text = onTerminal(folder, columns, {Tuner});
        int from = 0; // of the next one
        for (const QString &word : words) {
            from = static_cast<int>(text.indexOf(word.trimmed(), from));
            QVERIFY2(from >= 0, qPrintable(word));
        }
        for (const QString &line : text.split('\n'))
            QVERIFY2(line.size() <= columns, qPrintable(line));
        QCOMPARE(text == wide, columns == Widest);
    }
#endif
}

void ShowCommandTest::singleParameters_data()
{
    QTest::addColumn<QStringList>("names");
    QTest::addColumn<QStringList>("shown"); // the first lines of each

    const QString input =
        "Unique name:          Input\nParameter type:       Enum\nEntry:                0 Antenna 1 (0)\n";
    const QString level = QString::fromUtf8(
        "Unique name:          Level\nParameter type:       Float\nUnit:                 dB\xC2\xB5"
        "V\n");
    QTest::newRow("one") << QStringList{"Input"} << QStringList{input};
    QTest::newRow("two, in their order") << QStringList{"Level", "Input"} << QStringList{level, input};
    QTest::newRow("one twice") << QStringList{"Input", "Input"} << QStringList{input};
}

void ShowCommandTest::singleParameters()
{
    QFETCH(QStringList, names);
    QFETCH(QStringList, shown);

    Folder folder;
    QStringList arguments{"show"};
    for (const QString &name : names)
        arguments << "--parameter" << name;
    const Run run = folder.run(arguments << Tuner);
    QCOMPARE(run.err, QString());
    const QStringList parts = run.out.split("\n\n");
    QCOMPARE(parts.size(), shown.size());
    for (int i = 0; i < parts.size(); ++i)
        QCOMPARE(parts[i].left(shown[i].size()), shown[i]);
    QVERIFY(!run.out.contains("Attenuation"));
    QCOMPARE(run.status, 0);
}

void ShowCommandTest::singleParametersInJson()
{
    Folder folder;
    // Another parameter is what keeps it from being complete.
    folder.write(
        "rx.xml",
        with(completeReceiver(), "        <RepresentationName>rx.filter</RepresentationName>\n", ""));
    const Run run = folder.run({"show", "--format", "json", "--parameter", "Level", "rx.xml"});
    const QJsonObject all =
        QJsonDocument::fromJson(folder.run({"show", "--format", "json", "rx.xml"}).out.toUtf8()).object();
    const QJsonObject shown = QJsonDocument::fromJson(run.out.toUtf8()).object();
    const QJsonObject parameters = shown["fields"]["Parameter"].toObject();
    QCOMPARE(parameters.keys(), QStringList("Level"));
    QCOMPARE(parameters["Level"], all["fields"]["Parameter"]["Level"]);
    QCOMPARE(all["complete"], QJsonValue(false));
    QCOMPARE(shown["complete"], all["complete"]);
    QCOMPARE(shown["reason"], all["reason"]);
}

void ShowCommandTest::wrongParameters_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("complaint");

    QTest::newRow("unknown") << completeReceiver()
                             << "there is no parameter 'level'; did you mean \"Level\"?";
    QTest::newRow("none") << QByteArray("<GenericReceiver/>") << "there is no parameter 'level'";
    QTest::newRow("another document")
        << completeJob() << "--parameter is for receivers, not for a document of kind Job";
}

void ShowCommandTest::wrongParameters()
{
    QFETCH(QByteArray, document);
    QFETCH(QString, complaint);

    Folder folder;
    folder.write("a.xml", document);
    for (const char *format : {"text", "json"}) {
        const Run run = folder.run({"show", "--format", format, "--parameter", "level", "a.xml"});
        QCOMPARE(run.out, QString());
        QCOMPARE(run.err, "kormak show: " + complaint + "\n");
        QCOMPARE(run.status, 2);
    }
}

void ShowCommandTest::standardInput()
{
    Folder folder;
    folder.write("job.xml", completeJob());
    QCOMPARE(folder.run({"show", "-"}, completeJob()).out, folder.run({"show", "job.xml"}).out);
}

void ShowCommandTest::otherTexts_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QStringList>("shown"); // all that is said
    QTest::addColumn<QString>("documentSays");

    const auto add = [](const char *name, const QByteArray &document, const QStringList &shown,
                        const QString &documentSays) {
        QTest::newRow(name) << document << shown << documentSays;
    };
    const auto parameter = [](const QByteArray &type, const QByteArray &content) {
        return "<Parameter UniqueName='P'><ParameterType>" + type + "</ParameterType>" + content
            + "</Parameter>";
    };
    add("nothing", completeJob(), {}, "");
    add("the same in other words",
        jobWith(">1500000<", "> 1.5e6 <").replace("<Name>", "<Azimuth>045.50</Azimuth><Name>"), {}, "");
    add("frequency with a unit", jobWith(">1500000<", ">1.5 MHz<"),
        {"Minimum frequency: 0 Hz (document says \"1.5 MHz\")"},
        R"({"AntennaData.MinimumFrequency":"1.5 MHz"})");
    add("names and dates", jobWith(">Antenna</JobType>", ">antenna</JobType>").replace("250Z", "250"),
        {"Job type: not set (document says \"antenna\")",
         "Creation: not set (document says \"2026-03-29T00:59:59,250\")"},
        R"({"JobHeader.Creation":"2026-03-29T00:59:59,250","JobHeader.JobType":"antenna"})");
    add("what could steer a terminal",
        jobWith(">1500000<",
                ">\xC2\x9B"
                "1&#10;\"<"),
        {"Minimum frequency: 0 Hz (document says \"\\u009b1\\n\"\")"},
        QString::fromUtf8("{\"AntennaData.MinimumFrequency\":\"\xC2\x9B"
                          "1\\n\\\"\"}"));
    add("the last element counts", jobWith("<Author>", "<ShowJDH>yes</ShowJDH><Author>"), {}, "");
    add("an object in parts",
        jobWith("<ResourceType>", "<JobHeader><ShowJDH>yes</ShowJDH></JobHeader><ResourceType>"),
        {"Show data header: no (document says \"yes\")"}, R"({"JobHeader.ShowJDH":"yes"})");
    add("fields that are hidden when they are not set",
        "<Job><ResourceType>Decoder</ResourceType><AntennaData><Polarization>x</Polarization></AntennaData>"
        "</Job>",
        {"Polarization: not set (document says \"x\")"}, R"({"AntennaData.Polarization":"x"})");
    add("attribute that is not read", "<AutomaticWorkflow Mode='ManualMode'/>",
        {"Workflow mode: not set (document says \"ManualMode\")"}, R"({"Mode":"ManualMode"})");
    add("attribute beside the element that is read",
        "<AutomaticWorkflow Mode='x'><Mode>ManualMode</Mode></AutomaticWorkflow>", {}, "");
    add("coordinates, of the last area",
        "<AutomaticWorkflow><Area><Coordinate><Latitude>x</Latitude></Coordinate></Area><Area><Coordinate/>"
        "<Coordinate><Latitude>53,5</Latitude><Longitude>E8</Longitude></Coordinate></Area>"
        "</AutomaticWorkflow>",
        {"Coordinate: latitude 0, longitude 0 (document says Latitude \"53,5\") (document says Longitude "
         "\"E8\")"},
        R"({"Area.Coordinate[1].Latitude":"53,5","Area.Coordinate[1].Longitude":"E8"})");
    add("the text of the older form", "<ActivityGeneration Version='1.0'> AGSC</ActivityGeneration>",
        {"Generation mode: not set (document says \" AGSC\")"}, R"({"Mode":" AGSC"})");
    add("more digits than a number has",
        "<ActivityGeneration><SessionCloseTime>0.123456789</SessionCloseTime></ActivityGeneration>", {}, "");
    add("in a block, at any depth", parameter("Integer", "<Integer><a><Minimum>low</Minimum></a></Integer>"),
        {"Minimum: 0 (document says \"low\")"}, R"({"Integer.Minimum":"low"})");
    add("block of another type", parameter("Integer", "<Float><Minimum>low</Minimum></Float>"), {}, "");
    add("boolean", parameter("Boolean", "<Boolean>yes</Boolean>"), {"Value: no (document says \"yes\")"},
        R"({"Boolean.Value":"yes"})");
    add("default of a string as an attribute", parameter("String", "<String Default='a'/>"),
        {"Default: not set (document says \"a\")"}, R"({"String.Default":"a"})");
    add("entries",
        parameter("Enum", "<Enum><EnumValue Key='1'/></Enum><Enum><EnumValue Key='b' Name='B'/></Enum>"),
        {"Entry: 0 B (0) (document says Key \"b\")"}, R"({"Enum.EnumValue[1].Key":"b"})");
    add("parameters of a receiver",
        "<GenericReceiver>" + parameter("Long", "<Long><Maximum>9</Maximum></Long>")
            + parameter("Long", "<Long><Maximum>1e3</Maximum></Long><ControlType>Dial</ControlType>")
                  .replace("'P'", "'a]b'")
            + parameter("Long", "<Long><Maximum>1e2</Maximum></Long>") + "</GenericReceiver>",
        {"P Long -2147483647 0 (document says \"1e2\") 0 not set not set",
         "a]b Long -2147483647 0 (document says \"1e3\") 0 not set not set not set (document says \"Dial\")"},
        R"({"Parameter[P].Long.Maximum":"1e2","Parameter[a\\]b].ControlType":"Dial","Parameter[a\\]b].Long.Maximum":"1e3"})");
}

void ShowCommandTest::otherTexts()
{
    QFETCH(QByteArray, document);
    QFETCH(QStringList, shown);
    QFETCH(QString, documentSays);

    Folder folder;
    folder.write("d.xml", document);
    const Run run = folder.run({"show", "d.xml"});
    QStringList lines = run.out.split('\n').filter("(document ");
    for (QString &line : lines)
        line = line.simplified();
    QCOMPARE(lines, shown);
    QCOMPARE(run.err, QString());
    QCOMPARE(run.status, 0);

    const Run json = folder.run({"show", "--format", "json", "d.xml"});
    QCOMPARE(json.status, 0);
    const QJsonObject whole = QJsonDocument::fromJson(json.out.toUtf8()).object();
    QCOMPARE(whole.contains("documentSays"), !documentSays.isEmpty());
    if (!documentSays.isEmpty()) {
        const QJsonDocument says(whole["documentSays"].toObject()); // its keys are sorted
        QCOMPARE(QString::fromUtf8(says.toJson(QJsonDocument::Compact)), documentSays);
    }
}

void ShowCommandTest::partlyRead_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("complaint"); // place and message
    QTest::addColumn<QStringList>("shown"); // some of the lines

    QTest::newRow("unknown element") << jobWith("<ResourceType>", "<Foo/><ResourceType>")
                                     << "9:5: error: Unknown Tag 'Foo' in 'Job'."
                                     << QStringList{"Author: Mara Lind", "Resource type: Antenna",
                                                    "Name: East"};
    QTest::newRow("element that is never read")
        << jobWith("<Author>", "<ConnectableResource>DDC IPC Voice HF</ConnectableResource><Author>")
               .replace(">Antenna</JobType", ">Search MC HF</JobType")
        << "5:9: error: Unknown Tag 'ConnectableResource' in 'JobHeader'."
        << QStringList{"Connectable resource: not set (document says \"DDC IPC Voice HF\")",
                       "Author: Mara Lind"};
    QTest::newRow("element in a text")
        << jobWith("Mara Lind", "Mara <b>L.<i>Lind</i></b>") << "5:22: error: Expected character data."
        << QStringList{"Author: Mara (document says \"Mara L. Lind\")", "Name: East"};
    QTest::newRow("element in place of a text")
        << jobWith("Mara Lind", "<b/>") << "5:17: error: Expected character data."
        << QStringList{"Author: not set (document says \"\")"};
    QTest::newRow("cut off in a text")
        << completeJob().left(completeJob().indexOf("Lind")) << "5:22: error: Premature end of document."
        << QStringList{"Author: not set (document breaks off here)", "Creation: not set"};
    QTest::newRow("setting out of range")
        << with(completeWorkflow(), ">8<", ">24<")
        << "4:5: error: AutomaticWorkflow: Invalid NumberClassifiers '24'"
        << QStringList{"Classifiers: 1 (document says \"24\")", "Classification time: 25"};
    QTest::newRow("text behind the document")
        << completeJob() + "x"
        << "16:1: error: Extra content at end of document." << QStringList{"Author: Mara Lind", "Name: East"};
    QTest::newRow("cut off in a number")
        << completeJob().left(completeJob().indexOf("00000</Max"))
        << "13:30: error: Premature end of document."
        << QStringList{"Minimum frequency: 1500000 Hz (1.5 MHz)",
                       "Maximum frequency: 0 Hz (document breaks off here)", "Azimuth: not set"};
    QTest::newRow("cut off in a list")
        << QByteArray("<AutomaticWorkflow><Area><Coordinate><Latitude>1</Latitude></Coordinate><Coordinate>"
                      "<Latitude>2</Latitude>")
        << "1:107: error: Premature end of document."
        << QStringList{"Coordinate: latitude 1, longitude 0", "Coordinate: latitude 2, longitude 0"};
    QTest::newRow("cut off in a receiver")
        << completeReceiver().left(completeReceiver().indexOf("</Minimum>"))
        << "19:32: error: Premature end of document." << QStringList{"Parameters: 2"};
}

void ShowCommandTest::partlyRead()
{
    QFETCH(QByteArray, document);
    QFETCH(QString, complaint);
    QFETCH(QStringList, shown);

    Folder folder;
    folder.write("d.xml", document);
    const Run run = folder.run({"show", "d.xml"});
    QCOMPARE(run.err, "d.xml:" + complaint + '\n');
    QCOMPARE(run.status, 1);
    QStringList lines = run.out.split('\n');
    for (QString &line : lines)
        line = line.simplified();
    const QString message = complaint.section(": error: ", 1);
    QVERIFY2(lines.constFirst().endsWith(", at fault: " + message), qPrintable(lines.constFirst()));
    for (const QString &line : shown)
        QVERIFY2(lines.count(line) == 1, qPrintable(line + " in\n" + run.out));

    const Run json = folder.run({"show", "--format", "json", "d.xml"});
    QCOMPARE(json.err, run.err);
    QCOMPARE(json.status, 1);
    const QJsonObject whole = QJsonDocument::fromJson(json.out.toUtf8()).object();
    QCOMPARE(whole["complete"].toBool(true), false);
    QCOMPARE(whole["reason"].toString(), message);
    QVERIFY(!whole["fields"].toObject().isEmpty());
}

void ShowCommandTest::faulty_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("complaint");
    QTest::addColumn<int>("status");

    QTest::newRow("namespace that is declared twice")
        << "twice.xml"
        << "twice.xml:1:16: error: The namespace declaration 'xmlns' stands twice in one element.\n"
        << 1;
    QTest::newRow("no element") << "empty.xml"
                                << "empty.xml:1:1: error: Premature end of document.\n"
                                << 1;
    QTest::newRow("unknown kind")
        << "work.xml"
        << "work.xml:1:1: error: unknown kind of document 'Work' (allowed: Job, AutomaticWorkflow, "
           "ActivityGeneration, GenericReceiver, Parameter)\n"
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
    folder.write("empty.xml", "");
    folder.write("work.xml", "<Work/>");
    folder.write("twice.xml", "<Job xmlns='a' xmlns='b'/>");
    const Run run = folder.run({"show", name});
    QCOMPARE(run.out, QString());
    QCOMPARE(run.err, complaint);
    QCOMPARE(run.status, status);
}

QTEST_GUILESS_MAIN(ShowCommandTest)
#include "ShowCommandTest.moc"
