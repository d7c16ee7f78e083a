#include "scanner/Forecast.h"

#include "platform/ByteCountFormatter.h"
#include "support/PrintQt.h"

#include <gtest/gtest.h>

namespace tidlo {

namespace {

/// A result with findings whose paths have 100 bytes each, and no links by default.
class ForecastTest : public testing::Test
{
protected:
    void find(const QList<FilePath> &paths)
    {
        CleanupCandidate candidate;
        candidate.paths = paths;
        result.sizes.insert(candidate.id, QList<qint64>(paths.size(), 100));
        result.snapshot.candidates.append(candidate);
    }

    /// Adds a name in \a item, of 10 bytes, for \a inode, which has \a links names in total.
    void link(const FilePath &item, quint64 inode, quint32 links, quint64 device = 1)
    {
        result.linked[item].append({.device = device, .inode = inode, .bytes = 10, .links = links});
    }

    Forecast ofAll() const { return checked(forecastOf(result, result.snapshot.candidates)); }

    Forecast checked(const Forecast &forecast) const
    {
        EXPECT_EQ(forecast.recoverable(),
                  forecast.freed + forecast.heldByLinks + forecast.listedTwice + forecast.refused);
        return forecast;
    }

    ScanResult result{.snapshot = {}, .sizes = {}};
};

} // namespace

TEST_F(ForecastTest, WithoutLinksAllIsFreedAndNothingIsSaid)
{
    find({"/a", "/b"});
    EXPECT_EQ(ofAll(), Forecast{.freed = 200});
    EXPECT_EQ(forecastText(ofAll()), QString());
}

TEST_F(ForecastTest, AFileWithANameElsewhereIsHeldWithAllItsNames)
{
    find({"/a", "/b"});
    link("/a", 7, 3);
    link("/b", 7, 3);
    EXPECT_EQ(ofAll(), (Forecast{.freed = 180, .heldByLinks = 20}));
    EXPECT_EQ(forecastText(ofAll()),
              QStringLiteral("frees about %1: %2 is linked from elsewhere").arg(byteCountText(180), byteCountText(20)));
}

TEST_F(ForecastTest, AFileWhoseNamesAreAllAmongThemIsFreedOnce)
{
    find({"/a", "/b"});
    find({"/c"});
    link("/a", 7, 3);
    link("/a", 7, 3);
    link("/c", 7, 3);
    EXPECT_EQ(ofAll(), (Forecast{.freed = 280, .heldByLinks = 20}));
}

TEST_F(ForecastTest, OfNamesThatWereCountedDifferentlyTheMostCount)
{
    find({"/a", "/b"});
    link("/a", 7, 3);
    link("/b", 7, 2);
    EXPECT_EQ(ofAll(), (Forecast{.freed = 180, .heldByLinks = 20}));
}

TEST_F(ForecastTest, ADeviceNumbersItsOwnInodes)
{
    find({"/a", "/b"});
    link("/a", 7, 2, 1);
    link("/b", 7, 2, 2);
    EXPECT_EQ(ofAll().heldByLinks, 20);
}

TEST_F(ForecastTest, IsForWhatIsChosen)
{
    find({"/a", "/b"});
    find({"/c"});
    link("/a", 7, 2);
    link("/b", 7, 2);
    CleanupCandidate chosen = result.snapshot.candidates.first();
    chosen.paths = {"/b"};
    EXPECT_EQ(forecastOf(result, {chosen}), (Forecast{.freed = 90, .heldByLinks = 10}));
    EXPECT_EQ(forecastOf(result, {CleanupCandidate()}), Forecast());
}

TEST_F(ForecastTest, WhatLiesInAnotherPathOrIsItOverAgainIsListedTwice)
{
    find({"/a/inner", "/a", "/b", "/ab"});
    find({"/b", "/link"});
    result.places.insert("/link", "/a/inner/deep");
    link("/a", 7, 1 + 1);
    link("/a/inner", 7, 1 + 1);
    EXPECT_EQ(ofAll(), (Forecast{.freed = 290, .heldByLinks = 10, .listedTwice = 300}));
}

TEST_F(ForecastTest, WhatTheTrashLeavesIsRefusedAndHoldsNothingElse)
{
    find({"/a", "/a/inner"});
    result.refused = {"/a"};
    EXPECT_EQ(ofAll(), (Forecast{.freed = 100, .refused = 100}));
}

TEST_F(ForecastTest, NamesEveryPartAndSaysAtMostWhereBlocksAreShared)
{
    find({"/a", "/b", "/b", "/c"});
    result.refused = {"/c"};
    result.sharesBlocks = true;
    link("/a", 7, 2);
    EXPECT_EQ(forecastText(ofAll()),
              QStringLiteral("frees at most %1: %2 is linked from elsewhere, %3 is listed twice, %3 cannot be moved")
                  .arg(byteCountText(190), byteCountText(10), byteCountText(100)));
}

TEST_F(ForecastTest, LinksThatChangedMeanwhileNeverHoldMoreThanThereIs)
{
    find({"/a"});
    for (int name = 0; name < 11; ++name)
        link("/a", 7, 12);
    EXPECT_EQ(ofAll(), (Forecast{.heldByLinks = 100}));
}

} // namespace tidlo
