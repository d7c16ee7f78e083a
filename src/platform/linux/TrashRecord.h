#pragma once

#include "platform/FileAttributes.h"
#include "platform/OrError.h"
#include "platform/Trash.h"
#include "platform/linux/SystemCalls.h"

#include <ctime>

namespace tidlo {

/// The text of a record (a ".trashinfo" file): where the item was, and when it was moved, in local time. \a path is
/// absolute, or relative to the top folder of the mount.
QByteArray trashRecord(const FilePath &path, std::time_t moved);

/// The suffix of records, after the names of their items.
constexpr QByteArrayView trashRecordSuffix(".trashinfo");

/// The name of the record for \a trashName.
FilePath trashRecordName(const FilePath &trashName);

/// In bytes; longer records are not read.
constexpr qsizetype longestTrashRecord = 1 << 16;

/// The content of a record, whichever program wrote it.
struct TrashRecord
{
    FilePath path;         ///< Where the item was; each component is a plain name. Absolute, or relative to the top
                           ///< folder.
    QByteArray date;       ///< When it was moved, unchanged; empty if missing.
    FileTime written{};    ///< When the record was written.
    ItemIdentity identity; ///< Of the record itself.
};

/// Parses the text of a record. Nothing if it is no record, or its path is not one that an item can have had.
std::optional<TrashRecord> parsedTrashRecord(const QByteArray &text);

/// Reads the record \a name in the folder \a info, without changing its access time where the system allows that. The
/// error is EBADMSG if it is no regular file or no record, EFBIG if it is too long.
OrError<TrashRecord> readTrashRecord(const SystemCalls &calls, int info, const FilePath &name);

} // namespace tidlo
