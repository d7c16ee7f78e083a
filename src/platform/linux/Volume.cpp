#include "platform/Volume.h"

#include "platform/Paths.h"
#include "platform/linux/MountTable.h"
#include "platform/linux/OpenFolder.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <filesystem>
#include <fstream>
#include <set>

#include <linux/magic.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <sys/vfs.h>

namespace tidlo {

namespace {

namespace fs = std::filesystem;

FilePath numberText(dev_t device)
{
    return QByteArray::number(major(device)) + ':' + QByteArray::number(minor(device));
}

/// The block device from which a file system was mounted, for file systems such as btrfs that have a device number of
/// their own; 0 if there is none.
dev_t sourceDevice(dev_t anonymous)
{
    const OrError<MountTable> mounts = readMounts(uninterrupted(SystemCalls()));
    for (const FilePath &source : mounts ? mounts->sourcesOf(numberText(anonymous)) : QList<FilePath>()) {
        struct stat status;
        if (source.startsWith("/dev/") && stat(source.constData(), &status) == 0 && S_ISBLK(status.st_mode))
            return status.st_rdev;
    }
    return 0;
}

bool saysItRotates(const fs::path &device)
{
    // A partition has no queue folder of its own.
    for (const fs::path &queue : {device / "queue", device / ".." / "queue"}) {
        int rotational = 0;
        if (std::ifstream(queue / "rotational") >> rotational)
            return rotational == 1;
    }
    return false;
}

/// The driver of virtual disks reports each as rotating, because it does not know.
bool isVirtual(const fs::path &device)
{
    std::error_code error;
    for (const fs::path &driver : {device / "device/driver", device / "../device/driver"})
        if (fs::read_symlink(driver, error).filename() == "virtio_blk")
            return true;
    return false;
}

/// \a device is a folder of sysfs. A device that consists of others rotates if one of those does.
bool rotates(const fs::path &device)
{
    std::error_code error;
    bool isMadeOfOthers = false;
    for (const fs::directory_entry &part : fs::directory_iterator(device / "slaves", error)) {
        isMadeOfOthers = true;
        if (rotates(part.path()))
            return true;
    }
    return !isMadeOfOthers && saysItRotates(device) && !isVirtual(device);
}

} // namespace

std::optional<VolumeCapacity> volumeCapacityOf(const FilePath &path)
{
    return fileSystemCapacityOf(path); // The system here does not free any space on demand.
}

bool mayShareBlocks(const FilePath &path)
{
    // Btrfs, XFS (unless created without it), ZFS and bcachefs; no header here defines the last two.
    constexpr std::array<quint32, 4> kinds{BTRFS_SUPER_MAGIC, XFS_SUPER_MAGIC, 0x2FC12FC1, 0xCA451A4E};
    struct statfs status;
    return uninterrupted([&] { return statfs(path.constData(), &status); }) == 0 &&
           std::ranges::any_of(kinds, [&](quint32 kind) { return kind == static_cast<quint32>(status.f_type); });
}

bool anyDiskRotates(const QList<FilePath> &paths)
{
    std::set<dev_t> devices;
    for (const FilePath &path : paths) {
        struct stat status;
        if (stat(path.constData(), &status) == 0)
            devices.insert(status.st_dev);
    }
    for (const dev_t device : devices) {
        const dev_t disk = major(device) == 0 ? sourceDevice(device) : device;
        std::error_code error;
        const FilePath link = "/sys/dev/block/" + numberText(disk);
        const fs::path folder = disk == 0 ? fs::path() : fs::canonical(link.toStdString(), error);
        if (!folder.empty() && rotates(folder))
            return true;
    }
    return false;
}

int mountObstacle(const FilePath &path)
{
    const SystemCalls calls = uninterrupted(SystemCalls());
    const qsizetype slash = path.lastIndexOf('/');
    const OrError<OpenFolder> folder = openFolder(calls, path.left(std::max<qsizetype>(slash, 1)));
    if (!folder)
        return folder.error();
    const OrError<MountTable> mounts = readMounts(calls);
    if (!mounts)
        return mounts.error();
    const auto place = mounts->place(folder->mount, joined(folder->path, path.mid(slash + 1)));
    return !place || mounts->hasMountWithin(*place) ? EBUSY : 0;
}

} // namespace tidlo
