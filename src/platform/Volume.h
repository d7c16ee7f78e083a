#pragma once

#include "model/FilePath.h"
#include "platform/FileAttributes.h"

#include <QList>

namespace tidlo {

/// The capacity of the volume that holds \a path, and what of it is available to the user for things that matter,
/// including space that the system would clear for them, where it tells that. Nothing if the request fails.
std::optional<VolumeCapacity> volumeCapacityOf(const FilePath &path);

/// The same two figures as the file system itself tells them.
std::optional<VolumeCapacity> fileSystemCapacityOf(const FilePath &path);

/// Whether one of \a paths lies on a disk that rotates, where reading in several places at once is slower than reading
/// in one. What cannot be told, as of network and virtual disks, counts as not rotating, and so does a missing path.
bool anyDiskRotates(const QList<FilePath> &paths);

/// Whether files of the file system that holds \a path may share blocks in other ways than by links, so that deleting
/// one of them frees less than it has. False where that cannot be told.
bool mayShareBlocks(const FilePath &path);

/// What keeps the item at \a path, a link not followed, from being removed: EBUSY if another volume is mounted there or
/// beneath it, or the errno of what kept the system from telling. 0 if nothing does.
int mountObstacle(const FilePath &path);

} // namespace tidlo
