// The files that a call is about.
#ifndef KORMAK_TOOLS_PATHLIST_H
#define KORMAK_TOOLS_PATHLIST_H

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

struct ListedPath {
    QString path;
    std::optional<QString> obstacle = std::nullopt; ///< why the folder at the path cannot be gone through
};

/// Files as they are given, and in the place of each folder its *.xml files, sorted, \a isRecursive with
/// those in the folders below. Links to folders are not followed.
[[nodiscard]] std::vector<ListedPath> listedPaths(const QStringList &paths, bool isRecursive);

#endif
