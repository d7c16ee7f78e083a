#pragma once

#include "platform/Trash.h"
#include "platform/linux/OpenFolder.h"

namespace tidlo {

/// Opens the folder at \a path, which is relative to \a top and each part of which is a name, as \a opened, and makes
/// what is missing of it, for the user alone. On the way no link is followed, and no other mount entered. Nothing when
/// that went well, or what to tell.
std::optional<TrashOutcome> openWayBack(const SystemCalls &calls, const OpenFolder &top, const FilePath &path,
                                        Descriptor &opened);

} // namespace tidlo
