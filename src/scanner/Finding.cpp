#include "scanner/Finding.h"

#include "model/CheckedSum.h"

#include <numeric>

namespace tidlo {

Finding makeFinding(FindingKind kind, const QList<FilePath> &paths, const QList<qint64> &sizes)
{
    const FindingKindRow &fixed = rowOf(kind);
    CleanupCandidate candidate;
    candidate.title = fixed.title;
    candidate.detail = fixed.detail;
    candidate.category = fixed.category;
    candidate.risk = fixed.risk;
    candidate.bytes = std::accumulate(sizes.begin(), sizes.end(), qint64{0}, checkedSum);
    candidate.paths = paths;
    candidate.selected = fixed.selected;
    return {candidate, sizes};
}

Finding makeFinding(FindingKind kind, const QList<CollectedItem> &items)
{
    QList<FilePath> paths;
    QList<qint64> sizes;
    for (const CollectedItem &item : items) {
        if (item.group != qToUnderlying(kind))
            continue;
        paths.append(item.path);
        sizes.append(item.allocatedSize);
    }
    return makeFinding(kind, paths, sizes);
}

} // namespace tidlo
