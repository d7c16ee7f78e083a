#include "platform/FileAttributes.h"

#include <gtest/gtest.h>

#include <limits>

namespace tidlo {

using namespace std::chrono_literals;

namespace {

constexpr auto most = std::numeric_limits<qint64>::max();

} // namespace

TEST(FileAttributes, AMomentIsCountedFromTheBeginningOf1970)
{
    EXPECT_EQ(fileTime(1, 5), FileTime(1'000'000'005ns));
    EXPECT_EQ(fileTime(-1, 5), FileTime(-999'999'995ns));
}

TEST(FileAttributes, AMomentBeyondAllCountingIsTheLastOne)
{
    EXPECT_GT(fileTime(most, 999'999'999), fileTime(9'000'000'000, 0));
    EXPECT_LT(fileTime(-most - 1, 0), fileTime(-9'000'000'000, 0));
}

TEST(FileAttributes, BlocksAreOf512BytesAndTheirBytesHaveAnEnd)
{
    EXPECT_EQ(bytesOnDisk(3), 1536);
    EXPECT_EQ(bytesOnDisk(std::numeric_limits<quint64>::max()), most / 512 * 512);
}

} // namespace tidlo
