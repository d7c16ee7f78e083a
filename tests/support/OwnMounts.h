#pragma once

#include "model/FilePath.h"

#include <functional>

namespace tidlo {

// For tests on Linux.

/// Runs \a work, with its expectations, in a process and mount namespace of its own, and prints its output. If the
/// kernel forbids that, the test is skipped with a message.
void inOwnMounts(const std::function<void()> &work);

/// For use in \a work: mounts an empty file system in memory.
void mountMemory(const FilePath &folder, const char *options = "");

} // namespace tidlo
