#include "platform/linux/UserFolders.h"

#include <cerrno>

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

FilePath dataHomeIn(const FilePath &home, const FilePath &configured)
{
    return configured.startsWith('/') ? configured : joined(home, ".local/share");
}

std::optional<UserFolders> findUserFolders(const SystemCalls &calls, const MountTable &mounts, const FilePath &home,
                                           const FilePath &dataHome)
{
    std::optional<UserFolders::Kept> ownHome = find(calls, mounts, home);
    std::optional<UserFolders::Kept> trash = ownHome ? find(calls, mounts, joined(dataHome, "Trash")) : std::nullopt;
    std::optional<UserFolders::Kept> usual =
        trash ? find(calls, mounts, joined(dataHomeIn(home, {}), "Trash")) : std::nullopt;
    if (!usual)
        return std::nullopt;
    UserFolders folders{.home = std::move(*ownHome), .trashes = {}};
    folders.trashes.push_back(std::move(*trash));
    folders.trashes.push_back(std::move(*usual));
    return folders;
}
