#include "platform/ApplicationCopier.h"

#include "platform/Containment.h"
#include "platform/TreeCopy.h"

#include <cerrno>
#include <filesystem>

#include <unistd.h>

namespace fs = std::filesystem;

namespace {

/// What keeps \a destination from being replaced by a copy of \a source, as an errno, or 0. Nothing has changed then.
int obstacle(const FilePath &source, const FilePath &destination)
{
    const FilePath parent = destination.left(destination.lastIndexOf('/') + 1);
    // Asked before anything is removed: what cannot go as a whole must not lose its contents either.
    if (access(source.constData(), F_OK) != 0 || access(parent.constData(), W_OK) != 0)
        return errno;
    std::error_code ignored;
    const bool isLink = fs::is_symlink(fs::symlink_status(destination.toStdString(), ignored));
    const bool holdsSource = !isLink && isSameOrWithin(source, destination);
    return holdsSource || isSameOrWithin(parent, source) ? EINVAL : 0;
}

int remove(const FilePath &path)
{
    std::error_code error;
    fs::remove_all(path.toStdString(), error);
    return error.value();
}

int replace(const FilePath &source, const FilePath &destination)
{
    if (const int error = obstacle(source, destination))
        return error;
    if (const int error = remove(destination))
        return error;
    const int error = copyTree(source, destination);
    if (error != 0)
        remove(destination); // Half an application would still look like one.
    return error;
}

} // namespace

std::optional<QString> copyApplication(const FilePath &source, const FilePath &destination)
{
    const int error = replace(source, destination);
    return error == 0 ? std::nullopt : std::optional(qt_error_string(error));
}
