#include "cli/CleanupSelection.h"

#include "support/PrintQt.h"

#include <gmock/gmock.h>

namespace tidlo {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

CleanupCandidate candidate(CleanupRisk risk, const QList<FilePath> &paths, bool selected = true)
{
    CleanupCandidate candidate;
    candidate.risk = risk;
    candidate.bytes = paths.size();
    candidate.paths = paths;
    candidate.selected = selected;
    return candidate;
}

} // namespace

TEST(CleanupSelection, HoldsNothingThatIsNeverToBeTouchedWhateverIsAskedFor)
{
    const QList<CleanupCandidate> never{candidate(CleanupRisk::never, {"/a"})};
    EXPECT_THAT(cleanupSelection(never, {}).paths, IsEmpty());
    EXPECT_THAT(cleanupSelection(never, {CleanupRisk::never}).candidates, IsEmpty());
}

TEST(CleanupSelection, HoldsWhatIsSelectedAndAskedForEachPathOnce)
{
    const QList<CleanupCandidate> all{candidate(CleanupRisk::safe, {"/b", "/a"}),
                                      candidate(CleanupRisk::review, {"/c", "/a"}),
                                      candidate(CleanupRisk::safe, {"/d"}, false)};
    const CleanupSelection everything = cleanupSelection(all, {});
    EXPECT_THAT(everything.candidates, ElementsAre(all[0], all[1]));
    EXPECT_THAT(everything.paths, ElementsAre("/b", "/a", "/c"));
    EXPECT_EQ(everything.bytes, 4);

    EXPECT_THAT(cleanupSelection(all, {CleanupRisk::review}).paths, ElementsAre("/c", "/a"));
}

} // namespace tidlo
