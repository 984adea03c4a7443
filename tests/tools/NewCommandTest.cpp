#include <tests/support/ToolSupport.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>

#include <utility>

using namespace ToolSupport;

class NewCommandTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void documents_data();
    void documents();
    void file();
    void orderDoesNotMatter();
    void now();
    void readableForm_data();
    void readableForm();
    void lost_data();
    void lost();
    void warnings();
    void templates_data();
    void templates();
    void wrongTemplates_data();
    void wrongTemplates();
    void severalErrors();
    void incomplete_data();
    void incomplete();
    void wrongCalls_data();
    void wrongCalls();
    void unwritableFile();
    void listedFields_data();
    void listedFields();
    void listedFieldsInJson();
    void everyField_data();
    void everyField();
};

namespace {

QStringList sets(const QStringList &settings)
{
    QStringList options;
    for (const QString &setting : settings)
        options << "--set" << setting;
    return options;
}

QStringList wholeJob()
{
    return {"JobHeader.JobType=Antenna",
            "JobHeader.Author=Mara Lind",
            "JobHeader.Creation=2026-03-29T00:59:59,250Z",
            "ResourceType=Antenna",
            "AntennaData.Name=East",
            "AntennaData.MinimumFrequency=1500000",
            "AntennaData.MaximumFrequency=30000000"};
}

QStringList wholeParameter(const QString &type, const QString &prefix = {})
{
    return {prefix + "RepresentationName=rx", prefix + "ValueType=ValueNumericInt",
            prefix + "ParameterType=" + type};
}

/// Starts of the fields of the block of a type, and what else makes a parameter of the type complete.
struct TypeNeeds {
    QString type;
    QString block;
    QStringList needs;
};

QList<TypeNeeds> typeNeeds()
{
    return {{"Boolean", "Boolean.", {}},
            {"Long", "Long.", {}},
            {"Integer", "Integer.", {}},
            {"String", "String.", {"String.Default=v"}},
            {"DoubleList", "Double.", {"Double.MaxDoubleListLength=1"}},
            {"Double", "Double.M[ai]|Double.[DP]", {}},
            {"Float", "Float.", {}},
            {"Enum", "Enum.", {"Enum.EnumValue=1,A"}},
            {"TimeStamp", "TimeStamp.", {}}};
}

/// Values that a field can be set to, told from what --list-fields says of it.
QStringList valuesFor(const QString &allowed)
{
    if (allowed == "any text")
        return {"some text"};
    if (allowed.startsWith("number"))
        return {"0.5"};
    if (allowed.startsWith("whole number"))
        return {"7"};
    if (allowed.startsWith("date"))
        return {"2026-03-29T00:59:59,250Z"};
    return allowed.split(", ");
}

QJsonValue jsonAt(const QJsonObject &fields, const QString &path)
{
    QJsonValue value = fields;
    const QStringList steps = QString(path).replace("[0]", ".0").split('.');
    for (const QString &step : steps) {
        bool isIndex = false;
        const int index = step.toInt(&isIndex);
        value = isIndex ? value.toArray().at(index) : value.toObject().value(step);
    }
    return value;
}

QString textOf(const QJsonValue &value)
{
    return value.isBool()  ? (value.toBool() ? "true" : "false")
        : value.isDouble() ? QString::number(value.toDouble())
                           : value.toString("(none)");
}

} // namespace

