#include <tests/support/ToolSupport.h>

#include <QRegularExpression>
#include <QStandardPaths>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#endif

using namespace ToolSupport;

class TableCommandTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void columns_data();
    void columns();
    void usualColumns();
    void csvOfSeveralKinds();
    void where_data();
    void where();
    void wrongCalls_data();
    void wrongCalls();
    void sort_data();
    void sort();
    void eachParameter_data();
    void eachParameter();
    void text();
    void blocksOfText();
    void csv();
    void csvWithoutRows();
    void csvIntoDatabase();
    void json();
    void faultyDocuments();
    void whatIsReadOtherwise_data();
    void whatIsReadOtherwise();
    void paths();
    void order_data();
    void order();
    void rowsAreToldAtOnce();
};

namespace {

/// A receiver, a workflow, settings, a parameter and two jobs.
struct SomeDocuments : Folder {
    SomeDocuments()
    {
        write("a.xml", completeJob());
        write("b.xml", jobWith("Mara Lind", "Nils Aas").replace(">1500000<", ">3000000<"));
        write("c.xml", completeWorkflow());
        write("d.xml", completeGeneration());
        write("e.xml", completeReceiver());
        write("f.xml", completeParameter());
    }
};

QStringList linesOf(const QString &text)
{
    return text.split('\n', Qt::SkipEmptyParts);
}

/// What a table of the \a arguments has in its first column, but for the name of that.
QStringList firstCells(const Run &run)
{
    QStringList cells;
    for (const QString &line : linesOf(run.out))
        cells << line.section(',', 0, 0).trimmed();
    return cells.mid(1);
}

} // namespace

void TableCommandTest::columns_data()
{
    QTest::addColumn<QString>("columns");
    QTest::addColumn<QStringList>("lines");

    const auto add = [](const char *columns, const QStringList &lines) {
        QTest::newRow(columns) << columns << lines;
    };
    add("file,kind,complete",
        {"a.xml,Job,true", "b.xml,Job,true", "c.xml,AutomaticWorkflow,true", "d.xml,ActivityGeneration,true",
         "e.xml,GenericReceiver,true", "f.xml,Parameter,true"});
    add("file,JobHeader.Author,AntennaData.MinimumFrequency",
        {"a.xml,Mara Lind,1500000", "b.xml,Nils Aas,3000000", "c.xml,,", "d.xml,,", "e.xml,,", "f.xml,,"});
    add("file, Mode", {"a.xml,", "b.xml,", "c.xml,AutomaticMode", "d.xml,AGED", "e.xml,", "f.xml,"});
    add("Area.Coordinate[0].Latitude", {"", "", "53.55", "", "", ""});
    add("Area.Coordinate[1].Latitude", {"", "", "", "", "", ""});
    add("Parameter[Level].Float.Maximum,Integer.Maximum,Parameter[No].UniqueName",
        {",,", ",,", ",,", ",,", "120,,", ",40,"});
    add("Parameter[Filter].Enum.EnumValue[1].Name", {"", "", "", "", "Wide", ""});
    add("LevelMinBurstDuration,Autostart", {",", ",", ",", "0.2,true", ",", ","});
    add("JobHeader.Creation",
        {"\"2026-03-29T00:59:59,250Z\"", "\"2026-03-29T00:59:59,250Z\"", "", "", "", ""});
}

void TableCommandTest::columns()
{
    QFETCH(QString, columns);
    QFETCH(QStringList, lines);

    const Run run = SomeDocuments().run({"table", ".", "--format", "csv", "--columns", columns});
    QCOMPARE(run.err, QString());
    QStringList expected{columns.remove(' ')};
    for (const QString &line : lines)
        expected << QString(line).replace(QRegularExpression("^(.\\.xml)"), "./\\1");
    QCOMPARE(run.out, expected.join("\r\n") + "\r\n");
    QCOMPARE(run.status, 0);
}

