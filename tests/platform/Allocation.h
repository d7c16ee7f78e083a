#pragma once

#include "platform/DirectoryWalker.h"

namespace tidlo {

/// What a file of one byte takes on the disk, in bytes.
inline constexpr qint64 block = 4096;

/// The allocated size of what is at \a path, walked.
inline qint64 sizeOf(const FilePath &path)
{
    return DirectoryWalker().allocatedSizes({path}, {}).value(0);
}

} // namespace tidlo
