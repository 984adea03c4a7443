#include <inspection/QuotedText_p.h>
#include <inspection/Report.h>
#include <inspection/ReportIndex.h>
#include <tools/Command.h>
#include <tools/Console.h>
#include <tools/DocumentFile.h>
#include <tools/LimitOptions.h>
#include <tools/Options.h>
#include <tools/Output.h>
#include <tools/PathEncoding.h>
#include <tools/PathList.h>
#include <tools/ReportOrder.h>
#include <tools/Usage.h>

#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QHash>
#include <QSet>
#include <QUrl>

#include <algorithm>
#include <new>
#include <utility>

using namespace KORMAK;

namespace {

constexpr QStringView IndexName = u"index.html";
constexpr QStringView PageEnding = u".html";

QList<QCommandLineOption> options()
{
    return withLimitOptions(listOf<QList<QCommandLineOption>>(
        optionCalled(OutputOption, QStringLiteral("Write to the file or folder OUT."), u"OUT"),
        recursiveOption(), ReportOrder::option()));
}

/// Whether both are names of one file that there is.
bool isSameFile(const QString &a, const QString &b)
{
    const QString canonical = QFileInfo(a).canonicalFilePath();
    return !canonical.isEmpty() && canonical == QFileInfo(b).canonicalFilePath();
}

/// What a call asks for.
struct Request {
    std::vector<ListedPath> paths;
    QString output; ///< "-": standard output
    bool isFolder; ///< it is a folder, with an index
    ReportIndex::Order order;
    TESSEL::ReadingLimits limits;
};

/// \throws UsageError
Request requestOf(const QCommandLineParser &parser)
{
    const QStringList arguments = parser.positionalArguments();
    const QString output = onlyValue(parser, OutputOption).value_or(StandardStream.toString());
    std::vector<ListedPath> paths = listedPaths(parser);
    const bool isOneFile = arguments.size() == 1 && !QFileInfo(arguments.constFirst()).isDir();
    const bool isFolder = !isOneFile || output.endsWith(QLatin1Char('/')) || QFileInfo(output).isDir();
    if (isFolder && output == StandardStream)
        throw UsageError{QStringLiteral("several documents need a folder to write to: -o OUT")};
    if (!isFolder && ReportOrder::isSet(parser))
        throw UsageError{QStringLiteral("--sort is for the index of a folder")};
    if (!isFolder && isSameFile(arguments.constFirst(), output))
        throw UsageError{QStringLiteral("the page would take the place of the document")};
    return {std::move(paths), output, isFolder, ReportOrder::of(parser), limitsOf(parser)};
}

/// Names for pages in one folder, each given once, whatever case matters there, and none that a document has.
class PageNames {
public:
    PageNames(const QString &folder, const std::vector<ListedPath> &documents)
    {
        const QString place = QFileInfo(folder).canonicalFilePath();
        for (const ListedPath &document : documents) {
            const QFileInfo file(document.path);
            if (document.kind == ListedPath::Kind::File && file.canonicalPath() == place)
                taken.insert(file.fileName().toLower());
        }
    }

    /// Whether a document has the name of the index.
    [[nodiscard]] bool isIndexTaken() const { return taken.contains(IndexName.toString()); }

