#include "scanner/FindingRules.h"
#include "scanner/RuleTest.h"

namespace tidlo {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

constexpr FileTime longAgo{};

class ScanWishesTest : public RuleTest
{
protected:
    ScanContext context() const { return {files, home.path(), placesOf(wishes.spared), wishes.also}; }
    void spare(const FilePath &relative) { wishes.spared.append(home / relative); }

    ScanWishes wishes;
};

} // namespace

TEST_F(ScanWishesTest, ProjectFoldersThatAreLieInOrHoldASparedPlaceAreLeftOutUnmeasured)
{
    const FilePath kept = home.folder("Sites/a/node_modules");
    const FilePath itself = home.folder("Sites/b/node_modules");
    const FilePath within = home.folder("Sites/c/d/node_modules");
    const FilePath holder = home.folder("Sites/e/node_modules");
    home.file("Sites/a/node_modules/x");
    home.file("Sites/b/node_modules/x");
    home.file("Sites/e/node_modules/one/file");
    for (const char *place : {"Sites/b/node_modules", "Sites/c", "Sites/e/node_modules/one/file"})
        spare(place);
    const Finding found = developerCandidates(context()).first();
    EXPECT_THAT(found.candidate.paths, ElementsAre(kept));
    EXPECT_EQ(found.candidate.bytes, onDisk(home / "Sites/a/node_modules/x"));
    EXPECT_THAT(found.leftOut, ElementsAre(itself, within, holder));
}

TEST_F(ScanWishesTest, SparedPlacesAreMetThroughLinks)
{
    const FilePath sites = home.folder("elsewhere");
    home.link("Sites", sites);
    home.folder("elsewhere/a/node_modules");
    spare("elsewhere/a");
    const Finding found = developerCandidates(context()).first();
    EXPECT_THAT(found.candidate.paths, IsEmpty());
    EXPECT_THAT(found.leftOut, ElementsAre(home / "Sites/a/node_modules"));
}

TEST_F(ScanWishesTest, EveryRuleSpares)
{
    home.file("Downloads/old.zip");
    home.sparseFile("Movies/large", qint64(200) << 20);
    home.setModified("Downloads/old.zip", longAgo);
    home.setModified("Movies/large", longAgo);
    home.file(".cache/x");
    home.file("Library/Caches/net.whatsapp.WhatsApp/x");
    home.folder("Sites/localhost/shop");
    home.folder("Sites/localhost/shop backup");
    wishes.spared.append(home.path());
    QList<FilePath> leftOut;
    for (const QList<Finding> &findings :
         {whatsAppCandidates(context()), cacheCandidates(context()), downloadCandidates(context(), now),
          oldLargeFilesCandidates(context(), now), duplicateProjectCandidates(context())}) {
        for (const Finding &finding : findings) {
            EXPECT_THAT(finding.candidate.paths, IsEmpty());
            leftOut += finding.leftOut;
        }
    }
    EXPECT_THAT(leftOut, UnorderedElementsAre(home / "Library/Caches/net.whatsapp.WhatsApp", home / ".cache",
                                              home / "Downloads/old.zip", home / "Movies/large", testing::_));
}

TEST_F(ScanWishesTest, EveryRuleTellsOfFilesWithSeveralLinks)
{
    const QList<FilePath> files{home.file("Downloads/old.zip"),
                                home.sparseFile("Movies/large", qint64(200) << 20),
                                home.file(".cache/x"),
                                home.file("Library/Caches/net.whatsapp.WhatsApp/x"),
                                home.file("Sites/a/node_modules/x"),
                                home.file("Sites/localhost/shop/x"),
                                home.file("Sites/localhost/shop backup/x")};
    for (const FilePath &file : files)
        home.hardLink("elsewhere" + FilePath::number(files.indexOf(file)), file);
    for (const char *old : {"Downloads/old.zip", "Movies/large", "Sites/localhost/shop"})
        home.setModified(old, longAgo);
    WalkNotes notes;
    ScanContext noted = context();
    noted.notes = &notes;
    for (const auto &rule : {whatsAppCandidates, cacheCandidates, developerCandidates, duplicateProjectCandidates})
        rule(noted);
    downloadCandidates(noted, now);
    oldLargeFilesCandidates(noted, now);
    EXPECT_THAT(notes.linked().keys(),
                UnorderedElementsAre(home / "Downloads/old.zip", home / "Movies/large", home / ".cache",
                                     home / "Library/Caches/net.whatsapp.WhatsApp", home / "Sites/a/node_modules",
                                     home / "Sites/localhost/shop"));
}

