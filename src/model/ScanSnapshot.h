#pragma once

#include "model/CleanupCandidate.h"

#include <QMetaType>

namespace tidlo {

/// Disk and scan figures. Fields ending in Percent hold fractions from 0 to 1; the others are bytes.
struct ScanTotals
{
    Q_GADGET
    Q_PROPERTY(double diskUsedPercent MEMBER diskUsedPercent)
    Q_PROPERTY(double recoverablePercent MEMBER recoverablePercent)
    Q_PROPERTY(qint64 totalBytes MEMBER totalBytes)
    Q_PROPERTY(qint64 recoverableBytes MEMBER recoverableBytes)
    Q_PROPERTY(qint64 freeBytes MEMBER freeBytes)
    Q_PROPERTY(qint64 volumeBytes MEMBER volumeBytes)

public:
    double diskUsedPercent = 0;    ///< Used share of the home volume.
    double recoverablePercent = 0; ///< Recoverable share of the home volume's capacity.
    qint64 totalBytes = 0;         ///< All candidates.
    qint64 recoverableBytes = 0;   ///< The candidates that were selected when the scan ended.
    qint64 freeBytes = 0;          ///< Available to the user, not to root.
    qint64 volumeBytes = 0;        ///< Capacity of the home volume.

    bool operator==(const ScanTotals &) const = default;
};

/// The result of one scan, published as a whole when the scan ends.
struct ScanSnapshot
{
    ScanTotals totals;
    QList<CleanupCandidate> candidates; ///< Filtered and ordered: never-touch last, else the largest first.

    bool operator==(const ScanSnapshot &) const = default;
};

} // namespace tidlo
