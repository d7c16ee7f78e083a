#include "platform/LiveFileManager.h"

#include "platform/Descriptor.h"
#include "platform/FolderReader.h"
#include "platform/Paths.h"
#include "platform/Trash.h"
#include "platform/Volume.h"

#include <algorithm>
#include <new>

namespace tidlo {

namespace {

/// As FileManager::contentsOfDirectory; throws without memory.
std::optional<QList<DirectoryEntry>> listed(const FilePath &path, WalkNotes *notes)
{
    const auto tellUnread = [&](int error) {
        if (notes != nullptr)
            notes->addUnread(path, error);
    };
    const Descriptor folder = FolderOpener().openRoot(path, true);
    if (!folder.isValid()) {
        tellUnread(folder.error());
        return std::nullopt;
    }
    QList<DirectoryEntry> entries;
    FolderReader reader;
    while (true) {
        const FolderReader::Batch batch = reader.readBatch(folder.get());
        if (batch == FolderReader::Batch::failed) {
            tellUnread(reader.error());
            return std::nullopt;
        }
        if (batch == FolderReader::Batch::end)
            break;
        while (const std::optional<FolderReader::Entry> entry = reader.nextEntry()) {
            if (isHiddenName(entry->name))
                continue;
            const auto status = statusOf(folder.get(), entry->name.data(), StatusDetail::everything);
            entries.append({.path = joined(path, entry->name.toByteArray()),
                            .attributes = status.value_or(EntryStatus()).attributes});
        }
    }
    std::ranges::sort(entries, {}, &DirectoryEntry::path);
    return entries;
}

/// As FileManager::trashedItems; throws without memory.
TrashContents listed(const DirectoryWalker &walker, const FilePath &home, std::stop_token stop)
{
    TrashContents contents = listTrashes(home, stop);
    QList<FilePath> paths;
    for (const ListedItem &listed : contents.items)
        paths.append(joined(joined(listed.item.trash, "files"), listed.item.name));
    const QList<qint64> sizes = walker.allocatedSizes(paths, std::move(stop));
    for (qsizetype at = 0; at < sizes.size(); ++at)
        contents.items[at].bytes = sizes[at];
    return contents;
}

} // namespace

std::unique_ptr<FileManager> makeFileManager()
{
    return std::make_unique<LiveFileManager>();
}

bool LiveFileManager::fileExists(const FilePath &path) const
{
    const PathLocation location(path);
    return location.isValid() &&
           uninterrupted([&] { return faccessat(location.folder(), location.name(), F_OK, 0); }) == 0;
}

std::optional<FileAttributes> LiveFileManager::attributesOfItem(const FilePath &path) const
{
    const PathLocation location(path);
    if (path.isEmpty() || !location.isValid())
        return std::nullopt;
    const auto status = statusOf(location.folder(), location.name(), StatusDetail::everything);
    return status ? std::optional(status->attributes) : std::nullopt;
}

std::optional<QList<DirectoryEntry>> LiveFileManager::contentsOfDirectory(const FilePath &path, WalkNotes *notes) const
{
    try {
        return listed(path, notes);
    } catch (const std::bad_alloc &) {
        return std::nullopt;
    }
}

QList<CollectedItem> LiveFileManager::enumerate(const DeepEnumeration &enumeration, std::stop_token stop) const
{
    return walker.enumerate(enumeration, std::move(stop));
}

QList<qint64> LiveFileManager::allocatedSizes(const QList<FilePath> &paths, std::stop_token stop,
                                              WalkNotes *notes) const
{
    return walker.allocatedSizes(paths, std::move(stop), notes);
}

std::optional<VolumeCapacity> LiveFileManager::volumeCapacity(const FilePath &path) const
{
    return volumeCapacityOf(path);
}

std::optional<VolumeCapacity> LiveFileManager::fileSystemAttributes(const FilePath &path) const
{
    return fileSystemCapacityOf(path);
}

bool LiveFileManager::mayShareBlocks(const FilePath &path) const
{
    return tidlo::mayShareBlocks(path);
}

TrashOutcome LiveFileManager::trashItem(const FilePath &path)
{
    return moveToTrash(path, home);
}

QList<bool> LiveFileManager::leftByTrash(const QList<FilePath> &paths) const
{
    return tidlo::leftByTrash(paths, home);
}

QList<TrashOutcome> LiveFileManager::restoreItems(const QList<TrashedItem> &items,
                                                  const std::function<bool()> &stopRequested)
{
    return restoreFromTrash(items, home, stopRequested);
}

TrashContents LiveFileManager::trashedItems(std::stop_token stop) const
{
    try {
        return listed(walker, home, std::move(stop));
    } catch (const std::bad_alloc &) {
        return {.items = {}, .unread = {{.path = home, .reason = qt_error_string(ENOMEM)}}};
    }
}

} // namespace tidlo
