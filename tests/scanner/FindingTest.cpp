#include "scanner/Finding.h"

#include "scanner/RuleTest.h"

#include <limits>

namespace tidlo {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr FindingTemplate fixed{
    .title = QLatin1StringView("Title"),
    .detail = QLatin1StringView("Detail."),
    .category = CleanupCategory::caches,
    .risk = CleanupRisk::safe,
    .selected = false,
};

} // namespace

TEST(Finding, IsFilledWithPathsAndTheSumOfTheirSizes)
{
    const auto [candidate, sizes] = makeFinding(fixed, {"/a", "/b"}, {40, 2});
    expectFixedFields(candidate, {"Title", "Detail.", CleanupCategory::caches, CleanupRisk::safe, false});
    EXPECT_THAT(candidate.paths, ElementsAre("/a", "/b"));
    EXPECT_EQ(candidate.bytes, 42);
    EXPECT_THAT(sizes, ElementsAre(40, 2));
}

TEST(Finding, TakesTheItemsOfOneGroup)
{
    const QList<CollectedItem> items{{.path = "/a", .group = 1, .allocatedSize = 1},
                                     {.path = "/b", .group = 0, .allocatedSize = 2},
                                     {.path = "/c", .group = 1, .allocatedSize = 4}};
    const auto [candidate, sizes] = makeFinding(fixed, items, 1);
    EXPECT_THAT(candidate.paths, ElementsAre("/a", "/c"));
    EXPECT_EQ(candidate.bytes, 5);
    EXPECT_THAT(sizes, ElementsAre(1, 4));
    EXPECT_THAT(makeFinding(fixed, items, 2).candidate.paths, IsEmpty());
}

TEST(FindingDeathTest, StopsTheProgramWhereTheSumDoesNotFit)
{
    const QList<qint64> sizes{std::numeric_limits<qint64>::max(), 1};
    EXPECT_DEATH(makeFinding(fixed, {"/a", "/b"}, sizes), "does not fit 64 bits");
}

} // namespace tidlo
