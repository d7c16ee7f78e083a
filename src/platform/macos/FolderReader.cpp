#include "platform/FolderReader.h"

#include "platform/Descriptor.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>

#include <fcntl.h>
#include <sys/attr.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/vnode.h>
#include <unistd.h>

namespace tidlo {

namespace {

constexpr int listingFlags = O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK;

FileKind kindOfMode(mode_t mode)
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

FileKind kindOfObject(fsobj_type_t type)
{
    switch (type) {
    case VNON:
        return FileKind::unknown;
    case VREG:
        return FileKind::regular;
    case VDIR:
        return FileKind::directory;
    case VLNK:
        return FileKind::symbolicLink;
    default:
        return FileKind::other;
    }
}

/// Reads the next value of a record, in which values are not aligned.
template <typename Value>
Value taken(const char *&position)
{
    Value value;
    std::memcpy(&value, position, sizeof value);
    position += sizeof value;
    return value;
}

} // namespace

FolderOpener::FolderOpener()
    : confined(true)
{}

Descriptor FolderOpener::openRoot(const FilePath &path, bool followsLink) const
{
    const PathLocation location(path);
    if (!location.isValid())
        return Descriptor::failed(location.error());
    const int flags = listingFlags | (followsLink ? 0 : O_NOFOLLOW);
    return Descriptor(uninterrupted([&] { return openat(location.folder(), location.name(), flags); }));
}

Descriptor FolderOpener::openBeneath(int parent, const char *name) const
{
    Descriptor folder(uninterrupted([&] { return openat(parent, name, listingFlags | O_NOFOLLOW_ANY); }));
    struct stat above;
    struct stat below;
    if (folder.isValid() && fstat(parent, &above) == 0 && fstat(folder.get(), &below) == 0 &&
        above.st_dev != below.st_dev)
        return Descriptor::failed(EXDEV);
    return folder;
}

struct FolderReader::Buffer
{
    static constexpr size_t longestRecord = 2'048;

    alignas(8) std::array<char, 64 * 1024> bytes;
    int left = 0; ///< Records that were not read yet.
    const char *position = nullptr;
};

FolderReader::FolderReader()
{
    // For this thread: listing leaves access times alone, and downloads nothing from iCloud.
    setiopolicy_np(IOPOL_TYPE_VFS_ATIME_UPDATES, IOPOL_SCOPE_THREAD, IOPOL_ATIME_UPDATES_OFF);
    setiopolicy_np(IOPOL_TYPE_VFS_MATERIALIZE_DATALESS_FILES, IOPOL_SCOPE_THREAD, IOPOL_MATERIALIZE_DATALESS_FILES_OFF);
}

FolderReader::~FolderReader() = default;

FolderReader::Batch FolderReader::readBatch(int folder)
{
    attrlist wanted{};
    wanted.bitmapcount = ATTR_BIT_MAP_COUNT;
    wanted.commonattr = ATTR_CMN_RETURNED_ATTRS | ATTR_CMN_ERROR | ATTR_CMN_NAME | ATTR_CMN_OBJTYPE;
    if (!buffer)
        buffer = std::make_unique_for_overwrite<Buffer>();
    buffer->position = buffer->bytes.data();
    buffer->left =
        uninterrupted([&] { return getattrlistbulk(folder, &wanted, buffer->bytes.data(), buffer->bytes.size(), 0); });
    failure = buffer->left < 0 ? errno : 0;
    if (buffer->left <= 0)
        return std::exchange(buffer->left, 0) == 0 ? Batch::end : Batch::failed;
    size_t filled = 0;
    for (int record = 0; record < buffer->left; ++record) {
        const char *length = buffer->bytes.data() + filled;
        filled += taken<uint32_t>(length);
    }
    return filled + Buffer::longestRecord > buffer->bytes.size() ? Batch::full : Batch::some;
}

std::optional<FolderReader::Entry> FolderReader::nextEntry()
{
    while (buffer && buffer->left > 0) {
        --buffer->left;
        const char *position = buffer->position;
        buffer->position += taken<uint32_t>(position);
        const auto told = taken<attribute_set_t>(position).commonattr;
        if ((told & ATTR_CMN_ERROR) != 0)
            position += sizeof(uint32_t);
        if ((told & ATTR_CMN_NAME) == 0)
            continue; // It was removed during the listing.
        const char *reference = position;
        const auto name = taken<attrreference_t>(position);
        const bool isTyped = (told & ATTR_CMN_OBJTYPE) != 0;
        return Entry{.name =
                         QByteArrayView(reference + name.attr_dataoffset, static_cast<qsizetype>(name.attr_length) - 1),
                     .kind = isTyped ? kindOfObject(taken<fsobj_type_t>(position)) : FileKind::unknown};
    }
    return std::nullopt;
}

std::optional<EntryStatus> statusOf(int folder, const char *name, StatusDetail)
{
    struct stat status;
    const auto ask = [&] {
        return *name == '\0' ? fstat(folder, &status) : fstatat(folder, name, &status, AT_SYMLINK_NOFOLLOW);
    };
    if (uninterrupted(ask) != 0)
        return std::nullopt;
    return EntryStatus{
        .attributes = {.kind = kindOfMode(status.st_mode),
                       .size = status.st_size,
                       .allocatedSize = bytesOnDisk(static_cast<quint64>(std::max<qint64>(status.st_blocks, 0))),
                       .modified = fileTime(status.st_mtimespec.tv_sec, status.st_mtimespec.tv_nsec)},
        .mount = static_cast<quint64>(status.st_dev),
        .device = static_cast<quint64>(status.st_dev),
        .inode = status.st_ino,
        .links = static_cast<quint32>(status.st_nlink)};
}

std::optional<FolderIdentity> identityOf(int folder)
{
    struct stat status;
    if (uninterrupted([&] { return fstat(folder, &status); }) != 0)
        return std::nullopt;
    return FolderIdentity{.device = static_cast<quint64>(status.st_dev), .inode = status.st_ino};
}

} // namespace tidlo
