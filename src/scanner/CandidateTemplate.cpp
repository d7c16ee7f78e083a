#include "scanner/CandidateTemplate.h"

#include "model/CheckedSum.h"

#include <numeric>

CleanupCandidate makeCandidate(const CandidateTemplate &fixed, const QList<FilePath> &paths, const QList<qint64> &sizes)
{
    CleanupCandidate candidate;
    candidate.title = fixed.title;
    candidate.detail = fixed.detail;
    candidate.category = fixed.category;
    candidate.risk = fixed.risk;
    candidate.bytes = std::accumulate(sizes.begin(), sizes.end(), qint64{0}, checkedSum);
    candidate.paths = paths;
    candidate.selected = fixed.selected;
    return candidate;
}

CleanupCandidate makeCandidate(const CandidateTemplate &fixed, const QList<CollectedItem> &items, int group)
{
    QList<FilePath> paths;
    QList<qint64> sizes;
    for (const CollectedItem &item : items) {
        if (item.group != group)
            continue;
        paths.append(item.path);
        sizes.append(item.allocatedSize);
    }
    return makeCandidate(fixed, paths, sizes);
}
