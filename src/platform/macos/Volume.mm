#include "platform/Volume.h"

#include "platform/Paths.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <span>

#import <Foundation/Foundation.h>
#include <sys/mount.h>

namespace tidlo {

namespace {

std::optional<qint64> figure(NSDictionary *values, NSURLResourceKey key)
{
    NSNumber *number = values[key];
    return number == nil ? std::nullopt : std::optional<qint64>(number.longLongValue);
}

} // namespace

std::optional<VolumeCapacity> volumeCapacityOf(const FilePath &path)
{
    @autoreleasepool {
        NSURL *url = [NSURL fileURLWithFileSystemRepresentation:path.constData() isDirectory:YES relativeToURL:nil];
        NSArray *keys = @[ NSURLVolumeTotalCapacityKey, NSURLVolumeAvailableCapacityForImportantUsageKey ];
        NSDictionary *values = [url resourceValuesForKeys:keys error:nil];
        if (values == nil)
            return std::nullopt;
        return VolumeCapacity{.total = figure(values, NSURLVolumeTotalCapacityKey),
                              .available = figure(values, NSURLVolumeAvailableCapacityForImportantUsageKey)};
    }
}

// The Macs that run this program have had only solid-state disks for years, and finding out about an external disk
// would need a walk through the device tree.
bool anyDiskRotates(const QList<FilePath> &)
{
    return false;
}

bool mayShareBlocks(const FilePath &path)
{
    struct statfs status;
    return statfs(path.constData(), &status) == 0 && FilePath(status.f_fstypename) == "apfs";
}

int mountObstacle(const FilePath &path)
{
    std::error_code error;
    const std::filesystem::path given(path.toStdString());
    const std::filesystem::path folder = std::filesystem::canonical(given.parent_path(), error);
    if (error)
        return error.value();
    const FilePath item = FilePath::fromStdString((folder / given.filename()).native());
    struct statfs *list = nullptr;
    const int count = getmntinfo_r_np(&list, MNT_NOWAIT);
    const int errorOfListing = errno;
    const std::unique_ptr<struct statfs, decltype(&free)> owned(list, free);
    for (const struct statfs &mount : std::span(list, static_cast<size_t>(std::max(count, 0)))) {
        if (isAtOrBelow(mount.f_mntonname, item))
            return EBUSY;
    }
    return count > 0 ? 0 : errorOfListing;
}

} // namespace tidlo
