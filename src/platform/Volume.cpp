#include "platform/Volume.h"

#include "platform/Descriptor.h"

#include <sys/statvfs.h>

namespace tidlo {

namespace {

/// A figure that overflows counts as unknown.
std::optional<qint64> product(quint64 count, quint64 unit)
{
    qint64 bytes = 0;
    return __builtin_mul_overflow(count, unit, &bytes) ? std::nullopt : std::optional(bytes);
}

} // namespace

std::optional<VolumeCapacity> fileSystemCapacityOf(const FilePath &path)
{
    struct statvfs figures;
    if (path.contains('\0') || uninterrupted([&] { return statvfs(path.constData(), &figures); }) != 0)
        return std::nullopt;
    return VolumeCapacity{.total = product(figures.f_blocks, figures.f_frsize),
                          .available = product(figures.f_bavail, figures.f_frsize)};
}

} // namespace tidlo
