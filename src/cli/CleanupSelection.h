#pragma once

#include "model/CleanupCandidate.h"

namespace tidlo {

/// The findings to move to the Trash.
struct CleanupSelection
{
    QList<CleanupCandidate> candidates;
    QList<FilePath> paths; ///< Each path once, even if two candidates list it.
    qint64 bytes = 0;      ///< Of all candidates.

    /// "14 items (3.2 GB)".
    QString text() const;
};

/// Those of \a candidates that are selected, may be touched and have one of \a risks; any risk if there are none.
CleanupSelection cleanupSelection(const QList<CleanupCandidate> &candidates, const QList<CleanupRisk> &risks);

} // namespace tidlo