/// Those that documents of a kind need, in another table when the kind changes.
void TableCommandTest::usualColumns()
{
    const SomeDocuments folder;
    const Run run = folder.run({"table", "a.xml", "b.xml", "c.xml", "e.xml", "f.xml", "d.xml"});
    QCOMPARE(run.err, QString());
    QStringList columns;
    for (const QString &table : run.out.split("\n\n"))
        columns << table.section('\n', 0, 0).simplified();
    QCOMPARE(columns,
             (QStringList{"file kind JobHeader.JobType JobHeader.Author JobHeader.Creation JobHeader.ShowJDH "
                          "ResourceType AntennaData.Name AntennaData.MinimumFrequency "
                          "AntennaData.MaximumFrequency",
                          "file kind Mode Classifiers ClassificationTime ClassificationResult SearchStrategy",
                          "file kind", "file kind UniqueName ParameterType RepresentationName ValueType",
                          "file kind Mode"}));
    QCOMPARE(run.out.count("a.xml") + run.out.count("b.xml"), 2);
    QCOMPARE(run.status, 0);

    const QList<QJsonObject> rows = jsonLines(folder.run({"table", ".", "--format", "json"}).out);
    QCOMPARE(rows.size(), 6);
    QCOMPARE(rows[1]["JobHeader.Author"].toString(), QString("Nils Aas"));
    QVERIFY(!rows[1].contains("Mode"));
    QCOMPARE(rows[2]["Mode"].toString(), QString("AutomaticMode"));
}

void TableCommandTest::csvOfSeveralKinds()
{
    const SomeDocuments folder;
    const Run run = folder.run({"table", "d.xml", "a.xml", "d.xml", "--format", "csv"});
    QCOMPARE(run.out,
             QString("file,kind,Mode\r\nd.xml,ActivityGeneration,AGED\r\nd.xml,ActivityGeneration,AGED\r\n"));
    QCOMPARE(
        run.err,
        QString("a.xml: error: is of kind Job, but the columns are those of ActivityGeneration (--columns "
                "gives columns for all)\n"));
    QCOMPARE(run.status, 1);

    const Run jobs = folder.run({"table", ".", "--format", "csv", "--where", "kind = Job"});
    QCOMPARE(jobs.err, QString());
    QCOMPARE(firstCells(jobs), (QStringList{"./a.xml", "./b.xml"}));
}

void TableCommandTest::where_data()
{
    QTest::addColumn<QStringList>("conditions");
    QTest::addColumn<QString>("files");

    const auto add = [](const char *name, const QStringList &conditions, const QString &files) {
        QTest::newRow(name) << conditions << files;
    };
    add("text", {"JobHeader.Author = Mara Lind"}, "a");
    add("text without blanks around =", {"JobHeader.Author=Mara Lind"}, "a");
    add("another text", {"JobHeader.Author != Mara Lind"}, "b");
    add("contains", {"JobHeader.Author contains s A"}, "b");
    add("contains, of a name", {"Mode contains AG"}, "d");
    add("contains, of a number", {"AntennaData.MinimumFrequency contains 15"}, "a");
    add("is set", {"AntennaData.Name is set"}, "ab");
    add("is not set", {"AntennaData.Name is not set"}, "cdef");
    add("number", {"AntennaData.MinimumFrequency = 1.5e6"}, "a");
    add("less", {"AntennaData.MinimumFrequency < 3e6"}, "a");
    add("at most", {"AntennaData.MinimumFrequency <= 3e6"}, "ab");
    add("more", {"AntennaData.MinimumFrequency>1.5e6"}, "b");
    add("at least", {"AntennaData.MinimumFrequency >= 1500000"}, "ab");
    add("number of single precision", {"LevelMinBurstDuration = 0.2"}, "d");
    add("another number of single precision", {"LevelMinBurstDuration != 0.2"}, "");
    add("number beyond single precision", {"LevelMinBurstDuration < 1e300"}, "d");
    add("whole number", {"Integer.Maximum = 40"}, "f");
    add("whole number and fraction", {"Integer.Maximum > 39.5"}, "f");
    add("number beyond 32 bits", {"Integer.Maximum < 99999999999"}, "f");
    add("boolean", {"Autostart = true"}, "d");
    add("complete", {"complete = true"}, "abcdef");
    add("incomplete", {"complete = false"}, "");
    add("name", {"ResourceType = Antenna"}, "ab");
    add("another name", {"ResourceType != Decoder"}, "ab");
    add("name of one of two vocabularies", {"Mode = AGED"}, "d");
    add("another name than one of two vocabularies", {"Mode != AGED"}, "c");
    add("date", {"JobHeader.Creation > 2026-03-29T00:59:59,249Z"}, "ab");
    add("later date", {"JobHeader.Creation > 2026-03-29T00:59:59,250Z"}, "");
    add("day", {"JobHeader.Creation >= 2026-03-29"}, "ab");
    add("day before", {"JobHeader.Creation < 2026-03-29"}, "");
    add("now", {"JobHeader.Creation != now"}, "ab");
    add("kind", {"kind = Parameter"}, "f");
    add("file", {"file contains b"}, "b");
    add("name of a parameter", {"Parameter[Level].Float.Maximum >= 120"}, "e");
    add("entry", {"Parameter[Filter].Enum.EnumValue[0].Name = Narrow"}, "e");
    add("both", {"kind = Job", "JobHeader.Author contains a", "AntennaData.MinimumFrequency < 2e6"}, "a");
    add("one of two", {"kind = Job", "JobHeader.Author contains Lind", "AntennaData.MinimumFrequency > 2e6"},
        "");
}

