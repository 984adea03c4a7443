#include "tools/PathList.h"

#include <QByteArray>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <filesystem>
#include <system_error>
#include <utility>

namespace {

namespace fs = std::filesystem;

bool isDocument(const QString &name)
{
    return name.endsWith(QLatin1String(".xml"), Qt::CaseInsensitive);
}

QString below(const QString &folder, const QString &name)
{
    return folder.endsWith(QLatin1Char('/')) ? folder + name : folder + QLatin1Char('/') + name;
}

/// What is in a folder, hidden ones left out.
struct Entries {
    std::vector<QString> files;
    std::vector<QString> folders;
    std::error_code error; ///< what has kept from listing more
};

Entries entriesOf(const QString &folder)
{
    Entries entries;
    try {
        for (const fs::directory_entry &entry :
             fs::directory_iterator(fs::path(QFile::encodeName(folder).toStdString()))) {
            const QString name =
                QFile::decodeName(QByteArray::fromStdString(entry.path().filename().string()));
            if (name.startsWith(QLatin1Char('.')))
                continue;
            std::error_code ignored; // what cannot be looked at is neither
            if (entry.is_regular_file(ignored) && isDocument(name))
                entries.files.push_back(name);
            else if (entry.is_directory(ignored) && !entry.is_symlink(ignored))
                entries.folders.push_back(name);
        }
    } catch (const fs::filesystem_error &error) {
        entries.error = error.code();
    }
    return entries;
}

class FolderWalk {
public:
    FolderWalk(std::vector<ListedPath> &result, bool goesBelow) : list(result), isRecursive(goesBelow) { }

    void walk(const QString &root)
    {
        const auto before = static_cast<std::ptrdiff_t>(list.size());
        bool hasFolders = false;
        std::vector<QString> open;
        open.push_back(root);
        while (!open.empty()) {
            const QString folder = open.back();
            open.pop_back();
            for (const QString &name : visit(folder)) {
                hasFolders = true;
                if (isRecursive)
                    open.push_back(below(folder, name));
            }
        }
        const auto begin = list.begin() + before;
        std::sort(begin, list.end(), [](const auto &a, const auto &b) { return a.path < b.path; });
        if (begin == list.end())
            list.push_back({root, nothingIn(hasFolders)});
    }

private:
    /// Lists the files of \a folder and gives the folders in it.
    std::vector<QString> visit(const QString &folder)
    {
        Entries entries = entriesOf(folder);
        if (entries.error) {
            list.push_back(
                {folder,
                 QStringLiteral("cannot be read: ") + QString::fromStdString(entries.error.message())});
            return {};
        }
        for (const QString &name : entries.files)
            list.push_back({below(folder, name)});
        return std::move(entries.folders);
    }

    [[nodiscard]] QString nothingIn(bool hasFolders) const
    {
        return QStringLiteral("there is no *.xml file in this folder")
            + (hasFolders && !isRecursive ? QStringLiteral(" (-r goes through the folders below, too)")
                                          : QString());
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
