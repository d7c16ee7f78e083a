#include "platform/StorageDevice.h"

namespace tidlo {

// The machines that this runs on have shipped with solid state disks alone for years, and what an external disk is
// takes a walk through the device tree to find out.
bool anyDiskRotates(const QList<FilePath> &)
{
    return false;
}

} // namespace tidlo
