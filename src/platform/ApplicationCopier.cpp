#include "platform/ApplicationCopier.h"

#include "platform/Descriptor.h"
#include "platform/Paths.h"
#include "platform/VisibleText.h"
#include "platform/Volume.h"
#include "platform/Workshop.h"

#include <cerrno>
#include <cstdio>
#include <filesystem>

#include <sys/stat.h>
#include <unistd.h>

namespace tidlo {

namespace {

int renameItem(const FilePath &from, const FilePath &to)
{
    return errorOf([&] { return std::rename(from.constData(), to.constData()); });
}

int removeItem(const FilePath &path)
{
    std::error_code error;
    std::filesystem::remove_all(path.toStdString(), error);
    return error.value();
}

namespace fs = std::filesystem;

// Each returns 0, or the errno of what went wrong.

int obstacleToAccess(const char *path, int mode)
{
    return errorOf([=] { return access(path, mode); });
}

/// Why the folder at \a path could not be emptied.
int obstacleToEmptying(const fs::path &path)
{
    std::error_code error;
    const bool isEmpty = fs::is_empty(path, error);
    if (error || isEmpty)
        return error.value();
    return obstacleToAccess(path.c_str(), W_OK | X_OK);
}

/// Why the item at \a path could not be removed with all its content. The permissions of its parent folder are not
/// checked: they show when the item is moved aside. Called before anything is done, so that an item that cannot be
/// removed completely does not lose a part.
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
    if (const int error = obstacleToAccess(source.constData(), F_OK))
        return error;
    if (const int error = obstacleToAccess(parent.constData(), W_OK))
        return error;
    std::error_code ignored;
    const bool isLink = fs::is_symlink(fs::symlink_status(destination.toStdString(), ignored));
    const bool holdsSource = !isLink && isSameOrWithin(source, destination);
    return holdsSource || isSameOrWithin(parent, source) ? EINVAL : obstacleToRemoval(destination);
}

/// Why the system does not tell what is at \a path: ENOENT where nothing is.
int errorOfLookingAt(const FilePath &path)
{
    struct stat status;
    return errorOf([&] { return lstat(path.constData(), &status); });
}

bool isThere(const FilePath &path)
{
    return errorOfLookingAt(path) == 0;
}

bool mayBeThere(const FilePath &path)
{
    return errorOfLookingAt(path) != ENOENT;
}

/// For file systems that cannot exchange two items in one step: first the old one is moved away, then the new one takes
/// its place. If this fails, \a destination is the old or the new one, or missing if the old one could not be put back.
int replaceInTwoSteps(const Workshop &workshop, const FilePath &destination, const PlacementSteps &steps)
{
    int error = steps.rename(destination, workshop.former());
    if (error == 0)
        error = steps.rename(workshop.copy(), destination);
    if (error != 0 && !isThere(destination)) // Whichever step reported it, and whether or not that was true.
        steps.rename(workshop.former(), destination);
    return error;
}

int replaceFrom(const Workshop &workshop, const FilePath &source, const FilePath &destination,
                const PlacementSteps &steps)
{
    if (const int error = steps.copy(source, workshop.copy()))
        return error;
    const int error = steps.exchange(workshop.copy(), destination);
    if (error == ENOENT) // There is nothing to replace.
        return steps.rename(workshop.copy(), destination);
    return isExchangeUnknown(error) ? replaceInTwoSteps(workshop, destination, steps) : error;
}

/// Called after the new copy is in place, so that no leftover can be the only copy.
void removeLeftOvers(const FilePath &destination, const PlacementSteps &steps)
{
    for (const Workshop &left : Workshop::leftOver(destination)) {
        if (obstacleToRemoval(left.path()) == 0)
            steps.remove(left.path());
    }
}

} // namespace

PlacementSteps livePlacementSteps()
{
    return {.copy = copyTree, .exchange = exchangeItems, .rename = renameItem, .remove = removeItem};
}

std::optional<QString> copyApplication(const FilePath &source, const FilePath &destination, const PlacementSteps &steps)
{
    if (const int error = obstacle(source, destination))
        return qt_error_string(error);
    const OrError<Workshop> workshop = Workshop::make(destination);
    if (!workshop)
        return qt_error_string(workshop.error());
    const int error = replaceFrom(*workshop, source, destination, steps);
    if (error != 0 && !isThere(destination) && mayBeThere(workshop->former())) {
        return qt_error_string(error) + QStringLiteral("\nWhat was there before is now in ") +
               visibleText(workshop->former());
    }
    const int errorOfRemoval = steps.remove(workshop->path());
    if (error != 0)
        return qt_error_string(error);
    removeLeftOvers(destination, steps);
    return errorOfRemoval == 0 ? std::nullopt : std::optional(qt_error_string(errorOfRemoval));
}

} // namespace tidlo
