// The fuzzer of FUZZ_TARGET. A property that does not hold ends it by an exception that nobody catches, with
// the message and the input.
#include <fuzz/Targets.h>

#include <cstddef>
#include <cstdint>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size);

int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const Fuzz::Check check = Fuzz::findTarget(FUZZ_TARGET);
    check(QByteArray(reinterpret_cast<const char *>(data), static_cast<int>(size)));
    return 0;
}
