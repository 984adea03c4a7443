#include "ToolSupport.h"

using namespace ToolSupport;

class CommandLineTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void help_data();
    void help();
    void version_data();
    void version();
    void wrongCalls_data();
    void wrongCalls();
    void anyLocale_data();
    void anyLocale();
    void fullOutput();
    void closedOutput_data();
    void closedOutput();
};

void CommandLineTest::help_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("text");

    const QString ofTool =
        "Usage: kormak COMMAND [OPTIONS] ARGUMENT...\n"
        "\n"
        "Checks, shows, compares, rewrites and makes the documents of a radio-monitoring system.\n"
        "The file - is standard input. Results go to standard output, complaints to standard error.\n"
        "Exit status: 0 all is well, 1 a document is at fault or two differ,\n"
        "2 a file cannot be read or written, or the call is wrong.\n"
        "\n"
        "Commands:\n"
        "  check PATH...      tell of each file what kind of document it is, and whether it is complete and "
        "right\n"
        "  show FILE          show what a document holds\n"
        "  diff FILE FILE     tell in which fields two documents of a kind differ\n"
        "  format FILE...     write a document in canonical form\n"
        "  new KIND           make a document with the given fields\n"
        "  list [VOCABULARY]  list the vocabularies, or the names in one of them\n"
        "\n"
        "Options:\n"
        "  -h, --help     Show this help.\n"
        "  -v, --version  Show the version of the tool.\n"
        "\n"
        "'kormak COMMAND --help' tells more of a command.\n"
        "\n"
        "Example:\n"
        "  kormak new Job --set JobHeader.JobType=Antenna --set JobHeader.Author=\"M. Keller\" \\\n"
        "    --set JobHeader.Creation=now --set ResourceType=Antenna --set AntennaData.Name=North \\\n"
        "    --set AntennaData.MinimumFrequency=1.5e6 --set AntennaData.MaximumFrequency=30e6 -o job.xml\n"
        "  kormak check job.xml\n";
    const QString ofCheck =
        "Usage: kormak check [OPTIONS] PATH...\n"
        "\n"
        "Tells the kind of each document from its root element and whether it is complete, and everything "
        "that\n"
        "is wrong with it. Of a folder, its *.xml files are checked, in the order of their names.\n"
        "\n"
        "Problems go to standard error as FILE:LINE:COLUMN: SEVERITY: PATH: MESSAGE, where PATH tells the\n"
        "element or attribute (Job/JobHeader/Author). An \"error\" is what the library refuses the document "
        "for;\n"
        "a \"warning\" is what it accepts, but reads otherwise than it looks, or not at all. More than one "
        "file, or\n"
        "a folder, is summed up in the end.\n"
        "Exit status: 0 all are good, warnings or not, 1 a document is at fault, 2 a file cannot be read.\n"
        "\n"
        "With --format json everything goes to standard output, an object in each line. All have a "
        "\"type\":\n"
        "  finding  file, line, column, severity, id, path, message, found, allowed, complaint\n"
        "  file     behind its findings: file, status, kind, complete, findings (how many)\n"
        "  summary  in the end: files, good, faulty, unreadable (how many)\n"
        "line and column count from 1 and are null if the file cannot be read. severity is error or warning, "
        "status\n"
        "good, faulty or unreadable. found is the text that is there, allowed lists the names that could be "
        "there,\n"
        "complaint is what the library says; these, path and kind are null where there is none.\n"
        "id tells findings apart: bad-value, encoding, misplaced-element, missing-attribute, "
        "missing-element,\n"
        "not-well-formed, refused, repeated, stray-text, suspicious, unknown-attribute, unknown-element,\n"
        "unknown-kind, unread, unreadable.\n"
        "The file - is standard input.\n"
        "\n"
        "Options:\n"
        "  -r, --recursive  Go through the folders below a folder, too.\n"
        "  -j, --jobs N     Check N files at a time (default: one per processor core).\n"
        "  --format FORMAT  text (for people, the default) or json (for scripts).\n"
        "  -h, --help       Show this help.\n"
        "\n"
        "Example:\n"
        "  kormak check -r --format json jobs settings/workflow.xml\n";
    const QString ofShow =
        "Usage: kormak show [OPTIONS] FILE\n"
        "\n"
        "Shows what the document holds, complete or not: labels, values and their units, and whether it is\n"
        "complete and, if not, why. JSON holds every field under the keys that 'new' and 'diff' call it by,\n"
        "what is not set as null.\n"
        "Exit status: 0 it is shown, 1 the document is at fault, 2 the file cannot be read.\n"
        "The file - is standard input.\n"
        "\n"
        "Options:\n"
        "  --format FORMAT  text (for people, the default) or json (for scripts).\n"
        "  -h, --help       Show this help.\n"
        "\n"
        "Example:\n"
        "  kormak show --format json job.xml\n";
    const QString ofDiff =
        "Usage: kormak diff [OPTIONS] FILE FILE\n"
        "\n"
        "Compares what two documents hold, field by field, however they are written: one line per field "
        "that\n"
        "differs, FIELD: BEFORE -> AFTER. Parameters are matched by their unique names, elements of lists "
        "by\n"
        "their places; what only one document has is said to be removed or added. Values that are no "
        "numbers\n"
        "are alike here. A last line tells when the library's own comparison comes to another result: it "
        "leaves\n"
        "out some fields, and nothing equals what is no number.\n"
        "Exit status: 0 no field differs, 1 some do, 2 a document cannot be read or they are of different "
        "kinds.\n"
        "The file - is standard input.\n"
        "\n"
        "Options:\n"
        "  --format FORMAT  text (for people, the default) or json (for scripts).\n"
        "  -h, --help       Show this help.\n"
        "\n"
        "Example:\n"
        "  kormak diff old.xml new.xml\n";
    const QString ofNew =
        "Usage: kormak new [OPTIONS] KIND\n"
        "\n"
        "Makes a document of the given KIND: Job, AutomaticWorkflow, ActivityGeneration, GenericReceiver or\n"
        "Parameter. What is not set has the library's default. The document is checked, then written to\n"
        "standard output unless told otherwise; when something is missing, nothing is written.\n"
        "Fields are called as 'show --format json' calls them. An element of a list has its index in "
        "brackets,\n"
        "a parameter of a receiver its unique name (there \\] is a ] and \\\\ a \\); a list without an index "
        "takes\n"
        "another element, its fields separated by commas. The order of the options does not matter but "
        "there.\n"
        "What the library writes but does not read again as it was set, a warning tells.\n"
        "Exit status: 0 it is written, 1 it is not complete, 2 there is no such kind, field or value, or "
        "the\n"
        "file cannot be written.\n"
        "\n"
        "Options:\n"
        "  --set FIELD=VALUE  Set a field; can be given many times.\n"
        "  -o OUT             Write to the file OUT.\n"
        "  --list-fields      List the fields of KIND and what they can be set to.\n"
        "  -h, --help         Show this help.\n"
        "\n"
        "Example:\n"
        "  kormak new GenericReceiver --set 'Parameter[Gain].ParameterType=Integer' \\\n"
        "    --set 'Parameter[Gain].ValueType=ValueNumericInt' --set "
        "'Parameter[Gain].RepresentationName=rx.gain' \\\n"
        "    --set 'Parameter[Gain].Integer.Minimum=0' --set 'Parameter[Gain].Integer.Maximum=40' -o "
        "receiver.xml\n";
    const QString ofList =
        "Usage: kormak list [OPTIONS] [VOCABULARY]\n"
        "\n"
        "Without an argument, lists the vocabularies of the documents. With one, lists its names as "
        "documents\n"
        "hold them, each behind its number. Where the library writes a value in another way than it reads "
        "it,\n"
        "that is said behind the name.\n"
        "Exit status: 0 it is listed, 2 there is no such vocabulary.\n"
        "\n"
        "Options:\n"
        "  --format FORMAT  text (for people, the default) or json (for scripts).\n"
        "  -h, --help       Show this help.\n"
        "\n"
        "Example:\n"
        "  kormak list JobType\n";
    const QString ofFormat =
        "Usage: kormak format [OPTIONS] FILE...\n"
        "\n"
        "Reads the document and writes it as the library writes it, to standard output unless told "
        "otherwise,\n"
        "all of it or nothing. When the rewritten document would not say all that FILE says, nothing is\n"
        "written, and standard error tells what would be lost as FILE:LINE:COLUMN: loss: PATH: ...\n"
        "With --in-place, several files are gone through, each for itself.\n"
        "Exit status: 0 all are written, 1 a document is at fault or something would be lost,\n"
        "2 a file cannot be read or written.\n"
        "The file - is standard input.\n"
        "\n"
        "Options:\n"
        "  -o OUT           Write to the file OUT.\n"
        "  --in-place       Write to each FILE itself.\n"
        "  --drop-comments  Write even if comments are lost.\n"
        "  -h, --help       Show this help.\n"
        "\n"
        "Example:\n"
        "  kormak format --in-place jobs/*.xml\n";

    QTest::newRow("tool") << QStringList{"--help"} << ofTool;
    QTest::newRow("tool, short") << QStringList{"-h"} << ofTool;
    QTest::newRow("check") << QStringList{"check", "--help"} << ofCheck;
    QTest::newRow("check, short") << QStringList{"check", "-h"} << ofCheck;
    QTest::newRow("check, behind a file") << QStringList{"check", "job.xml", "--help"} << ofCheck;
    QTest::newRow("show") << QStringList{"show", "--help"} << ofShow;
    QTest::newRow("diff") << QStringList{"diff", "--help"} << ofDiff;
    QTest::newRow("format") << QStringList{"format", "--help"} << ofFormat;
    QTest::newRow("new") << QStringList{"new", "--help"} << ofNew;
    QTest::newRow("list") << QStringList{"list", "--help"} << ofList;
}

