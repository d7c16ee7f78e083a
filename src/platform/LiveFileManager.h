#pragma once

#include "platform/DirectoryWalker.h"
#include "platform/FileManager.h"
#include "platform/HomeFolder.h"

namespace tidlo {

/// The file manager of this system, built on descriptors.
class LiveFileManager final : public FileManager
{
public:
    explicit LiveFileManager(DirectoryWalker walker = DirectoryWalker())
        : walker(walker)
    {}

    FilePath homeDirectoryForCurrentUser() const override { return home; }
    bool fileExists(const FilePath &path) const override;
    std::optional<FileAttributes> attributesOfItem(const FilePath &path) const override;
    std::optional<QList<DirectoryEntry>> contentsOfDirectory(const FilePath &path,
                                                             WalkNotes *notes = nullptr) const override;
    QList<CollectedItem> enumerate(const DeepEnumeration &enumeration, std::stop_token stop) const override;
    QList<qint64> allocatedSizes(const QList<FilePath> &paths, std::stop_token stop = {},
                                 WalkNotes *notes = nullptr) const override;
    std::optional<VolumeCapacity> volumeCapacity(const FilePath &path) const override;
    std::optional<VolumeCapacity> fileSystemAttributes(const FilePath &path) const override;
    bool mayShareBlocks(const FilePath &path) const override;
    TrashOutcome trashItem(const FilePath &path) override;
    QList<bool> leftByTrash(const QList<FilePath> &paths) const override;
    QList<TrashOutcome> restoreItems(const QList<TrashedItem> &items,
                                     const std::function<bool()> &stopRequested) override;
    TrashContents trashedItems(std::stop_token stop) const override;

private:
    const FilePath home = homeFolder(); ///< Read once: the user database may be on the network.
    DirectoryWalker walker;
};

} // namespace tidlo
