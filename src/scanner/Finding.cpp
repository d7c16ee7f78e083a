#include "scanner/Finding.h"

#include "model/CheckedSum.h"
#include "platform/Paths.h"

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

Finding measuredFinding(const ScanContext &context, FindingKind kind, const QList<FilePath> &paths)
{
    QList<FilePath> proposed;
    QList<FilePath> leftOut;
    for (const FilePath &path : paths)
        (context.spares(path) ? leftOut : proposed).append(path);
    Finding finding = makeFinding(kind, proposed, context.files.allocatedSizes(proposed, context.stop, context.notes));
    finding.leftOut = leftOut;
    return finding;
}

Finding existingFinding(const ScanContext &context, FindingKind kind, std::span<const char *const> relative)
{
    QList<FilePath> paths;
    for (const char *path : relative) {
        const FilePath absolute = joined(context.home, path);
        if (context.files.fileExists(absolute))
            paths.append(absolute);
    }
    return measuredFinding(context, kind, paths);
}

Finding makeFinding(FindingKind kind, const QList<CollectedItem> &items)
{
    QList<FilePath> paths;
    QList<qint64> sizes;
    QList<FilePath> leftOut;
    for (const CollectedItem &item : items) {
        if (item.group != qToUnderlying(kind))
            continue;
        if (item.isLeftOut) {
            leftOut.append(item.path);
            continue;
        }
        paths.append(item.path);
        sizes.append(item.allocatedSize);
    }
    Finding finding = makeFinding(kind, paths, sizes);
    finding.leftOut = leftOut;
    return finding;
}

} // namespace tidlo
