#include "platform/linux/TrashRefusal.h"

#include "platform/TrashOutcomes.h"

#include <algorithm>
#include <cerrno>

namespace tidlo {

namespace {

/// Whether a folder of this name at the top of a mount is a Trash, whoever's it is.
bool isTrashName(const FilePath &name)
{
    const QByteArrayView prefix(".Trash-");
    return name == ".Trash" || (name.startsWith(prefix) && name.size() > prefix.size() &&
                                std::ranges::all_of(name.mid(prefix.size()), isdigit));
}

/// Told by the names alone, so that Trashes of other users and of mounts seen elsewhere are known as well.
bool leadsThroughTrash(const FilePath &path)
{
    return (path + '/').contains("/.local/share/Trash/") || std::ranges::any_of(path.split('/'), isTrashName);
}

bool hasTrashAtTop(const SystemCalls &calls, const TrashItem &item)
{
    const auto has = [&](const QByteArray &name) {
        struct statx status;
        return calls.statx(item.held(), name.constData(), AT_SYMLINK_NOFOLLOW, STATX_TYPE, &status) == 0;
    };
    return item.isFolder() && (has(".Trash") || has(".Trash-" + QByteArray::number(geteuid())));
}

/// Whether \a path is followed through \a item, a link. A folder on the way is found by its place.
bool isFollowedBy(const SystemCalls &calls, const TrashItem &item, const FilePath &path)
{
    for (qsizetype end = path.size(); end > 0; end = path.lastIndexOf('/', end - 1)) {
        const Identity step = identityAt(calls, item.held(), AT_FDCWD, path.left(end).constData());
        if (step == Identity::same || step == Identity::unknown)
            return true;
    }
    return false;
}

} // namespace

std::optional<TrashOutcome> refusal(const SystemCalls &calls, const TrashItem &item, const MountTable &mounts,
                                    const UserFolders &folders)
{
    const std::optional<FileSystemPlace> place = mounts.place(item.mount(), item.path());
    if (!place)
        return failed(QStringLiteral("Something was mounted or unmounted meanwhile"), ESTALE);
    const auto isOnTheWayTo = [&](const UserFolders::Kept &kept) {
        return place->contains(kept.place) || (item.isLink() && isFollowedBy(calls, item, kept.path));
    };
    const auto isWithin = [&](const UserFolders::Kept &kept) { return kept.place.contains(*place); };

    if (item.isMountPoint() || mounts.hasMountWithin(*place))
        return refused(QStringLiteral("Another volume is mounted there or inside."));
    if (isOnTheWayTo(folders.home))
        return refused(QStringLiteral("It is the home folder, or holds it."));
    if (leadsThroughTrash(item.path()) || std::ranges::any_of(folders.trashes, isWithin))
        return refused(QStringLiteral("It is in a Trash already."));
    if (std::ranges::any_of(folders.trashes, isOnTheWayTo) || hasTrashAtTop(calls, item))
        return refused(QStringLiteral("It holds a Trash."));
    return std::nullopt;
}

} // namespace tidlo
