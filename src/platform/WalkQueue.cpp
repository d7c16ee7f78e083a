#include "platform/WalkQueue.h"

#include <algorithm>
#include <cerrno>
#include <climits>
#include <iterator>
#include <new>
#include <span>
#include <type_traits>
#include <utility>

namespace tidlo {

namespace {

/// A way back of more levels than this opens a folder half-way, which stays open as a start for the next ones.
constexpr size_t levelsBetweenStops = 64;

/// Moves \a value to the end of \a list; false if there is no memory for it, and then \a value is unchanged.
template <typename Value>
bool isAppended(std::vector<Value> &list, std::type_identity_t<Value> &&value)
{
    try {
        list.push_back(std::move(value));
        return true;
    } catch (const std::bad_alloc &) {
        return false;
    }
}

/// Opens folder after folder beneath \a start, as many levels at a time as one path can hold. Not valid if that fails.
Descriptor openLevels(int start, std::span<WalkFolder *const> downwards, const FolderOpener &opener)
try {
    Descriptor folder;
    while (!downwards.empty()) {
        std::string path = downwards.front()->name;
        size_t levels = 1;
        while (levels < downwards.size() && path.size() + 1 + downwards[levels]->name.size() < PATH_MAX) {
            path += '/';
            path += downwards[levels]->name;
            ++levels;
        }
        folder = opener.openBeneath(folder.isValid() ? folder.get() : start, path.c_str());
        if (!folder.isValid())
            return folder;
        downwards = downwards.subspan(levels);
    }
    return folder;
} catch (const std::bad_alloc &) {
    return Descriptor::failed(ENOMEM);
}

} // namespace

/// The way from an open folder down to one that is not.
struct WalkQueue::Route
{
    WalkFolder *start = nullptr;
    std::vector<WalkFolder *> toStop; ///< Downwards, ends with the folder half-way; empty if none is needed.
    std::vector<WalkFolder *> toGoal; ///< Downwards from there, ends with the goal.
};

WalkQueue::~WalkQueue()
{
    // A finished walk has emptied the queue; one that never ran has left its roots in it.
    for (const WalkFolder *folder : waiting)
        delete folder;
}

void WalkQueue::addRoot(std::unique_ptr<WalkFolder> root)
{
    const std::lock_guard lock(mutex);
    add(std::move(root));
}

/// False if there is no memory for it.
bool WalkQueue::add(std::unique_ptr<WalkFolder> folder)
{
    if (!isAppended(waiting, folder.get()))
        return false;
    static_cast<void>(folder.release());
    ++unfinished;
    return true;
}

WalkQueue::Taken WalkQueue::take()
{
    std::unique_lock lock(mutex);
    ++idleWorkers;
    changed.wait(lock, [this] { return !waiting.empty() || unfinished == 0; });
    --idleWorkers;
    if (waiting.empty())
        return {};
    WalkFolder *folder = waiting.back();
    waiting.pop_back();
    ++folder->counts.users;
    Taken taken{.folder = folder, .more = !waiting.empty()};
    if (!folder->isOpen() && !folder->isRoot()) {
        WalkFolder &parent = *folder->parent;
        folder->counts.usesParent = true;
        ++parent.counts.users;
        parent.counts.lastUse = ++uses;
        taken.parent = parent.descriptor.get();
    }
    wakeAnother(std::move(lock));
    return taken;
}

OrError<int> WalkQueue::reopenParent(const WalkFolder &folder, const FolderOpener &opener)
{
    WalkFolder &parent = *folder.parent;
    std::unique_lock lock(mutex);
    if (parent.isOpen())
        return parent.descriptor.get();
    const Route route = routeTo(parent);
    ++route.start->counts.users;
    lock.unlock();

    Descriptor stop = openLevels(route.start->descriptor.get(), route.toStop, opener);
    const bool lost = !route.toStop.empty() && !stop.isValid();
    Descriptor goal =
        lost ? Descriptor::failed(stop.error())
             : openLevels(stop.isValid() ? stop.get() : route.start->descriptor.get(), route.toGoal, opener);
    const bool same = goal.isValid() && identityOf(goal.get()) == parent.counts.identity;

    lock.lock();
    --route.start->counts.users;
    settle(route.start);
    if (stop.isValid() && !route.toStop.back()->isOpen()) {
        route.toStop.back()->descriptor = std::move(stop);
        keep(*route.toStop.back());
    }
    const Errno failure{goal.isValid() ? ESTALE : goal.error()};
    if (same && !parent.isOpen()) {
        parent.descriptor = std::move(goal);
        keep(parent);
    }
    if (parent.isOpen())
        return parent.descriptor.get();
    return failure;
}

WalkQueue::Route WalkQueue::routeTo(WalkFolder &folder)
{
    std::vector<WalkFolder *> upwards;
    WalkFolder *ancestor = &folder;
    for (; !ancestor->isOpen(); ancestor = ancestor->parent) // A root stays open.
        upwards.push_back(ancestor);
    ancestor->counts.lastUse = ++uses;
    const auto stop = upwards.begin() + static_cast<ptrdiff_t>(std::min(upwards.size(), levelsBetweenStops));
    return {.start = ancestor,
            .toStop{std::make_reverse_iterator(upwards.end()), std::make_reverse_iterator(stop)},
            .toGoal{std::make_reverse_iterator(stop), std::make_reverse_iterator(upwards.begin())}};
}

bool WalkQueue::shareListing(WalkFolder &folder)
{
    std::unique_lock lock(mutex);
    if (std::cmp_greater_equal(kept.size(), mostKept) || !isAppended(waiting, &folder))
        return false;
    ++unfinished;
    releaseParent(folder);
    keep(folder);
    wakeAnother(std::move(lock));
    return true;
}

void WalkQueue::finish(WalkFolder &folder, bool listed, std::vector<std::unique_ptr<WalkFolder>> children)
{
    std::vector<Descriptor> closing; // Closed without the lock, since closing takes time.
    std::unique_lock lock(mutex);
    int found = 0;
    for (auto child = children.rbegin(); child != children.rend(); ++child) // The first child is to be taken first.
        found += add(std::move(*child)) ? 1 : 0;

    releaseParent(folder);
    WalkFolder::Counts &counts = folder.counts;
    counts.children += found;
    counts.awaiting += found;
    counts.listed |= listed;
    --counts.users;
    if (counts.awaiting > 0)
        keep(folder);
    settle(&folder);
    closing.swap(spare);
    if (--unfinished == 0)
        changed.notify_all();
    lock.unlock();
}

void WalkQueue::closeSpare()
{
    const std::lock_guard lock(mutex);
    while (closeLeastRecent()) {
    }
}

/// Each worker that takes a folder and leaves others wakes one more worker.
void WalkQueue::wakeAnother(std::unique_lock<std::mutex> lock)
{
    const bool wanted = idleWorkers > 0 && !waiting.empty();
    lock.unlock(); // Otherwise it would wake up only to wait for the lock.
    if (wanted)
        changed.notify_one();
}

void WalkQueue::keep(WalkFolder &folder)
{
    folder.counts.lastUse = ++uses;
    if (folder.counts.kept)
        return;
    folder.counts.kept = isAppended(kept, &folder); // If not, it stays open until everything beneath it has been
                                                    // opened.
    if (std::cmp_greater(kept.size(), mostKept))
        closeLeastRecent();
}

void WalkQueue::forget(WalkFolder &folder)
{
    if (std::exchange(folder.counts.kept, false))
        std::erase(kept, &folder);
}

bool WalkQueue::closeLeastRecent()
{
    WalkFolder *oldest = nullptr;
    for (WalkFolder *folder : kept) {
        const bool isSpare = folder->counts.users == 0 && folder->counts.listed && !folder->isRoot();
        if (isSpare && (oldest == nullptr || folder->counts.lastUse < oldest->counts.lastUse))
            oldest = folder;
    }
    if (oldest == nullptr)
        return false;
    oldest->counts.identity = identityOf(oldest->descriptor.get()).value_or(FolderIdentity());
    oldest->descriptor = Descriptor();
    forget(*oldest);
    return true;
}

/// A taken folder that was to be opened through its parent has been opened, or never will be.
void WalkQueue::releaseParent(WalkFolder &folder)
{
    if (!std::exchange(folder.counts.usesParent, false))
        return;
    --folder.parent->counts.users;
    --folder.parent->counts.awaiting;
    settle(folder.parent);
}

/// Closes the folder if nothing will be opened through it any more, and removes it once nothing beneath it is left, and
/// then perhaps its parents.
void WalkQueue::settle(WalkFolder *folder)
{
    while (folder != nullptr && folder->counts.users == 0 && folder->counts.listed) {
        if (folder->counts.children > 0) {
            if (folder->counts.awaiting == 0 && !folder->isRoot()) {
                forget(*folder);
                isAppended(spare, std::move(folder->descriptor));
            }
            return;
        }
        forget(*folder);
        if (folder->isOpen())
            isAppended(spare, std::move(folder->descriptor));
        const std::unique_ptr<WalkFolder> done(folder);
        folder = folder->parent;
        if (folder != nullptr)
            --folder->counts.children;
    }
}

} // namespace tidlo
