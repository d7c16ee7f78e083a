#include "platform/Bundle.h"

#include "platform/Process.h"
#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <QFile>

#include <gmock/gmock.h>

namespace tidlo {

namespace {

constexpr char plist[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<!DOCTYPE plist PUBLIC "-//Apple//DTD PLIST 1.0//EN" "http://www.apple.com/DTDs/PropertyList-1.0.dtd">
<plist version="1.0">
<dict>
    <key>CFBundleDocumentTypes</key>
    <array><dict><key>CFBundleIdentifier</key><string>not.this.one</string></dict></array>
    <key>CFBundleIdentifier</key>
    <string>com.example.application</string>
    <key>NSHighResolutionCapable</key>
    <true/>
    <key>CFBundleExecutable</key>
    <string>Example</string>
</dict>
</plist>
)";

class BundleTest : public testing::Test
{
protected:
    FilePath write(const FilePath &name, const QByteArray &content) const
    {
        const FilePath path = home.file(name, 0);
        QFile file(QFile::decodeName(path));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        return path;
    }

    TemporaryHome home;
};

} // namespace

TEST_F(BundleTest, IsTheNearestFolderThatEndsInApp)
{
    EXPECT_EQ(bundleOf("/a/B.app/Contents/MacOS/b").path, "/a/B.app");
    EXPECT_EQ(bundleOf("/a/B.app/c/D.app/e").path, "/a/B.app/c/D.app");
    EXPECT_EQ(bundleOf("/a/B.app/c").path, "/a/B.app");
    EXPECT_EQ(bundleOf("/B.app/c").path, "/B.app");
    EXPECT_EQ(bundleOf("/a/B \xff'\n.app/c").path, "/a/B \xff'\n.app");
}

TEST_F(BundleTest, IsTheExecutableItselfOutsideAnySuchFolder)
{
    for (const char *executable : {"/usr/bin/tidlo", "/a/B.app", "/a/.app/b", "/a/B.application/c", "/a/B.App/c", "/a"})
        EXPECT_EQ(bundleOf(executable).path, executable);
    EXPECT_EQ(bundleOf("").path, "");
}

TEST_F(BundleTest, SaysWhoItIs)
{
    write("B.app/Contents/Info.plist", plist);

    const Bundle running = bundleOf(home / "B.app/Contents/MacOS/other");
    EXPECT_EQ(running.executable, home / "B.app/Contents/MacOS/other");
    EXPECT_EQ(running.identifier, "com.example.application");

    const Bundle there = bundleAt(home / "B.app");
    EXPECT_EQ(there.path, home / "B.app");
    EXPECT_EQ(there.executable, home / "B.app/Contents/MacOS/Example");
    EXPECT_EQ(there.identifier, "com.example.application");
}

TEST_F(BundleTest, SaysWhoItIsWhateverTheFolderItLiesInIsCalled)
{
    write("B.app/Contents/Info.plist", plist);
    ASSERT_EQ(mkdir((home / "\xff").constData(), 0755), 0);
    ASSERT_EQ(std::rename((home / "B.app").constData(), (home / "\xff/B.app").constData()), 0);

    EXPECT_EQ(bundleAt(home / "\xff/B.app").identifier, "com.example.application");
}

TEST_F(BundleTest, StandsForItselfWhereItNamesNothing)
{
    const FilePath file = home.file("tool");

    EXPECT_EQ(bundleAt(file), (Bundle{.path = file, .executable = file, .identifier = std::nullopt}));
    EXPECT_EQ(bundleOf(file), (Bundle{.path = file, .executable = file, .identifier = std::nullopt}));
}

TEST_F(BundleTest, HasNoIdentifierThatIsEmptyOrNoText)
{
    const auto identifierIn = [&](const QByteArray &value) {
        write("B.app/Contents/Info.plist", "<plist><dict><key>CFBundleIdentifier</key>" + value + "</dict></plist>");
        return bundleAt(home / "B.app").identifier;
    };
    EXPECT_EQ(identifierIn("<string>x</string>"), "x");
    EXPECT_EQ(identifierIn("<string></string>"), std::nullopt);
    EXPECT_EQ(identifierIn("<true/>"), std::nullopt);
}

TEST_F(BundleTest, ReadsNothingFromABrokenList)
{
    const QByteArray whole(plist);
    for (const QByteArray &content :
         {QByteArray(), QByteArray("bplist00"), whole.left(whole.size() / 2), QByteArray("<plist><array/></plist>"),
          QByteArray("<html/>"), QByteArray(100'000, '<'), QByteArray(1'000, '\0')})
        EXPECT_TRUE(readInfoPlist(write("Info.plist", content)).isEmpty()) << content.left(40).constData();
    EXPECT_TRUE(readInfoPlist(home / "missing").isEmpty());
    EXPECT_TRUE(readInfoPlist(home.folder("a folder")).isEmpty());
}

TEST_F(BundleTest, OfTheRunningProgramIsKnown)
{
    EXPECT_TRUE(executablePath().endsWith("/platform_tests")) << executablePath().constData();
    EXPECT_EQ(mainBundle(), bundleOf(executablePath()));
}

} // namespace tidlo
