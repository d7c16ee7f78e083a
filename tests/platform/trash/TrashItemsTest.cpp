// Which kinds of item go to the Trash, and what the permissions of their folders allow.

#include "Probe.h"
#include "TrashDecoder.h"
#include "Witness.h"
#include "platform/Descriptor.h"
#include "support/DeepTree.h"
#include "support/InChild.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <climits>

#include <fcntl.h>
#include <linux/fs.h>
#include <sys/ioctl.h>
#include <unistd.h>

namespace tidlo {

using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

namespace {

const char *const trashFolder = ".local/share/Trash";

std::vector<FilePath> originalPaths(const FilePath &trash)
{
    std::vector<FilePath> paths;
    for (const DecodedItem &item : decodeTrash(trash).items)
        paths.push_back(item.originalPath);
    return paths;
}

std::string targetOf(const FilePath &link)
{
    std::array<char, PATH_MAX> target{};
    const ssize_t size = readlink(link.constData(), target.data(), target.size());
    return {target.data(), static_cast<size_t>(std::max<ssize_t>(size, 0))};
}

/// Moves \a relative as a user without rights; expects that the system refuses it and that nothing changes.
void expectFailure(const TemporaryHome &home, const FilePath &relative)
{
    giveAway(home);
    const Witness witness(home, {});

    const ProbeResult result = probe({.paths = {home / relative}, .home = home.path(), .withoutRights = true});

    EXPECT_THAT(result.lines, ElementsAre(StartsWith("failed: It cannot be moved: ")));
    EXPECT_FALSE(result.allMoved);
    EXPECT_THAT(witness.complaints(), IsEmpty());
    EXPECT_THAT(decodeTrash(home / trashFolder).items, IsEmpty());
}

} // namespace

TEST(TrashItems, ALinkIsMovedAndWhatItLeadsToStays)
{
    const TemporaryHome home;
    home.file("target/inner");
    home.link("to-folder", home / "target");
    home.link("to-file", "target/inner");
    home.link("dangling", "nowhere");
    home.link("loop", "loop");
    const Witness witness(home, {"to-folder", "to-file", "dangling", "loop"});

    const ProbeResult result =
        probe({.paths = {home / "to-folder", home / "to-file", home / "dangling", home / "loop"}, .home = home.path()});

    EXPECT_THAT(result.lines, ElementsAre("moved", "moved", "moved", "moved"));
    EXPECT_THAT(witness.complaints(), IsEmpty());
    EXPECT_EQ(targetOf(home / trashFolder + "/files/to-folder"), (home / "target").toStdString());
    EXPECT_EQ(targetOf(home / trashFolder + "/files/to-file"), "target/inner");
    EXPECT_EQ(targetOf(home / trashFolder + "/files/dangling"), "nowhere");
}

TEST(TrashItems, ASlashAfterALinkIsNotFollowed)
{
    const TemporaryHome home;
    home.file("target/inner");
    home.link("to-folder", "target");
    home.link("dangling", "nowhere");
    const Witness witness(home, {"to-folder", "dangling"});

    const ProbeResult result = probe({.paths = {home / "to-folder/", home / "dangling//"}, .home = home.path()});

    EXPECT_THAT(result.lines, ElementsAre("moved", "moved"));
    EXPECT_THAT(witness.complaints(), IsEmpty());
    EXPECT_THAT(originalPaths(home / trashFolder), ElementsAre(home / "dangling", home / "to-folder"));
}

TEST(TrashItems, APathThroughALinkIsRecordedAsWhereTheItemTrulyWas)
{
    const TemporaryHome home;
    home.file("disk/in/item");
    home.link("shortcut", "disk");
    const Witness witness(home, {"disk/in/item"});

    const ProbeResult result = probe({.paths = {home / "shortcut/./in//../in/item"}, .home = home.path()});

    EXPECT_THAT(result.lines, ElementsAre("moved"));
    EXPECT_THAT(witness.complaints(), IsEmpty());
    EXPECT_THAT(originalPaths(home / trashFolder), ElementsAre(home / "disk/in/item"));
}

TEST(TrashItems, ARelativePathIsTakenFromTheWorkingFolder)
{
    const TemporaryHome home;
    const Witness witness(home, {});
    home.file("in/-item");

    const ProbeResult result = probe({.paths = {"-item"}, .home = home.path(), .workingFolder = home / "in"});

    EXPECT_THAT(result.lines, ElementsAre("moved"));
    EXPECT_THAT(originalPaths(home / trashFolder), ElementsAre(home / "in/-item"));
}

TEST(TrashItems, WhatDoesNotExistIsGone)
{
    const TemporaryHome home;
    home.file("file");
    const Witness witness(home, {});

    const ProbeResult result = probe(
        {.paths = {home / "nothing", home / "no/folder", home / "file/inner", home / "nothing/"}, .home = home.path()});

    EXPECT_THAT(result.lines, ElementsAre("gone", "gone", "gone", "gone"));
    EXPECT_FALSE(result.allMoved);
    EXPECT_THAT(witness.complaints(), IsEmpty());
    EXPECT_FALSE(home.inventory().contains(".local")) << "no Trash is made for nothing";
}

TEST(TrashItems, WhatWasMovedAsPartOfAFolderOrBeforeIsGone)
{
    const TemporaryHome home;
    home.file("outer/inner/file");
    const Witness witness(home, {"outer"});

    const ProbeResult result =
        probe({.paths = {home / "outer", home / "outer/inner", home / "outer"}, .home = home.path()});

    EXPECT_THAT(result.lines, ElementsAre("moved", "gone", "gone"));
    EXPECT_THAT(witness.complaints(), IsEmpty());
    EXPECT_THAT(originalPaths(home / trashFolder), ElementsAre(home / "outer"));
}

TEST(TrashItems, AFolderOfTenThousandFilesIsOneRename)
{
    const TemporaryHome home;
    const Descriptor folder(open(home.folder("big").constData(), O_PATH | O_DIRECTORY));
    for (int at = 0; at < 10'000; ++at)
        makeFile(folder.get(), FilePath::number(at).constData());
    const Witness witness(home, {"big"});

    EXPECT_THAT(probe({.paths = {home / "big"}, .home = home.path()}).lines, ElementsAre("moved"));

    EXPECT_THAT(witness.complaints(), IsEmpty());
    EXPECT_THAT(originalPaths(home / trashFolder), ElementsAre(home / "big"));
}

TEST(TrashItems, APathLongerThanTheSystemTakesIsMovedAndRecordedInFull)
{
    const TemporaryHome home;
    const FilePath name(200, 'd');
    constexpr int levels = 60;
    makeChain(home.folder("top"), name.constData(), levels, [](int folder, int level) {
        if (level == levels)
            makeFile(folder, "item", 3);
    });
    FilePath path = home / "top";
    for (int level = 0; level < levels; ++level)
        path += '/' + name;
    path += "/item";
    ASSERT_GT(path.size(), 2 * PATH_MAX);
    const Witness witness(home, {path.mid(home.path().size() + 1).toStdString()});

    const ProbeResult result = probe({.paths = {path}, .home = home.path()});

    EXPECT_THAT(result.lines, ElementsAre("moved"));
    EXPECT_THAT(witness.complaints(), IsEmpty());
    EXPECT_THAT(originalPaths(home / trashFolder), ElementsAre(path));
}

TEST(TrashItems, BeyondTheLongestPathNoLinkIsFollowed)
{
    const TemporaryHome home;
    const FilePath name(200, 'd');
    constexpr int levels = 30;
    home.file("outside/item");
    makeChain(home.folder("top"), name.constData(), levels, [&](int folder, int level) {
        EXPECT_TRUE(level < levels || symlinkat((home / "outside").constData(), folder, "link") == 0);
    });
    FilePath path = home / "top";
    for (int level = 0; level < levels; ++level)
        path += '/' + name;
    const Witness witness(home, {});

    const ProbeResult result =
        probe({.paths = {path + "/link/item", path + "/../d", path + "/none/item"}, .home = home.path()});

    EXPECT_THAT(result.lines, ElementsAre(StartsWith("failed: Its folder cannot be opened: "),
                                          StartsWith("failed: Its folder cannot be opened: "), "gone"));
    EXPECT_THAT(witness.complaints(), IsEmpty());
}

TEST(TrashItems, AReadOnlyParentKeepsItsItem)
{
    const TemporaryHome home;
    home.file("parent/item");
    chmod((home / "parent").constData(), 0555);

    expectFailure(home, "parent/item");
    chmod((home / "parent").constData(), 0755); // So that it can be removed.
}

TEST(TrashItems, AReadOnlyFolderStaysAsItIs)
{
    const TemporaryHome home;
    home.file("folder/inner");
    chmod((home / "folder").constData(), 0555);

    expectFailure(home, "folder");
    chmod((home / "folder").constData(), 0755); // So that it can be removed.
}

TEST(TrashItems, AFolderThatMayNotBeReadIsMovedAllTheSame)
{
    const TemporaryHome home;
    home.file("folder/inner");
    giveAway(home);
    chmod((home / "folder").constData(), 0300);
    const Witness witness(home, {"folder"});

    const ProbeResult result = probe({.paths = {home / "folder"}, .home = home.path(), .withoutRights = true});

    EXPECT_THAT(result.lines, ElementsAre("moved"));
    EXPECT_THAT(witness.complaints(), IsEmpty());
    chmod((home / trashFolder + "/files/folder").constData(), 0755); // So that it can be removed.
}

TEST(TrashItems, AnImmutableFileStays)
{
    const TemporaryHome home;
    const FilePath path = home.file("item");
    const Descriptor file(open(path.constData(), O_RDONLY | O_CLOEXEC));
    int flags = FS_IMMUTABLE_FL;
    if (ioctl(file.get(), FS_IOC_SETFLAGS, &flags) != 0)
        GTEST_SKIP() << "No file can be made immutable here, so nothing was proved about them: " << strerror(errno);
    const Witness witness(home, {});

    const ProbeResult result = probe({.paths = {path}, .home = home.path()});
    EXPECT_THAT(result.lines, ElementsAre(StartsWith("failed: It cannot be moved: ")));
    EXPECT_THAT(witness.complaints(), IsEmpty());
    flags = 0;
    EXPECT_EQ(ioctl(file.get(), FS_IOC_SETFLAGS, &flags), 0) << "so that it can be removed";
    EXPECT_THAT(decodeTrash(home / trashFolder).items, IsEmpty());
}

TEST(TrashItems, AHardLinkIsMovedAndItsOtherNameStays)
{
    const TemporaryHome home;
    home.hardLink("other", home.file("item"));
    const auto before = home.inventory();

    EXPECT_THAT(probe({.paths = {home / "item"}, .home = home.path()}).lines, ElementsAre("moved"));

    const auto after = home.inventory();
    EXPECT_EQ(after.at("other").inode, before.at("item").inode);
    EXPECT_EQ(after.at(".local/share/Trash/files/item").inode, before.at("item").inode);
    EXPECT_EQ(after.at("other").links, 2U);
}

TEST(TrashItems, ThingsThatAreNeitherFileNorFolderAreMovedToo)
{
    const TemporaryHome home;
    ASSERT_EQ(mkfifo((home / "fifo").constData(), 0600), 0);
    const Witness witness(home, {"fifo"});

    EXPECT_THAT(probe({.paths = {home / "fifo"}, .home = home.path()}).lines, ElementsAre("moved"));

    EXPECT_THAT(witness.complaints(), IsEmpty());
}

} // namespace tidlo
