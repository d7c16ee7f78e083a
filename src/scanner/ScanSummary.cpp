#include "scanner/ScanSummary.h"

#include "model/CheckedSum.h"

#include <algorithm>

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

} // namespace

ScanSnapshot summarized(const ScanTotals &disk, QList<CleanupCandidate> findings)
{
    findings.removeIf(isNothing);
    std::stable_sort(findings.begin(), findings.end(), comesBefore);

    ScanTotals totals = disk;
    for (const CleanupCandidate &candidate : std::as_const(findings)) {
        totals.totalBytes = checkedSum(totals.totalBytes, candidate.bytes);
        if (candidate.selected)
            totals.recoverableBytes = checkedSum(totals.recoverableBytes, candidate.bytes);
    }
    if (totals.volumeBytes >= 1)
        totals.recoverablePercent =
            static_cast<double>(totals.recoverableBytes) / static_cast<double>(totals.volumeBytes);
    return {totals, findings};
}
