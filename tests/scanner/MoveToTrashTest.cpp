#include "scanner/MoveToTrash.h"

#include "scanner/RuleTest.h"

#include <limits>

namespace tidlo {

using testing::_;
using testing::ElementsAre;
using testing::InSequence;
using testing::IsEmpty;
using testing::Return;
using testing::SizeIs;

namespace {

constexpr TrashOutcome::Kind moved = TrashOutcome::Kind::moved;

TrashOutcome outcome(TrashOutcome::Kind kind)
{
    return {.kind = kind, .reason = {}};
}

CleanupCandidate candidate(const QList<FilePath> &paths, qint64 bytes, CleanupRisk risk = CleanupRisk::safe)
{
    CleanupCandidate result;
    result.paths = paths;
    result.bytes = bytes;
    result.risk = risk;
    return result;
}

class MoveToTrash : public RuleTest
{
protected:
    Cleanup cleanUp(const QList<CleanupCandidate> &candidates)
    {
        return moveToTrash(files, candidates, spared, [] { return false; });
    }

    CleanupReport move(const QList<CleanupCandidate> &candidates) { return cleanUp(candidates).report; }

    PlaceSet spared;
};

} // namespace

TEST_F(MoveToTrash, CountsAnEvenShareForEachPathThatExists)
{
    const CleanupReport report = move({candidate({home.file("a"), home / "gone", home.folder("b")}, 100)});
    EXPECT_EQ(report.removedItems, 2);
    EXPECT_EQ(report.recoveredBytes, 66);
    EXPECT_EQ(report.protectedItems, 0);
    EXPECT_EQ(report.aiSummary, std::nullopt);
    EXPECT_FALSE(files.live().fileExists(home / "a"));
    EXPECT_FALSE(files.live().fileExists(home / "b"));
}

TEST_F(MoveToTrash, TruncatesTheShareOfEachPath)
{
    const auto share = [this](int paths, qint64 bytes) {
        QList<FilePath> list;
        for (int number = 0; number < paths; ++number)
            list.append(home.file(FilePath::number(number)));
        return move({candidate(list, bytes)}).recoveredBytes;
    };
    EXPECT_EQ(share(1, 7), 7);
    EXPECT_EQ(share(2, 7), 6);
    EXPECT_EQ(share(3, 8), 6);
    EXPECT_EQ(share(3, 2), 0);
    EXPECT_EQ(share(2, 0), 0);
    EXPECT_EQ(share(2, -7), 0);
}

TEST_F(MoveToTrash, CountsAndLeavesAloneWhatIsNeverToBeTouched)
{
    const CleanupReport report =
        move({candidate({home.file("a"), home.file("b")}, 10, CleanupRisk::never), candidate({}, 0, CleanupRisk::never),
              candidate({home.file("c")}, 10, CleanupRisk::review)});
    EXPECT_EQ(report.protectedItems, 2);
    EXPECT_EQ(report.removedItems, 1);
    EXPECT_EQ(report.recoveredBytes, 10);
    EXPECT_TRUE(files.live().fileExists(home / "a"));
    EXPECT_TRUE(files.live().fileExists(home / "b"));
}

TEST_F(MoveToTrash, MovesCandidatesAndTheirPathsInOrder)
{
    const QList<FilePath> paths{home.file("3"), home.file("1"), home.file("2")};
    const InSequence inOrder;
    for (const FilePath &path : paths)
        EXPECT_CALL(files, trashItem(path));
    EXPECT_CALL(files, volumeCapacity(home.path()));
    move({candidate(paths.first(2), 10), candidate(paths.last(1), 10)});
}

TEST_F(MoveToTrash, ExpandsALeadingTildeToTheHomeFolder)
{
    home.file("file");
    home.file("~/file");
    home.file("~user");
    ON_CALL(files, trashItem).WillByDefault(Return(outcome(moved)));
    EXPECT_CALL(files, trashItem(home / "file"));
    EXPECT_CALL(files, trashItem(home.path()));
    EXPECT_CALL(files, trashItem(home / "~/file"));
    EXPECT_CALL(files, trashItem(home / "~user"));
    EXPECT_EQ(move({candidate({"~/file", "~", home / "~/file", home / "~user"}, 4)}).removedItems, 4);
}

TEST_F(MoveToTrash, TakesNoOtherUsersTildeForAHomeFolder)
{
    EXPECT_CALL(files, trashItem).Times(0);
    EXPECT_CALL(files, fileExists(FilePath("~root/x"))).WillOnce(Return(false));
    EXPECT_CALL(files, fileExists(FilePath())).WillOnce(Return(false));
    move({candidate({"~root/x", ""}, 4)});
}

TEST_F(MoveToTrash, PassesOverWhatDoesNotExist)
{
    home.link("dangling", "nowhere");
    EXPECT_CALL(files, trashItem).Times(0);
    EXPECT_EQ(move({candidate({home / "gone", home / "dangling", home / "gone/deeper"}, 100)}).removedItems, 0);
}

TEST_F(MoveToTrash, MovesALinkAndNotWhatItLeadsTo)
{
    home.link("link", home.file("target"));
    EXPECT_EQ(move({candidate({home / "link"}, 100)}).removedItems, 1);
    EXPECT_TRUE(files.live().fileExists(home / "target"));
    EXPECT_FALSE(files.live().attributesOfItem(home / "link").has_value());
}

TEST_F(MoveToTrash, CountsNothingThatWasNotMoved)
{
    using Kind = TrashOutcome::Kind;
    EXPECT_CALL(files, trashItem)
        .WillOnce(Return(outcome(Kind::refused)))
        .WillOnce(Return(outcome(Kind::failed)))
        .WillOnce(Return(outcome(Kind::gone)))
        .WillOnce(Return(outcome(moved)));
    const CleanupReport report =
        move({candidate({home.file("a"), home.file("b"), home.file("c"), home.file("d")}, 100)});
    EXPECT_EQ(report.removedItems, 1);
    EXPECT_EQ(report.recoveredBytes, 25);
}

TEST_F(MoveToTrash, TellsWhatStayedAndWhy)
{
    using Kind = TrashOutcome::Kind;
    home.link("dangling", "nowhere");
    EXPECT_CALL(files, trashItem(home / "a"))
        .WillOnce(Return(TrashOutcome{.kind = Kind::refused, .reason = QStringLiteral("It holds a Trash.")}));
    EXPECT_CALL(files, trashItem(home / "b"))
        .WillOnce(Return(TrashOutcome{.kind = Kind::failed, .reason = QStringLiteral("It cannot be moved.")}));
    EXPECT_CALL(files, trashItem(home / "c"))
        .WillOnce(Return(TrashOutcome{.kind = Kind::anotherMoved, .reason = QStringLiteral("Another was.")}));
    EXPECT_CALL(files, trashItem(home / "d")).WillOnce(Return(outcome(Kind::gone)));
    EXPECT_CALL(files, trashItem(home / "e"));
    home.file("a");
    home.file("b");
    home.file("c");
    home.file("d");
    home.file("e");
    const auto stayed = [this](const char *name, const char *reason) {
        return StayedItem{.path = home / name, .reason = QString::fromUtf8(reason)};
    };
    EXPECT_THAT(cleanUp({candidate({home / "a", home / "b", "~/c", home / "d"}, 100),
                         candidate({home / "e", home / "gone", home / "dangling"}, 10),
                         candidate({home.file("kept")}, 10, CleanupRisk::never)})
                    .stayed,
                ElementsAre(stayed("a", "It holds a Trash."), stayed("b", "It cannot be moved."),
                            stayed("c", "Another was."), stayed("dangling", "It is a link that leads nowhere.")));
}

TEST_F(MoveToTrash, TellsWhereWhatWasMovedIsInItsOrder)
{
    const QList<FilePath> paths{home.file("b"), home.file("a")};
    EXPECT_CALL(files, trashItem(home.file("c"))).WillOnce(Return(outcome(TrashOutcome::Kind::failed)));
    EXPECT_CALL(files, trashItem(paths[0]));
    EXPECT_CALL(files, trashItem(paths[1]));
    const auto trashed = [this](const char *name, const char *origin) {
        return TrashedItem{.trash = home / ".trash", .name = name, .origin = home / origin};
    };
    EXPECT_THAT(cleanUp({candidate({paths[0], home / "c", home / "gone"}, 100), candidate({paths[1]}, 10)}).moved,
                ElementsAre(trashed("1 b", "b"), trashed("1 a", "a")));
}

TEST_F(MoveToTrash, TellsOnceWhatStayedInTwoFindings)
{
    ON_CALL(files, trashItem).WillByDefault(Return(outcome(TrashOutcome::Kind::failed)));
    const FilePath path = home.file("a");
    EXPECT_THAT(cleanUp({candidate({path, path}, 100), candidate({path}, 10)}).stayed, SizeIs(1));
}

TEST_F(MoveToTrash, TellsNothingOfWhatALaterTryMoved)
{
    const FilePath inner = home.file("outer/inner");
    EXPECT_CALL(files, trashItem(inner)).WillOnce(Return(outcome(TrashOutcome::Kind::failed)));
    EXPECT_CALL(files, trashItem(home / "outer"));
    const Cleanup cleanup = cleanUp({candidate({inner, home / "outer"}, 100)});
    EXPECT_EQ(cleanup.report.removedItems, 1);
    EXPECT_THAT(cleanup.stayed, IsEmpty());
}

TEST_F(MoveToTrash, CountsAPathOnceThatIsListedTwice)
{
    const FilePath path = home.file("a");
    const CleanupReport report = move({candidate({path, path}, 100), candidate({path}, 10)});
    EXPECT_EQ(report.removedItems, 1);
    EXPECT_EQ(report.recoveredBytes, 50);
}

TEST_F(MoveToTrash, CountsNoPathThatWasMovedAsPartOfAnother)
{
    const FilePath inner = home.file("outer/inner");
    const CleanupReport report = move({candidate({home / "outer", inner}, 100), candidate({inner}, 10)});
    EXPECT_EQ(report.removedItems, 1);
    EXPECT_EQ(report.recoveredBytes, 50);
}

TEST_F(MoveToTrash, CountsAnInnerPathThatWasMovedBeforeTheOuterOne)
{
    const FilePath inner = home.file("outer/inner");
    EXPECT_EQ(move({candidate({inner, home / "outer"}, 100)}).removedItems, 2);
}

TEST_F(MoveToTrash, MeasuresNothingAgainButTheDisk)
{
    EXPECT_CALL(files, allocatedSizes).Times(0);
    EXPECT_CALL(files, enumerate).Times(0);
    EXPECT_CALL(files, attributesOfItem).Times(0);
    EXPECT_CALL(files, volumeCapacity(home.path())).WillOnce(Return(VolumeCapacity{.total = 1'000, .available = 250}));
    EXPECT_EQ(move({candidate({home.file("a", 10)}, 100)}).finalDiskUsedPercent, 0.75);
}

TEST_F(MoveToTrash, OfNothingReadsTheDiskAnew)
{
    EXPECT_CALL(files, volumeCapacity).WillOnce(Return(std::nullopt));
    EXPECT_CALL(files, fileSystemAttributes).WillOnce(Return(VolumeCapacity{.total = 1'000, .available = 500}));
    EXPECT_EQ(move({}), (CleanupReport{.finalDiskUsedPercent = 0.5, .aiSummary = {}}));
}

TEST_F(MoveToTrash, StopsBetweenTwoItemsAndTellsWhatWasDone)
{
    bool isStopped = false;
    EXPECT_CALL(files, trashItem(home / "a")).WillOnce(Return(outcome(moved)));
    EXPECT_CALL(files, trashItem(home / "b")).WillOnce([&](const FilePath &) {
        isStopped = true;
        return outcome(moved);
    });
    EXPECT_CALL(files, trashItem(home / "c")).Times(0);
    EXPECT_CALL(files, trashItem(home / "d")).Times(0);
    const CleanupReport report = moveToTrash(files,
                                             {candidate({home.file("a"), home.file("b"), home.file("c")}, 90),
                                              candidate({home.file("d")}, 10), candidate({}, 0, CleanupRisk::never)},
                                             {}, [&] { return isStopped; })
                                     .report;
    EXPECT_EQ(report.removedItems, 2);
    EXPECT_EQ(report.recoveredBytes, 60);
    EXPECT_GT(report.finalDiskUsedPercent, 0);
}

TEST_F(MoveToTrash, LeavesWhatIsLiesInOrHoldsASparedPlaceAndTellsWhy)
{
    const FilePath itself = home.folder("itself");
    const FilePath within = home.folder("around/within");
    const FilePath holder = home.folder("holder");
    home.link("link", home.folder("true"));
    const FilePath beyondLink = home.file("link/file");
    for (const FilePath &place : {itself, home / "around", home.file("holder/file"), home / "true/file"})
        spared.insert(place);
    const Cleanup cleanup =
        cleanUp({candidate({itself, within, home / "gone", holder, beyondLink, home.file("other")}, 60)});
    EXPECT_EQ(cleanup.report.removedItems, 1);
    EXPECT_EQ(cleanup.report.recoveredBytes, 10);
    const QString reason = QStringLiteral("It is never to be suggested.");
    EXPECT_THAT(cleanup.stayed, ElementsAre(StayedItem{itself, reason}, StayedItem{within, reason},
                                            StayedItem{holder, reason}, StayedItem{beyondLink, reason}));
}

TEST_F(MoveToTrash, MovesNamesOfAnyBytes)
{
    QList<FilePath> paths;
    for (const FilePath &name : awkwardNames())
        paths.append(home.file(name));
    EXPECT_EQ(move({candidate(paths, 100)}).removedItems, paths.size());
}

TEST_F(MoveToTrash, ChangesNothingElse)
{
    home.file("other/file");
    home.link("other/link", "file");
    const auto before = home.inventory();
    move({candidate({home.file("folder/a")}, 100)});
    const auto after = home.inventory();
    for (const char *untouched : {"other", "other/file", "other/link"})
        EXPECT_EQ(after.at(untouched), before.at(untouched)) << untouched;
}

TEST_F(MoveToTrash, StopsTheProgramWhereASumDoesNotFit)
{
    ON_CALL(files, trashItem).WillByDefault(Return(outcome(moved)));
    const QList<CleanupCandidate> candidates{candidate({home.file("a")}, std::numeric_limits<qint64>::max()),
                                             candidate({home.file("b")}, 1)};
    EXPECT_DEATH(move(candidates), "does not fit 64 bits");
}

} // namespace tidlo
