#include <tests/support/ToolSupport.h>

#include <QJsonDocument>
#include <QJsonObject>

using namespace ToolSupport;

class SetCommandTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void fields_data();
    void fields();
    void targets();
    void dryRun();
    void fromJson_data();
    void fromJson();
    void fromShownJson_data();
    void fromShownJson();
    void area();
    void areaOfExamples();
    void areaRefused();
    void refused_data();
    void refused();
    void newFindings();
    void wrongCalls_data();
    void wrongCalls();
    void notReadToItsEnd();
    void severalFiles();
    void fullDisk_data();
    void fullDisk();
};

namespace {

/// With line ends, a comment and an element that no writer would keep.
QByteArray untidyJob()
{
    return completeJob().replace("\n", "\r\n").replace("<ResourceType>", "<!-- c --><ResourceType a='b'>");
}

} // namespace

void SetCommandTest::fields_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("result");

    const QByteArray job = untidyJob();
    QTest::newRow("a field") << job << QStringList{"JobHeader.Author=Ada = B"}
                             << QByteArray(job).replace("Mara Lind", "Ada = B");
    QTest::newRow("what is there already") << job << QStringList{"JobHeader.Author=Mara Lind"} << job;
    QTest::newRow("several") << job << QStringList{"AntennaData.Name=B", "JobHeader.Author=A"}
                             << QByteArray(job).replace("Mara Lind", "A").replace("East", "B");
    QTest::newRow("added, and one away")
        << job << QStringList{"JobHeader.Description=d", "--unset", "AntennaData.Azimuth"}
        << QByteArray(job).replace("</ShowJDH>\r\n",
                                   "</ShowJDH>\r\n        <Description>d</Description>\r\n");
    QTest::newRow("of a parameter") << completeReceiver()
                                    << QStringList{"Parameter[Level].Float.Maximum=90.5"}
                                    << completeReceiver().replace("120.000000", "90.5");
    QTest::newRow("entry of an enumeration")
        << completeReceiver() << QStringList{"Parameter[Filter].Enum.EnumValue=3,Other,,1"}
        << completeReceiver().replace(
               "        </Enum>\n",
               "            <EnumValue Key=\"3\" Name=\"Other\" Value=\"1\"/>\n        </Enum>\n");
    QTest::newRow("parameter away") << completeReceiver() << QStringList{"--unset", "Parameter[Filter]"}
                                    << QByteArray(
                                           "<?xml version=\"1.0\"?>\n<GenericReceiver Version=\"1.0\">\n")
            + completeReceiver().mid(
                completeReceiver().indexOf("    <Parameter Version=\"1.0\" UniqueName=\"Level\""));
}

void SetCommandTest::fields()
{
    QFETCH(QByteArray, document);
    QFETCH(QStringList, arguments);
    QFETCH(QByteArray, result);

    Folder folder;
    folder.write("in.xml", document);
    const Run run = folder.run(QStringList{"set", "-o", "out.xml", "in.xml"} + arguments);
    QCOMPARE(run.out + run.err, QString());
    QCOMPARE(run.status, 0);
    QCOMPARE(folder.read("out.xml"), QString::fromUtf8(result));
    QCOMPARE(folder.read("in.xml"), QString::fromUtf8(document));
}

void SetCommandTest::targets()
{
    Folder folder;
    folder.write("job.xml", completeJob());
    const QString changed = QString(completeJob()).replace("Mara Lind", "Ada");

    const Run printed = folder.run({"set", "job.xml", "JobHeader.Author=Ada"});
    QCOMPARE(printed.out, changed);
    QCOMPARE(folder.run({"set", "-", "JobHeader.Author=Ada"}, completeJob()).out, changed);
    QCOMPARE(folder.read("job.xml"), QString(completeJob()));

    const Run inPlace = folder.run({"set", "--in-place", "job.xml", "JobHeader.Author=Ada"});
    QCOMPARE(inPlace.out, QString("job.xml\n"));
    QCOMPARE(inPlace.err, QString());
    QCOMPARE(inPlace.status, 0);
    QCOMPARE(folder.read("job.xml"), changed);
    QCOMPARE(folder.names(), QStringList{"job.xml"});

    // Nothing to change: the file is not touched.
    QCOMPARE(folder.run({"set", "--in-place", "job.xml", "JobHeader.Author=Ada"}).out, QString());

    // A byte-order mark and a declared encoding stay.
    const QByteArray marked =
        "\xEF\xBB\xBF" + completeJob().replace("\"1.0\"?>", "\"1.0\" encoding=\"ISO-8859-1\"?>");
    folder.write("marked.xml", marked);
    QCOMPARE(folder.run({"set", "--in-place", "marked.xml", "JobHeader.Author=Ada"}).status, 0);
    QCOMPARE(folder.read("marked.xml"), QString::fromUtf8(QByteArray(marked).replace("Mara Lind", "Ada")));
}

