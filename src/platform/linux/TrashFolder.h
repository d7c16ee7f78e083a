#pragma once

#include "platform/TrashOutcome.h"
#include "platform/linux/MountTable.h"
#include "platform/linux/OpenFolder.h"

namespace tidlo {

/// A Trash that is held open: its folder of items and its folder of records, both the user's own.
class TrashFolder final
{
public:
    /// Opens the Trash of the home, and makes what is missing of it. Nothing when that went well, or what to tell.
    std::optional<TrashOutcome> openInHome(const SystemCalls &calls, const PlannedFolder &trash);

    /// Opens the user's Trash at the top of \a mount, and makes what is missing of it: in the folder ".Trash" that an
    /// administrator made for all, where that is one, or a folder of the user's own.
    std::optional<TrashOutcome> openOnMount(const SystemCalls &calls, const Mount &mount);

    int files() const { return items.get(); }
    int info() const { return records.get(); }
    qsizetype longestName() const { return nameLimit; } ///< In bytes.

    /// What a record calls an item at the absolute \a path, that has no links in it.
    FilePath recordedPath(const FilePath &path) const;

private:
    std::optional<TrashOutcome> openInside(const SystemCalls &calls, const Descriptor &trash);

    Descriptor items;
    Descriptor records;
    FilePath base; ///< Where recorded paths begin; empty when they are absolute.
    qsizetype nameLimit = NAME_MAX;
};

} // namespace tidlo