    QString nameFor(const QString &path)
    {
        QString stem =
            path == StandardStream ? QStringLiteral("standard-input") : QFileInfo(path).completeBaseName();
        if (!PathEncoding::isUtf8(stem))
            stem = PathEncoding::shown(stem).replace(QLatin1Char('\\'), QLatin1Char('_'));
        QString name = stem + PageEnding.toString();
        int &number = numbers[stem.toLower()];
        while (name.toLower() == IndexName || taken.contains(name.toLower()))
            name = QStringLiteral("%1-%2").arg(stem, QString::number(++number + 1)) + PageEnding.toString();
        taken.insert(name.toLower());
        return name;
    }

private:
    QSet<QString> taken;
    QHash<QString, int> numbers; ///< how many have been tried behind a name
};

/// What is read from the file \a path. \throws DocumentError when it cannot be
struct Source {
    Document document;
    QByteArray text;
};

Source sourceOf(const QString &path, const TESSEL::ReadingLimits &limits)
{
    try {
        const InputFile::Content content = InputFile::read(path);
        return {Document::Read(content.bytes, QString(), limits), content.bytes};
    } catch (const InputFile::Error &error) {
        throw Inspection::DocumentError{QStringLiteral("cannot be read: ") + error.reason};
    }
}

/// The entry of a file that there is no page about.
ReportIndex::Entry entryOfUnreadable(const QString &name)
{
    ReportIndex::Entry entry;
    entry.name = name;
    entry.title = QStringLiteral("cannot be read");
    entry.errors = 1;
    return entry;
}

ExitStatus writePage(const QString &path, const QString &target, const TESSEL::ReadingLimits &limits,
                     const QString &link, ReportIndex *index)
{
    const QString name = PathEncoding::shown(path);
    try {
        const Source source = sourceOf(path, limits);
        const ExitStatus status = writeOutput(Report(source.document, name, source.text).GetHtml(), target);
        if (index)
            index->Add(ReportIndex::EntryOf(source.document, name, status == Good ? link : QString()));
        return std::max(status, source.document.IsAccepted() ? Good : Faulty);
    } catch (const Inspection::DocumentError &error) {
        complainAbout(path, error);
    } catch (const std::bad_alloc &) {
        complainAbout(path, {NotEnoughMemory.toString()});
    }
    if (index)
        index->Add(entryOfUnreadable(name));
    return Failed;
}

ExitStatus writeFolder(const Request &request)
{
    if (!QDir().mkpath(request.output)) {
        complainAbout(request.output,
                      {QStringLiteral("cannot be written: there is no such folder, and none can be made")});
        return Failed;
    }
    const QDir folder(request.output);
    PageNames names(request.output, request.paths);
    if (names.isIndexTaken()) {
        complainAbout(folder.filePath(IndexName.toString()),
                      {QStringLiteral("is one of the documents, and the list of all would take its place")});
        return Failed;
    }
    ReportIndex index;
    ExitStatus worst = Good;
    for (const ListedPath &listed : request.paths) {
        if (listed.kind == ListedPath::Kind::Skipped) {
            Console::complain(complaintLine(listed.path, std::nullopt, u"warning", listed.reason));
        } else if (listed.kind == ListedPath::Kind::Unreadable) {
            complainAbout(listed.path, {listed.reason});
            worst = Failed;
        } else {
            const QString name = names.nameFor(listed.path);
            const QString link = QString::fromLatin1(QUrl::toPercentEncoding(name));
            worst =
                std::max(worst, writePage(listed.path, folder.filePath(name), request.limits, link, &index));
        }
    }
    index.Sort(request.order);
    const QString path = folder.filePath(IndexName.toString());
    const ExitStatus status = writeOutput(index.GetHtml(), path);
    if (status == Good)
        Console::print(PathEncoding::shown(path));
    return std::max(worst, status);
}

ExitStatus run(const QCommandLineParser &parser)
{
    const Request request = requestOf(parser);
    return request.isFolder
        ? writeFolder(request)
        : writePage(request.paths.front().path, request.output, request.limits, QString(), nullptr);
}

} // namespace

const Command reportCommand{
    u"report",
    u"make pages about documents for people",
    u"Makes a page in HTML of each document: what it says, in words, tables and drawings, areas on a map, "
    u"and "
    u"everything that is wrong with it, beside what it is about. A document that is at fault gets a page, "
    u"too. "
    u"The pages need no other files, run no scripts and print well.\n"
    u"\n"
    u"The page of one FILE goes to standard output unless told otherwise. Of several files, or of the files "
    u"called *.xml in a folder, the pages are written to the folder OUT, which is made if there is none, "
    u"with "
    u"a list of all documents, index.html, whose name goes to standard output. --sort orders it by name, "
    u"kind, "
    u"state (the refused first), findings (the most first), author, time (the latest first) or resource.",
    {u"all pages are written", u"all pages are written, and a document is at fault",
     u"a file cannot be read or written"},
    u"kormak report -o pages --sort time jobs settings/workflow.xml",
    ManyPaths,
    options,
    run,
};
