// What is refused on purpose, and where the Trash of the home folder is.

#include "Probe.h"
#include "TrashDecoder.h"
#include "Witness.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <unistd.h>

namespace tidlo {

using testing::AllOf;
using testing::Each;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

namespace {

constexpr mode_t permissions = 07777;

/// Expects that none of \a paths is moved, for the reason in \a answer, and that nothing changes.
void expectRefusals(const TemporaryHome &home, const ProbeRun &run, const std::string &answer)
{
    const Witness witness(home);

    const ProbeResult result = probe(run);

    EXPECT_THAT(result.lines, AllOf(SizeIs(run.paths.size()), Each(answer)));
    EXPECT_FALSE(result.allMoved);
    EXPECT_THAT(witness.complaints(), IsEmpty());
}

} // namespace

TEST(TrashRefusals, PathsThatNameNothing)
{
    const TemporaryHome home;
    home.file("in/item");

    expectRefusals(home, {.paths = {""}, .home = home.path()}, "refused: The path is empty.");
    expectRefusals(home, {.paths = {"/", "//", "///"}, .home = home.path()}, "refused: It is the root of all files.");
    expectRefusals(home,
                   {.paths = {".", "..", "./", "../", home / "in/.", home / "in/..", home / "in/../"},
                    .home = home.path(),
                    .workingFolder = home / "in"},
                   "refused: The path ends in no name.");
    expectRefusals(home, {.paths = {home / FilePath("in/item\0", 8)}, .home = home.path()}, "gone");
}

TEST(TrashRefusals, TheHomeAndWhatHoldsIt)
{
    const TemporaryHome home;
    const FilePath own = home.folder("homes/u");
    home.file("homes/u/in/item");
    home.link("way", "homes/u");

    expectRefusals(
        home,
        {.paths = {own, own + '/', home / "homes", home.path(), home / "way/../../homes", own + "/in/../../u"},
         .home = own},
        "refused: It is the home folder, or holds it.");
}

TEST(TrashRefusals, ALinkThatTheHomeIsReachedThrough)
{
    const TemporaryHome home;
    home.folder("disk/u");
    home.link("homes", "disk");
    home.link("other", "disk");

    expectRefusals(home, {.paths = {home / "homes", home / "homes/"}, .home = home / "homes/u"},
                   "refused: It is the home folder, or holds it.");
    EXPECT_THAT(probe({.paths = {home / "other"}, .home = home / "homes/u"}).lines, ElementsAre("moved"))
        << "another link there is just a link";
}

TEST(TrashRefusals, WhatIsInATrash)
{
    const TemporaryHome home;
    for (const char *trash : {".local/share/Trash", "stick/.Trash-1000", "stick/.Trash/1000", "v/.local/share/Trash"}) {
        home.file(trash + FilePath("/files/folder/inner"));
        home.file(trash + FilePath("/info/folder.trashinfo"));
        for (const char *inside : {"", "/", "/files", "/info", "/files/folder", "/files/folder/inner",
                                   "/info/folder.trashinfo", "/files/../files/folder"})
            expectRefusals(home, {.paths = {home / trash + inside}, .home = home.path()},
                           "refused: It is in a Trash already.");
    }
}

TEST(TrashRefusals, WhatIsInATrashThatIsReachedThroughALink)
{
    const TemporaryHome home;
    home.file("disk/bin/files/folder/inner");
    home.folder("disk/bin/info");
    home.link(".local/share/Trash", home / "disk/bin");

    expectRefusals(home,
                   {.paths = {home / "disk/bin/files/folder", home / ".local/share/Trash/files/folder/inner",
                              home / "disk/bin", home / ".local/share/Trash"},
                    .home = home.path()},
                   "refused: It is in a Trash already.");
    expectRefusals(home, {.paths = {home / "disk"}, .home = home.path()}, "refused: It holds a Trash.");
}

TEST(TrashRefusals, WhatHoldsATrash)
{
    const TemporaryHome home;
    home.folder(".local/share/Trash/files");
    home.folder("stick/.Trash-" + FilePath::number(geteuid()));
    home.folder("disk/.Trash");

    expectRefusals(
        home, {.paths = {home / ".local", home / ".local/share", home / "stick", home / "disk"}, .home = home.path()},
        "refused: It holds a Trash.");
}

TEST(TrashRefusals, WhatTheTrashWillBeIn)
{
    const TemporaryHome home;
    home.folder("data/programs");

    expectRefusals(home, {.paths = {home / "data"}, .home = home.path(), .dataHome = home / "data/programs"},
                   "refused: It holds a Trash.");
    expectRefusals(home, {.paths = {home / "data"}, .home = home.path(), .dataHome = home / "data/programs/own"},
                   "refused: It holds a Trash.");
}

TEST(TrashRefusals, NamesThatOnlyLookLikeATrashAreMoved)
{
    const TemporaryHome home;
    std::vector<FilePath> paths;
    for (const char *name : {"Trash", ".Trash-", ".Trash-12a", ".Trashes", "share/Trash", "x.Trash"})
        paths.push_back(home.folder(name));

    EXPECT_THAT(probe({.paths = paths, .home = home.path()}).lines, Each(std::string("moved")));
}

TEST(TrashOfHome, IsMadeWhereDataIsMissingForTheUserAlone)
{
    const TemporaryHome home;
    const FilePath item = home.file("item");

    EXPECT_THAT(probe({.paths = {item}, .home = home.path()}).lines, ElementsAre("moved"));

    const auto after = home.inventory();
    for (const char *folder :
         {".local", ".local/share", ".local/share/Trash", ".local/share/Trash/files", ".local/share/Trash/info"})
        EXPECT_EQ(after.at(folder).mode & permissions, 0700U) << folder;
    EXPECT_EQ(after.at(".local/share/Trash/info/item.trashinfo").mode & permissions, 0600U);
}

TEST(TrashOfHome, IsWhereProgramsKeepTheirData)
{
    const TemporaryHome home;
    const FilePath item = home.file("item");

    EXPECT_THAT(probe({.paths = {item}, .home = home.path(), .dataHome = home / "own/data"}).lines,
                ElementsAre("moved"));

    EXPECT_THAT(decodeTrash(home / "own/data/Trash").items, ElementsAre(Field(&DecodedItem::originalPath, item)));
    EXPECT_FALSE(home.inventory().contains(".local"));
}

TEST(TrashOfHome, IsNotWhereARelativePathForDataLeads)
{
    const TemporaryHome home;
    const FilePath item = home.file("in/item");

    EXPECT_THAT(probe({.paths = {item}, .home = home.path(), .dataHome = "own", .workingFolder = home / "in"}).lines,
                ElementsAre("moved"));

    EXPECT_THAT(decodeTrash(home / ".local/share/Trash").items, SizeIs(1));
    EXPECT_FALSE(home.inventory().contains("in/own"));
}

TEST(TrashOfHome, MayBeReachedThroughALink)
{
    const TemporaryHome home;
    home.folder("disk/bin");
    home.link(".local/share/Trash", home / "disk/bin");
    const FilePath item = home.file("item");

    EXPECT_THAT(probe({.paths = {item}, .home = home.path()}).lines, ElementsAre("moved"));

    EXPECT_THAT(decodeTrash(home / "disk/bin").items, ElementsAre(Field(&DecodedItem::originalPath, item)));
}

TEST(TrashOfHome, IsNotUsedWhereItsFoldersAreLinksOrFiles)
{
    for (const char *part : {"files", "info"}) {
        const TemporaryHome home;
        home.folder("elsewhere");
        home.link(FilePath(".local/share/Trash/") + part, home / "elsewhere");
        const FilePath item = home.file("item");
        const Witness witness(home, {});

        EXPECT_THAT(probe({.paths = {item}, .home = home.path()}).lines,
                    ElementsAre("refused: The Trash there is a link or a file, not a folder."));
        EXPECT_THAT(witness.complaints(), IsEmpty());
    }
}

TEST(TrashOfHome, IsNotUsedWhereItBelongsToSomebodyElse)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "Only root can give a folder away, so nothing was proved about foreign ones.";
    for (const char *part : {"", "/files", "/info"}) {
        const TemporaryHome home;
        const FilePath trash = home / ".local/share/Trash";
        home.folder(".local/share/Trash/files");
        home.folder(".local/share/Trash/info");
        ASSERT_EQ(chown((trash + part).constData(), 12345, 12345), 0);

        expectRefusals(home, {.paths = {home.file("item")}, .home = home.path()},
                       "refused: The Trash there belongs to somebody else.");
    }
}

