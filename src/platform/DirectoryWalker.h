#pragma once

#include "platform/DeepEnumeration.h"

#include <QList>

#include <stop_token>

namespace tidlo {

/// Reads whole trees: finds items in them, and measures what they hold on the disk. Several workers read at once, since
/// most disks answer many questions in the time of one; a disk that rotates does not, and gets one worker.
///
/// Everything below a root is reached through open folders, never by its path, so that no link, and no folder swapped
/// for one, leads a walk outside. Nothing recurses, and the number of open folders is bounded, so that any depth will
/// do. Memory grows with the folders that wait to be read, not with the size of the tree.
class DirectoryWalker final
{
public:
    /// \a workers: how many read at once; 0 lets the disks decide.
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
