#include "platform/linux/XdgTrash.h"

#include "platform/Paths.h"
#include "platform/Trash.h"
#include "platform/linux/TrashFolder.h"
#include "platform/linux/TrashList.h"
#include "platform/linux/TrashMove.h"
#include "platform/linux/TrashRecord.h"
#include "platform/linux/TrashRestore.h"
#include "platform/linux/UserFolders.h"

#include <QSet>

#include <algorithm>
#include <cerrno>

namespace tidlo {

namespace {

bool hasTrashAtTop(const SystemCalls &calls, const TrashItem &item)
{
    const auto has = [&](const QByteArray &name) {
        struct statx status;
        return calls.statx(item.held(), name.constData(), AT_SYMLINK_NOFOLLOW, STATX_TYPE, &status) == 0;
    };
    return item.isFolder() && (has(".Trash") || has(trashNameAtTop()));
}

/// Whether \a path goes through the link \a item. A folder on the path is found by its place.
bool isFollowedBy(const SystemCalls &calls, const TrashItem &item, const FilePath &path)
{
    for (qsizetype end = path.size(); end > 0; end = path.lastIndexOf('/', end - 1)) {
        const OrError<Identity> step = identityAt(calls, item.held(), AT_FDCWD, path.left(end).constData());
        if (!step || *step == Identity::same)
            return true;
    }
    return false;
}

/// The refusal to move \a item: it is the home folder or holds it, lies in a Trash or holds one, is a mount point or
/// holds one. Nothing if it may be moved.
std::optional<TrashOutcome> refusal(const SystemCalls &calls, const TrashItem &item, const MountTable &mounts,
                                    const UserFolders &folders)
{
    const std::optional<FileSystemPlace> place = mounts.place(item.mount(), item.path());
    if (!place)
        return TrashOutcome::failed(QStringLiteral("Something was mounted or unmounted meanwhile"), ESTALE);
    const auto isOnTheWayTo = [&](const UserFolders::Kept &kept) {
        return place->contains(kept.place) || (item.isLink() && isFollowedBy(calls, item, kept.path));
    };
    const auto isWithin = [&](const UserFolders::Kept &kept) { return kept.place.contains(*place); };

    if (item.isMountPoint() || mounts.hasMountWithin(*place))
        return TrashOutcome::refused(QStringLiteral("Another volume is mounted there or inside."));
    if (isOnTheWayTo(folders.home))
        return TrashOutcome::refused(QStringLiteral("It is the home folder, or holds it."));
    if (leadsThroughTrash(item.path()) || std::ranges::any_of(folders.trashes, isWithin))
        return TrashOutcome::refused(QStringLiteral("It is in a Trash already."));
    if (std::ranges::any_of(folders.trashes, isOnTheWayTo) || hasTrashAtTop(calls, item))
        return TrashOutcome::refused(QStringLiteral("It holds a Trash."));
    return std::nullopt;
}

} // namespace

bool liesInTrash(const FilePath &path, const FilePath &home)
{
    return leadsThroughTrash(path) || isSameOrWithin(path, joined(dataHomeIn(home, qgetenv("XDG_DATA_HOME")), "Trash"));
}

TrashOutcome moveToTrash(const FilePath &path, const FilePath &home)
{
    return XdgTrash(home, dataHomeIn(home, qgetenv("XDG_DATA_HOME"))).move(path, std::time(nullptr));
}

QList<bool> leftByTrash(const QList<FilePath> &paths, const FilePath &home)
{
    return XdgTrash(home, dataHomeIn(home, qgetenv("XDG_DATA_HOME"))).leaves(paths);
}

QList<TrashOutcome> restoreFromTrash(const QList<TrashedItem> &items, const FilePath &home,
                                     const std::function<bool()> &stopRequested)
{
    return XdgTrash(home, dataHomeIn(home, qgetenv("XDG_DATA_HOME"))).restore(items, stopRequested);
}

TrashContents listTrashes(const FilePath &home, std::stop_token stop)
{
    return XdgTrash(home, dataHomeIn(home, qgetenv("XDG_DATA_HOME"))).list(std::move(stop));
}

TrashOutcome XdgTrash::move(const FilePath &path, std::time_t now) const
{
    TrashItem item;
    if (const auto outcome = item.open(calls, path))
        return *outcome;
    const OrError<MountTable> mounts = readMounts(calls);
    if (!mounts)
        return TrashOutcome::failed(QStringLiteral("The mounts cannot be read"), mounts.error());
    const OrError<UserFolders> folders = findUserFolders(calls, *mounts, home, dataHome);
    if (!folders)
        return TrashOutcome::failed(QStringLiteral("The home folder or its Trash cannot be opened"), folders.error());
    if (const auto outcome = refusal(calls, item, *mounts, *folders))
        return *outcome;

    TrashFolder trash;
    const PlannedFolder &homeTrash = folders->trashes.front().folder;
    const bool isOnMountOfHome = item.mount() == homeTrash.nearest.mount;
    if (const auto outcome = isOnMountOfHome ? trash.openInHome(calls, homeTrash)
                                             : trash.openOnMount(calls, mounts->mount(item.mount())))
        return *outcome;
    return TrashMove(calls, item, trash).run(trashRecord(trash.recordedPath(item.path()), now));
}

QList<bool> XdgTrash::leaves(const QList<FilePath> &paths) const
{
    const OrError<MountTable> mounts = readMounts(calls);
    const OrError<UserFolders> folders =
        mounts ? findUserFolders(calls, *mounts, home, dataHome) : Errno{mounts.error()};
    const auto isLeft = [&](const FilePath &path) {
        TrashItem item;
        if (!folders || item.open(calls, path))
            return false;
        const std::optional<TrashOutcome> outcome = refusal(calls, item, *mounts, *folders);
        return outcome && outcome->kind == TrashOutcome::Kind::refused;
    };
    QList<bool> left;
    left.reserve(paths.size());
    std::ranges::transform(paths, std::back_inserter(left), isLeft);
    return left;
}

QList<TrashOutcome> XdgTrash::restore(const QList<TrashedItem> &items, const std::function<bool()> &stopRequested) const
{
    QSet<FilePath> paths;
    for (const TrashedItem &item : items)
        paths.insert(item.trash);
    const OrError<UserTrashes> trashes =
        openTrashes(calls, home, dataHome, [&](const FilePath &path) { return paths.contains(path); });

    const auto outcomeOf = [&](const TrashedItem &item) {
        if (!trashes)
            return TrashOutcome::failed(QStringLiteral("The Trashes cannot be found"), trashes.error());
        for (const UserTrash &trash : trashes->usable) {
            if (trash.folder.path() == item.trash)
                return TrashRestore(calls, trash).run(item);
        }
        for (const UnusableTrash &trash : trashes->unusable) {
            if (trash.path == item.trash)
                return trash.outcome;
        }
        return TrashOutcome::refused(QStringLiteral("Its Trash cannot be found."));
    };
    QList<TrashOutcome> outcomes;
    for (const TrashedItem &item : items) {
        if (stopRequested())
            break;
        outcomes.append(outcomeOf(item));
    }
    return outcomes;
}

TrashContents XdgTrash::list(std::stop_token stop) const
{
    const OrError<UserTrashes> trashes = openTrashes(calls, home, dataHome, [](const FilePath &) { return true; });
    TrashList list(calls, std::move(stop));
    if (!trashes) {
        list.addUnread(joined(dataHome, "Trash"),
                       QStringLiteral("The Trashes cannot be found: ") + qt_error_string(trashes.error()));
        return std::move(list).contents();
    }
    for (const UserTrash &trash : trashes->usable)
        list.read(trash);
    for (const UnusableTrash &trash : trashes->unusable)
        list.addUnread(trash.path, trash.outcome.reason);
    return std::move(list).contents();
}

} // namespace tidlo
