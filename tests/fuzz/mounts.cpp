#include "fuzz/Input.h"
#include "platform/linux/MountTable.h"

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    using namespace tidlo;
    const MountTable table(bytesOf(data, size));
    for (const Mount &mount : table.all()) {
        const std::optional<FileSystemPlace> place = table.place(mount.id, mount.point);
        table.sourcesOf(mount.device);
        if (place)
            table.hasMountWithin(*place);
    }
    return 0;
}
