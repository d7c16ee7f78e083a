#pragma once

#include "model/FilePath.h"

#include <QList>

namespace tidlo {

/// Whether one of \a paths lies on a disk that rotates, where reading in several places at once is slower than reading
/// in one. What cannot be told, as of network and virtual disks, counts as not rotating, and so does a missing path.
bool anyDiskRotates(const QList<FilePath> &paths);

} // namespace tidlo
