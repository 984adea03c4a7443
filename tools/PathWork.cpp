#include "tools/PathWork.h"

#include <tools/Command.h>
#include <tools/DocumentFile.h>
#include <tools/Options.h>

#include <QCommandLineParser>
#include <QThread>

#include <algorithm>
#include <new>
#include <utility>

namespace {

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
               recursiveOption(),
               optionCalled(u'j', JobsOption,
                            verb.toString()
                                + QStringLiteral(" N files at once (default: 1 per core, most: 4)."),
                            u"N"))
        << own;
}

PathCall pathCallOf(const QCommandLineParser &parser)
{
    const QStringList arguments = parser.positionalArguments();
    const int jobs = jobsOf(parser);
    auto paths = listedPaths(parser);
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