void TableCommandTest::where()
{
    QFETCH(QStringList, conditions);
    QFETCH(QString, files);

    QStringList arguments{"table", ".", "--format", "csv", "--columns", "file"};
    for (const QString &condition : conditions)
        arguments << "--where" << condition;
    const Run run = SomeDocuments().run(arguments);
    QCOMPARE(run.err, QString());
    QCOMPARE(firstCells(run).join("").remove("./").remove(".xml"), files);
    QCOMPARE(run.status, 0);
}

void TableCommandTest::wrongCalls_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("message");

    const auto condition = [](const QString &text, const QString &message) {
        QTest::newRow(qPrintable(text)) << QStringList{"--where", text} << message;
    };
    const QString whole =
        "is not FIELD OP VALUE. OP is one of =, !=, <, <=, >, >=, contains; without a VALUE "
        "there are: is set, is not set";
    condition("file", "'file': " + whole);
    condition("file =", "'file =': " + whole);
    condition("file is there", "'file is there': " + whole);
    condition("file contains", "'file contains': " + whole);
    condition("Jobheader.Author = x",
              "there is no field 'Jobheader.Author'. Allowed: file, kind, complete, Version, JobHeader, ...");
    condition("JobHeader.Autor = x",
              "there is no field 'Autor' in JobHeader. Allowed: Version, JobType, Author, ...");
    condition("JobHeader = x", "JobHeader: takes one of its fields: Version, JobType, Author, ...");
    condition("ResourceType.Name = x", "ResourceType: has no fields");
    condition("ResourceType[1] = x", "ResourceType: takes no brackets");
    condition("Parameter.UniqueName = x", "Parameter: takes a name, Parameter[NAME]");
    condition("Area.Coordinate.Latitude = x", "Area.Coordinate: takes an index, Area.Coordinate[N]");
    condition("Parameter[a.UniqueName = x", "'Parameter[a.UniqueName = x' lacks a ]");
    condition("AntennaData.Azimuth = north", "'AntennaData.Azimuth = north': 'north' is not a number");
    condition("AntennaData.Azimuth < nan", "'AntennaData.Azimuth < nan': 'nan' is not a number");
    condition("ResourceType = antenna",
              "'ResourceType = antenna': 'antenna' is not allowed; did you mean \"Antenna\"? Allowed: "
              "Antenna, ...");
    condition("Autostart = yes", "'Autostart = yes': 'yes' is not allowed. Allowed: true, false");
    condition("JobHeader.Creation > noon",
              "'JobHeader.Creation > noon': 'noon' is not allowed. Allowed: date in UTC as "
              "2026-03-29T00:59:59,250Z, 2026-03-29T00:59:59Z, or now");
    condition("JobHeader.Author < M",
              "'JobHeader.Author < M': only numbers and dates are less or more than others");
    condition("Mode >= AGED", "'Mode >= AGED': only numbers and dates are less or more than others");
    condition("kind = Jobs",
              "'kind = Jobs': Unknown kind 'Jobs'; did you mean \"Job\"? Allowed: " + knownKinds());
    QTest::newRow("columns twice") << QStringList{"--columns", "file", "--columns", "kind"}
                                   << "--columns can be given only once";
    QTest::newRow("column twice") << QStringList{"--columns", "file,kind,file"}
                                  << "the column 'file' is given twice";
    QTest::newRow("no such column") << QStringList{"--columns", "file,nothing"}
                                    << "there is no field 'nothing'. Allowed: file, kind, complete, ...";
    QTest::newRow("empty column") << QStringList{"--columns", "file,"}
                                  << "there is no field ''. Allowed: file, kind, complete, ...";
    QTest::newRow("sorted twice") << QStringList{"--sort", "file", "--sort", "kind"}
                                  << "--sort can be given only once";
    QTest::newRow("sorted by nothing")
        << QStringList{"--sort", "x"} << "there is no field 'x'. Allowed: file, kind, complete, ...";
    QTest::newRow("no such part") << QStringList{"--each", "Job"} << "Unknown part 'Job'. Allowed: Parameter";
    QTest::newRow("no such format") << QStringList{"--format", "xml"}
                                    << "Unknown format 'xml'. Allowed: text, csv, json";
    QTest::newRow("no threads") << QStringList{"-j", "0"} << "-j takes a number from 1, not '0'";
}

