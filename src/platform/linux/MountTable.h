#pragma once

#include "model/FilePath.h"
#include "platform/OrError.h"
#include "platform/linux/SystemCalls.h"

#include <QList>

#include <optional>

namespace tidlo {

/// A place inside a file system, the same for every mount through which it is reached.
struct FileSystemPlace
{
    FilePath device; ///< The kernel's number of the file system; empty for a mount that the table does not list.
    FilePath path;   ///< From the root of the file system on; "/" for that root itself.

    /// Whether \a other is this place or lies beneath it.
    bool contains(const FileSystemPlace &other) const;

    bool operator==(const FileSystemPlace &) const = default;
};

/// One mount, as this process sees it.
struct Mount
{
    quint64 id = 0; ///< The STATX_MNT_ID of statx.
    quint64 parent = 0;
    FilePath device{};    ///< "major:minor" of the file system. On Btrfs this differs from stat.
    FilePath root = "/";  ///< The folder of the file system that is mounted; not "/" for a bind mount.
    FilePath point = "/"; ///< Where it is mounted.
    FilePath type{};      ///< The kernel's name for the type of the file system.
    FilePath source{};    ///< What was mounted, often a block device.
};

/// The mounts that this process sees, at one moment.
class MountTable final
{
public:
    /// Parses the text of /proc/self/mountinfo. Lines that are not understood are skipped.
    explicit MountTable(const QByteArray &mountinfo);

    const QList<Mount> &all() const { return mounts; }

    /// The mount with this number. One that is not listed (it begins outside this process's root folder, as after
    /// chroot) is treated as a separate file system mounted at "/".
    Mount mount(quint64 id) const;

    /// The sources of all mounts of the file system with the number \a device ("major:minor").
    QList<FilePath> sourcesOf(const FilePath &device) const;

    /// The place of \a path, which contains no links and is on the mount \a id; nothing if there is no such mount.
    std::optional<FileSystemPlace> place(quint64 id, const FilePath &path) const;

    /// Whether something is mounted at or beneath \a folder, through whichever mount of its file system.
    bool hasMountWithin(const FileSystemPlace &folder) const;

private:
    QList<Mount> mounts;
};

/// The mounts at this moment.
OrError<MountTable> readMounts(const SystemCalls &calls);

} // namespace tidlo
