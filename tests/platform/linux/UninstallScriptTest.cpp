#include "platform/UninstallScript.h"

#include "support/InChild.h"
#include "support/PrintQt.h"
#include "support/TemporaryHome.h"

#include <QFile>

#include <gmock/gmock.h>

#include <fstream>
#include <map>

#include <sys/stat.h>

namespace tidlo {

using testing::HasSubstr;
using testing::Not;

namespace {

/// The script made in a child process with this environment; nothing if the paths are refused.
std::optional<QByteArray> madeWith(const std::map<const char *, FilePath> &environment,
                                   const FilePath &application = "/Applications/Tidlo.app",
                                   const QByteArray &identifier = "com.tidlo.storagecleaner")
{
    std::optional<QByteArray> script;
    const ChildResult result = inChild([&] {
        for (const char *name : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"})
            unsetenv(name);
        for (const auto &[name, value] : environment)
            setenv(name, value.constData(), 1);
        const auto made = uninstallScript(application, identifier);
        std::fputs(made.unquotable ? "refused" : made.text.constData(), stdout);
        return true;
    });
    return result.output == "refused" ? std::nullopt : std::optional(QByteArray::fromStdString(result.output));
}

} // namespace

TEST(UninstallScriptOfLinux, NamesEachOfItsFilesInFull)
{
    EXPECT_EQ(madeWith({{"HOME", "/home/me"}}, "/home/me/My Apps/Tidlo.app"), R"(#!/usr/bin/env bash
sleep 1
"/home/me/My Apps/Tidlo.app/Contents/MacOS/tidlo-cli" trash-bundle --at "/home/me/My Apps/Tidlo.app" >/dev/null 2>&1 || case $? in 1 | 126 | 127) rm -rf "/home/me/My Apps/Tidlo.app" ;; esac
rm -f "/home/me/.local/share/applications/com.tidlo.storagecleaner.desktop"
rm -f "/home/me/.local/share/icons/hicolor/512x512/apps/com.tidlo.storagecleaner.png"
rm -f "/home/me/.config/com.tidlo.storagecleaner.conf"
rm -rf "/home/me/.cache/com.tidlo.storagecleaner")");
}

TEST(UninstallScriptOfLinux, RemovesTheFilesOfTheUserAloneWithoutABundle)
{
    EXPECT_EQ(madeWith({{"HOME", "/home/me"}}, {}), R"(#!/usr/bin/env bash
sleep 1
rm -f "/home/me/.local/share/applications/com.tidlo.storagecleaner.desktop"
rm -f "/home/me/.local/share/icons/hicolor/512x512/apps/com.tidlo.storagecleaner.png"
rm -f "/home/me/.config/com.tidlo.storagecleaner.conf"
rm -rf "/home/me/.cache/com.tidlo.storagecleaner")");
}

TEST(UninstallScriptOfLinux, NamesTheFilesOfTheIdentifierItIsGiven)
{
    const auto script = madeWith({{"HOME", "/home/me"}}, "/Applications/Tidlo.app", "com.example.other");

    ASSERT_TRUE(script);
    EXPECT_THAT(script->toStdString(), HasSubstr(R"(
rm -f "/home/me/.local/share/applications/com.example.other.desktop"
rm -f "/home/me/.local/share/icons/hicolor/512x512/apps/com.example.other.png"
rm -f "/home/me/.config/com.example.other.conf"
rm -rf "/home/me/.cache/com.example.other")"));
    EXPECT_THAT(script->toStdString(), Not(HasSubstr("storagecleaner")));
}

TEST(UninstallScriptOfLinux, DeletesOnlyWhatTheSystemFailedToMove)
{
    const TemporaryHome home;
    auto script = madeWith({{"HOME", home.path()}}, home / "Tidlo.app");
    ASSERT_TRUE(script);
    script->replace("sleep 1\n", "");
    const FilePath path = home.file("script.sh", 0);
    QFile file(QFile::decodeName(path));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(*script) > 0);
    file.close();
    const FilePath program = "Tidlo.app/Contents/MacOS/tidlo-cli";
    for (const auto &[status, isDeleted] :
         std::map<int, bool>{{0, false}, {1, true}, {2, false}, {3, false}, {126, true}, {127, true}, {137, false}}) {
        home.file(program, 0);
        std::ofstream((home / program).toStdString())
            << "#!/bin/sh\nprintf %s \"$*\" > '" << home.path().constData() << "/asked'\nexit " << status << '\n';
        chmod((home / program).constData(), 0755);

        EXPECT_EQ(std::system(("bash '" + path + "'").constData()), 0);

        EXPECT_EQ(home.inventory().contains("Tidlo.app"), !isDeleted) << status;
        std::string asked;
        std::getline(std::ifstream((home / "asked").toStdString()), asked);
        EXPECT_EQ(asked, "trash-bundle --at " + home.path().toStdString() + "/Tidlo.app");
    }
}

TEST(UninstallScriptOfLinux, FollowsTheEnvironment)
{
    const auto script = madeWith({{"HOME", "/home/me"},
                                  {"XDG_DATA_HOME", "/data of me"},
                                  {"XDG_CONFIG_HOME", "/config"},
                                  {"XDG_CACHE_HOME", "/cache"}});

    ASSERT_TRUE(script);
    EXPECT_THAT(script->toStdString(),
                HasSubstr("\"/data of me/applications/com.tidlo.storagecleaner.desktop\"\n"
                          "rm -f \"/data of me/icons/hicolor/512x512/apps/com.tidlo.storagecleaner.png\"\n"
                          "rm -f \"/config/com.tidlo.storagecleaner.conf\"\n"
                          "rm -rf \"/cache/com.tidlo.storagecleaner\""));
}

TEST(UninstallScriptOfLinux, IsNotMadeWhereTheShellWouldReadAPathAsItsOwn)
{
    EXPECT_EQ(uninstallScript("/a$b/Tidlo.app", "com.example.other").unquotable, "/a$b/Tidlo.app");
    for (const char *character : {"\"", "$", "`", "\\"}) {
        const FilePath hostile = FilePath("/a") + character + "b";
        EXPECT_EQ(madeWith({{"HOME", "/home/me"}}, hostile + "/Tidlo.app"), std::nullopt) << character;
        EXPECT_EQ(madeWith({{"HOME", hostile}}), std::nullopt) << character;
        for (const char *variable : {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_CACHE_HOME"})
            EXPECT_EQ(madeWith({{"HOME", "/home/me"}, {variable, hostile}}), std::nullopt) << variable << character;
    }
}

TEST(UninstallScriptOfLinux, RemovesExactlyWhatItNamesWhateverElseItsNameHolds)
{
    const TemporaryHome home;
    const FilePath name = "it's -rf * ? [a] ~ {b,c} ;&|<>()#! \t\n \xff/Tidlo.app";
    home.file(name + "/Contents/file");
    const auto script = madeWith({{"HOME", home.path()}}, home / name);
    ASSERT_TRUE(script);
    home.file("Tidlo.app/kept");
    home.file(".cache/com.tidlo.storagecleaner/a");
    home.file(".cache/kept");
    home.file(".config/com.tidlo.storagecleaner.conf");
    home.file(".config/com.tidlo.storagecleaner.conf.kept");
    const FilePath path = home.file("script.sh", 0);
    QFile file(QFile::decodeName(path));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly) && file.write(*script) > 0);
    file.close();
    auto expected = home.inventory();
    std::erase_if(expected, [&](const auto &entry) {
        return entry.first.starts_with(name.toStdString()) ||
               entry.first.starts_with(".cache/com.tidlo.storagecleaner") ||
               entry.first == ".config/com.tidlo.storagecleaner.conf";
    });

    for ([[maybe_unused]] const int turn : {1, 2}) {
        EXPECT_EQ(std::system(("cd '" + home.path() + "' && bash " + path + " > '" + path +
                               ".out' 2>&1 && ! test -s '" + path + ".out' && rm '" + path + ".out'")
                                  .constData()),
                  0);
        auto remaining = home.inventory();
        ASSERT_EQ(remaining.size(), expected.size());
        for (const auto &[kept, entry] : expected)
            EXPECT_TRUE(remaining.contains(kept)) << kept;
    }
}

} // namespace tidlo
