#include "platform/ApplicationCopier.h"

#include "platform/Containment.h"
#include "platform/MountObstacle.h"
#include "platform/TreeCopy.h"

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

#include <unistd.h>

namespace fs = std::filesystem;

namespace {

// Each gives the errno of what went wrong, or 0.

/// What keeps the folder at \a path from losing its contents.
int obstacleToEmptying(const fs::path &path)
{
    std::error_code error;
    const bool isEmpty = fs::is_empty(path, error);
    if (error || isEmpty)
        return error.value();
    return access(path.c_str(), W_OK | X_OK) == 0 ? 0 : errno;
}

/// What keeps the item at \a path from being removed with all it holds, its own folder's rights apart: those show as it
/// is moved aside. Asked before anything is done, so that what cannot go as a whole does not lose a part.
int obstacleToRemoval(const FilePath &path)
{
    if (const int obstacle = mountObstacle(path))
        return obstacle;
    std::error_code error;
    const fs::path item = path.toStdString();
    if (!fs::is_directory(fs::symlink_status(item, error)))
        return 0;
    for (fs::recursive_directory_iterator entry(item, error), end; !error && entry != end; entry.increment(error)) {
        const bool isFolder = fs::is_directory(entry->symlink_status(error));
        if (const int obstacle = isFolder ? obstacleToEmptying(entry->path()) : 0)
            return obstacle;
    }
    return error.value();
}

int obstacle(const FilePath &source, const FilePath &destination)
{
    const FilePath parent = destination.left(destination.lastIndexOf('/') + 1);
    if (access(source.constData(), F_OK) != 0 || access(parent.constData(), W_OK) != 0)
        return errno;
    std::error_code ignored;
    const bool isLink = fs::is_symlink(fs::symlink_status(destination.toStdString(), ignored));
    const bool holdsSource = !isLink && isSameOrWithin(source, destination);
    return holdsSource || isSameOrWithin(parent, source) ? EINVAL : obstacleToRemoval(destination);
}

int rename(const FilePath &from, const FilePath &to)
{
    return std::rename(from.constData(), to.constData()) == 0 ? 0 : errno;
}

int remove(const FilePath &path)
{
    std::error_code error;
    fs::remove_all(path.toStdString(), error);
    return error.value();
}

/// With an empty \a workshop on the same file system.
int replaceIn(const FilePath &workshop, const FilePath &source, const FilePath &destination)
{
    const FilePath copy = workshop + "/new";
    const FilePath former = workshop + "/old";
    if (const int error = copyTree(source, copy))
        return error;
    if (const int error = rename(destination, former); error != 0 && error != ENOENT)
        return error;
    const int error = rename(copy, destination);
    if (error != 0)
        rename(former, destination);
    return error;
}

int replace(const FilePath &source, const FilePath &destination)
{
    if (const int error = obstacle(source, destination))
        return error;
    const qsizetype name = destination.lastIndexOf('/') + 1;
    FilePath workshop = destination.left(name) + '.' + destination.mid(name) + ".XXXXXX";
    if (mkdtemp(workshop.data()) == nullptr)
        return errno;
    const int error = replaceIn(workshop, source, destination);
    const int errorOfRemoval = remove(workshop);
    return error == 0 ? errorOfRemoval : error;
}

} // namespace

std::optional<QString> copyApplication(const FilePath &source, const FilePath &destination)
{
    const int error = replace(source, destination);
    return error == 0 ? std::nullopt : std::optional(qt_error_string(error));
}
