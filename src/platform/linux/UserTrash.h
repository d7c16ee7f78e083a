#pragma once

#include "platform/linux/TrashFolder.h"
#include "platform/linux/UserFolders.h"

#include <functional>
#include <vector>

namespace tidlo {

/// A Trash of the user that exists, held open together with the top folder of its mount, beneath which all its items
/// come from.
struct UserTrash
{
    TrashFolder folder;
    OpenFolder top;
    FilePath home;         ///< For the Trash of the home folder: the home folder as given. Otherwise empty.
    FilePath homeItself{}; ///< The same without links.

    /// Where an item with the \a recorded path was: absolute, without the links that lead to the home folder. Nothing
    /// if a record of this Trash must not contain such a path: in the Trash of a mount it must be relative.
    std::optional<FilePath> originOf(const FilePath &recorded) const;
};

/// A Trash that exists but cannot be used.
struct UnusableTrash
{
    FilePath path;
    TrashOutcome outcome; ///< The outcome to report instead of doing anything there.
};

struct UserTrashes
{
    std::vector<UserTrash> usable; ///< The Trash of the home folder first.
    QList<UnusableTrash> unusable;
};

/// Opens those Trashes of the user for whose path \a isWanted returns true. Creates nothing, and touches no mount that
/// cannot have a Trash. A Trash that is seen through several mounts counts once.
OrError<UserTrashes> openTrashes(const SystemCalls &calls, const FilePath &home, const FilePath &dataHome,
                                 const std::function<bool(const FilePath &path)> &isWanted);

} // namespace tidlo
