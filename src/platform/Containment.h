#pragma once

#include "model/FilePath.h"

/// Whether the item at \a path is the one at \a container or lies beneath it, whatever links, mounts and spellings lead
/// there: told by where things truly are, not by their names. A link at the end of a path is followed. False if either
/// does not exist.
bool isSameOrWithin(const FilePath &path, const FilePath &container);
