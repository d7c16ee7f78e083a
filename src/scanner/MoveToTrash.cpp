#include "scanner/MoveToTrash.h"

#include "model/CheckedSum.h"
#include "scanner/DiskTotals.h"

#include <algorithm>

namespace {

FilePath tildeExpanded(const FilePath &path, const FilePath &home)
{
    return path == "~" || path.startsWith("~/") ? home + path.sliced(1) : path;
}

bool isMoved(FileManager &files, const FilePath &path)
{
    return files.fileExists(path) && files.trashItem(path).kind == TrashOutcome::Kind::moved;
}

} // namespace

CleanupReport moveToTrash(FileManager &files, const QList<CleanupCandidate> &candidates,
                          const std::function<bool()> &stopRequested)
{
    const FilePath home = files.homeDirectoryForCurrentUser();
    CleanupReport report;
    for (const CleanupCandidate &candidate : candidates) {
        if (candidate.risk == CleanupRisk::never) {
            ++report.protectedItems;
            continue;
        }
        for (const FilePath &path : candidate.paths) {
            if (stopRequested())
                break;
            if (!isMoved(files, tildeExpanded(path, home)))
                continue;
            ++report.removedItems;
            const qint64 share = std::max<qint64>(candidate.bytes / candidate.paths.size(), 0);
            report.recoveredBytes = checkedSum(report.recoveredBytes, share);
        }
    }
    report.finalDiskUsedPercent = diskTotals(files, home).diskUsedPercent;
    return report;
}
