// Prints the allocated bytes of each path: measure <workers> <path>...  With 0 workers the number depends on the disks.

#include "platform/DirectoryWalker.h"

#include <cstdio>
#include <cstdlib>

int main(int count, char **arguments)
{
    using namespace tidlo;
    if (count < 3) {
        std::fprintf(stderr, "usage: measure <workers> <path>...\n");
        return 2;
    }
    const QList<FilePath> paths(arguments + 2, arguments + count);
    for (const qint64 size : DirectoryWalker(std::atoi(arguments[1])).allocatedSizes(paths, {}))
        std::printf("%lld\n", size);
}
