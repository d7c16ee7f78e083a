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

/// What records are called, beyond the names of their items.
constexpr QByteArrayView trashRecordSuffix(".trashinfo");

/// The name that the record of \a trashName has.
FilePath trashRecordName(const FilePath &trashName);

/// Longer records are not read. In bytes.
constexpr qsizetype longestTrashRecord = 1 << 16;

/// What a record says, whichever program wrote it.
struct TrashRecord
{
    FilePath path;         ///< Where the item was: each part of it a name. Absolute, or relative to the top folder.
    QByteArray date;       ///< When it was moved, as it stands; empty if that is not told.
    FileTime written{};    ///< When the record was written.
    ItemIdentity identity; ///< Of the record itself.
};

/// Reads the text of a record. Nothing if it is none, or its path is not one that an item can have had.
std::optional<TrashRecord> parsedTrashRecord(const QByteArray &text);

/// Reads the record \a name in the folder \a info; its access time stays where the system allows. The error is EBADMSG
/// if that is no regular file or no record, EFBIG if it is too long.
OrError<TrashRecord> readTrashRecord(const SystemCalls &calls, int info, const FilePath &name);

} // namespace tidlo
