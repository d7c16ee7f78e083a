#pragma once

#include "model/ScanSnapshot.h"
#include "platform/FileManager.h"
#include "scanner/Finding.h"
#include "scanner/ScanResult.h"

namespace tidlo {

/// The result to hand over, made of the figures of the disk and of all findings in the order of the rules. Findings
/// without bytes are dropped unless they are never to be touched; those come last in their order, all others by size,
/// the largest first, and in the order of the rules where sizes are equal. Nothing is deduplicated. A sum of bytes
/// beyond 64 bits stops the program.
ScanResult summarized(const ScanTotals &disk, const QList<Finding> &findings);

/// Adds to \a result what a forecast of it needs: \a notes, and what the Trash would leave.
void prepareForecast(ScanResult &result, const FileManager &files, const WalkNotes &notes);

/// The figures of the volume that holds \a home, as its volume tells them or else its file system. What neither tells
/// is 0, and so is everything that only a scan can know.
ScanTotals diskTotals(const FileManager &files, const FilePath &home);

} // namespace tidlo
