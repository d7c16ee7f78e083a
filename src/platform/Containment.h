#pragma once

#include "model/FilePath.h"

namespace tidlo {

/// Whether the item at \a path is the one at \a container or lies beneath it, whatever links and spellings lead there:
/// told by where things are, not by their names. A link at the end of a path is followed. A folder of the container
/// that is mounted a second time lies where it is reached. False if there is no container; true, so that nothing is
/// done that it would forbid, wherever else the system does not tell.
bool isSameOrWithin(const FilePath &path, const FilePath &container);

} // namespace tidlo
