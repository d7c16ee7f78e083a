#pragma once

#include "model/FindingKind.h"
#include "scanner/ScanContext.h"

#include <QLatin1StringView>

namespace tidlo {

/// What a rule found: the record, and beside it what a closer look at the record needs.
struct Finding
{
    CleanupCandidate candidate;
    QList<qint64> sizes;       ///< Bytes on the disk of each of the candidate's paths, in their order.
    QList<FilePath> leftOut{}; ///< What it would list, had it not been asked to spare that.
};

/// The finding of \a paths, whose allocated sizes are \a sizes, in the same order. A sum beyond 64 bits stops the
/// program.
Finding makeFinding(FindingKind kind, const QList<FilePath> &paths, const QList<qint64> &sizes);

/// The finding of \a paths, measured but for those that are spared.
Finding measuredFinding(const ScanContext &context, FindingKind kind, const QList<FilePath> &paths);

/// The finding of those of \a items that were collected for it, in their order: their group is the kind's number.
Finding makeFinding(FindingKind kind, const QList<CollectedItem> &items);

} // namespace tidlo
