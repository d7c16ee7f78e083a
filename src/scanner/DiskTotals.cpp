#include "scanner/DiskTotals.h"

#include <algorithm>

namespace tidlo {

namespace {

VolumeCapacity capacityOfVolume(const FileManager &files, const FilePath &home)
{
    if (const std::optional<VolumeCapacity> capacity = files.volumeCapacity(home))
        return *capacity;
    return files.fileSystemAttributes(home).value_or(VolumeCapacity());
}

} // namespace

ScanTotals diskTotals(const FileManager &files, const FilePath &home)
{
    const VolumeCapacity capacity = capacityOfVolume(files, home);
    ScanTotals totals;
    totals.freeBytes = capacity.available.value_or(0);
    totals.volumeBytes = capacity.total.value_or(0);
    if (totals.volumeBytes >= 1) {
        const qint64 used = std::max<qint64>(totals.volumeBytes - totals.freeBytes, 0);
        totals.diskUsedPercent = static_cast<double>(used) / static_cast<double>(totals.volumeBytes);
    }
    return totals;
}

} // namespace tidlo
