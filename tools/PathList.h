// The files that a call is about.
#ifndef KORMAK_TOOLS_PATHLIST_H
#define KORMAK_TOOLS_PATHLIST_H

#include <QCommandLineOption>
#include <QString>
#include <QStringList>

#include <vector>

QT_BEGIN_NAMESPACE
class QCommandLineParser;
QT_END_NAMESPACE

struct ListedPath {
    enum class Kind {
        File,
        Unreadable, ///< a folder, or what may be one: it cannot be gone through
        Skipped, ///< a folder that is gone through under another name
    };

    QString path;
    Kind kind = Kind::File;
    QString reason = {}; ///< of what is no file
};

/// Files as they are given, and in the place of each folder its *.xml files, sorted, \a isRecursive with
/// those in the folders below, hidden ones left out. Links to folders are followed, but no folder is gone
/// through twice.
[[nodiscard]] std::vector<ListedPath> listedPaths(const QStringList &paths, bool isRecursive);

/// Whether the folders below a folder are gone through, too.
[[nodiscard]] QCommandLineOption recursiveOption();
/// Those of a call with that option. \throws UsageError when several are standard input
[[nodiscard]] std::vector<ListedPath> listedPaths(const QCommandLineParser &parser);

#endif
