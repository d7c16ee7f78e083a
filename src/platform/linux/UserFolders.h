#pragma once

#include "platform/linux/MountTable.h"
#include "platform/linux/OpenFolder.h"

#include <vector>

namespace tidlo {

/// The folders of the user that no move may touch.
struct UserFolders
{
    struct Kept
    {
        FilePath path;         ///< As it was given: it may lead through links.
        PlannedFolder folder;  ///< Where that truly ends.
        FileSystemPlace place; ///< The same, whichever mount it is reached through.
    };

    Kept home;
    std::vector<Kept> trashes; ///< The home's Trash first; where that is not the usual one, the usual one too.
};

/// Finds the user's folders; \a dataHome is where programs keep their data. Nothing on failure, and errno tells why.
std::optional<UserFolders> findUserFolders(const SystemCalls &calls, const MountTable &mounts, const FilePath &home,
                                           const FilePath &dataHome);

/// A folder that programs keep something of the user in: \a configured, which is what a variable of the environment
/// says, if that is absolute, or else the \a usual one, named from the home on.
FilePath folderInHome(const FilePath &home, const char *usual, const FilePath &configured);

/// Where programs keep the user's data: \a configured, which is what XDG_DATA_HOME says, if that is absolute.
FilePath dataHomeIn(const FilePath &home, const FilePath &configured);

} // namespace tidlo