void NewCommandTest::documents_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QStringList>("settings");
    QTest::addColumn<QByteArray>("document");

    QTest::newRow("job") << "Job" << wholeJob() << completeJob();
    QTest::newRow("activity generation") << "ActivityGeneration"
                                         << QStringList{"Mode=AGED",
                                                        "Autostart=true",
                                                        "EnergyChannel=DDem",
                                                        "LevelMinBurstDuration=0.2",
                                                        "LevelMaxBreakDuration=1.5",
                                                        "DDemActiveCriteria=Signal Detection",
                                                        "DDemMinBurstDuration=0.75",
                                                        "DDemMaxBreakDuration=2.5",
                                                        "DDemMorseQualityThreshold=65",
                                                        "ClassIntermScore=2",
                                                        "ClassFinalScore=5",
                                                        "ClassStartScore=4",
                                                        "ClassStopScore=1",
                                                        "ClassMinConfidence=60",
                                                        "DetConvMinBurstDuration=0.05",
                                                        "DbWriteEnergy=false",
                                                        "DbWriteDDem=Always",
                                                        "DbWriteClass=On Energy Detection",
                                                        "SessionCloseTime=30",
                                                        "RestartAttachmentsOnSessionClose=true"}
                                         << completeGeneration();
    QTest::newRow("parameter") << "Parameter"
                               << QStringList{"UniqueName=Gain",           "RepresentationName=rx.gain",
                                              "ValueType=ValueNumericInt", "ParameterType=Integer",
                                              "Integer.Minimum=0",         "Integer.Maximum=40",
                                              "Integer.Default=20"}
                               << completeParameter();
    QTest::newRow("receiver")
        << "GenericReceiver"
        << QStringList{"Parameter[Level].ParameterType=Float",
                       "Parameter[Level].RepresentationName=rx.level",
                       "Parameter[Level].ValueType=ValueNumericFloat",
                       "Parameter[Level].Float.Minimum=-20",
                       "Parameter[Level].Float.Maximum=120",
                       "Parameter[Level].Float.Precision=1",
                       "Parameter[Filter].ParameterType=Enum",
                       "Parameter[Filter].RepresentationName=rx.filter",
                       "Parameter[Filter].ValueType=ValueSelection",
                       "Parameter[Filter].Enum.EnumValue=1,Narrow,,0.5",
                       "Parameter[Filter].Enum.EnumValue=2,Wide,w,2,true"}
        << completeReceiver().replace("0.50", "0.5").replace("2.00", "2").replace(".000000", "");
    QTest::newRow("receiver without parameters") << "GenericReceiver" << QStringList()
                                                 << QByteArray("<?xml version=\"1.0\"?>\n"
                                                               "<GenericReceiver Version=\"1.0\"/>\n");
    QTest::newRow("names with brackets, points and signs")
        << "GenericReceiver" << wholeParameter("Long", "Parameter[a.b[c\\]=\\\\].")
        << QByteArray("<?xml version=\"1.0\"?>\n"
                      "<GenericReceiver Version=\"1.0\">\n"
                      "    <Parameter Version=\"1.0\" UniqueName=\"a.b[c]=\\\">\n"
                      "        <RepresentationName>rx</RepresentationName>\n"
                      "        <ValueType>ValueNumericInt</ValueType>\n"
                      "        <Enable>true</Enable>\n"
                      "        <ParameterType>Long</ParameterType>\n"
                      "        <Long>\n"
                      "            <Minimum>-2147483647</Minimum>\n"
                      "            <Maximum>2147483647</Maximum>\n"
                      "            <Default>0</Default>\n"
                      "        </Long>\n"
                      "    </Parameter>\n"
                      "</GenericReceiver>\n");
}

void NewCommandTest::documents()
{
    QFETCH(QString, kind);
    QFETCH(QStringList, settings);
    QFETCH(QByteArray, document);

    const Run run = Folder().run(QStringList{"new", kind} + sets(settings));
    QCOMPARE(run.err, QString());
    QCOMPARE(run.out, QString::fromUtf8(document));
    QCOMPARE(run.status, 0);
}

void NewCommandTest::file()
{
    Folder folder;
    folder.write("job.xml", "something else");
    const Run run = folder.run(QStringList{"new", "Job", "-o", "job.xml"} + sets(wholeJob()));
    QCOMPARE(run.out + run.err, QString());
    QCOMPARE(run.status, 0);
    QCOMPARE(folder.read("job.xml"), QString::fromUtf8(completeJob()));
    QCOMPARE(folder.names(), QStringList{"job.xml"});
}

void NewCommandTest::orderDoesNotMatter()
{
    QStringList settings = wholeParameter("Integer") + QStringList{"UniqueName=x", "Integer.Default=1"};
    const QStringList reversed(settings.rbegin(), settings.rend());
    const QString document = Folder().run(QStringList{"new", "Parameter"} + sets(settings)).out;
    QVERIFY(document.contains("UniqueName=\"x\""));
    QCOMPARE(Folder().run(QStringList{"new", "Parameter"} + sets(reversed)).out, document);

    QStringList job = wholeJob();
    std::reverse(job.begin(), job.end());
    QCOMPARE(Folder().run(QStringList{"new", "Job"} + sets(job)).out, QString::fromUtf8(completeJob()));

    // Added ones stand before changes by index, and among themselves in the order of the call.
    const Run area =
        Folder().run(QStringList{"new", "AutomaticWorkflow"}
                     + sets({"Area.Coordinate[1].Latitude=-3", "Area.Coordinate=1,2", "Area.Coordinate=3,4",
                             "Mode=AutomaticMode", "SearchStrategy=LowestIdFirst", "Area.Name=a"}));
    const QStringList places = area.out.split('\n').filter(QRegularExpression("Latitude|Longitude"));
    QCOMPARE(places.join("").remove(' '),
             QString("<Latitude>1</Latitude><Longitude>2</Longitude><Latitude>-3</Latitude><Longitude>4</"
                     "Longitude>"));
}

void NewCommandTest::now()
{
    QStringList settings = wholeJob();
    settings[2] = "JobHeader.Creation=now";
    const QDateTime before = QDateTime::currentDateTimeUtc();
    const Run run = Folder().run(QStringList{"new", "Job"} + sets(settings));
    const QString text = run.out.section("<Creation>", 1).section('<', 0, 0);
    const QDateTime creation = QDateTime::fromString(QString(text).replace(',', '.'), Qt::ISODateWithMs);
    QVERIFY2(creation.isValid() && text.endsWith('Z'), qPrintable(run.out + run.err));
    QVERIFY(before <= creation && creation <= QDateTime::currentDateTimeUtc());
}

