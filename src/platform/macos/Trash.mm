#include "platform/Trash.h"

#include "platform/Paths.h"
#include "platform/TrashContents.h"
#include "platform/Volume.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstdlib>

#import <Foundation/Foundation.h>
#include <sys/stat.h>

namespace tidlo {

namespace {

/// Whether the item is the home folder or one above it, or a link on the path to the home folder.
bool isOnTheWayTo(const FilePath &home, const struct stat &item)
{
    std::array<char, PATH_MAX> truth{};
    const bool isKnown = realpath(home.constData(), truth.data()) != nullptr;
    for (FilePath path : {home, isKnown ? FilePath(truth.data()) : FilePath()}) {
        for (; path.size() > 1; path.truncate(path.lastIndexOf('/'))) {
            struct stat step;
            if (lstat(path.constData(), &step) == 0 && step.st_dev == item.st_dev && step.st_ino == item.st_ino)
                return true;
        }
    }
    return false;
}

bool isInTrash(NSURL *item)
{
    NSURLRelationship relationship = NSURLRelationshipOther;
    const BOOL isTold = [NSFileManager.defaultManager getRelationship:&relationship
                                                          ofDirectory:NSTrashDirectory
                                                             inDomain:0
                                                          toItemAtURL:item
                                                                error:nil];
    return isTold && relationship != NSURLRelationshipOther;
}

ItemIdentity identityIn(const struct stat &item)
{
    return {.device = static_cast<quint64>(item.st_dev), .inode = item.st_ino};
}

/// The item that is in the Trash at \a place.
TrashedItem trashedAt(const FilePath &place, const FilePath &origin)
{
    const qsizetype slash = place.lastIndexOf('/');
    TrashedItem trashed{.trash = place.left(slash), .name = place.mid(slash + 1), .origin = origin};
    struct stat item;
    if (lstat(place.constData(), &item) == 0)
        trashed.identity = identityIn(item);
    return trashed;
}

TrashOutcome movedBack(const TrashedItem &item)
{
    const FilePath place = joined(item.trash, item.name);
    struct stat status;
    if (!item.identity)
        return TrashOutcome::refused(QStringLiteral("Only the Finder knows where it was: choose \"Put Back\" there."));
    if (lstat(place.constData(), &status) != 0)
        return errno == ENOENT ? TrashOutcome::gone()
                               : TrashOutcome::failed(QStringLiteral("It cannot be opened"), errno);
    if (identityIn(status) != *item.identity)
        return TrashOutcome::refused(QStringLiteral("Something else now has its name in the Trash."));
    if (renamex_np(place.constData(), item.origin.constData(), RENAME_EXCL) == 0)
        return {.kind = TrashOutcome::Kind::moved};
    return errno == EEXIST ? TrashOutcome::refused(QStringLiteral("Something else is at its place by now."))
                           : TrashOutcome::failed(QStringLiteral("It cannot be moved back"), errno);
}

TrashOutcome failedWith(NSError *error)
{
    NSError *cause = error.userInfo[NSUnderlyingErrorKey];
    const bool isErrno = [cause.domain isEqualToString:NSPOSIXErrorDomain];
    return {.kind = TrashOutcome::Kind::failed,
            .reason = QString::fromNSString(error.localizedDescription),
            .error = isErrno ? static_cast<int>(cause.code) : EIO};
}

} // namespace

bool liesInTrash(const FilePath &path, const FilePath &)
{
    const QList<FilePath> names = path.split('/');
    return names.contains(".Trash") || names.contains(".Trashes");
}

/// The system's own Trash: it records where the item was, and chooses the Trash of the item's volume.
TrashOutcome moveToTrash(const FilePath &givenPath, const FilePath &home)
{
    const FilePath path = pathOfItself(givenPath);
    if (const auto outcome = refusalOfPath(path))
        return *outcome;
    struct stat item;
    if (lstat(path.constData(), &item) != 0)
        return errno == ENOENT || errno == ENOTDIR ? TrashOutcome::gone()
                                                   : TrashOutcome::failed(QStringLiteral("It cannot be opened"), errno);
    if (isOnTheWayTo(home, item))
        return TrashOutcome::refused(QStringLiteral("It is the home folder, or holds it."));
    @autoreleasepool {
        NSURL *url = [NSURL fileURLWithFileSystemRepresentation:path.constData()
                                                    isDirectory:S_ISDIR(item.st_mode)
                                                  relativeToURL:nil];
        if (isInTrash(url))
            return TrashOutcome::refused(QStringLiteral("It is in a Trash already."));
        NSError *error = nil;
        NSURL *place = nil;
        if (![NSFileManager.defaultManager trashItemAtURL:url resultingItemURL:&place error:&error])
            return failedWith(error);
        return TrashOutcome::moved(trashedAt(place.fileSystemRepresentation, path));
    }
}

QList<bool> leftByTrash(const QList<FilePath> &paths, const FilePath &home)
{
    QList<bool> left;
    for (const FilePath &path : paths) {
        @autoreleasepool {
            NSURL *url = [NSURL fileURLWithFileSystemRepresentation:path.constData() isDirectory:NO relativeToURL:nil];
            struct stat item;
            left.append(lstat(path.constData(), &item) == 0 &&
                        (mountObstacle(path) == EBUSY || isOnTheWayTo(home, item) || isInTrash(url)));
        }
    }
    return left;
}

/// Programs must not read where the items in the Trash were: only items that this run moved are known and can go back.
QList<TrashOutcome> restoreFromTrash(const QList<TrashedItem> &items, const FilePath &,
                                     const std::function<bool()> &stopRequested)
{
    QList<TrashOutcome> outcomes;
    for (const TrashedItem &item : items) {
        if (stopRequested())
            break;
        outcomes.append(movedBack(item));
    }
    return outcomes;
}

TrashContents listTrashes(const FilePath &home, std::stop_token)
{
    return {.items = {},
            .unread = {{.path = joined(home, ".Trash"),
                        .reason = QStringLiteral("macOS lets no program read where the items in the Trash were. To put "
                                                 "them back, select them in the Trash in the Finder, and choose \"Put "
                                                 "Back\" in the File menu.")}}};
}

} // namespace tidlo
