// Emulates a rotating disk: rotating_disk <image> <empty folder>
//
// Shows the image as the file "disk" in the folder, through FUSE, and answers one request at a time, each after the
// time that a disk head would need: none for sequential reads, otherwise half a turn at 7,200 turns per minute and up
// to 8 ms for the movement. Mounted through a loop device it is a block device that behaves like a real one.

#define FUSE_USE_VERSION 31

#include <cerrno>
#include <chrono>
#include <cmath>
#include <cstdio>
#include <cstring>
#include <string>
#include <thread>

#include <fcntl.h>
#include <fuse3/fuse.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tidlo {

namespace {

struct Disk
{
    int image = -1;
    off_t size = 0;
    off_t head = 0;

    void moveTo(off_t offset, size_t length)
    {
        using Milliseconds = std::chrono::duration<double, std::milli>;
        constexpr off_t trackBuffer = 128 * 1024;
        const off_t distance = std::abs(offset - head);
        if (distance > trackBuffer) {
            const double way = 8 * std::sqrt(static_cast<double>(distance) / static_cast<double>(size));
            std::this_thread::sleep_for(Milliseconds(60'000.0 / 7'200 / 2 + way));
        }
        head = offset + static_cast<off_t>(length);
    }
};

Disk disk;
const char *const path = "/disk";

int attributes(const char *name, struct stat *status, fuse_file_info *)
{
    std::memset(status, 0, sizeof *status);
    status->st_mode = std::strcmp(name, "/") == 0 ? S_IFDIR | 0755 : S_IFREG | 0600;
    status->st_nlink = 1;
    status->st_size = disk.size;
    return std::strcmp(name, "/") == 0 || std::strcmp(name, path) == 0 ? 0 : -ENOENT;
}

int list(const char *, void *buffer, fuse_fill_dir_t fill, off_t, fuse_file_info *, fuse_readdir_flags)
{
    fill(buffer, path + 1, nullptr, 0, static_cast<fuse_fill_dir_flags>(0));
    return 0;
}

int readDisk(const char *, char *buffer, size_t length, off_t offset, fuse_file_info *)
{
    disk.moveTo(offset, length);
    const ssize_t count = pread(disk.image, buffer, length, offset);
    return count < 0 ? -errno : static_cast<int>(count);
}

int writeDisk(const char *, const char *buffer, size_t length, off_t offset, fuse_file_info *)
{
    disk.moveTo(offset, length);
    const ssize_t count = pwrite(disk.image, buffer, length, offset);
    return count < 0 ? -errno : static_cast<int>(count);
}

} // namespace

} // namespace tidlo

int main(int count, char **arguments)
{
    using namespace tidlo;
    struct stat status;
    if (count != 3 || (disk.image = open(arguments[1], O_RDWR | O_CLOEXEC)) < 0 || fstat(disk.image, &status) != 0) {
        std::fprintf(stderr, "usage: rotating_disk <image> <empty folder>\n");
        return 2;
    }
    disk.size = status.st_size;
    fuse_operations operations{};
    operations.getattr = attributes;
    operations.readdir = list;
    operations.read = readDisk;
    operations.write = writeDisk;
    std::string foreground = "-f";
    std::string oneRequestAtATime = "-s";
    char *fuseArguments[] = {arguments[0], foreground.data(), oneRequestAtATime.data(), arguments[2], nullptr};
    return fuse_main(4, fuseArguments, &operations, nullptr);
}
