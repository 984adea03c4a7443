// Files that are not what they should be, and a tool that is killed: a document is there as it was or as it
// was written, whole, and nothing else is touched. Full disks, missing places and folders stand in the tests
// of the files and of the tool.
#include <kormak/Job.h>
#include <tests/support/Objects.h>
#include <tests/support/ToolSupport.h>

#include <QElapsedTimer>
#include <QRandomGenerator>

#include <algorithm>
#include <functional>

#ifdef Q_OS_UNIX
#include <csignal>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>
#endif

using namespace TestSupport;
using namespace ToolSupport;

#ifdef Q_OS_UNIX

namespace {

constexpr mode_t Everything = 0777;

/// Runs \a work in a process without the rights of root, and gives its result.
int withoutRights(const std::function<int()> &work)
{
    constexpr int NoResult = 99;
    const pid_t child = fork();
    if (child == 0) {
        constexpr uid_t Nobody = 65534;
        if (geteuid() == 0 && (setgid(Nobody) != 0 || setuid(Nobody) != 0))
            _exit(NoResult);
        _exit(work());
    }
    int status = 0;
    waitpid(child, &status, 0);
    return WIFEXITED(status) ? WEXITSTATUS(status) : NoResult;
}

KORMAK::Job job()
{
    KORMAK::Job job;
    if (!job.SetXmlString(QString::fromUtf8(completeJob()), true))
        qFatal("the sample cannot be read");
    return job;
}

/// A process has a temporary file open while it writes; its name, if it has one, is not known yet.
bool hasTemporaryFile(pid_t process)
{
    const QDir descriptors(QString("/proc/%1/fd").arg(process));
    for (const QString &descriptor : descriptors.entryList(QDir::Files | QDir::System)) {
        char target[1000];
        const QByteArray link = descriptors.filePath(descriptor).toLocal8Bit();
        const auto size = readlink(link.constData(), target, sizeof target);
        const QByteArray name(target, static_cast<int>(std::max<ssize_t>(size, 0)));
        if (name.contains("/#") || name.contains("job.xml."))
            return true;
    }
    return false;
}

bool changeMode(const QString &path, mode_t mode)
{
    return chmod(path.toLocal8Bit().constData(), mode) == 0;
}

} // namespace

class FileFaultsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void permissions_data();
    void permissions();
    void links();
    void vanishingFile();
    void vanishingFolder();
    void whatIsNoFile();
    void deviceWithoutData();
    void devices_data();
    void devices();
    void pipes();
    void ownerGroupAndMode();
    void hardLinks();
    void killedTool_data();
    void killedTool();
};

void FileFaultsTest::permissions_data()
{
    QTest::addColumn<int>("modeOfFolder");
    QTest::addColumn<int>("modeOfFile");
    QTest::addColumn<bool>("isLoaded");
    QTest::addColumn<bool>("isSaved");

    QTest::newRow("all") << 0777 << 0666 << true << true;
    QTest::newRow("file not to be read") << 0777 << 0222 << false << true;
    QTest::newRow("file not to be written") << 0777 << 0444 << true << false;
    QTest::newRow("file neither to be read nor written") << 0777 << 0000 << false << false;
    QTest::newRow("folder not to be written") << 0555 << 0444 << true << false;
    QTest::newRow("folder not to be listed") << 0333 << 0666 << true << true;
    QTest::newRow("folder not to be entered") << 0666 << 0666 << false << false;
}

void FileFaultsTest::permissions()
{
    QFETCH(int, modeOfFolder);
    QFETCH(int, modeOfFile);
    QFETCH(bool, isLoaded);
    QFETCH(bool, isSaved);

    const Folder folder;
    const QString inner = folder.path("inner");
    const QString path = inner + "/job.xml";
    QVERIFY(QDir().mkdir(inner));
    folder.write("inner/job.xml", completeJob());
    QVERIFY(changeMode(folder.path("."), Everything));
    QVERIFY(changeMode(path, static_cast<mode_t>(modeOfFile)));
    QVERIFY(changeMode(inner, static_cast<mode_t>(modeOfFolder)));

    const KORMAK::Job sample = job();
    KORMAK::Job other = sample;
    other.GetJobHeader().SetAuthor("another");
    const int answer = withoutRights([&] {
        KORMAK::Job read;
        const int loaded = read.LoadXml(path) ? 1 : 0;
        const int isRight = (loaded == 1 ? read == sample : read == KORMAK::Job()) ? 2 : 0;
        const int saved = other.SaveXml(path) ? 4 : 0;
        return loaded + isRight + saved;
    });
    QVERIFY(changeMode(inner, Everything));
    QVERIFY(changeMode(path, Everything));
    QCOMPARE(answer, (isLoaded ? 1 : 0) + 2 + (isSaved ? 4 : 0));
    QCOMPARE(folder.read("inner/job.xml"), isSaved ? other.GetXmlString() : sample.GetXmlString());
    QCOMPARE(QDir(inner).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot),
             QStringList("job.xml"));
}

