#pragma once

#include "platform/Paths.h"
#include "scanner/ScanContext.h"

#include <span>

namespace tidlo {

/// Those of the \a relative paths that exist beneath the home folder, as absolute paths in the same order.
inline QList<FilePath> existingPaths(const ScanContext &context, std::span<const char *const> relative)
{
    QList<FilePath> paths;
    for (const char *path : relative) {
        const FilePath absolute = joined(context.home, path);
        if (context.files.fileExists(absolute))
            paths.append(absolute);
    }
    return paths;
}

} // namespace tidlo