void NewCommandTest::readableForm_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QStringList>("settings");
    QTest::addColumn<QString>("inDocument");

    QTest::newRow("mode of a workflow") << "AutomaticWorkflow" << QStringList{"Mode=ManualMode"}
                                        << "<AutomaticWorkflow Version=\"1.0\">\n"
                                           "    <Mode>ManualMode</Mode>\n"
                                           "</AutomaticWorkflow>\n";
    QTest::newRow("default of a string")
        << "Parameter" << wholeParameter("String") + QStringList{"UniqueName=a", "String.Default=x"}
        << "    <String>\n        <Default>x</Default>\n    </String>\n";
    QTest::newRow("decimals of an entry")
        << "Parameter" << wholeParameter("Enum") + QStringList{"UniqueName=a", "Enum.EnumValue=1,A,,0.123"}
        << R"(<EnumValue Key="1" Name="A" Value="0.123"/>)";
    QTest::newRow("digits of a number")
        << "ActivityGeneration" << QStringList{"Mode=AGSC", "LevelMinBurstDuration=0.123456789"}
        << "<LevelMinBurstDuration>0.12345679</LevelMinBurstDuration>";
}

/// What the library would write elsewhere than where it reads it, or in less digits.
void NewCommandTest::readableForm()
{
    QFETCH(QString, kind);
    QFETCH(QStringList, settings);
    QFETCH(QString, inDocument);

    Folder folder;
    const Run run = folder.run(QStringList{"new", kind, "-o", "out.xml"} + sets(settings));
    QCOMPARE(run.err, QString());
    QCOMPARE(run.status, 0);
    QVERIFY2(folder.read("out.xml").contains(inDocument), qPrintable(folder.read("out.xml")));
    const Run check = folder.run({"check", "out.xml"});
    QCOMPARE(check.out, "out.xml: " + kind + ", complete\n");
    QCOMPARE(check.status, 0);
}

void NewCommandTest::lost_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QStringList>("settings");
    QTest::addColumn<QStringList>("losses");

    QTest::newRow("values of a list")
        << "Parameter"
        << wholeParameter("DoubleList")
            + QStringList{"UniqueName=a", "Double.MaxDoubleListLength=3", "Double.DoubleList=1,2.5"}
        << QStringList{"Double.DoubleList[0]: would not be read back as it is set: removed 1",
                       "Double.DoubleList[1]: would not be read back as it is set: removed 2.5"};
    QTest::newRow("value beside the default")
        << "Parameter"
        << wholeParameter("Long") + QStringList{"UniqueName=a", "Long.Value=1", "Long.Default=2"}
        << QStringList{"Long.Value: would not be read back as it is set: 1 -> 2"};
    QTest::newRow("name in the handler")
        << "Parameter" << wholeParameter("Long") + QStringList{"UniqueName=a", "Long.RepresentationName=b"}
        << QStringList{"Long.RepresentationName: would not be read back as it is set: \"b\" -> \"rx\""};
}

void NewCommandTest::lost()
{
    QFETCH(QString, kind);
    QFETCH(QStringList, settings);
    QFETCH(QStringList, losses);

    Folder folder;
    const Run run = folder.run(QStringList{"new", kind, "-o", "out.xml"} + sets(settings));
    losses += "nothing is written, since the fields above would be lost";
    QCOMPARE(run.err.split('\n', Qt::SkipEmptyParts),
             QStringList(losses).replaceInStrings(QRegularExpression("^"), "kormak new: error: "));
    QCOMPARE(run.out, QString());
    QCOMPARE(run.status, 1);
    QCOMPARE(folder.names(), QStringList());
}

void NewCommandTest::warnings()
{
    const Run run = Folder().run(
        QStringList{"new", "Parameter"}
        + sets(wholeParameter("Long") + QStringList{"UniqueName=a", "Long.Minimum=3", "Long.Maximum=2"}));
    QCOMPARE(run.err, QString("kormak new: warning: Long.Minimum: the minimum 3 is above the maximum 2\n"));
    QVERIFY(run.out.contains("<Minimum>3</Minimum>"));
    QCOMPARE(run.status, 0);
}