void SetCommandTest::dryRun()
{
    Folder folder;
    folder.write("a.xml", completeJob());
    folder.write("b.xml", completeJob().replace("Mara Lind", "Ada"));
    const Run run = folder.run({"set", "--dry-run", "a.xml", "b.xml", "JobHeader.Author=Ada"});
    QCOMPARE(run.out,
             QString("--- a.xml\n+++ a.xml\n@@ -2,7 +2,7 @@\n <Job Version=\"1.0\">\n     <JobHeader "
                     "Version=\"1.0\">\n"
                     "         <JobType>Antenna</JobType>\n-        <Author>Mara Lind</Author>\n"
                     "+        <Author>Ada</Author>\n         <Creation>2026-03-29T00:59:59,250Z</Creation>\n"
                     "         <ShowJDH>true</ShowJDH>\n     </JobHeader>\n"));
    QCOMPARE(run.err, QString());
    QCOMPARE(run.status, 0);
    QCOMPARE(folder.read("a.xml"), QString(completeJob()));
}

void SetCommandTest::fromJson_data()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QByteArray>("result"); // empty: refused
    QTest::addColumn<QString>("complaint");

    const auto add = [](const char *name, const QByteArray &json, const QByteArray &result,
                        const QString &complaint = {}) {
        QTest::newRow(name) << json << result << complaint;
    };
    const QByteArray job = completeJob();
    add("fields",
        R"({"JobHeader": {"Author": "Ada", "ShowJDH": false}, "AntennaData": {"MinimumFrequency": 1.25e6}})",
        QByteArray(job)
            .replace("Mara Lind", "Ada")
            .replace(">true<", ">false<")
            .replace("1500000", "1250000"));
    add("null",
        R"({"kind": "Job", "fields": {"JobHeader": {"Creation": null, "Author": "Ada"}, "ResourceType": null}})",
        "", "set.xml:2:1: error: Job/ResourceType: missing");
    add("nothing", "{}", job);
    add("what is there already",
        R"({"AntennaData": {"Name": "East", "MinimumFrequency": 1500000, "Azimuth": null}})", job);
    add("another kind", R"({"kind": "Parameter", "fields": {}})", "",
        "changes.json: error: holds fields of kind Parameter, not Job");
    add("no such field", R"({"JobHeader": {"Colour": 1}})", "",
        "changes.json: error: JobHeader.Colour: there is no such field");
    add("object for a value", R"({"ResourceType": {}})", "",
        "changes.json: error: ResourceType: is no value");
    add("value for an object", R"({"JobHeader": 1})", "", "changes.json: error: JobHeader: is no object");
    add("no JSON", "{", "", "changes.json: error: is no JSON: unterminated object at byte 1");
    add("array", "[]", "", "changes.json: error: is no JSON object");
    add("value that is refused", R"({"AntennaData": {"Azimuth": "north"}})", "",
        "set.xml: error: AntennaData.Azimuth: 'north' is not allowed");
}

void SetCommandTest::fromJson()
{
    QFETCH(QByteArray, json);
    QFETCH(QByteArray, result);
    QFETCH(QString, complaint);

    Folder folder;
    folder.write("set.xml", completeJob());
    folder.write("changes.json", json);
    const Run run = folder.run({"set", "--from", "changes.json", "set.xml"});
    QCOMPARE(run.out, QString::fromUtf8(result));
    if (result.isEmpty()) {
        QVERIFY2(run.err.startsWith(complaint), qPrintable(run.err));
        QVERIFY(run.status != 0);
    } else {
        QCOMPARE(run.err, QString());
        QCOMPARE(run.status, 0);
    }
}

void SetCommandTest::fromShownJson_data()
{
    QTest::addColumn<QString>("path");
    for (const char *path : {"jobs/antenna.xml", "settings/automatic-workflow-mode-as-element.xml",
                             "settings/activity-generation.xml", "receivers/hf-receiver.xml",
                             "receivers/vuhf-direction-finder.xml"})
        QTest::newRow(path) << QString(path);
}

