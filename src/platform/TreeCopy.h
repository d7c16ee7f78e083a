#pragma once

#include "model/FilePath.h"

namespace tidlo {

/// Copies the item at \a source with everything beneath it, no link followed, to \a destination, where nothing may lie
/// yet. Permissions and modification times are kept, and links lead where they led. Gives 0, or the errno of the first
/// failure, which ends it and leaves what had been copied until then.
int copyTree(const FilePath &source, const FilePath &destination);

} // namespace tidlo
