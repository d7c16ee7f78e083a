#include "platform/VolumeCapacity.h"

namespace tidlo {

std::optional<VolumeCapacity> volumeCapacityOf(const FilePath &path)
{
    return fileSystemCapacityOf(path); // Nothing here would be cleared for the user's sake.
}

} // namespace tidlo
