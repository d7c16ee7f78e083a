#include "platform/TreeWalk.h"

#include "model/CheckedSum.h"
#include "platform/Descriptor.h"
#include "platform/Paths.h"

#include <cerrno>
#include <exception>
#include <new>
#include <thread>

namespace tidlo {

namespace {

class VisitedEntry final : public EnumeratedEntry
{
public:
    VisitedEntry(int folder, QByteArrayView name, const FileAttributes &attributes)
        : folder(folder)
        , entryName(name)
        , entryAttributes(attributes)
    {}

    QByteArrayView name() const override { return entryName; }
    const FileAttributes &attributes() const override { return entryAttributes; }
    bool siblingExists(const char *sibling) const override
    {
        return uninterrupted([&] { return faccessat(folder, sibling, F_OK, 0); }) == 0;
    }

private:
    int folder;
    QByteArrayView entryName;
    const FileAttributes &entryAttributes;
};

/// The path of an entry. Folders store only their names, since few paths are ever needed.
FilePath pathOf(const WalkFolder &folder, QByteArrayView name)
{
    std::vector<const WalkFolder *> upwards;
    for (const WalkFolder *ancestor = &folder; ancestor != nullptr; ancestor = ancestor->parent)
        upwards.push_back(ancestor);
    FilePath path;
    for (auto ancestor = upwards.rbegin(); ancestor != upwards.rend(); ++ancestor) {
        path.append((*ancestor)->name.c_str());
        if (!path.endsWith('/')) // The root of all files ends with a slash already.
            path.append('/');
    }
    return path.append(name);
}

void addBytes(CountedItem &item, qint64 more)
{
    qint64 before = item.bytes.load(std::memory_order_relaxed);
    while (!item.bytes.compare_exchange_weak(before, checkedSum(before, more), std::memory_order_relaxed)) {
    }
}

} // namespace

/// Takes folder after folder from the queue and reads it. A listing for which there is no memory is given up like one
/// that cannot be read: what was met until then counts.
class TreeWalk::Worker final
{
public:
    explicit Worker(TreeWalk &walk)
        : walk(walk)
    {}

    /// \a callHelpers is called if there is more to read than one worker can.
    template <typename CallHelpers>
    void work(CallHelpers callHelpers)
    {
        while (true) {
            const WalkQueue::Taken taken = walk.queue.take();
            if (taken.folder == nullptr)
                return;
            if (taken.more)
                callHelpers();
            const bool isReadable = !isStopped() && (taken.folder->isOpen() || open(*taken.folder, taken.parent));
            const bool isListed = !isReadable || read(*taken.folder, callHelpers);
            walk.queue.finish(*taken.folder, isListed, std::exchange(children, {}));
        }
    }

private:
    bool isStopped() const { return walk.stop.stop_requested(); }
    bool open(WalkFolder &folder, int parent);
    bool openBeneath(WalkFolder &folder, int parent);
    bool openRoot(WalkFolder &root);
    template <typename CallHelpers>
    bool read(WalkFolder &folder, CallHelpers callHelpers);
    void readEntries(const WalkFolder &folder);
    void measure(const WalkFolder &folder, const FolderReader::Entry &entry);
    void look(const WalkFolder &folder, const FolderReader::Entry &entry);
    void collect(const WalkFolder &folder, const EnumeratedEntry &entry, const EntryStatus &status, int group);
    void addChild(const WalkFolder &folder, QByteArrayView name, CountedItem *item);
    qint64 counted(const EntryStatus &file);
    void hand(CountedItem &item);
    void tellUnread(const WalkFolder &folder, int error);