void CommandLineTest::help()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, text);

    const Run result = Folder().run(arguments);
    QCOMPARE(result.out, text);
    QCOMPARE(result.err, QString());
    QCOMPARE(result.status, 0);
}

void CommandLineTest::version_data()
{
    QTest::addColumn<QString>("option");

    QTest::newRow("long") << "--version";
    QTest::newRow("short") << "-v";
}

void CommandLineTest::version()
{
    QFETCH(QString, option);

    const Run result = Folder().run({option});
    QCOMPARE(result.out, QString("kormak " KORMAK_VERSION "\n"));
    QCOMPARE(result.err, QString());
    QCOMPARE(result.status, 0);
}

void CommandLineTest::wrongCalls_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("complaint");

    QTest::newRow("no arguments") << QStringList()
                                  << "Usage: kormak COMMAND [OPTIONS] ARGUMENT...\n"
                                     "Commands: check, show, diff, format, new, list\n"
                                     "Try 'kormak --help'.\n";
    QTest::newRow("unknown command") << QStringList{
        "chek",
        "job.xml"} << "kormak: Unknown command 'chek'. Allowed: check, show, diff, format, new, list\n";
    QTest::newRow("command in capitals")
        << QStringList{"Check", "job.xml"}
        << "kormak: Unknown command 'Check'. Allowed: check, show, diff, format, new, list\n";
    QTest::newRow("unknown option of the tool")
        << QStringList{"--foo"} << "kormak: Unknown option 'foo'. Allowed: -h, --help, -v, --version\n";
    QTest::newRow("unknown option of check") << QStringList{"check", "--foo", "job.xml"}
                                             << "kormak check: Unknown option 'foo'. Allowed: -r, "
                                                "--recursive, -j, --jobs N, --format FORMAT, -h, --help\n";
    QTest::newRow("option of the tool behind a command")
        << QStringList{"show", "--version", "job.xml"}
        << "kormak show: Unknown option 'version'. Allowed: --format FORMAT, -h, --help\n";
    QTest::newRow("unknown option of format")
        << QStringList{"format", "job.xml", "--bar"}
        << "kormak format: Unknown option 'bar'. Allowed: -o OUT, --in-place, --drop-comments, -h, --help\n";
    QTest::newRow("option without its value") << QStringList{"format", "job.xml", "-o"}
                                              << "kormak format: Missing value after '-o'. Allowed: -o OUT, "
                                                 "--in-place, --drop-comments, -h, --help\n";
    QTest::newRow("check without a file") << QStringList{"check"} << "kormak check: no PATH given\n";
    QTest::newRow("show without a file") << QStringList{"show"} << "kormak show: no FILE given\n";
    QTest::newRow("format without a file")
        << QStringList{"format", "--in-place"} << "kormak format: no FILE given\n";
    QTest::newRow("diff without files") << QStringList{"diff"} << "kormak diff: no FILE given\n";
    QTest::newRow("diff of one file")
        << QStringList{"diff", "job.xml"} << "kormak diff: takes two FILEs, not 1\n";
    QTest::newRow("diff of three files")
        << QStringList{"diff", "job.xml", "job.xml", "job.xml"} << "kormak diff: takes two FILEs, not 3\n";
    QTest::newRow("diff of standard input with itself")
        << QStringList{"diff", "-", "-"} << "kormak diff: only one of the files can be standard input\n";
    QTest::newRow("new without a kind") << QStringList{"new"} << "kormak new: no KIND given\n";
    QTest::newRow("new of two kinds")
        << QStringList{"new", "Job", "Job"} << "kormak new: takes one KIND, not 2\n";
    QTest::newRow("new to two files") << QStringList{"new", "Job", "-o", "a.xml", "-o", "b.xml"}
                                      << "kormak new: -o can be given only once\n";
    QTest::newRow("new with fields to list and to set")
        << QStringList{"new", "Job", "--list-fields", "--set", "a=b"}
        << "kormak new: --list-fields stands alone\n";
    QTest::newRow("list of two vocabularies")
        << QStringList{"list", "JobType", "ValueType"} << "kormak list: takes one VOCABULARY, not 2\n";
    QTest::newRow("show of two files")
        << QStringList{"show", "job.xml", "job.xml"} << "kormak show: takes one FILE, not 2\n";
    QTest::newRow("format of three files")
        << QStringList{"format", "job.xml", "a", "b"}
        << "kormak format: takes one FILE, not 3, unless with --in-place\n";
    QTest::newRow("format of two files to one")
        << QStringList{"format", "job.xml", "job.xml", "-o", "out.xml"}
        << "kormak format: takes one FILE, not 2, unless with --in-place\n";
    QTest::newRow("format of two files in place and to one")
        << QStringList{"format", "job.xml", "job.xml", "-o", "out.xml", "--in-place"}
        << "kormak format: only one of -o and --in-place can be given, and only once\n";
    QTest::newRow("format of files and standard input in place")
        << QStringList{"format", "--in-place", "job.xml", "-"}
        << "kormak format: standard input cannot be written in place\n";
    QTest::newRow("check with no thread")
        << QStringList{"check", "-j", "0", "job.xml"} << "kormak check: -j takes a number from 1, not '0'\n";
    QTest::newRow("check with threads in words") << QStringList{"check", "--jobs", "two", "job.xml"}
                                                 << "kormak check: -j takes a number from 1, not 'two'\n";
    QTest::newRow("check with fewer than no threads") << QStringList{"check", "--jobs=-1", "job.xml"}
                                                      << "kormak check: -j takes a number from 1, not '-1'\n";
    QTest::newRow("check in another format") << QStringList{"check", "--format", "xml", "job.xml"}
                                             << "kormak check: Unknown format 'xml'. Allowed: text, json\n";
    QTest::newRow("check without a format") << QStringList{"check", "job.xml", "--format"}
                                            << "kormak check: Missing value after '--format'. Allowed: -r, "
                                               "--recursive, -j, --jobs N, --format FORMAT, -h, "
                                               "--help\n";
    QTest::newRow("check of standard input twice") << QStringList{"check", "-", "job.xml", "-"}
                                                   << "kormak check: standard input can be read only once\n";
    QTest::newRow("format to a file and in place")
        << QStringList{"format", "job.xml", "--in-place", "-o", "out.xml"}
        << "kormak format: only one of -o and --in-place can be given, and only once\n";
    QTest::newRow("format to two files")
        << QStringList{"format", "job.xml", "-o", "a.xml", "-o", "b.xml"}
        << "kormak format: only one of -o and --in-place can be given, and only once\n";
    QTest::newRow("format of standard input in place")
        << QStringList{"format", "-", "--in-place"}
        << "kormak format: standard input cannot be written in place\n";
}

