// A tool on which the machine lets it down: memory, disks and other programs that write to the same files.
// Whatever happens, it ends by itself, tells of it, and no file is other than it was or than it was to be.
#include <tests/support/ToolSupport.h>

#include <algorithm>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace ToolSupport;

namespace {

/// Where the tool runs with what Faults.cpp makes go wrong.
class FaultyFolder : public Folder {
public:
    FaultyFolder() { environment.insert("LD_PRELOAD", FAULTS); }
};

QByteArray untidyJob()
{
    return completeJob().replace("    <", "\t<");
}

/// A receiver of \a count parameters, each of some 280 bytes.
QByteArray receiver(int count)
{
    QByteArray text = "<?xml version=\"1.0\"?>\n<GenericReceiver Version=\"1.0\">\n";
    for (int i = 0; i < count; ++i) {
        const QByteArray number = QByteArray::number(i).rightJustified(7, '0');
        text += "<Parameter Version=\"1.0\" UniqueName=\"P" + number + "\"><RepresentationName>rx." + number
            + "</RepresentationName>\n<ValueType>ValueNumericInt</ValueType><Enable>true</Enable>"
              "<ParameterType>Integer</ParameterType>\n<Integer><Minimum>0</Minimum><Maximum>40</Maximum>"
              "<Default>20</Default></Integer></Parameter>\n";
    }
    return text + "</GenericReceiver>\n";
}

struct Limits {
    rlim_t addressSpace = RLIM_INFINITY;
    rlim_t files = RLIM_INFINITY;
};

/// Runs the tool under \a limits; \a peak takes the most memory that it ever had, in bytes.
int statusUnder(const Limits &limits, const Folder &folder, const QStringList &arguments,
                const QString &errors, qint64 *peak = nullptr)
{
    const pid_t child = fork();
    if (child == 0) {
        const auto set = [](auto resource, rlim_t value) {
            rlimit limit{};
            getrlimit(resource, &limit);
            limit.rlim_cur = std::min(limit.rlim_max, value);
            return value == RLIM_INFINITY || setrlimit(resource, &limit) == 0;
        };
        std::vector<QByteArray> texts{KORMAK_TOOL};
        for (const QString &argument : arguments)
            texts.push_back(argument.toLocal8Bit());
        std::vector<char *> pointers;
        for (QByteArray &text : texts)
            pointers.push_back(text.data());
        pointers.push_back(nullptr);
        const bool isReady = chdir(folder.path(".").toLocal8Bit().constData()) == 0
            && freopen("/dev/null", "w", stdout) && freopen(errors.toLocal8Bit().constData(), "w", stderr)
            && set(RLIMIT_AS, limits.addressSpace) && set(RLIMIT_NOFILE, limits.files);
        if (isReady)
            execv(KORMAK_TOOL, pointers.data());
        _exit(127);
    }
    int status = 0;
    rusage usage{};
    wait4(child, &status, 0, &usage);
    if (peak)
        *peak = static_cast<qint64>(usage.ru_maxrss) * 1024;
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

class ToolFaultsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void failingAllocations_data();
    void failingAllocations();
    void littleMemory();
    void memoryForLargeReceivers_data();
    void memoryForLargeReceivers();
    void manyThreads();
    void failingReads_data();
    void failingReads();
    void failingReadOfStandardInput();
    void hugeFile_data();
    void hugeFile();
    void changedMeanwhile_data();
    void changedMeanwhile();
};

void ToolFaultsTest::failingAllocations_data()
{
    QTest::addColumn<QStringList>("arguments");

    QTest::newRow("check") << QStringList{"check", "."};
    QTest::newRow("check, JSON") << QStringList{"check", "--format", "json", "job.xml", "faulty.xml"};
    QTest::newRow("check, SARIF") << QStringList{"check", "--format", "sarif", "faulty.xml", "job.xml"};
    QTest::newRow("show") << QStringList{"show", "job.xml"};
    QTest::newRow("report") << QStringList{"report", "job.xml"};
    QTest::newRow("table") << QStringList{"table",   "--sort",     "JobHeader.Author",
                                          "--where", "kind = Job", "."};
    QTest::newRow("diff") << QStringList{"diff", "job.xml", "other.xml"};
    QTest::newRow("format") << QStringList{"format", "job.xml"};
    QTest::newRow("format in place") << QStringList{"format", "--in-place", "job.xml", "other.xml"};
    QTest::newRow("set") << QStringList{"set", "job.xml", "AntennaData.Azimuth=1", "JobHeader.Author=x"};
    QTest::newRow("set in place") << QStringList{"set", "--in-place", "job.xml", "other.xml",
                                                 "JobHeader.Author=x"};
    QTest::newRow("fix") << QStringList{"fix", "--dry-run", "job.xml", "faulty.xml"};
    QTest::newRow("new") << QStringList{"new", "Job", "--set", "JobHeader.Author=x"};
    QTest::newRow("list") << QStringList{"list", "JobType"};
    QTest::newRow("help") << QStringList{"help", "check"};
}

/// One allocation fails, each time another one.
void ToolFaultsTest::failingAllocations()
{
    QFETCH(QStringList, arguments);

    FaultyFolder folder;
    const auto write = [&folder] {
        folder.write("job.xml", untidyJob());
        folder.write("other.xml", jobWith("Mara Lind", "Nils"));
        folder.write("faulty.xml", jobWithoutAuthor());
    };
    write();
    const Run usual = folder.run(arguments);
    const QStringList names = folder.names();
    QVERIFY(usual.status >= 0);
    folder.environment.insert("FAULT_MARK", folder.path("mark"));
    int runs = 0;
    int crashes = 0;
    const int step = arguments.first() == "table" ? 37 : 7; // which allocates much more
    for (int number = 0;; number += step) {
        write();
        folder.environment.insert("FAULT_ALLOCATION", QString::number(number));
        const Run run = folder.run(arguments);
        if (!QFile::remove(folder.path("mark")))
            break; // so many there are not
        ++runs;
        if (run.status < 0) {
            ++crashes;
        } else if (run.status != usual.status || run.out != usual.out || run.err != usual.err) {
            QVERIFY2(run.status == 2 && (run.err + run.out).contains("not enough memory"),
                     qPrintable(QString("%1: %2\n%3%4").arg(number).arg(run.status).arg(run.out, run.err)));
        }
        const QString text = folder.read("job.xml");
        QVERIFY(text.toUtf8() == untidyJob() || text.toUtf8() == completeJob()
                || text.toUtf8() == QByteArray(untidyJob()).replace("Mara Lind", "x"));
        for (const QString &name : folder.names()) {
            if (!names.contains(name)) { // what a file was to be replaced by
                QVERIFY2(run.status != usual.status && name.contains(".xml."), qPrintable(name));
                QVERIFY(QFile::remove(folder.path(name)));
            }
        }
    }
    qInfo("%d runs, %d of which crashed", runs, crashes);
    QVERIFY(runs > 10);
    // Some lists and objects of Qt do not notice that there is no memory for them.
    constexpr int RunsPerCrash = 25;
    QVERIFY2(crashes * RunsPerCrash <= runs,
             qPrintable(QString("%1 of %2 runs crashed").arg(crashes).arg(runs)));
}

/// What is known is told, of a file for which there is not enough memory, too.
void ToolFaultsTest::littleMemory()
{
    constexpr int Parameters = 200'000;
    constexpr rlim_t Memory = 300'000 * 1024;
    const Folder folder;
    folder.write("good.xml", completeJob());
    folder.write("large.xml", receiver(Parameters));
    folder.write("later.xml", jobWithoutAuthor());
    for (const char *command : {"check", "show", "report", "format", "diff"}) {
        const QStringList arguments = QString(command) == "check"
            ? QStringList{"check", "good.xml", "large.xml", "later.xml"}
            : QString(command) == "diff" ? QStringList{"diff", "large.xml", "large.xml"}
                                         : QStringList{command, "large.xml"};
        QCOMPARE(statusUnder({Memory}, folder, arguments, "errors"), 2);
        const QString errors = folder.read("errors");
        QVERIFY2(errors.contains("large.xml: error: not enough memory\n"), qPrintable(command + errors));
        QCOMPARE(errors.contains("later.xml:3:5: error"), QString(command) == "check");
    }
}

void ToolFaultsTest::memoryForLargeReceivers_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<int>("most"); // times the file

