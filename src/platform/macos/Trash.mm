#include "platform/Trash.h"

#include <array>
#include <cerrno>
#include <climits>
#include <cstdlib>

#import <Foundation/Foundation.h>
#include <sys/stat.h>

namespace tidlo {

namespace {

/// Whether the item is the home folder or one above it, or a link that the home is reached through.
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
        const BOOL isMoved = [NSFileManager.defaultManager trashItemAtURL:url resultingItemURL:nil error:&error];
        return isMoved ? TrashOutcome::moved() : failedWith(error);
    }
}

} // namespace tidlo
