#pragma once

#include "platform/Trash.h"
#include "platform/linux/OpenFolder.h"

namespace tidlo {

/// Opens the folder at \a path, which is relative to \a top and consists of plain names, as \a opened. Missing folders
/// are made, for the user alone. No link is followed, and no other mount entered. Returns nothing on success, or the
/// outcome to report.
std::optional<TrashOutcome> openWayBack(const SystemCalls &calls, const OpenFolder &top, const FilePath &path,
                                        Descriptor &opened);

} // namespace tidlo
