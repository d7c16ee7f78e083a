#pragma once

#include "scanner/Finding.h"
#include "scanner/ScanResult.h"

namespace tidlo {

/// The result to hand over, made of the figures of the disk and of all findings in the order of the rules. Findings
/// without bytes are dropped unless they are never to be touched; those come last in their order, all others by size,
/// the largest first, and in the order of the rules where sizes are equal. Nothing is deduplicated. A sum of bytes
/// beyond 64 bits stops the program.
ScanResult summarized(const ScanTotals &disk, const QList<Finding> &findings);

} // namespace tidlo
