#pragma once

#include "model/FilePath.h"
#include "platform/Descriptor.h"

#include <fcntl.h>

namespace tidlo {

/// A path as the *at() calls take it, whatever its length: what is beyond PATH_MAX is reached through an open folder.
class PathLocation final
{
public:
    /// Resolves as much of \a path as does not fit into one call, links followed as in any path. When that fails, or
    /// the path holds a NUL, the location is not valid and errno tells why.
    explicit PathLocation(const FilePath &path);

    bool isValid() const { return valid; }
    /// The folder that name() is relative to, AT_FDCWD for a path of ordinary length.
    int folder() const { return holder.isValid() ? holder.get() : AT_FDCWD; }
    const char *name() const { return rest.constData(); }

private:
    Descriptor holder;
    FilePath rest;
    bool valid = false;
};

} // namespace tidlo
