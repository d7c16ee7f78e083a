#pragma once

#include <cstdio>
#include <functional>

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/statvfs.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace tidlo {

/// Every system call of a move to the Trash, or back, so that a test can make each of them fail. They have the names
/// and behaviour of the manual: on failure they return a negative number and set errno.
struct SystemCalls
{
    std::function<int(int folder, const char *name, int flags, mode_t mode)> openat =
        [](int folder, const char *name, int flags, mode_t mode) { return ::openat(folder, name, flags, mode); };
    std::function<int(int folder, const char *name, open_how *how, size_t size)> openat2 =
        [](int folder, const char *name, open_how *how, size_t size) {
            return static_cast<int>(::syscall(SYS_openat2, folder, name, how, size));
        };
    std::function<int(int folder, const char *name, mode_t mode)> mkdirat = ::mkdirat;
    std::function<int(int folder, const char *name, int flags, unsigned wanted, struct statx *status)> statx = ::statx;
    std::function<int(int file, struct statvfs *status)> fstatvfs = ::fstatvfs;
    std::function<ssize_t(int folder, const char *name, char *target, size_t size)> readlinkat = ::readlinkat;
    std::function<ssize_t(int file, void *bytes, size_t size)> read = ::read;
    std::function<ssize_t(int file, const void *bytes, size_t size, off_t at)> pwrite = ::pwrite;
    std::function<int(int file)> fsync = ::fsync;
    std::function<int(int file)> close = ::close;
    std::function<int(int folder, const char *name, int newFolder, const char *newName, unsigned flags)> renameat2 =
        ::renameat2;
    std::function<int(int folder, const char *name, int flags)> unlinkat = ::unlinkat;
};

/// The flags to open a folder that is held but not read.
constexpr int asFolder = O_PATH | O_DIRECTORY | O_CLOEXEC;

/// The same \a calls, each repeated when a signal interrupted it, except close, which closes even then.
SystemCalls uninterrupted(SystemCalls calls);

} // namespace tidlo
