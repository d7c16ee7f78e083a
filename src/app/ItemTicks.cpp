#include "app/ItemTicks.h"

#include "model/CheckedSum.h"

#include <algorithm>
#include <numeric>

namespace tidlo {

namespace {

QList<int> allItems(const CleanupCandidate &finding)
{
    QList<int> items(finding.paths.size());
    std::iota(items.begin(), items.end(), 0);
    return items;
}

} // namespace

void ItemTicks::untick(const CleanupCandidate &finding, const QList<int> &items, const ScanResult &result)
{
    for (const int item : items)
        unticked.insert(result.placeOf(finding.paths.at(item)));
}

void ItemTicks::tick(const CleanupCandidate &finding, const QList<int> &items, const ScanResult &result)
{
    const auto others = passedOver.find(finding.id);
    for (const int item : items) {
        unticked.removeWithin(result.placeOf(finding.paths.at(item)));
        if (others != passedOver.end())
            others->remove(finding.paths.at(item));
    }
    if (others != passedOver.end() && others->isEmpty())
        passedOver.erase(others);
}

void ItemTicks::tickAlone(const CleanupCandidate &finding, const QList<int> &items, const ScanResult &result)
{
    passedOver.insert(finding.id, QSet<FilePath>(finding.paths.begin(), finding.paths.end()));
    tick(finding, items, result);
}

void ItemTicks::tickAll(const CleanupCandidate &finding, const ScanResult &result)
{
    tick(finding, allItems(finding), result);
}

QList<bool> ItemTicks::of(const CleanupCandidate &finding, const ScanResult &result) const
{
    const QSet<FilePath> others = passedOver.value(finding.id);
    QList<bool> ticks;
    ticks.reserve(finding.paths.size());
    for (const FilePath &path : finding.paths)
        ticks.append(!others.contains(path) && !unticked.hasOneWithin(result.placeOf(path)));
    return ticks;
}

CleanupCandidate ItemTicks::left(const CleanupCandidate &candidate, const CleanupCandidate &scanned,
                                 const ScanResult &result) const
{
    if (candidate.id != scanned.id)
        return candidate;
    CleanupCandidate left = candidate;
    left.paths = scanned.paths;
    left.bytes = scanned.bytes;
    const QList<bool> ticks = of(scanned, result);
    if (!ticks.contains(false))
        return left;
    const QList<qint64> sizes = result.sizes.value(scanned.id);
    left.paths.clear();
    left.bytes = 0;
    for (qsizetype item = 0; item < ticks.size(); ++item) {
        if (!ticks.at(item))
            continue;
        left.paths.append(scanned.paths.at(item));
        left.bytes = checkedSum(left.bytes, sizes.value(item));
    }
    return left;
}

QList<ItemElsewhere> goneFrom(const CleanupCandidate &before, const CleanupCandidate &after)
{
    const QSet<FilePath> left(after.paths.begin(), after.paths.end());
    QList<ItemElsewhere> gone;
    for (const FilePath &path : before.paths) {
        if (!left.contains(path))
            gone.append({.title = before.title, .path = path});
    }
    return gone;
}

} // namespace tidlo
