// Changes binary forms so that the fuzzer gets behind their checksum: one in four as they are, which leaves
// them damaged, one in four with the checksum put right, the others in the XML that they hold.
#include <tests/support/BinaryParts.h>

#include <cstddef>
#include <cstdint>
#include <cstring>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t *data, std::size_t size, std::size_t maximumSize);
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size, std::size_t maximumSize,
                                               unsigned int seed);

namespace {

using TestSupport::BinaryParts;

QByteArray mutated(QByteArray bytes, std::size_t maximumSize)
{
    const auto size = static_cast<std::size_t>(bytes.size());
    bytes.resize(static_cast<int>(std::max(maximumSize, size)));
    const std::size_t newSize = LLVMFuzzerMutate(reinterpret_cast<std::uint8_t *>(bytes.data()), size,
                                                 static_cast<std::size_t>(bytes.size()));
    bytes.resize(static_cast<int>(newSize));
    return bytes;
}

QByteArray mutatedForm(const QByteArray &bytes, std::size_t maximumSize, unsigned int seed)
{
    const unsigned int choice = seed % 4;
    auto parts = BinaryParts::of(bytes);
    if (choice == 0 || !parts)
        return mutated(bytes, maximumSize);
    const auto xml = parts->text();
    if (choice == 1 || !xml) {
        parts = BinaryParts::of(mutated(bytes, maximumSize));
        return parts ? parts->sealed() : bytes;
    }
    const QByteArray newXml = mutated(*xml, maximumSize - BinaryParts::HeadSize);
    const bool compress = choice == 2;
    parts->payload = compress ? qCompress(newXml) : newXml;
    parts->start[BinaryParts::StartSize - 1] = compress ? BinaryParts::Compressed : 0;
    return parts->sealed();
}

} // namespace

std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size, std::size_t maximumSize,
                                    unsigned int seed)
{
    const QByteArray bytes(reinterpret_cast<const char *>(data), static_cast<int>(size));
    QByteArray form = mutatedForm(bytes, maximumSize, seed);
    form.truncate(static_cast<int>(maximumSize));
    std::memcpy(data, form.constData(), static_cast<std::size_t>(form.size()));
    return static_cast<std::size_t>(form.size());
}
