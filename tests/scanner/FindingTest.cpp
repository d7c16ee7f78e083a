#include "scanner/Finding.h"

#include "scanner/RuleTest.h"

#include <limits>

namespace tidlo {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr FindingKind kind = FindingKind::chatMedia;

} // namespace

TEST(Finding, IsFilledWithPathsAndTheSumOfTheirSizes)
{
    const auto [candidate, sizes, leftOut] = makeFinding(kind, {"/a", "/b"}, {40, 2});
    const FindingKindRow &row = rowOf(kind);
    EXPECT_EQ(candidate.title, row.title);
    EXPECT_EQ(candidate.detail, row.detail);
    EXPECT_EQ(candidate.category, CleanupCategory::whatsApp);
    EXPECT_EQ(candidate.risk, CleanupRisk::review);
    EXPECT_FALSE(candidate.selected);
    EXPECT_THAT(candidate.paths, ElementsAre("/a", "/b"));
    EXPECT_EQ(candidate.bytes, 42);
    EXPECT_THAT(sizes, ElementsAre(40, 2));
    EXPECT_THAT(leftOut, IsEmpty());
}

TEST(Finding, TakesTheItemsOfOneGroup)
{
    const QList<CollectedItem> items{{.path = "/a", .group = qToUnderlying(kind), .allocatedSize = 1},
                                     {.path = "/b", .group = 0, .allocatedSize = 2},
                                     {.path = "/c", .group = qToUnderlying(kind), .allocatedSize = 4},
                                     {.path = "/d", .group = qToUnderlying(kind), .isLeftOut = true}};
    const auto [candidate, sizes, leftOut] = makeFinding(kind, items);
    EXPECT_THAT(candidate.paths, ElementsAre("/a", "/c"));
    EXPECT_EQ(candidate.bytes, 5);
    EXPECT_THAT(sizes, ElementsAre(1, 4));
    EXPECT_THAT(leftOut, ElementsAre("/d"));
    EXPECT_THAT(makeFinding(FindingKind::olderCopies, items).candidate.paths, IsEmpty());
}

TEST(FindingDeathTest, StopsTheProgramWhereTheSumDoesNotFit)
{
    const QList<qint64> sizes{std::numeric_limits<qint64>::max(), 1};
    EXPECT_DEATH(makeFinding(kind, {"/a", "/b"}, sizes), "does not fit 64 bits");
}

} // namespace tidlo
