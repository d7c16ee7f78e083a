#include "app/AppTest.h"

namespace tidlo {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Findings whose paths have the size of the number at their end.
class ItemTicksTest : public AppTest
{
protected:
    static CleanupCandidate finding(const char *title, const QList<FilePath> &paths,
                                    CleanupRisk risk = CleanupRisk::review)
    {
        CleanupCandidate made = candidate(title, risk, 0);
        made.paths = paths;
        for (const FilePath &path : paths)
            made.bytes += sizeOf(path);
        return made;
    }

    static qint64 sizeOf(const FilePath &path) { return path.sliced(path.lastIndexOf('/') + 1).toLongLong(); }

    void showFound(const QList<CleanupCandidate> &findings, const QHash<FilePath, FilePath> &places = {})
    {
        ScanResult result{
            .snapshot = {.totals = {.totalBytes = 77}, .candidates = findings}, .sizes = {}, .places = places};
        for (const CleanupCandidate &each : findings) {
            QList<qint64> sizes;
            for (const FilePath &path : each.paths)
                sizes.append(sizeOf(path));
            result.sizes.insert(each.id, sizes);
        }
        model().showResults(result);
    }

    CleanupCandidate now(qsizetype index) { return model().candidates().at(index); }
};

} // namespace

TEST_F(ItemTicksTest, UntickingLeavesACandidateOfTheRestAndTickingRestoresIt)
{
    const CleanupCandidate former = finding("F", {"/a/1", "/a/2", "/a/4"});
    showFound({former});
    EXPECT_THAT(model().ticksOf(former.id), ElementsAre(true, true, true));

    EXPECT_THAT(model().tickItems(former.id, {1}, false), IsEmpty());
    EXPECT_EQ(now(0).id, former.id);
    EXPECT_THAT(now(0).paths, ElementsAre("/a/1", "/a/4"));
    EXPECT_EQ(now(0).bytes, 5);
    EXPECT_EQ(model().selectedBytes(), 5);
    EXPECT_EQ(model().totals().totalBytes, 77);
    EXPECT_THAT(model().ticksOf(former.id), ElementsAre(true, false, true));

    model().tickItems(former.id, {1}, true);
    EXPECT_EQ(model().candidates(), QList{former});
}

TEST_F(ItemTicksTest, EachChangeIsOneAssignment)
{
    const CleanupCandidate first = finding("F", {"/a/1", "/a/2"});
    showFound({first, finding("G", {"/a/1", "/b/2"})});
    NotificationLog log(model());
    model().tickItems(first.id, {0}, false);
    EXPECT_THAT(log.taken(), ElementsAre("candidates: [+F, +G]"));
    EXPECT_THAT(now(1).paths, ElementsAre("/b/2"));
}

TEST_F(ItemTicksTest, TakingOutTheLastItemDeselectsTheFinding)
{
    const CleanupCandidate former = finding("F", {"/a/1", "/a/2"});
    showFound({former});
    model().tickItems(former.id, {0, 1}, false);
    EXPECT_FALSE(now(0).selected);
    EXPECT_THAT(now(0).paths, IsEmpty());
    EXPECT_EQ(now(0).bytes, 0);

    model().tickItems(former.id, {1}, true);
    EXPECT_TRUE(now(0).selected);
    EXPECT_THAT(now(0).paths, ElementsAre("/a/2"));
}

TEST_F(ItemTicksTest, SelectingAFindingWithoutATickedItemTicksAllOfThem)
{
    const CleanupCandidate former = finding("F", {"/a/1", "/a/2"});
    showFound({former});
    model().tickItems(former.id, {0, 1}, false);
    model().toggleCandidate(now(0));
    EXPECT_EQ(model().candidates(), QList{former});
}

TEST_F(ItemTicksTest, OfADeselectedFindingJustTheTickedItemsAreSelected)
{
    CleanupCandidate former = finding("F", {"/a/1", "/a/2", "/a/4"});
    former.selected = false;
    const CleanupCandidate other = finding("G", {"/a/4"});
    showFound({former, other});
    EXPECT_THAT(model().ticksOf(former.id), ElementsAre(false, false, false));

    model().tickItems(former.id, {1}, true);
    EXPECT_TRUE(now(0).selected);
    EXPECT_THAT(now(0).paths, ElementsAre("/a/2"));
    EXPECT_EQ(now(1), other); // Nobody has unticked any of its items.

    model().tickItems(former.id, {0, 2}, true);
    EXPECT_THAT(now(0).paths, ElementsAre("/a/1", "/a/2", "/a/4"));
    EXPECT_EQ(now(0).bytes, 7);
}

TEST_F(ItemTicksTest, OfADeselectedFindingNothingIsUnticked)
{
    CleanupCandidate former = finding("F", {"/a/1", "/a/2"});
    former.selected = false;
    const CleanupCandidate other = finding("G", {"/a/2"});
    showFound({former, other});
    model().tickItems(former.id, {1}, false);
    EXPECT_EQ(model().candidates(), (QList{former, other}));
}

TEST_F(ItemTicksTest, AFindingThatNeverHadAnItemStaysSelected)
{
    const CleanupCandidate other = finding("G", {"/a/1", "/a/2"});
    showFound({finding("F", {}), other});
    model().tickItems(other.id, {0}, false);
    EXPECT_TRUE(now(0).selected);
}

