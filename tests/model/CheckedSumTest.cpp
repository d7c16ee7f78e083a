#include "model/CheckedSum.h"

#include <gtest/gtest.h>

#include <limits>

namespace tidlo {

constexpr qint64 largest = std::numeric_limits<qint64>::max();
constexpr qint64 smallest = std::numeric_limits<qint64>::min();

TEST(CheckedSum, ReachesTheLimitsOf64Bits)
{
    EXPECT_EQ(checkedSum(40, 2), 42);
    EXPECT_EQ(checkedSum(largest - 1, 1), largest);
    EXPECT_EQ(checkedSum(smallest + 1, -1), smallest);
}

TEST(CheckedSumDeathTest, StopsTheProgramBeyondThem)
{
    EXPECT_DEATH(checkedSum(largest, 1), "does not fit 64 bits");
    EXPECT_DEATH(checkedSum(smallest, -1), "does not fit 64 bits");
}

} // namespace tidlo
