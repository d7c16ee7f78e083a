#include "platform/Volume.h"

#include <cerrno>
#include <filesystem>

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

// The machines that this runs on have shipped with solid state disks alone for years, and what an external disk is
// takes a walk through the device tree to find out.
bool anyDiskRotates(const QList<FilePath> &)
{
    return false;
}

int mountObstacle(const FilePath &path)
{
    std::error_code error;
    const std::filesystem::path given(path.toStdString());
    const std::filesystem::path folder = std::filesystem::canonical(given.parent_path(), error);
    if (error)
        return error.value();
    const FilePath item = FilePath::fromStdString((folder / given.filename()).native());
    struct statfs *mounts = nullptr;
    const int count = getmntinfo(&mounts, MNT_NOWAIT);
    for (int i = 0; i < count; ++i) {
        const FilePath point(mounts[i].f_mntonname);
        if (point == item || point.startsWith(item + '/'))
            return EBUSY;
    }
    return count == 0 ? errno : 0;
}

} // namespace tidlo
