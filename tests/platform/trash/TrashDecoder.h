#pragma once

#include "model/FilePath.h"

#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace tidlo {

/// One record of a Trash, read only by the rules of the freedesktop.org Trash specification.
struct DecodedItem
{
    FilePath name;              ///< The name in the Trash's "files" folder.
    FilePath originalPath;      ///< Decoded; absolute.
    std::string date;           ///< As recorded.
    std::optional<ino_t> inode; ///< The item's inode; nothing if only the record exists.
};

/// The content of a Trash folder.
struct DecodedTrash
{
    std::vector<DecodedItem> items;         ///< By name.
    std::vector<std::string> orphans;       ///< Names of items without a record.
    std::vector<std::string> brokenRecords; ///< Names of incomplete records.
};

/// Reads the Trash in the folder \a trash; empty if it does not exist. Relative paths in records are taken as relative
/// to \a top.
DecodedTrash decodeTrash(const FilePath &trash, const FilePath &top = {});

/// Puts the item back to the recorded place, as a desktop does. Returns whether that succeeded.
bool restore(const FilePath &trash, const DecodedItem &item);

} // namespace tidlo
