#include "scanner/CandidateTemplate.h"

#include "scanner/RuleTest.h"

#include <limits>

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr CandidateTemplate fixed{
    .title = QLatin1StringView("Title"),
    .detail = QLatin1StringView("Detail."),
    .category = CleanupCategory::caches,
    .risk = CleanupRisk::safe,
    .selected = false,
};

} // namespace

TEST(CandidateTemplate, IsFilledWithPathsAndTheSumOfTheirSizes)
{
    const CleanupCandidate candidate = makeCandidate(fixed, {"/a", "/b"}, {40, 2});
    expectFixedFields(candidate, {"Title", "Detail.", CleanupCategory::caches, CleanupRisk::safe, false});
    EXPECT_THAT(candidate.paths, ElementsAre("/a", "/b"));
    EXPECT_EQ(candidate.bytes, 42);
}

TEST(CandidateTemplate, TakesTheItemsOfOneGroup)
{
    const QList<CollectedItem> items{{.path = "/a", .group = 1, .allocatedSize = 1},
                                     {.path = "/b", .group = 0, .allocatedSize = 2},
                                     {.path = "/c", .group = 1, .allocatedSize = 4}};
    EXPECT_THAT(makeCandidate(fixed, items, 1).paths, ElementsAre("/a", "/c"));
    EXPECT_EQ(makeCandidate(fixed, items, 1).bytes, 5);
    EXPECT_THAT(makeCandidate(fixed, items, 2).paths, IsEmpty());
}

TEST(CandidateTemplateDeathTest, StopsTheProgramWhereTheSumDoesNotFit)
{
    const QList<qint64> sizes{std::numeric_limits<qint64>::max(), 1};
    EXPECT_DEATH(makeCandidate(fixed, {"/a", "/b"}, sizes), "does not fit 64 bits");
}