void TableCommandTest::wrongCalls()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, message);

    const Run run = SomeDocuments().run(QStringList{"table", "a.xml"} + arguments);
    QCOMPARE(run.out, QString());
    const QString start = "kormak table: " + message;
    if (message.endsWith(", ..."))
        QVERIFY2(run.err.startsWith(start.chopped(3)), qPrintable(run.err));
    else
        QCOMPARE(run.err, start + '\n');
    QCOMPARE(run.status, 2);
}

void TableCommandTest::sort_data()
{
    QTest::addColumn<QStringList>("authors");
    QTest::addColumn<QStringList>("minima");
    QTest::addColumn<QString>("field");
    QTest::addColumn<QString>("files");

    const QStringList authors{"Mara", "aas", "Nils", "Mara"};
    const QStringList minima{"1500000", "9", "20000000", "200"};
    QTest::newRow("numbers") << authors << minima << "AntennaData.MinimumFrequency"
                             << "bdac";
    QTest::newRow("texts, and files where they are the same") << authors << minima << "JobHeader.Author"
                                                              << "adcb";
    QTest::newRow("what is not set, behind") << authors << minima << "JobHeader.Description"
                                             << "cabd";
    QTest::newRow("not a number, behind numbers")
        << authors << QStringList{"7", "inf", "8", "-inf"} << "AntennaData.Azimuth"
        << "acbd";
    QTest::newRow("dates") << authors << minima << "JobHeader.Creation"
                           << "dcba";
    QTest::newRow("another order of files") << authors << minima << "file"
                                            << "abcd";
}

