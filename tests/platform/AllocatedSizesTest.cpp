#include "platform/Allocation.h"
#include "platform/Descriptor.h"
#include "platform/DirectoryWalker.h"
#include "support/TemporaryHome.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstring>

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

namespace tidlo {

using testing::ElementsAre;

TEST(AllocatedSizes, AFilesSizeIsWhatItTakesOnTheDisk)
{
    const TemporaryHome home;
    EXPECT_EQ(sizeOf(home.file("one-byte", 1)), block);
    EXPECT_EQ(sizeOf(home.file("two-blocks", block + 1)), 2 * block);
    EXPECT_EQ(sizeOf(home.file("empty", 0)), 0);
}

TEST(AllocatedSizes, TheLogicalLengthOfASparseFileDoesNotCount)
{
    const TemporaryHome home;
    EXPECT_EQ(sizeOf(home.sparseFile("sparse", qint64(1) << 40)), 0);
}

TEST(AllocatedSizes, AFoldersSizeIsThatOfAllRegularFilesBeneathItHiddenOnesIncluded)
{
    const TemporaryHome home;
    home.file("folder/a", block);
    home.file("folder/.hidden", block);
    home.file("folder/.git/objects/b", block);
    home.file("folder/deep/er/still/c", 3 * block);
    EXPECT_EQ(sizeOf(home / "folder"), 6 * block);
}

TEST(AllocatedSizes, PackagesBeneathAFolderAreNotEntered)
{
    const TemporaryHome home;
    home.file("folder/Some.app/Contents/binary", 8 * block);
    home.file("folder/Some.PhotosLibrary/photo", 8 * block);
    home.file("folder/plain.folder/a", block);
    EXPECT_EQ(sizeOf(home / "folder"), block);
}

TEST(AllocatedSizes, APackageThatIsAskedForItselfIsMeasured)
{
    const TemporaryHome home;
    home.file("Some.app/Contents/binary", 8 * block);
    home.file("Some.app/Contents/PlugIns/Other.plugin/binary", 8 * block);
    EXPECT_EQ(sizeOf(home / "Some.app"), 8 * block);
}

TEST(AllocatedSizes, LinksCountNothingWhereverTheyLead)
{
    const TemporaryHome home;
    home.file("outside/file", 8 * block);
    home.file("folder/a", block);
    home.link("folder/to-file", home / "outside/file");
    home.link("folder/to-folder", home / "outside");
    home.link("folder/to-itself", ".");
    home.link("folder/dangling", "nowhere");
    EXPECT_EQ(sizeOf(home / "folder"), block);
    EXPECT_EQ(sizeOf(home.link("link-to-folder", home / "folder")), 0);
    EXPECT_EQ(sizeOf(home.link("link-to-file", home / "outside/file")), 0);
}

TEST(AllocatedSizes, AFolderReachedThroughALinkOnTheWayIsMeasured)
{
    const TemporaryHome home;
    home.file("real/folder/a", block);
    home.link("linked", home / "real");
    EXPECT_EQ(sizeOf(home / "linked/folder"), block);
}

TEST(AllocatedSizes, EachNameOfAFileWithSeveralCounts)
{
    const TemporaryHome home;
    home.hardLink("folder/b", home.file("folder/a", block));
    EXPECT_EQ(sizeOf(home / "folder"), 2 * block);
}

TEST(AllocatedSizes, WhatIsNeitherFileNorFolderCountsNothingAndIsNotOpened)
{
    const TemporaryHome home;
    home.file("folder/a", block);
    ASSERT_EQ(mkfifo((home / "folder/fifo").constData(), 0600), 0); // Opening it would wait for a writer forever.
    const Descriptor socket(::socket(AF_UNIX, SOCK_STREAM, 0));
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    std::strncpy(address.sun_path, (home / "folder/socket").constData(), sizeof address.sun_path - 1);
    ASSERT_EQ(bind(socket.get(), reinterpret_cast<sockaddr *>(&address), sizeof address), 0);

    EXPECT_EQ(sizeOf(home / "folder"), block);
    EXPECT_EQ(sizeOf(home / "folder/fifo"), 0);
    EXPECT_EQ(sizeOf(home / "folder/socket"), 0);
}

TEST(AllocatedSizes, WhatDoesNotExistCountsNothing)
{
    const TemporaryHome home;
    EXPECT_EQ(sizeOf(home / "missing"), 0);
    EXPECT_EQ(sizeOf(home.file("file") + "/below"), 0);
    EXPECT_EQ(sizeOf(""), 0);
    EXPECT_EQ(sizeOf(FilePath("/tmp\0/x", 7)), 0);
}

TEST(AllocatedSizes, SizesComeInTheOrderOfThePaths)
{
    const TemporaryHome home;
    home.file("two/a", 2 * block);
    home.file("one/a", block);
    EXPECT_THAT(DirectoryWalker().allocatedSizes({home / "two", home / "missing", home / "one", home / "two"}, {}),
                ElementsAre(2 * block, 0, block, 2 * block));
}

TEST(AllocatedSizes, NoPathsHaveNoSizes)
{
    EXPECT_TRUE(DirectoryWalker().allocatedSizes({}, {}).isEmpty());
}

TEST(AllocatedSizes, NamesMayHoldAnyBytes)
{
    const TemporaryHome home;
    const QByteArrayList names{"new\nline", "per%cent%00", "\xff\xfe\x80", QByteArray(255, 'n'),
                               "-rf",       " ",           "\x1b[31m"};
    for (const QByteArray &name : names) {
        home.file("folder/" + name + "/file", block);
        EXPECT_EQ(sizeOf(home / ("folder/" + name)), block) << name.constData();
    }
    EXPECT_EQ(sizeOf(home / "folder"), names.size() * block);
}

TEST(AllocatedSizes, OneWorkerCountsWhatManyCount)
{
    const TemporaryHome home;
    for (int folder = 0; folder < 300; ++folder)
        home.file("folder/" + QByteArray::number(folder % 17) + '/' + QByteArray::number(folder) + "/file", 0);
    home.file("folder/3/3/more", 5 * block);
    for (const int workers : {1, 2, 8, 64})
        EXPECT_THAT(DirectoryWalker(workers).allocatedSizes({home / "folder"}, {}), ElementsAre(5 * block)) << workers;
}

TEST(AllocatedSizes, AStopThatWasRequestedEndsTheCounting)
{
    const TemporaryHome home;
    home.file("folder/a", block);
    std::stop_source stop;
    stop.request_stop();
    EXPECT_THAT(DirectoryWalker().allocatedSizes({home / "folder", home / "folder"}, stop.get_token()),
                ElementsAre(0, 0));
}

} // namespace tidlo
