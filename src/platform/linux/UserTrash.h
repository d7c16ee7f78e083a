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

    /// Where the item was whose record tells the \a recorded path: absolute, without those links that lead to the home.
    /// Nothing where a record of this Trash must not tell such a path: the Trash of a mount knows relative ones alone.
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

/// Opens those Trashes of the user whose path \a isWanted, and touches no mount where none can be. Nothing is made.
/// Through how many mounts a Trash may be seen, it is one.
OrError<UserTrashes> openTrashes(const SystemCalls &calls, const FilePath &home, const FilePath &dataHome,
                                 const std::function<bool(const FilePath &path)> &isWanted);

} // namespace tidlo