TEST(TrashOfHome, IsNotUsedByOthersWhereItBelongsToRoot)
{
    if (geteuid() != 0)
        GTEST_SKIP() << "Only root can keep a folder for itself and run as somebody else.";
    const TemporaryHome home;
    const FilePath item = home.file("item");
    const FilePath trash = home.folder(".local/share/Trash");
    home.folder(".local/share/Trash/files");
    home.folder(".local/share/Trash/info");
    giveAway(home);
    for (const FilePath part : {"", "/files", "/info"}) { // Others can write there, but the folder is not theirs.
        ASSERT_EQ(chown((trash + part).constData(), 0, 0), 0);
        ASSERT_EQ(chmod((trash + part).constData(), 0777), 0);
    }

    expectRefusals(home, {.paths = {item}, .home = home.path(), .withoutRights = true},
                   "refused: The Trash there belongs to somebody else.");
}

TEST(TrashOfHome, TakesNothingWhereRecordsCannotBeWritten)
{
    const TemporaryHome home;
    home.folder(".local/share/Trash/files");
    home.folder(".local/share/Trash/info");
    home.file("item");
    giveAway(home);
    ASSERT_EQ(chmod((home / ".local/share/Trash/info").constData(), 0500), 0);
    const Witness witness(home);

    const ProbeResult result = probe({.paths = {home / "item"}, .home = home.path(), .withoutRights = true});

    EXPECT_THAT(result.lines, ElementsAre(StartsWith("failed: Its record cannot be written: ")));
    EXPECT_THAT(witness.complaints(), IsEmpty());
}

TEST(TrashRefusals, WhatHoldsTheUsualTrashWhileProgramsKeepTheirDataElsewhere)
{
    const TemporaryHome home;
    home.file(".local/share/Trash/files/item");
    home.folder("data");

    expectRefusals(home,
                   {.paths = {home / ".local", home / ".local/share"}, .home = home.path(), .dataHome = home / "data"},
                   "refused: It holds a Trash.");
}

} // namespace tidlo
