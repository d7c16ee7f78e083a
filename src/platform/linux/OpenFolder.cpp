#include "platform/linux/OpenFolder.h"

#include "platform/Paths.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>

#include <sys/sysmacros.h>

namespace tidlo {

namespace {

/// The beginning of the path that fits into one call, up to a slash; all of it if it fits.
FilePath firstStretch(const FilePath &path)
{
    return path.size() < PATH_MAX ? path : path.left(path.lastIndexOf('/', PATH_MAX - 1));
}

/// The path that the kernel reports for a descriptor. It is trusted only if it leads to the same folder: for a removed
/// folder the kernel reports a path that never existed.
OrError<FilePath> truePath(const SystemCalls &calls, int folder)
{
    FilePath path(PATH_MAX, '\0');
    const QByteArray entry = "/proc/self/fd/" + QByteArray::number(folder);
    const ssize_t size = calls.readlinkat(AT_FDCWD, entry.constData(), path.data(), path.size());
    if (size < 0)
        return Errno{errno};
    path.truncate(size);
    const OrError<Identity> there = identityAt(calls, folder, AT_FDCWD, path.constData());
    if (!there)
        return Errno{there.error()};
    return *there == Identity::same ? OrError(path) : Errno{ESTALE};
}

/// A folder that was opened exists: an \a error that says otherwise is replaced.
int thoughItExists(int error)
{
    return error == ENOENT || error == ENOTDIR ? ESTALE : error;
}

/// Opens the folders \a names from \a folder on, one after another, so that the path stays known. Returns 0 or the
/// errno.
int stepDown(const SystemCalls &calls, OpenFolder &folder, const FilePath &names)
{
    for (const FilePath &name : names.split('/')) {
        if (name.isEmpty() || name == ".")
            continue;
        Descriptor next(calls.openat(folder.descriptor.get(), name.constData(), asFolder | O_NOFOLLOW, 0));
        if (next.isValid() ? name == ".." : next.error() == ENOTDIR)
            return ELOOP; // A link or ".." may lead away from the known path.
        if (!next.isValid())
            return next.error();
        folder.descriptor = std::move(next);
        folder.path = joined(folder.path, name);
    }
    return 0;
}

} // namespace

ItemIdentity identityIn(const struct statx &status)
{
    return {.device = makedev(status.stx_dev_major, status.stx_dev_minor), .inode = status.stx_ino};
}

OrError<ItemIdentity> identityOf(const SystemCalls &calls, int descriptor)
{
    struct statx status;
    if (calls.statx(descriptor, "", AT_EMPTY_PATH, STATX_INO, &status) != 0)
        return Errno{errno};
    return identityIn(status);
}

OrError<Identity> identityAt(const SystemCalls &calls, int held, int folder, const char *name)
{
    // Both are read anew: on layered file systems a number may change when an item is moved.
    struct statx one;
    struct statx other;
    if (calls.statx(held, "", AT_EMPTY_PATH, STATX_INO, &one) != 0)
        return Errno{errno};
    if (calls.statx(folder, name, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, STATX_INO, &other) != 0)
        return errno == ENOENT ? OrError(Identity::absent) : Errno{errno};
    return identityIn(one) == identityIn(other) ? Identity::same : Identity::different;
}

OrError<OpenFolder> openFolder(const SystemCalls &calls, const FilePath &path)
{
    const FilePath start = firstStretch(path);
    OpenFolder folder{.descriptor = Descriptor(calls.openat(AT_FDCWD, start.constData(), asFolder, 0)), .path = {}};
    if (!folder.descriptor.isValid())
        return Errno{folder.descriptor.error()};
    OrError<FilePath> truth = truePath(calls, folder.descriptor.get());
    if (!truth)
        return Errno{thoughItExists(truth.error())};
    folder.path = std::move(*truth);
    if (const int error = stepDown(calls, folder, path.mid(start.size())))
        return Errno{error};
    const OrError<quint64> mount = mountOf(calls, folder.descriptor.get());
    if (!mount)
        return Errno{thoughItExists(mount.error())};
    folder.mount = *mount;
    return folder;
}

FilePath PlannedFolder::path() const
{
    FilePath whole = nearest.path;
    for (const FilePath &name : missing)
        whole = joined(whole, name);
    return whole;
}

OrError<PlannedFolder> planFolder(const SystemCalls &calls, FilePath path)
{
    QList<FilePath> missing;
    while (true) {
        OrError<OpenFolder> folder = openFolder(calls, path.isEmpty() ? FilePath("/") : path);
        if (folder)
            return PlannedFolder{.nearest = std::move(*folder), .missing = missing};
        const qsizetype slash = path.lastIndexOf('/');
        if (folder.error() != ENOENT || slash < 0)
            return Errno{folder.error()};
        missing.prepend(path.mid(slash + 1));
        path.truncate(slash);
    }
}

OrError<quint64> mountOf(const SystemCalls &calls, int descriptor)
{
    struct statx status;
    if (calls.statx(descriptor, "", AT_EMPTY_PATH, STATX_MNT_ID, &status) != 0)
        return Errno{errno};
    if ((status.stx_mask & STATX_MNT_ID) != 0)
        return quint64(status.stx_mnt_id);
    // Kernels before 5.8 report it only here.
    const auto text = readSystemFile(calls, "/proc/self/fdinfo/" + QByteArray::number(descriptor));
    if (!text)
        return Errno{text.error()};
    for (const QByteArray &line : text->split('\n')) {
        constexpr QByteArrayView key("mnt_id:");
        if (line.startsWith(key))
            return quint64(line.mid(key.size()).trimmed().toULongLong());
    }
    return Errno{ENOTSUP};
}

OrError<QByteArray> readSystemFile(const SystemCalls &calls, const QByteArray &path)
{
    const Descriptor file(calls.openat(AT_FDCWD, path.constData(), O_RDONLY | O_CLOEXEC, 0));
    if (!file.isValid())
        return Errno{file.error()};
    QByteArray text;
    std::array<char, 1 << 14> part;
    while (true) {
        const ssize_t size = calls.read(file.get(), part.data(), part.size());
        if (size < 0)
            return Errno{errno};
        if (size == 0)
            return text;
        text.append(part.data(), size);
    }
}

} // namespace tidlo
