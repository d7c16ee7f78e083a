#include "fuzz/Input.h"
#include "platform/linux/TrashRecord.h"

int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    using namespace tidlo;
    const std::optional<TrashRecord> record = parsedTrashRecord(bytesOf(data, size));
    if (!record)
        return 0;
    const FilePath &path = record->path;
    require(!path.contains('\0') && !("/" + path + "/").contains("/../"), "a record leads nowhere else than it says");
    const std::optional<TrashRecord> again = parsedTrashRecord(trashRecord(path, 0));
    require(again && again->path == path, "a record is read as it was written");
    return 0;
}
