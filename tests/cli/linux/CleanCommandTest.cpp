#include "cli/HomeToClean.h"
#include "cli/TerminalSession.h"
#include "support/InChild.h"

#include <QFile>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <sys/stat.h>
#include <unistd.h>

namespace tidlo {

using Json = nlohmann::ordered_json;
using testing::ContainsRegex;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

constexpr const char *allMoved = "Moved 4 items (61 KB) to the Trash. The space returns when the Trash is emptied.\n";

TEST(CleanCommand, AsksAndMovesWhatTheScanSelected)
{
    const auto home = homeToClean();
    TerminalSession session(*home, {"clean"}, 120);
    ASSERT_TRUE(session.shows("Move 4 items (61 KB) to the Trash? [y/N] "));
    EXPECT_EQ(existing(selectedPaths(*home)), selectedPaths(*home)) << "Nothing is moved before the answer.";
    session.type("y\n");
    const CliRun run = session.end();

    EXPECT_EQ(run.status, 0);
    const std::string screen = screenOf(run.output).toStdString();
    EXPECT_THAT(screen, StartsWith(" Size  Risk "));
    EXPECT_THAT(screen, Not(HasSubstr("WhatsApp"))) << "It is not selected.";
    EXPECT_THAT(screen, HasSubstr(allMoved));
    EXPECT_THAT(existing(selectedPaths(*home)), IsEmpty());
    EXPECT_THAT(trashed(*home), ElementsAre("node_modules", "node_modules 2", "pip", "setup.zip"));
    EXPECT_EQ(existing({*home / "Library/Group Containers/group.net.whatsapp.WhatsApp.shared/Message/Media/photo.jpg",
                        *home / "Sites/one", *home / "Sites/two"})
                  .size(),
              3);
}

TEST(CleanCommand, AnyAnswerButYesMovesNothing)
{
    const auto home = homeToClean();
    const auto before = home->inventory();
    for (const QByteArray answer : {"n\n", "\n", "no\n", "yo\n", "yes please\n", "\x04"}) {
        TerminalSession session(*home, {"clean"}, 120);
        ASSERT_TRUE(session.shows("[y/N] "));
        session.type(answer);
        const CliRun run = session.end();
        EXPECT_EQ(run.status, 0);
        EXPECT_THAT(screenOf(run.output).toStdString(), HasSubstr("\nNothing was moved to the Trash.\n"));
    }
    EXPECT_EQ(home->inventory(), before);
}

TEST(CleanCommand, WhatIsSparedWhileItAsksStays)
{
    const auto home = homeToClean();
    TerminalSession session(*home, {"clean"}, 120);
    ASSERT_TRUE(session.shows("[y/N] "));
    EXPECT_EQ(runCli(*home, {"spare", *home / "Sites/one"}).status, 0);
    session.type("y\n");
    const CliRun run = session.end();
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(screenOf(run.output).toStdString(), HasSubstr("It is never to be suggested."));
    EXPECT_THAT(existing(selectedPaths(*home)), ElementsAre(*home / "Sites/one/node_modules"));
}

TEST(CleanCommand, MovesNothingIfItCannotBeReadAfterTheAnswerWhatIsSpared)
{
    const auto home = homeToClean();
    TerminalSession session(*home, {"clean"}, 120);
    ASSERT_TRUE(session.shows("[y/N] "));
    QFile file(QFile::decodeName(home->file(".config/com.tidlo.storagecleaner.conf", 0)));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write("[General]\ntidlo.spared=relative\n");
    file.close();
    session.type("y\n");
    EXPECT_EQ(session.end().status, 1);
    EXPECT_EQ(existing(selectedPaths(*home)), selectedPaths(*home));
}

TEST(CleanCommand, YesIsTakenInFullAndInCapitals)
{
    for (const QByteArray answer : {"Y\n", "yes\n", " YES \n"}) {
        const auto home = homeToClean();
        TerminalSession session(*home, {"clean"}, 120);
        ASSERT_TRUE(session.shows("[y/N] "));
        session.type(answer);
        EXPECT_THAT(session.end().output.replace("\r\n", "\n").toStdString(), HasSubstr(allMoved));
    }
}

TEST(CleanCommand, WhatWasTypedBeforeTheQuestionIsNoAnswer)
{
    const auto home = homeToClean();
    TerminalSession session(*home, {"clean"}, 120);
    session.type("y\n");
    ASSERT_TRUE(session.shows("[y/N] "));
    session.type("\n");
    EXPECT_THAT(session.end().output.toStdString(), HasSubstr("Nothing was moved"));
}

TEST(CleanCommand, WithoutATerminalItRefusesUnlessToldYes)
{
    const auto home = homeToClean();
    const auto before = home->inventory();
    for (const QByteArrayList &arguments : {QByteArrayList{"clean"}, QByteArrayList{"clean", "--json"}}) {
        const CliRun run = runCli(*home, arguments);
        EXPECT_EQ(run.status, 2);
        EXPECT_EQ(run.output, "");
        EXPECT_THAT(run.errors.toStdString(), StartsWith("tidlo-cli: There is no terminal to ask at."));
        EXPECT_THAT(run.errors.toStdString(), HasSubstr("--yes"));
    }
    EXPECT_EQ(home->inventory(), before);
}

TEST(CleanCommand, AQuestionThatCouldNotBeSeenIsNotAsked)
{
    const auto home = homeToClean();
    const FilePath errors = *home / "errors";
    const CliRun run = TerminalSession(*home, {"clean"}, 120, redirected(STDERR_FILENO, errors)).end();
    EXPECT_EQ(run.status, 2);
    EXPECT_THAT(contentOf(errors).toStdString(), StartsWith("tidlo-cli: There is no terminal to ask at."));
    EXPECT_EQ(existing(selectedPaths(*home)), selectedPaths(*home));
}

TEST(CleanCommand, YesOnTheCommandLineSkipsTheQuestion)
{
    const auto home = homeToClean();
    const CliRun run = runCli(*home, {"clean", "--yes"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output.toStdString(), StartsWith(" Size  Risk "));
    EXPECT_THAT(run.output.toStdString(), HasSubstr(allMoved));
    EXPECT_THAT(run.output.toStdString(), Not(HasSubstr("[y/N]")));
    EXPECT_THAT(run.output.toStdString(), EndsWith("\nTo put something back: tidlo-cli restore\n"));
    EXPECT_THAT(existing(selectedPaths(*home)), IsEmpty());
}

TEST(CleanCommand, NeverSaysThatSomethingWasDeletedOrFreed)
{
    const auto home = homeToClean();
    const CliRun help = runCli(*home, {"clean", "--help"});
    const CliRun run = runCli(*home, {"clean", "--yes", "--paths"});
    for (const QByteArray &text : {run.output, help.output}) {
        EXPECT_FALSE(text.toLower().contains("freed"));
        EXPECT_THAT(text.toStdString(), HasSubstr("he space returns when the Trash is emptied"));
    }
    EXPECT_FALSE(run.output.toLower().replace("safe to delete", "").contains("delete"));
}

TEST(CleanCommand, ADryRunMovesNothingAndSaysSo)
{
    const auto home = homeToClean();
    const auto before = home->inventory();
    const CliRun run = runCli(*home, {"clean", "--dry-run"});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output.toStdString(), StartsWith(" Size  Risk "));
    EXPECT_THAT(run.output.toStdString(), HasSubstr("Dry run: 4 items (61 KB) would be moved to the Trash.\n"));
    EXPECT_EQ(runCli(*home, {"clean", "--dry-run", "--yes"}).status, 0);
    EXPECT_EQ(runCli(*home, {"clean", "--dry-run", "--json"}).status, 0);
    EXPECT_EQ(home->inventory(), before);
}

struct Narrowing
{
    QByteArrayList risks;
    QByteArrayList moved;
};

TEST(CleanCommand, RisksNarrowTheSelection)
{
    const std::array narrowings{
        Narrowing{{"--risk", "safe"}, {"pip"}},
        Narrowing{{"--risk", "rebuildable"}, {"node_modules", "node_modules 2"}},
        Narrowing{{"--risk", "review"}, {"setup.zip"}},
        Narrowing{{"--risk", "safe", "--risk=review"}, {"pip", "setup.zip"}},
    };
    for (const Narrowing &narrowing : narrowings) {
        const auto home = homeToClean();
        EXPECT_EQ(runCli(*home, QByteArrayList{"clean", "--yes"} + narrowing.risks).status, 0);
        EXPECT_EQ(trashed(*home), narrowing.moved);
    }
}

TEST(CleanCommand, PrintsTheReportAsOneJsonObject)
{
    const auto home = homeToClean();
    const CliRun run = runCli(*home, {"clean", "--yes", "--json"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    const Json json = Json::parse(run.output.toStdString());
    ASSERT_EQ(json.size(), 2);
    EXPECT_EQ(std::next(json.begin()).key(), "stayed");
    EXPECT_THAT(json["stayed"], IsEmpty());
    const Json &report = json["report"];
    std::vector<std::string> keys;
    for (const auto &item : report.items())
        keys.push_back(item.key());
    EXPECT_THAT(keys, ElementsAre("recoveredBytes", "removedItems", "protectedItems", "finalDiskUsedPercent"));
    EXPECT_EQ(report["recoveredBytes"], 61'440);
    EXPECT_EQ(report["removedItems"], 4);
    EXPECT_EQ(report["protectedItems"], 0);
    EXPECT_GT(report["finalDiskUsedPercent"], 0);
    EXPECT_LE(report["finalDiskUsedPercent"], 1);
}

TEST(CleanCommand, TheQuestionLeavesStandardOutputToTheReport)
{
    const auto home = homeToClean();
    const FilePath file = *home / "output";
    TerminalSession session(*home, {"clean", "--json"}, 120, redirected(STDOUT_FILENO, file));
    ASSERT_TRUE(session.shows("[y/N] "));
    session.type("n\n");
    const CliRun run = session.end();
    EXPECT_THAT(screenOf(run.output).toStdString(), StartsWith(" Size  Risk "));
    const Json json = Json::parse(contentOf(file).toStdString());
    EXPECT_EQ(json["report"]["removedItems"], 0);
}

TEST(CleanCommand, WithNothingSelectedThereIsNoQuestion)
{
    const TemporaryHome home;
    const CliRun atTerminal = TerminalSession(home, {"clean"}, 80).end();
    EXPECT_EQ(atTerminal.status, 0);
    EXPECT_THAT(screenOf(atTerminal.output).toStdString(),
                StartsWith("Nothing is selected.\nNothing was moved to the Trash.\n"));
    const CliRun run = runCli(home, {"clean", "--yes", "--json"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(Json::parse(run.output.toStdString())["report"]["removedItems"], 0);
}

TEST(CleanCommand, SaysWhatCouldNotBeMoved)
{
    const auto home = homeToClean();
    home->file(".cache/large", 8'192);
    const FilePath trashInCache = "XDG_DATA_HOME=" + (*home / ".cache/data"); // A folder that holds the Trash stays.
    const CliRun run =
        runCli(*home, {"clean", "--yes", "--risk", "safe"}, {.environment = {trashInCache}, .inChild = {}});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.output.toStdString(), HasSubstr("Moved 1 of 2 items (10 KB) to the Trash."));
    EXPECT_EQ(run.errors, "tidlo-cli: 1 stayed:\n  " + (*home / ".cache") + "\n    It holds a Trash.\n");
    EXPECT_EQ(existing({*home / ".cache/large", *home / "Library/Caches/pip"}), QByteArrayList{*home / ".cache/large"});
}

TEST(CleanCommand, TellsInItsJsonWhatStayedAndWhy)
{
    const auto home = homeToClean();
    const FilePath trashInCache = "XDG_DATA_HOME=" + (*home / ".cache/data");
    home->file(".cache/large", 8'192);
    const CliRun run = runCli(*home, {"clean", "--yes", "--json"}, {.environment = {trashInCache}, .inChild = {}});
    EXPECT_EQ(run.status, 1);
    const Json expected = {{{"path", (*home / ".cache").toStdString()}, {"reason", "It holds a Trash."}}};
    EXPECT_EQ(Json::parse(run.output.toStdString())["stayed"], expected);
}

TEST(CleanCommand, ANameOfWhatStayedCannotActOnTheTerminal)
{
    const TemporaryHome home;
    home.file("Sites/\x1b[2J/node_modules/a.js", 8'192);
    const QByteArray trashInside = "XDG_DATA_HOME=" + (home / "Sites/\x1b[2J/node_modules/data");
    const CliRun run = runCli(home, {"clean", "--yes"}, {.environment = {trashInside}, .inChild = {}});
    EXPECT_EQ(run.status, 1);
    EXPECT_THAT(run.errors.toStdString(), HasSubstr("Sites/\\x1b[2J/node_modules"));
    EXPECT_FALSE((run.output + run.errors).contains('\x1b'));
}

TEST(CleanCommand, APathThatTwoFindingsListIsOneItem)
{
    const TemporaryHome home;
    home.sparseFile("Downloads/film.mov", 104'857'600);
    QFile film(QFile::decodeName(home / "Downloads/film.mov"));
    ASSERT_TRUE(film.open(QFile::ReadWrite));
    film.write(QByteArray(8'192, 'x'));
    film.close();
    home.setModified("Downloads/film.mov", std::chrono::system_clock::now() - std::chrono::days(61));
    const CliRun run = runCli(home, {"clean", "--yes"});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output.toStdString(), HasSubstr("Moved 1 item ("));
    EXPECT_THAT(trashed(home), ElementsAre("film.mov"));
}

TEST(CleanCommand, MovesNothingWhenItCannotShowWhat)
{
    const auto home = homeToClean();
    const CliSetup fullDisk = redirected(STDOUT_FILENO, "/dev/full");
    EXPECT_EQ(runCli(*home, {"clean", "--yes"}, fullDisk).status, 1);
    EXPECT_EQ(existing(selectedPaths(*home)), selectedPaths(*home));
}

TEST(CleanCommand, ReportsFailureWhenItsReportCannotBeWritten)
{
    const auto home = homeToClean();
    const CliSetup fullDisk = redirected(STDOUT_FILENO, "/dev/full");
    EXPECT_EQ(runCli(*home, {"clean", "--yes", "--json"}, fullDisk).status, 1);
    EXPECT_THAT(trashed(*home), testing::SizeIs(4)) << "it had nothing to show before";
}

TEST(CleanCommand, NamesTheFoldersThatCouldNotBeReadBeforeItMoves)
{
    TemporaryHome home;
    home.file("Sites/a/node_modules/x");
    chmod(home.folder("Sites/closed").constData(), 0);
    chmod(home.path().constData(), 0755);
    const CliRun run = runCli(home, {"clean", "--dry-run"}, {.inChild = [] { becomeNobody(); }});
    EXPECT_THAT(run.output.toStdString(),
                testing::HasSubstr("1 folder could not be read:\n  " + (home / "Sites/closed").toStdString() +
                                   ": Permission denied\n"));
}

TEST(CleanCommand, SaysBeforeItMovesWhatEmptyingTheTrashFreesWhereThatIsLess)
{
    TemporaryHome home;
    home.hardLink("store", home.file("Sites/a/node_modules/shared", 4096));
    EXPECT_THAT(runCli(home, {"clean", "--dry-run"}).output.toStdString(),
                testing::HasSubstr("Emptying the Trash frees about Zero KB: 4 KB is linked from elsewhere.\n"));
}

} // namespace tidlo
