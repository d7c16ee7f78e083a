#include "scanner/RuleTest.h"
#include "scanner/ScanSummary.h"

#include <sys/statvfs.h>

namespace tidlo {

using testing::Return;

namespace {

class DiskTotals : public RuleTest
{
protected:
    ScanTotals totalsOf(std::optional<VolumeCapacity> capacity)
    {
        EXPECT_CALL(files, volumeCapacity(home.path())).WillOnce(Return(capacity));
        return diskTotals(files, home.path());
    }
};

} // namespace

TEST_F(DiskTotals, TellWhatShareOfTheVolumeIsUsed)
{
    EXPECT_CALL(files, fileSystemAttributes).Times(0);
    EXPECT_EQ(totalsOf(VolumeCapacity{.total = 1'000, .available = 250}),
              (ScanTotals{.diskUsedPercent = 0.75, .freeBytes = 250, .volumeBytes = 1'000}));
}

TEST_F(DiskTotals, TakeAMissingFigureForZero)
{
    EXPECT_EQ(totalsOf(VolumeCapacity{.total = 1'000, .available = {}}),
              (ScanTotals{.diskUsedPercent = 1, .freeBytes = 0, .volumeBytes = 1'000}));
    EXPECT_EQ(totalsOf(VolumeCapacity{.total = {}, .available = 250}), ScanTotals{.freeBytes = 250});
    EXPECT_EQ(totalsOf(VolumeCapacity()), ScanTotals());
}

TEST_F(DiskTotals, DoNotDivideByACapacityOfZero)
{
    EXPECT_EQ(totalsOf(VolumeCapacity{.total = 0, .available = 0}), ScanTotals());
    EXPECT_EQ(totalsOf(VolumeCapacity{.total = -1, .available = 0}).diskUsedPercent, 0);
    EXPECT_EQ(totalsOf(VolumeCapacity{.total = 1, .available = 0}).diskUsedPercent, 1);
}

TEST_F(DiskTotals, TellNothingUsedWhereMoreIsAvailableThanThereIs)
{
    EXPECT_EQ(totalsOf(VolumeCapacity{.total = 1'000, .available = 2'000}),
              (ScanTotals{.diskUsedPercent = 0, .freeBytes = 2'000, .volumeBytes = 1'000}));
}

TEST_F(DiskTotals, FallBackToTheFileSystemWhereTheVolumeDoesNotAnswer)
{
    EXPECT_CALL(files, fileSystemAttributes(home.path()))
        .WillOnce(Return(VolumeCapacity{.total = 400, .available = 100}))
        .WillOnce(Return(VolumeCapacity{.total = 400, .available = {}}))
        .WillOnce(Return(VolumeCapacity{.total = {}, .available = 100}));
    EXPECT_EQ(totalsOf(std::nullopt), (ScanTotals{.diskUsedPercent = 0.75, .freeBytes = 100, .volumeBytes = 400}));
    EXPECT_EQ(totalsOf(std::nullopt), (ScanTotals{.diskUsedPercent = 1, .freeBytes = 0, .volumeBytes = 400}));
    EXPECT_EQ(totalsOf(std::nullopt), ScanTotals{.freeBytes = 100});
}

TEST_F(DiskTotals, AreZeroWhereNothingAnswers)
{
    EXPECT_CALL(files, fileSystemAttributes(home.path())).WillOnce(Return(std::nullopt));
    EXPECT_EQ(totalsOf(std::nullopt), ScanTotals());
}

TEST_F(DiskTotals, AgreeWithTheSystemOnARealVolume)
{
    struct statvfs figures;
    ASSERT_EQ(statvfs(home.path().constData(), &figures), 0);
    const ScanTotals totals = diskTotals(files, home.path());
    EXPECT_EQ(totals.volumeBytes, static_cast<qint64>(figures.f_blocks * figures.f_frsize));
    EXPECT_GE(totals.diskUsedPercent, 0);
    EXPECT_LE(totals.diskUsedPercent, 1);
    EXPECT_LE(totals.freeBytes, totals.volumeBytes);
}

TEST_F(DiskTotals, AreZeroForAHomeThatDoesNotExist)
{
    EXPECT_EQ(diskTotals(files, home / "nowhere"), ScanTotals());
}

} // namespace tidlo
