#include "cli/HomeToClean.h"
#include "cli/TerminalSession.h"

#include <QFile>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

namespace tidlo {

namespace {

using Json = nlohmann::ordered_json;
using testing::ContainsRegex;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
using testing::StartsWith;

/// A home folder after a cleanup.
std::unique_ptr<TemporaryHome> cleanedHome()
{
    auto home = homeToClean();
    EXPECT_EQ(runCli(*home, {"clean", "--yes"}).status, 0);
    EXPECT_THAT(existing(selectedPaths(*home)), IsEmpty());
    return home;
}

/// Puts an item into the Trash with a date later than that of any other item on this machine.
void trashLate(const TemporaryHome &home, const FilePath &name, const FilePath &origin, const QByteArray &time)
{
    home.file(".local/share/Trash/files/" + name, 4'096);
    QFile record(QFile::decodeName(home.file(".local/share/Trash/info/" + name + ".trashinfo", 0)));
    ASSERT_TRUE(record.open(QFile::WriteOnly));
    record.write("[Trash Info]\nPath=" + origin.toPercentEncoding("/") + "\nDeletionDate=" + time + '\n');
}

constexpr const char *late = "2199-01-01";

} // namespace

TEST(RestoreCommand, ListsWhatTheTrashHoldsWithWhenAndHowMuch)
{
    const auto home = cleanedHome();
    const auto before = home->inventory();
    const CliRun run = runCli(*home, {"restore"});
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output.toStdString(), StartsWith("Moved "));
    for (const QByteArray &path : selectedPaths(*home))
        EXPECT_THAT(run.output.toStdString(), HasSubstr("  " + path.toStdString() + '\n'));
    EXPECT_THAT(run.output.toStdString(), ContainsRegex("\n20[0-9-]+ [0-9:]+ +33 KB  " +
                                                        (*home / "Sites/one/node_modules").toStdString() + '\n'));
    EXPECT_EQ(home->inventory(), before);
}

TEST(RestoreCommand, PutsBackWhatWasAtOrBeneathAPath)
{
    const auto home = cleanedHome();
    const CliRun run = runCli(*home, {"restore", "--yes", *home / "Sites", *home / "Downloads/setup.zip"});
    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output.toStdString(), EndsWith("Put back 3 items.\n"));
    const QByteArrayList all = selectedPaths(*home);
    EXPECT_EQ(existing(all), (QByteArrayList{all[0], all[1], all[3]}));
    EXPECT_THAT(trashed(*home), ElementsAre("pip"));
}

TEST(RestoreCommand, TakesARelativePathFromTheWorkingFolderAndThroughLinks)
{
    const auto home = cleanedHome();
    home->link("way", "Sites");
    const CliSetup inHome{.workingFolder = *home / "way", .environment = {}, .inChild = {}};
    EXPECT_EQ(runCli(*home, {"restore", "--yes", "one/node_modules/"}, inHome).status, 0);
    EXPECT_EQ(runCli(*home, {"restore", "--yes", *home / "way/two"}).status, 0);
    EXPECT_EQ(existing({*home / "Sites/one/node_modules", *home / "Sites/two/node_modules"}).size(), 2);
    const CliSetup inDownloads{.workingFolder = *home / "Downloads", .environment = {}, .inChild = {}};
    EXPECT_EQ(runCli(*home, {"restore", "--yes", "."}, inDownloads).status, 0);
    EXPECT_THAT(trashed(*home), ElementsAre("pip"));
}

TEST(RestoreCommand, TakesAnyWayToWhatIsGoneAndNothingForAnEmptyName)
{
    const auto home = cleanedHome();
    const CliSetup inHome{.workingFolder = home->path(), .environment = {}, .inChild = {}};
    const CliRun empty = runCli(*home, {"restore", "--yes", ""}, inHome);
    EXPECT_EQ(empty.status, 2);
    EXPECT_THAT(empty.errors.toStdString(), HasSubstr("A path is empty."));
    EXPECT_THAT(trashed(*home), SizeIs(4));
    const CliRun run = runCli(
        *home, {"restore", "--yes", "./Sites/one/./node_modules", "Downloads/gone/../setup.zip", "Sites/../Sites/two"},
        inHome);
    EXPECT_EQ(run.status, 0) << run.errors.toStdString();
    EXPECT_THAT(trashed(*home), ElementsAre("pip"));
}

TEST(RestoreCommand, FindsWhatARecordTellsThroughALink)
{
    const TemporaryHome home;
    home.link("link", home.folder("true"));
    trashLate(home, "a", home / "link/a", "2199-01-01T00:00:01");
    for (const FilePath &place : {home / "link/a", home / "true/a"}) {
        const CliRun run = runCli(home, {"restore", "--yes", place});
        EXPECT_EQ(run.status, 1);
        EXPECT_THAT(run.errors.toStdString(), HasSubstr("A link or a file is on the way to its place."));
    }
}

