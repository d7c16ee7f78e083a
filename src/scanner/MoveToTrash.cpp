#include "scanner/MoveToTrash.h"

#include "model/CheckedSum.h"
#include "platform/Paths.h"
#include "scanner/ScanSummary.h"

#include <QSet>

#include <algorithm>

namespace tidlo {

namespace {

FilePath tildeExpanded(const FilePath &path, const FilePath &home)
{
    if (path == "~")
        return home;
    return path.startsWith("~/") ? joined(home, path.sliced(2)) : path;
}

/// Moves the item at \a path if it exists, and returns the outcome.
TrashOutcome outcomeOf(FileManager &files, const FilePath &path, const PlaceSet &spared)
{
    if (!spared.isEmpty() && spared.meets(PlaceFinder().placeOf(path)))
        return {.kind = TrashOutcome::Kind::refused, .reason = QStringLiteral("It is never to be suggested.")};
    if (files.fileExists(path))
        return files.trashItem(path);
    if (files.attributesOfItem(path))
        return {.kind = TrashOutcome::Kind::refused, .reason = QStringLiteral("It is a link that leads nowhere.")};
    return {.kind = TrashOutcome::Kind::gone, .reason = {}};
}

/// Keeps each item once, and none that was moved by a later attempt or with a folder above it.
void keepWhatStayed(const FileManager &files, QList<StayedItem> &stayed)
{
    QSet<FilePath> known;
    stayed.removeIf([&](const StayedItem &item) {
        const bool isRepeated = known.contains(item.path);
        known.insert(item.path);
        return isRepeated || !files.attributesOfItem(item.path);
    });
}

} // namespace

Cleanup moveToTrash(FileManager &files, const QList<CleanupCandidate> &candidates, const PlaceSet &spared,
                    const std::function<bool()> &stopRequested)
{
    const FilePath home = files.homeDirectoryForCurrentUser();
    Cleanup cleanup;
    CleanupReport &report = cleanup.report;
    for (const CleanupCandidate &candidate : candidates) {
        if (candidate.risk == CleanupRisk::never) {
            ++report.protectedItems;
            continue;
        }
        const qint64 share = std::max<qint64>(candidate.bytes / std::max<qint64>(candidate.paths.size(), 1), 0);
        for (const FilePath &listed : candidate.paths) {
            if (stopRequested())
                break;
            const FilePath path = tildeExpanded(listed, home);
            const TrashOutcome outcome = outcomeOf(files, path, spared);
            if (outcome.kind == TrashOutcome::Kind::moved) {
                ++report.removedItems;
                report.recoveredBytes = checkedSum(report.recoveredBytes, share);
                if (outcome.trashed)
                    cleanup.moved.append(*outcome.trashed);
            } else if (outcome.kind != TrashOutcome::Kind::gone) {
                cleanup.stayed.append({.path = path, .reason = outcome.reason});
            }
        }
    }
    keepWhatStayed(files, cleanup.stayed);
    report.finalDiskUsedPercent = diskTotals(files, home).diskUsedPercent;
    return cleanup;
}

} // namespace tidlo
