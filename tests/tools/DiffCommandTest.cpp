#include <tests/support/ToolSupport.h>

using namespace ToolSupport;

class DiffCommandTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void differences_data();
    void differences();
    void json_data();
    void json();
    void standardInput();
    void refused_data();
    void refused();
    void manyParameters();
};

namespace {

const QString EqualToLibrary =
    "The library's own comparison calls the documents equal, though fields differ.\n";
const QString DifferentToLibrary =
    "The library's own comparison calls the documents different, though no field differs.\n";

QByteArray workflowAt(const QByteArray &latitude)
{
    return with(completeWorkflow(), "53.55", latitude);
}

QByteArray parameterOf(const QByteArray &type, const QByteArray &block)
{
    return "<Parameter UniqueName='a'><ParameterType>" + type + "</ParameterType>" + block + "</Parameter>";
}

} // namespace

void DiffCommandTest::differences_data()
{
    QTest::addColumn<QByteArray>("before");
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QString>("told");
    QTest::addColumn<int>("status");

    QTest::newRow("the same") << completeJob() << completeJob() << "" << 0;
    QTest::newRow("written in another way")
        << completeJob() << completeJob().replace("\n", "").replace("  ", "") << "" << 0;
    QTest::newRow("some fields") << completeJob()
                                 << completeJob()
                                        .replace("Mara Lind", "M.\tLind")
                                        .replace(">true<", ">false<")
                                        .replace(",250Z", ",251Z")
                                        .replace(">1500000<", ">1500000.5<")
                                        .replace("<Name>", "<Polarization>Slant</Polarization><Name>")
                                 << "JobHeader.Author: \"Mara Lind\" -> \"M.\\tLind\"\n"
                                    "JobHeader.Creation: \"2026-03-29T00:59:59,250Z\" -> "
                                    "\"2026-03-29T00:59:59,251Z\"\n"
                                    "JobHeader.ShowJDH: true -> false\n"
                                    "AntennaData.MinimumFrequency: 1500000 -> 1500000.5\n"
                                    "AntennaData.Polarization: not set -> \"Slant\"\n"
                                 << 1;
    QTest::newRow("job types that are written alike")
        << jobWith(">Antenna</JobType>", ">Surveillance MC VUHF</JobType>")
        << jobWith(">Antenna</JobType>", ">Search MC VUHF</JobType>")
        << "JobHeader.JobType: \"Surveillance MC VUHF\" -> \"Search MC VUHF\"\n"
        << 1;
    QTest::newRow("milliseconds, which headers do not compare")
        << completeJob() << completeJob().replace(",250Z", ",000Z")
        << "JobHeader.Creation: \"2026-03-29T00:59:59,250Z\" -> \"2026-03-29T00:59:59,000Z\"\n"
            + EqualToLibrary
        << 1;
    QTest::newRow("data-header flags that are not true")
        << jobWith(">true</ShowJDH>", ">false</ShowJDH>") << jobWith(">true</ShowJDH>", ">no</ShowJDH>")
        << "JobHeader.ShowJDHText: added \"no\"\n" + EqualToLibrary << 1;
    QTest::newRow("antenna data on another resource")
        << jobOnDecoder() << jobOnDecoder().replace("East", "West")
        << "AntennaData.Name: \"East\" -> \"West\"\n" + EqualToLibrary << 1;
    QTest::newRow("versions of antenna data")
        << completeJob() << completeJob().replace("<AntennaData Version=\"1.0\">", "<AntennaData>")
        << "AntennaData.Version: \"1.0\" -> not set\n" + EqualToLibrary << 1;
    QTest::newRow("activity generation of the same mode")
        << completeGeneration()
        << completeGeneration().replace(">0.2<", ">0.2000001<").replace(">65<", ">66<")
        << "LevelMinBurstDuration: 0.2 -> 0.2000001\nDDemMorseQualityThreshold: 65 -> 66\n" + EqualToLibrary
        << 1;
    QTest::newRow("coordinates") << completeWorkflow()
                                 << with(completeWorkflow(), "</Coordinate>",
                                         "</Coordinate><Coordinate><Latitude>1</Latitude></Coordinate>")
                                        .replace("-7.1", "-7.2")
                                 << "Area.Coordinate[0].Longitude: -7.1 -> -7.2\n"
                                    "Area.Coordinate[1]: added {\"Latitude\": 1, \"Longitude\": 0}\n"
                                 << 1;
    QTest::newRow("no number in both") << workflowAt("nan") << workflowAt("nan") << DifferentToLibrary << 0;
    QTest::newRow("no number in one")
        << workflowAt("nan") << workflowAt("inf") << "Area.Coordinate[0].Latitude: nan -> \"inf\"\n"
        << 1;
    QTest::newRow("signs of zero") << workflowAt("0") << workflowAt("-0") << "" << 0;
    QTest::newRow("parameters without a type")
        << QByteArray("<Parameter/>") << QByteArray("<Parameter/>") << DifferentToLibrary << 0;
    QTest::newRow("settings of a parameter that are not compared")
        << completeParameter()
        << completeParameter()
               .replace("Version=\"1.0\"", "Version=\"2.0\"")
               .replace("<ValueType>ValueNumericInt<",
                        "<ToolTip>t</ToolTip><ControlType>VCLineEdit</ControlType>"
                        "<Multiplier>2</Multiplier><DisplaySuffix>dB</DisplaySuffix><ValueType>ValueString<")
        << "DisplaySuffix: not set -> \"dB\"\n"
           "ValueType: \"ValueNumericInt\" -> \"ValueString\"\n"
           "ControlType: not set -> \"VCLineEdit\"\n"
           "Multiplier: 1 -> 2\n"
           "ToolTip: not set -> \"t\"\n"
           "Version: \"1.0\" -> \"2.0\"\n"
            + EqualToLibrary
        << 1;
    QTest::newRow("entries of an enumeration")
        << parameterOf("Enum",
                       "<Enum><EnumValue Key='1' Name='A'/><EnumValue Key='2' Name='B' Value='2'/></Enum>")
        << parameterOf("Enum", "<Enum><EnumValue Key='1' Name='A' Value='0.5'/></Enum>")
        << "Enum.EnumValue[0].Value: 0 -> 0.5\n"
           "Enum.EnumValue[1]: removed {\"Key\": 2, \"Name\": \"B\", \"Identifier\": null, \"Value\": 2, "
           "\"Default\": false}\n"
           "Enum.DefaultValue.Value: 0 -> 0.5\n"
           "Enum.SelectedEnumValue.Value: 0 -> 0.5\n"
        << 1;
    QTest::newRow("another type")
        << parameterOf("Integer", "") << parameterOf("String", "")
        << "ParameterType: \"Integer\" -> \"String\"\n"
           "Integer: removed {\"Minimum\": -32768, \"Maximum\": 32767, \"Default\": "
           "0, \"Value\": 0, \"Multiplier\": 1, \"RepresentationName\": null, "
           "\"UniqueParameterName\": null}\n"
           "String: added {\"Default\": null, \"Value\": null, "
           "\"RepresentationName\": null, \"UniqueParameterName\": null}\n"
        << 1;
    QTest::newRow("parameters in another order, one of them another one")
        << QByteArray("<GenericReceiver><Parameter UniqueName='a'/><Parameter UniqueName='b'/>"
                      "<Parameter UniqueName='d'><DisplayName>D</DisplayName></Parameter></GenericReceiver>")
        << QByteArray("<GenericReceiver><Parameter UniqueName='d'/><Parameter UniqueName='c].x\\'/>"
                      "<Parameter UniqueName='b'/></GenericReceiver>")
        << "Parameter[a]: removed {\"UniqueName\": \"a\", \"ParameterType\": null, \"DisplaySuffix\": null, "
           "\"RepresentationName\": null, \"ValueType\": null, \"ControlType\": null, \"Multiplier\": 1, "
           "\"Enable\": true, \"DisplayName\": null, \"ToolTip\": null, \"Version\": null}\n"
           "Parameter[c\\].x\\\\]: added {\"UniqueName\": \"c].x\\\\\", \"ParameterType\": null, "
           "\"DisplaySuffix\": null, \"RepresentationName\": null, \"ValueType\": null, \"ControlType\": "
           "null, \"Multiplier\": 1, \"Enable\": true, \"DisplayName\": null, \"ToolTip\": null, "
           "\"Version\": null}\n"
           "Parameter[d].DisplayName: \"D\" -> not set\n"
        << 1;
    QTest::newRow("characters that cannot be printed")
        << completeJob() << jobWith(">East<", ">\xC2\x9B\xE2\x80\xAE\xF3\xA0\x81\x81<")
        << "AntennaData.Name: \"East\" -> \"\\u009b\\u202e\\udb40\\udc41\"\n"
        << 1;
}

