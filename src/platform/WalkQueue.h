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

/// A folder that waits to be read, is being read, or has such folders beneath it. The members in "counts" belong to the
/// queue; the others are set before the folder is added, and read by the worker that took it.
struct WalkFolder
{
    std::string name;             ///< Relative to the parent; for a root its whole path.
    WalkFolder *parent = nullptr; ///< None for a root.
    CountedItem *item = nullptr;  ///< The item to which its contents are added; null while items are looked for.
    int root = 0;                 ///< The index of its root among those given.
    quint64 mount = 0;            ///< The mount of its root, and so of everything that is walked beneath.
    Descriptor descriptor;

    bool isRoot() const { return parent == nullptr; }
    bool isOpen() const { return descriptor.isValid(); }

    struct Counts
    {
        int children = 0;        ///< Folders directly beneath it that are not done.
        int awaiting = 0;        ///< Those of them that have yet to be opened through its descriptor.
        int users = 0;           ///< Workers that use its descriptor now, or will soon.
        bool usesParent = false; ///< It is counted as a user of its parent's descriptor, to be opened through it.
        bool listed = false;     ///< Its listing has been read to the end.
        bool kept = false;       ///< Open only for use by others, so it may be closed when descriptors run short.
        quint64 lastUse = 0;     ///< A counter of the queue, to close the least recently used folder.
        FolderIdentity identity; ///< Known once it was closed early, to recognise it again.
    };
    Counts counts;
};

/// The folders that a walk has yet to read, shared by its workers: last in, first out, so that few wait at a time. It
/// also manages the descriptors: a folder stays open until the folders beneath it have been opened through it. If more
/// than a given number would stay open, the least recently used ones are closed and opened again when needed, from the
/// nearest one that is still open, and checked to be the same. Folders for which the queue has no memory are not read.
/// Once a worker has taken a folder, only reopenParent throws. Thread-safe.
class WalkQueue final
{
public:
    /// \a mostKept is how many descriptors may be open besides those that workers are using.
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
        int parent = -1;   ///< The parent's descriptor; -1 if there is no parent, or it was closed: see reopenParent.
        bool more = false; ///< Other folders are waiting as well.
    };
    /// The next folder to read, for this worker alone; waits while other workers may still find some. No folder if all
    /// is done. Every taken folder must be finished.
    Taken take();

    /// Opens the parent of a taken \a folder again; an error if it can no longer be reached. Throws without memory, and
    /// has then done nothing.
    OrError<int> reopenParent(const WalkFolder &folder, const FolderOpener &opener);

    /// Lets another worker continue the listing of \a folder, which is open, while its taker handles a batch. False if
    /// that would keep too many descriptors open: then the taker continues itself.
    bool shareListing(WalkFolder &folder);

    /// Ends the use of a taken folder. \a listed: its listing was read to the end, or given up. \a children are folders
    /// found in it, which are read later.
    void finish(WalkFolder &folder, bool listed, std::vector<std::unique_ptr<WalkFolder>> children);

    /// Closes all descriptors that can be opened again; for when the system has no more of them.
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
