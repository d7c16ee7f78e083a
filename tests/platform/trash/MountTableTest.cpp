#include "platform/linux/MountTable.h"

#include <gtest/gtest.h>

namespace tidlo {

namespace {

/// A disk at "/", a second one at "/data" with one folder also mounted at "/home/u/films", a stick beneath it whose
/// name contains a space and a backslash, and a memory file system on a folder of the second disk.
const QByteArray mountinfo = R"(27 1 254:0 / / rw,relatime - ext4 /dev/vda rw
30 27 8:1 / /data rw - ext4 /dev/sdb1 rw
31 27 8:1 /films /home/u/films rw shared:1 - ext4 /dev/sdb1 rw
32 31 8:17 / /home/u/films/a\040b\134c rw - vfat /dev/sdc1 rw
33 30 0:40 / /data/films/cut/memory rw - tmpfs none rw
no mount at all
)";

FileSystemPlace secondDisk(const FilePath &path)
{
    return {.device = "8:1", .path = path};
}

} // namespace

TEST(MountTable, FindsAMountByItsNumber)
{
    const MountTable table(mountinfo);

    const Mount mount = table.mount(31);

    EXPECT_EQ(mount.parent, 27U);
    EXPECT_EQ(mount.device, "8:1");
    EXPECT_EQ(mount.root, "/films");
    EXPECT_EQ(mount.point, "/home/u/films");
}

TEST(MountTable, ReadsEscapedBytesOfAMountPoint)
{
    EXPECT_EQ(MountTable(mountinfo).mount(32).point, "/home/u/films/a b\\c");
}

TEST(MountTable, TakesAMountThatIsNotListedForOneOfItsOwnAtTheRoot)
{
    const MountTable table("");

    EXPECT_EQ(table.mount(99).point, "/");
    EXPECT_EQ(table.place(99, "/srv/x"), (FileSystemPlace{.device = "", .path = "/srv/x"}));
}

TEST(MountTable, FindsOnePlaceThroughEveryMountOfItsFileSystem)
{
    const MountTable table(mountinfo);

    EXPECT_EQ(table.place(30, "/data/films/cut"), secondDisk("/films/cut"));
    EXPECT_EQ(table.place(31, "/home/u/films/cut"), secondDisk("/films/cut"));
    EXPECT_EQ(table.place(30, "/data"), secondDisk("/"));
    EXPECT_EQ(table.place(31, "/home/u/films"), secondDisk("/films"));
    EXPECT_EQ(table.place(27, "/"), (FileSystemPlace{.device = "254:0", .path = "/"}));
}

TEST(MountTable, KnowsNoPlaceOutsideTheMount)
{
    EXPECT_EQ(MountTable(mountinfo).place(31, "/home/u/films2/cut"), std::nullopt);
}

TEST(MountTable, SeesAMountWithinAFolderWhicheverWayTheFolderWasReached)
{
    const MountTable table(mountinfo);
    const auto reachedThroughTheOtherMount = table.place(31, "/home/u/films/cut");

    ASSERT_TRUE(reachedThroughTheOtherMount);
    EXPECT_TRUE(table.hasMountWithin(*reachedThroughTheOtherMount));
    EXPECT_TRUE(table.hasMountWithin(secondDisk("/films/cut/memory"))) << "a mount point itself";
    EXPECT_TRUE(table.hasMountWithin(secondDisk("/films")));
    EXPECT_FALSE(table.hasMountWithin(secondDisk("/films/cu")));
    EXPECT_FALSE(table.hasMountWithin(secondDisk("/films/cut/memory2")));
    EXPECT_FALSE(table.hasMountWithin({.device = "8:2", .path = "/films/cut"})) << "another file system";
}

TEST(MountTable, SeesMountsInAChangedRootWhoseOwnMountIsNotListed)
{
    const MountTable table("40 27 0:50 / /home/u/memory rw - tmpfs none rw\n");

    EXPECT_TRUE(table.hasMountWithin(*table.place(27, "/home/u")));
    EXPECT_FALSE(table.hasMountWithin(*table.place(27, "/home/u/mem")));
}

TEST(FileSystemPlace, ContainsItselfAndWhatLiesBeneath)
{
    EXPECT_TRUE(secondDisk("/a").contains(secondDisk("/a")));
    EXPECT_TRUE(secondDisk("/a").contains(secondDisk("/a/b")));
    EXPECT_TRUE(secondDisk("/").contains(secondDisk("/a")));
    EXPECT_FALSE(secondDisk("/a").contains(secondDisk("/ab")));
    EXPECT_FALSE(secondDisk("/a/b").contains(secondDisk("/a")));
    EXPECT_FALSE(secondDisk("/a").contains({.device = "8:2", .path = "/a"}));
}

} // namespace tidlo
