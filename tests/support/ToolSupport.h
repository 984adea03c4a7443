// Running the tool as a process in a folder of its own, and documents to run it on.
#ifndef KORMAK_TOOLSUPPORT_H
#define KORMAK_TOOLSUPPORT_H

#include <tests/support/Files.h>

#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QString>
#include <QStringList>
#include <QTemporaryDir>
#include <QtTest>

#ifdef Q_OS_UNIX
#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <sys/ioctl.h>
#include <sys/resource.h>
#include <unistd.h>
#endif

namespace ToolSupport {

/// How a run of the tool ended, and what it wrote.
struct Run {
    int status = -1; ///< -1: it did not end by itself
    QString out;
    QString err;
};

/// Gives \a process, which has been started, all its \a input and waits for its end.
inline Run ended(QProcess &process, const QByteArray &input = {})
{
    constexpr int Patience = 240 * 1000;
    process.write(input);
    process.closeWriteChannel();
    const bool hasEnded = process.waitForFinished(Patience) && process.exitStatus() == QProcess::NormalExit;
    return {hasEnded ? process.exitCode() : -1, QString::fromUtf8(process.readAllStandardOutput()),
            QString::fromUtf8(process.readAllStandardError())};
}

/// A run of the tool in \a folder.
inline Run runTool(const QString &folder, const QStringList &arguments)
{
    QProcess process;
    process.setWorkingDirectory(folder);
    process.start(KORMAK_TOOL, arguments);
    return ended(process);
}

/// A folder in which the tool runs, so that its messages name files by their bare names.
class Folder {
public:
    [[nodiscard]] QString path(const QString &name) const { return folder.filePath(name); }

    void write(const QString &name, const QByteArray &bytes) const
    {
        TestSupport::writtenFile(path(name), bytes);
    }

    [[nodiscard]] QString read(const QString &name) const
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : "(no file)";
    }

    [[nodiscard]] QStringList names() const
    {
        return QDir(folder.path())
            .entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot, QDir::Name);
    }

    /// Runs the tool; \a input is its standard input, \a outputFile, if given, takes its standard output, and
    /// \a errorFile its standard error.
    [[nodiscard]] Run run(const QStringList &arguments, const QByteArray &input = {},
                          const QString &outputFile = {}, const QString &errorFile = {}) const
    {
        QProcess process;
        process.setWorkingDirectory(folder.path());
        process.setProcessEnvironment(environment);
        if (!outputFile.isEmpty())
            process.setStandardOutputFile(outputFile);
        if (!errorFile.isEmpty())
            process.setStandardErrorFile(errorFile);
        process.start(KORMAK_TOOL, arguments);
        return ended(process, input);
    }

    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();

private:
    QTemporaryDir folder;
};

#ifdef Q_OS_UNIX
/// A terminal for the tool, and what came to it.
class Screen {
public:
    Screen() : master(posix_openpt(O_RDWR | O_NOCTTY | O_NONBLOCK))
    {
        if (master >= 0 && grantpt(master) == 0 && unlockpt(master) == 0) {
            device = ptsname(master);
            slave = open(device.constData(), O_RDWR | O_NOCTTY);
        }
    }
    ~Screen()
    {
        close(slave);
        close(master);
    }
    Screen(const Screen &) = delete;
    Screen &operator=(const Screen &) = delete;

    [[nodiscard]] bool isThere() const { return slave >= 0; }
    [[nodiscard]] QString path() const { return QString::fromLocal8Bit(device); }

    void setColumns(int columns) const
    {
        winsize size{};
        size.ws_col = static_cast<unsigned short>(columns);
        ioctl(master, TIOCSWINSZ, &size);
    }

    const QString &text()
    {
        char buffer[4096];
        for (ssize_t size = 0; (size = read(master, buffer, sizeof buffer)) > 0;)
            shown += QString::fromUtf8(buffer, static_cast<int>(size));
        return shown;
    }

private:
    const int master;
    int slave = -1;
    QByteArray device;
    QString shown;
};
#endif

/// The seconds that the tool has worked so far in all runs that have ended: other than the time on a clock,
/// these hardly depend on what else the machine does.
inline double secondsOfWork()
{
#ifdef Q_OS_UNIX
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    constexpr double Micro = 1e-6;
    return static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec)
        + Micro * static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec);
#else
    constexpr double Milli = 1e-3;
    return Milli * static_cast<double>(QDateTime::currentMSecsSinceEpoch());
