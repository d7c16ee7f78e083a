#pragma once

#include "platform/FileAttributes.h"

namespace tidlo {

/// The capacity of the volume that holds \a path, and what of it is available to the user for things that matter, space
/// that the system would clear for them included where it tells. Nothing if the request fails.
std::optional<VolumeCapacity> volumeCapacityOf(const FilePath &path);

/// The same two figures as the file system itself tells them.
std::optional<VolumeCapacity> fileSystemCapacityOf(const FilePath &path);

} // namespace tidlo
