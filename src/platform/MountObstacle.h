#pragma once

#include "model/FilePath.h"

namespace tidlo {

/// What keeps the item at \a path, a link not followed, from being removed: EBUSY if another volume is mounted there or
/// beneath it, or the errno of what kept the system from telling. 0 if nothing does.
int mountObstacle(const FilePath &path);

} // namespace tidlo
