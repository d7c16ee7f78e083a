#include "scanner/BrokenSystem.h"

#include "platform/Paths.h"

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdarg>
#include <cstdlib>
#include <memory>

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/statfs.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>

// The names that the linker uses.
extern "C" {
int __real_openat(int folder, const char *name, int flags, ...);
int __real_statx(int folder, const char *name, int flags, unsigned mask, struct statx *status);
long __real_syscall(long number, ...);
int __real_faccessat(int folder, const char *name, int mode, int flags);
ssize_t __real_readlink(const char *path, char *target, size_t size);
int __real_statvfs(const char *path, struct statvfs *status);
int __real_statfs(const char *path, struct statfs *status);
}

namespace tidlo {

namespace {

std::atomic<BrokenSystem *> current = nullptr;

FilePath openAt(int descriptor)
{
    char target[PATH_MAX];
    const FilePath entry = "/proc/self/fd/" + FilePath::number(descriptor);
    const ssize_t size = __real_readlink(entry.constData(), target, sizeof target);
    return size < 0 ? FilePath() : FilePath(target, size);
}

FilePath resolvedPath(const FilePath &path)
{
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(path.constData(), nullptr), &std::free);
    return real ? FilePath(real.get()) : path;
}

/// The path that a call names.
FilePath given(int folder, const char *name)
{
    if (*name == '/')
        return name;
    const FilePath start = folder == AT_FDCWD ? FilePath(".") : openAt(folder);
    return *name == '\0' ? start : joined(start, name);
}

/// Whether a call should be made; otherwise errno is set to its failure.
bool isMade(SystemCall call, int folder, const char *name, bool followsLink)
{
    BrokenSystem *broken = current;
    const int error = broken != nullptr ? broken->errorOf(call, folder, name, followsLink) : 0;
    if (error != 0)
        errno = error;
    return error == 0;
}

} // namespace

BrokenSystem::BrokenSystem(FilePath home, Breakage breakage)
    : home(std::move(home))
    , breakage(std::move(breakage))
{
    current = this;
}

BrokenSystem::~BrokenSystem()
{
    current = nullptr;
}

/// The place that a path leads to. The path of an open folder contains no links.
FilePath BrokenSystem::placeOf(const FilePath &path, bool isRelative, bool followsLink)
{
    if (breakage.entries.empty())
        return path;
    const auto resolved = [this](const FilePath &one) {
        const auto found = places.find(one);
        return found != places.end() ? found->second : places.emplace(one, resolvedPath(one)).first->second;
    };
    if (followsLink)
        return resolved(path);
    const qsizetype slash = path.lastIndexOf('/');
    return isRelative || slash <= 0 ? path : joined(resolved(path.left(slash)), path.mid(slash + 1));
}

int BrokenSystem::errorOf(SystemCall call, int folder, const char *name, bool followsLink)
{
    const FilePath path = given(folder, name);
    const std::lock_guard lock(mutex);
    const FilePath place = placeOf(path, folder != AT_FDCWD, followsLink);
    if (!isSameOrWithin(path, home) && !isSameOrWithin(place, home))
        return 0;
    int error = breakage.call == count ? breakage.errorOfCall : 0;
    ++count;
    askedCalls.emplace(path, call);
    for (const auto &[entry, itsError] : breakage.entries) {
        const bool isMeant = breakage.only ? call == breakage.only && (path == entry || place == entry)
                                           : isSameOrWithin(path, entry) || isSameOrWithin(place, entry);
        if (error == 0 && isMeant)
            error = itsError;
    }
    if (error != 0)
        refusedCalls[{path, call}] = error;
    return error;
}

} // namespace tidlo

using tidlo::isMade;
using tidlo::SystemCall;

extern "C" {

int __wrap_openat(int folder, const char *name, int flags, ...)
{
    va_list more;
    va_start(more, flags);
    const mode_t mode = (flags & O_CREAT) != 0 ? va_arg(more, mode_t) : 0;
    va_end(more);
    return isMade(SystemCall::open, folder, name, (flags & O_NOFOLLOW) == 0) ? __real_openat(folder, name, flags, mode)
                                                                             : -1;
}

int __wrap_statx(int folder, const char *name, int flags, unsigned mask, struct statx *status)
{
    return isMade(SystemCall::status, folder, name, (flags & AT_SYMLINK_NOFOLLOW) == 0)
               ? __real_statx(folder, name, flags, mask, status)
               : -1;
}

/// Only for calls without a function in the C library.
long __wrap_syscall(long number, ...)
{
    const int count = number == SYS_openat2 ? 4 : number == SYS_getdents64 ? 3 : 0;
    if (count == 0)
        std::abort(); // The number of its arguments is unknown.
    va_list more;
    va_start(more, number);
    std::array<long, 4> given{};
    for (int at = 0; at < count; ++at)
        given[at] = va_arg(more, long);
    va_end(more);
    const auto folder = static_cast<int>(given[0]);
    const bool isDone = number == SYS_openat2
                            ? isMade(SystemCall::open, folder, reinterpret_cast<const char *>(given[1]), false)
                            : isMade(SystemCall::list, folder, "", false);
    return isDone ? __real_syscall(number, given[0], given[1], given[2], given[3]) : -1;
}

int __wrap_faccessat(int folder, const char *name, int mode, int flags)
{
    return isMade(SystemCall::exists, folder, name, (flags & AT_SYMLINK_NOFOLLOW) == 0)
               ? __real_faccessat(folder, name, mode, flags)
               : -1;
}

ssize_t __wrap_readlink(const char *path, char *target, size_t size)
{
    return isMade(SystemCall::readLink, AT_FDCWD, path, false) ? __real_readlink(path, target, size) : -1;
}

int __wrap_statvfs(const char *path, struct statvfs *status)
{
    return isMade(SystemCall::capacity, AT_FDCWD, path, true) ? __real_statvfs(path, status) : -1;
}

int __wrap_statfs(const char *path, struct statfs *status)
{
    return isMade(SystemCall::capacity, AT_FDCWD, path, true) ? __real_statfs(path, status) : -1;
}
}
