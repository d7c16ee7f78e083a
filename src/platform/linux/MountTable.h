#pragma once

#include "model/FilePath.h"
#include "platform/OrError.h"
#include "platform/linux/SystemCalls.h"

#include <QList>

#include <optional>

namespace tidlo {

/// Where something lies inside its file system, the same whichever mount it is reached through.
struct FileSystemPlace
{
    FilePath device; ///< The kernel's number of the file system; empty for a mount that the table does not list.
    FilePath path;   ///< From the file system's own root on, "/" for that root itself.

    /// Whether \a other is this very place or lies beneath it.
    bool contains(const FileSystemPlace &other) const;

    bool operator==(const FileSystemPlace &) const = default;
};

/// One mount, as this process sees it.
struct Mount
{
    quint64 id = 0; ///< As statx tells it with STATX_MNT_ID.
    quint64 parent = 0;
    FilePath device{};    ///< "major:minor" of the file system. On Btrfs not what stat tells.
    FilePath root = "/";  ///< The folder of the file system that is mounted: more than "/" for a bind mount.
    FilePath point = "/"; ///< Where it is mounted.
    FilePath type{};      ///< Of the file system, as the kernel calls it.
    FilePath source{};    ///< What the file system was mounted from, often a block device.
};

/// The mounts that this process sees, at one moment.
class MountTable final
{
public:
    /// From the text of /proc/self/mountinfo. Lines that are not understood are passed over.
    explicit MountTable(const QByteArray &mountinfo);

    const QList<Mount> &all() const { return mounts; }

    /// The mount with this number. One that is not listed (it begins outside this process's root folder, as in a
    /// changed root) is taken for a file system of its own that is mounted at "/".
    Mount mount(quint64 id) const;

    /// What the file system with the number \a device ("major:minor") was mounted from, wherever.
    QList<FilePath> sourcesOf(const FilePath &device) const;

    /// Where \a path lies, that has no links in it and is on the mount \a id; nothing if the mount is not there.
    std::optional<FileSystemPlace> place(quint64 id, const FilePath &path) const;

    /// Whether something is mounted at or beneath \a folder, through whichever mount of its file system.
    bool hasMountWithin(const FileSystemPlace &folder) const;

private:
    QList<Mount> mounts;
};

/// The mounts at this moment.
OrError<MountTable> readMounts(const SystemCalls &calls);

} // namespace tidlo
