#include "cli/CliRun.h"
#include "cli/HomeToClean.h"
#include "cli/PathArgument.h"

#include <gmock/gmock.h>
#include <nlohmann/json.hpp>

#include <array>

#include <unistd.h>

namespace tidlo {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

std::vector<std::string> pathsIn(const CliRun &run)
{
    std::vector<std::string> paths;
    const auto json = nlohmann::json::parse(run.output.toStdString());
    for (const auto &candidate : json.at("candidates")) {
        for (const auto &path : candidate.at("paths"))
            paths.push_back(path);
    }
    return paths;
}

/// A project folder that only --also finds.
FilePath ownProject(const TemporaryHome &home)
{
    home.file("code/app/package.json");
    home.file("code/app/node_modules/x");
    return home / "code/app/node_modules";
}

} // namespace

TEST(ScanOptions, ExceptLeavesOutWhatIsLiesInOrHoldsAPathAndNamesIt)
{
    TemporaryHome home;
    home.file("Sites/a/node_modules/x");
    home.file("Sites/b/node_modules/x");
    home.file(".cache/one/x");
    home.link("link", "Sites");
    const CliRun run = runCli(home, {"scan", "--json", "--except", home / "link/a", "--except", home / ".cache/one/x"});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(pathsIn(run), ElementsAre((home / "Sites/b/node_modules").toStdString()));
    EXPECT_EQ(run.errors, "Left out:\n  " + home / "Sites/a/node_modules" + "\n  " + home / ".cache" + '\n');
}

TEST(ScanOptions, WhatIsExceptedIsNotMovedToTheTrash)
{
    TemporaryHome home;
    const FilePath spared = home.file("Sites/a/node_modules/caf\xe9");
    const FilePath moved = home.file("Sites/b/node_modules/x");
    const FilePath environment = "HOME=" + home.path();
    const auto become = [&] { // A QProcess cannot pass arguments that are no text.
        execle(TIDLO_CLI, "tidlo-cli", "clean", "--yes", "--except", spared.constData(), nullptr,
               std::array{environment.constData(), static_cast<const char *>(nullptr)}.data());
    };
    const CliRun run = runCli(home, {}, {.inChild = become});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(existing({spared, moved}), ElementsAre(spared));
    EXPECT_EQ(run.errors, "Left out:\n  " + home / "Sites/a/node_modules" + '\n');
}

TEST(ScanOptions, AlsoLooksForProjectFoldersInOwnPlaces)
{
    TemporaryHome home;
    const FilePath own = ownProject(home);
    home.link("link", "code");
    EXPECT_THAT(pathsIn(runCli(home, {"scan", "--json"})), IsEmpty());
    EXPECT_THAT(pathsIn(runCli(home, {"scan", "--json", "--also", home / "code"})), ElementsAre(own.toStdString()));
    EXPECT_THAT(pathsIn(runCli(home, {"scan", "--json", "--also", home / "link", "--also", home / "code/app/"})),
                ElementsAre(own.toStdString()));
    EXPECT_EQ(runCli(home, {"clean", "--yes", "--also", home / "code"}).status, 0);
    EXPECT_THAT(existing({own}), IsEmpty());
    EXPECT_THAT(trashed(home), ElementsAre("node_modules"));
}

TEST(ScanOptions, ExplainKeepsToThem)
{
    TemporaryHome home;
    const FilePath own = ownProject(home);
    const CliRun all = runCli(home, {"explain", "--prompt", "--also", home / "code"});
    EXPECT_THAT(all.output.toStdString(), HasSubstr(own.toStdString()));
    const CliRun none = runCli(home, {"explain", "--prompt", "--also", home / "code", "--except", own});
    EXPECT_THAT(none.output.toStdString(), Not(HasSubstr(own.toStdString())));
    EXPECT_EQ(none.errors, "Left out:\n  " + own + '\n');
}

TEST(ScanOptions, WhatDoesNotExistIsAnErrorBeforeAnythingIsScanned)
{
    TemporaryHome home;
    for (const char *command : {"scan", "clean", "explain"}) {
        const CliRun run = runCli(home, {command, "--except", home / "gone"});
        EXPECT_EQ(run.status, 2) << command;
        EXPECT_EQ(run.output, "");
    }
    EXPECT_EQ(runCli(home, {"scan", "--except", home / "gone"}).errors,
              "tidlo-cli: '" + home / "gone" + "' does not exist.\n");
    EXPECT_EQ(runCli(home, {"scan", "--except", ""}).errors, "tidlo-cli: '' does not exist.\n");
}

TEST(ScanOptions, SomePlacesAreNotLookedInto)
{
    TemporaryHome home;
    home.folder("Library/Developer");
    home.folder(".local/share/Trash/files/old");
    home.folder(".Trash-1000/files");
    home.file("file");
    home.link("up", "..");
    const auto refused = [&](const FilePath &folder, const char *reason) {
        const CliRun run = runCli(home, {"scan", "--also", folder});
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.output, "");
        EXPECT_EQ(run.errors, "tidlo-cli: '" + folder + "' " + reason + ".\n");
    };
    refused(home / "file", "is not a folder");
    EXPECT_EQ(runCli(home, {"clean", "--yes", "--also", home / "file"}).status, 2);
    refused(home / "gone", "is not a folder");
    refused("/", "is the home folder, or holds it");
    refused(home.path(), "is the home folder, or holds it");
    refused(home / "up", "is the home folder, or holds it");
    refused(home / "Library", "is the Library of the home folder, or lies in it");
    refused(home / "Library/Developer", "is the Library of the home folder, or lies in it");
    refused(home / ".local/share/Trash", "is a Trash, or lies in one");
    refused(home / ".local/share/Trash/files/old", "is a Trash, or lies in one");
    refused(home / ".Trash-1000", "is a Trash, or lies in one");
    const FilePath other = geteuid() == 0 ? home.folder("other") : FilePath("/usr/share");
    ASSERT_TRUE(geteuid() != 0 || chown(other.constData(), 1, 1) == 0);
    refused(other, "belongs to another user");
}

TEST(PathArgument, IsATextAndKeepsEveryByte)
{
    for (const FilePath &path : {FilePath("/plain"), FilePath("/größe/\xf0\x9f\x98\x80"), FilePath("\xff\xfe caf\xe9"),
                                 FilePath("\xed\xb2\x80"), FilePath("\xf0\x9f\x98"), FilePath("\xc3"), FilePath()})
        EXPECT_EQ(pathOfArgument(argumentText(path)), path);
    EXPECT_EQ(argumentText("/größe\xf0\x9f\x98\x80"), QStringLiteral("/größe😀"));
}

} // namespace tidlo
