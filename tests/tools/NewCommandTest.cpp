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
    void warnings_data();
    void warnings();
    void incomplete_data();
    void incomplete();
    void wrongCalls_data();
    void wrongCalls();
    void unwritableFile();
    void listedFields_data();
    void listedFields();
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
            {"String", "String.", {"String.Value=v", "String.Default=v"}},
            {"Double", "Double.", {"Double.Value=1", "Double.Default=1", "Double.MaxDoubleListLength=1"}},
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
    QTest::newRow("receiver") << "GenericReceiver"
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
                              << completeReceiver();
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

void NewCommandTest::warnings_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QStringList>("settings");
    QTest::addColumn<QStringList>("losses");

    QTest::newRow("mode of a workflow") << "AutomaticWorkflow" << QStringList{"Mode=ManualMode"}
                                        << QStringList{"Mode: \"ManualMode\" -> not set"};
    QTest::newRow("type of a boolean parameter")
        << "Parameter" << wholeParameter("Boolean") + QStringList{"UniqueName=a"}
        << QStringList{"ParameterType: \"Boolean\" -> not set"};
    QTest::newRow("decimals of an entry")
        << "Parameter" << wholeParameter("Enum") + QStringList{"UniqueName=a", "Enum.EnumValue=1,A,,0.123"}
        << QStringList{"Enum.EnumValue[0].Value: 0.123 -> 0.12"};
    QTest::newRow("values of a list")
        << "Parameter"
        << wholeParameter("DoubleList")
            + QStringList{"UniqueName=a", "Double.UseAsList=true", "Double.DoubleList=1,2.5"}
        << QStringList{"Double.DoubleList[0]: removed 1", "Double.DoubleList[1]: removed 2.5"};
    QTest::newRow("nothing lost") << "Parameter" << wholeParameter("Long") + QStringList{"UniqueName=a"}
                                  << QStringList();
}

void NewCommandTest::warnings()
{
    QFETCH(QString, kind);
    QFETCH(QStringList, settings);
    QFETCH(QStringList, losses);

    Folder folder;
    const Run run = folder.run(QStringList{"new", kind, "-o", "out.xml"} + sets(settings));
    QString complaints;
    for (const QString &loss : losses)
        complaints += "kormak new: warning: not read back as it was set: " + loss + "\n";
    QCOMPARE(run.err, complaints);
    QCOMPARE(run.status, 0);
    QCOMPARE(folder.names(), QStringList{"out.xml"});
}

void NewCommandTest::incomplete_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QStringList>("settings");
    QTest::addColumn<QStringList>("missing");

    const QString prefix = "Parameter[a].";
    QTest::newRow("job") << "Job" << QStringList() << QStringList{"JobHeader: Please set Author"};
    QTest::newRow("job without antenna data")
        << "Job" << QStringList(wholeJob().mid(0, 4)) << QStringList{"AntennaData: Please set Name"};
    QTest::newRow("job on another resource")
        << "Job" << QStringList(wholeJob().mid(0, 3)) + QStringList{"ResourceType=Decoder"}
        << QStringList{"Job: only a job with ResourceType \"Antenna\" is written"};
    QTest::newRow("search job") << "Job"
                                << QStringList{"JobHeader.JobType=Search MC HF"}
            + QStringList(wholeJob().mid(1))
                                << QStringList{"JobHeader: Please set ConnectableRessource"};
    QTest::newRow("workflow") << "AutomaticWorkflow" << QStringList()
                              << QStringList{"AutomaticWorkflow: Please set WorkflowMode"};
    QTest::newRow("automatic workflow") << "AutomaticWorkflow" << QStringList{"Mode=AutomaticMode"}
                                        << QStringList{"AutomaticWorkflow: Please set SearchStrategy"};
    QTest::newRow("activity generation")
        << "ActivityGeneration" << QStringList()
        << QStringList{"ActivityGeneration: Please set ActivityGenerationMode"};
    QTest::newRow("parameter") << "Parameter" << wholeParameter("Integer")
                               << QStringList{"Parameter: Please set UniqueName attribute"};
    for (const auto &[type, field] : QList<QPair<QString, QString>>{{"String", "String.Value"},
                                                                    {"Double", "Double.Value"},
                                                                    {"DoubleList", "Double.Value"},
                                                                    {"Enum", "Enum.EnumValue"}}) {
        QTest::newRow(qPrintable("parameter without a value, " + type))
            << "Parameter" << wholeParameter(type) + QStringList{"UniqueName=a"}
            << QStringList{"Parameter: Please set " + field};
    }
    QTest::newRow("list without elements")
        << "Parameter" << wholeParameter("DoubleList") + QStringList{"UniqueName=a", "Double.UseAsList=true"}
        << QStringList{"Parameter: Please set Double.MaxDoubleListLength"};
    QTest::newRow("receiver") << "GenericReceiver"
                              << wholeParameter("Enum", prefix) + wholeParameter("Long", "Parameter[b].")
            + QStringList{"Parameter[c].ParameterType=Long"}
                              << QStringList{"Parameter[a]: Please set Enum.EnumValue",
                                             "Parameter[c]: Please set ValueType"};
    QTest::newRow("text that XML cannot carry")
        << "Job" << wholeJob() + QStringList{QString("JobHeader.Description=a") + QChar(1)}
        << QStringList{"Job: Text cannot be represented in XML"};
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
        complaints += "kormak new: error: " + complaint + "\n";
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
                                  << "Unknown kind of document 'job'. Allowed: " + knownKinds();
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
        << "ClassStopScore: '1.5' is not allowed. Allowed: whole number from -2147483648 to 2147483647";
    QTest::newRow("no number")
        << "Job" << QStringList{"ResourceType=Antenna", "AntennaData.Azimuth=nan"}
        << "AntennaData.Azimuth: 'nan' is not allowed. Allowed: number in degrees from -1.79769e+308 to "
           "1.79769e+308";
    QTest::newRow("too large for a float") << "ActivityGeneration" << QStringList{"SessionCloseTime=1e39"}
                                           << "SessionCloseTime: '1e39' is not allowed. Allowed: number from "
                                              "-3.40282e+38 to 3.40282e+38";
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
        << "Area.Coordinate: Longitude: 'x' is not allowed. Allowed: number in degrees from -1.79769e+308 to "
           "1.79769e+308";
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
        << QStringList{"JobHeader.ShowJDH             true, false",
                       "AntennaData.MinimumFrequency  number in Hz",
                       "AntennaData.Polarization      Horizontal, Vertical, Slant, Left-Hand "
                       "Circular, Right-Hand Circular"}
        << 11;
    QTest::newRow("workflow") << "AutomaticWorkflow"
                              << QStringList{"Classifiers                   whole number from 1 to 23",
                                             "Area.Coordinate               adds one: Latitude,Longitude",
                                             "Area.Coordinate[N].Longitude  number in degrees"}
                              << 10;
    QTest::newRow("activity generation")
        << "ActivityGeneration" << QStringList{"Mode                              AGSC, AGMC, AGED"} << 21;
    QTest::newRow("parameter") << "Parameter"
                               << QStringList{"Double.DoubleList                  adds values: number",
                                              "Double.DoubleList[N]               number"}
                               << 77;
    QTest::newRow("receiver") << "GenericReceiver"
                              << QStringList{"Parameter[NAME].Enum.EnumValue                     adds one: "
                                             "Key,Name,Identifier,Value,Default"}
                              << 77;
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

