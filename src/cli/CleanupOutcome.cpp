#include "cli/CleanupOutcome.h"

#include "cli/Command.h"
#include "cli/FindingsText.h"
#include "model/TidloPercent.h"
#include "platform/ByteCountFormatter.h"
#include "platform/VisibleText.h"

#include <algorithm>

namespace tidlo {

QString CleanupOutcome::text() const
{
    const CleanupReport &report = cleanup.report;
    const QString interrupted = signal == 0 ? QString() : QStringLiteral("Interrupted. ");
    const QString disk = QStringLiteral("Disk used: %1\n").arg(tidloPercent(report.finalDiskUsedPercent));
    if (report.removedItems == 0)
        return interrupted + QStringLiteral("Nothing was moved to the Trash.\n") + disk;

    const QString all = countText(std::max(items, report.removedItems), QStringLiteral("item"));
    const bool movedAll = report.removedItems >= items;
    const QString moved = movedAll ? all : QStringLiteral("%1 of %2").arg(QString::number(report.removedItems), all);
    return interrupted +
           QStringLiteral("Moved %1 (%2) to the Trash. The space returns when the Trash is emptied.\n")
               .arg(moved, byteCountText(report.recoveredBytes)) +
           disk + QStringLiteral("To put something back: tidlo-cli restore\n");
}

QString CleanupOutcome::complaint() const
{
    if (cleanup.stayed.isEmpty())
        return {};
    QString lines = QStringLiteral("tidlo-cli: %1 stayed:\n").arg(cleanup.stayed.size());
    for (const StayedItem &item : cleanup.stayed)
        lines += QStringLiteral("  %1\n    %2\n").arg(visibleText(item.path), visibleText(item.reason));
    return lines;
}

ExitStatus CleanupOutcome::exitStatus() const
{
    if (signal != 0)
        return static_cast<ExitStatus>(128 + signal);
    return cleanup.stayed.isEmpty() ? ExitStatus::succeeded : ExitStatus::failed;
}

} // namespace tidlo