#endif
}

/// Does \a work with a few things and with four times as many. With the square of their number the time would
/// become sixteen times as long.
template <class Work>
void verifyTimeGrowsWithNumber(Work work)
{
    constexpr int Few = 4000;
    constexpr int Factor = 4;
    const double start = secondsOfWork();
    work(Few);
    const double few = secondsOfWork() - start;
    work(Factor * Few);
    const double many = secondsOfWork() - start - few;
    QVERIFY2(many < 2 * Factor * few, qPrintable(QString("%1 s, then %2 s").arg(few).arg(many)));
}

/// The lines of \a text, which are objects in JSON.
inline QList<QJsonObject> jsonLines(const QString &text)
{
    QList<QJsonObject> objects;
    const QStringList lines = text.split('\n');
    for (const QString &line : lines.mid(0, lines.size() - 1))
        objects << QJsonDocument::fromJson(line.toUtf8()).object();
    return objects;
}

/// QSKIP() without its empty list of arguments, of which clang++ warns; to be followed by return.
inline void skip(const char *reason)
{
    QTest::qSkip(reason, __FILE__, __LINE__);
}

/// The kinds of document that the tool knows, as its messages name them.
inline QString knownKinds()
{
    return "Job, AutomaticWorkflow, ActivityGeneration, GenericReceiver, Parameter";
}

/// A complete job, as the library writes it.
inline QByteArray completeJob()
{
    return "<?xml version=\"1.0\"?>\n"
           "<Job Version=\"1.0\">\n"
           "    <JobHeader Version=\"1.0\">\n"
           "        <JobType>Antenna</JobType>\n"
           "        <Author>Mara Lind</Author>\n"
           "        <Creation>2026-03-29T00:59:59,250Z</Creation>\n"
           "        <ShowJDH>true</ShowJDH>\n"
           "    </JobHeader>\n"
           "    <ResourceType>Antenna</ResourceType>\n"
           "    <AntennaData Version=\"1.0\">\n"
           "        <Name>East</Name>\n"
           "        <MinimumFrequency>1500000</MinimumFrequency>\n"
           "        <MaximumFrequency>30000000</MaximumFrequency>\n"
           "    </AntennaData>\n"
           "</Job>\n";
}

/// \a document with \a before, which stands in it once, replaced.
inline QByteArray with(QByteArray document, const QByteArray &before, const QByteArray &after)
{
    Q_ASSERT(document.count(before) == 1);
    return document.replace(before, after);
}

/// The complete job with \a before, which stands in it once, replaced.
inline QByteArray jobWith(const QByteArray &before, const QByteArray &after)
{
    return with(completeJob(), before, after);
}

/// Passes Check() without being complete.
inline QByteArray jobOnDecoder()
{
    return jobWith("<ResourceType>Antenna<", "<ResourceType>Decoder<");
}

inline QByteArray jobWithoutAuthor()
{
    return jobWith("        <Author>Mara Lind</Author>\n", "");
}

/// A complete parameter, as the library writes it.
inline QByteArray completeParameter()
{
    return "<?xml version=\"1.0\"?>\n"
           "<Parameter Version=\"1.0\" UniqueName=\"Gain\">\n"
           "    <RepresentationName>rx.gain</RepresentationName>\n"
           "    <ValueType>ValueNumericInt</ValueType>\n"
           "    <Enable>true</Enable>\n"
           "    <ParameterType>Integer</ParameterType>\n"
           "    <Integer>\n"
           "        <Minimum>0</Minimum>\n"
           "        <Maximum>40</Maximum>\n"
           "        <Default>20</Default>\n"
           "    </Integer>\n"
           "</Parameter>\n";
}

