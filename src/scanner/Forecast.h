#pragma once

#include "scanner/ScanResult.h"

#include <QStringList>

namespace tidlo {

/// How many bytes of the findings emptying the Trash would free. The bytes shown as recoverable are always the sum of
/// the four.
struct Forecast
{
    qint64 freed = 0;       ///< Regular files that are counted, each inode once, if all its names are among them.
    qint64 heldByLinks = 0; ///< Names of an inode that has other names elsewhere, and its second and further names.
    qint64 listedTwice = 0; ///< Items that lie in another listed path, or were listed before.
    qint64 refused = 0;     ///< Items that the Trash would refuse.
    bool isAtMost = false;  ///< Whether less may be freed, since files share blocks in other ways than by links.

    qint64 recoverable() const;
    bool operator==(const Forecast &) const = default;
};

/// The forecast for \a chosen, candidates of \a result with all of their paths or some of them.
Forecast forecastOf(const ScanResult &result, const QList<CleanupCandidate> &chosen);

/// "frees about 21.2 GB".
QString freedText(const Forecast &forecast);

/// What is not freed and why, each as "12.7 GB is linked from elsewhere".
QStringList unfreedTexts(const Forecast &forecast);

/// Both: "frees about 21.2 GB: 12.7 GB is linked from elsewhere"; empty if everything recoverable is freed.
QString forecastText(const Forecast &forecast);

} // namespace tidlo