TEST(RestoreCommand, AsksAndSaysThatItCannotKnowWhoMovedThem)
{
    const auto home = cleanedHome();
    for (const QByteArray answer : {"n\n", "y\n"}) {
        TerminalSession session(*home, {"restore", *home / "Sites"}, 120);
        ASSERT_TRUE(session.shows("Put back 2 items (41 KB)? The Trash does not say which program moved them. [y/N] "));
        EXPECT_FALSE(existing({*home / "Sites/one/node_modules"}).size());
        session.type(answer);
        const CliRun run = session.end();
        EXPECT_EQ(run.status, 0);
        EXPECT_THAT(screenOf(run.output).toStdString(),
                    HasSubstr(answer == "y\n" ? "\nPut back 2 items.\n" : "\nNothing was put back.\n"));
    }
    EXPECT_EQ(existing({*home / "Sites/one/node_modules", *home / "Sites/two/node_modules"}).size(), 2);
}

TEST(RestoreCommand, WithoutATerminalItRefusesUnlessToldYes)
{
    const auto home = cleanedHome();
    const CliRun run = runCli(*home, {"restore", *home / "Sites"});
    EXPECT_EQ(run.status, 2);
    EXPECT_EQ(run.output, "");
    EXPECT_THAT(run.errors.toStdString(), StartsWith("tidlo-cli: There is no terminal to ask at."));
    const CliRun dry = runCli(*home, {"restore", "--dry-run", *home / "Sites"});
    EXPECT_EQ(dry.status, 0);
    EXPECT_THAT(dry.output.toStdString(), HasSubstr("\nDry run: 2 items (41 KB) would be put back.\n"));
    EXPECT_THAT(trashed(*home), SizeIs(4));
    EXPECT_THAT(existing(selectedPaths(*home)), IsEmpty());
}

TEST(RestoreCommand, OfOnePlacePutsBackTheLastMovedAndNamesTheOthers)
{
    const TemporaryHome home;
    trashLate(home, "old", home / "item", "2199-01-01T00:00:01");
    trashLate(home, "new", home / "item", "2199-01-01T00:00:02");
    const CliRun run = runCli(home, {"restore", "--yes", home / "item"});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output.toStdString(), HasSubstr("Earlier ones of the same places, which stay in the Trash:\n"));
    EXPECT_THAT(run.output.toStdString(), HasSubstr("\n2199-01-01 00:00:01  "));
    EXPECT_THAT(trashed(home), ElementsAre("old"));
}

TEST(RestoreCommand, PutsBackAllSinceAMomentThoseFirstThatHoldOthers)
{
    const TemporaryHome home;
    trashLate(home, "inner", home / "folder/inner", "2199-01-01T00:00:03");
    ASSERT_TRUE(QFile::remove(QFile::decodeName(home / ".local/share/Trash/files/inner")));
    home.file(".local/share/Trash/files/inner");
    trashLate(home, "outer", home / "folder", "2199-01-01T00:00:02");
    ASSERT_TRUE(QFile::remove(QFile::decodeName(home / ".local/share/Trash/files/outer")));
    home.folder(".local/share/Trash/files/outer");
    trashLate(home, "early", home / "early", "2198-12-31T23:59:59");

    const CliRun run = runCli(home, {"restore", "--since", late, "--all", "--yes"});

    EXPECT_EQ(run.errors, "");
    EXPECT_EQ(run.status, 0);
    EXPECT_TRUE(home.inventory().contains("folder/inner"));
    EXPECT_THAT(trashed(home), ElementsAre("early"));
    const CliRun listed = runCli(home, {"restore", "--since", late});
    EXPECT_EQ(listed.output, "Nothing was moved to the Trash since then.\n");
}

TEST(RestoreCommand, TellsWhatStayedAndWhy)
{
    const auto home = cleanedHome();
    home->file("Sites/one/node_modules");
    const CliRun run = runCli(*home, {"restore", "--yes", *home / "Sites", *home / "nothing"});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.output.toStdString(), EndsWith("Put back 1 of 2 items.\n"));
    EXPECT_EQ(run.errors, "tidlo-cli: 2 not put back:\n  " + (*home / "Sites/one/node_modules") +
                              "\n    Something else is at its place by now.\n  " + (*home / "nothing") +
                              "\n    The Trash holds nothing that was there.\n");
}

