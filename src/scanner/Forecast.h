#pragma once

#include "scanner/ScanResult.h"

namespace tidlo {

/// What emptying the Trash would give back of what was found, in bytes. What is shown as recoverable is always the sum
/// of the four.
struct Forecast
{
    qint64 freed = 0;       ///< Of regular files that are counted, each inode once, if all its names are among them.
    qint64 heldByLinks = 0; ///< Of names of an inode that has others elsewhere, and of the second and further ones.
    qint64 listedTwice = 0; ///< Of what lies in another listed path, or was listed before.
    qint64 refused = 0;     ///< Of what the Trash would leave.
    bool isAtMost = false;  ///< Whether less may be freed, since files share blocks in other ways than by links.

    qint64 recoverable() const;
    bool operator==(const Forecast &) const = default;
};

/// The forecast for \a chosen, candidates of \a result with all of their paths or some of them.
Forecast forecastOf(const ScanResult &result, const QList<CleanupCandidate> &chosen);

/// "frees about 21.2 GB: 12.7 GB is linked from elsewhere"; empty if as much is freed as is recoverable.
QString forecastText(const Forecast &forecast);

} // namespace tidlo
