#pragma once

#include "model/FilePath.h"
#include "platform/FileAttributes.h"

#include <QList>

namespace tidlo {

/// The capacity of the volume that holds \a path, and how much of it is available to the user for important files,
/// including space that the system would free for them, if it reports that. Nothing if the request fails.
std::optional<VolumeCapacity> volumeCapacityOf(const FilePath &path);

/// The same two figures from the file system itself.
std::optional<VolumeCapacity> fileSystemCapacityOf(const FilePath &path);

/// Whether one of \a paths is on a rotating disk, where reading in several places at once is slower than reading in
/// one. False if that is unknown, as for network and virtual disks, and for a missing path.
bool anyDiskRotates(const QList<FilePath> &paths);

/// Whether files on the file system of \a path may share blocks in other ways than by links, so that deleting one of
/// them frees less than its size. False if that is unknown.
bool mayShareBlocks(const FilePath &path);

/// Why the item at \a path, without following a link, must not be removed: EBUSY if another volume is mounted there or
/// beneath it, or the errno of the failed check. 0 if there is no reason.
int mountObstacle(const FilePath &path);

} // namespace tidlo