void NewCommandTest::templates_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("source");
    QTest::addColumn<QStringList>("settings");
    QTest::addColumn<QString>("document"); // empty: none
    QTest::addColumn<QStringList>("complaints");

    const QString job = completeJob();
    QTest::newRow("as it is") << "Job" << job << QStringList() << job << QStringList();
    QTest::newRow("with a change") << "Job" << job << QStringList{"JobHeader.Author=Ada"}
                                   << QString(job).replace("Mara Lind", "Ada") << QStringList();
    QTest::newRow("comment and unknown attribute")
        << "Job" << QString(job).replace("<ResourceType>", "<!--on--><ResourceType a=\"b\">") << QStringList()
        << job
        << QStringList{"in.xml:9:5: warning: Job: the comment \"on\" would be missing",
                       "in.xml:9:14: warning: Job/ResourceType/@a: was \"b\", would be missing"};
    QTest::newRow("mode that is not read")
        << "AutomaticWorkflow"
        << "<AutomaticWorkflow Version=\"1.0\" Mode=\"AutomaticMode\"/>" << QStringList{"Mode=ManualMode"}
        << "<?xml version=\"1.0\"?>\n<AutomaticWorkflow Version=\"1.0\">\n    <Mode>ManualMode</Mode>\n"
           "</AutomaticWorkflow>\n"
        << QStringList();
    QTest::newRow("element of a list")
        << "AutomaticWorkflow"
        << "<AutomaticWorkflow><Mode>ManualMode</Mode><Area><Name>a</Name><Coordinate><Latitude>1</Latitude>"
           "<Longitude>2</Longitude></Coordinate><Coordinate><Latitude>3</Latitude></Coordinate><Coordinate/>"
           "</Area></AutomaticWorkflow>"
        << QStringList{"Area.Coordinate[0].Latitude=7"}
        << "<?xml version=\"1.0\"?>\n<AutomaticWorkflow>\n    <Mode>ManualMode</Mode>\n    <Area>\n"
           "        <Name>a</Name>\n        <Coordinate>\n            <Latitude>7</Latitude>\n"
           "            <Longitude>2</Longitude>\n        </Coordinate>\n        <Coordinate>\n"
           "            <Latitude>3</Latitude>\n            <Longitude>0</Longitude>\n        </Coordinate>\n"
           "        <Coordinate>\n            <Latitude>0</Latitude>\n            <Longitude>0</Longitude>\n"
           "        </Coordinate>\n    </Area>\n</AutomaticWorkflow>\n"
        << QStringList();
    QTest::newRow("value that is read as none, and what is missing")
        << "Job"
        << QString(job).replace("1500000", "1.5 MHz").replace(QRegularExpression(" *<Author>.*\n"), "")
        << QStringList() << QString()
        << QStringList{
               "in.xml:11:9: warning: Job/AntennaData/MinimumFrequency: was \"1.5 MHz\", would be \"0\"",
               "kormak new: error: JobHeader.Author: missing",
               "kormak new: error: nothing is written, since the document is not complete"};
}

void NewCommandTest::templates()
{
    QFETCH(QString, kind);
    QFETCH(QString, source);
    QFETCH(QStringList, settings);
    QFETCH(QString, document);
    QFETCH(QStringList, complaints);

    Folder folder;
    folder.write("in.xml", source.toUtf8());
    const Run run = folder.run(QStringList{"new", kind, "--template", "in.xml"} + sets(settings));
    QCOMPARE(run.out, document);
    QCOMPARE(run.err.split('\n', Qt::SkipEmptyParts), complaints);
    QCOMPARE(run.status, document.isEmpty() ? 1 : 0);
    QCOMPARE(folder.read("in.xml"), source);
}

void NewCommandTest::wrongTemplates_data()
{
    QTest::addColumn<QByteArray>("source");
    QTest::addColumn<QString>("complaint");
    QTest::addColumn<int>("status");

    QTest::newRow("none") << QByteArray() << "in.xml: error: cannot be read: No such file or directory" << 2;
    QTest::newRow("another kind") << QByteArray("<Job/>")
                                  << "in.xml:1:1: error: is a document of kind Job, not Parameter" << 1;
    QTest::newRow("not read to its end") << QByteArray("<Parameter><Sort/></Parameter>")
                                         << "in.xml:1:12: error: Unknown Tag 'Sort' in 'Parameter'." << 1;
}

void NewCommandTest::wrongTemplates()
{
    QFETCH(QByteArray, source);
    QFETCH(QString, complaint);
    QFETCH(int, status);

    Folder folder;
    if (!source.isEmpty())
        folder.write("in.xml", source);
    const Run run = folder.run({"new", "Parameter", "--template", "in.xml", "-o", "out.xml"});
    QCOMPARE(run.err, complaint + '\n');
    QCOMPARE(run.out, QString());
    QCOMPARE(run.status, status);
    QVERIFY(!folder.names().contains("out.xml"));
}

/// All that is wrong is told at once, but nothing that only follows from it.
void NewCommandTest::severalErrors()
{
    const Run run = Folder().run(QStringList{"new", "Job"}
                                 + sets({"Author=x", "JobHeader.ShowJDH=yes", "AntennaData.Name=a",
                                         "JobHeader.Author=a", "JobHeader.Author=b", "JobHeader.Author=c"}));
    QCOMPARE(
        run.err.split('\n', Qt::SkipEmptyParts),
        (QStringList{"kormak new: there is no field 'Author'. Allowed: JobHeader, ResourceType, AntennaData",
                     "kormak new: JobHeader.Author: is set twice",
                     "kormak new: JobHeader.ShowJDH: 'yes' is not allowed. Allowed: true, false"}));
    QCOMPARE(run.out, QString());
    QCOMPARE(run.status, 2);
}

