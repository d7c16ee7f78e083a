// The bare system calls of a scan and nothing else, as a limit for the speed of a scan.
//
// bare_calls <plan>: the plan names the home folder, "H path", and then each folder that a scan reads, parents first:
// "L path" for folders that are only listed, "S path" for those where the sizes of files are read too. Two threads
// share the parts of the plan. Prints the seconds that the calls took, without reading the plan.

#include "platform/Descriptor.h"

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <memory>
#include <string>
#include <thread>
#include <unordered_map>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/syscall.h>

namespace tidlo {

namespace {

struct Folder
{
    std::string name;
    bool sizes = false;
    std::vector<Folder *> children;
};

using Buffer = std::array<char, 32 * 1024>;

void read(int parent, const Folder &folder, Buffer &buffer)
{
    const int descriptor =
        openat(parent, folder.name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC | O_NOATIME);
    for (long filled = 0; (filled = syscall(SYS_getdents64, descriptor, buffer.data(), buffer.size())) > 0;) {
        for (long position = 0; folder.sizes && position < filled;) {
            const char *record = buffer.data() + position;
            unsigned short length = 0;
            std::memcpy(&length, record + 16, sizeof length);
            struct statx status;
            if (record[18] == 8 /* DT_REG */)
                statx(descriptor, record + 19, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, STATX_TYPE | STATX_BLOCKS,
                      &status);
            position += length;
        }
    }
    for (const Folder *child : folder.children)
        read(descriptor, *child, buffer);
    close(descriptor);
}

} // namespace

} // namespace tidlo

int main(int count, char **arguments)
{
    using namespace tidlo;
    if (count != 2) {
        std::fprintf(stderr, "usage: bare_calls <plan>\n");
        return 2;
    }
    std::ifstream plan(arguments[1]);
    std::vector<std::unique_ptr<Folder>> folders;
    std::unordered_map<std::string, Folder *> known;
    std::vector<Folder *> parts; // Each is read from the beginning of its path.
    constexpr long levelsOfParts = 3;
    std::string home;
    for (std::string line; std::getline(plan, line);) {
        const std::string path = line.substr(2);
        if (line[0] == 'H') {
            home = path;
            continue;
        }
        Folder &folder = *folders.emplace_back(std::make_unique<Folder>());
        folder.sizes = line[0] == 'S';
        known[path] = &folder;
        const size_t slash = path.rfind('/');
        const auto parent = known.find(path.substr(0, slash));
        const long level = std::count(path.begin() + static_cast<long>(home.size()), path.end(), '/');
        if (parent == known.end() || level <= levelsOfParts) {
            folder.name = path;
            parts.push_back(&folder);
        } else {
            folder.name = path.substr(slash + 1);
            parent->second->children.push_back(&folder);
        }
    }
    std::atomic<size_t> next = 0;
    const auto work = [&] {
        const auto buffer = std::make_unique<Buffer>();
        for (size_t part = 0; (part = next++) < parts.size();)
            read(AT_FDCWD, *parts[part], *buffer);
    };
    const auto begin = std::chrono::steady_clock::now();
    {
        const std::jthread other(work);
        work();
    }
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
    std::printf("%.6f\n", taken.count());
}