void CommandLineTest::wrongCalls()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, complaint);

    Folder folder;
    folder.write("job.xml", completeJob());
    const Run result = folder.run(arguments);
    QCOMPARE(result.err, complaint);
    QCOMPARE(result.out, QString());
    QCOMPARE(result.status, 2);
    QCOMPARE(folder.names(), QStringList{"job.xml"});
}

void CommandLineTest::anyLocale_data()
{
    QTest::addColumn<QString>("locale");

    QTest::newRow("C") << "C";
    QTest::newRow("UTF-8") << "C.UTF-8";
    QTest::newRow("German") << "de_DE.UTF-8";
    QTest::newRow("German in Latin-1") << "de_DE.ISO-8859-1";
    QTest::newRow("unknown") << "xx_YY";
}

void CommandLineTest::anyLocale()
{
    QFETCH(QString, locale);

    Folder folder;
    folder.environment.insert("LC_ALL", locale);
    folder.environment.insert("LANGUAGE", "de");
    folder.write("job.xml", jobWith("Mara Lind", "M\xC3\xA4r\xC3\xA4"));
    const Run format = folder.run({"format", "job.xml"});
    QCOMPARE(format.out, folder.read("job.xml"));
    QCOMPARE(format.err, QString());
    const Run missing = folder.run({"check", "none.xml"});
    QCOMPARE(missing.err, QString("none.xml: error: cannot be read: No such file or directory\n"));
}