void NewCommandTest::everyField_data()
{
    QTest::addColumn<QString>("kind");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("value");
    QTest::addColumn<QStringList>("needs");
    QTest::addColumn<bool>("isInDocument");

    // What documents do not say, or do not say again.
    const QRegularExpression outside(
        "^Mode$|^ParameterType$|^Boolean\\.|\\.Value$|\\.Multiplier$|"
        "\\.(RepresentationName|UniqueParameterName)$|DefaultValue|SelectedEnumValue|DoubleList|UseAsList|"
        "^String\\.Default$|MaxDoubleListLength");
    const QRegularExpression inside("EnumValue\\[0\\]\\.Value$");
    const auto isInDocument = [&](const QString &field) {
        return inside.match(field).hasMatch() || !outside.match(field).hasMatch();
    };
    const auto addRows = [&](const QString &kind, const QStringList &needs,
                             const QRegularExpression &which = {}) {
        const QStringList lines = Folder().run({"new", kind, "--list-fields"}).out.split('\n');
        for (const QString &line : lines) {
            const QString field = line.section(' ', 0, 0).replace("[N]", "[0]");
            const QString allowed = line.section(' ', 1).trimmed();
            const bool isValue =
                !field.isEmpty() && !allowed.startsWith("adds") && !allowed.startsWith("Key,");
            if (!isValue || !which.match(field).hasMatch())
                continue;
            // Only one resource and few job types make a complete job, and types need their blocks.
            QStringList values = valuesFor(allowed);
            if (field.endsWith("Type"))
                values = QStringList{values.constLast()};
            for (const QString &value : std::as_const(values))
                QTest::newRow(qPrintable(kind + ' ' + field + '=' + value))
                    << kind << field << value << needs
                    << (kind == "ActivityGeneration" || isInDocument(field));
        }
    };
    QTest::newRow("length of a list")
        << "Parameter"
        << "Double.MaxDoubleListLength"
        << "7" << wholeParameter("DoubleList") + QStringList{"UniqueName=a", "Double.UseAsList=true"} << true;
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
                QRegularExpression('^' + QRegularExpression::escape(type.block)));
    }
}

void NewCommandTest::everyField()
{
    QFETCH(QString, kind);
    QFETCH(QString, field);
    QFETCH(QString, value);
    QFETCH(QStringList, needs);
    QFETCH(bool, isInDocument);

    needs.erase(std::remove_if(needs.begin(), needs.end(),
                               [&field](const QString &need) { return need.startsWith(field + '='); }),
                needs.end());
    Folder folder;
    const Run run =
        folder.run(QStringList{"new", kind, "-o", "out.xml", "--set", field + '=' + value} + sets(needs));
    QCOMPARE(run.status, 0);
    const QJsonObject shown =
        QJsonDocument::fromJson(folder.run({"show", "--format", "json", "out.xml"}).out.toUtf8()).object();
    const QString readBack = textOf(jsonAt(shown.value("fields").toObject(), field));
    if (isInDocument) {
        QCOMPARE(readBack, value);
        QVERIFY2(!run.err.contains(field + ':'), qPrintable(run.err));
    } else {
        QVERIFY2(readBack == value || run.err.contains("not read back"), qPrintable(readBack + run.err));
    }
}

QTEST_GUILESS_MAIN(NewCommandTest)
#include "NewCommandTest.moc"
