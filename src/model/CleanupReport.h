#pragma once

#include <QMetaType>
#include <QString>

#include <optional>

namespace tidlo {

/// The outcome of moving candidates to the Trash.
struct CleanupReport
{
    Q_GADGET
    Q_PROPERTY(qint64 recoveredBytes MEMBER recoveredBytes)
    Q_PROPERTY(qint64 removedItems MEMBER removedItems)
    Q_PROPERTY(qint64 protectedItems MEMBER protectedItems)
    Q_PROPERTY(double finalDiskUsedPercent MEMBER finalDiskUsedPercent)

public:
    qint64 recoveredBytes = 0;        ///< Estimate: each moved path counts its even share of its candidate's bytes.
    qint64 removedItems = 0;          ///< Paths that were moved to the Trash.
    qint64 protectedItems = 0;        ///< Candidates left alone because they are never to be touched.
    double finalDiskUsedPercent = 0;  ///< Fraction from 0 to 1, read again afterwards.
    std::optional<QString> aiSummary; ///< Absent when the Trash step made the report.

    bool operator==(const CleanupReport &) const = default;
};

} // namespace tidlo
