#include "ui/screens/Presentation.h"

#include "support/PrintQt.h"

#include <gmock/gmock.h>

namespace tidlo {

TEST(Presentation, WhatIsProtectedIsMarkedLikeNoFindingOfAScan)
{
    const CategoryPresentation &marked = presentationOf(CleanupCategory::protected_);
    EXPECT_EQ(marked.symbol.toString(), QStringLiteral("lock.shield"));
    EXPECT_EQ(marked.hue, TidloTheme::Hue::Red);
}

TEST(Presentation, ACountBelowOneByteIsADash)
{
    EXPECT_EQ(byteCountOrDash(0), QStringLiteral("—"));
    EXPECT_EQ(byteCountOrDash(-1), QStringLiteral("—"));
    EXPECT_EQ(byteCountOrDash(std::numeric_limits<qint64>::min()), QStringLiteral("—"));
}

TEST(Presentation, ACountFromOneByteOnIsWritten)
{
    EXPECT_EQ(byteCountOrDash(1), QStringLiteral("1 byte"));
    EXPECT_EQ(byteCountOrDash(4'200'000'000), QStringLiteral("4.2 GB"));
}

} // namespace tidlo
