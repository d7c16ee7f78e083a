#pragma once

#include "model/ScanSnapshot.h"
#include "platform/FileManager.h"
#include "scanner/Finding.h"
#include "scanner/ScanResult.h"

namespace tidlo {

/// The result of a scan, from the figures of the disk and all findings in the order of the rules. Findings without
/// bytes are dropped unless they are never to be touched. Those come last, in the same order; all others are ordered by
/// size, the largest first, and by the order of the rules where sizes are equal. Nothing is deduplicated. A sum of
/// bytes beyond 64 bits stops the program.
ScanResult summarized(const ScanTotals &disk, const QList<Finding> &findings);

/// Adds to \a result what its forecast needs: \a notes, and which paths the Trash would refuse.
void prepareForecast(ScanResult &result, const FileManager &files, const WalkNotes &notes);

/// The figures of the volume that holds \a home, from the volume or else from its file system. What neither reports is
/// 0, and so is everything that only a scan can know.
ScanTotals diskTotals(const FileManager &files, const FilePath &home);

} // namespace tidlo
