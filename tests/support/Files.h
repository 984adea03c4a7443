// Files of the project and of tests.
#ifndef KORMAK_FILES_H
#define KORMAK_FILES_H

#include <QDir>
#include <QFile>
#include <QString>
#include <QStringList>

#include <stdexcept>

namespace TestSupport {

/// \throws std::runtime_error when the file cannot be read.
inline QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw std::runtime_error((path + ": " + file.errorString()).toStdString());
    return file.readAll();
}

/// The text of a file, whatever line ends the checkout has.
inline QString textOf(const QString &path)
{
    return QString::fromUtf8(bytesOf(path)).remove('\r');
}

/// Writes \a bytes to the file at \a path, which is returned.
/// \throws std::runtime_error when it cannot be written.
inline QString writtenFile(const QString &path, const QByteArray &bytes)
{
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size() || !file.flush())
        throw std::runtime_error((path + ": " + file.errorString()).toStdString());
    return path;
}

/// The names of the files in \a folder that match \a patterns, sorted.
inline QStringList namesIn(const QString &folder, const QStringList &patterns = {"*"})
{
    return QDir(folder).entryList(patterns, QDir::Files, QDir::Name);
}

/// The same, each with \a folder in front.
/// \throws std::runtime_error when there are none.
inline QStringList pathsIn(const QString &folder, const QStringList &patterns = {"*"})
{
    QStringList paths;
    for (const QString &name : namesIn(folder, patterns))
        paths << QDir(folder).filePath(name);
    if (paths.isEmpty())
        throw std::runtime_error((folder + " holds no " + patterns.join(", ")).toStdString());
    return paths;
}

} // namespace TestSupport

#endif
