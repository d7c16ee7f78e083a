#include "platform/linux/UserFolders.h"

#include "platform/Bundle.h"
#include "platform/HomeFolder.h"
#include "platform/Paths.h"
#include "platform/PreferenceStore.h"

#include <QFile>

#include <cerrno>

namespace tidlo {

namespace {

OrError<UserFolders::Kept> find(const SystemCalls &calls, const MountTable &mounts, const FilePath &path)
{
    OrError<PlannedFolder> folder = planFolder(calls, path);
    if (!folder)
        return Errno{folder.error()};
    const std::optional<FileSystemPlace> place = mounts.place(folder->nearest.mount, folder->path());
    if (!place)
        return Errno{ESTALE}; // Something was mounted or unmounted meanwhile.
    return UserFolders::Kept{.path = path, .folder = std::move(*folder), .place = *place};
}

} // namespace

FilePath dataHomeIn(const FilePath &home, const FilePath &configured)
{
    return folderInHome(home, ".local/share", configured);
}

OrError<UserFolders> findUserFolders(const SystemCalls &calls, const MountTable &mounts, const FilePath &home,
                                     const FilePath &dataHome)
{
    OrError<UserFolders::Kept> kept = find(calls, mounts, home);
    if (!kept)
        return Errno{kept.error()};
    UserFolders folders{.home = std::move(*kept), .trashes = {}};
    const FilePath trash = joined(dataHome, "Trash");
    const FilePath usual = joined(dataHomeIn(home, {}), "Trash");
    for (const FilePath &path : trash == usual ? QList{trash} : QList{trash, usual}) {
        kept = find(calls, mounts, path);
        if (!kept)
            return Errno{kept.error()};
        folders.trashes.push_back(std::move(*kept));
    }
    return folders;
}

UserFiles userFilesOf(const QByteArray &identifier)
{
    const FilePath home = homeFolder();
    const FilePath data = dataHomeIn(home, qgetenv("XDG_DATA_HOME"));
    const FilePath configuration = folderInHome(home, ".config", qgetenv("XDG_CONFIG_HOME"));
    const FilePath caches = folderInHome(home, ".cache", qgetenv("XDG_CACHE_HOME"));
    return {.desktopEntry = joined(data, "applications/" + identifier + ".desktop"),
            .icon = joined(data, "icons/hicolor/512x512/apps/" + identifier + ".png"),
            .preferences = joined(configuration, identifier + ".conf"),
            .cacheFolder = joined(caches, identifier)};
}

std::unique_ptr<PreferenceStore> preferencesOfUser()
{
    return preferencesIn(QFile::decodeName(userFilesOf(applicationIdentifier).preferences));
}

} // namespace tidlo
