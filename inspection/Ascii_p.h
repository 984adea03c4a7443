// Nearly all of every document is ASCII: what has to tell its bytes from the parts of longer characters
// passes over most of them eight at a time.
#ifndef KORMAK_INSPECTION_ASCII_P_H
#define KORMAK_INSPECTION_ASCII_P_H

#include <QByteArray>

#include <cstring>

namespace KORMAK::Inspection {

/// A number of bytes from \a begin, before \a end, that are ASCII: all but at most the last seven of them.
[[nodiscard]] inline qsizetype asciiLength(const QByteArray &bytes, qsizetype begin, qsizetype end)
{
    constexpr quint64 UpperBits = 0x8080808080808080;
    qsizetype at = begin;
    for (quint64 eight = 0; end - at >= qsizetype{sizeof eight}; at += qsizetype{sizeof eight}) {
        std::memcpy(&eight, bytes.constData() + at, sizeof eight);
        if ((eight & UpperBits) != 0)
            break;
    }
    return at - begin;
}

} // namespace KORMAK::Inspection

#endif
