#include "platform/VolumeCapacity.h"

#import <Foundation/Foundation.h>

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

} // namespace tidlo
