#include "Allocations.h"

#include <cerrno>
#include <cstddef>
#include <cstdlib>
#include <malloc.h>

// The names under which the C library of GNU keeps its own.
extern "C" {
void *__libc_malloc(std::size_t size);
void *__libc_calloc(std::size_t count, std::size_t size);
void *__libc_realloc(void *block, std::size_t size);
void *__libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void *block);
}

namespace {

thread_local Allocations::Counts counts;

void *given(void *block)
{
    if (block) {
        ++counts.taken;
        ++counts.held;
        counts.bytes += static_cast<long long>(malloc_usable_size(block));
    }
    return block;
}

void givenBack(void *block)
{
    if (block) {
        --counts.held;
        counts.bytes -= static_cast<long long>(malloc_usable_size(block));
    }
}

} // namespace

Allocations::Counts Allocations::now()
{
    return counts;
}

extern "C" {

void *malloc(std::size_t size)
{
    return given(__libc_malloc(size));
}

void *calloc(std::size_t count, std::size_t size)
{
    return given(__libc_calloc(count, size));
}

void *realloc(void *block, std::size_t size)
{
    const auto before = static_cast<long long>(malloc_usable_size(block));
    void *moved = __libc_realloc(block, size);
    if (block && (moved || size == 0)) {
        --counts.held;
        counts.bytes -= before;
    }
    return given(moved);
}

void *memalign(std::size_t alignment, std::size_t size)
{
    return given(__libc_memalign(alignment, size));
}

void *aligned_alloc(std::size_t alignment, std::size_t size)
{
    return memalign(alignment, size);
}

int posix_memalign(void **block, std::size_t alignment, std::size_t size)
{
    *block = memalign(alignment, size);
    return *block ? 0 : ENOMEM;
}

void free(void *block)
{
    givenBack(block);
    __libc_free(block);
}
}
