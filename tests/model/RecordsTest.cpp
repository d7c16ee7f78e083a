#include "model/CleanupReport.h"
#include "model/ScanSnapshot.h"
#include "model/TidloPercent.h"
#include "support/PrintQt.h"

#include <gmock/gmock.h>

#include <array>

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

TEST(ScanTotals, DifferByEachOfTheirSixFields)
{
    EXPECT_EQ(ScanTotals(), ScanTotals());
    EXPECT_NE(ScanTotals(), ScanTotals{.diskUsedPercent = 0.5});
    EXPECT_NE(ScanTotals(), ScanTotals{.recoverablePercent = 0.5});
    EXPECT_NE(ScanTotals(), ScanTotals{.totalBytes = 1});
    EXPECT_NE(ScanTotals(), ScanTotals{.recoverableBytes = 1});
    EXPECT_NE(ScanTotals(), ScanTotals{.freeBytes = 1});
    EXPECT_NE(ScanTotals(), ScanTotals{.volumeBytes = 1});
}

TEST(CleanupReport, DiffersByEachOfItsFiveFields)
{
    constexpr std::array<void (*)(CleanupReport &), 5> changes{
        [](CleanupReport &report) { report.recoveredBytes = 1; },
        [](CleanupReport &report) { report.removedItems = 1; },
        [](CleanupReport &report) { report.protectedItems = 1; },
        [](CleanupReport &report) { report.finalDiskUsedPercent = 0.5; },
        [](CleanupReport &report) { report.aiSummary = QString(); },
    };
    EXPECT_EQ(CleanupReport(), CleanupReport());
    for (const auto change : changes) {
        CleanupReport changed;
        change(changed);
        EXPECT_NE(changed, CleanupReport());
    }
}

TEST(ScanSnapshot, DiffersByItsTotalsAndByItsCandidatesInOrder)
{
    const CleanupCandidate a;
    const CleanupCandidate b;
    const ScanTotals totals;
    EXPECT_EQ((ScanSnapshot{totals, {a, b}}), (ScanSnapshot{totals, {a, b}}));
    EXPECT_NE((ScanSnapshot{totals, {a, b}}), (ScanSnapshot{totals, {b, a}}));
    EXPECT_NE((ScanSnapshot{totals, {}}), (ScanSnapshot{{.freeBytes = 1}, {}}));
}

} // namespace tidlo