void NewCommandTest::incomplete_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QStringList>("settings");
    QTest::addColumn<QStringList>("missing");

    const QString notComplete = "error: nothing is written, since the document is not complete";
    const QString prefix = "Parameter[a].";
    QTest::newRow("job") << "Job" << QStringList()
                         << QStringList{"error: ResourceType: missing", "error: JobHeader.Author: missing",
                                        "error: JobHeader.Creation: missing",
                                        "error: JobHeader.JobType: missing", notComplete};
    QTest::newRow("job without antenna data")
        << "Job" << QStringList(wholeJob().mid(0, 4))
        << QStringList{"error: AntennaData.Name: missing", "error: AntennaData.MinimumFrequency: missing",
                       "error: AntennaData.MaximumFrequency: missing", notComplete};
    QTest::newRow("job on another resource")
        << "Job" << QStringList(wholeJob().mid(0, 3)) + QStringList{"ResourceType=Decoder"}
        << QStringList{"warning: ResourceType: only a job on the resource \"Antenna\" is ever complete; the "
                       "library would write nothing for this one",
                       notComplete};
    QTest::newRow("search job")
        << "Job" << QStringList{"JobHeader.JobType=Search MC HF"} + QStringList(wholeJob().mid(1))
        << QStringList{"error: JobHeader.JobType: a search job needs a connectable "
                       "resource, for which a document has no element: no such job is "
                       "ever complete",
                       notComplete};
    QTest::newRow("workflow") << "AutomaticWorkflow" << QStringList()
                              << QStringList{"error: Mode: missing", notComplete};
    QTest::newRow("automatic workflow") << "AutomaticWorkflow" << QStringList{"Mode=AutomaticMode"}
                                        << QStringList{"error: SearchStrategy: missing", notComplete};
    QTest::newRow("activity generation")
        << "ActivityGeneration" << QStringList() << QStringList{"error: Mode: missing", notComplete};
    QTest::newRow("parameter") << "Parameter" << wholeParameter("Integer")
                               << QStringList{"error: UniqueName: missing", notComplete};
    for (const auto &[type, needed] :
         QList<QPair<QString, QString>>{{"String", "String: without a \"Default\""},
                                        {"DoubleList", "Double: without a \"MaxDoubleListLength\""}}) {
        QTest::newRow(qPrintable("parameter without a value, " + type))
            << "Parameter" << wholeParameter(type) + QStringList{"UniqueName=a"}
            << QStringList{
                   "warning: " + needed
                       + " the parameter has no value: it is not complete, and nothing would be written",
                   notComplete};
    }
    QTest::newRow("enumeration without entries")
        << "Parameter" << wholeParameter("Enum") + QStringList{"UniqueName=a"}
        << QStringList{"warning: Enum: the enumeration has no entries", notComplete};
    QTest::newRow("receiver") << "GenericReceiver"
                              << wholeParameter("Enum", prefix) + wholeParameter("Long", "Parameter[b].")
            + QStringList{"Parameter[c].ParameterType=Long"}
                              << QStringList{"warning: Parameter[a].Enum: the enumeration has no entries",
                                             "error: Parameter[c].ValueType: missing",
                                             "error: Parameter[c].RepresentationName: missing", notComplete};
    QTest::newRow("text that XML cannot carry")
        << "Job" << wholeJob() + QStringList{QString("JobHeader.Description=a") + QChar(1)}
        << QStringList{"error: JobHeader.Description: holds a character that XML cannot carry"};
}

void NewCommandTest::incomplete()
{
    QFETCH(QString, kind);
    QFETCH(QStringList, settings);
    QFETCH(QStringList, missing);

    Folder folder;
    folder.write("out.xml", "kept");
    const Run run = folder.run(QStringList{"new", kind, "-o", "out.xml"} + sets(settings));
    QString complaints;
    for (const QString &complaint : missing)
        complaints += "kormak new: " + complaint + "\n";
    QCOMPARE(run.err, complaints);
    QCOMPARE(run.out, QString());
    QCOMPARE(run.status, 1);
    QCOMPARE(folder.read("out.xml"), QString("kept"));
    QCOMPARE(folder.names(), QStringList{"out.xml"});
}

