#include "platform/Paths.h"

#include <gtest/gtest.h>

namespace tidlo {

TEST(FileName, ThePathsLastComponentIsItsName)
{
    EXPECT_EQ(lastPathComponent("/home/u/a.txt"), "a.txt");
    EXPECT_EQ(lastPathComponent("a.txt"), "a.txt");
    EXPECT_EQ(lastPathComponent("/"), "");
}

TEST(FileName, TheExtensionIsWhatFollowsTheLastDot)
{
    EXPECT_EQ(fileExtension("archive.tar.gz"), "gz");
    EXPECT_EQ(fileExtension("setup.DMG"), "DMG");
    EXPECT_EQ(fileExtension("README"), "");
    EXPECT_EQ(fileExtension(".zip"), "");
    EXPECT_EQ(fileExtension(".hidden.zip"), "zip");
    EXPECT_EQ(fileExtension("ends with."), "");
    EXPECT_EQ(fileExtension(""), "");
}

TEST(FileName, ANameThatBeginsWithADotIsHidden)
{
    EXPECT_TRUE(isHiddenName(".next"));
    EXPECT_FALSE(isHiddenName("a.b"));
    EXPECT_FALSE(isHiddenName(""));
}

TEST(FileName, AnExtensionMakesAPackageWhateverItsCase)
{
    for (const char *name : {"Some.app", "Some.APP", "Some.photoslibrary", "Some.xcodeProj"})
        EXPECT_TRUE(isPackageName(name)) << name;
}

TEST(FileName, OtherNamesArePlainFolders)
{
    for (const char *name : {"app", ".app", "some.apps", "some.ap", "some.", "some.photoslibraryx", "node_modules", ""})
        EXPECT_FALSE(isPackageName(name)) << name;
}

TEST(FileName, IsJoinedToItsFolderByOneSlash)
{
    EXPECT_EQ(joined("/home/me", "file"), "/home/me/file");
    EXPECT_EQ(joined("/", ".cache"), "/.cache");
    EXPECT_EQ(joined("/home/me/", "file"), "/home/me/file");
}

} // namespace tidlo
