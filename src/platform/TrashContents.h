#pragma once

#include "platform/FileAttributes.h"
#include "platform/Trash.h"

#include <stop_token>

namespace tidlo {

/// The details of an item in a Trash.
struct ListedItem
{
    TrashedItem item;
    std::optional<FileTime> moved{}; ///< When it was moved there, if its record says so.
    qint64 bytes = 0;                ///< What deleting it would free, as FileManager::allocatedSizes counts.

    bool operator==(const ListedItem &) const = default;
};

/// A Trash that could not be read, or not to its end.
struct UnreadTrash
{
    FilePath path;
    QString reason; ///< For a person, one or more sentences.

    bool operator==(const UnreadTrash &) const = default;
};

/// The contents of the user's Trashes.
struct TrashContents
{
    QList<ListedItem> items; ///< The last moved first, items without a time at the end.
    qint64 unknown = 0;      ///< The number of further items with a record that does not say where they were.
    QList<UnreadTrash> unread;
};

/// Reads the records of the user's Trashes, that of the home folder and those of mounts; sizes are not measured. A
/// record without an item, and an item without a record, are skipped. A requested stop ends it soon, with what was
/// found until then. Throws if there is no memory.
TrashContents listTrashes(const FilePath &home, std::stop_token stop = {});

} // namespace tidlo
