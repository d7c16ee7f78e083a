#include "platform/FolderReader.h"

#include "platform/Descriptor.h"

#include <array>
#include <cerrno>
#include <cstddef>
#include <cstring>
#include <limits>
#include <string>

#include <dirent.h>
#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/sysmacros.h>
#include <unistd.h>

namespace tidlo {

namespace {

constexpr int listingFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK;

/// Only a file's owner may use O_NOATIME; everybody else lists without it.
template <typename Open>
Descriptor withoutAccessTime(Open open)
{
    Descriptor opened(uninterrupted([&] { return open(O_NOATIME); }));
    return opened.error() == EPERM ? Descriptor(uninterrupted([&] { return open(0); })) : std::move(opened);
}

/// Names come from listings, so none contains "..". RESOLVE_BENEATH would only check that again, under a lock that the
/// whole system shares.
int openConfined(int parent, const char *name, int flags)
{
    open_how how{};
    how.flags = static_cast<quint64>(flags);
    how.resolve = RESOLVE_NO_SYMLINKS | RESOLVE_NO_MAGICLINKS | RESOLVE_NO_XDEV;
    return static_cast<int>(syscall(SYS_openat2, parent, name, &how, sizeof how));
}

quint64 mountOf(int folder)
{
    const std::optional<EntryStatus> status = statusOf(folder, "", StatusDetail::sizeOnDisk);
    return status ? status->mount : 0;
}

FileKind kindOfMode(unsigned mode)
{
    switch (mode & S_IFMT) {
    case S_IFREG:
        return FileKind::regular;
    case S_IFDIR:
        return FileKind::directory;
    case S_IFLNK:
        return FileKind::symbolicLink;
    default:
        return FileKind::other;
    }
}

FileKind kindOfListing(unsigned char type)
{
    return type == DT_UNKNOWN ? FileKind::unknown : kindOfMode(DTTOIF(type));
}

} // namespace

FolderOpener::FolderOpener()
{
    const Descriptor probe(openConfined(AT_FDCWD, ".", O_PATH | O_DIRECTORY | O_CLOEXEC));
    confined = probe.error() != ENOSYS && probe.error() != EPERM;
}

Descriptor FolderOpener::openRoot(const FilePath &path, bool followsLink) const
{
    const PathLocation location(path);
    if (!location.isValid())
        return Descriptor::failed(location.error());
    const int linkFlag = followsLink ? 0 : O_NOFOLLOW;
    return withoutAccessTime(
        [&](int flags) { return openat(location.folder(), location.name(), listingFlags | linkFlag | flags); });
}

Descriptor FolderOpener::openBeneath(int parent, const char *name) const
{
    if (!confined)
        return openStepwise(parent, name);
    return withoutAccessTime([&](int flags) { return openConfined(parent, name, listingFlags | O_NOFOLLOW | flags); });
}

Descriptor FolderOpener::openStepwise(int parent, const char *name) const
{
    const quint64 mount = mountOf(parent);
    Descriptor folder;
    for (const char *begin = name; *begin != '\0';) {
        const char *end = strchrnul(begin, '/');
        const std::string component(begin, end);
        const int from = folder.isValid() ? folder.get() : parent;
        folder = withoutAccessTime(
            [&](int flags) { return openat(from, component.c_str(), listingFlags | O_NOFOLLOW | flags); });
        if (!folder.isValid())
            return folder;
        if (mountOf(folder.get()) != mount)
            return Descriptor::failed(EXDEV);
        begin = *end == '/' ? end + 1 : end;
    }
    return folder;
}

struct FolderReader::Buffer
{
    struct Record // As the kernel lays it out.
    {
        quint64 inode;
        qint64 offset;
        unsigned short length;
        unsigned char type;
        char name[1];
    };
    static constexpr size_t longestRecord = offsetof(Record, name) + NAME_MAX + 8;

    alignas(Record) std::array<char, 32'768> bytes;
    size_t filled = 0;
    size_t position = 0;
};

FolderReader::FolderReader() = default;

FolderReader::~FolderReader() = default;

FolderReader::Batch FolderReader::readBatch(int folder)
{
    if (!buffer)
        buffer = std::make_unique_for_overwrite<Buffer>();
    buffer->position = 0;
    buffer->filled = 0;
    const long count =
        uninterrupted([&] { return syscall(SYS_getdents64, folder, buffer->bytes.data(), buffer->bytes.size()); });
    failure = count < 0 ? errno : 0;
    if (count <= 0)
        return count == 0 ? Batch::end : Batch::failed;
    buffer->filled = static_cast<size_t>(count);
    return buffer->filled + Buffer::longestRecord > buffer->bytes.size() ? Batch::full : Batch::some;
}

std::optional<FolderReader::Entry> FolderReader::nextEntry()
{
    while (buffer && buffer->position < buffer->filled) {
        const auto *record = reinterpret_cast<const Buffer::Record *>(buffer->bytes.data() + buffer->position);
        buffer->position += record->length;
        const char *name = record->name;
        if (name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0')))
            continue;
        return Entry{.name = QByteArrayView(name, static_cast<qsizetype>(std::strlen(name))),
                     .kind = kindOfListing(record->type)};
    }
    return std::nullopt;
}

std::optional<EntryStatus> statusOf(int folder, const char *name, StatusDetail detail)
{
    constexpr unsigned least = STATX_TYPE | STATX_BLOCKS | STATX_MNT_ID | STATX_INO | STATX_NLINK;
    const unsigned wanted = detail == StatusDetail::sizeOnDisk ? least : least | STATX_SIZE | STATX_MTIME;
    const int flags = AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT | (*name == '\0' ? AT_EMPTY_PATH : 0);
    struct statx status;
    if (uninterrupted([&] { return statx(folder, name, flags, wanted, &status); }) != 0)
        return std::nullopt;
    const auto told = [&status](unsigned field) { return (status.stx_mask & field) != 0; };
    EntryStatus result;
    if (told(STATX_TYPE))
        result.attributes.kind = kindOfMode(status.stx_mode);
    if (told(STATX_BLOCKS))
        result.attributes.allocatedSize = bytesOnDisk(status.stx_blocks);
    if (told(STATX_SIZE) && status.stx_size <= static_cast<quint64>(std::numeric_limits<qint64>::max()))
        result.attributes.size = static_cast<qint64>(status.stx_size);
    if (told(STATX_MTIME))
        result.attributes.modified = fileTime(status.stx_mtime.tv_sec, status.stx_mtime.tv_nsec);
    result.device = makedev(status.stx_dev_major, status.stx_dev_minor);
    if (told(STATX_INO))
        result.inode = status.stx_ino;
    if (told(STATX_NLINK))
        result.links = status.stx_nlink;
    // Before Linux 5.8 the device must serve instead, which two mounts may share.
    result.mount = told(STATX_MNT_ID) ? status.stx_mnt_id : result.device;
    return result;
}

std::optional<FolderIdentity> identityOf(int folder)
{
    struct stat status;
    if (uninterrupted([&] { return fstat(folder, &status); }) != 0)
        return std::nullopt;
    return FolderIdentity{.device = status.st_dev, .inode = status.st_ino};
}

} // namespace tidlo
