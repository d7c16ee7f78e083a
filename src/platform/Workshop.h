#pragma once

#include "model/FilePath.h"
#include "platform/Descriptor.h"
#include "platform/OrError.h"

#include <vector>

namespace tidlo {

/// A hidden folder beside a destination, in which a placement makes its copy and keeps what it replaces. It is locked
/// for as long as this object exists, so that no other placement takes it for one that was left over.
class Workshop final
{
public:
    /// Makes an empty one.
    static OrError<Workshop> make(const FilePath &destination);

    /// Those that earlier placements left beside \a destination: named as ours are, folders and no links, owned by this
    /// user, and in use by nobody.
    static std::vector<Workshop> leftOver(const FilePath &destination);

    const FilePath &path() const { return folder; }
    FilePath copy() const { return folder + "/new"; }
    FilePath former() const { return folder + "/old"; }

private:
    Workshop(FilePath folder, Descriptor lock)
        : folder(std::move(folder))
        , lock(std::move(lock))
    {}
    static OrError<Workshop> locked(const FilePath &folder);

    FilePath folder;
    Descriptor lock;
};

} // namespace tidlo