void NewCommandTest::wrongCalls_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QStringList>("settings");
    QTest::addColumn<QString>("complaint");

    QTest::newRow("unknown kind") << "job" << QStringList()
                                  << "Unknown kind of document 'job'; did you mean \"Job\"? Allowed: "
            + knownKinds();
    QTest::newRow("no value") << "Job" << QStringList{"ResourceType"} << "'ResourceType' is not FIELD=VALUE";
    QTest::newRow("unknown field")
        << "Job" << QStringList{"Author=x"}
        << "there is no field 'Author'. Allowed: JobHeader, ResourceType, AntennaData";
    QTest::newRow("unknown field of a part") << "Job" << QStringList{"JobHeader.author=x"}
                                             << "there is no field 'author' in JobHeader. Allowed: JobType, "
                                                "Author, Creation, ShowJDH, Description";
    QTest::newRow("field of a value")
        << "Job" << QStringList{"ResourceType.x=y"} << "there is no field 'x' in ResourceType";
    QTest::newRow("empty field") << "Job" << QStringList{"=y"}
                                 << "there is no field ''. Allowed: JobHeader, ResourceType, AntennaData";
    QTest::newRow("part") << "Job" << QStringList{"JobHeader=x"}
                          << "JobHeader: takes one of its fields: JobType, Author, Creation, ShowJDH, "
                             "Description";
    QTest::newRow("version") << "Job" << QStringList{"Version=2"} << "Version: no setter reaches this field";
    QTest::newRow("connectable resource") << "Job" << QStringList{"JobHeader.ConnectableResource=x"}
                                          << "JobHeader.ConnectableResource: no setter reaches this field";
    QTest::newRow("name outside the vocabulary")
        << "AutomaticWorkflow" << QStringList{"Mode=manual"}
        << "Mode: 'manual' is not allowed. Allowed: ManualMode, AutomaticMode";
    QTest::newRow("yes") << "Job" << QStringList{"JobHeader.ShowJDH=yes"}
                         << "JobHeader.ShowJDH: 'yes' is not allowed. Allowed: true, false";
    QTest::newRow("date without a zone")
        << "Job" << QStringList{"JobHeader.Creation=2026-03-29T00:59:59"}
        << "JobHeader.Creation: '2026-03-29T00:59:59' is not allowed. Allowed: date in UTC as "
           "2026-03-29T00:59:59,250Z, 2026-03-29T00:59:59Z, or now";
    QTest::newRow("too many classifiers")
        << "AutomaticWorkflow" << QStringList{"Classifiers=24"}
        << "Classifiers: '24' is not allowed. Allowed: whole number from 1 to 23";
    QTest::newRow("too few results") << "AutomaticWorkflow" << QStringList{"ClassificationResult=0"}
                                     << "ClassificationResult: '0' is not allowed. Allowed: whole number "
                                        "from 1 to 10";
    QTest::newRow("too long") << "AutomaticWorkflow" << QStringList{"ClassificationTime=1000"}
                              << "ClassificationTime: '1000' is not allowed. Allowed: whole number from 1 to "
                                 "999";
    QTest::newRow("no whole number")
        << "ActivityGeneration" << QStringList{"ClassStopScore=1.5"}
        << "ClassStopScore: '1.5' is not allowed. Allowed: whole number of 32 bits";
    QTest::newRow("no number")
        << "Job" << QStringList{"ResourceType=Antenna", "AntennaData.Azimuth=nan"}
        << "AntennaData.Azimuth: 'nan' is not allowed. Allowed: finite number in degrees";
    QTest::newRow("too large for a float") << "ActivityGeneration" << QStringList{"SessionCloseTime=1e39"}
                                           << "SessionCloseTime: '1e39' is not allowed. Allowed: finite "
                                              "number of single precision";
    QTest::newRow("antenna data without the antenna resource")
        << "Job" << QStringList{"AntennaData.Name=x", "ResourceType=Decoder"}
        << "AntennaData.Name: Antenna data cannot be set for resource 'Decoder' in 'Job'.";
    QTest::newRow("set twice") << "Job"
                               << QStringList{"JobHeader.Author=x", "ResourceType=Antenna",
                                              "JobHeader.Author=y"}
                               << "JobHeader.Author: is set twice";
    QTest::newRow("index in a gap") << "AutomaticWorkflow"
                                    << QStringList{"Area.Coordinate=1,2", "Area.Coordinate[2].Latitude=1"}
                                    << "Area.Coordinate[2].Latitude: there are only 1 elements before it";
    QTest::newRow("no index") << "AutomaticWorkflow" << QStringList{"Area.Coordinate[x]=1,2"}
                              << "Area.Coordinate[x]: the index of a list is a whole number from 0";
    QTest::newRow("negative index") << "AutomaticWorkflow" << QStringList{"Area.Coordinate[-1]=1,2"}
                                    << "Area.Coordinate[-1]: the index of a list is a whole number from 0";
    QTest::newRow("too many values") << "AutomaticWorkflow" << QStringList{"Area.Coordinate=1,2,3"}
                                     << "Area.Coordinate: takes 2 values at most: Latitude, Longitude";
    QTest::newRow("wrong value among several")
        << "AutomaticWorkflow" << QStringList{"Area.Coordinate=1,x"}
        << "Area.Coordinate: Longitude: 'x' is not allowed. Allowed: finite number in degrees";
    QTest::newRow("parameter without a name")
        << "GenericReceiver" << QStringList{"Parameter=x"} << "Parameter: takes a name, Parameter[NAME]";
    QTest::newRow("field of a parameter without a name")
        << "GenericReceiver" << QStringList{"Parameter.ToolTip=x"}
        << "Parameter: takes a name, Parameter[NAME]";
    QTest::newRow("field of an element without an index")
        << "AutomaticWorkflow" << QStringList{"Area.Coordinate.Latitude=1"}
        << "Area.Coordinate: takes an index, Area.Coordinate[N]";
    QTest::newRow("open bracket") << "GenericReceiver" << QStringList{"Parameter[a\\].ToolTip=x"}
                                  << "'Parameter[a\\].ToolTip=x' lacks a ]";
    QTest::newRow("another unique name") << "GenericReceiver" << QStringList{"Parameter[a].UniqueName=b"}
                                         << "Parameter[a].UniqueName: must be the name in the brackets";
    QTest::newRow("block of another type")
        << "Parameter" << QStringList{"ParameterType=Float", "Double.Minimum=1"}
        << "Double.Minimum: needs ParameterType=Double or DoubleList";
    QTest::newRow("character that is not kept")
        << "Parameter" << QStringList{QString("DisplaySuffix=k\u03A9")}
        << QString("DisplaySuffix: 'k\u03A9' would be stored as 'k?'");
}

