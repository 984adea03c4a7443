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
        "Usage: kormak COMMAND [OPTIONS] FILE...\n"
        "\n"
        "Checks, shows and rewrites the documents of a radio-monitoring system.\n"
        "The file - is standard input.\n"
        "\n"
        "Commands:\n"
        "  check   tell of each file what kind of document it is, and whether it is complete and right\n"
        "  show    show a document for people to read\n"
        "  format  write a document in canonical form\n"
        "\n"
        "Options:\n"
        "  -h, --help     Show this help.\n"
        "  -v, --version  Show the version of the tool.\n"
        "\n"
        "'kormak COMMAND --help' tells more of a command.\n"
        "\n"
        "Example:\n"
        "  kormak check job.xml\n";
    const QString ofCheck =
        "Usage: kormak check [OPTIONS] FILE...\n"
        "\n"
        "Tells the kind of each document from its root element and whether it is complete. What is wrong\n"
        "goes to standard error as FILE:LINE:COLUMN: error: MESSAGE, and what is suspicious about a "
        "document\n"
        "that the library accepts as FILE:LINE:COLUMN: warning: MESSAGE. All files are gone through.\n"
        "Exit status: 0 all are good, warnings or not, 1 a document is at fault, 2 a file cannot be read.\n"
        "The file - is standard input.\n"
        "\n"
        "Options:\n"
        "  -h, --help  Show this help.\n"
        "\n"
        "Example:\n"
        "  kormak check jobs/*.xml\n";
    const QString ofShow =
        "Usage: kormak show [OPTIONS] FILE\n"
        "\n"
        "Shows what the document holds, complete or not: labels, values and their units, and whether it is\n"
        "complete and, if not, why.\n"
        "The file - is standard input.\n"
        "\n"
        "Options:\n"
        "  -h, --help  Show this help.\n"
        "\n"
        "Example:\n"
        "  kormak show job.xml\n";
    const QString ofFormat =
        "Usage: kormak format [OPTIONS] FILE\n"
        "\n"
        "Reads the document and writes it as the library writes it, to standard output unless told "
        "otherwise,\n"
        "all of it or nothing. When the rewritten document would not say all that FILE says, nothing is\n"
        "written, and standard error tells what would be lost as FILE:LINE:COLUMN: loss: PATH: ...\n"
        "Exit status: 0 it is written, 1 the document is at fault or something would be lost,\n"
        "2 a file cannot be read or written.\n"
        "The file - is standard input.\n"
        "\n"
        "Options:\n"
        "  -o OUT           Write to the file OUT.\n"
        "  --in-place       Write to FILE itself.\n"
        "  --drop-comments  Write even if comments are lost.\n"
        "  -h, --help       Show this help.\n"
        "\n"
        "Example:\n"
        "  kormak format -o tidy.xml job.xml\n";

    QTest::newRow("tool") << QStringList{"--help"} << ofTool;
    QTest::newRow("tool, short") << QStringList{"-h"} << ofTool;
    QTest::newRow("check") << QStringList{"check", "--help"} << ofCheck;
    QTest::newRow("check, short") << QStringList{"check", "-h"} << ofCheck;
    QTest::newRow("check, behind a file") << QStringList{"check", "job.xml", "--help"} << ofCheck;
    QTest::newRow("show") << QStringList{"show", "--help"} << ofShow;
    QTest::newRow("format") << QStringList{"format", "--help"} << ofFormat;
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
                                  << "Usage: kormak COMMAND [OPTIONS] FILE...\n"
                                     "Commands: check, show, format\n"
                                     "Try 'kormak --help'.\n";
    QTest::newRow("unknown command") << QStringList{"chek", "job.xml"}
                                     << "kormak: Unknown command 'chek'. Allowed: check, show, format\n";
    QTest::newRow("command in capitals") << QStringList{"Check", "job.xml"}
                                         << "kormak: Unknown command 'Check'. Allowed: check, show, format\n";
    QTest::newRow("unknown option of the tool")
        << QStringList{"--foo"} << "kormak: Unknown option 'foo'. Allowed: -h, --help, -v, --version\n";
    QTest::newRow("unknown option of check") << QStringList{"check", "--foo", "job.xml"}
                                             << "kormak check: Unknown option 'foo'. Allowed: -h, --help\n";
    QTest::newRow("option of the tool behind a command")
        << QStringList{"show", "--version", "job.xml"}
        << "kormak show: Unknown option 'version'. Allowed: -h, --help\n";
    QTest::newRow("unknown option of format")
        << QStringList{"format", "job.xml", "--bar"}
        << "kormak format: Unknown option 'bar'. Allowed: -o OUT, --in-place, --drop-comments, -h, --help\n";
    QTest::newRow("option without its value") << QStringList{"format", "job.xml", "-o"}
                                              << "kormak format: Missing value after '-o'. Allowed: -o OUT, "
                                                 "--in-place, --drop-comments, -h, --help\n";
    QTest::newRow("check without a file") << QStringList{"check"} << "kormak check: no FILE given\n";
    QTest::newRow("show without a file") << QStringList{"show"} << "kormak show: no FILE given\n";
    QTest::newRow("format without a file")
        << QStringList{"format", "--in-place"} << "kormak format: no FILE given\n";
    QTest::newRow("show of two files")
        << QStringList{"show", "job.xml", "job.xml"} << "kormak show: takes one FILE, not 2\n";
    QTest::newRow("format of three files")
        << QStringList{"format", "job.xml", "a", "b"} << "kormak format: takes one FILE, not 3\n";
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
