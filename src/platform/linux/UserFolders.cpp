#include "platform/linux/UserFolders.h"

#include "platform/FileName.h"

#include <cerrno>

namespace tidlo {

namespace {

std::optional<UserFolders::Kept> find(const SystemCalls &calls, const MountTable &mounts, const FilePath &path)
{
    std::optional<PlannedFolder> folder = planFolder(calls, path);
    if (!folder)
        return std::nullopt;
    const std::optional<FileSystemPlace> place = mounts.place(folder->nearest.mount, folder->path());
    if (!place) {
        errno = ESTALE; // Mounted or unmounted meanwhile.
        return std::nullopt;
    }
    return UserFolders::Kept{.path = path, .folder = std::move(*folder), .place = *place};
}

} // namespace

FilePath folderInHome(const FilePath &home, const char *usual, const FilePath &configured)
{
    return configured.startsWith('/') ? configured : joined(home, usual);
}

FilePath dataHomeIn(const FilePath &home, const FilePath &configured)
{
    return folderInHome(home, ".local/share", configured);
}

std::optional<UserFolders> findUserFolders(const SystemCalls &calls, const MountTable &mounts, const FilePath &home,
                                           const FilePath &dataHome)
{
    std::optional<UserFolders::Kept> kept = find(calls, mounts, home);
    if (!kept)
        return std::nullopt;
    UserFolders folders{.home = std::move(*kept), .trashes = {}};
    const FilePath trash = joined(dataHome, "Trash");
    const FilePath usual = joined(dataHomeIn(home, {}), "Trash");
    for (const FilePath &path : trash == usual ? QList{trash} : QList{trash, usual}) {
        kept = find(calls, mounts, path);
        if (!kept)
            return std::nullopt;
        folders.trashes.push_back(std::move(*kept));
    }
    return folders;
}

} // namespace tidlo
