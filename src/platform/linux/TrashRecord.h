#pragma once

#include "model/FilePath.h"

#include <ctime>

namespace tidlo {

/// The text of a record (a ".trashinfo" file): where the item was, and when it was moved, in local time. \a path is
/// absolute, or relative to the top folder of the mount.
QByteArray trashRecord(const FilePath &path, std::time_t moved);

/// The name that the record of \a trashName has.
FilePath trashRecordName(const FilePath &trashName);

/// The name in the Trash of an item called \a name, such that its record's name is not longer than \a limit bytes: the
/// name itself, cut before its extension where it must be. A \a number above 1 is added, for a name that is taken.
FilePath trashName(const FilePath &name, quint32 number, qsizetype limit);

} // namespace tidlo
