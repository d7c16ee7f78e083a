#include "BentCalls.h"

#include <cerrno>
#include <cstdarg>
#include <cstdlib>
#include <initializer_list>
#include <new>

#include <dirent.h>
#include <dlfcn.h>
#include <fcntl.h>
#include <pthread.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>
#include <sys/types.h>
#include <unistd.h>

namespace tidlo {

Bends bends;

namespace {

using Call = Bends::Call;

/// The original of the function that is replaced here.
template <typename Function>
Function *next(Function *, const char *name)
{
    return reinterpret_cast<Function *>(dlsym(RTLD_NEXT, name));
}

/// Whether this call must fail; errno is then set.
bool isBent(Call call)
{
    thread_local std::array<int, static_cast<size_t>(Call::count)> made{};
    const auto index = static_cast<size_t>(call);
    const int error = bends.errors[index];
    if (error == 0)
        return false;
    if (bends.allowed == Bends::unlimited ? ++made[index] % bends.period != 0 : bends.allowed.fetch_sub(1) != 0)
        return false;
    errno = error;
    return true;
}

/// Counts \a left down; false if it was 0.
bool take(std::atomic<int> &left)
{
    return left == Bends::unlimited || left.fetch_sub(1) > 0;
}

struct ListedEntry // As the kernel lays it out.
{
    ino64_t inode;
    off64_t offset;
    unsigned short length;
    unsigned char type;
};

void hideKinds(char *bytes, long size)
{
    for (long at = 0; at < size;) {
        auto *entry = reinterpret_cast<ListedEntry *>(bytes + at);
        entry->type = DT_UNKNOWN;
        at += entry->length;
    }
}

void *allocated(size_t size)
{
    if (bends.allocations != Bends::unlimited) {
        const int left = bends.allocations.fetch_sub(1);
        if (left == 0 || (left < 0 && bends.staysFull))
            throw std::bad_alloc();
    }
    void *memory = std::malloc(size == 0 ? 1 : size);
    if (memory == nullptr)
        throw std::bad_alloc();
    return memory;
}

} // namespace

void Bends::bendEvery(std::initializer_list<Call> calls, int error)
{
    for (const Call call : calls)
        errors[static_cast<size_t>(call)] = error;
}

void Bends::straighten()
{
    for (std::atomic<int> &error : errors)
        error = 0;
    period = 2;
    allowed = unlimited;
    batches = unlimited;
    hidesKinds = false;
    hidesRoom = false;
    threads = unlimited;
    allocations = unlimited;
    staysFull = false;
    batchesRead = 0;
}

} // namespace tidlo

void *operator new(size_t size) // NOLINT: replaced only in this program.
{
    return tidlo::allocated(size);
}

void *operator new[](size_t size)
{
    return tidlo::allocated(size);
}

void operator delete(void *memory) noexcept
{
    std::free(memory);
}

void operator delete[](void *memory) noexcept
{
    std::free(memory);
}

void operator delete(void *memory, size_t) noexcept
{
    std::free(memory);
}

void operator delete[](void *memory, size_t) noexcept
{
    std::free(memory);
}

namespace tidlo {

extern "C" {

// Reads six arguments even if fewer are given, as the real function does; the address sanitizer would object.
__attribute__((no_sanitize_address)) long syscall(long number, ...) noexcept
{
    va_list list;
    va_start(list, number);
    std::array<long, 6> given{};
    for (long &argument : given)
        argument = va_arg(list, long);
    va_end(list);
    if (number == SYS_openat2 && isBent(Call::openat2))
        return -1;
    if (number == SYS_getdents64) {
        ++bends.batchesRead;
        if (isBent(Call::getdents))
            return -1;
        if (!take(bends.batches)) {
            errno = EIO;
            return -1;
        }
    }
    static const auto real = next(&syscall, "syscall");
    const long result = real(number, given[0], given[1], given[2], given[3], given[4], given[5]);
    if (number == SYS_getdents64 && bends.hidesKinds)
        hideKinds(reinterpret_cast<char *>(given[1]), result);
    return result;
}

int openat(int folder, const char *name, int flags, ...)
{
    va_list list;
    va_start(list, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(list, mode_t) : 0;
    va_end(list);
    static const auto real = next(&openat, "openat");
    return isBent(Call::openat) ? -1 : real(folder, name, flags, mode);
}

int open(const char *name, int flags, ...)
{
    va_list list;
    va_start(list, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(list, mode_t) : 0;
    va_end(list);
    static const auto real = next(&open, "open");
    return isBent(Call::open) ? -1 : real(name, flags, mode);
}

int statx(int folder, const char *name, int flags, unsigned wanted, struct statx *status) noexcept
{
    static const auto real = next(&statx, "statx");
    return isBent(Call::statx) ? -1 : real(folder, name, flags, wanted, status);
}

int fstat(int file, struct stat *status) noexcept
{
    static const auto real = next(&fstat, "fstat");
    return isBent(Call::fstat) ? -1 : real(file, status);
}

int faccessat(int folder, const char *name, int mode, int flags) noexcept
{
    static const auto real = next(&faccessat, "faccessat");
    return isBent(Call::faccessat) ? -1 : real(folder, name, mode, flags);
}

int statvfs(const char *name, struct statvfs *figures) noexcept
{
    static const auto real = next(&statvfs, "statvfs");
    if (isBent(Call::statvfs))
        return -1;
    const int result = real(name, figures);
    if (bends.hidesRoom) {
        figures->f_frsize = 4'096;
        figures->f_bfree = 2'000;
        figures->f_bavail = 1'000;
    }
    return result;
}

ssize_t sendfile(int to, int from, off_t *offset, size_t size) noexcept
{
    static const auto real = next(&sendfile, "sendfile");
    return isBent(Call::sendfile) ? -1 : real(to, from, offset, size);
}

int fchmod(int file, mode_t mode) noexcept
{
    static const auto real = next(&fchmod, "fchmod");
    return isBent(Call::fchmod) ? -1 : real(file, mode);
}

int utimensat(int folder, const char *name, const struct timespec times[2], int flags) noexcept
{
    static const auto real = next(&utimensat, "utimensat");
    return isBent(Call::utimensat) ? -1 : real(folder, name, times, flags);
}

ssize_t pwrite(int file, const void *bytes, size_t size, off_t at)
{
    static const auto real = next(&pwrite, "pwrite");
    return isBent(Call::pwrite) ? -1 : real(file, bytes, size, at);
}

int fsync(int file)
{
    static const auto real = next(&fsync, "fsync");
    return isBent(Call::fsync) ? -1 : real(file);
}

int pthread_create(pthread_t *thread, const pthread_attr_t *attributes, void *(*start)(void *), void *argument) noexcept
{
    static const auto real = next(&pthread_create, "pthread_create");
    return take(bends.threads) ? real(thread, attributes, start, argument) : EAGAIN;
}
}

} // namespace tidlo
