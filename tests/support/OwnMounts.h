#pragma once

#include "model/FilePath.h"

#include <functional>

namespace tidlo {

// For tests on Linux.

/// Runs \a work, with its expectations, in a process and mount namespace of its own, and prints what it prints. Where
/// the kernel forbids that, the test is skipped aloud.
void inOwnMounts(const std::function<void()> &work);

/// For use in there: mounts an empty file system that lives in memory.
void mountMemory(const FilePath &folder, const char *options = "");

} // namespace tidlo
