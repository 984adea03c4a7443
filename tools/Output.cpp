#include "tools/Output.h"

#include <tools/Console.h>
#include <tools/Options.h>
#include <tools/PathEncoding.h>

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QStringList>

#ifdef Q_OS_UNIX
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

#ifdef Q_OS_UNIX

/// Gives \a file, which is to take the place of the file at \a path, the owner, the group and the mode of
/// that. What is not kept is told as warnings.
QStringList takeOver(QSaveFile &file, const QString &path)
{
    struct stat status { };
    if (stat(QFile::encodeName(path).constData(), &status) != 0)
        return {};
    QStringList warnings;
    const int handle = file.handle();
    const auto anyone = static_cast<uid_t>(-1);
    const bool hasOwner = fchown(handle, status.st_uid, status.st_gid) == 0;
    const bool hasGroup = hasOwner || fchown(handle, anyone, status.st_gid) == 0;
    constexpr mode_t AllBits = 07777;
    constexpr mode_t AccessBits = 0777;
    constexpr mode_t GroupBits = 0070;
    constexpr unsigned BitsOfClass = 3;
    mode_t mode = status.st_mode & (hasOwner ? AllBits : AccessBits);
    if (!hasGroup) // what the group may do is not for another group
        mode &= ~GroupBits | (mode << BitsOfClass);
    if (!hasOwner) {
        warnings += hasGroup ? QStringLiteral("its owner is not kept")
                             : QStringLiteral("its owner and group are not kept");
    }
    if (fchmod(handle, mode) != 0)
        warnings += QStringLiteral("its mode is not kept");
    if (status.st_nlink > 1) {
        warnings +=
            QStringLiteral("it has other names (hard links: %1 in all), which still stand for what it was")
                .arg(static_cast<qulonglong>(status.st_nlink));
    }
    return warnings;
}

#else

QStringList takeOver(QSaveFile & /*file*/, const QString & /*path*/)
{
    return {};
}

#endif

/// Whether the file at \a path is no longer what \a source was read from.
bool hasChanged(const QString &path, const SourceText &source)
{
    try {
        const SourceText now = readText(path);
        return !(now.source == source.source) || now.text != source.text;
    } catch (const KORMAK::Inspection::DocumentError &) {
        return true;
    }
}

} // namespace

QCommandLineOption outputOption()
{
    return optionCalled(OutputOption, QStringLiteral("Write to the file OUT, not to standard output."),
                        u"OUT");
}

ExitStatus writeOutput(const QByteArray &text, const QString &path, const SourceText *source)
{
    if (path == StandardStream) {
        Console::writeBytes(text);
        return Good;
    }
    const auto fail = [&path](const QString &reason) {
        complainAbout(path, {QStringLiteral("cannot be written: ") + reason});
        return Failed;
    };
    if (!PathEncoding::isUtf8(path)) // Qt would take another name
        return fail(QStringLiteral("its name is not UTF-8"));
    if (const QFileInfo place(path); place.exists() && !place.isFile() && !place.isDir())
        return fail(QStringLiteral("it is no file")); // rather than put a file in its place
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return fail(file.errorString());
    const QStringList warnings = takeOver(file, path);
    // Without the flush a full disk would go unnoticed, and the file be replaced by a part of the document.
    if (file.write(text) != text.size() || !file.flush())
        return fail(file.errorString());
    if (source && hasChanged(path, *source))
        return fail(QStringLiteral("it has changed since it was read"));
    if (!file.commit())
        return fail(file.errorString());
    for (const QString &warning : warnings)
        Console::complain(complaintLine(path, std::nullopt, u"warning", warning));
    return Good;
}
