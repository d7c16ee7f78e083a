#pragma once

#include "platform/FileManager.h"

#include <QString>

namespace tidlo {

/// A folder chosen by the user, in which projects are looked for as well.
struct OwnPlace
{
    FilePath folder;  ///< Its own path, without links.
    QString obstacle; ///< Why it cannot be used, in the words of ownPlaceObstacle(); empty if it can.
};

/// The place at \a given, which may be relative and lead through links.
OwnPlace ownPlaceAt(const FileManager &files, const FilePath &given);

/// Why projects must not be looked for beneath \a folder, which must be an existing folder's own path, as the end of a
/// sentence about it: "is the home folder, or holds it". Nothing if they may be. A folder that cannot be read is also
/// added to \a notes, if there are any.
std::optional<QString> ownPlaceObstacle(const FileManager &files, const FilePath &folder, WalkNotes *notes = nullptr);

} // namespace tidlo
