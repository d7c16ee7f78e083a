#pragma once

#include "model/FilePath.h"
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

/// Finds the user's folders; \a dataHome is where programs keep their data.
OrError<UserFolders> findUserFolders(const SystemCalls &calls, const MountTable &mounts, const FilePath &home,
                                     const FilePath &dataHome);

/// Where programs keep the user's data: \a configured, which is what XDG_DATA_HOME says, if that is absolute.
FilePath dataHomeIn(const FilePath &home, const FilePath &configured);

/// Where files of the application lie in the folders of the user. All absolute.
struct UserFiles
{
    FilePath desktopEntry;
    FilePath icon; ///< A PNG.
    FilePath preferences;
    FilePath cacheFolder;
};

/// Those of the application known by \a identifier. Read from the environment each time.
UserFiles userFilesOf(const QByteArray &identifier);

} // namespace tidlo
