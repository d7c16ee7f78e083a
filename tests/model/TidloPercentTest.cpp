#include "model/TidloPercent.h"

#include <gtest/gtest.h>

#include <limits>

namespace tidlo {

TEST(TidloPercent, RoundsToWholePercentsAndHalvesAwayFromZero)
{
    EXPECT_EQ(tidloPercent(0.424), QStringLiteral("42%"));
    EXPECT_EQ(tidloPercent(0.425), QStringLiteral("43%"));
    EXPECT_EQ(tidloPercent(1.0), QStringLiteral("100%"));
    EXPECT_EQ(tidloPercent(0), QStringLiteral("0%"));
    EXPECT_EQ(tidloPercent(-0.425), QStringLiteral("-43%"));
}

TEST(TidloPercent, WritesTheIntegerInPlainDecimal)
{
    EXPECT_EQ(tidloPercent(12345.67), QStringLiteral("1234567%"));
}

TEST(TidloPercentDeathTest, AFractionThatIsNoNumberStopsTheProgram)
{
    EXPECT_DEATH(tidloPercent(std::numeric_limits<double>::quiet_NaN()), "Not a fraction");
    EXPECT_DEATH(tidloPercent(std::numeric_limits<double>::infinity()), "Not a fraction");
}

TEST(TidloPercentDeathTest, APercentageBeyond64BitsStopsTheProgram)
{
    EXPECT_DEATH(tidloPercent(1e17), "Not a fraction");
    EXPECT_DEATH(tidloPercent(-1e18), "Not a fraction");
    EXPECT_DEATH(tidloPercent(92'233'720'368'547'758.08), "Not a fraction");
    EXPECT_EQ(tidloPercent(-92'233'720'368'547'758.08), QStringLiteral("-9223372036854775808%"));
}

} // namespace tidlo
