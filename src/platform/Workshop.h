#pragma once

#include "model/FilePath.h"
#include "platform/Descriptor.h"
#include "platform/OrError.h"

#include <vector>

namespace tidlo {

/// A hidden folder beside a destination, in which a placement makes its copy and keeps what it replaces. It is locked
/// while this object exists, so that no other placement takes it for a leftover.
class Workshop final
{
public:
    /// Makes an empty workshop.
    static OrError<Workshop> make(const FilePath &destination);

    /// Workshops that earlier placements left beside \a destination: with our kind of name, folders and not links,
    /// owned by this user, and not in use.
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
