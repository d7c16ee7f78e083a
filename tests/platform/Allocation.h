#pragma once

#include "platform/DirectoryWalker.h"

namespace tidlo {

/// The bytes that a file of one byte takes on the disk.
inline constexpr qint64 block = 4096;

/// The allocated size of \a path and everything in it.
inline qint64 sizeOf(const FilePath &path)
{
    return DirectoryWalker().allocatedSizes({path}, {}).value(0);
}

} // namespace tidlo