void TableCommandTest::sort()
{
    QFETCH(QStringList, authors);
    QFETCH(QStringList, minima);
    QFETCH(QString, field);
    QFETCH(QString, files);

    const Folder folder;
    for (int i = 0; i < 4; ++i) {
        QByteArray job = jobWith("Mara Lind", authors[i].toUtf8())
                             .replace("2026-03-29", QByteArray("2026-03-2") + QByteArray::number(9 - i));
        if (field == "AntennaData.Azimuth") {
            const QByteArray azimuth = minima[i].endsWith("inf") ? "nan" : minima[i].toUtf8();
            job.replace("<MinimumFrequency>", "<Azimuth>" + azimuth + "</Azimuth><MinimumFrequency>");
        } else {
            job.replace(">1500000<", '>' + minima[i].toUtf8() + '<');
        }
        if (i == 2)
            job.replace("    </JobHeader>", "<Description>x</Description></JobHeader>");
        folder.write(QString("abcd").mid(i, 1) + ".xml", job);
    }
    const Run run = folder.run({"table", "a.xml", "b.xml", "c.xml", "d.xml", "--sort", field, "--columns",
                                "file", "--format", "csv"});
    QCOMPARE(firstCells(run).join("").remove(".xml"), files);
    QCOMPARE(run.status, 0);
}

void TableCommandTest::eachParameter_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QStringList>("lines");

    QTest::newRow("all") << QStringList{"--columns", "file,UniqueName,ParameterType"}
                         << QStringList{"./e.xml,Filter,Enum", "./e.xml,Level,Float", "./f.xml,Gain,Integer"};
    QTest::newRow("usual columns") << QStringList()
                                   << QStringList{"./e.xml,Filter,Enum,rx.filter,ValueSelection",
                                                  "./e.xml,Level,Float,rx.level,ValueNumericFloat",
                                                  "./f.xml,Gain,Integer,rx.gain,ValueNumericInt"};
    QTest::newRow("some") << QStringList{"--columns", "UniqueName,Float.Maximum,Integer.Maximum", "--where",
                                         "ParameterType != Enum"}
                          << QStringList{"Level,120,", "Gain,,40"};
    QTest::newRow("entry") << QStringList{"--columns", "UniqueName,Enum.EnumValue[1].Name"}
                           << QStringList{"Filter,Wide", "Level,", "Gain,"};
    QTest::newRow("field of the document")
        << QStringList{"--columns", "UniqueName,Parameter[Level].Float.Maximum,kind"}
        << QStringList{"Filter,120,GenericReceiver", "Level,120,GenericReceiver", "Gain,,Parameter"};
    QTest::newRow("sorted") << QStringList{"--columns", "UniqueName", "--sort", "ParameterType"}
                            << QStringList{"Filter", "Level", "Gain"};
}

void TableCommandTest::eachParameter()
{
    QFETCH(QStringList, arguments);
    QFETCH(QStringList, lines);

    const Run run =
        SomeDocuments().run(QStringList{"table", ".", "--each", "Parameter", "--format", "csv"} + arguments);
    QCOMPARE(run.err, QString("kormak table: warning: 4 files are of a kind that has no Parameter\n"));
    QCOMPARE(linesOf(QString(run.out).remove('\r')).mid(1), lines);
    QCOMPARE(run.status, 0);
}

void TableCommandTest::text()
{
    const Folder folder;
    folder.write("a.xml", jobWith("Mara Lind", "M\xC3\xA4ra\n\xE2\x80\xAEx"));
    folder.write("bb.xml", jobOnDecoder());
    const Run run = folder.run(
        {"table", "a.xml", "bb.xml", "--columns", "file,JobHeader.Author,AntennaData.Azimuth,complete"});
    QCOMPARE(run.err, QString());
    QCOMPARE(run.out,
             QString::fromUtf8("file    JobHeader.Author  AntennaData.Azimuth  complete\n"
                               "a.xml   M\xC3\xA4ra\\n\\u202ex     -                    true\n"
                               "bb.xml  Mara Lind         -                    false\n"));
    QCOMPARE(folder.run({"table", "a.xml", "--where", "file = b.xml"}).out, QString());
}

