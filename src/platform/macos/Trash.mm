#include "platform/Trash.h"

#import <Foundation/Foundation.h>

// The system's own call knows where the Trash of each volume is and lets the Finder put an item back.
TrashOutcome moveToTrash(const FilePath &path, const FilePath &)
{
    @autoreleasepool {
        if (path.isEmpty())
            return {.kind = TrashOutcome::Kind::refused, .reason = QStringLiteral("The path is empty.")};
        NSURL *url = [NSURL fileURLWithFileSystemRepresentation:path.constData() isDirectory:NO relativeToURL:nil];
        NSError *error = nil;
        if ([NSFileManager.defaultManager trashItemAtURL:url resultingItemURL:nil error:&error])
            return {.kind = TrashOutcome::Kind::moved};
        if ([error.domain isEqualToString:NSCocoaErrorDomain] && error.code == NSFileNoSuchFileError)
            return {.kind = TrashOutcome::Kind::gone};
        NSError *cause = error.userInfo[NSUnderlyingErrorKey];
        const bool isPosix = [cause.domain isEqualToString:NSPOSIXErrorDomain];
        return {.kind = TrashOutcome::Kind::failed,
                .reason = QString::fromNSString(error.localizedDescription),
                .error = isPosix ? static_cast<int>(cause.code) : 0};
    }
}
