#include "platform/StorageDevice.h"

#include <filesystem>
#include <fstream>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <utility>

#include <sys/stat.h>
#include <sys/sysmacros.h>

namespace tidlo {

namespace {

namespace fs = std::filesystem;

/// The block device a file system of this number was mounted from, for those that have a number of their own, such as
/// btrfs. The format is that of proc(5), mountinfo.
std::optional<dev_t> sourceDevice(dev_t anonymous)
{
    const std::string number = std::to_string(major(anonymous)) + ':' + std::to_string(minor(anonymous));
    std::ifstream mounts("/proc/self/mountinfo");
    for (std::string line; std::getline(mounts, line);) {
        std::istringstream fields(line);
        std::string mountId, parentId, device;
        fields >> mountId >> parentId >> device;
        const size_t separator = line.find(" - ");
        if (device != number || separator == std::string::npos)
            continue;
        std::istringstream rest(line.substr(separator + 3));
        std::string type, source;
        rest >> type >> source;
        struct stat status;
        if (source.starts_with("/dev/") && stat(source.c_str(), &status) == 0 && S_ISBLK(status.st_mode))
            return status.st_rdev;
    }
    return std::nullopt;
}

bool saysItRotates(const fs::path &device)
{
    // A partition has no queue of its own.
    for (const fs::path &queue : {device / "queue", device / ".." / "queue"}) {
        int rotational = 0;
        if (std::ifstream(queue / "rotational") >> rotational)
            return rotational == 1;
    }
    return false;
}

/// The driver of virtual disks says of each that it rotates, because it cannot know.
bool isVirtual(const fs::path &device)
{
    std::error_code error;
    for (const fs::path &driver : {device / "device/driver", device / "../device/driver"})
        if (fs::read_symlink(driver, error).filename() == "virtio_blk")
            return true;
    return false;
}

/// \a device is a folder of sysfs. A device made of others rotates if one of those does.
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

bool anyDiskRotates(const QList<FilePath> &paths)
{
    std::set<dev_t> devices;
    for (const FilePath &path : paths) {
        struct stat status;
        if (stat(path.constData(), &status) == 0)
            devices.insert(status.st_dev);
    }
    for (const dev_t device : devices) {
        const dev_t disk = major(device) == 0 ? sourceDevice(device).value_or(0) : device;
        std::error_code error;
        const std::string link = "/sys/dev/block/" + std::to_string(major(disk)) + ':' + std::to_string(minor(disk));
        const fs::path folder = disk == 0 ? fs::path() : fs::canonical(link, error);
        if (!folder.empty() && rotates(folder))
            return true;
    }
    return false;
}

} // namespace tidlo
