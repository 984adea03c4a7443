// The files that a call is about.
#ifndef KORMAK_TOOLS_PATHLIST_H
#define KORMAK_TOOLS_PATHLIST_H

#include <QString>
#include <QStringList>

#include <vector>

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

#endif
