#include "platform/ByteCountFormatter.h"

#include <gtest/gtest.h>

#include <limits>

namespace tidlo {

struct Row
{
    qint64 bytes;
    const char *text;
};

TEST(ByteCountText, IsWrittenInFileStyle)
{
    constexpr Row rows[]{
        {0, "Zero KB"},
        {1, "1 byte"},
        {2, "2 bytes"},
        {512, "512 bytes"},
        {999, "999 bytes"},
        {1'000, "1 KB"},
        {1'499, "1 KB"},
        {1'500, "2 KB"},
        {999'499, "999 KB"},
        {999'999, "1 MB"},
        {1'000'000, "1 MB"},
        {1'550'000, "1.6 MB"},
        {12'340'000, "12.3 MB"},
        {999'949'999, "999.9 MB"},
        {999'950'000, "1 GB"},
        {3'200'000'000, "3.2 GB"},
        {3'204'000'000, "3.2 GB"},
        {3'205'000'000, "3.21 GB"},
        {3'010'000'000, "3.01 GB"},
        {1'500'000'000'000, "1.5 TB"},
        {2'000'000'000'000'000, "2 PB"},
        {std::numeric_limits<qint64>::max(), "9.22 EB"},
        {-1, "-1 byte"},
        {-1'500, "-2 KB"},
        {std::numeric_limits<qint64>::min(), "-9.22 EB"},
    };
    for (const Row &row : rows)
        EXPECT_EQ(byteCountText(row.bytes).toStdString(), row.text) << row.bytes;
}

} // namespace tidlo