void NewCommandTest::wrongCalls()
{
    QFETCH(QString, kind);
    QFETCH(QStringList, settings);
    QFETCH(QString, complaint);

    Folder folder;
    const Run run = folder.run(QStringList{"new", kind, "-o", "out.xml"} + sets(settings));
    QCOMPARE(run.err, "kormak new: " + complaint + "\n");
    QCOMPARE(run.out, QString());
    QCOMPARE(run.status, 2);
    QCOMPARE(folder.names(), QStringList());
}

void NewCommandTest::unwritableFile()
{
    Folder folder;
    const Run run = folder.run(QStringList{"new", "Job", "-o", "none/job.xml"} + sets(wholeJob()));
    QCOMPARE(run.err, QString("none/job.xml: error: cannot be written: No such file or directory\n"));
    QCOMPARE(run.out, QString());
    QCOMPARE(run.status, 2);
}

void NewCommandTest::listedFields_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QStringList>("some");
    QTest::addColumn<int>("count");

    QTest::newRow("job")
        << "Job"
        << QStringList{"JobHeader.Author              any text; required",
                       "JobHeader.ShowJDH             true, false; required; default: true",
                       "JobHeader.Description         any text",
                       "AntennaData.MinimumFrequency  number in Hz; required in some documents",
                       "AntennaData.Polarization      Horizontal, Vertical, Slant, Left-Hand "
                       "Circular, Right-Hand Circular"}
        << 11;
    QTest::newRow("workflow")
        << "AutomaticWorkflow"
        << QStringList{"Mode                          ManualMode, AutomaticMode; required",
                       "Classifiers                   whole number from 1 to 23; required "
                       "in some documents; default: 1",
                       "Area.Coordinate               adds one: Latitude,Longitude",
                       "Area.Coordinate[N].Longitude  number in degrees; default: 0"}
        << 10;
    QTest::newRow("activity generation")
        << "ActivityGeneration"
        << QStringList{"Mode                              AGSC, AGMC, AGED; required",
                       "ClassMinConfidence                whole number of 32 bits; default: 0"}
        << 21;
    QTest::newRow("parameter")
        << "Parameter"
        << QStringList{"Boolean.Value                 true, false; default: false; needs "
                       "ParameterType=Boolean",
                       "Double.Minimum                number; needs ParameterType=Double or "
                       "DoubleList",
                       "String.Default                any text; needs "
                       "ParameterType=String"}
        << 35;
    QTest::newRow("receiver")
        << "GenericReceiver"
        << QStringList{"Parameter[NAME].UniqueName                    any text; required",
                       "Parameter[NAME].Enum.EnumValue                adds one: "
                       "Key,Name,Identifier,Value,Default; needs ParameterType=Enum"}
        << 35;
}

void NewCommandTest::listedFields()
{
    QFETCH(QString, kind);
    QFETCH(QStringList, some);
    QFETCH(int, count);

    const Run run = Folder().run({"new", kind, "--list-fields"});
    const QStringList lines = run.out.split('\n', Qt::SkipEmptyParts);
    for (const QString &line : some)
        QVERIFY2(lines.contains(line), qPrintable(run.out));
    QCOMPARE(lines.size(), count);
    QCOMPARE(run.err, QString());
    QCOMPARE(run.status, 0);
}

