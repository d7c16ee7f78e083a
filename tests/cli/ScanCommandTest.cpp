#include "cli/CliRun.h"
#include "cli/HomeToClean.h"
#include "support/InChild.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <sys/stat.h>

namespace tidlo {

using Json = nlohmann::ordered_json;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::MatchesRegex;
using testing::Not;
using testing::StartsWith;

static std::vector<std::string> keys(const Json &json)
{
    std::vector<std::string> names;
    for (const auto &item : json.items())
        names.push_back(item.key());
    return names;
}

static std::vector<std::string> linesOf(const QByteArray &text)
{
    std::vector<std::string> lines;
    for (const QByteArray &line : text.split('\n'))
        lines.push_back(line.toStdString());
    return lines;
}

TEST(ScanCommand, ShowsTheFindingsInOrderAndThenTheTotals)
{
    const auto home = homeToClean();
    const CliRun run = runCli(*home, {"scan"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(
        linesOf(run.output),
        ElementsAre(" Size  Risk            Category       Finding                                  Paths  Selected",
                    "41 KB  Rebuildable     Project files  Rebuildable project folders                  2  yes",
                    "20 KB  Review first    WhatsApp       WhatsApp / Chat Media & Attachments          1  no",
                    "12 KB  Safe to delete  User caches    User and developer caches                    1  yes",
                    " 8 KB  Review first    Downloads      Downloads / old installers and archives      1  yes", //
                    "",                                                                                          //
                    "Found        82 KB",                                                                        //
                    "Recoverable  61 KB",                                                                        //
                    MatchesRegex("Disk used    [0-9]+%"),                                                        //
                    MatchesRegex("Free         [0-9.]+ [KMGTPE]B of [0-9.]+ [KMGTPE]B"),                         //
                    ""));
}

TEST(ScanCommand, ListsEachPathBeneathItsFinding)
{
    const auto home = homeToClean();
    const CliRun run = runCli(*home, {"scan", "--paths"});
    EXPECT_EQ(run.status, 0);
    const std::vector<std::string> lines = linesOf(run.output);
    ASSERT_GE(lines.size(), 10);
    EXPECT_THAT(lines[1], StartsWith("41 KB  Rebuildable "));
    EXPECT_EQ(lines[2], "       " + (*home / "Sites/one/node_modules").toStdString());
    EXPECT_EQ(lines[3], "       " + (*home / "Sites/two/node_modules").toStdString());
    EXPECT_THAT(lines[4], StartsWith("20 KB  Review first "));
    EXPECT_THAT(lines[5], EndsWith("/Library/Group Containers/group.net.whatsapp.WhatsApp.shared/Message/Media"));
    EXPECT_THAT(lines[6], StartsWith("12 KB  Safe to delete "));
    EXPECT_THAT(lines[7], EndsWith("/Library/Caches/pip"));
}

TEST(ScanCommand, PrintsExactlyOneJsonObjectAndNothingElse)
{
    const auto home = homeToClean();
    const CliRun run = runCli(*home, {"scan", "--json"});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output.toStdString(), StartsWith("{"));
    EXPECT_THAT(run.output.toStdString(), EndsWith("}\n"));

    const Json json = Json::parse(run.output.toStdString()); // Fails on anything after the object.
    EXPECT_THAT(keys(json), ElementsAre("totals", "candidates", "forecast"));
    EXPECT_THAT(keys(json["totals"]), ElementsAre("diskUsedPercent", "recoverablePercent", "totalBytes",
                                                  "recoverableBytes", "freeBytes", "volumeBytes"));
    EXPECT_EQ(json["totals"]["totalBytes"], 81'920);
    EXPECT_EQ(json["totals"]["recoverableBytes"], 61'440);
    ASSERT_EQ(json["candidates"].size(), 4);
    for (const Json &candidate : json["candidates"]) {
        EXPECT_THAT(keys(candidate),
                    ElementsAre("id", "title", "detail", "category", "risk", "bytes", "paths", "selected"));
    }
    const Json &largest = json["candidates"][0];
    EXPECT_EQ(largest["title"], "Rebuildable project folders");
    EXPECT_EQ(largest["category"], "Project files");
    EXPECT_EQ(largest["risk"], "Rebuildable");
    EXPECT_EQ(largest["bytes"], 40'960);
    EXPECT_EQ(largest["selected"], true);
    EXPECT_THAT(largest["paths"], ElementsAre((*home / "Sites/one/node_modules").toStdString(),
                                              (*home / "Sites/two/node_modules").toStdString()));
    EXPECT_EQ(json["candidates"][1]["selected"], false);
}

TEST(ScanCommand, PathsChangeNothingInJson)
{
    const auto home = homeToClean();
    const Json json = Json::parse(runCli(*home, {"scan", "--json", "--paths"}).output.toStdString());
    EXPECT_EQ(json["candidates"].size(), 4);
}

TEST(ScanCommand, AHomeWithNothingToCleanIsTidy)
{
    const TemporaryHome home;
    home.file("Documents/letter.txt");
    const CliRun run = runCli(home, {"scan"});
    EXPECT_EQ(run.status, 0);
    EXPECT_THAT(run.output.toStdString(), StartsWith("Nothing to clean up: this home folder is tidy.\n"
                                                     "\n"
                                                     "Found        Zero KB\n"
                                                     "Recoverable  Zero KB\n"
                                                     "Disk used    "));
    const Json json = Json::parse(runCli(home, {"scan", "--json"}).output.toStdString());
    EXPECT_THAT(json["candidates"], IsEmpty());
    EXPECT_TRUE(json["candidates"].is_array());
}

TEST(ScanCommand, AHomeThatIsMissingIsNoError)
{
    const TemporaryHome home;
    const CliRun run = runCli(home, {"scan"}, {.environment = {"HOME=" + (home / "missing")}, .inChild = {}});
    EXPECT_EQ(run.status, 0);
    EXPECT_EQ(run.errors, "");
    EXPECT_THAT(run.output.toStdString(), StartsWith("Nothing to clean up"));
}

TEST(ScanCommand, NamesAreShownWithWhatCouldActOnATerminalEscaped)
{
    const TemporaryHome home;
    home.file("Sites/a\nb/node_modules/x");
    home.file("Sites/c\x1b[2Jd/node_modules/x");
    home.file("Sites/e\u202efgh/node_modules/x");
    home.file("Sites/i\xff\x9bj/node_modules/x");
    home.file("Sites/k\\n\u00e9/node_modules/x");

    const CliRun run = runCli(home, {"scan", "--paths"});
    const std::string sites = "       " + (home / "Sites").toStdString();
    const std::vector<std::string> lines = linesOf(run.output);
    ASSERT_GE(lines.size(), 7);
    EXPECT_EQ(lines[2], sites + "/a\\nb/node_modules");
    EXPECT_EQ(lines[3], sites + "/c\\x1b[2Jd/node_modules");
    EXPECT_EQ(lines[4], sites + "/e\\u202efgh/node_modules");
    EXPECT_EQ(lines[5], sites + "/i\\xff\\x9bj/node_modules");
    EXPECT_EQ(lines[6], sites + "/k\\\\n\u00e9/node_modules");
}

TEST(ScanCommand, JsonHoldsNamesWithoutAnythingThatCouldActOnATerminal)
{
    const TemporaryHome home;
    home.file("Sites/a\n\x1b[2J\u202e\u009b\x7f\u00e9\xff/node_modules/x");
    const CliRun run = runCli(home, {"scan", "--json"});
    for (const char byte : run.output)
        EXPECT_TRUE((byte >= ' ' && byte <= '~') || byte == '\n') << static_cast<int>(byte);
    const Json json = Json::parse(run.output.toStdString());
    EXPECT_EQ(json["candidates"][0]["paths"][0],
              (home / "Sites/a\n\x1b[2J\u202e\u009b\x7f\u00e9\ufffd/node_modules").toStdString());
}

TEST(ScanCommand, ChangesNothing)
{
    const auto home = homeToClean();
    const auto before = home->inventory();
    EXPECT_EQ(runCli(*home, {"scan"}).status, 0);
    EXPECT_EQ(runCli(*home, {"scan", "--json"}).status, 0);
    EXPECT_EQ(home->inventory(), before);
}

/// A home folder with a project folder of two blocks, one of which is linked from elsewhere.
static void linkFromElsewhere(TemporaryHome &home)
{
    home.file("Sites/a/node_modules/own", 4096);
    home.hardLink("store", home.file("Sites/a/node_modules/shared", 4096));
}

TEST(ScanCommand, SaysWhatEmptyingTheTrashFreesWhereThatIsLess)
{
    TemporaryHome home;
    linkFromElsewhere(home);
    EXPECT_THAT(
        runCli(home, {"scan"}).output.toStdString(),
        HasSubstr("\nRecoverable  8 KB\n             frees about 4 KB: 4 KB is linked from elsewhere\nDisk used"));
}

TEST(ScanCommand, TellsTheForecastInItsJson)
{
    TemporaryHome home;
    linkFromElsewhere(home);
    const Json json = Json::parse(runCli(home, {"scan", "--json"}).output.toStdString());
    EXPECT_THAT(keys(json), ElementsAre("totals", "candidates", "forecast"));
    EXPECT_EQ(json["forecast"], Json({{"freedBytes", 4096},
                                      {"heldByLinksBytes", 4096},
                                      {"listedTwiceBytes", 0},
                                      {"refusedBytes", 0},
                                      {"unreadableCount", 0},
                                      {"unreadable", Json::array()}}));
}

TEST(ScanCommand, NamesTheFirstFoldersThatCouldNotBeRead)
{
    TemporaryHome home;
    for (const char *name : {"1", "2", "3", "4"})
        chmod(home.folder("Sites/closed" + QByteArray(name)).constData(), 0);
    chmod(home.path().constData(), 0755);
    const CliRun text = runCli(home, {"scan"}, {.inChild = [] { becomeNobody(); }});
    EXPECT_THAT(text.output.toStdString(),
                EndsWith("\n\n4 folders could not be read:\n  " + (home / "Sites/closed1").toStdString() +
                         ": Permission denied\n  " + (home / "Sites/closed2").toStdString() +
                         ": Permission denied\n  " + (home / "Sites/closed3").toStdString() +
                         ": Permission denied\n  and 1 more\n"));
    const CliRun object = runCli(home, {"scan", "--json"}, {.inChild = [] { becomeNobody(); }});
    const Json json = Json::parse(object.output.toStdString());
    EXPECT_EQ(json["forecast"]["unreadableCount"], 4);
    EXPECT_EQ(json["forecast"]["unreadable"][0],
              Json({{"path", (home / "Sites/closed1").toStdString()}, {"reason", "Permission denied"}}));
}

} // namespace tidlo