void DiffCommandTest::differences()
{
    QFETCH(QByteArray, before);
    QFETCH(QByteArray, after);
    QFETCH(QString, told);
    QFETCH(int, status);

    Folder folder;
    folder.write("a.xml", before);
    folder.write("b.xml", after);
    const Run run = folder.run({"diff", "a.xml", "b.xml"});
    QCOMPARE(run.err, QString());
    QCOMPARE(run.out, told);
    QCOMPARE(run.status, status);
}

void DiffCommandTest::json_data()
{
    QTest::addColumn<QByteArray>("after");
    QTest::addColumn<QString>("told");
    QTest::addColumn<int>("status");

    QTest::newRow("equal") << completeWorkflow()
                           << "{\n"
                              "  \"kind\": \"AutomaticWorkflow\",\n"
                              "  \"equal\": true,\n"
                              "  \"equalToLibrary\": true,\n"
                              "  \"differences\": []\n"
                              "}\n"
                           << 0;
    QTest::newRow("different") << completeWorkflow()
                                      .replace("        <Coordinate>\n", "<Coordinate/><Coordinate>")
                                      .replace(" Version=\"1.0\"", "")
                               << "{\n"
                                  "  \"kind\": \"AutomaticWorkflow\",\n"
                                  "  \"equal\": false,\n"
                                  "  \"equalToLibrary\": false,\n"
                                  "  \"differences\": [\n"
                                  "    {\n"
                                  "      \"field\": \"Version\",\n"
                                  "      \"before\": \"1.0\",\n"
                                  "      \"after\": null\n"
                                  "    },\n"
                                  "    {\n"
                                  "      \"field\": \"Area.Version\",\n"
                                  "      \"before\": \"1.0\",\n"
                                  "      \"after\": null\n"
                                  "    },\n"
                                  "    {\n"
                                  "      \"field\": \"Area.Coordinate[0].Latitude\",\n"
                                  "      \"before\": 53.55,\n"
                                  "      \"after\": 0\n"
                                  "    },\n"
                                  "    {\n"
                                  "      \"field\": \"Area.Coordinate[0].Longitude\",\n"
                                  "      \"before\": -7.1,\n"
                                  "      \"after\": 0\n"
                                  "    },\n"
                                  "    {\n"
                                  "      \"field\": \"Area.Coordinate[1]\",\n"
                                  "      \"after\": {\"Latitude\": 53.55, \"Longitude\": -7.1}\n"
                                  "    }\n"
                                  "  ]\n"
                                  "}\n"
                               << 1;
}

