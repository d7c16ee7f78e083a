#pragma once

#include "model/FilePath.h"
#include "platform/TrashOutcome.h"

namespace tidlo {

/// Moves the item at \a path itself, a link not followed, to the Trash of the user whose home folder is \a home.
/// Nothing is ever copied, overwritten or deleted: what the system cannot rename into a Trash stays where it is. May be
/// called from any thread, and by several programs at once.
TrashOutcome moveToTrash(const FilePath &path, const FilePath &home);

} // namespace tidlo
