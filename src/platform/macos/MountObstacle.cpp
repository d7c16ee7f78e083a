#include "platform/MountObstacle.h"

#include <cerrno>
#include <filesystem>

#include <sys/mount.h>

namespace tidlo {

int mountObstacle(const FilePath &path)
{
    std::error_code error;
    const std::filesystem::path given(path.toStdString());
    const std::filesystem::path folder = std::filesystem::canonical(given.parent_path(), error);
    if (error)
        return error.value();
    const FilePath item = FilePath::fromStdString((folder / given.filename()).native());
    struct statfs *mounts = nullptr;
    const int count = getmntinfo(&mounts, MNT_NOWAIT);
    for (int i = 0; i < count; ++i) {
        const FilePath point(mounts[i].f_mntonname);
        if (point == item || point.startsWith(item + '/'))
            return EBUSY;
    }
    return count == 0 ? errno : 0;
}

} // namespace tidlo
