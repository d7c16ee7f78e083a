#include "scanner/Finding.h"

#include "model/CheckedSum.h"

#include <numeric>

namespace tidlo {

Finding makeFinding(const FindingTemplate &fixed, const QList<FilePath> &paths, const QList<qint64> &sizes)
{
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

Finding makeFinding(const FindingTemplate &fixed, const QList<CollectedItem> &items, int group)
{
    QList<FilePath> paths;
    QList<qint64> sizes;
    for (const CollectedItem &item : items) {
        if (item.group != group)
            continue;
        paths.append(item.path);
        sizes.append(item.allocatedSize);
    }
    return makeFinding(fixed, paths, sizes);
}

} // namespace tidlo
