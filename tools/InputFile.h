// Reading files that need not be what they seem: all that is in one, or why there is nothing to be had from
// it.
#ifndef KORMAK_TOOLS_INPUTFILE_H
#define KORMAK_TOOLS_INPUTFILE_H

#include <QByteArray>
#include <QString>

#include <limits>

namespace InputFile {

/// More than Qt can hold in one text, or tell a place in.
inline constexpr qint64 MostBytes = std::numeric_limits<qint32>::max() - 4096;

/// Why a file cannot be read.
struct Error {
    QString reason;
};

/// What tells a file from another one that has come to bear its name, and from what it was before.
struct State {
    quint64 device = 0;
    quint64 number = 0;
    qint64 size = -1;
    qint64 changed = 0; ///< in ns since 1970

    [[nodiscard]] bool operator==(const State &other) const
    {
        return isSameFile(other) && size == other.size && changed == other.changed;
    }
    [[nodiscard]] bool isSameFile(const State &other) const
    {
        return device == other.device && number == other.number;
    }
};

struct Content {
    QByteArray bytes;
    State state; ///< before they were read
};

/// All bytes of the file \a path, "-" being standard input. Devices are refused but for standard input, and
/// so is a named pipe that nobody has opened to write to. \throws Error, std::bad_alloc
[[nodiscard]] Content read(const QString &path);

/// Of what \a path leads to; the default when there is nothing or no telling.
[[nodiscard]] State stateOf(const QString &path);

} // namespace InputFile

#endif
