#include "tools/InputFile.h"

#include <tools/Command.h>
#include <tools/PathEncoding.h>

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <system_error>

#ifdef Q_OS_UNIX
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace {

using InputFile::Content;
using InputFile::Error;
using InputFile::MostBytes;
using InputFile::State;

QString tooLarge(qint64 size)
{
    return QStringLiteral("it is too large: it has %1 bytes, and %2 are the most that can be read")
        .arg(size)
        .arg(MostBytes);
}

/// Reads on to the end with \a readSome(place, size), which gives the number of bytes read, or -1.
template <class ReadSome>
QByteArray readAll(qint64 expected, ReadSome readSome)
{
    constexpr qint64 LeastFree = 65536;
    QByteArray bytes;
    qint64 size = 0;
    qint64 room = std::min(expected + 1, MostBytes + 1); // one more, to see the end
    while (true) {
        room = std::max(room, std::min(size + std::max(size / 2, LeastFree), MostBytes + 1));
        bytes.resize(static_cast<decltype(bytes.size())>(room));
        while (size < room) {
            const qint64 some = readSome(bytes.data() + size, room - size);
            if (some < 0)
                throw Error{qt_error_string(errno)};
            if (some == 0) {
                bytes.resize(static_cast<decltype(bytes.size())>(size));
                return bytes;
            }
            size += some;
        }
        if (size > MostBytes)
            throw Error{
                QStringLiteral("it is too large: %1 bytes are the most that can be read").arg(MostBytes)};
    }
}

#ifdef Q_OS_UNIX

class Descriptor {
public:
    explicit Descriptor(int openFile) : number(openFile) { }
    ~Descriptor()
    {
        if (number > STDERR_FILENO)
            close(number);
    }
    Descriptor(const Descriptor &) = delete;
    Descriptor &operator=(const Descriptor &) = delete;

    const int number;
};

template <class Call>
auto uninterrupted(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

/// Waits for whoever writes to a pipe, which may be open in a way that does not wait by itself.
qint64 readSome(int file, char *place, qint64 size)
{
    constexpr qint64 Most = qint64{1} << 30; // some systems read no more at once
    while (true) {
        const qint64 some =
            uninterrupted([&] { return read(file, place, static_cast<std::size_t>(std::min(size, Most))); });
        pollfd change{file, POLLIN, 0};
        if (some >= 0 || errno != EAGAIN || uninterrupted([&change] { return poll(&change, 1, -1); }) < 0)
            return some;
    }
}

State stateOf(const struct stat &status)
{
#ifdef Q_OS_DARWIN
    const timespec &changed = status.st_mtimespec;
#else
    const timespec &changed = status.st_mtim;
#endif
    constexpr qint64 NanosecondsInSecond = 1'000'000'000;
    return {static_cast<quint64>(status.st_dev), static_cast<quint64>(status.st_ino),
            static_cast<qint64>(status.st_size),
            static_cast<qint64>(changed.tv_sec) * NanosecondsInSecond + static_cast<qint64>(changed.tv_nsec)};
}

/// Or open for nothing but writing, as main() leaves it then.
bool isInputClosed()
{
    const int flags = fcntl(STDIN_FILENO, F_GETFL);
    return flags < 0 || (flags & O_ACCMODE) == O_WRONLY;
}

bool isStandardInput(const struct stat &status)
{
    struct stat input { };
    return !isInputClosed() && fstat(STDIN_FILENO, &input) == 0 && status.st_dev == input.st_dev
        && status.st_ino == input.st_ino;
}

/// Whether a pipe has a name in a folder, and so can be opened without anybody at its other end.
bool isNamed(const QString &path, const struct stat &status)
{
    struct stat entry { };
    std::error_code error;
    const std::filesystem::path name = std::filesystem::canonical(PathEncoding::toNative(path), error);
    return !error && stat(name.c_str(), &entry) == 0 && entry.st_dev == status.st_dev
        && entry.st_ino == status.st_ino;
}

Content contentOf(int file, const struct stat &status)
{
    const qint64 size = S_ISREG(status.st_mode) ? static_cast<qint64>(status.st_size) : 0;
    if (size > MostBytes)
        throw Error{tooLarge(size)};
    return {readAll(size, [file](char *place, qint64 room) { return readSome(file, place, room); }),
            stateOf(status)};
}

/// Of a pipe that was opened without waiting for anybody at its other end.
Content contentOfPipe(int file, const QString &path, const struct stat &status)
{
    char first = 0;
    const qint64 some = uninterrupted([&] { return read(file, &first, 1); });
    if (some == 0 && isNamed(path, status))
        throw Error{QStringLiteral("it is a pipe that nobody writes to")};
    if (some == 0)
        return {};
    Content content = contentOf(file, status);
    if (some > 0)
        content.bytes.prepend(first);
    return content;
}

void refuseWhatIsNoText(const struct stat &status)
{
    if (S_ISDIR(status.st_mode))
        throw Error{QStringLiteral("it is a folder")};
    if (!S_ISREG(status.st_mode) && !S_ISFIFO(status.st_mode) && !isStandardInput(status))
        throw Error{QStringLiteral("it is a device")};
}

Content readFile(const QString &path)
{
    const QByteArray name = PathEncoding::encoded(path);
    struct stat status { };
    if (stat(name.constData(), &status) == 0) // to open some devices is to use them
        refuseWhatIsNoText(status);
    const Descriptor file(uninterrupted(
        [&name] { return open(name.constData(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC); }));
    if (file.number < 0 || fstat(file.number, &status) != 0)
        throw Error{qt_error_string(errno)};
    refuseWhatIsNoText(status);
    return S_ISFIFO(status.st_mode) ? contentOfPipe(file.number, path, status)
                                    : contentOf(file.number, status);
}

Content readStandardInput()
{
    if (isInputClosed())
        throw Error{QStringLiteral("standard input is closed")};
    struct stat status { };
    if (fstat(STDIN_FILENO, &status) != 0)
        throw Error{qt_error_string(errno)};
    return contentOf(STDIN_FILENO, status);
}

#else

Content contentOf(QFile &file)
{
    if (file.size() > MostBytes)
        throw Error{tooLarge(file.size())};
    Content content{
        readAll(file.size(), [&file](char *place, qint64 room) { return file.read(place, room); }),
        InputFile::stateOf(file.fileName())};
    if (file.error() != QFileDevice::NoError)
        throw Error{file.errorString()};
    return content;
}

Content readFile(const QString &path)
{
    const QFileInfo place(path);
    if (place.isDir())
        throw Error{QStringLiteral("it is a folder")};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        throw Error{file.errorString()};
    return contentOf(file);
}

Content readStandardInput()
{
    QFile file;
    if (!file.open(stdin, QIODevice::ReadOnly))
        throw Error{file.errorString()};
    return contentOf(file);
}

#endif

} // namespace

InputFile::Content InputFile::read(const QString &path)
{
    if (path.isEmpty())
        throw Error{QStringLiteral("No file name specified")};
    return path == StandardStream ? readStandardInput() : readFile(path);
}

InputFile::State InputFile::stateOf(const QString &path)
{
#ifdef Q_OS_UNIX
    struct stat status { };
    return stat(PathEncoding::encoded(path).constData(), &status) == 0 ? ::stateOf(status) : State();
#else
    const QFileInfo place(path);
    return place.exists()
        ? State{0, qHash(place.canonicalFilePath()), place.size(), place.lastModified().toMSecsSinceEpoch()}
        : State{};
#endif
}
