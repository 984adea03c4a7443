// Commands that go through many files and folders: their options, and the work on each file, several at a
// time, the results in the order of the paths.
#ifndef KORMAK_TOOLS_PATHWORK_H
#define KORMAK_TOOLS_PATHWORK_H

#include <tools/Console.h>
#include <tools/OrderedWork.h>
#include <tools/PathList.h>
#include <tools/ProgressBar.h>

#include <QCommandLineOption>
#include <QList>
#include <QString>
#include <QStringView>

#include <cstddef>
#include <exception>
#include <vector>

QT_BEGIN_NAMESPACE
class QCommandLineParser;
QT_END_NAMESPACE

/// -r and -j, with \a own options of a command behind them; \a verb is what it does with files: "Check".
[[nodiscard]] QList<QCommandLineOption> withPathOptions(QStringView verb,
                                                        const QList<QCommandLineOption> &own);

/// What a call goes through.
struct PathCall {
    std::vector<ListedPath> paths;
    bool isOneFile; ///< the call names a file, and nothing else
    int jobs; ///< as many threads
};

/// \throws UsageError
[[nodiscard]] PathCall pathCallOf(const QCommandLineParser &parser);

/// What is said of a file where \a exception ended the work on it.
[[nodiscard]] QString reasonOf(const std::exception_ptr &exception);

/// Whether people are shown how far the work has come.
enum class Progress { Hidden, Shown };

/// Does \a work on each path of the \a call, by several threads, and hands what it makes to \a use, in their
/// order and as soon as it is there. What an exception ends, \a failed makes of the path and the reason.
template <class Result, class Work, class Failed, class Use>
void onEachPath(const PathCall &call, Progress progress, Work work, Failed failed, Use use)
{
    const std::vector<ListedPath> &paths = call.paths;
    ProgressBar bar(static_cast<int>(paths.size()), progress == Progress::Shown);
    const auto idle = [&bar](int done) {
        bar.show(done);
        Console::flush(); // whoever reads this need not wait, too
    };
    OrderedWork<Result> results(paths.size(), call.jobs,
                                [&](std::size_t number) { return work(paths[number]); });
    for (std::size_t i = 0; i < paths.size(); ++i) {
        Result result;
        try {
            result = results.take(i, idle);
        } catch (const std::exception &) {
            result = failed(paths[i], reasonOf(std::current_exception()));
        }
        bar.clear();
        use(result);
    }
}

#endif
