// The layout of the binary forms, told independently of the library: fixed numbers, checksum, name, payload.
#ifndef KORMAK_BINARYPARTS_H
#define KORMAK_BINARYPARTS_H

#include <QByteArray>
#include <QCryptographicHash>
#include <QtEndian>

#include <algorithm>
#include <optional>

namespace TestSupport {

struct BinaryParts {
    QByteArray start; ///< magic, version and flags
    QByteArray checksum;
    QByteArray name;
    QByteArray payload;

    static constexpr int StartSize = 8;
    static constexpr int NumbersSize = 16; ///< with the sizes of name and payload
    static constexpr int ChecksumSize = 32;
    static constexpr int HeadSize = NumbersSize + ChecksumSize;
    static constexpr quint8 Compressed = 1;

    /// What forms start with, up to the flags.
    static QByteArray firstVersion() { return {"TSLB\0\1\0", StartSize - 1}; }

    /// The parts of the form that \a bytes begin with, sizes being cut to what there is; nothing when there
    /// are too few bytes for a form.
    static std::optional<BinaryParts> of(const QByteArray &bytes)
    {
        if (bytes.size() < HeadSize)
            return std::nullopt;
        const auto size = [&bytes](int position, qint64 most) {
            return static_cast<int>(
                std::min<qint64>(qFromBigEndian<quint32>(bytes.constData() + position), most));
        };
        const int nameSize = size(StartSize, bytes.size() - HeadSize);
        const int payloadSize = size(StartSize + 4, bytes.size() - HeadSize - nameSize);
        return BinaryParts{bytes.left(StartSize), bytes.mid(NumbersSize, ChecksumSize),
                           bytes.mid(HeadSize, nameSize), bytes.mid(HeadSize + nameSize, payloadSize)};
    }

    [[nodiscard]] QByteArray numbers() const
    {
        QByteArray sizes(NumbersSize - StartSize, '\0');
        qToBigEndian(static_cast<quint32>(name.size()), sizes.data());
        qToBigEndian(static_cast<quint32>(payload.size()), sizes.data() + 4);
        return start + sizes;
    }

    [[nodiscard]] QByteArray rightChecksum() const
    {
        return QCryptographicHash::hash(numbers() + name + payload, QCryptographicHash::Sha256);
    }

    /// The form with sizes and a checksum that are right.
    [[nodiscard]] QByteArray sealed() const { return numbers() + rightChecksum() + name + payload; }

    [[nodiscard]] bool isCompressed() const { return (start.back() & Compressed) != 0; }

    /// The text in it, unless it cannot be uncompressed to what it claims to be.
    [[nodiscard]] std::optional<QByteArray> text() const
    {
        constexpr qint64 MostCompression = 1100; // keeps a false claim from taking memory
        if (!isCompressed())
            return payload;
        const qint64 claim = payload.size() < 4 ? -1 : qFromBigEndian<quint32>(payload.constData());
        constexpr qint64 MostBytes = 6'291'456; // of forms that grow more than six times
        constexpr qint64 MostGrowth = 6;
        if (claim < 0 || claim > payload.size() * MostCompression
            || (claim > MostBytes && claim > payload.size() * MostGrowth))
            return std::nullopt;
        const QByteArray uncompressed = qUncompress(payload);
        return uncompressed.size() == claim ? std::optional(uncompressed) : std::nullopt;
    }
};

/// A binary form of an object called \a name, right in all that it says of itself.
inline QByteArray binaryForm(const QByteArray &name, const QByteArray &payload, quint8 flags = 0)
{
    return BinaryParts{BinaryParts::firstVersion() + static_cast<char>(flags), {}, name, payload}.sealed();
}

} // namespace TestSupport

#endif
