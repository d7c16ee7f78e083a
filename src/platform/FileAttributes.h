#pragma once

#include "model/FilePath.h"

#include <QtGlobal>

#include <chrono>
#include <optional>

namespace tidlo {

/// A moment as file systems tell it.
using FileTime = std::chrono::sys_time<std::chrono::nanoseconds>;

enum class FileKind {
    unknown,      ///< The attributes could not be read.
    regular,      ///< A regular file.
    directory,    ///< A folder, a package included.
    symbolicLink, ///< A link, wherever it leads.
    other,        ///< A FIFO, a socket, a device.
};

/// What a file system tells of one entry itself, links not followed. What it does not tell is absent.
struct FileAttributes
{
    FileKind kind = FileKind::unknown;
    std::optional<qint64> size{};          ///< Logical length in bytes.
    std::optional<qint64> allocatedSize{}; ///< Bytes on the disk.
    std::optional<FileTime> modified{};    ///< Content modification.
};

// A damaged disk may report any figure, so both stop at the largest and smallest that there are.

/// The moment so long after the beginning of 1970, or the nearest one that FileTime can hold.
FileTime fileTime(qint64 seconds, qint64 nanoseconds);

/// The bytes of so many blocks of 512, the unit in which systems count, whatever the file system's own block size is.
qint64 bytesOnDisk(quint64 blocks);

/// One entry of a folder's listing.
struct DirectoryEntry
{
    FilePath path;
    FileAttributes attributes;
};

/// Figures of a volume in bytes; what the system does not tell is absent.
struct VolumeCapacity
{
    std::optional<qint64> total{};
    std::optional<qint64> available{}; ///< To the user, not to root.
};

} // namespace tidlo
