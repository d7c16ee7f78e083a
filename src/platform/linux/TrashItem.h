#pragma once

#include "platform/Paths.h"
#include "platform/Trash.h"
#include "platform/linux/MountTable.h"
#include "platform/linux/OpenFolder.h"

namespace tidlo {

/// An item that is to be moved, held open together with its folder: both stay the same whatever is done to their paths.
class TrashItem final
{
public:
    /// Opens the item at \a path itself, without following a link. Returns nothing on success, or the outcome to
    /// report.
    std::optional<TrashOutcome> open(const SystemCalls &calls, const FilePath &path);

    int folder() const { return parent.descriptor.get(); }
    const FilePath &name() const { return ownName; }
    int held() const { return descriptor.get(); }
    FilePath path() const { return joined(parent.path, ownName); } ///< Without links, except the item itself.
    quint64 mount() const { return parent.mount; }                 ///< The mount that its folder is on.
    bool isFolder() const { return kind == S_IFDIR; }
    bool isLink() const { return kind == S_IFLNK; }
    bool isMountPoint() const { return ownMount != parent.mount; }

private:
    std::optional<TrashOutcome> learn(const SystemCalls &calls);

    OpenFolder parent;
    FilePath ownName;
    Descriptor descriptor;
    quint64 ownMount = 0;
    mode_t kind = 0;
};

} // namespace tidlo