/// What 'show' prints of a document changes nothing in it.
void SetCommandTest::fromShownJson()
{
    QFETCH(QString, path);
    QFile example(QString(EXAMPLES_DIR) + '/' + path);
    QVERIFY(example.open(QIODevice::ReadOnly));
    const QByteArray text = example.readAll();
    Folder folder;
    folder.write("in.xml", text);
    folder.write("shown.json", folder.run({"show", "--format", "json", "in.xml"}).out.toUtf8());
    const Run run = folder.run({"set", "--from", "shown.json", "in.xml"});
    QCOMPARE(run.err, QString());
    QCOMPARE(run.out, QString::fromUtf8(text));
    QCOMPARE(run.status, 0);
}

namespace {

const QByteArray Workflow =
    "<AutomaticWorkflow Version='1.0'>\r\n<Mode>ManualMode</Mode>\r\n<Area Version='1.0'>\r\n"
    "  <Name>Sea</Name> <!-- the sea -->\r\n"
    "  <Coordinate><Latitude>0.0</Latitude><Longitude>9</Longitude></Coordinate>\r\n"
    "  <Coordinate><Latitude>9</Latitude><Longitude>09</Longitude></Coordinate>\r\n"
    "  <Coordinate><Latitude>9</Latitude><Longitude>0</Longitude></Coordinate>\r\n"
    "</Area>\r\n</AutomaticWorkflow>\r\n";

} // namespace

/// Together with fields, from a file and from standard input.
void SetCommandTest::area()
{
    Folder folder;
    folder.write("in.xml", Workflow);
    const QByteArray geoJson = folder.run({"show", "--format", "geojson", "in.xml"}).out.toUtf8();
    const Run same = folder.run({"set", "in.xml", "--area", "-"}, geoJson);
    QCOMPARE(same.err, QString());
    QCOMPARE(same.out, QString(Workflow));
    QCOMPARE(same.status, 0);

    const QByteArray moved = QByteArray(geoJson).replace("[9, 9]", "[9, 8.25]");
    QVERIFY(moved != geoJson);
    folder.write("moved.geojson", moved);
    const Run run = folder.run({"set", "--in-place", "in.xml", "--area", "moved.geojson", "Area.Name=Bay"});
    QCOMPARE(run.err, QString());
    QCOMPARE(run.out, QString("in.xml\n"));
    QCOMPARE(run.status, 0);
    QCOMPARE(folder.read("in.xml"),
             QString(Workflow)
                 .replace(">Sea<", ">Bay<")
                 .replace("<Latitude>9</Latitude><Longitude>09", "<Latitude>8.25</Latitude><Longitude>09"));

    const Run renamed = folder.run({"set", "--in-place", "in.xml", "--area", "moved.geojson"});
    QCOMPARE(renamed.err, QString("moved.geojson: warning: properties.name: is not taken over\n"));
    QCOMPARE(renamed.out, QString());
    QCOMPARE(renamed.status, 0);

    // An area that there is not yet gets the name, too.
    folder.write("new.xml",
                 "<AutomaticWorkflow Version='1.0'>\n    <Mode>ManualMode</Mode>\n</AutomaticWorkflow>\n");
    const Run added = folder.run({"set", "--in-place", "new.xml", "--area", "moved.geojson"});
    QCOMPARE(added.err, QString());
    QCOMPARE(added.status, 0);
    const QString shown = folder.run({"show", "--format", "geojson", "new.xml"}).out;
    QCOMPARE(shown, QString(moved));
}

void SetCommandTest::areaOfExamples()
{
    const QDir settings(QString(EXAMPLES_DIR) + "/settings");
    const QStringList names = settings.entryList({"automatic-workflow*.xml"});
    QVERIFY(names.size() >= 4);
    for (const QString &name : names) {
        QFile example(settings.filePath(name));
        QVERIFY(example.open(QIODevice::ReadOnly));
        const QByteArray text = example.readAll();
        Folder folder;
        folder.write("in.xml", text);
        const QByteArray geoJson = folder.run({"show", "--format", "geojson", "in.xml"}).out.toUtf8();
        const Run run = folder.run({"set", "in.xml", "--area", "-"}, geoJson);
        QCOMPARE(run.err, QString());
        QCOMPARE(run.out, QString::fromUtf8(text));
        QCOMPARE(run.status, 0);
    }
}

