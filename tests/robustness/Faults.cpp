// What can go wrong beneath a program, for those that it is preloaded to. The environment tells what it is to
// be:
//   FAULT_ALLOCATION=N    the allocation number N fails, counted from 0 at the start of main()
//   FAULT_MARK=PATH       a file that is made when it does
//   FAULT_READ=N PATH     reading the file PATH fails behind its first N bytes
//   FAULT_CHANGE=PATH     when the file PATH has been read to its end, its first byte changes, but not its
//   time;
//                         or else, when there is a file PATH.new, that takes its place
#include <atomic>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <dlfcn.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

// glibc's own allocator.
extern "C" {
void *__libc_malloc(size_t size); // NOLINT
void *__libc_calloc(size_t count, size_t size); // NOLINT
void *__libc_realloc(void *block, size_t size); // NOLINT
}

namespace {

using Main = int (*)(int, char **, char **);

Main realMain = nullptr;
std::atomic<long> remaining{-1}; // allocations until one fails; negative: none does

bool failsNow()
{
    if (remaining.load() < 0 || remaining.fetch_sub(1) != 0)
        return false;
    remaining = -1;
    if (const char *mark = std::getenv("FAULT_MARK"))
        close(open(mark, O_WRONLY | O_CREAT, S_IRUSR | S_IWUSR));
    errno = ENOMEM;
    return true;
}

int mainWithFaults(int argc, char **argv, char **environment)
{
    if (const char *number = std::getenv("FAULT_ALLOCATION"))
        remaining = std::atol(number);
    return realMain(argc, argv, environment);
}

bool isFile(int descriptor, const char *path)
{
    struct stat opened { };
    struct stat named { };
    return fstat(descriptor, &opened) == 0 && stat(path, &named) == 0 && opened.st_dev == named.st_dev
        && opened.st_ino == named.st_ino;
}

void change(const char *path)
{
    char newPath[4096];
    std::snprintf(newPath, sizeof newPath, "%s.new", path);
    if (std::rename(newPath, path) == 0)
        return;
    const int descriptor = open(path, O_RDWR);
    struct stat before { };
    fstat(descriptor, &before);
    if (pwrite(descriptor, " ", 1, 0) != 1)
        std::abort();
    const timespec times[] = {before.st_atim, before.st_mtim};
    futimens(descriptor, times);
    close(descriptor);
}

ssize_t readOn(int descriptor, void *buffer, size_t size)
{
    static const auto read = reinterpret_cast<ssize_t (*)(int, void *, size_t)>(dlsym(RTLD_NEXT, "read"));
    return read(descriptor, buffer, size);
}

} // namespace

extern "C" {

// The declarations of glibc tell what compilers may rely on, and differ between versions.
#pragma GCC diagnostic ignored "-Wmissing-declarations"

void *malloc(size_t size)
{
    return failsNow() ? nullptr : __libc_malloc(size);
}

void *calloc(size_t count, size_t size)
{
    return failsNow() ? nullptr : __libc_calloc(count, size);
}

void *realloc(void *block, size_t size)
{
    return failsNow() ? nullptr : __libc_realloc(block, size);
}

ssize_t read(int descriptor, void *buffer, size_t size)
{
    static long long left = -1;
    static bool hasChanged = false;
    const char *fault = std::getenv("FAULT_READ");
    if (const char *path = fault ? std::strchr(fault, ' ') : nullptr; path && isFile(descriptor, path + 1)) {
        left = left < 0 ? std::atoll(fault) : left;
        if (left == 0) {
            errno = EIO;
            return -1;
        }
        size = left < static_cast<long long>(size) ? static_cast<size_t>(left) : size;
        const ssize_t some = readOn(descriptor, buffer, size);
        left -= some > 0 ? some : 0;
        return some;
    }
    const ssize_t some = readOn(descriptor, buffer, size);
    const char *path = std::getenv("FAULT_CHANGE");
    if (some == 0 && path && !hasChanged && isFile(descriptor, path)) {
        hasChanged = true;
        change(path);
    }
    return some;
}

int __libc_start_main(Main mainFunction, int argc, char **argv, void (*initialise)(), void (*finish)(),
                      void (*finishLoader)(), void *stackEnd)
{
    using Start = int (*)(Main, int, char **, void (*)(), void (*)(), void (*)(), void *);
    realMain = mainFunction;
    const auto start = reinterpret_cast<Start>(dlsym(RTLD_NEXT, "__libc_start_main"));
    return start(mainWithFaults, argc, argv, initialise, finish, finishLoader, stackEnd);
}
}