void NewCommandTest::listedFieldsInJson()
{
    const Run run = Folder().run({"new", "AutomaticWorkflow", "--list-fields", "--format", "json"});
    QCOMPARE(run.err, QString());
    QCOMPARE(run.status, 0);
    const QJsonObject all = QJsonDocument::fromJson(run.out.toUtf8()).object();
    QCOMPARE(all.value("kind").toString(), QString("AutomaticWorkflow"));
    const QJsonArray fields = all.value("fields").toArray();
    QCOMPARE(fields.size(), 10);
    const QJsonValue null = QJsonValue::Null;
    QCOMPARE(fields.at(1).toObject(),
             (QJsonObject{{"field", "Classifiers"},
                          {"label", "Classifiers"},
                          {"type", "Integer"},
                          {"unit", null},
                          {"minimum", 1},
                          {"maximum", 23},
                          {"allowed", QJsonArray()},
                          {"inWords", "whole number from 1 to 23"},
                          {"required", "sometimes"},
                          {"default", 1},
                          {"condition", null}}));
    QCOMPARE(fields.at(7).toObject(),
             (QJsonObject{{"field", "Area.Coordinate"},
                          {"label", null},
                          {"type", null},
                          {"unit", null},
                          {"minimum", null},
                          {"maximum", null},
                          {"allowed", QJsonArray()},
                          {"inWords", "adds one: Latitude,Longitude"},
                          {"required", "never"},
                          {"default", null},
                          {"condition", null}}));
    QCOMPARE(fields.at(8).toObject().value("unit"), QJsonValue("degrees"));
    QCOMPARE(fields.at(0).toObject().value("allowed"), QJsonValue(QJsonArray{"ManualMode", "AutomaticMode"}));
}

void NewCommandTest::everyField_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QStringList>("needs");

    const auto addRows = [&](const QString &kind, const QStringList &needs,
                             const QRegularExpression &which = {}) {
        const QString listed = Folder().run({"new", kind, "--list-fields", "--format", "json"}).out;
        const QJsonArray fields = QJsonDocument::fromJson(listed.toUtf8()).object().value("fields").toArray();
        QVERIFY(!fields.isEmpty());
        for (const QJsonValue &value : fields) {
            const QString field = value.toObject().value("field").toString().replace("[N]", "[0]");
            const QString allowed = value.toObject().value("inWords").toString();
            const bool isValue = !allowed.startsWith("adds") && !allowed.startsWith("Key,");
            if (!isValue || !which.match(field).hasMatch())
                continue;
            // Only one resource and few job types make a complete job, and types need their blocks.
            QStringList values = valuesFor(allowed);
            if (field.endsWith("Type"))
                values = QStringList{values.constLast()};
            for (const QString &one : std::as_const(values))
                QTest::newRow(qPrintable(kind + ' ' + field + '=' + one)) << kind << field << one << needs;
        }
    };
    addRows("Job",
            QStringList(wholeJob().mid(0, 5))
                + QStringList{"AntennaData.MinimumFrequency=0", "AntennaData.MaximumFrequency=1"});
    addRows("AutomaticWorkflow", {"Mode=AutomaticMode", "SearchStrategy=LowestIdFirst", "Area.Name=a"});
    addRows("ActivityGeneration", {"Mode=AGSC"});
    addRows("Parameter", wholeParameter("Long") + QStringList{"UniqueName=a"},
            QRegularExpression("^[A-Za-z]+$"));
    const QList<TypeNeeds> types = typeNeeds();
    for (const TypeNeeds &type : types) {
        addRows("Parameter", wholeParameter(type.type) + QStringList{"UniqueName=a"} + type.needs,
                QRegularExpression('^' + type.block));
    }
}

/// Each field that can be set is in the document, and is read back and shown as it was set.
void NewCommandTest::everyField()
{
    QFETCH(QString, kind);
    QFETCH(QString, field);
    QFETCH(QString, value);
    QFETCH(QStringList, needs);

    needs.erase(std::remove_if(needs.begin(), needs.end(),
                               [&field](const QString &need) { return need.startsWith(field + '='); }),
                needs.end());
    Folder folder;
    const Run run =
        folder.run(QStringList{"new", kind, "-o", "out.xml", "--set", field + '=' + value} + sets(needs));
    QVERIFY2(run.status == 0 && !run.err.contains("error"), qPrintable(run.err));
    const Run check = folder.run({"check", "out.xml"});
    QVERIFY2(check.status == 0 && check.out.contains(kind + ", complete\n"),
             qPrintable(check.out + check.err));
    const QJsonObject shown =
        QJsonDocument::fromJson(folder.run({"show", "--format", "json", "out.xml"}).out.toUtf8()).object();
    QCOMPARE(textOf(jsonAt(shown.value("fields").toObject(), field)), value);
}

QTEST_GUILESS_MAIN(NewCommandTest)
#include "NewCommandTest.moc"
