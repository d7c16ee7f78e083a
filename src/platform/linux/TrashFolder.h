#pragma once

#include "model/FilePath.h"
#include "platform/Trash.h"
#include "platform/linux/MountTable.h"
#include "platform/linux/OpenFolder.h"

#include <ctime>

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

/// The text of a record (a ".trashinfo" file): where the item was, and when it was moved, in local time. \a path is
/// absolute, or relative to the top folder of the mount.
QByteArray trashRecord(const FilePath &path, std::time_t moved);

/// The name that the record of \a trashName has.
FilePath trashRecordName(const FilePath &trashName);

/// The name in the Trash of an item called \a name, such that its record's name is not longer than \a limit bytes: the
/// name itself, cut before its extension where it must be. A \a number above 1 is added, for a name that is taken.
FilePath trashName(const FilePath &name, quint32 number, qsizetype limit);

} // namespace tidlo
