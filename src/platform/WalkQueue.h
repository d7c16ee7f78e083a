#pragma once

#include "platform/FolderReader.h"
#include "platform/OrError.h"

#include <condition_variable>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace tidlo {

struct CountedItem;

/// A folder that waits to be read, is being read, or has folders beneath it that do. What stands under "counts" belongs
/// to the queue; the rest is set before the folder is added, and read by the worker that took it.
struct WalkFolder
{
    std::string name;             ///< Relative to the parent; of a root its whole path.
    WalkFolder *parent = nullptr; ///< None for a root.
    CountedItem *item = nullptr;  ///< What its contents count for; none while items are looked for.
    int root = 0;                 ///< The place of its root among those given.
    quint64 mount = 0;            ///< Of its root, and so of all that is walked beneath.
    Descriptor descriptor;

    bool isRoot() const { return parent == nullptr; }
    bool isOpen() const { return descriptor.isValid(); }

    struct Counts
    {
        int children = 0;        ///< Folders directly beneath it that are not done.
        int awaiting = 0;        ///< Those among them that have yet to be opened through its descriptor.
        int users = 0;           ///< Workers that use its descriptor now, or are about to.
        bool usesParent = false; ///< It is counted as a user of its parent's descriptor, to be opened through it.
        bool listed = false;     ///< Its listing has been read to the end.
        bool kept = false;       ///< Open for the sake of others, and so to be closed when descriptors run short.
        quint64 lastUse = 0;     ///< By the queue's own count, to close what was used longest ago.
        FolderIdentity identity; ///< Known once it was closed before its time, to know it again.
    };
    Counts counts;
};

/// The folders that a walk has yet to read, shared by its workers: last in, first out, so that few wait at a time. It
/// also looks after the descriptors: a folder stays open until the folders beneath it have been opened through it, and
/// when more than a given number would stay open, those used longest ago are closed and opened again when needed, from
/// the nearest one that is still open, and checked to be the same. What the queue has no memory for is not read, and
/// nothing throws once a worker has taken a folder but reopenParent. Thread-safe.
class WalkQueue final
{
public:
    /// \a mostKept is how many descriptors may be open besides those that workers use at the moment.
    explicit WalkQueue(int mostKept)
        : mostKept(mostKept)
    {}
    ~WalkQueue();
    WalkQueue(const WalkQueue &) = delete;
    WalkQueue &operator=(const WalkQueue &) = delete;

    void addRoot(std::unique_ptr<WalkFolder> root);

    struct Taken
    {
        WalkFolder *folder = nullptr;
        int parent = -1;   ///< The parent's descriptor; -1 if the folder has none, or it was closed: see reopenParent.
        bool more = false; ///< Others wait, too.
    };
    /// The next folder to read on in, for this worker alone; waits while others may still find some. No folder when all
    /// is done. Whatever is taken must be finished.
    Taken take();

    /// Opens the parent of a taken \a folder again; an error if there is no way to it any more. Throws without memory,
    /// having done nothing.
    OrError<int> reopenParent(const WalkFolder &folder, const FolderOpener &opener);

    /// Lets another worker read on in the listing of \a folder, which is open, while its taker is busy with a batch.
    /// False if that would keep too many descriptors open: then the taker reads on itself.
    bool shareListing(WalkFolder &folder);

    /// Ends the use of a taken folder. \a listed: its listing was read to the end, or is given up. \a children are
    /// folders found in it, to be read in their turn.
    void finish(WalkFolder &folder, bool listed, std::vector<std::unique_ptr<WalkFolder>> children);

    /// Closes all that can be opened again; for when the system has no more descriptors.
    void closeSpare();

private:
    struct Route;
    Route routeTo(WalkFolder &folder);
    bool add(std::unique_ptr<WalkFolder> folder);
    void wakeAnother(std::unique_lock<std::mutex> lock);
    void keep(WalkFolder &folder);
    void forget(WalkFolder &folder);
    bool closeLeastRecent();
    void releaseParent(WalkFolder &folder);
    void settle(WalkFolder *folder);

    const int mostKept;
    std::mutex mutex;
    std::condition_variable changed;
    std::vector<WalkFolder *> waiting;
    std::vector<WalkFolder *> kept;
    std::vector<Descriptor> spare; ///< To be closed.
    int unfinished = 0;            ///< Waiting or taken.
    int idleWorkers = 0;
    quint64 uses = 0;
};

} // namespace tidlo
