#pragma once

#include "platform/linux/TrashItem.h"
#include "platform/linux/UserFolders.h"

namespace tidlo {

/// What to tell instead of moving \a item: that it is the home folder or holds it, lies in a Trash or holds one, is a
/// mount point or holds one. Nothing when it may be moved.
std::optional<TrashOutcome> refusal(const SystemCalls &calls, const TrashItem &item, const MountTable &mounts,
                                    const UserFolders &folders);

} // namespace tidlo
