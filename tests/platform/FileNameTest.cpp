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

TEST(FileName, EveryKnownExtensionMakesAPackageWhateverItsCase)
{
    constexpr const char *known[] = {
        "action",       "app",           "appex",     "aplibrary",     "band",    "bundle",    "component",
        "download",     "dsym",          "fcpbundle", "imovielibrary", "kext",    "key",       "lbaction",
        "logicx",       "mdimporter",    "mpkg",      "musiclibrary",  "numbers", "osax",      "pages",
        "photolibrary", "photoslibrary", "pkg",       "playground",    "plugin",  "prefpane",  "qlgenerator",
        "rtfd",         "saver",         "scptd",     "sparsebundle",  "theater", "tvlibrary", "wdgt",
        "workflow",     "xcarchive",     "xcodeproj", "xcworkspace",   "xpc"};
    for (const char *extension : known) {
        EXPECT_TRUE(isPackageName(QByteArray("Some.") + extension)) << extension;
        EXPECT_TRUE(isPackageName(QByteArray("Some.") + QByteArray(extension).toUpper())) << extension;
    }
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