void FileFaultsTest::links()
{
    const Folder folder;
    folder.write("target.xml", "old");
    QVERIFY(QFile::link("target.xml", folder.path("link.xml")));
    QVERIFY(QFile::link("loop.xml", folder.path("loop.xml")));
    QVERIFY(job().SaveXml(folder.path("link.xml")));
    QVERIFY(QFileInfo(folder.path("link.xml")).isSymLink());
    QCOMPARE(folder.read("target.xml"), job().GetXmlString());

    KORMAK::Job read;
    QVERIFY(read.LoadXml(folder.path("link.xml")));
    QVERIFY(read == job());
    QVERIFY(!read.LoadXml(folder.path("loop.xml")));
    QCOMPARE(folder.run({"check", "loop.xml"}).status, 2);
    QVERIFY(QFile::remove(folder.path("loop.xml")));
    QCOMPARE(folder.names(), (QStringList{"link.xml", "target.xml"}));
}

void FileFaultsTest::vanishingFile()
{
    const Folder folder;
    folder.write("job.xml", completeJob());
    QFile file(folder.path("job.xml"));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(QFile::remove(file.fileName()));
    KORMAK::Job read;
    QVERIFY(read.LoadXml(&file)); // open is open
    QVERIFY(read == job());
    file.close();
    QVERIFY(!read.LoadXml(&file));
    QVERIFY(read == job());
    QCOMPARE(folder.names(), QStringList());
}

void FileFaultsTest::vanishingFolder()
{
    const Folder folder;
    const QString inner = folder.path("inner");
    QVERIFY(QDir().mkdir(inner));
    const pid_t child = fork();
    if (child == 0) {
        const bool isThere = chdir(inner.toLocal8Bit().constData()) == 0;
        const bool isGone = isThere && rmdir(inner.toLocal8Bit().constData()) == 0;
        KORMAK::Job read;
        _exit(isGone && !job().SaveXml("job.xml") && !read.LoadXml("job.xml") ? 0 : 1);
    }
    int status = 0;
    waitpid(child, &status, 0);
    QCOMPARE(status, 0);
    QCOMPARE(folder.names(), QStringList());
}

/// Never /dev/full and its like: a save that goes wrong would put a file in their place.
void FileFaultsTest::whatIsNoFile()
{
    const Folder folder;
    folder.write("job.xml", completeJob());
    const QByteArray pipe = folder.path("pipe").toLocal8Bit();
    QCOMPARE(mkfifo(pipe.constData(), 0666), 0);
    const auto isPipe = [&pipe] {
        struct stat status { };
        return stat(pipe.constData(), &status) == 0 && S_ISFIFO(status.st_mode);
    };

    const bool isSaved = job().SaveXml(QString::fromLocal8Bit(pipe));
    QVERIFY(isPipe() && !isSaved);
    QFile::remove(folder.path("pipe"));
    QCOMPARE(mkfifo(pipe.constData(), 0666), 0);
    const Run run = folder.run({"format", "job.xml", "-o", "pipe"});
    QVERIFY(isPipe() && run.status == 2);
}

void FileFaultsTest::deviceWithoutData()
{
    KORMAK::Job read = job();
    QVERIFY(!read.LoadXml("/dev/null"));
    QVERIFY(read == job());
    const Folder folder;
    const Run run = folder.run({"check", "/dev/null"});
    QCOMPARE(run.err, QString("/dev/null: error: cannot be read: it is a device\n"));
    QCOMPARE(run.status, 2);
}

void FileFaultsTest::devices_data()
{
    QTest::addColumn<QStringList>("arguments"); // %1: what is no file

    QTest::newRow("check") << QStringList{"check", "%1"};
    QTest::newRow("show") << QStringList{"show", "%1"};
    QTest::newRow("table") << QStringList{"table", "%1"};
    QTest::newRow("diff") << QStringList{"diff", "job.xml", "%1"};
    QTest::newRow("report") << QStringList{"report", "%1"};
    QTest::newRow("format") << QStringList{"format", "%1"};
    QTest::newRow("format in place") << QStringList{"format", "--in-place", "%1"};
    QTest::newRow("set in place") << QStringList{"set", "--in-place", "%1", "JobHeader.Author=x"};
}