    QTest::newRow("check") << "check" << 6;
    QTest::newRow("format") << "format" << 10;
    QTest::newRow("show") << "show" << 9;
}

void ToolFaultsTest::memoryForLargeReceivers()
{
    QFETCH(QString, command);
    QFETCH(int, most);

    constexpr int Parameters = 100'000;
    const QByteArray document = receiver(Parameters);
    const Folder folder;
    folder.write("large.xml", document);
    qint64 peak = 0;
    QCOMPARE(statusUnder({}, folder, {command, "large.xml"}, "errors", &peak), 0);
    qInfo("%.2f times the file of %d bytes", static_cast<double>(peak) / static_cast<double>(document.size()),
          static_cast<int>(document.size()));
    QVERIFY2(peak <= most * static_cast<qint64>(document.size()), qPrintable(QString::number(peak)));
}

void ToolFaultsTest::manyThreads()
{
    constexpr rlim_t Files = 64;
    constexpr int Documents = 300;
    const Folder folder;
    for (int i = 0; i < Documents; ++i)
        folder.write(QString("%1.xml").arg(i), completeJob());
    QCOMPARE(statusUnder({RLIM_INFINITY, Files}, folder, {"check", "-j", "2000", "."}, "errors"), 0);
    QCOMPARE(folder.read("errors"), QString());
}

