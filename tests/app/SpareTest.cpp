#include "app/AppTest.h"

namespace tidlo {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Results of which an item is never to be suggested again.
class Spare : public AppTest
{
protected:
    static CleanupCandidate finding(const char *title, const QList<FilePath> &paths)
    {
        CleanupCandidate made = candidate(title, CleanupRisk::review, 0);
        made.paths = paths;
        made.bytes = 10 * paths.size();
        return made;
    }

    /// Shows findings in which each path has ten bytes.
    void showFound(const QList<CleanupCandidate> &findings)
    {
        ScanResult result{.snapshot = {.totals = {.totalBytes = 77}, .candidates = findings}, .sizes = {}};
        for (const CleanupCandidate &each : findings)
            result.sizes.insert(each.id, QList<qint64>(each.paths.size(), 10));
        model().showResults(result);
    }

    /// Makes the list unreadable.
    void damageList() { defaults->set(UserDefaults::spared, QStringLiteral("relative")); }
};

} // namespace

TEST_F(Spare, TakesTheItemOutOfEveryFindingAtOnceInOneAssignment)
{
    const CleanupCandidate first = finding("F", {"/a/1", "/a/2"});
    showFound({first, finding("G", {"/a", "/b"}), finding("H", {"/a/1/x"})});
    NotificationLog log(model());
    EXPECT_THAT(model().holdersOf("/a/1"), ElementsAre(HoldingItem{"/a", 10}));
    EXPECT_TRUE(model().spare("/a/1"));
    EXPECT_THAT(log.taken(), ElementsAre("candidates: [+F, +G]"));
    EXPECT_THAT(model().candidates().at(0).paths, ElementsAre("/a/2"));
    EXPECT_EQ(model().candidates().at(0).bytes, 10);
    EXPECT_EQ(model().candidates().at(0).id, first.id);
    EXPECT_THAT(model().candidates().at(1).paths, ElementsAre("/b"));
    EXPECT_THAT(model().scannedCandidate(first.id).paths, ElementsAre("/a/2"));
    EXPECT_EQ(model().totals().totalBytes, 77);
    EXPECT_THAT(defaults->paths(UserDefaults::spared).value(), ElementsAre("/a/1"));
}

TEST_F(Spare, TicksOfTheOtherItemsStay)
{
    const CleanupCandidate first = finding("F", {"/a/1", "/a/2", "/a/3", "/a/4"});
    showFound({first});
    model().toggleCandidate(first);
    model().tickItems(first.id, {2}, true);
    model().spare("/a/1");
    EXPECT_THAT(model().ticksOf(first.id), ElementsAre(false, true, false));
    EXPECT_THAT(model().candidates().at(0).paths, ElementsAre("/a/3"));
    model().spare("/a/3");
    EXPECT_FALSE(model().candidates().at(0).selected);
}

TEST_F(Spare, ThePlaceOfTheItemIsKeptWhateverTheWayToIt)
{
    ScanResult result{.snapshot = {.totals = {}, .candidates = {finding("F", {"/link/1"})}}, .sizes = {}};
    result.places.insert("/link/1", "/a/1");
    model().showResults(result);
    EXPECT_TRUE(model().spare("/link/1"));
    EXPECT_THAT(defaults->paths(UserDefaults::spared), testing::Optional(ElementsAre("/a/1")));
}

TEST_F(Spare, NothingGoesIfItCannotBeKept)
{
    const CleanupCandidate first = finding("F", {"/a/1"});
    showFound({first});
    damageList();
    EXPECT_FALSE(model().spare("/a/1"));
    EXPECT_EQ(model().candidates(), QList{first});
}

TEST_F(Spare, AScanLeavesOutWhatIsSparedAtThatMoment)
{
    home.file("Sites/a/node_modules/x");
    home.file("Sites/b/node_modules/x");
    UserDefaults(QString::fromUtf8(home / "preferences.conf")).addPath(UserDefaults::spared, home / "Sites/a");
    scan();
    EXPECT_THAT(model().candidates().at(0).paths, ElementsAre(home / "Sites/b/node_modules"));
}

TEST_F(Spare, WhatIsSparedWhileAScanRunsIsNotInItsResults)
{
    const FilePath spared = home.file("Sites/a/node_modules/x");
    home.file("Sites/b/node_modules/x");
    model().startScan();
    defaults->addPath(UserDefaults::spared, spared);
    waitUntil([&] { return model().phase() == ScanPhase::results; });
    EXPECT_THAT(model().candidates().at(0).paths, ElementsAre(home / "Sites/b/node_modules"));
}

TEST_F(Spare, AScanLooksInPlacesOfOnesOwn)
{
    home.file("code/a/package.json");
    home.file("code/a/node_modules/x");
    defaults->addPath(UserDefaults::places, home / "code");
    scan();
    EXPECT_THAT(model().candidates().at(0).paths, ElementsAre(home / "code/a/node_modules"));
}

TEST_F(Spare, AFolderThatCannotBeLookedIntoIsNotKeptAsAPlace)
{
    model().proposePlace(home / "missing");
    waitUntil([&] { return model().proposedPlace().has_value(); });
    EXPECT_TRUE(model().answerProposal(true));
    EXPECT_THAT(defaults->paths(UserDefaults::places), testing::Optional(IsEmpty()));
}

TEST_F(Spare, WhatWasSparedSinceTheScanStays)
{
    const FilePath spared = home.file("a/1");
    const FilePath moved = home.file("b");
    showFound({finding("F", {spared, moved})});
    UserDefaults(QString::fromUtf8(home / "preferences.conf")).addPath(UserDefaults::spared, home / "a");
    model().moveSelectedToTrash();
    waitUntil([&] { return model().phase() == ScanPhase::report; });
    EXPECT_TRUE(files->attributesOfItem(spared));
    EXPECT_FALSE(files->attributesOfItem(moved));
    ASSERT_EQ(model().stayed().size(), 1);
    EXPECT_EQ(model().stayed().first().path, spared);
}

TEST_F(Spare, NothingIsMovedWhileItCannotBeReadWhatIsSpared)
{
    const FilePath kept = home.file("a");
    showFound({finding("F", {kept})});
    damageList();
    NotificationLog log(model());
    model().moveSelectedToTrash();
    EXPECT_TRUE(model().isSparedUnknown());
    EXPECT_THAT(log.taken(), IsEmpty());
    EXPECT_TRUE(files->attributesOfItem(kept));
    model().acknowledgeSparedUnknown();
    EXPECT_FALSE(model().isSparedUnknown());
}

} // namespace tidlo
