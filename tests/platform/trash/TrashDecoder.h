#pragma once

#include "model/FilePath.h"

#include <optional>
#include <string>
#include <vector>

#include <sys/types.h>

namespace tidlo {

/// One record of a Trash, read by nothing but what the freedesktop.org Trash specification says.
struct DecodedItem
{
    FilePath name;              ///< In the Trash's folder of items.
    FilePath originalPath;      ///< Decoded; absolute.
    std::string date;           ///< As it stands.
    std::optional<ino_t> inode; ///< Of the item; nothing if only the record is there.
};

/// What a Trash folder holds.
struct DecodedTrash
{
    std::vector<DecodedItem> items;         ///< By name.
    std::vector<std::string> orphans;       ///< Names of items without a record.
    std::vector<std::string> brokenRecords; ///< Names of records that are not whole.
};

/// Reads the Trash in the folder \a trash; empty if there is none. Recorded paths that are relative are taken to be in
/// \a top.
DecodedTrash decodeTrash(const FilePath &trash, const FilePath &top = {});

/// Puts the item back to where its record says it was, as a desktop does. Returns whether that went well.
bool restore(const FilePath &trash, const DecodedItem &item);

} // namespace tidlo
