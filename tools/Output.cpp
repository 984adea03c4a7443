#include "tools/Output.h"

#include <tools/Console.h>
#include <tools/DocumentFile.h>

#include <QFileInfo>
#include <QSaveFile>

QCommandLineOption outputOption()
{
    return {OutputOption.toString(), QStringLiteral("Write to the file OUT, not to standard output."),
            QStringLiteral("OUT")};
}

ExitStatus writeOutput(const QString &text, const QString &path)
{
    if (path == StandardStream) {
        Console::write(text);
        return Good;
    }
    if (const QFileInfo place(path); place.exists() && !place.isFile() && !place.isDir()) {
        complainAbout(path, {QStringLiteral("cannot be written: it is no file")});
        return Failed; // rather than put a file in its place
    }
    QSaveFile file(path);
    const QByteArray bytes = text.toUtf8();
    // Without the flush a full disk would go unnoticed, and the file be replaced by a part of the document.
    if (file.open(QIODevice::WriteOnly) && file.write(bytes) == bytes.size() && file.flush() && file.commit())
        return Good;
    complainAbout(path, {QStringLiteral("cannot be written: ") + file.errorString()});
    return Failed;
}
