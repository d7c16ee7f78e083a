#pragma once

#include "model/FilePath.h"
#include "platform/Trash.h"
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

    /// Opens the Trash in \a folder at \a path, which is there. Nothing when that went well, or what to tell: that it
    /// is gone where it has no items or no records.
    std::optional<TrashOutcome> openExisting(const SystemCalls &calls, const Descriptor &folder, const FilePath &path);

    const FilePath &path() const { return ownPath; } ///< Without links.
    int files() const { return items.get(); }
    int info() const { return records.get(); }
    qsizetype longestName() const { return nameLimit; } ///< In bytes.

    /// What a record calls an item at the absolute \a path, that has no links in it.
    FilePath recordedPath(const FilePath &path) const;

private:
    std::optional<TrashOutcome> openInside(const SystemCalls &calls, const Descriptor &trash);

    FilePath ownPath;
    Descriptor items;
    Descriptor records;
    FilePath base; ///< Where recorded paths begin; empty when they are absolute.
    qsizetype nameLimit = NAME_MAX;
};

/// Opens the folder of the Trashes of all users at the top of a mount, which \a top is. Not valid if there is none, or
/// one that lets anybody take away what another put in.
Descriptor openTrashForEverybody(const SystemCalls &calls, const Descriptor &top);

/// What the user's own Trash at the top of a mount is called, in the folder for all and beside it.
FilePath trashNameAmongAll();
FilePath trashNameAtTop();

/// Whether \a path leads through a Trash. Told by the names alone, so that Trashes of other users and of mounts seen
/// elsewhere are known as well.
bool leadsThroughTrash(const FilePath &path);

/// The name in the Trash of an item called \a name, such that its record's name is not longer than \a limit bytes: the
/// name itself, cut before its extension where it must be. A \a number above 1 is added, for a name that is taken.
FilePath trashName(const FilePath &name, quint32 number, qsizetype limit);

} // namespace tidlo
