#include "platform/DirectoryWalker.h"

#include "platform/TreeWalk.h"
#include "platform/Volume.h"

#include <algorithm>

#include <sys/resource.h>

namespace tidlo {

namespace {

/// More than there are processors, since most of the time a worker waits for the disk. More than eight were no faster.
constexpr int mostWorkers = 8;

/// Fits into a process that may open 64 files, with the files that it opens elsewhere.
WalkLimits limitsFor(int wantedWorkers, const QList<FilePath> &roots)
{
    constexpr rlim_t leftToOthers = 32;
    constexpr rlim_t descriptorsForAWorker = 8;
    rlimit limit{.rlim_cur = 64, .rlim_max = 64};
    getrlimit(RLIMIT_NOFILE, &limit);
    const rlim_t open = std::max(limit.rlim_cur, leftToOthers) - leftToOthers;
    const rlim_t affordable = std::max<rlim_t>(limit.rlim_cur / descriptorsForAWorker, 1);
    const int workers = wantedWorkers > 0 ? wantedWorkers : (anyDiskRotates(roots) ? 1 : mostWorkers);
    return {.workers = static_cast<int>(std::min<rlim_t>(affordable, static_cast<rlim_t>(workers))),
            .openFolders = static_cast<int>(std::clamp<rlim_t>(open / 2, 4, 256))};
}

/// Depth first, each folder before its contents, names in byte order: the byte order of paths if the slash came before
/// all other bytes.
bool comesBefore(const CountedItem &left, const CountedItem &right)
{
    if (left.root != right.root)
        return left.root < right.root;
    const auto rank = [](char letter) { return letter == '/' ? 0 : static_cast<unsigned char>(letter); };
    return std::ranges::lexicographical_compare(left.path, right.path, {}, rank, rank);
}

} // namespace

QList<CollectedItem> DirectoryWalker::enumerate(const DeepEnumeration &enumeration, std::stop_token stop) const
{
    TreeWalk walk(limitsFor(workers, enumeration.roots), std::move(stop), enumeration.notes);
    const std::deque<CountedItem> items = walk.enumerate(enumeration);
    std::vector<const CountedItem *> ordered;
    std::ranges::transform(items, std::back_inserter(ordered), [](const CountedItem &item) { return &item; });
    std::ranges::sort(ordered, [](const auto *left, const auto *right) { return comesBefore(*left, *right); });
    QList<CollectedItem> result;
    result.reserve(static_cast<qsizetype>(ordered.size()));
    for (const CountedItem *item : ordered)
        result.append(
            {.path = item->path, .group = item->group, .allocatedSize = item->bytes, .isLeftOut = item->isLeftOut});
    return result;
}

QList<qint64> DirectoryWalker::allocatedSizes(const QList<FilePath> &paths, std::stop_token stop,
                                              WalkNotes *notes) const
{
    TreeWalk walk(limitsFor(workers, paths), std::move(stop), notes);
    QList<qint64> sizes;
    sizes.reserve(paths.size());
    for (const CountedItem &item : walk.measure(paths))
        sizes.append(item.bytes);
    return sizes;
}

} // namespace tidlo
