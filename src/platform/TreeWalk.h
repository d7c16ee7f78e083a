#pragma once

#include "platform/DeepEnumeration.h"
#include "platform/WalkQueue.h"

#include <atomic>
#include <deque>
#include <mutex>
#include <stop_token>

namespace tidlo {

/// An item that is measured; workers add the bytes that they find in it.
struct CountedItem
{
    FilePath path;
    int root = 0;
    int group = 0;
    bool isLeftOut = false;
    std::atomic<qint64> bytes = 0;
    QList<LinkedFile> linked{}; ///< Guarded by the walk's mutex while it runs.
};

/// How many folders are read at once, and how many more may stay open.
struct WalkLimits
{
    int workers = 1;
    int openFolders = 256;
};

/// One walk over some roots, from its start to its end.
class TreeWalk final
{
public:
    /// \a notes may be null; otherwise they must outlive it.
    TreeWalk(WalkLimits limits, std::stop_token stop, WalkNotes *notes)
        : limits(limits)
        , stop(std::move(stop))
        , notes(notes)
        , queue(limits.openFolders)
    {}

    /// Shows everything beneath the roots to the visitor and measures what it collects. Returns when all has been read,
    /// or soon after a stop. The items come in no fixed order.
    std::deque<CountedItem> enumerate(const DeepEnumeration &enumeration);

    /// Measures \a paths, in their order.
    std::deque<CountedItem> measure(const QList<FilePath> &paths);

private:
    class Worker;

    void addRoot(const FilePath &path, int index, CountedItem *item);
    void run();
    std::deque<CountedItem> takenItems();

    const WalkLimits limits;
    const std::stop_token stop;
    WalkNotes *const notes;
    const FolderOpener opener;
    WalkQueue queue;
    const DeepEnumeration *wanted = nullptr; ///< Null if only sizes are measured.
    std::mutex itemsMutex;                   ///< Guards the list and the linked files; the bytes of an item need no
                                             ///< lock.
    std::deque<CountedItem> items;
};

} // namespace tidlo
