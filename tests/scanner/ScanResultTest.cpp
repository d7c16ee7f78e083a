#include "scanner/ScanResult.h"

#include "support/PrintQt.h"

#include <gmock/gmock.h>

namespace tidlo {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A result with findings whose paths have the size of the number at their end.
ScanResult resultOf(const QList<QList<FilePath>> &findings)
{
    ScanResult result{.snapshot = {.totals = {.recoverableBytes = 99}, .candidates = {}}, .sizes = {}};
    for (const QList<FilePath> &paths : findings) {
        CleanupCandidate candidate;
        candidate.paths = paths;
        for (const FilePath &path : paths) {
            const qint64 size = path.sliced(path.lastIndexOf('/') + 1).toLongLong();
            result.sizes[candidate.id].append(size);
            candidate.bytes += size;
        }
        result.snapshot.candidates.append(candidate);
    }
    return result;
}

PlaceSet one(const FilePath &place)
{
    PlaceSet set;
    set.insert(place);
    return set;
}

} // namespace

TEST(LeaveOut, TakesWhatIsLiesInOrHoldsAPlaceOutOfEveryFinding)
{
    ScanResult result = resultOf({{"/a/b/1", "/x/2", "/a/b/c/4"}, {"/a", "/y/8"}, {"/link/1", "/z/16"}});
    result.places.insert("/link/1", "/a/b/1");
    const QList<CleanupCandidate> before = result.snapshot.candidates;
    leaveOut(result, one("/a/b"));
    const QList<CleanupCandidate> &after = result.snapshot.candidates;
    ASSERT_EQ(after.size(), 3);
    EXPECT_THAT(after.at(0).paths, ElementsAre("/x/2"));
    EXPECT_EQ(after.at(0).id, before.at(0).id);
    EXPECT_EQ(after.at(0).bytes, 2);
    EXPECT_THAT(result.sizes.value(after.at(0).id), ElementsAre(2));
    EXPECT_THAT(after.at(1).paths, ElementsAre("/y/8"));
    EXPECT_THAT(after.at(2).paths, ElementsAre("/z/16"));
    EXPECT_EQ(result.snapshot.totals.recoverableBytes, 99);
}

TEST(LeaveOut, TakesAFindingThatHasNothingLeftAlongButNoneThatHadNothing)
{
    ScanResult result = resultOf({{"/a/1"}, {}, {"/b/2"}});
    const QList<CleanupCandidate> before = result.snapshot.candidates;
    leaveOut(result, one("/a/1"));
    EXPECT_THAT(result.snapshot.candidates, ElementsAre(before.at(1), before.at(2)));
}

TEST(HoldersOf, AreWhatIsListedAndHoldsThePathEachPlaceOnceTheLargestFirst)
{
    ScanResult result = resultOf({{"/a/7/8/1"}, {"/a/7", "/a/7/8"}, {"/link"}, {"/a/7/8/1/2"}});
    result.places.insert("/link", "/a/7");
    EXPECT_THAT(holdersOf(result, "/a/7/8/1"), ElementsAre(HoldingItem{"/a/7/8", 8}, HoldingItem{"/a/7", 7}));
    EXPECT_THAT(holdersOf(result, "/a/7"), IsEmpty());
}

} // namespace tidlo
