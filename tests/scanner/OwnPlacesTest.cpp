#include "scanner/OwnPlaces.h"

#include "scanner/RuleTest.h"

namespace tidlo {

namespace {

class OwnPlacesTest : public RuleTest
{
protected:
    /// Why \a given cannot be one; empty if it can.
    std::string obstacleOf(const FilePath &given) { return ownPlaceAt(files, given).obstacle.toStdString(); }
};

} // namespace

TEST_F(OwnPlacesTest, AreFoldersOfTheUserByAnyWayToThem)
{
    const FilePath folder = home.folder("code");
    home.link("link", "code");
    for (const FilePath &given : {folder, folder + '/', home / "link", home / "./code/../code"}) {
        EXPECT_EQ(ownPlaceAt(files, given).folder, folder) << given.constData();
        EXPECT_EQ(obstacleOf(given), "") << given.constData();
    }
}

TEST_F(OwnPlacesTest, AreNothingButFolders)
{
    for (const FilePath &given : {FilePath(), home / "missing", home.file("file"), home.link("loop", "loop")})
        EXPECT_EQ(obstacleOf(given), "is not a folder") << given.constData();
}

TEST_F(OwnPlacesTest, AreNeitherTheHomeNorWhatHoldsItNorItsLibraryNorATrash)
{
    for (const FilePath &given : {home.path(), home / "..", FilePath("/")})
        EXPECT_EQ(obstacleOf(given), "is the home folder, or holds it") << given.constData();
    for (const FilePath &given : {home.folder("Library"), home.folder("Library/Developer")})
        EXPECT_EQ(obstacleOf(given), "is the Library of the home folder, or lies in it") << given.constData();
    for (const FilePath &given : {home.folder(".local/share/Trash"), home.folder(".local/share/Trash/files/old")})
        EXPECT_EQ(obstacleOf(given), "is a Trash, or lies in one") << given.constData();
}

TEST_F(OwnPlacesTest, BelongToTheUserWhoMayReadThem)
{
    const FilePath closed = home.folder("closed");
    EXPECT_EQ(chmod(home.path().constData(), 0755), 0);
    EXPECT_TRUE(geteuid() != 0 || chown(closed.constData(), 65534, 65534) == 0);
    withoutAccessTo(closed, [&] {
        EXPECT_EQ(obstacleOf(closed), "cannot be read");
        EXPECT_EQ(obstacleOf("/usr"), "belongs to another user");
    });
    EXPECT_EQ(obstacleOf(closed), geteuid() == 0 ? "belongs to another user" : "");
}

} // namespace tidlo
