// What calls of the tool take, beside those of other programs.
#include "Table.h"

#include <QCoreApplication>
#include <QDebug>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <functional>
#include <sys/resource.h>

namespace {

struct Time {
    double processor; ///< s
    double wall; ///< s
};

using Call = std::function<Time()>;

double processorTimeOfChildren()
{
    constexpr double Micro = 1e-6;
    rusage usage{};
    getrusage(RUSAGE_CHILDREN, &usage);
    const auto seconds = [](const timeval &time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * Micro;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// Ends this program when the other one fails: its exit status is more than \a mostStatus.
Call callOf(const QString &program, const QStringList &arguments, int mostStatus = 0)
{
    return [program, arguments, mostStatus] {
        constexpr double Milli = 1e-3;
        QProcess process;
        process.setStandardOutputFile(QProcess::nullDevice());
        process.setStandardErrorFile(QProcess::nullDevice());
        const double before = processorTimeOfChildren();
        QElapsedTimer timer;
        timer.start();
        process.start(program, arguments);
        const bool isDone = process.waitForFinished(-1);
        const auto wall = static_cast<double>(timer.elapsed()) * Milli;
        if (!isDone || process.exitStatus() != QProcess::NormalExit || process.exitCode() > mostStatus)
            qFatal("%s %s fails", qPrintable(program), qPrintable(arguments.mid(0, 4).join(u' ')));
        return Time{processorTimeOfChildren() - before, wall};
    };
}

double middleOf(QList<double> values)
{
    std::sort(values.begin(), values.end());
    const auto middle = values.size() / 2;
    return values.size() % 2 == 1 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
}

/// Measures some calls once in each round, so that what slows the machine down slows all of them.
class Rounds {
public:
    Rounds(int number, const QList<Call> &calls) : times(calls.size())
    {
        for (int round = 0; round < number; ++round) {
            for (int call = 0; call < calls.size(); ++call)
                times[call] << calls[call]();
        }
    }

    [[nodiscard]] double seconds(int call) const
    {
        QList<double> all;
        for (const Time &time : times[call])
            all << time.processor;
        return middleOf(all);
    }
    [[nodiscard]] double ratio(int call, int other, double Time::*kind = &Time::processor) const
    {
        QList<double> all;
        for (int round = 0; round < times[call].size(); ++round)
            all << times[call][round].*kind / (times[other][round].*kind);
        return middleOf(all);
    }

private:
    QList<QList<Time>> times;
};

QByteArray read(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("%s cannot be read", qPrintable(path));
    return file.readAll();
}

void write(const QString &path, const QByteArray &content)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("%s cannot be written", qPrintable(path));
}

QList<QByteArray> examplesIn(const QStringList &folders)
{
    QList<QByteArray> all;
    for (const QString &folder : folders) {
        const QDir dir(QStringLiteral(EXAMPLES_DIR "/") + folder);
        for (const QString &name : dir.entryList({QStringLiteral("*.xml")}, QDir::Files, QDir::Name))
            all << read(dir.filePath(name));
    }
    return all;
}

/// So many files that repeat what \a documents holds. The paths of them.
QStringList filesOf(const QList<QByteArray> &documents, int count, const QString &folder)
{
    QDir().mkpath(folder);
    QStringList paths;
    for (int i = 0; i < count; ++i) {
        paths << QStringLiteral("%1/%2.xml").arg(folder).arg(i, 5, 10, QLatin1Char('0'));
        write(paths.last(), documents[i % documents.size()]);
    }
    return paths;
}

/// A receiver with so many of the parameters of the examples, under names of their own.
QByteArray receiver(int parameters)
{
    static const QStringList examples = [] {
        QStringList all;
        const QRegularExpression parameter(QStringLiteral("<Parameter .*?</Parameter>"),
                                           QRegularExpression::DotMatchesEverythingOption);
        for (const QByteArray &document : examplesIn({QStringLiteral("receivers")})) {
            auto found = parameter.globalMatch(QString::fromUtf8(document));
            while (found.hasNext())
                all << found.next().captured();
        }
        return all;
    }();
    const QRegularExpression name(QStringLiteral("UniqueName=\"([^\"]*)\""));
    QString text =
        QStringLiteral("<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<GenericReceiver Version=\"1.0\">\n");
    for (int i = 0; i < parameters; ++i) {
        QString parameter = examples[i % examples.size()];
        text += QStringLiteral("  ") + parameter.replace(name, QStringLiteral("UniqueName=\"\\1.%1\"").arg(i))
            + QLatin1Char('\n');
    }
    return (text + QStringLiteral("</GenericReceiver>\n")).toUtf8();
}

QStringList linted(const QString &schema, const QStringList &paths)
{
    return QStringList{QStringLiteral("--noout"), QStringLiteral("--schema"),
                       QStringLiteral(SCHEMAS_DIR "/") + schema}
    + paths;
}

} // namespace

int main(int argc, char **argv)
{
    const QCoreApplication application(argc, argv);
    const bool isQuick = application.arguments().contains(QStringLiteral("--quick"));
    const int rounds = isQuick ? 3 : 9;
    constexpr int Jobs = 5000;
    constexpr int Receivers = 300;
    constexpr int ParametersOfEach = 60;
    constexpr int Pages = 1000;
    constexpr int ParametersOfPage = 10'000;
    constexpr int AtFault = 1;
    const QString tool = QStringLiteral(KORMAK_TOOL);
    const QString lint = QStringLiteral("xmllint");
    const QTemporaryDir folder;
    const auto below = [&folder](const char *name) { return folder.filePath(QLatin1String(name)); };

    const QStringList jobs = filesOf(examplesIn({QStringLiteral("jobs")}), Jobs, below("jobs"));
    QList<QByteArray> receiverDocuments{receiver(ParametersOfEach)};
    const QStringList receivers = filesOf(receiverDocuments, Receivers, below("receivers"));
    (void)filesOf(
        examplesIn({QStringLiteral("jobs"), QStringLiteral("receivers"), QStringLiteral("settings")}), Pages,
        below("documents"));
    write(below("long.xml"), receiver(ParametersOfPage));

    const auto check = [&tool](int threads, const QString &path) {
        return callOf(tool, {QStringLiteral("check"), QStringLiteral("-j"), QString::number(threads), path},
                      AtFault);
    };
    const auto report = [&](const char *path, const char *output) {
        return callOf(tool, {QStringLiteral("report"), QStringLiteral("-o"), below(output), below(path)},
                      AtFault);
    };
    const Rounds ofJobs(rounds,
                        {check(1, below("jobs")), check(2, below("jobs")),
                         callOf(lint, linted(QStringLiteral("Job.xsd"), jobs))});
    const Rounds ofReceivers(rounds,
                             {check(1, below("receivers")), check(2, below("receivers")),
                              callOf(lint, linted(QStringLiteral("GenericReceiver.xsd"), receivers))});
    const Rounds ofStart(
        rounds, {callOf(tool, {QStringLiteral("--version")}), callOf(QStringLiteral(BARE_PROGRAM), {})});
    const Rounds ofPages(isQuick ? 1 : 3,
                         {report("documents", "pages"), check(1, below("documents")),
                          report("long.xml", "long.html"), check(1, below("long.xml"))});

    Table ratios(QStringLiteral("The tool: ratios of processor time, with -j 2 of the time that passes"),
                 {QStringLiteral("call"), QStringLiteral("ratio"), QStringLiteral("goal"), QString()});
    const auto addCheck = [&ratios](const QString &what, const Rounds &times, double goal) {
        constexpr double GoalOfTwo = 1.8;
        ratios.add(QStringLiteral("check %1 / xmllint").arg(what), times.ratio(0, 2), {Target::AtMost, goal});
        ratios.add(QStringLiteral("check %1, -j 1 / -j 2").arg(what), times.ratio(0, 1, &Time::wall),
                   {Target::AtLeast, GoalOfTwo});
    };
    addCheck(QStringLiteral("%1 jobs").arg(Jobs), ofJobs, 1.3);
    addCheck(QStringLiteral("%1 receivers").arg(Receivers), ofReceivers, 1.8);
    ratios.add(QStringLiteral("--version / a program that does nothing"), ofStart.ratio(0, 1),
               {Target::AtMost, 1.5});
    ratios.add({QStringLiteral("report of %1 documents / check of them").arg(Pages),
                figure(ofPages.ratio(0, 1)), QString(), QString()});
    ratios.add({QStringLiteral("report of %1 parameters / check of them").arg(ParametersOfPage),
                figure(ofPages.ratio(2, 3)), QString(), QString()});
    ratios.print();

    constexpr double Mega = 1e6;
    Table pages(QStringLiteral("Pages for people"),
                {QString(), QStringLiteral("measured"), QStringLiteral("goal"), QString()});
    pages.add(QStringLiteral("%1 documents, s").arg(Pages), ofPages.seconds(0), {Target::AtMost, 3});
    pages.add(QStringLiteral("a receiver of %1 parameters, s").arg(ParametersOfPage), ofPages.seconds(2),
              {Target::AtMost, 2});
    pages.add(QStringLiteral("its page, MB"), static_cast<double>(QFile(below("long.html")).size()) / Mega,
              {Target::AtMost, 15});
    pages.print();
}