/// Columns become no narrower, and what is very wide stands out of its column.
void TableCommandTest::blocksOfText()
{
    constexpr int Count = 450;
    const Folder folder;
    QStringList arguments{"table", "--columns", "JobHeader.Author,kind"};
    for (int i = 0; i < Count; ++i) {
        const QString name = QString("%1.xml").arg(i);
        folder.write(name,
                     jobWith("Mara Lind",
                             QByteArray(i == 0         ? 20
                                            : i == 300 ? 30
                                            : i == 301 ? 100
                                                       : 2,
                                        'x')));
        arguments << name;
    }
    const QStringList lines = linesOf(folder.run(arguments).out);
    QCOMPARE(lines.size(), Count + 1);
    QCOMPARE(lines.count("JobHeader.Author      kind"), 1);
    QCOMPARE(lines[2].indexOf("Job"), 22);
    QCOMPARE(lines[301].indexOf("Job"), 62);
    QCOMPARE(lines[302].indexOf("Job"), 102);
    QCOMPARE(lines[Count].indexOf("Job"), 62);
}

void TableCommandTest::csv()
{
    const Folder folder;
    folder.write(
        "a \"1\", b.xml",
        jobWith("Mara Lind", "Lind, \"Mara\"\nx").replace("Antenna</JobType>", "Tuner MC HF</JobType>"));
    const Run run = folder.run({"table", ".", "--format", "csv", "--columns",
                                "file,JobHeader.Author,JobHeader.Description,JobHeader.JobType"});
    QCOMPARE(run.err, QString());
    QCOMPARE(run.out,
             QString("file,JobHeader.Author,JobHeader.Description,JobHeader.JobType\r\n"
                     "\"./a \"\"1\"\", b.xml\",\"Lind, \"\"Mara\"\"\nx\",,Tuner MC HF\r\n"));
}

/// The columns are there without rows, too, if they are known: those that are asked for, or those of the
/// first document.
void TableCommandTest::csvWithoutRows()
{
    const Folder folder;
    const QStringList call{"table", ".", "--format", "csv"};
    QCOMPARE(folder.run(call).out, QString());
    folder.write("a.xml", jobWith("Mara Lind", "x"));
    const QString all = folder.run(call).out;
    const QString names = all.left(all.indexOf('\n') + 1);
    QVERIFY(names.startsWith("file,kind,JobHeader.JobType,"));
    const QStringList none = call + QStringList{"--where", "file = x"};
    QCOMPARE(folder.run(none).out, names);
    QCOMPARE(folder.run(none + QStringList{"--sort", "file"}).out, names);
    QCOMPARE(folder.run(none + QStringList{"--columns", "kind"}).out, QString("kind\r\n"));
    QCOMPARE(folder.run({"table", ".", "--where", "file = x"}).out, QString());
    QCOMPARE(folder.run({"table", ".", "--format", "json", "--where", "file = x"}).out, QString());
    QCOMPARE(folder.run(call + QStringList{"--each", "Parameter"}).out, QString());
    folder.write("b.xml", "<GenericReceiver Version=\"1.0\"/>");
    QVERIFY(folder.run({"table", "b.xml", "--format", "csv", "--each", "Parameter"}).out.startsWith("file,"));
}

/// As the help and the README do it.
void TableCommandTest::csvIntoDatabase()
{
    const QString sqlite = QStandardPaths::findExecutable("sqlite3");
    if (sqlite.isEmpty()) {
        skip("there is no sqlite3");
        return;
    }
    SomeDocuments folder;
    folder.write("g.xml", jobWith("Mara Lind", "Lind, \"Mara\"\nx"));
    const Run table = folder.run({"table", ".", "--where", "kind = Job", "--format", "csv", "--columns",
                                  "file,JobHeader.Author,AntennaData.Name,AntennaData.MinimumFrequency"},
                                 {}, folder.path("jobs.csv"));
    QCOMPARE(table.status, 0);
    QProcess process;
    process.setWorkingDirectory(folder.path("."));
    process.start(sqlite,
                  {":memory:", ".import --csv jobs.csv jobs",
                   "SELECT \"AntennaData.Name\", count(*), sum(\"AntennaData.MinimumFrequency\"), "
                   "max(\"JobHeader.Author\" = 'Lind, \"Mara\"' || char(10) || 'x') FROM jobs GROUP BY 1"});
    const Run run = ended(process);
    QCOMPARE(run.err, QString());
    QCOMPARE(QString(run.out).remove('\r'), QString("East|3|6000000|1\n"));
}

