#pragma once

#include "platform/FileManager.h"

#include <QString>

namespace tidlo {

/// A folder that somebody named, to look for project folders in it as well.
struct OwnPlace
{
    FilePath folder;  ///< Its own path, whatever path led to it.
    QString obstacle; ///< Why it cannot be one, as ownPlaceObstacle() tells it; empty if it can.
};

/// What is at \a given, which may be relative and lead through links.
OwnPlace ownPlaceAt(const FileManager &files, const FilePath &given);

/// Why project folders are not to be looked for beneath \a folder, an existing folder's own path, as the end of a
/// sentence about it: "is the home folder, or holds it". Nothing if they may be.
std::optional<QString> ownPlaceObstacle(const FileManager &files, const FilePath &folder);

} // namespace tidlo
