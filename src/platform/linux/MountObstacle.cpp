#include "platform/MountObstacle.h"

#include "platform/FileName.h"
#include "platform/linux/MountTable.h"
#include "platform/linux/OpenFolder.h"

#include <algorithm>
#include <cerrno>

namespace tidlo {

int mountObstacle(const FilePath &path)
{
    const SystemCalls calls = uninterrupted(SystemCalls());
    const qsizetype slash = path.lastIndexOf('/');
    const std::optional<OpenFolder> folder = openFolder(calls, path.left(std::max<qsizetype>(slash, 1)));
    if (!folder)
        return errno;
    const std::optional<QByteArray> mountinfo = readSystemFile(calls, "/proc/self/mountinfo");
    if (!mountinfo)
        return errno;
    const MountTable mounts(*mountinfo);
    const std::optional<FileSystemPlace> place = mounts.place(folder->mount, joined(folder->path, path.mid(slash + 1)));
    return !place || mounts.hasMountWithin(*place) ? EBUSY : 0;
}

} // namespace tidlo