    TreeWalk &walk;
    FolderReader reader;
    std::vector<std::unique_ptr<WalkFolder>> children; ///< Found in the folder that is being read.
    qint64 bytes = 0;                                  ///< The bytes of the files in it.
    QList<LinkedFile> linked;                          ///< Those of these files that have several names.
};

bool TreeWalk::Worker::open(WalkFolder &folder, int parent)
{
    try {
        return folder.isRoot() ? openRoot(folder) : openBeneath(folder, parent);
    } catch (const std::bad_alloc &) {
        return false;
    }
}

bool TreeWalk::Worker::openBeneath(WalkFolder &folder, int parent)
{
    const auto attempt = [&] {
        const OrError<int> from = parent >= 0 ? parent : walk.queue.reopenParent(folder, walk.opener);
        if (!from)
            return from.error();
        folder.descriptor = walk.opener.openBeneath(*from, folder.name.c_str());
        return folder.descriptor.error();
    };
    const int error = attempt();
    const bool isShortOfDescriptors = error == EMFILE || error == ENFILE;
    if (isShortOfDescriptors)
        walk.queue.closeSpare();
    tellUnread(folder, isShortOfDescriptors ? attempt() : error);
    return folder.isOpen();
}

/// Measuring starts with the path itself, which may be a file; a link is not followed.
bool TreeWalk::Worker::openRoot(WalkFolder &root)
{
    const FilePath path = FilePath::fromStdString(root.name);
    if (root.item != nullptr) {
        const PathLocation location(path);
        const std::optional<EntryStatus> status =
            location.isValid() ? statusOf(location.folder(), location.name(), StatusDetail::sizeOnDisk) : std::nullopt;
        if (status && status->attributes.kind == FileKind::regular)
            bytes = counted(*status);
        hand(*root.item);
        if (!status || status->attributes.kind != FileKind::directory)
            return false;
    }
    root.descriptor = walk.opener.openRoot(path, root.item == nullptr);
    const std::optional<EntryStatus> status =
        root.isOpen() ? statusOf(root.descriptor.get(), "", StatusDetail::sizeOnDisk) : std::nullopt;
    root.mount = status ? status->mount : 0;
    tellUnread(root, root.descriptor.error());
    return status.has_value();
}

/// False if another worker continues the listing.
template <typename CallHelpers>
bool TreeWalk::Worker::read(WalkFolder &folder, CallHelpers callHelpers)
{
    bool listed = false;
    bool shared = false;
    while (!listed && !shared) {
        try {
            const FolderReader::Batch batch =
                isStopped() ? FolderReader::Batch::end : reader.readBatch(folder.descriptor.get());
            listed = batch == FolderReader::Batch::end || batch == FolderReader::Batch::failed;
            if (batch == FolderReader::Batch::failed)
                tellUnread(folder, reader.error());
            shared = batch == FolderReader::Batch::full && walk.queue.shareListing(folder);
            if (shared)
                callHelpers();
            readEntries(folder);
        } catch (const std::bad_alloc &) {
            listed = !shared;
        }
    }
    if (folder.item != nullptr)
        hand(*folder.item);
    return listed;
}

/// The bytes of a regular file; files with several links are recorded if notes are wanted.
qint64 TreeWalk::Worker::counted(const EntryStatus &file)
{
    const qint64 size = file.attributes.allocatedSize.value_or(0);
    if (file.links > 1 && walk.notes != nullptr)
        linked.append({.device = file.device, .inode = file.inode, .bytes = size, .links = file.links});
    return size;
}

/// Adds what was counted to \a item.
void TreeWalk::Worker::hand(CountedItem &item)
{
    if (bytes > 0)
        addBytes(item, std::exchange(bytes, 0));
    if (linked.isEmpty())
        return;
    try {
        const std::lock_guard lock(walk.itemsMutex);
        item.linked += linked;
    } catch (const std::bad_alloc &) { // Their bytes are counted anyway.
    }
    linked.clear();
}

void TreeWalk::Worker::tellUnread(const WalkFolder &folder, int error)
{
    if (walk.notes != nullptr && error != 0)
        walk.notes->addUnread(folder.isRoot() ? FilePath::fromStdString(folder.name)
                                              : pathOf(*folder.parent, QByteArrayView(folder.name)),
                              error);
}

void TreeWalk::Worker::readEntries(const WalkFolder &folder)
{
    while (const std::optional<FolderReader::Entry> entry = reader.nextEntry()) {
        if (isStopped())
            return;
        if (folder.item != nullptr)
            measure(folder, *entry);
        else
            look(folder, *entry);
    }
}

void TreeWalk::Worker::measure(const WalkFolder &folder, const FolderReader::Entry &entry)
{
    FileKind kind = entry.kind;
    if (kind == FileKind::regular || kind == FileKind::unknown) {
        const auto status = statusOf(folder.descriptor.get(), entry.name.data(), StatusDetail::sizeOnDisk);
        kind = status ? status->attributes.kind : FileKind::unknown;
        if (kind == FileKind::regular && status->mount == folder.mount) // A single file can be a mount point as well.
            bytes = checkedSum(bytes, counted(*status));
    }
    if (kind == FileKind::directory && !isPackageName(entry.name))
        addChild(folder, entry.name, folder.item);
}

void TreeWalk::Worker::look(const WalkFolder &folder, const FolderReader::Entry &entry)
{
    if (isHiddenName(entry.name))
        return;
    EntryStatus known{.attributes = {.kind = entry.kind}};
    const bool isShown = walk.wanted->shown == DeepEnumeration::Shown::everything;
    if (entry.kind == FileKind::unknown || (isShown && entry.kind != FileKind::directory)) {
        const auto status = statusOf(folder.descriptor.get(), entry.name.data(), StatusDetail::everything);
        if (!status || status->mount != folder.mount)
            return;
        known = *status;
    }
    const bool isFolder = known.attributes.kind == FileKind::directory;
    if (!isFolder && !isShown)
        return;
    const VisitedEntry visited(folder.descriptor.get(), entry.name, known.attributes);
    const Visit visit = walk.wanted->visit(visited);
    if (visit.action == Visit::Action::collect)
        collect(folder, visited, known, visit.group);
    else if (visit.action == Visit::Action::walkOn && isFolder && !isPackageName(entry.name))
        addChild(folder, entry.name, nullptr);
}

void TreeWalk::Worker::collect(const WalkFolder &folder, const EnumeratedEntry &entry, const EntryStatus &status,
                               int group)
{
    const FilePath path = pathOf(folder, entry.name());
    CountedItem *item = nullptr;
    {
        const std::lock_guard lock(walk.itemsMutex);
        item = &walk.items.emplace_back();
    }
    item->path = path;
    item->root = folder.root;
    item->group = group;
    item->isLeftOut = walk.wanted->leavesOut && walk.wanted->leavesOut(path);
    if (item->isLeftOut)
        return;
    if (entry.attributes().kind == FileKind::directory)
        addChild(folder, entry.name(), item);
    else if (entry.attributes().kind == FileKind::regular) {
        bytes = counted(status);
        hand(*item);
    }
}

void TreeWalk::Worker::addChild(const WalkFolder &folder, QByteArrayView name, CountedItem *item)
{
    auto child = std::make_unique<WalkFolder>();
    child->name.assign(name.data(), static_cast<size_t>(name.size()));
    child->parent = const_cast<WalkFolder *>(&folder);
    child->item = item;
    child->root = folder.root;
    child->mount = folder.mount;
    children.push_back(std::move(child));
}

std::deque<CountedItem> TreeWalk::enumerate(const DeepEnumeration &enumeration)
{
    wanted = &enumeration;
    for (int index = 0; index < enumeration.roots.size(); ++index)
        addRoot(enumeration.roots.at(index), index, nullptr);
    run();
    return takenItems();
}

std::deque<CountedItem> TreeWalk::measure(const QList<FilePath> &paths)
{
    for (int index = 0; index < paths.size(); ++index) {
        items.emplace_back().path = paths.at(index);
        addRoot(paths.at(index), index, &items.back());
    }
    run();
    return takenItems();
}

std::deque<CountedItem> TreeWalk::takenItems()
{
    for (const CountedItem &item : items) {
        if (notes != nullptr && !item.isLeftOut)
            notes->setLinked(item.path, item.linked);
    }
    return std::move(items);
}

void TreeWalk::addRoot(const FilePath &path, int index, CountedItem *item)
{
    auto root = std::make_unique<WalkFolder>();
    root->name = path.toStdString();
    root->root = index;
    root->item = item;
    queue.addRoot(std::move(root));
}

void TreeWalk::run()
{
    std::vector<std::jthread> helpers;
    int more = limits.workers - 1;
    Worker(*this).work([&] {
        try {
            for (; more > 0; --more)
                helpers.emplace_back([this] { Worker(*this).work([] {}); });
        } catch (const std::exception &) { // The system has no more threads, or no memory for one.
            more = 0;                      // The existing workers do everything.
        }
    });
}

} // namespace tidlo
