#include "platform/VolumeCapacity.h"

std::optional<VolumeCapacity> volumeCapacityOf(const FilePath &path)
{
    return fileSystemCapacityOf(path); // Nothing here would be cleared for the user's sake.
}