/// Nobody waits for the end of what has none.
void FileFaultsTest::devices()
{
    QFETCH(QStringList, arguments);

    const Folder folder;
    folder.write("job.xml", completeJob());
    QCOMPARE(mkfifo(folder.path("pipe").toLocal8Bit().constData(), 0666), 0);
    const QPair<QString, QString> places[] = {{"/dev/zero", "it is a device"},
                                              {"pipe", "it is a pipe that nobody writes to"}};
    for (const auto &[place, reason] : places) {
        const Run run = folder.run(QStringList(arguments).replaceInStrings("%1", place));
        QCOMPARE(run.err, QString("%1: error: cannot be read: %2\n").arg(place, reason));
        QCOMPARE(run.out, QString());
        QCOMPARE(run.status, 2);
    }
}

/// Standard input by its name in /dev, the pipes that a shell makes, and a named pipe that somebody writes
/// to, however late and in however many pieces.
void FileFaultsTest::pipes()
{
    const Folder folder;
    folder.write("job.xml", completeJob());
    const QByteArray tool = KORMAK_TOOL;
    const auto run = [&folder](const QByteArray &call) {
        QProcess shell;
        shell.setWorkingDirectory(folder.path("."));
        shell.start("bash", {"-c", QString::fromLocal8Bit(call)});
        if (!shell.waitForFinished())
            return QString("it does not end");
        return QString::fromUtf8(shell.readAllStandardOutput() + shell.readAllStandardError());
    };
    if (run("echo yes") != "yes\n") {
        skip("needs bash");
        return;
    }
    QCOMPARE(run("cat job.xml | " + tool + " check /dev/stdin"), QString("/dev/stdin: Job, complete\n"));
    QCOMPARE(run(tool + " check /dev/stdin < job.xml"), QString("/dev/stdin: Job, complete\n"));
    QCOMPARE(run("(sleep 0.3; cat job.xml) | " + tool + " check -"), QString("-: Job, complete\n"));
    QVERIFY(run(tool + " check <(sleep 0.3; head -c 99 job.xml; sleep 0.3; tail -c +100 job.xml)")
                .endsWith(": Job, complete\n"));
    QVERIFY(run(tool + " check <(true)").endsWith(":1:1: error: Premature end of document.\n"));
    QCOMPARE(run("mkfifo pipe; exec 3<>pipe; (sleep 0.3; cat job.xml >pipe; exec 3>&-)& exec 3>&-; " + tool
                 + " check pipe"),
             QString("pipe: Job, complete\n"));
}

void FileFaultsTest::ownerGroupAndMode()
{
    constexpr uid_t Owner = 65534;
    constexpr gid_t Group = 65533;
    constexpr mode_t Mode = 0640;
    if (geteuid() != 0) {
        skip("only root can give files away");
        return;
    }
    const Folder folder;
    const QByteArray path = folder.path("job.xml").toLocal8Bit();
    const auto state = [&path] {
        struct stat status { };
        return stat(path.constData(), &status) == 0
            ? QString("%1 %2 %3").arg(status.st_uid).arg(status.st_gid).arg(status.st_mode & 07777, 0, 8)
            : QString();
    };
    for (const QStringList &arguments :
         {QStringList{"format", "--in-place", "job.xml"}, QStringList{"format", "other.xml", "-o", "job.xml"},
          QStringList{"new", "Area", "-o", "job.xml"}}) {
        folder.write("job.xml", completeJob().replace("    <", "\t<"));
        folder.write("other.xml", completeJob());
        QCOMPARE(chown(path.constData(), Owner, Group), 0);
        QVERIFY(changeMode(folder.path("job.xml"), Mode));
        const Run run = folder.run(arguments);
        QCOMPARE(state(), QString("65534 65533 640"));
        if (arguments.first() == "format") {
            QCOMPARE(run.status, 0);
            QCOMPARE(run.err, QString());
            QCOMPARE(folder.read("job.xml"), QString::fromUtf8(completeJob()));
        }
    }
}

