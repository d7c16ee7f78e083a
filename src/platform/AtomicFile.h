#pragma once

#include "model/FilePath.h"

#include <sys/types.h>

namespace tidlo {

/// Writes \a content to the file at \a path. Whatever happens meanwhile, a reader finds the old file or the new one,
/// whole. What was there is replaced, a link itself and not its target; missing folders are made. Gives 0, or the errno
/// of what failed; then the file is as it was, and folders that were made stay.
int writeAtomically(const FilePath &path, const QByteArray &content, mode_t permissions = 0600);

} // namespace tidlo
