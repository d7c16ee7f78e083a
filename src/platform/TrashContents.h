#pragma once

#include "platform/FileAttributes.h"
#include "platform/Trash.h"

#include <stop_token>

namespace tidlo {

/// What is told of an item in a Trash.
struct ListedItem
{
    TrashedItem item;
    std::optional<FileTime> moved{}; ///< When it was moved there, if its record tells it.
    qint64 bytes = 0;                ///< What deleting it would free, as FileManager::allocatedSizes counts.

    bool operator==(const ListedItem &) const = default;
};

/// A Trash that could not be read, or not to its end.
struct UnreadTrash
{
    FilePath path;
    QString reason; ///< For a person, a sentence or more.

    bool operator==(const UnreadTrash &) const = default;
};

/// What the Trashes of the user hold.
struct TrashContents
{
    QList<ListedItem> items; ///< The last moved first, those without a time last.
    qint64 unknown = 0;      ///< Further items with a record that does not tell where they were.
    QList<UnreadTrash> unread;
};

/// Reads the records of the user's Trashes, that of the home and those of mounts; the sizes are left out. A record
/// without an item, and an item without a record, are passed over. A requested stop ends it soon, with what was found
/// until then. Throws where there is no memory for it.
TrashContents listTrashes(const FilePath &home, std::stop_token stop = {});

} // namespace tidlo
