#include "cli/CleanupOutcome.h"

#include "cli/Command.h"
#include "cli/FindingsText.h"
#include "model/TidloPercent.h"
#include "platform/ByteCountFormatter.h"
#include "platform/VisibleText.h"

#include <algorithm>

CleanupOutcome cleanupOutcome(const CleanupReport &report, const CleanupSelection &selection, int signal,
                              const FileManager &files)
{
    CleanupOutcome outcome{.report = report, .items = selection.paths.size(), .leftBehind = {}, .signal = signal};
    // Once all were moved, what is at such a path is new: applications make their caches again.
    if (signal != 0 || report.removedItems >= outcome.items)
        return outcome;
    std::ranges::copy_if(selection.paths, std::back_inserter(outcome.leftBehind),
                         [&files](const FilePath &path) { return files.attributesOfItem(path).has_value(); });
    return outcome;
}

QString CleanupOutcome::text() const
{
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
           disk;
}

QString CleanupOutcome::complaint() const
{
    if (leftBehind.isEmpty())
        return {};
    QString lines = QStringLiteral("tidlo-cli: %1 could not be moved and stayed in place:\n")
                        .arg(countText(leftBehind.size(), QStringLiteral("item")));
    for (const FilePath &path : leftBehind)
        lines += QStringLiteral("  ") + visibleText(path) + u'\n';
    return lines;
}

int CleanupOutcome::exitStatus() const
{
    if (signal != 0)
        return 128 + signal;
    return leftBehind.isEmpty() ? succeeded : failed;
}
