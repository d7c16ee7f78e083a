#include "model/ScanSnapshot.h"
#include "model/TidloPercent.h"
#include "support/PrintQt.h"

#include <gmock/gmock.h>

namespace tidlo {

TEST(ScanTotals, StartAtZeroWhichIsShownAsZeroPercent)
{
    const ScanTotals totals;
    EXPECT_EQ(totals.totalBytes, 0);
    EXPECT_EQ(totals.recoverableBytes, 0);
    EXPECT_EQ(totals.freeBytes, 0);
    EXPECT_EQ(totals.volumeBytes, 0);
    EXPECT_EQ(tidloPercent(totals.diskUsedPercent), u"0%");
    EXPECT_EQ(tidloPercent(totals.recoverablePercent), u"0%");
}

TEST(ScanTotals, ThatDifferInTheFreeBytesAloneAreUnequal)
{
    EXPECT_NE(ScanTotals(), ScanTotals{.freeBytes = 1});
}

} // namespace tidlo
