#include <tools/Command.h>
#include <tools/Console.h>
#include <tools/DocumentFile.h>

#include <QCommandLineParser>

#include <algorithm>

namespace {

void warnAbout(const QString &path, const Document &document)
{
    if (document.kind->lint)
        complainAbout(path, document, u"warning",
                      document.kind->lint(*document.object, XmlTree(document.text)));
}

ExitStatus checkFile(const QString &path)
{
    return onDocument(path, [&path](const Document &document) {
        checkDocument(document);
        warnAbout(path, document);
        Console::print(path + QStringLiteral(": ") + stateOf(document));
        return Good;
    });
}

ExitStatus run(const QCommandLineParser &parser)
{
    ExitStatus worst = Good;
    const QStringList paths = parser.positionalArguments();
    for (const QString &path : paths)
        worst = std::max(worst, checkFile(path));
    return worst;
}

} // namespace

const Command checkCommand{
    u"check",
    u"tell of each file what kind of document it is, and whether it is complete and right",
    u"Tells the kind of each document from its root element and whether it is complete. What is wrong\n"
    u"goes to standard error as FILE:LINE:COLUMN: error: MESSAGE, and what is suspicious about a document\n"
    u"that the library accepts as FILE:LINE:COLUMN: warning: MESSAGE. All files are gone through.\n"
    u"Exit status: 0 all are good, warnings or not, 1 a document is at fault, 2 a file cannot be read.",
    u"kormak check jobs/*.xml",
    ManyFiles,
    [] { return QList<QCommandLineOption>(); },
    run,
};
