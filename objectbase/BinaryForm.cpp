#include "objectbase/BinaryForm_p.h"

#include <objectbase/Constants_p.h>
#include <objectbase/QtCompat_p.h>

#include <QCryptographicHash>
#include <QDataStream>
#include <QtEndian>

#include <algorithm>
#include <array>
#include <limits>

namespace TESSEL::BinaryForm {

namespace {

[[maybe_unused]] constexpr auto LogLevels = LogLevelNames;

constexpr quint32 Magic = 0x54534C42; // "TSLB"
constexpr quint16 FormVersion = 1;
constexpr quint16 FlagCompressed = 1;
constexpr int ChecksumSize = 32; // SHA-256
constexpr qint64 MostToCompress = std::numeric_limits<int>::max(); // qCompress() tells the size in 32 bits
constexpr int MaximumCompressionRatio = 1100; // deflate cannot reach it

// All numbers are big-endian; the checksum covers the fixed numbers, the name and the payload.
struct Header {
    quint32 magic = Magic;
    quint16 version = FormVersion;
    quint16 flags = 0;
    quint32 nameSize = 0;
    quint32 payloadSize = 0;

    static constexpr int Size = 4 + 2 + 2 + 4 + 4;

    [[nodiscard]] QByteArray toBytes() const
    {
        QByteArray bytes(Size, Qt::Uninitialized);
        char *out = bytes.data();
        qToBigEndian(magic, out);
        qToBigEndian(version, out + 4);
        qToBigEndian(flags, out + 6);
        qToBigEndian(nameSize, out + 8);
        qToBigEndian(payloadSize, out + 12);
        return bytes;
    }

    static Header fromBytes(const QByteArray &bytes)
    {
        const char *in = bytes.constData();
        return {qFromBigEndian<quint32>(in), qFromBigEndian<quint16>(in + 4), qFromBigEndian<quint16>(in + 6),
                qFromBigEndian<quint32>(in + 8), qFromBigEndian<quint32>(in + 12)};
    }
};

QByteArray checksum(const QByteArray &header, const QByteArray &name, const QByteArray &payload)
{
    QCryptographicHash hash(QCryptographicHash::Sha256);
    hash.addData(header);
    hash.addData(name);
    hash.addData(payload);
    return hash.result();
}

/// Exactly \a size bytes. Read in steps, so that a damaged size costs no more memory than there are data.
std::optional<QByteArray> take(QDataStream &stream, quint32 size)
{
    constexpr quint32 Step = 1U << 20U;
    QByteArray bytes;
    while (size > 0) {
        const int wanted = static_cast<int>(std::min(size, Step));
        const auto filled = bytes.size();
        bytes.resize(filled + wanted);
        if (stream.readRawData(bytes.data() + filled, wanted) != wanted)
            return std::nullopt;
        size -= static_cast<quint32>(wanted);
    }
    return bytes;
}

/// Whether \a size bytes may come of the compressed \a payload.
bool isWithin(const ReadingLimits &limits, qint64 size, const QByteArray &payload)
{
    return size <= limits.GetExpandedBytes() || size <= limits.GetExpandedFactor() * qint64(payload.size());
}

/// qCompress() puts the size of the text in front; it must be a possible one, and one that is allowed, before
/// that much memory is taken.
std::optional<QByteArray> uncompress(const QByteArray &payload, const ReadingLimits &limits)
{
    if (payload.size() < 4)
        return std::nullopt;
    const qint64 size = qFromBigEndian<quint32>(payload.constData());
    if (size > qint64(payload.size()) * MaximumCompressionRatio || size > MostBytes
        || !isWithin(limits, size, payload))
        return std::nullopt;
    const QByteArray text = qUncompress(payload);
    if (text.size() != size)
        return std::nullopt;
    return text;
}

} // namespace

std::optional<QByteArray> pack(const QString &objectName, const QString &xml, int level)
{
    const auto name = encodeUtf8(objectName);
    const auto text = encodeUtf8(xml);
    if (!name || !text)
        return std::nullopt;
    QByteArray payload = *text;
    Header header;
    if (level != 0 && text->size() <= MostToCompress) {
        const QByteArray compressed = qCompress(payload, std::clamp(level, -1, 9));
        if (isWithin(ReadingLimits(), text->size(), compressed)) {
            payload = compressed;
            header.flags = FlagCompressed;
        }
    }
    constexpr qint64 Most = std::numeric_limits<int>::max();
    constexpr qint64 HeadSize = Header::Size + ChecksumSize;
    if (payload.size() > Most || name->size() > Most
        || HeadSize + name->size() + payload.size() > std::numeric_limits<TextSize>::max())
        return std::nullopt;
    header.nameSize = static_cast<quint32>(name->size());
    header.payloadSize = static_cast<quint32>(payload.size());
    const QByteArray bytes = header.toBytes();
    return bytes + checksum(bytes, *name, payload) + *name + payload;
}

std::optional<QString> unpack(QDataStream &stream, const QString &objectName, const ReadingLimits &limits)
{
    const auto bytes = take(stream, Header::Size);
    if (!bytes)
        return std::nullopt;
    const Header header = Header::fromBytes(*bytes);
    const QByteArray expectedName = objectName.toUtf8();
    if (header.magic != Magic || header.version != FormVersion || (header.flags & ~FlagCompressed) != 0
        || header.nameSize != static_cast<quint64>(expectedName.size())
        || header.payloadSize > static_cast<quint32>(std::numeric_limits<int>::max()))
        return std::nullopt;

    const auto sum = take(stream, ChecksumSize);
    const auto name = take(stream, header.nameSize);
    const auto payload = take(stream, header.payloadSize);
    if (!sum || !name || !payload || *name != expectedName || *sum != checksum(*bytes, *name, *payload))
        return std::nullopt;
    const auto text = (header.flags & FlagCompressed) != 0 ? uncompress(*payload, limits) : payload;
    return text && text->size() <= MostBytes ? std::optional(decodeUtf8(*text)) : std::nullopt;
}

} // namespace TESSEL::BinaryForm