void TableCommandTest::json()
{
    const Run run = SomeDocuments().run(
        {"table", "a.xml", "f.xml", "--format", "json", "--columns",
         "file,complete,JobHeader.Author,AntennaData.MinimumFrequency,AntennaData.Azimuth,Integer.Maximum"});
    QCOMPARE(run.err, QString());
    QCOMPARE(run.out,
             QString(R"({"file": "a.xml", "complete": true, "JobHeader.Author": "Mara Lind", )"
                     R"("AntennaData.MinimumFrequency": 1500000, "AntennaData.Azimuth": null, )"
                     R"("Integer.Maximum": null})"
                     "\n"
                     R"({"file": "f.xml", "complete": true, "JobHeader.Author": null, )"
                     R"("AntennaData.MinimumFrequency": null, "AntennaData.Azimuth": null, )"
                     R"("Integer.Maximum": 40})"
                     "\n"));
}

/// They are named, and the table is that of the others.
void TableCommandTest::faultyDocuments()
{
    const SomeDocuments folder;
    folder.write("bad.xml", jobWithoutAuthor());
    folder.write("broken.xml", "<Job>");
    folder.write("worse.xml", jobWithoutAuthor().replace("<Name>", "<Nam/><Name>"));
    const Run run = folder.run({"table", "bad.xml", "a.xml", "broken.xml", "worse.xml", "b.xml", "--format",
                                "csv", "--columns", "file"});
    QCOMPARE(run.out, QString("file\r\na.xml\r\nb.xml\r\n"));
    QCOMPARE(
        run.err,
        QString(
            "bad.xml:3:5: error: Job/JobHeader/Author: missing\n"
            "broken.xml:1:6: error: Job: Premature end of document.\n"
            "worse.xml:3:5: error: Job/JobHeader/Author: missing (1 of 2 errors, of which check tells)\n"));
    QCOMPARE(run.status, 1);
    const Run unreadable = folder.run({"table", "bad.xml", "none.xml", "a.xml", "--columns", "file"});
    QCOMPARE(unreadable.out, QString("file\na.xml\n"));
    QVERIFY(unreadable.err.endsWith("none.xml: error: cannot be read: No such file or directory\n"));
    QCOMPARE(unreadable.status, 2);
}

void TableCommandTest::whatIsReadOtherwise_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("isTold");

    QTest::newRow("column") << QStringList{"--columns", "AntennaData.MinimumFrequency"} << true;
    QTest::newRow("usual column") << QStringList() << true;
    QTest::newRow("condition") << QStringList{"--columns", "file", "--where",
                                              "AntennaData.MinimumFrequency > 5"}
                               << true;
    QTest::newRow("sorting") << QStringList{"--columns", "file", "--sort", "AntennaData.MinimumFrequency"}
                             << true;
    QTest::newRow("another column") << QStringList{"--columns", "AntennaData.MaximumFrequency"} << false;
}

