#pragma once

#include "platform/FileManager.h"
#include "platform/Paths.h"

#include <span>

namespace tidlo {

/// Those of the \a relative paths that exist beneath \a home, absolute and in their order.
inline QList<FilePath> existingPaths(const FileManager &files, const FilePath &home,
                                     std::span<const char *const> relative)
{
    QList<FilePath> paths;
    for (const char *path : relative) {
        const FilePath absolute = joined(home, path);
        if (files.fileExists(absolute))
            paths.append(absolute);
    }
    return paths;
}

} // namespace tidlo
