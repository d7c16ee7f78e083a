#include "platform/FileAttributes.h"

#include <algorithm>
#include <limits>
#include <ratio>

namespace tidlo {

namespace {

constexpr auto largest = std::numeric_limits<qint64>::max();

} // namespace

FileTime fileTime(qint64 seconds, qint64 nanoseconds)
{
    constexpr qint64 last = largest / std::nano::den - 1;
    return FileTime(std::chrono::seconds(std::clamp(seconds, -last, last)) + std::chrono::nanoseconds(nanoseconds));
}

qint64 bytesOnDisk(quint64 blocks)
{
    constexpr qint64 blockSize = 512;
    return static_cast<qint64>(std::min<quint64>(blocks, largest / blockSize)) * blockSize;
}

} // namespace tidlo
