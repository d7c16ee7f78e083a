#include "platform/Workshop.h"

#include "platform/Descriptor.h"

#include <cstdlib>
#include <filesystem>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace tidlo {

namespace fs = std::filesystem;

namespace {

constexpr QByteArrayView placeholder("XXXXXX"); ///< Replaced by mkdtemp.

/// The common prefix of the names of all workshops for \a destination.
FilePath beginning(const FilePath &destination)
{
    const qsizetype name = destination.lastIndexOf('/') + 1;
    return destination.left(name) + '.' + destination.mid(name) + '.';
}

} // namespace

OrError<Workshop> Workshop::make(const FilePath &destination)
{
    FilePath folder = beginning(destination) + placeholder.toByteArray();
    if (mkdtemp(folder.data()) == nullptr)
        return Errno{errno};
    return locked(folder);
}

std::vector<Workshop> Workshop::leftOver(const FilePath &destination)
{
    const FilePath start = beginning(destination);
    std::vector<Workshop> found;
    std::error_code error;
    for (fs::directory_iterator entry(start.left(start.lastIndexOf('/') + 1).toStdString(), error), end;
         !error && entry != end; entry.increment(error)) {
        const FilePath path = FilePath::fromStdString(entry->path().native());
        if (!path.startsWith(start) || path.size() != start.size() + placeholder.size())
            continue;
        if (OrError<Workshop> workshop = locked(path))
            found.push_back(std::move(*workshop));
    }
    return found;
}

OrError<Workshop> Workshop::locked(const FilePath &folder)
{
    constexpr int toLock = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;
    Descriptor lock(uninterrupted([&] { return open(folder.constData(), toLock); }));
    struct stat status;
    if (!lock.isValid())
        return Errno{lock.error()};
    if (fstat(lock.get(), &status) != 0)
        return Errno{errno};
    if (status.st_uid != geteuid())
        return Errno{EACCES};
    if (flock(lock.get(), LOCK_EX | LOCK_NB) != 0)
        return Errno{errno};
    return Workshop(folder, std::move(lock));
}

} // namespace tidlo
