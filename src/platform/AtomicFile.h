#pragma once

#include "model/FilePath.h"

#include <sys/types.h>

namespace tidlo {

/// Writes \a content to the file at \a path, which a reader finds whole, the old or the new, whatever happens
/// meanwhile. What lay there, a link itself, is replaced; folders in front of it are made. Gives 0, or the errno of
/// what failed; then the file is as it was, and folders that were made stay.
int writeAtomically(const FilePath &path, const QByteArray &content, mode_t permissions = 0600);

} // namespace tidlo