void SetCommandTest::areaRefused()
{
    Folder folder;
    folder.write("in.xml", Workflow);
    folder.write("job.xml", completeJob());
    folder.write("broken.xml", "<AutomaticWorkflow>\n<Sort/></AutomaticWorkflow>");
    folder.write("high.geojson", R"({"type": "Point", "coordinates": [1, 2, 3]})");
    folder.write("point.geojson", R"({"type": "Point", "coordinates": [1, 2]})");

    const auto complaint = [&folder](const QStringList &arguments, int status) {
        const Run run = folder.run(QStringList{"set", "--dry-run"} + arguments);
        return run.status == status && run.out.isEmpty() ? run.err : "?" + run.out + run.err;
    };
    QCOMPARE(complaint({"in.xml", "--area", "high.geojson"}, 2),
             QString("high.geojson: error: coordinates: has an altitude, which no area has\n"
                     "in.xml: error: not changed\n"));
    QCOMPARE(
        complaint({"job.xml", "--area", "point.geojson"}, 2),
        QString(
            "point.geojson: error: a document of the kind Job has no area\njob.xml: error: not changed\n"));
    QVERIFY(complaint({"broken.xml", "--area", "point.geojson"}, 1).startsWith("broken.xml:2:1: error: "));
    QCOMPARE(complaint({"in.xml", "--area", "none.geojson"}, 2),
             QString("none.geojson: error: cannot be read: No such file or directory\n"));
}

void SetCommandTest::refused_data()
{
    QTest::addColumn<QByteArray>("document");
    QTest::addColumn<QString>("change");
    QTest::addColumn<QString>("complaint");
    QTest::addColumn<int>("status");

    QTest::newRow("unknown field") << completeJob() << "Author=x"
                                   << "in.xml: error: there is no field 'Author'" << 1;
    QTest::newRow("invalid value")
        << completeJob() << "JobHeader.ShowJDH=yes"
        << "in.xml: error: JobHeader.ShowJDH: 'yes' is not allowed. Allowed: true, false" << 1;
    QTest::newRow("not read to its end") << QByteArray("<Job>\n<Sort/></Job>") << "ResourceType=Antenna"
                                         << "in.xml:2:1: error: Unknown Tag 'Sort' in 'Job'." << 1;
    QTest::newRow("not well-formed") << QByteArray("<Job>") << "ResourceType=Antenna"
                                     << "in.xml:1:6: error: Premature end of document." << 1;
    QTest::newRow("no file") << QByteArray() << "ResourceType=Antenna"
                             << "in.xml: error: cannot be read: No such file or directory" << 2;
}

void SetCommandTest::refused()
{
    QFETCH(QByteArray, document);
    QFETCH(QString, change);
    QFETCH(QString, complaint);
    QFETCH(int, status);

    Folder folder;
    if (!document.isEmpty())
        folder.write("in.xml", document);
    const Run run = folder.run({"set", "--in-place", "in.xml", change});
    QVERIFY2(run.err.startsWith(complaint), qPrintable(run.err));
    QCOMPARE(run.out, QString());
    QCOMPARE(run.status, status);
    if (!document.isEmpty())
        QCOMPARE(folder.read("in.xml"), QString::fromUtf8(document));
}

void SetCommandTest::newFindings()
{
    Folder folder;
    folder.write("in.xml", completeParameter());
    const QStringList call{"set", "in.xml", "Integer.Minimum=50"};
    const Run refused = folder.run(call);
    const QString finding = "Parameter[Gain]/Integer/Minimum: the minimum 50 is above the maximum 40\n";
    QVERIFY2(refused.err.contains("error: " + finding), qPrintable(refused.err));
    QVERIFY(refused.err.endsWith("in.xml: error: not changed (--accept-findings changes it all the same)\n"));
    QCOMPARE(refused.out, QString());
    QCOMPARE(refused.status, 1);

    const Run accepted = folder.run(call + QStringList{"--accept-findings"});
    QVERIFY2(accepted.err.contains("warning: " + finding), qPrintable(accepted.err));
    QVERIFY(accepted.out.contains("<Minimum>50</Minimum>"));
    QCOMPARE(accepted.status, 0);
}

void SetCommandTest::wrongCalls_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("complaint");

    QTest::newRow("no changes") << QStringList{"a.xml"} << "no FIELD=VALUE, --unset, --from or --area given";
    QTest::newRow("no file") << QStringList{"Mode=x"} << "no FILE given";
    QTest::newRow("file behind a field") << QStringList{"a.xml", "Mode=x", "b.xml"}
                                         << "'b.xml' is not FIELD=VALUE; files stand before the fields";
    QTest::newRow("two files to one output") << QStringList{"a.xml", "b.xml", "Mode=x"}
                                             << "takes one FILE, not 2, unless with --in-place or --dry-run";
    QTest::newRow("two targets") << QStringList{"a.xml", "Mode=x", "--in-place", "--dry-run"}
                                 << "only one of -o, --in-place and --dry-run can be given, and -o only once";
    QTest::newRow("standard input in place")
        << QStringList{"-", "Mode=x", "--in-place"} << "standard input cannot be written in place";
    QTest::newRow("standard input twice")
        << QStringList{"-", "--from", "-"} << "standard input can be read only once";
    QTest::newRow("standard input for two options")
        << QStringList{"a.xml", "--from", "-", "--area", "-"} << "standard input can be read only once";
    QTest::newRow("two areas") << QStringList{"a.xml", "--area", "a", "--area", "b"}
                               << "--area can be given only once";
    QTest::newRow("two sources") << QStringList{"a.xml", "--from", "a", "--from", "b"}
                                 << "--from can be given only once";
}

