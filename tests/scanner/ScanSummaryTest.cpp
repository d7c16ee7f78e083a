#include "scanner/ScanSummary.h"

#include "model/TidloPercent.h"
#include "support/PrintQt.h"

#include <gmock/gmock.h>

#include <limits>

namespace tidlo {

using testing::ElementsAre;
using testing::IsEmpty;

namespace {

CleanupCandidate candidate(const char *title, qint64 bytes, CleanupRisk risk = CleanupRisk::safe, bool selected = true)
{
    CleanupCandidate result;
    result.title = QString::fromUtf8(title);
    result.bytes = bytes;
    result.risk = risk;
    result.selected = selected;
    return result;
}

ScanResult resultOf(const QList<CleanupCandidate> &merged, const ScanTotals &disk = {})
{
    QList<Finding> findings;
    for (const CleanupCandidate &each : merged)
        findings.append({.candidate = each, .sizes = {each.bytes}});
    return summarized(disk, findings);
}

ScanSnapshot snapshotOf(const QList<CleanupCandidate> &merged, const ScanTotals &disk = {})
{
    return resultOf(merged, disk).snapshot;
}

QList<QString> titlesOf(const QList<CleanupCandidate> &merged)
{
    QList<QString> titles;
    for (const CleanupCandidate &each : snapshotOf(merged).candidates)
        titles.append(each.title);
    return titles;
}

constexpr qint64 largest = std::numeric_limits<qint64>::max();

} // namespace

TEST(ScanSummary, OrdersBySizeWhateverTheRiskAndCategory)
{
    EXPECT_THAT(titlesOf({candidate("small", 1, CleanupRisk::safe), candidate("large", 3, CleanupRisk::review),
                          candidate("medium", 2, CleanupRisk::rebuildable)}),
                ElementsAre(u"large", u"medium", u"small"));
}

TEST(ScanSummary, KeepsTheMergedOrderOfEqualSizes)
{
    EXPECT_THAT(titlesOf({candidate("folders", 5), candidate("WhatsApp", 5), candidate("caches", 5),
                          candidate("downloads", 7), candidate("files", 5), candidate("copies", 5)}),
                ElementsAre(u"downloads", u"folders", u"WhatsApp", u"caches", u"files", u"copies"));
}

TEST(ScanSummary, KeepsTheMergedOrderOfAnyNumberOfEqualSizes)
{
    QList<CleanupCandidate> merged; // So many that an unstable sort would change their order.
    for (int number = 0; number < 100; ++number)
        merged.append(candidate("equal", 5));
    merged.append(candidate("larger", 7));
    const QList<CleanupCandidate> ordered = snapshotOf(merged).candidates;
    EXPECT_EQ(ordered.first(), merged.last());
    EXPECT_EQ(ordered.sliced(1), merged.first(100));
}

TEST(ScanSummary, DropsFindingsWithoutBytes)
{
    EXPECT_THAT(titlesOf({candidate("empty", 0), candidate("one", 1), candidate("negative", -1)}), ElementsAre(u"one"));
}

TEST(ScanSummary, KeepsNeverTouchEvenWhenEmptyAndLastInItsOrder)
{
    constexpr CleanupRisk never = CleanupRisk::never;
    EXPECT_THAT(titlesOf({candidate("first", 0, never), candidate("a", 1), candidate("second", 100, never),
                          candidate("b", 2), candidate("third", 50, never)}),
                ElementsAre(u"b", u"a", u"first", u"second", u"third"));
}

TEST(ScanSummary, TellsTheSizesOfTheFindingsItKeeps)
{
    const CleanupCandidate small = candidate("small", 1);
    const CleanupCandidate large = candidate("large", 3);
    const PathSizes sizes = resultOf({small, candidate("empty", 0), large}).sizes;
    EXPECT_EQ(sizes, (PathSizes{{small.id, {1}}, {large.id, {3}}}));
}

TEST(ScanSummary, DeduplicatesNothing)
{
    CleanupCandidate outer = candidate("outer", 2);
    CleanupCandidate inner = candidate("inner", 2);
    outer.paths = {"/home/u/a", "/home/u/a"};
    inner.paths = {"/home/u/a", "/home/u/a/b"};
    const ScanSnapshot snapshot = snapshotOf({outer, inner, outer});
    EXPECT_THAT(snapshot.candidates, ElementsAre(outer, inner, outer));
    EXPECT_EQ(snapshot.totals.totalBytes, 6);
}

TEST(ScanSummary, SumsAllAndThoseThatAreSelected)
{
    const ScanTotals disk{.diskUsedPercent = 0.6, .freeBytes = 400, .volumeBytes = 1'000};
    const ScanSnapshot snapshot =
        snapshotOf({candidate("media", 100, CleanupRisk::review, false), candidate("caches", 150),
                    candidate("never", 50, CleanupRisk::never), candidate("empty", 0)},
                   disk);
    EXPECT_EQ(snapshot.totals, (ScanTotals{.diskUsedPercent = 0.6,
                                           .recoverablePercent = 0.2,
                                           .totalBytes = 300,
                                           .recoverableBytes = 200,
                                           .freeBytes = 400,
                                           .volumeBytes = 1'000}));
    EXPECT_LE(snapshot.totals.recoverableBytes, snapshot.totals.totalBytes);
}

TEST(ScanSummary, DoesNotDivideByACapacityOfZero)
{
    const ScanTotals totals = snapshotOf({candidate("caches", 150)}).totals;
    EXPECT_EQ(totals.recoverableBytes, 150);
    EXPECT_EQ(tidloPercent(totals.recoverablePercent), u"0%");
    EXPECT_EQ(snapshotOf({candidate("caches", 1)}, {.volumeBytes = 1}).totals.recoverablePercent, 1);
}

TEST(ScanSummary, OfNothingHoldsTheDiskFiguresAlone)
{
    const ScanTotals disk{.diskUsedPercent = 0.6, .freeBytes = 400, .volumeBytes = 1'000};
    const ScanSnapshot snapshot = snapshotOf({candidate("empty", 0)}, disk);
    EXPECT_THAT(snapshot.candidates, IsEmpty());
    EXPECT_EQ(snapshot.totals, disk);
}

TEST(ScanSummaryDeathTest, StopsTheProgramWhereASumDoesNotFit)
{
    EXPECT_EQ(snapshotOf({candidate("a", largest)}).totals.totalBytes, largest);
    EXPECT_DEATH(snapshotOf({candidate("a", largest), candidate("b", 1)}), "does not fit 64 bits");
}

} // namespace tidlo
