#pragma once

#include "model/FindingKind.h"
#include "scanner/ScanContext.h"

#include <QLatin1StringView>

#include <span>

namespace tidlo {

/// What a rule found: the record, and beside it details for a closer look at the record.
struct Finding
{
    CleanupCandidate candidate;
    QList<qint64> sizes;       ///< Bytes on the disk of each of the candidate's paths, in their order.
    QList<FilePath> leftOut{}; ///< What it would also list if the user had not excluded it.
};

/// The finding of \a paths, with their allocated \a sizes, in the same order. A sum beyond 64 bits stops the program.
Finding makeFinding(FindingKind kind, const QList<FilePath> &paths, const QList<qint64> &sizes);

/// The finding of those \a paths that are not spared, which are measured here.
Finding measuredFinding(const ScanContext &context, FindingKind kind, const QList<FilePath> &paths);

/// The finding of those \a relative paths that exist in the home folder, in their order; measured here too.
Finding existingFinding(const ScanContext &context, FindingKind kind, std::span<const char *const> relative);

/// The finding of those \a items whose group is the number of \a kind, in their order.
Finding makeFinding(FindingKind kind, const QList<CollectedItem> &items);

} // namespace tidlo
