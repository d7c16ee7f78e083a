#include "platform/FileAttributes.h"

#include <algorithm>
#include <limits>
#include <ratio>

namespace tidlo {

constexpr auto most = std::numeric_limits<qint64>::max();

FileTime fileTime(qint64 seconds, qint64 nanoseconds)
{
    constexpr qint64 last = most / std::nano::den - 1;
    return FileTime(std::chrono::seconds(std::clamp(seconds, -last, last)) + std::chrono::nanoseconds(nanoseconds));
}

qint64 bytesOnDisk(quint64 blocks)
{
    constexpr qint64 blockSize = 512;
    return static_cast<qint64>(std::min<quint64>(blocks, most / blockSize)) * blockSize;
}

} // namespace tidlo
