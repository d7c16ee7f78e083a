#include "support/DeepTree.h"

#include "platform/Descriptor.h"

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include <fcntl.h>
#include <sys/stat.h>

namespace tidlo {

namespace {

void require(bool succeeded, const char *what, const char *name)
{
    if (succeeded)
        return;
    std::fprintf(stderr, "DeepTree: %s %s: %s\n", what, name, std::strerror(errno));
    std::abort();
}

Descriptor openFolder(int parent, const char *name)
{
    Descriptor folder(openat(parent, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    require(folder.isValid(), "open", name);
    return folder;
}

} // namespace

void makeFolder(int folder, const char *name)
{
    require(mkdirat(folder, name, 0755) == 0, "mkdir", name);
}

void makeFile(int folder, const char *name, qint64 bytes)
{
    const Descriptor file(openat(folder, name, O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0644));
    require(file.isValid(), "create", name);
    const std::vector<char> content(static_cast<size_t>(bytes), 'x');
    require(bytes == 0 || write(file.get(), content.data(), content.size()) == bytes, "write", name);
}

void makeChain(const FilePath &top, const char *name, int levels, const AtLevel &atLevel)
{
    Descriptor folder = openFolder(AT_FDCWD, top.constData());
    for (int level = 0; level < levels; ++level) {
        if (atLevel)
            atLevel(folder.get(), level);
        makeFolder(folder.get(), name);
        folder = openFolder(folder.get(), name);
    }
    if (atLevel)
        atLevel(folder.get(), levels);
}

} // namespace tidlo
