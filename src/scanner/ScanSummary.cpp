#include "scanner/ScanSummary.h"

#include "model/CheckedSum.h"

#include <algorithm>

namespace tidlo {

namespace {

bool isNothing(const CleanupCandidate &candidate)
{
    return candidate.bytes <= 0 && candidate.risk != CleanupRisk::never;
}

bool comesBefore(const CleanupCandidate &a, const CleanupCandidate &b)
{
    if (a.risk == CleanupRisk::never)
        return false;
    if (b.risk == CleanupRisk::never)
        return true;
    return a.bytes > b.bytes;
}

VolumeCapacity capacityOfVolume(const FileManager &files, const FilePath &home)
{
    if (const std::optional<VolumeCapacity> capacity = files.volumeCapacity(home))
        return *capacity;
    return files.fileSystemAttributes(home).value_or(VolumeCapacity());
}

} // namespace

ScanResult summarized(const ScanTotals &disk, const QList<Finding> &findings)
{
    ScanResult result;
    QList<CleanupCandidate> &candidates = result.snapshot.candidates;
    PlaceFinder places;
    for (const Finding &finding : findings) {
        result.leftOut += finding.leftOut;
        if (isNothing(finding.candidate))
            continue;
        candidates.append(finding.candidate);
        result.sizes.insert(finding.candidate.id, finding.sizes);
        for (const FilePath &path : finding.candidate.paths) {
            const FilePath place = places.placeOf(path);
            if (place != path)
                result.places.insert(path, place);
        }
    }
    std::ranges::stable_sort(candidates, comesBefore);

    ScanTotals &totals = result.snapshot.totals;
    totals = disk;
    for (const CleanupCandidate &candidate : std::as_const(candidates)) {
        totals.totalBytes = checkedSum(totals.totalBytes, candidate.bytes);
        if (candidate.selected)
            totals.recoverableBytes = checkedSum(totals.recoverableBytes, candidate.bytes);
    }
    if (totals.volumeBytes >= 1)
        totals.recoverablePercent =
            static_cast<double>(totals.recoverableBytes) / static_cast<double>(totals.volumeBytes);
    return result;
}

void prepareForecast(ScanResult &result, const FileManager &files, const WalkNotes &notes)
{
    QList<FilePath> listed;
    for (const CleanupCandidate &candidate : std::as_const(result.snapshot.candidates))
        listed += candidate.paths;
    const QList<bool> left = files.leftByTrash(listed);
    for (qsizetype item = 0; item < listed.size(); ++item) {
        if (left.value(item))
            result.refused.insert(listed.at(item));
    }
    result.linked = notes.linked();
    result.unread = notes.unread();
    result.sharesBlocks = files.mayShareBlocks(files.homeDirectoryForCurrentUser());
}

ScanTotals diskTotals(const FileManager &files, const FilePath &home)
{
    const VolumeCapacity capacity = capacityOfVolume(files, home);
    ScanTotals totals;
    totals.freeBytes = capacity.available.value_or(0);
    totals.volumeBytes = capacity.total.value_or(0);
    if (totals.volumeBytes >= 1) {
        const qint64 used = std::max<qint64>(totals.volumeBytes - totals.freeBytes, 0);
        totals.diskUsedPercent = static_cast<double>(used) / static_cast<double>(totals.volumeBytes);
    }
    return totals;
}

} // namespace tidlo
