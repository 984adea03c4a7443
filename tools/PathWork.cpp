#include "tools/PathWork.h"

#include <tools/Command.h>
#include <tools/DocumentFile.h>
#include <tools/ListOf.h>

#include <QCommandLineParser>
#include <QThread>

#include <algorithm>
#include <new>
#include <utility>

namespace {

constexpr QStringView RecursiveOption = u"recursive";
constexpr QStringView JobsOption = u"jobs";

/// More would only wait for one another.
int mostJobs()
{
    constexpr int PerCore = 4;
    return PerCore * std::max(QThread::idealThreadCount(), 1);
}

/// The last of the values given; nothing when the option is not. \throws UsageError
int jobsOf(const QCommandLineParser &parser)
{
    if (!parser.isSet(JobsOption.toString()))
        return QThread::idealThreadCount();
    const QString text = parser.value(JobsOption.toString());
    bool ok = false;
    const int jobs = text.toInt(&ok);
    if (!ok || jobs < 1)
        throw UsageError{QStringLiteral("-j takes a number from 1, not '%1'").arg(text)};
    return std::min(jobs, mostJobs());
}

} // namespace

QList<QCommandLineOption> withPathOptions(QStringView verb, const QList<QCommandLineOption> &own)
{
    return listOf<QList<QCommandLineOption>>(
               QCommandLineOption(listOf<QStringList>(QStringLiteral("r"), RecursiveOption.toString()),
                                  QStringLiteral("Go through the folders below a folder, too.")),
               QCommandLineOption(listOf<QStringList>(QStringLiteral("j"), JobsOption.toString()),
                                  verb.toString()
                                      + QStringLiteral(" N files at once (default: 1 per core, most: 4)."),
                                  QStringLiteral("N")))
        << own;
}

PathCall pathCallOf(const QCommandLineParser &parser)
{
    const QStringList arguments = parser.positionalArguments();
    const int jobs = jobsOf(parser);
    if (arguments.count(StandardStream.toString()) > 1)
        throw UsageError{QStringLiteral("standard input can be read only once")};
    auto paths = listedPaths(arguments, parser.isSet(RecursiveOption.toString()));
    const bool isOneFile =
        paths.size() == 1 && arguments.size() == 1 && arguments.constFirst() == paths.front().path;
    return {std::move(paths), isOneFile, jobs};
}

QString reasonOf(const std::exception_ptr &exception)
{
    try {
        std::rethrow_exception(exception);
    } catch (const std::bad_alloc &) {
        return NotEnoughMemory.toString();
    } catch (const std::exception &error) {
        return QString::fromUtf8(error.what());
    }
}