/// The other names stand for what the file was, and that is told.
void FileFaultsTest::hardLinks()
{
    const Folder folder;
    const QByteArray untidy = completeJob().replace("    <", "\t<");
    folder.write("job.xml", untidy);
    QCOMPARE(link(folder.path("job.xml").toLocal8Bit().constData(),
                  folder.path("other.xml").toLocal8Bit().constData()),
             0);
    const Run run = folder.run({"format", "--in-place", "job.xml"});
    QCOMPARE(
        run.err,
        QString("job.xml: warning: it has other names (hard links: 2 in all), which still stand for what it "
                "was\n"));
    QCOMPARE(run.status, 0);
    QCOMPARE(folder.read("job.xml"), QString::fromUtf8(completeJob()));
    QCOMPARE(folder.read("other.xml"), QString::fromUtf8(untidy));
    QCOMPARE(folder.run({"format", "--in-place", "job.xml"}).err, QString());
}

/// The file is always the old one or the new one. A temporary file may be left beside it.
void FileFaultsTest::killedTool_data()
{
    QTest::addColumn<QByteArray>("command");
    QTest::addColumn<QByteArray>("field"); // empty: none

    QTest::newRow("format") << QByteArray("format") << QByteArray();
    QTest::newRow("set") << QByteArray("set") << QByteArray("AntennaData.Name=West");
}

void FileFaultsTest::killedTool()
{
    QFETCH(QByteArray, command);
    QFETCH(QByteArray, field);
    constexpr int Kills = 100;
    constexpr int TextSize = 2'000'000;
    const QByteArray tidy = jobWith("Mara Lind", QByteArray(TextSize, 'x'));
    const QByteArray untidy = QByteArray(tidy).replace("    <", "\t<");
    const QByteArray formatted = field.isEmpty() ? tidy : QByteArray(untidy).replace(">East<", ">West<");
    const Folder folder;
    const QByteArray path = folder.path("job.xml").toLocal8Bit();

    const int nothing = open("/dev/null", O_WRONLY | O_CLOEXEC);
    const auto start = [&path, &command, &field, nothing] {
        const pid_t child = fork();
        if (child == 0) {
            dup2(nothing, STDOUT_FILENO); // where the name of the file goes
            execl(KORMAK_TOOL, KORMAK_TOOL, command.constData(), "--in-place", path.constData(),
                  field.isEmpty() ? nullptr : field.constData(), static_cast<char *>(nullptr));
            _exit(127);
        }
        return child;
    };

    folder.write("job.xml", untidy);
    QElapsedTimer timer;
    timer.start();
    int status = 0;
    waitpid(start(), &status, 0);
    QCOMPARE(status, 0);
    QVERIFY(TestSupport::bytesOf(folder.path("job.xml")) == formatted);
    const auto usual = static_cast<int>(timer.nsecsElapsed() / 1000);

    auto &random = *QRandomGenerator::global();
    int before = 0;
    int during = 0;
    int behind = 0;
    int leftovers = 0;
    for (int i = 0; i < Kills; ++i) {
        folder.write("job.xml", untidy);
        const pid_t child = start();
        bool isWriting = false;
        if (i % 2 == 0) {
            usleep(static_cast<useconds_t>(random.bounded(usual)));
        } else { // as soon as it writes, or a little later
            timer.start();
            while (!(isWriting = hasTemporaryFile(child)) && timer.nsecsElapsed() / 1000 < 3 * usual) { }
            constexpr int LongestDelay = 3000;
            usleep(static_cast<useconds_t>(random.bounded(LongestDelay)));
        }
        kill(child, SIGKILL);
        waitpid(child, &status, 0);

        const QByteArray content = TestSupport::bytesOf(folder.path("job.xml"));
        QVERIFY2(content == untidy || content == formatted,
                 qPrintable(QString("kill %1 left %2 bytes").arg(i).arg(content.size())));
        const QStringList names = folder.names();
        if (content == formatted)
            ++behind;
        else if (isWriting)
            ++during;
        else
            ++before;
        leftovers += static_cast<int>(names.size()) - 1;
        for (const QString &name : names) {
            QVERIFY2(name.startsWith("job.xml"), qPrintable(name));
            if (name != "job.xml")
                QVERIFY(QFile::remove(folder.path(name)));
        }
    }
    close(nothing);
    qInfo("%d kills before writing, %d while a temporary file was open, %d when the file was replaced; "
          "%d temporary files were left",
          before, during, behind, leftovers);
    QCOMPARE(before + during + behind, Kills);
    QVERIFY(before > 0);
    if (QFile::exists("/proc/self/fd"))
        QVERIFY(during + behind > 0);
}

#else

class FileFaultsTest : public QObject {
    Q_OBJECT

private Q_SLOTS:
    void notHere() { skip("needs processes and permissions as Unix has them"); }
};

#endif

QTEST_GUILESS_MAIN(FileFaultsTest)
#include "FileFaultsTest.moc"
