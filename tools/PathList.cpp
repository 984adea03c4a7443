#include "tools/PathList.h"

#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace {

constexpr QDir::Filters Files = QDir::Files;
constexpr QDir::Filters Folders = QDir::AllDirs | QDir::NoDotAndDotDot | QDir::NoSymLinks;

QString below(const QString &folder, const QString &name)
{
    return folder.endsWith(QLatin1Char('/')) ? folder + name : folder + QLatin1Char('/') + name;
}

class FolderWalk {
public:
    FolderWalk(std::vector<ListedPath> &result, bool goesBelow) : list(result), isRecursive(goesBelow) { }

    void walk(const QString &root)
    {
        const auto before = static_cast<std::ptrdiff_t>(list.size());
        QStringList open{root};
        while (!open.isEmpty())
            open += visit(open.takeLast());
        const auto begin = list.begin() + before;
        std::sort(begin, list.end(), [](const auto &a, const auto &b) { return a.path < b.path; });
        if (begin == list.end())
            list.push_back({root, obstacleOf(root)});
    }

private:
    /// Lists the files of \a folder and gives the folders in it that are to be visited.
    QStringList visit(const QString &folder)
    {
        const QDir dir(folder);
        if (!dir.isReadable()) {
            list.push_back({folder, QStringLiteral("cannot be read: Permission denied")});
            return {};
        }
        const QStringList files = dir.entryList({QStringLiteral("*.xml")}, Files);
        for (const QString &name : files)
            list.push_back({below(folder, name)});
        QStringList folders = isRecursive ? dir.entryList(Folders) : QStringList();
        for (QString &name : folders)
            name = below(folder, name);
        return folders;
    }

    QString obstacleOf(const QString &root) const
    {
        const bool hasFolders = !isRecursive && !QDir(root).entryList(Folders).isEmpty();
        return QStringLiteral("there is no *.xml file in this folder")
            + (hasFolders ? QStringLiteral(" (-r goes through the folders below, too)") : QString());
    }

    std::vector<ListedPath> &list;
    const bool isRecursive;
};

} // namespace

std::vector<ListedPath> listedPaths(const QStringList &paths, bool isRecursive)
{
    std::vector<ListedPath> list;
    FolderWalk folders(list, isRecursive);
    for (const QString &path : paths) {
        if (!path.isEmpty() && QFileInfo(path).isDir())
            folders.walk(path);
        else
            list.push_back({path});
    }
    return list;
}
