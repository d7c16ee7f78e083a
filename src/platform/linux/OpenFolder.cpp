#include "platform/linux/OpenFolder.h"

#include "platform/FileName.h"
#include "platform/linux/Identity.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>

namespace tidlo {

namespace {

constexpr int asFolder = O_PATH | O_DIRECTORY | O_CLOEXEC;

/// As much of the path as one call takes, up to a slash; the whole of it where that fits.
FilePath firstStretch(const FilePath &path)
{
    return path.size() < PATH_MAX ? path : path.left(path.lastIndexOf('/', PATH_MAX - 1));
}

/// The kernel's own word for where a descriptor is. It is believed only if the folder is found there again: the word
/// for one that was removed is a path that was never there.
std::optional<FilePath> truePath(const SystemCalls &calls, int folder)
{
    FilePath path(PATH_MAX, '\0');
    const QByteArray entry = "/proc/self/fd/" + QByteArray::number(folder);
    const ssize_t size = calls.readlinkat(AT_FDCWD, entry.constData(), path.data(), path.size());
    if (size < 0)
        return std::nullopt;
    path.truncate(size);
    const Identity there = identityAt(calls, folder, AT_FDCWD, path.constData());
    if (there == Identity::same)
        return path;
    errno = there == Identity::unknown ? errno : ESTALE;
    return std::nullopt;
}

/// After a folder was opened, no error means that it does not exist.
bool exists(bool succeeded)
{
    if (!succeeded && (errno == ENOENT || errno == ENOTDIR))
        errno = ESTALE;
    return succeeded;
}

bool learnPath(const SystemCalls &calls, OpenFolder &folder)
{
    std::optional<FilePath> path = truePath(calls, folder.descriptor.get());
    folder.path = path.value_or(FilePath());
    return exists(path.has_value());
}

bool learnMount(const SystemCalls &calls, OpenFolder &folder)
{
    const std::optional<quint64> mount = mountOf(calls, folder.descriptor.get());
    folder.mount = mount.value_or(0);
    return exists(mount.has_value());
}

/// Opens what \a names lead to from \a folder on, one after another, so that the path stays known.
bool stepDown(const SystemCalls &calls, OpenFolder &folder, const FilePath &names)
{
    for (const FilePath &name : names.split('/')) {
        if (name.isEmpty() || name == ".")
            continue;
        Descriptor next(calls.openat(folder.descriptor.get(), name.constData(), asFolder | O_NOFOLLOW, 0));
        if (!next.isValid() || name == "..") { // A link or ".." may lead out of what is known.
            errno = next.isValid() || errno == ENOTDIR ? ELOOP : errno;
            return false;
        }
        folder.descriptor = std::move(next);
        folder.path = joined(folder.path, name);
    }
    return true;
}

} // namespace

std::optional<OpenFolder> openFolder(const SystemCalls &calls, const FilePath &path)
{
    const FilePath start = firstStretch(path);
    OpenFolder folder{.descriptor = Descriptor(calls.openat(AT_FDCWD, start.constData(), asFolder, 0)), .path = {}};
    const bool succeeded = folder.descriptor.isValid() && learnPath(calls, folder) &&
                           stepDown(calls, folder, path.mid(start.size())) && learnMount(calls, folder);
    return succeeded ? std::optional(std::move(folder)) : std::nullopt;
}

FilePath PlannedFolder::path() const
{
    FilePath whole = nearest.path;
    for (const FilePath &name : missing)
        whole = joined(whole, name);
    return whole;
}

std::optional<PlannedFolder> planFolder(const SystemCalls &calls, FilePath path)
{
    QList<FilePath> missing;
    while (true) {
        std::optional<OpenFolder> folder = openFolder(calls, path.isEmpty() ? FilePath("/") : path);
        if (folder)
            return PlannedFolder{.nearest = std::move(*folder), .missing = missing};
        const qsizetype slash = path.lastIndexOf('/');
        if (errno != ENOENT || slash < 0)
            return std::nullopt;
        missing.prepend(path.mid(slash + 1));
        path.truncate(slash);
    }
}

std::optional<quint64> mountOf(const SystemCalls &calls, int descriptor)
{
    struct statx status;
    if (calls.statx(descriptor, "", AT_EMPTY_PATH, STATX_MNT_ID, &status) != 0)
        return std::nullopt;
    if ((status.stx_mask & STATX_MNT_ID) != 0)
        return status.stx_mnt_id;
    // Kernels before 5.8 tell it here alone.
    const auto text = readSystemFile(calls, "/proc/self/fdinfo/" + QByteArray::number(descriptor));
    if (!text)
        return std::nullopt;
    for (const QByteArray &line : text->split('\n')) {
        constexpr QByteArrayView key("mnt_id:");
        if (line.startsWith(key))
            return line.mid(key.size()).trimmed().toULongLong();
    }
    errno = ENOTSUP;
    return std::nullopt;
}

std::optional<QByteArray> readSystemFile(const SystemCalls &calls, const QByteArray &path)
{
    const Descriptor file(calls.openat(AT_FDCWD, path.constData(), O_RDONLY | O_CLOEXEC, 0));
    if (!file.isValid())
        return std::nullopt;
    QByteArray text;
    std::array<char, 1 << 14> part;
    while (true) {
        const ssize_t size = calls.read(file.get(), part.data(), part.size());
        if (size <= 0)
            return size == 0 ? std::optional(text) : std::nullopt;
        text.append(part.data(), size);
    }
}

} // namespace tidlo
