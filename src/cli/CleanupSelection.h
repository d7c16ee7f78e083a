#pragma once

#include "model/CleanupCandidate.h"

namespace tidlo {

/// The findings that are to be moved to the Trash.
struct CleanupSelection
{
    QList<CleanupCandidate> candidates;
    QList<FilePath> paths; ///< Each once, even where two candidates list it.
    qint64 bytes = 0;      ///< Of all candidates.

    /// "14 items (3.2 GB)".
    QString text() const;
};

/// Of \a candidates those that are selected, may be touched and have one of \a risks; any risk if none is given.
CleanupSelection cleanupSelection(const QList<CleanupCandidate> &candidates, const QList<CleanupRisk> &risks);

} // namespace tidlo