/// A complete receiver, as the library writes it.
inline QByteArray completeReceiver()
{
    return "<?xml version=\"1.0\"?>\n"
           "<GenericReceiver Version=\"1.0\">\n"
           "    <Parameter Version=\"1.0\" UniqueName=\"Filter\">\n"
           "        <RepresentationName>rx.filter</RepresentationName>\n"
           "        <ValueType>ValueSelection</ValueType>\n"
           "        <Enable>true</Enable>\n"
           "        <ParameterType>Enum</ParameterType>\n"
           "        <Enum>\n"
           "            <EnumValue Key=\"1\" Name=\"Narrow\" Value=\"0.50\"/>\n"
           "            <EnumValue Key=\"2\" Name=\"Wide\" Identifier=\"w\" Value=\"2.00\" "
           "Default=\"true\"/>\n"
           "        </Enum>\n"
           "    </Parameter>\n"
           "    <Parameter Version=\"1.0\" UniqueName=\"Level\">\n"
           "        <RepresentationName>rx.level</RepresentationName>\n"
           "        <ValueType>ValueNumericFloat</ValueType>\n"
           "        <Enable>true</Enable>\n"
           "        <ParameterType>Float</ParameterType>\n"
           "        <Float>\n"
           "            <Minimum>-20.000000</Minimum>\n"
           "            <Maximum>120.000000</Maximum>\n"
           "            <Default>0.000000</Default>\n"
           "            <Precision>1</Precision>\n"
           "        </Float>\n"
           "    </Parameter>\n"
           "</GenericReceiver>\n";
}

/// A complete workflow. The library writes its mode in another place.
inline QByteArray completeWorkflow()
{
    return "<?xml version=\"1.0\"?>\n"
           "<AutomaticWorkflow Version=\"1.0\">\n"
           "    <Mode>AutomaticMode</Mode>\n"
           "    <Classifiers>8</Classifiers>\n"
           "    <ClassificationTime>25</ClassificationTime>\n"
           "    <ClassificationResult>4</ClassificationResult>\n"
           "    <SearchStrategy>LowestLevelFirst</SearchStrategy>\n"
           "    <BitstreamClassification>true</BitstreamClassification>\n"
           "    <Area Version=\"1.0\">\n"
           "        <Name>North</Name>\n"
           "        <Coordinate>\n"
           "            <Latitude>53.55</Latitude>\n"
           "            <Longitude>-7.1</Longitude>\n"
           "        </Coordinate>\n"
           "    </Area>\n"
           "</AutomaticWorkflow>\n";
}

/// Complete settings of activity generation, as the library writes them.
inline QByteArray completeGeneration()
{
    return "<?xml version=\"1.0\"?>\n"
           "<ActivityGeneration Version=\"2.2\" Autostart=\"true\">\n"
           "    <Mode>AGED</Mode>\n"
           "    <EnergyChannel>DDem</EnergyChannel>\n"
           "    <LevelMinBurstDuration>0.2</LevelMinBurstDuration>\n"
           "    <LevelMaxBreakDuration>1.5</LevelMaxBreakDuration>\n"
           "    <DDemActiveCriteria>Signal Detection</DDemActiveCriteria>\n"
           "    <DDemMinBurstDuration>0.75</DDemMinBurstDuration>\n"
           "    <DDemMaxBreakDuration>2.5</DDemMaxBreakDuration>\n"
           "    <DDemMorseQualityThreshold>65</DDemMorseQualityThreshold>\n"
           "    <ClassIntermScore>2</ClassIntermScore>\n"
           "    <ClassFinalScore>5</ClassFinalScore>\n"
           "    <ClassStartScore>4</ClassStartScore>\n"
           "    <ClassStopScore>1</ClassStopScore>\n"
           "    <ClassMinConfidence>60</ClassMinConfidence>\n"
           "    <DetConvMinBurstDuration>0.05</DetConvMinBurstDuration>\n"
           "    <DbWriteEnergy>false</DbWriteEnergy>\n"
           "    <DbWriteDDem>Always</DbWriteDDem>\n"
           "    <DbWriteClass>On Energy Detection</DbWriteClass>\n"
           "    <CutAtLocations>true</CutAtLocations>\n"
           "    <SessionCloseTime>30</SessionCloseTime>\n"
           "    <RestartAttachmentsOnSessionClose>true</RestartAttachmentsOnSessionClose>\n"
           "</ActivityGeneration>\n";
}

#ifdef Q_OS_UNIX
/// A run of the tool when nothing but a few bytes can be written to a file: a limit on the size of files,
/// which it inherits, stands in for a full disk.
inline Run runOnFullDisk(const Folder &folder, const QStringList &arguments)
{
    constexpr rlim_t FewBytes = 20;
    rlimit former{};
    getrlimit(RLIMIT_FSIZE, &former);
    const auto formerHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit limit = former;
    limit.rlim_cur = FewBytes;
    setrlimit(RLIMIT_FSIZE, &limit);
    const Run run = folder.run(arguments);
    setrlimit(RLIMIT_FSIZE, &former);
    std::signal(SIGXFSZ, formerHandler);
    return run;
}
#endif

} // namespace ToolSupport

#endif
