#include "platform/linux/Trash.h"

#include "platform/Trash.h"
#include "platform/TrashOutcomes.h"
#include "platform/linux/TrashMove.h"
#include "platform/linux/TrashRecord.h"
#include "platform/linux/TrashRefusal.h"

#include <cerrno>

namespace tidlo {

TrashOutcome moveToTrash(const FilePath &path, const FilePath &home)
{
    return Trash(home, dataHomeIn(home, qgetenv("XDG_DATA_HOME"))).move(path, std::time(nullptr));
}

TrashOutcome Trash::move(const FilePath &path, std::time_t now) const
{
    TrashItem item;
    if (const auto outcome = item.open(calls, path))
        return *outcome;
    const std::optional<QByteArray> mountinfo = readSystemFile(calls, "/proc/self/mountinfo");
    if (!mountinfo)
        return failed(QStringLiteral("The mounts cannot be read"), errno);
    const MountTable mounts(*mountinfo);
    const std::optional<UserFolders> folders = findUserFolders(calls, mounts, home, dataHome);
    if (!folders)
        return failed(QStringLiteral("The home folder or its Trash cannot be opened"), errno);
    if (const auto outcome = refusal(calls, item, mounts, *folders))
        return *outcome;

    TrashFolder trash;
    const PlannedFolder &homeTrash = folders->trashes.front().folder;
    const bool isOnMountOfHome = item.mount() == homeTrash.nearest.mount;
    if (const auto outcome =
            isOnMountOfHome ? trash.openInHome(calls, homeTrash) : trash.openOnMount(calls, mounts.mount(item.mount())))
        return *outcome;
    return TrashMove(calls, item, trash).run(trashRecord(trash.recordedPath(item.path()), now));
}

} // namespace tidlo
