#include "ui/screens/Presentation.h"

#include "support/PrintQt.h"
#include "ui/design/TidloTheme.h"

#include <gmock/gmock.h>

namespace tidlo {

TEST(Presentation, TheBadgeOfWhatIsNeverToBeTouchedHasARedOfItsOwn)
{
    EXPECT_EQ(presentationOf(CleanupRisk::never).hue, TidloTheme::Hue::Red);
    EXPECT_EQ(presentationOf(CleanupRisk::never).badgeHue, TidloTheme::Hue::AccentRed);
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
