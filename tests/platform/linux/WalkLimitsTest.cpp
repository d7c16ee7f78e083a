// Walks that may keep only few folders open, and how closed folders are reopened.

#include "platform/Allocation.h"
#include "platform/Descriptor.h"
#include "platform/DirectoryWalker.h"
#include "platform/LiveFileManager.h"
#include "platform/TreeWalk.h"
#include "support/DeepTree.h"
#include "support/InChild.h"
#include "support/OwnMounts.h"
#include "support/TemporaryHome.h"

#include <gmock/gmock.h>

#include <cerrno>
#include <filesystem>
#include <mutex>

#include <fcntl.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/syscall.h>

namespace tidlo {

namespace {

qint64 sizeWithin(WalkLimits limits, const FilePath &path)
{
    return TreeWalk(limits, {}, nullptr).measure({path}).front().bytes;
}

/// A chain of folders, each with a file and with two empty folders: one that is listed before the next folder of the
/// chain, and one after it. So, whatever the order of listings, one must be opened after everything below has been
/// read.
qint64 makeComb(const FilePath &top, int levels)
{
    const auto withToothAndFile = [](int folder, const char *name) {
        makeFolder(folder, name);
        makeFile(folder, (FilePath(name) + ".file").constData(), block);
    };
    makeChain(top, "d", levels, [&](int folder, int) { withToothAndFile(folder, "a"); });
    Descriptor folder(open(top.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    for (int level = 0; level <= levels; ++level) {
        withToothAndFile(folder.get(), "z");
        folder = Descriptor(openat(folder.get(), "d", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    }
    return 2 * (levels + 1) * block;
}

/// Folders of \a entries folders each; some of these hold a comb.
qint64 makeWideAndDeep(const FilePath &top, int folders, int entries)
{
    qint64 bytes = 0;
    for (int number = 0; number < folders; ++number) {
        const FilePath path = top + '/' + FilePath::number(number);
        makeChain(top, FilePath::number(number).constData(), 1);
        const Descriptor folder(open(path.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        for (int entry = 0; entry < entries; ++entry) {
            const FilePath name = FilePath::number(entry);
            makeFolder(folder.get(), name.constData());
            if (entry % 100 != 0)
                continue;
            bytes += makeComb(path + '/' + name, 12);
        }
    }
    return bytes;
}

/// Makes sure that, whatever the order of listings, the next folder is not in the last batch of a listing.
void makeEntriesAfterTheNextFolder(const FilePath &top, int levels)
{
    Descriptor folder(open(top.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    for (int level = 0; level < levels; ++level) {
        for (int number = 0; number < 1'500; ++number)
            makeFile(folder.get(), ("after " + FilePath::number(number)).constData());
        folder = Descriptor(openat(folder.get(), "d", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    }
}

class WalkLimitsTest : public testing::Test
{
protected:
    TemporaryHome home{TemporaryHome::parentInMemory()};
};

} // namespace

TEST_F(WalkLimitsTest, EveryFolderIsReadOnceHoweverFewMayStayOpen)
{
    const FilePath top = home.folder("tree");
    const qint64 expected = makeWideAndDeep(top, 3, 3'000);
    for (const int workers : {1, 2, 8}) {
        for (const int openFolders : {1, 4, 64})
            EXPECT_EQ(sizeWithin({.workers = workers, .openFolders = openFolders}, top), expected)
                << workers << ' ' << openFolders;
    }
}

TEST_F(WalkLimitsTest, AWalkKeepsNoMoreDescriptorsOpenThanItMay)
{
    makeComb(home.folder("deep"), 100);
    makeChain(home.folder("wide"), "d", 30, [](int folder, int) { // Each is read in several batches, and so is shared.
        for (int number = 0; number < 1'500; ++number)
            makeFile(folder, FilePath::number(number).constData());
    });
    makeEntriesAfterTheNextFolder(home / "wide", 30);
    const auto count = [] { return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {}); };
    for (const char *tree : {"deep", "wide"}) {
        for (const int workers : {1, 8}) {
            const ChildResult result = inChild([&] {
                const ptrdiff_t before = count();
                std::mutex mutex;
                ptrdiff_t highest = 0;
                const auto visit = [&](const EnumeratedEntry &) {
                    const std::lock_guard lock(mutex);
                    highest = std::max(highest, count() - before);
                    return Visit{};
                };
                if (!limitDescriptors(80)) // 24 are kept, besides those that each worker uses.
                    return false;
                DirectoryWalker(workers).enumerate({.roots = {home / tree}, .visit = visit}, {});
                std::printf("%td more than %td\n", highest, before);
                return highest <= 24 + 3 * workers;
            });
            EXPECT_TRUE(result.succeeded) << tree << ' ' << workers << ": " << result.output;
        }
    }
}

TEST_F(WalkLimitsTest, AWayBackThatJustDoesNotFitIntoOnePathIsTakenInTwo)
{
    constexpr int levels = 40;
    const FilePath name(240, 'n'); // 17 of these with slashes between them are 4,096 bytes.
    makeChain(home.folder("tree"), name.constData(), levels, [](int folder, int) {
        makeFolder(folder, "tooth");
        const Descriptor tooth(openat(folder, "tooth", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        makeFile(tooth.get(), "file", block);
    });
    for (const int openFolders : {0, 1, 2})
        EXPECT_EQ(sizeWithin({.workers = 1, .openFolders = openFolders}, home / "tree"), (levels + 1) * block);
}

TEST_F(WalkLimitsTest, AFolderThatTookThePlaceOfOneThatWasClosedIsNotEntered)
{
    home.folder("tree/a/b");
    home.folder("other/b");
    const FolderOpener opener;
    WalkQueue queue(1);
    const auto folderOf = [](const char *name, WalkFolder *parent) {
        auto folder = std::make_unique<WalkFolder>();
        folder->name = name;
        folder->parent = parent;
        return folder;
    };
    const auto finish = [&](const WalkQueue::Taken &taken, const char *childName) {
        std::vector<std::unique_ptr<WalkFolder>> children;
        if (childName != nullptr)
            children.push_back(folderOf(childName, taken.folder));
        queue.finish(*taken.folder, true, std::move(children));
    };
    for (const bool isSwapped : {false, true}) {
        queue.addRoot(folderOf((home / "tree").constData(), nullptr));
        WalkQueue::Taken taken = queue.take();
        taken.folder->descriptor = opener.openRoot(home / "tree", false);
        finish(taken, "a");
        taken = queue.take();
        taken.folder->descriptor = opener.openBeneath(taken.parent, "a");
        ASSERT_TRUE(taken.folder->isOpen());
        finish(taken, "b"); // Now there are two to keep, and this one is closed.
        taken = queue.take();
        ASSERT_EQ(taken.parent, -1);
        if (isSwapped) {
            ASSERT_EQ(syscall(SYS_renameat2, AT_FDCWD, (home / "tree/a").constData(), AT_FDCWD,
                              (home / "other").constData(), 2 /* RENAME_EXCHANGE */),
                      0);
        }

        EXPECT_EQ(static_cast<bool>(queue.reopenParent(*taken.folder, opener)), !isSwapped);

        finish(taken, nullptr);
    }
}

TEST_F(WalkLimitsTest, NoLinkIsFollowedWhereverItStandsInAWayBack)
{
    home.folder("tree/real/inner");
    home.link("tree/link", "real");
    home.link("tree/real/up", "..");
    const auto work = [&] {
        const FolderOpener opener;
        const Descriptor tree = opener.openRoot(home / "tree", false);
        for (const char *name : {"link", "link/inner", "real/up", "real/up/real", "real/up/link/inner"}) {
            EXPECT_FALSE(opener.openBeneath(tree.get(), name).isValid()) << name;
        }
        EXPECT_TRUE(opener.openBeneath(tree.get(), "real/inner").isValid());
        return !HasFailure();
    };
    EXPECT_TRUE(work());
    for (const int error : {ENOSYS, EPERM}) {
        const ChildResult result = inChild([&] { return denySystemCall(SYS_openat2, error) && work(); });
        EXPECT_TRUE(result.succeeded) << result.output;
    }
}

TEST_F(WalkLimitsTest, AFileOfAnotherMountIsNotShown)
{
    home.file("tree/own", block);
    home.file("tree/bound", 0);
    home.file("outside", 5 * block);
    inOwnMounts([&] {
        ASSERT_EQ(mount((home / "outside").constData(), (home / "tree/bound").constData(), nullptr, MS_BIND, nullptr),
                  0);
        const auto all = [](const EnumeratedEntry &) { return Visit{.action = Visit::Action::collect}; };
        const auto items = DirectoryWalker().enumerate(
            {.roots = {home / "tree"}, .shown = DeepEnumeration::Shown::everything, .visit = all}, {});
        ASSERT_EQ(items.size(), 1);
        EXPECT_EQ(items.front().path, home / "tree/own");
    });
}

TEST_F(WalkLimitsTest, AFolderWhoseListingFailsHasNoContents)
{
    home.file("tree/file", block);
    const ChildResult result = inChild(
        [&] { return denySystemCall(SYS_getdents64, EIO) && !LiveFileManager().contentsOfDirectory(home / "tree"); });
    EXPECT_TRUE(result.succeeded) << result.output;
}

} // namespace tidlo