TEST(RestoreCommand, PrintsOneJsonObject)
{
    const TemporaryHome home;
    trashLate(home, "a", home / "in/a", "2199-01-01T00:00:01");
    trashLate(home, "b", home / "in/b", "2199-01-01T00:00:02");
    const Json listed = Json::parse(runCli(home, {"restore", "--json", "--since", late}).output.toStdString());
    const Json expected = {{"path", (home / "in/b").toStdString()},
                           {"moved", "2199-01-01T00:00:02"},
                           {"bytes", 4'096},
                           {"trash", (home / ".local/share/Trash").toStdString()},
                           {"name", "b"}};
    ASSERT_THAT(listed["items"], SizeIs(2));
    EXPECT_EQ(listed["items"][0], expected);

    const CliRun run = runCli(home, {"restore", "--json", "--yes", home / "in/a", home / "in/c"});
    const Json restored = Json::parse(run.output.toStdString());
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(restored["restored"], Json::array({(home / "in/a").toStdString()}));
    EXPECT_EQ(restored["stayed"][0]["path"], (home / "in/c").toStdString());
    EXPECT_THAT(restored["others"], IsEmpty());
}

TEST(RestoreCommand, TellsInItsJsonWhatElseWasAtTheSamePlace)
{
    const TemporaryHome home;
    trashLate(home, "a", home / "in/a", "2199-01-01T00:00:01");
    trashLate(home, "b", home / "in/a", "2199-01-01T00:00:02");

    const CliRun run = runCli(home, {"restore", "--json", "--yes", home / "in/a"});

    const Json path = Json::array({(home / "in/a").toStdString()});
    const Json restored = Json::parse(run.output.toStdString());
    EXPECT_EQ(restored["restored"], path);
    EXPECT_EQ(restored["others"], path);
    EXPECT_THAT(trashed(home), ElementsAre("a"));
}

TEST(RestoreCommand, ListsAnItemOfUnknownTimeToo)
{
    const TemporaryHome home;
    trashLate(home, "a", home / "in/a", "once");
    EXPECT_THAT(runCli(home, {"restore"}).output.toStdString(),
                ContainsRegex("\n +4 KB  " + (home / "in/a").toStdString() + '\n'));
}

TEST(RestoreCommand, PutsNothingBackWhenItCannotShowWhat)
{
    const auto home = cleanedHome();
    const CliSetup fullDisk = redirected(STDOUT_FILENO, "/dev/full");
    EXPECT_EQ(runCli(*home, {"restore"}, fullDisk).status, 1);
    EXPECT_EQ(runCli(*home, {"restore", "--yes", selectedPaths(*home).first()}, fullDisk).status, 1);
    EXPECT_THAT(existing(selectedPaths(*home)), IsEmpty());
}

TEST(RestoreCommand, ANameCannotActOnTheTerminal)
{
    const TemporaryHome home;
    trashLate(home, "a", home / "in/\x1b[2J", "2199-01-01T00:00:01");
    for (const QByteArrayList &arguments :
         {QByteArrayList{"restore"}, {"restore", "--dry-run", home / "in"}, {"restore", "--json"}}) {
        const CliRun run = runCli(home, arguments);
        EXPECT_EQ(run.status, 0);
        EXPECT_FALSE(run.output.contains('\x1b'));
        EXPECT_THAT(run.output.toStdString(), HasSubstr("[2J"));
    }
}

TEST(RestoreCommand, SaysHowManyRecordsTellNothing)
{
    const TemporaryHome home;
    trashLate(home, "a", "relative", "2199-01-01T00:00:01");
    EXPECT_THAT(runCli(home, {"restore"}).output.toStdString(),
                HasSubstr("1 more: the Trash does not say where they were.\n"));
}

TEST(RestoreCommand, ATrashThatCannotBeReadIsAFailure)
{
    const TemporaryHome home;
    home.folder(".local/share/Trash/info");
    home.file(".local/share/Trash/files");
    const CliRun run = runCli(home, {"restore", "--since", late});
    EXPECT_EQ(run.status, 1);
    EXPECT_EQ(run.output, "Nothing was found in the Trash.\n");
    EXPECT_EQ(run.errors,
              "tidlo-cli: " + (home / ".local/share/Trash") + ": The Trash there is a link or a file, not a folder.\n");
    const CliRun all = runCli(home, {"restore", "--since", late, "--all", "--yes"});
    EXPECT_EQ(all.status, 1);
    EXPECT_EQ(all.output, "Nothing was put back.\n");
    const Json json = Json::parse(runCli(home, {"restore", "--json"}).output.toStdString());
    EXPECT_EQ(json["unread"][0]["trash"], (home / ".local/share/Trash").toStdString());
}

} // namespace tidlo
