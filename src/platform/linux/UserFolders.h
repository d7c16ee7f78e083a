#pragma once

#include "model/FilePath.h"
#include "platform/linux/MountTable.h"
#include "platform/linux/OpenFolder.h"

#include <vector>

namespace tidlo {

/// The folders of the user that must never be moved.
struct UserFolders
{
    struct Kept
    {
        FilePath path;         ///< As given: it may lead through links.
        PlannedFolder folder;  ///< Where the path really ends.
        FileSystemPlace place; ///< The same, whichever mount it is reached through.
    };

    Kept home;
    std::vector<Kept> trashes; ///< The home's Trash first; if that is not at the usual place, the one at the usual
                               ///< place too.
};

/// Finds these folders; \a dataHome is the folder for programs' data.
OrError<UserFolders> findUserFolders(const SystemCalls &calls, const MountTable &mounts, const FilePath &home,
                                     const FilePath &dataHome);

/// The folder for programs' data: \a configured, the value of XDG_DATA_HOME, if that is absolute.
FilePath dataHomeIn(const FilePath &home, const FilePath &configured);

/// The files of the application in the user's folders. All paths are absolute.
struct UserFiles
{
    FilePath desktopEntry;
    FilePath icon; ///< A PNG.
    FilePath preferences;
    FilePath cacheFolder;
};

/// The files of the application with that \a identifier. Reads the environment each time.
UserFiles userFilesOf(const QByteArray &identifier);

} // namespace tidlo
