#pragma once

#include "model/FilePath.h"

#include <sys/types.h>

namespace tidlo {

/// Writes \a content to the file at \a path. Whatever happens meanwhile, a reader finds the complete old or new file.
/// An existing file is replaced; a link is replaced itself, not its target. Missing folders are made. Returns 0, or the
/// errno of what failed; then the file is unchanged, but new folders stay.
int writeAtomically(const FilePath &path, const QByteArray &content, mode_t permissions = 0600);

} // namespace tidlo
