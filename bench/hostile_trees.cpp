// Checks, with trees too large for every test run, that the walker counts hostile trees to the last byte and never
// leaves them. Prints what was checked; exits with 1 if a count is wrong.

#include "platform/Descriptor.h"
#include "platform/DirectoryWalker.h"
#include "support/DeepTree.h"
#include "support/InChild.h"
#include "support/TemporaryHome.h"

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <thread>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/syscall.h>

namespace tidlo {

namespace {

constexpr qint64 block = 4096;
constexpr int chainLevels = 20'000;
constexpr int combLevels = 5'000;
constexpr int wideFolders = 210'000;
constexpr int swapsWanted = 500'000;

qint64 sizeOf(const FilePath &path)
{
    return DirectoryWalker().allocatedSizes({path}, {}).value(0);
}

void makeFileInFolder(int parent, const char *name)
{
    makeFolder(parent, name);
    const Descriptor folder(openat(parent, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    makeFile(folder.get(), "file", block);
}

/// Returns how many bytes it holds.
qint64 makeTree(const TemporaryHome &home)
{
    makeChain(home.folder("tree/chain"), "d", chainLevels, [](int folder, int) { makeFile(folder, "file", block); });
    makeChain(home.folder("tree/comb"), "d", combLevels, [](int folder, int) { makeFileInFolder(folder, "tooth"); });
    const Descriptor wide(open(home.folder("tree/wide").constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    for (int folder = 0; folder < wideFolders; ++folder)
        makeFolder(wide.get(), QByteArray::number(folder).constData());
    makeFileInFolder(wide.get(), "last");
    return (chainLevels + 1 + combLevels + 1 + 1) * block;
}

bool checkTree()
{
    const TemporaryHome home(TemporaryHome::parentInMemory());
    const qint64 expected = makeTree(home);
    const ChildResult result = inChild([&] {
        const auto begin = std::chrono::steady_clock::now();
        const bool isLimited = limitDescriptors(64);
        const qint64 size = sizeOf(home / "tree");
        const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - begin;
        std::printf("%d folders, a chain of %d levels, a comb of %d, a folder of %d, 64 descriptors:\n"
                    "  %lld of %lld bytes counted in %.2f s\n",
                    chainLevels + 2 * combLevels + wideFolders, chainLevels, combLevels, wideFolders, size, expected,
                    taken.count());
        return isLimited && size == expected;
    });
    std::fputs(result.output.c_str(), stdout);
    return result.succeeded;
}

bool checkSwaps()
{
    const TemporaryHome home(TemporaryHome::parentInMemory());
    home.file("tree/folder/inner/file", block);
    home.file("outside/inner/huge", 100 * block);
    const FilePath folder = home / "tree/folder";
    const FilePath link = home.link("link", home / "outside");
    std::atomic<int> swaps = 0;
    std::jthread swapper([&] {
        for (; swaps < swapsWanted; ++swaps)
            syscall(SYS_renameat2, AT_FDCWD, folder.constData(), AT_FDCWD, link.constData(), RENAME_EXCHANGE);
    });
    int walks = 0;
    int wrong = 0;
    int inside = 0;
    for (; swaps < swapsWanted; ++walks) {
        const qint64 size = sizeOf(home / "tree");
        wrong += size > block ? 1 : 0;
        inside += size == block ? 1 : 0;
    }
    std::printf("%d swaps of a folder for a link during %d walks: %d saw the folder, %d counted bytes outside\n",
                swaps.load(), walks, inside, wrong);
    return wrong == 0 && inside > 0;
}

} // namespace

} // namespace tidlo

int main()
{
    using namespace tidlo;
    const bool isTreeRight = checkTree();
    const bool areSwapsRight = checkSwaps();
    return isTreeRight && areSwapsRight ? EXIT_SUCCESS : EXIT_FAILURE;
}