void CommandLineTest::fullOutput()
{
    if (!QFile::exists("/dev/full")) {
        skip("there is no device that is always full");
        return;
    }
    Folder folder;
    folder.write("job.xml", completeJob());
    const Run result = folder.run({"show", "job.xml"}, {}, "/dev/full");
    QCOMPARE(result.err, QString("kormak: standard output: No space left on device\n"));
    QCOMPARE(result.status, 2);
}

void CommandLineTest::closedOutput_data()
{
    QTest::addColumn<QString>("signal");
    QTest::addColumn<QString>("status");

    QTest::newRow("with the signal") << ""
                                     << "141";
    QTest::newRow("without the signal") << "trap '' PIPE; "
                                        << "2";
}

void CommandLineTest::closedOutput()
{
    QFETCH(QString, signal);
    QFETCH(QString, status);
    const QString shell = "/bin/sh";
    if (!QFile::exists(shell)) {
        skip("there is no shell");
        return;
    }

    // More than a pipe holds, and nobody who reads it.
    Folder folder;
    folder.write("job.xml", jobWith("Mara Lind", QByteArray(1024 * 1024, 'x')));
    const QString call = signal + "{ '" KORMAK_TOOL "' format job.xml 2>err; echo $? >status; } | true";
    QProcess process;
    process.setWorkingDirectory(folder.path("."));
    process.start(shell, {"-c", call});
    QVERIFY(process.waitForFinished());
    QCOMPARE(folder.read("err"), QString());
    QCOMPARE(folder.read("status").trimmed(), status);
}

QTEST_GUILESS_MAIN(CommandLineTest)
#include "CommandLineTest.moc"