void ToolFaultsTest::failingReads_data()
{
    QTest::addColumn<QString>("command");
    QTest::addColumn<int>("bytes"); // that can be read

    for (const QString &command :
         {QString("check"), QString("show"), QString("report"), QString("table"), QString("diff"),
          QString("format"), QString("format --in-place"), QString("set --in-place"), QString("fix")}) {
        QTest::newRow(qPrintable(command + ", at once")) << command << 0;
        QTest::newRow(qPrintable(command + ", in the middle")) << command << 100;
        // What can be read is a whole document.
        QTest::newRow(qPrintable(command + ", behind the document"))
            << command << static_cast<int>(completeJob().size());
    }
}

void ToolFaultsTest::failingReads()
{
    QFETCH(QString, command);
    QFETCH(int, bytes);

    FaultyFolder folder;
    const QByteArray document = completeJob() + QByteArray(100, ' ');
    folder.write("job.xml", document);
    folder.write("other.xml", completeJob());
    folder.environment.insert("FAULT_READ", QString("%1 %2").arg(bytes).arg(folder.path("job.xml")));
    QStringList arguments = command.split(' ') << "job.xml";
    if (command == "diff")
        arguments << "other.xml";
    if (command.startsWith("set"))
        arguments << "JobHeader.Author=x";
    const Run run = folder.run(arguments);
    QCOMPARE(run.err, QString("job.xml: error: cannot be read: Input/output error\n"));
    QCOMPARE(run.out, QString());
    QCOMPARE(run.status, 2);
    QCOMPARE(folder.read("job.xml"), QString::fromUtf8(document));
}