TEST_F(ItemTicksTest, AFindingThatIsSelectedAgainHasTheItemsItHad)
{
    const CleanupCandidate former = finding("F", {"/a/1", "/a/2"});
    showFound({former});
    model().tickItems(former.id, {0}, false);
    model().toggleCandidate(now(0));
    EXPECT_THAT(model().ticksOf(former.id), ElementsAre(false, false));
    model().toggleCandidate(now(0));
    EXPECT_THAT(model().ticksOf(former.id), ElementsAre(false, true));
}

TEST_F(ItemTicksTest, WhatIsUntickedIsUntickedInEveryFinding)
{
    const CleanupCandidate first = finding("F", {"/a/b/1", "/x/2"});
    const CleanupCandidate same = finding("G", {"/link/1", "/y/2"});
    const CleanupCandidate holder = finding("H", {"/a", "/z/2"});
    const CleanupCandidate beneath = finding("I", {"/a/b/1/c/3"});
    showFound({first, same, holder, beneath}, {{"/link/1", "/a/b/1"}});

    const QList<ItemElsewhere> others = model().tickItems(first.id, {0}, false);
    EXPECT_THAT(now(0).paths, ElementsAre("/x/2"));
    EXPECT_THAT(now(1).paths, ElementsAre("/y/2"));
    EXPECT_THAT(now(2).paths, ElementsAre("/z/2"));
    EXPECT_EQ(now(3), beneath);
    ASSERT_EQ(others.size(), 2);
    EXPECT_EQ(others.at(0).title, QStringLiteral("G"));
    EXPECT_EQ(others.at(0).path, "/link/1");
    EXPECT_EQ(others.at(1).title, QStringLiteral("H"));
    EXPECT_EQ(others.at(1).path, "/a");

    model().tickItems(first.id, {0}, true);
    EXPECT_EQ(model().candidates(), (QList{first, same, holder, beneath}));
}

TEST_F(ItemTicksTest, WhatIsTickedByOneWayToItIsTickedByEveryWay)
{
    const CleanupCandidate first = finding("F", {"/a/1", "/x/2"});
    const CleanupCandidate same = finding("G", {"/link/1", "/y/2"});
    showFound({first, same}, {{"/link/1", "/a/1"}});
    model().tickItems(first.id, {0}, false);

    model().tickItems(same.id, {0}, true);

    EXPECT_EQ(model().candidates(), (QList{first, same}));
}

TEST_F(ItemTicksTest, TickingAFolderTicksWhatOtherFindingsListInIt)
{
    const CleanupCandidate first = finding("F", {"/a/b/1", "/x/2"});
    const CleanupCandidate holder = finding("H", {"/a", "/z/2"});
    showFound({first, holder});
    model().tickItems(first.id, {0}, false);
    model().tickItems(holder.id, {0}, true);
    EXPECT_EQ(model().candidates(), (QList{first, holder}));
}

TEST_F(ItemTicksTest, AnotherFindingThatHasNoneLeftIsDeselected)
{
    const CleanupCandidate first = finding("F", {"/a/1", "/x/2"});
    showFound({first, finding("G", {"/a/1"})});
    model().tickItems(first.id, {0}, false);
    EXPECT_FALSE(now(1).selected);
}

TEST_F(ItemTicksTest, OnlyWhatIsTickedIsMoved)
{
    const FilePath spared = home.file("one/1");
    const FilePath moved = home.file("two/2");
    const CleanupCandidate first = finding("F", {spared, moved});
    showFound({first, finding("G", {home / "one"})});
    model().tickItems(first.id, {0}, false);
    model().moveSelectedToTrash();
    waitUntil([&] { return model().phase() == ScanPhase::report; });
    EXPECT_TRUE(files->attributesOfItem(spared));
    EXPECT_FALSE(files->attributesOfItem(moved));
    EXPECT_EQ(model().cleanupReport()->removedItems, 1);
}

TEST_F(ItemTicksTest, WhatIsNeverToBeTouchedHasNone)
{
    const CleanupCandidate protectedOne = finding("P", {"/a/1", "/a/2"}, CleanupRisk::never);
    showFound({protectedOne});
    model().tickItems(protectedOne.id, {0}, true);
    model().tickItems(protectedOne.id, {0}, false);
    model().tickItems(QUuid::createUuid(), {0}, true);
    EXPECT_EQ(model().candidates(), QList{protectedOne});
}

TEST_F(ItemTicksTest, AFindingThatNoScanListedStaysAsItIs)
{
    const CleanupCandidate scanned = finding("F", {"/a/1", "/a/2"});
    const CleanupCandidate other = finding("G", {"/a/2", "/b/4"});
    showFound({scanned});
    show({scanned, other});

    model().tickItems(scanned.id, {1}, false);

    EXPECT_THAT(now(0).paths, ElementsAre("/a/1"));
    EXPECT_EQ(now(1), other);
}

TEST_F(ItemTicksTest, NewResultsAreTickedAsTheyWereFound)
{
    const CleanupCandidate former = finding("F", {"/a/1", "/a/2"});
    showFound({former});
    model().tickItems(former.id, {0}, false);
    showFound({former});
    EXPECT_EQ(model().candidates(), QList{former});
    EXPECT_THAT(model().ticksOf(former.id), ElementsAre(true, true));
}

} // namespace tidlo
