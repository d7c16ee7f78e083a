#pragma once

#include "model/CleanupCandidate.h"
#include "model/ScanTotals.h"

namespace tidlo {

/// The outcome of one scan, handed over whole when the scan ends.
struct ScanSnapshot
{
    ScanTotals totals;
    QList<CleanupCandidate> candidates; ///< Filtered and ordered: never-touch last, else the largest first.

    bool operator==(const ScanSnapshot &) const = default;
};

} // namespace tidlo
