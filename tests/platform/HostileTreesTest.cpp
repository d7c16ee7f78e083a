// Trees on which walkers can fail: very deep, very wide, changing, or without permission to enter.

#include "platform/Allocation.h"
#include "platform/ApplicationCopier.h"
#include "platform/Descriptor.h"
#include "platform/DirectoryWalker.h"
#include "platform/LiveFileManager.h"
#include "support/DeepTree.h"
#include "support/InChild.h"
#include "support/TemporaryHome.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <thread>

#include <fcntl.h>
#include <sys/stat.h>

namespace tidlo {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

QList<CollectedItem> targetsIn(const FilePath &root)
{
    const auto visit = [](const EnumeratedEntry &entry) {
        return entry.name() == "target" ? Visit{Visit::Action::collect} : Visit{};
    };
    return DirectoryWalker().enumerate({.roots = {root}, .visit = visit}, {});
}

/// A chain of folders, each with a file of one block; with teeth, also with a folder that holds another such file.
void makeComb(const FilePath &top, int levels, bool teeth)
{
    makeChain(top, "d", levels, [teeth](int folder, int) {
        makeFile(folder, "file", block);
        if (!teeth)
            return;
        makeFolder(folder, "tooth");
        const Descriptor tooth(openat(folder, "tooth", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        makeFile(tooth.get(), "file", block);
    });
}

/// Checks \a actual in a child process, which has no test framework to report more.
bool isExpected(qint64 actual, qint64 expected)
{
    if (actual != expected)
        std::printf("%lld instead of %lld\n", actual, expected);
    return actual == expected;
}

} // namespace

TEST(HostileTrees, TenThousandNestedFoldersAreCountedToTheLast)
{
    const TemporaryHome home(TemporaryHome::parentInMemory());
    makeComb(home.folder("deep"), 10'000, false);
    EXPECT_EQ(sizeOf(home / "deep"), 10'001 * block);
}

TEST(HostileTrees, ACombOfFiveThousandLevelsIsCountedWithFewDescriptors)
{
    const TemporaryHome home(TemporaryHome::parentInMemory());
    makeComb(home.folder("comb"), 5'000, true);
    const ChildResult result =
        inChild([&] { return limitDescriptors(64) && isExpected(sizeOf(home / "comb"), 2 * 5'001 * block); });
    EXPECT_TRUE(result.succeeded) << result.output;
}

TEST(HostileTrees, ItemsBeyondThePathLimitAreFoundMeasuredAndFoundAgain)
{
    const TemporaryHome home;
    const QByteArray name(250, 'n');
    makeChain(home.folder("deep"), name.constData(), 40, [](int folder, int level) {
        if (level != 40)
            return;
        makeFolder(folder, "target");
        const Descriptor target(openat(folder, "target", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        makeFile(target.get(), "file", block);
    });
    const QList<CollectedItem> items = targetsIn(home / "deep");
    ASSERT_EQ(items.size(), 1);
    const FilePath path = items.at(0).path;
    EXPECT_EQ(path, home / ("deep/" + (name + '/').repeated(40) + "target"));
    EXPECT_EQ(items.at(0).allocatedSize, block);

    const LiveFileManager files;
    EXPECT_TRUE(files.fileExists(path));
    EXPECT_FALSE(files.fileExists(path + "/missing"));
    EXPECT_FALSE(files.fileExists(home / ("missing" + FilePath("/.").repeated(PATH_MAX))));
    EXPECT_TRUE(files.fileExists(home / ("deep" + FilePath(PATH_MAX, '/') + name)));
    EXPECT_FALSE(files.fileExists(home / FilePath(PATH_MAX, 'n')));
    EXPECT_THAT(targetsIn(home / FilePath(PATH_MAX, 'n')), IsEmpty());
    EXPECT_EQ(files.attributesOfItem(path + "/file")->size, block);
    EXPECT_EQ(files.contentsOfDirectory(path)->size(), 1);
    EXPECT_THAT(files.allocatedSizes({path, path + "/file"}, {}), ElementsAre(block, block));
}

TEST(HostileTrees, AFolderOfAHundredThousandEntriesIsCountedToTheLast)
{
    const TemporaryHome home(TemporaryHome::parentInMemory());
    const FilePath folder = home.folder("wide");
    constexpr int entries = 100'000; // More than a hundred batches of a listing.
    constexpr int names = 50'000;    // Of one file; some file systems allow at most 65,000.
    const Descriptor wide(open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    QByteArray file;
    for (int entry = 0; entry < entries; ++entry) {
        const QByteArray name = QByteArray::number(entry);
        if (entry % names == 0)
            makeFile(wide.get(), (file = name).constData(), block);
        else
            ASSERT_EQ(linkat(wide.get(), file.constData(), wide.get(), name.constData(), 0), 0);
    }
    EXPECT_EQ(sizeOf(folder), entries * block);
}

TEST(HostileTrees, AFolderOfManyFoldersIsCountedWithFewDescriptors)
{
    const TemporaryHome home(TemporaryHome::parentInMemory());
    const FilePath folder = home.folder("wide");
    const Descriptor wide(open(folder.constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    for (int entry = 0; entry < 20'000; ++entry)
        makeFolder(wide.get(), QByteArray::number(entry).constData());
    home.file("wide/777/file", block);
    home.file("wide/19999/file", block);
    const ChildResult result = inChild([&] { return limitDescriptors(64) && isExpected(sizeOf(folder), 2 * block); });
    EXPECT_TRUE(result.succeeded) << result.output;
}

TEST(HostileTrees, LinkLoopsEnd)
{
    const TemporaryHome home;
    home.file("a/b/file", block);
    home.link("a/b/up", "..");
    home.link("a/one", "two");
    home.link("a/two", "one");
    home.link("a/self", "self");
    EXPECT_EQ(sizeOf(home / "a"), block);
    EXPECT_EQ(sizeOf(home / "a/self"), 0);
    EXPECT_TRUE(targetsIn(home / "a/self").isEmpty());
}

TEST(HostileTrees, EntriesThatComeAndGoMeanwhileDoNoHarm)
{
    const TemporaryHome home;
    for (int folder = 0; folder < 200; ++folder)
        home.file("tree/" + QByteArray::number(folder) + "/stays", block);
    std::atomic<bool> done = false;
    std::jthread disturber([&] {
        for (int turn = 0; !done; turn = (turn + 1) % 200) {
            const FilePath folder = home / ("tree/" + QByteArray::number(turn));
            const FilePath moved = home / "tree/moved";
            rename(folder.constData(), moved.constData());
            mkdir((moved + "/new").constData(), 0755);
            rename(moved.constData(), folder.constData());
            rmdir((folder + "/new").constData());
        }
    });
    for (int walk = 0; walk < 50; ++walk) {
        const qint64 size = sizeOf(home / "tree");
        EXPECT_GT(size, 0);
        EXPECT_LE(size, 400 * block); // A folder that is moved may be met twice, but at most once under each name.
    }
    done = true;
    disturber.join();
    EXPECT_EQ(sizeOf(home / "tree"), 200 * block);
}

TEST(HostileTrees, ARootThatVanishesWhileItIsReadEndsTheWalk)
{
    const TemporaryHome home(TemporaryHome::parentInMemory());
    for (int folder = 0; folder < 500; ++folder)
        home.folder("root/" + QByteArray::number(folder) + "/a/b");
    std::atomic<bool> first = true;
    const auto visit = [&](const EnumeratedEntry &) {
        if (first.exchange(false))
            rename((home / "root").constData(), (home / "elsewhere").constData());
        return Visit{};
    };
    DirectoryWalker().enumerate({.roots = {home / "root"}, .visit = visit}, {});
    EXPECT_FALSE(first);
}

TEST(HostileTrees, AFolderSwappedForALinkNeverLeadsOutside)
{
    const TemporaryHome home;
    home.file("tree/folder/inner/file", block);
    home.file("outside/inner/huge", 100 * block);
    const FilePath folder = home / "tree/folder";
    const FilePath link = home.link("link", home / "outside");
    std::atomic<bool> done = false;
    std::atomic<int> swaps = 0;
    std::jthread swapper([&] {
        for (; !done; ++swaps)
            exchangeItems(folder, link);
    });
    for (int walk = 0; walk < 2'000 || swaps < 2'000; ++walk)
        ASSERT_LE(sizeOf(home / "tree"), block);
    done = true;
}

TEST(HostileTrees, WhatMayNotBeReadIsPassedOver)
{
    const TemporaryHome home;
    home.file("tree/open/file", block);
    const FilePath closed = home / "tree/closed";
    home.file("tree/closed/file", block);
    chmod(closed.constData(), 0);
    chmod(home.path().constData(), 0755);
    const ChildResult result = inChild([&] {
        return becomeNobody() && isExpected(sizeOf(home / "tree"), block) && isExpected(sizeOf(closed), 0) &&
               !LiveFileManager().contentsOfDirectory(closed) && targetsIn(closed).isEmpty();
    });
    chmod(closed.constData(), 0755);
    EXPECT_TRUE(result.succeeded) << result.output;
}

TEST(HostileTrees, WalkingChangesNothingNotEvenAccessTimes)
{
    const TemporaryHome home;
    home.file("tree/target/file", block);
    home.file("tree/folder/.hidden/file", block);
    home.link("tree/link", "folder");
    // Any ordinary read updates an access time that is older than the modification time.
    const std::array<timespec, 2> times{timespec{.tv_sec = 1'000'000'000, .tv_nsec = 0},
                                        timespec{.tv_sec = 1'500'000'000, .tv_nsec = 0}};
    for (const char *path : {"tree/target/file", "tree/folder/.hidden/file", "tree/link", "tree/folder/.hidden",
                             "tree/folder", "tree/target", "tree"})
        ASSERT_EQ(utimensat(AT_FDCWD, (home / path).constData(), times.data(), AT_SYMLINK_NOFOLLOW), 0);
    const auto before = home.inventory();

    sizeOf(home / "tree");
    targetsIn(home / "tree");
    const LiveFileManager files;
    files.contentsOfDirectory(home / "tree");
    files.fileExists(home / "tree/target/file");
    files.attributesOfItem(home / "tree/link");

    EXPECT_EQ(home.inventory(), before);
}

} // namespace tidlo
