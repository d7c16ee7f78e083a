#include "scanner/ScanResult.h"

#include "model/CheckedSum.h"

#include <QSet>

#include <algorithm>
#include <functional>
#include <numeric>
#include <utility>

namespace tidlo {

QList<HoldingItem> holdersOf(const ScanResult &result, const FilePath &path)
{
    PlaceSet inner;
    inner.insert(result.placeOf(path));
    QSet<FilePath> known{result.placeOf(path)};
    QList<HoldingItem> holders;
    for (const CleanupCandidate &candidate : result.snapshot.candidates) {
        const QList<qint64> sizes = result.sizes.value(candidate.id);
        for (qsizetype item = 0; item < candidate.paths.size(); ++item) {
            const FilePath &listed = candidate.paths.at(item);
            const FilePath place = result.placeOf(listed);
            if (!inner.hasOneWithin(place) || known.contains(place))
                continue;
            known.insert(place);
            holders.append({.path = listed, .bytes = sizes.value(item)});
        }
    }
    std::ranges::stable_sort(holders, std::greater(), &HoldingItem::bytes);
    return holders;
}

void leaveOut(ScanResult &result, const PlaceSet &spared)
{
    QList<CleanupCandidate> left;
    for (CleanupCandidate candidate : std::as_const(result.snapshot.candidates)) {
        const QList<FilePath> listed = std::exchange(candidate.paths, {});
        const QList<qint64> listedSizes = result.sizes.value(candidate.id);
        QList<qint64> sizes;
        for (qsizetype item = 0; item < listed.size(); ++item) {
            if (spared.meets(result.placeOf(listed.at(item))))
                continue;
            candidate.paths.append(listed.at(item));
            sizes.append(listedSizes.value(item));
        }
        if (sizes.size() < listed.size()) {
            candidate.bytes = std::accumulate(sizes.begin(), sizes.end(), qint64(0), checkedSum);
            result.sizes.insert(candidate.id, sizes);
        }
        if (!sizes.isEmpty() || listed.isEmpty())
            left.append(candidate);
    }
    result.snapshot.candidates = left;
}

} // namespace tidlo
