#pragma once

#include "platform/DeepEnumeration.h"
#include "platform/FileAttributes.h"
#include "platform/TrashContents.h"

#include <QList>

#include <memory>
#include <optional>
#include <stop_token>

namespace tidlo {

/// The interface for every existence test, listing, enumeration, measurement and move to or from the Trash. Nothing
/// here throws, and only trashItem and restoreItems change anything on the disk, access times included where the system
/// allows. Every operation may be called from any thread.
class FileManager
{
public:
    virtual ~FileManager() = default;

    /// The home folder of the current user, from homeFolder().
    virtual FilePath homeDirectoryForCurrentUser() const = 0;

    /// Whether something exists at \a path; for a link, whether its target exists.
    virtual bool fileExists(const FilePath &path) const = 0;

    /// The attributes of \a path itself, without following a link; nothing if they cannot be read.
    virtual std::optional<FileAttributes> attributesOfItem(const FilePath &path) const = 0;

    /// The entries of a folder that are not hidden, with their attributes, in byte order of their names. The folder may
    /// be reached through a link. Nothing if it cannot be listed completely; \a notes, if not null, record that.
    virtual std::optional<QList<DirectoryEntry>> contentsOfDirectory(const FilePath &folder,
                                                                     WalkNotes *notes = nullptr) const = 0;

    /// Everything that the enumeration's visitor collects, root after root, depth first, each folder before its
    /// contents, in byte order of the names. A requested stop ends it soon, with what was found so far.
    virtual QList<CollectedItem> enumerate(const DeepEnumeration &enumeration, std::stop_token stop = {}) const = 0;

    /// The bytes that deleting each of \a paths would free, in the same order: for a regular file its allocated size;
    /// for a folder or package that of all regular files beneath it, including hidden ones, but without the contents of
    /// packages and other mounts; for anything else 0. A requested stop ends it soon, with what was counted so far.
    /// \a notes, if not null, record what else was met.
    virtual QList<qint64> allocatedSizes(const QList<FilePath> &paths, std::stop_token stop = {},
                                         WalkNotes *notes = nullptr) const = 0;

    /// Figures of the volume that holds \a path; nothing if the request fails.
    virtual std::optional<VolumeCapacity> volumeCapacity(const FilePath &path) const = 0;

    /// The size and free space that the file system itself reports for \a path; nothing if the request fails.
    virtual std::optional<VolumeCapacity> fileSystemAttributes(const FilePath &path) const = 0;

    /// Whether files on the file system of \a path may share blocks in other ways than by links.
    virtual bool mayShareBlocks(const FilePath &path) const = 0;

    /// Moves one item to the Trash. Nothing is ever copied or deleted.
    virtual TrashOutcome trashItem(const FilePath &path) = 0;

    /// For each of \a paths, whether trashItem() would refuse it as things are now.
    virtual QList<bool> leftByTrash(const QList<FilePath> &paths) const = 0;

    /// Puts \a items of the user's Trashes back where they were, in order; nothing is ever replaced. Returns an outcome
    /// for each that was tried: \a stopRequested is called before each.
    virtual QList<TrashOutcome> restoreItems(const QList<TrashedItem> &items,
                                             const std::function<bool()> &stopRequested) = 0;

    /// The contents of the user's Trashes. A requested stop ends it soon, with what was found and counted until then.
    virtual TrashContents trashedItems(std::stop_token stop = {}) const = 0;
};

/// The file manager of this system.
std::unique_ptr<FileManager> makeFileManager();

} // namespace tidlo
