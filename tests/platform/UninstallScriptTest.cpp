#include "platform/UninstallScript.h"

#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <QFile>

#include <gmock/gmock.h>

#include <sys/stat.h>

namespace tidlo {

namespace {

class UninstallScriptTest : public testing::Test
{
protected:
    /// Returns the path.
    static FilePath write(const FilePath &path, const QByteArray &content)
    {
        QFile file(QFile::decodeName(path));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly) && file.write(content) == content.size());
        return path;
    }

    static QByteArray content(const FilePath &path)
    {
        QFile file(QFile::decodeName(path));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
};

} // namespace

TEST_F(UninstallScriptTest, OfMacOSIsWordForWordAsItMustBe)
{
    const QByteArray script = uninstallScriptForMacOS("/Users/me/My Apps/Tidlo.app", "com.example.other").text;

    EXPECT_EQ(script, R"(#!/usr/bin/env bash
sleep 1
/usr/bin/osascript -e 'tell application "Finder" to move POSIX file "/Users/me/My Apps/Tidlo.app" to trash' >/dev/null 2>&1 || rm -rf "/Users/me/My Apps/Tidlo.app"
defaults delete com.example.other >/dev/null 2>&1 || true
rm -rf "$HOME/Library/Preferences/com.example.other.plist"
rm -rf "$HOME/Library/Caches/com.example.other")");
    EXPECT_EQ(script.count('\n'), 5);
    EXPECT_TRUE(script.endsWith('"'));
}

TEST_F(UninstallScriptTest, OfMacOSRemovesPreferencesAndCachesAloneWithoutABundle)
{
    EXPECT_EQ(uninstallScriptForMacOS({}, "com.example.other").text, R"(#!/usr/bin/env bash
sleep 1
defaults delete com.example.other >/dev/null 2>&1 || true
rm -rf "$HOME/Library/Preferences/com.example.other.plist"
rm -rf "$HOME/Library/Caches/com.example.other")");
}

TEST_F(UninstallScriptTest, OfMacOSIsNotMadeWhereTheShellWouldReadAPathAsItsOwn)
{
    for (const char *character : {"\"", "$", "`", "\\", "'"}) {
        const FilePath hostile = FilePath("/a") + character + "b/Tidlo.app";
        const UninstallScript script = uninstallScriptForMacOS(hostile, "com.example.other");
        EXPECT_EQ(script.unquotable, hostile);
        EXPECT_EQ(script.text, "");
    }
    EXPECT_EQ(uninstallScriptForMacOS("/a b&;(*/Tidlo.app", "com.example.other").unquotable, std::nullopt);
}

TEST_F(UninstallScriptTest, OfMacOSAsksTheFinderAndDeletesOnlyWhatThatFailsToMove)
{
    const TemporaryHome home;
    const FilePath application = home / "My Apps/Tidlo.app";
    QByteArray script = uninstallScriptForMacOS(application, "com.example.other").text;
    script.replace("sleep 1\n", "").replace("/usr/bin/osascript", "osascript");
    const FilePath path = write(home.file("script.sh", 0), script);
    const FilePath log = home / "log";
    const QByteArray recorder = "#!/bin/sh\nprintf '[%s]' \"${0##*/}\" \"$@\" >> '" + log + "'\nexit ";
    chmod(write(home.file("bin/defaults", 0), recorder + "1\n").constData(), 0755);
    for (const bool isMoved : {true, false}) {
        chmod(write(home.file("bin/osascript", 0), recorder + (isMoved ? "0\n" : "1\n")).constData(), 0755);
        for (const char *file : {"My Apps/Tidlo.app/Contents/MacOS/Tidlo", "My Apps/kept",
                                 "Library/Preferences/com.example.other.plist", "Library/Preferences/com.example.plist",
                                 "Library/Caches/com.example.other/a/b", "Library/Caches/com.example.other.kept"})
            home.file(file);
        auto expected = home.inventory();
        std::erase_if(expected, [&](const auto &entry) {
            const std::string &name = entry.first;
            return (!isMoved && name.starts_with("My Apps/Tidlo.app")) ||
                   name == "Library/Preferences/com.example.other.plist" ||
                   (name + '/').starts_with("Library/Caches/com.example.other/");
        });

        EXPECT_EQ(
            std::system(("env HOME='" + home.path() + "' PATH='" + home.path() + "/bin':$PATH bash '" + path + '\'')
                            .constData()),
            0);

        EXPECT_EQ(content(log), "[osascript][-e][tell application \"Finder\" to move POSIX file \"" + application +
                                    "\" to trash][defaults][delete][com.example.other]");
        std::remove(log.constData());
        const auto remaining = home.inventory();
        EXPECT_EQ(remaining.size(), expected.size());
        for (const auto &[kept, entry] : expected)
            EXPECT_TRUE(remaining.contains(kept)) << kept;
    }
}

TEST_F(UninstallScriptTest, OfMacOSPleasesShellcheck)
{
    if (std::system("command -v shellcheck > /dev/null") != 0)
        GTEST_SKIP() << "There is no shellcheck here.";
    const TemporaryHome home;
    const FilePath path = home.file("script.sh", 0);
    QFile file(QFile::decodeName(path));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(uninstallScriptForMacOS("/Users/me/My Apps/Tidlo.app", "com.tidlo.storagecleaner").text);
    file.close();

    EXPECT_EQ(std::system(("shellcheck '" + path + "'").constData()), 0);
}

} // namespace tidlo