void SetCommandTest::wrongCalls()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, complaint);

    Folder folder;
    const Run run = folder.run(QStringList{"set"} + arguments);
    QCOMPARE(run.err, "kormak set: " + complaint + "\n");
    QCOMPARE(run.out, QString());
    QCOMPARE(run.status, 2);
}

/// One that cannot be changed does not keep the others from it.
void SetCommandTest::severalFiles()
{
    Folder folder;
    folder.write("a.xml", completeJob());
    folder.write("b.xml", completeParameter());
    folder.write("Mode=c.xml", completeJob());
    const Run run = folder.run(
        {"set", "--in-place", "a.xml", "b.xml", "none.xml", "./Mode=c.xml", "JobHeader.Author=Ada"});
    QCOMPARE(run.out, QString("a.xml\n./Mode=c.xml\n"));
    QVERIFY2(run.err.contains("b.xml: error: there is no field 'JobHeader'"), qPrintable(run.err));
    QVERIFY2(run.err.contains("none.xml: error: cannot be read"), qPrintable(run.err));
    QCOMPARE(run.status, 2);
    QVERIFY(folder.read("a.xml").contains(">Ada<"));
    QVERIFY(folder.read("Mode=c.xml").contains(">Ada<"));
    QCOMPARE(folder.read("b.xml"), QString(completeParameter()));
}

/// What comes first is told, and whether the tool can do it.
void SetCommandTest::notReadToItsEnd()
{
    Folder folder;
    folder.write("case.xml",
                 completeJob().replace("<Author>Mara Lind</Author>", "<author>Mara Lind</author>"));
    folder.write("unknown.xml", completeJob().replace("<Author>", "<Priority/><Author>"));
    const QString first =
        "error: only a document that is read to its end can be changed; put that right first\n";
    const Run letter = folder.run({"set", "case.xml", "ResourceType=Antenna"});
    QVERIFY2(letter.err.startsWith("case.xml:5:9: error: "), qPrintable(letter.err));
    QVERIFY2(
        letter.err.endsWith("case.xml: " + first
                            + "case.xml: error: not changed ('kormak fix' puts right what is certain)\n"),
        qPrintable(letter.err));
    const Run unknown = folder.run({"set", "unknown.xml", "ResourceType=Antenna"});
    QVERIFY2(unknown.err.endsWith("unknown.xml: " + first + "unknown.xml: error: not changed\n"),
             qPrintable(unknown.err));
    QCOMPARE(unknown.status, 1);
}

void SetCommandTest::fullDisk_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("target");

    const QString change = "JobHeader.Author=Ada";
    QTest::newRow("set in place") << QStringList{"set", "--in-place", "job.xml", change} << "job.xml";
    QTest::newRow("set to a file") << QStringList{"set", "job.xml", change, "-o", "out.xml"} << "out.xml";
    QTest::newRow("set to a file that is there")
        << QStringList{"set", "job.xml", change, "-o", "there.xml"} << "there.xml";
    QTest::newRow("fix in place") << QStringList{"fix", "--in-place", "job.xml"} << "job.xml";
}

/// What was there stays, whole, and nothing is left beside it.
void SetCommandTest::fullDisk()
{
#ifdef Q_OS_UNIX
    QFETCH(QStringList, arguments);
    QFETCH(QString, target);

    const QByteArray faulty = completeJob().replace(">Antenna</JobType", ">ANTENNA</JobType");
    Folder folder;
    folder.write("job.xml", faulty);
    folder.write("there.xml", "there");
    const Run run = runOnFullDisk(folder, arguments);
    QVERIFY2(run.err.contains(target + ": error: cannot be written: "), qPrintable(run.err));
    QCOMPARE(run.out, QString());
    QCOMPARE(run.status, 2);
    QCOMPARE(folder.read("job.xml"), QString::fromUtf8(faulty));
    QCOMPARE(folder.read("there.xml"), QString("there"));
    QCOMPARE(folder.names(), QStringList({"job.xml", "there.xml"}));
#else
    QSKIP("no limit on the size of files here", ""); // clang asks for a second argument
#endif
}

QTEST_GUILESS_MAIN(SetCommandTest)
#include "SetCommandTest.moc"
