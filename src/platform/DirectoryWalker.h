#pragma once

#include "platform/DeepEnumeration.h"

#include <QList>

#include <stop_token>

namespace tidlo {

/// Reads whole trees: finds items in them, and measures their size on the disk. Several workers read at once, since
/// most disks handle many requests in the time of one; a rotating disk does not, and gets one worker.
///
/// Everything below a root is reached through open folders, never by its path, so that neither a link nor a folder
/// swapped for one leads a walk outside. Nothing recurses, and the number of open folders is bounded, so that any depth
/// works. Memory grows with the number of folders that wait to be read, not with the size of the tree.
class DirectoryWalker final
{
public:
    /// \a workers: how many workers read at once; 0: depends on the disks.
    explicit DirectoryWalker(int workers = 0)
        : workers(workers)
    {}

    /// As FileManager::enumerate.
    QList<CollectedItem> enumerate(const DeepEnumeration &enumeration, std::stop_token stop) const;

    /// As FileManager::allocatedSizes.
    QList<qint64> allocatedSizes(const QList<FilePath> &paths, std::stop_token stop, WalkNotes *notes = nullptr) const;

private:
    int workers;
};

} // namespace tidlo