void DiffCommandTest::json()
{
    QFETCH(QByteArray, after);
    QFETCH(QString, told);
    QFETCH(int, status);

    Folder folder;
    folder.write("a.xml", completeWorkflow());
    folder.write("b.xml", after);
    const Run run = folder.run({"diff", "--format", "json", "a.xml", "b.xml"});
    QCOMPARE(run.err, QString());
    QCOMPARE(run.out, told);
    QCOMPARE(run.status, status);
}

void DiffCommandTest::standardInput()
{
    Folder folder;
    folder.write("job.xml", completeJob());
    const QByteArray other = jobWith("East", "West");
    QCOMPARE(folder.run({"diff", "job.xml", "-"}, other).out,
             QString("AntennaData.Name: \"East\" -> \"West\"\n"));
    QCOMPARE(folder.run({"diff", "-", "job.xml"}, other).out,
             QString("AntennaData.Name: \"West\" -> \"East\"\n"));
}

void DiffCommandTest::refused_data()
{
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("complaint");

    QTest::newRow("other kinds") << QStringList{"job.xml", "parameter.xml"}
                                 << "parameter.xml: error: is of kind Parameter, but job.xml is of kind Job: "
                                    "they cannot be compared\n";
    QTest::newRow("other kinds, in files with odd names")
        << QStringList{"j\x1B[2J\n.xml", "p\n.xml"}
        << "p\\n.xml: error: is of kind Parameter, but j\\u001b[2J\\n.xml is of kind Job: they cannot be "
           "compared\n";
    QTest::newRow("namespace that is declared twice")
        << QStringList{"job.xml", "twice.xml"}
        << "twice.xml:1:29: error: The namespace declaration 'xmlns:x' stands twice in one element.\n";
    QTest::newRow("neither can be read") << QStringList{"none.xml", "faulty.xml"}
                                         << "none.xml: error: cannot be read: No such file or directory\n"
                                            "faulty.xml:1:6: error: Unknown Tag 'Foo' in 'Job'.\n";
    QTest::newRow("one cannot be read")
        << QStringList{"faulty.xml", "job.xml"} << "faulty.xml:1:6: error: Unknown Tag 'Foo' in 'Job'.\n";
}

