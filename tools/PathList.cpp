#include "tools/PathList.h"

#include <tools/InputFile.h>
#include <tools/Options.h>
#include <tools/PathEncoding.h>

#include <QCommandLineParser>

#include <algorithm>
#include <filesystem>
#include <map>
#include <set>
#include <system_error>
#include <utility>

namespace {

constexpr QStringView RecursiveOption = u"recursive";

namespace fs = std::filesystem;

using Kind = ListedPath::Kind;

bool isDocument(const QString &name)
{
    return name.endsWith(QLatin1String(".xml"), Qt::CaseInsensitive);
}

QString below(const QString &folder, const QString &name)
{
    return folder.endsWith(QLatin1Char('/')) ? folder + name : folder + QLatin1Char('/') + name;
}

ListedPath unreadable(const QString &path, const std::error_code &error)
{
    return {path, Kind::Unreadable,
            QStringLiteral("cannot be read: ") + QString::fromStdString(error.message())};
}

/// The paths of what is in a folder, hidden ones left out.
struct Entries {
    std::vector<QString> files; ///< called *.xml, whatever they are
    std::vector<QString> folders;
    std::vector<QString> links; ///< to folders
    std::vector<ListedPath> unknown; ///< what cannot be looked at, and may be a folder
    std::error_code error; ///< what has kept from listing more
};

void add(Entries &entries, const fs::directory_entry &entry, const QString &path)
{
    std::error_code error;
    std::error_code ignored;
    if (entry.is_directory(error))
        (entry.is_symlink(ignored) ? entries.links : entries.folders).push_back(path);
    else if (isDocument(path))
        entries.files.push_back(path);
    else if (error)
        entries.unknown.push_back(unreadable(path, error));
}

Entries entriesOf(const QString &folder)
{
    Entries entries;
    fs::directory_iterator entry(PathEncoding::toNative(folder), entries.error);
    for (; !entries.error && entry != fs::directory_iterator(); entry.increment(entries.error)) {
        const QString name = PathEncoding::fromNative(entry->path().filename());
        if (!name.startsWith(QLatin1Char('.')))
            add(entries, *entry, below(folder, name));
    }
    return entries;
}

class FolderWalk {
public:
    FolderWalk(std::vector<ListedPath> &result, bool goesBelow) : list(result), isRecursive(goesBelow) { }

    void walk(const QString &root)
    {
        const auto before = static_cast<std::ptrdiff_t>(list.size());
        goThrough(root);
        while (!links.empty()) { // behind all folders, whose own names are better ones
            const QString link = *links.begin();
            links.erase(links.begin());
            goThrough(link);
        }
        const auto begin = list.begin() + before;
        std::sort(begin, list.end(), [](const auto &a, const auto &b) { return a.path < b.path; });
        if (std::all_of(begin, list.end(), [](const auto &path) { return path.kind == Kind::Skipped; }))
            list.push_back({root, Kind::Unreadable, nothingIn()});
    }

private:
    void goThrough(const QString &start)
    {
        std::vector<QString> open{start};
        while (!open.empty()) {
            const QString folder = open.back();
            open.pop_back();
            if (const QString name = nameOf(folder); name != folder) {
                list.push_back({folder, Kind::Skipped,
                                QStringLiteral("is the folder %1, which is gone through once").arg(name)});
                continue;
            }
            Entries entries = entriesOf(folder);
            visit(entries);
            if (entries.error)
                list.push_back(unreadable(folder, entries.error));
            if (isRecursive)
                std::move(entries.folders.begin(), entries.folders.end(), std::back_inserter(open));
        }
    }

    /// The path under which the folder at \a path is gone through.
    QString nameOf(const QString &path)
    {
        const InputFile::State state = InputFile::stateOf(path);
        if (state == InputFile::State()) // there is no telling
            return path;
        return names.insert({{state.device, state.number}, path}).first->second;
    }

    void visit(const Entries &entries)
    {
        for (const QString &file : entries.files)
            list.push_back({file});
        hasFolders = hasFolders || !entries.folders.empty() || !entries.links.empty();
        if (!isRecursive)
            return;
        links.insert(entries.links.begin(), entries.links.end());
        list.insert(list.end(), entries.unknown.begin(), entries.unknown.end());
    }

    [[nodiscard]] QString nothingIn() const
    {
        return QStringLiteral("there is no *.xml file in this folder")
            + (hasFolders && !isRecursive ? QStringLiteral(" (-r goes through the folders below, too)")
                                          : QString());
    }

    std::vector<ListedPath> &list;
    const bool isRecursive;
    bool hasFolders = false;
    std::set<QString> links; ///< to folders, which are still to be followed
    std::map<std::pair<quint64, quint64>, QString> names; ///< of the folders by device and number
};

} // namespace

std::vector<ListedPath> listedPaths(const QStringList &paths, bool isRecursive)
{
    std::vector<ListedPath> list;
    for (const QString &path : paths) {
        std::error_code ignored; // what is wrong with a file is told when it is read
        if (!path.isEmpty() && fs::is_directory(PathEncoding::toNative(path), ignored))
            FolderWalk(list, isRecursive).walk(path);
        else
            list.push_back({path});
    }
    return list;
}

QCommandLineOption recursiveOption()
{
    return optionCalled(u'r', RecursiveOption, QStringLiteral("Go through the folders below a folder, too."));
}

std::vector<ListedPath> listedPaths(const QCommandLineParser &parser)
{
    const QStringList paths = parser.positionalArguments();
    checkStandardInput(paths);
    return listedPaths(paths, parser.isSet(RecursiveOption.toString()));
}
