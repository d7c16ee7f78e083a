#pragma once

#include "model/FilePath.h"

#include <QtGlobal>

#include <chrono>
#include <optional>

namespace tidlo {

/// A time stamp of a file system.
using FileTime = std::chrono::sys_time<std::chrono::nanoseconds>;

enum class FileKind {
    unknown,      ///< The attributes could not be read.
    regular,      ///< A regular file.
    directory,    ///< A folder, a package included.
    symbolicLink, ///< A link, wherever it leads.
    other,        ///< A FIFO, a socket, a device.
};

/// The attributes of one entry itself, without following links. An attribute that the file system does not report is
/// absent.
struct FileAttributes
{
    FileKind kind = FileKind::unknown;
    std::optional<qint64> size{};          ///< Logical length in bytes.
    std::optional<qint64> allocatedSize{}; ///< Bytes on the disk.
    std::optional<FileTime> modified{};    ///< Content modification.
};

// A damaged disk may report any number, so both are clamped to the largest and smallest representable values.

/// The time this long after the beginning of 1970, or the nearest one that FileTime can hold.
FileTime fileTime(qint64 seconds, qint64 nanoseconds);

/// The size of \a blocks blocks of 512 bytes, the unit in which systems count, whatever the file system's own block
/// size is.
qint64 bytesOnDisk(quint64 blocks);

/// One entry of a folder's listing.
struct DirectoryEntry
{
    FilePath path;
    FileAttributes attributes;
};

/// Figures of a volume in bytes; absent if the system does not report them.
struct VolumeCapacity
{
    std::optional<qint64> total{};
    std::optional<qint64> available{}; ///< For the user, not for root.
};

} // namespace tidlo