void ToolFaultsTest::failingReadOfStandardInput()
{
    FaultyFolder folder;
    folder.write("job.xml", completeJob());
    folder.environment.insert("FAULT_READ",
                              QString("%1 %2").arg(completeJob().size()).arg(folder.path("job.xml")));
    QProcess process;
    process.setProcessEnvironment(folder.environment);
    process.setStandardInputFile(folder.path("job.xml"));
    process.start(KORMAK_TOOL, {"show", "-"});
    QVERIFY(process.waitForFinished());
    QCOMPARE(process.exitCode(), 2);
    QCOMPARE(process.readAllStandardError(), QByteArray("-: error: cannot be read: Input/output error\n"));
    QCOMPARE(process.readAllStandardOutput(), QByteArray());
}

void ToolFaultsTest::hugeFile_data()
{
    QTest::addColumn<QStringList>("arguments");

    QTest::newRow("check") << QStringList{"check", "huge.xml"};
    QTest::newRow("show") << QStringList{"show", "huge.xml"};
    QTest::newRow("report") << QStringList{"report", "huge.xml"};
    QTest::newRow("table") << QStringList{"table", "huge.xml"};
    QTest::newRow("diff") << QStringList{"diff", "huge.xml", "job.xml"};
    QTest::newRow("format") << QStringList{"format", "--in-place", "huge.xml"};
    QTest::newRow("set") << QStringList{"set", "--in-place", "huge.xml", "JobHeader.Author=x"};
    QTest::newRow("fix") << QStringList{"fix", "--in-place", "huge.xml"};
}

/// With a size that is that of the document if it is cut to 32 bits.
void ToolFaultsTest::hugeFile()
{
    QFETCH(QStringList, arguments);

    const Folder folder;
    folder.write("job.xml", completeJob());
    folder.write("huge.xml", untidyJob());
    constexpr qint64 FourGigabytes = qint64{1} << 32;
    const qint64 size = FourGigabytes + untidyJob().size();
    QFile file(folder.path("huge.xml"));
    if (!file.resize(size)) {
        skip("files cannot be as large as that here");
        return;
    }
    const Run run = folder.run(arguments);
    QCOMPARE(run.out, QString());
    QVERIFY2(
        run.err.startsWith(
            QString("huge.xml: error: cannot be read: it is too large: it has %1 bytes, and ").arg(size)),
        qPrintable(run.err));
    QCOMPARE(run.err.count('\n'), 1);
    QCOMPARE(run.status, 2);
    QCOMPARE(QFileInfo(folder.path("huge.xml")).size(), size);
}

void ToolFaultsTest::changedMeanwhile_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<bool>("isReplaced"); // by another file of the same name

    QTest::newRow("in place, same size and time") << QStringList{"format", "--in-place", "job.xml"} << false;
    QTest::newRow("set in place") << QStringList{"set", "--in-place", "job.xml", "JobHeader.Author=x"}
                                  << false;
    QTest::newRow("in place, another file") << QStringList{"format", "--in-place", "job.xml"} << true;
    QTest::newRow("as the output, same size and time")
        << QStringList{"format", "job.xml", "-o", "./job.xml"} << false;
}

/// What another program writes while a document is formatted is not lost.
void ToolFaultsTest::changedMeanwhile()
{
    QFETCH(QStringList, arguments);
    QFETCH(bool, isReplaced);

    FaultyFolder folder;
    const QByteArray replacement = QByteArray(untidyJob()).replace("Mara", "Nils");
    folder.write("job.xml", untidyJob());
    if (isReplaced)
        folder.write("job.xml.new", replacement);
    folder.environment.insert("FAULT_CHANGE", folder.path("job.xml"));
    const Run run = folder.run(arguments);
    QVERIFY2(run.err.endsWith("job.xml: error: cannot be written: it has changed since it was read\n"),
             qPrintable(run.err));
    QCOMPARE(run.status, 2);
    QCOMPARE(folder.read("job.xml").toUtf8(), isReplaced ? replacement : ' ' + untidyJob().mid(1));
    QCOMPARE(folder.names(), QStringList("job.xml"));
}

QTEST_GUILESS_MAIN(ToolFaultsTest)
#include "ToolFaultsTest.moc"