void TableCommandTest::whatIsReadOtherwise()
{
    QFETCH(QStringList, arguments);
    QFETCH(bool, isTold);

    const Folder folder;
    folder.write("a.xml", jobWith(">1500000<", ">1.5 MHz<").replace("<Name>", "<Name b=''>"));
    const Run run = folder.run(QStringList{"table", "a.xml"} + arguments);
    QCOMPARE(run.err.count('\n'), isTold ? 1 : 0);
    if (isTold)
        QVERIFY2(run.err.startsWith("a.xml:12:9: warning: Job/AntennaData/MinimumFrequency: \"1.5 MHz\" "),
                 qPrintable(run.err));
    QCOMPARE(run.status, 0);

    // Of parameters, too.
    folder.write("e.xml", with(completeReceiver(), ">120.000000<", ">12O<"));
    const QStringList each{"table", "e.xml", "--each", "Parameter", "--columns"};
    QVERIFY(folder.run(each + QStringList("Float.Maximum")).err.contains("[Level]/Float/Maximum: \"12O\""));
    QCOMPARE(folder.run(each + QStringList("Float.Minimum")).err, QString());
    QVERIFY(
        folder.run({"table", "e.xml", "--columns", "Parameter[Level].Float.Maximum"}).err.contains("12O"));
    // And what is said twice.
    folder.write("b.xml", jobWith("<Author>", "<Author>X</Author><Author>"));
    QVERIFY(folder.run({"table", "b.xml"}).err.contains("Job/JobHeader/Author: "));
    // What is read as it stands there, whatever else there is to tell.
    folder.write("c.xml", jobOnDecoder());
    QCOMPARE(folder.run({"table", "c.xml"}).err, QString());
}

void TableCommandTest::paths()
{
    const Folder folder;
    QVERIFY(QDir(folder.path(".")).mkpath("x/y"));
    folder.write("x/a.xml", completeJob());
    folder.write("x/y/b.xml", completeJob());
    folder.write("x/c.txt", "no document");
    const QStringList table{"table", "--format", "csv", "--columns", "file"};
    QCOMPARE(firstCells(folder.run(table + QStringList("x"))), QStringList("x/a.xml"));
    QCOMPARE(firstCells(folder.run(table + QStringList{"-r", "x"})), (QStringList{"x/a.xml", "x/y/b.xml"}));
    QCOMPARE(firstCells(folder.run(table + QStringList("-"), completeJob())), QStringList("-"));
    QCOMPARE(folder.run(table + QStringList{"-", "-"}).err,
             QString("kormak table: standard input can be read only once\n"));
#ifdef Q_OS_UNIX
    QProcess shell;
    shell.setWorkingDirectory(folder.path("."));
    shell.start("/bin/sh",
                {"-c",
                 "u=$(printf 'n\\374.xml'); cp x/a.xml \"$u\" && '" KORMAK_TOOL
                 "' table . --format csv --columns file; rm \"$u\""});
    const Run run = ended(shell);
    QCOMPARE(run.out, QString("file\r\n./n\\xfc.xml\r\n"));
#endif
}

void TableCommandTest::order_data()
{
    QTest::addColumn<QString>("jobs");

    QTest::newRow("one") << "1";
    QTest::newRow("many") << "8";
}

void TableCommandTest::order()
{
    QFETCH(QString, jobs);

    constexpr int Count = 600;
    const Folder folder;
    QStringList arguments{"table", "-j", jobs, "--format", "csv", "--columns", "file"};
    QStringList names;
    for (int i = 0; i < Count; ++i) {
        const QString name = QString("%1.xml").arg((i * 37) % Count);
        folder.write(name, jobWith("Mara Lind", QByteArray((Count - i) * 50, 'x')));
        names << name;
    }
    QCOMPARE(firstCells(folder.run(arguments + names)), names);
}

void TableCommandTest::rowsAreToldAtOnce()
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
    process.start(KORMAK_TOOL,
                  {"table", "-j", "2", "--format", "csv", "--columns", "file", "a.xml", "slow.xml"});
    QByteArray out;
    while (!out.contains("a.xml") && process.waitForReadyRead(60'000))
        out += process.readAllStandardOutput();
    QCOMPARE(out, QByteArray("file\r\na.xml\r\n"));
    const QByteArray job = completeJob();
    QCOMPARE(write(pipe, job.constData(), static_cast<std::size_t>(job.size())),
             static_cast<ssize_t>(job.size()));
    close(pipe);
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.readAllStandardOutput(), QByteArray("slow.xml\r\n"));
#else
    skip("no pipes here");
#endif
}

QTEST_GUILESS_MAIN(TableCommandTest)
#include "TableCommandTest.moc"
