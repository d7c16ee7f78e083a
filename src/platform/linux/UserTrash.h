#pragma once

#include "platform/linux/TrashFolder.h"
#include "platform/linux/UserFolders.h"

#include <functional>
#include <vector>

namespace tidlo {

/// A Trash of the user that is there, held open together with the top folder of its mount, beneath which everything
/// lies that it can hold.
struct UserTrash
{
    TrashFolder folder;
    OpenFolder top;
    FilePath home;         ///< In the Trash of the home: the home as it was given. Else empty.
    FilePath homeItself{}; ///< The same without links.

    /// Where an item was if its record tells the path \a recorded: absolute, without the links that lead to the home.
    /// Nothing if a record of this Trash must not tell such a path: in the Trash of a mount it must be relative.
    std::optional<FilePath> originOf(const FilePath &recorded) const;
};

/// A Trash that is there and cannot be used.
struct UnusableTrash
{
    FilePath path;
    TrashOutcome outcome; ///< What to tell, instead of doing anything there.
};

struct UserTrashes
{
    std::vector<UserTrash> usable; ///< That of the home first.
    QList<UnusableTrash> unusable;
};

/// Opens those Trashes of the user for whose path \a isWanted is true. Makes nothing, and touches no mount that cannot
/// hold one. A Trash that is seen through several mounts counts once.
OrError<UserTrashes> openTrashes(const SystemCalls &calls, const FilePath &home, const FilePath &dataHome,
                                 const std::function<bool(const FilePath &path)> &isWanted);

} // namespace tidlo