TEST_F(ScanWishesTest, ASparedCopyStillTakesPartInTheComparison)
{
    home.folder("Sites/localhost/shop");
    home.folder("Sites/localhost/shop backup");
    home.folder("Sites/localhost/shop copy");
    home.setModified("Sites/localhost/shop", daysAgo(3));
    home.setModified("Sites/localhost/shop backup", daysAgo(2));
    home.setModified("Sites/localhost/shop copy", daysAgo(1));
    spare("Sites/localhost/shop copy"); // The newest, which is kept anyway.
    const Finding newest = duplicateProjectCandidates(context()).first();
    EXPECT_THAT(newest.candidate.paths,
                ElementsAre(home / "Sites/localhost/shop backup", home / "Sites/localhost/shop"));
    EXPECT_THAT(newest.leftOut, IsEmpty());
    spare("Sites/localhost/shop backup");
    const Finding second = duplicateProjectCandidates(context()).first();
    EXPECT_THAT(second.candidate.paths, ElementsAre(home / "Sites/localhost/shop"));
    EXPECT_THAT(second.leftOut, ElementsAre(home / "Sites/localhost/shop backup"));
}

TEST_F(ScanWishesTest, InOwnPlacesAMatchCountsOnlyBesideAMarker)
{
    home.folder("code/a/node_modules");
    home.file("code/a/package.json");
    home.folder("code/b/node_modules");
    home.folder("code/c/coverage");
    home.folder("code/c/build");
    home.file("code/c/Package.swift");
    home.folder("code/d/coverage");
    home.folder("code/e/vendor");
    home.file("code/e/composer.json");
    home.folder("code/f/vendor");
    home.file("code/f/package.json");
    EXPECT_THAT(developerCandidates(context()).first().candidate.paths, IsEmpty());
    wishes.also = {home / "code"};
    const QList<Finding> found = developerCandidates(context());
    EXPECT_THAT(found.at(0).candidate.paths, ElementsAre(home / "code/a/node_modules", home / "code/c/coverage"));
    EXPECT_THAT(found.at(1).candidate.paths, ElementsAre(home / "code/e/vendor"));
    EXPECT_THAT(found.at(2).candidate.paths, ElementsAre(home / "code/c/build"));
}

TEST_F(ScanWishesTest, WhereOwnPlacesOverlapEachFolderIsFoundOnce)
{
    home.folder("Sites/a/node_modules");
    home.folder("Sites/b/node_modules/inner/node_modules");
    home.file("Sites/b/node_modules/inner/package.json");
    home.folder("code/a/node_modules/inner/dist");
    home.file("code/a/package.json");
    home.file("code/a/node_modules/inner/package.json");
    home.link("same", home / "code");
    wishes.also = {home / "code/a/node_modules", home / "code", home / "code/a", home / "same", home / "Sites",
                   home / "Sites/b/node_modules"};
    const QList<Finding> found = developerCandidates(context());
    EXPECT_THAT(found.at(0).candidate.paths, ElementsAre(home / "Sites/a/node_modules", home / "Sites/b/node_modules",
                                                         home / "code/a/node_modules"));
    EXPECT_THAT(found.at(2).candidate.paths, IsEmpty());
}

TEST_F(ScanWishesTest, AFolderThatHoldsWhatIsFoundThroughALinkIsNotListedToo)
{
    home.folder("code/node_modules/deep/p/node_modules");
    home.file("code/package.json");
    home.link("Sites", home / "code/node_modules/deep");
    wishes.also = {home / "code"};
    EXPECT_THAT(developerCandidates(context()).first().candidate.paths, ElementsAre(home / "Sites/p/node_modules"));
}

TEST_F(ScanWishesTest, AnOwnPlaceThatMayNotBeOneAnyMoreIsPassedOver)
{
    home.file("Library/code/a/package.json");
    home.folder("Library/code/a/node_modules");
    wishes.also = {home / "Library/code"};
    EXPECT_THAT(developerCandidates(context()).first().candidate.paths, IsEmpty());
}

TEST_F(ScanWishesTest, WhatIsInATrashOfAnOwnPlaceIsNotFound)
{
    home.file(".local/share/Trash/files/a/package.json");
    home.folder(".local/share/Trash/files/a/node_modules");
    home.file(".local/share/a/package.json");
    const FilePath found = home.folder(".local/share/a/node_modules");
    wishes.also = {home / ".local/share"};
    EXPECT_THAT(developerCandidates(context()).first().candidate.paths, ElementsAre(found));
}

TEST_F(ScanWishesTest, AnOwnPlaceThatIsMissingIsPassedOver)
{
    wishes.also = {home / "missing", home.file("file")};
    for (const Finding &finding : developerCandidates(context()))
        EXPECT_THAT(finding.candidate.paths, IsEmpty());
}

} // namespace tidlo