void DiffCommandTest::refused()
{
    QFETCH(QStringList, files);
    QFETCH(QString, complaint);

    Folder folder;
    folder.write("job.xml", completeJob());
    folder.write("parameter.xml", completeParameter());
    folder.write("j\x1B[2J\n.xml", completeJob());
    folder.write("p\n.xml", completeParameter());
    folder.write("faulty.xml", "<Job><Foo/></Job>");
    folder.write("twice.xml", "<Job><JobHeader xmlns:x='a' xmlns:x='a'/></Job>");
    const Run run = folder.run(QStringList("diff") + files);
    QCOMPARE(run.out, QString());
    QCOMPARE(run.err, complaint);
    QCOMPARE(run.status, 2);
}

/// Linear: quadratic work would take minutes.
void DiffCommandTest::manyParameters()
{
    constexpr int Count = 20000;
    QByteArray before = "<GenericReceiver>";
    QByteArray after = before;
    for (int i = 0; i < Count; ++i) {
        const QByteArray parameter = "<Parameter UniqueName='p" + QByteArray::number(i) + "'><ParameterType>"
            + "Integer</ParameterType><Integer><Maximum>" + QByteArray::number(i % 7)
            + "</Maximum></Integer></Parameter>";
        before += parameter;
        after += parameter;
    }
    after.replace("<Maximum>0<", "<Maximum>100<");
    Folder folder;
    folder.write("a.xml", before + "</GenericReceiver>");
    folder.write("b.xml", after + "</GenericReceiver>");
    const Run run = folder.run({"diff", "a.xml", "b.xml"});
    QCOMPARE(run.out.count('\n'), (Count + 6) / 7);
    QCOMPARE(run.out.section('\n', 0, 0), QString("Parameter[p0].Integer.Maximum: 0 -> 100"));
    QCOMPARE(run.status, 1);
    const Run show = folder.run({"show", "a.xml"});
    QCOMPARE(show.out.count('\n'), Count + 4);
}

QTEST_GUILESS_MAIN(DiffCommandTest)
#include "DiffCommandTest.moc"
