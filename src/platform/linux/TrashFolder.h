#pragma once

#include "model/FilePath.h"
#include "platform/Trash.h"
#include "platform/linux/MountTable.h"
#include "platform/linux/OpenFolder.h"

namespace tidlo {

/// A Trash that is held open: its folders of items and of records, both the user's own.
class TrashFolder final
{
public:
    /// Opens the Trash of the home folder, and makes its missing folders. Returns nothing on success, or the outcome to
    /// report.
    std::optional<TrashOutcome> openInHome(const SystemCalls &calls, const PlannedFolder &trash);

    /// Opens the user's Trash at the top of \a mount, and makes its missing folders: in the folder ".Trash" that an
    /// administrator made for all users, if there is one, or else in a folder of the user's own.
    std::optional<TrashOutcome> openOnMount(const SystemCalls &calls, const Mount &mount);

    /// Opens the existing Trash in \a folder at \a path. Returns nothing on success, or the outcome to report: "gone"
    /// if it has no folder of items or of records.
    std::optional<TrashOutcome> openExisting(const SystemCalls &calls, const Descriptor &folder, const FilePath &path);

    const FilePath &path() const { return ownPath; } ///< Without links.
    int files() const { return items.get(); }
    int info() const { return records.get(); }
    qsizetype longestName() const { return nameLimit; } ///< In bytes.

    /// The path that a record contains for an item at the absolute \a path, which has no links in it.
    FilePath recordedPath(const FilePath &path) const;

private:
    std::optional<TrashOutcome> openInside(const SystemCalls &calls, const Descriptor &trash);

    FilePath ownPath;
    Descriptor items;
    Descriptor records;
    FilePath base; ///< The folder to which recorded paths are relative; empty if they are absolute.
    qsizetype nameLimit = NAME_MAX;
};

/// Opens the folder for the Trashes of all users at the top of a mount, \a top. Not valid if there is none, or if it
/// lets users remove each other's files.
Descriptor openTrashForEverybody(const SystemCalls &calls, const Descriptor &top);

/// The name of the user's own Trash at the top of a mount, in the folder for all users and beside it.
FilePath trashNameAmongAll();
FilePath trashNameAtTop();

/// Whether \a path leads through a Trash. Decided by names alone, so that Trashes of other users, and of mounts seen
/// elsewhere, are recognised as well.
bool leadsThroughTrash(const FilePath &path);

/// A name in the Trash for an item called \a name, such that its record's name has at most \a limit bytes: the name
/// itself, shortened before its extension if necessary. A \a number above 1 is added, for a name that is taken.
FilePath trashName(const FilePath &name, quint32 number, qsizetype limit);

} // namespace tidlo
