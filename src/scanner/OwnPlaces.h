#pragma once

#include "platform/FileManager.h"

#include <QString>

namespace tidlo {

/// Why project folders are not to be looked for beneath \a folder, an existing folder's own path, as the end of a
/// sentence about it: "is the home folder, or holds it". Nothing if they may be.
std::optional<QString> ownPlaceObstacle(const FileManager &files, const FilePath &folder);

} // namespace tidlo
