#pragma once

#include "platform/FileManager.h"
#include "platform/Places.h"

#include <stop_token>

namespace tidlo {

/// What somebody wants of a scan that not every scan does.
struct ScanWishes
{
    PlaceSet spared{};      ///< What is, lies in or holds one of these places is not proposed, and not measured.
    QList<FilePath> also{}; ///< Folders beneath which projects are looked for as well.
};

/// What the rules of one scan work with.
struct ScanContext
{
    const FileManager &files;
    FilePath home;
    ScanWishes wishes{};
    std::stop_token stop{}; ///< Requested, it ends each rule soon, with what was found until then.

    /// Whether what lies at \a path is not to be proposed. From any thread.
    bool spares(const FilePath &path) const
    {
        if (wishes.spared.isEmpty())
            return false;
        const FilePath place = PlaceFinder().placeOf(path);
        return wishes.spared.hasOneWithin(place) || wishes.spared.hasOneAround(place);
    }
};

} // namespace tidlo
