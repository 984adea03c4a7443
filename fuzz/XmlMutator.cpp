// Changes documents as such, every second time, so that the fuzzer gets behind what only well-formed ones
// reach.
#include <fuzz/XmlMutations.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t *data, std::size_t size, std::size_t maximumSize);
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size, std::size_t maximumSize,
                                               unsigned int seed);

std::size_t LLVMFuzzerCustomMutator(std::uint8_t *data, std::size_t size, std::size_t maximumSize,
                                    unsigned int seed)
{
    if (seed % 2 == 0)
        return LLVMFuzzerMutate(data, size, maximumSize);
    constexpr auto Mutations = static_cast<unsigned int>(Fuzz::XmlMutation::Last) + 1;
    const auto mutation = static_cast<Fuzz::XmlMutation>(seed / 2 % Mutations);
    const QByteArray xml(reinterpret_cast<const char *>(data), static_cast<int>(size));
    const QByteArray changed = Fuzz::mutated(xml, mutation, seed / 2 / Mutations);
    const auto newSize = static_cast<std::size_t>(changed.size());
    if (changed == xml || newSize > maximumSize)
        return LLVMFuzzerMutate(data, size, maximumSize);
    std::memcpy(data, changed.constData(), newSize);
    return newSize;
}
