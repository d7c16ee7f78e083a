#pragma once

#include "platform/Descriptor.h"

#include <cerrno>
#include <chrono>
#include <thread>

#include <fcntl.h>
#include <sys/file.h>

namespace tidlo {

/// A lock on a folder. While it is held, no other program that uses this lock changes what it guards. If the program is
/// killed, the system releases the lock.
class FolderLock final
{
public:
    explicit FolderLock(const FilePath &folder)
        : descriptor(::open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        constexpr int tries = 100; // One second: a program that holds it longer is stopped or broken.
        for (int left = tries; left > 0 && !isFree(); --left)
            std::this_thread::sleep_for(std::chrono::milliseconds(10));
    }

    /// Whether it was taken in time. True where the system has no such lock.
    bool isHeld() const { return !isMissed; }

private:
    bool isFree()
    {
        isMissed = descriptor.isValid() && flock(descriptor.get(), LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
        return !isMissed;
    }

    const Descriptor descriptor;
    bool isMissed = false;
};

} // namespace tidlo
